#include "zemva/model/pls/pls_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "model/model_fixture.h"
#include "model/pls_reference.h"

namespace zemva {
namespace {

using test::Column;
using test::D;
using test::PLSBench;
using test::Rows;
using test::Sum;
using test::Table;

template <typename Term>
Column Values(int count, Term term) {
  Column values;
  for (int i = 1; i <= count; ++i) values.push_back(D(term(static_cast<short>(i))));
  return values;
}

// To a share of the largest of the expected values, with one sign for all.
void ExpectNear(const Column& values, Column expected, double sign, double share) {
  ASSERT_EQ(values.size(), expected.size());
  double largest = 0.0;
  for (double& value : expected) largest = std::max(largest, std::abs(value *= sign));
  for (std::size_t i = 0; i < values.size(); ++i) {
    ASSERT_NEAR(values[i], expected[i], share * largest) << i;
  }
}

// The lines of a file by the name that each begins with.
std::map<std::string, Table> ReadLines(const std::string& path) {
  std::ifstream file(path);
  std::map<std::string, Table> lines;
  for (std::string line; std::getline(file, line);) {
    std::istringstream cells(line);
    std::string name, cell;
    std::getline(cells, name, ',');
    Column& values = lines[name].emplace_back();
    while (std::getline(cells, cell, ',')) values.push_back(std::stod(cell));
  }
  return lines;
}

void ExpectFit(const PLSModel& model, std::map<std::string, Table>& expected, double share) {
  const short n = model.GetNObs();
  const short k = model.GetNVarX();
  const short m = model.GetNVarY();
  const auto count = static_cast<char>(expected["R2"].size());
  ASSERT_EQ(model.GetA(), count);
  for (char a = 1; a <= count; ++a) {
    SCOPED_TRACE(int{a});
    const auto of = [&](const char* name) {
      return expected[name][static_cast<std::size_t>(a - 1)];
    };
    ExpectNear({D(model.GetR2X(a)), D(model.GetR2Y(a))}, of("R2"), 1.0, share);
    const Column w = Values(k, [&](short j) { return model.GetW(a, j); });
    const double sign = std::copysign(1.0, test::Dot(w, of("w")));
    ExpectNear(w, of("w"), sign, share);
    ExpectNear(Values(k, [&](short j) { return model.GetP(a, j); }), of("p"), sign, share);
    ExpectNear(Values(m, [&](short j) { return model.GetC(a, j); }), of("c"), sign, share);
    ExpectNear(Values(n, [&](short i) { return model.GetT(a, i); }), of("t"), sign, share);
  }
  for (short j = 1; j <= m; ++j) {
    ExpectNear(Values(k, [&](short i) { return model.GetCoeffCS(count, i, j); }),
               expected["B"][static_cast<std::size_t>(j - 1)], 1.0, share);
  }
}

struct OfSample {
  std::string file, sample;
  std::vector<std::string> responses;  // none: the kinds of iris
};

std::unique_ptr<PLSBench> MakeBench(const OfSample& param) {
  const EModType type = param.responses.empty() ? EModType::kPLS1DA : EModType::kPLS12;
  auto bench = std::make_unique<PLSBench>(test::Sample(param.sample), param.responses, type);
  const XFMatrix& data = *bench->dataset->GetDMPtr();
  for (const short i : PositionsUpTo(data.NRow())) {
    if (data.NValARow(i) < data.NCol()) bench->workset.SetIsObsIn(i, false);
    if (param.responses.empty()) bench->workset.SetOClass(i, static_cast<char>((i + 49) / 50));
  }
  return bench;
}

class PLSModelOfSample : public testing::TestWithParam<OfSample> {};

// Of R's package pls, whose method oscorespls is this iteration.
TEST_P(PLSModelOfSample, IsThatOfAnotherPackage) {
  auto expected = ReadLines(ZEMVA_REFERENCES "/pls_" + GetParam().file + ".csv");
  const auto bench = MakeBench(GetParam());
  ASSERT_EQ(bench->Compute(static_cast<short>(expected["R2"].size())), 0);
  ExpectFit(bench->model, expected, 1e-4);
}

TEST_P(PLSModelOfSample, DividesTheDataAsItsFormulasSay) {
  const auto bench = MakeBench(GetParam());
  ASSERT_EQ(bench->Compute(2), 0);
  const PLSModel& model = bench->model;
  const short n = model.GetNObs();
  const short k = model.GetNVarX();
  const short m = model.GetNVarY();
  const double w12 = Sum(k, [&](short j) { return model.GetW(1, j) * model.GetW(2, j); });
  EXPECT_NEAR(w12, 0.0, 1e-5);
  const double t12 = Sum(n, [&](short i) { return model.GetT(1, i) * model.GetT(2, i); });
  EXPECT_NEAR(t12 / std::sqrt(D(model.GetS2T(1)) * D(model.GetS2T(2))) / n, 0.0, 1e-4);
  EXPECT_EQ(model.GetNIter(1) == 1, m == 1);

  const XFMatrix& x = *model.GetXPtr();
  for (short i = 1; i <= n; ++i) {
    for (short j = 1; j <= k; ++j) {
      // x = t p' + e, centred and scaled, and what leads there.
      const double value = (D(x[i][j]) - D(model.GetAvgX(-1, j))) * D(model.GetWeigX(j));
      const double made = D(model.GetXResLS(2, i, j)) + D(model.GetT(1, i)) * D(model.GetP(1, j)) +
                          D(model.GetT(2, i)) * D(model.GetP(2, j));
      ASSERT_NEAR(made, value, 1e-5 * (1 + std::abs(value)));
    }
    for (char a = 1; a <= 2; ++a) {
      // t = x W*, where x - average stands for what the weights make of it.
      const double score = Sum(k, [&](short j) { return model.GetGapCont(a, i, 0, j); });
      ASSERT_NEAR(score, D(model.GetT(a, i)), 2e-4);
    }
    for (short j = 1; j <= m; ++j) {
      // y = b0 + x b and = sum t c, restored.
      const double by_b =
          D(model.GetB0(2, j)) + Sum(k, [&](short l) { return model.GetCoeff(2, l, j) * x[i][l]; });
      const double scaled =
          D(model.GetT(1, i)) * D(model.GetC(1, j)) + D(model.GetT(2, i)) * D(model.GetC(2, j));
      const double s = 1.0 / D(model.GetWeigY(j));
      ASSERT_NEAR(D(model.GetYPredLS(i, j)), scaled * s + D(model.GetAvgY(-1, j)), 1e-4 * s);
      ASSERT_NEAR(by_b, D(model.GetYPredLS(i, j)), 1e-3 * s);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, PLSModelOfSample,
                         testing::Values(OfSample{"mtcars", "mtcars", {"mpg"}},
                                         OfSample{"mtcars_2", "mtcars", {"mpg", "qsec"}},
                                         OfSample{"airquality", "airquality", {"Temp"}},
                                         OfSample{"spectra_1", "spectra", {"y1"}},
                                         OfSample{"spectra_2", "spectra", {"y1", "y2"}},
                                         OfSample{"iris", "iris", {}}),
                         [](const auto& sample) { return sample.param.file; });

// The pentapeptides of S. Hellberg, M. Sjöström, S. Wold, Acta Chemica Scandinavica B 40 (1986)
// 135-140, with the descriptors z of their residues, as two manuals of statistics print the
// results.
Rows Pentapeptides() {
  const std::map<char, std::vector<float>> z = {
      {'V', {-2.6931f, -2.5271f, -1.2871f}}, {'E', {3.0777f, .3891f, -.0701f}},
      {'S', {1.9607f, -1.6324f, .5746f}},    {'A', {.0744f, -1.7333f, .0902f}},
      {'K', {2.8369f, 1.4092f, -3.1398f}},   {'W', {-4.7548f, 3.6521f, .8524f}},
      {'P', {-1.2201f, .8829f, 2.2253f}},    {'H', {2.4064f, 1.7438f, 1.1057f}},
      {'G', {2.2261f, -5.3648f, .3049f}},    {'L', {-4.1921f, -1.0285f, -.9801f}},
      {'F', {-4.9217f, 1.2977f, .4473f}}};
  const std::pair<const char*, float> observations[] = {
      {"VESSK", 0.0f},  {"VESAK", .28f}, {"VEASK", .20f},   {"VEAAK", .51f},  {"VKAAK", .11f},
      {"VEWAK", 2.73f}, {"VEAAP", .18f}, {"VEHAK", 1.53f},  {"VAAAK", -.10f}, {"GEAAK", -.52f},
      {"LEAAK", .40f},  {"FEAAK", .30f}, {"VEGGK", -1.00f}, {"VEFAK", 1.57f}, {"VELAK", .59f}};
  Rows rows;
  for (const auto& [residues, y] : observations) {
    rows.emplace_back();
    for (const char residue : std::string(residues)) {
      rows.back().insert(rows.back().end(), z.at(residue).begin(), z.at(residue).end());
    }
    rows.back().push_back(y);
  }
  return rows;
}

TEST(PLSModel, HasThePublishedFiguresOfThePentapeptides) {
  Rows rows = Pentapeptides();
  PLSBench second(rows, 1);
  ASSERT_EQ(second.Compute(4), 0);
  const double r2x[] = {.169014, .296735, .443289, .561710};
  const double r2y[] = {.896399, .974767, .979403, .981889};
  for (char a = 1; a <= 4; ++a) {
    EXPECT_NEAR(D(second.model.GetR2X(a)), r2x[a - 1], 1e-6);
    EXPECT_NEAR(D(second.model.GetR2Y(a)), r2y[a - 1], 1e-6);
  }

  rows[0][11] = .5740f;  // as the first manual has it
  PLSBench bench(rows, 1);
  ASSERT_EQ(bench.Compute(4), 0);
  const PLSModel& model = bench.model;
  const auto of_k = [&](float (Model::*get)(char, short) const, char a) {
    return Values(15, [&](short k) { return (model.*get)(a, k); });
  };
  const Column w = {-.15764, .08568,  -.16931, .12153,  .07113, .06519, -.42481, .65370,
                    .28504,  -.29341, .29829,  -.20313, .05691, .05691, -.05691};
  const double sign = std::copysign(1.0, test::Dot(w, of_k(&Model::GetW, 1)));
  ExpectNear(of_k(&Model::GetW, 1), w, sign, 3e-5);
  const double explained[] = {.89638060, .97476270, .97939839, .98188474};
  const double loadings[] = {3.5425, 1.0475, .2548, .1866};
  for (char a = 1; a <= 4; ++a) {
    EXPECT_NEAR(D(model.GetR2Y(a)), explained[a - 1], 1e-6);
    EXPECT_NEAR(std::abs(D(model.GetC(a, 1))) * std::sqrt(D(model.GetS2T(a)) * 15), loadings[a - 1],
                1e-4);
  }
  ExpectNear(Values(15, [&](short k) { return model.GetCoeffCS(2, k, 1); }),
             {-.1383, .0572, -.1906, .1238, .0591, .0936, -.2842, .4713, .2661, -.0914, .1226,
              -.0488, .0332, .0332, -.0332},
             1.0, 2e-4);
  const double influence[] = {.6111,  .3182,  .7513,  .5048, .2712, .3593, 1.5777, 2.4348,
                              1.1322, 1.2226, 1.1799, .8840, .2129, .2129, .2129};
  for (short k = 1; k <= 15; ++k) {
    EXPECT_NEAR(D(model.GetVIP(2, k)), influence[k - 1], 1.5e-4) << k;
  }
}

}  // namespace
}  // namespace zemva
