// What the settings files call things.
#ifndef ZEMVA_SETTINGS_INI_INI_LAYOUT_H
#define ZEMVA_SETTINGS_INI_INI_LAYOUT_H

#include <array>
#include <cstddef>

#include "zemva/base/fixed_text.h"
#include "zemva/settings/ini/numbered_list.h"
#include "zemva/settings/ini/path_text.h"
#include "zemva/settings/profile/profile.h"
#include "zemva/settings/profile/profile_text.h"
#include "zemva/settings/profile/text.h"

namespace zemva {

inline constexpr char kSettingsFileName[] = "zemva.ini";

// Written under "Vardo" and "Version" of every settings file. The version is that of the files'
// layout, a decimal number: those before 3.0 hold keys that are used no more.
inline constexpr char kProductIdentification[] = "VARDO-P";
inline constexpr char kLayoutVersion[] = "3.0";
inline constexpr double kFirstCleanVersion = 3.0;

inline constexpr char kProductSection[] = "VardoP";
inline constexpr char kIdentificationKey[] = "Vardo";
inline constexpr char kVersionKey[] = "Version";
inline constexpr char kNameKey[] = "Name";
inline constexpr char kTitleKey[] = "Title";

inline constexpr char kCurrentProjectSection[] = "Current project";
inline constexpr char kCurrentProjectKey[] = "Project";

inline constexpr char kOptionsSection[] = "Options";

inline constexpr char kMiscellaneousSection[] = "Miscelaneous";  // spelled so in the files

inline constexpr char kPrimaryDatasetSection[] = "Primary Dataset";
inline constexpr char kPrimaryDatasetKey[] = "pd";
inline constexpr char kPrimaryDatasetNameKey[] = "name";

inline constexpr ListLayout kKnownProjects = {"Known projects", "iNProjects", "p", 0,
                                              LeadingInteger};
inline constexpr ListLayout kSecondaryDatasets = {"Secondary Datasets", "iNSD", "d", 0, IntegerOf};
inline constexpr ListLayout kModels = {"Models", "iNMOD", "m", -1, IntegerOf};

// Reads a value into a field that it is cut at, which is empty when the key is absent, and returns
// the field.
template <std::size_t Capacity>
const char* ReadInto(FixedText<Capacity>& field, const char* section, const char* key,
                     const char* file) {
  Profile::OfThisSystem().ReadString(section, key, "", {field.Get(), Capacity + 1}, file);
  return field.Get();
}

// Reads an address. One that does not fit is none: cut, it would name another file.
inline const char* ReadAddress(PathText& field, const char* section, const char* key,
                               const char* file) {
  std::array<char, PathText::kCapacity + 2> whole;
  const std::size_t length = Profile::OfThisSystem().ReadString(section, key, "", whole, file);
  field.SetPath({whole.data(), length});
  return field.Get();
}

// Writes an address. One that could not be read again is refused.
inline bool WriteAddress(const char* section, const char* key, const char* address,
                         const char* file) {
  return IsPathThatFits(ViewOf(address)) &&
         Profile::OfThisSystem().Write({section, key, address}, file);
}

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_INI_INI_LAYOUT_H
