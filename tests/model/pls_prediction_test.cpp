// What models by partial least squares predict.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "model/model_fixture.h"
#include "model/pls_reference.h"

namespace zemva {
namespace {

using test::D;
using test::Noise;
using test::PLSBench;
using test::Rows;

constexpr float kM = kMissing;

TEST(PLSPrediction, MeasuresMembersAsTheWorkSetAndOthersByTheirErrors) {
  PLSBench bench(test::Sample("mtcars"), {"mpg", "qsec"});
  for (short i = 25; i <= 32; ++i) bench.workset.SetIsObsIn(i, false);
  ASSERT_EQ(bench.Compute(2), 0);
  PLSModel& model = bench.model;
  ASSERT_EQ(model.ExecLS(char{0}), 0);
  Predset predset("PS", *bench.dataset, bench.workset);
  bench.owner.predset = &predset;
  ASSERT_EQ(model.ExecPS(), 0);
  ASSERT_EQ(model.GetNObsPS(), 32);
  const XFMatrix& data = *bench.dataset->GetDMPtr();
  for (short m = 1; m <= 2; ++m) {
    double squares = 0.0;
    const short column = m == 1 ? 1 : 7;
    for (short i = 1; i <= 32; ++i) {
      EXPECT_EQ(model.GetYObsPS(i, m), data[i][column]);
      const double half = D(model.GetSEYPredUPS(i, m)) - D(model.GetYPredPS(i, m));
      EXPECT_NEAR(D(model.GetYPredPS(i, m)) - D(model.GetSEYPredLPS(i, m)), half, 1e-4);
      if (i <= 24) {
        EXPECT_NEAR(D(model.GetYPredPS(i, m)), D(model.GetYPredLS(i, m)), 1e-4);
        EXPECT_NEAR(D(model.GetSEYPredUPS(i, m)), D(model.GetSEYPredULS(i, m)), 1e-3);
        EXPECT_NEAR(D(model.GetDModYPS(2, i)), D(model.GetDModYLS(2, i)), 1e-4);
        EXPECT_NEAR(D(model.GetPModYPS(2, i)), D(model.GetPModYLS(2, i)), 1e-4);
        continue;
      }
      double by_b = D(model.GetB0(2, m));
      for (short k = 1; k <= 9; ++k) {
        const short from = model.GetVarInfoX()->GetVNum(k);
        by_b += D(model.GetCoeff(2, k, m)) * D(data[i][from]);
      }
      EXPECT_NEAR(D(model.GetYPredPS(i, m)), by_b, 1e-3);
      const double error = D(data[i][column]) - D(model.GetYPredPS(i, m));
      EXPECT_NEAR(D(model.GetYPredErrPS(i, m)), error, 1e-4);
      squares += error * error;
    }
    const PredictionErrors& errors = *model.GetPredictionErrorsPS();
    EXPECT_NEAR(D(errors.press[m]), squares, 1e-4 * squares);
    EXPECT_NEAR(D(errors.sd_ts[m]), std::sqrt(squares / 8), 1e-4);
    EXPECT_NEAR(D(errors.sd_adj_ls[m]), D(model.GetRMSEE(m)), 1e-4);
    EXPECT_EQ(model.GetNPredErrTeS(m), 8);
    EXPECT_EQ(model.GetNPredErrTrS(m), 24);
  }
  test::RecordingWindow list;
  model.ShowRes(list);
  EXPECT_NE(list.log.find(" WS-memb.\n"), std::string::npos);
}

TEST(PLSPrediction, ProjectsOnWhatIsPresent) {
  // Of rank one: what is missing changes no score.
  Rows rows;
  for (const float i : {-4.0f, -3.0f, -1.0f, 1.0f, 2.0f, 5.0f})
    rows.push_back({i, 2 * i, -2 * i, 3 * i});
  PLSBench bench(rows, 1);
  bench.TakeAsIs();
  ASSERT_EQ(bench.Compute(), 0);
  const auto data =
      test::SmallDataset("abc", {{5, 10, -10}, {5, kM, -10}, {kM, kM, kM}, {5, kM, kM}});
  I1Vector selection(4, Model::kNewRow);
  bench.options.SetMaxMisValObsPS(100);
  bench.options.SetIsShoScrLim(true);
  bench.window.log.clear();
  for (const float limit : {1000.0f, 2.0f, 1.0f}) {
    bench.options.SetCompLimScr(limit);
    ASSERT_EQ(bench.model.ExecPS(data->GetOIPtr(), data->GetDMPtr(), &selection), 0);
    EXPECT_NEAR(D(bench.model.GetYPredPS(1, 1)), 15.0, 1e-4);
    // w = (1, 2, -2) / 3: of the squares there are 5 and 1 ninths.
    EXPECT_NEAR(D(bench.model.GetYPredPS(2, 1)), limit == 1 ? 15 / 1.8 : 15.0, 1e-4);
    EXPECT_EQ(bench.model.GetYPredPS(3, 1), kM);
    EXPECT_NEAR(D(bench.model.GetYPredPS(4, 1)), std::min(15.0, 15.0 / 9 * D(limit)), 1e-4);
    EXPECT_EQ(bench.model.GetYObsPS(1, 1), kM);
  }
  const std::string head = "Executing PS: Model UnNamed\n";
  const std::string tail = "Can not execute observation 30\n";
  std::string log = bench.window.log;
  for (auto at = log.find("DCritWS"); at != std::string::npos; at = log.find("DCritWS")) {
    log.erase(at, log.find('\n', at) + 1 - at);
  }
  EXPECT_EQ(log, head + tail + head + tail + "CompLimScr overrun for obsIx 4, was 9\n" + head +
                     "CompLimScr overrun for obsIx 2, was 1.8\n" + tail +
                     "CompLimScr overrun for obsIx 4, was 9\n");
}

// Gaps leave the scores oblique. A row without any has the same scores in a prediction set.
TEST(PLSPrediction, LimitsAMemberAsTheWorkSetAlsoWithGaps) {
  Rows rows = Noise().Table(9, 6);
  for (std::size_t i = 0; i < 5; ++i) rows[i][i] = kM;
  PLSBench bench(rows, 1);
  ASSERT_EQ(bench.Compute(3), 0);
  ASSERT_EQ(bench.model.ExecLS(char{0}), 0);
  Predset predset("PS", *bench.dataset, bench.workset);
  bench.owner.predset = &predset;
  ASSERT_EQ(bench.model.ExecPS(), 0);
  for (short i = 6; i <= 9; ++i) {
    EXPECT_NEAR(D(bench.model.GetSEYPredUPS(i, 1)), D(bench.model.GetSEYPredULS(i, 1)), 1e-5) << i;
  }
}

TEST(PLSPrediction, TransformsBackWhereItIsWanted) {
  PLSBench bench(test::Sample("mtcars"), {"mpg"});
  bench.workset.SetTransformation(1, ETraType::kLog, 1, 0, 0);
  bench.options.SetIsBackTraYLS(false);
  ASSERT_EQ(bench.Compute(2), 0);
  const PLSModel& model = bench.model;
  EXPECT_FLOAT_EQ(model.GetYObsLS(1, 1), std::log10(21.0f));
  const auto get = [&] {
    return std::vector<float>{model.GetYPredLS(1, 1), model.GetSEYPredLLS(1, 1),
                              model.GetSEYPredULS(1, 1)};
  };
  const std::vector<float> logs = get();
  bench.options.SetIsBackTraYLS(true);
  EXPECT_FLOAT_EQ(model.GetYObsLS(1, 1), 21.0f);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(D(get()[i]), std::pow(10, D(logs[i])), 1e-4);
}

// The lower limit stays below where the transformation goes down; across a pole there is none.
TEST(PLSPrediction, LimitsStandAboutThePrediction) {
  const struct {
    ETraType type;
    float c1, c2, c3;
  } cases[] = {{ETraType::kNegLog, 1, 0, 0},
               {ETraType::kLinear, -1, 100, 0},
               {ETraType::kPower, 1, 0, -1},
               {ETraType::kExp, -0.1f, 0, 0},
               {ETraType::kLogit, 100, 0, 0}};
  for (const auto& c : cases) {
    PLSBench bench(test::Sample("mtcars"), {"mpg"});
    bench.workset.SetTransformation(1, c.type, c.c1, c.c2, c.c3);
    ASSERT_EQ(bench.Compute(2), 0);
    ASSERT_EQ(bench.model.ExecLS(char{0}), 0);
    Predset predset("PS", *bench.dataset, bench.workset);
    bench.owner.predset = &predset;
    ASSERT_EQ(bench.model.ExecPS(), 0);
    const PLSModel& model = bench.model;
    int between = 0;
    for (short i = 1; i <= 32; ++i) {
      SCOPED_TRACE(std::to_string(static_cast<int>(c.type)) + " " + std::to_string(i));
      const float low = model.GetSEYPredLLS(i, 1), high = model.GetSEYPredULS(i, 1);
      EXPECT_TRUE(low == kM || low < model.GetYPredLS(i, 1));
      EXPECT_TRUE(high == kM || high > model.GetYPredLS(i, 1));
      EXPECT_NEAR(D(model.GetSEYPredLPS(i, 1)), D(low), 1e-3);
      EXPECT_NEAR(D(model.GetSEYPredUPS(i, 1)), D(high), 1e-3 * std::abs(D(high)));
      between += low != kM && high != kM;
    }
    EXPECT_GT(between, 20);
  }
}

}  // namespace
}  // namespace zemva
