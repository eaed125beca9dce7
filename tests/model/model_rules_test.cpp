// What models refuse, and what they say.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "model/model_fixture.h"

namespace zemva {
namespace {

using test::Bench;
using test::D;
using test::Noise;
using test::Rows;

constexpr float kM = kMissing;

// The Q2 values here and below are those of a separate program in double precision that follows
// the definition element by element.
TEST(Model, TellsEachComponentAndItsVerdict) {
  Bench bench(test::Sample("USArrests"));
  bench.options.SetSeqValidate(EValidate::CV);
  ASSERT_EQ(bench.Compute(3), 0);
  EXPECT_EQ(bench.window.log,
            "Q2[1]= 0.363 Q2Lim[1]= 0.216\n"
            "Significant component (5%) acc. to rule 1.\n"
            "Significant component (5%) acc. to rule 2.\n"
            " R2X(cum)[1] = 0.620\n"
            "Q2[2]= -0.003 Q2Lim[2]= 0.265\n"
            " R2X(cum)[2] = 0.868\n"
            "Component not significant acc. to current rules.\n"
            "Not significant component acc. to rule 3.\n"
            "Q2[3]= 0.465 Q2Lim[3]= 0.347\n"
            "Significant component (5%) acc. to rule 1.\n"
            " R2X(cum)[3] = 0.957\n");
  EXPECT_TRUE(bench.model.IsLogWritten());
  const PCModel& model = bench.model;
  EXPECT_NEAR(D(model.GetQ2X(3)), 0.6593, 1e-4);
  EXPECT_NEAR(D(model.GetQ2VAX(1, 2)), 0.620, 5e-4);
  EXPECT_NEAR(D(model.GetQ2VAX(2, 4)), -0.124, 5e-4);
  EXPECT_NEAR(D(model.GetQ2VX(2, 1)), 1 - (1 - 0.409) * (1 - 0.371), 1e-3);
  EXPECT_EQ(model.GetQ2Limit(5), 1.0f);
  EXPECT_STREQ(model.GetSignRule(1), "R1");
  EXPECT_STREQ(model.GetSignRule(2), "N5");
  EXPECT_STREQ(model.GetSignRule(3), "N3");
}

TEST(Model, WithTheRulesARefusedComponentIsNotKept) {
  Bench bench(test::Sample("airquality"));  // with missing values
  bench.options.SetIsRule(true);
  EXPECT_EQ(bench.Compute(), 8029);
  EXPECT_EQ(bench.window.log,
            "Q2[1]= 0.149 Q2Lim[1]= 0.148\n"
            "Significant component (5%) acc. to rule 1.\n"
            " R2X(cum)[1] = 0.394\n"
            "Q2[2]= -0.291 Q2Lim[2]= 0.172\n"
            " R2X(cum)[2] = 0.595\n"
            "Component not significant acc. to current rules.\n");
  PCModel& model = bench.model;
  EXPECT_EQ(model.GetA(), 1);
  // The loop has ended, the model is there.
  EXPECT_EQ(model.Compute(), 8029);
  EXPECT_EQ(model.ExecLS(char{0}), 0);
  bench.window.log.clear();
  EXPECT_EQ(model.Compute(), 8029);
  EXPECT_EQ(bench.window.log, "");
  // The residuals are those of one component again.
  Bench one(test::Sample("airquality"));
  ASSERT_EQ(one.Compute(1), 0);
  for (short k = 1; k <= 6; ++k) {
    EXPECT_NEAR(D(model.GetXResLS(1, 1, k)), D(one.model.GetXResLS(1, 1, k)), 1e-5);
  }
}

TEST(Model, JudgesByEigenvalueAndSize) {
  Bench bench(test::Sample("iris"));  // eigenvalues 2.92 and 0.91
  bench.options.SetIsRule(true);
  bench.options.SetRuleValidate(EValidate::Eig);
  EXPECT_EQ(bench.Compute(), 8029);
  EXPECT_EQ(bench.model.GetA(), 1);
  EXPECT_EQ(bench.window.log, " R2X(cum)[1] = 0.730\n R2X(cum)[2] = 0.958\n");

  // 9 observations: a component beyond 9 / 3 + 1. With the rules it is refused before it is fitted,
  // here behind four contrasts of equal size, each in five columns.
  Rows contrasts(9, std::vector<float>(20));
  for (std::size_t k = 0; k < 20; ++k) {
    contrasts[k % 4 * 2][k] = 1;
    contrasts[k % 4 * 2 + 1][k] = -1;
  }
  for (const bool is_rule : {false, true}) {
    Bench wide(test::Letters(20), is_rule ? contrasts : Noise().Table(9, 20));
    wide.options.SetIsRule(is_rule);
    wide.options.SetRuleValidate(EValidate::Eig);
    EXPECT_EQ(wide.Compute(5), is_rule ? 8029 : 0);
    EXPECT_EQ(wide.model.GetA(), is_rule ? 4 : 5);
    EXPECT_EQ(wide.model.GetVerdict(4), EVerdict::kNone);
    EXPECT_EQ(wide.model.GetVerdict(5), is_rule ? EVerdict::kNone : EVerdict::kRule3);
    if (!is_rule) continue;
    EXPECT_TRUE(wide.window.log.ends_with("\nNot significant component acc. to rule 3.\n"));
  }
}

TEST(Model, CountsQ2OfTheTotalWithTheOtherDefinition) {
  // Of the irises: Q2 0.6162 and 0.5135 of what was left, which for the second is 1 - 0.72962.
  Bench bench(test::Sample("iris"));
  bench.options.SetSeqValidate(EValidate::CV);
  bench.options.SetXOpt1(1);
  ASSERT_EQ(bench.Compute(2), 0);
  EXPECT_NEAR(D(bench.model.GetQ2AX(1)), 0.6162, 1e-4);
  EXPECT_NEAR(D(bench.model.GetQ2AX(2)), 0.5135 * 0.27038, 1e-4);
  EXPECT_NEAR(D(bench.model.GetQ2X(2)), 0.6162 + 0.5135 * 0.27038, 1e-4);
}

TEST(Model, TellsTheCriticalDistances) {
  // v2 = 150 - 1 - 2 = 147 and v1 = min(4, 100, 147) - 2 = 2, times 147/150 for members. For two
  // degrees of freedom F is 147/2 (0.05^(-2/147) - 1) = 3.0576.
  Bench bench(test::Sample("iris"));
  ASSERT_EQ(bench.Compute(2), 0);
  bench.options.SetIsNormDistLS(true);
  bench.window.log.clear();
  ASSERT_EQ(bench.model.ExecLS(char{0}), 0);
  EXPECT_EQ(bench.window.log, "Executing WS: Model UnNamed\nDCritWS = 1.755 DCritTS = 1.749\n");
  EXPECT_NEAR(D(bench.model.GetDCritTrSLS()),
              std::sqrt(147.0 / 2 * (std::pow(0.05, -2.0 / 147) - 1)), 1e-4);
  bench.options.SetIsNormDistLS(false);
  ASSERT_EQ(bench.model.ExecLS(char{2}), 0);
  EXPECT_NEAR(D(bench.model.GetDCritTrSLS()), 1.74860 * std::sqrt(D(bench.model.GetS2X(2))), 1e-4);
}

TEST(Model, RefusesASmallComponentByRule4) {
  // Nearly of rank one: what is left is about 1e-4 of all and of each variable.
  Noise noise;
  Rows rows = noise.Table(12, 6);
  for (auto& row : rows) {
    const float t = 10 * row[0];
    for (float& x : row) x = t + 0.1f * x;
  }
  for (const bool is_rule : {false, true}) {
    Bench bench(test::Letters(6), rows);
    bench.options.SetIsRule(is_rule);
    bench.options.SetNCV(5);
    EXPECT_EQ(bench.Compute(2), is_rule ? 8029 : 0);
    EXPECT_EQ(bench.model.GetA(), is_rule ? 1 : 2);
    EXPECT_TRUE(bench.window.log.ends_with("Not significant component acc. to rule 4.\n"));
    EXPECT_EQ(bench.model.GetVerdict(2), is_rule ? EVerdict::kNone : EVerdict::kRule4);
  }
}

TEST(Model, RefusesSettingsThatThereAreNot) {
  const struct {
    bool is_rule, is_seq;
    short asked;
    EValidate rule, seq;
    short groups;
    int status;
  } cases[] = {
      {true, false, 0, EValidate::NoCV, EValidate::CV, 7, 8013},
      {true, false, 0, EValidate::CV, EValidate::NoCV, 1, 8013},
      {true, false, 0, EValidate::Auto, EValidate::NoCV, 0, 8013},
      {true, false, 0, EValidate::Eig, EValidate::Auto, 0, 8012},
      {false, true, 0, EValidate::CV, EValidate::Auto, 7, 8013},
      {false, false, 1, EValidate::CV, EValidate::Eig, 7, 8013},
      {false, false, 1, EValidate::CV, EValidate::CV, -3, 8013},
      {false, false, 1, EValidate::CV, EValidate::NoCV, 0, 0},
      {false, true, 2, EValidate::NoCV, EValidate::CV, 7, 8012},
      {false, false, 0, EValidate::NoCV, EValidate::Eig, 0, 0},  // nothing is asked for
  };
  for (const auto& c : cases) {
    Bench bench(test::Sample("iris"));
    bench.options.SetIsRule(c.is_rule);
    bench.options.SetIsSeq(c.is_seq);
    bench.options.SetNComp(c.asked);
    bench.options.SetRuleValidate(c.rule);
    bench.options.SetSeqValidate(c.seq);
    bench.options.SetNCV(c.groups);
    EXPECT_EQ(bench.model.Compute(), c.status) << &c - cases;
    EXPECT_EQ(bench.model.GetStatus(), c.status);
    EXPECT_EQ(bench.model.GetA(), c.status == 8013 ? 0 : 1);
  }
}

TEST(Model, AdjustsTheNumberOfGroups) {
  Bench many("ab", Noise().Table(6, 2));
  many.options.SetNCV(100);
  many.options.SetSeqValidate(EValidate::CV);
  EXPECT_EQ(many.Compute(), 0);
  EXPECT_TRUE(many.window.log.starts_with(
      "NCV is reduced to NObs*NVar: 12\n"
      "NCV is incremented to 13 to make all var.s participate in each CV round.\n"
      "Q2[1]= "))
      << many.window.log;
  EXPECT_EQ(many.options.GetNCV(), 13);

  test::PLSBench pls(Noise().Table(6, 2), 1);
  pls.options.SetNCV(100);
  EXPECT_EQ(pls.model.LoadWS(), 0);
  EXPECT_EQ(pls.window.log, "NCV is reduced to NObs: 6\n");
  pls.options.SetSeqValidate(EValidate::CV);
  pls.options.SetNCV(7);
  EXPECT_EQ(pls.Compute(), 0);
  EXPECT_TRUE(
      pls.window.log.starts_with("NCV is reduced to NObs: 6\nNCV is reduced to NObs: 6\nQ2[1]= "))
      << pls.window.log;
  EXPECT_EQ(pls.options.GetNCV(), 6);
}

TEST(Model, RefusesWhatItCannotBeMadeOf) {
  const Rows rows = Noise().Table(4, 2);
  Rows missing = rows;
  missing[2][1] = kM;
  Rows constant = rows;
  for (auto& row : constant) row[1] = 7;
  Rows empty = rows;
  for (auto& row : empty) row[0] = kM;
  // b is there only where a is at its average; c in every second observation, which one of two
  // rounds leaves out.
  const Rows unreached = {{-1, kM}, {1, kM}, {-1, kM}, {1, kM}, {0, 1}, {0, 2}, {0, 3}, {0, 5}};
  Rows sparse = Noise().Table(8, 3);
  for (std::size_t i = 1; i < 8; i += 2) sparse[i][2] = kM;
  const struct {
    Rows rows;
    int status;
    std::string log;
  } cases[] = {
      {Rows(rows.begin(), rows.begin() + 3), 8020, ""},
      {unreached, 8042, ""},
      {sparse, 8043, ""},
      {rows, 0, " R2X(cum)[1] = "},
      {missing, 8039,
       "X variable 200, b has less than 4 non-missing values.\n"
       "Can not compute model.\n"
       "X matrix has missing value problem. Can not compute model.\n"
       "See log for further information.\n"},
      {empty, 8039,
       "X variable 100, a has less than 4 non-missing values.\n"
       "Can not compute model.\n"
       "X variable 100, a has more than MaxMisVal% missing values (100.00%).\n"
       "X matrix has missing value problem. Can not compute model.\n"
       "See log for further information.\n"},
      {constant, 8038,
       "Variance for X-variable 200 b is (close to) zero.\n"
       "Undefined scaling weight for X-variable 200 b\n"},
  };
  for (const auto& c : cases) {
    Bench bench(test::Letters(static_cast<int>(c.rows[0].size())), c.rows);
    bench.options.SetNCV(2);
    bench.options.SetSeqValidate(c.status == 8043 ? EValidate::CV : EValidate::NoCV);
    EXPECT_EQ(bench.Compute(), c.status);
    EXPECT_EQ(bench.window.log.substr(0, c.log.size()), c.log);
    if (c.status == 0) continue;
    EXPECT_EQ(bench.window.log, c.log);
    // A failure stands.
    EXPECT_EQ(bench.model.Compute(), c.status);
    EXPECT_EQ(bench.model.ExecLS(char{0}), c.status);
    EXPECT_EQ(bench.window.log, c.log);
  }

  Bench orphan(test::Letters(2), rows);
  orphan.owner.workset = nullptr;
  EXPECT_EQ(orphan.Compute(), 8011);
  PCModel unowned(nullptr, EModType::kPC1, orphan.window, &orphan.options, 0);
  EXPECT_EQ(unowned.Compute(), 8022);
}

TEST(Model, GoesOnOverTheLimitsUnlessToldNotTo) {
  // 5 of 10 values of b are missing, and 2 of 3 of the first observation.
  Rows rows = Noise().Table(10, 3);
  for (std::size_t i = 0; i < 5; ++i) rows[2 * i][1] = kM;
  rows[0][2] = kM;
  const std::string log =
      "X variable 200, b has more than MaxMisVal% missing values ( 50.00%).\n"
      "Observation 10, o1 has more than MaxMisVal% missing X elements ( 66.67%).\n";
  for (const char reply : {'y', 'Y', 'x', 'n', 'N'}) {
    Bench bench("abc", rows);
    bench.options.SetMaxMisValVarLS(49);
    bench.options.SetMaxMisValObsLS(50);
    bench.owner.reply = reply;
    const bool is_refused = reply == 'n' || reply == 'N';
    testing::internal::CaptureStdout();
    EXPECT_EQ(bench.Compute(), is_refused ? 8039 : 0);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              is_refused ? "Model computation aborted.\nSee log for further information.\n" : "");
    EXPECT_TRUE(bench.window.log.starts_with(log)) << bench.window.log;
    const std::string first =
        "X variable 200, b has more than MaxMisVal% missing values ( 50.00%).\n"
        "Continue model computation?";
    const std::string second =
        "X observation 10, o1 has more than MaxMisVal% missing values ( 66.67%).\n"
        "Continue model computation?";
    EXPECT_EQ(bench.owner.questions, is_refused ? first : first + second);
  }
}

TEST(Model, ReportsCorrectionsThatAreCut) {
  Rows rows = Noise().Table(8, 4);
  rows[2][1] = kM;
  for (const bool is_reported : {false, true}) {
    Bench bench("abcd", rows);
    bench.options.SetCompLimLoa(1.0f);
    bench.options.SetCompLimScr(1.0f);
    bench.options.SetIsShoLoaLim(is_reported);
    bench.options.SetIsShoScrLim(is_reported);
    bench.options.SetMaxIter(0);
    EXPECT_EQ(bench.Compute(), 0);
    EXPECT_EQ(bench.model.GetNIter(1), 1);
    EXPECT_TRUE(bench.model.IsOverrun());
    const std::string& log = bench.window.log;
    const auto p = log.find("CompLimLoa overrun for p, VarIx 2, was 1.");
    const auto t = log.find("CompLimScr overrun for t, ObsIx 3, was 1.");
    EXPECT_EQ(p == 0 && t != std::string::npos, is_reported) << log;
  }
}

// Stops a fit at the first question, lets it go on afterwards, and expects what one that was never
// stopped has.
template <typename MakeBench>
void ExpectToBeStopped(MakeBench make) {
  auto whole = make();
  ASSERT_EQ(whole.Compute(2), 0);
  auto bench = make();
  bench.owner.stops_at = 1;
  EXPECT_EQ(bench.Compute(2), 8027);
  EXPECT_EQ(bench.model.GetA(), 0);
  ASSERT_EQ(bench.owner.seen.size(), 1u);
  EXPECT_EQ(bench.owner.seen[0].component, 1);
  EXPECT_EQ(bench.owner.seen[0].round, 0);
  EXPECT_EQ(bench.owner.seen[0].iterations, 0);
  bench.model.Reset(0);
  bench.owner.stops_at = 1000;
  ASSERT_EQ(bench.Compute(2), 0);
  EXPECT_EQ(bench.model.GetSSX(2), whole.model.GetSSX(2));
}

TEST(Model, EndsWhereItsOwnerDoesNotGoOn) {
  const Rows rows = Noise().Table(9, 6);
  ExpectToBeStopped([&] { return Bench("abcdef", rows); });
  ExpectToBeStopped([&] { return test::PLSBench(rows, 1); });
  ExpectToBeStopped([&] { return test::PLSBench(rows, 2); });
}

TEST(Model, RefusesALevelWithoutCriticalValue) {
  Bench bench(test::Sample("iris"));
  ASSERT_EQ(bench.Compute(), 0);
  bench.options.SetSignLevLS(1.0f);
  EXPECT_EQ(bench.model.ExecLS(char{0}), 8004);
  EXPECT_EQ(bench.model.Reset(1), 0);
  bench.options.SetSignLevLS(0.0f);
  EXPECT_EQ(bench.model.ExecLS(char{1}), 0);
  EXPECT_EQ(bench.model.GetDCritTrSLS(), kM);
  EXPECT_EQ(bench.model.ExecLS(char{2}), 8003);
}

// --- What is not there ---

using OfComponent = float (Model::*)(char) const;
using OfElement = float (Model::*)(char, short) const;

// Functions of stages, and of an element of a stage, by the first stage that has them.
struct Answers {
  char first;
  std::vector<OfComponent> of_all;
  std::vector<OfElement> of_elements;
};

const std::vector<Answers> kAnswersOfX = {
    {-1,
     {&Model::GetDFX, &Model::GetSSX, &Model::GetS2X},
     {&Model::GetSSVX, &Model::GetS2VX, &Model::GetSSOX, &Model::GetS2OX}},
    {0,
     {&Model::GetR2X, &Model::GetR2Xadj},
     {&Model::GetMPowX, &Model::GetR2VX, &Model::GetR2VXadj, &Model::GetDModXLS,
      &Model::GetPModXLS}},
    {1,
     {&Model::GetR2AX, &Model::GetR2AXadj, &Model::GetEig, &Model::GetS2T, &Model::GetS2WX,
      &Model::GetTMin, &Model::GetTMax},
     {&Model::GetR2VAX, &Model::GetR2VAXadj, &Model::GetP, &Model::GetT, &Model::GetOLevX,
      &Model::GetT2LS, &Model::GetTPredPS, &Model::GetT2PS}},
    {2, {}, {&Model::GetDModXPS, &Model::GetPModXPS}},  // of the components that were executed
};
const std::vector<Answers> kAnswersWithoutY = {
    {1, {&Model::GetQ2X, &Model::GetQ2AX}, {&Model::GetQ2VX, &Model::GetQ2VAX}}};
const std::vector<Answers> kAnswersOfY = {
    {-1,
     {&Model::GetDFY, &Model::GetSSY, &Model::GetS2Y},
     {&Model::GetSSVY, &Model::GetS2VY, &Model::GetSSOY, &Model::GetS2OY}},
    {0,
     {OfComponent{&Model::GetR2Y}, OfComponent{&Model::GetR2Yadj}},
     {&Model::GetR2VY, &Model::GetR2VYadj, &Model::GetDModYLS, &Model::GetPModYLS}},
    {1,
     {&Model::GetQ2Y, &Model::GetQ2AY, &Model::GetR2AY, &Model::GetR2AYadj},
     {&Model::GetQ2VY, &Model::GetQ2VAY, &Model::GetR2VAY, &Model::GetR2VAYadj, &Model::GetU,
      &Model::GetW, &Model::GetWStar, &Model::GetC, &Model::GetVIP, &Model::GetOLevY,
      &Model::GetB0}},
    {2, {}, {&Model::GetDModYPS, &Model::GetPModYPS}},
};

// The first alone is there.
constexpr short kPositions[] = {1, -1, 0, 7, 32767};

void ExpectAnswers(const Model& model, bool is_fitted, const std::vector<Answers>& groups) {
  for (const Answers& group : groups) {
    for (const int a : {-128, -2, -1, 0, 1, 2, 3, 127}) {
      const auto component = static_cast<char>(a);
      const bool is_there = is_fitted && a >= group.first && a <= 2;
      for (const OfComponent& get : group.of_all) {
        EXPECT_EQ((model.*get)(component) != kM, is_there) << a << " " << &get - &group.of_all[0];
      }
      for (const OfElement& get : group.of_elements) {
        SCOPED_TRACE(&get - &group.of_elements[0]);
        for (const short i : kPositions) {
          EXPECT_EQ((model.*get)(component, i) != kM, is_there && i == 1) << a << " " << i;
        }
      }
    }
  }
}

template <typename TBench>
void ExpectAnswers(TBench& bench, const std::vector<Answers>& further) {
  bench.options.SetSeqValidate(EValidate::CV);
  bench.options.SetNCV(4);
  Model& model = bench.model;
  EXPECT_EQ(model.GetNObs(), 0);
  for (const bool is_fitted : {false, true}) {
    if (is_fitted) {
      ASSERT_EQ(bench.Compute(2), 0);
      ASSERT_EQ(model.ExecLS(char{0}), 0);
      Predset predset("PS", *bench.dataset, bench.workset);
      bench.owner.predset = &predset;
      ASSERT_EQ(model.ExecPS(), 0);
    }
    ExpectAnswers(model, is_fitted, kAnswersOfX);
    ExpectAnswers(model, is_fitted, further);
    const bool has_y = is_fitted && model.HasY();
    for (const short i : kPositions) {
      EXPECT_EQ(model.GetWeigX(i) != kM, is_fitted && i == 1);
      for (const auto get :
           {&Model::GetWeigY, &Model::GetMaxIY, &Model::GetMinIY, &Model::GetRMSEE}) {
        EXPECT_EQ((model.*get)(i) != kM, has_y && i == 1) << i;
      }
      for (const short m : kPositions) {
        SCOPED_TRACE(std::to_string(i) + " " + std::to_string(m));
        const bool is_element = i == 1 && m == 1;
        EXPECT_EQ(model.GetXResPS(i, m) != kM, is_fitted && is_element);
        for (const auto get :
             {&Model::GetYObsLS, &Model::GetYPredLS, &Model::GetYPredErrLS, &Model::GetSEYPredLLS,
              &Model::GetSEYPredULS, &Model::GetYObsPS, &Model::GetYPredPS, &Model::GetYPredErrPS,
              &Model::GetSEYPredLPS, &Model::GetSEYPredUPS}) {
          EXPECT_EQ((model.*get)(i, m) != kM, has_y && is_element);
        }
        for (const int a : {-1, 0, 1, 3}) {
          const auto component = static_cast<char>(a);
          const bool is_stage = is_fitted && a >= 0 && a <= 2;
          EXPECT_EQ(model.GetXResLS(component, i, m) != kM, is_stage && is_element) << a;
          for (const auto get : {&Model::GetCoeff, &Model::GetCoeffCS}) {
            EXPECT_EQ((model.*get)(component, i, m) != kM, has_y && a == 1 && is_element) << a;
          }
        }
      }
    }
  }
  for (const float value : {model.GetAvgX(1, 1), model.GetAvgX(-2, 1), model.GetAvgY(1, 1),
                            model.GetQ2Limit(0), model.GetTCritAxisLen(3, 0.05f)}) {
    EXPECT_EQ(value, kM);
  }
  EXPECT_EQ(model.GetNIter(3), 0);
  EXPECT_STREQ(model.GetSignRule(3), "");
}

TEST(Model, AnswersWithTheMissingValueForWhatIsNotThere) {
  const Rows rows = Noise().Table(6, 5);
  Bench pc("abcde", rows);
  ExpectAnswers(pc, kAnswersWithoutY);
  ExpectAnswers(pc.model, false, {{-1, {}, {&Model::GetC, &Model::GetU, &Model::GetSSVY}}});
  EXPECT_EQ(pc.model.GetR2Y(1), 0.0f);
  EXPECT_EQ(pc.model.GetNVarY(), 0);
  test::PLSBench pls(rows, 2);
  ExpectAnswers(pls, kAnswersOfY);
}

}  // namespace
}  // namespace zemva
