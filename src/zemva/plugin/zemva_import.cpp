#include "zemva/plugin/zemva_import.h"

#include <memory>
#include <new>

#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/plugin/dataset_handle.h"

namespace {

using zemva::DatasetOf;

struct Label {
  short number = 0;
  char* name = nullptr;
};

Label ObservationLabel(void* handle, int observation) {
  Label label;
  DatasetOf(handle).GetObsInfo(static_cast<short>(observation), label.number, label.name);
  return label;
}

}  // namespace

void* ZEMVAImport_ReadDS(const char* path) {
  try {
    auto dataset = std::make_unique<zemva::Dataset>("Tovle", path, zemva::GlobalStreamWindow());
    return dataset->Load() == zemva::status::kOk ? dataset.release() : nullptr;  // the caller's
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void ZEMVAImport_DeleteDS(void* handle) {
  delete static_cast<zemva::Dataset*>(handle);
}

void ZEMVAImport_SizeDS(void* handle, int* observations, int* variables) {
  *observations = DatasetOf(handle).GetNObsDS();
  *variables = DatasetOf(handle).GetNVarDS();
}

float ZEMVAImport_GetDSValue(void* handle, int observation, int variable) {
  return DatasetOf(handle)[static_cast<short>(observation)][static_cast<short>(variable)];
}

const char* ZEMVAImport_GetVarName(void* handle, int variable) {
  Label label;
  DatasetOf(handle).GetVarInfo(static_cast<short>(variable), label.number, label.name);
  return label.name;
}

const char* ZEMVAImport_GetObsName(void* handle, int observation) {
  return ObservationLabel(handle, observation).name;
}

int ZEMVAImport_GetObsNum(void* handle, int observation) {
  return ObservationLabel(handle, observation).number;
}
