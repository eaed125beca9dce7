#include "model/stored_model.h"

#include "csv/csv_file.h"
#include "text/messages.h"
#include "zemva/errors/status.h"

namespace zemva::tools {

std::unique_ptr<Model> ReadModel(const std::string& path, StreamWindow& log) {
  int status = status::kOk;
  std::unique_ptr<Model> model(Model::Read(path.c_str(), nullptr, log, nullptr, status));
  if (model != nullptr) return model;
  if (status != status::dio::kAreaSpecification && !IsTextFile(path)) throw Failure(path, status);
  throw Failure(
      path, "is no saved model (" + std::to_string(status) + "); pc and pls write one with --save");
}

void SaveModel(Model& model, const std::string& path) {
  model.SetModAddr(path.c_str());
  // A path that was cut would name another file.
  if (model.GetModAddr() != path) throw Failure(path, "is too long for the path of a model");
  const int status = model.Save(model.GetModNum());
  if (status != status::kOk) throw Failure(path, status);
}

}  // namespace zemva::tools
