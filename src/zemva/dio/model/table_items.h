// The tables of observations, variables and preprocessing as items of models and work sets.
#ifndef ZEMVA_DIO_MODEL_TABLE_ITEMS_H
#define ZEMVA_DIO_MODEL_TABLE_ITEMS_H

#include <memory>

#include "zemva/data/blk_info.h"
#include "zemva/data/cla_info.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/dio/model/stored_item.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"

namespace zemva {

// The tag of the item that keeps a table of a class.
template <class Table>
inline constexpr const char* kTableTag = nullptr;
template <>
inline constexpr const char* kTableTag<ObsInfo> = "obji";
template <>
inline constexpr const char* kTableTag<ClaInfo> = "iv1";
template <>
inline constexpr const char* kTableTag<VarInfo> = "vari";
template <>
inline constexpr const char* kTableTag<ScaInfo> = "scai";
template <>
inline constexpr const char* kTableTag<TraInfo> = "trai";
template <>
inline constexpr const char* kTableTag<ExpInfo> = "expi";
template <>
inline constexpr const char* kTableTag<LagInfo> = "lagi";
template <>
inline constexpr const char* kTableTag<BlkInfo> = "blki";

void AddTable(const ObsInfo& table, PayloadWriter& payload);
void AddTable(const ClaInfo& table, PayloadWriter& payload);
void AddTable(const VarInfo& table, PayloadWriter& payload);
void AddTable(const ScaInfo& table, PayloadWriter& payload);
void AddTable(const TraInfo& table, PayloadWriter& payload);
void AddTable(const ExpInfo& table, PayloadWriter& payload);
void AddTable(const LagInfo& table, PayloadWriter& payload);
void AddTable(const BlkInfo& table, PayloadWriter& payload);

// Make a new table, as a work set hands it out. Throw std::bad_alloc.
void TakeTable(PayloadReader& payload, std::shared_ptr<ObsInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<ClaInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<VarInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<ScaInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<TraInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<ExpInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<LagInfo>& table);
void TakeTable(PayloadReader& payload, std::shared_ptr<BlkInfo>& table);

// A table that is null is not there. `Access` gives the std::shared_ptr to it.
template <class Table, class Record, class Access>
constexpr StoredItem<Record> TableItem(ItemName name, Access /*access*/) {
  return {
      name, kTableTag<Table>, [](const Record& record) { return Access{}(record) != nullptr; },
      [](const Record& record, PayloadWriter& payload) { AddTable(*Access{}(record), payload); },
      [](Record& record, PayloadReader& payload) { TakeTable(payload, Access{}(record)); }};
}

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_TABLE_ITEMS_H
