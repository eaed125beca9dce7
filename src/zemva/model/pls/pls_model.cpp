#include "zemva/model/pls/pls_model.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <vector>

#include "zemva/base/lane_sums.h"
#include "zemva/base/positions.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/kernels/left_out.h"
#include "zemva/model/kernels/pls_nipals.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/numeric/d_matrix.h"

namespace zemva {
namespace {

constexpr double kLeastResponseShare = 0.03;

bool AreFinite(std::span<const float> values) {
  return std::ranges::all_of(values, [](float value) { return std::isfinite(value); });
}

// Whether they and their sum of squares are, as a float.
bool HaveFiniteSquares(std::span<const float> values) {
  const double squares = SumInLanes(values.size(), [&](std::size_t i) {
    return static_cast<double>(values[i]) * static_cast<double>(values[i]);
  });
  return std::isfinite(static_cast<float>(squares));
}

// Whether the inverse of a matrix with ones on its diagonal has digits that mean something.
bool IsDetermined(const DMatrix& inverse) {
  constexpr double kLargest = 1e12;
  for (int c = 1; c <= inverse.NRow(); ++c) {
    for (const double element : inverse.Row(c)) {
      if (!(std::fabs(element) < kLargest)) return false;
    }
  }
  return true;
}

// (f - t c)^2 for the rows of `left_out`'s complement, by column, where neither is missing.
void AddErrors(const ResidualMatrix& y, const LeftOut& others, std::span<const float> t,
               std::span<const float> c, std::span<double> errors) {
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (others.IsWholeRow(others.ClassOf(i)) || IsMissing(t[i])) continue;
    const std::span<const float> row = y.Row(i);
    y.ForEachPresent(i, [&](std::size_t m) {
      const double error =
          static_cast<double>(row[m]) - static_cast<double>(t[i]) * static_cast<double>(c[m]);
      errors[m] += error * error;
    });
  }
}

}  // namespace

PLSModel::PLSModel(ModelOwner* owner, EModType type, StreamWindow& window, ModOpt* options,
                   char selector)
    : Model(owner, type, window, options, selector) {
  AddResponses();
}

PLSModel::PLSModel(const PLSModel& other) = default;

PLSModel::~PLSModel() = default;

const ClassID& PLSModel::GetClassID() {
  static const ClassID id("PLSModel");
  return id;
}

int PLSModel::LoadWS() {
  const int status = Model::LoadWS();
  if (status == status::kOk) ReduceGroups();
  return status;
}

void PLSModel::ReduceGroups() {
  if (GetOptions().GetNCV() <= GetNObs()) return;
  GetOptions().SetNCV(GetNObs());
  GetLog().Write("NCV is reduced to NObs: " + std::to_string(GetNObs()) + "\n");
}

Model::Rules PLSModel::GetRules() const {
  return {GetNVarX(), false, 1, kLeastResponseShare};
}

int PLSModel::Fit(CompInfo& component) {
  const std::span<const float> squares = GetStage(EBlock::kY, GetComponentCount())->ssv.Values();
  const auto largest = std::ranges::max_element(squares) - squares.begin();
  GetY()->GetResiduals().CopyStart(static_cast<std::size_t>(largest), component.u.Values());
  std::ranges::fill(component.c.Values(), 0.0f);
  component.c[static_cast<int>(largest) + 1] = 1.0f;
  int iterations = 0;
  const int status = Nipals(0, LeftOut(),
                            {component.t.Values(), component.u.Values(), component.w.Values(),
                             component.c.Values(), component.p.Values()},
                            iterations);
  component.iteration_count =
      static_cast<short>(std::min<int>(iterations, std::numeric_limits<short>::max()));
  for (XFVector* vector : {&component.t, &component.u, &component.w, &component.c, &component.p}) {
    vector->SetActValInfo();
  }
  return status;
}

int PLSModel::Nipals(int round, const LeftOut& left_out, const PlsVectors& vectors,
                     int& iteration_count) {
  const auto limit_loading = [&](const char* text) {
    return MakeCap(static_cast<double>(GetLoadingLimit()), GetOptions().GetIsShoLoaLim(), text);
  };
  const auto limit_score = [&](const char* text) {
    return MakeCap(static_cast<double>(GetOptions().GetCLS()), GetOptions().GetIsShoScrLim(), text);
  };
  const PlsSettings settings{GetOptions().GetMaxIter(),
                             limit_loading("CompLimWLoa overrun for w, VarIx "),
                             limit_score("CompLimTScr overrun for t, ObsIx "),
                             limit_loading("CompLimCLoa overrun for c, VarIx "),
                             limit_score("CompLimUScr overrun for u, ObsIx "),
                             limit_loading("CompLimPLoa overrun for varIx "),
                             AskBefore(round)};
  const NipalsResult result =
      PlsNipals(GetX().GetResiduals(), GetY()->GetResiduals(), left_out, settings, vectors);
  iteration_count = result.iterations;
  if (result.status != status::kOk) return result.status;
  const bool is_in_range = HaveFiniteSquares(vectors.t) && HaveFiniteSquares(vectors.u) &&
                           AreFinite(vectors.w) && AreFinite(vectors.c) && AreFinite(vectors.p);
  return is_in_range ? status::kOk : status::mva::kDomain;
}

Cap PLSModel::MakeCapOfOthers() {
  return MakeCap(static_cast<double>(GetOptions().GetCLS()), GetOptions().GetIsShoScrLim(),
                 "CompLimScr overrun for obsIx ");
}

int PLSModel::AddPredictionErrors(const CompInfo& component, std::span<double> errors) {
  ReduceGroups();
  const ResidualMatrix& x = GetX().GetResiduals();
  const short group_count = GetOptions().GetNCV();
  const Cap cap = MakeCapOfOthers();
  std::vector<float> t(static_cast<std::size_t>(GetNObs()));
  std::vector<float> w(static_cast<std::size_t>(GetNVarX()));
  std::vector<float> c(static_cast<std::size_t>(GetNVarY()));
  for (int group = 1; group <= group_count; ++group) {
    std::vector<float> u(component.u.Values().begin(), component.u.Values().end());
    std::ranges::copy(component.c.Values(), c.begin());
    int iterations = 0;
    const int status = Nipals(group, LeftOut::Rows(group_count, group),
                              {t, u, w, c, std::span<float>()}, iterations);
    if (status != status::kOk) return status;
    const LeftOut others = LeftOut::OtherRows(group_count, group);
    Projection(x, others).OntoRows(w, 1.0, cap, t);
    AddErrors(GetY()->GetResiduals(), others, t, c, errors);
  }
  return status::kOk;
}

int PLSModel::Complete(CompInfo& component) {
  const int status = MakeWStar(component);
  if (status == status::kOk) MakeVIP(component);
  return status;
}

// W* = W (P'W)^-1, of which this is the last column.
int PLSModel::MakeWStar(CompInfo& component) {
  const int a = GetComponentCount();
  DMatrix inverse(a, a, 0.0);
  Whole(inverse);
  const auto dot = [](const XFVector& p, const XFVector& w) {
    const auto left = p.Values();
    const auto right = w.Values();
    return SumInLanes(left.size(), [&](std::size_t k) {
      return static_cast<double>(left[k]) * static_cast<double>(right[k]);
    });
  };
  for (int c = 1; c <= a; ++c) {
    for (int d = 1; d <= a; ++d) inverse[c][d] = dot(GetComponent(c)->p, GetComponent(d)->w);
  }
  const int status = inverse.MInv();
  if (status == status::mat::kMemory) return status::mva::kMemory;
  if (status != status::kOk || !IsDetermined(inverse)) {
    GetLog().Write("Matrix singular!\n");
    SetIsOverrun();
    return status::mva::kNotInvertible;
  }
  for (const short k : PositionsUpTo(GetNVarX())) {
    double sum = 0.0;
    for (int c = 1; c <= a; ++c) {
      sum += static_cast<double>(GetComponent(c)->w[k]) * inverse[c][a];
    }
    component.w_star[k] = AsPresent(static_cast<float>(sum));
  }
  component.w_star.SetActValInfo();
  CalcB(inverse, component);
  return status::kOk;
}

// (P'W)^-1 C'
void PLSModel::CalcB(const DMatrix& inverse, CompInfo& component) {
  const int a = GetComponentCount();
  for (int c = 1; c <= a; ++c) {
    for (const short m : PositionsUpTo(GetNVarY())) {
      double sum = 0.0;
      for (int d = 1; d <= a; ++d) {
        sum += inverse[c][d] * static_cast<double>(GetComponent(d)->c[m]);
      }
      component.inv_ppw_cp[c][m] = sum;
    }
  }
}

// VIP^2 = K sum over components of w^2 (SSY before - SSY) / (SSY of stage 0 - SSY of the last), K
// being the variables that take part (S. Wold, E. Johansson, M. Cocchi, PLS: partial least squares
// projections to latent structures, in 3D QSAR in Drug Design, 1993, 523-550).
void PLSModel::MakeVIP(CompInfo& component) {
  const int a = GetComponentCount();
  std::vector<double> gains;
  for (int c = 1; c <= a; ++c) {
    gains.push_back(static_cast<double>(GetStage(EBlock::kY, c - 1)->ss) -
                    static_cast<double>(GetStage(EBlock::kY, c)->ss));
  }
  const double total = SumInLanes(gains.size(), [&](std::size_t c) { return gains[c]; });
  const int used_count = GetNVarXUsed();
  for (const short k : PositionsUpTo(GetNVarX())) {
    double sum = 0.0;
    for (int c = 1; c <= a; ++c) {
      const auto w = static_cast<double>(GetComponent(c)->w[k]);
      sum += gains[static_cast<std::size_t>(c - 1)] * w * w;
    }
    const double square = total > 0.0 ? used_count * sum / total : 0.0;
    component.vip[k] = static_cast<float>(std::sqrt(std::max(square, 0.0)));
  }
  component.vip.SetActValInfo();
}

// t = sum of w x / (1 - sum of w^2 of what is missing), then x = x - t p, component by component.
int PLSModel::Project(const XFVector& values, int number, FVector& scores) {
  std::vector<double> left(values.Values().begin(), values.Values().end());
  const Cap cap = MakeCapOfOthers();
  for (int c = 1; c <= scores.NVal(); ++c) {
    const CompInfo& component = *GetComponent(c);
    const std::span<const float> w = component.w.Values();
    double sum = 0.0;
    double usable = 0.0;
    bool is_complete = true;
    for (std::size_t k = 0; k < left.size(); ++k) {
      const auto weight = static_cast<double>(w[k]);
      if (IsMissing(values.Values()[k])) {
        is_complete = is_complete && weight == 0.0;
        continue;
      }
      sum += weight * left[k];
      usable += weight * weight;
    }
    constexpr double kLeastUsable = 1e-30;
    if (usable < kLeastUsable) {
      std::ranges::fill(scores.Values(), kMissing);
      return status::kOk;
    }
    // The length of w is 1 but for rounding, which is nothing to make up for.
    double factor = is_complete ? 1.0 : 1.0 / usable;
    if (factor > cap.limit && sum != 0.0) {
      cap.report(number, factor);
      factor = cap.limit;
    }
    scores[c] = AsPresent(static_cast<float>(factor * sum));
    const std::span<const float> p = component.p.Values();
    for (std::size_t k = 0; k < left.size(); ++k) {
      left[k] -= static_cast<double>(scores[c]) * static_cast<double>(p[k]);
    }
  }
  return status::kOk;
}

}  // namespace zemva
