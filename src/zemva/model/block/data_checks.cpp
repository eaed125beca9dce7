// The checks of DataBlock before a model is fitted.
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "zemva/errors/status.h"
#include "zemva/model/block/data_block.h"

namespace zemva {
namespace {

constexpr int kFewestValues = 4;
constexpr double kNoVariation = 1e-10;

double MissingPercent(int present, int count) {
  return 100.0 - static_cast<double>(present) / count * 100.0;
}

// ", temperature has more than MaxMisVal% missing values ( 62.50%).\n"
std::string OverLimit(const char* name, const char* what, double percent) {
  char number[40];
  std::snprintf(number, sizeof number, "%6.2f", percent);
  return std::string(", ") + name + " has more than MaxMisVal% missing " + what + " (" + number +
         "%).\n";
}

bool IsNo(char reply) {
  return reply == 'n' || reply == 'N';
}

}  // namespace

int DataBlock::CheckMissing(const ObsInfo& observations, const MissingLimits& limits,
                            ModelOwner& owner, ModelLog& log) const {
  const std::string letter(1, GetLetter());
  std::vector<std::string> questions;
  bool is_hopeless = false;
  for (int k = 1; k <= values_->NCol(); ++k) {
    const int present = values_->NValACol(k);
    const double percent = MissingPercent(present, values_->NRow());
    const bool is_allowed = percent <= static_cast<double>(limits.variable_percent);
    if (present >= kFewestValues && is_allowed) continue;
    const std::string subject = letter + " variable " + std::to_string(GetNumber(k));
    if (present < kFewestValues) {
      is_hopeless = true;
      log.Line()
          .Text(subject + ", " + GetName(k) + " has less than 4 non-missing values.")
          .EndLine()
          .Text("Can not compute model.")
          .EndLine();
    }
    if (is_allowed) continue;
    questions.push_back(subject + OverLimit(GetName(k), "values", percent));
    log.Write(questions.back());
  }
  for (int i = 1; i <= values_->NRow() && block_ == EBlock::kX; ++i) {
    const double percent = MissingPercent(values_->NValARow(i), values_->NCol());
    if (percent <= static_cast<double>(limits.observation_percent)) continue;
    const auto position = static_cast<short>(i);
    const std::string number = std::to_string(observations.GetONum(position));
    const char* const name = observations.GetONam(position);
    const std::string elements = letter + " elements";
    log.Write("Observation " + number + OverLimit(name, elements.c_str(), percent));
    questions.push_back(letter + " observation " + number + OverLimit(name, "values", percent));
  }
  if (is_hopeless) {
    log.Write(letter + " matrix has missing value problem. Can not compute model.\n");
    log.Write("See log for further information.\n");
    return status::mva::kTooManyMissing;
  }
  for (const std::string& question : questions) {
    if (!IsNo(owner.Ask((question + "Continue model computation?").c_str()))) continue;
    std::fputs("Model computation aborted.\nSee log for further information.\n", stdout);
    return status::mva::kTooManyMissing;
  }
  return status::kOk;
}

void DataBlock::CheckVariance(ModelLog& log) const {
  for (int k = 1; k <= values_->NCol(); ++k) {
    const double largest = static_cast<double>(info_->largest[k]);
    const double smallest = static_cast<double>(info_->smallest[k]);
    const double size = std::abs(smallest) + std::abs(largest);
    if (largest - smallest > kNoVariation * size) continue;
    log.Write(std::string("Variance for ") + GetLetter() + "-variable " +
              std::to_string(GetNumber(k)) + " " + GetName(k) + " is (close to) zero.\n");
  }
}

int DataBlock::CheckConstants(ModelLog& log) const {
  int status = status::kOk;
  for (int k = 1; k <= values_->NCol(); ++k) {
    if (info_->largest[k] != info_->smallest[k]) continue;
    log.Write(std::string("Variance for ") + GetLetter() + "-variable " +
              std::to_string(GetNumber(k)) + " " + GetName(k) + " is zero.\n");
    status = status::mva::kZeroVariance;
  }
  return status;
}

}  // namespace zemva
