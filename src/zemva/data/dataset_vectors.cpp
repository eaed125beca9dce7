// The vectors of a data set.
#include <algorithm>
#include <numeric>

#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"
#include "zemva/vectors/vec_delivery.h"

namespace zemva {
namespace {

// Of a loaded data set.
class DatasetVectors : public VecSource {
 public:
  explicit DatasetVectors(Dataset& dataset) : dataset_(dataset) {}

  CEDatType::EDT GetDType() const override { return CEDatType::Dataset; }
  short GetDNum() const override { return dataset_.GetDSNum(); }

  int GetCount(EVecAxis axis, int /*of*/) const override {
    return axis == EVecAxis::kObs ? dataset_.GetNObsDS() : dataset_.GetNVarDS();
  }
  VecLabel GetLabel(EVecAxis axis, int /*of*/, int i) const override {
    short number = 0;
    char* name = nullptr;
    const auto position = static_cast<short>(i);
    axis == EVecAxis::kObs ? dataset_.GetObsInfo(position, number, name)
                           : dataset_.GetVarInfo(position, number, name);
    return {number, name};
  }

  int Fill(const VecQuery& query, std::span<float> values) const override {
    using enum CEVecType::EVT;
    using Row = VecFill<DatasetVectors>;
    static constexpr Row kFills[] = {
        {Num, &DatasetVectors::FillNumbers},
        {Time, &DatasetVectors::FillTimes},
        {VarDS, &DatasetVectors::FillColumn},
        {ObsDS, &DatasetVectors::FillRow},
    };
    return FillBy<DatasetVectors>(kFills, *this, query, values);
  }

 private:
  int FillNumbers(const VecQuery&, std::span<float> values) const {
    int i = 0;
    for (float& value : values) value = static_cast<float>(GetLabel(EVecAxis::kObs, 0, ++i).number);
    return status::kOk;
  }
  int FillTimes(const VecQuery&, std::span<float> values) const {
    std::iota(values.begin(), values.end(), 1.0f);
    return status::kOk;
  }
  int FillColumn(const VecQuery& query, std::span<float> values) const {
    int i = 0;
    for (float& value : values) value = dataset_[static_cast<short>(++i)][query.of];
    return status::kOk;
  }
  int FillRow(const VecQuery& query, std::span<float> values) const {
    const float* const row = dataset_[static_cast<short>(query.of)];
    std::copy_n(row + 1, values.size(), values.begin());
    return status::kOk;
  }

  Dataset& dataset_;
};

}  // namespace

int Dataset::GetXFVector(const VecSpec* spec, XFVector*& vector) {
  vector = nullptr;
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return status_ = DeliverXFVector(DatasetVectors(*this), spec, vector);
}

int Dataset::GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number) {
  vector = nullptr;
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return status_ = DeliverXSVector(DatasetVectors(*this), spec, vector, is_by_number);
}

}  // namespace zemva
