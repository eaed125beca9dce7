#include "model/model_run.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "arguments/settings_folder.h"
#include "csv/csv_file.h"
#include "model/model_setup.h"
#include "text/messages.h"
#include "zemva/base/native_path.h"
#include "zemva/errors/messages.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// The classes of observations, from 0, that a table has.
int SetClasses(const std::vector<char>& classes, Workset& workset) {
  short i = 0;
  for (const char number : classes) {
    ++i;
    if (number == 0) continue;
    if (const int status = workset.SetOClass(i, number); status != status::kOk) return status;
  }
  return status::kOk;
}

// Of a component, and of all up to it: of Y where the model has one.
float GetQ2(const Model& model, char a) {
  return model.GetNVarY() > 0 ? model.GetQ2AY(a) : model.GetQ2AX(a);
}
float GetCumulativeQ2(const Model& model, char a) {
  return model.GetNVarY() > 0 ? model.GetQ2Y(a) : model.GetQ2X(a);
}

std::string Rounded(float value) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.3f", static_cast<double>(value));
  return text.data();
}

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code error;
  return std::filesystem::equivalent(NativePath(one), NativePath(other), error);
}

}  // namespace

int ModelRun::LoadFile() {
  ReadSettings(project_.GetPrjOpt());
  OpenedTable table = OpenTable(options_.file, options_.csv, GlobalStreamWindow());
  dataset_ = project_.AddDataset(table.dataset.release());  // the project's
  if (dataset_ != 0) workset_ = project_.AddWorkset(dataset_, "Workset");
  if (workset_ == 0) return Fail(options_.file, project_.GetStatus());
  class_names_ = std::move(table.class_names);
  int status = SetClasses(table.classes, GetWorkset());
  if (status == status::kOk) status = SetUpWorkset(options_, GetWorkset());
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
  test_dataset_ = is_same ? dataset_ : AddTestFile();
  if (test_dataset_ != 0) predset_ = project_.AddPredset(test_dataset_, workset_, "Predset");
  return predset_ != 0 ? kDone : Fail(*options_.test_file, project_.GetStatus());
}

// Its observations need no names and classes.
short ModelRun::AddTestFile() {
  CsvOptions csv = options_.csv;
  csv.are_columns_optional = true;
  OpenedTable table = OpenTable(*options_.test_file, csv, GlobalStreamWindow());
  return project_.AddDataset(table.dataset.release());  // the project's
}

int ModelRun::Fit() {
  // The model has values of its own; those of a file can be read again.
  const bool is_needed = test_dataset_ == dataset_ || !IsProjectFile(options_.file);
  if (GetModel().Load() == status::kOk && !is_needed) GetDataset().Unload();
  if (const int status = project_.Fit(model_); status != status::kOk) {
    return KeepComponents(status);
  }
  if (GetModel().GetA() == 0) {
    return Fail(options_.file, "no component is significant; --components fits some regardless");
  }
  const int count = GetModel().GetA();
  if (count < options_.component_count.value_or(0)) {
    Tell(options_.file, "there can be no more than " + Counted(count, "component"));
  }
  TellOfWeakComponents();
  return kDone;
}

// What a reader of the model should know of how its components were found.
void ModelRun::TellOfWeakComponents() const {
  const Model& model = GetModel();
  const short most = project_.GetModel(model_)->GetModOpt().GetMaxIter();
  int first_negative = 0;
  for (int component = 1; component <= model.GetA(); ++component) {
    const auto a = static_cast<char>(component);
    const std::string subject = "component " + std::to_string(component);
    if (model.GetNIter(a) > most) {
      Tell(options_.file, subject + " has not converged in " + Counted(most, "iteration") +
                              "; --max-iter allows more");
    }
    const float q2 = GetQ2(model, a);
    if (first_negative == 0 && !IsMissing(q2) && q2 < 0) first_negative = component;
  }
  if (first_negative == 0 || options_.component_count) return;
  const int before = first_negative - 1;
  Tell(options_.file,
       "component " + std::to_string(first_negative) + " predicts less than none (Q2 below 0)" +
           (before == 0 ? "; --components says how many to fit"
                        : "; --components " + std::to_string(before) + " keeps " +
                              Counted(before, "component") + " with a Q2(cum) of " +
                              Rounded(GetCumulativeQ2(model, static_cast<char>(before)))));
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
