/* The import plug-in: what a host application calls, in this order.
 *
 *   KoImportInitPackage
 *   KoImportSizeFileFormatsSupported, KoImportGetFileFormatInfo
 *   KoImportIsCorrectFileType      is this file one of ours?
 *   KoImportOpen                   gives a handle to its data set
 *   KoImportEstablishSize          the host makes a grid of that size
 *   KoImportRead                   fills the grid through the host's two callbacks
 *   KoImportClose
 *   KoImportReleasePackage
 *
 * KoImportGetLastError and KoImportGetWarning may be called at any time. The first argument of each
 * function is the host's own and is not read. Rows and columns count from 1.
 *
 * A path is a zero-terminated text in the system's own 8-bit encoding; one that is null, or longer
 * than 260 characters, names no file that can be opened. A handle is one that KoImportOpen gave and
 * KoImportClose has not had; where a function does not say what it does with a null one, it may not
 * be given any. Pointers to results are never null.
 *
 * The module's texts and its output sink are shared by all open files: the host calls from one
 * thread at a time, whatever the file. */
#ifndef ZEMVA_PLUGIN_KO_IMPORT_H
#define ZEMVA_PLUGIN_KO_IMPORT_H

#ifndef __cplusplus
#include <stdbool.h>
#endif

#include "zemva/base/export.h"
#include "zemva/plugin/call.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The format that the plug-in reads. 28 bytes on 32 bits. */
typedef struct FileFormatInfo {
  const char* name;
  const char* filter; /* of a file dialog */
  int reserved1;      /* 0 */
  int reserved2;      /* 1 */
  const char* extension;
  unsigned char flags[4]; /* 0, 1, 0, 1 */
  int reserved3;          /* 0 */
} FileFormatInfo;

/* The host's grid. 20 bytes on 32 bits. */
typedef struct ImportGrid ImportGrid;
struct ImportGrid {
  /* Store a number or a zero-terminated text in a cell. */
  void(ZEMVA_CALL* setNumber)(ImportGrid* grid, int row, int column, float value);
  void(ZEMVA_CALL* setText)(ImportGrid* grid, int row, int column, const char* text);
  void* reserved; /* the host's own; not read */
  int rows;       /* to be filled */
  int columns;
};

/* Empties the error text and the warning. */
ZEMVA_API void ZEMVA_CALL KoImportInitPackage(void* context);
ZEMVA_API void ZEMVA_CALL KoImportReleasePackage(void* context);

/* The warning, or null when there is none. */
ZEMVA_API const char* ZEMVA_CALL KoImportGetWarning(void* context);
/* The text of the last error; empty when there was none. A success does not clear it. */
ZEMVA_API const char* ZEMVA_CALL KoImportGetLastError(void* context);

/* The number of formats, 1, and the record that describes it, which belongs to the module. */
ZEMVA_API int ZEMVA_CALL KoImportSizeFileFormatsSupported(void* context);
ZEMVA_API const FileFormatInfo* ZEMVA_CALL KoImportGetFileFormatInfo(void* context);

/* 1 when the file exists and starts with a format version that can be read, else 0. Its path may be
 * longer than one that can be opened. */
ZEMVA_API int ZEMVA_CALL KoImportIsCorrectFileType(void* context, const char* path);

/* Loads the data set of a file into *handle, which the host owns until KoImportClose. False, with
 * an error text and a null handle, when it cannot be loaded. */
ZEMVA_API bool ZEMVA_CALL KoImportOpen(void* context, const char* path, void* ignored,
                                       void** handle);
/* Frees the data set; a null handle is ignored. */
ZEMVA_API void ZEMVA_CALL KoImportClose(void* context, void* handle);

/* The size of the grid for the data set: a row more than observations, for the variable names, and
 * two columns more than variables, for observation numbers and names. Returns 1. */
ZEMVA_API int ZEMVA_CALL KoImportEstablishSize(void* context, void* handle, int* rows,
                                               int* columns);

/* Fills the rows and columns that the grid asks for, row by row. A missing value is an empty text,
 * and so is a cell in a row or column that the data set does not have. False, with nothing written,
 * when the handle or the grid is null. */
ZEMVA_API bool ZEMVA_CALL KoImportRead(void* context, void* handle, ImportGrid* grid);

/* Refused: false, with an error text. */
ZEMVA_API bool ZEMVA_CALL KoImportWrite(void* context);

#ifdef __cplusplus
}
#endif

#endif /* ZEMVA_PLUGIN_KO_IMPORT_H */
