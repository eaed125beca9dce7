// Any number that a model has, by name: writes a vector with the names of its elements.
//
//   result_vectors FILE.vdo VECTOR...       such as  t[1]  p[2]  DModX[2]
#include <cstdio>
#include <memory>

#include "zemva/zemva.h"

namespace {

int Show(const zemva::Model& model, const char* name) {
  zemva::VecSpec spec;
  int status = spec.SetName(name);
  zemva::XFVector* values = nullptr;
  zemva::XSVector* names = nullptr;
  if (status == 0) status = model.GetXFVector(&spec, values);
  if (status == 0) status = model.GetXSVector(&spec, names, false);
  const std::unique_ptr<zemva::XFVector> own_values(values);
  const std::unique_ptr<zemva::XSVector> own_names(names);
  if (status != 0) {
    std::fprintf(stderr, "%s: %s (%d)\n", name, zemva::GetVdoMsg(status), status);
    return 1;
  }
  std::printf("%s\n", values->GetName());
  for (short i = 1; i <= values->NVal(); ++i) {
    std::printf("  %-16s %9.4f\n", (*names)[i], (*values)[i]);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return std::fputs("result_vectors FILE.vdo VECTOR...\n", stderr), 2;
  zemva::Project project("Example", zemva::GlobalStreamWindow());
  const short data =
      project.AddDataset(new zemva::Dataset("Data", argv[1], zemva::GlobalStreamWindow()));
  const short selection = data == 0 ? short{0} : project.AddWorkset(data, "All");
  const short number =
      selection == 0 ? short{0} : project.AddModel(selection, zemva::EModType::kPC1, 0);
  if (number == 0) return std::puts(zemva::GetVdoMsg(project.GetStatus())), 1;
  project.GetModel(number)->GetModOpt().SetNComp(2);
  if (const int status = project.Compute(number)) return std::puts(zemva::GetVdoMsg(status)), 1;
  int failures = 0;
  for (int n = 2; n < argc; ++n) failures += Show(*project.GetModel(number)->GetModel(), argv[n]);
  return failures == 0 ? 0 : 1;
}
