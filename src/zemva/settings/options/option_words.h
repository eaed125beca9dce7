// The words of the enumerations, in the order of their values.
#ifndef ZEMVA_SETTINGS_OPTIONS_OPTION_WORDS_H
#define ZEMVA_SETTINGS_OPTIONS_OPTION_WORDS_H

#include <array>
#include <cstddef>
#include <string_view>

#include "zemva/settings/options/option_types.h"

namespace zemva {

template <typename Enumeration>
inline constexpr std::array<const char*, 0> kWords = {};

template <>
inline constexpr std::array kWords<EToggle> = {"Off", "On"};
template <>
inline constexpr std::array kWords<EDModType> = {"DModX", "DModY"};
template <>
inline constexpr std::array kWords<EVariType> = {"R2", "R2adj"};
template <>
inline constexpr std::array kWords<EModDist> = {"Absolute", "Normalized"};
template <>
inline constexpr std::array kWords<EPltMark> = {"None", "Number", "Name"};
template <>
inline constexpr std::array kWords<EPltTempl> = {"Screen", "Printer"};
template <>
inline constexpr std::array kWords<EXBLKType> = {"Designed", "Undesigned"};
template <>
inline constexpr std::array kWords<EResidType> = {"Scaled", "Standardized"};
template <>
inline constexpr std::array kWords<ETimeType> = {"Time", "Discrete"};
template <>
inline constexpr std::array kWords<EValidate> = {"NoCV", "Auto", "CV", "Eig"};

// "" for what is no value of the enumeration.
template <typename Enumeration>
constexpr const char* WordOf(Enumeration value) {
  const auto position = static_cast<std::size_t>(value);
  return position < kWords<Enumeration>.size() ? kWords<Enumeration>[position] : "";
}

// The value whose word is exactly `word`, else `fallback`.
template <typename Enumeration>
constexpr Enumeration ValueOf(std::string_view word, Enumeration fallback) {
  for (std::size_t i = 0; i < kWords<Enumeration>.size(); ++i) {
    if (kWords<Enumeration>[i] == word) return static_cast<Enumeration>(i);
  }
  return fallback;
}

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_OPTIONS_OPTION_WORDS_H
