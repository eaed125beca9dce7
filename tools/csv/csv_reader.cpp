#include "csv/csv_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <span>
#include <string>
#include <utility>

#include "csv/csv_labels.h"
#include "csv/csv_values.h"
#include "zemva/data/names.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

constexpr std::array<std::string_view, 6> kNumberHeadings = {"ONum",   "Num",    "num",
                                                             "Number", "number", "No"};
constexpr std::array<std::string_view, 3> kNameHeadings = {"ONam", "Name", "name"};

// What tells whether one of the first two columns holds numbers or names of observations.
struct LabelColumn {
  bool exists = false;
  std::string heading;
  bool has_text = false;
  bool has_value = false;
  bool is_whole = true;  // all cells are whole numbers

  bool HasNoHeading() const { return exists && heading.empty(); }
  bool IsHeadedAs(std::span<const std::string_view> headings) const {
    return std::find(headings.begin(), headings.end(), heading) != headings.end();
  }
  bool IsText() const { return has_text && !has_value; }

  void AddCell(std::string_view cell) {
    is_whole = is_whole && ParseNumber(cell).has_value();
    if (!IsMissingCell(cell)) (IsNumeric(cell) ? has_value : has_text) = true;
  }
};

// A file as its first reading shows it.
struct Outline {
  int column_count = 0;  // of the header row
  int row_count = 0;     // without it
  std::array<LabelColumn, 2> labels;
};

Outline Survey(const CsvText& text) {
  Outline outline;
  CsvCells cells(text);
  CsvCell cell;
  bool is_header = true;
  while (cells.Next(cell)) {
    const auto index = static_cast<std::size_t>(cell.place.column - 1);
    if (is_header) {
      outline.column_count = cell.place.column;
      if (index < outline.labels.size()) {
        outline.labels[index].exists = true;
        outline.labels[index].heading = cell.text;
      }
    } else if (index < outline.labels.size()) {
      outline.labels[index].AddCell(cell.text);
    }
    if (!cell.is_last) continue;
    if (!is_header) ++outline.row_count;
    is_header = false;
  }
  return outline;
}

// The columns that hold numbers and names of observations, 0 where there is none. They are the
// first, in either order.
struct LabelColumns {
  int number = 0;
  int name = 0;

  int Count() const { return std::max(number, name); }
};

LabelColumns FindLabelColumns(const std::array<LabelColumn, 2>& columns) {
  const auto& [first, second] = columns;
  if (first.HasNoHeading() && second.HasNoHeading()) return {1, 2};
  const bool is_first_named = !first.HasNoHeading();
  if (first.IsHeadedAs(kNumberHeadings) || (!is_first_named && first.is_whole)) {
    return {1, second.IsHeadedAs(kNameHeadings) || second.IsText() ? 2 : 0};
  }
  if (first.IsHeadedAs(kNameHeadings) || !is_first_named || (first.IsText() && second.exists)) {
    return {second.IsHeadedAs(kNumberHeadings) ? 2 : 0, 1};
  }
  return {};
}

// The second reading.
class TableReader {
 public:
  TableReader(const CsvText& text, const CsvRepairs& repairs)
      : text_(text),
        repairs_(repairs),
        outline_(Survey(text)),
        labels_(FindLabelColumns(outline_.labels)),
        cells_(text),
        variable_names_(CsvNames::Kind::kVariables, text, repairs),
        names_(CsvNames::Kind::kObservations, text, repairs),
        numbers_(text, repairs),
        values_(text, repairs) {}

  CsvTable Read();

 private:
  void ReadHeader();
  void MakeMatrix();
  void ReadRow(const CsvCell& first, int row);
  void TakeCell(CsvPlace place, std::string_view cell, int row);
  std::unique_ptr<ObsInfo> MakeObservations();
  std::unique_ptr<VarInfo> MakeVariables();

  int VariableCount() const { return std::min(outline_.column_count - labels_.Count(), kMaxItems); }
  int ObservationCount() const { return std::min(outline_.row_count, kMaxItems); }

  const CsvText& text_;
  const CsvRepairs& repairs_;
  Outline outline_;
  LabelColumns labels_;
  CsvCells cells_;
  CsvNames variable_names_;
  CsvNames names_;
  CsvNumbers numbers_;
  CsvValues values_;
  std::unique_ptr<XFMatrix> matrix_;
};

CsvTable TableReader::Read() {
  ReadHeader();
  MakeMatrix();
  CsvCell cell;
  int row = 0;
  while (cells_.Next(cell)) {
    if (row == kMaxItems) {
      repairs_.RefuseOrTell(cell.place, "the table has more than 32767 rows",
                            std::to_string(outline_.row_count - row) + " left out");
      break;
    }
    ReadRow(cell, ++row);
  }
  CsvTable table;
  table.variables = MakeVariables();
  table.observations = MakeObservations();
  table.values = std::move(matrix_);
  return table;
}

void TableReader::ReadHeader() {
  CsvCell cell;
  int variable = 0;
  do {
    cells_.Next(cell);
    if (cell.place.column <= labels_.Count()) continue;
    if (++variable <= kMaxItems) {
      variable_names_.Add(cell.place, cell.text);
    } else if (variable == kMaxItems + 1) {
      const int more = outline_.column_count - cell.place.column + 1;
      repairs_.RefuseOrTell(cell.place, "the table has more than 32767 variables",
                            std::to_string(more) + " left out");
    }
  } while (!cell.is_last);
  if (variable == 0) throw CsvError(cell.place, "the table has no variable");
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
  CsvCell cell = first;
  TakeCell(cell.place, cell.text, row);
  while (!cell.is_last) {
    cells_.Next(cell);
    TakeCell(cell.place, cell.text, row);
  }
  if (cell.place.column == outline_.column_count) return;
  const bool is_short = cell.place.column < outline_.column_count;
  const std::string counts =
      std::to_string(cell.place.column) + ", not " + std::to_string(outline_.column_count);
  repairs_.RefuseOrTell(cell.place, "the number of cells in the row is " + counts,
                        is_short ? "the others are missing" : "those beyond left out");
  while (cell.place.column < outline_.column_count) {
    ++cell.place.column;
    TakeCell(cell.place, {}, row);
  }
}

void TableReader::TakeCell(CsvPlace place, std::string_view cell, int row) {
  if (place.column == labels_.number) {
    numbers_.Add(place, cell);
  } else if (place.column == labels_.name) {
    names_.Add(place, cell);
  } else if (const int variable = place.column - labels_.Count(); variable <= VariableCount()) {
    (*matrix_)[row][variable] = values_.Value(place, cell);
  }
}

std::unique_ptr<ObsInfo> TableReader::MakeObservations() {
  auto table = std::make_unique<ObsInfo>("ObsInfo");
  const std::vector<short> numbers = numbers_.Finish();
  const std::vector<std::string> names = names_.Finish();
  for (std::size_t i = 0; i < static_cast<std::size_t>(ObservationCount()); ++i) {
    const auto position = static_cast<short>(i + 1);
    const short number = labels_.number != 0 ? numbers[i] : position;
    const std::string name = labels_.name != 0 ? names[i] : NumberedName("Obs_", position);
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

CsvTable ReadCsv(std::string_view bytes, const CsvRepairs& repairs) {
  const CsvText text(bytes);
  return TableReader(text, repairs).Read();
}

}  // namespace zemva::tools
