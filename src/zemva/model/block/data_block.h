// One block, X or Y, of the data of a model.
#ifndef ZEMVA_MODEL_BLOCK_DATA_BLOCK_H
#define ZEMVA_MODEL_BLOCK_DATA_BLOCK_H

#include <memory>
#include <optional>
#include <span>

#include "zemva/data/blk_info.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/model/block/block_record.h"
#include "zemva/model/block/cent_info.h"
#include "zemva/model/block/model_log.h"
#include "zemva/model/block/model_owner.h"
#include "zemva/model/kernels/residual_matrix.h"
#include "zemva/model/preprocess/exp_info.h"
#include "zemva/model/preprocess/lag_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/model/workset/model_type.h"
#include "zemva/model/workset/preparation.h"
#include "zemva/model/workset/workset.h"
#include "zemva/numeric/x_matrix.h"

namespace zemva {

// The degrees of freedom that a stage has lost: 1 to the average or 0 and, of each column, so many
// to the components; of each row so many to its scores.
struct LostFreedom {
  int average = 0;
  int of_column = 0;
  int of_row = 0;
};

// The matrix of a block as loaded and its tables, which copies of a model share, and the residuals:
// the matrix centred and scaled, less the components.
class DataBlock {
 public:
  explicit DataBlock(EBlock block) : block_(block) {}
  // What a record keeps of the block of a model of the type; `members` and `dataset_variables` are
  // those of its preparation. Throws std::bad_alloc.
  DataBlock(EModType type, const BlockRecord& record, const XI1Vector& members,
            const std::shared_ptr<VarInfo>& dataset_variables);
  // All of the block but its data. Throws std::bad_alloc.
  BlockRecord MakeRecord() const;

  EBlock GetBlock() const { return block_; }
  char GetLetter() const { return block_ == EBlock::kX ? 'X' : 'Y'; }

  // --- Loading ---

  // Takes matrix and tables out of a work set, into a block that holds nothing yet. The work set's
  // code when it refuses.
  int Extract(Workset& workset, EModType type, char selector, ModelLog& log);
  bool IsLoaded() const { return values_ != nullptr; }
  // Whether both were loaded from the same values with the same weights.
  bool HasDataOf(const DataBlock& other) const;
  // Frees matrix, tables and residuals; the record of component 0 and the preparation stay.
  void Unload();

  // Reports variables with fewer than 4 present values, and variables and, in X, observations with
  // more missing ones than the limits allow. 8039 for the first, and when the owner, asked about
  // each of the others, does not want to go on.
  int CheckMissing(const ObsInfo& observations, const MissingLimits& limits, ModelOwner& owner,
                   ModelLog& log) const;
  // Reports the columns that hardly vary; those of which all values are the same, with 8028.
  void CheckVariance(ModelLog& log) const;
  int CheckConstants(ModelLog& log) const;
  // The weights of the columns: those of the work set, or where it leaves them undecided those that
  // give unit variance, each times the weight of its block. 8038, and a report, where one is
  // undefined.
  int FindWeights(ModelLog& log);

  // --- Centring ---

  // The block with the residuals of component 0, which shares matrix and tables with this one.
  // Where `is_centred`, the average of each column with a centred scaling is taken off. 8005, and a
  // report, when values leave the range of a float. Throws std::bad_alloc.
  int MakeCentred(bool is_centred, ModelLog& log, std::unique_ptr<DataBlock>& centred) const;
  // Whether there are residuals.
  bool IsCentred() const { return residuals_.has_value(); }
  // Makes them those of component 0 again.
  void ResetResiduals();

  // Sets the sums, variances and modelling powers of a stage from the residuals.
  void Measure(LostFreedom lost, Stage& stage) const;

  // --- Access; what is not loaded is not there ---

  short GetRowCount() const { return static_cast<short>(info_->loaded.sso.NVal()); }
  short GetColumnCount() const { return static_cast<short>(info_->weights.NVal()); }
  const XFMatrix& GetValues() const { return *values_; }
  VarInfo* GetVarInfo() const { return variables_.get(); }
  ScaInfo* GetScaInfo() const { return scalings_.get(); }
  // Null where there is none, also when loaded.
  TraInfo* GetTraInfo() const { return transformations_.get(); }
  ExpInfo* GetExpInfo() const { return terms_.get(); }
  LagInfo* GetLagInfo() const { return lags_.get(); }
  BlkInfo* GetBlkInfo() const { return blocks_.get(); }
  ResidualMatrix& GetResiduals() { return *residuals_; }
  const ResidualMatrix& GetResiduals() const { return *residuals_; }

  // The record of component 0, null until anything is loaded, and how the matrix was made.
  const CentInfo* GetInfo() const { return info_.get(); }
  const Preparation& GetPreparation() const { return *preparation_; }
  bool HasPreparation() const { return preparation_ != nullptr; }

  // Null where there is no such stage: -1 and 0.
  const Stage* GetStage(int a) const;
  // What is left of an element, in the units of the residuals; missing where the element is. Rows
  // and columns count from 1.
  float GetResidual(int i, int k) const;
  // The element, centred and scaled.
  float GetCentredValue(int i, int k) const;
  // A value of column k in and out of the units of the residuals. Missing stays missing, and is
  // what comes back from a weight of 0.
  float CenterAndScale(float value, int k) const;
  double Restore(double value, int k) const;
  // Whether the column is transformed, and a value of it before that; missing where there is no way
  // back.
  bool IsTransformed(int k) const { return GetTransformation(k) != nullptr; }
  float BackTransform(float value, int k) const;

 private:
  void DescribeLoaded();
  int Center(bool is_centred, ModelLog& log);
  // Those of component 0, with the reference and the weights that there are.
  void MakeResiduals();
  void SetAverage();
  void Fill(LostFreedom lost, std::span<const double> row_squares,
            std::span<const double> column_squares, Stage& stage) const;
  const TraData* GetTransformation(int column) const;
  const char* GetName(int column) const;
  short GetNumber(int column) const;

  EBlock block_;
  std::shared_ptr<XFMatrix> values_;
  std::shared_ptr<VarInfo> variables_;
  std::shared_ptr<ScaInfo> scalings_;
  std::shared_ptr<TraInfo> transformations_;
  std::shared_ptr<ExpInfo> terms_;
  std::shared_ptr<LagInfo> lags_;
  std::shared_ptr<BlkInfo> blocks_;
  std::shared_ptr<const Preparation> preparation_;
  std::shared_ptr<CentInfo> info_;
  std::optional<ResidualMatrix> residuals_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_BLOCK_DATA_BLOCK_H
