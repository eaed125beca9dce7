// Models of principal components.
#ifndef ZEMVA_MODEL_PC_PC_MODEL_H
#define ZEMVA_MODEL_PC_PC_MODEL_H

#include <memory>
#include <optional>
#include <span>

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/block/cent_info.h"
#include "zemva/model/block/comp_info.h"
#include "zemva/model/driver/model.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

class AdaptiveNipals;
class GroupLabels;
class LeftOut;
struct NipalsSettings;

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

 protected:
  Rules GetRules() const override;
  int Fit(CompInfo& component) override;
  int AddPredictionErrors(const CompInfo& component, std::span<double> errors) override;
  int Complete(CompInfo& component) override;
  int Project(const XFVector& values, int /*number*/, FVector& scores) override {
    return CalcTPred(values, scores);
  }

 private:
  // The groups of cross-validation, without changing the options; none for more than a short
  // counts.
  std::optional<GroupLabels> MakeGroups() const;
  // Fits loadings and scores, which hold what to start from: the component, with the rounds to
  // follow leaving out such groups, or in one of these.
  int FitWhole(const LeftOut& groups, CompInfo& component);
  int FitRound(int round, const LeftOut& left_out, XFVector& p, XFVector& t);
  NipalsSettings MakeSettings(int round, double widening);
  // Whether the vectors are in the range of a float: 8005.
  static int Finish(XFVector& p, XFVector& t);
  // Sets the scores of an observation to the least squares solution over its present values; to
  // missing where these do not determine it.
  int CalcTPred(const XFVector& values, FVector& scores);

  std::unique_ptr<AdaptiveNipals> iteration_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PC_PC_MODEL_H
