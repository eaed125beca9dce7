// The work set inside a file of its own.
#ifndef ZEMVA_DIO_MODEL_DIO_WORKSET_H
#define ZEMVA_DIO_MODEL_DIO_WORKSET_H

#include "zemva/base/export.h"
#include "zemva/dio/model/stored_file.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/workset/workset_record.h"

namespace zemva {

// Reads the work set super item of a file and writes one, as DioModel does of a model, with the
// same codes.
class ZEMVA_API DioWorkset {
 public:
  static constexpr short kVersion = 1;

  DioWorkset(const char* path, StreamWindow& window);

  int Load(WorksetRecord& record);
  int Save(const WorksetRecord& record);

 private:
  StoredFile file_;
  StreamWindow& window_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_DIO_WORKSET_H
