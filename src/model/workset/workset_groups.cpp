// What the tables of classes and blocks take from a work set.
#include "data/cla_info.h"
#include "errors/status.h"
#include "model/workset/workset.h"

namespace zemva {

int ClaInfo::SetClaInfo(const Workset* workset) {
  if (workset == nullptr) return SetStatus(status::mva::kNullPointer);
  for (int i = 1; i <= o_class_.NVal(); ++i) {
    o_class_[i] = workset->GetOClass(static_cast<short>(i));
  }
  return Update();
}

}  // namespace zemva
