// Fits principal components to any small table with any settings, and predicts the table. No number
// that comes out may be other than finite.
#include "model_fit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zemva;
  fuzz::Bytes bytes(data, size);
  Project project("P", GlobalStreamWindow());
  const auto scaling = static_cast<EScaType>(1 + bytes.Next(6));
  const short dataset = project.AddDataset(fuzz::MakeDataset(bytes).release());
  const short workset = project.AddWorkset(dataset, "WS");
  for (const short j : PositionsUpTo(project.GetWorkset(workset)->GetNVar())) {
    project.GetWorkset(workset)->SetScaling(j, scaling);
  }
  fuzz::Fit(bytes, project, workset, EModType::kPC1, dataset);
  return 0;
}
