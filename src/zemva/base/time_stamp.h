// The time, as files and headers tell it.
#ifndef ZEMVA_BASE_TIME_STAMP_H
#define ZEMVA_BASE_TIME_STAMP_H

#include "zemva/base/fixed_text.h"

namespace zemva {

// The local time as "2001-02-03 04:05:06".
FixedText<22> TimeStamp();

}  // namespace zemva

#endif  // ZEMVA_BASE_TIME_STAMP_H
