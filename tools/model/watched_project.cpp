#include "model/watched_project.h"

#include <string>

#include "signals.h"

namespace zemva::tools {

int WatchedProject::Fit(short model) {
  constexpr auto kUntilShown = std::chrono::seconds(1);
  const InterruptCatcher catcher;
  shown_from_ = std::chrono::steady_clock::now() + kUntilShown;
  const int status = Compute(model);
  window_.Clear();
  return status;
}

bool WatchedProject::GoesOn(const FitProgress& progress) {
  if (std::chrono::steady_clock::now() >= shown_from_) {
    std::string line = "component " + std::to_string(progress.component);
    if (progress.round > 0) line += ", cross-validation round " + std::to_string(progress.round);
    window_.Show(line + ", iteration " + std::to_string(progress.iterations + 1) +
                 "; Ctrl-C ends with the components before");
  }
  return !InterruptCatcher::IsInterrupted();
}

}  // namespace zemva::tools
