// Models of principal components.
#ifndef ZEMVA_MODEL_PC_PC_MODEL_H
#define ZEMVA_MODEL_PC_PC_MODEL_H

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/data/obs_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/driver/cent_info.h"
#include "zemva/model/driver/comp_info.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/pc/pc_results.h"
#include "zemva/numeric/f_matrix.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

class LeftOut;
struct Validation;

// The records of centring and of a component are those of every model.
using PCCentInfo = CentInfo;
using PCCompInfo = CompInfo;

// X = 1 reference' + (T P' + E) / weights: the N by K matrix X of a work set, centred and scaled,
// is the product of the scores T, N by A, and the loadings P, K by A with columns of length 1, and
// the residuals E. Each component is fitted by the NIPALS iteration to what the ones before it
// left. (H. Wold, Estimation of principal components and related models by iterative least squares,
// 1966; S. Wold, K. Esbensen, P. Geladi, Principal component analysis, Chemometrics and Intelligent
// Laboratory Systems 2 (1987) 37-52.)
//
// Without missing values the loadings are orthonormal and the scores orthogonal.
class ZEMVA_API PCModel : public Model {
 public:
  PCModel(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options, char selector);
  // With the same owner and options. Throws std::bad_alloc.
  PCModel(const PCModel& other);
  ~PCModel() override;

  static const ClassID& GetClassID();
  bool IsClass(int id) const override { return id == GetClassID().GetID(); }

  using Model::ExecLS;
  using Model::ExecPS;

  int AddLSResults() override;
  int AddPSResults() override;
  int CalcComp() override;
  int Center() override;
  int DeleteLSResults() override;
  int DeletePSResults() override;
  int ExecLS(XFMatrix* residuals) override;
  int ExecPS(ObsInfo* observations, XFMatrix* data, I1Vector* selection) override;
  XFMatrix* MakeResid(char a) override;
  int Reset(short a) override;

  float GetQ2AX(char a) const override;
  float GetQ2VAX(char a, short k) const override;
  float GetQ2VX(char a, short k) const override;
  float GetQ2X(char a) const override;
  float GetGapCont(char a, short i, short j, short k) const override;

  // --- Of the work set; distances and T2 need no execution ---

  float GetDModXLS(char a, short i) const override;
  float GetPModXLS(char a, short i) const override;
  float GetDCritTeSLS() const override;
  float GetDCritTrSLS() const override;
  float GetXResLS(char a, short i, short k) const override;
  // Hotelling's T2 of an observation: the sum of t^2 / S2t over components 1..a, or first..last.
  virtual float GetT2LS(char a, short i) const;
  virtual float GetT2RangeLS(char first, char last, short i) const;
  // The half-axis of the confidence ellipse in a plot of two score vectors, for the upper-tail
  // probability `p`: sqrt(S2t 2 F (N - 1) / (N - 2)) with F of 2 and N - 2 degrees of freedom.
  virtual float GetTCritAxisLen(char a, float p) const;
  // Whether distances are divided by the standard deviation of all residuals, and whether residuals
  // are weighted by modelling power.
  virtual bool IsNormDistLS() const { return GetOptions().GetIsNormDistLS(); }
  virtual bool IsWResLS() const { return GetOptions().GetIsWResLS(); }

  // --- Of the prediction set; missing for another number of components than was executed ---

  const DistanceResults* GetPSResults() const override;
  char GetASelPS() const override;
  short GetNObsPS() const override;
  ObsInfo* GetObsInfoPS() const override;
  short GetObsIxPS(short i) const override;
  // Whether the model was fitted to the observation; false for a bad position.
  virtual bool IsMembPS(short i) const;
  virtual float GetTPredPS(char a, short i) const;
  float GetDModXPS(char a, short i) const override;
  float GetPModXPS(char a, short i) const override;
  float GetDCritTeSPS() const override;
  float GetDCritTrSPS() const override;
  float GetXResPS(short i, short k) const override;
  virtual float GetT2PS(char a, short i) const;
  virtual float GetT2RangePS(char first, char last, short i) const;
  virtual bool IsNormDistPS() const { return GetOptions().GetIsNormDistPS(); }
  virtual bool IsWResPS() const { return GetOptions().GetIsWResPS(); }

  int Show(StreamWindow& window) override;
  int ShowAll(StreamWindow& window) override;
  int ShowComp(char a, StreamWindow& window) override;
  int ShowRes(StreamWindow& window) override;

 protected:
  const CompInfo* GetComponent(int a) const override;
  int GetComponentCount() const override { return static_cast<int>(components_.size()); }

 private:
  // --- Fitting (pc_model_fit.cpp) ---

  int FitComponent();
  int FitTo(const Validation& validation, PCCompInfo& component);
  // Fits loadings and scores, which hold what to start from.
  int Nipals(const LeftOut& left_out, XFVector& p, XFVector& t, short& iteration_count);
  int CrossValidate(PCCompInfo& component);
  // Takes the component over and off the residuals, and measures and judges it. It is dropped again
  // where that fails.
  int AddComp(PCCompInfo component, const Validation& validation);
  void DropComp();
  void Measure(PCCompInfo& component);
  void MeasureWeighted(PCCompInfo& component);
  // 8029 for a verdict against the component that ends the search.
  int Judge(const Validation& validation, PCCompInfo& component);

  // --- Execution (pc_model_results.cpp) ---

  // What residuals are measured by: a components, weighted by modelling power or not.
  struct Gauge {
    int component_count;
    bool is_weighted;
    bool is_normalised;
  };
  double GetPooledVariance(const Gauge& gauge) const;
  // The residual variance of an observation of the work set; missing where it is not defined.
  double GetVarianceLS(const Gauge& gauge, int i) const;
  float GetDistance(const Gauge& gauge, double variance) const;
  float GetProbability(const Gauge& gauge, double variance, bool is_member) const;
  Gauge GetGaugeLS(int a) const { return {a, IsWResLS(), IsNormDistLS()}; }
  Gauge GetGaugePS(int a) const { return {a, IsWResPS(), IsNormDistPS()}; }
  // 8004 where there is no critical value.
  int SetLimits(const Gauge& gauge, float level, DistanceLimits& limits);

  template <typename Score>
  float SumT2(char first, char last, Score score) const;

  // --- Prediction (pc_model_prediction.cpp) ---

  int ExecuteRows(const ObsInfo& observations, const XFMatrix& data, const I1Vector& selection);
  // Reports an observation with too many missing values, and asks.
  bool IsExcluded(const ObsInfo& observations, const XFMatrix& data, short i);
  float CenterAndScale(float value, short k) const;
  // Sets scores, residuals and distances of observation `to` of the results.
  int Predict(std::span<const float> row, short to);
  std::vector<float> TakeOffScores(const XFVector& values, const FVector& scores) const;
  void SetDistance(std::span<const float> row, std::span<const float> residuals, short to);
  // Sets the scores of an observation to the least squares solution over its present values; to
  // missing where these do not determine it.
  int CalcTPred(const XFVector& values, FVector& scores);
  const PCPredictions* GetPredictions(char a) const;
  bool IsInClassPS(short i) const;

  std::vector<PCCompInfo> components_;
  std::optional<DistanceResults> workset_results_;
  std::shared_ptr<PCPredictions> predictions_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PC_PC_MODEL_H
