#include "zemva/model/pc/pc_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

#include "model/model_fixture.h"

namespace zemva {
namespace {

using test::Bench;
using test::D;
using test::Sum;

constexpr float kM = kMissing;

// Component by component the share of the sum of squares and the loadings.
std::vector<std::vector<double>> Reference(const std::string& name) {
  std::ifstream file(ZEMVA_REFERENCES "/" + name + ".csv");
  std::vector<std::vector<double>> components;
  for (std::string line; std::getline(file, line);) {
    std::istringstream cells(line);
    components.emplace_back();
    for (std::string cell; std::getline(cells, cell, ',');) {
      components.back().push_back(std::stod(cell));
    }
  }
  return components;
}

class PCModelOfSample : public testing::TestWithParam<const char*> {};

TEST_P(PCModelOfSample, HasTheSingularVectorsAndLeavesTheRest) {
  Bench bench(test::Sample(GetParam()));
  const auto reference = Reference(GetParam());
  ASSERT_GE(reference.size(), 4u);
  ASSERT_EQ(bench.Compute(static_cast<short>(reference.size())), 0);
  const PCModel& model = bench.model;
  const short n = model.GetNObs();
  const short k = model.GetNVarX();
  std::vector<std::vector<double>> left(static_cast<std::size_t>(n));
  for (short i = 1; i <= n; ++i) {
    for (short j = 1; j <= k; ++j) {
      const double centred = D((*model.GetXPtr())[i][j]) - D(model.GetAvgX(-1, j));
      left[static_cast<std::size_t>(i - 1)].push_back(centred * D(model.GetWeigX(j)));
    }
  }
  for (char a = 1; a <= model.GetA(); ++a) {
    const double share = reference[static_cast<std::size_t>(a - 1)][0];
    EXPECT_NEAR(D(model.GetR2AX(a)), share, 1e-4 * share);
    EXPECT_NEAR(D(model.GetEig(a)), share * std::min(n, k), 1e-4 * D(model.GetEig(a)));
    std::vector<double> p(reference[static_cast<std::size_t>(a - 1)].begin() + 1,
                          reference[static_cast<std::size_t>(a - 1)].end());
    const double sign = Sum(k, [&](short j) {
      return model.GetP(a, j) * static_cast<float>(p[static_cast<std::size_t>(j - 1)]);
    });
    for (double& loading : p) loading = std::copysign(loading, loading * sign);
    const double largest = D(std::max(model.GetTMax(a), -model.GetTMin(a)));
    for (short j = 1; j <= k; ++j) {
      ASSERT_NEAR(D(model.GetP(a, j)), p[static_cast<std::size_t>(j - 1)], 1e-4) << int{a};
    }
    for (short i = 1; i <= n; ++i) {
      std::vector<double>& row = left[static_cast<std::size_t>(i - 1)];
      const double score = std::inner_product(row.begin(), row.end(), p.begin(), 0.0);
      ASSERT_NEAR(D(model.GetT(a, i)), score, 1e-4 * largest) << int{a} << " " << i;
      for (short j = 1; j <= k; ++j) {
        const auto column = static_cast<std::size_t>(j - 1);
        row[column] -= score * p[column];
        ASSERT_NEAR(D(model.GetXResLS(a, i, j)), row[column], 1e-4 * largest) << int{a};
      }
    }
  }
}

TEST_P(PCModelOfSample, HasDistancesThatAddUp) {
  Bench bench(test::Sample(GetParam()));
  ASSERT_EQ(bench.Compute(2), 0);
  PCModel& model = bench.model;
  bench.options.SetIsNormDistLS(true);
  ASSERT_EQ(model.ExecLS(char{2}), 0);
  const short n = model.GetNObs();
  // The mean square of the normalised distances is 1, that of each score over its variance too, and
  // the leverages add up to the rank of the hat matrix.
  const auto mean = [&](auto term) { return Sum(n, term) / n; };
  EXPECT_NEAR(mean([&](short i) { return model.GetDModXLS(2, i) * model.GetDModXLS(2, i); }), 1.0,
              1e-4);
  EXPECT_NEAR(mean([&](short i) { return model.GetT2LS(2, i); }), 2.0, 1e-4);
  EXPECT_NEAR(mean([&](short i) { return model.GetT2RangeLS(2, 2, i); }), 1.0, 1e-4);
  EXPECT_NEAR(Sum(n, [&](short i) { return model.GetOLevX(2, i); }), 3.0, 1e-4);
  // The limit and the probability are two sides of one test.
  for (short i = 1; i <= n; ++i) {
    const bool is_far = model.GetDModXLS(2, i) > model.GetDCritTeSLS();
    EXPECT_EQ(is_far, model.GetPModXLS(2, i) < 0.05f) << i;
  }
  // The weighted variances too are 1 in the mean.
  bench.options.SetIsWResLS(true);
  EXPECT_NEAR(mean([&](short i) { return model.GetDModXLS(2, i) * model.GetDModXLS(2, i); }), 1.0,
              1e-4);
}

INSTANTIATE_TEST_SUITE_P(Samples, PCModelOfSample,
                         testing::Values("USArrests", "iris", "mtcars", "spectra"),
                         [](const auto& sample) { return std::string(sample.param); });

TEST(PCModel, CentresAndScalesEachVariableAsTheWorkSetSays) {
  Bench bench("abcd", {{1, 1, 5, 3}, {2, 3, 1, 9}, {3, 5, 2, 2}, {4, 7, 4, 4}, {5, 9, 3, 1}});
  bench.workset.SetScaling(1, EScaType::kCtr);
  bench.workset.SetScaling(2, EScaType::kNone);
  bench.workset.SetFixedWeight(3, EScaType::kFW, 0.0f);
  bench.workset.SetFixedWeight(4, EScaType::kFWN, 0.5f);
  bench.options.SetSeqValidate(EValidate::CV);
  ASSERT_EQ(bench.Compute(4), 0);
  const PCModel& model = bench.model;
  // Sums of squares: of 1..5 about 3; of 1, 3, 5, 7, 9; none; of 3, 9, 2, 4, 1 over 4.
  const float expected[] = {10, 165, 0, 27.75f};
  const float loaded[] = {55, 165, 55, 111};
  for (short k = 1; k <= 4; ++k) {
    EXPECT_FLOAT_EQ(model.GetSSVX(0, k), expected[k - 1]);
    EXPECT_FLOAT_EQ(model.GetSSVX(-1, k), loaded[k - 1]);
  }
  EXPECT_EQ(model.GetAvgX(-1, 1), 3.0f);
  EXPECT_EQ(model.GetAvgX(0, 1), 0.0f);
  EXPECT_EQ(model.GetAvgX(0, 2), 5.0f);
  // A variable of weight 0 takes no part: there are three components at most, in three variables.
  EXPECT_EQ(model.GetNVarXUsed(), 3);
  EXPECT_EQ(model.GetA(), 3);
  EXPECT_EQ(model.GetP(1, 3), 0.0f);
  EXPECT_EQ(model.GetXResLS(1, 1, 3), 0.0f);
  EXPECT_EQ(model.GetQ2VAX(1, 3), kM);
  EXPECT_FLOAT_EQ(model.GetQ2Limit(1), 1.0f - 3.0f * 4 / (4 * 5));
  EXPECT_EQ(model.GetR2VX(1, 3), kM);
  EXPECT_NEAR(D(model.GetR2X(3)), 1.0, 1e-5);
}

TEST(PCModel, CountsDegreesOfFreedomOfWhatIsPresent) {
  test::Rows rows = test::Noise().Table(5, 4);
  rows[1][2] = kM;
  rows[4][0] = kM;
  for (const int a0 : {0, 1}) {
    Bench bench("abcd", rows);
    bench.options.SetIsCenter(a0 == 1);
    ASSERT_EQ(bench.Compute(), 0);
    const PCModel& model = bench.model;
    // N - A0 before a component, and after it.
    const auto n0 = static_cast<float>(5 - a0);
    const float n1 = n0 - 1;
    EXPECT_EQ(model.GetDFX(-1), 18.0f);
    EXPECT_EQ(model.GetDFX(0), n0 * 4 - 2);
    EXPECT_EQ(model.GetDFX(1), n1 * 3 - 2);
    EXPECT_FLOAT_EQ(model.GetS2X(1), model.GetSSX(1) / (n1 * 3 - 2));
    EXPECT_FLOAT_EQ(model.GetS2VX(0, 2), model.GetSSVX(0, 2) / n0);
    EXPECT_FLOAT_EQ(model.GetS2VX(1, 2), model.GetSSVX(1, 2) / n1);
    EXPECT_FLOAT_EQ(model.GetS2VX(1, 1), model.GetSSVX(1, 1) / (n1 - 1));  // one value less
    // (m - a)(N - A0 - a) / N
    EXPECT_FLOAT_EQ(model.GetS2OX(1, 1), model.GetSSOX(1, 1) / (3 * n1 / 5));
    EXPECT_FLOAT_EQ(model.GetS2OX(1, 2), model.GetSSOX(1, 2) / (2 * n1 / 5));
    // Of an observation of the work set: sum / (m - a), times N / (N - A0 - a).
    bench.options.SetIsNormDistLS(false);
    EXPECT_FLOAT_EQ(model.GetDModXLS(1, 2), std::sqrt(model.GetSSOX(1, 2) / 2 * 5 / n1));
    EXPECT_FLOAT_EQ(model.GetMPowX(1, 3),
                    std::max(0.0f, 1 - std::sqrt(model.GetS2VX(1, 3) / model.GetS2VX(0, 3))));
  }
}

TEST(PCModel, HasTheEllipseAndTheLimitsOfThePublishedTable) {
  // F(2, 48) at 5 % is 3.1907: sqrt(S2t 2 3.1907 49/48). F(1, 49) is 4.0384, F(3, 47) at 1
  // % 4.2180.
  Bench bench(test::Sample("USArrests"));
  ASSERT_EQ(bench.Compute(3), 0);
  EXPECT_NEAR(D(bench.model.GetT2Limit(1, 0.05f)), 4.0384, 1e-3);
  EXPECT_NEAR(D(bench.model.GetT2Limit(2, 0.05f)), 2 * 3.1907 * 49 / 48, 1e-3);
  EXPECT_NEAR(D(bench.model.GetT2Limit(3, 0.01f)), 3 * 4.2279 * 49 / 47, 1e-3);
  EXPECT_EQ(bench.model.GetT2Limit(4, 0.05f), kM);
  EXPECT_NEAR(D(bench.model.GetTCritAxisLen(1, 0.05f)),
              std::sqrt(D(bench.model.GetS2T(1)) * 2 * 3.1907 * 49 / 48), 1e-3);
}

TEST(PCModel, GoesBackToFewerComponents) {
  Bench bench(test::Sample("iris"));
  ASSERT_EQ(bench.Compute(3), 0);
  PCModel copy(bench.model);
  PCModel& model = bench.model;
  const float t = model.GetT(2, 5);
  EXPECT_EQ(model.Reset(-1), 8021);
  EXPECT_EQ(model.Reset(1), 0);
  EXPECT_EQ(model.GetA(), 1);
  EXPECT_EQ(bench.Compute(2), 0);
  EXPECT_NEAR(D(model.GetT(2, 5)), D(t), 1e-5);

  // The results stay when the data go, and come back for another component.
  EXPECT_EQ(model.Unload(), 0);
  EXPECT_NEAR(D(model.GetT(2, 5)), D(t), 1e-5);
  EXPECT_NE(model.GetDModXLS(2, 1), kM);
  EXPECT_EQ(model.GetXResLS(2, 1, 1), kM);
  EXPECT_EQ(model.MakeResid(0), nullptr);
  EXPECT_EQ(model.GetStatus(), 8009);
  EXPECT_EQ(model.Reset(2), 0);
  EXPECT_EQ(bench.Compute(3), 0);
  EXPECT_NEAR(D(model.GetR2X(3)), D(copy.GetR2X(3)), 1e-5);

  // The copy goes its own way.
  EXPECT_EQ(copy.GetA(), 3);
  EXPECT_NEAR(D(copy.GetXResLS(3, 1, 1)), D(model.GetXResLS(3, 1, 1)), 1e-5);
}

TEST(PCModel, HasNoDistanceWhereNoFreedomIsLeft) {
  Bench bench("abc", test::Noise().Table(6, 3));
  ASSERT_EQ(bench.Compute(3), 0);
  EXPECT_EQ(bench.model.GetDModXLS(3, 1), kM);
  EXPECT_EQ(bench.model.GetTCritAxisLen(4, 0.05f), kM);
}

TEST(PCModel, EndsOnAnyTable) {
  test::Noise noise;
  const struct {
    test::Rows rows;
    short asked;
    char got;
    int status;
  } cases[] = {
      {noise.Table(5, 1), 3, 1, 0},
      {noise.Table(5, 26), 6, 6, 0},  // the sixth fits what rounding left
      {{{3e38f, 1}, {3e38f, 2}, {3e38f, 4}, {-3e38f, 3}}, 1, 1, 0},
      {{{1e-30f, 1}, {2e-30f, 2}, {3e-30f, 4}, {5e-30f, 3}}, 1, 0, 8038},
      {{{kM, kM}, {1, 2}, {2, 4}, {3, 5}, {5, 5}}, 1, 1, 0},
  };
  for (const auto& c : cases) {
    Bench bench(test::Letters(static_cast<int>(c.rows[0].size())), c.rows);
    EXPECT_EQ(bench.Compute(c.asked), c.status);
    EXPECT_EQ(bench.model.GetA(), c.got);
    for (char a = 1; a <= bench.model.GetA(); ++a) {
      EXPECT_TRUE(std::isfinite(bench.model.GetT(a, 2))) << int{a};
    }
  }
}

TEST(PCModel, NamesTheVariableThatIsOutOfRange) {
  const float x = 3e38f;
  const float y = 1e-30f;
  const struct {
    test::Rows rows;
    float weight;
  } cases[] = {
      {{{x, 1}, {x, 2}, {-x, 4}, {x, 3}}, 10.0f},
      {{{y, 0}, {2 * y, 0}, {4 * y, 0}, {3 * y, 0}}, 1.0f},
  };
  for (const auto& c : cases) {
    Bench bench("ab", c.rows);
    bench.workset.SetFixedWeight(1, EScaType::kFW, c.weight);
    bench.workset.SetScaling(2, EScaType::kCtr);
    EXPECT_EQ(bench.Compute(), 8005);
    EXPECT_NE(bench.window.log.find("X variable 100, a is out of range when centred and scaled.\n"),
              std::string::npos);
    EXPECT_EQ(bench.window.log.find("200, b"), std::string::npos);
    EXPECT_EQ(bench.model.GetSSX(0), kM);
    bench.window.log.clear();
    bench.model.ShowInit(bench.window);
    EXPECT_EQ(bench.window.log.find("inf"), std::string::npos);
  }
}

TEST(PCModel, RefusesOtherDataUnderItsComponents) {
  Bench bench("abc", test::Noise().Table(8, 3));
  ASSERT_EQ(bench.Compute(1), 0);
  const float t = bench.model.GetT(1, 1);
  bench.model.Unload();
  bench.workset.SetIsObsIn(8, false);
  EXPECT_EQ(bench.Compute(2), 8040);
  EXPECT_EQ(bench.model.GetT(1, 1), t);
  EXPECT_EQ(bench.model.GetNObs(), 8);
  bench.model.Reset(1);
  bench.workset.SetIsObsIn(8, true);
  bench.options.SetIsCenter(false);  // those that there are stay centred
  EXPECT_EQ(bench.Compute(2), 0);
  EXPECT_EQ(bench.model.GetA0(), 1);
  // Loading again in between changes nothing.
  EXPECT_EQ(bench.model.LoadWS(), 0);
  EXPECT_EQ(bench.Compute(3), 0);
  EXPECT_NEAR(D(bench.model.GetR2X(3)), 1.0, 1e-6);
}

TEST(PCModel, AnswersWithoutOwnerAndOptions) {
  PCModel model(nullptr, EModType::kPC1, GlobalStreamWindow(), nullptr, 0);
  EXPECT_EQ(model.Compute(), 8022);
  EXPECT_EQ(model.Reset(0), 0);
  EXPECT_EQ(model.Compute(), 8011);
  test::RecordingWindow list;
  model.Show(list);
  EXPECT_EQ(model.GetDModXLS(1, 1), kM);
}

TEST(PCModel, EndsWithAsManyComponentsAsANumberHolds) {
  Bench bench(test::Sample("spectra"));
  ASSERT_EQ(bench.Compute(127), 0);
  EXPECT_EQ(bench.model.GetA(), 127);
  EXPECT_NE(bench.model.GetT2LS(127, 1), kM);
  test::RecordingWindow list;
  bench.model.Show(list);
  EXPECT_NE(list.log.find("\nComp[127]"), std::string::npos);
  bench.options.SetIsSeq(true);
  EXPECT_EQ(bench.model.Compute(), 0);
  EXPECT_EQ(bench.model.GetA(), 127);
}

}  // namespace
}  // namespace zemva
