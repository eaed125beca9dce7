// The selection of a data set's observations and variables that models are made of.
#ifndef ZEMVA_MODEL_WORKSET_WORKSET_H
#define ZEMVA_MODEL_WORKSET_WORKSET_H

#include <array>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/dataset.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/numeric/missing.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva {

class ColumnPlan;
class NumberSet;
class SetVectors;
struct BlockExtract;
struct DataSource;
struct Preparation;
struct WorksetRecord;

// Which block a variable belongs to.
enum class EVarRole : char { kExcluded = 0, kX = 1, kY = 2 };

// The largest share of missing values, in per cent, that a variable and an observation may have.
struct MissingLimits {
  float variable_percent;
  float observation_percent;
};

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
// A model's columns are made in this order: lagged variables look back over all observations of the
// data set, whether they are in or not; the observations are selected; what has a transformation is
// transformed; the terms are multiplied. The model centres and scales.
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
  // In its project; 0 for none.
  short GetWSNum() const { return number_; }
  void SetWSNum(short number) { number_ = number; }
  const Dataset& GetDataset() const { return dataset_; }

  // A work set that models were made of stays what it was: nothing below can change it.
  bool IsFrozen() const { return is_frozen_; }
  void SetIsFrozen(bool is_frozen) { is_frozen_ = is_frozen; }

  int GetStatus() const { return status_; }

  // --- On disk (workset_storage.cpp, workset_record.cpp) ---

  // Writes all that is set here to a work set file, which is made or replaced whole, and takes over
  // what such a file says, name included. 8046 where that was of other observations, by number, or
  // other variables, by number and name, than there are. The codes of Model::Save and Model::Read.
  int Save(const char* path);
  int Load(const char* path);
  // Throws std::bad_alloc.
  WorksetRecord MakeRecord() const;
  int TakeRecord(const WorksetRecord& record);

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
  short GetNVar() const { return static_cast<short>(usages_.size()); }
  short GetNVar(EBlock block) const;
  // How many of them the data set has.
  short GetNVarDS() const { return variables_->GetNVar(); }
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

  // --- Lagged variables and terms (workset_added.cpp) ---
  //
  // Their rows, in the order in which they were added. What is added is X, scaled to unit variance,
  // and belongs to the block of variable j. Its number is one more than the largest in use, or,
  // where that is 32,767, the smallest that is free. A name of more than 25 characters is cut; a
  // null or empty one stands for the default name of the row. Adding: 8055 when a variable has the
  // name, 8021 when there would be more than 32,767 variables.
  const LagInfo& GetLags() const { return lags_; }
  const ExpInfo& GetTerms() const { return terms_; }

  // Adds what variable j of the data set was `lag` observations earlier. 8032 where the data set
  // has no variable j, 8021 for a lag below 1.
  int AddLagged(short j, short lag, const char* name = nullptr);
  // Adds the product of variables j, j2 and j3, which may be the same and may be lagged; 0 stands
  // for no factor. The default name has the letter 'X' before each number. 8032 where there is no
  // such variable or it is a term itself.
  int AddTerm(short j, short j2, short j3 = 0, const char* name = nullptr);
  // Deletes a lagged variable or a term, with all that was set for it. A block that would keep a
  // single variable is dissolved. 8015 for a variable of the data set, which can but be excluded;
  // 8035 when a term is made of it.
  int DelAdded(short j);

  // --- Scaling, transformation, blocks (workset_preprocess.cpp) ---

  // A row for each variable. The weights in it are those that are fixed; the others are made of the
  // observations that a model takes.
  const ScaInfo& GetScalings() const { return scalings_; }
  // A type kUV to kNone, with a positive modifier of the weight, missing for none. kFreeze fixes
  // the weight that all observations that are in give now, whatever their class, by the type and
  // modifier that the variable has: 8020 when none is in, 8038 when they give no weight, and the
  // codes of ExtMatrix. 8021 for any other type, 8013 for a bad modifier.
  int SetScaling(short j, EScaType type, float modifier = kMissing);
  // A type kFW or kFWN, 8021 for any other; the weight is 0 or positive, 8013 for any other.
  int SetFixedWeight(short j, EScaType type, float weight);

  // A row for each variable that is transformed, in the order in which they were set.
  const TraInfo& GetTransformations() const { return transformations_; }
  // kNone removes the transformation. A lagged variable is made of its source as it is before it is
  // transformed. 8021 for what is no type, 8013 for a constant that is missing or not finite, 8045
  // for a term, whose factors are transformed before they are multiplied.
  int SetTransformation(short j, ETraType type, float c1, float c2, float c3);

  // The block of a variable, 1..99, or 0 for none and for a bad position; the type of a block,
  // kUndefined for one that was not used.
  char GetBlock(short j) const;
  BlkInfo::EBlkType GetBlockType(char b) const;
  // Puts a variable into a block and gives the type to the whole block; block 0 is none and its
  // type has no meaning. Only blocks that have two variables or more in a model's X, or its Y, are
  // scaled there. 8021 for a block outside 0..99, 8050 for a type that is none.
  int SetBlock(short j, char b, BlkInfo::EBlkType type);

  // --- Missing values (workset_screening.cpp) ---
  //
  // Variables come first: the share of the observations that are in that it has no value for, after
  // lags, transformations and expansion. Observations come second: the share of the X variables,
  // and that of the Y variables, that stay. ShowMissing lists what exceeds the limits, as if the
  // variables listed were excluded; ExcludeMissing lists and excludes it, or, when it fails,
  // neither. 8013 for a limit that is negative or no number, 8020 where no observation is in, 8017
  // where there is neither X nor Y, and the codes of ExtMatrix.
  int ShowMissing(const MissingLimits& limits);
  int ExcludeMissing(const MissingLimits& limits);

  // --- Vectors (workset_vectors.cpp) ---

  // A variable, "Var3", or an observation, "Obs5", of the observations that are in and all
  // variables: plain, as the data set has it, or transformed, "VarTr3"; numbers, "Num", and
  // positions in the data set, "Time", of the observations. A new vector, the caller's; null with a
  // code of VecSpec or of ExtMatrix.
  int GetXFVector(const VecSpec* spec, XFVector*& vector);
  // The names, or the numbers as texts, of what the elements of that vector are.
  int GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number);

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
  // none, or fewer than two classes; 8046 when the data set has other observations or variables;
  // and the code of Load when the data set has to be loaded and cannot.

  // A row for each observation selected and a column for each variable, neither centred nor scaled,
  // with present values counted. A value of the data set that is not a finite number is missing,
  // as is what has no transform; messages tell, in `window` where one is given.
  XFMatrix* ExtMatrix(EModType type, EBlock block, char selector);
  XFMatrix* ExtMatrix(EModType type, EBlock block, char selector, StreamWindow& window);
  // How the matrix is made, for a prediction set to make another one.
  Preparation* ExtPreparation(EModType type, EBlock block, char selector);
  ObsInfo* ExtObsInfo(EModType type, char selector);
  VarInfo* ExtVarInfo(EModType type, EBlock block, char selector);
  // The scaling of each variable, with the weights that it makes of the matrix: that of ExtMatrix,
  // which is made for it unless the caller has it.
  ScaInfo* ExtScaInfo(EModType type, EBlock block, char selector, const XFMatrix* matrix = nullptr);
  // The rows of the variables that are transformed, terms, lagged; null with status 0 where none
  // is. What a term or a lagged variable is made of need not be among the variables.
  TraInfo* ExtTraInfo(EModType type, EBlock block, char selector);
  ExpInfo* ExtExpInfo(EModType type, EBlock block, char selector);
  LagInfo* ExtLagInfo(EModType type, EBlock block, char selector);
  // The blocks, without weights; null with status 0 where none has two of the variables.
  BlkInfo* ExtBlkInfo(EModType type, EBlock block, char selector);
  // Null with status 0 when no observation selected has a class.
  ClaInfo* ExtClaInfo(EModType type, char selector);
  // The matrix, the preparation and all tables of the columns, of one selection.
  int ExtBlock(EModType type, EBlock block, char selector, StreamWindow& window,
               BlockExtract& extract);

 private:
  friend class Predset;
  friend class SetVectors;

  static constexpr char kNoClass = 0;
  static constexpr char kNoBlock = 0;

  struct Membership {
    bool is_in = true;
    char o_class = kNoClass;
  };
  struct Usage {
    EVarRole role = EVarRole::kX;
    char block = kNoBlock;
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
  SetVectors MakeVectors() const;
  // The status of a change, which changes nothing where it is not 0.
  template <typename Change>
  int Edit(Change change);

  // workset_added.cpp
  short GetFreeVNum() const;
  bool IsFactor(int j) const { return j >= 1 && j <= variables_->GetNVar() + lags_.GetNItm(); }
  template <typename Row>
  int Append(VariableTable<Row>& table, const Row& row, short source, int before);
  std::unordered_set<std::string> CollectNames() const;

  // workset_record.cpp
  bool HasDataOf(const WorksetRecord& record) const;

  // workset_preprocess.cpp
  int Freeze(short j);

  // workset_screening.cpp
  struct Excess;
  struct ScreenedBlock;
  int MakeScreenedBlocks(const XI1Vector& observations, std::vector<ScreenedBlock>& blocks) const;
  void ScreenVars(float limit, ScreenedBlock& block, Excess& excess) const;
  int FindExcess(const MissingLimits& limits, Excess& excess) const;

  // workset_extract.cpp
  struct Selection {
    EModType type;
    EBlock block;
    XI1Vector observations;
    // The positions of the variables; the numbers of the classes where the columns stand for these.
    std::vector<short> columns;

    bool IsOfClasses() const { return IsClassBlock(type, block); }
  };
  XI1Vector SelectObs(EModType type, char selector) const;
  std::vector<short> SelectVars(EModType type, EBlock block) const;
  std::vector<short> ClassesOf(const XI1Vector& observations) const;
  Selection Select(EModType type, EBlock block, char selector) const;
  static int Check(char selector, const Selection& selection);
  VarInfo MakeVarInfo(const Selection& selection) const;
  // Not of classes.
  NumberSet NumbersOf(const Selection& selection) const;
  ColumnPlan MakePlan(const TraInfo& transformations, const VarInfo& wanted) const;
  DataSource MakeSource(const XI1Vector& observations) const;
  // Hands over what `make`, given the selection, makes.
  template <typename Result, typename Make>
  Result* Ext(EModType type, EBlock block, char selector, Make make);
  // What is made of a selection; `variables` are those of its columns.
  std::unique_ptr<const ColumnPlan> MakePlan(const Selection& selection,
                                             const VarInfo& variables) const;
  int MakeMatrix(const Selection& selection, const VarInfo& variables, const ColumnPlan* plan,
                 StreamWindow& window, std::unique_ptr<XFMatrix>& matrix) const;
  int MakeMatrix(const Selection& selection, StreamWindow& window,
                 std::unique_ptr<XFMatrix>& matrix) const;
  std::unique_ptr<Preparation> MakePreparation(const Selection& selection,
                                               const std::shared_ptr<VarInfo>& variables,
                                               std::unique_ptr<const ColumnPlan> plan) const;
  int MakeScaInfo(const Selection& selection, const VarInfo& variables, const XFMatrix& matrix,
                  std::unique_ptr<ScaInfo>& table) const;
  template <typename Table>
  std::unique_ptr<Table> MakeRows(const Selection& selection, const Table& rows,
                                  Table* (Table::*extract)(const XI1Vector*) const) const;
  int MakeBlkInfo(const Selection& selection, std::unique_ptr<BlkInfo>& table) const;
  // A row for each element of `row_classes`.
  static int MakeClassMatrix(const std::vector<char>& row_classes, const VarInfo& classes,
                             std::unique_ptr<XFMatrix>& matrix);

  FixedText<24> name_;
  short number_ = 0;
  Dataset& dataset_;
  StreamWindow& window_;
  ObsInfo observations_{"ObsInfo"};
  std::vector<Membership> memberships_;
  // Those of the data set, never changed and shared with preparations; none until they are known.
  VarInfo no_variables_{"VarInfo"};
  std::shared_ptr<VarInfo> variables_{std::shared_ptr<VarInfo>(), &no_variables_};
  std::vector<Usage> usages_;
  std::array<BlkInfo::EBlkType, BlkInfo::kMaxBlock + 1> block_types_ = {};
  ScaInfo scalings_{"ScaInfo"};
  TraInfo transformations_{"TraInfo"};
  LagInfo lags_{"LagInfo"};
  ExpInfo terms_{"ExpInfo"};
  std::unordered_set<std::string> names_;  // of all variables; empty until they are asked for
  bool is_frozen_ = false;
  int status_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_WORKSET_H
