// A vector of which there is all or nothing.
#ifndef ZEMVA_NUMERIC_WHOLE_VECTOR_H
#define ZEMVA_NUMERIC_WHOLE_VECTOR_H

#include "zemva/errors/memory_guard.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Where memory runs out its constructors and its assignment throw std::bad_alloc, so that a struct
// of such vectors can be copied like any other.
class WholeVector : public XFVector {
 public:
  WholeVector(const char* name, int length, float fill) : XFVector(name, length, fill) {
    Whole(*this);
  }
  WholeVector(const WholeVector& other) : XFVector(other) { Whole(*this); }
  WholeVector& operator=(const WholeVector& other) {
    XFVector::operator=(other);
    Whole(*this);
    return *this;
  }
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_WHOLE_VECTOR_H
