#include "zemva/plugin/ko_import.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/plugin/zemva_import.h"

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace zemva {
namespace {

// A grid that writes down what it is told, in order.
struct RecordingGrid : ImportGrid {
  explicit RecordingGrid(int row_count, int column_count)
      : ImportGrid{SetNumber, SetText, nullptr, row_count, column_count} {}

  static void SetNumber(ImportGrid* grid, int row, int column, float value) {
    static_cast<RecordingGrid*>(grid)->Record(row, column, std::to_string(value));
  }
  static void SetText(ImportGrid* grid, int row, int column, const char* text) {
    static_cast<RecordingGrid*>(grid)->Record(row, column, '"' + std::string(text) + '"');
  }
  void Record(int row, int column, const std::string& cell) {
    cells.push_back(std::to_string(row) + "," + std::to_string(column) + " " + cell);
  }

  std::vector<std::string> cells;
};

class KoImport : public ::testing::Test {
 protected:
  KoImport() { KoImportInitPackage(nullptr); }

  std::string File(const std::string& bytes) {
    test::WriteBytes(folder_.File("file.vdo"), bytes);
    return folder_.File("file.vdo");
  }

  void* Open(const std::string& bytes) {
    void* handle = nullptr;
    EXPECT_TRUE(KoImportOpen(nullptr, File(bytes).c_str(), nullptr, &handle));
    return handle;
  }

  test::TempFolder folder_;
};

TEST_F(KoImport, DescribesTheFormat) {
  EXPECT_EQ(KoImportSizeFileFormatsSupported(nullptr), 1);
  const FileFormatInfo* info = KoImportGetFileFormatInfo(nullptr);
  EXPECT_STREQ(info->name, "VARDO-P File (pre version 9)");
  EXPECT_STREQ(info->filter, "VARDO-P Datasets (*.vdo)");
  EXPECT_STREQ(info->extension, ".vdo");
  EXPECT_EQ(std::string(std::begin(info->flags), std::end(info->flags)),
            std::string("\0\1\0\1", 4));
  EXPECT_EQ(info->reserved1, 0);
  EXPECT_EQ(info->reserved2, 1);
  EXPECT_EQ(info->reserved3, 0);
}

TEST_F(KoImport, ProbeLooksAtTheVersionAlone) {
  const struct {
    std::string bytes;
    int expected;
  } cases[] = {{{"\1\0", 2}, 1}, {{"\2\0rubbish", 9}, 1}, {{"\0\1", 2}, 0},
               {{"\3\0", 2}, 0}, {{"\1", 1}, 0},          {"", 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(KoImportIsCorrectFileType(nullptr, File(c.bytes).c_str()), c.expected);
  }
  EXPECT_EQ(KoImportIsCorrectFileType(nullptr, folder_.File("none").c_str()), 0);
  EXPECT_EQ(KoImportIsCorrectFileType(nullptr, folder_.Path().string().c_str()), 0);
  EXPECT_STREQ(KoImportGetLastError(nullptr), "");
}

TEST_F(KoImport, FillsTheGridInOrder) {
  void* handle = Open(test::SmallFile());
  int rows = 0;
  int columns = 0;
  EXPECT_EQ(KoImportEstablishSize(nullptr, handle, &rows, &columns), 1);
  EXPECT_EQ(rows, 4);
  EXPECT_EQ(columns, 4);
  RecordingGrid grid(rows, columns);
  EXPECT_TRUE(KoImportRead(nullptr, handle, &grid));
  const std::vector<std::string> expected = {
      "1,1 \"\"",      "1,2 \"\"",       "1,3 \"x\"",    "1,4 \"y\"",
      "2,1 1.000000",  "2,2 \"first\"",  "2,3 1.500000", "2,4 2.000000",
      "3,1 -2.000000", "3,2 \"second\"", "3,3 \"\"",     "3,4 -99.000008",
      "4,1 30.000000", "4,2 \"third\"",  "4,3 5.000000", "4,4 6.000000"};
  EXPECT_EQ(grid.cells, expected);
  KoImportClose(nullptr, handle);
}

TEST_F(KoImport, FillsAsMuchAsTheGridAsksForWithEmptyTextsBeyondTheDataSet) {
  void* handle = Open(test::SmallFile());
  const struct {
    int rows, columns;
  } cases[] = {{0, 0}, {0, 3}, {1, 0}, {2, 1}, {2, 3}, {70000, 3}, {4, 70000}};  // beyond 16 bits
  for (const auto& [rows, columns] : cases) {
    RecordingGrid grid(rows, columns);
    EXPECT_TRUE(KoImportRead(nullptr, handle, &grid));
    ASSERT_EQ(std::ssize(grid.cells), std::ptrdiff_t{rows} * columns);
    for (int i = 0; i < rows * columns; ++i) {
      const bool is_there = i / columns < 4 && i % columns < 4;
      ASSERT_TRUE(is_there || grid.cells[static_cast<std::size_t>(i)].ends_with(" \"\""));
    }
  }
  RecordingGrid grid(1, 1);
  EXPECT_FALSE(KoImportRead(nullptr, nullptr, &grid));
  EXPECT_FALSE(KoImportRead(nullptr, handle, nullptr));
  KoImportClose(nullptr, handle);
  KoImportClose(nullptr, nullptr);
}

TEST_F(KoImport, NamesThatAreNotThereAreEmptyTexts) {
  std::vector<std::string> items = test::SmallItems();
  items.erase(items.begin() + 6);  // variables
  items.erase(items.begin() + 4);  // observations
  void* handle = Open(test::FileOfItems(items));
  EXPECT_EQ(ZEMVAImport_GetVarName(handle, 1), nullptr);
  EXPECT_EQ(ZEMVAImport_GetObsName(handle, 1), nullptr);
  RecordingGrid grid(2, 3);
  EXPECT_TRUE(KoImportRead(nullptr, handle, &grid));
  EXPECT_EQ(grid.cells[2], "1,3 \"\"");
  EXPECT_EQ(grid.cells[3], "2,1 0.000000");
  EXPECT_EQ(grid.cells[4], "2,2 \"\"");
  KoImportClose(nullptr, handle);
}

TEST_F(KoImport, ErrorTextStaysUntilTheNextInit) {
  void* handle = &handle;
  const char* open_error = "The file does not seem to be a valid VARDO-P .vdo file.";
  EXPECT_FALSE(KoImportOpen(nullptr, folder_.File("none").c_str(), nullptr, &handle));
  EXPECT_EQ(handle, nullptr);
  EXPECT_STREQ(KoImportGetLastError(nullptr), open_error);
  const std::string longest(300, 'x');
  for (const char* const path :
       {"", longest.c_str(), "\xff\xfe", static_cast<const char*>(nullptr)}) {
    EXPECT_FALSE(KoImportOpen(nullptr, path, nullptr, &handle));
    EXPECT_EQ(KoImportIsCorrectFileType(nullptr, path), 0);
  }
  KoImportClose(nullptr, Open(test::SmallFile()));
  EXPECT_STREQ(KoImportGetLastError(nullptr), open_error);
  EXPECT_FALSE(KoImportWrite(nullptr));
  EXPECT_STREQ(KoImportGetLastError(nullptr), "Export to VARDO-P .vdo file is not supported.");
  EXPECT_EQ(KoImportGetWarning(nullptr), nullptr);
  KoImportInitPackage(nullptr);
  EXPECT_STREQ(KoImportGetLastError(nullptr), "");
}

#if defined(__GLIBC__)
TEST_F(KoImport, TenThousandCyclesLeaveMemoryWhereItWas) {
  const std::string good = std::string(ZEMVA_SAMPLES) + "/airquality.vdo";
  const std::string bad = File(test::SmallFile().substr(0, 500));
  const auto cycle = [&](int count) {
    for (int i = 0; i < count; ++i) {
      void* handle = nullptr;
      EXPECT_TRUE(KoImportOpen(nullptr, good.c_str(), nullptr, &handle));
      RecordingGrid grid(2, 3);
      KoImportRead(nullptr, handle, &grid);
      KoImportClose(nullptr, handle);
      EXPECT_FALSE(KoImportOpen(nullptr, bad.c_str(), nullptr, &handle));
    }
  };
  cycle(10);
  const auto before = mallinfo2().uordblks;
  cycle(10000);
  EXPECT_LE(mallinfo2().uordblks, before + 4096) << "less than a byte a cycle";
}
#endif

}  // namespace
}  // namespace zemva
