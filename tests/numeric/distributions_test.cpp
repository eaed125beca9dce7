// Expected values: SciPy 1.10.1, of which those of t and F also stand in the usual printed tables.
#include "zemva/numeric/distributions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace zemva {
namespace {

// What is left by the last rounding to float.
constexpr double kRounding = 6e-8;

TEST(Betai, AgreesWithReferenceValues) {
  const struct {
    float a, b, x;
    double expected;
  } cases[] = {
      {0.5f, 0.5f, 0.25f, 0.333333333},
      {1, 3, 0.5f, 0.875},
      {2, 2, 0.75f, 0.84375},
      {5, 0.5f, 0.875f, 0.259572932},
      {50, 40, 0.5f, 0.14454804},
      {200, 300, 0.4375f, 0.955600094},
      {1000, 1000, 0.5f, 0.5},
      {0.5f, 500, 0.0009765625f, 0.676948277},
      {3, 2, 0, 0},
      {3, 2, 1, 1},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(betai(c.a, c.b, c.x), c.expected, kRounding);
    EXPECT_NEAR(betai(c.b, c.a, 1.0f - c.x), 1.0 - c.expected, kRounding);
  }
  EXPECT_TRUE(std::isnan(betai(1, 1, -0.5f)));
}

TEST(TCrit, AgreesWithTheTableOfT) {
  constexpr float kProbabilities[] = {0.5f, 0.9f, 0.95f, 0.99f, 0.999f};
  const struct {
    int df;
    double t[5];
  } rows[] = {
      {1, {1, 6.31375, 12.7062, 63.6567, 64}},
      {2, {0.816497, 2.91999, 4.30265, 9.92484, 31.5991}},
      {5, {0.726687, 2.01505, 2.57058, 4.03214, 6.86883}},
      {10, {0.699812, 1.81246, 2.22814, 3.16927, 4.58689}},
      {30, {0.682756, 1.69726, 2.04227, 2.75, 3.64596}},
      {120, {0.67654, 1.65765, 1.97993, 2.61742, 3.37345}},
      {1000, {0.674735, 1.64638, 1.96234, 2.58075, 3.30028}},
  };
  for (const auto& row : rows) {
    for (int k = 0; k < 5; ++k) {
      // Half the last interval, and what rounding p to float moves the largest of them.
      EXPECT_NEAR(TCrit(kProbabilities[k], row.df), row.t[k], 6e-5 + 6e-6 * row.t[k]) << row.df;
    }
  }
  EXPECT_LT(TCrit(0.999f, 1), 64.0f);
  EXPECT_EQ(TCrit(1.5f, 10), 0.0f);
  EXPECT_EQ(TCrit(-0.1f, 10), 0.0f);
}

TEST(PFTest, AgreesWithReferenceValues) {
  const struct {
    float ratio, df1, df2;
    double tail;
  } cases[] = {
      {0.1f, 3, 7, 0.95747068}, {0.5f, 10, 10, 0.855154194},   {1, 5, 5, 0.5},
      {1, 1, 30, 0.325308615},  {2.5f, 4, 12, 0.0981618112},   {4, 2, 200, 0.0198000401},
      {10, 8, 3, 0.0422366958}, {40, 1, 1000, 3.82310715e-10},
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(PFTest(c.ratio, c.df1, 1, c.df2), c.tail, kRounding);
    EXPECT_NEAR(PFTest(3.0f, c.df2, 3.0f * c.ratio, c.df1), 1.0 - c.tail, kRounding);
  }
  EXPECT_EQ(PFTest(1, 3, 0, 4), 0.0f);
  EXPECT_EQ(PFTest(0, 3, 1, 4), 1.0f);
}

TEST(FFTest, AgreesWithTheTableOfF) {
  constexpr float kProbabilities[] = {0.5f, 0.1f, 0.05f, 0.01f, 0.001f};
  const struct {
    float df1, df2;
    double f[5];
  } rows[] = {
      {1, 1, {1, 39.8635, 161.448, 4052.18, 99999}},
      {1, 10, {0.489737, 3.28502, 4.9646, 10.0443, 21.0396}},
      {5, 2, {1.25193, 9.29263, 19.2964, 99.2993, 999.3}},
      {10, 20, {0.966264, 1.93674, 2.34788, 3.36819, 5.07525}},
      {3, 100, {0.794069, 2.13938, 2.69553, 3.9837, 5.85681}},
      {120, 120, {1, 1.26457, 1.35189, 1.53299, 1.76674}},
  };
  for (const auto& row : rows) {
    for (int k = 0; k < 5; ++k) {
      EXPECT_NEAR(FFTest(row.df1, row.df2, kProbabilities[k]), row.f[k],
                  std::max(3e-5, 1e-5 * row.f[k]))
          << row.df1 << ", " << row.df2;
    }
  }
  for (const float p : {0.0f, 1.0f, -0.5f, 2.0f}) EXPECT_EQ(FFTest(3, 4, p), -1.0f);
}

TEST(Distributions, EndForArgumentsWithoutMeaning) {
  const float nan = std::nanf("");
  TCrit(nan, 3);
  TCrit(0.95f, 0);
  TCrit(0.95f, -3);
  FFTest(0, 0, 0.5f);
  FFTest(nan, 3, 0.5f);
  FFTest(3, 3, 1e-45f);
  EXPECT_TRUE(std::isnan(PFTest(nan, 1, 1, 1)));
}

}  // namespace
}  // namespace zemva
