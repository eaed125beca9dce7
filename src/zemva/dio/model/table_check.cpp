#include "zemva/dio/model/table_check.h"

#include <cstddef>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/model/preprocess/number_set.h"

namespace zemva {
namespace {

// Adds the numbers of a table; false where one is below 1 or was in the set.
bool AddNew(const ItmInfo* table, NumberSet& numbers) {
  for (const short i : PositionsUpTo(table == nullptr ? 0 : table->GetNItm())) {
    const short number = table->GetINum(i);
    if (number < 1 || numbers.Has(number)) return false;
    numbers.Add(number);
  }
  return true;
}

bool AreLags(const LagInfo* lags, const NumberSet& sources) {
  for (const short i : PositionsUpTo(lags == nullptr ? 0 : lags->GetNItm())) {
    const LagData& lag = *lags->GetItm(i);
    if (!sources.Has(lag.GetVNumDS()) || lag.GetLag() < 1) return false;
  }
  return true;
}

bool AreTerms(const ExpInfo* terms, const NumberSet& factors) {
  for (const short i : PositionsUpTo(terms == nullptr ? 0 : terms->GetNItm())) {
    const ExpData& term = *terms->GetItm(i);
    if (term.GetVNum1() == 0) return false;
    for (const short factor : term.GetFactors()) {
      if (factor != 0 && !factors.Has(factor)) return false;
    }
  }
  return true;
}

bool AreTransformations(const TraInfo* transformations, const NumberSet& factors) {
  for (const short i : PositionsUpTo(transformations == nullptr ? 0 : transformations->GetNItm())) {
    const TraData& row = *transformations->GetItm(i);
    if (row.GetTraType() == ETraType::kNone || !factors.Has(row.GetINum())) return false;
  }
  return transformations == nullptr || HasOwnNumbers(*transformations);
}

}  // namespace

bool HasOwnNumbers(const ItmInfo& table) {
  NumberSet numbers;
  return AddNew(&table, numbers);
}

bool CanBeMade(const MadeOf& tables) {
  NumberSet numbers;
  if (!AddNew(&tables.variables, numbers) || !AreLags(tables.lags, numbers)) return false;
  return AddNew(tables.lags, numbers) && AreTransformations(tables.transformations, numbers) &&
         AreTerms(tables.terms, numbers) && AddNew(tables.terms, numbers);
}

bool AreBlocks(const BlkInfo& blocks, int column_count) {
  if (blocks.GetNVar() != column_count) return false;
  std::vector<int> counts(BlkInfo::kMaxBlock + 1);
  for (const short v : PositionsUpTo(column_count)) {
    const short number = blocks.GetBStat(v);
    if (number != 0 && blocks.GetIx(number) == 0) return false;
    ++counts[static_cast<std::size_t>(number)];
  }
  for (const short i : PositionsUpTo(blocks.GetNItm())) {
    if (blocks.GetNVar(i) != counts[static_cast<std::size_t>(blocks.GetINum(i))]) return false;
  }
  return HasOwnNumbers(blocks);
}

}  // namespace zemva
