#include "zemva/data/ds_info.h"

#include <cstring>

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/data/object_header.h"
#include "zemva/errors/status.h"

namespace zemva {

namespace {

bool Fits(const char* address) {
  return address == nullptr || std::strlen(address) <= decltype(ObjectHeader::address)::kCapacity;
}

}  // namespace

int DSInfo::AddDS(short number, const char* name, const char* address, Dataset* dataset) {
  if (!Fits(address)) return SetStatus(status::mva::kArgument);
  return MakeItm<DSData>(number, name, address, dataset);
}

const char* DSInfo::GetDSAddr(short i) const {
  const DSData* row = GetRow(i);
  return row == nullptr ? nullptr : row->GetAddr();
}

Dataset* DSInfo::GetDS(short i) const {
  const DSData* row = GetRow(i);
  return row == nullptr ? nullptr : row->GetDS();
}

int DSInfo::SetDSAddr(short i, const char* address) {
  DSData* row = GetRow(i);
  if (row == nullptr) return SetStatus(status::itm::kBadPosition);
  if (!Fits(address)) return SetStatus(status::mva::kArgument);
  row->SetAddr(address);
  return Changed(status::kOk);
}

int DSInfo::SetDS(short i, Dataset* dataset) {
  DSData* row = GetRow(i);
  if (row == nullptr) return SetStatus(status::itm::kBadPosition);
  row->SetDS(dataset);
  return Changed(status::kOk);
}

int DSInfo::ShowAll(StreamWindow& window) {
  ListTitle(window, GetNam(), GetNItm());
  Listing(window).Text("  Item DSNum     DSNam  DSAddr").EndLine();
  for (const short i : PositionsUpTo(GetNItm())) {
    const DSData& row = *GetRow(i);
    Listing(window)
        .Right(6, i)
        .Right(6, row.GetINum())
        .Right(10, row.GetINam())
        .Text("  ")
        .Text(row.GetAddr())
        .EndLine();
  }
  return status::kOk;
}

}  // namespace zemva
