// What models of principal components and of partial least squares share.
#ifndef ZEMVA_MODEL_DRIVER_MODEL_H
#define ZEMVA_MODEL_DRIVER_MODEL_H

#include <memory>

#include "zemva/base/export.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/data/object_base.h"
#include "zemva/data/object_header.h"
#include "zemva/data/obs_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/driver/comp_info.h"
#include "zemva/model/driver/distance_results.h"
#include "zemva/model/driver/model_log.h"
#include "zemva/model/driver/model_owner.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

class DataBlock;
class ExpInfo;
class ScaInfo;
class TraInfo;
class VarInfo;
struct ModelSize;

// A model of the N observations and K X variables of a work set, which takes A components out of
// them, one after the other. What is written to the window on the way is the log.
//
//   created -> loaded (LoadWS) -> centred (Center) -> components (CalcComp) -> executed (ExecLS)
//
// Compute does the first three, a component a call; its caller goes on while it returns 8012, and
// then calls ExecLS. Observations, variables and components count from 1; component 0 is the data
// centred and scaled, component -1 the data as loaded.
//
// Every operation returns a status code and keeps it for GetStatus. While that is a failure all
// others return it at once, until Reset; 8012 and 8029 are none. 8002 when memory runs out, 8011
// without a work set, 8010 where there are no components yet, 8009 for what needs data that are
// not loaded. A failed operation leaves the components that there are. Once the rules have refused
// a component, with 8029, there is no further one until Reset.
//
// Functions that return a value return the missing value where there is no such component,
// observation or variable, and what a model of the kind does not have: 0 for a count and for a
// statistic of Y by component, null for a table, the missing value for the rest.
class ZEMVA_API Model : public ConstructDestructMessage {
 public:
  // What an observation to be executed is to the model: none of those that it was fitted to, or
  // one.
  static constexpr char kNewRow = 1;
  static constexpr char kMemberRow = 2;

  // Name "UnNamed", title "Untitled", address "NoAddress". The owner and the options belong to the
  // caller and outlive the model; the selector is the class of a kPC1Cl model, else 0. Status 8022
  // when the owner or the options are null. Throws std::bad_alloc.
  Model(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options, char selector);
  Model& operator=(const Model&) = delete;
  ~Model() override;

  // --- What the kinds do differently, and the statistics, in the order of the interface ---

  // Keep and drop the results of an execution on the work set (LS) and on a prediction set (PS).
  virtual int AddLSResults() = 0;
  virtual int AddPSResults() = 0;
  // Fits one further component; nothing, with status 0, where none is possible. 8013 for a
  // validation setting that there is not; 8029 for a component that the rules refuse, which is not
  // kept; 8042 (8043 in a cross-validation) for a variable without usable observation; 8005 where
  // values leave the range of a float.
  virtual int CalcComp() = 0;
  // Centres and scales. 8005 where values leave the range of a float.
  virtual int Center();
  // Fits one further component, having loaded and centred the data if that is still to do. 8012
  // when another one is to be asked for: without the rules while there are fewer than asked for,
  // with them while components are significant.
  virtual int Compute();
  virtual int DeleteLSResults() = 0;
  virtual int DeletePSResults() = 0;
  // Makes the results of the components in use. Where `residuals` is not null it gets what they
  // leave of X, centred and scaled; it has N rows and K columns, else 8021.
  virtual int ExecLS(XFMatrix* residuals) = 0;
  // Makes the results of other observations: rows of `data`, which has a column for each X
  // variable, transformed, neither centred nor scaled. The byte of a row in `selection` is one of
  // those below, or 0 to leave it out. An observation that misses more values than the options
  // allow is left out too, as the log tells, unless the owner wants it. 8022 for null, 8021 when
  // the sizes do not fit together.
  virtual int ExecPS(ObsInfo* observations, XFMatrix* data, I1Vector* selection) = 0;
  // The components in use for the prediction set.
  virtual char GetASelPS() const = 0;
  virtual float GetAvgX(char a, short k) const;
  virtual float GetAvgY(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetB0(char /*a*/, short /*m*/) const { return kMissing; }
  virtual BlkInfo* GetBIYPtr() const { return nullptr; }
  virtual FMatrix* GetBMat(char /*a*/) const { return nullptr; }
  virtual float GetC(char /*a*/, short /*m*/) const { return kMissing; }
  // The largest distances to the model at the level of significance, for observations that it was
  // not fitted to (Tr) and for those that it was (Te).
  virtual float GetDCritTeSLS() const = 0;
  virtual float GetDCritTeSPS() const = 0;
  virtual float GetDCritTrSLS() const = 0;
  virtual float GetDCritTrSPS() const = 0;
  // Degrees of freedom of the residuals.
  virtual float GetDFX(char a) const;
  virtual float GetDFY(char /*a*/) const { return 0.0f; }
  // The distance to the model: the residual standard deviation of an observation.
  virtual float GetDModXLS(char a, short i) const = 0;
  virtual float GetDModXPS(char a, short i) const = 0;
  virtual float GetDModYLS(char /*a*/, short /*i*/) const { return kMissing; }
  virtual float GetDModYPS(char /*a*/, short /*i*/) const { return kMissing; }
  virtual float GetEig(char a) const;
  // The contribution of variable k to the gap between the scores of observations i and j, where
  // j = 0 stands for the average: the difference of their values, centred and scaled, times the
  // loading (P. Miller, R. E. Swanson, C. F. Heckler, Contribution plots, Applied Mathematics and
  // Computer Science 8 (1998) 775-792).
  virtual float GetGapCont(char a, short i, short j, short k) const = 0;
  virtual LagInfo* GetLIYPtr() const { return nullptr; }
  virtual float GetMaxIY(short /*m*/) const { return kMissing; }
  virtual float GetMinIY(short /*m*/) const { return kMissing; }
  // Modelling power of a variable, 0 to 1.
  virtual float GetMPowX(char a, short k) const;
  virtual short GetNIter(char a) const;
  virtual short GetNObsPS() const = 0;
  virtual short GetNPredErrTeS(short /*m*/) const { return 0; }
  virtual short GetNPredErrTrS(short /*m*/) const { return 0; }
  virtual short GetNVarLagY() const { return 0; }
  virtual short GetNVarY() const { return 0; }
  virtual short GetNVarYDS() const { return 0; }
  // The observations of the prediction set, and the position that each had in what was executed.
  virtual ObsInfo* GetObsInfoPS() const = 0;
  virtual short GetObsIxPS(short i) const = 0;
  // The leverage of an observation on components 1..a.
  virtual float GetOLevX(char a, short i) const;
  virtual float GetOLevY(char /*a*/, short /*i*/) const { return kMissing; }
  virtual float GetP(char a, short k) const;
  // The probability that an observation belongs to the model.
  virtual float GetPModXLS(char a, short i) const = 0;
  virtual float GetPModXPS(char a, short i) const = 0;
  virtual float GetPModYLS(char /*a*/, short /*i*/) const { return kMissing; }
  virtual float GetPModYPS(char /*a*/, short /*i*/) const { return kMissing; }
  // The distances of the prediction set's observations; null before its execution.
  virtual const DistanceResults* GetPSResults() const = 0;
  // What cross-validation predicts: of a component (A), cumulative, by variable (V).
  virtual float GetQ2AX(char /*a*/) const { return 0.0f; }
  virtual float GetQ2AY(char /*a*/) const { return 0.0f; }
  virtual float GetQ2VAX(char /*a*/, short /*k*/) const { return kMissing; }
  virtual float GetQ2VAY(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetQ2VX(char /*a*/, short /*k*/) const { return kMissing; }
  virtual float GetQ2VY(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetQ2X(char /*a*/) const { return 0.0f; }
  virtual float GetQ2Y(char /*a*/) const { return 0.0f; }
  virtual float GetR2AY(char /*a*/) const { return 0.0f; }
  virtual float GetR2AYadj(char /*a*/) const { return 0.0f; }
  virtual float GetR2VAY(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetR2VAYadj(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetR2VY(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetR2VYadj(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetR2Y(char /*a*/) const { return 0.0f; }
  virtual float GetR2Y() const { return 0.0f; }
  virtual float GetR2Yadj(char /*a*/) const { return 0.0f; }
  virtual float GetR2Yadj() const { return 0.0f; }
  virtual float GetS2OX(char a, short i) const;
  virtual float GetS2OY(char /*a*/, short /*i*/) const { return kMissing; }
  // The mean square of a score vector.
  virtual float GetS2T(char a) const;
  virtual float GetS2U(char /*a*/) const { return 0.0f; }
  virtual float GetS2VX(char a, short k) const;
  virtual float GetS2VY(char /*a*/, short /*m*/) const { return kMissing; }
  virtual float GetS2X(char a) const;
  virtual float GetS2Y(char /*a*/) const { return 0.0f; }
  virtual float GetSEYPredLLS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetSEYPredLPS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetSEYPredULS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetSEYPredUPS(short /*i*/, short /*m*/) const { return kMissing; }
  // What the components leave of an element of X, centred and scaled.
  virtual float GetXResLS(char a, short i, short k) const = 0;
  virtual float GetXResPS(short i, short k) const = 0;
  virtual float GetYObsLS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetYObsPS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetYPredLS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetYPredPS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetYPredErrLS(short /*i*/, short /*m*/) const { return kMissing; }
  virtual float GetYPredErrPS(short /*i*/, short /*m*/) const { return kMissing; }
  // Takes the X data out of the owner's work set and checks them; messages tell what is unusual.
  // 8020 for fewer than 4 observations; 8039 for a variable with fewer than 4 values; 8038 for an
  // undefined weight; 8040 for other data than those that there are components of. A failure
  // changes nothing.
  virtual int LoadWS();
  // Makes what components 1..a leave of X, centred and scaled: a new matrix, the caller's. Null,
  // with the status, when it cannot.
  virtual XFMatrix* MakeResid(char a) = 0;
  // Drops the components after a, and a failure. 8021 for a negative a.
  virtual int Reset(short a) = 0;
  // Lists the response surface, for models that have one; 8045 for others.
  virtual int RSEqn(StreamWindow& window);
  // List the model in a table, its centring, component a, the results of its execution, and what
  // it was made of. They return 0.
  virtual int Show(StreamWindow& window) = 0;
  virtual int ShowCent(StreamWindow& window);
  virtual int ShowComp(char a, StreamWindow& window) = 0;
  virtual int ShowInit(StreamWindow& window);
  virtual int ShowRes(StreamWindow& window) = 0;
  // Frees the loaded data and tables; components and results stay.
  virtual int Unload();
  // All listings but the table.
  virtual int ShowAll(StreamWindow& window) = 0;

  // LoadWS, unless the data are loaded.
  int Load() { return IsLoaded() ? status::kOk : LoadWS(); }

  // --- Execution ---

  // On the work set with `a` components, 0 for all; on the owner's prediction set with as many as
  // the options say. 8003 for components that there are not; 8030 without a prediction set.
  int ExecLS(char a);
  int ExecPS();

  // --- Statistics of all models ---

  // What component a must predict more of than this to be significant; missing for a < 1. For PC
  // models it is what one would of noise, by degrees of freedom: with the Keff variables whose
  // weight is not 0, b = a - 1 and f = (Keff - b) (N - A0 - b), 1 - f / ((Keff - b + 1) (N - b)),
  // or 1 where f is not above 0. For PLS models it is 0.0975, or -0.2 when X was set by a design.
  float GetQ2Limit(char a) const;
  // Explained variation of X: cumulative, or of one component ("A"); of all of X, or of a variable
  // ("V"); raw, 1 - SS(a) / SS(0), or adjusted for degrees of freedom ("adj"), 1 - S2(a) / S2(0).
  // Missing also where there was no variation.
  float GetR2X(char a) const;
  float GetR2Xadj(char a) const;
  float GetR2AX(char a) const;
  float GetR2AXadj(char a) const;
  float GetR2VX(char a, short k) const;
  float GetR2VXadj(char a, short k) const;
  float GetR2VAX(char a, short k) const;
  float GetR2VAXadj(char a, short k) const;
  virtual float GetSSX(char a) const;
  virtual float GetSSVX(char a, short k) const;
  virtual float GetSSOX(char a, short i) const;
  virtual float GetT(char a, short i) const;
  float GetS2WX(char a) const;
  // The smallest and the largest score.
  float GetTMin(char a) const;
  float GetTMax(char a) const;
  // The verdict on a component: "R1" and "R2" for significant by rule 1 and 2; "N3" to "N6" for not
  // significant by rule 3 to 5 and by the eigenvalue; "" for none.
  virtual const char* GetSignRule(char a) const;
  EVerdict GetVerdict(char a) const;

  // --- What the model is made of ---

  short GetNObs() const;
  short GetNVarX() const;
  // The X variables whose weight is not 0.
  short GetNVarXUsed() const;
  char GetA() const { return static_cast<char>(GetComponentCount()); }
  char GetA0() const { return static_cast<char>(a0_); }
  float GetWeigX(short k) const;
  // The model's own; null while nothing is loaded.
  ObsInfo* GetObsInfo() const { return observations_.get(); }
  ClaInfo* GetClaInfo() const { return classes_.get(); }
  VarInfo* GetVarInfoX() const;
  ScaInfo* GetScaInfoX() const;
  // Null also where there is nothing of the kind.
  TraInfo* GetTraInfoX() const;
  ExpInfo* GetExpInfoX() const;
  LagInfo* GetLagInfoX() const;
  BlkInfo* GetBIXPtr() const;
  const XFMatrix* GetXPtr() const;
  bool IsLoaded() const;

  EModType GetModType() const { return type_; }
  ModOpt* GetModOpt() const { return options_; }
  // 0 until the owner or Save sets it.
  short GetModNum() const { return header_.number; }
  void SetModNum(short number) { header_.number = number; }
  const char* GetModNam() const { return header_.name.Get(); }
  void SetModNam(const char* name) { header_.name.Set(name); }
  const char* GetModTitle() const { return header_.title.Get(); }
  void SetModTitle(const char* title) { header_.title.Set(title); }
  const char* GetModAddr() const { return header_.address.Get(); }
  void SetModAddr(const char* address) { header_.address.Set(address); }

  // Whether anything was written to the log since the last ClearIsLogWritten.
  bool IsLogWritten() const { return log_.IsWritten(); }
  void ClearIsLogWritten() { log_.ClearIsWritten(); }
  // Whether a correction for missing values was cut to its limit.
  bool IsOverrun() const { return is_overrun_; }
  int GetStatus() const { return status_; }

  // --- Listings on disk ---

  // These leave the status alone.
  //
  // Gives the model a number and writes all its listings to its address. 1006, and "Could not save
  // model" in the log, when that fails; 2011 likewise while it has only the address it began with.
  int Save(short number);
  // Writes the results of the execution to a file. 8022 for null, 1006 when that fails.
  int SaveRes(const char* path);
  // Removes the file that Save wrote last, if there is one. 1007 when it cannot be removed.
  int DeleteFiles();

 protected:
  Model(const Model& other);

  // Component a, 1..A, null for any other.
  virtual const CompInfo* GetComponent(int a) const = 0;
  virtual int GetComponentCount() const = 0;
  // Runs an operation unless a failure stands, and keeps its status.
  template <typename Operation>
  int Run(Operation operation) {
    if (HasFailed()) return status_;
    status_ = MemoryGuarded(operation);
    if (status_ == status::mva::kComponentAborted) is_search_over_ = true;
    return status_;
  }
  bool HasFailed() const;
  // Whether the rules have refused a component.
  bool IsSearchOver() const { return is_search_over_; }
  // For a model that has dropped components.
  int ClearStatus() {
    is_search_over_ = false;
    return status_ = status::kOk;
  }
  int SetStatus(int status) { return status_ = status; }

  // How far a correction for missing values may go for a loading.
  float GetLoadingLimit() const { return options_->comp_lim_loa_; }
  DataBlock& GetX() { return *x_; }
  const DataBlock& GetX() const { return *x_; }
  // Null where there is no such stage.
  const Stage* GetStageX(int a) const;
  ModelSize GetSize(int a) const;
  ModelOwner& GetOwner() const { return *owner_; }
  ModOpt& GetOptions() const { return *options_; }
  ModelLog& GetLog() { return log_; }
  void SetIsOverrun() { is_overrun_ = true; }
  // The components in use: `asked`, or all where that is 0 or too many.
  int GetUsed(short asked) const;

 private:
  int CheckX(DataBlock& block, const ObsInfo& observations);
  int WriteListing(const char* path, int (Model::*list)(StreamWindow&));

  ModelOwner* owner_;  // nobody where none was given
  EModType type_;
  ObjectHeader header_;
  FixedText<24> dataset_name_;
  FixedText<260> saved_address_;
  ModOpt own_options_;  // where none were given
  ModOpt* options_;
  char selector_;
  std::shared_ptr<ObsInfo> observations_;
  std::shared_ptr<ClaInfo> classes_;
  std::unique_ptr<DataBlock> x_;
  int a0_ = 0;
  ModelLog log_;
  bool is_overrun_ = false;
  bool is_search_over_ = false;
  int status_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_MODEL_H
