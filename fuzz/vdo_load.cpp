// Loads any bytes as a ".vdo" file through the functions of the plug-in, and reads all that came.
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "memory_file.h"
#include "zemva/plugin/zemva_import.h"

namespace {

// Reads each byte, for the sanitizers to see.
void Read(const void* bytes, std::size_t size) {
  volatile unsigned char sum = 0;
  for (std::size_t i = 0; i < size; ++i) {
    sum = static_cast<unsigned char>(sum + static_cast<const unsigned char*>(bytes)[i]);
  }
}

void ReadText(const char* text) {
  if (text != nullptr) Read(text, std::strlen(text));
}

void ReadAll(void* dataset) {
  int observations = 0;
  int variables = 0;
  ZEMVAImport_SizeDS(dataset, &observations, &variables);
  for (int variable = 1; variable <= variables; ++variable) {
    ReadText(ZEMVAImport_GetVarName(dataset, variable));
  }
  for (int observation = 1; observation <= observations; ++observation) {
    const int number = ZEMVAImport_GetObsNum(dataset, observation);
    Read(&number, sizeof number);
    ReadText(ZEMVAImport_GetObsName(dataset, observation));
    for (int variable = 1; variable <= variables; ++variable) {
      const float value = ZEMVAImport_GetDSValue(dataset, observation, variable);
      Read(&value, sizeof value);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static MemoryFile file;
  file.Rewrite(bytes, size);
  if (void* dataset = ZEMVAImport_ReadDS(file.GetPath())) {
    ReadAll(dataset);
    ZEMVAImport_DeleteDS(dataset);
  }
  return 0;
}
