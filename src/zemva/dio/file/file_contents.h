// What lies where in a ".vdo" file.
#ifndef ZEMVA_DIO_FILE_FILE_CONTENTS_H
#define ZEMVA_DIO_FILE_FILE_CONTENTS_H

#include <cstdint>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/dio/file/layout.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

struct SuperItemContents {
  SuperItem super_item;
  std::vector<ItemHeader> items;
};

struct FileContents {
  std::int64_t size = 0;  // of the file in bytes
  SuperHeader super_header;
  std::vector<SuperItemContents> super_items;
};

// Reads the headers of the file and of all its items, which it passes over by their sizes. Returns
// 0, or the status of the first header that is not whole; `contents` then holds what came before.
ZEMVA_API int GetFileContents(const char* path, StreamWindow& window, FileContents& contents);

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_FILE_CONTENTS_H
