// The listings of PCModel.
#include <string>

#include "zemva/base/positions.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/model/driver/validation.h"
#include "zemva/model/driver/value_listing.h"
#include "zemva/model/pc/pc_model.h"
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

int PCModel::Show(StreamWindow& window) {
  ShowInit(window);
  const bool is_adjusted = GetOwner().GetOptions().GetVariMode() == EVariType::R2adj;
  Listing list(window);
  list.Text("  Components = ").Number(GetComponentCount()).EndLine();
  list.Right(kLabelWidth + 14, is_adjusted ? " R2Xa R2Xa(c)" : " R2X  R2X(c)");
  list.Text("   Eig   Q2  Q2(c) Iter  S").EndLine();
  const auto add_r2 = [&](char a) {
    AddValue(list, 7, 3, a == 0 ? 0.0f : is_adjusted ? GetR2AXadj(a) : GetR2AX(a));
    AddValue(list, 7, 3, is_adjusted ? GetR2Xadj(a) : GetR2X(a));
  };
  if (GetA0() != 0) {
    list.Text("Center  ");
    add_r2(0);
    list.Text("     -     -     -    -  -").EndLine();
  }
  for (int c = 1; c <= GetComponentCount(); ++c) {
    const auto a = static_cast<char>(c);
    list.Text(RowLabel(a));
    add_r2(a);
    AddValue(list, 6, 2, GetEig(a));
    AddValue(list, 6, 2, GetQ2AX(a));
    AddValue(list, 6, 2, GetQ2X(a));
    list.Right(5, GetNIter(a)).Text(" ").Text(GetSignRule(a)).EndLine();
  }
  return status::kOk;
}

int PCModel::ShowComp(char a, StreamWindow& window) {
  const PCCompInfo* const component = GetComponent(a);
  Listing list(window);
  list.Text("Component").Text("[").Number(int{a}).Text("]").EndLine();
  if (component == nullptr) return status::kOk;
  if (component->verdict != EVerdict::kNone) {
    AddValue(list.Text(DescribeVerdict(component->verdict)).Text("= "), 0, 3, component->q2);
    AddValue(list.Text(", Q2(cum)= "), 0, 3, component->q2_cum).EndLine();
  }
  AddValue(list.Text("R2X(cum)= "), 0, 3, GetR2X(a));
  AddValue(list.Text(", Eig= "), 0, 3, component->eigenvalue);
  AddValue(list.Text(", S2X= "), 0, component->x.s2);
  AddValue(list.Text(", S2WX= "), 0, component->weighted_s2);
  AddValue(list.Text(", DFX= "), 0, component->x.df);
  list.Text(", Iter= ").Number(component->iteration_count).EndLine();
  AddValue(list.Text("tMin= "), 0, component->t_min);
  AddValue(list.Text(" tMax= "), 0, component->t_max);
  AddValue(list.Text(" S2t= "), 0, component->s2t).EndLine();
  for (const XFVector* const vector :
       {&component->t, &component->p, &component->x.ssv, &component->x.s2v, &component->x.mpow,
        &component->q2v, &component->q2v_cum, &component->x.sso, &component->x.s2o,
        &component->leverages}) {
    vector->Show(window);
  }
  return status::kOk;
}

// Whether the model is that of a class, and the observation one that it would take for its own.
bool PCModel::IsInClassPS(short i) const {
  const float probability = GetPModXPS(GetASelPS(), i);
  return GetModType() == EModType::kPC1Cl && !IsMissing(probability) &&
         probability >= GetOptions().GetSignLevPS();
}

int PCModel::ShowRes(StreamWindow& window) {
  Listing list(window);
  const auto show = [&](const char* title, const DistanceResults& results, ObsInfo* observations,
                        auto get_t2, auto add_remark) {
    list.Text(title).Text(GetModNam()).EndLine();
    list.Right(6, "ONum").Right(26, "ONam").Right(14, results.distances.GetName());
    list.Right(14, results.probabilities.GetName()).Right(14, "Tsquare").EndLine();
    for (const short i : PositionsUpTo(results.distances.NVal())) {
      list.Right(6, NumberOf(observations, i)).Right(26, NameOf(observations, i));
      AddValue(list, 14, results.distances[i]);
      AddValue(list, 14, results.probabilities[i]);
      AddValue(list, 14, get_t2(static_cast<char>(results.component_count), i));
      add_remark(i);
      list.EndLine();
    }
  };
  if (workset_results_) {
    show(
        "Executing WS: Model ", *workset_results_, GetObsInfo(),
        [&](char a, short i) { return GetT2LS(a, i); }, [](short) {});
  }
  if (predictions_ != nullptr) {
    const double level = static_cast<double>(GetOptions().GetSignLevPS());
    show(
        "Executing PS: Model ", predictions_->distance, GetObsInfoPS(),
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

int PCModel::ShowAll(StreamWindow& window) {
  ShowInit(window);
  ShowCent(window);
  for (int a = 1; a <= GetComponentCount(); ++a) ShowComp(static_cast<char>(a), window);
  return ShowRes(window);
}

}  // namespace zemva
