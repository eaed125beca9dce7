// Fits principal components by the rules, and shows what is behind them.
//
//   principal_components FILE.vdo
#include <cstdio>

#include "zemva/zemva.h"

namespace {

// What a model tells on the way.
struct Console : zemva::StreamWindow {
  void Write(const char* text) override { std::fputs(text, stdout); }
};

// Sees how far a fit is, and could end it by answering false.
struct WatchedProject : zemva::Project {
  using Project::Project;
  bool GoesOn(const zemva::FitProgress& progress) override {
    component = progress.component;
    return true;
  }
  int component = 0;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return std::fputs("principal_components FILE.vdo\n", stderr), 2;
  Console console;
  WatchedProject project("Example", console);
  const short data = project.AddDataset(new zemva::Dataset("Data", argv[1], console));
  const short selection = data == 0 ? short{0} : project.AddWorkset(data, "All");
  // Scaled to unit variance and centred, as work sets are unless told otherwise.
  const short number =
      selection == 0 ? short{0} : project.AddModel(selection, zemva::EModType::kPC1, 0);
  if (number == 0) return std::puts(zemva::GetVdoMsg(project.GetStatus())), 1;
  project.GetModel(number)->GetModOpt().SetIsRule(true);
  if (const int status = project.Compute(number)) return std::puts(zemva::GetVdoMsg(status)), 1;

  const zemva::Model& model = *project.GetModel(number)->GetModel();
  for (char a = 1; a <= model.GetA(); ++a) {
    std::printf("component %d: R2X %.3f, Q2 %.3f\n", a, model.GetR2X(a), model.GetQ2X(a));
  }
  // The observation that fits the model least.
  short farthest = 1;
  for (short i = 2; i <= model.GetNObs(); ++i) {
    const char a = model.GetA();
    if (model.GetDModXLS(a, i) > model.GetDModXLS(a, farthest)) farthest = i;
  }
  std::printf("DModX of %s: %.3f, limit %.3f\n", model.GetObsInfo()->GetINam(farthest),
              model.GetDModXLS(model.GetA(), farthest), model.GetDCritTeSLS());
}
