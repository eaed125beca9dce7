// What models by partial least squares make of gaps and of bad data, refuse and say.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "model/model_fixture.h"
#include "model/pls_reference.h"

namespace zemva {
namespace {

using test::Column;
using test::D;
using test::Noise;
using test::PLSBench;
using test::Rows;
using test::Table;

constexpr float kM = kMissing;

// --- Missing values ---

// Worked by hand, with nothing made up for: w is as 3 to 2, and t of the fifth row, whose b is
// missing, 0.4160252.
TEST(PLSGaps, AreMadeUpForUpToTheCaps) {
  const auto make = [](const Rows& rows, int responses, bool is_told) {
    auto bench = std::make_unique<PLSBench>(rows, responses);
    bench->TakeAsIs();
    bench->options.SetMaxMisValObsLS(100);
    bench->options.SetMaxIter(0);
    bench->options.SetCompLimLoa(1);
    bench->options.SetCompLimScr(1);
    bench->options.SetIsShoLoaLim(is_told);
    bench->options.SetIsShoScrLim(is_told);
    bench->options.SetNCV(5);
    bench->options.SetSeqValidate(responses == 1 ? EValidate::CV : EValidate::NoCV);
    EXPECT_EQ(bench->Compute(), 0);
    EXPECT_TRUE(bench->model.IsOverrun());
    return bench;
  };
  const float h = 0.5f;
  const Rows gap_in_x = {{h, h, 1}, {h, h, 1}, {h, h, 1}, {h, h, 1}, {h, kM, 2}};
  // Where the fifth row takes part and another does not, u'u is 7 and w as 2.5 to 1.5.
  const std::string round =
      "CompLimWLoa overrun for w, VarIx 2, was 2.33333\n"
      "CompLimTScr overrun for t, ObsIx 5, was 1.36\n";
  const auto x = make(gap_in_x, 1, true);
  const std::string log = x->window.log.substr(0, x->window.log.find("Q2[1]= "));
  EXPECT_EQ(log,
            "Variance for X-variable 100 a is (close to) zero.\n"
            "Variance for X-variable 200 b is (close to) zero.\n"
            "CompLimWLoa overrun for w, VarIx 2, was 2\n"
            "CompLimTScr overrun for t, ObsIx 5, was 1.44444\n"
            "CompLimPLoa overrun for varIx 2, was 1.09\n" +
                round + round + round + round + "CompLimScr overrun for obsIx 5, was 2\n");
  EXPECT_FLOAT_EQ(x->model.GetW(1, 1), 0.83205029f);
  EXPECT_FLOAT_EQ(x->model.GetT(1, 5), 0.41602515f);
  EXPECT_FLOAT_EQ(x->model.GetC(1, 1), 1.7200798f);
  EXPECT_FLOAT_EQ(x->model.GetP(1, 1), 0.7608046f);
  EXPECT_FLOAT_EQ(x->model.GetP(1, 2), 0.6615692f);
  EXPECT_EQ(make(gap_in_x, 1, false)->window.log.find("overrun"), std::string::npos);

  const auto y = make({{1, 2, kM}, {1, 2, 1}, {1, 2, 1}, {1, 2, 1}, {2, 4, 2}}, 2, true);
  EXPECT_TRUE(
      y->window.log.starts_with("CompLimCLoa overrun for c, VarIx 2, was 1.14286\n"
                                "CompLimUScr overrun for u, ObsIx 1, was 1.19141\n R2X"));
  EXPECT_FLOAT_EQ(y->model.GetC(1, 2), 0.875f);
  EXPECT_FLOAT_EQ(y->model.GetU(1, 1), 4 / 4.765625f);
}

// The fit and the rounds of a table with gaps in both blocks, the fifth row without X and the sixth
// without Y, against the definition in double.
TEST(PLSGaps, FollowTheDefinition) {
  for (const float cap : {1000.0f, 1.1f}) {
    Rows rows = Noise().Table(15, 7);
    for (std::size_t i = 0; i < 15; ++i) {
      rows[i][5] += 2 * rows[i][0] - rows[i][1];
      rows[i][6] += rows[i][0] + rows[i][2];
      if (i % 3 == 0) rows[i][i % 5] = kM;
      if (i % 4 == 1) rows[i][5 + i % 2] = kM;
    }
    for (std::size_t k = 0; k < 5; ++k) rows[4][k] = kM;
    rows[5][5] = rows[5][6] = kM;
    PLSBench bench(rows, 2);
    bench.TakeAsIs();
    bench.options.SetMaxMisValObsLS(100);
    bench.options.SetCompLimLoa(cap);
    bench.options.SetCompLimScr(cap);
    bench.options.SetNCV(4);
    bench.options.SetSeqValidate(cap > 2 ? EValidate::CV : EValidate::NoCV);
    ASSERT_EQ(bench.Compute(2), 0);
    const PLSModel& model = bench.model;
    Table e, f;
    for (const auto& row : rows) {
      e.emplace_back(row.begin(), row.begin() + 5);
      f.emplace_back(row.begin() + 5, row.end());
    }
    EXPECT_EQ(model.GetT(1, 5), kM);
    EXPECT_EQ(model.GetU(1, 6), 0.0f);
    EXPECT_EQ(model.GetDModYLS(2, 6), kM);
    EXPECT_EQ(model.GetYPredLS(5, 1), kM);
    EXPECT_EQ(model.GetYPredErrLS(6, 1), kM);
    for (char a = 1; a <= 2; ++a) {
      const auto values = [&](int count, float (Model::*get)(char, short) const) {
        Column column;
        for (short i = 1; i <= count; ++i) column.push_back(D((model.*get)(a, i)));
        return column;
      };
      const Column u = values(15, &Model::GetU);
      const auto press = test::Press(e, f, u, 4, 300);
      for (short m = 1; m <= 2 && cap > 2; ++m) {
        const Column left = test::Transposed(f)[static_cast<std::size_t>(m - 1)];
        EXPECT_NEAR(D(model.GetQ2VAY(a, m)),
                    1 - press[static_cast<std::size_t>(m - 1)] / test::Dot(left, left), 1e-4);
      }
      const test::PlsComponent expected(e, f, u, D(cap), 300);
      const auto expect = [&](const Column& column, float (Model::*get)(char, short) const) {
        const Column got = values(static_cast<int>(column.size()), get);
        for (std::size_t i = 0; i < got.size(); ++i) EXPECT_NEAR(got[i], column[i], 1e-4) << i;
      };
      expect(expected.w, &Model::GetW);
      expect(expected.t, &Model::GetT);
      expect(expected.c, &Model::GetC);
      expect(expected.u, &Model::GetU);
      expect(expected.p, &Model::GetP);
      test::Deflate(e, expected.t, expected.p);
      test::Deflate(f, expected.t, expected.c);
    }
  }
}

TEST(PLSGaps, TheGeneralWayIsThePlainOneWhereNothingIsMissing) {
  // A row without any value sends all others the general way.
  const Rows rows = Noise().Table(9, 6);
  Rows with_empty = rows;
  with_empty.push_back(std::vector<float>(6, kM));
  for (const int responses : {1, 2}) {
    PLSBench plain(rows, responses);
    PLSBench general(with_empty, responses);
    ASSERT_EQ(plain.Compute(3), 0);
    ASSERT_EQ(general.Compute(3), 0);
    for (char a = 1; a <= 3; ++a) {
      EXPECT_EQ(general.model.GetNIter(a), plain.model.GetNIter(a));
      for (short i = 1; i <= 9; ++i) {
        EXPECT_NEAR(D(general.model.GetT(a, i)), D(plain.model.GetT(a, i)), 1e-5);
        EXPECT_NEAR(D(general.model.GetU(a, i)), D(plain.model.GetU(a, i)), 1e-4);
      }
    }
    EXPECT_EQ(general.model.GetT(1, 10), kM);
  }
}

// --- Refusals ---

TEST(PLSModel, RefusesWhatItCannotBeMadeOf) {
  const auto nothing = [](PLSBench&) {};
  const Rows noise = Noise().Table(8, 3);
  const auto with = [&](std::size_t column, const std::vector<float>& values) {
    Rows rows = noise;
    for (std::size_t i = 0; i < 8; ++i) rows[i][column] = values[i];
    return rows;
  };
  const Rows few_responses = with(2, {1, kM, kM, 2, kM, kM, kM, 3});
  const Rows orthogonal = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
  const Rows crossed = {{1, 1, 1}, {1, -1, 1}, {-1, 1, -1}, {-1, -1, -1}};
  const struct {
    Rows rows;
    int responses;
    std::function<void(PLSBench&)> prepare;
    short asked;
    int status;
    char got;
    std::string log;
  } cases[] = {
      {noise, 0, nothing, 1, 8018, 0, ""},
      {noise, 3, nothing, 1, 8017, 0, ""},
      {Rows(noise.begin(), noise.begin() + 3), 1, nothing, 1, 8020, 0, ""},
      {with(2, {7, 7, 7, kM, 7, 7, 7, 7}), 1, nothing, 1, 8028, 0,
       "Variance for Y-variable 300 c is zero.\n"},
      {with(2, {0, 0, 0, 0, 0, 0, 0, 1e-20f}), 1, nothing, 1, 8038, 0,
       "Undefined scaling weight for Y-variable 300 c\n"},
      {few_responses, 1, nothing, 1, 8039, 0,
       "Y variable 300, c has less than 4 non-missing values.\nCan not compute model.\n"
       "Y variable 300, c has more than MaxMisVal% missing values ( 62.50%).\n"
       "Y matrix has missing value problem. Can not compute model.\n"
       "See log for further information.\n"},
      {with(2, {1, kM, kM, 2, kM, 5, kM, 3}), 1,
       [](PLSBench& bench) {
         bench.options.SetMaxMisValVarLS(49);
         bench.owner.reply = 'n';
       },
       1, 8039, 0, "Y variable 300, c has more than MaxMisVal% missing values ( 50.00%).\n"},
      {orthogonal, 1, nothing, 1, 8024, 0, ""},
      // Nothing is left of Y behind the first component, which stays.
      {crossed, 1, nothing, 2, 8024, 1,
       " R2X(cum)[1] = 0.500\n R2Y(cum)[1] = 1.000\n"
       "Not significant component acc. to rule 3.\n"},
      // b is there only where u is 0; the response only where t is.
      {{{-1, kM, -1},
        {1, kM, 1},
        {-1, kM, -1},
        {1, kM, 1},
        {2, 1, 0},
        {1, 2, 0},
        {3, 3, 0},
        {4, 5, 0}},
       1,
       [](PLSBench& bench) { bench.TakeAsIs(); },
       1,
       8042,
       0,
       ""},
      {{{0, 1, 1}, {0, 2, 2}, {0, 1, 3}, {0, 2, 5}, {1, 1, kM}, {1, 2, kM}, {1, 3, kM}, {1, 4, kM}},
       2,
       [](PLSBench& bench) { bench.TakeAsIs(); },
       1,
       8042,
       0,
       ""},
      // b is there in every second observation, which one of two rounds leaves out.
      {with(1, {1, kM, 2, kM, 4, kM, 3, kM}), 1,
       [](PLSBench& bench) {
         bench.options.SetNCV(2);
         bench.options.SetSeqValidate(EValidate::CV);
       },
       1, 8043, 0, ""},
      {noise, 1,
       [](PLSBench& bench) {
         bench.options.SetNCV(1), bench.options.SetSeqValidate(EValidate::CV);
       },
       1, 8013, 0, ""},
      {noise, 1,
       [](PLSBench& bench) {
         bench.options.SetIsRule(true), bench.options.SetRuleValidate(EValidate::Eig);
       },
       1, 8013, 0, ""},
      {noise, 1, [](PLSBench& bench) { bench.workset.SetFixedWeight(3, EScaType::kFW, 1e38f); }, 1,
       8005, 0, "Y variable 300, c is out of range when centred and scaled.\n"},
      // The fifth row has b alone, of the least weight there is: its score is 1250000, and p'w next
      // to nothing.
      {{{1, 8e-7f, 1}, {-1, -8e-7f, -1}, {1, 8e-7f, 1}, {-1, -8e-7f, -1}, {kM, 1, 0}},
       1,
       [](PLSBench& bench) {
         bench.TakeAsIs();
         bench.options.SetCompLimScr(1e13f);
         bench.options.SetCompLimLoa(1.0f);
         bench.options.SetIsShoLoaLim(false);
       },
       1,
       8006,
       0,
       " R2X(cum)[1] = 0.200\n R2Y(cum)[1] = 0.000\n"
       "Not significant component acc. to rule 4.\nMatrix singular!\n"},
      // What is unusual is none of this: more responses than observations.
      {Noise().Table(5, 26), 20, nothing, 2, 0, 2, " R2X(cum)[1] = "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    PLSBench bench(c.rows, c.responses);
    bench.options.SetNCV(4);
    bench.options.SetMaxMisValVarLS(60);
    bench.options.SetMaxMisValObsLS(100);
    c.prepare(bench);
    testing::internal::CaptureStdout();
    EXPECT_EQ(bench.Compute(c.asked), c.status);
    const bool is_aborted = bench.owner.reply == 'n';
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              is_aborted ? "Model computation aborted.\nSee log for further information.\n" : "");
    EXPECT_EQ(bench.owner.questions, is_aborted ? c.log + "Continue model computation?" : "");
    EXPECT_EQ(bench.model.GetA(), c.got);
    EXPECT_EQ(bench.window.log.substr(0, c.status == 0 ? c.log.size() : std::string::npos), c.log);
    // What there is goes on: it is executed, and predicts.
    if (c.got == 0) continue;
    bench.model.Reset(c.got);
    EXPECT_EQ(bench.model.ExecLS(char{0}), 0);
    EXPECT_TRUE(std::isfinite(bench.model.GetYPredLS(1, 1)));
  }
}

TEST(PLSModel, KeepsWhatItHasWhereYCannotBeLoaded) {
  Rows rows = Noise().Table(9, 3);
  for (std::size_t i = 0; i < 8; ++i) rows[i][2] = 1;
  PLSBench bench(rows, 1);
  ASSERT_EQ(bench.model.LoadWS(), 0);
  bench.workset.SetIsObsIn(9, false);
  EXPECT_EQ(bench.model.LoadWS(), 8028);
  EXPECT_EQ(bench.model.GetXPtr()->NRow(), 9);
  EXPECT_EQ(bench.model.GetYPtr()->NRow(), 9);
  EXPECT_EQ(bench.model.GetNObs(), 9);
}

TEST(PLSModel, TakesAsManyVariablesAsThereCanBe) {
  Rows rows(5, std::vector<float>(32767));
  Noise noise;
  for (auto& row : rows) {
    for (float& value : row) value = noise.Next();
  }
  for (const EModType type : {EModType::kPLS12, EModType::kPLS21}) {
    PLSBench bench(test::SmallDataset(std::string(32766, 'x') + 'y', rows), {"y"}, type);
    ASSERT_EQ(bench.Compute(), 0);
    ASSERT_EQ(bench.model.ExecLS(char{0}), 0);
    EXPECT_EQ(bench.model.GetNVarX() + bench.model.GetNVarY(), 32767);
    EXPECT_TRUE(std::isfinite(bench.model.GetRMSEE(bench.model.GetNVarY())));
  }
}

// --- What they say ---

// Shares of X and Y are those of the reference of this sample; Q2 is that of the refits.
TEST(PLSModel, TellsAndListsEachComponentAndItsVerdict) {
  const std::string significant =
      "Significant component (5%) acc. to rule 1.\nSignificant component (5%) acc. to rule 2.\n";
  const std::string first = " R2X(cum)[1] = 0.576\n R2Y(cum)[1] = 0.832\n";
  const std::string second = " R2X(cum)[2] = 0.676\n R2Y(cum)[2] = 0.854\n";
  const std::string third =
      " R2X(cum)[3] = 0.899\n R2Y(cum)[3] = 0.858\nNot significant component acc. to rule 4.\n";
  const std::string rule_5 = "Component not significant acc. to current rules.\n";
  const std::string head =
      "Comp      R2X    R2X(c) R2Y   R2Y(c)   Eig  Q2    Q2(c) Iter  S\n"
      "Center    0.000  0.000  0.000  0.000     -     -     -    -  -\n"
      "Comp[1]   0.576  0.576  0.832  0.832  5.76  0.82  0.82    1 R1\n";
  const struct {
    bool is_rule, is_designed;
    std::string log, list;
  } cases[] = {
      {false, false,
       "Q2[1]= 0.816 Q2Lim= 0.097\n" + significant + first + "Q2[2]= -0.157 Q2Lim= 0.097\n" +
           second + rule_5 + "Q2[3]= -0.069 Q2Lim= 0.097\n" + third,
       head + "Comp[2]   0.101  0.676  0.022  0.854  1.01 -0.16  0.82    1 N5\n"
              "Comp[3]   0.223  0.899  0.004  0.858  2.23 -0.07  0.82    1 N4\n"},
      {true, false,
       "Q2[1]= 0.816 Q2Lim= 0.097\n" + significant + first + "Q2[2]= -0.157 Q2Lim= 0.097\n" +
           second + rule_5,
       head},
      {true, true,
       "Q2[1]= 0.816 Q2Lim= -0.200\n" + significant + first + "Q2[2]= -0.157 Q2Lim= -0.200\n" +
           significant + second + "Q2[3]= -0.069 Q2Lim= -0.200\n" + significant + third,
       head + "Comp[2]   0.101  0.676  0.022  0.854  1.01 -0.16  0.82    1 R1\n"},
  };
  for (const auto& c : cases) {
    PLSBench bench(test::Sample("mtcars"), {"mpg"});
    bench.owner.options.SetVariMode(EVariType::R2);
    bench.options.SetIsRule(c.is_rule);
    bench.options.SetIsXDesigned(c.is_designed);
    bench.options.SetSeqValidate(EValidate::CV);
    EXPECT_EQ(bench.Compute(3), c.is_rule ? 8029 : 0);
    EXPECT_EQ(bench.window.log, c.log);
    test::RecordingWindow list;
    bench.model.Show(list);
    EXPECT_EQ(list.log.substr(list.log.find("Comp ")), c.list);
    list.log.clear();
    bench.model.ShowComp(2, list);
    EXPECT_EQ(list.log.starts_with("Component[2]\nR2X(cum)= "), !c.is_rule);
    // The residuals of X and Y are as they were before what was refused.
    bench.model.Reset(1);
    bench.options.SetIsRule(false);
    ASSERT_EQ(bench.Compute(2), 0);
    PLSBench straight(test::Sample("mtcars"), {"mpg"});
    ASSERT_EQ(straight.Compute(2), 0);
    EXPECT_NEAR(D(bench.model.GetT(2, 1)), D(straight.model.GetT(2, 1)), 1e-5);
    EXPECT_NEAR(D(bench.model.GetC(2, 1)), D(straight.model.GetC(2, 1)), 1e-5);
    // By a design all ten variables are used up: 32 - 1 - 10, else 32 - 1 - 1.
    EXPECT_FLOAT_EQ(bench.model.GetS2VY(1, 1),
                    bench.model.GetSSVY(1, 1) / (c.is_designed ? 21.0f : 30.0f));
  }
}

// --- Types ---

TEST(PLSModel, RelatesTheBlocksThatItsTypeSays) {
  // Blocks turned round, which kPLS21 turns back.
  PLSBench straight(test::Sample("spectra"), {"y1", "y2"});
  PLSBench turned(test::Sample("spectra"), {}, EModType::kPLS21);
  for (short j = 1; j < turned.workset.GetNVarDS() - 1; ++j)
    turned.workset.SetRole(j, EVarRole::kY);
  ASSERT_EQ(straight.Compute(2), 0);
  ASSERT_EQ(turned.Compute(2), 0);
  EXPECT_EQ(turned.model.GetNVarY(), 2);
  EXPECT_EQ(turned.model.GetR2Y(2), straight.model.GetR2Y(2));

  // Both numbers of discriminant models; a class with one member, and rows that are in none.
  std::vector<float> predicted;
  for (const EModType type : {EModType::kPLS1DA, EModType::kPLS1DAOld}) {
    PLSBench bench(test::Sample("iris"), {}, type);
    for (short i = 1; i <= 60; ++i) bench.workset.SetOClass(i, i <= 50 ? 3 : i < 60 ? 4 : 9);
    ASSERT_EQ(bench.Compute(2), 0);
    const PLSModel& model = bench.model;
    EXPECT_EQ(model.GetNObs(), 60);
    ASSERT_EQ(model.GetNVarY(), 3);
    EXPECT_EQ(model.GetNVarYDS(), 0);
    EXPECT_STREQ(model.GetVarInfoY()->GetVNam(2), "Class4");
    EXPECT_EQ(model.GetYObsLS(60, 3), 1.0f);
    EXPECT_EQ(model.GetYObsLS(60, 1), 0.0f);
    EXPECT_GT(model.GetYPredLS(1, 1), 0.8f);
    EXPECT_LT(model.GetYPredLS(51, 1), 0.2f);
    predicted.push_back(model.GetYPredLS(1, 1));
    Predset predset("PS", *bench.dataset, bench.workset);
    bench.owner.predset = &predset;
    ASSERT_EQ(bench.model.ExecPS(), 0);
    EXPECT_EQ(model.GetYObsPS(60, 3), 1.0f);
    EXPECT_EQ(model.GetYObsPS(61, 3), kM);
    EXPECT_NE(model.GetYPredPS(61, 3), kM);
    EXPECT_EQ(model.GetNPredErrTrS(1), 60);
    test::RecordingWindow list;
    bench.model.Show(list);
    EXPECT_TRUE(list.log.starts_with("PLS-1DA  Model number: 0"));
  }
  EXPECT_EQ(predicted[0], predicted[1]);
  PLSBench one_class(test::Sample("iris"), {}, EModType::kPLS1DA);
  for (short i = 1; i <= 60; ++i) one_class.workset.SetOClass(i, 3);
  EXPECT_EQ(one_class.Compute(2), 8018);
}

}  // namespace
}  // namespace zemva
