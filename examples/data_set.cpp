// Reads a data set, changes it, and saves it under another name.
//
//   data_set FROM.vdo TO.vdo
#include <cstdio>

#include "zemva/zemva.h"

namespace {

int Fail(const char* what, int status) {
  std::fprintf(stderr, "%s: %s (%d)\n", what, zemva::GetVdoMsg(status), status);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return std::fputs("data_set FROM.vdo TO.vdo\n", stderr), 2;
  zemva::Dataset data("Sample", argv[1], zemva::GlobalStreamWindow());
  if (const int status = data.Load()) return Fail(argv[1], status);

  // Observations and variables count from 1; so do the elements of a row.
  short number = 0;
  char* name = nullptr;
  data.GetVarInfo(1, number, name);
  std::printf("%d observations, %d variables; the first is %s\n", data.GetNObsDS(),
              data.GetNVarDS(), name);
  int missing = 0;
  for (short i = 1; i <= data.GetNObsDS(); ++i) {
    for (short j = 1; j <= data.GetNVarDS(); ++j) missing += zemva::IsMissing(data[i][j]) ? 1 : 0;
  }
  std::printf("%d values are missing\n", missing);

  // The ratio of the first two variables as a new one.
  const short ratio = data.AddVar("Ratio");
  if (ratio == 0) return Fail("AddVar", data.GetStatus());
  for (short i = 1; i <= data.GetNObsDS(); ++i) {
    const float a = data[i][1];
    const float b = data[i][2];
    const bool has_ratio = !zemva::IsMissing(a) && !zemva::IsMissing(b) && b != 0;
    if (has_ratio) data[i][ratio] = a / b;
  }
  data.SetDSAddr(argv[2]);
  if (const int status = data.Save()) return Fail(argv[2], status);
  std::printf("saved with %d variables\n", data.GetNVarDS());
}
