#include "zemva/model/preprocess/exp_info.h"

#include <cstddef>
#include <cstdio>

namespace zemva {

FixedText<25> ExpData::DefaultName(char letter, short vnum1, short vnum2, short vnum3) {
  FixedText<25> name;
  int length = 0;
  for (const short vnum : {vnum1, vnum2, vnum3}) {
    if (vnum == 0) continue;
    const std::size_t room = name.kCapacity + 1 - static_cast<std::size_t>(length);
    length += std::snprintf(name.Get() + length, room, "%c%d", letter, vnum);
  }
  return name;
}

const char* ExpInfo::Header() const {
  return "  Item  VNum       VName   VNum1  VNum2  VNum3  Modifier";
}

void ExpInfo::ShowRow(short i, const ExpData& row, StreamWindow& window) const {
  Listing(window)
      .Right(6, i)
      .Right(6, row.GetINum())
      .Text(" ")
      .Right(11, row.GetINam())
      .Right(8, row.GetVNum1())
      .Right(7, row.GetVNum2())
      .Right(7, row.GetVNum3())
      .Text(" ")
      .General(9, row.GetModifier())
      .EndLine();
}

}  // namespace zemva
