// What a file keeps of a block.
#include <memory>
#include <utility>

#include "zemva/data/table_copy.h"
#include "zemva/model/block/data_block.h"
#include "zemva/model/preprocess/number_set.h"

namespace zemva {
namespace {

template <typename Table>
Table RowsOf(const std::shared_ptr<Table>& table, const char* name) {
  return table == nullptr ? Table(name) : *table;
}

// The rows of the variables, null where none has one.
template <typename Table>
std::shared_ptr<Table> SelectRows(const Table& table, const VarInfo& variables,
                                  Table* (Table::*extract)(const XI1Vector*) const) {
  const XI1Vector wanted = NumberSet(variables).Select(table);
  if (wanted.GetNEqual(kSelected) == 0) return nullptr;
  return Owned((table.*extract)(&wanted));
}

}  // namespace

BlockRecord DataBlock::MakeRecord() const {
  BlockRecord record(block_);
  if (!info_) return record;
  record.column_count = GetColumnCount();
  record.variables = preparation_->variables;
  record.scalings = scalings_;
  record.blocks = blocks_;
  if (preparation_->plan != nullptr) {
    record.transformations = CopyRows(preparation_->plan->GetTransformations());
    record.terms = CopyRows(preparation_->plan->GetTerms());
    record.lags = CopyRows(preparation_->plan->GetLags());
  }
  record.info = info_;
  if (block_ == EBlock::kY) record.values = values_;
  return record;
}

DataBlock::DataBlock(EModType type, const BlockRecord& record, const XI1Vector& members,
                     const std::shared_ptr<VarInfo>& dataset_variables)
    : block_(record.block),
      values_(record.values),
      variables_(record.variables),
      scalings_(record.scalings),
      blocks_(record.blocks),
      info_(record.info) {
  if (!info_) return;
  if (!record.IsOfLoaded()) variables_ = nullptr;
  // Nothing has modelling power before the first component, and what is not centred no centre.
  const bool has_centre = GetStage(0) != nullptr;
  const CentInfo empty(GetLetter(), has_centre ? 0 : info_->loaded.sso.NVal(), record.column_count);
  info_->loaded.mpow = empty.loaded.mpow;
  info_->average = empty.average;
  if (!has_centre) {
    info_->reference = empty.reference;
    info_->centred = empty.centred;
  } else {
    if (info_->centred.mpow.NVal() == 0) info_->centred.mpow = empty.centred.mpow;
    SetAverage();
    if (values_ != nullptr) MakeResiduals();
  }

  std::unique_ptr<const ColumnPlan> plan;
  if (!IsClassBlock(type, block_)) {
    const TraInfo transformations = RowsOf(record.transformations, "TraInfoX");
    const ExpInfo terms = RowsOf(record.terms, "ExpInfoX");
    const LagInfo lags = RowsOf(record.lags, "LagInfoX");
    if (record.IsOfLoaded()) {
      transformations_ = SelectRows(transformations, *record.variables, &TraInfo::ExtTraInfo);
      terms_ = SelectRows(terms, *record.variables, &ExpInfo::ExtExpInfo);
      lags_ = SelectRows(lags, *record.variables, &LagInfo::ExtLagInfo);
    }
    plan = std::make_unique<const ColumnPlan>(*dataset_variables, lags, transformations, terms,
                                              *record.variables);
  }
  preparation_ = std::make_shared<const Preparation>(
      Preparation{nullptr, block_, members, dataset_variables, record.variables, std::move(plan)});
}

}  // namespace zemva
