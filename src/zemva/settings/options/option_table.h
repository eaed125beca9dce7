// What each option is called, begins as and may be.
#ifndef ZEMVA_SETTINGS_OPTIONS_OPTION_TABLE_H
#define ZEMVA_SETTINGS_OPTIONS_OPTION_TABLE_H

#include <span>
#include <string>
#include <string_view>

#include "zemva/settings/options/option_types.h"

namespace zemva {

// The section of the settings file that holds the global options.
inline constexpr char kOptionsSection[] = "Options";

// Which texts are legal values.
struct OptionRule {
  enum class Kind {
    Real,     // a real number from lowest to highest
    Integer,  // an integer from lowest to highest
    Words,    // exactly one of the words
    Path,     // the path of something that exists
    Never,    // nothing
  };

  Kind kind;
  double lowest = 0;
  double highest = 0;
  std::span<const char* const> words = {};

  bool Allows(std::string_view value) const;
  // The legal values in words.
  std::string Describe() const;
};

struct OptionCell {
  const char* key;
  const char* default_value;
  OptionRule rule;

  // An option with a default that is not legal itself keeps no value from one load to the next. The
  // empty default stands for no value.
  bool IsResetOnLoad() const { return *default_value != '\0' && !rule.Allows(default_value); }
};

inline bool IsOption(EOptType type) {
  return type > EOptType::None && static_cast<int>(type) <= kOptionCount;
}

// The row of an option; `type` must be one.
const OptionCell& OptionRow(EOptType type);

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_OPTION_TABLE_H
