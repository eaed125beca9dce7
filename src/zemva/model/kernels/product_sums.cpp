#include "zemva/model/kernels/product_sums.h"

#include <algorithm>

#include "zemva/base/lane_sums.h"

namespace zemva {

ProductSums::ProductSums(std::size_t size)
    : size_(size), stride_(PaddedCount(size)), elements_(PaddedCount(size) * PaddedCount(size)) {
  Clear();
}

void ProductSums::Clear() {
  std::ranges::fill(elements_.Values(), 0.0);
}

void ProductSums::CopyUpperToLower() {
  for (std::size_t i = 0; i < size_; ++i) {
    for (std::size_t j = 0; j < i; ++j) Row(i)[j] = Row(j)[i];
  }
}

double ProductSums::Trace() const {
  double trace = 0;
  for (std::size_t i = 0; i < size_; ++i) trace += Row(i)[i];
  return trace;
}

void ProductSums::Add(const ProductSums& other) {
  for (std::size_t i = 0; i < size_; ++i) {
    double* const row = Row(i);
    const double* const added = other.Row(i);
    for (std::size_t j = 0; j < size_; ++j) row[j] += added[j];
  }
}

void ProductSums::AddSquare(double sign, const double* a) {
  for (std::size_t i = 0; i < size_; ++i) {
    double* const row = Row(i);
    const double factor = sign * a[i];
    for (std::size_t j = 0; j < size_; ++j) row[j] += factor * a[j];
  }
}

void ProductSums::Subtract(const double* a, const double* b) {
  for (std::size_t i = 0; i < size_; ++i) {
    double* const row = Row(i);
    const double a_i = a[i];
    const double b_i = b[i];
    for (std::size_t j = 0; j < size_; ++j) row[j] -= a_i * b[j] + b_i * a[j];
  }
}

void ProductSums::Multiply(const ProjectionLoops& loops, const double* x, double* product) const {
  // Rows behind the last are zeros.
  for (std::size_t i = 0; i < size_; i += kBlockRows) {
    loops.dot_of_doubles(Row(i), stride_, x, stride_, product + i);
  }
}

}  // namespace zemva
