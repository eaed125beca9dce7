#include "csv_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "code_page.h"
#include "csv_reader.h"
#include "data/itm_info.h"
#include "dio/dio_file.h"
#include "numeric/missing.h"

namespace zemva::tools {
namespace {

constexpr std::size_t kLongestName = DioFile::kMaxText - 1;
constexpr std::size_t kMostValues = std::numeric_limits<std::int32_t>::max() / sizeof(float);

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) {
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return lower;
}

bool IsOneOf(std::string_view cell, std::initializer_list<std::string_view> words) {
  return std::ranges::find(words, std::string_view(Lower(cell))) != words.end();
}

std::string_view Trimmed(std::string_view cell) {
  const std::size_t first = cell.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return cell.substr(first, cell.find_last_not_of(" \t") - first + 1);
}

bool IsMissingCell(std::string_view cell) {
  return cell.empty() || cell == "NA";
}

struct Number {
  enum Kind { kValue, kNoNumber, kTooLarge } kind;
  float value;
};

// The float nearest to a decimal number.
Number ParseNumber(std::string_view cell) {
  if (cell.starts_with('+')) cell.remove_prefix(1);
  const char* const end = cell.data() + cell.size();
  float value = 0.0f;
  const auto [stop, error] = std::from_chars(cell.data(), end, value);
  if (stop != end || error == std::errc::invalid_argument || cell.starts_with('+')) {
    return {Number::kNoNumber, 0.0f};
  }
  if (error == std::errc::result_out_of_range) {
    // Too small a number is zero, with its sign; too large a one is refused.
    long double wide = 0.0L;
    std::from_chars(cell.data(), end, wide);
    if (std::fabs(wide) >= 1.0L) return {Number::kTooLarge, 0.0f};
    return {Number::kValue, cell.starts_with('-') ? -0.0f : 0.0f};
  }
  return std::isfinite(value) ? Number{Number::kValue, value} : Number{Number::kNoNumber, 0.0f};
}

// Which of the first columns are no values.
struct Layout {
  bool has_numbers = false;
  bool has_names = false;

  std::size_t LabelCount() const { return std::size_t{has_numbers} + std::size_t{has_names}; }
};

bool IsNumberHeading(std::string_view cell) {
  return IsOneOf(cell, {"onum", "num", "number", "no", "no.", "nr"});
}
bool IsNameHeading(std::string_view cell) {
  return IsOneOf(cell, {"onam", "nam", "name"});
}

Layout FindLayout(const std::vector<std::string_view>& header, std::string_view first_cell) {
  const std::string_view first = Trimmed(header[0]);
  const std::string_view second = header.size() > 1 ? Trimmed(header[1]) : "-";
  if (first.empty() && second.empty()) return {true, true};
  if (IsNumberHeading(first)) return {true, second.empty() || IsNameHeading(second)};
  if (first.empty() || IsNameHeading(first)) return {false, true};
  const std::string_view below = Trimmed(first_cell);
  const bool is_text = !IsMissingCell(below) && ParseNumber(below).kind == Number::kNoNumber;
  return {false, is_text};
}

class TableReader {
 public:
  TableReader(std::string text, const RepairLog& repair)
      : is_utf8_(IsUtf8(text)), reader_(std::move(text)), repair_(repair) {}

  CsvTable Read();

 private:
  // Repairs, or refuses.
  void Repair(std::size_t column, std::string reason);
  [[noreturn]] void Refuse(std::string reason);

  void ReadHeader(const std::vector<std::string_view>& header);
  void ReadRow();
  void ReadLabels();
  float ReadValue(std::size_t column);
  std::string NameOf(std::string_view cell, std::size_t column, std::set<std::string>& cut_names);
  void NumberTheRest();
  bool NextRow();

  bool is_utf8_;
  CsvReader reader_;
  const RepairLog& repair_;
  CsvTable table_;
  Layout layout_;
  int line_ = 0;  // that a problem is reported for
  std::size_t column_count_ = 0;
  std::vector<std::string_view> cells_;
  std::set<std::string> cut_variables_;
  std::set<std::string> cut_observations_;
  std::vector<bool> is_number_used_ = std::vector<bool>(std::size_t{1} << 16);
  std::vector<std::size_t> unnumbered_;  // rows without a number of their own
};

void TableReader::Refuse(std::string reason) {
  throw CsvProblem{line_, 0, std::move(reason)};
}

void TableReader::Repair(std::size_t column, std::string reason) {
  CsvProblem problem{line_, static_cast<int>(column), std::move(reason)};
  if (!repair_) throw problem;
  repair_(problem);
}

// A blank line is a row only where a row has one cell.
bool TableReader::NextRow() {
  do {
    if (!reader_.NextRow(cells_)) {
      line_ = reader_.Line();
      if (reader_.IsQuoteOpen()) Refuse("a quote is not closed");
      return false;
    }
  } while (cells_.size() == 1 && cells_[0].empty() && column_count_ != 1);
  line_ = reader_.Line();
  return true;
}

CsvTable TableReader::Read() {
  if (!NextRow()) throw CsvProblem{0, 0, "there is no header row"};
  const std::vector<std::string_view> header = cells_;
  const int header_line = line_;
  column_count_ = header.size();
  const bool has_rows = NextRow();
  layout_ = FindLayout(header, has_rows ? cells_[0] : std::string_view());
  const int first_row_line = std::exchange(line_, header_line);
  ReadHeader(header);
  line_ = first_row_line;
  for (bool is_row = has_rows; is_row; is_row = NextRow()) ReadRow();
  NumberTheRest();
  return std::move(table_);
}

void TableReader::ReadHeader(const std::vector<std::string_view>& header) {
  if (column_count_ - layout_.LabelCount() > static_cast<std::size_t>(kMaxItems)) {
    Refuse("more than 32767 variables");
  }
  for (std::size_t j = layout_.LabelCount(); j < header.size(); ++j) {
    table_.variable_names.push_back(NameOf(header[j], j + 1, cut_variables_));
  }
}

void TableReader::ReadRow() {
  if (table_.observation_names.size() == static_cast<std::size_t>(kMaxItems)) {
    Refuse("more than 32767 observations");
  }
  if (table_.values.size() > kMostValues) Refuse("the values do not fit a file of 2 GiB");
  if (cells_.size() != column_count_) {
    Repair(std::min(cells_.size(), column_count_) + 1,
           std::to_string(cells_.size()) + " cells in place of " + std::to_string(column_count_) +
               (cells_.size() < column_count_ ? "; the rest is missing" : "; the rest is dropped"));
    cells_.resize(column_count_);
  }
  ReadLabels();
  for (std::size_t j = layout_.LabelCount(); j < column_count_; ++j) {
    table_.values.push_back(ReadValue(j));
  }
}

void TableReader::ReadLabels() {
  const std::size_t row = table_.observation_numbers.size();
  short number = 0;
  if (layout_.has_numbers) {
    const std::string_view cell = Trimmed(cells_[0]);
    const auto [stop, error] = std::from_chars(cell.data(), cell.data() + cell.size(), number);
    const bool fits = error == std::errc() && stop == cell.data() + cell.size();
    const auto slot = static_cast<std::size_t>(number - std::numeric_limits<short>::min());
    if (!fits) {
      Repair(1, "'" + std::string(cell) + "' is no observation number (-32768 to 32767)");
      unnumbered_.push_back(row);
    } else if (is_number_used_[slot]) {
      Repair(1, "observation number " + std::string(cell) + " stands twice");
      unnumbered_.push_back(row);
    } else {
      is_number_used_[slot] = true;
    }
  } else {
    number = static_cast<short>(row + 1);
  }
  table_.observation_numbers.push_back(number);
  const std::size_t name_column = layout_.has_numbers ? 1 : 0;
  table_.observation_names.push_back(
      layout_.has_names ? NameOf(cells_[name_column], name_column + 1, cut_observations_)
                        : "Obs_" + std::to_string(number));
}

// Rows whose number was none, or another row's, get the smallest numbers that are free.
void TableReader::NumberTheRest() {
  const std::size_t zero = std::size_t{1} << 15;
  std::size_t slot = zero + 1;
  for (const std::size_t row : unnumbered_) {
    while (is_number_used_[slot]) ++slot;  // there are as many positive numbers as rows
    is_number_used_[slot] = true;
    table_.observation_numbers[row] = static_cast<short>(slot - zero);
  }
}

float TableReader::ReadValue(std::size_t column) {
  std::string_view cell = Trimmed(cells_[column]);
  if (IsMissingCell(cell)) return kMissing;
  std::string with_point;
  if (reader_.Separator() != ',' && cell.find('.') == std::string_view::npos) {
    with_point = cell;
    std::ranges::replace(with_point, ',', '.');
    cell = with_point;
  }
  const Number number = ParseNumber(cell);
  if (number.kind == Number::kValue && !IsMissing(number.value)) return number.value;
  const char* reason = number.kind == Number::kNoNumber   ? "' is no number"
                       : number.kind == Number::kTooLarge ? "' is too large a number"
                                                          : "' stands for a missing value";
  Repair(column + 1, "'" + std::string(cells_[column]) + reason);
  return kMissing;
}

// The name in a cell, cut where it is too long, and then other than those cut before.
std::string TableReader::NameOf(std::string_view cell, std::size_t column,
                                std::set<std::string>& cut_names) {
  std::string name(cell);
  if (is_utf8_) {
    bool is_whole = true;
    name = CodePageFromUtf8(cell, is_whole);
    if (!is_whole) {
      Repair(column, "'" + std::string(cell) + "' has a character that a name cannot have");
    }
  } else if (name.find('\0') != std::string::npos) {
    Repair(column, "a name has a zero byte");
    std::erase(name, '\0');
  }
  if (name.size() <= kLongestName) return name;
  std::string cut = name.substr(0, kLongestName);
  for (int n = 2; !cut_names.insert(cut).second; ++n) {
    const std::string suffix = "~" + std::to_string(n);
    cut = name.substr(0, kLongestName - suffix.size()) + suffix;
  }
  Repair(column, "'" + std::string(cell) + "' has more than 24 characters; cut to '" +
                     Utf8FromCodePage(cut) + "'");
  return cut;
}

}  // namespace

CsvTable ReadCsvTable(std::string text, const RepairLog& repair) {
  return TableReader(std::move(text), repair).Read();
}

}  // namespace zemva::tools
