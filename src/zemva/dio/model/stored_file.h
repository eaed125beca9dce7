// A file of one super item whose items stand in tables: a model, a work set.
#ifndef ZEMVA_DIO_MODEL_STORED_FILE_H
#define ZEMVA_DIO_MODEL_STORED_FILE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zemva/dio/file/dio_file.h"
#include "zemva/dio/file/finder.h"
#include "zemva/dio/model/stored_item.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

inline constexpr int kNoComponent = -1;

// Which items of a table have been read.
using Seen = std::vector<bool>;

template <class Record>
bool IsIn(std::span<const StoredItem<Record>> items, ItemName name) {
  return std::ranges::find(items, name, &StoredItem<Record>::name) != items.end();
}

// Whether the items that were read are those that the record has.
template <class Record>
bool AreComplete(std::span<const StoredItem<Record>> items, const Seen& seen,
                 const Record& record) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (seen[i] != items[i].is_there(record)) return false;
  }
  return true;
}

// The extent of the super item is its version. Operations return 0 or a status; what raises an
// error object instead says so.
class StoredFile {
 public:
  // Takes an item, its header and its payload.
  using Sink = std::function<int(const ItemHeader&, std::span<const char>)>;

  StoredFile(const char* path, StreamWindow& window, SuperItem::Type type, short version)
      : file_(path, window), type_(type), version_(version) {}

  DioFile& GetFile() { return file_; }

  // --- Reading ---

  // Opens the file and moves to the first item. Raises DioModelError: 2017 for a version of the
  // file other than 1 and 2, or of the super item other than 1 to its own, 2000 where the first
  // super item is none of the type.
  void Open(SuperItem& super_item);
  struct Item {
    ItemHeader header;
    bool is_known = false;  // whether there is such a name
    ItemName name = kUndefinedName;
    short component = kNoComponent;
  };
  void GetItem(Item& item);
  int PassOver(const Item& item);
  // Reads the payload of an item that is in the table, else passes over it. 2005 where it was read
  // before, has another tag, or is not what it must be.
  template <class Record>
  int Read(std::span<const StoredItem<Record>> items, const Item& item, Seen& seen,
           Record& record) {
    const auto row = std::ranges::find(items, item.name, &StoredItem<Record>::name);
    if (row == items.end()) return PassOver(item);
    const auto index = static_cast<std::size_t>(row - items.begin());
    if (seen[index] || Trimmed(item.header.type) != row->tag) return status::dio::kReadError;
    seen[index] = true;
    if (const int status = GetPayload(item); status != status::kOk) return status;
    PayloadReader payload(buffer_, item.header.dims, row->overflow);
    row->read(record, payload);
    return payload.IsRead() ? status::kOk : status::dio::kReadError;
  }

  // Opens the file and reads a super item that has the items of one table alone.
  template <class Record>
  int ReadAll(std::span<const StoredItem<Record>> items, Record& record) {
    SuperItem super_item;
    Open(super_item);
    Seen seen(items.size(), false);
    const std::int64_t size = super_item.header.PayloadSize();
    std::int64_t sum = 0;
    while (sum < size) {
      Item item;
      GetItem(item);
      sum += item.header.size;
      const bool is_own = item.is_known && item.component == kNoComponent;
      const int status = is_own ? Read(items, item, seen, record) : PassOver(item);
      if (status != status::kOk) return status;
    }
    const bool is_whole = sum == size && AreComplete(items, seen, record);
    return is_whole ? status::kOk : status::dio::kReadError;
  }

  // --- Writing ---

  // 0 where there is nothing at the path, or a file of one such super item; else the code of Open.
  int CheckTarget();
  // Writes a file of a super item of that name. `walk` hands all items to a sink, as WriteItems
  // does. 2001 for more than 2 GiB. Where it fails, what stands at the path stays.
  int Write(std::string_view name, const std::function<int(const Sink&)>& walk);

 private:
  int GetPayload(const Item& item);

  DioFile file_;
  SuperItem::Type type_;
  short version_;
  std::vector<char> buffer_;  // of the payload read last
};

// The header of an item with that payload. 2001 for more than 2 GiB.
int MakeHeader(ItemName name, int component, const char* tag, const PayloadWriter& payload,
               ItemHeader& header);

// Hands each item of the record to a sink. 2013 where a float is none that a reader takes.
template <class Record>
int WriteItems(std::span<const StoredItem<Record>> items, const Record& record, int component,
               const StoredFile::Sink& sink) {
  for (const StoredItem<Record>& item : items) {
    if (!item.is_there(record)) continue;
    PayloadWriter payload(item.overflow);
    item.write(record, payload);
    if (!payload.IsAcceptable()) return status::dio::kConversion;
    ItemHeader header;
    int status = MakeHeader(item.name, component, item.tag, payload, header);
    if (status == status::kOk) status = sink(header, payload.GetBytes());
    if (status != status::kOk) return status;
  }
  return status::kOk;
}

}  // namespace zemva

#endif  // ZEMVA_DIO_MODEL_STORED_FILE_H
