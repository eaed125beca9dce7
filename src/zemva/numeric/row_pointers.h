// An array of pointers to rows that are kept in slabs.
#ifndef ZEMVA_NUMERIC_ROW_POINTERS_H
#define ZEMVA_NUMERIC_ROW_POINTERS_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

#include "zemva/numeric/row_slab.h"
#include "zemva/numeric/slots.h"

namespace zemva {

// Owns the rows 1..Count(); slot 0 holds a null pointer. Rows are removed and appended by moving
// pointers, without copying the others, and those on the shorter side of a gap move; what is
// appended one by one finds room that was made for more. The interface of the matrices hands out
// the bare array (T**), which is why the rows are bare pointers too, in any order: before each
// stands the slab that it holds.
template <typename T>
class RowPointers {
 public:
  // No array at all.
  RowPointers() = default;

  // `count` rows with room for the elements 0..width, their contents as allocated; no array, and
  // nothing kept, when memory runs out.
  RowPointers(int count, int width) : width_(width), stride_(StrideOf(width)) {
    if (stride_ == 0 || !MakeRoom(count)) return;
    slots_[0] = nullptr;
    if (!Append(count)) Free();
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
  T** Get() const { return slots_; }
  T*& operator[](int i) const { return slots_[i]; }

  // The largest number of an element that a row has room for.
  int Width() const { return width_; }

  // Frees the rows first..last, which are there.
  void Remove(int first, int last) {
    for (int i = first; i <= last; ++i) FreeRow(slots_[i]);
    const int gap = last - first + 1;
    if (first - 1 < count_ - last) {
      std::copy_backward(slots_ + 1, slots_ + first, slots_ + last + 1);
      slots_ += gap;
      slots_[0] = nullptr;
    } else {
      std::copy(slots_ + last + 1, slots_ + count_ + 1, slots_ + first);
    }
    count_ -= gap;
  }

  // Keeps the rows whose number satisfies `is_kept`, in order, and frees the others.
  template <typename Predicate>
  void Keep(Predicate is_kept) {
    int kept_count = 0;
    for (int i = 1; i <= count_; ++i) {
      if (is_kept(i)) {
        slots_[++kept_count] = slots_[i];
      } else {
        FreeRow(slots_[i]);
      }
    }
    count_ = kept_count;
  }

  // Appends `count` rows with their contents as allocated. False, with nothing changed, when memory
  // runs out.
  bool Append(int count) {
    if (!MakeRoom(count)) return false;
    const int old_count = count_;
    const int planned = std::max(count, old_count / 2);
    for (int made = 0; made < count; ++made) {
      T* const row = MakeRow(planned - made);
      if (row == nullptr) {
        while (count_ > old_count) FreeRow(slots_[count_--]);
        return false;
      }
      slots_[++count_] = row;
    }
    return true;
  }

  // Exchanges all rows.
  void Swap(RowPointers& other) noexcept {
    array_.swap(other.array_);
    std::swap(slots_, other.slots_);
    std::swap(capacity_, other.capacity_);
    std::swap(count_, other.count_);
    std::swap(width_, other.width_);
    std::swap(stride_, other.stride_);
    std::swap(open_slab_, other.open_slab_);
    std::swap(next_row_, other.next_row_);
    std::swap(free_rows_, other.free_rows_);
  }

 private:
  // What stands before a row; all so that rows and pointers are aligned.
  struct Owner {
    RowSlab* slab = nullptr;
  };
  static constexpr std::size_t kAlignment = std::max(alignof(T), alignof(Owner));
  static constexpr std::size_t kOwner = std::max(sizeof(Owner), kAlignment);

  // 0 where the rows would be too long.
  static std::size_t StrideOf(int width) {
    constexpr std::size_t kMost = std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T) / 2;
    if (width < 0 || static_cast<std::size_t>(width) >= kMost) return 0;
    const std::size_t bytes = kOwner + (static_cast<std::size_t>(width) + 1) * sizeof(T);
    return (bytes + kAlignment - 1) / kAlignment * kAlignment;
  }

  // Makes room for so many more pointers: in the first array for these alone, then for more than
  // that, so that it is not made each time.
  bool MakeRoom(int count) {
    if (count < 0 || count > std::numeric_limits<int>::max() - count_) return false;
    const int used = array_ ? static_cast<int>(slots_ - array_.get()) : 0;
    if (array_ && count <= capacity_ - used - count_) return true;
    const int spare =
        array_ ? std::min(count_ / 2, std::numeric_limits<int>::max() - count_ - count) : 0;
    auto longer = AllocateSlots<T*>(count_ + count + spare);
    if (!longer) return false;
    if (array_) std::copy_n(slots_, count_ + 1, longer.get());
    array_ = std::move(longer);
    slots_ = array_.get();
    capacity_ = count_ + count + spare;
    return true;
  }

  // The next row, of `wanted` that there is to be room for; null when memory runs out.
  T* MakeRow(int wanted) {
    if (free_rows_ == 0 && !OpenSlab(wanted)) return nullptr;
    --free_rows_;
    std::byte* const place = std::exchange(next_row_, next_row_ + stride_);
    const Owner owner{open_slab_};
    std::memcpy(place, &owner, sizeof owner);
    open_slab_->Hold();
    return reinterpret_cast<T*>(place + kOwner);
  }

  bool OpenSlab(int wanted) {
    const std::size_t most = std::max<std::size_t>(RowSlab::kMostBytes / stride_, 1);
    const std::size_t row_count = std::min(static_cast<std::size_t>(wanted), most);
    RowSlab* const slab = RowSlab::Make(row_count * stride_);
    if (slab == nullptr) return false;
    if (open_slab_ != nullptr) open_slab_->Drop();
    open_slab_ = slab;
    next_row_ = slab->Bytes();
    free_rows_ = row_count;
    return true;
  }

  static void FreeRow(T* row) {
    Owner owner;
    std::memcpy(&owner, reinterpret_cast<std::byte*>(row) - kOwner, sizeof owner);
    owner.slab->Drop();
  }

  void Free() {
    for (int i = 1; i <= count_; ++i) FreeRow(slots_[i]);
    if (open_slab_ != nullptr) open_slab_->Drop();
    array_.reset();
    slots_ = nullptr;
    open_slab_ = nullptr;
    count_ = 0;
    free_rows_ = 0;
  }

  std::unique_ptr<T*[]> array_;
  T** slots_ = nullptr;  // within the array
  int capacity_ = 0;     // of the array, without slot 0
  int count_ = 0;
  int width_ = 0;
  std::size_t stride_ = 0;        // from row to row, in bytes
  RowSlab* open_slab_ = nullptr;  // which the next rows come from, and where
  std::byte* next_row_ = nullptr;
  std::size_t free_rows_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_ROW_POINTERS_H
