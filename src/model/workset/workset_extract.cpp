#include <array>
#include <new>
#include <numeric>
#include <utility>

#include "data/names.h"
#include "data/selection.h"
#include "errors/status.h"
#include "model/workset/extraction.h"
#include "model/workset/workset.h"

namespace zemva {
namespace {

using enum EModType;

// The roles that make up a block of a model.
struct Roles {
  bool is_x;
  bool is_y;

  bool Has(EVarRole role) const {
    return (is_x && role == EVarRole::kX) || (is_y && role == EVarRole::kY);
  }
};

Roles RolesOf(EModType type, EBlock block) {
  const bool is_x_block = block == EBlock::kX;
  switch (type) {
    case kPC1:
    case kPC1Cl:
    case kNoVarianceCheck:
    case kPLS1DA:
    case kPLS1DAOld:
      return {is_x_block, false};
    case kPC2:
      return {false, is_x_block};
    case kPCAll:
      return {is_x_block, is_x_block};
    case kPLS12:
      return {is_x_block, !is_x_block};
    case kPLS21:
      return {!is_x_block, is_x_block};
  }
  return {false, false};
}

bool IsOfClasses(EModType type) {
  return type == kPLS1DA || type == kPLS1DAOld;
}

// Whether the block stands for the classes and not for variables.
bool IsClassBlock(EModType type, EBlock block) {
  return IsOfClasses(type) && block == EBlock::kY;
}

void Add(VarInfo& variables, short vnum, const char* name) {
  if (variables.AddVar(vnum, name) != status::kOk) throw std::bad_alloc();
}

// The positions that are selected.
std::vector<short> Positions(const XI1Vector& selection) {
  std::vector<short> positions;
  for (int i = 1; i <= selection.NVal(); ++i) {
    if (selection[i] == kSelected) positions.push_back(static_cast<short>(i));
  }
  return positions;
}

// Each element is its own position.
std::vector<short> Identity(int count) {
  std::vector<short> positions(static_cast<std::size_t>(count));
  std::iota(positions.begin(), positions.end(), short{1});
  return positions;
}

}  // namespace

XI1Vector Workset::SelectObs(EModType type, char selector) const {
  return SelectIf(GetNObsDS(), [&](short i) {
    const char c = GetOClass(i);
    const bool is_of_model = type == kPC1Cl ? c == selector : !IsOfClasses(type) || c != kNoClass;
    return is_of_model && IsObsIn(i);
  });
}

VarInfo Workset::SelectVars(EModType type, EBlock block) const {
  if (IsClassBlock(type, block)) return MakeClassVars(SelectObs(type, kNoClass));
  VarInfo variables("VarInfo");
  const Roles roles = RolesOf(type, block);
  for (int j = 1; j <= GetNVar(); ++j) {
    const auto position = static_cast<short>(j);
    if (roles.Has(GetRole(position))) Add(variables, GetVNum(position), GetVNam(position));
  }
  return variables;
}

VarInfo Workset::MakeClassVars(const XI1Vector& observations) const {
  std::array<bool, ClaInfo::kMaxClass + 1> has_class = {};
  for (const short i : Positions(observations)) {
    has_class[static_cast<std::size_t>(GetOClass(i))] = true;
  }
  VarInfo variables("VarInfo");
  for (short c = 1; c <= ClaInfo::kMaxClass; ++c) {
    if (has_class[static_cast<std::size_t>(c)]) {
      Add(variables, c, NumberedName("Class", c).c_str());
    }
  }
  return variables;
}

int Workset::Check(EModType type, EBlock block, char selector, const Selection& selection) {
  const Roles roles = RolesOf(type, block);
  const bool is_block = roles.is_x || roles.is_y || IsClassBlock(type, block);
  const bool is_class = selector > kNoClass && selector <= ClaInfo::kMaxClass;
  if (!is_block || (type == kPC1Cl && !is_class)) return status::mva::kArgument;
  if (Positions(selection.observations).empty()) return status::mva::kTooFewObservations;
  const short count = selection.variables.GetNVar();
  if (block == EBlock::kX) return count < 1 ? status::mva::kTooFewXVariables : status::kOk;
  return count < (IsOfClasses(type) ? 2 : 1) ? status::mva::kTooFewYVariables : status::kOk;
}

template <typename Result, typename Make>
Result* Workset::Ext(EModType type, EBlock block, char selector, Make make) {
  return HandOver<Result>(status_, [&](std::unique_ptr<Result>& result) {
    Selection selection = {SelectObs(type, selector), SelectVars(type, block)};
    const int status = Check(type, block, selector, selection);
    return status == status::kOk ? make(selection, result) : status;
  });
}

int Workset::MakeMatrix(EModType type, EBlock block, const Selection& selection,
                        StreamWindow& window, std::unique_ptr<XFMatrix>& matrix) const {
  if (IsClassBlock(type, block)) return MakeClassMatrix(selection, matrix);
  const ColumnPlan plan(variables_, lags_, transformations_, terms_, selection.variables);
  const DataSource source = {dataset_,
                             GetNObsDS(),
                             GetNVarDS(),
                             observations_,
                             Positions(selection.observations),
                             Identity(GetNVarDS())};
  return ExtractColumns(plan, source, window, matrix);
}

// A column for each class, which is the number of a variable: 1 where the observation is in it.
int Workset::MakeClassMatrix(const Selection& selection, std::unique_ptr<XFMatrix>& matrix) const {
  const std::vector<short> rows = Positions(selection.observations);
  const VarInfo& classes = selection.variables;
  matrix = std::make_unique<XFMatrix>("Y", static_cast<int>(rows.size()), classes.GetNVar(), 0.0f);
  if (matrix->GetStatus() != status::kOk) return status::mva::kMemory;
  for (int i = 1; i <= matrix->NRow(); ++i) {
    const short j = classes.GetVIx(short{GetOClass(rows[static_cast<std::size_t>(i - 1)])});
    (*matrix)[i][j] = 1.0f;
  }
  matrix->SetActValInfo();
  return status::kOk;
}

XFMatrix* Workset::ExtMatrix(EModType type, EBlock block, char selector) {
  return Ext<XFMatrix>(type, block, selector, [&](const Selection& selection, auto& matrix) {
    return MakeMatrix(type, block, selection, window_, matrix);
  });
}

ObsInfo* Workset::ExtObsInfo(EModType type, char selector) {
  return Ext<ObsInfo>(type, EBlock::kX, selector, [&](const Selection& selection, auto& table) {
    table.reset(observations_.ExtObsInfo(&selection.observations));
    return table == nullptr ? status::mva::kMemory : status::kOk;
  });
}

VarInfo* Workset::ExtVarInfo(EModType type, EBlock block, char selector) {
  return Ext<VarInfo>(type, block, selector, [&](Selection& selection, auto& table) {
    table = std::make_unique<VarInfo>(std::move(selection.variables));
    return status::kOk;
  });
}

ScaInfo* Workset::ExtScaInfo(EModType type, EBlock block, char selector) {
  return Ext<ScaInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    std::unique_ptr<XFMatrix> matrix;
    // What is lost on the way is told where the matrix is given out.
    const int status = MakeMatrix(type, block, selection, GlobalStreamWindow(), matrix);
    if (status != status::kOk) return status;
    table = std::make_unique<ScaInfo>("ScaInfoX");
    return AddScalings(IsClassBlock(type, block), selection.variables, *matrix, *table);
  });
}

int Workset::AddScalings(bool is_class_block, const VarInfo& variables, const XFMatrix& matrix,
                         ScaInfo& table) const {
  const XI1Vector all = SelectIf(matrix.NRow(), [](short) { return true; });
  for (int j = 1; j <= variables.GetNVar(); ++j) {
    const short vnum = variables.GetVNum(static_cast<short>(j));
    const char* const name = variables.GetVNam(static_cast<short>(j));
    const ScaData row = is_class_block ? ScaData(vnum, name, EScaType::kUV)
                                       : *scalings_.GetItm(scalings_.FindVar(vnum));
    int status = table.AddItm(row);
    if (status == status::kOk) {
      status = table.Update(vnum, &variables, &matrix, &all, row.GetScaType());
    }
    if (status != status::kOk) return status;
  }
  return status::kOk;
}

ClaInfo* Workset::ExtClaInfo(EModType type, char selector) {
  return Ext<ClaInfo>(type, EBlock::kX, selector, [&](const Selection& selection, auto& table) {
    ClaInfo classes("ClaInfo", GetNObsDS());
    int status = classes.SetClaInfo(this);
    if (status == status::kOk) {
      table.reset(classes.ExtClaInfo(&selection.observations));
      status = classes.GetStatus();
    }
    return status;
  });
}

}  // namespace zemva
