// The kinds of objects that have vectors.
#ifndef ZEMVA_VECTORS_DAT_TYPE_H
#define ZEMVA_VECTORS_DAT_TYPE_H

#include "zemva/base/export.h"

namespace zemva {

class ZEMVA_API CEDatType {
 public:
  enum EDT : int { Undefined = 0, Dataset = 1, Model = 2, Predset = 3, Workset = 4 };

  // "Dataset", and for short "DS"; "Undefined" for what is no kind.
  static const char* GetString(EDT type);
  static const char* GetShortString(EDT type);
  // The kind with exactly this name, long or short; Undefined where there is none.
  static EDT GetEDT(const char* name);
};

}  // namespace zemva

#endif  // ZEMVA_VECTORS_DAT_TYPE_H
