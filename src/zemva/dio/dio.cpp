#include "zemva/dio/dio.h"

#include "zemva/dio/dio_data.h"
#include "zemva/errors/status.h"

namespace zemva {

int Dio::Load(const char* address, Dataset* dataset) {
  return DioData(address, nullptr, window_).Load(dataset);
}

int Dio::LoadListProject(const char* address, Dataset* dataset) {
  return DioData(address, nullptr, window_).LoadListProject(dataset);
}

int Dio::SaveDataset(const char* address, Dataset* dataset) {
  if (dataset == nullptr) return status::dio::kIncompleteDataset;
  return DioData(address, nullptr, window_).Save(*dataset);
}

}  // namespace zemva
