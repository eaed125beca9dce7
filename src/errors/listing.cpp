#include "errors/listing.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace zemva {

Listing& Listing::Text(std::string_view text) {
  line_ += text;
  return *this;
}

Listing& Listing::Right(int width, std::string_view text) {
  const auto field = static_cast<std::size_t>(width);
  if (text.size() < field) line_.append(field - text.size(), ' ');
  return Text(text);
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
  line_ += '\n';
  window_ << line_;
  line_.clear();
  return *this;
}

}  // namespace zemva
