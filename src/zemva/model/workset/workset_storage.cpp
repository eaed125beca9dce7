// How work sets and prediction sets reach their files: the one place of this folder that knows the
// storage layer.
#include "zemva/dio/dio.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"

namespace zemva {

int Workset::Save(const char* path) {
  return status_ = MemoryGuarded([&] { return Dio(window_).SaveWorkset(path, *this); });
}

int Workset::Load(const char* path) {
  return status_ = MemoryGuarded([&] { return Dio(window_).LoadWorkset(path, *this); });
}

int Predset::Save(const char* path, StreamWindow& window) {
  return status_ = MemoryGuarded([&] { return Dio(window).SavePredset(path, *this); });
}

int Predset::Load(const char* path, StreamWindow& window) {
  return status_ = MemoryGuarded([&] { return Dio(window).LoadPredset(path, *this); });
}

}  // namespace zemva
