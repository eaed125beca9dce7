#include "zemva/project/wm_info.h"

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"

namespace zemva {

int WMInfo::ShowAll(StreamWindow& window) {
  ListTitle(window, GetNam(), GetNItm());
  if (GetNItm() == 0) return status::kOk;
  Listing list(window);
  list.Text("  Item  MNum                      MNam    Type                  Workset  NComp");
  list.EndLine();
  for (const short i : PositionsUpTo(GetNItm())) {
    const WorksetModel& model = *GetWM(i);
    list.Right(6, i).Right(6, GetINum(i)).Right(26, GetINam(i));
    list.Right(8, GetModTypeTag(model.GetModel()->GetModType()));
    list.Right(25, model.GetWorkset().GetNam()).Right(7, int{model.GetModel()->GetA()}).EndLine();
  }
  return status::kOk;
}

}  // namespace zemva
