#include "zemva/numeric/row_slab.h"

#include <algorithm>
#include <limits>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace zemva {
namespace {

constexpr std::size_t kHugePage = std::size_t{2} << 20;
constexpr std::align_val_t kAlignment{kHugePage};

// What of so many bytes fills huge pages, where the last one may stay empty by a quarter.
constexpr std::size_t InHugePages([[maybe_unused]] std::size_t bytes) {
#if defined(__linux__)
  return (bytes + kHugePage / 4) / kHugePage * kHugePage;
#else
  return 0;  // memory that is aligned so far costs that much more here
#endif
}

// Huge pages cost one page fault each instead of one every 4 KiB. Advice alone: where it is not
// taken nothing is lost.
void AdviseHugePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__)
  madvise(memory, bytes, MADV_HUGEPAGE);
#endif
}

}  // namespace

RowSlab* RowSlab::Make(std::size_t bytes) {
  if (bytes > std::numeric_limits<std::size_t>::max() / 2) return nullptr;
  bytes += kHeader;
  const std::size_t paged = InHugePages(bytes);
  const bool is_aligned = paged > 0;
  void* const memory = is_aligned ? ::operator new(std::max(bytes, paged), kAlignment, std::nothrow)
                                  : ::operator new(bytes, std::nothrow);
  if (memory == nullptr) return nullptr;
  if (is_aligned) AdviseHugePages(memory, paged);
  return new (memory) RowSlab(is_aligned);
}

void RowSlab::Free() {
  if (is_aligned_) {
    ::operator delete(static_cast<void*>(this), kAlignment);
  } else {
    ::operator delete(static_cast<void*>(this));
  }
}

}  // namespace zemva
