// A model of a project, with what it is made of.
#ifndef ZEMVA_PROJECT_WORKSET_MODEL_H
#define ZEMVA_PROJECT_WORKSET_MODEL_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/block/model_owner.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

class Project;

// Owns a model and its options, and gives it the data. The project, the work set and the prediction
// set that the model is executed on outlive it.
class ZEMVA_API WorksetModel : public ModelOwner {
 public:
  // An empty model of the type; its options are those of the project, centred when any variable's
  // scaling is. GetStatus tells what stands against it: 8045 for a type that there are no models
  // of, 8002, or the code of the work set where it has no such data.
  WorksetModel(Project& project, Workset& workset, EModType type, char selector,
               StreamWindow& window);
  // The model in a file, with its options. The codes of Model::Read.
  WorksetModel(Project& project, Workset& workset, const char* path, StreamWindow& window);
  WorksetModel(const WorksetModel&) = delete;
  WorksetModel& operator=(const WorksetModel&) = delete;
  ~WorksetModel() override;

  int GetStatus() const { return status_; }
  // Null where the status is not 0.
  Model* GetModel() const { return model_.get(); }
  // The model as it is asked for something anew: a failure does not stand against it any longer.
  Model& Restart();
  ModOpt& GetModOpt() { return options_; }
  Workset& GetWorkset() const { return workset_; }
  // Executes the model on a prediction set, which it then holds results of unless that fails, and
  // drops such results. The codes of the model.
  int ExecPS(Predset& predset);
  int DeletePSResults();
  // Null where the model holds no results of one.
  Predset* GetPredset() const { return predset_; }

  Workset* GetCurrentWorkset() override { return &workset_; }
  Predset* GetCurrentPredset() override { return predset_; }
  const PrjOpt& GetOptions() const override;
  char Ask(const char* question) override;
  bool GoesOn(const FitProgress& progress) override;

 private:
  int Init(EModType type, char selector, StreamWindow& window);

  Project& project_;
  Workset& workset_;
  Predset* predset_ = nullptr;
  ModOpt options_;
  std::unique_ptr<Model> model_;
  int status_;
};

}  // namespace zemva

#endif  // ZEMVA_PROJECT_WORKSET_MODEL_H
