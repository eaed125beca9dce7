#include "zemva/numeric/row_slab.h"

#include <limits>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace zemva {
namespace {

constexpr std::align_val_t kHugePage{std::size_t{2} << 20};

// Whole huge pages cost one page fault each instead of one every 4 KiB. Advice alone: where it is
// not taken nothing is lost.
void AdviseHugePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__)
  constexpr auto kPage = static_cast<std::size_t>(kHugePage);
  madvise(memory, bytes / kPage * kPage, MADV_HUGEPAGE);
#endif
}

// Elsewhere memory that is aligned so far costs that much more.
constexpr bool IsAligned(std::size_t bytes) {
#if defined(__linux__)
  return bytes >= static_cast<std::size_t>(kHugePage);
#else
  return bytes == 0;
#endif
}

}  // namespace

RowSlab* RowSlab::Make(std::size_t bytes) {
  if (bytes > std::numeric_limits<std::size_t>::max() / 2) return nullptr;
  bytes += kHeader;
  const bool is_aligned = IsAligned(bytes);
  void* const memory = is_aligned ? ::operator new(bytes, kHugePage, std::nothrow)
                                  : ::operator new(bytes, std::nothrow);
  if (memory == nullptr) return nullptr;
  if (is_aligned) AdviseHugePages(memory, bytes);
  return new (memory) RowSlab(is_aligned);
}

void RowSlab::Free() {
  if (is_aligned_) {
    ::operator delete(static_cast<void*>(this), kHugePage);
  } else {
    ::operator delete(static_cast<void*>(this));
  }
}

}  // namespace zemva
