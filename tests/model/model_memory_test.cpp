// Memory that runs out in a model: at its first allocation, then at its second, and so on.
#include <gtest/gtest.h>

#include "model/model_fixture.h"
#include "support/failing_allocator.h"

namespace zemva {
namespace {

// A model fails with 8002, and after Reset it computes as if nothing had been.
template <typename MakeBench>
void ExpectToSurviveEachAllocation(MakeBench make) {
  const auto fit = [](auto& bench) {
    const int status = bench.Compute(2);
    return status == status::kOk ? bench.model.ExecLS(char{0}) : status;
  };
  auto whole = make();
  ASSERT_EQ(fit(whole), status::kOk);
  for (int count = 0;; ++count) {
    auto bench = make();
    const int status = test::WithAllocations(count, [&] { return fit(bench); });
    if (status == status::kOk) {
      EXPECT_GT(count, 50) << "allocations were made to fail";
      return;
    }
    ASSERT_EQ(status, status::mva::kMemory) << count;
    bench.model.Reset(0);
    ASSERT_EQ(fit(bench), status::kOk) << count;
    ASSERT_EQ(bench.model.GetR2X(2), whole.model.GetR2X(2)) << count;
  }
}

TEST(OutOfMemory, AModelFailsWithItsStatusAndStartsAnew) {
  const test::Rows rows = test::Noise().Table(7, 4);
  ExpectToSurviveEachAllocation([&] { return test::Bench("abcd", rows); });
  ExpectToSurviveEachAllocation([&] { return test::PLSBench(rows, 1); });
}

}  // namespace
}  // namespace zemva
