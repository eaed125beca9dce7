#include "model/model_run.h"

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "model/model_setup.h"
#include "text/messages.h"
#include "zemva/base/native_path.h"
#include "zemva/errors/messages.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"

namespace zemva::tools {
namespace {

// The number of the new data set in the project, 0 where there is no memory for it.
short AddFile(const std::string& path, Project& project) {
  auto dataset = std::make_unique<Dataset>("Data", path.c_str(), GlobalStreamWindow());
  return project.AddDataset(dataset.release());  // the project's
}

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(NativePath(one), NativePath(other), error);
}

}  // namespace

int ModelRun::LoadFile() {
  dataset_ = AddFile(options_.file, project_);
  if (dataset_ != 0) workset_ = project_.AddWorkset(dataset_, "Workset");
  if (workset_ == 0) return Fail(options_.file, project_.GetStatus());
  const int status = SetUpWorkset(options_, GetWorkset());
  return status == status::kOk ? kDone : Fail(options_.file, status);
}

int ModelRun::MakeModel(EModType type, char selector) {
  model_ = project_.AddModel(workset_, type, selector);
  if (model_ == 0) return Fail(options_.file, project_.GetStatus());
  ModOpt& model_options = project_.GetModel(model_)->GetModOpt();
  SetUpModel(options_, model_options);
  // Observations that are centred have one dimension less than there are.
  const std::unique_ptr<ObsInfo> observations(GetWorkset().ExtObsInfo(type, selector));
  if (observations == nullptr) return Fail(options_.file, GetWorkset().GetStatus());
  const int rank = observations->GetNItm() - (model_options.GetIsCenter() ? 1 : 0);
  if (model_options.GetNComp() > rank) model_options.SetNComp(static_cast<short>(rank));
  if (!options_.test_file) return kDone;
  const bool is_same = IsSameFile(*options_.test_file, options_.file);
  test_dataset_ = is_same ? dataset_ : AddFile(*options_.test_file, project_);
  if (test_dataset_ != 0) predset_ = project_.AddPredset(test_dataset_, workset_, "Predset");
  return predset_ != 0 ? kDone : Fail(*options_.test_file, project_.GetStatus());
}

int ModelRun::Fit() {
  if (const int status = project_.Compute(model_); status != status::kOk) {
    return KeepComponents(status);
  }
  if (GetModel().GetA() == 0) {
    return Fail(options_.file, "no component is significant; --components fits some regardless");
  }
  if (const int status = DropNoise(); status != status::kOk) return Fail(options_.file, status);
  const int count = GetModel().GetA();
  if (count < options_.component_count.value_or(0)) {
    Tell(options_.file, "there can be no more than " + Counted(count, "component"));
  }
  return kDone;
}

// Drops components beyond the rank of the table, which fit what rounding has left of it.
int ModelRun::DropNoise() {
  constexpr float kRounding = 1e-12f;
  Model& model = GetModel();
  short count = model.GetA();
  while (count > 1 && model.GetSSX(static_cast<char>(count - 1)) <= kRounding * model.GetSSX(0)) {
    --count;
  }
  if (count == model.GetA()) return status::kOk;
  const int status = model.Reset(count);
  return status == status::kOk ? model.ExecLS(char{0}) : status;
}

int ModelRun::KeepComponents(int failure) {
  Model& model = GetModel();
  const char count = model.GetA();
  if (count == 0) return Fail(options_.file, failure);
  Tell(options_.file, "stopped after " + Counted(count, "component") + ": " + GetVdoMsg(failure) +
                          " (" + std::to_string(failure) + ")");
  int status = model.Reset(count);
  if (status == status::kOk) status = model.ExecLS(char{0});
  return status == status::kOk ? kDone : Fail(options_.file, status);
}

int ModelRun::Predict() {
  if (predset_ == 0) return kDone;
  const int status = project_.ExecPS(model_, predset_);
  if (status != status::kOk) return Fail(*options_.test_file, status);
  if (GetModel().GetNObsPS() == 0) Tell(*options_.test_file, "no observation can be predicted");
  return kDone;
}

}  // namespace zemva::tools
