// What models list of themselves.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "model/vector_reference.h"
#include "support/temp_folder.h"

namespace zemva {
namespace {

// All of it, letter by letter. The numbers in it are those of reference/vectors.csv.
TEST(ModelListing, ShowsWhatTheReferenceHas) {
  test::Models models;
  models.Predict();
  test::RecordingWindow list;
  const auto show = [&](auto& bench) {
    bench.model.SetModNam("M3");
    bench.model.SetModNum(3);
    for (const EVariType type : {EVariType::R2, EVariType::R2adj}) {
      bench.owner.options.SetVariMode(type);
      bench.model.Show(list);
    }
    bench.model.ShowAll(list);
  };
  show(models.pc);
  show(models.pls);
  EXPECT_EQ(test::WithoutDates(list.log), test::ReadBytes(ZEMVA_REFERENCES "/listing.txt"));
}

TEST(ModelListing, TellsWhatIsNotThere) {
  const test::Rows rows = test::Noise().Table(6, 3);
  test::Bench pc("abc", rows);
  test::PLSBench pls(rows, 1);
  test::RecordingWindow list;
  for (Model* const model : {static_cast<Model*>(&pc.model), static_cast<Model*>(&pls.model)}) {
    model->ShowCent(list);
    model->ShowComp(1, list);
  }
  EXPECT_EQ(list.log, "Data not centered.\nComponent[1]\nData uncentered.\nComponent[1]\n");
}

TEST(ModelListing, IsKeptInAFile) {
  test::Models models;
  PCModel& model = models.pc.model;
  const test::TempFolder folder;
  test::RecordingWindow list;
  model.ShowRes(list);
  EXPECT_EQ(model.SaveRes(folder.File("results.txt").c_str()), 0);
  EXPECT_EQ(test::ReadBytes(folder.File("results.txt")), list.log);
  EXPECT_EQ(model.SaveRes(nullptr), 8022);
  model.SetModAddr(folder.File("model.mdl").c_str());
  EXPECT_EQ(model.Save(7), 0);
  EXPECT_EQ(model.DeleteFiles(), 0);
  EXPECT_FALSE(std::filesystem::exists(folder.File("model.mdl")));
  EXPECT_EQ(model.DeleteFiles(), 0);
}

}  // namespace
}  // namespace zemva
