#include <array>
#include <new>
#include <utility>

#include "zemva/data/names.h"
#include "zemva/data/selection.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/number_set.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/preparation.h"
#include "zemva/model/workset/workset.h"

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

void Add(VarInfo& variables, short vnum, const char* name) {
  if (variables.AddVar(vnum, name) != status::kOk) throw std::bad_alloc();
}

}  // namespace

XI1Vector Workset::SelectObs(EModType type, char selector) const {
  return SelectIf(GetNObsDS(), [&](short i) {
    const char c = GetOClass(i);
    const bool is_of_model =
        type == kPC1Cl ? c == selector : !IsDiscriminant(type) || c != kNoClass;
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
  return count < (IsDiscriminant(type) ? 2 : 1) ? status::mva::kTooFewYVariables : status::kOk;
}

template <typename Result, typename Make>
Result* Workset::Ext(EModType type, EBlock block, char selector, Make make) {
  return HandOver<Result>(status_, [&](std::unique_ptr<Result>& result) {
    Selection selection = {SelectObs(type, selector), SelectVars(type, block)};
    const int status = Check(type, block, selector, selection);
    return status == status::kOk ? make(selection, result) : status;
  });
}

ColumnPlan Workset::MakePlan(const TraInfo& transformations, const VarInfo& wanted) const {
  return ColumnPlan(variables_, lags_, transformations, terms_, wanted);
}

DataSource Workset::MakeSource(const XI1Vector& observations) const {
  return {dataset_, observations_, variables_, Positions(observations), Identity(GetNVarDS())};
}

int Workset::MakeMatrix(EModType type, EBlock block, const Selection& selection,
                        StreamWindow& window, std::unique_ptr<XFMatrix>& matrix) const {
  const DataSource source = MakeSource(selection.observations);
  if (IsClassBlock(type, block)) {
    std::vector<char> row_classes;
    for (const short i : source.rows) row_classes.push_back(GetOClass(i));
    return MakeClassMatrix(row_classes, selection.variables, matrix);
  }
  const ColumnPlan plan = MakePlan(transformations_, selection.variables);
  return ExtractColumns(plan, source, window, matrix);
}

// A column for each class, which is the number of a variable: 1 where the observation is in it, 0
// where it is in another one, missing where it is in none.
int Workset::MakeClassMatrix(const std::vector<char>& row_classes, const VarInfo& classes,
                             std::unique_ptr<XFMatrix>& matrix) {
  matrix = std::make_unique<XFMatrix>("Y", static_cast<int>(row_classes.size()), classes.GetNVar(),
                                      kMissing);
  if (matrix->GetStatus() != status::kOk) return status::mva::kMemory;
  int i = 0;
  for (const char c : row_classes) {
    ++i;
    const short own = classes.GetVIx(short{c});
    if (own == 0) continue;
    for (int j = 1; j <= matrix->NCol(); ++j) (*matrix)[i][j] = j == own ? 1.0f : 0.0f;
  }
  matrix->SetActValInfo();
  return status::kOk;
}

XFMatrix* Workset::ExtMatrix(EModType type, EBlock block, char selector) {
  return ExtMatrix(type, block, selector, window_);
}

XFMatrix* Workset::ExtMatrix(EModType type, EBlock block, char selector, StreamWindow& window) {
  return Ext<XFMatrix>(type, block, selector, [&](const Selection& selection, auto& matrix) {
    return MakeMatrix(type, block, selection, window, matrix);
  });
}

Preparation* Workset::ExtPreparation(EModType type, EBlock block, char selector) {
  return Ext<Preparation>(type, block, selector, [&](Selection& selection, auto& preparation) {
    std::unique_ptr<const ColumnPlan> plan;
    if (!IsClassBlock(type, block)) {
      plan = std::make_unique<const ColumnPlan>(MakePlan(transformations_, selection.variables));
    }
    preparation = std::make_unique<Preparation>(
        Preparation{this, block, selection.observations, std::make_shared<VarInfo>(variables_),
                    std::move(selection.variables), std::move(plan)});
    return status::kOk;
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

ScaInfo* Workset::ExtScaInfo(EModType type, EBlock block, char selector, const XFMatrix* matrix) {
  return Ext<ScaInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    std::unique_ptr<XFMatrix> made;
    if (matrix == nullptr) {
      // What is lost on the way is told where the matrix is given out.
      const int status = MakeMatrix(type, block, selection, GlobalStreamWindow(), made);
      if (status != status::kOk) return status;
      matrix = made.get();
    }
    table = std::make_unique<ScaInfo>("ScaInfoX");
    const VarInfo& variables = selection.variables;
    if (!IsClassBlock(type, block)) return table->SetScaInfo(&variables, matrix, this, true);
    const int added = table->AddVars(variables);
    return added == status::kOk ? table->UpdateAll(&variables, matrix) : added;
  });
}

template <typename Table>
Table* Workset::ExtRows(EModType type, EBlock block, char selector, const Table& rows,
                        Table* (Table::*extract)(const XI1Vector*) const) {
  return Ext<Table>(type, block, selector, [&](const Selection& selection, auto& table) {
    // The numbers of classes are not those of variables.
    if (IsClassBlock(type, block)) return status::kOk;
    const XI1Vector wanted = NumberSet(selection.variables).Select(rows);
    if (wanted.GetNEqual(kSelected) == 0) return status::kOk;
    table.reset((rows.*extract)(&wanted));
    return table == nullptr ? status::mva::kMemory : status::kOk;
  });
}

TraInfo* Workset::ExtTraInfo(EModType type, EBlock block, char selector) {
  return ExtRows(type, block, selector, transformations_, &TraInfo::ExtTraInfo);
}

ExpInfo* Workset::ExtExpInfo(EModType type, EBlock block, char selector) {
  return ExtRows(type, block, selector, terms_, &ExpInfo::ExtExpInfo);
}

LagInfo* Workset::ExtLagInfo(EModType type, EBlock block, char selector) {
  return ExtRows(type, block, selector, lags_, &LagInfo::ExtLagInfo);
}

BlkInfo* Workset::ExtBlkInfo(EModType type, EBlock block, char selector) {
  return Ext<BlkInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    if (IsClassBlock(type, block)) return status::kOk;
    const NumberSet taken(selection.variables);
    const auto lags = Owned(lags_.ExtLagInfo(taken.Select(lags_).GetPtr()));
    const auto terms = Owned(terms_.ExtExpInfo(taken.Select(terms_).GetPtr()));
    const XI1Vector variables = taken.Select(variables_);
    auto blocks = std::make_unique<BlkInfo>("BlkInfoX", short{0});
    const int status = blocks->SetBlkInfo(&variables, kSelected, lags.get(), terms.get(), this);
    if (status == status::kOk && blocks->GetNItm() > 0) table = std::move(blocks);
    return status;
  });
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
