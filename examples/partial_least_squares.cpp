// Relates a response to all other variables, saves the model, and predicts by the file alone.
//
//   partial_least_squares FILE.vdo RESPONSE MODEL.mdl
#include <cstdio>
#include <memory>

#include "zemva/zemva.h"

namespace {

struct Console : zemva::StreamWindow {
  void Write(const char* text) override { std::fputs(text, stdout); }
};

int Fail(int status) {
  std::fprintf(stderr, "%s (%d)\n", zemva::GetVdoMsg(status), status);
  return 1;
}

int FitAndSave(zemva::Project& project, short selection, const char* path) {
  const short number = project.AddModel(selection, zemva::EModType::kPLS12, 0);
  if (number == 0) return project.GetStatus();
  project.GetModel(number)->GetModOpt().SetNComp(2);
  if (const int status = project.Compute(number)) return status;
  zemva::Model& model = *project.GetModel(number)->GetModel();
  const char a = model.GetA();
  for (short k = 1; k <= model.GetNVarX(); ++k) {
    std::printf("%s: coefficient %.3f, VIP %.2f\n", model.GetVarInfoX()->GetINam(k),
                model.GetCoeff(a, k, 1), model.GetVIP(a, k));
  }
  std::printf("R2Y %.3f, RMSEE %.3f\n", model.GetR2Y(a), model.GetRMSEE(1));
  model.SetModAddr(path);
  return model.Save(1);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return std::fputs("partial_least_squares FILE RESPONSE MODEL\n", stderr), 2;
  Console console;
  zemva::Project project("Example", console);
  const short data = project.AddDataset(new zemva::Dataset("Data", argv[1], console));
  const short selection = data == 0 ? short{0} : project.AddWorkset(data, "All");
  if (selection == 0) return Fail(project.GetStatus());
  zemva::Workset& workset = *project.GetWorkset(selection);
  if (const int status = workset.SetRole(workset.GetVIx(argv[2]), zemva::EVarRole::kY)) {
    return Fail(status);
  }
  if (const int status = FitAndSave(project, selection, argv[3])) return Fail(status);

  // Whoever has the file can predict: it holds all of the model but its data.
  int status = 0;
  const std::unique_ptr<zemva::Model> model(
      zemva::Model::Read(argv[3], nullptr, console, nullptr, status));
  if (model == nullptr) return Fail(status);
  zemva::Predset rows("New", *project.GetDataset(data), *model->GetVarInfoDS());
  if ((status = model->ExecPS(rows)) != 0) return Fail(status);
  std::printf("predicted: %.3f, observed: %.3f\n", model->GetYPredPS(1, 1), model->GetYObsPS(1, 1));
}
