// What a file keeps of Model.
#include "zemva/model/driver/model_record.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"

namespace zemva {
namespace {

void CopyInto(const XFVector& from, XFVector& to) {
  std::ranges::copy(from.Values(), to.Values().begin());
  to.SetActValInfo();
}

void CopyInto(const DistanceResults& from, DistanceResults& to) {
  CopyInto(from.distances, to.distances);
  CopyInto(from.probabilities, to.probabilities);
  to.limits = from.limits;
}

// The results, named after the components in use.
std::shared_ptr<Results> Renamed(const Results& results) {
  const int response_count = results.errors ? results.errors->rss.NVal() : 0;
  auto renamed = MakeResults(EExecuted::kWorkset, results.x.component_count,
                             results.x.distances.NVal(), response_count);
  CopyInto(results.x, renamed->x);
  if (results.y && renamed->y) CopyInto(*results.y, *renamed->y);
  if (!results.errors || !renamed->errors) return renamed;
  for (WholeVector PredictionErrors::*const vector :
       {&PredictionErrors::rss, &PredictionErrors::press, &PredictionErrors::sd_adj_ls,
        &PredictionErrors::sd_ts, &PredictionErrors::np_ws, &PredictionErrors::np_ts}) {
    CopyInto((*results.errors).*vector, (*renamed->errors).*vector);
  }
  return renamed;
}

}  // namespace

ModelRecord Model::MakeRecord() const {
  ModelRecord record;
  record.type = type_;
  record.selector = selector_;
  record.header = header_;
  record.dataset_name = dataset_name_;
  record.options = *options_;
  record.loading_limit = GetLoadingLimit();
  record.row_count = GetNObs();
  record.component_count = static_cast<short>(GetComponentCount());
  record.a0 = static_cast<short>(a0_);
  record.is_overrun = is_overrun_;
  record.is_search_over = is_search_over_;
  record.observations = observations_;
  record.classes = classes_;
  record.x = x_->MakeRecord();
  if (HasY()) record.y = y_->MakeRecord();
  if (x_->HasPreparation()) {
    const Preparation& preparation = x_->GetPreparation();
    const std::span<const char> members = preparation.members.Values();
    record.members.assign(members.begin(), members.end());
    record.dataset_variables = preparation.dataset_variables;
  }
  record.components.assign(components_.begin(), components_.end());
  record.results = workset_results_;
  return record;
}

void Model::TakeRecord(ModelRecord record) {
  XI1Vector members("Selection", static_cast<int>(record.members.size()), char{0});
  Whole(members);
  std::ranges::copy(record.members, members.Values().begin());
  const auto make_block = [&](const BlockRecord& block) {
    return std::make_unique<DataBlock>(type_, block, members, record.dataset_variables);
  };
  auto x = make_block(record.x);
  auto y = HasY() ? make_block(record.y) : nullptr;
  int a = 0;
  for (const auto& component : record.components) {
    std::optional<Stage>& stage = component->y;
    ++a;
    if (stage && stage->mpow.NVal() == 0) {
      stage->mpow = MakeVector("MPow", 'Y', a, record.y.column_count);
    }
  }
  auto results = record.results == nullptr ? nullptr : Renamed(*record.results);

  header_ = record.header;
  dataset_name_ = record.dataset_name;
  *options_ = record.options;
  options_->SetCompLimLoa(record.loading_limit);
  observations_ = record.observations;
  classes_ = record.classes;
  x_ = std::move(x);
  y_ = std::move(y);
  components_ = {record.components.begin(), record.components.end()};
  if (HasY() && y_->IsCentred()) TakeOffComponents(*y_);
  workset_results_ = std::move(results);
  // The numbers of a row are those of its position in the data set.
  short row = 0;
  for (const short i : PositionsUpTo(members.NVal())) {
    if (observations_ != nullptr && members[i] != 0) observations_->SetINum(++row, i);
  }
  if (observations_ != nullptr) observations_->ClearIsModified();
  a0_ = record.a0;
  is_overrun_ = record.is_overrun;
  is_search_over_ = record.is_search_over;
  status_ = is_search_over_ ? status::mva::kComponentAborted : status::kOk;
}

VarInfo* Model::GetVarInfoDS() const {
  return x_->HasPreparation() ? x_->GetPreparation().dataset_variables.get() : nullptr;
}

}  // namespace zemva
