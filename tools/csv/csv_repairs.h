// What becomes of that in a file which does not fit a data set.
#ifndef ZEMVA_TOOLS_CSV_CSV_REPAIRS_H
#define ZEMVA_TOOLS_CSV_CSV_REPAIRS_H

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "csv/csv_text.h"

namespace zemva::tools {

enum class CsvRepair {
  kCellMadeMissing,
  kRowFilledUp,
  kRowCut,
  kObservationRenumbered,
  kNameChanged,
  kRowsLeftOut,
  kVariablesLeftOut,
};
inline constexpr std::array<std::string_view, 7> kCsvRepairNames = {
    "cells made missing",        "rows filled up", "rows cut",
    "observations renumbered",   "names changed",  "lots of rows left out",
    "lots of variables left out"};

class CsvRepairs {
 public:
  // Receives each repair, with a line on it. Without one nothing is repaired.
  using Report = std::function<void(CsvRepair, const std::string&)>;

  explicit CsvRepairs(Report report) : report_(std::move(report)) {}

  // Raises CsvError unless repairs are asked for. Who goes on repairs, and tells it.
  void Refuse(CsvPlace place, std::string_view reason) const {
    if (!report_) throw CsvError(place, reason);
  }
  void Tell(CsvRepair kind, CsvPlace place, std::string_view reason,
            std::string_view repair) const {
    report_(kind, CsvMessage(place, std::string(reason) + ": " + std::string(repair)));
  }
  void RefuseOrTell(CsvRepair kind, CsvPlace place, std::string_view reason,
                    std::string_view repair) const {
    Refuse(place, reason);
    Tell(kind, place, reason, repair);
  }

 private:
  Report report_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_REPAIRS_H
