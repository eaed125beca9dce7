#include "zemva/data/obs_info.h"

#include <algorithm>

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/data/selection.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr const char* kExtractName = "ObsInfo";
constexpr const char* kHeader = "  Item  ONum      ONam";

}  // namespace

ObsInfo::ObsInfo(const ObsInfo* other) : ObsInfo(other == nullptr ? ObsInfo("") : *other) {
  if (other == nullptr) SetStatus(status::mva::kNullPointer);
}

int ObsInfo::AddObs(short onum, const char* name) {
  return MakeItm<ObsData>(static_cast<short>(GetNItm() + 1), name, onum);
}

int ObsInfo::DelObs(short onum) {
  const short i = GetOIx(onum);
  return i == 0 ? SetStatus(status::mva::kNoSuchNumber) : DelObsAt(i);
}

int ObsInfo::DelObsAt(short i) {
  const int status = DelItm(i);
  if (status == status::kOk && cursor_ == i + 1) cursor_ = i;
  return status;
}

std::optional<short> ObsInfo::FindAscendingONum(short onum) const {
  const auto number_of = [&](int i) { return GetONum(static_cast<short>(i)); };
  return GetOwnNumbers().Find(GetNItm(), onum, number_of);
}

short ObsInfo::GetOIx(short onum) const {
  const short n = GetNItm();
  const auto matches = [&](const ItmData& row) {
    return static_cast<const ObsData&>(row).GetONum() == onum;
  };
  short found = FindItm(cursor_, std::min(cursor_, n), matches);
  if (found == 0) {
    if (const auto only = FindAscendingONum(onum)) {
      found = *only;
    } else {
      found = FindItm(cursor_, n, matches);
      if (found == 0) found = FindItm(1, std::min(cursor_, n), matches);
    }
  }
  if (found != 0) cursor_ = static_cast<short>(found % n + 1);
  return found;
}

short ObsInfo::GetONum(short i) const {
  const ObsData* row = GetRow(i);
  return row == nullptr ? short{0} : row->GetONum();
}

int ObsInfo::SetONum(short i, short onum) {
  auto* row = static_cast<ObsData*>(GetItm(i));
  if (row == nullptr) return SetStatus(status::mva::kIndexOutOfRange);
  row->SetONum(onum);
  GetOwnNumbers().Renumbered(i);
  return Changed(status::kOk);
}

int ObsInfo::GetObs(short i, short& onum, char*& name) {
  onum = GetONum(i);
  ItmData* const row = GetItm(i);
  name = row == nullptr ? nullptr : row->GetINam();
  return SetStatus(name == nullptr ? status::mva::kIndexOutOfRange : status::kOk);
}

const char* ObsInfo::GetLabel(int i) const {
  return i >= 1 && i <= 3 ? labels_[static_cast<std::size_t>(i - 1)].Get() : "";
}

void ObsInfo::SetLabel(int i, const char* label) {
  if (i >= 1 && i <= 3) labels_[static_cast<std::size_t>(i - 1)].Set(label);
}

ObsInfo* ObsInfo::ExtObsInfo(const XI1Vector* sel) const {
  if (sel == nullptr) return nullptr;
  try {
    auto extract = std::make_unique<ObsInfo>(kExtractName);
    for (const short i : PositionsUpTo(std::min<int>(GetNItm(), sel->NVal()))) {
      if ((*sel)[i] != kSelected) continue;
      const int status = extract->AddItm(GetRow(i)->Clone().release());
      if (status != status::kOk) return nullptr;
    }
    extract->start_time_ = start_time_;
    extract->stop_time_ = stop_time_;
    extract->sampling_interval_ = sampling_interval_;
    extract->labels_ = labels_;
    return extract.release();  // the caller's
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

int ObsInfo::ShowAll(StreamWindow& window) {
  ListTitle(window, GetNam(), GetNItm());
  Listing(window).Text(kHeader).EndLine();
  for (const short i : PositionsUpTo(GetNItm())) ShowRow(i, window);
  return status::kOk;
}

int ObsInfo::ShowObs(short i, StreamWindow& window) {
  ListItemTitle(window, GetNam(), i);
  Listing(window).Text(kHeader).EndLine();
  ShowRow(i, window);
  return status::kOk;
}

void ObsInfo::ShowRow(short i, StreamWindow& window) const {
  const ObsData* row = GetRow(i);
  if (row == nullptr) return;
  Listing(window)
      .Right(6, row->GetINum())
      .Right(6, row->GetONum())
      .Right(10, row->GetINam())
      .EndLine();
}

}  // namespace zemva
