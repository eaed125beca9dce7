#include "errors/stream_window.h"

namespace zemva {

StreamWindow::~StreamWindow() = default;

void StreamWindow::Write(const char*) {}

StreamWindow& operator<<(StreamWindow& window, const char* text) {
  if (window.is_muted_ || text == nullptr) return window;
  window.last_text_ = text;
  window.Write(text);
  return window;
}

StreamWindow& GlobalStreamWindow() {
  static StreamWindow window;
  return window;
}

}  // namespace zemva
