#include "text/text_window.h"

#include <string_view>

#include "text/code_page.h"

namespace zemva::tools {

void TextWindow::Write(const char* text) {
  std::string_view rest(text);
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    std::fputs(PrintableFromCodePage(rest.substr(0, end)).c_str(), stream_);
    if (end == std::string_view::npos) return;
    std::fputc('\n', stream_);
    rest.remove_prefix(end + 1);
  }
}

}  // namespace zemva::tools
