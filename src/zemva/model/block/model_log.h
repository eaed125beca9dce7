// What a model writes on the way.
#ifndef ZEMVA_MODEL_BLOCK_MODEL_LOG_H
#define ZEMVA_MODEL_BLOCK_MODEL_LOG_H

#include <string>

#include "zemva/errors/listing.h"
#include "zemva/errors/stream_window.h"

namespace zemva {

// Another window, and whether anything was written to it through this one.
class ModelLog : public StreamWindow {
 public:
  explicit ModelLog(StreamWindow& window) : window_(window) {}

  Listing Line() { return Listing(*this); }
  // Lines with their ends.
  void Write(const char* lines) override {
    is_written_ = true;
    window_ << lines;
  }
  void Write(const std::string& lines) { Write(lines.c_str()); }

  bool IsWritten() const { return is_written_; }
  void ClearIsWritten() { is_written_ = false; }

 private:
  StreamWindow& window_;
  bool is_written_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_MODEL_LOG_H
