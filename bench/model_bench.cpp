// Fitting five components, against plain loops and against reading the table.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstring>
#include <limits>

#include "nipals_problem.h"

namespace zemva {
namespace {

constexpr double kMissingShare = 0.05;
constexpr int kGroups = 7;

enum Gaps { kComplete, kWithMissing, kCrossValidated };

template <typename Operation>
double Seconds(Operation operation) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  operation();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Reads all rows and does next to nothing with them.
void ReadAll(const XFMatrix& table) {
  std::uint64_t sums[32] = {};
  for (int i = 1; i <= table.NRow(); ++i) {
    const auto row = std::as_bytes(table.Row(i));
    for (std::size_t at = 0; at + sizeof sums <= row.size(); at += sizeof sums) {
      std::uint64_t words[32];
      std::memcpy(words, &row[at], sizeof words);
      for (std::size_t k = 0; k < 32; ++k) sums[k] += words[k];
    }
  }
  benchmark::DoNotOptimize(sums);
}

// Loading a data set into a model takes of_reading of reading the table.
void LoadData(benchmark::State& state) {
  const XFMatrix table =
      NipalsTable(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), 0.0);
  TableModel model(table, 0);
  double load = std::numeric_limits<double>::infinity();
  double read = load;
  for ([[maybe_unused]] auto iteration : state) {
    read = std::min(read, Seconds([&] { ReadAll(table); }));
    const double seconds = model.LoadSeconds();
    load = std::min(load, seconds);
    state.SetIterationTime(seconds);
  }
  state.counters["of_reading"] = load / read;
}

// One iteration in plain loops: each row times the loadings, then each row into the next ones.
template <Gaps kGaps>
void PlainIteration(const XFMatrix& table, std::vector<float>& t, std::vector<float>& p) {
  const auto is_usable = [](float element) { return kGaps == kComplete || !IsMissing(element); };
  std::vector<double> sums(p.size()), squares(p.size());
  for (std::size_t i = 0; i < t.size(); ++i) {
    const std::span<const float> row = table.Row(static_cast<int>(i) + 1);
    double sum = 0, usable = 0;
    for (std::size_t k = 0; k < p.size(); ++k) {
      if (!is_usable(row[k])) continue;
      sum += static_cast<double>(p[k]) * static_cast<double>(row[k]);
      if (kGaps != kComplete) usable += static_cast<double>(p[k]) * static_cast<double>(p[k]);
    }
    t[i] = static_cast<float>(kGaps == kComplete ? sum : sum / usable);
  }
  for (std::size_t i = 0; i < t.size(); ++i) {
    const std::span<const float> row = table.Row(static_cast<int>(i) + 1);
    const auto score = static_cast<double>(t[i]);
    for (std::size_t k = 0; k < p.size(); ++k) {
      if (!is_usable(row[k])) continue;
      sums[k] += score * static_cast<double>(row[k]);
      if (kGaps != kComplete) squares[k] += score * score;
    }
  }
  for (std::size_t k = 0; k < p.size(); ++k) {
    p[k] = static_cast<float>(kGaps == kComplete ? sums[k] : sums[k] / squares[k]);
  }
}

// The times are the fastest of each, taken by turns. An iteration of ours takes of_plain of one in
// plain loops and of_reading of reading the table; the whole takes of_complete of a fit to the
// table without gaps. Iterations are those of the components, not of the rounds of a validation.
template <Gaps kGaps>
void FitComponents(benchmark::State& state) {
  const auto rows = static_cast<int>(state.range(0));
  const auto columns = static_cast<int>(state.range(1));
  const XFMatrix table = NipalsTable(rows, columns, kGaps == kWithMissing ? kMissingShare : 0.0);
  TableModel complete_model(NipalsTable(rows, columns, 0.0), 0);
  TableModel model(table, kGaps == kCrossValidated ? kGroups : 0);
  std::vector<float> t(static_cast<std::size_t>(rows), 1.0f);
  std::vector<float> p(static_cast<std::size_t>(columns), 1.0f);
  double fit = std::numeric_limits<double>::infinity();
  double complete = fit;
  double plain = fit;
  double read = fit;
  int iterations = 0;
  for ([[maybe_unused]] auto iteration : state) {
    read = std::min(read, Seconds([&] { ReadAll(table); }));
    plain = std::min(plain, Seconds([&] { PlainIteration<kGaps>(table, t, p); }));
    complete = std::min(complete, complete_model.Fit().seconds);
    const FittedComponents result = model.Fit();
    iterations = result.iterations;
    fit = std::min(fit, result.seconds);
    state.SetIterationTime(result.seconds);
  }
  state.counters["iterations"] = iterations;
  state.counters["of_complete"] = fit / complete;
  if (kGaps == kCrossValidated) return;
  const double one = fit / iterations;
  state.counters["ns/element"] = one / rows / columns * 1e9;
  state.counters["of_plain"] = one / plain;
  state.counters["of_reading"] = one / read;
}

// Five components of so many responses, columns behind the others; the counters are as above.
template <Gaps kGaps>
void FitResponses(benchmark::State& state) {
  const auto rows = static_cast<int>(state.range(0));
  const auto responses = static_cast<int>(state.range(2));
  const int columns = static_cast<int>(state.range(1)) + responses;
  const XFMatrix table = NipalsTable(rows, columns, kGaps == kWithMissing ? kMissingShare : 0.0);
  TableModel complete_model(NipalsTable(rows, columns, 0.0), 0, responses);
  TableModel model(table, kGaps == kCrossValidated ? kGroups : 0, responses);
  double fit = std::numeric_limits<double>::infinity();
  double complete = fit;
  double read = fit;
  for ([[maybe_unused]] auto iteration : state) {
    read = std::min(read, Seconds([&] { ReadAll(table); }));
    complete = std::min(complete, complete_model.Fit().seconds);
    const FittedComponents result = model.Fit();
    fit = std::min(fit, result.seconds);
    state.counters["iterations"] = result.iterations;
    state.SetIterationTime(result.seconds);
  }
  state.counters["of_complete"] = fit / complete;
  state.counters["component_of_reading"] = fit / kComponents / read;
}

void Sizes(benchmark::internal::Benchmark* bench) {
  bench->Args({1000, 500})->Args({5000, 1000})->Args({100, 20000});
  bench->Iterations(7)->UseManualTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK(LoadData)
    ->Args({1000, 500})
    ->Args({5000, 1000})
    ->Args({100, 20000})
    ->Iterations(50)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(FitComponents<kComplete>)->Apply(Sizes);
BENCHMARK(FitComponents<kWithMissing>)->Apply(Sizes);
BENCHMARK(FitComponents<kCrossValidated>)->Apply(Sizes);

void SizesWithResponses(benchmark::internal::Benchmark* bench) {
  for (const int responses : {1, 3}) {
    bench->Args({1000, 500, responses})->Args({5000, 1000, responses});
    bench->Args({100, 20000, responses});
  }
  bench->Iterations(7)->UseManualTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK(FitResponses<kComplete>)->Apply(SizesWithResponses);
BENCHMARK(FitResponses<kWithMissing>)->Apply(SizesWithResponses);
BENCHMARK(FitResponses<kCrossValidated>)->Apply(SizesWithResponses);

}  // namespace
}  // namespace zemva
