#include "zemva/model/pc/pc_model.h"

#include <memory>

#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/data_block.h"

namespace zemva {

PCModel::PCModel(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options,
                 char selector)
    : Model(owner, type, window, options, selector) {}

PCModel::PCModel(const PCModel& other) = default;

PCModel::~PCModel() = default;

const ClassID& PCModel::GetClassID() {
  static const ClassID id("PCModel");
  return id;
}

const CompInfo* PCModel::GetComponent(int a) const {
  const bool is_there = a >= 1 && a <= GetComponentCount();
  return is_there ? &components_[static_cast<std::size_t>(a - 1)] : nullptr;
}

int PCModel::Center() {
  const int status = Model::Center();
  if (status != status::kOk) return status;
  // A model that was unloaded has them already.
  for (const PCCompInfo& component : components_) {
    GetX().GetResiduals().Subtract(component.t.Values(), component.p.Values());
  }
  return status;
}

int PCModel::Reset(short a) {
  if (a < 0) return SetStatus(status::mva::kIndexOutOfRange);
  while (GetComponentCount() > a) DropComp();
  return ClearStatus();
}

void PCModel::DropComp() {
  const PCCompInfo& last = components_.back();
  if (GetX().IsCentered()) GetX().GetResiduals().Add(last.t.Values(), last.p.Values());
  components_.pop_back();
}

XFMatrix* PCModel::MakeResid(char a) {
  std::unique_ptr<XFMatrix> matrix;
  Run([&] {
    if (!GetX().IsCentered()) return status::mva::kDataNotAvailable;
    if (a < 0 || a > GetA()) return status::mva::kComponentNotAvailable;
    matrix = std::make_unique<XFMatrix>("LSResiduals", GetNObs(), GetNVarX(), kMissing);
    if (matrix->GetStatus() != status::kOk) return status::mva::kMemory;
    GetX().GetResiduals().CopyTo(*matrix);
    // Nothing is left of a variable that takes no part.
    for (const short k : PositionsUpTo(GetNVarX())) {
      if (GetWeigX(k) != 0.0f) continue;
      for (const short i : PositionsUpTo(GetNObs())) {
        if (!IsMissing(GetX().GetValues()[i][k])) (*matrix)[i][k] = 0.0f;
      }
    }
    for (int c = GetA(); c > a; --c) {
      matrix->Addcomp(&GetComponent(c)->t, &GetComponent(c)->p);
    }
    matrix->SetActValInfo();
    return status::kOk;
  });
  return HasFailed() ? nullptr : matrix.release();  // the caller's
}

float PCModel::GetQ2AX(char a) const {
  return GetComponent(a) == nullptr ? kMissing : GetComponent(a)->q2;
}

float PCModel::GetQ2X(char a) const {
  return GetComponent(a) == nullptr ? kMissing : GetComponent(a)->q2_cum;
}

float PCModel::GetQ2VAX(char a, short k) const {
  return GetComponent(a) == nullptr ? kMissing : GetComponent(a)->q2v.GetElement(k);
}

float PCModel::GetQ2VX(char a, short k) const {
  return GetComponent(a) == nullptr ? kMissing : GetComponent(a)->q2v_cum.GetElement(k);
}

}  // namespace zemva
