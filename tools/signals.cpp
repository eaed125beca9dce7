#include "signals.h"

#include "zemva/base/atomic_file.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <csignal>
#endif

namespace zemva::tools {

#if defined(_WIN32)

namespace {

BOOL WINAPI OnControl(DWORD) {
  AtomicFile::RemoveUnfinished();
  return FALSE;  // the system's own handler ends the process
}

}  // namespace

void RemoveUnfinishedFilesOnSignals() {
  SetConsoleCtrlHandler(OnControl, TRUE);
}

#else

namespace {

extern "C" void OnSignal(int number) {
  AtomicFile::RemoveUnfinished();
  std::signal(number, SIG_DFL);
  std::raise(number);
}

}  // namespace

void RemoveUnfinishedFilesOnSignals() {
  for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
    // One that is ignored, as by nohup, stays so.
    if (std::signal(number, OnSignal) == SIG_IGN) std::signal(number, SIG_IGN);
  }
}

#endif

}  // namespace zemva::tools
