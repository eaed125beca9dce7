#include "zemva/dio/file/finder.h"

#include <algorithm>
#include <optional>
#include <string>

#include "zemva/dio/file/dio_file.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr int kFirstVersion = 1;
constexpr int kLastVersion = 3;

bool IsDigit(char c) {
  return '0' <= c && c <= '9';
}

constexpr std::string_view NameOf(const SymbolCell& cell) {
  return cell.name;
}

constexpr auto pSymTabSortedByName = [] {
  auto rows = kItemNames;
  std::ranges::sort(rows, {}, NameOf);
  return rows;
}();

constexpr auto pSymTabSortedByID = [] {
  auto rows = kItemNames;
  std::ranges::sort(rows, {}, &SymbolCell::value);
  return rows;
}();

// The name in a field: up to the first space or zero byte.
std::string_view NameIn(std::string_view field) {
  return field.substr(0, field.find_first_of(std::string_view(" \0", 2)));
}

struct NumberedName {
  std::string name;
  short component;
};

// The field without the last one or two digits in it, and their value; nothing without a digit.
// The first character is never taken as the first of two digits.
std::optional<NumberedName> TakeComponentNumber(std::string_view field) {
  field = field.substr(0, field.find_last_not_of(' ') + 1);
  const std::size_t last = field.find_last_of("0123456789");
  if (last == std::string_view::npos) return std::nullopt;
  const bool two_digits = last > 1 && IsDigit(field[last - 1]);
  const std::size_t first = two_digits ? last - 1 : last;
  int number = 0;
  for (const char digit : field.substr(first, last - first + 1)) number = 10 * number + digit - '0';
  std::string name(field.substr(0, first));
  name += field.substr(last + 1);
  return NumberedName{std::move(name), static_cast<short>(number)};
}

}  // namespace

ItemName Finder::Search(std::string_view name) {
  const auto row = std::ranges::lower_bound(pSymTabSortedByName, name, {}, NameOf);
  return row != pSymTabSortedByName.end() && row->name == name ? row->value : kUndefinedName;
}

const char* Finder::Search(ItemName value) {
  const auto row = std::ranges::lower_bound(pSymTabSortedByID, value, {}, &SymbolCell::value);
  return row != pSymTabSortedByID.end() && row->value == value ? row->name : kUndefinedNameText;
}

bool Finder::Lookup(const NameField& name_field, ItemName& value, short& component) {
  const std::string_view field(name_field.data(), name_field.size());
  component = -1;
  value = Search(NameIn(field));
  if (value != kUndefinedName) return true;
  const std::optional<NumberedName> numbered = TakeComponentNumber(field);
  if (!numbered) return false;
  component = numbered->component;
  value = Search(NameIn(numbered->name));
  return value != kUndefinedName;
}

int Finder::FindSuperItem(DioFile& file, const char* sub_name, SuperItem::Type type) {
  SuperHeader super_header;
  if (const int status = file.GetSuperHeader(super_header); status != status::kOk) return status;
  if (super_header.version < kFirstVersion || super_header.version > kLastVersion) {
    return status::dio::kFileVersion;
  }
  if (super_header.nitm < 1) return status::dio::kAreaSpecification;
  // The first super item stands for all: looking at it does not move the file to the next.
  SuperItem item;
  if (const int status = file.GetNextSuperItemName(item); status != status::kOk) return status;
  if (const int status = file.GetNextSuperItemType(item); status != status::kOk) return status;
  if (item.type == SuperItem::kUndefined) return status::dio::kUnknownItemName;
  bool names_agree = sub_name == nullptr;
  if (!names_agree && super_header.nitm == 1) {
    std::string_view stored(item.header.name.data(), item.header.name.size());
    stored.remove_prefix(std::min(stored.find_first_not_of(' '), stored.size()));
    names_agree = stored == sub_name;
  }
  return names_agree && item.type == type ? status::kOk : status::dio::kAreaSpecification;
}

}  // namespace zemva
