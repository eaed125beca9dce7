#include "zemva/numeric/x_vector.h"

#include <algorithm>

namespace zemva {

XI1Vector::XI1Vector(const char* name, int length, const char* values)
    : NamedVector(name, values ? length : 0, '\0') {
  if (values != nullptr) {
    std::copy_n(values + 1, NVal(), Values().begin());
  } else {
    Report(status::mat::kNullPointer);
  }
}

XI1Vector::~XI1Vector() = default;

void XI1Vector::Show(StreamWindow& window) const {
  ShowName(window);
  I1Vector::Show(window);
}

XI2Vector::~XI2Vector() = default;

void XI2Vector::Show(StreamWindow& window) const {
  ShowName(window);
  I2Vector::Show(window);
}

XFVector::~XFVector() = default;

void XFVector::Show(StreamWindow& window) const {
  ShowName(window);
  FVector::Show(window);
}

XDVector::~XDVector() = default;

void XDVector::Show(StreamWindow& window) const {
  ShowName(window);
  DVector::Show(window);
}

XSVector::XSVector(const char* name, int length, int string_length)
    : Named(name, length, string_length) {}

XSVector::~XSVector() = default;

void XSVector::Show(StreamWindow& window) const {
  Listing(window).Text(GetName()).Text(" is:").EndLine();
  SVector::Show(window);
}

}  // namespace zemva
