#include "zemva/model/workset/predset.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "model/small_dataset.h"
#include "support/recording_window.h"
#include "zemva/model/workset/preparation.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

using test::Own;
using test::RowsOf;
using test::SmallDataset;
using enum EModType;

constexpr float kM = kMissing;

// The elements of a vector of small numbers without gaps between them.
template <typename Vector>
std::string Digits(const std::unique_ptr<Vector>& vector) {
  std::string digits;
  for (const auto value : vector->Values()) digits += std::to_string(value);
  return digits;
}

// The matrix of a prediction set that is prepared as a model of the work set would be now.
std::unique_ptr<XFMatrix> Matrix(Predset& predset, Workset& workset, EModType type,
                                 EBlock block = EBlock::kX,
                                 StreamWindow& window = GlobalStreamWindow()) {
  const auto preparation = Own(workset.ExtPreparation(type, block, 0));
  return preparation == nullptr ? nullptr : Own(predset.ExtMatrix(*preparation, window));
}

std::string Missing(const char* name) {
  return std::string("Variable ") + name + " is not in the data set, its values are missing.\n";
}

TEST(Predset, VariablesAreMatchedByName) {
  const struct {
    const char *workset, *predset;
    test::Rows rows;  // of 1, 2, 3 and so on
    std::string log;
  } cases[] = {
      {"abc", "abc", {{1, 2, 3}}, ""},
      {"abc", "cxba", {{4, 3, 1}}, ""},
      {"abc", "c", {{kM, kM, 1}}, Missing("a") + Missing("b")},
      {"aba", "baa", {{2, 1, 3}}, ""},
      {"aab", "ba", {{2, kM, 1}}, Missing("a")},
      {"a", "aaa", {{1}}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.workset) + " " + c.predset);
    test::RecordingWindow window;
    const std::string names = c.predset;
    const auto training = SmallDataset(c.workset, {{9, 9, 9}});
    const auto test = SmallDataset(names, {{1, 2, 3, 4}});
    Workset workset("WS", *training, GlobalStreamWindow());
    Predset predset("PS", *test, workset);
    const auto matrix = Matrix(predset, workset, kPC1, EBlock::kX, window);
    ASSERT_NE(matrix, nullptr);
    EXPECT_EQ(RowsOf(*matrix), c.rows);
    EXPECT_EQ(window.log, c.log);
  }
}

TEST(Predset, NamelessVariablesMatchInTheirOwnDataSetAlone) {
  const auto training = SmallDataset("ab", {{1, 2}});
  const auto test = SmallDataset("ab", {{3, 4}});
  for (Dataset* dataset : {training.get(), test.get()}) {
    for (short j = 1; j <= 2; ++j) dataset->SetVarName(j, "");
  }
  Workset workset("WS", *training, GlobalStreamWindow());
  Predset own("PS", *training, workset);
  EXPECT_EQ(RowsOf(*Matrix(own, workset, kPC1)), (test::Rows{{1, 2}}));
  Predset other("PS", *test, workset);
  EXPECT_EQ(Matrix(other, workset, kPC1), nullptr);
  EXPECT_EQ(other.GetStatus(), 8033);
}

TEST(Predset, ValuesGoTheWayOfTheWorkset) {
  test::RecordingWindow window;
  const auto training = SmallDataset("ab", {{1, 1}, {2, 2}});
  const auto test = SmallDataset("ba", {{2, 10}, {3, 100}, {4, 0}, {std::nanf(""), 1000}});
  Workset workset("WS", *training, GlobalStreamWindow());
  workset.SetTransformation(1, ETraType::kLog, 1, 0, 0);
  workset.AddLagged(2, 1);
  workset.AddTerm(1, 3);
  workset.SetRole(2, EVarRole::kExcluded);
  Predset predset("PS", *test, workset);
  EXPECT_EQ(predset.SetIsObsIn(1, false), 0);
  // a in logarithms, b one observation before, in or not, and their product.
  EXPECT_EQ(RowsOf(*Matrix(predset, workset, kPC1, EBlock::kX, window)),
            (test::Rows{{2, 2, 4}, {kM, 3, kM}, {3, 4, 12}}));
  EXPECT_EQ(window.log,
            "1 value(s) that are not finite numbers are taken as missing.\n"
            "Observation 30 had value(s) excluded due to transformation domain error.\r\n");
  EXPECT_EQ(predset.GetNObs(), 3);
  EXPECT_STREQ(Own(predset.ExtObsInfo())->GetONam(1), "o2");
  EXPECT_EQ(Digits(Own(predset.ExtObsIx())), "234");
}

TEST(Predset, WhatIsSetInTheWorksetLaterChangesNothing) {
  test::RecordingWindow window;
  const auto training = SmallDataset("abc", {{1, 1, 1}, {10, 2, 2}, {100, 3, 5}});
  const auto test = SmallDataset("bac", {{2, 10, 1}, {-3, -1, 2}});
  Workset workset("WS", *training, GlobalStreamWindow());
  workset.SetOClass(1, 3);
  workset.SetOClass(2, 8);
  workset.SetTransformation(1, ETraType::kLog, 1, 0, 0);
  workset.AddTerm(1, 2);
  workset.AddLagged(2, 1);
  const auto preparation = Own(workset.ExtPreparation(kPC1, EBlock::kX, 0));
  const auto of_classes = Own(workset.ExtPreparation(kPLS1DA, EBlock::kY, 0));
  workset.SetTransformation(1, ETraType::kNone, 0, 0, 0);
  workset.SetTransformation(2, ETraType::kLinear, 2, 0, 0);
  workset.SetRole(3, EVarRole::kExcluded);
  workset.SetIsObsIn(2, false);
  workset.SetOClass(3, 9);
  workset.DelAdded(5);
  workset.DelAdded(4);
  Predset predset("PS", *test, workset);
  EXPECT_EQ(RowsOf(*Own(predset.ExtMatrix(*preparation, window))),
            (test::Rows{{1, 2, 1, kM, 2}, {kM, -3, 2, 2, kM}}));
  EXPECT_EQ(window.log,
            "Observation 20 had value(s) excluded due to transformation domain error.\r\n");
  Predset own("PS", *training, workset);
  EXPECT_EQ(Digits(Own(own.ExtMembership(*preparation))), "111");
  EXPECT_EQ(RowsOf(*Own(own.ExtMatrix(*of_classes, window))),
            (test::Rows{{1, 0}, {0, 1}, {kM, kM}}));

  const Workset another("WS", *training, GlobalStreamWindow());
  Predset stranger("PS", *test, another);
  EXPECT_EQ(stranger.ExtMatrix(*preparation, window), nullptr);
  EXPECT_EQ(stranger.GetStatus(), 8040);
  EXPECT_EQ(stranger.ExtMembership(*preparation), nullptr);
}

TEST(Predset, MembersAndClassesAreThoseOfTheSameDataSet) {
  const auto training = SmallDataset("a", {{1}, {2}, {3}, {4}, {5}});
  const auto copy = std::make_unique<Dataset>(*training);
  Workset workset("WS", *training, GlobalStreamWindow());
  workset.SetOClass(1, 3);
  workset.SetOClass(2, 8);
  workset.SetOClass(4, 3);
  workset.SetIsObsIn(4, false);
  Predset own("PS", *training, workset);
  own.SetIsObsIn(2, false);
  const auto membership = [&](Predset& predset, EModType type, char selector) {
    return Digits(
        Own(predset.ExtMembership(*Own(workset.ExtPreparation(type, EBlock::kX, selector)))));
  };
  EXPECT_EQ(membership(own, kPC1, 0), "1101");
  EXPECT_EQ(membership(own, kPC1Cl, 3), "1000");
  EXPECT_EQ(membership(own, kPLS1DA, 0), "1000");
  EXPECT_EQ(RowsOf(*Matrix(own, workset, kPLS1DA, EBlock::kY)),
            (test::Rows{{1, 0}, {kM, kM}, {1, 0}, {kM, kM}}));
  Predset other("PS", *copy, workset);
  EXPECT_EQ(membership(other, kPC1, 0), "00000");
  EXPECT_EQ(Matrix(other, workset, kPLS1DA, EBlock::kY)->NValA(), 0);
}

TEST(Predset, WhatCannotBeMadeIsRefused) {
  const auto training = SmallDataset("ab", {{1, 2}, {3, 4}});
  const auto test = SmallDataset("a", {{5}});
  Workset workset("WS", *training, GlobalStreamWindow());
  Predset predset("PS", *test, workset);
  const auto status_of = [&](EModType type, EBlock block) {
    const auto matrix = Matrix(predset, workset, type, block);
    EXPECT_EQ(matrix == nullptr, predset.GetStatus() != 0);
    return predset.GetStatus();
  };
  workset.SetRole(2, EVarRole::kY);
  EXPECT_EQ(status_of(kPLS12, EBlock::kX), 0);
  EXPECT_EQ(RowsOf(*Matrix(predset, workset, kPLS12, EBlock::kY)), (test::Rows{{kM}}));
  EXPECT_EQ(status_of(kPLS21, EBlock::kX), 8033);
  EXPECT_EQ(predset.SetIsObsIn(0, true), 8037);
  EXPECT_EQ(predset.SetIsObsIn(2, true), 8037);
  predset.SetIsObsIn(1, false);
  EXPECT_EQ(status_of(kPC1, EBlock::kX), 8020);
  EXPECT_EQ(Own(predset.ExtObsInfo())->GetNItm(), 0);
  predset.SetIsObsIn(1, true);
  test->AddObs(7, "new");
  EXPECT_EQ(status_of(kPC1, EBlock::kX), 8046);
  // The file of the data set is not there.
  test->Unload();
  EXPECT_EQ(status_of(kPC1, EBlock::kX), test->Load());
  Predset unloaded("PS", *test, workset);
  EXPECT_EQ(unloaded.GetStatus(), test->Load());
  EXPECT_EQ(unloaded.GetNObsDS(), 0);
  EXPECT_EQ(Matrix(unloaded, workset, kPC1), nullptr);

  // Narrower than when the work set was made of it.
  training->DelVar(100);
  Predset shrunk("PS", *training, workset);
  EXPECT_EQ(RowsOf(*Matrix(shrunk, workset, kPCAll)), (test::Rows{{kM, 2}, {kM, 4}}));
}

}  // namespace
}  // namespace zemva
