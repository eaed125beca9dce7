// The vectors of work sets and prediction sets.
#ifndef ZEMVA_MODEL_WORKSET_SET_VECTORS_H
#define ZEMVA_MODEL_WORKSET_SET_VECTORS_H

#include <memory>
#include <vector>

#include "zemva/model/workset/extraction.h"
#include "zemva/model/workset/workset.h"
#include "zemva/vectors/vec_source.h"

namespace zemva {

// The variables of a work set, made of the observations of a data source that are taken. They count
// those observations, and all variables of the work set, lagged ones and terms among them, whatever
// their roles. Plain values are as they are in the data set, or made of such by lagging and
// multiplying; transformed ones are what a model takes.
class SetVectors : public VecSource {
 public:
  SetVectors(CEDatType::EDT type, short number, const Workset& workset, DataSource source)
      : type_(type), number_(number), workset_(workset), source_(std::move(source)) {}

  CEDatType::EDT GetDType() const override { return type_; }
  short GetDNum() const override { return number_; }
  int GetCount(EVecAxis axis, int of) const override;
  VecLabel GetLabel(EVecAxis axis, int of, int i) const override;
  int Fill(const VecQuery& query, std::span<float> values) const override;

 private:
  int FillNumbers(const VecQuery& query, std::span<float> values) const;
  int FillTimes(const VecQuery& query, std::span<float> values) const;
  int FillVariable(const VecQuery& query, std::span<float> values) const;
  int FillObservation(const VecQuery& query, std::span<float> values) const;

  // Makes the columns of some variables, of observations first..last.
  int MakeColumns(const VecQuery& query, const VarInfo& variables, int first, int last,
                  std::unique_ptr<XFMatrix>& matrix) const;

  CEDatType::EDT type_;
  short number_;
  const Workset& workset_;
  DataSource source_;
};

}  // namespace zemva

#endif  // ZEMVA_MODEL_WORKSET_SET_VECTORS_H
