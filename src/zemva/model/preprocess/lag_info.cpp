#include "zemva/model/preprocess/lag_info.h"

#include <cstdio>

namespace zemva {

FixedText<25> LagData::DefaultName(short lag, const char* source_name) {
  FixedText<25> name;
  std::snprintf(name.Get(), name.kCapacity + 1, "%3.3d%s", lag,
                source_name == nullptr ? "" : source_name);
  return name;
}

int LagInfo::ShowStructures(StreamWindow& window) const {
  Listing(window).Text("Lagstructures are:").EndLine();
  for (short i = 1; GetItm(i) != nullptr; ++i) {
    if (!IsFirstOfSource(i)) continue;
    const short source = GetItm(i)->GetVNumDS();
    Listing listing(window);
    listing.Right(6, source);
    for (short k = i; GetItm(k) != nullptr; ++k) {
      if (GetItm(k)->GetVNumDS() == source) listing.Right(6, GetItm(k)->GetLag());
    }
    listing.EndLine();
  }
  return status::kOk;
}

bool LagInfo::IsFirstOfSource(short i) const {
  return FindItm(1, i - 1, [&](const ItmData& row) {
           return static_cast<const LagData&>(row).GetVNumDS() == GetItm(i)->GetVNumDS();
         }) == 0;
}

const char* LagInfo::Header() const {
  return "  Item  VNum  VName    VNumDS Lag  Lambda Delay";
}

void LagInfo::ShowRow(short i, const LagData& row, StreamWindow& window) const {
  Listing(window)
      .Right(6, i)
      .Right(6, row.GetINum())
      .Text(" ")
      .Right(8, row.GetINam())
      .Right(8, row.GetVNumDS())
      .Right(4, row.GetLag())
      .Text(" ")
      .General(7, row.GetLambda())
      .Right(6, row.GetDelay())
      .EndLine();
}

}  // namespace zemva
