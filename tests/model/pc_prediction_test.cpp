// Models of principal components on observations that they were not fitted to.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "model/model_fixture.h"

namespace zemva {
namespace {

using test::Bench;
using test::D;
using test::Rows;

constexpr float kM = kMissing;

struct NewRows {
  explicit NewRows(const Rows& rows, char kind = Model::kNewRow)
      : dataset(test::SmallDataset(test::Letters(static_cast<int>(rows[0].size())), rows)),
        selection(static_cast<int>(rows.size()), kind) {}

  int Execute(Model& model) {
    return model.ExecPS(dataset->GetOIPtr(), dataset->GetDMPtr(), &selection);
  }

  std::unique_ptr<Dataset> dataset;
  I1Vector selection;
};

// Of rank two: row (u, v) is u (1, 2, 0, 1, 3) + v (1, -1, 2, 0, 1).
std::vector<float> Plane(float u, float v) {
  return {u + v, 2 * u - v, 2 * v, u, 3 * u + v};
}

Rows PlaneTable() {
  Rows rows;
  for (const float u : {-2.0f, -1.0f, 1.0f, 2.0f}) {
    for (const float v : {-1.0f, 1.0f, 3.0f}) rows.push_back(Plane(u, v));
  }
  return rows;
}

TEST(PCPrediction, FindsThePlaneFromWhatIsPresent) {
  Bench bench("abcde", PlaneTable());
  ASSERT_EQ(bench.Compute(2), 0);
  PCModel& model = bench.model;
  const std::vector<float> whole = Plane(5, -4);
  Rows rows(4, whole);
  rows[1][0] = rows[1][3] = rows[1][4] = kM;
  rows[2] = {kM, kM, kM, kM, whole[4]};  // one value does not determine two scores
  rows[3][2] += 1;
  NewRows news(rows);
  bench.options.SetMaxMisValObsPS(90);
  ASSERT_EQ(news.Execute(model), 0);
  ASSERT_EQ(model.GetNObsPS(), 4);
  for (char a = 1; a <= 2; ++a) {
    EXPECT_NEAR(D(model.GetTPredPS(a, 2)), D(model.GetTPredPS(a, 1)), 1e-4);
    EXPECT_EQ(model.GetTPredPS(a, 3), kM);
  }
  EXPECT_EQ(model.GetT2PS(2, 3), kM);
  EXPECT_EQ(model.GetDModXPS(2, 3), kM);
  EXPECT_NE(bench.window.log.find("Matrix singular!\n"), std::string::npos);
  EXPECT_NEAR(D(model.GetXResPS(2, 2)), 0.0, 1e-4);
  EXPECT_EQ(model.GetXResPS(2, 1), kM);
  // The plane leaves no variance to compare with; in absolute terms the last one lies beside it.
  bench.options.SetIsNormDistPS(false);
  ASSERT_EQ(news.Execute(model), 0);
  EXPECT_NEAR(D(model.GetDModXPS(2, 1)), 0.0, 1e-4);
  double squares = 0.0;
  for (short k = 1; k <= 5; ++k) squares += D(model.GetXResPS(4, k)) * D(model.GetXResPS(4, k));
  EXPECT_NEAR(D(model.GetDModXPS(2, 4)), std::sqrt(squares / 3), 1e-5);
  EXPECT_GT(squares, 0.01);
  // T2 of what was predicted.
  EXPECT_NEAR(D(model.GetT2RangePS(2, 2, 1)),
              D(model.GetTPredPS(2, 1)) * D(model.GetTPredPS(2, 1)) / D(model.GetS2T(2)), 1e-3);
}

TEST(PCPrediction, NeedsNoLargeLoadings) {
  Rows rows;
  for (const float u : {-3.0f, -1.0f, 0.0f, 2.0f, 5.0f}) rows.push_back({1000 * u, 0.1f * u});
  Bench bench("ab", rows);
  for (short k = 1; k <= 2; ++k) bench.workset.SetScaling(k, EScaType::kCtr);
  ASSERT_EQ(bench.Compute(1), 0);
  bench.options.SetMaxMisValObsPS(90);
  NewRows news({{5000, 0.5f}, {kM, 0.5f}});
  ASSERT_EQ(news.Execute(bench.model), 0);
  EXPECT_NEAR(D(bench.model.GetTPredPS(1, 2)) / D(bench.model.GetTPredPS(1, 1)), 1.0, 1e-3);
}

TEST(PCPrediction, HasNoDistanceOfObservationsWithTooFewValues) {
  Rows rows = PlaneTable();
  rows[4] = std::vector<float>(5, kM);
  rows[7] = {rows[7][0], kM, kM, kM, kM};
  for (const bool is_weighted : {false, true}) {
    Bench bench("abcde", rows);
    bench.options.SetIsWResLS(is_weighted);
    bench.options.SetIsWResPS(is_weighted);
    bench.options.SetIsNormDistLS(false);
    bench.options.SetIsNormDistPS(false);
    bench.options.SetMaxMisValObsPS(100);
    ASSERT_EQ(bench.Compute(1), 0);
    NewRows news(rows);
    ASSERT_EQ(news.Execute(bench.model), 0);
    for (short i = 1; i <= 12; ++i) {
      const bool has_too_few = i == 5 || i == 8;
      EXPECT_EQ(IsMissing(bench.model.GetDModXLS(1, i)), has_too_few);
      EXPECT_EQ(IsMissing(bench.model.GetPModXLS(1, i)), has_too_few);
      EXPECT_EQ(IsMissing(bench.model.GetDModXPS(1, i)), has_too_few);
      EXPECT_EQ(IsMissing(bench.model.GetT2LS(1, i)), i == 5);
      EXPECT_EQ(IsMissing(bench.model.GetOLevX(1, i)), i == 5);
    }
  }
}

TEST(PCPrediction, MeasuresMembersAsTheWorkSetDoes) {
  for (const bool is_weighted : {false, true}) {
    Bench bench(test::Sample("iris"));
    ASSERT_EQ(bench.Compute(2), 0);
    PCModel& model = bench.model;
    bench.options.SetIsNormDistLS(true);
    bench.options.SetIsNormDistPS(true);
    bench.options.SetIsWResLS(is_weighted);
    bench.options.SetIsWResPS(is_weighted);
    ASSERT_EQ(model.ExecLS(char{2}), 0);
    for (const char kind : {Model::kMemberRow, Model::kNewRow}) {
      I1Vector selection(model.GetNObs(), kind);
      XFMatrix data(*model.GetXPtr());
      ASSERT_EQ(model.ExecPS(model.GetObsInfo(), &data, &selection), 0);
      // A member's residuals count N / (N - 1 - 2) times: 150 / 147.
      const double correction = kind == Model::kMemberRow ? 1.0 : std::sqrt(150.0 / 147.0);
      for (short i = 1; i <= model.GetNObs(); ++i) {
        EXPECT_EQ(model.IsMembPS(i), kind == Model::kMemberRow);
        EXPECT_NEAR(D(model.GetTPredPS(2, i)), D(model.GetT(2, i)), 1e-4);
        EXPECT_NEAR(D(model.GetDModXPS(2, i)) * correction, D(model.GetDModXLS(2, i)), 1e-4);
      }
      EXPECT_EQ(model.GetDCritTrSPS(), model.GetDCritTrSLS());
      EXPECT_LT(model.GetDCritTrSPS(), model.GetDCritTeSPS());
    }
  }
}

TEST(PCPrediction, ExcludesObservationsWithTooLittle) {
  Rows rows = PlaneTable();
  rows[1] = {kM, kM, kM, 1, 2};
  for (const char reply : {'y', 'Y', 'n'}) {
    Bench bench("abcde", PlaneTable());
    ASSERT_EQ(bench.Compute(1), 0);
    bench.window.log.clear();
    bench.owner.reply = reply;
    bench.options.SetSignLevPS(0);
    NewRows news(rows);
    news.selection[3] = 0;
    ASSERT_EQ(news.Execute(bench.model), 0);
    const bool is_excluded = reply != 'n';
    const std::string message = "Observation 20 o2 has  60.00% missing values.\n";
    EXPECT_EQ(bench.window.log, "Executing PS: Model UnNamed\n" + message +
                                    (is_excluded ? "Observation excluded.\n" : ""));
    EXPECT_EQ(bench.owner.questions, message + "Exclude this observation?");
    EXPECT_EQ(bench.model.GetNObsPS(), is_excluded ? 10 : 11);
    EXPECT_EQ(bench.model.GetObsIxPS(2), is_excluded ? 4 : 2);
    EXPECT_STREQ(bench.model.GetObsInfoPS()->GetONam(2), is_excluded ? "o4" : "o2");
    EXPECT_EQ(bench.model.GetASelPS(), 1);
    EXPECT_EQ(bench.model.GetPModXPS(2, 1), kM);
    EXPECT_EQ(bench.model.DeletePSResults(), 0);
    EXPECT_EQ(bench.model.GetNObsPS(), 0);
  }
}

TEST(PCPrediction, ListsMembersAndWhatIsOfTheClass) {
  Bench bench(test::Sample("iris"));
  for (short i = 1; i <= 50; ++i) bench.workset.SetOClass(i, 3);
  PCModel model(&bench.owner, EModType::kPC1Cl, bench.window, &bench.options, 3);
  ASSERT_EQ(model.Compute(), 0);
  I1Vector selection(150, Model::kNewRow);
  selection[1] = Model::kMemberRow;
  ASSERT_EQ(model.ExecPS(bench.dataset->GetOIPtr(), bench.dataset->GetDMPtr(), &selection), 0);
  // The first is a member and near its average; the last is of another kind.
  ASSERT_GT(model.GetPModXPS(1, 1), 0.05f);
  ASSERT_LT(model.GetPModXPS(1, 150), 0.05f);
  test::RecordingWindow list;
  model.ShowRes(list);
  const auto row = [&](const std::string& name) {
    const auto from = list.log.find(name);
    return list.log.substr(from, list.log.find('\n', from) - from);
  };
  EXPECT_TRUE(row(" setosa_1 ").ends_with(" WS-memb. classified at the 5 % level."));
  EXPECT_FALSE(row(" virginica_150 ").ends_with("."));
  EXPECT_EQ(row(" setosa_2 ").find("WS-memb."), std::string::npos);
}

TEST(PCPrediction, TakesRowsAsTheModelTookItsOwnAndTellsInItsLog) {
  Rows rows = test::Noise().Table(12, 3);
  for (auto& row : rows) row[0] += 2.0f;
  rows[6][0] = -1.0f;
  rows[7][1] = std::numeric_limits<float>::infinity();
  Bench bench("abc", rows);
  bench.workset.SetTransformation(1, ETraType::kLog, 1, 0, 0);
  test::RecordingWindow log;
  PCModel model(&bench.owner, EModType::kPC1, log, &bench.options, 0);
  ASSERT_EQ(model.Compute(), 0);
  const std::string messages =
      "1 value(s) that are not finite numbers are taken as missing.\n"
      "Observation 70 had value(s) excluded due to transformation domain error.\r\n";
  EXPECT_TRUE(log.log.starts_with(messages)) << log.log;
  EXPECT_EQ(bench.window.log, "");

  bench.workset.SetTransformation(1, ETraType::kNone, 0, 0, 0);
  bench.workset.SetIsObsIn(3, false);
  Predset predset("PS", *bench.dataset, bench.workset);
  bench.owner.predset = &predset;
  for (const bool is_loaded : {true, false}) {
    if (!is_loaded) model.Unload();
    log.log.clear();
    model.ClearIsLogWritten();
    ASSERT_EQ(model.ExecPS(), 0);
    EXPECT_TRUE(log.log.starts_with(messages));
    EXPECT_TRUE(model.IsLogWritten());
    EXPECT_TRUE(model.IsMembPS(3));
    for (short i = 1; i <= 6; ++i)
      EXPECT_NEAR(D(model.GetTPredPS(1, i)), D(model.GetT(1, i)), 1e-4);
  }
}

TEST(PCPrediction, RefusesWhatDoesNotFit) {
  Bench bench("abcde", PlaneTable());
  NewRows news(PlaneTable());
  EXPECT_EQ(news.Execute(bench.model), 8010);
  bench.model.Reset(0);
  ASSERT_EQ(bench.Compute(1), 0);
  const auto refusal = [&](ObsInfo* observations, XFMatrix* data, I1Vector* selection) {
    const int status = bench.model.ExecPS(observations, data, selection);
    bench.model.Reset(1);
    return status;
  };
  ObsInfo* const observations = news.dataset->GetOIPtr();
  XFMatrix* const data = news.dataset->GetDMPtr();
  XFMatrix narrow("X", 12, 4, 0.0f);
  I1Vector short_selection(11, 1);
  EXPECT_EQ(refusal(nullptr, data, &news.selection), 8022);
  EXPECT_EQ(refusal(observations, nullptr, &news.selection), 8022);
  EXPECT_EQ(refusal(observations, data, nullptr), 8022);
  EXPECT_EQ(refusal(observations, &narrow, &news.selection), 8021);
  EXPECT_EQ(refusal(observations, data, &short_selection), 8021);
  XFMatrix residuals("E", 12, 5, 0.0f);
  XFMatrix shorter("E", 11, 5, 0.0f);
  EXPECT_EQ(bench.model.ExecLS(&residuals), 0);
  EXPECT_EQ(residuals[2][3], bench.model.GetXResLS(1, 2, 3));
  for (XFMatrix* const other : {&narrow, &shorter}) {
    EXPECT_EQ(bench.model.ExecLS(other), 8021);
    bench.model.Reset(1);
  }
  EXPECT_EQ(bench.model.ExecPS(), 8030);
  bench.model.Reset(1);
  // What leaves the range of a float has no result; the others have theirs.
  Bench scaled("abcde", PlaneTable());
  scaled.workset.SetFixedWeight(1, EScaType::kFW, 10.0f);
  ASSERT_EQ(scaled.Compute(1), 0);
  (*data)[1][1] = 3e38f;
  EXPECT_EQ(news.Execute(scaled.model), 0);
  EXPECT_NE(scaled.window.log.find("Can not execute observation 10\n"), std::string::npos);
  EXPECT_EQ(scaled.model.GetTPredPS(1, 1), kM);
  EXPECT_EQ(scaled.model.GetDModXPS(1, 1), kM);
  EXPECT_NE(scaled.model.GetTPredPS(1, 2), kM);
}

}  // namespace
}  // namespace zemva
