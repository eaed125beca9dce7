// Ctrl-C and other requests to end.
#ifndef ZEMVA_TOOLS_SIGNALS_H
#define ZEMVA_TOOLS_SIGNALS_H

namespace zemva::tools {

// From here on a signal to end also removes the files that are half written. It ends the program as
// it would without.
void RemoveUnfinishedFilesOnSignals();

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_SIGNALS_H
