// The messages of what takes long, and how far it is.
#ifndef ZEMVA_TOOLS_TEXT_PROGRESS_WINDOW_H
#define ZEMVA_TOOLS_TEXT_PROGRESS_WINDOW_H

#include <cstddef>
#include <string>

#include "text/text_window.h"

namespace zemva::tools {

// Standard error. On a terminal it has a last line that comes and goes; what is written takes it
// away first.
class ProgressWindow : public TextWindow {
 public:
  ProgressWindow();

  void Write(const char* text) override;
  // Puts a line in the place of the last one.
  void Show(const std::string& line);
  void Clear();

 private:
  bool is_terminal_;
  std::size_t shown_ = 0;  // characters of the line
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_TEXT_PROGRESS_WINDOW_H
