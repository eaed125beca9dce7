// Every allocation of an operation is made to fail, the first, then the second, and so on.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <type_traits>

#include "data/plain_table.h"
#include "support/failing_allocator.h"
#include "zemva/data/blk_info.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {
namespace {

using test::Content;
using test::MakeDataset;
using test::SmallTable;

constexpr int kMostAllocations = 1000;

TEST(OutOfMemory, AFailedEditLeavesTheDataSetAsItWas) {
  StreamWindow window;
  test::PlainTable table = SmallTable(3, 3);
  table.observations[1].name = table.observations[0].name;
  const auto other = MakeDataset(table, window);
  const XI1Vector selection("a name that is too long to be kept within it", 3, char{0});
  const I2Vector listed(1, 2);
  const struct {
    const char* what;
    std::function<int(Dataset&)> edit;
  } cases[] = {
      {"AddObs", [](Dataset& d) { return d.AddObs(9, "o") == 4 ? 0 : d.GetStatus(); }},
      {"AddVar", [](Dataset& d) { return d.AddVar("v") == 4 ? 0 : d.GetStatus(); }},
      {"DelObs", [](Dataset& d) { return d.DelObs(2); }},
      {"DelVar", [](Dataset& d) { return d.DelVar(2); }},
      {"DelVars", [&](Dataset& d) { return d.DelVars(&listed); }},
      {"exclude", [&](Dataset& d) { return d.DeleteExcludedObservations(&selection); }},
      {"MergeObs", [&](Dataset& d) { return d.MergeObs(other.get(), false); }},
      {"renumber", [&](Dataset& d) { return d.MergeObs(other.get(), true); }},
      {"MergeVar", [&](Dataset& d) { return d.MergeVar(other.get(), false); }},
      {"rename", [&](Dataset& d) { return d.MergeVar(other.get(), true); }},
      {"Transpose", [](Dataset& d) { return d.Transpose(false); }},
  };
  for (const auto& c : cases) {
    for (int count = 0; count < kMostAllocations; ++count) {
      const auto dataset = MakeDataset(table, window);
      const int status = test::WithAllocations(count, [&] { return c.edit(*dataset); });
      if (status == 0 || status == 8055) break;
      EXPECT_TRUE(status == 8002 || status == 5001) << c.what << ": " << status;
      EXPECT_EQ(Content(*dataset), table) << c.what << ", " << count;
    }
  }
}

// Runs `make`, which gives null or an object with status 8002 when memory runs out, with ever more
// memory until it succeeds. How often it failed.
template <typename Make>
int FailEachAllocation(Make make) {
  for (int count = 0; count < kMostAllocations; ++count) {
    auto* const made = test::WithAllocations(count, make);
    const std::unique_ptr<std::remove_pointer_t<decltype(made)>> object(made);
    if (object && object->GetStatus() == 0) return count;
    EXPECT_EQ(object ? object->GetStatus() : 8002, 8002) << count;
  }
  return kMostAllocations;
}

TEST(OutOfMemory, ACopyAndAnExtractFailWhole) {
  StreamWindow window;
  const auto dataset = MakeDataset(SmallTable(2, 2), window);
  const ObsInfo& observations = *dataset->GetOIPtr();
  const XI1Vector all("all", 2, char{1});
  BlkInfo blocks("Blocks", 2);
  blocks.SetBStat(1, 1);
  blocks.SetBStat(2, 1);
  blocks.AddItm(1, "b", BlkInfo::kSquareRoot, 2, 1.0f);
  const auto copy_dataset = [&] { return new (std::nothrow) Dataset(*dataset); };
  const auto copy_table = [&] { return new (std::nothrow) ObsInfo(observations); };
  for (const int failures : {
           FailEachAllocation(copy_dataset),
           FailEachAllocation(copy_table),
           FailEachAllocation([&] { return observations.ExtObsInfo(&all); }),
           FailEachAllocation([&] { return blocks.ExtBlkInfo(&all, 1); }),
       }) {
    EXPECT_GT(failures, 2);
    EXPECT_LT(failures, kMostAllocations);
  }
}

}  // namespace
}  // namespace zemva
