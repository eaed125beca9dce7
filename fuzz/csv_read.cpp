// Reads any bytes as comma-separated values, refusing what does not fit and repairing it. What is
// read without a repair must read the same when it is repaired.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string_view>

#include "csv/csv_reader.h"

namespace {

using zemva::tools::CsvTable;

std::optional<CsvTable> Read(std::string_view bytes, zemva::tools::CsvRepairs::Report report) {
  try {
    return ReadCsv(bytes, {}, zemva::tools::CsvRepairs(std::move(report)));
  } catch (const zemva::tools::CsvError&) {
    return std::nullopt;
  }
}

void Require(bool holds) {
  if (!holds) std::abort();
}

// Counts that agree, and names that fit.
void Check(const CsvTable& table) {
  Require(table.observations->GetNItm() == table.values->NRow());
  Require(table.variables->GetNItm() == table.values->NCol());
  for (int i = 1; i <= table.values->NRow(); ++i) {
    Require(std::strlen(table.observations->GetONam(static_cast<short>(i))) <= 24);
  }
  for (int j = 1; j <= table.values->NCol(); ++j) {
    const std::size_t length = std::strlen(table.variables->GetVNam(static_cast<short>(j)));
    Require(length >= 1 && length <= 24);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::size_t repairs = 0;
  const std::optional<CsvTable> refused = Read(bytes, nullptr);
  const std::optional<CsvTable> repaired =
      Read(bytes, [&](auto, const std::string&) { ++repairs; });
  if (refused) Require(repaired && repairs == 0);
  if (repaired) {
    Check(*repaired);
    Require(refused || repairs > 0);
  }
  return 0;
}
