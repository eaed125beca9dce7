// What models of principal components and of partial least squares share.
#ifndef ZEMVA_MODEL_DRIVER_MODEL_H
#define ZEMVA_MODEL_DRIVER_MODEL_H

#include <array>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/object_base.h"
#include "zemva/data/object_header.h"
#include "zemva/data/obs_info.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/block/comp_info.h"
#include "zemva/model/block/model_log.h"
#include "zemva/model/block/model_owner.h"
#include "zemva/model/execution/distance_results.h"
#include "zemva/model/execution/distances.h"
#include "zemva/model/execution/predictions.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/settings/options/mod_opt.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva {

class DataBlock;
class ExpInfo;
class Leverage;
class ScaInfo;
class TraInfo;
class VarInfo;
struct Cap;
struct Gauge;
struct ModelRecord;
struct Validation;

// A model of the N observations and K X variables of a work set, which takes A components out of
// them, one after the other; models by partial least squares relate them to M responses, block Y.
// What is written to the window on the way is the log.
//
//   created -> loaded (LoadWS) -> centred (Center) -> components (CalcComp) -> executed (ExecLS)
//
// Compute does the first three, a component a call; its caller goes on while it returns 8012, and
// then calls ExecLS. Observations, variables and components count from 1; component 0 is the data
// centred and scaled, component -1 the data as loaded.
//
// What is done to X is done to Y, once for both; a kind of model says how a component is fitted,
// what its cross-validation leaves unpredicted, and what scores a row has.
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

  // --- Operations and statistics, in the order of the interface ---

  // Keep and drop the results of an execution on the work set (LS) and on a prediction set (PS).
  virtual int AddLSResults();
  virtual int AddPSResults();
  // Fits one further component; nothing, with status 0, where none is possible. 8013 for a
  // validation setting that there is not; 8029 for a component that the rules refuse, which is not
  // kept; 8042 (8043 in a cross-validation) for a variable without usable observation; 8005 where
  // values leave the range of a float; 8024 where what is left of X and Y has nothing in common.
  virtual int CalcComp();
  // Centres and scales. 8005 where values leave the range of a float; nothing changes then.
  virtual int Center();
  // Fits one further component, having loaded and centred the data if that is still to do. 8012
  // when another one is to be asked for: without the rules while there are fewer than asked for,
  // with them while components are significant.
  virtual int Compute();
  virtual int DeleteLSResults();
  virtual int DeletePSResults();
  // Makes the results of the components in use. Where `residuals` is not null it gets what they
  // leave of X, centred and scaled; it has N rows and K columns, else 8021.
  virtual int ExecLS(XFMatrix* residuals);
  // Makes the results of other observations: rows of `data`, which has a column for each X
  // variable, transformed, neither centred nor scaled. The byte of a row in `selection` is one of
  // those below, or 0 to leave it out. An observation that misses more values than the options
  // allow is left out too, as the log tells, unless the owner wants it. 8022 for null, 8021 when
  // the sizes do not fit together.
  virtual int ExecPS(ObsInfo* observations, XFMatrix* data, I1Vector* selection);
  // The components in use for the prediction set.
  virtual char GetASelPS() const;
  virtual float GetAvgX(char a, short k) const;
  virtual float GetAvgY(char a, short m) const;
  // The constant that goes with GetCoeff.
  virtual float GetB0(char a, short m) const;
  virtual BlkInfo* GetBIYPtr() const;
  // The coefficients of a components for the variables centred and scaled, K rows by M columns: a
  // new matrix, the caller's. Null where there are none.
  virtual FMatrix* GetBMat(char a) const;
  virtual float GetC(char a, short m) const;
  // The largest distances to the model at the level of significance, for observations that it was
  // not fitted to (Tr) and for those that it was (Te).
  virtual float GetDCritTeSLS() const;
  virtual float GetDCritTeSPS() const;
  virtual float GetDCritTrSLS() const;
  virtual float GetDCritTrSPS() const;
  // Degrees of freedom of the residuals.
  virtual float GetDFX(char a) const;
  virtual float GetDFY(char a) const;
  // The distance to the model: the residual standard deviation of an observation.
  virtual float GetDModXLS(char a, short i) const;
  virtual float GetDModXPS(char a, short i) const;
  virtual float GetDModYLS(char a, short i) const;
  virtual float GetDModYPS(char a, short i) const;
  virtual float GetEig(char a) const;
  // The contribution of variable k to the gap between the scores of observations i and j, where
  // j = 0 stands for the average: the difference of their values, centred and scaled, times the
  // loading (P. Miller, R. E. Swanson, C. F. Heckler, Contribution plots, Applied Mathematics and
  // Computer Science 8 (1998) 775-792); with responses times w*, of which t is made.
  virtual float GetGapCont(char a, short i, short j, short k) const;
  virtual LagInfo* GetLIYPtr() const;
  // The largest and the smallest value of a response, as loaded.
  virtual float GetMaxIY(short m) const;
  virtual float GetMinIY(short m) const;
  // Modelling power of a variable, 0 to 1.
  virtual float GetMPowX(char a, short k) const;
  virtual short GetNIter(char a) const;
  virtual short GetNObsPS() const;
  // How many predicted values of a response can be compared with observed ones in the prediction
  // set: of new observations, and of those that the model was fitted to.
  virtual short GetNPredErrTeS(short m) const;
  virtual short GetNPredErrTrS(short m) const;
  // The responses: those that are lagged, all, and those that are variables of the data set.
  virtual short GetNVarLagY() const;
  virtual short GetNVarY() const;
  virtual short GetNVarYDS() const;
  // The observations of the prediction set, and the position that each had in what was executed.
  virtual ObsInfo* GetObsInfoPS() const;
  virtual short GetObsIxPS(short i) const;
  // The leverage of an observation on components 1..a, by its scores t and by its scores u.
  virtual float GetOLevX(char a, short i) const;
  virtual float GetOLevY(char a, short i) const;
  virtual float GetP(char a, short k) const;
  // The probability that an observation belongs to the model.
  virtual float GetPModXLS(char a, short i) const;
  virtual float GetPModXPS(char a, short i) const;
  virtual float GetPModYLS(char a, short i) const;
  virtual float GetPModYPS(char a, short i) const;
  // The distances of the prediction set's observations; null before its execution.
  virtual const Results* GetPSResults() const;
  // What cross-validation predicts of Y or, without responses, of X: of a component (A),
  // cumulative, by variable (V).
  virtual float GetQ2AX(char a) const;
  virtual float GetQ2AY(char a) const;
  virtual float GetQ2VAX(char a, short k) const;
  virtual float GetQ2VAY(char a, short m) const;
  virtual float GetQ2VX(char a, short k) const;
  virtual float GetQ2VY(char a, short m) const;
  virtual float GetQ2X(char a) const;
  virtual float GetQ2Y(char a) const;
  virtual float GetR2AY(char a) const;
  virtual float GetR2AYadj(char a) const;
  virtual float GetR2VAY(char a, short m) const;
  virtual float GetR2VAYadj(char a, short m) const;
  virtual float GetR2VY(char a, short m) const;
  virtual float GetR2VYadj(char a, short m) const;
  virtual float GetR2Y(char a) const;
  virtual float GetR2Y() const { return GetR2Y(GetA()); }
  virtual float GetR2Yadj(char a) const;
  virtual float GetR2Yadj() const { return GetR2Yadj(GetA()); }
  virtual float GetS2OX(char a, short i) const;
  virtual float GetS2OY(char a, short i) const;
  // The mean square of a score vector.
  virtual float GetS2T(char a) const;
  virtual float GetS2U(char a) const;
  virtual float GetS2VX(char a, short k) const;
  virtual float GetS2VY(char a, short m) const;
  virtual float GetS2X(char a) const;
  virtual float GetS2Y(char a) const;
  // The limits between which an observed value of a response lies at the level of significance,
  // about the predicted one: s sqrt(1 + h) times Student's t, with s from the residuals and h the
  // leverage (see docs/numerics.md).
  virtual float GetSEYPredLLS(short i, short m) const;
  virtual float GetSEYPredLPS(short i, short m) const;
  virtual float GetSEYPredULS(short i, short m) const;
  virtual float GetSEYPredUPS(short i, short m) const;
  // What the components leave of an element of X, centred and scaled.
  virtual float GetXResLS(char a, short i, short k) const;
  virtual float GetXResPS(short i, short k) const;
  // Responses observed, predicted by the components in use, and observed less predicted, in their
  // own units; transformed ones stay so where the options do not want them back.
  virtual float GetYObsLS(short i, short m) const;
  virtual float GetYObsPS(short i, short m) const;
  virtual float GetYPredLS(short i, short m) const;
  virtual float GetYPredPS(short i, short m) const;
  virtual float GetYPredErrLS(short i, short m) const;
  virtual float GetYPredErrPS(short i, short m) const;
  // Takes the data out of the owner's work set and checks them; messages tell what is unusual. 8020
  // for fewer than 4 observations; 8039 for a variable with fewer than 4 values; 8038 for an
  // undefined weight; 8028 for a response that does not vary; 8040 for other data than those that
  // there are components of. A failure changes nothing.
  virtual int LoadWS();
  // Makes what components 1..a leave of X, centred and scaled: a new matrix, the caller's. Null,
  // with the status, when it cannot.
  virtual XFMatrix* MakeResid(char a);
  // Drops the components after a, with them the results of executions, and a failure. 8021 for a
  // negative a.
  virtual int Reset(short a);
  // Lists the response surface, for models that have one; 8045 for others.
  virtual int RSEqn(StreamWindow& window);
  // List the model in a table, its centring, component a, the results of its execution, and what
  // it was made of. They return 0.
  virtual int Show(StreamWindow& window);
  virtual int ShowCent(StreamWindow& window);
  virtual int ShowComp(char a, StreamWindow& window);
  virtual int ShowInit(StreamWindow& window);
  virtual int ShowRes(StreamWindow& window);
  // Frees the loaded data and tables; components and results stay.
  virtual int Unload();
  // All listings but the table.
  virtual int ShowAll(StreamWindow& window);

  // LoadWS, unless the data are loaded.
  int Load() { return IsLoaded() ? status::kOk : LoadWS(); }

  // --- Execution ---

  // On the work set with `a` components, 0 for all; on the owner's prediction set with as many as
  // the options say. 8003 for components that there are not; 8030 without a prediction set.
  int ExecLS(char a);
  int ExecPS();
  // On a prediction set of its work set or, where the model was read from a file, of the variables
  // of GetVarInfoDS.
  int ExecPS(Predset& predset);

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

  // --- Of the work set; distances and T2 need no execution ---

  // Hotelling's T2 of an observation: the sum of t^2 / S2t over components 1..a, or first..last.
  virtual float GetT2LS(char a, short i) const;
  virtual float GetT2RangeLS(char first, char last, short i) const;
  // The largest T2 over components 1..a, for the upper-tail probability `p`: a (N - 1) / (N - a) F
  // with F of a and N - a degrees of freedom. Over two components it is the border of the ellipse.
  float GetT2Limit(char a, float p) const;
  // The half-axis of the confidence ellipse in a plot of two score vectors, for the upper-tail
  // probability `p`: sqrt(S2t 2 F (N - 1) / (N - 2)) with F of 2 and N - 2 degrees of freedom.
  virtual float GetTCritAxisLen(char a, float p) const;
  // Whether distances are divided by the standard deviation of all residuals, and whether residuals
  // are weighted by modelling power.
  virtual bool IsNormDistLS() const { return GetOptions().GetIsNormDistLS(); }
  virtual bool IsWResLS() const { return GetOptions().GetIsWResLS(); }

  // --- Of the prediction set; missing for another number of components than was executed ---

  // Whether the model was fitted to the observation; false for a bad position.
  virtual bool IsMembPS(short i) const;
  virtual float GetTPredPS(char a, short i) const;
  virtual float GetT2PS(char a, short i) const;
  virtual float GetT2RangePS(char first, char last, short i) const;
  virtual bool IsNormDistPS() const { return GetOptions().GetIsNormDistPS(); }
  virtual bool IsWResPS() const { return GetOptions().GetIsWResPS(); }

  // --- Of models with responses ---

  float GetSSY(char a) const;
  float GetSSVY(char a, short m) const;
  float GetSSOY(char a, short i) const;
  float GetU(char a, short i) const;
  float GetW(char a, short k) const;
  float GetWStar(char a, short k) const;
  // The influence of an X variable on the responses in components 1..a; the squares add up to K.
  float GetVIP(char a, short k) const;
  // The coefficients of a components, Y = X B: for variables centred and scaled, and for values as
  // loaded, to which GetB0 is to be added.
  float GetCoeffCS(char a, short k, short m) const;
  float GetCoeff(char a, short k, short m) const;
  // sqrt(sum of squared errors / (n - A0 - a)) of the work set for the components in use, in the
  // units of GetYPredLS.
  float GetRMSEE(short m) const;
  // The errors of the prediction set; null before its execution and without responses.
  const PredictionErrors* GetPredictionErrorsPS() const;

  // --- Vectors (model_vector_access.cpp) ---
  //
  // These leave the status alone.

  // Every number above is an element of a vector. A new vector, the caller's; null with a code of
  // VecSpec; 8009 for what needs data that are not loaded, 8036 for what needs an execution that
  // was not done or whose results were deleted, 8056 for residuals of a response in a prediction
  // set before its last component.
  int GetXFVector(const VecSpec* spec, XFVector*& vector) const;
  // The names, or the numbers as texts, of what the elements of that vector are.
  int GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number) const;
  // The components at which there are vectors of a type; the last is below the first where it has
  // nothing to do with components. The codes of GetXFVector.
  int GetVecCompRange(CEVecType::EVT type, char& first, char& last) const;
  // The indices: of what there is a vector for each of, else of the elements.
  int GetVecIxRange(CEVecType::EVT type, short& first, short& last) const;
  // The names of the types of vectors that there are now, by what their elements are: observations,
  // variables, components, lags, and the observations of the prediction set. A new vector, the
  // caller's, null when memory runs out.
  XSVector* GetObsVecNames() const;
  XSVector* GetVarVecNames() const;
  XSVector* GetCompVecNames() const;
  XSVector* GetLagVecNames() const;
  XSVector* GetTSVecNames() const;
  // Contributions, an element an X variable: GetGapCont, and the same to the gap between predicted
  // values of response m, centred and scaled, where coefficients take the place of weights. A new
  // vector, the caller's; 8022, 8021 and 8003 for what there is not, 8009 without data, 8016
  // without responses.
  int GetGapContVector(char a, short i, short j, XFVector*& vector) const;
  int GetGapContVectorY(char a, short m, short i, short j, XFVector*& vector) const;

  // --- What the model is made of ---

  short GetNObs() const;
  short GetNVarX() const;
  // The X variables whose weight is not 0.
  short GetNVarXUsed() const;
  char GetA() const { return static_cast<char>(GetComponentCount()); }
  char GetA0() const { return static_cast<char>(a0_); }
  float GetWeigX(short k) const;
  float GetWeigY(short m) const;
  // The model's own; null while nothing is loaded.
  ObsInfo* GetObsInfo() const { return observations_.get(); }
  ClaInfo* GetClaInfo() const { return classes_.get(); }
  VarInfo* GetVarInfoX() const;
  ScaInfo* GetScaInfoX() const;
  // All variables of the data set that the model is made of.
  VarInfo* GetVarInfoDS() const;
  // Null also where there is nothing of the kind.
  TraInfo* GetTraInfoX() const;
  ExpInfo* GetExpInfoX() const;
  LagInfo* GetLagInfoX() const;
  BlkInfo* GetBIXPtr() const;
  const XFMatrix* GetXPtr() const;
  // Whether the model has responses, and their tables, which are null without.
  bool HasY() const { return y_ != nullptr; }
  VarInfo* GetVarInfoY() const;
  ScaInfo* GetScaInfoY() const;
  TraInfo* GetTraInfoY() const;
  ExpInfo* GetExpInfoY() const;
  const XFMatrix* GetYPtr() const;
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
  // Of the data set that the model was loaded from last; empty before.
  const char* GetDSNam() const { return dataset_name_.Get(); }
  const char* GetModAddr() const { return header_.address.Get(); }
  // One of more than 260 characters is none.
  void SetModAddr(const char* address);

  // Whether anything was written to the log since the last ClearIsLogWritten.
  bool IsLogWritten() const { return log_.IsWritten(); }
  void ClearIsLogWritten() { log_.ClearIsWritten(); }
  // Whether a correction for missing values was cut to its limit.
  bool IsOverrun() const { return is_overrun_; }
  int GetStatus() const { return status_; }
  // Whether the status is that of a failure, which stands against all operations.
  bool HasFailed() const;

  // --- On disk; these leave the status alone ---

  // Gives the model a number and writes it, without the data that it is of, to a model file at its
  // address, which is made or replaced whole. "Could not save model" in the log, and the code, when
  // that fails: 2011 while the model has only the address it began with; 8019 for more than 99
  // components; the code of Read where there is something else than a model file at the address;
  // 2001 for a file over 2 GiB; 2002 and 2006 when it cannot be written.
  int Save(short number);
  // The model that a file holds: a new one, the caller's. Owner and options belong to the caller
  // and outlive it, where they are not null: the options become those that the model had, which it
  // keeps itself else; without owner it has no data to load. It answers as the saved one did, but
  // for what needs X, which LoadWS takes from the owner's work set again, and for a prediction set,
  // of which the file keeps no results. Null, with `status`, where there is no such file (2004), no
  // model in it (2000), one of a later version (2017), or one that is damaged (2005).
  static Model* Read(const char* path, ModelOwner* owner, StreamWindow& window, ModOpt* options,
                     int& status);
  // All of the model but its data, as its file keeps it; and taking over such a record, which is
  // that of a model of its kind, into a model that holds nothing yet. They throw std::bad_alloc.
  ModelRecord MakeRecord() const;
  void TakeRecord(ModelRecord record);
  // Writes the results of the execution to a file. 8022 for null, 1006 when that fails.
  int SaveRes(const char* path);
  // Removes the file that Save wrote last or that the model was read from, if there is one. 1007
  // when it cannot be removed.
  int DeleteFiles();

 protected:
  Model(const Model& other);
  // Gives the model its block Y; for constructors.
  void AddResponses();

  // --- What a kind of model says ---

  struct Rules {
    // X variables that take part; there are no more components than these.
    int variable_count;
    bool has_eigenvalue_rule;
    // Of how many variables Q2 must exceed its limit by rule 2.
    int required_count;
    // What rule 4 wants explained of some variable.
    double least_share;
  };
  virtual Rules GetRules() const = 0;
  // Fits the component to the residuals: scores, loadings and the count of iterations.
  virtual int Fit(CompInfo& component) = 0;
  // Adds the squares of what cross-validation leaves unpredicted to `errors`, an element for each
  // variable of Y or, without responses, of X. The component is fitted and not yet taken off.
  virtual int AddPredictionErrors(const CompInfo& component, std::span<double> errors) = 0;
  // Completes the last component, which is taken off and was judged.
  virtual int Complete(CompInfo& component);
  // Sets the scores of an observation, given its values centred and scaled, and its position for
  // reports; to missing where the present ones do not determine them.
  virtual int Project(const XFVector& values, int number, FVector& scores) = 0;

  // --- For the kinds ---

  // Component a, 1..A, null for any other.
  const CompInfo* GetComponent(int a) const;
  int GetComponentCount() const { return static_cast<int>(components_.size()); }
  // Runs an operation unless a failure stands, and keeps its status.
  template <typename Operation>
  int Run(Operation operation) {
    if (HasFailed()) return status_;
    status_ = MemoryGuarded(operation);
    if (status_ == status::mva::kComponentAborted) is_search_over_ = true;
    return status_;
  }
  int SetStatus(int status) { return status_ = status; }

  // How far a correction for missing values may go for a loading.
  float GetLoadingLimit() const { return options_->comp_lim_loa_; }
  // A cap whose overruns are told as `text`, the number and the factor.
  Cap MakeCap(double limit, bool is_reported, const char* text);
  // Asks the owner whether the fit goes on, in round `round` of cross-validation, or 0.
  std::function<bool(int)> AskBefore(int round);
  DataBlock& GetX() { return *x_; }
  const DataBlock& GetX() const { return *x_; }
  // Null without responses.
  const DataBlock* GetY() const { return y_.get(); }
  // What cross-validation predicts.
  const DataBlock& GetTarget() const { return y_ ? *y_ : *x_; }
  // Null where there is no such stage, or no such block.
  const Stage* GetStage(EBlock block, int a) const;
  ModelOwner& GetOwner() const { return *owner_; }
  ModOpt& GetOptions() const { return *options_; }
  ModelLog& GetLog() { return log_; }
  void SetIsOverrun() { is_overrun_ = true; }

 private:
  friend class ModelVectors;

  // --- Loading (model.cpp) ---

  int Check(DataBlock& block, const ObsInfo& observations);
  // The tables of the rows, which the blocks share.
  struct RowTables {
    std::unique_ptr<ObsInfo> observations;
    std::unique_ptr<ClaInfo> classes;
  };
  // Unless they are there.
  int ExtractRowTables(Workset& workset, RowTables& rows) const;
  // The blocks that the model has, X first; to be had without memory.
  struct Blocks {
    std::array<DataBlock*, 2> blocks;
    std::ptrdiff_t count;

    auto begin() const { return blocks.begin(); }
    auto end() const { return blocks.begin() + count; }
  };
  Blocks GetBlocks() const { return {{x_.get(), y_.get()}, HasY() ? 2 : 1}; }
  int Store();
  int WriteListing(const char* path, int (Model::*list)(StreamWindow&));
  // For a model that has dropped components.
  int ClearStatus() {
    is_search_over_ = false;
    return status_ = status::kOk;
  }

  // --- The loop over components (model_fit.cpp) ---

  int FitComponent();
  int CrossValidate(CompInfo& component);
  // Takes the component over and off the residuals, and measures and judges it. It is dropped again
  // where that fails.
  int AddComp(std::shared_ptr<CompInfo> component, const Validation& validation);
  // Drops the components after a.
  void DropAfter(int a);
  // Takes all components off the residuals of a block, which are those of component 0.
  void TakeOffComponents(DataBlock& block) const;
  void Measure(CompInfo& component);
  void MeasureWeighted(CompInfo& component);
  // On the scores of components 1..a.
  Leverage MakeLeverage(int a, XFVector CompInfo::*scores) const;
  void ReportExplained(const char* text, const Stage& after, const Stage& initial);
  // 8029 for a verdict against the component that ends the search.
  int Judge(const Validation& validation, const Rules& rules, CompInfo& component);

  // --- Statistics (model_statistics.cpp) ---

  float GetExplained(EBlock block, float Stage::*sum, int from, int to) const;
  float GetExplained(EBlock block, XFVector Stage::*sums, short k, int from, int to) const;

  // --- Execution (model_execution.cpp, model_prediction.cpp, model_responses.cpp) ---

  // What the options say of distances, on the work set and on a prediction set.
  struct Measurement {
    bool is_weighted;
    bool is_normalised;
  };
  Measurement GetMeasurementLS() const { return {IsWResLS(), IsNormDistLS()}; }
  Measurement GetMeasurementPS() const { return {IsWResPS(), IsNormDistPS()}; }
  // The components in use: `asked`, or all where that is 0 or too many.
  int GetUsed(short asked) const;
  BlockSize GetSize(EBlock block, int a) const;
  // For stages 0..A. Residuals of Y are not weighted.
  Gauge MakeGauge(EBlock block, int a, Measurement measurement) const;
  // The residual variance of an observation of the work set; missing where it is not defined.
  double GetVarianceLS(EBlock block, const Gauge& gauge, int a, int i) const;
  float GetDistanceLS(EBlock block, int a, int i) const;
  float GetProbabilityLS(EBlock block, int a, int i) const;
  // 8004 where there is no critical value.
  int SetLimits(const Gauge& gauge, float level, DistanceLimits& limits);
  // The gap between the values of observations i and j, centred and scaled; j = 0 is the average.
  float GetGap(short i, short j, short k) const;
  template <typename Gain>
  int MakeGapVector(const std::string& name, short i, short j, Gain gain, XFVector*& vector) const;
  // What components 1..a leave of an element, centred and scaled, of a block that is.
  float GetResidualLS(EBlock block, int a, short i, short k) const;
  template <typename Score>
  float SumT2(char first, char last, Score score) const;

  int ExecuteRows(const ObsInfo& observations, const XFMatrix& data, const XFMatrix* observed,
                  const I1Vector& selection);
  // Reports an observation with too many missing values, and asks.
  bool IsExcluded(const ObsInfo& observations, const XFMatrix& data, short i);
  // Sets scores, residuals and distances of observation `to` of the results.
  int Predict(std::span<const float> row, short to);
  std::vector<float> TakeOffScores(const XFVector& values, const FVector& scores) const;
  void SetDistance(std::span<const float> row, std::span<const float> residuals, short to);
  const Predictions* GetPredictions(char a) const;
  bool IsInClassPS(short i) const;

  // A predicted response of so many scores, centred and scaled.
  template <typename Score>
  double PredictResponse(int a, short m, Score score) const;
  // In the units of GetYPredLS.
  float RestoreResponse(double scaled, short m, bool is_back_transformed) const;
  float BackTransform(float value, short m, bool is_back_transformed) const;
  // Half of the width between the limits of an observed value, centred and scaled.
  double GetHalfWidth(int a, short m, double leverage, float level) const;
  double GetPredictionLS(short i, short m) const;
  float GetLimitLS(short i, short m, double side) const;
  void PredictResponses(const XFMatrix* observed, const Leverage& leverage, short to);
  void SetDistanceY(std::span<const double> residuals, short to);
  void FinishResponses();
  // Of responses first..last.
  // Of as many responses as there is room for, from `first` on.
  void SetErrorsLS(short first, PredictionErrors& errors) const;

  // --- Listings (model_listing.cpp, model_listing_results.cpp) ---

  void ShowCentre(const DataBlock& block, StreamWindow& window) const;
  void ShowCoefficients(char a, StreamWindow& window) const;
  void ShowErrors(const PredictionErrors& errors, StreamWindow& window) const;

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
  std::unique_ptr<DataBlock> y_;
  // Copies of a model share them: once added, a component stays what it is.
  std::vector<std::shared_ptr<CompInfo>> components_;
  std::shared_ptr<Results> workset_results_;
  std::shared_ptr<Predictions> predictions_;
  int a0_ = 0;
  ModelLog log_;
  bool is_overrun_ = false;
  bool is_search_over_ = false;
  std::chrono::steady_clock::time_point asked_;  // when the owner was asked last
  int status_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_MODEL_H
