// The units of the elements of a vector.
#ifndef ZEMVA_VECTORS_ELM_TYPE_H
#define ZEMVA_VECTORS_ELM_TYPE_H

#include "zemva/base/export.h"

namespace zemva {

class ZEMVA_API CEElmType {
 public:
  enum EET : int {
    Undefined = 0,
    Plain = 1,         // those of the data
    Transformed = 2,   // those of the data, after the transformation of the variable
    Standardized = 3,  // of residuals: standard deviations
    Scaled = 4,        // as a model computes: transformed, centred and scaled
  };

  // What a vector name has behind the type: "", "Tr", "St", "Sc"; "Undefined" for what are no
  // units.
  static const char* GetString(EET type);
  // The units with exactly this text; Undefined where there are none and for null.
  static EET GetEET(const char* name);
};

}  // namespace zemva

#endif  // ZEMVA_VECTORS_ELM_TYPE_H
