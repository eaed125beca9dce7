#include "text/progress_window.h"

#include <cstdio>

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace zemva::tools {
namespace {

bool IsTerminal() {
#if defined(_WIN32)
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

ProgressWindow::ProgressWindow() : TextWindow(stderr), is_terminal_(IsTerminal()) {}

void ProgressWindow::Write(const char* text) {
  Clear();
  TextWindow::Write(text);
}

void ProgressWindow::Show(const std::string& line) {
  if (!is_terminal_) return;
  Clear();
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
  shown_ = line.size();
}

void ProgressWindow::Clear() {
  if (shown_ == 0) return;
  std::fprintf(stderr, "\r%*s\r", static_cast<int>(shown_), "");
  shown_ = 0;
}

}  // namespace zemva::tools
