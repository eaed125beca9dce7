#include <array>
#include <cstdio>
#include <memory>

#include "zemva/dio/dio_data.h"
#include "zemva/dio/dio_guard.h"

namespace zemva {
namespace {

// A vector named after the pattern and the position in it.
std::unique_ptr<XFVector> VectorAt(const char* pattern, int position, int n) {
  std::array<char, 32> name;
  std::snprintf(name.data(), name.size(), pattern, position);
  return std::make_unique<XFVector>(name.data(), n, 0.0f);
}

}  // namespace

// Opens the file and moves to the payload of an item.
int DioData::OpenItem(ItemName name, ItemHeader& header) {
  ReadVersion();
  file_.OpenSuperItemFile();
  int offset;
  const int status = file_.GetFileOfsetToItem(offset, name);
  return status == status::kOk ? file_.GetItemHeader(header) : status;
}

int DioData::GetNumber(ItemName name, short& number) {
  return Guarded(file_, &window_, [&] {
    ItemHeader header;
    const int status = OpenItem(name, header);
    return status == status::kOk ? file_.GetI2(number) : status;
  });
}

int DioData::GetNObs(short& count) {
  return GetNumber(item::kNObs, count);
}
int DioData::GetNVar(short& count) {
  return GetNumber(item::kNVar, count);
}
int DioData::GetDSNumber(short& number) {
  return GetNumber(item::kDSNum, number);
}

// Opens the file and moves to the matrix's first element, all of which are there to be read.
int DioData::OpenMatrix(int& rows, int& columns) {
  ItemHeader header;
  if (const int status = OpenItem(item::kDataset, header); status != status::kOk) return status;
  char name[DioFile::kMaxText];
  if (const int status = file_.GetZString(name, sizeof name); status != status::kOk) return status;
  if (header.dims.size() < 2) return status::dio::kReadError;
  rows = header.dims[0];
  columns = header.dims[1];
  const std::int64_t size = std::int64_t{rows} * columns * std::int64_t{sizeof(float)};
  return rows < 0 || columns < 0 || size > file_.GetRemaining() ? status::dio::kReadError
                                                                : status::kOk;
}

int DioData::GetVar(short variable, XFVector*& column) {
  return Guarded(file_, &window_, [&] {
    int rows, columns;
    if (const int status = OpenMatrix(rows, columns); status != status::kOk) return status;
    if (variable < 1 || variable > columns) return status::dio::kIndexOutOfRange;
    auto values = VectorAt("VarDS[%d]", variable, rows);
    if (values->GetStatus() != status::kOk) return status::dio::kMemory;
    const std::int64_t start =
        file_.GetPosition() + (variable - 1) * static_cast<std::int64_t>(sizeof(float));
    const std::int64_t stride = columns * static_cast<std::int64_t>(sizeof(float));
    for (int i = 1; i <= rows; ++i) {
      int status = file_.Seek(start + (i - 1) * stride);
      if (status == status::kOk) status = file_.GetF4((*values)[i]);
      if (status != status::kOk) return status;
    }
    values->SetActValInfo();
    column = values.release();  // the caller's
    return status::kOk;
  });
}

int DioData::GetObs(short observation, XFVector*& row) {
  return Guarded(file_, &window_, [&] {
    int rows, columns;
    if (const int status = OpenMatrix(rows, columns); status != status::kOk) return status;
    if (observation < 1 || observation > rows) return status::dio::kIndexOutOfRange;
    auto values = VectorAt("ObsDS[%d]", observation, columns);
    if (values->GetStatus() != status::kOk) return status::dio::kMemory;
    const std::int64_t stride = columns * static_cast<std::int64_t>(sizeof(float));
    int status = file_.Seek(file_.GetPosition() + (observation - 1) * stride);
    float* elements = values->GetFVecPtr();
    if (status == status::kOk) status = file_.GetVF4(elements, columns);
    if (status != status::kOk) return status;
    values->SetActValInfo();
    row = values.release();  // the caller's
    return status::kOk;
  });
}

int DioData::GetMatrix(XFMatrix*& matrix) {
  return Guarded(file_, &window_, [&] {
    ItemHeader header;
    if (const int status = OpenItem(item::kDataset, header); status != status::kOk) return status;
    if (header.dims.size() < 2) return status::dio::kReadError;
    return file_.GetMXF4(matrix, header.dims[0], header.dims[1]);
  });
}

}  // namespace zemva
