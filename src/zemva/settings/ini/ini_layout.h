// What the settings files call things.
#ifndef ZEMVA_SETTINGS_INI_INI_LAYOUT_H
#define ZEMVA_SETTINGS_INI_INI_LAYOUT_H

#include <array>
#include <cstddef>

#include "zemva/base/fixed_text.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/settings/ini/numbered_list.h"
#include "zemva/settings/profile/path_text.h"
#include "zemva/settings/profile/profile.h"
#include "zemva/settings/profile/profile_text.h"
#include "zemva/settings/profile/text.h"

namespace zemva {

// Written under "Vardo" and "Version" of every settings file. The version is that of the files'
// layout, a decimal number: those before 3.0 hold keys that are used no more.
inline constexpr char kProductIdentification[] = "VARDO-P";
inline constexpr char kLayoutVersion[] = "3.0";
inline constexpr double kFirstCleanVersion = 3.0;

inline constexpr char kIdentificationKey[] = "Vardo";
inline constexpr char kVersionKey[] = "Version";
inline constexpr char kNameKey[] = "Name";
inline constexpr char kTitleKey[] = "Title";

inline constexpr char kCurrentProjectSection[] = "Current project";
inline constexpr char kCurrentProjectKey[] = "Project";

inline constexpr char kMiscellaneousSection[] = "Miscelaneous";  // spelled so in the files

inline constexpr char kPrimaryDatasetSection[] = "Primary Dataset";
inline constexpr char kPrimaryDatasetKey[] = "pd";
inline constexpr char kPrimaryDatasetNameKey[] = "name";

inline constexpr ListLayout kKnownProjects = {"Known projects", "iNProjects", "p", 0,
                                              LeadingInteger};
inline constexpr ListLayout kSecondaryDatasets = {"Secondary Datasets", "iNSD", "d", 0, IntegerOf};
inline constexpr ListLayout kModels = {"Models", "iNMOD", "m", -1, IntegerOf};

// Reads a value into a field that it is cut at, which is empty when the key is absent, and returns
// the field. Lets a failed allocation out, as FindAddress does; for operations that go on with what
// they read. The functions below take what cannot be read for absent and what cannot be written for
// a failure.
template <std::size_t Capacity>
const char* FindValue(FixedText<Capacity>& field, const char* section, const char* key,
                      const char* file) {
  Profile::OfThisSystem().ReadString(section, key, "", {field.Get(), Capacity + 1}, file);
  return field.Get();
}

// Reads an address. One that does not fit is none: cut, it would name another file.
inline const char* FindAddress(PathText& field, const char* section, const char* key,
                               const char* file) {
  std::array<char, PathText::kCapacity + 2> whole;
  const std::size_t length = Profile::OfThisSystem().ReadString(section, key, "", whole, file);
  field.SetPath({whole.data(), length});
  return field.Get();
}

template <std::size_t Capacity>
const char* ReadInto(FixedText<Capacity>& field, const char* section, const char* key,
                     const char* file) {
  return MemoryGuarded([&] { return FindValue(field, section, key, file); }, "");
}

inline const char* ReadAddress(PathText& field, const char* section, const char* key,
                               const char* file) {
  return MemoryGuarded([&] { return FindAddress(field, section, key, file); }, "");
}

// The address of an entry of a list.
inline const char* ReadEntry(PathText& field, const ListLayout& layout, int number,
                             const char* file) {
  const auto read = [&] {
    return FindAddress(field, layout.section, EntryKey(layout, number).c_str(), file);
  };
  return MemoryGuarded(read, "");
}

inline int ReadCount(const ListLayout& layout, const char* file) {
  const auto read = [&] {
    return Profile::OfThisSystem().ReadInteger(layout.section, layout.count_key,
                                               layout.absent_count, file);
  };
  return MemoryGuarded(read, layout.absent_count);
}

inline bool WriteValue(const ProfileChange& change, const char* file) {
  return MemoryGuarded([&] { return Profile::OfThisSystem().Write(change, file); }, false);
}

// An address that could not be read again is refused.
inline bool WriteAddress(const char* section, const char* key, const char* address,
                         const char* file) {
  return IsPathThatFits(ViewOf(address)) && WriteValue({section, key, address}, file);
}

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_INI_INI_LAYOUT_H
