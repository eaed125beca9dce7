// Loading a file and filling a host's grid; saving and reading a model.
#include <benchmark/benchmark.h>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <string>

#include "nipals_problem.h"
#include "zemva/base/atomic_file.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/stream_window.h"
#include "zemva/plugin/ko_import.h"
#include "zemva/plugin/zemva_import.h"

namespace zemva {
namespace {

using Clock = std::chrono::steady_clock;

double Seconds(Clock::time_point from, Clock::time_point to) {
  return std::chrono::duration<double>(to - from).count();
}

// A data set file of that size, removed at the end.
class SampleFile {
 public:
  SampleFile(int rows, int columns)
      : path_((std::filesystem::temp_directory_path() / "zemva_io_bench.vdo").string()) {
    auto matrix = std::make_unique<XFMatrix>("Bench", rows, columns, 0.0f);
    auto observations = std::make_unique<ObsInfo>("ObsInfo");
    auto variables = std::make_unique<VarInfo>("VarInfo");
    for (int i = 1; i <= rows; ++i) {
      observations->AddObs(static_cast<short>(i), ("Observation_" + std::to_string(i)).c_str());
      for (int j = 1; j <= columns; ++j) {
        (*matrix)[i][j] = static_cast<float>((i * 31 + j * 17) % 1009) * 0.125f;
      }
    }
    for (int j = 1; j <= columns; ++j) {
      variables->AddVar(static_cast<short>(j), ("Variable_" + std::to_string(j)).c_str());
    }
    matrix->SetActValInfo();
    std::filesystem::remove(path_);
    Dataset dataset("Bench", path_.c_str(), window_, matrix.release(), observations.release(),
                    variables.release());
    is_made_ = dataset.Save() == 0;
  }
  ~SampleFile() { std::filesystem::remove(path_); }

  bool IsMade() const { return is_made_; }
  const char* Path() const { return path_.c_str(); }

 private:
  std::string path_;
  StreamWindow window_;
  bool is_made_ = false;
};

// Memory that was given back before would be no fresh memory, as a program that starts has it.
void GiveBackMemory() {
#if defined(__GLIBC__)
  malloc_trim(0);
#endif
}

// The file's bytes into memory that was just allocated, as fast as the system gives them.
double PlainReadSeconds(const char* path) {
  const auto size = static_cast<std::size_t>(std::filesystem::file_size(path));
  GiveBackMemory();
  const auto start = Clock::now();
  const std::unique_ptr<char[]> bytes(new char[size]);
  std::FILE* file = std::fopen(path, "rb");
  const std::size_t got = std::fread(bytes.get(), 1, size, file);
  std::fclose(file);
  benchmark::DoNotOptimize(bytes.get());
  return got == size ? Seconds(start, Clock::now()) : 0.0;
}

// The same for a load.
double LoadSeconds(const char* path) {
  GiveBackMemory();
  StreamWindow window;
  const auto start = Clock::now();
  Dataset dataset("Bench", path, window);
  return dataset.Load() == 0 ? Seconds(start, Clock::now()) : 0.0;
}

// Speed of a load of 200 MB as a share of a plain read's, both in one run.
void LoadAgainstPlainRead(benchmark::State& state) {
  const SampleFile file(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  if (!file.IsMade()) return state.SkipWithError("the file could not be made");
  PlainReadSeconds(file.Path());  // into the page cache
  // The fastest of each: what else the machine does only ever adds to a time.
  double read = std::numeric_limits<double>::infinity();
  double load = read;
  for (auto _ : state) {
    read = std::min(read, PlainReadSeconds(file.Path()));
    load = std::min(load, LoadSeconds(file.Path()));
  }
  const double megabytes = static_cast<double>(std::filesystem::file_size(file.Path())) / 1e6;
  state.counters["read_MB/s"] = megabytes / read;
  state.counters["load_MB/s"] = megabytes / load;
  state.counters["ratio"] = read / load;
}
BENCHMARK(LoadAgainstPlainRead)
    ->Args({5000, 10000})
    ->Args({25000, 2000})
    ->Args({32000, 1560})
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

// The bytes of a file into another one, put on the disk as a model is.
double PlainWriteSeconds(const std::string& bytes, const std::string& path) {
  const auto start = Clock::now();
  AtomicFile file(path);
  std::fwrite(bytes.data(), 1, bytes.size(), file.GetStream());
  return file.Commit() ? Seconds(start, Clock::now()) : 0.0;
}

// Saving a model of five components takes of_writing of writing its bytes, reading it of_reading of
// a plain read, in the fastest of each.
void ModelFile(benchmark::State& state) {
  const XFMatrix table = NipalsTable(static_cast<int>(state.range(0)), 1000, 0.0);
  TableModel problem(table, 0, static_cast<int>(state.range(1)));
  const std::unique_ptr<Model> model = problem.FitModel();
  const auto folder = std::filesystem::temp_directory_path();
  const std::string path = (folder / "zemva_io_bench.mdl").string();
  const std::string copy = (folder / "zemva_io_bench.copy").string();
  model->SetModAddr(path.c_str());
  if (model->Save(1) != 0) return state.SkipWithError("the model could not be saved");
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  double write = std::numeric_limits<double>::infinity();
  double save = write;
  double read = write;
  double load = write;
  for (auto _ : state) {
    write = std::min(write, PlainWriteSeconds(bytes, copy));
    auto start = Clock::now();
    model->Save(1);
    save = std::min(save, Seconds(start, Clock::now()));
    read = std::min(read, PlainReadSeconds(path.c_str()));
    GiveBackMemory();
    start = Clock::now();
    int status = 0;
    const std::unique_ptr<Model> loaded(
        Model::Read(path.c_str(), nullptr, GlobalStreamWindow(), nullptr, status));
    load = std::min(load, Seconds(start, Clock::now()));
  }
  std::filesystem::remove(path);
  std::filesystem::remove(copy);
  state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
  state.counters["save_ms"] = save * 1e3;
  state.counters["load_ms"] = load * 1e3;
  state.counters["of_writing"] = save / write;
  state.counters["of_reading"] = load / read;
}
BENCHMARK(ModelFile)->Args({5000, 0})->Args({5000, 3})->Iterations(20)->Unit(
    benchmark::kMillisecond);

struct CountingGrid : ImportGrid {
  CountingGrid() : ImportGrid{SetNumber, SetText, nullptr, 0, 0} {}
  static void SetNumber(ImportGrid* grid, int, int, float value) {
    static_cast<CountingGrid*>(grid)->sum += value;
  }
  static void SetText(ImportGrid* grid, int, int, const char* text) {
    static_cast<CountingGrid*>(grid)->sum += text[0];
  }
  double sum = 0;
};

// Time per cell; the items are cells.
void FillGrid(benchmark::State& state) {
  const SampleFile file(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  void* handle = ZEMVAImport_ReadDS(file.Path());
  if (handle == nullptr) return state.SkipWithError("the file could not be loaded");
  CountingGrid grid;
  KoImportEstablishSize(nullptr, handle, &grid.rows, &grid.columns);
  for (auto _ : state) {
    KoImportRead(nullptr, handle, &grid);
    benchmark::DoNotOptimize(grid.sum);
  }
  ZEMVAImport_DeleteDS(handle);
  const double cells = static_cast<double>(grid.rows) * grid.columns;
  state.counters["cell"] = benchmark::Counter(
      cells, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(FillGrid)->Args({100, 100})->Args({1000, 1000})->Args({20000, 2000});

}  // namespace
}  // namespace zemva
