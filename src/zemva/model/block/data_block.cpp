#include "zemva/model/block/data_block.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "zemva/errors/status.h"
#include "zemva/model/preprocess/element.h"
#include "zemva/model/workset/block_extract.h"
#include "zemva/numeric/variance.h"

namespace zemva {
namespace {

// What a member of the numeric core returned, which is null when memory ran out.
void Take(XFVector* from, XFVector& to) {
  const std::unique_ptr<XFVector> owned(from);
  if (owned == nullptr) throw std::bad_alloc();
  std::ranges::copy(owned->Values(), to.Values().begin());
  to.SetActValInfo();
}

// Whether a sum of squares has all digits of a float.
bool IsInRange(float sum) {
  return sum >= std::numeric_limits<float>::min();
}

std::vector<double> Widened(const XFVector& vector) {
  return {vector.Values().begin(), vector.Values().end()};
}

}  // namespace

int DataBlock::Extract(Workset& workset, EModType type, char selector, ModelLog& log) {
  BlockExtract extract;
  const int status = workset.ExtBlock(type, block_, selector, log, extract);
  if (status != status::kOk) return status;
  values_ = std::move(extract.matrix);
  preparation_ = std::move(extract.preparation);
  variables_ = std::move(extract.variables);
  scalings_ = std::move(extract.scalings);
  transformations_ = std::move(extract.transformations);
  terms_ = std::move(extract.terms);
  lags_ = std::move(extract.lags);
  blocks_ = std::move(extract.blocks);
  DescribeLoaded();
  return status;
}

bool DataBlock::HasDataOf(const DataBlock& other) const {
  const auto equal = [](const XFVector& one, const XFVector& two) {
    return std::ranges::equal(one.Values(), two.Values());
  };
  return equal(info_->loaded.sso, other.info_->loaded.sso) &&
         equal(info_->loaded.ssv, other.info_->loaded.ssv) &&
         equal(info_->loaded_average, other.info_->loaded_average) &&
         equal(info_->weights, other.info_->weights);
}

void DataBlock::Unload() {
  residuals_.reset();
  blocks_.reset();
  lags_.reset();
  terms_.reset();
  transformations_.reset();
  scalings_.reset();
  variables_.reset();
  values_.reset();
}

void DataBlock::DescribeLoaded() {
  info_ = std::make_shared<CentInfo>(GetLetter(), values_->NRow(), values_->NCol());
  Take(values_->Avg(""), info_->loaded_average);
  Take(values_->MinCol(""), info_->smallest);
  Take(values_->MaxCol(""), info_->largest);
  for (int i = 1; i <= values_->NRow(); ++i) {
    info_->row_counts[static_cast<std::size_t>(i - 1)] = values_->NValARow(i);
  }
  for (int k = 1; k <= values_->NCol(); ++k) {
    info_->column_counts[static_cast<std::size_t>(k - 1)] = values_->NValACol(k);
  }
  Take(values_->SSRow(""), info_->loaded.sso);
  Take(values_->SSCol(""), info_->loaded.ssv);
  Fill({}, Widened(info_->loaded.sso), Widened(info_->loaded.ssv), info_->loaded);
}

const char* DataBlock::GetName(int column) const {
  return variables_->GetVNam(static_cast<short>(column));
}

short DataBlock::GetNumber(int column) const {
  return variables_->GetVNum(static_cast<short>(column));
}

int DataBlock::FindWeights(ModelLog& log) {
  XFVector& weights = info_->weights;
  // w_k = weight of the scaling, and below times the weight of the block
  for (int k = 1; k <= weights.NVal(); ++k) {
    const ScaData& scaling = *scalings_->GetItm(static_cast<short>(k));
    const bool is_decided = scaling.GetScaType() != EScaType::kUdef;
    weights[k] = is_decided ? scaling.GetWeig() : scaling.GetWeigAC();
  }
  if (blocks_ != nullptr) {
    const int status = blocks_->Transfer(&weights);
    if (status != status::kOk) return status;
  }
  weights.SetActValInfo();
  for (int k = 1; k <= weights.NVal(); ++k) {
    if (!IsMissing(weights[k])) continue;
    log.Write(std::string("Undefined scaling weight for ") + GetLetter() + "-variable " +
              std::to_string(GetNumber(k)) + " " + GetName(k) + "\n");
  }
  return weights.NValA() == weights.NVal() ? status::kOk : status::mva::kUndefinedWeights;
}

int DataBlock::MakeCentred(bool is_centred, ModelLog& log,
                           std::unique_ptr<DataBlock>& centred) const {
  auto made = std::make_unique<DataBlock>(block_);
  made->values_ = values_;
  made->variables_ = variables_;
  made->scalings_ = scalings_;
  made->transformations_ = transformations_;
  made->terms_ = terms_;
  made->lags_ = lags_;
  made->blocks_ = blocks_;
  made->preparation_ = preparation_;
  made->info_ = std::make_shared<CentInfo>(*info_);
  const int status = made->Center(is_centred, log);
  if (status == status::kOk) centred = std::move(made);
  return status;
}

int DataBlock::Center(bool is_centred, ModelLog& log) {
  XFVector& reference = info_->reference;
  std::ranges::fill(reference.Values(), 0.0f);
  if (is_centred) {
    std::ranges::copy(info_->loaded_average.Values(), reference.Values().begin());
    const int status = scalings_->SetNCRef(variables_.get(), &reference);
    if (status != status::kOk) return status;
  }
  reference.SetActValInfo();

  MakeResiduals();
  Measure({is_centred ? 1 : 0, 0, 0}, info_->centred);
  if (!IsInRange(info_->centred.ss)) {
    const std::vector<double> squares = residuals_->ColumnSquares();
    bool is_out_of_range = IsMissing(info_->centred.ss);
    for (int k = 1; k <= info_->centred.ssv.NVal(); ++k) {
      // A sum of 0 is none that went out of range.
      if (squares[static_cast<std::size_t>(k - 1)] == 0.0 || IsInRange(info_->centred.ssv[k])) {
        continue;
      }
      is_out_of_range = true;
      log.Write(std::string(1, GetLetter()) + " variable " + std::to_string(GetNumber(k)) + ", " +
                GetName(k) + " is out of range when centred and scaled.\n");
    }
    if (is_out_of_range) return status::mva::kDomain;
  }
  SetAverage();
  return status::kOk;
}

void DataBlock::MakeResiduals() {
  std::vector<char> takes_part;
  for (const float weight : info_->weights.Values()) takes_part.push_back(weight != 0.0f);
  residuals_.emplace(*values_, takes_part);
  ResetResiduals();
}

void DataBlock::ResetResiduals() {
  residuals_->CenterAndScale(*values_, info_->reference.Values(), info_->weights.Values());
}

// The average is a linear function of the data.
void DataBlock::SetAverage() {
  for (int k = 1; k <= info_->average.NVal(); ++k) {
    info_->average[k] = CenterAndScale(info_->loaded_average[k], k);
  }
  info_->average.SetActValInfo();
}

const Stage* DataBlock::GetStage(int a) const {
  if (!info_) return nullptr;
  if (a == -1) return &info_->loaded;
  return a == 0 && !IsMissing(info_->centred.ss) ? &info_->centred : nullptr;
}

float DataBlock::GetResidual(int i, int k) const {
  if (IsMissing((*values_)[i][k])) return kMissing;
  return residuals_->Row(static_cast<std::size_t>(i - 1))[static_cast<std::size_t>(k - 1)];
}

float DataBlock::GetCentredValue(int i, int k) const {
  return CenterAndScale((*values_)[i][k], k);
}

float DataBlock::CenterAndScale(float value, int k) const {
  return IsMissing(value) ? value
                          : CenteredAndScaled(value, info_->reference[k], info_->weights[k]);
}

double DataBlock::Restore(double value, int k) const {
  const auto weight = static_cast<double>(info_->weights[k]);
  if (IsMissing(value) || weight == 0.0) return static_cast<double>(kMissing);
  return value / weight + static_cast<double>(info_->reference[k]);
}

const TraData* DataBlock::GetTransformation(int column) const {
  if (preparation_->plan == nullptr) return nullptr;
  const TraInfo& table = preparation_->plan->GetTransformations();
  return table.GetItm(table.FindVar(preparation_->variables->GetVNum(static_cast<short>(column))));
}

float DataBlock::BackTransform(float value, int k) const {
  const TraData* const transformation = GetTransformation(k);
  return transformation == nullptr ? value : transformation->BackTra(value);
}

void DataBlock::Measure(LostFreedom lost, Stage& stage) const {
  Fill(lost, residuals_->RowSquares(), residuals_->ColumnSquares(), stage);
  for (int k = 1; k <= stage.mpow.NVal(); ++k) {
    const double s2 = static_cast<double>(stage.s2v[k]);
    const double initial_s2 = static_cast<double>(info_->centred.s2v[k]);
    const bool is_none = s2 == 0.0 && initial_s2 == 0.0;
    // MPow = max(1 - sqrt(S2V / S2V of stage 0), 0)
    stage.mpow[k] =
        is_none ? 0.0f : static_cast<float>(std::max(1.0 - std::sqrt(s2 / initial_s2), 0.0));
  }
  stage.mpow.SetActValInfo();
}

void DataBlock::Fill(LostFreedom lost, std::span<const double> row_squares,
                     std::span<const double> column_squares, Stage& stage) const {
  const double row_count = values_->NRow();
  const double column_count = values_->NCol();
  const double free_rows = row_count - lost.average - lost.of_column;
  // S2V = SSV / max(n - A0 - c, 1), S2O = SSO / max((m - r) (N - A0 - c) / N, 1)
  const VarianceRule of_column{0.0f, lost.average + lost.of_column, 1.0f};
  const VarianceRule of_row{0.0f, lost.of_row, static_cast<float>(free_rows / row_count)};
  for (int i = 1; i <= stage.sso.NVal(); ++i) {
    const double squares = row_squares[static_cast<std::size_t>(i - 1)];
    stage.sso[i] = ToElement(squares);
    stage.s2o[i] = ToElement(of_row.Apply(values_->NValARow(i), 0.0, squares));
  }
  for (int k = 1; k <= stage.ssv.NVal(); ++k) {
    const double squares = column_squares[static_cast<std::size_t>(k - 1)];
    stage.ssv[k] = ToElement(squares);
    stage.s2v[k] = ToElement(of_column.Apply(values_->NValACol(k), 0.0, squares));
  }
  for (XFVector* vector : {&stage.sso, &stage.s2o, &stage.ssv, &stage.s2v}) {
    vector->SetActValInfo();
  }
  const double ss = std::accumulate(column_squares.begin(), column_squares.end(), 0.0);
  // DF = max((N - A0 - c) (K - r) - (N K - M), 1), S2 = SS / DF
  const double missing_count = row_count * column_count - values_->NValA();
  const double df = free_rows * (column_count - lost.of_row) - missing_count;
  stage.ss = ToElement(ss);
  stage.df = static_cast<float>(std::max(df, 1.0));
  stage.s2 = ToElement(ss / static_cast<double>(stage.df));
}

}  // namespace zemva
