// How the cross-validation of principal components leaves out elements.
#ifndef ZEMVA_MODEL_PC_CROSS_VALIDATION_H
#define ZEMVA_MODEL_PC_CROSS_VALIDATION_H

#include <span>
#include <vector>

#include "zemva/model/block/model_log.h"
#include "zemva/model/kernels/left_out.h"

namespace zemva {

// The first number from `asked` on that has no divisor in common with the number of columns, so
// that every variable takes part in each round; 0 where a short has none. The log, where there is
// one, tells of each step.
short GetGroupCount(short asked, int column_count, ModelLog* log);

// How many variables must be predicted for a component to be significant by rule 2, of so many that
// take part: 3, and one more from the cubes of 3 to 7 on each.
int GetRequiredCount(int column_count);

// The group of each variable, 0..G-1. In a round the element of observation i and variable k, both
// from 1, is left out when i mod G equals the label of k: elements along diagonals, so that no row
// and no column is left out whole (S. Wold, Cross-validatory estimation of the number of components
// in factor and principal components models, Technometrics 20 (1978) 397-405).
class GroupLabels {
 public:
  // G and the number of variables that take part have no divisor in common. Counting those
  // cyclically, every G-th gets the number of the pass as its label, beginning with the first;
  // pass G gives 0.
  GroupLabels(int group_count, std::span<const char> takes_part);

  std::span<const short> Get() const { return labels_; }
  LeftOut GetLeftOut(std::size_t row_count) const {
    return LeftOut::Elements(group_count_, labels_, row_count);
  }

  // The labels of the next round: each goes to the next variable that takes part, and the first
  // variable of all gets the label of the last plus one.
  void Rotate();

 private:
  int group_count_;
  std::vector<std::size_t> members_;  // the variables that take part, from 0
  std::vector<short> labels_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_PC_CROSS_VALIDATION_H
