#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "numeric/matrices.h"
#include "support/recording_window.h"
#include "zemva/numeric/d_matrix.h"
#include "zemva/numeric/vector_listing.h"

namespace zemva {
namespace {

using test::ElementsOf;
using test::kNone;
using test::VectorOf;
using Floats = std::vector<float>;

TEST(FVector, StatisticsLeaveOutWhatIsMissing) {
  const XFVector vector = VectorOf({2, kMissing, -5, 3, kMissing, -5});
  EXPECT_EQ(vector.NValA(), 4);
  EXPECT_EQ(vector.Sum(), -5.0);
  EXPECT_EQ(vector.SS(), 63.0);
  EXPECT_EQ(vector.Avg(), -1.25f);
  EXPECT_EQ(vector.Min(), -5.0f);
  EXPECT_EQ(vector.Max(), 3.0f);
  EXPECT_EQ(vector.IxMin(), 3);
  EXPECT_EQ(vector.IxMax(), 4);
  EXPECT_EQ(vector.IxAbsMax(), 3);
  EXPECT_EQ(VectorOf({7}).Sum(), 7.0);
  EXPECT_EQ(VectorOf({7}).Avg(), 7.0f);
  EXPECT_EQ(VectorOf({16777216, 1, 1, 1}).Sum(), 16777216.0) << "in float";
  EXPECT_EQ(VectorOf({16777216, 1, 1, 1}).SS(), 281474976710659.0);
}

TEST(FVector, StatisticsOfNothingAreMissing) {
  for (const int length : {0, 1, 20}) {
    const FVector vector(length, kMissing, true);
    EXPECT_EQ(vector.Sum(), kNone);
    EXPECT_EQ(vector.Avg(), kMissing);
    EXPECT_EQ(vector.Min(), kMissing);
    EXPECT_EQ(vector.IxAbsMax(), 0);
    EXPECT_EQ(vector.S2(kMissing, 1, 1), kNone);
    EXPECT_EQ(vector.SD(0, 1, 1), kNone);
    const DVector doubles(length, kNone);
    EXPECT_EQ(doubles.Avg(), kNone);
    EXPECT_EQ(doubles.Max(), kNone);
    EXPECT_EQ(doubles.IxMin(), 0);
  }
}

TEST(FVector, VarianceByCentreAndDegreesOfFreedom) {
  const struct {
    float centre;
    int df_loss;
    float df_factor;
    double variance;
  } cases[] = {
      {kMissing, 1, 1, 5.0 / 3},    {0, 0, 1, 30.0 / 4},   {2, 0, 1, 6.0 / 4},
      {kMissing, 0, 0.5f, 5.0 / 2}, {kMissing, 4, 1, 5.0}, {0, 0, 0.125f, 30.0},
      {kMissing, 100, 1, 5.0},
  };
  const XFVector vector = VectorOf({1, 2, kMissing, 3, 4});
  for (const auto& c : cases) {
    EXPECT_DOUBLE_EQ(vector.S2(c.centre, c.df_loss, c.df_factor), c.variance);
    EXPECT_DOUBLE_EQ(vector.SD(c.centre, c.df_loss, c.df_factor), std::sqrt(c.variance));
  }
  EXPECT_EQ(VectorOf({0.1f, 0.1f, 0.1f, 0.1f, 0.1f, 0.1f, 0.1f}).SD(kMissing, 1, 1), 0.0);
}

TEST(FVector, FindsExtremaAmongManyAndInfinite) {
  XFVector vector("v", 10000, 1.0f);
  vector[5000] = vector[9000] = -3;
  vector[4097] = 2;
  EXPECT_EQ(vector.IxMin(), 5000);
  EXPECT_EQ(vector.IxMax(), 4097);
  EXPECT_EQ(vector.IxAbsMax(), 5000);
  const float infinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(VectorOf({kMissing, infinity, infinity}).IxMin(), 2);
  EXPECT_EQ(VectorOf({kMissing, std::nanf(""), -infinity}).IxMax(), 3);
}

TEST(DVector, StatisticsLeaveOutWhatIsMissing) {
  DVector vector(3, 0.5);
  vector[2] = kNone;
  vector[3] = -2.5;
  EXPECT_EQ(vector.NValA(), 2);
  EXPECT_EQ(vector.Avg(), -1.0);
  EXPECT_EQ(DVector(1, 7.0).Avg(), 7.0);
  EXPECT_EQ(&vector.Min(), &vector[3]);
  EXPECT_EQ(&vector.Max(), &vector[1]);
  EXPECT_EQ(vector.IxAbsMax(), 3);
}

TEST(FVector, ArithmeticKeepsWhatIsMissing) {
  XFVector vector = VectorOf({-0.25f, kMissing, 9, 0});
  EXPECT_EQ(vector.Sqrt(), 5002);
  EXPECT_EQ(ElementsOf(vector), (Floats{-0.25f, -99, 9, 0}));
  EXPECT_EQ(vector.Abs(), 0);
  EXPECT_EQ(vector.Sqrt(), 0);
  EXPECT_EQ(ElementsOf(vector), (Floats{0.5f, -99, 3, 0}));
  EXPECT_EQ(vector.VDivS(0), 5003);
  vector.VAddS(2);
  vector.VMulS(6);
  vector.VDivS(4);
  EXPECT_EQ(ElementsOf(vector), (Floats{3.75f, -99, 7.5f, 3}));
  vector.VMulS(kMissing);
  EXPECT_EQ(vector.Sum(), kNone);
}

TEST(XFVector, PairsOfVectors) {
  const XFVector other = VectorOf({10, 20, kMissing, 40});
  const XFVector longer("longer", 5, 1.0f);
  XFVector vector = VectorOf({1, kMissing, 3, 4});
  EXPECT_EQ(vector.VpMulV(&longer), kMissing);
  EXPECT_EQ(vector.VpMulV(nullptr), kMissing);
  EXPECT_EQ(vector.GetStatus(), 5007);
  EXPECT_EQ(vector.VpMulV(&other), 170.0f);
  EXPECT_EQ(ElementsOf(vector), (Floats{1, -99, -99, 4}));
  EXPECT_EQ(vector.NValA(), 2);
  EXPECT_EQ(vector.VDotAddV(&longer), 5004);
  EXPECT_EQ(vector.VDotAddV(&other), 0);
  EXPECT_EQ(vector.VDotSubV(&other), 0);
  EXPECT_EQ(vector.VDotMulV(&other), 0);
  EXPECT_EQ(ElementsOf(vector), (Floats{10, -99, -99, 160}));
  vector = VectorOf({1, 2, 3, 4});
  vector.VDotAddV(&other);
  EXPECT_EQ(vector.NValA(), 3);
}

template <typename Object, typename... Options>
std::string Shown(const Object* object, Options... options) {
  test::RecordingWindow window;
  Show(object, window, options...);
  return window.log;
}

TEST(Listings, CutIntoLinesOfSeven) {
  const I2Vector vector(20, 3);
  const std::string seven =
      "         3         3         3         3         3         3         3\n";
  EXPECT_EQ(Shown(&vector),
            "I2Vector has 20 int16 values:\n" + seven + seven + seven.substr(0, 60) + "\n");
  const XFMatrix matrix("M", 1, 8, 3.0f);
  const std::string head = "M is: NValA= 8\nMatrix has 1 rows and 8 columns of float:\n";
  EXPECT_EQ(Shown(&matrix, true), head + seven + seven.substr(0, 10) + "\n");
  EXPECT_EQ(Shown(&matrix, false), head + seven.substr(0, 70) + seven.substr(0, 10) + "\n");
}

TEST(Listings, ShowEachKindOfValue) {
  const XFVector floats = test::VectorOf({1.5f, kMissing, 1e10f});
  EXPECT_EQ(Shown(&floats),
            "v is: NValA= 2\nFVector has 3 float values: \n       1.5         .     1e+10\n");
  XDVector doubles("d", 2, -2.0005);
  doubles[2] = test::kNone;
  EXPECT_EQ(Shown(&doubles),
            "d is: NValA= 2\nDVector has 2 double values: \n     -2.001          .\n");
  const XI1Vector bytes("b", 8, char{-7});
  EXPECT_EQ(Shown(&bytes),
            "b is: NValA= 8\nI1Vector has 8 int8 values:\n        -7        -7"
            "        -7        -7        -7        -7        -7\n        -7\n");
  const DMatrix matrix(1, 1, 0.25);
  EXPECT_EQ(Shown(&matrix), "DMatrix has 1 rows and 1 columns of double:\n      0.250\n");
  XSVector texts("s", 8, 10);
  texts.SetElement(7, "ABCDEFGHIJ");
  EXPECT_EQ(Shown(&texts), "s is:\nSVector has 8 strings of length 10 here truncated to 9.\n" +
                               std::string(60, ' ') + " ABCDEFGHI\n          \n");
}

TEST(Listings, SayWhatIsNull) {
  EXPECT_EQ(Shown<FVector>(nullptr), "FVector is NULL\n");
  EXPECT_EQ(Shown<XSVector>(nullptr), "XSVector is NULL\n");
  EXPECT_EQ(Shown<XFMatrix>(nullptr, true), "XFMatrix is NULL.\n");
}

}  // namespace
}  // namespace zemva
