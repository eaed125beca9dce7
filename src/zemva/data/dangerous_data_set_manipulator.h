// The door by which the storage layer reaches into a data set.
#ifndef ZEMVA_DATA_DANGEROUS_DATA_SET_MANIPULATOR_H
#define ZEMVA_DATA_DANGEROUS_DATA_SET_MANIPULATOR_H

#include <utility>

#include "zemva/base/export.h"
#include "zemva/data/dataset.h"

namespace zemva {

// Sets and reads the insides of a data set without any check or side effect: nothing is loaded,
// and no count follows a matrix or a table. The data set takes over what it is handed and frees
// what it had.
class ZEMVA_API DangerousDataSetManipulator {
 public:
  DangerousDataSetManipulator() = delete;

  // The matrix comes with its values counted.
  static void SetDM(Dataset* dataset, XFMatrix* matrix) { dataset->matrix_.reset(matrix); }
  static void SetOI(Dataset* dataset, ObsInfo* table) { dataset->obs_info_.reset(table); }
  static void SetVI(Dataset* dataset, VarInfo* table) { dataset->var_info_.reset(table); }
  static void SetNObsDS(Dataset* dataset, short count) { dataset->nobs_ = count; }
  static void SetNVarDS(Dataset* dataset, short count) { dataset->nvar_ = count; }
  static void SetIsLoaded(Dataset* dataset, bool is_loaded) {
    dataset->header_.is_loaded = is_loaded;
  }

  // Gives `to` what a file says of a data set, matrix and tables included, and leaves `from`
  // without.
  static void MoveContents(Dataset& from, Dataset* to) {
    to->Unload();
    to->kind_ = from.kind_;
    to->header_.name = from.header_.name;
    to->header_.number = from.header_.number;
    to->header_.title = from.header_.title;
    to->nobs_ = from.nobs_;
    to->nvar_ = from.nvar_;
    to->obs_info_ = std::move(from.obs_info_);
    to->var_info_ = std::move(from.var_info_);
    to->matrix_ = std::move(from.matrix_);
  }
  // The matrix, which is the caller's from here on.
  static XFMatrix* TakeDM(Dataset* dataset) { return dataset->matrix_.release(); }

  // What is there, without loading; null where there is no matrix.
  static const XFMatrix* GetDM(const Dataset* dataset) { return dataset->matrix_.get(); }
  static short GetNObsDS(const Dataset* dataset) { return dataset->nobs_; }
  static short GetNVarDS(const Dataset* dataset) { return dataset->nvar_; }
};

}  // namespace zemva

#endif  // ZEMVA_DATA_DANGEROUS_DATA_SET_MANIPULATOR_H
