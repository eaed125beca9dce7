#include "csv/csv_labels.h"

#include <charconv>

#include "csv/csv_values.h"
#include "text/code_page.h"
#include "zemva/data/names.h"

namespace zemva::tools {
namespace {

std::size_t Slot(short number) {
  return static_cast<unsigned short>(number);
}

}  // namespace

std::optional<short> ParseNumber(std::string_view cell) {
  const std::string_view digits = WithoutPlus(WithoutBlanks(cell));
  short number = 0;
  const char* const end = digits.data() + digits.size();
  const auto result = std::from_chars(digits.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

void CsvNumbers::Add(CsvPlace place, std::string_view cell) {
  const std::optional<short> number = ParseNumber(cell);
  numbers_.push_back(number.value_or(0));
  std::string fault = FindFault(cell, number);
  if (fault.empty()) {
    taken_.set(Slot(*number));
  } else {
    repairs_.Refuse(place, fault);
    to_repair_.push_back({numbers_.size() - 1, place, std::move(fault)});
  }
}

std::vector<short> CsvNumbers::Finish() {
  short free = 1;
  for (const LabelToRepair& label : to_repair_) {
    while (taken_.test(Slot(free))) ++free;
    taken_.set(Slot(free));
    numbers_[label.index] = free;
    repairs_.Tell(CsvRepair::kObservationRenumbered, label.place, label.reason,
                  "renumbered " + std::to_string(free));
  }
  return std::move(numbers_);
}

std::string CsvNumbers::FindFault(std::string_view cell, std::optional<short> number) const {
  if (text_.IsMissing(cell)) return "the observation has no number";
  if (!number) return text_.Quoted(cell) + " is not a whole number from -32768 to 32767";
  if (taken_.test(Slot(*number))) {
    return "the number " + std::to_string(*number) + " is that of another observation";
  }
  return {};
}

void CsvNames::Add(CsvPlace place, std::string_view cell) {
  bool is_whole = true;
  names_.push_back(text_.InCodePage(cell, is_whole));
  std::string fault = FindFault(cell, names_.back(), is_whole);
  if (fault.empty()) {
    taken_.insert(names_.back());
  } else {
    repairs_.Refuse(place, fault);
    to_repair_.push_back({names_.size() - 1, place, std::move(fault)});
  }
}

std::vector<std::string> CsvNames::Finish() {
  for (const LabelToRepair& label : to_repair_) {
    std::string& name = names_[label.index];
    if (name.empty()) name = NumberedName("Var_", static_cast<int>(label.index + 1));
    name = TakeDistinct(name);
    repairs_.Tell(CsvRepair::kNameChanged, label.place, label.reason,
                  "named '" + Utf8FromCodePage(name) + "'");
  }
  return std::move(names_);
}

std::string CsvNames::FindFault(std::string_view cell, const std::string& name,
                                bool is_whole) const {
  if (!is_whole) return "the name " + text_.Quoted(cell) + " is not in code page 1252";
  if (name.size() > kLongestName) {
    return "the name " + text_.Quoted(cell) + " has more than 24 characters";
  }
  if (kind_ == Kind::kObservations) return {};
  if (name.empty()) return "the variable has no name";
  if (taken_.contains(name)) {
    return "the name " + text_.Quoted(cell) + " is that of another variable";
  }
  return {};
}

// A name that is not taken, and now is: this one, cut where it is too long, or with the first
// suffix that makes it distinct.
std::string CsvNames::TakeDistinct(std::string_view name) {
  const std::string stem(name.substr(0, kLongestName));
  std::string distinct = stem;
  int& last_suffix = last_suffixes_.try_emplace(stem, 1).first->second;
  while (!taken_.insert(distinct).second) {
    const std::string suffix = SuffixedName("", ++last_suffix);
    distinct = stem.substr(0, kLongestName - suffix.size()) + suffix;
  }
  return distinct;
}

}  // namespace zemva::tools
