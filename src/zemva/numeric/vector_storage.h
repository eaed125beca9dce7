// The storage under the vectors of numbers.
#ifndef ZEMVA_NUMERIC_VECTOR_STORAGE_H
#define ZEMVA_NUMERIC_VECTOR_STORAGE_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <span>
#include <utility>

#include "zemva/errors/status.h"
#include "zemva/numeric/mat_obj.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/slots.h"

namespace zemva {

// Elements 1..NVal() of type T; element 0 exists and is never data. `Derived` is the vector class.
//
// When memory runs out in a constructor the status is 5001 and the vector has no elements.
template <typename Derived, typename T>
class VectorStorage : public MatObj {
 public:
  using Element = T;

  // `length` elements set to `fill`.
  VectorStorage(int length, T fill) : VectorStorage(length) { std::ranges::fill(Values(), fill); }

  // A copy of one that there was no memory for has its status.
  VectorStorage(const VectorStorage& other) : VectorStorage(other.length_) {
    if (length_ == other.length_) CopyBody(other);
    if (!other.elements_) Report(other.GetStatus());
  }

  // A copy of `*other`; empty with status 5007 when it is null.
  explicit VectorStorage(const Derived* other) : VectorStorage(other ? other->NVal() : 0) {
    if (other == nullptr) {
      Report(status::mat::kNullPointer);
    } else if (length_ == other->NVal()) {
      CopyBody(*other);
    }
  }

  // Takes the length and the elements of `other`; unchanged with status 5001 when memory runs out.
  VectorStorage& operator=(const VectorStorage& other) {
    Assign(other);
    return *this;
  }

  // Copies the elements of a vector of the same length. 5004 when the lengths differ, 5007 for
  // null; the vector is then unchanged.
  int Copy(const Derived* other) {
    const int check = CheckOperand(other);
    if (check != status::kOk) return Report(check);
    CopyBody(*other);
    return status::kOk;
  }

  // The vector's own address; no copy.
  Derived* GetPtr() { return static_cast<Derived*>(this); }
  const Derived* GetPtr() const { return static_cast<const Derived*>(this); }

  // The number of elements.
  int NVal() const { return length_; }

  // Element i, 1..NVal(), unchecked.
  T& operator[](int i) { return elements_[static_cast<std::size_t>(i)]; }
  const T& operator[](int i) const { return elements_[static_cast<std::size_t>(i)]; }

  // Element i; what element 0 holds when there is no such element.
  T GetElement(int i) const { return i >= 1 && i <= length_ ? (*this)[i] : kUnusedSlot<T>; }

  // Elements 1..NVal().
  std::span<T> Values() { return {First(), static_cast<std::size_t>(length_)}; }
  std::span<const T> Values() const { return {First(), static_cast<std::size_t>(length_)}; }

  // Appends `count` elements set to `value`. 5001 when memory runs out, 5004 when `count` is
  // negative or the vector would grow too long; the vector is then unchanged.
  int Exp(int count, T value) {
    if (count < 0 || count > std::numeric_limits<int>::max() - length_) {
      return Report(status::mat::kDimension);
    }
    auto longer = AllocateSlots<T>(length_ + count);
    if (!longer) return Report(status::mat::kMemory);
    longer[0] = kUnusedSlot<T>;
    T* const end = std::ranges::copy(Values(), longer.get() + 1).out;
    std::fill_n(end, count, value);
    elements_ = std::move(longer);
    length_ += count;
    return status::kOk;
  }

 protected:
  // `length` elements with their contents as allocated.
  explicit VectorStorage(int length) : elements_(AllocateSlots<T>(length)) {
    if (!elements_) {
      Report(AllocationStatus(length));
      return;
    }
    elements_[0] = kUnusedSlot<T>;
    length_ = length;
  }

  ~VectorStorage() = default;

  // What stands against taking `other` element by element: that it is null or of another length.
  int CheckOperand(const Derived* other) const {
    if (other == nullptr) return status::mat::kNullPointer;
    return other->NVal() == length_ ? status::kOk : status::mat::kDimension;
  }

  T* GetElements() { return elements_.get(); }
  const T* GetElements() const { return elements_.get(); }

  int Assign(const VectorStorage& other) {
    if (length_ != other.length_ || !elements_) {
      auto elements = AllocateSlots<T>(other.length_);
      if (!elements) return Report(status::mat::kMemory);
      elements[0] = kUnusedSlot<T>;
      elements_ = std::move(elements);
      length_ = other.length_;
    }
    CopyBody(other);
    return status::kOk;
  }

  // Leaves no elements.
  void Release() {
    elements_.reset();
    length_ = 0;
  }

 private:
  void CopyBody(const VectorStorage& other) { std::copy_n(other.First(), other.length_, First()); }

  T* First() { return elements_ ? elements_.get() + 1 : nullptr; }
  const T* First() const { return elements_ ? elements_.get() + 1 : nullptr; }

  std::unique_ptr<T[]> elements_;
  int length_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_VECTOR_STORAGE_H
