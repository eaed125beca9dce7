// What Model lists of its components and of its execution.
#include <string>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/driver/validation.h"
#include "zemva/model/driver/value_listing.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

constexpr int kLabelWidth = 8;

// "Comp[3] ", "Comp[12]"
std::string RowLabel(int a) {
  return "Comp[" + std::to_string(a) + (a < 10 ? "] " : "]");
}

const char* NameOf(ObsInfo* observations, short i) {
  const char* const name = observations == nullptr ? nullptr : observations->GetONam(i);
  return name == nullptr ? "" : name;
}

short NumberOf(ObsInfo* observations, short i) {
  return observations == nullptr ? i : observations->GetONum(i);
}

}  // namespace

int Model::Show(StreamWindow& window) {
  ShowInit(window);
  const bool is_adjusted = owner_->GetOptions().GetVariMode() == EVariType::R2adj;
  Listing list(window);
  list.Text("  Components = ").Number(GetComponentCount()).EndLine();
  if (HasY()) {
    list.Text("Comp    ")
        .Right(28, is_adjusted ? " R2Xa R2Xa(c)  R2Ya  R2Ya(c)" : " R2X    R2X(c) R2Y   R2Y(c)");
    list.Text("   Eig  Q2    Q2(c) Iter  S").EndLine();
  } else {
    list.Right(kLabelWidth + 14, is_adjusted ? " R2Xa R2Xa(c)" : " R2X  R2X(c)");
    list.Text("   Eig   Q2  Q2(c) Iter  S").EndLine();
  }
  float Stage::*const sum = is_adjusted ? &Stage::s2 : &Stage::ss;
  const auto add_r2 = [&](int a) {
    for (const DataBlock* const block : GetBlocks()) {
      const EBlock which = block->GetBlock();
      AddValue(list, 7, 3, a == 0 ? 0.0f : GetExplained(which, sum, a - 1, a));
      AddValue(list, 7, 3, GetExplained(which, sum, 0, a));
    }
  };
  if (GetA0() != 0) {
    list.Text("Center  ");
    add_r2(0);
    list.Text("     -     -     -    -  -").EndLine();
  }
  for (int c = 1; c <= GetComponentCount(); ++c) {
    const CompInfo& component = *GetComponent(c);
    list.Text(RowLabel(c));
    add_r2(c);
    AddValue(list, 6, 2, component.eigenvalue);
    AddValue(list, 6, 2, component.q2);
    AddValue(list, 6, 2, component.q2_cum);
    list.Right(5, component.iteration_count).Text(" ");
    list.Text(GetSignRule(static_cast<char>(c))).EndLine();
  }
  return status::kOk;
}

int Model::ShowComp(char a, StreamWindow& window) {
  const CompInfo* const component = GetComponent(a);
  Listing list(window);
  list.Text("Component").Text("[").Number(int{a}).Text("]").EndLine();
  if (component == nullptr) return status::kOk;
  // Rule 5 is told of components without responses alone.
  const bool is_told =
      component->verdict != EVerdict::kNone && !(HasY() && component->verdict == EVerdict::kRule5);
  if (is_told) {
    AddValue(list.Text(DescribeVerdict(component->verdict)).Text("= "), 0, 3, component->q2);
    AddValue(list.Text(", Q2(cum)= "), 0, 3, component->q2_cum).EndLine();
  }
  AddValue(list.Text("R2X(cum)= "), 0, 3, GetR2X(a));
  if (HasY()) AddValue(list.Text(", R2Y(cum)= "), 0, 3, GetR2Y(a));
  AddValue(list.Text(", Eig= "), 0, 3, component->eigenvalue);
  AddValue(list.Text(", S2X= "), 0, component->x.s2);
  AddValue(list.Text(", S2WX= "), 0, component->weighted_s2);
  AddValue(list.Text(", DFX= "), 0, component->x.df);
  list.Text(", Iter= ").Number(component->iteration_count).EndLine();
  AddValue(list.Text("tMin= "), 0, component->t_min);
  AddValue(list.Text(" tMax= "), 0, component->t_max);
  AddValue(list.Text(" S2t= "), 0, component->s2t).EndLine();
  std::vector<const XFVector*> vectors = {
      &component->t,      &component->p,        &component->x.ssv,   &component->x.s2v,
      &component->x.mpow, &component->q2v,      &component->q2v_cum, &component->x.sso,
      &component->x.s2o,  &component->leverages};
  if (HasY()) {
    vectors.insert(vectors.end(),
                   {&component->u, &component->w, &component->c, &component->w_star,
                    &component->vip, &component->y->ssv, &component->y->s2v, &component->y->sso,
                    &component->y->s2o, &component->leverages_y});
  }
  for (const XFVector* const vector : vectors) vector->Show(window);
  if (HasY()) ShowCoefficients(a, window);
  return status::kOk;
}

void Model::ShowCoefficients(char a, StreamWindow& window) const {
  const auto name_of = [](const VarInfo* variables, short k) {
    const char* const name = variables == nullptr ? nullptr : variables->GetVNam(k);
    return name == nullptr ? "" : name;
  };
  Listing list(window);
  list.Text("The centered and scaled coeff.s are:").EndLine();
  list.Right(6, "VNum").Right(26, "VNam");
  for (const short m : PositionsUpTo(GetNVarY())) list.Right(26, name_of(GetVarInfoY(), m));
  list.EndLine();
  for (const short k : PositionsUpTo(GetNVarX())) {
    list.Right(6, GetVarInfoX() == nullptr ? k : GetVarInfoX()->GetVNum(k));
    list.Right(26, name_of(GetVarInfoX(), k));
    for (const short m : PositionsUpTo(GetNVarY())) AddValue(list, 26, GetCoeffCS(a, k, m));
    list.EndLine();
  }
}

// Whether the model is that of a class, and the observation one that it would take for its own.
bool Model::IsInClassPS(short i) const {
  const float probability = GetPModXPS(GetASelPS(), i);
  return GetModType() == EModType::kPC1Cl && !IsMissing(probability) &&
         probability >= options_->GetSignLevPS();
}

int Model::ShowRes(StreamWindow& window) {
  Listing list(window);
  const auto show = [&](const char* title, const Results& results, ObsInfo* observations,
                        auto get_t2, auto add_remark) {
    const DistanceResults& x = results.x;
    const auto& y = results.y;
    list.Text(title).Text(GetModNam()).EndLine();
    list.Right(6, "ONum").Right(26, "ONam");
    const auto add_each = [&](auto add) {
      add(x.distances), add(x.probabilities);
      if (y) add(y->distances), add(y->probabilities);
    };
    add_each([&](const XFVector& column) { list.Right(14, column.GetName()); });
    list.Right(14, "Tsquare").EndLine();
    for (const short i : PositionsUpTo(x.distances.NVal())) {
      list.Right(6, NumberOf(observations, i)).Right(26, NameOf(observations, i));
      add_each([&](const XFVector& column) { AddValue(list, 14, column[i]); });
      AddValue(list, 14, get_t2(static_cast<char>(x.component_count), i));
      add_remark(i);
      list.EndLine();
    }
    if (results.errors) ShowErrors(*results.errors, window);
  };
  if (workset_results_) {
    show(
        "Executing WS: Model ", *workset_results_, GetObsInfo(),
        [&](char a, short i) { return GetT2LS(a, i); }, [](short) {});
  }
  if (predictions_ != nullptr) {
    const double level = static_cast<double>(options_->GetSignLevPS());
    show(
        "Executing PS: Model ", *predictions_->results, GetObsInfoPS(),
        [&](char a, short i) { return GetT2PS(a, i); },
        [&](short i) {
          if (IsMembPS(i)) list.Text(" WS-memb.");
          if (IsInClassPS(i)) {
            list.Text(" classified at the ").General(0, 100.0 * level).Text(" % level.");
          }
        });
  }
  return status::kOk;
}

void Model::ShowErrors(const PredictionErrors& errors, StreamWindow& window) const {
  Listing list(window);
  const auto show = [&](const char* label, float squares, float count, const char* deviation_label,
                        float deviation) {
    if (count == 0.0f) return;
    AddValue(list.Text(label), 14, squares);
    list.Text(" (n=").Number(static_cast<int>(count)).Text(deviation_label);
    AddValue(list, 14, deviation).EndLine();
  };
  for (const short m : PositionsUpTo(GetNVarY())) {
    const VarInfo* const responses = GetVarInfoY();
    list.Text("For Y-variable ").Number(responses == nullptr ? m : responses->GetVNum(m));
    list.Text(" ").Text(responses == nullptr ? "" : responses->GetVNam(m)).EndLine();
    show("  RSS (work set) =", errors.rss[m], errors.np_ws[m],
         ") Corr.d sqrt(RSS/n) =", errors.sd_adj_ls[m]);
    show("  PRESS (test set)   =", errors.press[m], errors.np_ts[m],
         ") sqrt(PRESS/n)      =", errors.sd_ts[m]);
  }
}

int Model::ShowAll(StreamWindow& window) {
  ShowInit(window);
  ShowCent(window);
  for (int a = 1; a <= GetComponentCount(); ++a) ShowComp(static_cast<char>(a), window);
  return ShowRes(window);
}

}  // namespace zemva
