#include "zemva/dio/file/layout.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace zemva {
namespace {

// Blocks of numbers are read and written as they lie in memory.
static_assert(std::endian::native == std::endian::little);

template <class Value, std::size_t Size>
Value FromBytes(std::span<const char, Size> bytes) {
  static_assert(sizeof(Value) == Size);
  std::array<char, Size> raw;
  std::ranges::copy(bytes, raw.begin());
  return std::bit_cast<Value>(raw);
}

char LowerCase(char c) {
  return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

struct SuperItemTag {
  SuperItem::Type type;
  const char* tag;
};

constexpr SuperItemTag kSuperItemTags[] = {
    {SuperItem::kData, "data "},
    {SuperItem::kModel, "mod  "},
    {SuperItem::kExecution, "exec "},
    {SuperItem::kWorkset, "work "},
};

}  // namespace

std::int16_t DecodeI2(std::span<const char, 2> bytes) {
  return FromBytes<std::int16_t>(bytes);
}
std::int32_t DecodeI4(std::span<const char, 4> bytes) {
  return FromBytes<std::int32_t>(bytes);
}
std::array<char, 2> EncodeI2(std::int16_t value) {
  return std::bit_cast<std::array<char, 2>>(value);
}
std::array<char, 4> EncodeI4(std::int32_t value) {
  return std::bit_cast<std::array<char, 4>>(value);
}

SuperHeader DecodeSuperHeader(std::span<const char, SuperHeader::kSize> bytes) {
  SuperHeader header;
  header.version = DecodeI2(bytes.subspan<0, 2>());
  header.size = DecodeI4(bytes.subspan<SuperHeader::kSizeOffset, 4>());
  std::ranges::copy(bytes.subspan<SuperHeader::kNameOffset, 20>(), header.name.begin());
  std::ranges::copy(bytes.subspan<SuperHeader::kCommentOffset, 60>(), header.comment.begin());
  std::ranges::copy(bytes.subspan<SuperHeader::kTimeOffset, 22>(), header.time.begin());
  header.nitm = DecodeI2(bytes.subspan<SuperHeader::kItemCountOffset, 2>());
  return header;
}

std::array<char, SuperHeader::kSize> EncodeSuperHeader(const SuperHeader& header) {
  std::array<char, SuperHeader::kSize> bytes;
  std::ranges::copy(EncodeI2(header.version), bytes.begin());
  std::ranges::copy(EncodeI4(header.size), bytes.begin() + SuperHeader::kSizeOffset);
  std::ranges::copy(header.name, bytes.begin() + SuperHeader::kNameOffset);
  std::ranges::copy(header.comment, bytes.begin() + SuperHeader::kCommentOffset);
  std::ranges::copy(header.time, bytes.begin() + SuperHeader::kTimeOffset);
  std::ranges::copy(EncodeI2(header.nitm), bytes.begin() + SuperHeader::kItemCountOffset);
  return bytes;
}

ItemHeaderStart DecodeItemHeader(std::span<const char, ItemHeader::kFixedSize> bytes) {
  ItemHeaderStart start;
  start.header.size = DecodeI4(bytes.subspan<0, 4>());
  std::ranges::copy(bytes.subspan<ItemHeader::kNameOffset, 20>(), start.header.name.begin());
  std::ranges::copy(bytes.subspan<ItemHeader::kTypeOffset, 5>(), start.header.type.begin());
  start.ndims = DecodeI2(bytes.subspan<ItemHeader::kDimensionsOffset, 2>());
  return start;
}

std::vector<char> EncodeItemHeader(const ItemHeader& header) {
  std::vector<char> bytes(header.HeaderSize());
  std::ranges::copy(EncodeI4(header.size), bytes.begin());
  std::ranges::copy(header.name, bytes.begin() + ItemHeader::kNameOffset);
  std::ranges::copy(header.type, bytes.begin() + ItemHeader::kTypeOffset);
  std::ranges::copy(EncodeI2(static_cast<std::int16_t>(header.dims.size())),
                    bytes.begin() + ItemHeader::kDimensionsOffset);
  auto place = bytes.begin() + ItemHeader::kFixedSize;
  for (const std::int16_t extent : header.dims) {
    place = std::ranges::copy(EncodeI2(extent), place).out;
  }
  return bytes;
}

void ItemHeader::Set(int& item_size, std::string_view item_name, std::string_view item_type,
                     int ndims, const std::int16_t* extents) {
  dims.assign(extents, extents + ndims);
  item_size += static_cast<int>(HeaderSize());
  size = item_size;
  name = Padded<20>(item_name);
  type = Padded<5>(item_type);
}

SuperItem::Type SuperItem::GetSuperItemType(const TypeField& tag) {
  TypeField lower;
  std::ranges::transform(tag, lower.begin(), LowerCase);
  for (const SuperItemTag& row : kSuperItemTags) {
    if (std::string_view(lower.data(), lower.size()) == row.tag) return row.type;
  }
  return kUndefined;
}

const char* SuperItem::GetString(Type type) {
  const auto row = std::ranges::find(kSuperItemTags, type, &SuperItemTag::type);
  return row == std::end(kSuperItemTags) ? "undef" : row->tag;
}

}  // namespace zemva
