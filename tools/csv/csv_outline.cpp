#include "csv/csv_outline.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

#include "csv/csv_labels.h"
#include "csv/csv_values.h"
#include "text/code_page.h"
#include "text/messages.h"
#include "text/near_word.h"
#include "zemva/data/itm_info.h"

namespace zemva::tools {
namespace {

constexpr std::array<std::string_view, 6> kNumberHeadings = {"ONum",   "Num",    "num",
                                                             "Number", "number", "No"};
constexpr std::array<std::string_view, 3> kNameHeadings = {"ONam", "Name", "name"};
constexpr std::size_t kMostColumns = 2 * std::size_t{kMaxItems};

bool IsOneOf(std::span<const std::string_view> words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

}  // namespace

CsvOutline::CsvOutline(const CsvText& text, const CsvOptions& options)
    : text_(text), options_(options) {
  Survey();
  for (const std::string& column : options.dropped_columns) {
    Assign(column, "--drop", CsvRole::kDropped);
  }
  Assign(options.class_column, "--class-by", CsvRole::kClass);
  Assign(options.name_column, "--names", CsvRole::kName);
  Assign(options.number_column, "--numbers", CsvRole::kNumber);
  AssignLabels();
  CountVariables();
}

void CsvOutline::Survey() {
  CsvCells cells(text_);
  CsvCell cell;
  bool is_first = true;
  while (cells.Next(cell)) {
    const auto index = static_cast<std::size_t>(cell.place.column - 1);
    if (is_first) {
      if (index == 0) first_place_ = cell.place;
      column_count_ = cell.place.column;
      if (index < kMostColumns) {
        columns_.emplace_back().heading =
            !options_.is_without_header ? cell.text : std::string_view();
      }
    }
    const bool is_data = !is_first || options_.is_without_header;
    if (is_data && index < columns_.size()) AddCell(index, cell.text);
    if (!cell.is_last) continue;
    if (is_data) ++row_count_;
    is_first = false;
  }
}

void CsvOutline::AddCell(std::size_t index, std::string_view cell) {
  constexpr std::size_t kLabelColumns = 2;
  Column& column = columns_[index];
  if (index < kLabelColumns) column.is_whole = column.is_whole && ParseNumber(cell).has_value();
  if (column.has_value || text_.IsMissing(cell)) return;
  (IsNumeric(cell) ? column.has_value : column.has_text) = true;
  const std::size_t sign = cell.find_first_not_of(" +-");
  column.has_word = column.has_word || cell.find_first_not_of("0123456789., '", sign) != cell.npos;
}

CsvOutline::Column* CsvOutline::FindColumn(const std::string& wanted) {
  std::size_t lost = 0;
  const std::string heading = CodePageFromArgument(wanted, lost);
  const auto is_wanted = [&](const Column& column) {
    bool is_whole = true;
    return !column.heading.empty() && text_.InCodePage(column.heading, is_whole) == heading;
  };
  const auto column = std::ranges::find_if(columns_, is_wanted);
  if (column != columns_.end()) return &*column;
  std::size_t number = 0;
  const char* const end = wanted.data() + wanted.size();
  const auto result = std::from_chars(wanted.data(), end, number);
  const bool is_number = result.ec == std::errc() && result.ptr == end;
  return is_number && number >= 1 && number <= columns_.size() ? &columns_[number - 1] : nullptr;
}

void CsvOutline::Assign(const std::optional<std::string>& wanted, const char* option,
                        CsvRole role) {
  if (!wanted) return;
  Column* const column = FindColumn(*wanted);
  if (column == nullptr && options_.are_columns_optional) return;
  const std::string subject = std::string(option) + ": ";
  if (column == nullptr) {
    std::vector<std::string> headings;
    for (const Column& each : columns_) headings.push_back(each.heading);
    throw CsvError(first_place_, subject + "there is no column " + zemva::tools::Quoted(*wanted) +
                                     Suggestion(*wanted, headings));
  }
  if (column->role != CsvRole::kVariable && column->role != role) {
    throw CsvError(first_place_, subject + "the column " + zemva::tools::Quoted(*wanted) +
                                     " is given for something else");
  }
  column->role = role;
}

bool CsvOutline::HasNoHeading(std::size_t index) const {
  return index < columns_.size() && columns_[index].heading.empty();
}

// The numbers and names of observations are the first columns, in either order, where the options
// do not say which they are.
void CsvOutline::AssignLabels() {
  const auto is_free = [this](std::size_t index) {
    return index < columns_.size() && columns_[index].role == CsvRole::kVariable;
  };
  const auto take = [&](std::size_t index, CsvRole role) {
    if (is_free(index) && FindRole(role) == 0) columns_[index].role = role;
  };
  if (options_.is_without_header) {
    if (columns_.size() > 1 && columns_[0].IsText()) take(0, CsvRole::kName);
    return;
  }
  if (HasNoHeading(0) && HasNoHeading(1)) {
    take(0, CsvRole::kNumber);
    take(1, CsvRole::kName);
    return;
  }
  const Column& first = columns_[0];
  const bool has_second = columns_.size() > 1;
  const Column second = has_second ? columns_[1] : Column{};
  if (IsOneOf(kNumberHeadings, first.heading) || (first.heading.empty() && first.is_whole)) {
    take(0, CsvRole::kNumber);
    if (IsOneOf(kNameHeadings, second.heading) || second.IsText()) take(1, CsvRole::kName);
  } else if (IsOneOf(kNameHeadings, first.heading) || first.heading.empty() ||
             (first.IsText() && has_second)) {
    take(0, CsvRole::kName);
    if (IsOneOf(kNumberHeadings, second.heading)) take(1, CsvRole::kNumber);
  }
}

void CsvOutline::CountVariables() {
  for (Column& column : columns_) {
    if (column.role == CsvRole::kVariable) column.variable = ++variable_count_;
  }
  variable_count_ += column_count_ - static_cast<int>(columns_.size());
  if (variable_count_ == 0) {
    throw CsvError({first_place_.line, column_count_}, "the table has no variable");
  }
}

CsvRole CsvOutline::GetRole(int column) const {
  const auto index = static_cast<std::size_t>(column - 1);
  return index < columns_.size() ? columns_[index].role : CsvRole::kVariable;
}

int CsvOutline::GetVariable(int column) const {
  const auto index = static_cast<std::size_t>(column - 1);
  return index < columns_.size() ? columns_[index].variable
                                 : variable_count_ - (column_count_ - column);
}

int CsvOutline::FindRole(CsvRole role) const {
  const auto column = std::ranges::find(columns_, role, &Column::role);
  return column == columns_.end() ? 0 : static_cast<int>(column - columns_.begin()) + 1;
}

std::string CsvOutline::Describe(int column) const {
  const std::string& heading = columns_[static_cast<std::size_t>(column - 1)].heading;
  return heading.empty() ? "column " + std::to_string(column) : text_.Quoted(heading);
}

void CsvOutline::RefuseTexts() const {
  const auto is_text = [](const Column& column) {
    return column.role == CsvRole::kVariable && column.IsText() && column.has_word;
  };
  const auto column = std::ranges::find_if(columns_, is_text);
  if (column == columns_.end()) return;
  const int number = static_cast<int>(column - columns_.begin()) + 1;
  throw CsvError({first_place_.line, number},
                 Describe(number) +
                     " holds texts: --class-by makes classes of it, --names names "
                     "of observations, --drop leaves it out");
}

}  // namespace zemva::tools
