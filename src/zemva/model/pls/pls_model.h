// Models by partial least squares.
#ifndef ZEMVA_MODEL_PLS_PLS_MODEL_H
#define ZEMVA_MODEL_PLS_PLS_MODEL_H

#include <span>

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/block/cent_info.h"
#include "zemva/model/block/comp_info.h"
#include "zemva/model/driver/model.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva {

class LeftOut;
struct PlsVectors;

// The records of centring and of a component are those of every model.
using PLSCentInfo = CentInfo;
using PLSCompInfo = CompInfo;

// X = T P' + E and Y = T C' + F: the N by K matrix X and the N by M matrix Y of a work set, both
// centred and scaled, have the scores T, N by A, in common, which are made of X by the weights W,
// and whose part in Y is as large as it can be. Each component is fitted by the NIPALS iteration to
// what the ones before it left. (S. Wold, M. Sjöström, L. Eriksson, PLS-regression: a basic tool of
// chemometrics, Chemometrics and Intelligent Laboratory Systems 58 (2001) 109-130.)
//
//   T = X W*,  W* = W (P'W)^-1,  Y = X B + F,  B = W* C'
//
// Without missing values the scores are orthogonal and the weights orthonormal. In models of
// classes Y has a column for each class.
class ZEMVA_API PLSModel : public Model {
 public:
  PLSModel(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options, char selector);
  // With the same owner and options. Throws std::bad_alloc.
  PLSModel(const PLSModel& other);
  ~PLSModel() override;

  static const ClassID& GetClassID();
  bool IsClass(int id) const override { return id == GetClassID().GetID(); }

  // Reduces the groups of cross-validation to the number of observations, as the log tells.
  int LoadWS() override;

 protected:
  Rules GetRules() const override;
  int Fit(CompInfo& component) override;
  int AddPredictionErrors(const CompInfo& component, std::span<double> errors) override;
  // 8006 where P'W cannot be inverted.
  int Complete(CompInfo& component) override;
  int Project(const XFVector& values, int number, FVector& scores) override;

 private:
  // Fits the vectors, of which u holds what to start from. 8005 where they leave the range of a
  // float.
  int Nipals(int round, const LeftOut& left_out, const PlsVectors& vectors, int& iteration_count);
  // A cap on the scores of observations that the component is not fitted to.
  Cap MakeCapOfOthers();
  void ReduceGroups();
  int MakeWStar(CompInfo& component);
  void CalcB(const DMatrix& inverse, CompInfo& component);
  void MakeVIP(CompInfo& component);
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PLS_PLS_MODEL_H
