// A model of a file: from the options of a command to the results.
#ifndef ZEMVA_TOOLS_MODEL_MODEL_RUN_H
#define ZEMVA_TOOLS_MODEL_MODEL_RUN_H

#include <string>
#include <vector>

#include "arguments/model_options.h"
#include "model/watched_project.h"
#include "text/progress_window.h"
#include "zemva/data/dataset.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/model/workset/workset.h"
#include "zemva/project/project.h"

namespace zemva::tools {

// Each step needs the ones above it. It returns the exit status of the program; what stands against
// kDone it has said. Messages of the model go to standard error as they come.
class ModelRun {
 public:
  // The options outlive the run.
  explicit ModelRun(const ModelOptions& options) : options_(options) {}

  // Reads the settings file and the data, and does what the options say of its variables and
  // observations. Raises UsageError.
  int LoadFile();
  // Makes the model, which the work set stays as it is for, and reads the file of predictions.
  // Where that is the file of the model, it knows the observations that the model is made of.
  int MakeModel(EModType type, char selector);
  // Fits components, and goes on with those that there are when a further one fails. No component
  // at all is a failure.
  int Fit();
  // Nothing without a file of predictions.
  int Predict();

  Project& GetProject() { return project_; }
  Dataset& GetDataset() const { return *project_.GetDataset(dataset_); }
  Workset& GetWorkset() const { return *project_.GetWorkset(workset_); }
  Model& GetModel() const { return *project_.GetModel(model_)->GetModel(); }
  // Of classes 1, 2 and so on, in UTF-8, where a column of the table says what they are.
  const std::vector<std::string>& GetClassNames() const { return class_names_; }
  // Null without a file of predictions.
  Dataset* GetTestDataset() const { return project_.GetDataset(test_dataset_); }

 private:
  short AddTestFile();
  void TellOfWeakComponents() const;
  int KeepComponents(int failure);

  const ModelOptions& options_;
  ProgressWindow log_;
  WatchedProject project_{log_};
  std::vector<std::string> class_names_;
  short dataset_ = 0;
  short workset_ = 0;
  short model_ = 0;
  short test_dataset_ = 0;
  short predset_ = 0;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_MODEL_RUN_H
