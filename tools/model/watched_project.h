// A project whose fits a person follows and may end.
#ifndef ZEMVA_TOOLS_MODEL_WATCHED_PROJECT_H
#define ZEMVA_TOOLS_MODEL_WATCHED_PROJECT_H

#include <chrono>

#include "text/progress_window.h"
#include "zemva/project/project.h"

namespace zemva::tools {

class WatchedProject : public Project {
 public:
  // The window outlives it.
  explicit WatchedProject(ProgressWindow& window) : Project("zemva", window), window_(window) {}

  // As Compute. After a second the window shows how far it is. The first Ctrl-C ends it with 8027.
  int Fit(short model);

  bool GoesOn(const FitProgress& progress) override;

 private:
  ProgressWindow& window_;
  std::chrono::steady_clock::time_point shown_from_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_WATCHED_PROJECT_H
