#include "zemva/data/cla_info.h"

#include <algorithm>
#include <array>

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/data/names.h"
#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr char kNoClass = 0;

std::size_t Slot(char c) {
  return static_cast<std::size_t>(c);
}

}  // namespace

ClaInfo::ClaInfo(const char* name, short nobs) : ItmInfo(name), o_class_("OClass", nobs, kNoClass) {
  if (o_class_.GetStatus() != status::kOk) SetStatus(status::mva::kMemory);
}

ClaInfo::ClaInfo(const char* name, std::span<const char> classes)
    : ClaInfo(name, static_cast<short>(classes.size())) {
  short position = 0;
  for (const char c : classes) {
    if (GetStatus() == status::kOk) SetOClass(++position, c);
  }
  if (GetStatus() == status::kOk) Update();
}

int ClaInfo::SetOClass(short i, char c) {
  if (i < 1 || i > o_class_.NVal() || c < 0 || c > kMaxClass) {
    return SetStatus(status::mva::kIndexOutOfRange);
  }
  o_class_[i] = c;
  return Changed(status::kOk);
}

short ClaInfo::GetNOClass() {
  return UpdateIfModified() == status::kOk ? GetNItm() : short{0};
}

short ClaInfo::GetNObsOClass(short k) {
  const ClaData* row = UpdateIfModified() == status::kOk ? GetRow(k) : nullptr;
  return row == nullptr ? short{0} : row->GetNObs();
}

short ClaInfo::GetOClassNum(short k) {
  return UpdateIfModified() == status::kOk ? GetINum(k) : short{0};
}

short ClaInfo::GetNextOClassNum() const {
  const auto classes = o_class_.Values();
  const auto largest = std::ranges::max_element(classes);
  if (largest == classes.end()) return 1;
  if (*largest < kMaxClass) return static_cast<short>(*largest + 1);
  std::array<bool, kMaxClass + 1> is_used = {};
  for (const char c : classes) is_used[Slot(c)] = true;
  const auto free = std::find(is_used.begin() + 1, is_used.end(), false);
  return free == is_used.end() ? short{0} : static_cast<short>(free - is_used.begin());
}

ClaInfo* ClaInfo::ExtClaInfo(const XI1Vector* sel) {
  if (sel == nullptr) return nullptr;
  const int length = std::min(sel->NVal(), o_class_.NVal());
  const auto count =
      std::ranges::count(sel->Values().first(static_cast<std::size_t>(length)), kSelected);
  std::unique_ptr<ClaInfo> extract;
  SetStatus(MemoryGuarded([&] {
    extract = std::make_unique<ClaInfo>("ClaInfo", static_cast<short>(count));
    return extract->GetStatus();
  }));
  if (GetStatus() != status::kOk) return nullptr;
  short position = 0;
  for (const short i : PositionsUpTo(length)) {
    if ((*sel)[i] == kSelected) extract->SetOClass(++position, o_class_[i]);
  }
  SetStatus(extract->Update());
  const bool has_class = GetStatus() == status::kOk && extract->GetNItm() > 0;
  return has_class ? extract.release() : nullptr;  // the caller's
}

int ClaInfo::Update() {
  std::array<short, kMaxClass + 1> counts = {};
  std::array<char, kMaxClass> order = {};
  std::size_t class_count = 0;
  for (const char c : o_class_.Values()) {
    if (c != kNoClass && counts[Slot(c)]++ == 0) order[class_count++] = c;
  }
  DelAll();
  for (std::size_t k = 0; k < class_count; ++k) {
    const char c = order[k];
    const int status =
        MemoryGuarded([&] { return AddItm(c, NumberedName("Class", c).c_str(), counts[Slot(c)]); });
    if (status != status::kOk) return SetStatus(status::mva::kMemory);
  }
  ClearIsModified();
  return SetStatus(status::kOk);
}

int ClaInfo::ShowAll(StreamWindow& window) {
  UpdateIfModified();
  ListTitle(window, GetNam(), GetNItm());
  if (GetNItm() == 0) return status::kOk;
  o_class_.Show(window);
  Listing(window).Text("  Item  CNum     CNam  NObs").EndLine();
  for (const short k : PositionsUpTo(GetNItm())) {
    const ClaData& row = *GetRow(k);
    Listing(window)
        .Right(6, k)
        .Right(6, row.GetINum())
        .Right(9, row.GetINam())
        .Right(8, row.GetNObs())
        .EndLine();
  }
  return status::kOk;
}

}  // namespace zemva
