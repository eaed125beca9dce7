// Paths as callers give them: 8-bit texts in the system's own encoding.
#ifndef ZEMVA_BASE_NATIVE_PATH_H
#define ZEMVA_BASE_NATIVE_PATH_H

#include <cstdio>
#include <filesystem>
#include <string_view>

#include "zemva/base/export.h"

namespace zemva {

// The path that `text` names. On Windows a text is in the active code page, as it is for fopen,
// and not in UTF-8, as the standard library would take it.
ZEMVA_API std::filesystem::path NativePath(std::string_view text);

// fopen for such a path; null when it cannot be opened.
ZEMVA_API std::FILE* OpenFile(const std::filesystem::path& path, const char* mode);

}  // namespace zemva

#endif  // ZEMVA_BASE_NATIVE_PATH_H
