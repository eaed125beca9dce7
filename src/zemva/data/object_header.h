// The header fields that data sets and models share.
#ifndef ZEMVA_DATA_OBJECT_HEADER_H
#define ZEMVA_DATA_OBJECT_HEADER_H

#include "zemva/base/fixed_text.h"

namespace zemva {

// A text given for a field is cut at the field's capacity, and a null one is the empty text.
struct ObjectHeader {
  bool is_loaded = false;
  short number = 0;  // in its project
  FixedText<24> name;
  FixedText<60> title;
  FixedText<22> creation_date;
  FixedText<260> address;  // the path of the project file that holds it
};

}  // namespace zemva

#endif  // ZEMVA_DATA_OBJECT_HEADER_H
