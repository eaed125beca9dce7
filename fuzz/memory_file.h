// A file that is in memory.
#ifndef ZEMVA_FUZZ_MEMORY_FILE_H
#define ZEMVA_FUZZ_MEMORY_FILE_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

// One a process, rewritten for each input.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("input", 0)) {
    if (descriptor_ < 0) std::abort();
    path_ = "/proc/self/fd/" + std::to_string(descriptor_);
  }

  void Rewrite(const std::uint8_t* bytes, std::size_t size) {
    if (ftruncate(descriptor_, 0) != 0 ||
        pwrite(descriptor_, bytes, size, 0) != static_cast<ssize_t>(size)) {
      std::abort();
    }
  }

  const char* GetPath() const { return path_.c_str(); }

 private:
  int descriptor_;
  std::string path_;
};

#endif  // ZEMVA_FUZZ_MEMORY_FILE_H
