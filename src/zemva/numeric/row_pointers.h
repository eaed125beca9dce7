// An array of pointers to rows that are allocated one by one.
#ifndef ZEMVA_NUMERIC_ROW_POINTERS_H
#define ZEMVA_NUMERIC_ROW_POINTERS_H

#include <cstddef>
#include <memory>
#include <utility>

#include "zemva/numeric/slots.h"

namespace zemva {

// Owns the rows 1..Count(); slot 0 holds a null pointer. Rows are removed and appended by moving
// pointers, without copying the others. The interface of the matrices hands out the bare array
// (T**), which is why the rows are bare pointers too.
template <typename T>
class RowPointers {
 public:
  // No array at all.
  RowPointers() = default;

  // `count` rows of `width` + 1 elements with their contents as allocated; no array, and nothing
  // kept, when memory runs out.
  RowPointers(int count, int width) : slots_(MakeSlots(count)) {
    while (slots_ && count_ < count) {
      T* const row = AllocateSlots<T>(width).release();
      if (row != nullptr) {
        slots_[static_cast<std::size_t>(++count_)] = row;
      } else {
        Free();
      }
    }
  }

  RowPointers(RowPointers&& other) noexcept { Swap(other); }
  RowPointers& operator=(RowPointers&& other) noexcept {
    Swap(other);
    return *this;
  }
  ~RowPointers() { Free(); }

  // Whether there is no array; the number of rows; the array; row i, unchecked.
  bool IsNull() const { return slots_ == nullptr; }
  int Count() const { return count_; }
  T** Get() const { return slots_.get(); }
  T*& operator[](int i) const { return slots_[static_cast<std::size_t>(i)]; }

  // Keeps the rows whose number satisfies `is_kept`, in order, and frees the others. False, with
  // nothing changed, when memory runs out.
  template <typename Predicate>
  bool Keep(Predicate is_kept) {
    int kept_count = 0;
    for (int i = 1; i <= count_; ++i) kept_count += is_kept(i) ? 1 : 0;
    auto kept = MakeSlots(kept_count);
    if (!kept) return false;
    int k = 0;
    for (int i = 1; i <= count_; ++i) {
      if (is_kept(i)) {
        kept[static_cast<std::size_t>(++k)] = (*this)[i];
      } else {
        delete[](*this)[i];
      }
    }
    slots_ = std::move(kept);
    count_ = kept_count;
    return true;
  }

  // Takes the rows of `more` behind its own. False, with nothing changed, when memory runs out.
  bool Append(RowPointers&& more) {
    auto longer = MakeSlots(count_ + more.count_);
    if (!longer || more.IsNull()) return false;
    for (int i = 1; i <= count_; ++i) longer[static_cast<std::size_t>(i)] = (*this)[i];
    for (int i = 1; i <= more.count_; ++i) {
      longer[static_cast<std::size_t>(count_ + i)] = std::exchange(more[i], nullptr);
    }
    slots_ = std::move(longer);
    count_ += more.count_;
    return true;
  }

  // Exchanges all rows.
  void Swap(RowPointers& other) noexcept {
    slots_.swap(other.slots_);
    std::swap(count_, other.count_);
  }

 private:
  static std::unique_ptr<T* []> MakeSlots(int count) {
    auto slots = AllocateSlots<T*>(count);
    if (slots) slots[0] = nullptr;
    return slots;
  }

  void Free() {
    for (int i = 1; i <= count_; ++i) delete[](*this)[i];
    count_ = 0;
    slots_.reset();
  }

  std::unique_ptr<T*[]> slots_;
  int count_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_ROW_POINTERS_H
