#include "csv/csv_columns.h"
#include "zemva/base/positions.h"

#include "text/code_page.h"
#include "zemva/base/atomic_file.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {

void CsvColumns::AddInteger(std::string name, std::function<int(short)> integer) {
  columns_.push_back({std::move(name), [integer = std::move(integer)](short i, CsvWriter& csv) {
                        csv.Text(std::to_string(integer(i)));
                      }});
}

void CsvColumns::AddText(std::string name, std::function<const char*(short)> text) {
  columns_.push_back({std::move(name), [text = std::move(text)](short i, CsvWriter& csv) {
                        const char* const cell = text(i);
                        csv.Text(cell == nullptr ? "" : Utf8FromCodePage(cell));
                      }});
}

void CsvColumns::AddNumber(std::string name, std::function<float(short)> number) {
  columns_.push_back({std::move(name), [number = std::move(number)](short i, CsvWriter& csv) {
                        const float cell = number(i);
                        IsMissing(cell) ? csv.Empty() : csv.Number(cell);
                      }});
}

void CsvColumns::AddVectors(const std::string& stem, int a,
                            std::function<float(char, short)> number) {
  for (int c = 1; c <= a; ++c) {
    AddNumber(stem + "[" + std::to_string(c) + "]",
              [number, c](short i) { return number(static_cast<char>(c), i); });
  }
}

bool CsvColumns::WriteTo(const std::string& path, short row_count) const {
  AtomicFile file(path);
  if (file.GetStream() == nullptr) return false;
  CsvWriter csv(file.GetStream());
  for (const Column& column : columns_) csv.Text(column.name);
  csv.EndRow();
  for (const short i : PositionsUpTo(row_count)) {
    for (const Column& column : columns_) column.write(i, csv);
    csv.EndRow();
  }
  return file.Commit();
}

}  // namespace zemva::tools
