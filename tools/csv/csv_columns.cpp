#include "csv/csv_columns.h"
#include "zemva/base/positions.h"

#include "text/code_page.h"
#include "zemva/base/atomic_file.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

class JsonCells : public CellWriter {
 public:
  explicit JsonCells(JsonWriter& json) : json_(json) {}

  void Text(std::string_view text) override { json_.Text(text); }
  void Integer(int value) override { json_.Integer(value); }
  void Number(float value) override { json_.Number(value); }
  void Empty() override { json_.Null(); }

 private:
  JsonWriter& json_;
};

}  // namespace

void CsvColumns::AddInteger(std::string name, std::function<int(short)> integer) {
  columns_.push_back({std::move(name), [integer = std::move(integer)](short i, CellWriter& cells) {
                        cells.Integer(integer(i));
                      }});
}

void CsvColumns::AddText(std::string name, std::function<const char*(short)> text) {
  columns_.push_back({std::move(name), [text = std::move(text)](short i, CellWriter& cells) {
                        const char* const cell = text(i);
                        cells.Text(cell == nullptr ? "" : Utf8FromCodePage(cell));
                      }});
}

void CsvColumns::AddNumber(std::string name, std::function<float(short)> number) {
  columns_.push_back({std::move(name), [number = std::move(number)](short i, CellWriter& cells) {
                        const float cell = number(i);
                        IsMissing(cell) ? cells.Empty() : cells.Number(cell);
                      }});
}

bool CsvColumns::WriteTo(const std::string& path, short row_count, char decimal_mark) const {
  AtomicFile file(path);
  if (file.GetStream() == nullptr) return false;
  CsvWriter csv(file.GetStream(), decimal_mark);
  for (const Column& column : columns_) csv.Text(column.name);
  csv.EndRow();
  for (const short i : PositionsUpTo(row_count)) {
    for (const Column& column : columns_) column.write(i, csv);
    csv.EndRow();
  }
  return file.Commit();
}

void CsvColumns::WriteTo(JsonWriter& json, short row_count) const {
  JsonCells cells(json);
  json.BeginList();
  for (const short i : PositionsUpTo(row_count)) {
    json.BeginObject();
    for (const Column& column : columns_) {
      json.Key(column.name);
      column.write(i, cells);
    }
    json.EndObject();
  }
  json.EndList();
}

}  // namespace zemva::tools
