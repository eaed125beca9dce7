#include "zemva/dio/dataset/dio_item.h"

#include <cstring>
#include <string>

#include "zemva/dio/file/finder.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr int kLabelCount = 3;
constexpr int kLabelSize = 23;  // with the terminator
constexpr const char* kObservationColumn = "ObsName";

// A record is a number and a name that may be empty.
constexpr int kSmallestRecord = 3;

// A label as it is written: blanks up to 22 characters.
std::string PaddedLabel(const char* label) {
  std::string text = label;
  text.resize(kLabelSize - 1, ' ');
  return text;
}

std::int64_t RecordsSize(const ItmInfo& table) {
  std::int64_t size = 0;
  for (int i = 1; i <= table.GetNItm(); ++i) {
    const char* name = table.GetINam(static_cast<short>(i));
    size += static_cast<std::int64_t>(sizeof(short) + std::strlen(name) + 1);
  }
  return size;
}

std::int64_t ObsInfoPayload(const ObsInfo& table) {
  return static_cast<std::int64_t>(sizeof(short) + std::strlen(kObservationColumn) + 1 +
                                   kLabelCount * kLabelSize + sizeof(short)) +
         RecordsSize(table);
}

constexpr std::int64_t kTableHeaderSize = ItemHeader::kFixedSize + sizeof(short);

}  // namespace

std::int64_t DioItem::ObsInfoSize(const ObsInfo& table) {
  return kTableHeaderSize + ObsInfoPayload(table);
}

std::int64_t DioItem::VariableInfoSize(const VarInfo& table) {
  return kTableHeaderSize + RecordsSize(table);
}

int DioItem::GetObsInfo(std::unique_ptr<ObsInfo>& table) {
  auto read = std::make_unique<ObsInfo>("ObjInfo");
  short columns;
  if (const int status = file_.GetI2(columns); status != status::kOk) return status;
  if (columns < 0) return status::dio::kReadError;
  for (int column = 1; column <= columns; ++column) {
    if (const int status = ReadObservations(*read); status != status::kOk) return status;
  }
  table = std::move(read);
  return status::kOk;
}

int DioItem::ReadRecord(Record& record) {
  const int status = file_.GetI2(record.number);
  return status == status::kOk ? file_.GetZString(record.name, sizeof record.name) : status;
}

int DioItem::ReadObservations(ObsInfo& table) {
  char title[DioFile::kMaxText];
  if (const int status = file_.GetZString(title, sizeof title); status != status::kOk) {
    return status;
  }
  for (int i = 1; i <= kLabelCount; ++i) {
    char label[kLabelSize];
    if (const int status = file_.GetZString(label, sizeof label); status != status::kOk) {
      return status;
    }
    table.SetLabel(i, label);
  }
  short n;
  if (const int status = file_.GetI2(n); status != status::kOk) return status;
  if (n < 0 || n > file_.GetRemaining() / kSmallestRecord) return status::dio::kReadError;
  for (int i = 1; i <= n; ++i) {
    Record record;
    if (const int status = ReadRecord(record); status != status::kOk) return status;
    if (table.AddObs(record.number, record.name) != status::kOk) {
      return table.GetNItm() == kMaxItems ? status::dio::kTooManyObservations
                                          : status::dio::kMemory;
    }
  }
  return status::kOk;
}

int DioItem::GetVariableInfo(int n, std::unique_ptr<VarInfo>& table) {
  if (n < 0 || n > file_.GetRemaining() / kSmallestRecord) return status::dio::kReadError;
  auto read = std::make_unique<VarInfo>("VarInfo");
  for (int i = 1; i <= n; ++i) {
    Record record;
    if (const int status = ReadRecord(record); status != status::kOk) return status;
    if (read->AddVar(record.number, record.name) != status::kOk) return status::dio::kMemory;
  }
  table = std::move(read);
  return status::kOk;
}

int DioItem::WriteRecord(short number, const char* name) {
  const int status = file_.WriteI2(number);
  return status == status::kOk ? file_.WriteZString(name) : status;
}

int DioItem::WriteObservations(const ObsInfo& table) {
  if (const int status = file_.WriteI2(1); status != status::kOk) return status;
  if (const int status = file_.WriteZString(kObservationColumn); status != status::kOk) {
    return status;
  }
  for (int i = 1; i <= kLabelCount; ++i) {
    const int status = file_.WriteZString(PaddedLabel(table.GetLabel(i)).c_str());
    if (status != status::kOk) return status;
  }
  if (const int status = file_.WriteI2(table.GetNItm()); status != status::kOk) return status;
  for (int i = 1; i <= table.GetNItm(); ++i) {
    const auto position = static_cast<short>(i);
    const int status = WriteRecord(table.GetONum(position), table.GetONam(position));
    if (status != status::kOk) return status;
  }
  return status::kOk;
}

int DioItem::WriteObsInfo(const ObsInfo& table, int& size) {
  const std::int16_t n = table.GetNItm();
  size = static_cast<int>(ObsInfoPayload(table));
  ItemHeader header;
  header.Set(size, Finder::Search(item::kObsInfo), "obji", 1, &n);
  int status = file_.WriteItemHeader(header);
  if (status == status::kOk) status = WriteObservations(table);
  if (status != status::kOk) throw new DioItemError(status, kWritingObservations);
  return status;
}

int DioItem::WriteVariableInfo(const VarInfo& table, std::string_view name, int& size) {
  const std::int16_t n = table.GetNItm();
  size = static_cast<int>(RecordsSize(table));
  ItemHeader header;
  header.Set(size, name, "vari", 1, &n);
  int status = file_.WriteItemHeader(header);
  for (int i = 1; i <= n && status == status::kOk; ++i) {
    const auto position = static_cast<short>(i);
    status = WriteRecord(table.GetVNum(position), table.GetVNam(position));
  }
  if (status != status::kOk) throw new DioItemError(status, kWritingVariables);
  return status;
}

}  // namespace zemva
