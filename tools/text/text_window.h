// A window of the library that is a stream of the program.
#ifndef ZEMVA_TOOLS_TEXT_TEXT_WINDOW_H
#define ZEMVA_TOOLS_TEXT_TEXT_WINDOW_H

#include <cstdio>

#include "zemva/errors/stream_window.h"

namespace zemva::tools {

// Shows what is written to it at once, in UTF-8.
class TextWindow : public StreamWindow {
 public:
  explicit TextWindow(std::FILE* stream) : stream_(stream) {}

  void Write(const char* text) override;

 private:
  std::FILE* stream_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_TEXT_TEXT_WINDOW_H
