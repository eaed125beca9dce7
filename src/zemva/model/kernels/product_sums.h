// A small matrix of inner products.
#ifndef ZEMVA_MODEL_KERNELS_PRODUCT_SUMS_H
#define ZEMVA_MODEL_KERNELS_PRODUCT_SUMS_H

#include <cstddef>

#include "zemva/model/kernels/aligned_buffer.h"
#include "zemva/model/kernels/projection_loops.h"

namespace zemva {

// A symmetric matrix of sums of products, n by n, in double.
class ProductSums {
 public:
  // Zeros. Throws std::bad_alloc.
  explicit ProductSums(std::size_t size);

  std::size_t Size() const { return size_; }
  // The length of vectors that go with it, which end in zeros.
  std::size_t PaddedSize() const { return stride_; }
  double* Row(std::size_t i) { return elements_.Data() + i * stride_; }
  const double* Row(std::size_t i) const { return elements_.Data() + i * stride_; }

  void CopyUpperToLower();
  void Clear();
  double Trace() const;
  // Adds the elements of another of the same size.
  void Add(const ProductSums& other);
  // Adds sign a a'.
  void AddSquare(double sign, const double* a);
  // Takes off a b' + b a'.
  void Subtract(const double* a, const double* b);
  // product = this matrix times x.
  void Multiply(const ProjectionLoops& loops, const double* x, double* product) const;

 private:
  std::size_t size_;
  std::size_t stride_;
  AlignedBuffer<double> elements_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_PRODUCT_SUMS_H
