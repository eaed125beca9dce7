// The iteration on inner products against the one on the matrix.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "model/model_fixture.h"
#include "zemva/errors/status.h"
#include "zemva/model/kernels/adaptive_nipals.h"
#include "zemva/model/kernels/product_nipals.h"
#include "zemva/model/pc/cross_validation.h"

namespace zemva::test {
namespace {

// Rank 3 and as much noise, so that an iteration takes long.
XFMatrix NoisyTable(int row_count, int column_count, float size = 1.0f) {
  Noise noise;
  const Rows scores = noise.Table(row_count, 3);
  const Rows loadings = noise.Table(column_count, 3);
  XFMatrix table("X", row_count, column_count, 0.0f);
  for (int i = 1; i <= row_count; ++i) {
    for (int k = 1; k <= column_count; ++k) {
      table[i][k] = noise.Next();
      for (std::size_t a = 0; a < 3; ++a) {
        table[i][k] += scores[static_cast<std::size_t>(i - 1)][a] *
                       loadings[static_cast<std::size_t>(k - 1)][a];
      }
      table[i][k] *= size;
    }
  }
  table.SetActValInfo();
  return table;
}

struct Fitted {
  NipalsResult result{status::kOk, 0};
  std::vector<float> t;
  std::vector<float> p;
  std::string log;

  NipalsSettings Settings(double cap) {
    const auto report = [this](int number, double factor) {
      log += std::to_string(number) + " " + std::to_string(factor).substr(0, 5) + "\n";
    };
    return {200, {cap, report}, {cap, report}};
  }
};

void ExpectSame(const Fitted& one, const Fitted& other, const std::string& what) {
  SCOPED_TRACE(what);
  EXPECT_EQ(one.result.status, other.result.status);
  EXPECT_EQ(one.result.iterations, other.result.iterations);
  EXPECT_EQ(one.log, other.log);
  const auto expect_near = [](const std::vector<float>& a, const std::vector<float>& b) {
    double squares = 0;
    double changes = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
      const double change = static_cast<double>(a[i]) - static_cast<double>(b[i]);
      squares += static_cast<double>(a[i]) * static_cast<double>(a[i]);
      changes += change * change;
    }
    EXPECT_LT(std::sqrt(changes / squares), 2e-6);
  };
  expect_near(one.t, other.t);
  expect_near(one.p, other.p);
}

TEST(ProductNipals, GivesWhatThePassesOverTheMatrixGive) {
  struct Case {
    int rows, columns, groups;
    double cap;
    float size;
  };
  // Columns that are and are no multiple of the lanes; caps that cut every correction, and none.
  for (const Case& c :
       {Case{12, 90, 7, 100.0, 1.0f}, Case{90, 12, 7, 100.0, 1.0f}, Case{17, 40, 3, 1.2, 1e-4f},
        Case{40, 17, 3, 1.2, 1e-4f}, Case{16, 65, 4, 100.0, 1.0f}}) {
    const auto rows = static_cast<std::size_t>(c.rows);
    const auto columns = static_cast<std::size_t>(c.columns);
    ResidualMatrix residuals(NoisyTable(c.rows, c.columns, c.size));
    const std::vector<char> takes_part(columns, 1);
    GroupLabels groups(c.groups, takes_part);
    const auto products = ProductNipals::Make(residuals, groups.GetLeftOut(rows));
    const auto start = [&](Fitted& fitted, const std::vector<float>& t) {
      fitted.t = t;
      fitted.p.assign(columns, 0.0f);
    };
    for (int a = 1; a <= 3; ++a) {
      const std::string what = std::to_string(rows) + " x " + std::to_string(columns) +
                               ", component " + std::to_string(a);
      ASSERT_TRUE(products->IsUpToDate(residuals)) << what;
      std::vector<float> t(rows);
      residuals.CopyStart(static_cast<std::size_t>(a), t);
      Fitted whole;
      Fitted by_products;
      start(whole, t);
      start(by_products, t);
      whole.result = Nipals(residuals, LeftOut(), whole.Settings(c.cap), whole.t, whole.p);
      by_products.result =
          products->Fit(by_products.Settings(c.cap), 0, by_products.t, by_products.p);
      ExpectSame(whole, by_products, what);
      for (int round = 1; round <= c.groups; ++round) {
        if (round > 1 || a > 1) groups.Rotate();
        const LeftOut left_out = groups.GetLeftOut(rows);
        Fitted one;
        Fitted other;
        start(one, whole.t);
        start(other, whole.t);
        one.result = Nipals(residuals, left_out, one.Settings(c.cap), one.t, one.p);
        other.result = products->FitRound(left_out, other.Settings(c.cap), other.t, other.p);
        ExpectSame(one, other, what + ", round " + std::to_string(round));
      }
      residuals.Subtract(by_products.t, by_products.p);
      EXPECT_FALSE(products->IsUpToDate(residuals));
      products->TakeOff();
    }
  }
}

TEST(ProductNipals, StopsWhereTheSettingsSay) {
  const NipalsSettings settings{
      200, {100.0, {}}, {100.0, {}}, [](int iterations) { return iterations < 2; }};
  for (const int rows : {12, 60}) {
    const int columns = 72 - rows;
    const ResidualMatrix residuals(NoisyTable(rows, columns));
    const std::vector<char> takes_part(static_cast<std::size_t>(columns), 1);
    const GroupLabels groups(7, takes_part);
    const LeftOut left_out = groups.GetLeftOut(static_cast<std::size_t>(rows));
    const auto products = ProductNipals::Make(residuals, left_out);
    std::vector<float> t(static_cast<std::size_t>(rows));
    std::vector<float> p(static_cast<std::size_t>(columns));
    residuals.CopyStart(0, t);
    for (const NipalsResult& result :
         {Nipals(residuals, LeftOut(), settings, t, p), products->Fit(settings, 0, t, p),
          products->FitRound(left_out, settings, t, p)}) {
      EXPECT_EQ(result.status, status::mva::kCancelled) << rows;
      EXPECT_EQ(result.iterations, 2) << rows;
    }
  }
}

// What is left of a table of low rank, at the end.
TEST(ProductNipals, FindsNothingWhereNothingIsLeft) {
  for (const int rows : {12, 60}) {
    const ResidualMatrix residuals(NoisyTable(rows, 72 - rows, 0.0f));
    Fitted fitted;
    fitted.t.resize(residuals.RowCount());
    fitted.p.resize(residuals.ColumnCount());
    const auto products = ProductNipals::Make(residuals, LeftOut());
    EXPECT_EQ(products->Fit(fitted.Settings(100.0), 0, fitted.t, fitted.p).status, status::kOk);
    EXPECT_EQ(fitted.t, std::vector<float>(residuals.RowCount()));
    EXPECT_EQ(fitted.p, std::vector<float>(residuals.ColumnCount()));
  }
}

TEST(ProductNipals, IsTakenOnceItPaysAndOnlyWithoutGaps) {
  // Seven rows are worth one iteration on the matrix. The second component begins where the first
  // one has made the products.
  for (const bool has_gap : {false, true}) {
    XFMatrix table = NoisyTable(7, 60);
    if (has_gap) table[3][5] = kMissing;
    table.SetActValInfo();
    ResidualMatrix residuals(table);
    AdaptiveNipals adaptive;
    for (int a = 1; a <= 2; ++a) {
      Fitted one;
      Fitted other;
      one.t.resize(7);
      one.p.resize(60);
      residuals.CopyStart(0, one.t);
      other.t = one.t;
      other.p = one.p;
      one.result = Nipals(residuals, LeftOut(), one.Settings(100.0), one.t, one.p);
      other.result = adaptive.Fit(residuals, LeftOut(), other.Settings(100.0), other.t, other.p);
      ExpectSame(one, other, std::to_string(a) + (has_gap ? " with a gap" : ""));
      if (has_gap) {
        EXPECT_EQ(one.t, other.t);
      }
      residuals.Subtract(other.t, other.p);
      adaptive.TakeOff();
    }
  }
}

}  // namespace
}  // namespace zemva::test
