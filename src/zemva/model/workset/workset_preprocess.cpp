// What a work set does to its variables before a model is fitted.
#include <cmath>
#include <memory>

#include "zemva/data/selection.h"
#include "zemva/errors/status.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/workset_edit.h"

namespace zemva {
namespace {

bool IsConstant(float value) {
  return std::isfinite(value) && !IsMissing(value);
}

bool IsFixed(EScaType type) {
  return type == EScaType::kFW || type == EScaType::kFWN;
}

}  // namespace

int Workset::SetScaling(short j, EScaType type, float modifier) {
  return Edit([&] {
    if (!IsVar(j)) return status::mva::kVariableNotAvailable;
    if (type == EScaType::kFreeze) return Freeze(j);
    if (type < EScaType::kUV || type > EScaType::kNone) return status::mva::kIndexOutOfRange;
    const bool is_positive = std::isfinite(modifier) && modifier > 0.0f;
    if (!IsMissing(modifier) && !is_positive) return status::mva::kArgument;
    return scalings_.Update(ScaData::BeforeData(GetVNum(j), GetVNam(j), type, kMissing, modifier));
  });
}

int Workset::Freeze(short j) {
  const EModType type = EModType::kPC1;
  const Selection selection = {type, EBlock::kX, SelectObs(type, kNoClass), {j}};
  int status = Check(kNoClass, selection);
  if (status != status::kOk) return status;
  std::unique_ptr<XFMatrix> matrix;
  // What is lost on the way is told where the matrix is given out.
  status = MakeMatrix(selection, GlobalStreamWindow(), matrix);
  if (status != status::kOk) return status;
  const VarInfo variables = MakeVarInfo(selection);
  ScaInfo scalings("ScaInfo");
  status = scalings.SetScaInfo(&variables, matrix.get(), this, true);
  if (status != status::kOk) return status;
  const XI1Vector all = SelectIf(matrix->NRow(), [](short) { return true; });
  status = scalings.Update(GetVNum(j), &variables, matrix.get(), &all, EScaType::kFreeze);
  if (status != status::kOk) return status;
  const ScaData& frozen = *scalings.GetItm(1);
  return IsMissing(frozen.GetWeig()) ? status::mva::kUndefinedWeights : scalings_.Update(frozen);
}

int Workset::SetFixedWeight(short j, EScaType type, float weight) {
  return Edit([&] {
    if (!IsVar(j)) return status::mva::kVariableNotAvailable;
    if (!IsFixed(type)) return status::mva::kIndexOutOfRange;
    if (!std::isfinite(weight) || weight < 0.0f) return status::mva::kArgument;
    return scalings_.Update(ScaData::BeforeData(GetVNum(j), GetVNam(j), type, weight));
  });
}

int Workset::SetTransformation(short j, ETraType type, float c1, float c2, float c3) {
  return Edit([&] {
    if (!IsVar(j)) return status::mva::kVariableNotAvailable;
    if (type < ETraType::kNone || type > ETraType::kPower) return status::mva::kIndexOutOfRange;
    if (!IsFactor(j)) return status::mva::kFunctionNotAvailable;
    const short vnum = GetVNum(j);
    const short row = transformations_.FindVar(vnum);
    if (type == ETraType::kNone) {
      if (row != 0) transformations_.DelItm(row);
      return status::kOk;
    }
    if (!IsConstant(c1) || !IsConstant(c2) || !IsConstant(c3)) return status::mva::kArgument;
    const TraData transformation(vnum, GetVNam(j), type, c1, c2, c3);
    return row == 0 ? transformations_.AddItm(transformation)
                    : transformations_.Update(transformation);
  });
}

char Workset::GetBlock(short j) const {
  return IsVar(j) ? usages_[Slot(j)].block : kNoBlock;
}

BlkInfo::EBlkType Workset::GetBlockType(char b) const {
  const bool is_block = b > kNoBlock && b <= BlkInfo::kMaxBlock;
  return is_block ? block_types_[static_cast<std::size_t>(b)] : BlkInfo::kUndefined;
}

int Workset::SetBlock(short j, char b, BlkInfo::EBlkType type) {
  return Edit([&] {
    if (!IsVar(j)) return status::mva::kVariableNotAvailable;
    if (b < kNoBlock || b > BlkInfo::kMaxBlock) return status::mva::kIndexOutOfRange;
    if (b != kNoBlock) {
      if (*BlkInfo::GetString(type) == '\0') return status::mva::kUnknownBlockType;
      block_types_[static_cast<std::size_t>(b)] = type;
    }
    usages_[Slot(j)].block = b;
    return status::kOk;
  });
}

}  // namespace zemva
