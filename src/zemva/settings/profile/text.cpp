#include "zemva/settings/profile/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

namespace zemva {
namespace {

constexpr std::string_view kBlanks = " \t";

char LowerCase(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

template <typename Number>
struct Parsed {
  Number value = 0;
  bool is_too_large = false;
  std::string_view rest;  // the whole text when it begins with no number
};

// Whether a real number that is out of range is too small and not too large: its first digit other
// than 0 stands behind the decimal point, once the exponent has moved that.
bool IsTooSmall(std::string_view number) {
  const std::size_t exponent_at = std::min(number.find_first_of("eE"), number.size());
  const std::string_view digits = number.substr(0, exponent_at);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = std::min(digits.find_first_of("123456789"), digits.size());
  const std::string_view exponent = number.substr(std::min(exponent_at + 1, number.size()));
  return static_cast<double>(point) - static_cast<double>(first) + LeadingInteger(exponent) < 0;
}

// from_chars takes no plus, and takes the words for infinity and for what is not a number.
template <typename Number>
Parsed<Number> ParseLeading(std::string_view text) {
  Parsed<Number> parsed;
  parsed.rest = text;
  std::string_view number = WithoutLeadingBlanks(text);
  if (number.starts_with('+')) {
    number.remove_prefix(1);
    if (number.starts_with('-')) return parsed;
  }
  const std::string_view unsigned_part = number.substr(number.starts_with('-') ? 1 : 0);
  if (unsigned_part.find_first_of("0123456789.") != 0) return parsed;
  const auto [end, error] =
      std::from_chars(number.data(), number.data() + number.size(), parsed.value);
  if (error == std::errc::invalid_argument) return parsed;
  const std::string_view taken = number.substr(0, static_cast<std::size_t>(end - number.data()));
  parsed.is_too_large = error == std::errc::result_out_of_range && !IsTooSmall(taken);
  if (error == std::errc::result_out_of_range) parsed.value = 0;
  if (parsed.is_too_large) {
    parsed.value = number.starts_with('-') ? std::numeric_limits<Number>::lowest()
                                           : std::numeric_limits<Number>::max();
  }
  parsed.rest = number.substr(taken.size());
  return parsed;
}

template <typename Number>
std::optional<Number> ParseWhole(std::string_view text) {
  const std::string_view number = WithoutTrailingBlanks(text);
  const Parsed<Number> parsed = ParseLeading<Number>(number);
  if (number.empty() || parsed.is_too_large || !parsed.rest.empty()) return std::nullopt;
  return parsed.value;
}

}  // namespace

bool IsSameIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, LowerCase, LowerCase);
}

bool LessIgnoringCase::operator()(std::string_view a, std::string_view b) const {
  return std::ranges::lexicographical_compare(a, b, {}, LowerCase, LowerCase);
}

int LeadingInteger(std::string_view text) {
  return ParseLeading<int>(text).value;
}
double LeadingReal(std::string_view text) {
  return ParseLeading<double>(text).value;
}
std::optional<int> ParseInteger(std::string_view text) {
  return ParseWhole<int>(text);
}
std::optional<double> ParseReal(std::string_view text) {
  return ParseWhole<double>(text);
}

std::string FormatReal(double value) {
  constexpr int kSignificantDigits = 6;
  std::array<char, 32> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                          std::chars_format::general, kSignificantDigits);
  return {digits.data(), end};
}

std::string FormatShortest(double value) {
  std::array<char, 32> digits;
  const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return {digits.data(), end};
}

}  // namespace zemva
