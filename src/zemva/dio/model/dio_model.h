// The model inside a ".mdl" file.
#ifndef ZEMVA_DIO_MODEL_DIO_MODEL_H
#define ZEMVA_DIO_MODEL_DIO_MODEL_H

#include <cstdint>

#include "zemva/dio/model/stored_file.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/driver/model_record.h"

namespace zemva {

// Reads the model super item of a file into a ModelRecord and writes a record out as one. The
// extent of the super item is its version.
//
// Every operation opens the file, closes it, and returns 0 or a status. An error object raised on
// the way ends here: the window gets a line that says that the file may be corrupt, and the
// object's status is returned. 2003 is returned when memory runs out.
class DioModel {
 public:
  // Of the super item as it is written. A reader takes all up to this one: a later one may have
  // items that it passes over, and gets a higher version where it cannot be read without them.
  static constexpr short kVersion = 1;

  DioModel(const char* path, StreamWindow& window);

  // Reads a model whole; on failure the record is as it was. Codes: 2004 the file cannot be opened;
  // 2017 a version of the file other than 1 and 2, or of the super item other than 1..kVersion;
  // 2000 its first super item is no model; 2005 a file that is cut, or whose items are missing,
  // stand twice, or contradict each other.
  int Load(ModelRecord& record);
  // Makes the file, or replaces one that holds a model and nothing else. Refused before the first
  // byte: more than 99 components (8019), a file over 2 GiB (2001), what no reader would take
  // (2013), and replacing what is no model file, with the code of Load.
  int Save(const ModelRecord& record);

 private:
  int ReadBody(ModelRecord& record, std::int64_t size);
  int ReadNextItem(ModelRecord& record, std::int64_t& size);
  // Components follow the model, and each the one before it.
  int StartComponent(ModelRecord& record, int a);
  int FinishModel(const ModelRecord& record) const;
  int FinishComponent(const ModelRecord& record) const;

  StoredFile file_;
  StreamWindow& window_;
  Seen seen_in_model_;
  Seen seen_in_x_;
  Seen seen_in_y_;
  Seen seen_in_component_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_DIO_MODEL_H
