// Addresses of files, which may come from another system: both separators count, and so does the
// colon of a drive.
#ifndef ZEMVA_BASE_PATHS_H
#define ZEMVA_BASE_PATHS_H

#include <filesystem>
#include <string>
#include <string_view>

namespace zemva {

// The path with a separator at its end, unless it is empty or ends in one. A path keeps the
// separator that it uses: "\" with a drive letter or a "\" in it, else "/" with a "/" in it, else
// the system's own.
std::string WithSeparator(std::string_view path);

// Drive and directory with the last separator; what follows them.
std::string_view DirectoryOf(std::string_view path);
std::string_view FileNameOf(std::string_view path);

// Whether a file or a directory of this name exists.
bool FileExists(std::string_view path);
// Succeeds too when there is no such file. Directories are not removed. The second one cannot run
// out of memory.
bool RemoveFile(std::string_view path);
bool RemoveFileAt(const std::filesystem::path& file);

}  // namespace zemva

#endif  // ZEMVA_BASE_PATHS_H
