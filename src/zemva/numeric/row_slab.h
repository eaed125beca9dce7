// Memory that rows of a matrix share.
#ifndef ZEMVA_NUMERIC_ROW_SLAB_H
#define ZEMVA_NUMERIC_ROW_SLAB_H

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define ZEMVA_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZEMVA_ADDRESS_SANITIZER
#endif
#endif

namespace zemva {

// A few MiB for many rows, or one row that is longer; it lasts until the last that holds it lets
// go. Larger pieces would not be found in a crowded address space of 32 bits, smaller ones cost an
// allocation and page faults each.
class RowSlab {
 public:
  // What a slab holds at the most, but for a longer row. A sanitizer, which sees the ends of
  // allocations, gets one for each row.
#if defined(ZEMVA_ADDRESS_SANITIZER)
  static constexpr std::size_t kMostBytes = 0;
#else
  static constexpr std::size_t kMostBytes = (std::size_t{4} << 20) - 64;
#endif

  RowSlab(const RowSlab&) = delete;
  RowSlab& operator=(const RowSlab&) = delete;

  // With room for so many bytes, held once; null when memory runs out.
  static RowSlab* Make(std::size_t bytes);

  void Hold() {
    ++holders_;
  }
  // Frees the slab where nobody else holds it.
  void Drop() {
    if (--holders_ == 0) Free();
  }

  std::byte* Bytes() {
    return reinterpret_cast<std::byte*>(this) + kHeader;
  }

 private:
  static constexpr std::size_t kHeader = 64;  // a line of the cache

  explicit RowSlab(bool is_aligned) : is_aligned_(is_aligned) {}
  void Free();

  std::size_t holders_ = 1;
  bool is_aligned_;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_ROW_SLAB_H
