// Files that are replaced whole.
#ifndef ZEMVA_BASE_ATOMIC_FILE_H
#define ZEMVA_BASE_ATOMIC_FILE_H

#include <cstdio>
#include <filesystem>
#include <string>

#include "zemva/base/export.h"

namespace zemva {

// A file that is written beside the one it replaces and takes its place in one step: whoever is cut
// off in mid-write, by a kill, a full disk or a power failure, finds the old file or the new one,
// whole. A link is followed: it stays, and what it points to is replaced. A file that may not be
// written to is not replaced either. Where `path` names something that is no regular file (a
// device, a pipe) there is nothing to replace, and it is written to directly. A file keeps its
// owner and group: where this user may not give them to a new file, the new bytes are put into the
// old one, once they are whole on the disk.
//
// The file beside it is named ".saving-", the number of its process, "-" and a number. One that
// is left of a process that was killed goes when a file in the same folder is written next.
class ZEMVA_API AtomicFile {
 public:
  // Opens a new file in the folder of `path`. GetStream is null when that failed.
  explicit AtomicFile(const std::string& path);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  // Discards what was written, unless Commit succeeded.
  ~AtomicFile();

  std::FILE* GetStream() const { return stream_; }

  // Puts what was written on the disk and then in the place of the old file, whose permissions it
  // keeps. False when any write failed; the old file is then as it was.
  bool Commit();

  // Removes the file, or what a link of its name points to, by the same rules: false when there is
  // none or it may not be written to.
  static bool Remove(const std::string& path);
  // Removes what the objects of this process have not committed. For a process that a signal is
  // about to end: it may be called by a handler, and leaves the objects unusable.
  static void RemoveUnfinished();

 private:
  bool OpenBeside(bool is_private);
  bool Flush();
  bool Replace();
  bool Finish(bool replaced);

  std::filesystem::path target_;
  std::filesystem::path folder_;  // of both; known before, so that a finished save cannot fail
  std::filesystem::path beside_;  // the same as target_ when written directly
  std::FILE* stream_ = nullptr;
  int lock_ = -1;  // says that the file beside is not a leftover
};

}  // namespace zemva

#endif  // ZEMVA_BASE_ATOMIC_FILE_H
