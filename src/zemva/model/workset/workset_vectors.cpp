#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/model/workset/set_vectors.h"
#include "zemva/model/workset/workset.h"
#include "zemva/vectors/vec_delivery.h"

namespace zemva {

SetVectors Workset::MakeVectors() const {
  const XI1Vector is_in = SelectIf(GetNObsDS(), [&](short i) { return IsObsIn(i); });
  return SetVectors(CEDatType::Workset, number_, *this, MakeSource(is_in));
}

int Workset::GetXFVector(const VecSpec* spec, XFVector*& vector) {
  vector = nullptr;
  return status_ = MemoryGuarded([&] { return DeliverXFVector(MakeVectors(), spec, vector); });
}

int Workset::GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number) {
  vector = nullptr;
  return status_ = MemoryGuarded(
             [&] { return DeliverXSVector(MakeVectors(), spec, vector, is_by_number); });
}

}  // namespace zemva
