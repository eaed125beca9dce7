// Editing, merging and transposing as the data sets grow: the time per observation or variable at
// 30,000 against that at 3,000, both in one run.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <limits>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "zemva/data/dataset.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/workset/workset.h"

namespace zemva {
namespace {

constexpr int kSmall = 3000;
constexpr int kLarge = 30000;
constexpr int kFew = 4;
constexpr int kWidth = 100;

// Names and numbers from `first` on; the variables in random order if `shuffled`.
std::unique_ptr<Dataset> MakeDataset(int rows, int first_row, int columns, int first_column,
                                     bool shuffled) {
  static StreamWindow window;
  auto matrix = std::make_unique<XFMatrix>("Bench", rows, columns, 1.0f);
  auto observations = std::make_unique<ObsInfo>("ObsInfo");
  auto variables = std::make_unique<VarInfo>("VarInfo");
  std::string name;
  for (int i = first_row; i < first_row + rows; ++i) {
    name = "Observation_";
    observations->AddObs(static_cast<short>(i), (name += std::to_string(i)).c_str());
  }
  std::vector<int> order(static_cast<std::size_t>(columns));
  std::iota(order.begin(), order.end(), first_column);
  if (shuffled) std::shuffle(order.begin(), order.end(), std::mt19937(1));
  for (const int j : order) {
    name = "Variable_";
    variables->AddVar(static_cast<short>(j), (name += std::to_string(j)).c_str());
  }
  return std::make_unique<Dataset>("Bench", "", window, matrix.release(), observations.release(),
                                   variables.release());
}

// An operation and how it spends its time: seconds for n observations or variables.
template <typename Operation>
double Seconds(Dataset& dataset, Operation operation) {
  const auto start = std::chrono::steady_clock::now();
  const int status = operation(dataset);
  const auto end = std::chrono::steady_clock::now();
  return status == 0 ? std::chrono::duration<double>(end - start).count() : 1e9;
}

// n observations in two halves.
double MergeObservations(int n) {
  const auto dataset = MakeDataset(n / 2, 1, kFew, 1, false);
  const auto other = MakeDataset(n / 2, n / 2 + 1, kFew, 1, true);
  return Seconds(*dataset, [&](Dataset& d) { return d.MergeObs(other.get(), false); });
}

// n variables to be matched by name.
double MergeMatchingVariables(int n) {
  const auto dataset = MakeDataset(kFew, 1, n, 1, false);
  const auto other = MakeDataset(kFew, kFew + 1, n, 1, true);
  return Seconds(*dataset, [&](Dataset& d) { return d.MergeObs(other.get(), false); });
}

// n variables in two halves.
double MergeVariables(int n) {
  const auto dataset = MakeDataset(kFew, 1, n / 2, 1, false);
  const auto other = MakeDataset(kFew, 1, n / 2, n / 2 + 1, false);
  return Seconds(*dataset, [&](Dataset& d) { return d.MergeVar(other.get(), false); });
}

// Variables of n observations.
double MergeLongVariables(int n) {
  const auto dataset = MakeDataset(n, 1, kFew, 1, false);
  const auto other = MakeDataset(n, 1, kFew, kFew + 1, false);
  return Seconds(*dataset, [&](Dataset& d) { return d.MergeVar(other.get(), false); });
}

double Transpose(int n) {
  const auto dataset = MakeDataset(n, 1, kFew, 1, false);
  return Seconds(*dataset, [&](Dataset& d) { return d.Transpose(false); });
}

// n observations, one after the other.
double AddObservations(int n) {
  const auto dataset = MakeDataset(1, 1, kWidth, 1, false);
  return Seconds(*dataset, [&](Dataset& d) {
    for (int i = 2; i <= n; ++i) d.AddObs(static_cast<short>(i), "added");
    return d.GetStatus();
  });
}

double DeleteObservations(int n) {
  const auto dataset = MakeDataset(n, 1, kWidth, 1, false);
  return Seconds(*dataset, [&](Dataset& d) {
    for (int i = 1; i < n; ++i) d.DelObs(static_cast<short>(i));
    return d.GetStatus();
  });
}

double DeleteObservationsFromTheLast(int n) {
  const auto dataset = MakeDataset(n, 1, kWidth, 1, false);
  return Seconds(*dataset, [&](Dataset& d) {
    for (int i = n; i > 1; --i) d.DelObs(static_cast<short>(i));
    return d.GetStatus();
  });
}

// n observations in two halves, of which one comes in parts.
double MergeParts(int n) {
  constexpr int kPart = 10;
  const auto dataset = MakeDataset(n / 2, 1, kFew, 1, false);
  double seconds = 0.0;
  for (int first = n / 2 + 1; first <= n; first += kPart) {
    const auto part = MakeDataset(kPart, first, kFew, 1, false);
    seconds += Seconds(*dataset, [&](Dataset& d) { return d.MergeObs(part.get(), false); });
  }
  return seconds;
}

// n variables, of which one half are lagged and come one after the other.
double AddLaggedVariables(int n) {
  const auto dataset = MakeDataset(kFew, 1, n / 2, 1, false);
  StreamWindow window;
  Workset workset("Bench", *dataset, window);
  return Seconds(*dataset, [&](Dataset&) {
    for (int j = 1; j <= n / 2; ++j) workset.AddLagged(static_cast<short>(j), 1);
    return workset.GetStatus();
  });
}

// n variables of few observations, one after the other.
double AddVariables(int n) {
  const auto dataset = MakeDataset(kFew, 1, 1, 1, false);
  return Seconds(*dataset, [&](Dataset& d) {
    for (int j = 2; j <= n; ++j) d.AddVar("added");
    return d.GetStatus();
  });
}

// The fastest of each, taken by turns.
void Growth(benchmark::State& state, double (*seconds)(int)) {
  double small = std::numeric_limits<double>::infinity();
  double large = small;
  for (auto _ : state) {
    for (int i = 0; i < kLarge / kSmall; ++i) small = std::min(small, seconds(kSmall));
    large = std::min(large, seconds(kLarge));
  }
  state.counters["ns_per_item_3000"] = small / kSmall * 1e9;
  state.counters["ns_per_item_30000"] = large / kLarge * 1e9;
  state.counters["ratio"] = (large / kLarge) / (small / kSmall);
}
BENCHMARK_CAPTURE(Growth, add_observations, AddObservations)->Iterations(5);
BENCHMARK_CAPTURE(Growth, delete_observations, DeleteObservations)->Iterations(5);
BENCHMARK_CAPTURE(Growth, delete_from_the_last, DeleteObservationsFromTheLast)->Iterations(5);
BENCHMARK_CAPTURE(Growth, merge_parts, MergeParts)->Iterations(5);
BENCHMARK_CAPTURE(Growth, add_lagged_variables, AddLaggedVariables)->Iterations(5);
BENCHMARK_CAPTURE(Growth, add_variables, AddVariables)->Iterations(5);
BENCHMARK_CAPTURE(Growth, merge_observations, MergeObservations)->Iterations(20);
BENCHMARK_CAPTURE(Growth, merge_matching_variables, MergeMatchingVariables)->Iterations(20);
BENCHMARK_CAPTURE(Growth, merge_variables, MergeVariables)->Iterations(20);
BENCHMARK_CAPTURE(Growth, merge_long_variables, MergeLongVariables)->Iterations(20);
BENCHMARK_CAPTURE(Growth, transpose, Transpose)->Iterations(20);

}  // namespace
}  // namespace zemva
