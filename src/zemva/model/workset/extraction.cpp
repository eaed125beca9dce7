#include "zemva/model/workset/extraction.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <new>
#include <numeric>
#include <span>
#include <string_view>

#include "zemva/base/positions.h"
#include "zemva/data/selection.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// Without a branch, for loops that run over several elements at once.
bool IsFinite(float value) {
  constexpr std::uint32_t kExponent = 0x7f800000;
  return (std::bit_cast<std::uint32_t>(value) & kExponent) != kExponent;
}

// Makes what is not finite missing, and returns how many elements were not.
int RefuseNotFinite(std::span<float> row) {
  int refused_count = 0;
  for (const float value : row) refused_count += IsFinite(value) ? 0 : 1;
  if (refused_count > 0) std::ranges::replace_if(row, std::not_fn(IsFinite), kMissing);
  return refused_count;
}

// Copies the elements, and returns how many of them are not finite and now missing.
int Gather(const DataSource& source, const std::vector<short>& rows,
           const std::vector<short>& variables, XFMatrix& matrix) {
  std::vector<short> columns;
  columns.reserve(variables.size());
  for (const short variable : variables) columns.push_back(source.columns[Slot(variable)]);
  const auto is_gap = [](short one, short next) { return one == 0 || next != one + 1; };
  const bool is_run = !columns.empty() && columns.back() != 0 &&
                      std::ranges::adjacent_find(columns, is_gap) == columns.end();
  int refused_count = 0;
  matrix.StartActValInfo();
  for (int i = 1; i <= matrix.NRow(); ++i) {
    const float* from = source.dataset[rows[Slot(i)]];
    const std::span<float> row = matrix.Row(i);
    if (is_run) {
      std::copy_n(from + columns.front(), row.size(), row.begin());
    } else {
      std::ranges::transform(columns, row.begin(), [from](short column) {
        return column == 0 ? kMissing : from[column];
      });
    }
    refused_count += RefuseNotFinite(row);
    matrix.AddRowToActValInfo(i);
  }
  return refused_count;
}

void Report(const DataSource& source, int refused_count, const XI1Vector& excluded,
            StreamWindow& window) {
  if (refused_count > 0) {
    Listing(window)
        .Number(refused_count)
        .Text(" value(s) that are not finite numbers are taken as missing.")
        .EndLine();
  }
  for (int i = 1; i <= excluded.NVal(); ++i) {
    if (excluded[i] != kSelected) continue;
    Listing(window)
        .Text("Observation ")
        .Number(source.observations.GetONum(source.rows[Slot(i)]))
        .Text(" had value(s) excluded due to transformation domain error.\r")
        .EndLine();
  }
}

// Appends what is missing to `count` rows, and drops what is beyond.
template <typename Table, typename Add>
Table Complete(Table table, short count, Add add) {
  for (int i = table.GetNItm() + 1; i <= count; ++i) {
    if (add(table, static_cast<short>(i)) != status::kOk) throw std::bad_alloc();
  }
  table.KeepFirst(count);
  return table;
}

// What has no row in the data set's tables has its position for a number, and no name.
bool IsAsDescribed(const DataSource& source) {
  Dataset& dataset = source.dataset;
  const bool has_size = dataset.GetNObsDS() == source.observations.GetNItm() &&
                        dataset.GetNVarDS() == source.variables.GetNVar();
  if (!has_size) return false;
  short number = 0;
  char* name = nullptr;
  for (const short i : PositionsUpTo(dataset.GetNObsDS())) {
    const int status = dataset.GetObsInfo(i, number, name);
    if ((status == status::kOk ? number : i) != source.observations.GetONum(i)) return false;
  }
  for (const short j : PositionsUpTo(dataset.GetNVarDS())) {
    const int status = dataset.GetVarInfo(j, number, name);
    if (std::string_view(status == status::kOk ? name : "") != source.variables.GetVNam(j)) {
      return false;
    }
  }
  return true;
}

}  // namespace

int ExtractColumns(const ColumnPlan& plan, const DataSource& source, StreamWindow& window,
                   std::unique_ptr<XFMatrix>& matrix) {
  Dataset& dataset = source.dataset;
  if (!dataset.IsLoaded()) {
    const int status = dataset.Load();
    if (status != status::kOk) return status;
  }
  if (!IsAsDescribed(source)) return status::mva::kInconsistentDatasets;
  // Lagged variables look back over rows that are not among those wanted.
  const bool has_lags = plan.GetLags().GetNItm() > 0;
  const std::vector<short> rows = has_lags ? Identity(dataset.GetNObsDS()) : source.rows;
  matrix = std::make_unique<XFMatrix>("Matrix", static_cast<int>(rows.size()),
                                      static_cast<int>(plan.GetSources().size()), Unfilled{});
  if (matrix->GetStatus() != status::kOk) return status::mva::kMemory;
  const int refused_count = Gather(source, rows, plan.GetSources(), *matrix);
  XI1Vector excluded = SelectIf(static_cast<int>(source.rows.size()), [](short) { return false; });
  const int status = plan.Apply(*matrix, source.rows, excluded);
  if (status == status::kOk) Report(source, refused_count, excluded, window);
  return status;
}

std::vector<short> Positions(const XI1Vector& selection) {
  std::vector<short> positions;
  for (int i = 1; i <= selection.NVal(); ++i) {
    if (selection[i] == kSelected) positions.push_back(static_cast<short>(i));
  }
  return positions;
}

std::vector<short> Identity(int count) {
  std::vector<short> positions(static_cast<std::size_t>(count));
  std::iota(positions.begin(), positions.end(), short{1});
  return positions;
}

ObsInfo CompleteObsInfo(const ObsInfo* table, short count) {
  return Complete(table == nullptr ? ObsInfo("ObsInfo") : ObsInfo(*table), count,
                  [](ObsInfo& info, short i) { return info.AddObs(i, ""); });
}

VarInfo CompleteVarInfo(const VarInfo* table, short count) {
  return Complete(table == nullptr ? VarInfo("VarInfo") : VarInfo(*table), count,
                  [](VarInfo& info, short j) { return info.AddVar(j, ""); });
}

}  // namespace zemva
