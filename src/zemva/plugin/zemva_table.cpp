#include "zemva/plugin/zemva_table.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>

#include "zemva/errors/memory_guard.h"
#include "zemva/errors/messages.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/missing.h"
#include "zemva/plugin/dataset_handle.h"

namespace {

using zemva::Dataset;
namespace status = zemva::status;

// Rows or columns: how many there are, and what the data set calls one.
struct Axis {
  short (Dataset::*count)();
  int (Dataset::*get_info)(short, short&, char*&);
};
constexpr Axis kObservations = {&Dataset::GetNObsDS, &Dataset::GetObsInfo};
constexpr Axis kVariables = {&Dataset::GetNVarDS, &Dataset::GetVarInfo};

// Calls visit(dataset, index, place) for `count` indices from `first` on, with places from 0.
template <typename Element, typename Visit>
int ForEach(void* table, const Axis& axis, int first, int count, Element* to, Visit visit) {
  if (table == nullptr || to == nullptr) return status::mva::kNullPointer;
  Dataset& dataset = zemva::DatasetOf(table);
  const int most = (dataset.*axis.count)();
  if (first < 1 || count < 0 || count > most + 1 - first) return status::mva::kIndexOutOfRange;
  for (int i = 0; i < count; ++i) {
    visit(dataset, static_cast<short>(first + i), static_cast<std::size_t>(i));
  }
  return status::kOk;
}

float OrMissing(float value, float missing) {
  return zemva::IsMissing(value) ? missing : value;
}

int GetNumbers(void* table, const Axis& axis, int first, int count, int* numbers) {
  return ForEach(table, axis, first, count, numbers,
                 [&](Dataset& dataset, short index, std::size_t place) {
                   short number = 0;
                   char* name = nullptr;
                   (dataset.*axis.get_info)(index, number, name);
                   numbers[place] = number;
                 });
}

int GetNames(void* table, const Axis& axis, int first, int count, int width, char* names) {
  if (width < 1) return status::mva::kIndexOutOfRange;
  const auto field = static_cast<std::size_t>(width);
  return ForEach(table, axis, first, count, names,
                 [&](Dataset& dataset, short index, std::size_t place) {
                   short number = 0;
                   char* name = nullptr;
                   (dataset.*axis.get_info)(index, number, name);
                   const std::string_view text(name == nullptr ? "" : name);
                   char* const to = names + place * field;
                   std::fill_n(to, field, '\0');
                   text.copy(to, field - 1);
                 });
}

}  // namespace

int ZEMVATable_Open(const char* path, void** table) {
  if (path == nullptr || table == nullptr) return status::mva::kNullPointer;
  *table = nullptr;
  return zemva::MemoryGuarded([&] {
    auto dataset = std::make_unique<Dataset>("Table", path, zemva::GlobalStreamWindow());
    const int status = dataset->Load();
    if (status == status::kOk) *table = dataset.release();  // the caller's
    return status;
  });
}

void ZEMVATable_Close(void* table) {
  delete static_cast<Dataset*>(table);
}

const char* ZEMVATable_GetMessage(int status) {
  return zemva::GetVdoMsg(status);
}

int ZEMVATable_GetSize(void* table, int* observations, int* variables) {
  if (table == nullptr || observations == nullptr || variables == nullptr) {
    return status::mva::kNullPointer;
  }
  *observations = zemva::DatasetOf(table).GetNObsDS();
  *variables = zemva::DatasetOf(table).GetNVarDS();
  return status::kOk;
}

int ZEMVATable_GetRows(void* table, int first, int count, float missing, float* values) {
  return ForEach(table, kObservations, first, count, values,
                 [&](Dataset& dataset, short i, std::size_t place) {
                   const float* const row = dataset[i] + 1;
                   const auto length = static_cast<std::size_t>(dataset.GetNVarDS());
                   std::transform(row, row + length, values + place * length,
                                  [&](float value) { return OrMissing(value, missing); });
                 });
}

int ZEMVATable_GetColumns(void* table, int first, int count, float missing, float* values) {
  if (const int status = ForEach(table, kVariables, first, count, values, [](auto&&...) {});
      status != status::kOk || count == 0) {
    return status;
  }
  // Row by row, as the values lie.
  Dataset& dataset = zemva::DatasetOf(table);
  const auto length = static_cast<std::size_t>(dataset.GetNObsDS());
  for (std::size_t i = 0; i < length; ++i) {
    const float* const row = dataset[static_cast<short>(i + 1)] + first;
    for (std::size_t k = 0; k < static_cast<std::size_t>(count); ++k) {
      values[k * length + i] = OrMissing(row[k], missing);
    }
  }
  return status::kOk;
}

int ZEMVATable_GetObsNumbers(void* table, int first, int count, int* numbers) {
  return GetNumbers(table, kObservations, first, count, numbers);
}

int ZEMVATable_GetVarNumbers(void* table, int first, int count, int* numbers) {
  return GetNumbers(table, kVariables, first, count, numbers);
}

int ZEMVATable_GetObsNames(void* table, int first, int count, int width, char* names) {
  return GetNames(table, kObservations, first, count, width, names);
}

int ZEMVATable_GetVarNames(void* table, int first, int count, int width, char* names) {
  return GetNames(table, kVariables, first, count, width, names);
}
