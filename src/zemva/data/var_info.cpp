#include "zemva/data/var_info.h"

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr const char* kHeader = "  Item  VNum      VNam";

}  // namespace

VarInfo::VarInfo(const VarInfo* other) : VarInfo(other == nullptr ? VarInfo("") : *other) {
  if (other == nullptr) SetStatus(status::mva::kNullPointer);
}

int VarInfo::DelVar(short i) {
  return GetItm(i) == nullptr ? SetStatus(status::mva::kIndexOutOfRange) : DelItm(i);
}

int VarInfo::GetVar(short i, short& vnum, char*& name) {
  vnum = GetVNum(i);
  ItmData* const row = GetItm(i);
  name = row == nullptr ? nullptr : row->GetINam();
  return SetStatus(name == nullptr ? status::mva::kIndexOutOfRange : status::kOk);
}

int VarInfo::ShowAll(StreamWindow& window) {
  ListTitle(window, GetNam(), GetNItm());
  Listing(window).Text(kHeader).EndLine();
  for (const short i : PositionsUpTo(GetNItm())) ShowRow(i, window);
  return status::kOk;
}

int VarInfo::ShowVar(short i, StreamWindow& window) {
  ListItemTitle(window, GetNam(), i);
  Listing(window).Text(kHeader).EndLine();
  ShowRow(i, window);
  return status::kOk;
}

void VarInfo::ShowRow(short i, StreamWindow& window) const {
  if (GetItm(i) == nullptr) return;
  Listing(window).Right(6, i).Right(6, GetVNum(i)).Right(10, GetVNam(i)).EndLine();
}

}  // namespace zemva
