#include <stdio.h>

#include "zemva/plugin/ko_import.h"
#include "zemva/plugin/zemva_import.h"

int main(int argc, char** argv) {
  void* handle = NULL;
  int observations = 0;
  int variables = 0;
  KoImportInitPackage(NULL);
  if (argc != 2 || !KoImportOpen(NULL, argv[1], NULL, &handle)) {
    puts(KoImportGetLastError(NULL));
    return 1;
  }
  ZEMVAImport_SizeDS(handle, &observations, &variables);
  printf("%d %d %s %g\n", observations, variables, ZEMVAImport_GetObsName(handle, 1),
         ZEMVAImport_GetDSValue(handle, 1, 1));
  KoImportClose(NULL, handle);
  return 0;
}
