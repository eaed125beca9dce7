#include "zemva/dio/dio.h"

#include <utility>

#include "zemva/base/positions.h"

#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/model/dio_model.h"
#include "zemva/dio/model/dio_predset.h"
#include "zemva/dio/model/dio_workset.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/model_record.h"
#include "zemva/model/pc/pc_model.h"
#include "zemva/model/pls/pls_model.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"

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

int Dio::LoadModel(const char* address, ModelOwner* owner, ModOpt* options,
                   std::unique_ptr<Model>& model) {
  ModelRecord record;
  const int status = DioModel(address, window_).Load(record);
  if (status != status::kOk) return status;
  const auto selector = static_cast<char>(record.selector);
  std::unique_ptr<Model> made;
  if (record.HasY()) {
    made = std::make_unique<PLSModel>(owner, record.type, window_, options, selector);
  } else {
    made = std::make_unique<PCModel>(owner, record.type, window_, options, selector);
  }
  made->TakeRecord(std::move(record));
  model = std::move(made);
  return status::kOk;
}

int Dio::SaveModel(const char* address, const Model& model) {
  return DioModel(address, window_).Save(model.MakeRecord());
}

int Dio::LoadWorkset(const char* address, Workset& workset) {
  WorksetRecord record;
  const int status = DioWorkset(address, window_).Load(record);
  return status == status::kOk ? workset.TakeRecord(record) : status;
}

int Dio::SaveWorkset(const char* address, const Workset& workset) {
  return DioWorkset(address, window_).Save(workset.MakeRecord());
}

int Dio::LoadPredset(const char* address, Predset& predset) {
  PredsetRecord record;
  const int status = DioPredset(address, window_).Load(record);
  if (status != status::kOk) return status;
  if (std::ssize(record.members) != predset.GetNObsDS()) return status::mva::kInconsistentDatasets;
  predset.SetNam(record.name.Get());
  for (const short i : PositionsUpTo(predset.GetNObsDS())) {
    predset.SetIsObsIn(i, record.members[static_cast<std::size_t>(i - 1)] != 0);
  }
  return status::kOk;
}

int Dio::SavePredset(const char* address, const Predset& predset) {
  PredsetRecord record{FixedText<24>(predset.GetNam()), {}};
  for (const short i : PositionsUpTo(predset.GetNObsDS())) {
    record.members.push_back(predset.IsObsIn(i));
  }
  return DioPredset(address, window_).Save(record);
}

}  // namespace zemva
