// The univariate summary of a data set's variables.
#include <algorithm>
#include <cstdio>
#include <string>

#include "commands.h"
#include "data/dataset.h"
#include "errors/status.h"
#include "errors/stream_window.h"
#include "numeric/uni_var.h"

namespace zemva::tools {
namespace {

class StandardOutput : public StreamWindow {
 public:
  void Write(const char* text) override { std::fputs(text, stdout); }
};

void SwitchAllOn(UniVar& summary) {
  summary.SetIsKurt(true);
  summary.SetIsMax(true);
  summary.SetIsMinMax(true);
  summary.SetIsMean(true);
  summary.SetIsMedian(true);
  summary.SetIsMin(true);
  summary.SetIsMisValProc(true);
  summary.SetIsNObsA(true);
  summary.SetIsPNorm(true);
  summary.SetIsSD(true);
  summary.SetIsSkew(true);
  summary.SetIsIQR(true);
}

}  // namespace

int StatsCommand(Arguments arguments) {
  std::string path;
  bool is_all = false;
  for (const std::string_view argument : arguments) {
    if (argument == "--all") {
      is_all = true;
    } else if (argument.starts_with('-')) {
      return WrongUsage("stats knows no option '" + std::string(argument) + "'");
    } else if (path.empty()) {
      path = argument;
    } else {
      return WrongUsage("stats takes one file");
    }
  }
  if (path.empty()) return WrongUsage("stats takes one file");

  StreamWindow discard;
  Dataset dataset("Stats", path.c_str(), discard);
  const int loaded = dataset.Load();
  if (loaded != status::kOk) return Fail(path, loaded);
  const XFMatrix& x = *dataset.GetDMPtr();
  const XI1Vector variables("variables", x.NCol(), char{1});
  const XI1Vector observations("observations", x.NRow(), char{1});
  UniVar summary;
  if (is_all) SwitchAllOn(summary);
  StandardOutput window;
  const int listed = summary.Calc(&x, &variables, &observations, window);
  return listed == status::kOk ? kDone : Fail(path, listed);
}

}  // namespace zemva::tools
