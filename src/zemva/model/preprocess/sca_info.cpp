#include "zemva/model/preprocess/sca_info.h"

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <utility>
#include <vector>

#include "zemva/base/positions.h"
#include "zemva/data/var_info.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/model/preprocess/column_spreads.h"
#include "zemva/model/preprocess/element.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/number_set.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {
namespace {

// The root of a weight; undefined stays undefined.
double Root(double weight) {
  return IsMissing(weight) ? weight : std::sqrt(weight);
}

// What is undefined stays so.
float ToWeight(double weight, float modifier = kMissing) {
  if (IsMissing(weight)) return kMissing;
  return ToElement(IsMissing(modifier) ? weight : weight * modifier);
}

float Weight(EScaType type, const ScaData& present, const ColumnSpreads& spreads, int column) {
  switch (type) {
    case EScaType::kUV:
      return ToWeight(spreads.InverseDeviation(column), present.GetScaC1());
    case EScaType::kUVN:
      return ToWeight(spreads.InverseRootMeanSquare(column), present.GetScaC1());
    case EScaType::kPar:
      return ToWeight(Root(spreads.InverseDeviation(column)), present.GetScaC1());
    case EScaType::kParN:
      return ToWeight(Root(spreads.InverseRootMeanSquare(column)), present.GetScaC1());
    case EScaType::kCtr:
    case EScaType::kNone:
      return 1.0f;
    case EScaType::kFW:
    case EScaType::kFWN:
      return present.GetWeig();
    default:
      return kMissing;
  }
}

// The types in pairs, centred and not.
constexpr std::array<std::array<EScaType, 2>, 4> kCounterparts = {{
    {EScaType::kUV, EScaType::kUVN},
    {EScaType::kPar, EScaType::kParN},
    {EScaType::kCtr, EScaType::kNone},
    {EScaType::kFW, EScaType::kFWN},
}};

EScaType Counterpart(EScaType type, bool is_centred) {
  for (const auto& [centred, uncentred] : kCounterparts) {
    if (type == centred || type == uncentred) return is_centred ? centred : uncentred;
  }
  return type;
}

bool IsUncentred(EScaType type) {
  return Counterpart(type, true) != type;
}

bool IsFromData(EScaType type) {
  return type >= EScaType::kUV && type <= EScaType::kParN;
}

// What an update makes of a type that is asked for.
EScaType Resolved(EScaType asked, EScaType present) {
  if (asked != EScaType::kFreeze) return asked;
  return IsUncentred(present) ? EScaType::kFWN : EScaType::kFW;
}

}  // namespace

EScaType ScaInfo::GetScaType(const char* text) {
  for (std::size_t i = 0; text != nullptr && i < pszScaType.size(); ++i) {
    if (std::strcmp(text, pszScaType[i]) == 0) return static_cast<EScaType>(i);
  }
  return EScaType::kUdef;
}

const char* ScaInfo::GetString(EScaType type) {
  const auto i = static_cast<std::size_t>(type);
  return i < pszScaType.size() ? pszScaType[i] : "";
}

bool ScaInfo::IsCentred(EScaType type) {
  return Counterpart(type, false) != type;
}

int ScaInfo::Update(short var, const char* name, EScaType type, float weig, float weig_ac,
                    float sca_c1, float sca_c2, float weig_m, EScaType previous_type) {
  return Update(ScaData(var, name, type, weig, weig_ac, sca_c1, sca_c2, weig_m, previous_type));
}

int ScaInfo::Update(short var, const VarInfo* variables, const XFMatrix* matrix,
                    const XI1Vector* mask, EScaType type) {
  if (variables == nullptr || matrix == nullptr || mask == nullptr) {
    return SetStatus(status::mva::kNullPointer);
  }
  const short column = FindColumn(var, *variables, *matrix);
  if (column == 0) return SetStatus(status::mva::kVariableNotAvailable);
  return SetStatus(MemoryGuarded(
      [&] { return SetWeights(var, type, ColumnSpreads(*matrix, *mask, column, 1), column); }));
}

// Where both tables have the variable and the matrix its column, else 0.
short ScaInfo::FindColumn(short var, const VarInfo& variables, const XFMatrix& matrix) const {
  const short i = FindVar(var);
  // The two tables mostly have the same order.
  const short j = variables.GetVNum(i) == var ? i : variables.GetVIx(var);
  return i == 0 || j > matrix.NCol() ? short{0} : j;
}

int ScaInfo::SetWeights(short var, EScaType type, const ColumnSpreads& spreads, int column) {
  const ScaData& present = *GetItm(FindVar(var));
  const EScaType resolved = Resolved(type, present.GetScaType());
  if (resolved < EScaType::kUdef || resolved > EScaType::kFWN) {
    return status::mva::kIndexOutOfRange;
  }
  return Update(
      ScaData(var, present.GetINam(), resolved, Weight(resolved, present, spreads, column),
              ToWeight(spreads.InverseDeviation(column)), present.GetScaC1(), present.GetScaC2()));
}

int ScaInfo::TakeRows(std::span<const ScaInfo* const> sources, const VarInfo& variables,
                      const XFMatrix* matrix, bool is_from_data) {
  if (is_from_data && matrix == nullptr) return SetStatus(status::mva::kNullPointer);
  return SetStatus(MemoryGuarded([&] {
    ScaInfo table(GetNam());
    for (int j = 1; j <= variables.GetNVar(); ++j) {
      const ScaData* row = nullptr;
      for (const ScaInfo* const source : sources) {
        if (row != nullptr) break;
        row = source->GetItm(source->FindVar(variables.GetVNum(static_cast<short>(j))));
      }
      if (row == nullptr) return status::mva::kVariableNotAvailable;
      const int status = table.AddItm(*row);
      if (status != status::kOk) return status;
    }
    const int status = is_from_data ? table.UpdateAll(&variables, matrix) : status::kOk;
    if (status == status::kOk) *this = std::move(table);
    return status;
  }));
}

int ScaInfo::UpdateAll(const VarInfo* variables, const XFMatrix* matrix) {
  if (variables == nullptr || matrix == nullptr) return SetStatus(status::mva::kNullPointer);
  return SetStatus(MemoryGuarded([&] {
    const XI1Vector all = SelectIf(matrix->NRow(), [](short) { return true; });
    const ColumnSpreads spreads(*matrix, all, 1, matrix->NCol());
    for (short i = 1; GetItm(i) != nullptr; ++i) {
      const short var = GetINum(i);
      const short column = FindColumn(var, *variables, *matrix);
      if (column == 0) return status::mva::kVariableNotAvailable;
      const int status = SetWeights(var, GetItm(i)->GetScaType(), spreads, column);
      if (status != status::kOk) return status;
    }
    return status::kOk;
  }));
}

int ScaInfo::AddVar(short vnum, const char* name) {
  return AddItm(ScaData::BeforeData(vnum, name, EScaType::kUV));
}

int ScaInfo::AddVars(const ItmInfo& variables) {
  const NumberSet present(*this);
  const short count = GetNItm();
  for (int j = 1; j <= variables.GetNItm(); ++j) {
    const auto position = static_cast<short>(j);
    const short vnum = variables.GetINum(position);
    if (present.Has(vnum)) continue;
    const int status = AddVar(vnum, variables.GetINam(position));
    if (status == status::kOk) continue;
    KeepFirst(count);
    return SetStatus(status);
  }
  return SetStatus(status::kOk);
}

int ScaInfo::FixAddedVars(short nvar, const LagInfo* lags, const ExpInfo* terms) {
  if (lags == nullptr || terms == nullptr) return SetStatus(status::mva::kNullPointer);
  const short count = GetNItm();
  NumberSet added;
  for (const ItmInfo* table : std::initializer_list<const ItmInfo*>{lags, terms}) {
    const int status = AddVars(*table);
    if (status != status::kOk) {
      KeepFirst(count);
      return SetStatus(status);
    }
    added.Add(*table);
  }
  for (short i = GetNItm(); i > nvar; --i) {
    if (!added.Has(GetINum(i))) DelItm(i);
  }
  return SetStatus(status::kOk);
}

template <typename Predicate>
short ScaInfo::Count(Predicate is_counted) const {
  short count = 0;
  for (const short i : PositionsUpTo(GetNItm())) {
    if (is_counted(*GetItm(i))) ++count;
  }
  return count;
}

short ScaInfo::GetNMisWeig() const {
  return Count([](const ScaData& row) { return IsMissing(row.GetWeig()); });
}

bool ScaInfo::IsAnyVarCtd() const {
  return FindItm(1, GetNItm(), [](const ItmData& row) {
           return IsCentred(static_cast<const ScaData&>(row).GetScaType());
         }) != 0;
}

int ScaInfo::SetCenter(bool is_centred) {
  for (short i = 1; GetItm(i) != nullptr; ++i) {
    const ScaData& row = *GetItm(i);
    const EScaType type = row.GetScaType();
    const EScaType counterpart = Counterpart(type, is_centred);
    if (counterpart == type) continue;
    const float weight = IsFromData(type) ? kMissing : row.GetWeig();
    ScaData changed(row.GetINum(), row.GetINam(), counterpart, weight, row.GetWeigAC(),
                    row.GetScaC1(), row.GetScaC2(), row.GetWeigM(), row.GetPrevScaType());
    changed.SetIsBeforeData(row.IsBeforeData());
    Update(changed);
  }
  return SetStatus(status::kOk);
}

int ScaInfo::SetNCRef(const VarInfo* variables, XFVector* averages) {
  if (variables == nullptr || averages == nullptr) return SetStatus(status::mva::kNullPointer);
  if (averages->NVal() < variables->GetNVar()) return SetStatus(status::mva::kIndexOutOfRange);
  for (short j = 1; variables->GetVNam(j) != nullptr; ++j) {
    if (FindVar(variables->GetVNum(j)) == 0) return SetStatus(status::mva::kVariableNotAvailable);
  }
  for (short j = 1; variables->GetVNam(j) != nullptr; ++j) {
    const ScaData& row = *GetItm(FindVar(variables->GetVNum(j)));
    if (!IsCentred(row.GetScaType())) (*averages)[j] = 0.0f;
  }
  averages->SetActValInfo();
  return SetStatus(status::kOk);
}

XFVector* ScaInfo::ExtWeig(const VarInfo* variables, short count, char is_autoscaled) {
  const auto fail = [&](int status) { return SetStatus(status), nullptr; };
  if (variables == nullptr) return fail(status::mva::kNullPointer);
  if (count < 0 || count > variables->GetNVar()) return fail(status::mva::kIndexOutOfRange);
  std::unique_ptr<XFVector> weights(new (std::nothrow) XFVector("Weig", count, kMissing));
  if (weights == nullptr || weights->GetStatus() != status::kOk) return fail(status::mva::kMemory);
  for (int j = 1; j <= count; ++j) {
    const ScaData* row = GetItm(FindVar(variables->GetVNum(static_cast<short>(j))));
    if (row == nullptr) return fail(status::mva::kVariableNotAvailable);
    (*weights)[j] = is_autoscaled != 0 ? row->GetWeigAC() : row->GetWeig();
  }
  weights->SetActValInfo();
  SetStatus(status::kOk);
  return weights.release();  // the caller's
}

int ScaInfo::ShowAll(StreamWindow& window) {
  VariableTable::ShowAll(window);
  const short count =
      Count([](const ScaData& row) { return IsMissing(row.GetWeigAC()) && !row.IsBeforeData(); });
  if (count == 0) return status::kOk;
  Listing(window)
      .Text("WARNING: ")
      .Number(count)
      .Text(" variable(s) have zero variance.")
      .EndLine()
      .Text("Exclude these variable(s) or include more observations.")
      .EndLine();
  return status::kOk;
}

const char* ScaInfo::Header() const {
  return "  Item  VNum  VNam      ScaType   Weig      WeigAC    ScaC1     ScaC2    WeigM";
}

void ScaInfo::ShowRow(short i, const ScaData& row, StreamWindow& window) const {
  Listing listing(window);
  listing.Right(6, i).Right(6, row.GetINum()).Text(" ").Right(9, row.GetINam());
  listing.Text(" ").Right(8, GetString(row.GetScaType()));
  for (const float value :
       {row.GetWeig(), row.GetWeigAC(), row.GetScaC1(), row.GetScaC2(), row.GetWeigM()}) {
    listing.Text(" ").General(9, value);
  }
  listing.EndLine();
}

}  // namespace zemva
