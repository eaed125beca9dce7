// Files that were cut or changed: each loads whole or fails with a code. Run under the sanitizers,
// these tests find reads and writes outside an object, leaks, and allocations out of proportion.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {
namespace {

class DamagedFile : public ::testing::Test {
 protected:
  // Loads the bytes and, when they load, reads all that a host can ask for.
  int LoadAndReadAll(const std::string& bytes) {
    std::filesystem::remove(
        path_);  // an overwritten file may wait for the disk, a new one does not
    test::WriteBytes(path_, bytes);
    Dataset dataset("Damaged", path_.c_str(), window_);
    const int status = dataset.Load();
    short count;
    EXPECT_EQ(DioData(path_.c_str(), nullptr, window_).GetNObs(count), status);
    if (status != 0) {
      EXPECT_FALSE(dataset.IsLoaded());
      return status;
    }
    EXPECT_GE(dataset.GetDMPtr()->NRow(), dataset.GetNObsDS());
    EXPECT_GE(dataset.GetDMPtr()->NCol(), dataset.GetNVarDS());
    double sum = 0;
    for (int i = 1; i <= dataset.GetNObsDS(); ++i) {
      for (int j = 1; j <= dataset.GetNVarDS(); ++j) sum += dataset[static_cast<short>(i)][j];
    }
    checksum_ += sum;
    std::size_t length = 0;
    for (int i = 0; i <= dataset.GetNObsDS() + 1; ++i) {
      short number;
      char* name = nullptr;
      dataset.GetObsInfo(static_cast<short>(i), number, name);
      if (name != nullptr) length += std::string(name).size();
      name = nullptr;
      dataset.GetVarInfo(static_cast<short>(i), number, name);
      if (name != nullptr) length += std::string(name).size();
    }
    checksum_ += static_cast<double>(length);
    return status;
  }

  test::TempFolder folder_;
  std::string path_ = folder_.File("file.vdo");
  test::RecordingWindow window_;
  double checksum_ = 0;
};

TEST_F(DamagedFile, CutAtEveryLengthItFailsWithACode) {
  const std::string whole = test::SmallFile();
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_NE(LoadAndReadAll(whole.substr(0, length)), 0) << "cut at byte " << length;
  }
  EXPECT_EQ(LoadAndReadAll(whole), 0);
}

TEST_F(DamagedFile, WithAnyByteChangedItLoadsWholeOrFails) {
  const std::string whole = test::SmallFile();
  for (std::size_t i = 0; i < whole.size(); ++i) {
    for (const int value : {0x00, 0x7f, 0x80, 0xff}) {
      std::string damaged = whole;
      damaged[i] = static_cast<char>(value);
      const int status = LoadAndReadAll(damaged);
      EXPECT_TRUE(status == 0 || (2000 <= status && status < 3000))
          << "byte " << i << " set to " << value << ": " << status;
    }
  }
}

TEST_F(DamagedFile, RowsThatNoBytesStandForAreBounded) {
  const std::string rows_of_nothing = test::Item("Dataset", "mxf4", {200, 0}, test::Z("m"));
  std::vector<std::string> items = test::SmallItems();
  for (int i = 0; i < 3; ++i) items.insert(items.begin(), rows_of_nothing);
  EXPECT_EQ(LoadAndReadAll(test::FileOfItems(items)), 0);
  for (int i = 0; i < 50; ++i) items.insert(items.begin(), rows_of_nothing);
  EXPECT_EQ(LoadAndReadAll(test::FileOfItems(items)), 2005);
}

}  // namespace
}  // namespace zemva
