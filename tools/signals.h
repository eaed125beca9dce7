// Ctrl-C and other requests to end.
#ifndef ZEMVA_TOOLS_SIGNALS_H
#define ZEMVA_TOOLS_SIGNALS_H

namespace zemva::tools {

// From here on a signal to end also removes the files that are half written. It ends the program as
// it would without, but for a Ctrl-C that is caught.
void HandleSignals();

// While it lives the first Ctrl-C is noted and does not end the program.
class InterruptCatcher {
 public:
  InterruptCatcher();
  InterruptCatcher(const InterruptCatcher&) = delete;
  InterruptCatcher& operator=(const InterruptCatcher&) = delete;
  ~InterruptCatcher();

  static bool IsInterrupted();
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_SIGNALS_H
