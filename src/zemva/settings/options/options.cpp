#include "zemva/settings/options/options.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <vector>

#include "zemva/errors/memory_guard.h"
#include "zemva/settings/options/option_table.h"
#include "zemva/settings/options/option_words.h"
#include "zemva/settings/profile/profile.h"
#include "zemva/settings/profile/profile_text.h"
#include "zemva/settings/profile/settings_file.h"
#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

// Null when there is none.
const std::string* ValueIn(const std::vector<ProfileEntry>& entries, std::string_view key) {
  const auto entry = std::ranges::find_if(entries, [key](const ProfileEntry& candidate) {
    return IsSameIgnoringCase(candidate.key, key);
  });
  return entry != entries.end() ? &entry->value : nullptr;
}

}  // namespace

Options::Options(bool has_defaults_only) {
  for (int number = 1; number <= kOptionCount; ++number) {
    values_[static_cast<std::size_t>(number)].Set(
        OptionRow(static_cast<EOptType>(number)).default_value);
  }
  if (!has_defaults_only) LoadLocal();
}

const char* Options::GetValue(EOptType type) const {
  return IsOption(type) ? values_[static_cast<std::size_t>(type)].Get() : "";
}

float Options::GetFloatValue(EOptType type) const {
  constexpr double kLargest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(LeadingReal(GetValue(type)), -kLargest, kLargest));
}

bool Options::SetValue(EOptType type, const char* value) {
  if (!IsLegalValue(type, value) || ViewOf(value).size() > kLongestValue) return false;
  SetText(type, value);
  SetChangeFlag();
  return true;
}

void Options::SetText(EOptType type, const char* text) {
  if (IsOption(type)) values_[static_cast<std::size_t>(type)].Set(text);
}

EOptType Options::GetOptType(const char* key) {
  for (int number = 1; number <= kGlobalOptionCount; ++number) {
    const auto type = static_cast<EOptType>(number);
    if (ViewOf(key) == OptionRow(type).key) return type;
  }
  return EOptType::None;
}

bool Options::IsLegalValue(EOptType type, const char* value) {
  return IsOption(type) && value != nullptr && OptionRow(type).rule.Allows(value);
}

std::string Options::GetLegalValues(EOptType type) {
  return IsOption(type) ? OptionRow(type).rule.Describe() : std::string();
}

const char* Options::GetDefaultValue(EOptType type) {
  return IsOption(type) ? OptionRow(type).default_value : "";
}

bool Options::IsGlobalOption(EOptType type) {
  return IsOption(type) && static_cast<int>(type) <= kGlobalOptionCount;
}
bool Options::IsLocalOption(EOptType type) {
  return IsGlobalOption(type);
}

bool Options::IsResetOnLoad(EOptType type) {
  return IsGlobalOption(type) && OptionRow(type).IsResetOnLoad();
}

bool Options::LoadGlobal() {
  return ReadFile(true);
}

bool Options::ReadGlobal() {
  return ReadFile(false);
}

// Fills the global options, and the file with what it lacks where it is to be completed.
bool Options::ReadFile(bool is_completed) {
  const auto load = [this, is_completed] {
    Values loaded = values_;
    const bool is_complete = Profile::OfThisSystem().Update(
        kOptionsSection, SettingsFile().c_str(), [&](const std::vector<ProfileEntry>& entries) {
          const std::vector<KeyChange> lacking = TakeOver(entries, loaded);
          return is_completed ? lacking : std::vector<KeyChange>();
        });
    values_ = loaded;
    return is_complete;
  };
  return MemoryGuarded(load, false);
}

std::vector<KeyChange> Options::TakeOver(const std::vector<ProfileEntry>& entries, Values& values) {
  std::vector<KeyChange> defaults;
  for (int number = 1; number <= kGlobalOptionCount; ++number) {
    const OptionCell& row = OptionRow(static_cast<EOptType>(number));
    auto& cell = values[static_cast<std::size_t>(number)];
    const std::string* value = ValueIn(entries, row.key);
    const bool is_kept = value != nullptr && !row.IsResetOnLoad() && !value->empty() &&
                         value->size() <= kLongestValue && row.rule.Allows(*value);
    cell.Set(is_kept ? value->c_str() : row.default_value);
    const bool is_in_file = value != nullptr && *value == cell.View();
    if (!is_in_file) defaults.push_back({row.key, row.default_value});
  }
  return defaults;
}

bool Options::SaveGlobal() {
  const auto save = [this] {
    std::vector<ProfileChange> values;
    for (int number = 1; number <= kGlobalOptionCount; ++number) {
      const auto type = static_cast<EOptType>(number);
      values.push_back({kOptionsSection, OptionRow(type).key, GetValue(type)});
    }
    return Profile::OfThisSystem().Write(values, SettingsFile().c_str());
  };
  if (!MemoryGuarded(save, false)) return false;
  ResetChangeFlag();
  return true;
}

bool Options::SaveGlobalValue(EOptType type) const {
  if (!IsGlobalOption(type) || !IsKeptAsItIs(GetValue(type))) return false;
  const auto save = [&] {
    return Profile::OfThisSystem().Write({kOptionsSection, OptionRow(type).key, GetValue(type)},
                                         SettingsFile().c_str());
  };
  return MemoryGuarded(save, false);
}

const char* Options::GetString(EOptType type) {
  return IsOption(type) ? OptionRow(type).key : "";
}
const char* Options::GetString(EToggle value) {
  return WordOf(value);
}
const char* Options::GetString(EDModType value) {
  return WordOf(value);
}
const char* Options::GetString(EVariType value) {
  return WordOf(value);
}
const char* Options::GetString(EModDist value) {
  return WordOf(value);
}
const char* Options::GetString(EPltMark value) {
  return WordOf(value);
}
const char* Options::GetString(EPltTempl value) {
  return WordOf(value);
}
const char* Options::GetString(EXBLKType value) {
  return WordOf(value);
}
const char* Options::GetString(EResidType value) {
  return WordOf(value);
}
const char* Options::GetString(ETimeType value) {
  return WordOf(value);
}
const char* Options::GetString(EValidate value) {
  return WordOf(value);
}

}  // namespace zemva
