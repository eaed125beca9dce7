// The output sink that every reporting object holds a reference to.
#ifndef ZEMVA_ERRORS_STREAM_WINDOW_H
#define ZEMVA_ERRORS_STREAM_WINDOW_H

#include <optional>
#include <string>

#include "zemva/base/export.h"

namespace zemva {

// A plain StreamWindow discards what is written to it; a derived class overrides Write to show it.
// Texts are 8-bit characters. Not safe for use by several threads at once.
class ZEMVA_API StreamWindow {
 public:
  StreamWindow() = default;
  StreamWindow(const StreamWindow&) = default;
  StreamWindow& operator=(const StreamWindow&) = default;
  virtual ~StreamWindow();

  // Receives each text that is written to a window that is not muted.
  virtual void Write(const char* text);

  int GetWidth() const { return width_; }
  void SetWidth(int width) { width_ = width; }
  int GetPrecision() const { return precision_; }
  void SetPrecision(int precision) { precision_ = precision; }

  // A muted window ignores what is written to it.
  bool IsMuted() const { return is_muted_; }
  void SetMuted(bool is_muted) { is_muted_ = is_muted; }

  // For a window that is shown somewhere; nothing in the library asks for it.
  bool IsShown() const { return is_shown_; }
  void SetShown(bool is_shown) { is_shown_ = is_shown; }

  // The text written last, or null before the first. Valid until the next write.
  const char* GetLastText() const { return last_text_ ? last_text_->c_str() : nullptr; }

 private:
  friend ZEMVA_API StreamWindow& operator<<(StreamWindow& window, const char* text);

  int width_ = 8;      // of a number
  int precision_ = 8;  // of a number
  std::optional<std::string> last_text_;
  bool is_muted_ = false;
  bool is_shown_ = true;
};

// Writes `text`, remembers it as the last one, and returns the window so that writes chain. A muted
// window and a null text do nothing.
ZEMVA_API StreamWindow& operator<<(StreamWindow& window, const char* text);
inline StreamWindow& operator<<(StreamWindow& window, const std::string& text) {
  return window << text.c_str();
}

// The window of the import plug-in: it discards everything.
ZEMVA_API StreamWindow& GlobalStreamWindow();

}  // namespace zemva

#endif  // ZEMVA_ERRORS_STREAM_WINDOW_H
