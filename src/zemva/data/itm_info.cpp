#include "zemva/data/itm_info.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"

namespace zemva {
namespace {

constexpr const char* kListingName = "PrivateItmInfo";
constexpr const char* kHeader = "  Item  INum  INam";

}  // namespace

ItmData::~ItmData() = default;

PrivateItmInfo::~PrivateItmInfo() = default;

int PrivateItmInfo::AddItm(std::unique_ptr<ItmData> item) {
  if (item == nullptr) return status::itm::kNullItem;
  if (GetNItm() == kMaxItems) return status::itm::kBadPosition;
  try {
    items_.push_back(std::move(item));
  } catch (const std::bad_alloc&) {
    return status::mva::kMemory;
  }
  return status::kOk;
}

int PrivateItmInfo::DelItm(short i) {
  if (!IsPosition(i)) return status::itm::kBadPosition;
  const auto first = items_.begin() + free_count_.Get();
  const auto item = first + (i - 1);
  if (i > GetNItm() / 2) {
    items_.erase(item);
    return status::kOk;
  }
  item->reset();
  std::move_backward(first, item, item + 1);
  free_count_.Set(free_count_.Get() + 1);
  if (free_count_.Get() > GetNItm()) CloseFront();
  return status::kOk;
}

void PrivateItmInfo::CloseFront() {
  items_.erase(items_.begin(), items_.begin() + free_count_.Get());
  free_count_.Set(0);
}

int PrivateItmInfo::Copy(const PrivateItmInfo& other) {
  try {
    std::vector<std::unique_ptr<ItmData>> items;
    items.reserve(static_cast<std::size_t>(other.GetNItm()));
    for (const short i : PositionsUpTo(other.GetNItm())) items.push_back(other.GetItm(i)->Clone());
    items_ = std::move(items);
    free_count_.Set(0);
  } catch (const std::bad_alloc&) {
    return status::mva::kMemory;
  }
  name_ = other.name_;
  return status::kOk;
}

int PrivateItmInfo::ShowAll(StreamWindow& window) const {
  ListTitle(window, kListingName, GetNItm());
  Listing(window).Text(kHeader).EndLine();
  for (const short i : PositionsUpTo(GetNItm())) ShowRow(i, window);
  return status::kOk;
}

int PrivateItmInfo::ShowItm(short i, StreamWindow& window) const {
  ListItemTitle(window, kListingName, i);
  Listing(window).Text(kHeader).EndLine();
  if (IsPosition(i)) ShowRow(i, window);
  return status::kOk;
}

void PrivateItmInfo::ShowRow(short i, StreamWindow& window) const {
  const ItmData& item = *GetItm(i);
  Listing(window).Right(6, i).Right(6, item.GetINum()).Text(item.GetINam()).EndLine();
}

ItmInfo::ItmInfo(const ItmInfo& other)
    : items_(other.GetNam()),
      numbers_(other.numbers_),
      own_numbers_(other.own_numbers_),
      status_(other.status_),
      is_modified_(other.is_modified_) {
  const int status = items_.Copy(other.items_);
  if (status == status::kOk) return;
  SetStatus(status);
  Removed(1, other.GetNItm());
}

ItmInfo& ItmInfo::operator=(const ItmInfo& other) {
  const int status = items_.Copy(other.items_);
  if (status != status::kOk) {
    SetStatus(status);
    return *this;
  }
  numbers_ = other.numbers_;
  own_numbers_ = other.own_numbers_;
  status_ = other.status_;
  is_modified_ = other.is_modified_;
  return *this;
}

ItmInfo::~ItmInfo() = default;

int ItmInfo::Reserve(int count) {
  return SetStatus(MemoryGuarded([&] {
    items_.Reserve(count);
    return status::kOk;
  }));
}

int ItmInfo::DelAll() {
  Removed(1, GetNItm());
  items_.DelAll();
  return Changed(status::kOk);
}

int ItmInfo::ShowAll(StreamWindow& window) {
  return items_.ShowAll(window);
}

int ItmInfo::ShowItm(short i, StreamWindow& window) {
  return items_.ShowItm(i, window);
}

short ItmInfo::GetINum(short i) const {
  const ItmData* item = GetItm(i);
  return item == nullptr ? short{0} : item->GetINum();
}

const char* ItmInfo::GetINam(short i) const {
  const ItmData* item = GetItm(i);
  return item == nullptr ? nullptr : item->GetINam();
}

int ItmInfo::SetINum(short i, short num) {
  ItmData* item = GetItm(i);
  if (item == nullptr) return SetStatus(status::itm::kBadPosition);
  item->SetINum(num);
  numbers_.Renumbered(i);
  return Changed(status::kOk);
}

int ItmInfo::SetINam(short i, const char* name) {
  ItmData* item = GetItm(i);
  if (item == nullptr) return SetStatus(status::itm::kBadPosition);
  item->SetINam(name);
  return Changed(status::kOk);
}

bool ItmInfo::DoNumbersAscend() const {
  return numbers_.Spans(GetNItm(), [&](int i) { return GetINum(static_cast<short>(i)); });
}

short ItmInfo::GetLargestINum() const {
  short largest = 0;
  const short count = GetNItm();
  for (int i = DoNumbersAscend() ? std::max<int>(count, 1) : 1; i <= count; ++i) {
    largest = std::max(largest, GetINum(static_cast<short>(i)));
  }
  return largest;
}

std::optional<short> ItmInfo::FindAscending(short num) const {
  return numbers_.Find(GetNItm(), num, [&](int i) { return GetINum(static_cast<short>(i)); });
}

short ItmInfo::GetIx(short num) const {
  if (const auto only = FindAscending(num)) return *only;
  return FindItm(1, GetNItm(), [&](const ItmData& item) { return item.GetINum() == num; });
}

short ItmInfo::GetIx(const char* name) const {
  if (name == nullptr) return 0;
  return FindItm(1, GetNItm(),
                 [&](const ItmData& item) { return std::strcmp(item.GetINam(), name) == 0; });
}

int ItmInfo::KeepItms(const XI1Vector& keep) {
  if (keep.NVal() != GetNItm()) return SetStatus(status::mva::kIndexOutOfRange);
  const auto kept = keep.Values();
  const auto gone = std::ranges::find_if_not(kept, [](char flag) { return flag == kSelected; });
  Removed(static_cast<int>(gone - kept.begin()) + 1, GetNItm());
  items_.KeepItms([&](short i) { return keep[i] == kSelected; });
  return Changed(status::kOk);
}

void ItmInfo::KeepFirst(int count) {
  if (GetNItm() <= count) return;
  Removed(count + 1, GetNItm() - count);
  items_.KeepItms([&](short i) { return i <= count; });
  Changed(status::kOk);
}

void ItmInfo::NumberInOrder() {
  const short count = GetNItm();
  if (count == 0) return;
  // So many ascending numbers from 1 to their count are the positions.
  const bool is_in_order = DoNumbersAscend() && GetINum(1) == 1 && GetINum(count) == count;
  for (const short i : PositionsUpTo(is_in_order ? 0 : count)) GetItm(i)->SetINum(i);
  Changed(status::kOk);
}

int ItmInfo::AddItm(ItmData* item) {
  return Changed(items_.AddItm(std::unique_ptr<ItmData>(item)));
}

int ItmInfo::DelItm(short i) {
  const int status = items_.DelItm(i);
  if (status == status::kOk) Removed(i, 1);
  return Changed(status);
}

int ItmInfo::Changed(int status) {
  if (status == status::kOk) is_modified_ = true;
  return SetStatus(status);
}

}  // namespace zemva
