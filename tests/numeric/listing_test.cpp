#include "zemva/numeric/vector_listing.h"

#include <gtest/gtest.h>

#include "numeric/matrices.h"
#include "support/recording_window.h"
#include "zemva/numeric/d_matrix.h"

namespace zemva {
namespace {

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
  const XI1Vector bytes("b", 2, char{-7});
  EXPECT_EQ(Shown(&bytes), "b is: NValA= 2\nI1Vector has 2 int8 values:\n        -7        -7\n");
  const DMatrix matrix(1, 1, 0.25);
  EXPECT_EQ(Shown(&matrix), "DMatrix has 1 rows and 1 columns of double:\n      0.250\n");
  XSVector texts("s", 2, 10);
  texts.SetElement(1, "ABCDEFGHIJ");
  EXPECT_EQ(Shown(&texts),
            "s is:\nSVector has 2 strings of length 10 here truncated to 9.\n"
            " ABCDEFGHI          \n");
}

TEST(Listings, SayWhatIsNull) {
  EXPECT_EQ(Shown<FVector>(nullptr), "FVector is NULL\n");
  EXPECT_EQ(Shown<XSVector>(nullptr), "XSVector is NULL\n");
  EXPECT_EQ(Shown<XFMatrix>(nullptr, true), "XFMatrix is NULL.\n");
}

}  // namespace
}  // namespace zemva
