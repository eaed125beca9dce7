#include "zemva/dio/model/dio_model.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "zemva/dio/file/dio_guard.h"
#include "zemva/dio/model/model_check.h"
#include "zemva/dio/model/model_items.h"

namespace zemva {
namespace {

int WriteAll(const ModelRecord& record, const StoredFile::Sink& sink) {
  int status = WriteItems(ModelItems(), record, kNoComponent, sink);
  for (const EBlock block : {EBlock::kX, EBlock::kY}) {
    const bool is_there = block == EBlock::kX || record.HasY();
    if (status != status::kOk || !is_there) break;
    status = WriteItems(BlockItems(block), record.Block(block), kNoComponent, sink);
  }
  int a = 0;
  for (const auto& component : record.components) {
    if (status == status::kOk) status = WriteItems(ComponentItems(), *component, ++a, sink);
  }
  return status;
}

}  // namespace

DioModel::DioModel(const char* path, StreamWindow& window)
    : file_(path, window, SuperItem::kModel, kVersion), window_(window) {}

int DioModel::Load(ModelRecord& record) {
  return Guarded(file_.GetFile(), &window_, [&] {
    SuperItem super_item;
    file_.Open(super_item);
    ModelRecord read;
    const int status = ReadBody(read, super_item.header.PayloadSize());
    if (status != status::kOk) return status;
    if (!IsConsistent(read)) return status::dio::kReadError;
    record = std::move(read);
    return status::kOk;
  });
}

int DioModel::ReadBody(ModelRecord& record, std::int64_t size) {
  seen_in_model_.assign(ModelItems().size(), false);
  seen_in_x_.assign(BlockItems(EBlock::kX).size(), false);
  seen_in_y_.assign(BlockItems(EBlock::kY).size(), false);
  std::int64_t sum = 0;
  while (sum < size) {
    std::int64_t item_size = 0;
    const int status = ReadNextItem(record, item_size);
    if (status != status::kOk) return status;
    sum += item_size;
  }
  if (sum != size) return status::dio::kReadError;
  return record.components.empty() ? FinishModel(record) : FinishComponent(record);
}

int DioModel::ReadNextItem(ModelRecord& record, std::int64_t& size) {
  StoredFile::Item item;
  file_.GetItem(item);
  size = item.header.size;
  if (!item.is_known) return file_.PassOver(item);
  if (item.component == kNoComponent) {
    if (IsIn(BlockItems(EBlock::kX), item.name)) {
      return file_.Read(BlockItems(EBlock::kX), item, seen_in_x_, record.x);
    }
    if (IsIn(BlockItems(EBlock::kY), item.name)) {
      return file_.Read(BlockItems(EBlock::kY), item, seen_in_y_, record.y);
    }
    return file_.Read(ModelItems(), item, seen_in_model_, record);
  }
  if (!IsIn(ComponentItems(), item.name)) return file_.PassOver(item);
  const int status = StartComponent(record, item.component);
  return status == status::kOk
             ? file_.Read(ComponentItems(), item, seen_in_component_, *record.components.back())
             : status;
}

int DioModel::StartComponent(ModelRecord& record, int a) {
  const auto last = static_cast<int>(record.components.size());
  if (last > 0 && a == last) return status::kOk;
  if (a != last + 1 || a > record.component_count) return status::dio::kReadError;
  const int status = last == 0 ? FinishModel(record) : FinishComponent(record);
  if (status != status::kOk) return status;
  CompInfo& component = *record.components.emplace_back(std::make_shared<CompInfo>(a, 0, 0, 0));
  if (record.HasY()) component.y.emplace('Y', a, 0, 0);
  seen_in_component_.assign(ComponentItems().size(), false);
  return status::kOk;
}

int DioModel::FinishModel(const ModelRecord& record) const {
  const bool has_y = std::ranges::find(seen_in_y_, true) != seen_in_y_.end();
  const bool is_complete = AreComplete(ModelItems(), seen_in_model_, record) &&
                           AreComplete(BlockItems(EBlock::kX), seen_in_x_, record.x) &&
                           (!has_y || AreComplete(BlockItems(EBlock::kY), seen_in_y_, record.y));
  return is_complete && has_y == record.HasY() ? status::kOk : status::dio::kReadError;
}

int DioModel::FinishComponent(const ModelRecord& record) const {
  return AreComplete(ComponentItems(), seen_in_component_, *record.components.back())
             ? status::kOk
             : status::dio::kReadError;
}

int DioModel::Save(const ModelRecord& record) {
  if (record.components.size() > kMostModelComponents) return status::mva::kTooManyComponents;
  if (const int status = file_.CheckTarget(); status != status::kOk) return status;
  return Guarded(file_.GetFile(), nullptr, [&] {
    if (!IsConsistent(record)) return status::dio::kConversion;
    return file_.Write(record.header.name.View(),
                       [&](const StoredFile::Sink& sink) { return WriteAll(record, sink); });
  });
}

}  // namespace zemva
