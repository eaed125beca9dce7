// Vectors of numbers.
#ifndef ZEMVA_NUMERIC_VECTOR_H
#define ZEMVA_NUMERIC_VECTOR_H

#include "base/export.h"
#include "errors/stream_window.h"
#include "numeric/vector_storage.h"

namespace zemva {

// Small integers: selection flags, class and block numbers.
class ZEMVA_API I1Vector : public VectorStorage<I1Vector, char> {
 public:
  using VectorStorage::VectorStorage;
  I1Vector(const I1Vector&) = default;
  I1Vector& operator=(const I1Vector&) = default;
  virtual ~I1Vector();

  virtual void Show(StreamWindow& window) const;

  char* GetI1VecPtr() { return GetElements(); }
  const char* GetI1VecPtr() const { return GetElements(); }

  static constexpr const char* kNullText = "I1Vector is NULL";
};

// Integers: lists of positions, group labels.
class ZEMVA_API I2Vector : public VectorStorage<I2Vector, short> {
 public:
  using VectorStorage::VectorStorage;
  I2Vector(const I2Vector&) = default;
  I2Vector& operator=(const I2Vector&) = default;
  virtual ~I2Vector();

  virtual void Show(StreamWindow& window) const;

  short* GetI2VecPtr() { return GetElements(); }
  const short* GetI2VecPtr() const { return GetElements(); }

  static constexpr const char* kNullText = "I2Vector is NULL";
};

// Single-precision values, of which some may be missing.
class ZEMVA_API FVector : public VectorStorage<FVector, float> {
 public:
  using VectorStorage::VectorStorage;
  // `length` elements set to `fill`, or with their contents as allocated.
  FVector(int length, float fill, bool is_filled);
  FVector(const FVector&) = default;
  FVector& operator=(const FVector&) = default;
  virtual ~FVector();

  virtual void Show(StreamWindow& window) const;

  float* GetFVecPtr() { return GetElements(); }
  const float* GetFVecPtr() const { return GetElements(); }

  // The number of present values.
  int NValA() const;

  static constexpr const char* kNullText = "FVector is NULL";
};

// Double-precision values, of which some may be missing.
class ZEMVA_API DVector : public VectorStorage<DVector, double> {
 public:
  using VectorStorage::VectorStorage;
  DVector(const DVector&) = default;
  DVector& operator=(const DVector&) = default;
  virtual ~DVector();

  virtual void Show(StreamWindow& window) const;

  double* GetDVecPtr() { return GetElements(); }
  const double* GetDVecPtr() const { return GetElements(); }

  // The number of present values.
  int NValA() const;

  static constexpr const char* kNullText = "DVector is NULL";
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_VECTOR_H
