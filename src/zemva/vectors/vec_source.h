// What an object tells of itself, so that its vectors can be made.
#ifndef ZEMVA_VECTORS_VEC_SOURCE_H
#define ZEMVA_VECTORS_VEC_SOURCE_H

#include <span>

#include "zemva/errors/status.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {

// An element that is asked for: element `element` of what there is for `of` (and `of2`) at a
// component. What does not apply is 0.
struct VecCell {
  int comp;
  int of;
  int of2;
  int element;
};

// What is asked of an object, checked and complete.
struct VecQuery {
  const VecRow* row = nullptr;
  CEElmType::EET units = CEElmType::Plain;
  int of = 0;
  int of2 = 0;
  // Both the same but where the elements run along components, or where row->comps are spans.
  int first_comp = 0;
  int last_comp = 0;
  // Where a vector that is not by component runs along components, its element at each.
  int element = 0;
  // How many elements there are.
  int length = 0;

  bool IsAlongComps() const { return row->along == EVecAxis::kComponents || element != 0; }
  // What element n, 1..length, is.
  VecCell At(int n) const {
    return IsAlongComps() ? VecCell{first_comp + n - 1, of, of2, element}
                          : VecCell{last_comp, of, of2, n};
  }
};

// Number and name of what an axis counts; the name is valid until the object changes.
struct VecLabel {
  int number;
  const char* name;
};

// Components: of the model, in use in its results, and in those of the prediction set.
struct VecCompCounts {
  int fitted = 0;
  int used = 0;
  int predicted = 0;
};

class VecSource {
 public:
  virtual ~VecSource() = default;

  virtual CEDatType::EDT GetDType() const = 0;
  virtual short GetDNum() const = 0;
  // How many there are, 0 for an axis that the object has not; what 1..count are. Not asked for
  // components and constants. Of lags, those of the variable `of`.
  virtual int GetCount(EVecAxis axis, int of) const = 0;
  virtual VecLabel GetLabel(EVecAxis axis, int of, int i) const = 0;
  virtual VecCompCounts GetCompCounts() const { return {}; }
  // What stands against the vectors of a row that the catalogue gives to the kind of object.
  virtual int Check(const VecRow& /*row*/) const { return status::kOk; }
  // What stands against this one alone, and against telling what there is on an axis.
  virtual int CheckQuery(const VecQuery& /*query*/) const { return status::kOk; }
  virtual int CheckLabels(EVecAxis /*axis*/) const { return status::kOk; }
  // Sets the elements.
  virtual int Fill(const VecQuery& query, std::span<float> values) const = 0;
};

// A row in the table of a class of objects: how it fills a vector of a type.
template <typename Object>
struct VecFill {
  CEVecType::EVT type;
  int (Object::*fill)(const VecQuery&, std::span<float>) const;
};

// Fills by the row of the type; 8016 where the table has none.
template <typename Object>
int FillBy(std::span<const VecFill<Object>> table, const Object& object, const VecQuery& query,
           std::span<float> values) {
  for (const VecFill<Object>& row : table) {
    if (row.type == query.row->type) return (object.*row.fill)(query, values);
  }
  return status::mva::kUnknownVectorType;
}

}  // namespace zemva

#endif  // ZEMVA_VECTORS_VEC_SOURCE_H
