// The options of a project: a table of texts, kept in the settings file.
#ifndef ZEMVA_SETTINGS_OPTIONS_OPTIONS_H
#define ZEMVA_SETTINGS_OPTIONS_OPTIONS_H

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/settings/options/option_types.h"

namespace zemva {

struct KeyChange;
struct ProfileEntry;

// Holds a value for each of the 40 options; those numbered 1 to 36 are "global": they stand in the
// section "Options" of the settings file (see IniFile::GetSettingsFile). What is illegal in the
// file is replaced by its default.
class ZEMVA_API Options {
 public:
  // The most characters of a value.
  static constexpr std::size_t kLongestValue = 259;

  virtual ~Options() = default;

  // Takes over all values and the change flag.
  void Copy(const Options& other) { *this = other; }

  // The text of an option; "" when `type` is none.
  const char* GetValue(EOptType type) const;
  // The text as a real number, as far as it is one; 0 when it is none.
  float GetFloatValue(EOptType type) const;
  // Takes over a legal value and sets the change flag. Returns whether the value was legal; one
  // that is longer than a value may be is not.
  bool SetValue(EOptType type, const char* value);

  // The global option with exactly this key; None when there is none.
  static EOptType GetOptType(const char* key);
  // Whether a text is legal for an option; false when `type` is none or the text null.
  static bool IsLegalValue(EOptType type, const char* value);
  // The legal values, in words for a person.
  static std::string GetLegalValues(EOptType type);
  // "" when `type` is none.
  static const char* GetDefaultValue(EOptType type);

  // Both answer for the options 1 to 36.
  static bool IsGlobalOption(EOptType type);
  static bool IsLocalOption(EOptType type);

  // Whether LoadGlobal gives an option its default whatever the file holds: ResidType and XOpt1,
  // whose defaults are not legal themselves.
  static bool IsResetOnLoad(EOptType type);

  // Reads the global options. Where the file has no value or an illegal one, the option and the
  // file get the default. False when the file cannot be read or memory runs out, and the options
  // are as they were, or when a default could not be written.
  bool LoadGlobal();
  // The same for the options alone: the file stays as it is.
  bool ReadGlobal();
  // Writes the global options and clears the change flag. False, and neither happens, when the file
  // could not be written.
  bool SaveGlobal();
  // Writes one global option, and leaves to others what they wrote. False when `type` is none,
  // when the file could not be written, or when it would not give the value back as it is, since
  // blanks and quotes around one are lost; the file is then as it was.
  bool SaveGlobalValue(EOptType type) const;
  // Do nothing: no options are kept with a project.
  void LoadLocal() {}
  void SaveLocal() {}

  // Whether a value was set since the options were made or saved.
  bool IsChanged() const { return is_changed_; }
  // Set by SetValue, reset by SaveGlobal; here for who changes values in another way.
  void SetChangeFlag() { is_changed_ = true; }
  void ResetChangeFlag() { is_changed_ = false; }

  // The word of a value, or the key of an option; "" for what is none.
  static const char* GetString(EOptType type);
  static const char* GetString(EToggle value);
  static const char* GetString(EDModType value);
  static const char* GetString(EVariType value);
  static const char* GetString(EModDist value);
  static const char* GetString(EPltMark value);
  static const char* GetString(EPltTempl value);
  static const char* GetString(EXBLKType value);
  static const char* GetString(EResidType value);
  static const char* GetString(ETimeType value);
  static const char* GetString(EValidate value);

 protected:
  // All options begin with their defaults. Without the flag, LoadLocal is called.
  explicit Options(bool has_defaults_only);
  Options(const Options&) = default;
  Options& operator=(const Options&) = default;

  // Sets the text of an option, cut at 259 characters, legal or not.
  void SetText(EOptType type, const char* text);

 private:
  bool ReadFile(bool is_completed);
  using Values = std::array<FixedText<kLongestValue>, kOptionCount + 1>;

  // Fills the global options, and returns what the file lacks.
  static std::vector<KeyChange> TakeOver(const std::vector<ProfileEntry>& entries, Values& values);

  Values values_;  // by number; 0 stays empty
  bool is_changed_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_OPTIONS_H
