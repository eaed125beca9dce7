// A StreamWindow that keeps what is written to it.
#ifndef ZEMVA_TESTS_SUPPORT_RECORDING_WINDOW_H
#define ZEMVA_TESTS_SUPPORT_RECORDING_WINDOW_H

#include <string>

#include "zemva/errors/stream_window.h"

namespace zemva::test {

class RecordingWindow : public StreamWindow {
 public:
  void Write(const char* text) override { log += text; }

  // Everything written so far.
  std::string log;
};

}  // namespace zemva::test

#endif  // ZEMVA_TESTS_SUPPORT_RECORDING_WINDOW_H
