#include "zemva/dio/model/model_check.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/selection.h"
#include "zemva/dio/model/table_check.h"

namespace zemva {
namespace {

constexpr int kFewestRows = 4;

struct Sizes {
  int rows;
  int columns;
  int responses;
};

bool HaveLength(int length, std::initializer_list<const XFVector*> vectors) {
  return std::ranges::all_of(vectors,
                             [&](const XFVector* vector) { return vector->NVal() == length; });
}

bool IsStage(const Stage& stage, int row_count, int column_count) {
  return HaveLength(row_count, {&stage.sso, &stage.s2o}) &&
         HaveLength(column_count, {&stage.ssv, &stage.s2v});
}

bool AreCounts(const std::vector<int>& counts, int length, int most) {
  return std::ssize(counts) == length &&
         std::ranges::all_of(counts, [&](int count) { return count >= 0 && count <= most; });
}

// --- How the columns are made ---

// Columns that stand for classes are made of nothing.
bool AreClasses(const BlockRecord& block) {
  for (const short k : PositionsUpTo(block.column_count)) {
    const short number = block.variables->GetVNum(k);
    if (number < 1 || number > ClaInfo::kMaxClass) return false;
  }
  return block.transformations == nullptr && block.terms == nullptr && block.lags == nullptr &&
         HasOwnNumbers(*block.variables);
}

// The columns are some of the variables, the lagged ones and the terms, in this order.
bool AreColumns(const BlockRecord& block, const VarInfo& variables) {
  short column = 1;
  for (const ItmInfo* table :
       std::initializer_list<const ItmInfo*>{&variables, block.lags.get(), block.terms.get()}) {
    for (const short i : PositionsUpTo(table == nullptr ? 0 : table->GetNItm())) {
      const bool is_next = table->GetINum(i) == block.variables->GetVNum(column);
      if (is_next && column++ == block.column_count) return true;
    }
  }
  return false;
}

bool IsPlan(const BlockRecord& block, const VarInfo& variables) {
  return CanBeMade({variables, block.lags.get(), block.transformations.get(), block.terms.get()}) &&
         AreColumns(block, variables);
}

// --- Blocks ---

// Whether a table has a row for each column, in their order.
bool IsOfColumns(const ItmInfo& table, const VarInfo& variables) {
  if (table.GetNItm() != variables.GetNVar()) return false;
  for (const short k : PositionsUpTo(table.GetNItm())) {
    if (table.GetINum(k) != variables.GetVNum(k)) return false;
  }
  return true;
}

bool IsBlock(const ModelRecord& model, const BlockRecord& block) {
  const int n = model.row_count;
  const int k = block.column_count;
  if (k < 1 || !block.info || block.variables == nullptr || block.variables->GetNVar() != k) {
    return false;
  }
  // Tables and responses go together.
  const bool is_loaded = model.observations != nullptr;
  const bool has_values = is_loaded && block.block == EBlock::kY;
  if (block.IsOfLoaded() != is_loaded || (block.values != nullptr) != has_values ||
      (block.blocks != nullptr && !is_loaded)) {
    return false;
  }
  const CentInfo& info = *block.info;
  const bool is_centred = !IsMissing(info.centred.ss);
  return (IsClassBlock(model.type, block.block) ? AreClasses(block)
                                                : IsPlan(block, *model.dataset_variables)) &&
         (block.scalings == nullptr || IsOfColumns(*block.scalings, *block.variables)) &&
         (block.blocks == nullptr || AreBlocks(*block.blocks, k)) &&
         (block.values == nullptr || (block.values->NRow() == n && block.values->NCol() == k)) &&
         AreCounts(info.row_counts, n, k) && AreCounts(info.column_counts, k, n) &&
         HaveLength(k, {&info.loaded_average, &info.smallest, &info.largest, &info.weights}) &&
         IsStage(info.loaded, n, k) &&
         (!is_centred || (HaveLength(k, {&info.reference}) && IsStage(info.centred, n, k))) &&
         (!is_centred || block.block == EBlock::kY || HaveLength(k, {&info.centred.mpow}));
}

// --- Components and results ---

bool IsComponent(const CompInfo& component, int a, const Sizes& sizes) {
  const bool has_y = sizes.responses > 0;
  const int of_y = has_y ? sizes.responses : 0;
  const int of_w = has_y ? sizes.columns : 0;
  const int of_target = has_y ? sizes.responses : sizes.columns;
  return IsStage(component.x, sizes.rows, sizes.columns) &&
         HaveLength(sizes.columns, {&component.x.mpow, &component.p}) &&
         HaveLength(sizes.rows, {&component.t, &component.leverages, &component.weighted_s2o}) &&
         HaveLength(of_target, {&component.q2v, &component.q2v_cum}) &&
         HaveLength(has_y ? sizes.rows : 0, {&component.u, &component.leverages_y}) &&
         HaveLength(of_w, {&component.w, &component.w_star, &component.vip}) &&
         HaveLength(of_y, {&component.c}) &&
         (!has_y || IsStage(*component.y, sizes.rows, sizes.responses)) &&
         component.inv_ppw_cp.NRow() == (has_y ? a : 0) && component.inv_ppw_cp.NCol() == of_y;
}

bool AreResults(const Results& results, int component_count, const Sizes& sizes) {
  const auto are_distances = [&](const DistanceResults& block) {
    return HaveLength(sizes.rows, {&block.distances, &block.probabilities});
  };
  const int used = results.x.component_count;
  return used >= 1 && used <= component_count && are_distances(results.x) &&
         (!results.y || are_distances(*results.y)) &&
         (!results.errors || results.errors->rss.NVal() == sizes.responses);
}

bool AreMembers(const std::vector<char>& members, int row_count) {
  const auto is_selection = [](char byte) { return byte == kSelected || byte == kNotSelected; };
  return std::ranges::all_of(members, is_selection) &&
         std::ranges::count(members, kSelected) == row_count;
}

// A model that was never given data has nothing of them.
bool IsEmpty(const ModelRecord& record) {
  const auto is_empty = [](const BlockRecord& block) {
    return block.column_count == 0 && block.variables == nullptr && block.scalings == nullptr &&
           block.blocks == nullptr && block.transformations == nullptr && block.terms == nullptr &&
           block.lags == nullptr && block.values == nullptr && !block.info;
  };
  return record.row_count == 0 && record.members.empty() && record.observations == nullptr &&
         record.classes == nullptr && record.dataset_variables == nullptr &&
         record.components.empty() && !record.results && is_empty(record.x) && is_empty(record.y);
}

}  // namespace

bool IsConsistent(const ModelRecord& record) {
  const bool is_type = IsPCFamily(record.type) || IsPLSFamily(record.type) ||
                       record.type == EModType::kNoVarianceCheck;
  const bool is_class_model = record.type == EModType::kPC1Cl;
  if (!is_type || (is_class_model && record.selector < 1)) return false;
  if (std::ssize(record.components) != record.component_count) return false;
  if (!record.x.info) return IsEmpty(record);

  const Sizes sizes = {record.row_count, record.x.column_count, record.y.column_count};
  const bool is_of_rows =
      sizes.rows >= kFewestRows && record.dataset_variables != nullptr &&
      AreMembers(record.members, sizes.rows) &&
      (record.observations == nullptr || record.observations->GetNItm() == sizes.rows) &&
      (record.classes == nullptr ||
       (record.observations != nullptr && record.classes->GetNObs() == sizes.rows));
  if (!is_of_rows || !IsBlock(record, record.x)) return false;
  if (record.HasY() ? !IsBlock(record, record.y) : sizes.responses != 0 || record.y.info) {
    return false;
  }
  const bool is_centred = !IsMissing(record.x.info->centred.ss);
  if (!record.components.empty() && !is_centred) return false;
  int a = 0;
  for (const auto& component : record.components) {
    if (!IsComponent(*component, ++a, sizes)) return false;
  }
  return !record.results || AreResults(*record.results, a, sizes);
}

}  // namespace zemva
