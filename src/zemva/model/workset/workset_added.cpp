// The variables that a work set adds to those of its data set.
#include <algorithm>
#include <array>

#include "zemva/base/fixed_text.h"
#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/number_set.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/workset_edit.h"

namespace zemva {
namespace {

constexpr short kSmallestBlock = 2;

FixedText<25> NameOr(const char* name, const FixedText<25>& default_name) {
  const FixedText<25> given(name);
  return given.IsEmpty() ? default_name : given;
}

}  // namespace

short Workset::GetFreeVNum() const {
  const short largest =
      std::max({variables_->GetLargestINum(), lags_.GetLargestINum(), terms_.GetLargestINum()});
  if (largest < kMaxItems) return static_cast<short>(largest + 1);
  NumberSet used(*variables_);
  used.Add(lags_);
  used.Add(terms_);
  short free = 1;
  while (used.Has(free)) ++free;
  return free;
}

std::unordered_set<std::string> Workset::CollectNames() const {
  std::unordered_set<std::string> names;
  for (const short j : PositionsUpTo(GetNVar())) names.emplace(GetVNam(j));
  return names;
}

// The table is that of the lagged variables or of the terms; `before` is how many variables come
// before the new one.
template <typename Row>
int Workset::Append(VariableTable<Row>& table, const Row& row, short source, int before) {
  if (names_.empty()) names_ = CollectNames();
  // From the last step that can fail on there is no memory to ask for.
  if (usages_.size() == usages_.capacity()) usages_.reserve(2 * usages_.size());
  const auto [name, is_new] = names_.emplace(row.GetINam());
  if (!is_new) return status::mva::kDuplicateName;
  int status = table.AddItm(row);
  if (status == status::kOk) {
    status = scalings_.AddVar(row.GetINum(), row.GetINam());
    if (status != status::kOk) table.KeepFirst(table.GetNItm() - 1);
  }
  if (status != status::kOk) {
    names_.erase(name);
    return status;
  }
  const Usage usage = {EVarRole::kX, GetBlock(source)};
  usages_.insert(usages_.begin() + before, usage);
  return status::kOk;
}

int Workset::AddLagged(short j, short lag, const char* name) {
  return Edit([&] {
    if (j < 1 || j > GetNVarDS()) return status::mva::kMissingUnderlyingTerm;
    if (lag < 1 || GetNVar() == kMaxItems) return status::mva::kIndexOutOfRange;
    const auto own_name = NameOr(name, LagData::DefaultName(lag, GetVNam(j)));
    return Append(lags_, LagData(GetFreeVNum(), own_name.Get(), GetVNum(j), lag, kMissing, 0), j,
                  GetNVarDS() + lags_.GetNItm());
  });
}

int Workset::AddTerm(short j, short j2, short j3, const char* name) {
  return Edit([&] {
    std::array<short, 3> factors = {};
    std::size_t count = 0;
    for (const short factor : {j, j2, j3}) {
      if (factor == 0) continue;
      if (!IsFactor(factor)) return status::mva::kMissingUnderlyingTerm;
      factors[count++] = GetVNum(factor);
    }
    if (j == 0) return status::mva::kMissingUnderlyingTerm;
    if (GetNVar() == kMaxItems) return status::mva::kIndexOutOfRange;
    const auto own_name =
        NameOr(name, ExpData::DefaultName('X', factors[0], factors[1], factors[2]));
    return Append(
        terms_,
        ExpData(GetFreeVNum(), own_name.Get(), factors[0], factors[1], factors[2], kMissing), j,
        GetNVar());
  });
}

int Workset::DelAdded(short j) {
  return Edit([&] {
    if (!IsVar(j) || j <= GetNVarDS()) return status::mva::kVariableNotAvailable;
    const short vnum = GetVNum(j);
    for (short k = 1; terms_.GetItm(k) != nullptr; ++k) {
      if (std::ranges::count(terms_.GetItm(k)->GetFactors(), vnum) > 0) {
        return status::mva::kDependingTerm;
      }
    }
    const char block = GetBlock(j);
    names_.clear();
    if (IsFactor(j)) {
      lags_.DelItm(lags_.FindVar(vnum));
    } else {
      terms_.DelItm(terms_.FindVar(vnum));
    }
    usages_.erase(usages_.begin() + (j - 1));
    if (block != kNoBlock && std::ranges::count(usages_, block, &Usage::block) < kSmallestBlock) {
      for (Usage& usage : usages_) {
        if (usage.block == block) usage.block = kNoBlock;
      }
    }
    const short transformation = transformations_.FindVar(vnum);
    if (transformation != 0) transformations_.DelItm(transformation);
    return scalings_.DelItm(scalings_.FindVar(vnum));
  });
}

}  // namespace zemva
