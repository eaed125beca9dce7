// The bytes behind the header of an item, put together and taken apart in memory.
#ifndef ZEMVA_DIO_FILE_PAYLOAD_H
#define ZEMVA_DIO_FILE_PAYLOAD_H

#include <algorithm>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string_view>
#include <type_traits>
#include <vector>

namespace zemva {

// What a payload can be made of: numbers as they lie in memory, which is little-endian.
template <typename T>
concept PayloadNumber = std::same_as<T, char> || std::same_as<T, short> || std::same_as<T, float> ||
    std::same_as<T, double>;

// Whether the floats of a payload may leave the range of a float, as sums of squares of the data as
// loaded do. None may be no number.
enum class Overflow { kRefused, kAllowed };

// Whether all values may stand in a payload. The bits are looked at, all of them: that takes
// several values at a time.
template <std::floating_point Number>
bool AreAcceptable(std::span<const Number> values, Overflow overflow) {
  using Bits =
      std::conditional_t<sizeof(Number) == sizeof(std::uint32_t), std::uint32_t, std::uint64_t>;
  const auto infinity = std::bit_cast<Bits>(std::numeric_limits<Number>::infinity());
  const Bits first_refused = overflow == Overflow::kAllowed ? infinity + 1 : infinity;
  Bits refused = 0;
  for (const Number value : values) {
    const Bits magnitude = std::bit_cast<Bits>(value) & (std::numeric_limits<Bits>::max() >> 1);
    refused |= magnitude >= first_refused ? Bits{1} : Bits{0};
  }
  return refused == 0;
}

// A payload as it grows, and the extents of its item.
class PayloadWriter {
 public:
  explicit PayloadWriter(Overflow overflow) : overflow_(overflow) {}

  template <PayloadNumber Number>
  void Add(Number value) {
    Add(std::span<const Number>(&value, 1));
  }
  template <PayloadNumber Number>
  void Add(std::span<const Number> values) {
    if constexpr (std::floating_point<Number>) {
      is_acceptable_ = is_acceptable_ && AreAcceptable(values, overflow_);
    }
    const char* const bytes = reinterpret_cast<const char*>(values.data());
    bytes_.insert(bytes_.end(), bytes, bytes + values.size_bytes());
  }
  // With its terminating zero byte.
  void AddText(std::string_view text) {
    Add(std::span<const char>(text.data(), text.size()));
    Add('\0');
  }
  void AddExtent(int extent) { extents_.push_back(static_cast<std::int16_t>(extent)); }

  std::span<const char> GetBytes() const { return bytes_; }
  std::span<const std::int16_t> GetExtents() const { return extents_; }
  // Whether a reader takes all floats so far.
  bool IsAcceptable() const { return is_acceptable_; }

 private:
  Overflow overflow_;
  std::vector<char> bytes_;
  std::vector<std::int16_t> extents_;
  bool is_acceptable_ = true;
};

// A payload that is read from its first byte to its last. What is asked for beyond its end is 0, as
// are the floats of a run in which one cannot be, and the payload is then not whole.
class PayloadReader {
 public:
  PayloadReader(std::span<const char> bytes, std::span<const std::int16_t> extents,
                Overflow overflow)
      : bytes_(bytes), extents_(extents), overflow_(overflow) {}

  // Dimension 0, 1 and so on; 0, and not whole, where there is none or it is negative.
  int GetExtent(std::size_t dimension) {
    const bool is_there = dimension < extents_.size() && extents_[dimension] >= 0;
    if (!is_there) Fail();
    return is_there ? extents_[dimension] : 0;
  }
  // Whether the payload still has so many numbers; not whole where it has not. To be asked before
  // room for them is made.
  template <PayloadNumber Number>
  bool Has(std::int64_t count) {
    const auto most = static_cast<std::int64_t>(bytes_.size() / sizeof(Number));
    if (count < 0 || count > most) Fail();
    return is_whole_;
  }

  template <PayloadNumber Number>
  Number Take() {
    Number value{};
    Take(std::span<Number>(&value, 1));
    return value;
  }
  template <PayloadNumber Number>
  void Take(std::span<Number> values) {
    if (!Has<Number>(static_cast<std::int64_t>(values.size()))) return;
    std::memcpy(values.data(), bytes_.data(), values.size_bytes());
    bytes_ = bytes_.subspan(values.size_bytes());
    if constexpr (std::floating_point<Number>) {
      if (!AreAcceptable(std::span<const Number>(values), overflow_)) {
        std::ranges::fill(values, Number{0});
        Fail();
      }
    }
  }
  // A text up to its terminating zero byte, which lies in the payload; empty where none is.
  const char* TakeText() {
    const void* const end =
        bytes_.empty() ? nullptr : std::memchr(bytes_.data(), '\0', bytes_.size());
    if (end == nullptr) {
      Fail();
      return "";
    }
    const char* const text = bytes_.data();
    bytes_ = bytes_.subspan(static_cast<std::size_t>(static_cast<const char*>(end) - text) + 1);
    return text;
  }

  void Fail() { is_whole_ = false; }
  bool IsWhole() const { return is_whole_; }
  // Whether all was read, and nothing is left.
  bool IsRead() const { return is_whole_ && bytes_.empty(); }

 private:
  std::span<const char> bytes_;
  std::span<const std::int16_t> extents_;
  Overflow overflow_;
  bool is_whole_ = true;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_PAYLOAD_H
