#include "csv/csv_reader.h"

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <unordered_map>
#include <utility>

#include "csv/csv_labels.h"
#include "csv/csv_outline.h"
#include "csv/csv_values.h"
#include "text/code_page.h"
#include "text/messages.h"
#include "zemva/data/names.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// The classes of observations, by the texts of a column.
class CsvClasses {
 public:
  explicit CsvClasses(const CsvText& text) : text_(text) {}

  void Add(CsvPlace place, std::string_view cell) {
    char number = 0;
    if (!text_.IsMissing(cell)) number = NumberOf(place, WithoutBlanks(cell));
    numbers_.push_back(number);
    if (number != 0) ++counts_[static_cast<std::size_t>(number - 1)];
  }

  // "3 classes from 'Species': 1 setosa (50), 2 ..."
  std::string Describe(const std::string& column) const {
    std::string list;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      list += (i == 0 ? ": " : ", ") + std::to_string(i + 1) + ' ' + names_[i] + " (" +
              std::to_string(counts_[i]) + ")";
    }
    return std::to_string(names_.size()) + " classes from " + column + list;
  }

  std::vector<char> TakeNumbers() { return std::move(numbers_); }
  std::vector<std::string> TakeNames() { return std::move(names_); }

 private:
  char NumberOf(CsvPlace place, std::string_view cell) {
    constexpr std::size_t kMostClasses = 99;
    const auto [found, is_new] =
        known_.try_emplace(std::string(cell), static_cast<char>(names_.size() + 1));
    if (!is_new) return found->second;
    if (names_.size() == kMostClasses) throw CsvError(place, "there are more than 99 classes");
    bool is_whole = true;
    names_.push_back(PrintableFromCodePage(text_.InCodePage(cell, is_whole)));
    counts_.push_back(0);
    return found->second;
  }

  const CsvText& text_;
  std::unordered_map<std::string, char> known_;
  std::vector<std::string> names_;
  std::vector<int> counts_;
  std::vector<char> numbers_;
};

// The second reading.
class TableReader {
 public:
  TableReader(const CsvText& text, const CsvOptions& options, const CsvRepairs& repairs)
      : text_(text),
        options_(options),
        repairs_(repairs),
        outline_(text, options),
        cells_(text),
        variable_names_(CsvNames::Kind::kVariables, text, repairs),
        names_(CsvNames::Kind::kObservations, text, repairs),
        numbers_(text, repairs),
        classes_(text),
        values_(text, options, repairs) {}

  CsvTable Read();

 private:
  void ReadHeader();
  void MakeHeader();
  void AddVariable(CsvPlace place, std::string_view name);
  void MakeMatrix();
  void ReadRow(const CsvCell& first, int row);
  void TakeCell(CsvPlace place, std::string_view cell, int row);
  std::unique_ptr<ObsInfo> MakeObservations();
  std::unique_ptr<VarInfo> MakeVariables();

  std::string Describe() const;

  int VariableCount() const { return std::min(outline_.GetVariableCount(), kMaxItems); }
  int ObservationCount() const { return std::min(outline_.GetRowCount(), kMaxItems); }

  const CsvText& text_;
  const CsvOptions& options_;
  const CsvRepairs& repairs_;
  CsvOutline outline_;
  CsvCells cells_;
  CsvNames variable_names_;
  CsvNames names_;
  CsvNumbers numbers_;
  CsvClasses classes_;
  CsvValues values_;
  std::unique_ptr<XFMatrix> matrix_;
};

CsvTable TableReader::Read() {
  options_.is_without_header ? MakeHeader() : ReadHeader();
  if (outline_.GetRowCount() == 0) {
    throw CsvError(outline_.GetFirstPlace(), "there is no row below the header row");
  }
  outline_.RefuseTexts();
  MakeMatrix();
  CsvCell cell;
  int row = 0;
  while (cells_.Next(cell)) {
    if (row == kMaxItems) {
      repairs_.RefuseOrTell(CsvRepair::kRowsLeftOut, cell.place,
                            "the table has more than 32767 rows",
                            std::to_string(outline_.GetRowCount() - row) + " left out");
      break;
    }
    ReadRow(cell, ++row);
  }
  CsvTable table;
  table.description = Describe();
  table.variables = MakeVariables();
  table.observations = MakeObservations();
  table.values = std::move(matrix_);
  if (outline_.FindRole(CsvRole::kClass) != 0) {
    table.classes = classes_.TakeNumbers();
    table.class_names = classes_.TakeNames();
  }
  return table;
}

void TableReader::ReadHeader() {
  CsvCell cell;
  do {
    cells_.Next(cell);
    if (outline_.GetRole(cell.place.column) == CsvRole::kVariable) {
      AddVariable(cell.place, cell.text);
    }
  } while (!cell.is_last);
}

// Names for a table that has none.
void TableReader::MakeHeader() {
  for (int column = 1; column <= outline_.GetColumnCount(); ++column) {
    if (outline_.GetRole(column) != CsvRole::kVariable) continue;
    AddVariable({outline_.GetFirstPlace().line, column},
                NumberedName("Var_", outline_.GetVariable(column)));
  }
}

void TableReader::AddVariable(CsvPlace place, std::string_view name) {
  const int variable = outline_.GetVariable(place.column);
  if (variable <= kMaxItems) {
    variable_names_.Add(place, name);
  } else if (variable == kMaxItems + 1) {
    const int more = outline_.GetVariableCount() - kMaxItems;
    repairs_.RefuseOrTell(CsvRepair::kVariablesLeftOut, place,
                          "the table has more than 32767 variables",
                          std::to_string(more) + " left out");
  }
}

// Cells of rows that are too short are repaired, but not without bounds: else a long header row
// over rows of one cell asked for any amount of memory.
void TableReader::MakeMatrix() {
  constexpr std::size_t kAlwaysAllowed = std::size_t{1} << 16;
  const auto rows = static_cast<std::size_t>(ObservationCount());
  const auto columns = static_cast<std::size_t>(VariableCount());
  const std::size_t allowed = std::max(text_.GetCharacters().size() + 1, kAlwaysAllowed);
  if (rows > allowed / columns) {
    throw CsvError({1, 1}, "the header row has far more cells than the rows");
  }
  matrix_ = std::make_unique<XFMatrix>("Dataset", ObservationCount(), VariableCount(), Unfilled{});
  if (matrix_->GetStatus() != status::kOk) throw std::bad_alloc();
}

void TableReader::ReadRow(const CsvCell& first, int row) {
  const int column_count = outline_.GetColumnCount();
  CsvCell cell = first;
  TakeCell(cell.place, cell.text, row);
  while (!cell.is_last) {
    cells_.Next(cell);
    if (cell.place.column <= column_count) TakeCell(cell.place, cell.text, row);
  }
  if (cell.place.column == column_count) return;
  const bool is_short = cell.place.column < column_count;
  const std::string counts =
      std::to_string(cell.place.column) + ", not " + std::to_string(column_count);
  repairs_.RefuseOrTell(is_short ? CsvRepair::kRowFilledUp : CsvRepair::kRowCut, cell.place,
                        "the number of cells in the row is " + counts,
                        is_short ? "the others are missing" : "those beyond left out");
  while (cell.place.column < column_count) {
    ++cell.place.column;
    TakeCell(cell.place, {}, row);
  }
}

void TableReader::TakeCell(CsvPlace place, std::string_view cell, int row) {
  switch (outline_.GetRole(place.column)) {
    case CsvRole::kNumber:
      return numbers_.Add(place, cell);
    case CsvRole::kName:
      return names_.Add(place, cell);
    case CsvRole::kClass:
      return classes_.Add(place, cell);
    case CsvRole::kDropped:
      return;
    case CsvRole::kVariable:
      break;
  }
  const int variable = outline_.GetVariable(place.column);
  if (variable <= VariableCount()) (*matrix_)[row][variable] = values_.Value(place, cell);
}

std::string TableReader::Describe() const {
  const auto label = [this](CsvRole role, const char* noun) {
    const int column = outline_.FindRole(role);
    return column == 0 ? std::string("no ") + noun
                       : std::string(noun) + " from " + outline_.Describe(column);
  };
  std::string text = Counted(ObservationCount(), "observation") + " (" +
                     label(CsvRole::kNumber, "numbers") + ", " + label(CsvRole::kName, "names") +
                     "), " + Counted(VariableCount(), "variable");
  if (const int column = outline_.FindRole(CsvRole::kClass); column != 0) {
    text += ", " + classes_.Describe(outline_.Describe(column));
  }
  return text;
}

std::unique_ptr<ObsInfo> TableReader::MakeObservations() {
  auto table = std::make_unique<ObsInfo>("ObsInfo");
  const std::vector<short> numbers = numbers_.Finish();
  const std::vector<std::string> names = names_.Finish();
  for (std::size_t i = 0; i < static_cast<std::size_t>(ObservationCount()); ++i) {
    const auto position = static_cast<short>(i + 1);
    const short number = !numbers.empty() ? numbers[i] : position;
    const std::string name = !names.empty() ? names[i] : NumberedName("Obs_", position);
    if (table->AddObs(number, name.c_str()) != status::kOk) throw std::bad_alloc();
  }
  return table;
}

std::unique_ptr<VarInfo> TableReader::MakeVariables() {
  auto table = std::make_unique<VarInfo>("VarInfo");
  short number = 0;
  for (const std::string& name : variable_names_.Finish()) {
    if (table->AddVar(++number, name.c_str()) != status::kOk) throw std::bad_alloc();
  }
  return table;
}

}  // namespace

CsvTable ReadCsv(std::string_view bytes, const CsvOptions& options, const CsvRepairs& repairs) {
  const CsvText text(bytes, options);
  return TableReader(text, options, repairs).Read();
}

}  // namespace zemva::tools
