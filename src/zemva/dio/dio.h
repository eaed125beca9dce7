// The project level of the storage: from the address of a file to the data set or model in it.
#ifndef ZEMVA_DIO_DIO_H
#define ZEMVA_DIO_DIO_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

class Dataset;
class ModOpt;
class Model;
class ModelOwner;
class Predset;
class Workset;

// The door through which data sets and models reach the storage layer. Each operation returns the
// status of the DioData or DioModel operation behind it.
class ZEMVA_API Dio {
 public:
  explicit Dio(StreamWindow& window) : window_(window) {}

  // Loads the data set of the file, whatever its name.
  int Load(const char* address, Dataset* dataset);
  // Loads what a list of data sets shows: name, number, title and counts.
  int LoadListProject(const char* address, Dataset* dataset);
  // Replaces the data set of the file, or makes the file.
  int SaveDataset(const char* address, Dataset* dataset);

  // Makes the model that the file holds, with the arguments of its constructor.
  int LoadModel(const char* address, ModelOwner* owner, ModOpt* options,
                std::unique_ptr<Model>& model);
  int SaveModel(const char* address, const Model& model);

  // Lets a work set or a prediction set take over what the file says.
  int LoadWorkset(const char* address, Workset& workset);
  int SaveWorkset(const char* address, const Workset& workset);
  int LoadPredset(const char* address, Predset& predset);
  int SavePredset(const char* address, const Predset& predset);

 private:
  StreamWindow& window_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_DIO_H
