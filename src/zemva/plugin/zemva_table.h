/* The data set of a ".vdo" file in whole rows and columns, for C and for languages that call it: a
 * handful of calls reads all of it.
 *
 * Observations (rows) and variables (columns) count from 1. What is outside them is refused. All
 * functions that return an int return a status: 0, 8021 for observations or variables that there
 * are not, 8022 for a null pointer. Arrays are the caller's and filled from their first element on.
 * Texts are in Windows-1252. Not for use by several threads at once. */
#ifndef ZEMVA_PLUGIN_ZEMVA_TABLE_H
#define ZEMVA_PLUGIN_ZEMVA_TABLE_H

#include "zemva/base/export.h"
#include "zemva/plugin/call.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Loads the data set of a file, which the caller owns until ZEMVATable_Close. The status of
 * Dataset::Load, with a null table; 8002 when memory runs out. */
ZEMVA_API int ZEMVA_CALL ZEMVATable_Open(const char* path, void** table);

/* A null table is ignored. */
ZEMVA_API void ZEMVA_CALL ZEMVATable_Close(void* table);

/* What a status means; the text stays until the next call. */
ZEMVA_API const char* ZEMVA_CALL ZEMVATable_GetMessage(int status);

ZEMVA_API int ZEMVA_CALL ZEMVATable_GetSize(void* table, int* observations, int* variables);

/* The values of `count` observations from `first` on, each with all its variables one after the
 * other; or of `count` variables from `first` on, each with all its observations. A value that is
 * missing is given as `missing`. */
ZEMVA_API int ZEMVA_CALL ZEMVATable_GetRows(void* table, int first, int count, float missing,
                                            float* values);
ZEMVA_API int ZEMVA_CALL ZEMVATable_GetColumns(void* table, int first, int count, float missing,
                                               float* values);

/* The numbers of `count` observations or variables from `first` on; 0 where the data set has none.
 */
ZEMVA_API int ZEMVA_CALL ZEMVATable_GetObsNumbers(void* table, int first, int count, int* numbers);
ZEMVA_API int ZEMVA_CALL ZEMVATable_GetVarNumbers(void* table, int first, int count, int* numbers);

/* Their names, each in a field of `width` characters, 1 or more, cut to fit and filled up with
 * zeros, of which there is at least one; empty where the data set has none. */
ZEMVA_API int ZEMVA_CALL ZEMVATable_GetObsNames(void* table, int first, int count, int width,
                                                char* names);
ZEMVA_API int ZEMVA_CALL ZEMVATable_GetVarNames(void* table, int first, int count, int width,
                                                char* names);

#ifdef __cplusplus
}
#endif

#endif /* ZEMVA_PLUGIN_ZEMVA_TABLE_H */
