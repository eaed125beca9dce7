#include "zemva/errors/listing.h"

#include <array>
#include <cstddef>
#include <cstdio>
#include <new>

namespace zemva {

Listing& Listing::Text(std::string_view text) {
  return Right(0, text);
}

Listing& Listing::Right(int width, std::string_view text) {
  const auto field = static_cast<std::size_t>(width);
  try {
    if (text.size() < field) line_.append(field - text.size(), ' ');
    line_ += text;
  } catch (const std::bad_alloc&) {
    is_cut_ = true;
  }
  return *this;
}

Listing& Listing::Fixed(int width, int decimals, double value) {
  // 309 digits before the point is the longest that a double needs.
  std::array<char, 400> digits;
  std::snprintf(digits.data(), digits.size(), "%.*f", decimals, value);
  return Right(width, std::string_view(digits.data()));
}

Listing& Listing::General(int width, double value) {
  std::array<char, 40> digits;
  std::snprintf(digits.data(), digits.size(), "%g", value);
  return Right(width, std::string_view(digits.data()));
}

Listing& Listing::EndLine() {
  Text("\n");
  if (is_cut_) line_ = "\n";  // a line that memory was too short for is an empty one
  is_cut_ = false;
  window_ << line_;
  line_.clear();
  return *this;
}

}  // namespace zemva
