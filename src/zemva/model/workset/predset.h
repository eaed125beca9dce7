// The observations that the models of a work set are to predict.
#ifndef ZEMVA_MODEL_WORKSET_PREDSET_H
#define ZEMVA_MODEL_WORKSET_PREDSET_H

#include <memory>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/dataset.h"
#include "zemva/data/obs_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/model/workset/workset.h"
#include "zemva/numeric/vector.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// Which observations of a data set are predicted, and how its variables become those of a work set.
// As the work set does, it reads the values from the data set each time that a model asks; it puts
// them through the lags, transformations and expansion that the model was made with. Lagged
// variables look back over the observations that are in.
//
// The variables of the work set's data set are matched by name: the first of a name with the first
// of that name, the second with the second. A variable without name matches none. Where both sets
// are of the same Dataset, of the same size for both, each variable is its own match.
//
// Every operation that can fail returns a status code, or a null pointer, and keeps the code for
// GetStatus. A failed one changes nothing. 8002 is returned by all when memory runs out.
class ZEMVA_API Predset {
 public:
  // All observations are in. Loads the data set, which like the work set must outlive the
  // prediction set; where that fails the status is the code of Load and there are no observations.
  Predset(const char* name, Dataset& dataset, const Workset& workset);
  // The same for models that were read from files and have no work set: `variables` are those of
  // the data set that they were made of, no observation is a member and none has a class.
  Predset(const char* name, Dataset& dataset, const VarInfo& variables);
  Predset(const Predset&) = delete;
  Predset& operator=(const Predset&) = delete;

  // At most 24 characters.
  const char* GetNam() const { return name_.Get(); }
  void SetNam(const char* name) { name_.Set(name); }
  // In its project; 0 for none.
  short GetPSNum() const { return number_; }
  void SetPSNum(short number) { number_ = number; }
  const Dataset& GetDataset() const { return dataset_; }
  int GetStatus() const { return status_; }

  // How many observations are in, and how many the data set has.
  short GetNObs() const;
  short GetNObsDS() const { return observations_.GetNItm(); }
  // The position of the first with this number or exactly this name, 0 if there is none.
  short GetOIx(short onum) const { return observations_.GetOIx(onum); }
  short GetOIx(const char* name) const { return observations_.GetOIx(name); }
  // Whether an observation is in; false for a bad position. Setting: 8037 for a bad position.
  bool IsObsIn(short i) const;
  int SetIsObsIn(short i, bool is_in);

  // Write which observations are in, and the name, to a prediction set file, and take them over
  // from one. 8046 where that was of another number of observations. The codes of Model::Save and
  // Model::Read. Messages go to the window.
  int Save(const char* path, StreamWindow& window);
  int Load(const char* path, StreamWindow& window);

  // --- Vectors ---

  // Of the observations that are in, what the work set's functions give of its own: "VarPS3",
  // "ObsPS5", "Num" and "Time". Variables are those of the work set; one that the data set has not
  // is missing. 8011 where there is no work set.
  int GetXFVector(const VecSpec* spec, XFVector*& vector);
  int GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number);

  // --- Extraction ---
  //
  // Each returns a new object, the caller's, with a row or element for each observation that is in,
  // in order.

  // The columns are those of the matrix that was taken out of the work set with the preparation:
  // ExtMatrix there tells what they hold. A variable that the data set has not is missing
  // throughout, and so is what is made of it; messages in the window tell.
  //
  // The classes, which are the Y of models of classes, are known where both sets are of the same
  // Dataset, as for the variables, and the work set puts the observation into one of the classes of
  // the model; the row is missing otherwise.
  //
  // 8040 for the preparation of another work set, or of other variables than the work set's; 8020
  // where no observation is in; 8033 where X has nothing of the data set, while such a Y is missing
  // throughout; 8046 when the data set has other observations or variables than it had; the code of
  // Load when it has to be loaded and cannot.
  XFMatrix* ExtMatrix(const Preparation& preparation, StreamWindow& window);
  ObsInfo* ExtObsInfo();
  // The positions of the observations in the data set.
  I2Vector* ExtObsIx();
  // 1 for the observations that the model is made of: those of the same Dataset that were taken out
  // of the work set. 0 for others, and so for all where the data sets differ. 8040 as above.
  I1Vector* ExtMembership(const Preparation& preparation);

 private:
  int Init();
  // Whether the work set, if there is one, is of the same Dataset, of the same size.
  bool IsOfWorkset(const ObsInfo& own, const VarInfo& variables) const;
  std::vector<short> MatchVars(const VarInfo& own) const;
  // Whether the preparation is of the work set or, where it was read, of the same variables.
  bool IsFor(const Preparation& preparation) const;
  bool IsObs(int i) const { return i >= 1 && i <= GetNObsDS(); }
  XI1Vector SelectObs() const;
  DataSource MakeSource() const;
  SetVectors MakeVectors() const;
  int CheckSources(const Preparation& preparation, StreamWindow& window) const;
  int MakeClassMatrix(const VarInfo& classes, std::unique_ptr<XFMatrix>& matrix) const;
  int MakeMatrix(const Preparation& preparation, StreamWindow& window,
                 std::unique_ptr<XFMatrix>& matrix) const;

  FixedText<24> name_;
  short number_ = 0;
  Dataset& dataset_;
  const Workset* workset_;     // may be null
  VarInfo workset_variables_;  // of its data set
  // Whether both sets are of the same Dataset, of the same size.
  bool is_of_workset_ = false;
  ObsInfo observations_{"ObsInfo"};
  std::vector<bool> is_in_;
  VarInfo variables_{"VarInfo"};
  // For each variable of the work set's data set its column here, 0 for none.
  std::vector<short> columns_;
  int status_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_PREDSET_H
