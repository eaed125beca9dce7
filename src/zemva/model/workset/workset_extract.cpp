#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "zemva/data/names.h"
#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/number_set.h"
#include "zemva/model/workset/block_extract.h"
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

std::vector<short> Workset::SelectVars(EModType type, EBlock block) const {
  const Roles roles = RolesOf(type, block);
  std::vector<short> positions;
  positions.reserve(usages_.size());
  for (std::size_t j = 0; j < usages_.size(); ++j) {
    if (roles.Has(usages_[j].role)) positions.push_back(static_cast<short>(j + 1));
  }
  return positions;
}

std::vector<short> Workset::ClassesOf(const XI1Vector& observations) const {
  std::array<bool, ClaInfo::kMaxClass + 1> has_class = {};
  for (const short i : Positions(observations)) {
    has_class[static_cast<std::size_t>(GetOClass(i))] = true;
  }
  std::vector<short> classes;
  for (short c = 1; c <= ClaInfo::kMaxClass; ++c) {
    if (has_class[static_cast<std::size_t>(c)]) classes.push_back(c);
  }
  return classes;
}

Workset::Selection Workset::Select(EModType type, EBlock block, char selector) const {
  Selection selection = {type, block, SelectObs(type, selector), {}};
  selection.columns =
      selection.IsOfClasses() ? ClassesOf(selection.observations) : SelectVars(type, block);
  return selection;
}

int Workset::Check(char selector, const Selection& selection) {
  const auto& [type, block, observations, columns] = selection;
  const Roles roles = RolesOf(type, block);
  const bool is_block = roles.is_x || roles.is_y || selection.IsOfClasses();
  const bool is_class = selector > kNoClass && selector <= ClaInfo::kMaxClass;
  if (!is_block || (type == kPC1Cl && !is_class)) return status::mva::kArgument;
  if (observations.GetNEqual(kSelected) == 0) return status::mva::kTooFewObservations;
  const std::size_t count = columns.size();
  if (block == EBlock::kX) return count < 1 ? status::mva::kTooFewXVariables : status::kOk;
  return count < (IsDiscriminant(type) ? 2 : 1) ? status::mva::kTooFewYVariables : status::kOk;
}

VarInfo Workset::MakeVarInfo(const Selection& selection) const {
  VarInfo variables("VarInfo");
  for (const short column : selection.columns) {
    if (selection.IsOfClasses()) {
      Add(variables, column, NumberedName("Class", column).c_str());
    } else {
      const auto& [table, row] = Locate(column);
      Add(variables, table.GetINum(row), table.GetINam(row));
    }
  }
  return variables;
}

NumberSet Workset::NumbersOf(const Selection& selection) const {
  NumberSet numbers;
  for (const short column : selection.columns) numbers.Add(GetVNum(column));
  return numbers;
}

template <typename Result, typename Make>
Result* Workset::Ext(EModType type, EBlock block, char selector, Make make) {
  return HandOver<Result>(status_, [&](std::unique_ptr<Result>& result) {
    const Selection selection = Select(type, block, selector);
    const int status = Check(selector, selection);
    return status == status::kOk ? make(selection, result) : status;
  });
}

ColumnPlan Workset::MakePlan(const TraInfo& transformations, const VarInfo& wanted) const {
  return ColumnPlan(*variables_, lags_, transformations, terms_, wanted);
}

// Null for classes.
std::unique_ptr<const ColumnPlan> Workset::MakePlan(const Selection& selection,
                                                    const VarInfo& variables) const {
  if (selection.IsOfClasses()) return nullptr;
  return std::make_unique<const ColumnPlan>(MakePlan(transformations_, variables));
}

DataSource Workset::MakeSource(const XI1Vector& observations) const {
  return {dataset_, observations_, *variables_, Positions(observations), Identity(GetNVarDS())};
}

int Workset::MakeMatrix(const Selection& selection, const VarInfo& variables,
                        const ColumnPlan* plan, StreamWindow& window,
                        std::unique_ptr<XFMatrix>& matrix) const {
  const DataSource source = MakeSource(selection.observations);
  if (plan != nullptr) return ExtractColumns(*plan, source, window, matrix);
  std::vector<char> row_classes;
  for (const short i : source.rows) row_classes.push_back(GetOClass(i));
  return MakeClassMatrix(row_classes, variables, matrix);
}

int Workset::MakeMatrix(const Selection& selection, StreamWindow& window,
                        std::unique_ptr<XFMatrix>& matrix) const {
  const VarInfo variables = MakeVarInfo(selection);
  return MakeMatrix(selection, variables, MakePlan(selection, variables).get(), window, matrix);
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

std::unique_ptr<Preparation> Workset::MakePreparation(
    const Selection& selection, const std::shared_ptr<VarInfo>& variables,
    std::unique_ptr<const ColumnPlan> plan) const {
  auto made = std::make_unique<Preparation>(Preparation{
      this, selection.block, selection.observations, variables_, variables, std::move(plan)});
  Whole(made->members);
  return made;
}

int Workset::MakeScaInfo(const Selection& selection, const VarInfo& variables,
                         const XFMatrix& matrix, std::unique_ptr<ScaInfo>& table) const {
  table = std::make_unique<ScaInfo>("ScaInfoX");
  if (!selection.IsOfClasses()) return table->SetScaInfo(&variables, &matrix, this, true);
  const int added = table->AddVars(variables);
  return added == status::kOk ? table->UpdateAll(&variables, &matrix) : added;
}

template <typename Table>
std::unique_ptr<Table> Workset::MakeRows(const Selection& selection, const Table& rows,
                                         Table* (Table::*extract)(const XI1Vector*) const) const {
  // The numbers of classes are not those of variables.
  if (rows.GetNItm() == 0 || selection.IsOfClasses()) return nullptr;
  const XI1Vector wanted = NumbersOf(selection).Select(rows);
  if (wanted.GetNEqual(kSelected) == 0) return nullptr;
  return Owned((rows.*extract)(&wanted));
}

int Workset::MakeBlkInfo(const Selection& selection, std::unique_ptr<BlkInfo>& table) const {
  const auto has_block = [](const Usage& usage) { return usage.block != kNoBlock; };
  if (selection.IsOfClasses() || std::ranges::none_of(usages_, has_block)) return status::kOk;
  const NumberSet taken = NumbersOf(selection);
  const auto lags = Owned(lags_.ExtLagInfo(taken.Select(lags_).GetPtr()));
  const auto terms = Owned(terms_.ExtExpInfo(taken.Select(terms_).GetPtr()));
  const XI1Vector variables = taken.Select(*variables_);
  auto blocks = std::make_unique<BlkInfo>("BlkInfoX", short{0});
  const int status = blocks->SetBlkInfo(&variables, kSelected, lags.get(), terms.get(), this);
  if (status == status::kOk && blocks->GetNItm() > 0) table = std::move(blocks);
  return status;
}

XFMatrix* Workset::ExtMatrix(EModType type, EBlock block, char selector) {
  return ExtMatrix(type, block, selector, window_);
}

XFMatrix* Workset::ExtMatrix(EModType type, EBlock block, char selector, StreamWindow& window) {
  return Ext<XFMatrix>(type, block, selector, [&](const Selection& selection, auto& matrix) {
    return MakeMatrix(selection, window, matrix);
  });
}

Preparation* Workset::ExtPreparation(EModType type, EBlock block, char selector) {
  return Ext<Preparation>(type, block, selector, [&](const Selection& selection, auto& result) {
    const auto variables = std::make_shared<VarInfo>(MakeVarInfo(selection));
    result = MakePreparation(selection, variables, MakePlan(selection, *variables));
    return status::kOk;
  });
}

ObsInfo* Workset::ExtObsInfo(EModType type, char selector) {
  return Ext<ObsInfo>(type, EBlock::kX, selector, [&](const Selection& selection, auto& table) {
    table = Owned(observations_.ExtObsInfo(&selection.observations));
    return status::kOk;
  });
}

VarInfo* Workset::ExtVarInfo(EModType type, EBlock block, char selector) {
  return Ext<VarInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    table = std::make_unique<VarInfo>(MakeVarInfo(selection));
    return status::kOk;
  });
}

ScaInfo* Workset::ExtScaInfo(EModType type, EBlock block, char selector, const XFMatrix* matrix) {
  return Ext<ScaInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    std::unique_ptr<XFMatrix> made;
    if (matrix == nullptr) {
      // What is lost on the way is told where the matrix is given out.
      const int status = MakeMatrix(selection, GlobalStreamWindow(), made);
      if (status != status::kOk) return status;
      matrix = made.get();
    }
    return MakeScaInfo(selection, MakeVarInfo(selection), *matrix, table);
  });
}

TraInfo* Workset::ExtTraInfo(EModType type, EBlock block, char selector) {
  return Ext<TraInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    table = MakeRows(selection, transformations_, &TraInfo::ExtTraInfo);
    return status::kOk;
  });
}

ExpInfo* Workset::ExtExpInfo(EModType type, EBlock block, char selector) {
  return Ext<ExpInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    table = MakeRows(selection, terms_, &ExpInfo::ExtExpInfo);
    return status::kOk;
  });
}

LagInfo* Workset::ExtLagInfo(EModType type, EBlock block, char selector) {
  return Ext<LagInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    table = MakeRows(selection, lags_, &LagInfo::ExtLagInfo);
    return status::kOk;
  });
}

BlkInfo* Workset::ExtBlkInfo(EModType type, EBlock block, char selector) {
  return Ext<BlkInfo>(type, block, selector, [&](const Selection& selection, auto& table) {
    return MakeBlkInfo(selection, table);
  });
}

int Workset::ExtBlock(EModType type, EBlock block, char selector, StreamWindow& window,
                      BlockExtract& extract) {
  return status_ = MemoryGuarded([&] {
           const Selection selection = Select(type, block, selector);
           int status = Check(selector, selection);
           if (status != status::kOk) return status;
           const auto variables = std::make_shared<VarInfo>(MakeVarInfo(selection));
           auto plan = MakePlan(selection, *variables);
           std::unique_ptr<XFMatrix> matrix;
           status = MakeMatrix(selection, *variables, plan.get(), window, matrix);
           if (status != status::kOk) return status;
           std::unique_ptr<ScaInfo> scalings;
           status = MakeScaInfo(selection, *variables, *matrix, scalings);
           if (status != status::kOk) return status;
           std::unique_ptr<BlkInfo> blocks;
           status = MakeBlkInfo(selection, blocks);
           if (status != status::kOk) return status;
           extract = {std::move(matrix),
                      MakePreparation(selection, variables, std::move(plan)),
                      variables,
                      std::move(scalings),
                      MakeRows(selection, transformations_, &TraInfo::ExtTraInfo),
                      MakeRows(selection, terms_, &ExpInfo::ExtExpInfo),
                      MakeRows(selection, lags_, &LagInfo::ExtLagInfo),
                      std::move(blocks)};
           return status::kOk;
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
