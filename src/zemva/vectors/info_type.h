// The kinds of tables that describe an object.
#ifndef ZEMVA_VECTORS_INFO_TYPE_H
#define ZEMVA_VECTORS_INFO_TYPE_H

#include "zemva/base/export.h"

namespace zemva {

class ZEMVA_API CEInfoType {
 public:
  enum EIT : int {
    Undefined = 0,
    BlockInfo = 1,
    ExpInfo = 2,
    LagInfo = 3,
    ObsInfo = 4,
    OStat = 5,
    ClaInfo = 6,
    ScaInfo = 7,
    TraInfo = 8,
    VarInfo = 9,
    VStat = 10
  };

  // "BlockInfo"; "Undefined" for what is no kind.
  static const char* GetString(EIT type);
  // The kind with exactly this name; Undefined where there is none.
  static EIT GetEIT(const char* name);
};

}  // namespace zemva

#endif  // ZEMVA_VECTORS_INFO_TYPE_H
