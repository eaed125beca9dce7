// A model of a project, with what it is made of.
#ifndef ZEMVA_PROJECT_WORKSET_MODEL_H
#define ZEMVA_PROJECT_WORKSET_MODEL_H

#include <memory>

#include "base/export.h"
#include "errors/stream_window.h"
#include "model/driver/model.h"
#include "model/driver/model_owner.h"
#include "model/workset/workset.h"
#include "settings/mod_opt.h"

namespace zemva {

class Predset;

// Owns a model and its options. The work set and the prediction set that it was executed on belong
// to the project and outlive it.
class ZEMVA_API WorksetModel {
 public:
  // An empty model of the type; its options are those of the owner, centred when any variable's
  // scaling is. GetStatus tells what stands against it: 8045 for a type that there are no models
  // of, 8002, or the code of the work set where it has no such data.
  WorksetModel(ModelOwner& owner, Workset& workset, EModType type, char selector,
               StreamWindow& window);
  WorksetModel(const WorksetModel&) = delete;
  WorksetModel& operator=(const WorksetModel&) = delete;
  ~WorksetModel();

  int GetStatus() const { return status_; }
  // Null where the status is not 0.
  Model* GetModel() const { return model_.get(); }
  ModOpt& GetModOpt() { return options_; }
  Workset& GetWorkset() const { return workset_; }
  // Null where it was executed on none.
  Predset* GetPredset() const { return predset_; }
  void SetPredset(Predset* predset) { predset_ = predset; }

 private:
  int Init(ModelOwner& owner, EModType type, char selector, StreamWindow& window);

  Workset& workset_;
  Predset* predset_ = nullptr;
  ModOpt options_;
  std::unique_ptr<Model> model_;
  int status_;
};

}  // namespace zemva

#endif  // ZEMVA_PROJECT_WORKSET_MODEL_H
