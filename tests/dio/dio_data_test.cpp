#include "zemva/dio/dataset/dio_data.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/data/dangerous_data_set_manipulator.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/file/finder.h"

namespace zemva {
namespace {

using test::FileOf;
using test::FileOfItems;
using test::Item;
using test::SmallItems;

constexpr const char* kComplaint = "\nThe file is maybe corrupt or not a Vardo file.\n";

// Positions in SmallItems().
enum { kName, kNumber, kTitle, kNObs, kObsInfo, kNVar, kVarInfo, kMatrix };

class DioDataTest : public ::testing::Test {
 protected:
  // Loads a file of these bytes into a new data set.
  int Load(const std::string& bytes) {
    test::WriteBytes(path_, bytes);
    window_.log.clear();
    dataset_ = std::make_unique<Dataset>("Before", path_.c_str(), window_);
    return dataset_->Load();
  }

  // A small file with another item at a position.
  static std::string FileWith(int position, const std::string& item) {
    std::vector<std::string> items = SmallItems();
    items[static_cast<std::size_t>(position)] = item;
    return FileOfItems(items);
  }

  test::TempFolder folder_;
  std::string path_ = folder_.File("file.vdo");
  test::RecordingWindow window_;
  std::unique_ptr<Dataset> dataset_;
};

TEST_F(DioDataTest, LoadsEveryFieldOfADataSet) {
  for (const int version : {1, 2}) {
    ASSERT_EQ(Load(FileOfItems(SmallItems(), version)), 0);
    EXPECT_STREQ(dataset_->GetDSNam(), "Small");
    EXPECT_STREQ(dataset_->GetDSTitle(), "A small data set");
    EXPECT_EQ(dataset_->GetDSNum(), 7);
    EXPECT_EQ(dataset_->GetNObsDS(), 3);
    EXPECT_EQ(dataset_->GetNVarDS(), 2);
    EXPECT_EQ(dataset_->GetNValA(), 5);
    short number;
    char* name;
    EXPECT_EQ(dataset_->GetObsInfo(2, number, name), 0);
    EXPECT_EQ(number, -2);
    EXPECT_STREQ(name, "second");
    EXPECT_EQ(dataset_->GetVarInfo(2, number, name), 0);
    EXPECT_EQ(number, 2);
    EXPECT_STREQ(name, "y");
    EXPECT_EQ((*dataset_)[1][1], 1.5f);
    EXPECT_EQ((*dataset_)[3][2], 6.0f);
    EXPECT_EQ(window_.log, "");
  }
}

TEST_F(DioDataTest, LaterItemCountsButANumberThatIsSetStays) {
  std::vector<std::string> items = SmallItems();
  items.insert(items.begin(), Item("NOBJ", "i2", {}, test::I2(1)));
  items.insert(items.begin(), test::MatrixItem(1, 1, {2}));
  items.insert(items.begin(), Item("AvgX", "xyz", {1, 2}, "known, and of no use here"));
  items.push_back(Item("900TAB", "i2", {}, test::I2(1)));
  items.push_back(Item("DSName", "sz21", {}, test::Z("Later")));
  items.push_back(Item("DSNum", "i2", {}, test::I2(9)));
  items.push_back(test::ObsInfoItem({{4, "d"}, {5, "e"}, {6, "f"}}));
  items.push_back(test::VarInfoItem({{1, "p"}, {2, "q"}}));
  items.push_back(test::MatrixItem(3, 2, {9, 8, 7, 6, 5, 4}));
  ASSERT_EQ(Load(FileOfItems(items)), 0);
  EXPECT_STREQ(dataset_->GetDSNam(), "Later");
  EXPECT_EQ(dataset_->GetDSNum(), 7);
  EXPECT_EQ(dataset_->GetKind(), 2);
  short number;
  char* name;
  dataset_->GetObsInfo(1, number, name);
  EXPECT_STREQ(name, "d");
  EXPECT_EQ((*dataset_)[1][1], 9.0f);

  DioData data(path_.c_str(), nullptr, window_);
  EXPECT_EQ(data.GetNObs(number), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(data.GetDSNumber(number), 0);
  EXPECT_EQ(number, 7);
  XFVector* column = nullptr;
  ASSERT_EQ(data.GetVar(1, column), 0);
  EXPECT_EQ((*column)[3], 5.0f);
  delete column;
}

// All that is done with a file refuses what Load refuses.
TEST_F(DioDataTest, RefusalsHaveTheirCodes) {
  Dataset other("Other", path_.c_str(), window_, new XFMatrix("M", 0, 0, 0.0f),
                new ObsInfo("ObsInfo"), new VarInfo("VarInfo"));
  const std::string long_payload(65535, 'x');
  const std::string small = test::SuperItemOf("Small", "data", test::Joined(SmallItems()));
  const struct {
    const char* what;
    std::string bytes;
    int status;
    bool is_complaint;
  } cases[] = {
      {"version 3", FileOf(3, 1, small), 2017, true},
      {"version 0", FileOf(0, 1, small), 2017, true},
      {"empty file", "", 2005, true},
      {"no super item", FileOf(2, 0, small), 2000, true},
      {"model first", FileOf(2, 2, test::SuperItemOf("M", "mod", "") + small), 2000, true},
      {"unknown super item", FileOf(2, 1, test::SuperItemOf("M", "abc", "")), 2008, true},
      {"unknown item", FileWith(kNumber, Item("Foreign", "i2", {}, test::I2(1))), 2008, true},
      {"component number", FileWith(kNumber, Item("P3", "i2", {}, test::I2(1))), 2000, true},
      {"payload of 65,535 bytes", FileWith(kTitle, Item("Title", "sz61", {}, long_payload)), 2003,
       false},
      {"ignored payload of 65,535 bytes", FileWith(kTitle, Item("AvgX", "xvf4", {}, long_payload)),
       2003, false},
      {"super item with dimensions",
       FileOf(2, 1, Item("Small", "data", {1}, test::Joined(SmallItems()))), 2005, true},
      {"overrun by a byte",
       FileOf(2, 1,
              Item("Small", "data", {}, test::Joined(SmallItems()),
                   static_cast<int>(small.size()) - 1)),
       2005, false},
      {"super item beyond the end",
       FileOf(2, 1,
              Item("Small", "data", {}, test::Joined(SmallItems()),
                   static_cast<int>(small.size()) + 1)),
       2005, true},
      {"count of one byte", FileWith(kNVar, Item("NVar", "i2", {}, "\2")), 2005, false},
      {"count of no bytes", FileWith(kNObs, Item("NOBJ", "i2", {}, "")), 2005, false},
      {"negative count", FileWith(kNVar, Item("NVar", "i2", {}, test::I2(-1))), 2005, false},
      {"no matrix", FileWith(kMatrix, ""), 2023, false},
      {"no count of observations", FileWith(kNObs, ""), 2023, false},
      {"no count of variables", FileWith(kNVar, ""), 2023, false},
      {"more observations than rows", FileWith(kNObs, Item("NOBJ", "i2", {}, test::I2(4))), 2023,
       false},
      {"more variables than columns", FileWith(kNVar, Item("NVar", "i2", {}, test::I2(3))), 2023,
       false},
      {"matrix of one dimension", FileWith(kMatrix, Item("Dataset", "mxf4", {3}, test::Z("m"))),
       2005, false},
      {"matrix that promises too much",
       FileWith(kMatrix, Item("Dataset", "mxf4", {32767, 32767}, test::Z("m"))), 2005, false},
      {"matrix beyond its item",
       FileWith(kMatrix, Item("Dataset", "mxf4", {3, 2}, "m")) + std::string(99, 'x'), 2005, false},
      {"table beyond its item", FileWith(kVarInfo, Item("VarInfo", "vari", {2}, test::I2(1) + "x")),
       2005, false},
      {"rows of nothing", FileWith(kMatrix, Item("Dataset", "mxf4", {32767, 0}, test::Z("m"))),
       2005, false},
      {"more variables than bytes", FileWith(kVarInfo, Item("VarInfo", "vari", {32767}, "")), 2005,
       false},
      {"more observations than bytes",
       FileWith(kObsInfo,
                Item("ObjInfo", "obji", {3},
                     test::I2(1) + test::Z("O") + std::string(3, '\0') + test::I2(32767))),
       2005, false},
      {"variables without a count", FileWith(kVarInfo, Item("VarInfo", "vari", {}, "")), 2005,
       false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Load(c.bytes), c.status) << c.what;
    EXPECT_EQ(window_.log, c.is_complaint ? kComplaint : "") << c.what;
    EXPECT_FALSE(dataset_->IsLoaded()) << c.what;
    EXPECT_STREQ(dataset_->GetDSNam(), "Before") << c.what;
    EXPECT_EQ(dataset_->GetDSNum(), 0) << c.what;

    DioData data(path_.c_str(), nullptr, window_);
    short number = 99;
    XFVector* vector = nullptr;
    XFMatrix* matrix = nullptr;
    EXPECT_EQ(data.LoadListProject(dataset_.get()), c.status) << c.what;
    EXPECT_EQ(data.GetNObs(number), c.status) << c.what;
    EXPECT_EQ(data.GetNVar(number), c.status) << c.what;
    EXPECT_EQ(data.GetDSNumber(number), c.status) << c.what;
    EXPECT_EQ(data.GetVar(1, vector), c.status) << c.what;
    EXPECT_EQ(data.GetObs(1, vector), c.status) << c.what;
    EXPECT_EQ(data.GetMatrix(matrix), c.status) << c.what;
    EXPECT_EQ(number, 99) << c.what;
    EXPECT_TRUE(vector == nullptr && matrix == nullptr) << c.what;
    EXPECT_EQ(data.Delete(), c.status) << c.what;
    if (c.bytes.empty()) continue;  // a save makes a file of it
    other.SetDirtyFlag(true);
    EXPECT_EQ(other.Save(), c.status) << c.what;
    EXPECT_TRUE(other.IsDirty()) << c.what;
    EXPECT_EQ(test::ReadBytes(path_), c.bytes) << c.what;
  }
}

TEST_F(DioDataTest, FailedLoadCanBeTriedAgain) {
  EXPECT_NE(Load(test::SmallFile().substr(0, 500)), 0);
  test::WriteBytes(path_, test::SmallFile());
  EXPECT_EQ(dataset_->Load(), 0);
  dataset_->Unload();
  dataset_->SetKind(2);
  test::WriteBytes(path_, test::SmallFile().substr(0, 500));
  EXPECT_NE(dataset_->Load(), 0);
  EXPECT_EQ(DangerousDataSetManipulator::GetNObsDS(dataset_.get()), 3) << "header and counts stay";
  EXPECT_EQ(dataset_->GetKind(), 2);
  test::WriteBytes(path_, test::SmallFile());
  EXPECT_EQ(dataset_->Load(), 0);
  EXPECT_EQ(dataset_->GetKind(), 1) << "what the file does not say is not left over";
  EXPECT_EQ(dataset_->Load(), 8001);
  EXPECT_EQ(dataset_->GetNObsDS(), 3);
}

TEST_F(DioDataTest, LongNamesAreCutAndPutWhatFollowsOutOfStep) {
  const std::string fits(24, 'n');
  ASSERT_EQ(Load(FileWith(kVarInfo, test::VarInfoItem({{1, fits}, {2, "y"}}))), 0);
  short number;
  char* name;
  dataset_->GetVarInfo(1, number, name);
  EXPECT_EQ(name, fits);
  const std::string too_long(60000, 'n');
  EXPECT_NE(Load(FileWith(kVarInfo, test::VarInfoItem({{1, too_long}, {2, "y"}}))), 0);
  EXPECT_NE(Load(FileWith(kObsInfo, test::ObsInfoItem({{1, too_long}}))), 0);
  const std::string in_field =
      Item("DSName", "sz21", {}, std::string(60000, 'n'));  // without a terminator
  ASSERT_EQ(Load(FileWith(kName, in_field)), 0);
  EXPECT_EQ(std::string(dataset_->GetDSNam()), fits);
}

TEST_F(DioDataTest, PartsAreReadWithoutTheRest) {
  test::WriteBytes(path_, test::SmallFile());
  DioData data(path_.c_str(), nullptr, window_);
  short number = 0;
  EXPECT_EQ(data.GetNObs(number), 0);
  EXPECT_EQ(number, 3);
  EXPECT_EQ(data.GetNVar(number), 0);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(data.GetDSNumber(number), 0);
  EXPECT_EQ(number, 7);
  XFVector* vector = nullptr;
  ASSERT_EQ(data.GetVar(2, vector), 0);
  EXPECT_STREQ(vector->GetName(), "VarDS[2]");
  EXPECT_EQ(vector->NVal(), 3);
  EXPECT_EQ((*vector)[3], 6.0f);
  delete vector;
  ASSERT_EQ(data.GetObs(2, vector), 0);
  EXPECT_STREQ(vector->GetName(), "ObsDS[2]");
  EXPECT_EQ(vector->NValA(), 1);
  delete vector;
  vector = nullptr;
  for (const short outside : std::initializer_list<short>{-1, 0, 4, 32767}) {
    EXPECT_EQ(data.GetVar(outside, vector), 2019);
    EXPECT_EQ(data.GetObs(outside, vector), 2019);
  }
  EXPECT_EQ(data.GetVar(3, vector), 2019);
  XFMatrix* matrix = nullptr;
  ASSERT_EQ(data.GetMatrix(matrix), 0);
  EXPECT_EQ((*matrix)[3][2], 6.0f);
  delete matrix;
}

// Counts what it is told of the progress.
class CountingData : public DioData {
 public:
  using DioData::DioData;
  void ProgressTick(int observation) override { ticks.push_back(observation); }
  void ProgressCount(int observations) override { counts.push_back(observations); }

  std::vector<int> ticks;
  std::vector<int> counts;
};

TEST_F(DioDataTest, StepsAreTakenOneByOneOnItsFile) {
  ASSERT_EQ(Load(test::SmallFile()), 0);
  const std::string copy = folder_.File("copy.vdo");
  CountingData written(copy.c_str(), nullptr, window_);
  DioFile& file = written.GetFile();
  ASSERT_EQ(file.NewSuperItemFile(SuperItem::kData, "Small"), 0);
  int size = 31;
  EXPECT_EQ(written.WriteDataset(*dataset_, size), 0);
  EXPECT_EQ(file.WriteSuperItemSize(size), 0);
  EXPECT_EQ(file.CommitSuperItemFile(), 0);
  EXPECT_EQ(written.counts, (std::vector<int>{3}));
  EXPECT_EQ(written.ticks, (std::vector<int>{1, 2, 3}));

  CountingData read(copy.c_str(), nullptr, window_);
  read.GetFile().OpenSuperItemFile();
  ASSERT_EQ(Finder::FindSuperItem(read.GetFile(), nullptr, SuperItem::kData), 0);
  SuperItem super_item;
  read.GetFile().GetSuperItemHeader(super_item);
  EXPECT_EQ(super_item.header.size, size);
  Dataset dataset("Read", copy.c_str(), window_);
  EXPECT_EQ(read.GetDataBody(&dataset, size - 31), 0);
  EXPECT_EQ((*DangerousDataSetManipulator::GetDM(&dataset))[3][2], 6.0f);
  EXPECT_EQ(read.counts, (std::vector<int>{3}));
  EXPECT_EQ(read.ticks, (std::vector<int>{1, 2, 3}));
}

TEST_F(DioDataTest, ListOfDataSetsLeavesValuesAndEditsAlone) {
  test::WriteBytes(path_, test::SmallFile());
  Dataset dataset("Before", path_.c_str(), window_);
  EXPECT_EQ(DioData(path_.c_str(), nullptr, window_).LoadListProject(&dataset), 0);
  EXPECT_FALSE(dataset.IsLoaded());
  EXPECT_STREQ(dataset.GetDSTitle(), "A small data set");
  EXPECT_EQ(DangerousDataSetManipulator::GetNObsDS(&dataset), 3);
  EXPECT_EQ(dataset.AddVar("new"), 3);
  EXPECT_EQ(DioData(path_.c_str(), nullptr, window_).LoadListProject(&dataset), 0);
  EXPECT_EQ(dataset.GetNVarDS(), 3);
  EXPECT_TRUE(dataset.IsLoaded());
  EXPECT_EQ(DioData(path_.c_str(), nullptr, window_).Load(nullptr), 0);
  EXPECT_EQ(window_.log, kComplaint);
}

}  // namespace
}  // namespace zemva
