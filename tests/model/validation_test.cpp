#include "zemva/model/driver/validation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/recording_window.h"
#include "zemva/model/execution/distances.h"
#include "zemva/model/pc/cross_validation.h"
#include "zemva/numeric/distributions.h"

namespace zemva {
namespace {

constexpr float kM = kMissing;

Stage StageOf(float ss, std::vector<float> ssv) {
  Stage stage('X', 0, 1, static_cast<int>(ssv.size()));
  stage.ss = ss;
  std::ranges::copy(ssv, stage.ssv.Values().begin());
  return stage;
}

TEST(SetQ2, FollowsBothDefinitions) {
  const Stage initial = StageOf(20, {10, 10, 0});
  const Stage before = StageOf(8, {8, 0, 0});
  // Before: Q2(cum) 0.5, of the variables 0.25, 0.75 and none.
  CompInfo first(1, 1, 3, 0);
  first.q2_cum = 0.5f;
  first.q2v_cum[1] = 0.25f;
  first.q2v_cum[2] = 0.75f;

  // 1 - 2/8 = 0.75 in all, since only the first variable had anything left; 1 - 0.25 * 0.5 = 0.875
  // and 1 - 0.25 * 0.75 = 0.8125 cumulated.
  CompInfo second(2, 1, 3, 0);
  SetQ2(2, std::vector<double>{2, 0, 0}, before, initial, &first, false, second);
  EXPECT_EQ(second.q2, 0.75f);
  EXPECT_EQ(second.q2_cum, 0.875f);
  EXPECT_EQ(second.q2v[1], 0.75f);
  EXPECT_EQ(second.q2v_cum[1], 0.8125f);
  EXPECT_EQ(second.q2v[2], kM);
  EXPECT_EQ(second.q2v_cum[2], kM);

  // (8 - 2) / 20 = 0.3, added to 0.5; of the first variable (8 - 2) / 10 = 0.6, added to 0.25.
  SetQ2(2, std::vector<double>{2, 0, 0}, before, initial, &first, true, second);
  EXPECT_FLOAT_EQ(second.q2, 0.3f);
  EXPECT_FLOAT_EQ(second.q2_cum, 0.8f);
  EXPECT_FLOAT_EQ(second.q2v_cum[1], 0.85f);

  // A loss adds nothing: 1 - 10/8 = -0.25.
  SetQ2(10, std::vector<double>{10, 0, 0}, before, initial, &first, false, second);
  EXPECT_EQ(second.q2, -0.25f);
  EXPECT_EQ(second.q2_cum, 0.5f);
  SetQ2(10, std::vector<double>{10, 0, 0}, before, initial, nullptr, false, second);
  EXPECT_EQ(second.q2_cum, 0.0f);

  // All predicted is 1. What was not validated before cannot be cumulated.
  first.q2_cum = kM;
  SetQ2(0, std::vector<double>{0, 0, 0}, before, initial, &first, false, second);
  EXPECT_EQ(second.q2, 1.0f);
  EXPECT_EQ(second.q2_cum, kM);

  // Rounding can leave an error where there was nothing.
  SetQ2(1e-50, std::vector<double>{1e-50, 0, 0}, StageOf(0, {0, 0, 0}), initial, nullptr, false,
        second);
  EXPECT_EQ(second.q2, kM);
}

TEST(DistanceTest, HasTheDegreesOfFreedomThatAreLeft) {
  const struct {
    BlockSize size;
    double df, v1, v2, r;
  } cases[] = {
      {{20, 5, 1, 1, 1}, 72, 4, 18, 20 / 18.0},                           // 72 / (5 - 1); 5 - 1
      {{12, 200, 1, 2, 2}, 1782, 9 + std::sqrt(191.0) - 2, 9, 12 / 9.0},  // 200 depend on 9
      {{300, 200, 0, 1, 1}, 59501, 99, 299, 300 / 299.0},                 // 100 are independent
      {{4, 3, 1, 3, 3}, 0.3, 1, 1, 4},                                    // neither less than 1
  };
  for (const auto& c : cases) {
    const DistanceTest test(c.size, c.df);
    const auto v1 = static_cast<float>(c.v1);
    const auto v2 = static_cast<float>(c.v2);
    const auto of_member = static_cast<float>(c.v1 / c.r);
    EXPECT_FLOAT_EQ(static_cast<float>(test.GetLimit(false, 0.1f)), FFTest(v1, v2, 0.1f));
    EXPECT_FLOAT_EQ(static_cast<float>(test.GetLimit(true, 0.1f)), FFTest(of_member, v2, 0.1f));
    EXPECT_FLOAT_EQ(test.GetProbability(true, 2), PFTest(2.0f, of_member, 1.0f, v2));
  }
  // I(9, 2) at 18 / 26.
  EXPECT_NEAR(static_cast<double>(DistanceTest(cases[0].size, 72).GetProbability(false, 2)), 0.1377,
              1e-4);
}

TEST(WeightedVariance, CorrectsForTheScoresWhereItCan) {
  const struct {
    WeightedSums sums;
    double variance, of_observation;
  } cases[] = {
      {{5, 2, 12}, 10, 10},  // 12 / 2 * 5 / (5 - 2)
      {{3, 2, 12}, 6, 6},    // with a single degree of freedom as it is
      {{2, 2, 12}, 6, -99},
      {{0, 0, 0}, 0, -99},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(WeightedVariance(c.sums, 2), c.variance);
    EXPECT_EQ(WeightedObservationVariance(c.sums, 2), c.of_observation);
  }
}

TEST(GroupLabels, GoRoundThePassesAndRotate) {
  // Five variables in three groups: passes mark 1 and 4, then 2 and 5, then 3.
  const std::vector<char> all(5, 1);
  GroupLabels labels(3, all);
  const auto now = [&] { return std::vector<short>(labels.Get().begin(), labels.Get().end()); };
  EXPECT_EQ(now(), (std::vector<short>{1, 2, 0, 1, 2}));
  labels.Rotate();  // the last was 2: the first becomes (2 + 1) mod 3
  EXPECT_EQ(now(), (std::vector<short>{0, 1, 2, 0, 1}));

  // The same variables with one between them, and one before them, that take no part: the label of
  // the very first is set, and the first that takes part keeps its own.
  const std::vector<char> some = {0, 1, 1, 0, 1, 1, 1};
  GroupLabels with_gaps(3, some);
  EXPECT_EQ(with_gaps.Get()[1], 1);
  EXPECT_EQ(with_gaps.Get()[4], 0);
  with_gaps.Rotate();
  EXPECT_EQ(std::vector<short>(with_gaps.Get().begin(), with_gaps.Get().end()),
            (std::vector<short>{0, 1, 1, 0, 2, 0, 1}));
  EXPECT_EQ(GetGroupCount(32767, 7, nullptr), 0) << "no greater number without a common factor";
}

TEST(Rule2, NeedsMoreVariablesFromEachCubeOn) {
  const struct {
    int columns, required;
  } cases[] = {{1, 3},   {26, 3},  {27, 4},  {63, 4},  {64, 5},  {124, 5},
               {125, 6}, {215, 6}, {216, 7}, {342, 7}, {343, 8}, {32767, 8}};
  for (const auto& c : cases) EXPECT_EQ(GetRequiredCount(c.columns), c.required) << c.columns;
}

TEST(Rules, KeepAVerdictThatStands) {
  test::RecordingWindow window;
  ModelLog log(window);
  CompInfo component(1, 1, 3, 0);
  component.q2 = 0.2f;
  component.q2_limit = 0.1f;
  component.verdict = EVerdict::kRule3;
  JudgeByQ2(1, component, log);
  EXPECT_EQ(component.verdict, EVerdict::kRule3);
  // No variable by rule 2: all are missing.
  EXPECT_EQ(window.log, "Significant component (5%) acc. to rule 1.\n");

  const Stage initial = StageOf(1000, {500, 500, 0});
  const Stage after = StageOf(991, {489.9f, 500, 0});  // 0.9 % of all, 2.02 % of the first
  EXPECT_FALSE(JudgeByR2(initial, after, initial, 0.02, component, log));
  EXPECT_TRUE(JudgeByR2(initial, after, initial, 0.03, component, log));
  EXPECT_EQ(component.verdict, EVerdict::kRule3);
  component.verdict = EVerdict::kRule1;
  EXPECT_TRUE(JudgeByR2(initial, after, initial, 0.03, component, log));
  EXPECT_EQ(component.verdict, EVerdict::kRule4);
  EXPECT_FALSE(JudgeByDefault(true, component, log));
}

}  // namespace
}  // namespace zemva
