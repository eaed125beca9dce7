// What a file keeps of a work set.
#include "zemva/model/workset/workset_record.h"

#include <cstring>
#include <memory>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/table_copy.h"
#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/workset_edit.h"

namespace zemva {
namespace {

// The rows of a table that may be null, in one of another name.
template <typename Table>
Table RowsOf(const std::shared_ptr<Table>& table, const char* name) {
  Table rows(name);
  for (const short i : PositionsUpTo(table == nullptr ? 0 : table->GetNItm())) {
    if (rows.AddItm(*table->GetItm(i)) != status::kOk) throw std::bad_alloc();
  }
  rows.ClearIsModified();
  return rows;
}

}  // namespace

WorksetRecord Workset::MakeRecord() const {
  WorksetRecord record;
  record.name = name_;
  record.dataset_name.Set(dataset_.GetDSNam());
  record.observations = CopyRows(observations_);
  record.variables = CopyRows(*variables_);
  for (const Membership& each : memberships_) {
    record.members.push_back(each.is_in);
    record.classes.push_back(each.o_class);
  }
  record.blocks = std::make_shared<BlkInfo>("BlkInfoX", GetNVar());
  std::array<short, BlkInfo::kMaxBlock + 1> counts = {};
  for (const short j : PositionsUpTo(GetNVar())) {
    record.roles.push_back(static_cast<char>(GetRole(j)));
    record.blocks->SetBStat(j, GetBlock(j));
    ++counts[static_cast<std::size_t>(GetBlock(j))];
  }
  for (char b = 1; b <= BlkInfo::kMaxBlock; ++b) {
    const short count = counts[static_cast<std::size_t>(b)];
    if (count == 0 && GetBlockType(b) == BlkInfo::kUndefined) continue;
    const int status = record.blocks->AddItm(b, "", GetBlockType(b), count, kMissing);
    if (status != status::kOk) throw std::bad_alloc();
  }
  record.scalings = CopyRows(scalings_);
  record.transformations = CopyRows(transformations_);
  record.lags = CopyRows(lags_);
  record.terms = CopyRows(terms_);
  return record;
}

bool Workset::HasDataOf(const WorksetRecord& record) const {
  const auto count = [](const ItmInfo* table) {
    return table == nullptr ? short{0} : table->GetNItm();
  };
  if (count(record.observations.get()) != GetNObsDS()) return false;
  if (count(record.variables.get()) != GetNVarDS()) return false;
  for (const short i : PositionsUpTo(GetNObsDS())) {
    if (record.observations->GetONum(i) != observations_.GetONum(i)) return false;
  }
  for (const short j : PositionsUpTo(GetNVarDS())) {
    const bool is_same = record.variables->GetVNum(j) == variables_->GetVNum(j) &&
                         std::strcmp(record.variables->GetVNam(j), variables_->GetVNam(j)) == 0;
    if (!is_same) return false;
  }
  return true;
}

int Workset::TakeRecord(const WorksetRecord& record) {
  return Edit([&] {
    if (!HasDataOf(record)) return status::mva::kInconsistentDatasets;
    std::vector<Membership> memberships(record.members.size());
    for (std::size_t i = 0; i < memberships.size(); ++i) {
      memberships[i] = {record.members[i] != 0, record.classes[i]};
    }
    std::vector<Usage> usages;
    for (const short j : PositionsUpTo(static_cast<int>(record.roles.size()))) {
      const auto role = static_cast<EVarRole>(record.roles[static_cast<std::size_t>(j - 1)]);
      usages.push_back({role, record.blocks->GetBStat(j)});
    }
    std::array<BlkInfo::EBlkType, BlkInfo::kMaxBlock + 1> types = {};
    for (const short i : PositionsUpTo(record.blocks->GetNItm())) {
      types[static_cast<std::size_t>(record.blocks->GetBNum(i))] = record.blocks->GetBType(i);
    }
    ScaInfo scalings = RowsOf(record.scalings, "ScaInfo");
    TraInfo transformations = RowsOf(record.transformations, "TraInfo");
    LagInfo lags = RowsOf(record.lags, "LagInfo");
    ExpInfo terms = RowsOf(record.terms, "ExpInfo");

    name_ = record.name;
    memberships_ = std::move(memberships);
    usages_ = std::move(usages);
    block_types_ = types;
    scalings_ = std::move(scalings);
    transformations_ = std::move(transformations);
    lags_ = std::move(lags);
    terms_ = std::move(terms);
    names_.clear();
    return status::kOk;
  });
}

}  // namespace zemva
