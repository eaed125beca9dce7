// Memory that runs out in a model: at its first allocation, then at its second, and so on.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "model/model_fixture.h"
#include "support/failing_allocator.h"
#include "support/model_answers.h"
#include "support/temp_folder.h"

namespace zemva {
namespace {

std::string AnswersOf(Model& model) {
  return test::WithoutDates(test::AnswersOf(model));
}

// Fits a model, executes it on both sets, saves it and reads it again. The status.
template <typename Bench>
int RunThrough(Bench& bench, Predset& predset, std::unique_ptr<Model>& read) {
  bench.owner.predset = &predset;
  int status = bench.Compute(2);
  if (status == status::kOk) status = bench.model.ExecLS(char{0});
  if (status == status::kOk) status = bench.model.ExecPS();
  if (status == status::kOk) status = bench.model.Save(1);
  if (status == status::kOk) {
    read.reset(Model::Read(bench.model.GetModAddr(), nullptr, bench.window, nullptr, status));
  }
  return status;
}

// It fails with 8002, or nothing of the model is lost; after Reset it computes as if nothing had
// been.
template <typename MakeBench>
void ExpectToSurviveEachAllocation(MakeBench make) {
  const test::TempFolder folder;
  const auto prepare = [&] {
    auto bench = make();
    bench->model.SetModAddr(folder.File("m.mdl").c_str());
    return bench;
  };
  auto whole = prepare();
  Predset predset("PS", *whole->dataset, whole->workset);
  std::unique_ptr<Model> read;
  ASSERT_EQ(RunThrough(*whole, predset, read), status::kOk);
  const std::string answers = AnswersOf(whole->model);
  const std::string answers_of_read = AnswersOf(*read);
  int failures = 0;
  for (int count = 0;; count += 1 + count / 40) {
    auto bench = prepare();
    Predset own_predset("PS", *bench->dataset, bench->workset);
    read.reset();
    const int status =
        test::WithOneFailure(count, [&] { return RunThrough(*bench, own_predset, read); });
    if (status == status::kOk) {
      ASSERT_EQ(AnswersOf(bench->model), answers) << count;
      ASSERT_EQ(AnswersOf(*read), answers_of_read) << count;
      if (!test::has_failed) break;
      continue;
    }
    ++failures;
    ASSERT_TRUE(status == status::mva::kMemory || status == status::dio::kMemory)
        << count << " " << status;
    bench->model.Reset(0);
    ASSERT_EQ(RunThrough(*bench, own_predset, read), status::kOk) << count;
    ASSERT_EQ(AnswersOf(bench->model), answers) << count;
  }
  EXPECT_GT(failures, 100) << "allocations were made to fail";
}

TEST(OutOfMemory, AModelFailsWithItsStatusAndStartsAnew) {
  const test::Rows rows = test::Noise().Table(7, 4);
  ExpectToSurviveEachAllocation([&] { return std::make_unique<test::Bench>("abcd", rows); });
  ExpectToSurviveEachAllocation([&] { return std::make_unique<test::PLSBench>(rows, 1); });
}

}  // namespace
}  // namespace zemva
