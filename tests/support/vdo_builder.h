// Builds the bytes of ".vdo" files, whole or damaged, without help from the code under test.
#ifndef ZEMVA_TESTS_SUPPORT_VDO_BUILDER_H
#define ZEMVA_TESTS_SUPPORT_VDO_BUILDER_H

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zemva::test {

inline std::string I2(int value) {
  return {static_cast<char>(value & 0xff), static_cast<char>(value >> 8 & 0xff)};
}
inline std::string I4(int value) {
  return I2(value & 0xffff) + I2(value >> 16 & 0xffff);
}
inline std::string F4(float value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}
inline std::string Z(std::string_view text) {
  return std::string(text) + '\0';
}
inline std::string Pad(std::string_view text, std::size_t size) {
  std::string field(text);
  field.resize(size, ' ');
  return field;
}

using Record = std::pair<int, std::string>;

// An item with a size field that tells the truth, or the `claimed` one.
inline std::string Item(std::string_view name, std::string_view type, const std::vector<int>& dims,
                        std::string_view payload, int claimed = -1) {
  const int size = 31 + 2 * static_cast<int>(dims.size()) + static_cast<int>(payload.size());
  std::string bytes = I4(claimed < 0 ? size : claimed) + Pad(name, 20) + Pad(type, 5) +
                      I2(static_cast<int>(dims.size()));
  for (const int extent : dims) bytes += I2(extent);
  return bytes.append(payload);
}

inline std::string ObsInfoItem(const std::vector<Record>& records,
                               const std::vector<std::string>& labels = {"", "", ""}) {
  std::string payload = I2(1) + Z("ObsName");
  for (const std::string& label : labels) payload += Z(label);
  payload += I2(static_cast<int>(records.size()));
  for (const auto& [number, name] : records) payload += I2(number) + Z(name);
  return Item("ObjInfo", "obji", {static_cast<int>(records.size())}, payload);
}

inline std::string VarInfoItem(const std::vector<Record>& records) {
  std::string payload;
  for (const auto& [number, name] : records) payload += I2(number) + Z(name);
  return Item("VarInfo", "vari", {static_cast<int>(records.size())}, payload);
}

inline std::string MatrixItem(int rows, int columns, const std::vector<float>& values,
                              std::string_view name = "matrix") {
  std::string payload = Z(name);
  for (const float value : values) payload += F4(value);
  return Item("Dataset", "mxf4", {rows, columns}, payload);
}

inline std::string SuperItemOf(std::string_view name, std::string_view type,
                               std::string_view body) {
  return Item(name, type, {}, body);
}

inline std::string FileOf(int version, int super_item_count, std::string_view super_items) {
  const int size = 110 + static_cast<int>(super_items.size());
  return I2(version) + I4(size) + Pad("Project", 20) + Pad("A comment", 60) +
         Pad("2001-01-01 12:00:00", 22) + I2(super_item_count) + std::string(super_items);
}

// The items of a data set of three observations and two variables with one missing value.
inline std::vector<std::string> SmallItems() {
  return {
      Item("DSName", "sz21", {}, Z("Small")),
      Item("DSNum", "i2", {}, I2(7)),
      Item("Title", "sz61", {}, Z("A small data set")),
      Item("NOBJ", "i2", {}, I2(3)),
      ObsInfoItem({{1, "first"}, {-2, "second"}, {30, "third"}}),
      Item("NVar", "i2", {}, I2(2)),
      VarInfoItem({{1, "x"}, {2, "y"}}),
      MatrixItem(3, 2, {1.5f, 2.0f, -99.0f, -99.00001f, 5.0f, 6.0f}),
  };
}

inline std::string Joined(const std::vector<std::string>& items) {
  std::string body;
  for (const std::string& item : items) body += item;
  return body;
}

inline std::string FileOfItems(const std::vector<std::string>& items, int version = 2) {
  return FileOf(version, 1, SuperItemOf("Small", "data", Joined(items)));
}

inline std::string SmallFile() {
  return FileOfItems(SmallItems());
}

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_SUPPORT_VDO_BUILDER_H
