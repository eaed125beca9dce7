#include "zemva/plugin/ko_import.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <new>

#include "zemva/base/fixed_text.h"
#include "zemva/base/native_path.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/numeric/missing.h"
#include "zemva/plugin/dataset_handle.h"
#include "zemva/plugin/zemva_import.h"

static_assert(sizeof(void*) != 4 || sizeof(FileFormatInfo) == 28);
static_assert(sizeof(void*) != 4 || sizeof(ImportGrid) == 20);

namespace {

constexpr int kHeaderRows = 1;
constexpr int kLabelColumns = 2;

zemva::FixedText<2047> lastErrorText;
zemva::FixedText<2047> warningText;

constexpr FileFormatInfo kFileFormatInfo = {
    "VARDO-P File (pre version 9)", "VARDO-P Datasets (*.vdo)", 0, 1, ".vdo", {0, 1, 0, 1}, 0};

// A grid cell holds a text, be it empty.
const char* TextOrEmpty(const char* text) {
  return text == nullptr ? "" : text;
}

// Whether the first two bytes of a file are a format version that can be read.
bool HasKnownVersion(const std::filesystem::path& path) {
  // Opening a pipe would wait for its other end.
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  std::FILE* file = zemva::OpenFile(path, "rb");
  if (file == nullptr) return false;
  std::array<char, 2> bytes;
  const std::size_t got = std::fread(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
  return got == bytes.size() && zemva::DioData::CanRead(zemva::DecodeI2(bytes));
}

struct TableSize {
  int observations;
  int variables;
};

TableSize SizeOf(void* handle) {
  TableSize size;
  ZEMVAImport_SizeDS(handle, &size.observations, &size.variables);
  return size;
}

void FillHeader(void* handle, ImportGrid* grid, const TableSize& size) {
  for (int column = 1; column <= grid->columns; ++column) {
    const int variable = column - kLabelColumns;
    const bool is_there = 1 <= variable && variable <= size.variables;
    const char* text = is_there ? ZEMVAImport_GetVarName(handle, variable) : "";
    grid->setText(grid, kHeaderRows, column, TextOrEmpty(text));
  }
}

// The cells of a row from `column` on.
void Clear(ImportGrid* grid, int row, int column) {
  for (; column <= grid->columns; ++column) grid->setText(grid, row, column, "");
}

// The row of an observation; an empty text for a missing value, and where there is no such
// observation or variable.
void FillRow(void* handle, ImportGrid* grid, int row, const TableSize& size) {
  const int observation = row - kHeaderRows;
  if (observation > size.observations) return Clear(grid, row, 1);
  if (grid->columns >= 1) {
    const auto number = static_cast<float>(ZEMVAImport_GetObsNum(handle, observation));
    grid->setNumber(grid, row, 1, number);
  }
  if (grid->columns >= 2) {
    grid->setText(grid, row, 2, TextOrEmpty(ZEMVAImport_GetObsName(handle, observation)));
  }
  const float* const values = zemva::DatasetOf(handle)[static_cast<short>(observation)];
  const int last = std::min(grid->columns, size.variables + kLabelColumns);
  for (int column = kLabelColumns + 1; column <= last; ++column) {
    const float value = values[column - kLabelColumns];
    if (zemva::IsMissing(value)) {
      grid->setText(grid, row, column, "");
    } else {
      grid->setNumber(grid, row, column, value);
    }
  }
  Clear(grid, row, std::max(last, kLabelColumns) + 1);
}

}  // namespace

void KoImportInitPackage(void*) {
  lastErrorText.Set("");
  warningText.Set("");
}

void KoImportReleasePackage(void*) {}

const char* KoImportGetWarning(void*) {
  return warningText.IsEmpty() ? nullptr : warningText.Get();
}

const char* KoImportGetLastError(void*) {
  return lastErrorText.Get();
}

int KoImportSizeFileFormatsSupported(void*) {
  return 1;
}

const FileFormatInfo* KoImportGetFileFormatInfo(void*) {
  return &kFileFormatInfo;
}

int KoImportIsCorrectFileType(void*, const char* path) {
  try {
    return path != nullptr && HasKnownVersion(zemva::NativePath(path)) ? 1 : 0;
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

bool KoImportOpen(void*, const char* path, void*, void** handle) {
  *handle = ZEMVAImport_ReadDS(path);
  if (*handle != nullptr) return true;
  lastErrorText.Set("The file does not seem to be a valid VARDO-P .vdo file.");
  return false;
}

void KoImportClose(void*, void* handle) {
  ZEMVAImport_DeleteDS(handle);
}

int KoImportEstablishSize(void*, void* handle, int* rows, int* columns) {
  const TableSize size = SizeOf(handle);
  *rows = size.observations + kHeaderRows;
  *columns = size.variables + kLabelColumns;
  return 1;
}

bool KoImportRead(void*, void* handle, ImportGrid* grid) {
  if (handle == nullptr || grid == nullptr) return false;
  const TableSize size = SizeOf(handle);
  if (grid->rows >= kHeaderRows) FillHeader(handle, grid, size);
  for (int row = kHeaderRows + 1; row <= grid->rows; ++row) FillRow(handle, grid, row, size);
  return true;
}

bool KoImportWrite(void*) {
  lastErrorText.Set("Export to VARDO-P .vdo file is not supported.");
  return false;
}
