// The storage under the matrices and the vectors of texts.
#ifndef ZEMVA_NUMERIC_ROW_STORAGE_H
#define ZEMVA_NUMERIC_ROW_STORAGE_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <utility>

#include "zemva/errors/status.h"
#include "zemva/numeric/mat_obj.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/row_pointers.h"

namespace zemva {

// Rows 1..n with elements 0..width of type T, of which each can be removed by itself. `Derived` is
// the class on top, which says what the rows are.
//
// When memory runs out in a constructor the status is 5001, and there are no rows and no array.
template <typename Derived, typename T>
class RowStorage : public MatObj {
 public:
  RowStorage(const RowStorage& other) : RowStorage(other.RowCount(), other.Width()) {
    CopyRows(other);
  }

  // A copy of `*other`; empty with status 5007 when it is null.
  explicit RowStorage(const Derived* other)
      : RowStorage(other ? AsBase(other).RowCount() : 0, other ? AsBase(other).Width() : 0) {
    if (other != nullptr) {
      CopyRows(*other);
    } else {
      Report(status::mat::kNullPointer);
    }
  }

  // Takes the size and the contents of `other`; unchanged with status 5001 when memory runs out.
  RowStorage& operator=(const RowStorage& other) {
    Assign(other);
    return *this;
  }

  // Copies the contents of an object of the same size. 5004 when the sizes differ, 5007 for null;
  // the object is then unchanged.
  int Copy(const Derived* other) {
    if (other == nullptr) return Report(status::mat::kNullPointer);
    if (!HasSizeOf(*other)) return Report(status::mat::kDimension);
    CopyBody(*other);
    return status::kOk;
  }

  // The object's own address; no copy.
  Derived* GetPtr() { return static_cast<Derived*>(this); }
  const Derived* GetPtr() const { return static_cast<const Derived*>(this); }

  // The array of row pointers, slot 0 null. Owned by the object; null when it has no memory.
  T** GetMatPtr() const { return rows_.Get(); }

  // Row i, 1..n, unchecked.
  T* operator[](int i) { return rows_[i]; }
  const T* operator[](int i) const { return rows_[i]; }

 protected:
  // Contents as allocated, but for slot 0 of the rows.
  RowStorage(int row_count, int width) : rows_(MakeRows(row_count, width)), width_(width) {
    if (!rows_.IsNull()) return;
    width_ = 0;
    Report(AllocationStatus(std::min(row_count, width)));
  }

  ~RowStorage() = default;

  int RowCount() const { return rows_.Count(); }
  int Width() const { return width_; }

  void Fill(T value) {
    for (int i = 1; i <= RowCount(); ++i) std::ranges::fill(RowValues(i), value);
  }

  std::span<T> RowValues(int i) { return {rows_[i] + 1, static_cast<std::size_t>(width_)}; }
  std::span<const T> RowValues(int i) const {
    return {rows_[i] + 1, static_cast<std::size_t>(width_)};
  }

  int Assign(const RowStorage& other) {
    if (!HasSizeOf(other) || rows_.IsNull()) {
      RowPointers<T> rows = MakeRows(other.RowCount(), other.width_);
      if (rows.IsNull()) return Report(status::mat::kMemory);
      rows_ = std::move(rows);
      width_ = other.width_;
    }
    CopyBody(other);
    return status::kOk;
  }

  // Removes the rows first..last, which are there.
  void RemoveRows(int first, int last) { rows_.Remove(first, last); }

  // Keeps the rows whose number satisfies `is_kept`.
  template <typename Predicate>
  void KeepRows(Predicate is_kept) {
    rows_.Keep(is_kept);
  }

  // Keeps the columns whose number satisfies `is_kept`: in place, unless that would leave more than
  // half of the memory unused. 5001 when memory runs out.
  template <typename Predicate>
  int KeepColumns(Predicate is_kept) {
    int kept_count = 0;
    int first_gone = width_ + 1;
    int last_gone = 0;
    for (int j = width_; j >= 1; --j) {
      if (is_kept(j)) {
        ++kept_count;
      } else {
        first_gone = j;
        last_gone = std::max(last_gone, j);
      }
    }
    if (last_gone == 0) return status::kOk;
    const auto close_gaps = [&](const T* from, T* to) {
      for (int j = first_gone; j < last_gone; ++j) {
        if (is_kept(j)) *to++ = from[j];
      }
      std::copy(from + last_gone + 1, from + width_ + 1, to);
    };
    if (kept_count < rows_.Width() / 2) {
      return Rebuild(kept_count, kept_count, [&](const T* from, T* to) {
        close_gaps(from, std::copy_n(from + 1, first_gone - 1, to + 1));
      });
    }
    for (int i = 1; i <= RowCount(); ++i) {
      close_gaps(rows_[i], rows_[i] + first_gone);
    }
    width_ = kept_count;
    return status::kOk;
  }

  // Appends `count` rows set to `value`. 5001 when memory runs out, 5004 when `count` is negative
  // or the rows would be too many.
  int AppendRows(int count, T value) {
    if (!CanGrow(RowCount(), count)) return Report(status::mat::kDimension);
    if (rows_.IsNull()) rows_ = MakeRows(0, width_);
    const int old_count = RowCount();
    if (rows_.IsNull() || !rows_.Append(count)) return Report(status::mat::kMemory);
    for (int i = old_count + 1; i <= RowCount(); ++i) {
      rows_[i][0] = kUnusedSlot<T>;
      std::ranges::fill(RowValues(i), value);
    }
    return status::kOk;
  }

  // Appends `count` columns set to `value`, with the codes of AppendRows. Where the rows have to be
  // made longer there is room for some more columns then.
  int AppendColumns(int count, T value) {
    if (!CanGrow(width_, count)) return Report(status::mat::kDimension);
    const int width = width_ + count;
    if (rows_.IsNull() || width > rows_.Width()) {
      const int spare = CanGrow(width, width_ / kSpareShare) ? width_ / kSpareShare : 0;
      const int status = Rebuild(width_, width + spare, [&](const T* from, T* to) {
        std::copy_n(from + 1, width_, to + 1);
      });
      if (status != status::kOk) return status;
    }
    for (int i = 1; i <= RowCount(); ++i) std::fill_n(rows_[i] + width_ + 1, count, value);
    width_ = width;
    return status::kOk;
  }

  // Exchanges sizes and contents.
  void Swap(RowStorage& other) noexcept {
    rows_.Swap(other.rows_);
    std::swap(width_, other.width_);
  }

  // Leaves no rows.
  void Release() {
    rows_ = RowPointers<T>();
    width_ = 0;
  }

 private:
  static const RowStorage& AsBase(const Derived* object) { return *object; }

  static bool CanGrow(int size, int count) {
    return count >= 0 && count <= std::numeric_limits<int>::max() - size;
  }

  static RowPointers<T> MakeRows(int count, int width) {
    RowPointers<T> rows(count, width);
    for (int i = 1; i <= rows.Count(); ++i) rows[i][0] = kUnusedSlot<T>;
    return rows;
  }

  bool HasSizeOf(const RowStorage& other) const {
    return RowCount() == other.RowCount() && width_ == other.width_;
  }

  // Copies into rows just made, unless there was no memory for them.
  void CopyRows(const RowStorage& other) {
    if (HasSizeOf(other)) CopyBody(other);
  }

  void CopyBody(const RowStorage& other) {
    for (int i = 1; i <= RowCount(); ++i) std::ranges::copy(other.RowValues(i), rows_[i] + 1);
  }

  // Replaces every row by one with room for `room` elements, of which `copy_row` fills the first
  // `width` from the old one.
  template <typename CopyRow>
  int Rebuild(int width, int room, CopyRow copy_row) {
    RowPointers<T> rows = MakeRows(RowCount(), room);
    if (rows.IsNull()) return Report(status::mat::kMemory);
    for (int i = 1; i <= RowCount(); ++i) copy_row(rows_[i], rows[i]);
    rows_ = std::move(rows);
    width_ = width;
    return status::kOk;
  }

  // The spare room for columns is one such part of those that there are.
  static constexpr int kSpareShare = 8;

  RowPointers<T> rows_;
  int width_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_ROW_STORAGE_H
