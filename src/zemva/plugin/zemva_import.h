/* A flat view of one data set in a ".vdo" file, for C.
 *
 * Indices of observations and variables count from 1 and are not checked: one outside 1..count, and
 * a null handle, are the caller's fault. Texts point into the data set and stay valid until
 * ZEMVAImport_DeleteDS. All data sets report to one output sink, which discards what it gets. Not
 * for use by several threads at once. */
#ifndef ZEMVA_PLUGIN_ZEMVA_IMPORT_H
#define ZEMVA_PLUGIN_ZEMVA_IMPORT_H

#include "zemva/base/export.h"
#include "zemva/plugin/call.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Loads the data set of a file. The caller owns the handle until ZEMVAImport_DeleteDS. Null when
 * the file cannot be loaded, whatever the reason. */
ZEMVA_API void* ZEMVA_CALL ZEMVAImport_ReadDS(const char* path);

/* Frees the data set; a null handle is ignored. */
ZEMVA_API void ZEMVA_CALL ZEMVAImport_DeleteDS(void* handle);

/* Stores the number of observations and of variables. */
ZEMVA_API void ZEMVA_CALL ZEMVAImport_SizeDS(void* handle, int* observations, int* variables);

/* The value of an observation (row) and a variable (column); -99.0 when it is missing. */
ZEMVA_API float ZEMVA_CALL ZEMVAImport_GetDSValue(void* handle, int observation, int variable);

/* The name of a variable or an observation; null when the data set has none. */
ZEMVA_API const char* ZEMVA_CALL ZEMVAImport_GetVarName(void* handle, int variable);
ZEMVA_API const char* ZEMVA_CALL ZEMVAImport_GetObsName(void* handle, int observation);

/* The number of an observation as it is stored, negative ones too; 0 when the data set has none. */
ZEMVA_API int ZEMVA_CALL ZEMVAImport_GetObsNum(void* handle, int observation);

#ifdef __cplusplus
}
#endif

#endif /* ZEMVA_PLUGIN_ZEMVA_IMPORT_H */
