// A CSV text of any bytes is read or refused, and what is read is whole.
#include "csv_table.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Check(const std::string& text, const zemva::tools::RepairLog& repair) {
  try {
    const zemva::tools::CsvTable table = zemva::tools::ReadCsvTable(text, repair);
    const std::size_t rows = table.observation_names.size();
    if (table.observation_numbers.size() != rows ||
        table.values.size() != rows * table.variable_names.size()) {
      std::abort();
    }
    for (const std::string& name : table.variable_names) {
      if (name.size() > 24) std::abort();
    }
  } catch (const zemva::tools::CsvProblem&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  Check(text, nullptr);
  Check(text, [](const zemva::tools::CsvProblem&) {});
  return 0;
}
