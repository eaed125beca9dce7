#include "zemva/numeric/uni_var.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>

#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/sample.h"

namespace zemva {
namespace {

constexpr int kPositionWidth = 4;
constexpr int kLabelLength = 25;

// The statistics of one variable, kMissing where they cannot be computed.
struct Summary {
  float present_count = 0.0f;
  float missing_percentage = kMissing;
  float min = kMissing;
  float max = kMissing;
  float min_max_ratio = kMissing;
  float mean = kMissing;
  float median = kMissing;
  float lower_quartile = kMissing;
  float upper_quartile = kMissing;
  float sd = kMissing;
  float skewness = kMissing;
  float kurtosis = kMissing;
};

float FiniteOrMissing(float value) {
  return std::isfinite(value) ? value : kMissing;
}

// Summarizes the present values, which are sorted in passing, of a variable.
Summary Summarize(std::span<float> values, int missing_count) {
  Summary summary;
  const double present_count = static_cast<double>(values.size());
  summary.present_count = static_cast<float>(present_count);
  summary.missing_percentage =
      static_cast<float>(100.0 * missing_count / (present_count + missing_count));
  if (values.empty()) return summary;
  const SampleMoments moments = MomentsOf(values);
  summary.mean = moments.mean;
  summary.sd = moments.standard_deviation;
  summary.skewness = FiniteOrMissing(moments.skewness);
  summary.kurtosis = FiniteOrMissing(moments.kurtosis);
  summary.median = SortForMedian(values);
  const Quartiles quartiles = QuartilesOfSorted(values, summary.median);
  summary.lower_quartile = quartiles.lower;
  summary.upper_quartile = quartiles.upper;
  summary.min = values.front();
  summary.max = values.back();
  if (summary.max != 0.0f) summary.min_max_ratio = summary.min / summary.max;
  return summary;
}

// Collects the values of one variable after the other.
class Summarizer {
 public:
  Summarizer(const XFMatrix* x, const XI1Vector* variables, const XI1Vector* observations)
      : x_(x), observations_(observations), values_(x ? x->NRow() : 0, kMissing) {
    const bool fits = x != nullptr && variables != nullptr && observations != nullptr &&
                      variables->NVal() == x->NCol() && observations->NVal() == x->NRow();
    if (!fits) {
      status_ = status::sta::kArgument;
    } else if (values_.GetStatus() != status::kOk) {
      status_ = status::sta::kMemory;
    }
  }

  int GetStatus() const { return status_; }

  bool HasObservations() const { return observations_->GetNNotEqual(0) > 0; }

  Summary Summarize(int variable) {
    int present_count = 0;
    int missing_count = 0;
    for (int i = 1; i <= x_->NRow(); ++i) {
      if ((*observations_)[i] == 0) continue;
      const float value = (*x_)[i][variable];
      if (IsMissing(value)) {
        ++missing_count;
      } else {
        values_[++present_count] = value;
      }
    }
    const auto count = static_cast<std::size_t>(present_count);
    return zemva::Summarize(values_.Values().first(count), missing_count);
  }

 private:
  const XFMatrix* x_;
  const XI1Vector* observations_;
  FVector values_;
  int status_ = status::kOk;
};

}  // namespace

struct UniVar::Column {
  bool UniVar::*is_on;
  const char* heading;  // in the listing
  const char* label;    // in the vector of labels
  int width;
  int decimals;
  float Summary::*value;  // null: none
};

// clang-format off
const UniVar::Column UniVar::kColumns[] = {
    {&UniVar::has_present_count_,      "   N",        "N",           5,  0, &Summary::present_count},
    {&UniVar::has_missing_percentage_, "   MV%",      "% MisVal",    6,  3, &Summary::missing_percentage},
    {&UniVar::has_min_,                "        Min", "Min",         10, 3, &Summary::min},
    {&UniVar::has_max_,                "        Max", "Max",         10, 3, &Summary::max},
    {&UniVar::has_min_max_ratio_,      "    Min/Max", "Min/Max",     10, 3, &Summary::min_max_ratio},
    {&UniVar::has_mean_,               "       Mean", "Mean",        10, 3, &Summary::mean},
    {&UniVar::has_median_,             "     Median", "Median",      10, 3, &Summary::median},
    {&UniVar::has_quartiles_,          "        25%", "25%",         10, 3, &Summary::lower_quartile},
    {&UniVar::has_quartiles_,          "        75%", "75%",         10, 3, &Summary::upper_quartile},
    {&UniVar::has_sd_,                 "         SD", "StdDev",      10, 3, &Summary::sd},
    {&UniVar::has_skewness_,           "   Skewness", "Skewness",    10, 3, &Summary::skewness},
    {&UniVar::has_kurtosis_,           "   Kurtosis", "Kurtosis",    10, 3, &Summary::kurtosis},
    {&UniVar::has_normality_,          "  Prob Norm", "Prob. Norm.", 10, 3, nullptr},
};
// clang-format on

UniVar::~UniVar() = default;

int UniVar::GetNumberOfStatistics() const {
  const auto is_on = [this](const Column& column) { return this->*column.is_on; };
  return static_cast<int>(std::ranges::count_if(kColumns, is_on));
}

int UniVar::Calc(const XFMatrix* x, const XI1Vector* variables, const XI1Vector* observations,
                 StreamWindow& window) const {
  Summarizer summarizer(x, variables, observations);
  if (summarizer.GetStatus() != status::kOk) return summarizer.GetStatus();
  Listing listing(window);
  listing.Text(" Var");
  for (const Column& column : kColumns) {
    if (this->*column.is_on) listing.Text(column.heading);
  }
  listing.EndLine();
  for (int j = 1; j <= x->NCol(); ++j) {
    if ((*variables)[j] == 0) continue;
    if (!summarizer.HasObservations()) {
      listing.Text("No observations selected.").EndLine();
      break;
    }
    const Summary summary = summarizer.Summarize(j);
    listing.Right(kPositionWidth, j);
    for (const Column& column : kColumns) {
      if (!(this->*column.is_on) || column.value == nullptr) continue;
      const float value = summary.*column.value;
      if (IsMissing(value)) {
        listing.Right(column.width, "N/A");
      } else {
        listing.Fixed(column.width, column.decimals, value);
      }
    }
    listing.EndLine();
  }
  return status::kOk;
}

int UniVar::CalcAndReturnAsVectors(const XFMatrix* x, const XI1Vector* variables,
                                   const XI1Vector* observations, XFMatrix*& results,
                                   XSVector*& headers) const {
  results = nullptr;
  headers = nullptr;
  const int statistic_count = GetNumberOfStatistics();
  if (statistic_count == 0) return status::kUnspecified;
  Summarizer summarizer(x, variables, observations);
  if (summarizer.GetStatus() != status::kOk) return summarizer.GetStatus();
  auto table =
      MakeObject<XFMatrix>("Results", variables->GetNNotEqual(0), statistic_count, kMissing);
  auto labels = MakeObject<XSVector>("Headers", statistic_count, kLabelLength);
  if (!table || !labels) return status::sta::kMemory;
  int label = 0;
  for (const Column& column : kColumns) {
    if (this->*column.is_on) labels->SetElement(++label, column.label);
  }
  int row = 0;
  for (int j = 1; j <= x->NCol() && summarizer.HasObservations(); ++j) {
    if ((*variables)[j] == 0) continue;
    const Summary summary = summarizer.Summarize(j);
    float* cell = (*table)[++row];
    for (const Column& column : kColumns) {
      if (!(this->*column.is_on)) continue;
      *++cell = column.value == nullptr ? kMissing : summary.*column.value;
    }
  }
  table->SetActValInfo();
  results = table.release();
  headers = labels.release();
  return status::kOk;
}

}  // namespace zemva
