// Every allocation of an operation is made to fail, the first, then the second, and so on.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "numeric/matrices.h"
#include "support/failing_allocator.h"
#include "zemva/numeric/d_matrix.h"
#include "zemva/numeric/uni_var.h"

namespace zemva {
namespace {

const char* const kLongName = "a name that is too long to be kept within the object";

// Runs `operation`, which returns a status, with ever more memory until it succeeds; calls
// `check_failure` after each run that fails. The number of runs that failed.
int FailEachAllocation(
    const std::function<int()>& operation, const std::function<void()>& check_failure = [] {}) {
  for (int count = 0;; ++count) {
    const int result = test::WithAllocations(count, operation);
    if (result == 0) return count;
    EXPECT_EQ(result, 5001) << "with " << count << " allocations";
    check_failure();
    if (result != 5001) return count;
  }
}

// The same for constructing an object: what fails has no elements.
template <typename Object, typename... Arguments>
int FailConstruction(Arguments... arguments) {
  return FailEachAllocation([&] {
    const Object object(arguments...);
    if (object.GetStatus() != 0) {
      if constexpr (requires { object.NRow(); }) {
        EXPECT_EQ(object.NRow(), 0);
      } else {
        EXPECT_EQ(object.NVal(), 0);
      }
    }
    return object.GetStatus();
  });
}

// At least so many allocations: under a sanitizer each row of a matrix has its own.
TEST(OutOfMemory, AConstructorLeavesAnEmptyObject) {
  EXPECT_GE((FailConstruction<I1Vector>(3, char{1})), 1);
  EXPECT_GE((FailConstruction<DVector>(3, 1.0)), 1);
  EXPECT_GE((FailConstruction<FMatrix>(3, 2, 0.0f, true)), 2);
  EXPECT_GE((FailConstruction<SVector>(3, 2)), 2);
  EXPECT_GE((FailConstruction<XFVector>(kLongName, 3, 0.0f)), 2);
  EXPECT_GE((FailConstruction<XSVector>(kLongName, 3, 2)), 3);
  EXPECT_GE((FailConstruction<XFMatrix>(kLongName, 3, 2, 0.0f)), 5);
  EXPECT_GE((FailConstruction<XFMatrix>(kLongName, 3, 2, Unfilled{})), 5);
  const XFMatrix matrix(kLongName, 3, 2, 0.0f);
  EXPECT_GE((FailConstruction<XFMatrix>(&matrix)), 5);
  EXPECT_GE((FailConstruction<DMatrix>(static_cast<const FMatrix*>(&matrix))), 2);
}

TEST(OutOfMemory, AFailedChangeLeavesTheObjectAsItWas) {
  XFVector vector = test::VectorOf({1, 2});
  FailEachAllocation([&] { return vector.Exp(1, 3); }, [&] { EXPECT_EQ(vector.NVal(), 2); });
  XSVector texts(kLongName, 2, 3);
  FailEachAllocation([&] { return texts.Exp(2, "x"); }, [&] { EXPECT_EQ(texts.NVal(), 2); });

  XFMatrix matrix = test::MatrixOf(2, {1, kMissing, 3, 4});
  const std::vector<float> before = test::CellsOf(matrix);
  const auto is_unchanged = [&] {
    EXPECT_EQ(test::CellsOf(matrix), before);
    EXPECT_EQ(matrix.NValA(), 3);
    EXPECT_STREQ(matrix.GetName(), "M");
  };
  const XFMatrix other(kLongName, 4, 3, 1.0f);
  XI1Vector keep("keep", 2, char{1});
  keep[2] = 0;
  const auto assign = [&] {
    matrix.ClearStatus();
    matrix = other;
    return matrix.GetStatus();
  };
  const std::function<int()> changes[] = {
      [&] { return matrix.ExpRows(1, 0); },
      [&] { return matrix.ExpCols(1, 0); },
      [&] { return matrix.DelRows(&keep); },
      [&] { return matrix.DelCols(&keep); },
      [&] { return matrix.Transp(); },
      [&] { return matrix.MInv(); },
      assign,
  };
  for (const auto& change : changes) {
    FailEachAllocation(change, is_unchanged);
    matrix = test::MatrixOf(2, {1, kMissing, 3, 4});
  }
}

TEST(OutOfMemory, AResultThatIsHandedOverIsNull) {
  XFMatrix matrix = test::RandomMatrix(4, 3, 0.0);
  const XFVector centre("centre", 3, 0.0f);
  const I2Vector positions(2, 1);
  const auto status_of = [&](auto* result) {
    EXPECT_EQ(result == nullptr, matrix.GetStatus() != 0);
    delete result;
    const int status = matrix.GetStatus();
    matrix.ClearStatus();
    return status;
  };
  FailEachAllocation([&] { return status_of(matrix.Avg(kLongName)); });
  FailEachAllocation([&] { return status_of(matrix.S2Col(kLongName, 0, 0, 1)); });
  FailEachAllocation([&] { return status_of(matrix.ExtRow(kLongName, 1)); });
  FailEachAllocation([&] { return status_of(matrix.ExtCols(&positions)); });
  FailEachAllocation([&] { return status_of(matrix.MaxCol()); });
  FailEachAllocation([&] { return status_of(matrix.Autoscale(&centre)); });
  FMatrix* u = nullptr;
  FMatrix* w = nullptr;
  FMatrix* v = nullptr;
  FailEachAllocation([&] { return matrix.SVD(u, w, v); }, [&] { EXPECT_EQ(u, nullptr); });
  delete u;
  delete w;
  delete v;
}

}  // namespace
}  // namespace zemva
