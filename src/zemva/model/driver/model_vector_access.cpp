// How Model answers for its vectors.
#include <memory>
#include <new>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/driver/model_vectors.h"
#include "zemva/vectors/vec_catalogue.h"
#include "zemva/vectors/vec_delivery.h"

namespace zemva {
namespace {

// The names of the rows that the model can give and that satisfy `is_wanted`.
template <typename Predicate>
XSVector* MakeNames(const Model& model, const char* name, Predicate is_wanted) {
  constexpr int kLongest = 16;
  std::vector<const char*> names;
  const ModelVectors source(model);
  const int status = MemoryGuarded([&] {
    for (const VecRow& row : VecCatalogue()) {
      if (is_wanted(row.along) && CheckType(source, &row) == status::kOk) names.push_back(row.name);
    }
    return status::kOk;
  });
  if (status != status::kOk) return nullptr;
  std::unique_ptr<XSVector> vector(new (std::nothrow)
                                       XSVector(name, static_cast<int>(names.size()), kLongest));
  if (vector == nullptr || vector->GetStatus() != status::kOk) return nullptr;
  int n = 0;
  for (const char* const text : names) vector->SetElement(++n, text);
  return vector.release();  // the caller's
}

}  // namespace

int Model::GetXFVector(const VecSpec* spec, XFVector*& vector) const {
  return DeliverXFVector(ModelVectors(*this), spec, vector);
}

int Model::GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number) const {
  return DeliverXSVector(ModelVectors(*this), spec, vector, is_by_number);
}

int Model::GetVecCompRange(CEVecType::EVT type, char& first, char& last) const {
  const VecRow* const row = FindVecRow(type);
  const ModelVectors source(*this);
  const int status = MemoryGuarded([&] { return CheckType(source, row); });
  const VecCompRange range = status == status::kOk ? GetCompRange(source, *row) : VecCompRange();
  first = static_cast<char>(range.first);
  last = static_cast<char>(range.last);
  return status;
}

int Model::GetVecIxRange(CEVecType::EVT type, short& first, short& last) const {
  const VecRow* const row = FindVecRow(type);
  const ModelVectors source(*this);
  const int status = MemoryGuarded([&] { return CheckType(source, row); });
  first = 1;
  last = status == status::kOk ? static_cast<short>(CountIndices(source, *row)) : short{0};
  return status;
}

XSVector* Model::GetObsVecNames() const {
  return MakeNames(*this, "ObsVecNames", [](EVecAxis along) { return along == EVecAxis::kObs; });
}

XSVector* Model::GetVarVecNames() const {
  return MakeNames(*this, "VarVecNames", [](EVecAxis along) {
    using enum EVecAxis;
    return along == kVars || along == kVarsX || along == kResponses || along == kCoefficients ||
           along == kValidated;
  });
}

XSVector* Model::GetCompVecNames() const {
  return MakeNames(*this, "CompVecNames",
                   [](EVecAxis along) { return along == EVecAxis::kComponents; });
}

XSVector* Model::GetLagVecNames() const {
  return MakeNames(*this, "LagVecNames", [](EVecAxis along) { return along == EVecAxis::kLags; });
}

XSVector* Model::GetTSVecNames() const {
  return MakeNames(*this, "TSVecNames", [](EVecAxis along) { return along == EVecAxis::kObsPS; });
}

// --- Contributions ---

// The gap in each variable times its gain.
template <typename Gain>
int Model::MakeGapVector(const std::string& name, short i, short j, Gain gain,
                         XFVector*& vector) const {
  const auto is_row = [&](short row) { return row >= 1 && row <= GetNObs(); };
  if (!IsLoaded()) return status::mva::kDataNotAvailable;
  if (!is_row(i) || (j != 0 && !is_row(j))) return status::mva::kIndexOutOfRange;
  auto made = std::make_unique<XFVector>(name.c_str(), GetNVarX(), kMissing);
  Whole(*made);
  for (const short k : PositionsUpTo(GetNVarX())) {
    const float gap = GetGap(i, j, k);
    if (!IsMissing(gap)) (*made)[k] = AsPresent(gap * gain(k));
  }
  made->SetActValInfo();
  vector = made.release();  // the caller's
  return status::kOk;
}

int Model::GetGapContVector(char a, short i, short j, XFVector*& vector) const {
  vector = nullptr;
  if (GetComponent(a) == nullptr) return status::mva::kComponentNotAvailable;
  return MemoryGuarded([&] {
    return MakeGapVector(
        "GapCont[" + std::to_string(a) + "]", i, j,
        [&](short k) { return HasY() ? GetWStar(a, k) : GetP(a, k); }, vector);
  });
}

int Model::GetGapContVectorY(char a, short m, short i, short j, XFVector*& vector) const {
  vector = nullptr;
  if (!HasY()) return status::mva::kUnknownVectorType;
  if (GetComponent(a) == nullptr) return status::mva::kComponentNotAvailable;
  if (m < 1 || m > GetNVarY()) return status::mva::kIndexOutOfRange;
  return MemoryGuarded([&] {
    return MakeGapVector(
        "GapContY" + std::to_string(m) + "[" + std::to_string(a) + "]", i, j,
        [&](short k) { return GetCoeffCS(a, k, m); }, vector);
  });
}

}  // namespace zemva
