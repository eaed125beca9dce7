// What a model writes on the way.
#ifndef ZEMVA_MODEL_BLOCK_MODEL_LOG_H
#define ZEMVA_MODEL_BLOCK_MODEL_LOG_H

#include <string>

#include "zemva/errors/listing.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

// A window, and whether anything was written to it.
class ModelLog {
 public:
  explicit ModelLog(StreamWindow& window) : window_(window) {}

  Listing Line() {
    is_written_ = true;
    return Listing(window_);
  }
  // Lines with their ends.
  void Write(const std::string& lines) {
    is_written_ = true;
    window_ << lines;
  }

  bool IsWritten() const { return is_written_; }
  void ClearIsWritten() { is_written_ = false; }

 private:
  StreamWindow& window_;
  bool is_written_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_MODEL_LOG_H
