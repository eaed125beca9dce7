// The vectors of a model.
#ifndef ZEMVA_MODEL_DRIVER_MODEL_VECTORS_H
#define ZEMVA_MODEL_DRIVER_MODEL_VECTORS_H

#include <span>
#include <vector>

#include "zemva/model/block/data_block.h"
#include "zemva/model/driver/model.h"
#include "zemva/vectors/vec_source.h"

namespace zemva {

// What a model tells for vectors. Its functions for single values do the work; here stand values,
// residuals and predictions in all units, and what is drawn together from several functions.
class ModelVectors : public VecSource {
 public:
  explicit ModelVectors(const Model& model) : model_(model) {}

  CEDatType::EDT GetDType() const override { return CEDatType::Model; }
  short GetDNum() const override { return model_.GetModNum(); }
  int GetCount(EVecAxis axis, int of) const override;
  VecLabel GetLabel(EVecAxis axis, int of, int i) const override;
  VecCompCounts GetCompCounts() const override;
  // 8016 for what a model of the kind has not, 8009 for what needs data that are not loaded, 8036
  // for what needs an execution that was not done or whose results are deleted.
  int Check(const VecRow& row) const override;
  // 8056 for the residuals of a response in a prediction set before the last component in use.
  int CheckQuery(const VecQuery& query) const override;
  // 8009 where the table is not loaded.
  int CheckLabels(EVecAxis axis) const override;
  int Fill(const VecQuery& query, std::span<float> values) const override;

 private:
  // Whether there are tables of the rows and, where there are responses, their values.
  bool HasTables() const;
  // Whether a type of vector is made of elements of a block, and whether there are such: a model
  // that was read has those of Y, but not of X.
  bool IsMadeOf(const VecRow& row, EBlock block) const;
  bool HasData(const VecRow& row, EBlock block) const;
  // An element of a block, of the work set or of the prediction set, at a component.
  struct Place {
    EBlock block;
    bool is_ps;
    short i;
    short k;
    int a;
  };
  // A variable of the data set and its lags among the X variables.
  struct Lag {
    short lag;
    short k;
  };
  struct Lagged {
    short vnum;
    std::vector<Lag> lags;
  };

  template <auto kGetter>
  int FillEach(const VecQuery& query, std::span<float> values) const;
  int FillNumbers(const VecQuery& query, std::span<float> values) const;
  int FillTimes(const VecQuery& query, std::span<float> values) const;

  // How a getter is called for an element.
  using ByComp = float (Model::*)(char) const;
  using ByCompAndElement = float (Model::*)(char, short) const;
  float Call(ByComp get, const VecQuery& query, const VecCell& cell) const;
  float Call(short (Model::*get)(char) const, const VecQuery& query, const VecCell& cell) const;
  float Call(ByCompAndElement get, const VecQuery& query, const VecCell& cell) const;
  float Call(float (Model::*get)(char, short, short) const, const VecQuery& query,
             const VecCell& cell) const;
  float Call(float (Model::*get)(short, short) const, const VecQuery& query,
             const VecCell& cell) const;
  float Call(float (Model::*get)(short) const, const VecQuery& query, const VecCell& cell) const;
  float Call(float (ModelVectors::*get)(const VecQuery&, const VecCell&) const,
             const VecQuery& query, const VecCell& cell) const;

  // What no single function of the model gives.
  float GetQ2(const VecQuery& query, const VecCell& cell) const;
  float GetQ2Cum(const VecQuery& query, const VecCell& cell) const;
  float GetQ2V(const VecQuery& query, const VecCell& cell) const;
  float GetQ2VCum(const VecQuery& query, const VecCell& cell) const;
  float GetSDt(const VecQuery& query, const VecCell& cell) const;
  float GetSDu(const VecQuery& query, const VecCell& cell) const;
  float GetTsquare(const VecQuery& query, const VecCell& cell) const;
  float GetTsquarePS(const VecQuery& query, const VecCell& cell) const;
  // Of the components that were executed, whatever the options say by now.
  float GetSerrL(const VecQuery& query, const VecCell& cell) const;
  float GetSerrU(const VecQuery& query, const VecCell& cell) const;
  float GetMaxX(const VecQuery& query, const VecCell& cell) const;
  float GetMinX(const VecQuery& query, const VecCell& cell) const;
  float GetCoeffWithConstant(const VecQuery& query, const VecCell& cell) const;
  float GetCoeffMR(const VecQuery& query, const VecCell& cell) const;
  float GetCoeffCSLag(const VecQuery& query, const VecCell& cell) const;
  // Of X variables one function, of responses another.
  template <ByCompAndElement kOfX, ByCompAndElement kOfY>
  float GetJoined(const VecQuery& query, const VecCell& cell) const;
  template <ByCompAndElement kGetter>
  float GetOfLag(const VecQuery& query, const VecCell& cell) const;

  // Values, predictions and residuals in the units of the query; see docs/numerics.md.
  float GetValue(const VecQuery& query, const VecCell& cell) const;
  float GetPrediction(const VecQuery& query, const VecCell& cell) const;
  float GetResidual(const VecQuery& query, const VecCell& cell) const;
  Place Locate(const VecQuery& query, const VecCell& cell) const;
  const DataBlock& BlockOf(const Place& place) const;
  // As loaded or executed, transformed.
  float GetLoaded(const Place& place) const;
  // Centred and scaled.
  double Predict(const Place& place) const;
  float GetScaledResidual(const Place& place) const;
  float GetScore(const Place& place, int c) const;
  bool IsBackTransformed(const Place& place) const;
  // A value that is transformed, in the units of the data or as it is.
  float InUnits(CEElmType::EET units, const Place& place, float transformed) const;

  const std::vector<Lagged>& GetLagged() const;

  const Model& model_;
  mutable std::vector<Lagged> lagged_;
  mutable bool has_lagged_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_DRIVER_MODEL_VECTORS_H
