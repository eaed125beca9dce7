#include "zemva/settings/options/option_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>

#include "zemva/base/paths.h"
#include "zemva/settings/options/option_words.h"
#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

constexpr double kLargestReal = std::numeric_limits<double>::max();
constexpr int kLargestInteger = std::numeric_limits<int>::max();

constexpr OptionRule Real(double lowest = -kLargestReal, double highest = kLargestReal) {
  return {OptionRule::Kind::Real, lowest, highest};
}
constexpr OptionRule Integer(int lowest, int highest = kLargestInteger) {
  return {OptionRule::Kind::Integer, static_cast<double>(lowest), static_cast<double>(highest)};
}
constexpr OptionRule OneOf(std::span<const char* const> words) {
  return {OptionRule::Kind::Words, 0, 0, words};
}
template <typename Enumeration>
constexpr OptionRule WordOfEnumeration() {
  return OneOf(kWords<Enumeration>);
}

constexpr OptionRule kToggle = WordOfEnumeration<EToggle>();
constexpr OptionRule kDistance = WordOfEnumeration<EModDist>();
constexpr OptionRule kMark = WordOfEnumeration<EPltMark>();
constexpr OptionRule kExistingPath = {OptionRule::Kind::Path};
constexpr OptionRule kNever = {OptionRule::Kind::Never};

constexpr const char* kStopWords[] = {"Auto", "CV", "Eig"};
constexpr const char* kCrossValidationWords[] = {"NoCV", "CV"};

// In the order of EOptType. The default of ResidType is not one of its words, and XOpt1 has no
// legal value: both are reset whenever the settings file is read.
constexpr OptionCell optionTable[] = {
    {"CompLimLoa", "3.0", Real(1.0, 5.0)},
    {"CompLimScr", "3.0", Real(1.0, 5.0)},
    {"ExtMisVal", "-100000.0", Real()},
    {"LagDecay", "0.95", Real(0.0, 1.0)},
    {"LogCompLim", "Off", kToggle},
    {"MaxIter", "200", Integer(0)},
    {"MaxMisValLS", "50.0", Real(0.0, 100.0)},
    {"MaxMisValPS", "50.0", Real(0.0, 100.0)},
    {"NCV", "7", Integer(0)},
    {"SignLev", "0.05", Real(0.0, 1.0)},
    {"SignLevLS", "0.05", Real(0.0, 1.0)},
    {"TimeMode", "Discrete", WordOfEnumeration<ETimeType>()},
    {"VariMode", "R2", WordOfEnumeration<EVariType>()},
    {"ModDistType", "Normalized", kDistance},
    {"VarPltMark", "Name", kMark},
    {"VarPltMarkSta", "1", Integer(1, 25)},
    {"VarPltMarkLen", "8", Integer(1, 25)},
    {"ObsPltMark", "Number", kMark},
    {"ObsPltMarkSta", "1", Integer(1, 25)},
    {"ObsPltMarkLen", "8", Integer(1, 25)},
    {"PltTempl", "Screen", WordOfEnumeration<EPltTempl>()},
    {"DesignedX", "Undesigned", WordOfEnumeration<EXBLKType>()},
    {"DefaultProjectDir", "", kExistingPath},
    {"ResidType", "standardized", WordOfEnumeration<EResidType>()},
    {"AutofitStop", "CV", OneOf(kStopWords)},
    {"CrossValidation", "CV", OneOf(kCrossValidationWords)},
    {"BackTraYLS", "On", kToggle},
    {"MPowResLS", "Off", kToggle},
    {"MPowResPS", "Off", kToggle},
    {"BackTraYPS", "On", kToggle},
    {"ModDistTypePS", "Normalized", kDistance},
    {"ResFilePS", "Off", kToggle},
    {"ScaResPS", "Off", kToggle},
    {"XOpt1", "0", kNever},
    {"DModType", "DModX", WordOfEnumeration<EDModType>()},
    {"ReconstructWavelets", "On", kToggle},
    {"NumberFormat", "3", Integer(0, 5)},
    {"DModXCritDistLimit", "1", Real(0.0, 4.0)},
    {"XScoreCritDistLimit", "2", Real(0.0, 4.0)},
    {"ColumnPlotMark", "Off", kToggle},
};
static_assert(std::size(optionTable) == kOptionCount);

bool IsExistingPath(std::string_view value) {
  // The backslash of "C:\\" belongs to the folder, any other at an end does not.
  const bool is_root = value.ends_with(":\\");
  if (value.ends_with('\\') && !is_root) value.remove_suffix(1);
  return !value.empty() && FileExists(value);
}

std::string DescribeRange(const char* numbers, const OptionRule& rule) {
  return std::string(numbers)
      .append(" from ")
      .append(FormatShortest(rule.lowest))
      .append(" to ")
      .append(FormatShortest(rule.highest));
}

std::string DescribeWords(std::span<const char* const> words) {
  std::string text;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i > 0) text += i + 1 < words.size() ? ", " : " or ";
    text += words[i];
  }
  return text;
}

}  // namespace

bool OptionRule::Allows(std::string_view value) const {
  switch (kind) {
    case Kind::Real: {
      const auto number = ParseReal(value);
      return number && *number >= lowest && *number <= highest;
    }
    case Kind::Integer: {
      const auto number = ParseInteger(value);
      return number && *number >= lowest && *number <= highest;
    }
    case Kind::Words:
      return std::ranges::find(words, value) != words.end();
    case Kind::Path:
      return IsExistingPath(value);
    case Kind::Never:
      return false;
  }
  return false;
}

std::string OptionRule::Describe() const {
  switch (kind) {
    case Kind::Real:
      return highest == kLargestReal ? "a real number" : DescribeRange("a real number", *this);
    case Kind::Integer:
      return DescribeRange("an integer", *this);
    case Kind::Words:
      return DescribeWords(words);
    case Kind::Path:
      return "a path that exists";
    case Kind::Never:
      return "no value";
  }
  return {};
}

const OptionCell& OptionRow(EOptType type) {
  return optionTable[static_cast<int>(type) - 1];
}

}  // namespace zemva
