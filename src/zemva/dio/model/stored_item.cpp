#include "zemva/dio/model/stored_item.h"

#include <utility>

#include "zemva/errors/memory_guard.h"

namespace zemva {
namespace {

// The extents of a matrix; 0 where the payload has no such numbers. Rows without columns would be
// room that no bytes stand for.
template <PayloadNumber Number>
std::pair<int, int> TakeSize(PayloadReader& payload) {
  const int row_count = payload.GetExtent(0);
  const int column_count = payload.GetExtent(1);
  const std::int64_t count = std::int64_t{row_count} * column_count;
  if (count > 0 && payload.Has<Number>(count)) return {row_count, column_count};
  payload.Fail();
  return {0, 0};
}

}  // namespace

void AddVector(const XFVector& vector, PayloadWriter& payload) {
  payload.AddExtent(vector.NVal());
  payload.Add(vector.Values());
}

void TakeVector(PayloadReader& payload, XFVector& vector) {
  const int length = payload.GetExtent(0);
  if (!payload.Has<float>(length)) return;
  // It was empty: an item stands once.
  vector.Exp(length, 0.0f);
  Whole(vector);
  payload.Take(vector.Values());
  vector.SetActValInfo();
}

void AddMatrix(const XFMatrix& matrix, PayloadWriter& payload) {
  payload.AddExtent(matrix.NRow());
  payload.AddExtent(matrix.NCol());
  payload.AddText(matrix.GetName());
  for (int i = 1; i <= matrix.NRow(); ++i) payload.Add(matrix.Row(i));
}

XFMatrix TakeMatrix(PayloadReader& payload) {
  const char* const name = payload.TakeText();
  const auto [row_count, column_count] = TakeSize<float>(payload);
  XFMatrix matrix(name, row_count, column_count, 0.0f);
  Whole(matrix);
  for (int i = 1; i <= matrix.NRow(); ++i) payload.Take(matrix.Row(i));
  matrix.SetActValInfo();
  return matrix;
}

void AddDoubles(const DMatrix& matrix, PayloadWriter& payload) {
  payload.AddExtent(matrix.NRow());
  payload.AddExtent(matrix.NCol());
  for (int i = 1; i <= matrix.NRow(); ++i) payload.Add(matrix.Row(i));
}

DMatrix TakeDoubles(PayloadReader& payload) {
  const auto [row_count, column_count] = TakeSize<double>(payload);
  DMatrix matrix(row_count, column_count, 0.0);
  Whole(matrix);
  for (int i = 1; i <= matrix.NRow(); ++i) payload.Take(matrix.Row(i));
  return matrix;
}

}  // namespace zemva
