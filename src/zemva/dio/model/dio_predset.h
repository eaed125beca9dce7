// The prediction set inside a file of its own.
#ifndef ZEMVA_DIO_MODEL_DIO_PREDSET_H
#define ZEMVA_DIO_MODEL_DIO_PREDSET_H

#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/dio/model/stored_file.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

struct PredsetRecord {
  FixedText<24> name;
  std::vector<char> members;  // a byte for each observation of the data set, 1 where it is in
};

// Reads the execution record of a file and writes one, as DioModel does of a model, with the same
// codes.
class ZEMVA_API DioPredset {
 public:
  static constexpr short kVersion = 1;

  DioPredset(const char* path, StreamWindow& window);

  int Load(PredsetRecord& record);
  int Save(const PredsetRecord& record);

 private:
  StoredFile file_;
  StreamWindow& window_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_DIO_PREDSET_H
