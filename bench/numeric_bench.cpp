// The one-pass members of matrices, against reading the same memory.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>
#include <random>

#include "zemva/numeric/x_matrix.h"

namespace zemva {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double kMissingShare = 0.01;

// A matrix of about 200 MB, more than the caches hold, and vectors that go with it.
struct Data {
  explicit Data(int columns)
      : matrix("X", 50'000'000 / columns, columns, 0.0f),
        of_columns("p", columns, 1e-3f),
        of_rows("t", matrix.NRow(), 1e-3f),
        ones("ones", columns, 1.0f) {
    std::minstd_rand random(1);
    for (int i = 1; i <= matrix.NRow(); ++i) {
      for (float& cell : matrix.Row(i)) {
        const double share = static_cast<double>(random()) / std::minstd_rand::max();
        cell = share < kMissingShare ? kMissing : static_cast<float>(share);
      }
    }
    matrix.SetActValInfo();
  }

  double Bytes() const { return 4.0 * matrix.NRow() * matrix.NCol(); }

  XFMatrix matrix;
  XFVector of_columns;
  XFVector of_rows;
  XFVector ones;
};

// Reads all rows and does next to nothing with them.
void ReadAll(const XFMatrix& matrix) {
  constexpr std::size_t kWords = 32;
  std::uint64_t sums[kWords] = {};
  for (int i = 1; i <= matrix.NRow(); ++i) {
    const auto row = std::as_bytes(matrix.Row(i));
    for (std::size_t at = 0; at + sizeof sums <= row.size(); at += sizeof sums) {
      std::uint64_t words[kWords];
      std::memcpy(words, &row[at], sizeof words);
      for (std::size_t k = 0; k < kWords; ++k) sums[k] += words[k];
    }
  }
  benchmark::DoNotOptimize(sums);
}

template <typename Operation>
double Seconds(Operation operation) {
  const auto start = Clock::now();
  operation();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Times `member` and a plain read by turns. `passes` is how often the member goes over the matrix,
// reading and writing counted alike. The ratio compares the fastest of each.
void Run(benchmark::State& state, double passes, const std::function<void(Data&)>& member) {
  static std::unique_ptr<Data> data;
  const int columns = static_cast<int>(state.range(0));
  if (!data || data->matrix.NCol() != columns) {
    data.reset();
    data = std::make_unique<Data>(columns);
  }
  double fastest = std::numeric_limits<double>::infinity();
  double fastest_read = fastest;
  for ([[maybe_unused]] auto iteration : state) {
    fastest_read = std::min(fastest_read, Seconds([&] { ReadAll(data->matrix); }));
    const double seconds = Seconds([&] { member(*data); });
    fastest = std::min(fastest, seconds);
    state.SetIterationTime(seconds);
  }
  const double bytes = passes * data->Bytes();
  state.counters["GB/s"] = bytes / fastest / 1e9;
  state.counters["read_GB/s"] = data->Bytes() / fastest_read / 1e9;
  state.counters["ratio"] = passes * fastest_read / fastest;
}

void Discard(XFVector* result) {
  delete result;
}

const struct {
  const char* name;
  double passes;
  void (*run)(Data&);
} kMembers[] = {
    {"Avg", 1, [](Data& d) { Discard(d.matrix.Avg("r")); }},
    {"SSCol", 1, [](Data& d) { Discard(d.matrix.SSCol("r")); }},
    {"SSRow", 1, [](Data& d) { Discard(d.matrix.SSRow("r")); }},
    {"S2Col", 1, [](Data& d) { Discard(d.matrix.S2Col("r", kMissing, 1, 1)); }},
    {"S2Row", 1, [](Data& d) { Discard(d.matrix.S2Row("r", kMissing, 1, 1)); }},
    {"MinCol", 1, [](Data& d) { Discard(d.matrix.MinCol("r")); }},
    {"MaxCol", 1, [](Data& d) { Discard(d.matrix.MaxCol("r")); }},
    {"Autoweig", 1, [](Data& d) { Discard(d.matrix.Autoweig("r", &d.of_columns)); }},
    {"SetActValInfo", 1, [](Data& d) { d.matrix.SetActValInfo(); }},
    {"Addcomp", 2, [](Data& d) { d.matrix.Addcomp(&d.of_rows, &d.of_columns); }},
    {"Subcomp", 2, [](Data& d) { d.matrix.Subcomp(&d.of_rows, &d.of_columns); }},
    {"MSubVp", 2, [](Data& d) { d.matrix.MSubVp(&d.of_columns); }},
    {"MDotMulVp", 2, [](Data& d) { d.matrix.MDotMulVp(&d.ones); }},
    {"Autoscale", 3, [](Data& d) { Discard(d.matrix.Autoscale(&d.of_columns)); }},
};

// A product of square matrices: operations a second.
void Product(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const FMatrix left(n, n, 0.5f);
  const FMatrix right(n, n, 0.25f);
  for ([[maybe_unused]] auto iteration : state) benchmark::DoNotOptimize(left * right);
  state.counters["flops"] =
      benchmark::Counter(2.0 * n * n * n, benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(Product)->Arg(500)->Unit(benchmark::kMillisecond);

// By width, so that a matrix is made once for all members.
const bool kIsRegistered = [] {
  for (const int columns : {1600, 16000}) {
    for (const auto& member : kMembers) {
      benchmark::RegisterBenchmark(member.name, Run, member.passes, member.run)
          ->Arg(columns)
          ->Iterations(7)
          ->UseManualTime()
          ->Unit(benchmark::kMillisecond);
    }
  }
  return true;
}();

}  // namespace
}  // namespace zemva
