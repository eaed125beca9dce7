// How a model reaches its file: the one place of this folder that knows the storage layer.
#include <memory>

#include "zemva/dio/dio.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/driver/model_record.h"

namespace zemva {

int Model::Store() {
  return MemoryGuarded([&] { return Dio(log_).SaveModel(GetModAddr(), *this); });
}

Model* Model::Read(const char* path, ModelOwner* owner, StreamWindow& window, ModOpt* options,
                   int& status) {
  std::unique_ptr<Model> model;
  status = MemoryGuarded([&] { return Dio(window).LoadModel(path, owner, options, model); });
  if (model != nullptr) {
    model->SetModAddr(path);
    model->saved_address_ = model->header_.address;
  }
  return model.release();  // the caller's
}

}  // namespace zemva
