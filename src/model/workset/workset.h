// The selection of a data set's observations and variables that models are made of.
#ifndef ZEMVA_MODEL_WORKSET_WORKSET_H
#define ZEMVA_MODEL_WORKSET_WORKSET_H

#include <memory>
#include <vector>

#include "base/export.h"
#include "base/fixed_text.h"
#include "data/cla_info.h"
#include "data/dataset.h"
#include "data/obs_info.h"
#include "data/var_info.h"
#include "errors/stream_window.h"
#include "model/preprocess/exp_info.h"
#include "model/preprocess/lag_info.h"
#include "model/preprocess/sca_info.h"
#include "model/preprocess/tra_info.h"
#include "model/workset/model_type.h"
#include "numeric/x_matrix.h"
#include "numeric/x_vector.h"

namespace zemva {

// Which block a variable belongs to.
enum class EVarRole : char { kExcluded = 0, kX = 1, kY = 2 };

// Which observations of a data set are in, and in which class; which variables are X or Y, and what
// is done to them. The data set keeps the values: the work set reads them each time that a model
// asks, and gives out copies.
//
// Observation i, 1..N, is that of the data set. Variables are counted 1..GetNVar(): first those of
// the data set, then the lagged ones, then the terms of the expansion. A lagged variable that is
// added moves the terms up by one. Where the data set has no number or name, the number is the
// position and the name is empty; where its variables have numbers below 1 or repeated ones, they
// are all numbered by position, which a message tells.
//
// A model's columns are made in this order: the observations are selected; lagged variables look
// back over the observations selected; what has a transformation is transformed; the terms are
// multiplied. The model centres and scales.
//
// Every operation that can fail returns a status code, or a null pointer, and keeps the code for
// GetStatus. A failed one changes nothing. 8002 is returned by all when memory runs out; 8037 where
// there is no observation at a position, 8015 where there is no variable; 8049 when the work set is
// to be changed while it is frozen. Messages go to the window, each on its own line.
class ZEMVA_API Workset {
 public:
  // All observations are in, without classes; all variables are X, scaled to unit variance. Loads
  // the data set, which like the window must outlive the work set; where that fails the status is
  // the code of Load and there are no observations and variables.
  Workset(const char* name, Dataset& dataset, StreamWindow& window);
  Workset(const Workset&) = delete;
  Workset& operator=(const Workset&) = delete;

  // At most 24 characters.
  const char* GetNam() const { return name_.Get(); }
  void SetNam(const char* name) { name_.Set(name); }
  const Dataset& GetDataset() const { return dataset_; }

  // A work set that models were made of stays what it was: nothing below can change it.
  bool IsFrozen() const { return is_frozen_; }
  void SetIsFrozen(bool is_frozen) { is_frozen_ = is_frozen; }

  int GetStatus() const { return status_; }

  // --- Observations ---

  // How many are in, and how many the data set has.
  short GetNObs() const;
  short GetNObsDS() const { return observations_.GetNItm(); }
  // The position of the first with this number or exactly this name, 0 if there is none.
  short GetOIx(short onum) const { return observations_.GetOIx(onum); }
  short GetOIx(const char* name) const { return observations_.GetOIx(name); }

  // Whether an observation is in; false for a bad position.
  bool IsObsIn(short i) const;
  int SetIsObsIn(short i, bool is_in);
  // The class of an observation, 1..99, or 0 for none and for a bad position. Setting: 8021 for
  // any other class.
  char GetOClass(short i) const;
  int SetOClass(short i, char c);

  // --- Variables ---

  // How many there are, in all and in a block.
  short GetNVar() const { return static_cast<short>(roles_.size()); }
  short GetNVar(EBlock block) const;
  // How many of them the data set has.
  short GetNVarDS() const { return variables_.GetNVar(); }
  // The position of the first with this number or exactly this name, 0 if there is none.
  short GetVIx(short vnum) const;
  short GetVIx(const char* name) const;
  // 0 and null for a bad position. The name is valid until the work set changes.
  short GetVNum(short j) const;
  const char* GetVNam(short j) const;

  // kExcluded for a bad position. A lagged variable and a term are there even when those that they
  // are made of are excluded. Setting: 8021 for what is no role.
  EVarRole GetRole(short j) const;
  int SetRole(short j, EVarRole role);

  // --- Extraction (workset_extract.cpp) ---
  //
  // What a model of a type needs for its block X or Y; the selector is the class of a kPC1Cl model
  // and has no meaning for others. Each returns a new object, the caller's.
  //
  // Models of classes by partial least squares take the observations that have a class; their Y has
  // a column for each class, in the order of the class numbers, 1 for the observations in it and 0
  // for the others. The variable is numbered and named after the class: "Class3".
  //
  // They fail with 8013 for what is no type, a class that is none and a block that the type has
  // not; 8020 where no observation is selected, 8017 where X has no variable; 8018 where Y has
  // none, or fewer than two classes; 8046 when the data set has changed its size; and the code of
  // Load when the data set has to be loaded and cannot.

  // A row for each observation selected and a column for each variable, neither centred nor scaled,
  // with present values counted. A value of the data set that is not a finite number is missing,
  // as is what has no transform; messages tell.
  XFMatrix* ExtMatrix(EModType type, EBlock block, char selector);
  ObsInfo* ExtObsInfo(EModType type, char selector);
  VarInfo* ExtVarInfo(EModType type, EBlock block, char selector);
  // The scaling of each variable, with the weights that it makes of the matrix.
  ScaInfo* ExtScaInfo(EModType type, EBlock block, char selector);
  // Null with status 0 when no observation selected has a class.
  ClaInfo* ExtClaInfo(EModType type, char selector);

 private:
  friend class Predset;

  static constexpr char kNoClass = 0;

  struct Membership {
    bool is_in = true;
    char o_class = 0;
  };
  // Where a variable is described.
  struct Place {
    const ItmInfo& table;
    short row;
  };

  int Init();
  bool IsObs(int i) const { return i >= 1 && i <= GetNObsDS(); }
  bool IsVar(int j) const { return j >= 1 && j <= GetNVar(); }
  Place Locate(int j) const;
  template <typename Key>
  short FindVar(Key key) const;
  // The status of a change, which changes nothing where it is not 0.
  template <typename Change>
  int Edit(Change change);

  // workset_extract.cpp
  struct Selection {
    XI1Vector observations;
    VarInfo variables;
  };
  XI1Vector SelectObs(EModType type, char selector) const;
  VarInfo SelectVars(EModType type, EBlock block) const;
  VarInfo MakeClassVars(const XI1Vector& observations) const;
  static int Check(EModType type, EBlock block, char selector, const Selection& selection);
  // Hands over what `make`, given the selection, makes.
  template <typename Result, typename Make>
  Result* Ext(EModType type, EBlock block, char selector, Make make);
  int MakeMatrix(EModType type, EBlock block, const Selection& selection, StreamWindow& window,
                 std::unique_ptr<XFMatrix>& matrix) const;
  int MakeClassMatrix(const Selection& selection, std::unique_ptr<XFMatrix>& matrix) const;
  int AddScalings(bool is_class_block, const VarInfo& variables, const XFMatrix& matrix,
                  ScaInfo& table) const;

  FixedText<24> name_;
  Dataset& dataset_;
  StreamWindow& window_;
  ObsInfo observations_{"ObsInfo"};
  std::vector<Membership> memberships_;
  VarInfo variables_{"VarInfo"};
  std::vector<EVarRole> roles_;
  ScaInfo scalings_{"ScaInfo"};
  TraInfo transformations_{"TraInfo"};
  LagInfo lags_{"LagInfo"};
  ExpInfo terms_{"ExpInfo"};
  bool is_frozen_ = false;
  int status_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_WORKSET_H
