/* A host of the import plug-in: probes a file and copies its data set into a grid of texts.
 *
 *   host FILE.vdo
 */
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>

#include "zemva/plugin/ko_import.h"

enum { kWidth = 24 };

/* What a host has of its own begins with the grid that the plug-in knows. */
struct TextGrid {
  struct ImportGrid grid;
  char* cells;
};

static char* CellOf(struct ImportGrid* grid, int row, int column) {
  struct TextGrid* own = (struct TextGrid*)grid;
  return own->cells + ((size_t)(row - 1) * (size_t)grid->columns + (size_t)(column - 1)) * kWidth;
}

static void SetNumber(struct ImportGrid* grid, int row, int column, float value) {
  snprintf(CellOf(grid, row, column), kWidth, "%g", value);
}

static void SetText(struct ImportGrid* grid, int row, int column, const char* text) {
  snprintf(CellOf(grid, row, column), kWidth, "%s", text);
}

int main(int argc, char** argv) {
  struct TextGrid own = {{SetNumber, SetText, NULL, 0, 0}, NULL};
  void* handle = NULL;
  int column;
  if (argc != 2) return fputs("host FILE.vdo\n", stderr), 2;
  KoImportInitPackage(NULL);
  if (!KoImportIsCorrectFileType(NULL, argv[1]) || !KoImportOpen(NULL, argv[1], NULL, &handle)) {
    puts(KoImportGetLastError(NULL));
    return 1;
  }
  KoImportEstablishSize(NULL, handle, &own.grid.rows, &own.grid.columns);
  own.cells = calloc((size_t)own.grid.rows * (size_t)own.grid.columns, kWidth);
  if (own.cells != NULL && KoImportRead(NULL, handle, &own.grid)) {
    for (column = 1; column <= own.grid.columns; ++column) {
      printf("%s: %s\n", CellOf(&own.grid, 1, column), CellOf(&own.grid, 2, column));
    }
  }
  free(own.cells);
  KoImportClose(NULL, handle);
  KoImportReleasePackage(NULL);
  return 0;
}
