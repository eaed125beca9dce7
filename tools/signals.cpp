#include "signals.h"

#include <atomic>

#include "zemva/base/atomic_file.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <csignal>
#endif

namespace zemva::tools {
namespace {

enum class ECatching { kNo, kYes, kCaught };
std::atomic<ECatching> catching = ECatching::kNo;
static_assert(std::atomic<ECatching>::is_always_lock_free);

// Whether a Ctrl-C is the first one that a catcher waits for.
bool Catch() {
  ECatching expected = ECatching::kYes;
  return catching.compare_exchange_strong(expected, ECatching::kCaught);
}

#if defined(_WIN32)

BOOL WINAPI OnControl(DWORD event) {
  if (event == CTRL_C_EVENT && Catch()) return TRUE;
  AtomicFile::RemoveUnfinished();
  return FALSE;  // the system's own handler ends the process
}

#else

extern "C" void OnSignal(int number) {
  if (number == SIGINT && Catch()) return;
  AtomicFile::RemoveUnfinished();
  std::signal(number, SIG_DFL);
  std::raise(number);
}

#endif

}  // namespace

void HandleSignals() {
#if defined(_WIN32)
  SetConsoleCtrlHandler(OnControl, TRUE);
#else
  for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
    // One that is ignored, as by nohup, stays so.
    if (std::signal(number, OnSignal) == SIG_IGN) std::signal(number, SIG_IGN);
  }
#endif
}

InterruptCatcher::InterruptCatcher() {
  catching = ECatching::kYes;
}

InterruptCatcher::~InterruptCatcher() {
  catching = ECatching::kNo;
}

bool InterruptCatcher::IsInterrupted() {
  return catching == ECatching::kCaught;
}

}  // namespace zemva::tools
