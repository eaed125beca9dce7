// A project: data sets, work sets, prediction sets and models, and who owns them.
#ifndef ZEMVA_PROJECT_PROJECT_H
#define ZEMVA_PROJECT_PROJECT_H

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/block/model_owner.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"
#include "zemva/project/wm_info.h"
#include "zemva/project/workset_model.h"
#include "zemva/settings/options/prj_opt.h"

namespace zemva {

struct ListLayout;

// Owns all that is added to it or made by it, each kind numbered from 1 on in its own right: one
// more than the last, or where there can be no larger number the smallest that is free; the objects
// know their numbers. What depends on something else is deleted before it, and stands against its
// deletion: a model and a prediction set depend on their work set, both sets on their data set.
//
// It can be the owner of other models as well, which are made with it and belong to their maker:
// they are of its current work set and prediction set.
//
// What makes something returns its number, or 0 with the status; what else can fail returns the
// status. 8002 when memory runs out. For a number that there is not 8009 where it is that of a data
// set, 8011 of a work set, 8030 of a prediction set, 8010 of a model.
class ZEMVA_API Project : public ModelOwner {
 public:
  static constexpr short kMaxModels = 99;

  // Without anything; the options have their defaults. The window outlives the project.
  Project(const char* name, StreamWindow& window);
  Project(const Project&) = delete;
  Project& operator=(const Project&) = delete;
  ~Project() override;

  const char* GetNam() const { return name_.Get(); }
  int GetStatus() const { return status_; }
  // What new models take over.
  PrjOpt& GetPrjOpt() { return options_; }
  const PrjOpt& GetPrjOpt() const { return options_; }

  // --- Making ---

  // Takes the data set over, also when it fails. 8022 for null, 8023 for one that it has already.
  short AddDataset(Dataset* dataset) { return AddDataset(dataset, 0); }
  // Of all observations and variables of a data set. The code of Workset when it fails.
  short AddWorkset(short dataset, const char* name) { return AddWorkset(dataset, name, 0); }
  // The observations of a data set for the models of a work set. The code of Predset.
  short AddPredset(short dataset, short workset, const char* name) {
    return AddPredset(dataset, workset, name, 0);
  }
  // A model to be computed, named after its number; the selector is the class of a kPC1Cl model,
  // else 0. From then on the work set is frozen. 8031 beyond 99 models, and the codes of
  // WorksetModel.
  short AddModel(short workset, EModType type, char selector);

  // A model that was saved; it gets the number that the name of its file ends in, where that is
  // free. The codes of Model::Read.
  short AddModel(short workset, const char* path);

  // --- On disk (project_storage.cpp) ---

  // Writes all data sets, work sets, prediction sets and models to files in a folder, each kind
  // named after its numbers ("model3.mdl"), and then "project.ini", the settings file of the
  // project, which lists them. A data set is in the folder from then on; one that was read from
  // there and has not changed stays as it is. Listed files that could not be opened stay listed.
  // The first code of those that stand against a part; 1006 for the list, which then is as it was.
  int Save(const char* folder);
  // Opens what such a list says into a project that has nothing yet, wherever the folder is now.
  // What cannot be opened is named in the window, with what depends on it, and the rest opened: 0.
  // 8023 where there is something in the project, 1002 where the folder has no list.
  int Open(const char* folder);

  // --- Access; null where there is none ---

  Dataset* GetDataset(short number) const;
  Workset* GetWorkset(short number) const;
  Predset* GetPredset(short number) const;
  WorksetModel* GetModel(short number) const;
  // All models; good until one is added or deleted.
  WMInfo& GetWMInfo() { return models_info_; }

  // --- Vectors ---

  // Those of the object that the kind and number of a VecSpec name. Without a kind it is the one
  // that the type of vector belongs to, without a number the object of the kind added last. The
  // codes of the object.
  int GetXFVector(const VecSpec* spec, XFVector*& vector);
  int GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number);

  // --- What is current: the sets added last, or those that are set here ---

  int SetCurrentWorkset(short number);
  int SetCurrentPredset(short number);
  Workset* GetCurrentWorkset() override { return GetWorkset(current_workset_); }
  // Null too where it is of another work set than the current one.
  Predset* GetCurrentPredset() override;
  const PrjOpt& GetOptions() const override { return options_; }

  // --- Computing: what a model has refused does not stand against it being asked again ---

  // Fits components while there are more to fit, drops those beyond the rank of the table, which
  // are noise, and executes the model on its work set. Nothing is
  // fitted to a model that has as many as it is to have. The code of the model; 0 too when the
  // rules have refused a component, whatever the number before it.
  int Compute(short model);
  // Executes a model on a prediction set of its work set; 8040 for one of another.
  int ExecPS(short model, short predset);

  // --- Deleting ---

  int DelModel(short number);
  // 8041 while a model holds results of it: DelPSResults first.
  int DelPredset(short number);
  int DelPSResults(short model);
  // Prediction sets of it go with it. 8049 while there are models of it.
  int DelWorkset(short number);
  // Prediction sets of it go with it. 8054 while there are work sets of it, 8041 while a model
  // holds results of one of the prediction sets.
  int DelDataset(short number);

 private:
  // Asks the object of a VecSpec, and returns its status.
  template <typename Request>
  int AskObject(const VecSpec* spec, Request ask);

  struct PredsetOfWorkset {
    std::unique_ptr<Predset> predset;
    Workset* workset;
  };
  template <typename Owned>
  using Numbered = std::map<short, Owned>;

  int SetStatus(int status) { return status_ = status; }
  // Adds what `make` hands over under the next number, unless its status stands against it.
  // Or under the number wanted, where that is free.
  template <typename Owned, typename Make>
  short Add(Numbered<Owned>& all, short most, Make make, short wanted = 0);
  // The same, under the number wanted where that is free.
  short AddDataset(Dataset* dataset, short wanted);
  short AddWorkset(short dataset, const char* name, short wanted);
  short AddPredset(short dataset, short workset, const char* name, short wanted);
  short ListModel(short number);

  // A file of the project that could not be opened, and the files that it depends on.
  struct ListedFile {
    const ListLayout* list;
    std::string file;
    std::string dataset;
    std::string workset;
    bool is_primary = false;
  };
  // What a project needs while its list is read.
  struct Opening;
  static short NumberOfFile(std::string_view path);
  int SaveDataset(short number, Dataset& dataset, const std::string& folder) const;
  std::string NewFileName(const std::string& folder, const char* kind, short number,
                          const char* extension) const;
  // Adds the files of what there is, each once it was saved.
  int SaveAll(const std::string& folder, std::vector<ListedFile>& files);
  std::string NameOfDataset(const std::string& file, const std::string& list) const;
  bool WriteList(const std::vector<ListedFile>& files, const std::string& path) const;
  void Miss(const ListedFile& file, int status);
  void OpenDataset(const char* address, bool is_primary, Opening& opening);
  void OpenSet(const ListedFile& file, Opening& opening);
  bool HasModels(const Workset& workset) const;
  bool HasResults(const Predset& predset) const;

  FixedText<24> name_;
  StreamWindow& window_;
  std::vector<ListedFile> missing_;
  PrjOpt options_;
  // In the order that makes what depends go first.
  Numbered<std::unique_ptr<Dataset>> datasets_;
  Numbered<std::unique_ptr<Workset>> worksets_;
  Numbered<PredsetOfWorkset> predsets_;
  Numbered<std::unique_ptr<WorksetModel>> models_;
  WMInfo models_info_{"WMInfo"};
  short current_workset_ = 0;
  short current_predset_ = 0;
  int status_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_PROJECT_PROJECT_H
