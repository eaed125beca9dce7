#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dio_data.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/resource.h>
#endif

namespace zemva {
namespace {

namespace fs = std::filesystem;

std::string WithoutTime(std::string bytes) {
  return bytes.replace(86, 22, 22, '#');
}

class SaveTest : public ::testing::Test {
 protected:
  std::unique_ptr<Dataset> LoadFrom(const std::string& path) {
    auto dataset = std::make_unique<Dataset>("Loaded", path.c_str(), window_);
    EXPECT_EQ(dataset->Load(), 0);
    return dataset;
  }

  std::unique_ptr<Dataset> SmallDataset() {
    test::WriteBytes(path_, test::SmallFile());
    return LoadFrom(path_);
  }

  std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_.Path()), {}));
  }

  test::TempFolder folder_;
  std::string path_ = folder_.File("file.vdo");
  std::string other_ = folder_.File("other.vdo");
  test::RecordingWindow window_;
};

TEST_F(SaveTest, NewFileHoldsTheItemsInTheirOrder) {
  const auto dataset = SmallDataset();
  dataset->SetDSAddr(other_.c_str());
  ASSERT_EQ(dataset->Save(), 0);
  std::vector<std::string> items = test::SmallItems();
  const std::string blank(22, ' ');
  items[4] =
      test::ObsInfoItem({{1, "first"}, {-2, "second"}, {30, "third"}}, {blank, blank, blank});
  std::string expected = test::FileOfItems(items);
  expected.replace(26, 60, 60, ' ');  // the comment
  EXPECT_EQ(WithoutTime(test::ReadBytes(other_)), WithoutTime(expected));
  EXPECT_FALSE(dataset->IsDirty());
}

TEST_F(SaveTest, SavedSampleIsTheSampleByteForByte) {
  for (const char* name : {"USArrests", "airquality", "iris", "mtcars", "spectra"}) {
    const std::string sample = std::string(ZEMVA_SAMPLES) + "/" + name + ".vdo";
    const auto dataset = LoadFrom(sample);
    const std::string copy = folder_.File(std::string(name) + ".vdo");
    dataset->SetDSAddr(copy.c_str());
    ASSERT_EQ(dataset->Save(), 0);
    EXPECT_EQ(WithoutTime(test::ReadBytes(copy)), WithoutTime(test::ReadBytes(sample))) << name;
  }
}

TEST_F(SaveTest, ReplacingKeepsAllThatIsNotTheDataSet) {
  std::vector<std::string> items = test::SmallItems();
  const std::string ignored = test::Item("AvgX", "xvf4", {2}, "12345678");
  const std::string kind = test::Item("900TAB", "i2", {}, test::I2(1));
  items.insert(items.begin(), ignored);
  items.push_back(kind);
  const std::string model = test::SuperItemOf("Model", "mod", "a body of some other layout");
  // Bytes behind the last super item, so many that one is left when whole blocks are copied.
  const std::string tail((std::size_t{1} << 16) + 1 - model.size(), 't');
  const std::string old =
      test::FileOf(1, 2, test::SuperItemOf("Small", "data", test::Joined(items)) + model) + tail;
  test::WriteBytes(path_, old);
  auto dataset = LoadFrom(path_);
  dataset->SetDSTitle("Changed");
  ASSERT_EQ(dataset->Save(), 0);

  const std::string saved = test::ReadBytes(path_);
  EXPECT_EQ(saved.substr(0, 2), old.substr(0, 2));
  EXPECT_EQ(saved.substr(2, 4), test::I4(static_cast<int>(saved.size())));
  EXPECT_EQ(saved.substr(6, 80), old.substr(6, 80)) << "name and comment of the project";
  EXPECT_EQ(saved.substr(108, 2), test::I2(2));
  EXPECT_NE(saved.find(ignored), std::string::npos);
  EXPECT_NE(saved.find(kind), std::string::npos);
  EXPECT_TRUE(saved.ends_with(model + tail));
  dataset = LoadFrom(path_);
  EXPECT_STREQ(dataset->GetDSTitle(), "Changed");
  EXPECT_EQ(dataset->GetKind(), 2);
  ASSERT_EQ(dataset->Save(), 0);
  EXPECT_EQ(WithoutTime(test::ReadBytes(path_)), WithoutTime(saved)) << "a second save";

  ASSERT_EQ(DioData(path_.c_str(), nullptr, window_).Delete(), 0);
  const std::string rest = test::ReadBytes(path_);
  EXPECT_EQ(rest.substr(110), model + tail);
  EXPECT_EQ(rest.substr(108, 2), test::I2(1));
}

TEST_F(SaveTest, DeletingTheOnlySuperItemRemovesTheFile) {
  test::WriteBytes(path_, test::SmallFile());
  EXPECT_EQ(DioData(path_.c_str(), nullptr, window_).Delete(), 0);
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(SaveTest, WhatIsNoProjectFileIsNotOverwritten) {
  const auto dataset = SmallDataset();
  test::WriteBytes(other_, "A letter to a friend. " + std::string(200, 'x'));
  const std::string letter = test::ReadBytes(other_);
  dataset->SetDSAddr(other_.c_str());
  EXPECT_EQ(dataset->Save(), 2017);
  EXPECT_EQ(test::ReadBytes(other_), letter);
  test::WriteBytes(other_, "");
  EXPECT_EQ(dataset->Save(), 0) << "an empty file has nothing to lose";
}

TEST_F(SaveTest, WhatCannotBeReadAgainIsRefused) {
  const auto dataset = SmallDataset();
  const std::string before = test::ReadBytes(path_);
  window_.log.clear();
  dataset->SetObsName(2, std::string(25, 'n').c_str());
  EXPECT_EQ(dataset->Save(), 2013);
  EXPECT_EQ(window_.log, "Could not save data set 7to file " + path_ + ".\n");
  EXPECT_EQ(test::ReadBytes(path_), before);
  dataset->SetObsName(2, std::string(24, 'n').c_str());
  EXPECT_EQ(dataset->Save(), 0);
}

TEST_F(SaveTest, MoreThanTwoGigabytesAreRefused) {
  if (sizeof(void*) == 4) GTEST_SKIP() << "the matrix does not fit the address space";
  constexpr short kRows = 32767;
  constexpr short kColumns = 16400;
  XFMatrix* matrix = new XFMatrix("Large", kRows, kColumns, Unfilled{});
  ASSERT_EQ(matrix->GetStatus(), 0);
  const auto small = SmallDataset();
  DangerousDataSetManipulator::SetDM(small.get(), matrix);
  EXPECT_EQ(DioData(other_.c_str(), nullptr, window_).Save(*small), 2001);
  DioFile file(other_.c_str(), window_);
  int size = 0;
  EXPECT_EQ(file.NewFile(), 0);
  EXPECT_EQ(file.WriteMXF4("Dataset", *matrix, size, nullptr), 2001);
  EXPECT_FALSE(fs::exists(other_));
}

#if !defined(_WIN32)

TEST_F(SaveTest, FullDiskIsAWriteErrorAndTheOldFileStays) {
  const auto dataset = SmallDataset();
  dataset->SetDSAddr("/dev/full");
  EXPECT_EQ(dataset->Save(), 2006);

  const std::string before = test::ReadBytes(path_);
  dataset->SetDSAddr(path_.c_str());
  window_.log.clear();
  signal(SIGXFSZ, SIG_IGN);
  rlimit limit;
  getrlimit(RLIMIT_FSIZE, &limit);
  for (const rlim_t bytes : std::initializer_list<rlim_t>{0, 100, 300, 500}) {
    const rlimit small_limit = {bytes, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small_limit);
    EXPECT_EQ(dataset->Save(), 2006) << "after " << bytes << " bytes";
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(test::ReadBytes(path_), before);
    EXPECT_EQ(FilesInFolder(), 1u) << "a file was left behind";
  }
  signal(SIGXFSZ, SIG_DFL);
  EXPECT_EQ(window_.log.find("corrupt"), std::string::npos) << "it is the disk that is at fault";
  EXPECT_EQ(dataset->Save(), 0);
}

#endif

}  // namespace
}  // namespace zemva
