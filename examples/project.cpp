// Keeps a project in a folder, opens it again, and writes the scores of its model as a data set.
//
//   project FILE.vdo FOLDER SCORES.vdo
#include <cstdio>
#include <memory>

#include "zemva/zemva.h"

namespace {

struct Console : zemva::StreamWindow {
  void Write(const char* text) override { std::fputs(text, stdout); }
};

int Fail(const char* what, int status) {
  std::fprintf(stderr, "%s: %s (%d)\n", what, zemva::GetVdoMsg(status), status);
  return 1;
}

int MakeAndSave(const char* file, const char* folder, zemva::StreamWindow& window) {
  zemva::Project project("Example", window);
  const short data = project.AddDataset(new zemva::Dataset("Data", file, window));
  const short selection = data == 0 ? short{0} : project.AddWorkset(data, "All");
  const short number =
      selection == 0 ? short{0} : project.AddModel(selection, zemva::EModType::kPC1, 0);
  if (number == 0) return project.GetStatus();
  project.GetModel(number)->GetModOpt().SetNComp(2);
  const int status = project.Compute(number);
  return status == 0 ? project.Save(folder) : status;
}

int ExportScores(const zemva::Model& model, const char* file, zemva::StreamWindow& window) {
  zemva::DIOExp scores(file, "Scores", window);
  int status = scores.SetObservations(*model.GetObsInfo());
  for (char a = 1; status == 0 && a <= model.GetA(); ++a) {
    const zemva::VecSpec spec(zemva::CEVecType::T, 0, a);
    zemva::XFVector* vector = nullptr;
    status = model.GetXFVector(&spec, vector);
    const std::unique_ptr<zemva::XFVector> own(vector);
    if (status == 0) status = scores.Add(*own);
  }
  return status == 0 ? scores.Save() : status;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return std::fputs("project FILE.vdo FOLDER SCORES.vdo\n", stderr), 2;
  Console console;
  if (const int status = MakeAndSave(argv[1], argv[2], console)) return Fail(argv[1], status);

  zemva::Project project("Example", console);
  if (const int status = project.Open(argv[2])) return Fail(argv[2], status);
  const zemva::Model& model = *project.GetModel(1)->GetModel();
  std::printf("%s has %d components\n", model.GetModNam(), model.GetA());
  if (const int status = ExportScores(model, argv[3], console)) return Fail(argv[3], status);
  zemva::Dataset scores("Scores", argv[3], console);
  std::printf("%d scores of %d observations\n", scores.GetNVarDS(), scores.GetNObsDS());
}
