// The texts of the status codes.
//
// Each function answers for one range; codes 0 and 1 mean "All done." and "Unspecified error." in
// all of them. The caller does not free the text. An unknown code is formatted into a buffer that
// the function owns and that its next unknown code overwrites: not for several threads at once.
#ifndef ZEMVA_ERRORS_MESSAGES_H
#define ZEMVA_ERRORS_MESSAGES_H

#include "zemva/base/export.h"

namespace zemva {

ZEMVA_API const char* GetFIOMsg(int code);  // 1000-1999, plain file I/O
ZEMVA_API const char* GetDIOMsg(int code);  // 2000-2999, project file storage
ZEMVA_API const char* GetOSMsg(int code);   // 4000-4999, operating system
ZEMVA_API const char* GetMatMsg(int code);  // 5000-5999, vectors and matrices
ZEMVA_API const char* GetMVAMsg(int code);  // 8000-8999, models and data
ZEMVA_API const char* GetSTAMsg(int code);  // 13000-13999, statistics

// The text of any status code, from the table of its range.
ZEMVA_API const char* GetVdoMsg(int code);

}  // namespace zemva

#endif  // ZEMVA_ERRORS_MESSAGES_H
