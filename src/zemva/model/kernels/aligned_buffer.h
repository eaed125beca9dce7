// Memory that the widest loads may read.
#ifndef ZEMVA_MODEL_KERNELS_ALIGNED_BUFFER_H
#define ZEMVA_MODEL_KERNELS_ALIGNED_BUFFER_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <span>

namespace zemva {

// `size` elements of a plain type, aligned to a cache line, with their contents as allocated.
template <typename T>
class AlignedBuffer {
 public:
  // Throws std::bad_alloc when there is no memory, whatever the size.
  explicit AlignedBuffer(std::size_t size) : elements_(Allocate(size)), size_(size) {}
  AlignedBuffer(const AlignedBuffer& other) : AlignedBuffer(other.size_) {
    std::copy_n(other.Data(), size_, Data());
  }
  AlignedBuffer(AlignedBuffer&&) noexcept = default;
  AlignedBuffer& operator=(AlignedBuffer&&) noexcept = default;

  T* Data() { return elements_.get(); }
  const T* Data() const { return elements_.get(); }
  T& operator[](std::size_t i) { return elements_.get()[i]; }
  const T& operator[](std::size_t i) const { return elements_.get()[i]; }
  std::span<T> Values() { return {Data(), size_}; }

 private:
  static constexpr std::align_val_t kAlignment{64};

  struct Free {
    void operator()(T* elements) const { ::operator delete(elements, kAlignment); }
  };

  static T* Allocate(std::size_t size) {
    if (size > std::numeric_limits<std::ptrdiff_t>::max() / sizeof(T)) throw std::bad_alloc();
    return static_cast<T*>(::operator new(size * sizeof(T), kAlignment));
  }

  std::unique_ptr<T, Free> elements_;
  std::size_t size_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_ALIGNED_BUFFER_H
