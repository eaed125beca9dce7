#include "zemva/dio/model/dio_predset.h"

#include "zemva/dio/file/dio_guard.h"

namespace zemva {
namespace {

constexpr StoredItem<PredsetRecord> kItems[] = {
    TextItem<PredsetRecord>(
        NameOf("ItemName"), "sz25", [](auto& p) -> auto& { return p.name; }),
    BytesItem<PredsetRecord>(
        NameOf("OStatus"), [](auto& p) -> auto& { return p.members; }),
};

}  // namespace

DioPredset::DioPredset(const char* path, StreamWindow& window)
    : file_(path, window, SuperItem::kExecution, kVersion), window_(window) {}

int DioPredset::Load(PredsetRecord& record) {
  return Guarded(file_.GetFile(), &window_, [&] {
    PredsetRecord read;
    const int status = file_.ReadAll<PredsetRecord>(kItems, read);
    if (status == status::kOk) record = read;
    return status;
  });
}

int DioPredset::Save(const PredsetRecord& record) {
  if (const int status = file_.CheckTarget(); status != status::kOk) return status;
  return Guarded(file_.GetFile(), nullptr, [&] {
    return file_.Write(record.name.View(), [&](const StoredFile::Sink& sink) {
      return WriteItems<PredsetRecord>(kItems, record, kNoComponent, sink);
    });
  });
}

}  // namespace zemva
