#include <cstdio>

#include "zemva/zemva.h"

int main(int, char** argv) {
  zemva::Dataset dataset("sample", argv[1], zemva::GlobalStreamWindow());
  if (const int status = dataset.Load()) return std::puts(zemva::GetVdoMsg(status)), 1;
  short number = 0;
  char* name = nullptr;
  dataset.GetObsInfo(1, number, name);
  std::printf("%d %d %s %g\n", dataset.GetNObsDS(), dataset.GetNVarDS(), name, dataset[1][1]);
}
