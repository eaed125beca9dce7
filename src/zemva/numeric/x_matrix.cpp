#include "zemva/numeric/x_matrix.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "zemva/numeric/row_kernels.h"
#include "zemva/numeric/slots.h"

namespace zemva {
namespace {

constexpr bool kUnfilled = false;
constexpr bool kFilled = true;

constexpr int kMostCounted = std::numeric_limits<short>::max();

}  // namespace

XFMatrix::XFMatrix(const char* name, int row_count, int column_count, float fill)
    : Named(name, row_count, column_count, fill, kFilled) {
  InitCounts();
  if (!IsMissing(fill)) counts_.present_count = CellCount();
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
  if (ReserveCounts(other.NRow(), other.NCol()) != status::kOk) return *this;
  if (Assign(other) == status::kOk) CopyCounts(other);
  return *this;
}

XFMatrix::~XFMatrix() = default;

int XFMatrix::Copy(const XFMatrix* other) {
  if (const int room = ReserveCounts(NRow(), NCol()); room != status::kOk) return room;
  const int result = Named::Copy(other);
  if (result == status::kOk) CopyCounts(*other);
  return result;
}

int XFMatrix::DelCols(const XI1Vector* keep) {
  return MarkIf(FMatrix::DelCols(keep));
}

int XFMatrix::DelRows(const XI1Vector* keep) {
  return MarkIf(FMatrix::DelRows(keep));
}

int XFMatrix::DelRows(int first, int last) {
  return MarkIf(FMatrix::DelRows(first, last));
}

int XFMatrix::ExpCols(int count, float value) {
  const int room = ReserveCounts(NRow(), std::int64_t{NCol()} + count);
  return room == status::kOk ? MarkIf(FMatrix::ExpCols(count, value)) : room;
}

int XFMatrix::ExpRows(int count, float value) {
  const int room = ReserveCounts(std::int64_t{NRow()} + count, NCol());
  return room == status::kOk ? MarkIf(FMatrix::ExpRows(count, value)) : room;
}

int XFMatrix::Transp() {
  const int room = ReserveCounts(NCol(), NRow());
  return room == status::kOk ? MarkIf(FMatrix::Transp()) : room;
}

int XFMatrix::SwapRow(int i, int k) {
  return MarkIf(FMatrix::SwapRow(i, k));
}

int XFMatrix::SwapCol(int j, int k) {
  return MarkIf(FMatrix::SwapCol(j, k));
}

int XFMatrix::Read(const char* path) {
  FMatrix read(0, 0, kMissing);
  if (const int result = read.Read(path); result != status::kOk) return Report(result);
  const int room = ReserveCounts(read.NRow(), read.NCol());
  if (room != status::kOk) return room;
  Swap(read);
  return SetActValInfo();
}

void XFMatrix::Show(StreamWindow& window, bool is_wrapped) const {
  Listing(window).Text(GetName()).Text(" is: NValA= ").Number(NValA()).EndLine();
  FMatrix::Show(window, is_wrapped);
}

int XFMatrix::SetActValInfo() {
  if (const int result = StartActValInfo(); result != status::kOk) return result;
  for (int i = 1; i <= NRow(); ++i) AddRowToActValInfo(i);
  return status::kOk;
}

int XFMatrix::StartActValInfo() {
  if (const int room = ReserveCounts(NRow(), NCol()); room != status::kOk) return room;
  TakeAllAsPresent();
  return status::kOk;
}

void XFMatrix::TakeAllAsPresent() const {
  is_out_of_date_ = false;
  counts_.present_count = CellCount();
  counts_.rows.SetAll(NRow(), NCol());
  counts_.columns.SetAll(NCol(), NRow());
}

void XFMatrix::TakeOffMissing(int row) const {
  const float* const values = Row(row).data();
  const int missing_count = GetRowKernels().count_missing(values, NCol());
  if (missing_count == 0) return;
  counts_.present_count -= missing_count;
  short& row_count = counts_.rows.slots[static_cast<std::size_t>(row)];
  row_count = static_cast<short>(row_count - missing_count);
  GetRowKernels().count_off_missing(values, NCol(), counts_.columns.slots.get() + 1);
}

void XFMatrix::Recount() const {
  is_out_of_date_ = false;
  // As an FMatrix it may have become larger since.
  if (NRow() > counts_.rows.capacity || NCol() > counts_.columns.capacity) return;
  TakeAllAsPresent();
  for (int i = 1; i <= NRow(); ++i) TakeOffMissing(i);
}

int XFMatrix::MarkIf(int result) {
  is_out_of_date_ = is_out_of_date_ || result == status::kOk;
  return result;
}

int XFMatrix::CellCount() const {
  return static_cast<int>(std::int64_t{NRow()} * NCol());
}

void XFMatrix::InitCounts() {
  if (ReserveCounts(NRow(), NCol()) != status::kOk) Release();
}

// Makes room for the counts of so many rows and columns; the counts stay.
int XFMatrix::ReserveCounts(std::int64_t row_count, std::int64_t column_count) {
  if (std::max(row_count, column_count) > kMostCounted) return Report(status::mat::kDimension);
  const bool has_room = counts_.rows.Reserve(static_cast<int>(row_count)) &&
                        counts_.columns.Reserve(static_cast<int>(column_count));
  return has_room ? status::kOk : Report(status::mat::kMemory);
}

// False when memory runs out. New slots are 0.
bool XFMatrix::Counts::Reserve(int count) {
  if (slots && count <= capacity) return true;
  count = std::max(count, 0);
  // What grows once will grow again.
  if (slots) count = std::max(count, std::min(capacity + capacity / 2, kMostCounted));
  auto more = AllocateSlots<short>(count);
  if (!more) return false;
  std::fill_n(more.get(), count + 1, short{0});
  if (slots) std::copy_n(slots.get(), size + 1, more.get());
  slots = std::move(more);
  capacity = count;
  return true;
}

void XFMatrix::Counts::SetAll(int count, int value) {
  size = count;
  std::fill_n(slots.get() + 1, count, static_cast<short>(value));
}

void XFMatrix::Counts::Take(const Counts& other, int count) {
  size = count;
  for (int i = 1; i <= count; ++i) slots[static_cast<std::size_t>(i)] = other.Get(i);
}

void XFMatrix::CopyCounts(const XFMatrix& other) {
  if (NRow() != other.NRow() || NCol() != other.NCol()) return;
  const PresentCounts& counts = other.UpToDate();
  is_out_of_date_ = false;
  counts_.present_count = counts.present_count;
  counts_.rows.Take(counts.rows, NRow());
  counts_.columns.Take(counts.columns, NCol());
}

}  // namespace zemva
