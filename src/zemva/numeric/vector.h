// Vectors of numbers.
#ifndef ZEMVA_NUMERIC_VECTOR_H
#define ZEMVA_NUMERIC_VECTOR_H

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/present.h"
#include "zemva/numeric/vector_storage.h"

namespace zemva {

// Small integers: selection flags, class and block numbers.
class ZEMVA_API I1Vector : public VectorStorage<I1Vector, char> {
 public:
  using VectorStorage::VectorStorage;
  I1Vector(const I1Vector&) = default;
  I1Vector& operator=(const I1Vector&) = default;
  virtual ~I1Vector();

  // Lists the length and the elements, 7 to a line.
  virtual void Show(StreamWindow& window) const;

  // Elements 0..NVal(), of which element 0 is never data; null without memory.
  char* GetI1VecPtr() { return GetElements(); }
  const char* GetI1VecPtr() const { return GetElements(); }

  // Sorts the elements in ascending order.
  void SortAsc();

  // The number of elements that equal (do not equal) `value`.
  int GetNEqual(char value) const;
  int GetNNotEqual(char value) const;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "I1Vector is NULL";
};

// Integers: lists of positions, group labels.
class ZEMVA_API I2Vector : public VectorStorage<I2Vector, short> {
 public:
  using VectorStorage::VectorStorage;
  I2Vector(const I2Vector&) = default;
  I2Vector& operator=(const I2Vector&) = default;
  virtual ~I2Vector();

  // Lists the length and the elements, 7 to a line.
  virtual void Show(StreamWindow& window) const;

  // Elements 0..NVal(), of which element 0 is never data; null without memory.
  short* GetI2VecPtr() { return GetElements(); }
  const short* GetI2VecPtr() const { return GetElements(); }

  // Sorts the elements in ascending order.
  void SortAsc();

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "I2Vector is NULL";
};

// Single-precision values, of which some may be missing: the statistics leave those out, and the
// arithmetic leaves them missing. Arithmetic does not count anew how many are present in a vector
// that keeps count.
class ZEMVA_API FVector : public VectorStorage<FVector, float> {
 public:
  using VectorStorage::VectorStorage;
  // `length` elements set to `fill`, or with their contents as allocated.
  FVector(int length, float fill, bool is_filled);
  FVector(const FVector&) = default;
  FVector& operator=(const FVector&) = default;
  virtual ~FVector();

  // Lists the length and the elements, 7 to a line.
  virtual void Show(StreamWindow& window) const;

  // Elements 0..NVal(), of which element 0 is never data; null without memory.
  float* GetFVecPtr() { return GetElements(); }
  const float* GetFVecPtr() const { return GetElements(); }

  // The number of present values.
  int NValA() const;

  // The sum of the present values, accumulated in float; kMissing when there is none.
  double Sum() const;

  // The sum of squares of the present values, accumulated in double; 0 when there is none.
  double SS() const;

  // The mean, accumulated in double, the smallest and the largest of the present values; kMissing
  // when there is none.
  float Avg() const;
  float Min() const;
  float Max() const;

  // The variance of the N present values: the sum of their squared deviations from `centre`, by
  // Sum() and SS(), over (N - df_loss) * df_factor, but over no less than 1. The centre kMissing
  // stands for the mean. kMissing when no value is present.
  double S2(float centre, int df_loss, float df_factor) const;

  // The square root of S2, which when rounding has made it negative counts as 0; kMissing when S2
  // is.
  double SD(float centre, int df_loss, float df_factor) const;

  // The position of the first smallest value, of the first largest, and of the first largest in
  // absolute value; 0 when no value is present.
  int IxMin() const;
  int IxMax() const;
  int IxAbsMax() const;

  // Replace every present value by its absolute value and its square root. Sqrt: 5002, with nothing
  // changed, when a present value is negative.
  int Abs();
  int Sqrt();

  // Add `scalar` to every present value, multiply it by and divide it by `scalar`. All values
  // become missing when `scalar` is. VDivS: 5003, with nothing changed, when `scalar` is 0.
  int VAddS(float scalar);
  int VMulS(float scalar);
  int VDivS(float scalar);

  // The inner product with `other` over the pairs of which both are present, accumulated in double.
  // This vector's elements become missing where the other's are. kMissing with status 5004 when the
  // lengths differ, with 5007 for null.
  float VpMulV(const FVector* other);

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "FVector is NULL";

 protected:
  // What VpMulV returns, with the number of pairs.
  PresentSum MultiplyAndMark(const FVector* other);
};

// Double-precision values, of which some may be missing.
class ZEMVA_API DVector : public VectorStorage<DVector, double> {
 public:
  using VectorStorage::VectorStorage;
  DVector(const DVector&) = default;
  DVector& operator=(const DVector&) = default;
  virtual ~DVector();

  // Lists the length and the elements, 7 to a line.
  virtual void Show(StreamWindow& window) const;

  // Elements 0..NVal(), of which element 0 is never data; null without memory.
  double* GetDVecPtr() { return GetElements(); }
  const double* GetDVecPtr() const { return GetElements(); }

  // The number of present values.
  int NValA() const;

  // The mean, the smallest and the largest of the present values; kMissing when there is none. The
  // references hold until the vector changes.
  double Avg() const;
  const double& Min() const;
  const double& Max() const;

  // As those of FVector.
  int IxMin() const;
  int IxMax() const;
  int IxAbsMax() const;

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "DVector is NULL";
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_VECTOR_H
