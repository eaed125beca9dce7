// Where the error objects of the storage layer end.
#ifndef ZEMVA_DIO_FILE_DIO_GUARD_H
#define ZEMVA_DIO_FILE_DIO_GUARD_H

#include <memory>
#include <new>

#include "zemva/dio/file/dio_file.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

// Runs an operation on `file`, closes the file, and returns the operation's status, or that of the
// error object that it raised. `complaints`, where not null, is then told so.
template <class Operation>
int Guarded(DioFile& file, StreamWindow* complaints, Operation operation) {
  int status;
  try {
    status = operation();
  } catch (DioError* raised) {
    const std::unique_ptr<DioError> error(raised);
    if (complaints != nullptr) {
      *complaints << "\n"
                  << "The file is maybe corrupt or not a Vardo file."
                  << "\n";
    }
    status = error->ShowMsg();
  } catch (const std::bad_alloc&) {
    status = status::dio::kMemory;
  }
  file.CloseSuperItemFile();
  return status;
}

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_DIO_GUARD_H
