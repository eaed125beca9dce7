// The headers of a ".vdo" file, and how they lie in its bytes.
//
// All numbers are little-endian, integers two's complement, floats IEEE 754 single precision; texts
// are 8-bit characters. docs/file-format.md describes the whole file.
#ifndef ZEMVA_DIO_FILE_LAYOUT_H
#define ZEMVA_DIO_FILE_LAYOUT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "zemva/base/export.h"

namespace zemva {

// A field of fixed size that is padded with spaces and not zero-terminated.
template <std::size_t Size>
using PaddedText = std::array<char, Size>;

// The field with `text` in it, cut where it does not fit.
template <std::size_t Size>
PaddedText<Size> Padded(std::string_view text) {
  PaddedText<Size> field;
  field.fill(' ');
  text.copy(field.data(), Size);
  return field;
}

// The text of the field, up to the first zero byte and without the spaces at its end.
template <std::size_t Size>
std::string_view Trimmed(const PaddedText<Size>& field) {
  std::string_view text(field.data(), Size);
  text = text.substr(0, text.find('\0'));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// The first bytes of the file.
struct SuperHeader {
  static constexpr std::size_t kSizeOffset = 2;  // the version is at 0
  static constexpr std::size_t kNameOffset = 6;
  static constexpr std::size_t kCommentOffset = 26;
  static constexpr std::size_t kTimeOffset = 86;
  static constexpr std::size_t kItemCountOffset = 108;
  static constexpr std::size_t kSize = 110;  // of the header

  std::int16_t version = 0;
  std::int32_t size = 0;     // of the file, as its writer recorded it
  PaddedText<20> name = {};  // of the project
  PaddedText<60> comment = {};
  PaddedText<22> time = {};  // when it was written
  std::int16_t nitm = 0;     // number of super items
};

using NameField = PaddedText<20>;
using TypeField = PaddedText<5>;

// The head of an item: of a super item, or of one of the items that fill it.
struct ZEMVA_API ItemHeader {
  static constexpr std::size_t kNameOffset = 4;  // the size is at 0
  static constexpr std::size_t kTypeOffset = 24;
  static constexpr std::size_t kDimensionsOffset = 29;
  static constexpr std::size_t kFixedSize = 31;  // without the dimensions

  std::int32_t size = 0;  // of the whole item in bytes, this header included
  NameField name = {};
  TypeField type = {};
  std::vector<std::int16_t> dims;  // extents, as many as the item has dimensions

  // Fills the header of an item. `size` is the payload's length on entry and the whole item's
  // length on return. A name is cut at 20 characters, a type tag at 5.
  void Set(int& size, std::string_view name, std::string_view type, int ndims,
           const std::int16_t* dims);

  std::size_t HeaderSize() const { return kFixedSize + sizeof(std::int16_t) * dims.size(); }
  // Of the bytes behind the header; negative when the header's size field lies.
  std::int64_t PayloadSize() const { return size - static_cast<std::int64_t>(HeaderSize()); }
};

// The head of a super item, with the type that its tag stands for.
struct ZEMVA_API SuperItem {
  enum Type : int { kUndefined = -1, kData = 1, kModel = 2, kExecution = 3, kWorkset = 4 };

  ItemHeader header;
  Type type = kUndefined;

  // The type of a five-byte tag, letter case ignored; kUndefined for an unknown one.
  static Type GetSuperItemType(const TypeField& tag);
  // The five-byte tag of a type; "undef" for an unknown one.
  static const char* GetString(Type type);
};

// The fields of a super header, in the order in which they lie in the file.
struct HeaderField {
  const char* name;
  std::size_t end;  // offset of the first byte behind it
};
inline constexpr std::array<HeaderField, 6> kSuperHeaderFields = {{
    {"version", SuperHeader::kSizeOffset},
    {"size", SuperHeader::kNameOffset},
    {"name", SuperHeader::kCommentOffset},
    {"comment", SuperHeader::kTimeOffset},
    {"time", SuperHeader::kItemCountOffset},
    {"nitm", SuperHeader::kSize},
}};

SuperHeader DecodeSuperHeader(std::span<const char, SuperHeader::kSize> bytes);
std::array<char, SuperHeader::kSize> EncodeSuperHeader(const SuperHeader& header);

// The fixed part of an item header, dims still empty, and its count of dimensions.
struct ItemHeaderStart {
  ItemHeader header;
  std::int16_t ndims = 0;
};
ItemHeaderStart DecodeItemHeader(std::span<const char, ItemHeader::kFixedSize> bytes);
std::vector<char> EncodeItemHeader(const ItemHeader& header);

std::int16_t DecodeI2(std::span<const char, 2> bytes);
std::int32_t DecodeI4(std::span<const char, 4> bytes);
std::array<char, 2> EncodeI2(std::int16_t value);
std::array<char, 4> EncodeI4(std::int32_t value);

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_LAYOUT_H
