#include "zemva/numeric/vector_listing.h"

#include <string>
#include <string_view>

#include "zemva/errors/listing.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr int kValuesPerLine = 7;
constexpr int kCellWidth = 10;
constexpr std::size_t kTextWidth = 9;
constexpr int kDoubleDecimals = 3;

void ListValue(Listing& listing, std::integral auto value) {
  listing.Text(" ").Right(kCellWidth - 1, int{value});
}

void ListValue(Listing& listing, float value) {
  if (IsMissing(value)) {
    listing.Right(kCellWidth, ".");
  } else {
    listing.Text(" ").General(kCellWidth - 1, value);
  }
}

void ListValue(Listing& listing, double value) {
  listing.Text(" ");
  if (IsMissing(value)) {
    listing.Right(kCellWidth, ".");
  } else {
    listing.Fixed(kCellWidth, kDoubleDecimals, value);
  }
}

void ListValue(Listing& listing, const char* text) {
  std::string field(std::string_view(text).substr(0, kTextWidth));
  field.resize(kTextWidth, ' ');
  listing.Text(" ").Text(field);
}

template <typename T>
void ListAll(StreamWindow& window, std::span<const T> values, bool is_wrapped) {
  Listing listing(window);
  int on_line = 0;
  for (const T value : values) {
    if (++on_line > kValuesPerLine && is_wrapped) {
      listing.EndLine();
      on_line = 1;
    }
    ListValue(listing, value);
  }
  if (!values.empty()) listing.EndLine();
}

}  // namespace

void ListValues(StreamWindow& window, std::span<const char> values) {
  ListAll(window, values, true);
}

void ListValues(StreamWindow& window, std::span<const short> values) {
  ListAll(window, values, true);
}

void ListValues(StreamWindow& window, std::span<const float> values, bool is_wrapped) {
  ListAll(window, values, is_wrapped);
}

void ListValues(StreamWindow& window, std::span<const double> values, bool is_wrapped) {
  ListAll(window, values, is_wrapped);
}

void ListValues(StreamWindow& window, std::span<const char* const> texts) {
  ListAll(window, texts, true);
}

}  // namespace zemva
