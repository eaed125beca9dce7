#include "zemva/numeric/uni_var.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <memory>

#include "numeric/matrices.h"
#include "support/recording_window.h"
#include "zemva/numeric/moments.h"
#include "zemva/numeric/sample.h"

namespace zemva {
namespace {

using test::CellsOf;
using test::MatrixOf;

// Mean, standard deviation, skewness and kurtosis of data[1..n].
std::vector<float> Moments(std::vector<float> data) {
  std::vector<float> m(4);
  Moment(data.data(), static_cast<short>(data.size() - 1), m[0], m[1], m[2], m[3]);
  return m;
}

TEST(Moment, AgreesWithReferenceValues) {
  // R 4.2.2; SciPy 1.10.1 with bias=False gives the same.
  const auto moments = Moments({0, -3.5f, 0.25f, 2, 2, 7.75f, 11, -1, 4.5f});
  const double expected[] = {2.875, 4.72833405, 0.576279135, -0.197513818};
  for (std::size_t k = 0; k < 4; ++k) EXPECT_NEAR(moments[k], expected[k], 1e-6);
  EXPECT_EQ(Moments({0}), (std::vector<float>{-99, -99, -99, -99}));
  EXPECT_EQ(Moments({0, 7}), (std::vector<float>{7, -99, -99, -99}));
  EXPECT_EQ(Moments({0, 5, 5, 5}), (std::vector<float>{5, 0, -99, -99}));
  EXPECT_EQ(Moments({0, 16777216, 1, 1, 1})[0], 4194304.0f) << "the sum is in float";
  EXPECT_FALSE(std::isfinite(Moments({0, 1, 2})[2]));
  EXPECT_FALSE(std::isfinite(Moments({0, 1, 2, 4})[3]));
}

TEST(Median, SortsAndTakesTheMiddle) {
  float data[] = {0, 3, 1, 2, 2};
  float median = 0;
  Median(data, 4, median, true);
  EXPECT_EQ(median, 2.0f);
  EXPECT_EQ(std::vector<float>(data, data + 5), (std::vector<float>{0, 1, 2, 2, 3}));
  Median(data, 1, median, false);
  EXPECT_EQ(median, 1.0f);
  Median(data, 2, median, false);
  EXPECT_EQ(median, 1.5f);
}

TEST(Quartiles, ValuesEqualToTheMedianGoByTurns) {
  const struct {
    std::vector<float> sorted;
    float lower, upper;
  } cases[] = {
      {{1, 2, 3, 4}, 1.5f, 3.5f},       {{1, 2, 3}, 1.5f, 3}, {{1, 2, 2, 2, 3}, 2, 2.5f},
      {{1, 2, 2, 3}, 1.5f, 2.5f},       {{4}, 4, kMissing},   {{5, 5, 5, 5}, 5, 5},
      {{1, 2, 3, 4, 5, 6, 7}, 2.5f, 6},
  };
  for (const auto& c : cases) {
    const Quartiles quartiles = QuartilesOfSorted(c.sorted, MedianOfSorted(c.sorted));
    EXPECT_EQ(quartiles.lower, c.lower);
    EXPECT_EQ(quartiles.upper, c.upper);
  }
}

UniVar Everything() {
  UniVar uni_var;
  for (const auto set : {&UniVar::SetIsMedian, &UniVar::SetIsIQR, &UniVar::SetIsSkew,
                         &UniVar::SetIsKurt, &UniVar::SetIsPNorm}) {
    (uni_var.*set)(true);
  }
  return uni_var;
}

UniVar Nothing() {
  UniVar uni_var;
  for (const auto set :
       {&UniVar::SetIsMax, &UniVar::SetIsMinMax, &UniVar::SetIsMean, &UniVar::SetIsMin,
        &UniVar::SetIsMisValProc, &UniVar::SetIsNObsA, &UniVar::SetIsSD}) {
    (uni_var.*set)(false);
  }
  return uni_var;
}

// Five observations, of which the last is left out, and four variables, of which the second is.
class UniVarTable : public testing::Test {
 protected:
  UniVarTable() {
    observations_[5] = 0;
    variables_[2] = 0;
  }

  XFMatrix x_ =
      MatrixOf(4, {1,        0,        kMissing, -1, 2,        0,        kMissing, 0, 3, 0,
                   kMissing, kMissing, 6,        0,  kMissing, kMissing, 1000,     0, 7, 1000});
  XI1Vector variables_ = XI1Vector("variables", 4, char{1});
  XI1Vector observations_ = XI1Vector("observations", 5, char{2});
  test::RecordingWindow window_;
};

TEST_F(UniVarTable, IsListed) {
  EXPECT_EQ(Everything().Calc(&x_, &variables_, &observations_, window_), 0);
  EXPECT_EQ(window_.log,
            " Var   N   MV%        Min        Max    Min/Max       Mean     Median        25%"
            "        75%         SD   Skewness   Kurtosis  Prob Norm\n"
            "   1    4 0.000     1.000     6.000     0.167     3.000     2.500     1.500"
            "     4.500     2.160     1.190     1.500\n"
            "   3    0100.000       N/A       N/A       N/A       N/A       N/A       N/A"
            "       N/A       N/A       N/A       N/A\n"
            "   4    250.000    -1.000     0.000       N/A    -0.500    -0.500    -1.000"
            "     0.000     0.707       N/A       N/A\n");
}

TEST_F(UniVarTable, IsReturned) {
  XFMatrix* results = nullptr;
  XSVector* headers = nullptr;
  UniVar uni_var = Nothing();
  EXPECT_EQ(uni_var.CalcAndReturnAsVectors(&x_, &variables_, &observations_, results, headers), 1);
  uni_var.SetIsNObsA(true);
  uni_var.SetIsMean(true);
  uni_var.SetIsPNorm(true);
  EXPECT_EQ(uni_var.CalcAndReturnAsVectors(&x_, &variables_, &observations_, results, headers), 0);
  const std::unique_ptr<XFMatrix> table(results);
  const std::unique_ptr<XSVector> labels(headers);
  EXPECT_EQ(CellsOf(*table), (std::vector<float>{4, 3, -99, 0, -99, -99, 2, -0.5f, -99}));
  EXPECT_STREQ(table->GetName(), "Results");
  EXPECT_STREQ(labels->GetName(), "Headers");
  EXPECT_EQ(labels->GetStrLen(), 25);
  EXPECT_STREQ((*labels)[1], "N");
  EXPECT_STREQ((*labels)[3], "Prob. Norm.");
}

TEST_F(UniVarTable, WithoutObservationsOrArguments) {
  std::ranges::fill(observations_.Values(), '\0');
  observations_[3] = 1;
  EXPECT_EQ(Nothing().Calc(&x_, &variables_, &observations_, window_), 0);
  EXPECT_EQ(window_.log, " Var\n   1\n   3\n   4\n");
  observations_[3] = 0;
  EXPECT_EQ(UniVar().Calc(&x_, &variables_, &observations_, window_), 0);
  EXPECT_TRUE(window_.log.ends_with("SD\nNo observations selected.\n"));
  XFMatrix* results = nullptr;
  XSVector* headers = nullptr;
  EXPECT_EQ(UniVar().CalcAndReturnAsVectors(&x_, &variables_, &observations_, results, headers), 0);
  EXPECT_EQ(results->NRow(), 3);
  EXPECT_EQ(results->NValA(), 0);
  delete results;
  delete headers;
  EXPECT_EQ(UniVar().Calc(&x_, &observations_, &variables_, window_), 13002) << "wrong lengths";
  EXPECT_EQ(UniVar().Calc(nullptr, &variables_, &observations_, window_), 13002);
  EXPECT_EQ(UniVar().Calc(&x_, &variables_, nullptr, window_), 13002);
  EXPECT_EQ(UniVar().CalcAndReturnAsVectors(&x_, nullptr, &observations_, results, headers), 13002);
  EXPECT_EQ(results, nullptr);
}

// NIST Statistical Reference Datasets, univariate summary statistics: the relative errors of the
// mean and the standard deviation of a column against the certified values.
void CheckColumn(const std::vector<float>& values, double mean, double sd, double mean_error,
                 double sd_error) {
  XFMatrix column("column", static_cast<int>(values.size()), 1, 0.0f);
  for (int i = 1; i <= column.NRow(); ++i) column[i][1] = values[static_cast<std::size_t>(i - 1)];
  const std::unique_ptr<XFVector> means(column.Avg("mean"));
  const std::unique_ptr<XFVector> weights(column.Autoweig("weight", means.get()));
  EXPECT_NEAR((*means)[1], mean, mean_error * std::fabs(mean));
  EXPECT_NEAR(1.0 / (*weights)[1], sd, sd_error * sd);
}

constexpr double kRounding = 6e-8;  // of a float

TEST(StatisticalReferenceDatasets, Measured) {
  const struct {
    const char* name;
    double sd_error;  // deviations of a few hundred steps of a float keep few digits
  } cases[] = {{"Lew", kRounding}, {"Lottery", kRounding}, {"Mavro", 4e-5}, {"Michelso", 4e-5}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::ifstream file(std::string(ZEMVA_SAMPLES) + "/strd/" + c.name + ".txt");
    double mean = 0;
    double sd = 0;
    file >> mean >> sd;
    std::vector<float> values;
    for (double value; file >> value;) values.push_back(static_cast<float>(value));
    ASSERT_GE(values.size(), 50u);
    CheckColumn(values, mean, sd, kRounding, c.sd_error);
    const SampleMoments moments = MomentsOf(values);
    EXPECT_NEAR(moments.mean, mean, 1e-6 * std::fabs(mean));
    EXPECT_NEAR(moments.standard_deviation, sd, 1e-3 * sd);
  }
}

// The generated data: a value, then 500 times one that is less by a step and one that is more.
TEST(StatisticalReferenceDatasets, Generated) {
  const auto alternating = [](float first, float low, float high) {
    std::vector<float> values(1, first);
    for (int i = 1; i <= 500; ++i) values.insert(values.end(), {low, high});
    return values;
  };
  CheckColumn({10000001, 10000003, 10000002}, 10000002, 1, kRounding, kRounding);
  CheckColumn(alternating(1.2f, 1.1f, 1.3f), 1.2, 0.1, kRounding, 4e-7);
  // As floats the values of NumAcc3 are 1000000 and 3/16, 2/16 and 5/16, and their mean is 1000000
  // and 3/16: deviations of 0 and 500 times -1/16 and 2/16.
  const double sd = std::sqrt(500 * 5.0 / 256 / 1000);
  CheckColumn(alternating(1000000.2f, 1000000.1f, 1000000.3f), 1000000.2, sd, kRounding, kRounding);
}

}  // namespace
}  // namespace zemva
