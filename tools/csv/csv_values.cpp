#include "csv/csv_values.h"

#include <charconv>
#include <cmath>

#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// invalid_argument for what is not a number, from end to end; result_out_of_range, without a value,
// for one that is too large or, not being 0, so small that it would be.
std::errc Parse(std::string_view number, float& value) {
  const char* const end = number.data() + number.size();
  const auto result = std::from_chars(number.data(), end, value);
  if (result.ptr != end) return std::errc::invalid_argument;
  const bool is_word = result.ec == std::errc() && !std::isfinite(value);
  return is_word ? std::errc::invalid_argument : result.ec;
}

}  // namespace

std::string_view WithoutPlus(std::string_view number) {
  return number.starts_with('+') && !number.starts_with("+-") ? number.substr(1) : number;
}

bool IsNumeric(std::string_view cell) {
  std::string number(WithoutPlus(WithoutBlanks(cell)));
  if (const std::size_t comma = number.find(','); comma != std::string::npos) number[comma] = '.';
  float value = 0.0f;
  return Parse(number, value) != std::errc::invalid_argument;
}

float CsvValues::Value(CsvPlace place, std::string_view cell) {
  if (text_.IsMissing(cell)) return kMissing;
  float value = 0.0f;
  const std::string_view fault = FindFault(WithoutPlus(WithoutBlanks(cell)), value);
  if (fault.empty()) return value;
  repairs_.RefuseOrTell(CsvRepair::kCellMadeMissing, place, text_.Quoted(cell) + std::string(fault),
                        "missing");
  return kMissing;
}

std::string_view CsvValues::FindFault(std::string_view number, float& value) {
  constexpr std::string_view kNoNumber = " is not a number";
  const std::size_t mark_position = number.find_first_of(".,");
  const char mark = mark_position == std::string_view::npos ? '\0' : number[mark_position];
  if (mark != '\0' && decimal_mark_ != '\0' && mark != decimal_mark_) return kNoNumber;
  if (mark == ',') {
    with_point_ = number;
    with_point_[mark_position] = '.';
    number = with_point_;
  }
  const std::errc result = Parse(number, value);
  if (result == std::errc::invalid_argument) return kNoNumber;
  if (result != std::errc()) return " is beyond the range of single precision";
  if (IsMissing(value)) return " stands for a missing value in a data set";
  if (mark != '\0') decimal_mark_ = mark;
  return {};
}

}  // namespace zemva::tools
