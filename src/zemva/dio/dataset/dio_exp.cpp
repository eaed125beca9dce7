#include "zemva/dio/dataset/dio_exp.h"

#include <memory>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/file/dio_file.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

// A file keeps no longer names.
std::string CutName(std::string name) {
  name.resize(std::min<std::size_t>(name.size(), DioFile::kMaxText - 1));
  return name;
}

}  // namespace

DIOExp::DIOExp(const char* path, const char* name, StreamWindow& window)
    : path_(path), name_(name), window_(window) {}

bool DIOExp::Fits(int row_count) const {
  if (row_count < 1 || row_count > kMaxItems) return false;
  const bool fits_columns = columns_.empty() || std::ssize(columns_.front().values) == row_count;
  return fits_columns && (observations_.GetNItm() == 0 || observations_.GetNItm() == row_count);
}

int DIOExp::SetObservations(const ObsInfo& observations) {
  const bool fits =
      columns_.empty() || std::ssize(columns_.front().values) == observations.GetNItm();
  if (!fits) return status::mva::kIndexOutOfRange;
  observations_ = observations;
  return observations_.GetStatus();
}

int DIOExp::Add(const XFVector& vector) {
  return MemoryGuarded([&] {
    if (!Fits(vector.NVal()) || columns_.size() == kMaxItems) return status::mva::kIndexOutOfRange;
    const auto values = vector.Values();
    columns_.push_back({CutName(vector.GetName()), {values.begin(), values.end()}});
    return status::kOk;
  });
}

int DIOExp::Add(const XFMatrix& matrix, const VarInfo* variables) {
  return MemoryGuarded([&] {
    const bool has_names = variables == nullptr || variables->GetNVar() == matrix.NCol();
    const bool has_room = std::ssize(columns_) + matrix.NCol() <= kMaxItems;
    if (!Fits(matrix.NRow()) || !has_names || !has_room) return status::mva::kIndexOutOfRange;
    const std::string stem = matrix.GetName();
    std::vector<Column> added;
    for (const short j : PositionsUpTo(matrix.NCol())) {
      const std::string of = variables == nullptr ? std::to_string(j) : variables->GetVNam(j);
      Column& column = added.emplace_back();
      column.name = CutName(stem.empty() ? of : stem + "(" + of + ")");
      for (int i = 1; i <= matrix.NRow(); ++i) column.values.push_back(matrix[i][j]);
    }
    columns_.insert(columns_.end(), added.begin(), added.end());
    return status::kOk;
  });
}

int DIOExp::Save() {
  return MemoryGuarded([&] {
    if (columns_.empty()) return status::mva::kDataNotAvailable;
    const auto row_count = static_cast<int>(columns_.front().values.size());
    auto matrix = std::make_unique<XFMatrix>("Results", row_count, GetNVar(), 0.0f);
    if (matrix->GetStatus() != status::kOk) return status::mva::kMemory;
    auto observations = std::make_unique<ObsInfo>("ObsInfo");
    auto variables = std::make_unique<VarInfo>("VarInfo");
    int status = status::kOk;
    const auto keep = [&](int other) { status = status == status::kOk ? other : status; };
    for (const short i : PositionsUpTo(row_count)) {
      const bool is_known = observations_.GetNItm() > 0;
      const std::string name = is_known ? CutName(observations_.GetONam(i)) : "";
      keep(observations->AddObs(is_known ? observations_.GetONum(i) : i, name.c_str()));
    }
    for (const short j : PositionsUpTo(GetNVar())) {
      const Column& column = columns_[static_cast<std::size_t>(j - 1)];
      keep(variables->AddVar(j, column.name.c_str()));
      for (const short i : PositionsUpTo(row_count)) {
        (*matrix)[i][j] = column.values[static_cast<std::size_t>(i - 1)];
      }
    }
    if (status != status::kOk) return status;
    matrix->SetActValInfo();
    // The data set takes all three over.
    Dataset dataset(name_.Get(), path_.Get(), window_, matrix.release(), observations.release(),
                    variables.release());
    return dataset.Save();
  });
}

}  // namespace zemva
