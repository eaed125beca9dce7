// Variables and observations of a work set that miss too many values.
#include <memory>
#include <string_view>
#include <utility>

#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/workset_edit.h"

namespace zemva {
namespace {

constexpr double kAll = 100.0;  // per cent

double MissingShare(int present, int count) {
  return kAll - present * kAll / count;
}

void Report(StreamWindow& window, std::string_view letter, std::string_view kind, short number,
            const char* name, double share) {
  Listing(window)
      .Text(letter)
      .Text(kind)
      .Number(number)
      .Text(", ")
      .Text(name)
      .Text(" has more than MaxMisVal% missing values (")
      .Fixed(6, 2, share)
      .Text("%).")
      .EndLine();
}

bool IsLimit(float percent) {
  return percent >= 0.0f;
}

}  // namespace

// X or Y.
struct Workset::ScreenedBlock {
  const char* letter;
  VarInfo variables;
  std::unique_ptr<XFMatrix> matrix;
  // The columns of the variables that stay.
  std::vector<short> kept;

  double ShareOfRow(int i) const {
    int present = 0;
    for (const short j : kept) {
      if (!IsMissing((*matrix)[i][j])) ++present;
    }
    return MissingShare(present, static_cast<int>(kept.size()));
  }
};

// Their positions, without repetitions.
struct Workset::Excess {
  std::vector<short> variables;
  std::vector<short> observations;
};

int Workset::MakeScreenedBlocks(const XI1Vector& observations,
                                std::vector<ScreenedBlock>& blocks) const {
  for (const EBlock block : {EBlock::kX, EBlock::kY}) {
    const Selection selection = {EModType::kPLS12, block, observations,
                                 SelectVars(EModType::kPLS12, block)};
    if (selection.columns.empty()) continue;
    std::unique_ptr<XFMatrix> matrix;
    // What is lost on the way is told where the matrix is given out.
    const int status = MakeMatrix(selection, GlobalStreamWindow(), matrix);
    if (status != status::kOk) return status;
    const char* const letter = block == EBlock::kX ? "X" : "Y";
    blocks.push_back({letter, MakeVarInfo(selection), std::move(matrix), {}});
  }
  return blocks.empty() ? status::mva::kTooFewXVariables : status::kOk;
}

void Workset::ScreenVars(float limit, ScreenedBlock& block, Excess& excess) const {
  for (int j = 1; j <= block.variables.GetNVar(); ++j) {
    const auto column = static_cast<short>(j);
    const double share = MissingShare(block.matrix->NValACol(j), block.matrix->NRow());
    if (share <= limit) {
      block.kept.push_back(column);
      continue;
    }
    const short vnum = block.variables.GetVNum(column);
    Report(window_, block.letter, " variable ", vnum, block.variables.GetVNam(column), share);
    excess.variables.push_back(GetVIx(vnum));
  }
}

int Workset::FindExcess(const MissingLimits& limits, Excess& excess) const {
  if (!IsLimit(limits.variable_percent) || !IsLimit(limits.observation_percent)) {
    return status::mva::kArgument;
  }
  const XI1Vector observations = SelectObs(EModType::kPLS12, kNoClass);
  const std::vector<short> rows = Positions(observations);
  if (rows.empty()) return status::mva::kTooFewObservations;
  std::vector<ScreenedBlock> blocks;
  const int status = MakeScreenedBlocks(observations, blocks);
  if (status != status::kOk) return status;

  for (ScreenedBlock& block : blocks) ScreenVars(limits.variable_percent, block, excess);
  std::erase_if(blocks, [](const ScreenedBlock& block) { return block.kept.empty(); });
  int row = 0;
  for (const short i : rows) {
    ++row;
    bool is_beyond = false;
    for (const ScreenedBlock& block : blocks) {
      const double share = block.ShareOfRow(row);
      if (share <= limits.observation_percent) continue;
      Report(window_, block.letter, " observation ", observations_.GetONum(i),
             observations_.GetONam(i), share);
      is_beyond = true;
    }
    if (is_beyond) excess.observations.push_back(i);
  }
  return status::kOk;
}

int Workset::ShowMissing(const MissingLimits& limits) {
  return status_ = MemoryGuarded([&] {
           Excess excess;
           return FindExcess(limits, excess);
         });
}

int Workset::ExcludeMissing(const MissingLimits& limits) {
  return Edit([&] {
    Excess excess;
    const int status = FindExcess(limits, excess);
    if (status != status::kOk) return status;
    for (const short j : excess.variables) usages_[Slot(j)].role = EVarRole::kExcluded;
    for (const short i : excess.observations) memberships_[Slot(i)].is_in = false;
    return status::kOk;
  });
}

}  // namespace zemva
