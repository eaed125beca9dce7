#include "zemva/dio/file/file_contents.h"

#include "zemva/dio/file/dio_file.h"
#include "zemva/dio/file/dio_guard.h"

namespace zemva {
namespace {

int ReadItems(DioFile& file, std::int64_t end, std::vector<ItemHeader>& items) {
  for (std::int64_t position = file.GetPosition(); position < end;) {
    ItemHeader header;
    file.GetItemHeader(header);
    position += header.size;
    if (position > end) return status::dio::kReadError;
    items.push_back(std::move(header));
    if (const int status = file.Seek(position); status != status::kOk) return status;
  }
  return status::kOk;
}

}  // namespace

int GetFileContents(const char* path, StreamWindow& window, FileContents& contents) {
  contents = {};
  DioFile file(path, window);
  return Guarded(file, nullptr, [&] {
    file.OpenSuperItemFile();
    contents.size = file.GetRemaining();
    file.GetSuperHeader(contents.super_header);
    for (int i = 1; i <= contents.super_header.nitm; ++i) {
      const std::int64_t start = file.GetPosition();
      SuperItem super_item;
      file.GetSuperItemHeader(super_item);
      SuperItemContents& found = contents.super_items.emplace_back();
      found.super_item = std::move(super_item);
      const std::int64_t end = start + found.super_item.header.size;
      if (const int status = ReadItems(file, end, found.items); status != status::kOk) {
        return status;
      }
    }
    return status::kOk;
  });
}

}  // namespace zemva
