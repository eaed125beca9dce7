// How an object answers a VecSpec.
#ifndef ZEMVA_VECTORS_VEC_DELIVERY_H
#define ZEMVA_VECTORS_VEC_DELIVERY_H

#include "zemva/numeric/x_vector.h"
#include "zemva/vectors/vec_source.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva {

// Both give a new vector, the caller's, named as VecSpec says, and return 0; or null and one of the
// codes that VecSpec lists, or one of the object.

// The elements, missing where there is no value.
int DeliverXFVector(const VecSource& source, const VecSpec* spec, XFVector*& vector);
// What the elements are: names, or numbers as texts. A component is "Initial", "Center" or
// "Comp[1]", and a constant "Const"; by number they are what counts them, and 0.
int DeliverXSVector(const VecSource& source, const VecSpec* spec, XSVector*& vector,
                    bool is_by_number);

// The components at which the object has a vector; empty, with first above last, where there are
// none, or the vector has nothing to do with them.
struct VecCompRange {
  int first = 1;
  int last = 0;
};
VecCompRange GetCompRange(const VecSource& source, const VecRow& row);

// How many indices there are: of what there is a vector for each of, else of the elements; none of
// vectors by component.
int CountIndices(const VecSource& source, const VecRow& row);

// 0 for a type of vector that the object can give now; else what it refuses all of that type with.
int CheckType(const VecSource& source, const VecRow* row);

}  // namespace zemva

#endif  // ZEMVA_VECTORS_VEC_DELIVERY_H
