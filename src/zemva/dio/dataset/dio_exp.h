// Results as data sets.
#ifndef ZEMVA_DIO_DATASET_DIO_EXP_H
#define ZEMVA_DIO_DATASET_DIO_EXP_H

#include <string>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

// Collects vectors and matrices that have an element or a row for each of the same things, say the
// scores of a model, and writes them to a data set file, where they can be modelled in turn. Each
// operation returns 0 or a status; 8002 when memory runs out.
class ZEMVA_API DIOExp {
 public:
  // The name is that of the data set.
  DIOExp(const char* path, const char* name, StreamWindow& window);

  // The numbers and names of the things; without them they are numbered from 1. 8021 where there is
  // another number of them than of elements so far.
  int SetObservations(const ObsInfo& observations);
  // Adds a variable named after the vector. 8021 where it has another length than what is there.
  int Add(const XFVector& vector);
  // Adds the columns of a matrix, named after it and the variables: "XRes(Weight)"; without a name
  // after the variables alone, and without these after their positions. 8021 as above, and where
  // there are not as many variables as columns.
  int Add(const XFMatrix& matrix, const VarInfo* variables = nullptr);

  short GetNVar() const { return static_cast<short>(columns_.size()); }
  // Writes the file, made or replaced as Dataset::Save does it, with its codes. 8009 without
  // anything.
  int Save();

 private:
  struct Column {
    std::string name;
    std::vector<float> values;
  };

  // Whether so many rows go with what is there.
  bool Fits(int row_count) const;

  FixedText<260> path_;
  FixedText<24> name_;
  StreamWindow& window_;
  ObsInfo observations_{"ObsInfo"};
  std::vector<Column> columns_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_DATASET_DIO_EXP_H
