#include "zemva/model/kernels/left_out.h"

namespace zemva {

LeftOut LeftOut::Elements(int group_count, std::span<const short> labels, std::size_t row_count) {
  // Row i, from 1, belongs to class i mod the number of groups.
  LeftOut left_out(group_count, row_count + 1);
  left_out.has_elements_ = true;
  for (std::size_t k = 0; k < labels.size(); ++k) {
    const auto group = static_cast<std::size_t>(labels[k]);
    if (group < left_out.KeptCount()) {
      left_out.classes_[group].columns.push_back(static_cast<int>(k));
    }
  }
  return left_out;
}

LeftOut LeftOut::Rows(int group_count, int group) {
  LeftOut left_out(group_count, static_cast<std::size_t>(group_count));
  left_out.classes_[static_cast<std::size_t>(group % group_count)].is_whole_row = true;
  return left_out;
}

LeftOut LeftOut::OtherRows(int group_count, int group) {
  LeftOut left_out = Rows(group_count, group);
  for (RowClass& row_class : left_out.classes_) row_class.is_whole_row = !row_class.is_whole_row;
  return left_out;
}

}  // namespace zemva
