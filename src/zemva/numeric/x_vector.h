// Named vectors.
#ifndef ZEMVA_NUMERIC_X_VECTOR_H
#define ZEMVA_NUMERIC_X_VECTOR_H

#include "zemva/base/export.h"
#include "zemva/numeric/named.h"
#include "zemva/numeric/s_vector.h"
#include "zemva/numeric/vector.h"

namespace zemva {

class ZEMVA_API XI1Vector : public NamedVector<XI1Vector, I1Vector> {
 public:
  using NamedVector::NamedVector;
  // A copy of values[1..length]. Empty with status 5007 when `values` is null.
  XI1Vector(const char* name, int length, const char* values);
  XI1Vector(const XI1Vector&) = default;
  XI1Vector& operator=(const XI1Vector&) = default;
  ~XI1Vector() override;

  // Name and count of present values, then as the plain vector.
  void Show(StreamWindow& window) const override;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "XI1Vector is NULL";
};

class ZEMVA_API XI2Vector : public NamedVector<XI2Vector, I2Vector> {
 public:
  using NamedVector::NamedVector;
  XI2Vector(const XI2Vector&) = default;
  XI2Vector& operator=(const XI2Vector&) = default;
  ~XI2Vector() override;

  // Name and count of present values, then as the plain vector.
  void Show(StreamWindow& window) const override;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "XI2Vector is NULL";
};

class ZEMVA_API XFVector : public NamedVector<XFVector, FVector> {
 public:
  using NamedVector::NamedVector;
  XFVector(const XFVector&) = default;
  XFVector& operator=(const XFVector&) = default;
  ~XFVector() override;

  // Name and count of present values, then as the plain vector.
  void Show(StreamWindow& window) const override;

  // As that of FVector; NValA becomes the number of pairs.
  float VpMulV(const FVector* other);

  // Add the other's elements to this vector's, subtract them from them, multiply them by them;
  // missing where either is, and counted anew. 5004 when the lengths differ, 5007 for null; the
  // vector is then unchanged.
  int VDotAddV(const FVector* other);
  int VDotSubV(const FVector* other);
  int VDotMulV(const FVector* other);

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "XFVector is NULL";

 private:
  int Combine(const FVector* other, void (*operation)(float*, const float*, int));
};

class ZEMVA_API XDVector : public NamedVector<XDVector, DVector> {
 public:
  using NamedVector::NamedVector;
  XDVector(const XDVector&) = default;
  XDVector& operator=(const XDVector&) = default;
  ~XDVector() override;

  // Name and count of present values, then as the plain vector.
  void Show(StreamWindow& window) const override;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "XDVector is NULL";
};

class ZEMVA_API XSVector : public Named<XSVector, SVector> {
 public:
  using Named::Named;
  // `length` empty texts of room for `string_length` characters.
  XSVector(const char* name, int length, int string_length);
  XSVector(const XSVector&) = default;
  XSVector& operator=(const XSVector&) = default;
  ~XSVector() override;

  // The name, then as the plain vector.
  void Show(StreamWindow& window) const override;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "XSVector is NULL";
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_X_VECTOR_H
