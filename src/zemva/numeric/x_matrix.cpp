#include "zemva/numeric/x_matrix.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/slots.h"

namespace zemva {
namespace {

constexpr bool kUnfilled = false;
constexpr bool kFilled = true;

// Counts of `count` rows or columns, all 0; null when memory runs out.
std::unique_ptr<short[]> MakeCounts(int count) {
  auto counts = AllocateSlots<short>(count);
  if (counts) std::fill_n(counts.get(), count + 1, short{0});
  return counts;
}

std::span<short> CountsOf(const std::unique_ptr<short[]>& counts, int count) {
  return {counts.get() + 1, static_cast<std::size_t>(count)};
}

}  // namespace

XFMatrix::XFMatrix(const char* name, int row_count, int column_count, float fill)
    : Named(name, row_count, column_count, fill, kFilled) {
  InitCounts();
  if (!IsMissing(fill)) present_count_ = CellCount();
}

XFMatrix::XFMatrix(const char* name, int row_count, int column_count, Unfilled)
    : Named(name, row_count, column_count, kMissing, kUnfilled) {
  InitCounts();
}

XFMatrix::XFMatrix(const char* name, float** rows, int row_count, int column_count)
    : Named(name, rows, row_count, column_count) {
  InitCounts();
  SetActValInfo();
}

XFMatrix::XFMatrix(const XFMatrix& other) : Named(other) {
  InitCounts();
  CopyCounts(other);
}

XFMatrix::XFMatrix(const XFMatrix* other) : Named(other) {
  InitCounts();
  if (other != nullptr) CopyCounts(*other);
}

XFMatrix& XFMatrix::operator=(const XFMatrix& other) {
  auto row_counts = MakeCounts(other.NRow());
  auto column_counts = MakeCounts(other.NCol());
  if (!row_counts || !column_counts) {
    Report(status::mat::kMemory);
  } else if (Assign(other) == status::kOk) {
    row_counts_ = std::move(row_counts);
    column_counts_ = std::move(column_counts);
    CopyCounts(other);
  }
  return *this;
}

XFMatrix::~XFMatrix() = default;

int XFMatrix::Copy(const XFMatrix* other) {
  const int result = Named::Copy(other);
  if (result == status::kOk) CopyCounts(*other);
  return result;
}

int XFMatrix::DelCols(const XI1Vector* keep) {
  return CountIf(FMatrix::DelCols(keep));
}

int XFMatrix::DelRows(const XI1Vector* keep) {
  return CountIf(FMatrix::DelRows(keep));
}

int XFMatrix::DelRows(int first, int last) {
  return CountIf(FMatrix::DelRows(first, last));
}

int XFMatrix::ExpCols(int count, float value) {
  auto column_counts = MakeCounts(NCol() + std::max(count, 0));
  if (!column_counts) return Report(status::mat::kMemory);
  const int result = FMatrix::ExpCols(count, value);
  if (result == status::kOk) column_counts_ = std::move(column_counts);
  return CountIf(result);
}

int XFMatrix::ExpRows(int count, float value) {
  auto row_counts = MakeCounts(NRow() + std::max(count, 0));
  if (!row_counts) return Report(status::mat::kMemory);
  const int result = FMatrix::ExpRows(count, value);
  if (result == status::kOk) row_counts_ = std::move(row_counts);
  return CountIf(result);
}

int XFMatrix::Transp() {
  const int result = FMatrix::Transp();
  if (result == status::kOk) row_counts_.swap(column_counts_);
  return result;
}

int XFMatrix::SwapRow(int i, int k) {
  return CountIf(FMatrix::SwapRow(i, k));
}

int XFMatrix::SwapCol(int j, int k) {
  return CountIf(FMatrix::SwapCol(j, k));
}

int XFMatrix::Read(const char* path) {
  FMatrix read(0, 0, kMissing);
  const int result = read.Read(path);
  if (result != status::kOk) return Report(result);
  auto row_counts = MakeCounts(read.NRow());
  auto column_counts = MakeCounts(read.NCol());
  if (!row_counts || !column_counts) return Report(status::mat::kMemory);
  row_counts_ = std::move(row_counts);
  column_counts_ = std::move(column_counts);
  Swap(read);
  SetActValInfo();
  return status::kOk;
}

void XFMatrix::Show(StreamWindow& window, bool is_wrapped) const {
  Listing(window).Text(GetName()).Text(" is: NValA= ").Number(NValA()).EndLine();
  FMatrix::Show(window, is_wrapped);
}

void XFMatrix::SetActValInfo() {
  StartActValInfo();
  for (int i = 1; i <= NRow(); ++i) AddRowToActValInfo(i);
}

void XFMatrix::StartActValInfo() {
  present_count_ = CellCount();
  if (NRow() > 0) std::ranges::fill(CountsOf(row_counts_, NRow()), static_cast<short>(NCol()));
  if (NCol() > 0) std::ranges::fill(CountsOf(column_counts_, NCol()), static_cast<short>(NRow()));
}

void XFMatrix::AddRowToActValInfo(int row) {
  const float* const values = Row(row).data();
  const int missing_count = GetRowKernels().count_missing(values, NCol());
  if (missing_count == 0) return;
  present_count_ -= missing_count;
  short& row_count = row_counts_[static_cast<std::size_t>(row)];
  row_count = static_cast<short>(row_count - missing_count);
  GetRowKernels().count_off_missing(values, NCol(), column_counts_.get() + 1);
}

int XFMatrix::CountIf(int result) {
  if (result == status::kOk) SetActValInfo();
  return result;
}

int XFMatrix::CellCount() const {
  return static_cast<int>(std::int64_t{NRow()} * NCol());
}

void XFMatrix::InitCounts() {
  row_counts_ = MakeCounts(NRow());
  column_counts_ = MakeCounts(NCol());
  if (row_counts_ && column_counts_) return;
  Report(status::mat::kMemory);
  Release();
}

void XFMatrix::CopyCounts(const XFMatrix& other) {
  if (NRow() != other.NRow() || NCol() != other.NCol()) return;
  present_count_ = other.present_count_;
  std::copy_n(other.row_counts_.get(), NRow() + 1, row_counts_.get());
  std::copy_n(other.column_counts_.get(), NCol() + 1, column_counts_.get());
}

}  // namespace zemva
