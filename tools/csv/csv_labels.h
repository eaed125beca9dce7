// The numbers and names of a table, as its columns and its header row give them.
//
// Each collects the labels in their order; those that do not fit are refused, or, where repairs are
// asked for, replaced at the end, when it is known which labels are taken.
#ifndef ZEMVA_TOOLS_CSV_CSV_LABELS_H
#define ZEMVA_TOOLS_CSV_CSV_LABELS_H

#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "csv/csv_repairs.h"
#include "csv/csv_text.h"

namespace zemva::tools {

inline constexpr std::size_t kLongestName = 24;

struct LabelToRepair {
  std::size_t index;
  CsvPlace place;
  std::string reason;
};

// The number that a cell holds: whole, and within 16 bits.
std::optional<short> ParseNumber(std::string_view cell);

// Numbers of observations, no two alike. A repaired one gets the smallest, from 1, that is free.
class CsvNumbers {
 public:
  CsvNumbers(const CsvText& text, const CsvRepairs& repairs) : text_(text), repairs_(repairs) {}

  void Add(CsvPlace place, std::string_view cell);
  std::vector<short> Finish();

 private:
  std::string FindFault(std::string_view cell, std::optional<short> number) const;

  const CsvText& text_;
  const CsvRepairs& repairs_;
  std::vector<short> numbers_;
  std::bitset<65536> taken_;
  std::vector<LabelToRepair> to_repair_;
};

// Names in the code page, of at most kLongestName characters. A repaired one is cut, and given a
// suffix where that makes it the name of another.
class CsvNames {
 public:
  enum class Kind { kObservations, kVariables };

  // Names of variables are all there, and no two are alike.
  CsvNames(Kind kind, const CsvText& text, const CsvRepairs& repairs)
      : kind_(kind), text_(text), repairs_(repairs) {}

  void Add(CsvPlace place, std::string_view cell);
  std::vector<std::string> Finish();

 private:
  std::string FindFault(std::string_view cell, const std::string& name, bool is_whole) const;
  std::string TakeDistinct(std::string_view name);

  Kind kind_;
  const CsvText& text_;
  const CsvRepairs& repairs_;
  std::vector<std::string> names_;
  std::unordered_set<std::string> taken_;
  std::unordered_map<std::string, int> last_suffixes_;
  std::vector<LabelToRepair> to_repair_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_LABELS_H
