#include <array>
#include <cstdio>
#include <memory>

#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/dio_guard.h"

namespace zemva {
namespace {

using Access = DangerousDataSetManipulator;

constexpr std::int64_t kValueSize = sizeof(float);

}  // namespace

// Reads the file but for the values, and gives `answer` the data set without them while the file is
// open.
template <class Answer>
int DioData::Ask(Answer answer) {
  return Guarded(file_, &window_, [&] {
    Dataset dataset("", "", window_);
    const int status = ReadItems(dataset, true);
    return status == status::kOk ? answer(dataset) : status;
  });
}

int DioData::GetNObs(short& count) {
  return Ask([&](const Dataset& dataset) {
    count = Access::GetNObsDS(&dataset);
    return status::kOk;
  });
}

int DioData::GetNVar(short& count) {
  return Ask([&](const Dataset& dataset) {
    count = Access::GetNVarDS(&dataset);
    return status::kOk;
  });
}

int DioData::GetDSNumber(short& number) {
  return Ask([&](const Dataset& dataset) {
    number = dataset.GetDSNum();
    return status::kOk;
  });
}

// Reads n values of the open file, `stride` bytes from one to the next, into a new vector that is
// named after its position among `count`.
int DioData::GetVector(const char* pattern, int position, int count, int n, std::int64_t first,
                       std::int64_t stride, XFVector*& vector) {
  if (position < 1 || position > count) return status::dio::kIndexOutOfRange;
  std::array<char, 32> name;
  std::snprintf(name.data(), name.size(), pattern, position);
  auto values = std::make_unique<XFVector>(name.data(), n, 0.0f);
  if (values->GetStatus() != status::kOk) return status::dio::kMemory;
  for (int i = 1; i <= n; ++i) {
    int status = status::kOk;
    if (i == 1 || stride != kValueSize) status = file_.Seek(first + (i - 1) * stride);
    if (status == status::kOk) status = file_.GetF4((*values)[i]);
    if (status != status::kOk) return status;
  }
  values->SetActValInfo();
  vector = values.release();  // the caller's
  return status::kOk;
}

int DioData::GetVar(short variable, XFVector*& column) {
  return Ask([&](const Dataset&) {
    const std::int64_t first = matrix_.values + (variable - 1) * kValueSize;
    return GetVector("VarDS[%d]", variable, matrix_.columns, matrix_.rows, first,
                     matrix_.columns * kValueSize, column);
  });
}

int DioData::GetObs(short observation, XFVector*& row) {
  return Ask([&](const Dataset&) {
    const std::int64_t first = matrix_.values + (observation - 1) * matrix_.columns * kValueSize;
    return GetVector("ObsDS[%d]", observation, matrix_.rows, matrix_.columns, first, kValueSize,
                     row);
  });
}

int DioData::GetMatrix(XFMatrix*& matrix) {
  return Guarded(file_, &window_, [&] {
    Dataset dataset("", "", window_);
    const int status = ReadItems(dataset, false);
    if (status == status::kOk) matrix = Access::TakeDM(&dataset);  // the caller's
    return status;
  });
}

}  // namespace zemva
