#include "zemva/errors/stream_window.h"

#include <new>

namespace zemva {

StreamWindow::~StreamWindow() = default;

void StreamWindow::Write(const char*) {}

StreamWindow& operator<<(StreamWindow& window, const char* text) {
  if (window.is_muted_ || text == nullptr) return window;
  try {
    window.last_text_ = text;
  } catch (const std::bad_alloc&) {
    window.last_text_.reset();  // the text is shown all the same
  }
  window.Write(text);
  return window;
}

StreamWindow& GlobalStreamWindow() {
  static StreamWindow window;
  return window;
}

}  // namespace zemva
