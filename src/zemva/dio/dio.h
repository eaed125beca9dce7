// The project level of the storage: from the address of a file to the data set in it.
#ifndef ZEMVA_DIO_DIO_H
#define ZEMVA_DIO_DIO_H

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

class Dataset;

// The door through which a data set reaches the storage layer. Each operation returns the status
// of the DioData operation behind it.
class ZEMVA_API Dio {
 public:
  explicit Dio(StreamWindow& window) : window_(window) {}

  // Loads the data set of the file, whatever its name.
  int Load(const char* address, Dataset* dataset);
  // Loads what a list of data sets shows: name, number, title and counts.
  int LoadListProject(const char* address, Dataset* dataset);
  // Replaces the data set of the file, or makes the file.
  int SaveDataset(const char* address, Dataset* dataset);

 private:
  StreamWindow& window_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_DIO_H
