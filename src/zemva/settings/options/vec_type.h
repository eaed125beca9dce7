// The kinds of result vectors.
#ifndef ZEMVA_SETTINGS_OPTIONS_VEC_TYPE_H
#define ZEMVA_SETTINGS_OPTIONS_VEC_TYPE_H

namespace zemva {

class CEVecType {
 public:
  // The numbers are kept in model options: never renumber one.
  enum EVT : int {
    CoeffCS = 65,  // regression coefficients of centred and scaled variables
  };
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_VEC_TYPE_H
