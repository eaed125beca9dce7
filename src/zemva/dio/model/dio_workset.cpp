#include "zemva/dio/model/dio_workset.h"

#include <algorithm>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/cla_info.h"
#include "zemva/dio/file/dio_guard.h"
#include "zemva/dio/model/table_check.h"
#include "zemva/dio/model/table_items.h"
#include "zemva/model/workset/workset.h"

namespace zemva {
namespace {

// clang-format off
constexpr StoredItem<WorksetRecord> kItems[] = {
    TextItem<WorksetRecord>(NameOf("ItemName"), "sz25", [](auto& w) -> auto& { return w.name; }),
    TextItem<WorksetRecord>(NameOf("DSName"), "sz25", [](auto& w) -> auto& { return w.dataset_name; }),
    TableItem<ObsInfo, WorksetRecord>(NameOf("ObjInfo"), [](auto& w) -> auto& { return w.observations; }),
    BytesItem<WorksetRecord>(NameOf("OStatus"), [](auto& w) -> auto& { return w.members; }),
    BytesItem<WorksetRecord>(NameOf("oClass"), [](auto& w) -> auto& { return w.classes; }),
    TableItem<VarInfo, WorksetRecord>(NameOf("VarInfo"), [](auto& w) -> auto& { return w.variables; }),
    BytesItem<WorksetRecord>(NameOf("VStatus"), [](auto& w) -> auto& { return w.roles; }),
    TableItem<BlkInfo, WorksetRecord>(NameOf("BlkInfoX"), [](auto& w) -> auto& { return w.blocks; }),
    TableItem<ScaInfo, WorksetRecord>(NameOf("ScaInfoX"), [](auto& w) -> auto& { return w.scalings; }),
    TableItem<TraInfo, WorksetRecord>(NameOf("TraInfoX"), [](auto& w) -> auto& { return w.transformations; }),
    TableItem<ExpInfo, WorksetRecord>(NameOf("ExpInfoX"), [](auto& w) -> auto& { return w.terms; }),
    TableItem<LagInfo, WorksetRecord>(NameOf("LagInfoX"), [](auto& w) -> auto& { return w.lags; }),
};
// clang-format on

constexpr std::span<const StoredItem<WorksetRecord>> kAllItems = kItems;

bool AreBytes(const std::vector<char>& bytes, int length, int most) {
  return std::ssize(bytes) == length &&
         std::ranges::all_of(bytes, [&](char byte) { return byte >= 0 && byte <= most; });
}

bool IsScaling(const ScaData& row) {
  const EScaType type = row.GetScaType();
  const bool is_fixed = type == EScaType::kFW || type == EScaType::kFWN;
  const bool is_of_data = type >= EScaType::kUV && type <= EScaType::kNone;
  const bool has_modifier = IsMissing(row.GetScaC1()) || row.GetScaC1() > 0.0f;
  return has_modifier && (is_fixed ? row.GetWeig() >= 0.0f : is_of_data);
}

// Whether the scalings have a row for each variable, in order.
bool AreScalings(const WorksetRecord& record) {
  short position = 0;
  for (const ItmInfo* table : std::initializer_list<const ItmInfo*>{
           record.variables.get(), record.lags.get(), record.terms.get()}) {
    for (const short i : PositionsUpTo(table == nullptr ? 0 : table->GetNItm())) {
      const ScaData* const row = record.scalings->GetItm(++position);
      if (row == nullptr || row->GetINum() != table->GetINum(i) || !IsScaling(*row)) return false;
    }
  }
  return position == record.scalings->GetNItm();
}

bool IsConsistent(const WorksetRecord& record) {
  const auto count = [](const ItmInfo* table) {
    return table == nullptr ? 0 : int{table->GetNItm()};
  };
  const int variable_count =
      count(record.variables.get()) + count(record.lags.get()) + count(record.terms.get());
  const int row_count = count(record.observations.get());
  if (record.variables == nullptr || record.scalings == nullptr || record.blocks == nullptr ||
      variable_count > kMaxItems) {
    return false;
  }
  const MadeOf tables = {*record.variables, record.lags.get(), record.transformations.get(),
                         record.terms.get()};
  return AreBytes(record.members, row_count, 1) &&
         AreBytes(record.classes, row_count, ClaInfo::kMaxClass) &&
         AreBytes(record.roles, variable_count, static_cast<int>(EVarRole::kY)) &&
         AreBlocks(*record.blocks, variable_count) && CanBeMade(tables) && AreScalings(record);
}

}  // namespace

DioWorkset::DioWorkset(const char* path, StreamWindow& window)
    : file_(path, window, SuperItem::kWorkset, kVersion), window_(window) {}

int DioWorkset::Load(WorksetRecord& record) {
  return Guarded(file_.GetFile(), &window_, [&] {
    WorksetRecord read;
    const int status = file_.ReadAll(kAllItems, read);
    if (status != status::kOk) return status;
    if (!IsConsistent(read)) return status::dio::kReadError;
    record = std::move(read);
    return status::kOk;
  });
}

int DioWorkset::Save(const WorksetRecord& record) {
  if (const int status = file_.CheckTarget(); status != status::kOk) return status;
  return Guarded(file_.GetFile(), nullptr, [&] {
    if (!IsConsistent(record)) return status::dio::kConversion;
    return file_.Write(record.name.View(), [&](const StoredFile::Sink& sink) {
      return WriteItems(kAllItems, record, kNoComponent, sink);
    });
  });
}

}  // namespace zemva
