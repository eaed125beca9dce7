// What a round of cross-validation leaves out.
#ifndef ZEMVA_MODEL_KERNELS_LEFT_OUT_H
#define ZEMVA_MODEL_KERNELS_LEFT_OUT_H

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace zemva {

// The elements of a matrix that take no part. Row i (from 1) belongs to class i mod ClassCount();
// the rows of a class leave out the same columns, or are left out whole, so that there is no need
// for a mask.
class LeftOut {
 public:
  // Nothing.
  LeftOut() : class_count_(1), classes_(1) {}

  // Element (i, k), both from 1, where i mod group_count equals labels[k - 1]. There are two groups
  // or more, here and below; of many, only those that one of `row_count` rows belongs to are kept.
  static LeftOut Elements(int group_count, std::span<const short> labels,
                          std::size_t row_count = std::numeric_limits<short>::max());

  // Row i where i mod group_count equals group mod group_count, in Rows; the others, in OtherRows.
  static LeftOut Rows(int group_count, int group);
  static LeftOut OtherRows(int group_count, int group);

  bool IsNothing() const { return class_count_ == 1; }
  // Whether single elements are left out, not rows.
  bool HasElements() const { return has_elements_; }

  std::size_t ClassCount() const { return class_count_; }
  // The classes behind these have no rows.
  std::size_t KeptCount() const { return classes_.size(); }
  // The class of the row at `row`, counted from 0.
  std::size_t ClassOf(std::size_t row) const { return (row + 1) % class_count_; }
  // The first row of a class, counted from 0; the others follow at distances of ClassCount().
  std::size_t FirstRowOf(std::size_t row_class) const {
    return (row_class + class_count_ - 1) % class_count_;
  }

  bool IsWholeRow(std::size_t row_class) const { return classes_[row_class].is_whole_row; }
  // Where rows are not left out whole: the columns left out, counted from 0, ascending.
  std::span<const int> Columns(std::size_t row_class) const { return classes_[row_class].columns; }

 private:
  struct RowClass {
    bool is_whole_row = false;
    std::vector<int> columns;
  };

  LeftOut(int group_count, std::size_t kept_count)
      : class_count_(static_cast<std::size_t>(group_count)),
        classes_(std::min(class_count_, kept_count)) {}

  std::size_t class_count_;
  std::vector<RowClass> classes_;
  bool has_elements_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_KERNELS_LEFT_OUT_H
