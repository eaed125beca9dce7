// What becomes of that in a file which does not fit a data set.
#ifndef ZEMVA_TOOLS_CSV_CSV_REPAIRS_H
#define ZEMVA_TOOLS_CSV_CSV_REPAIRS_H

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "csv/csv_text.h"

namespace zemva::tools {

class CsvRepairs {
 public:
  // Receives a line for each repair. Without one nothing is repaired.
  using Report = std::function<void(const std::string&)>;

  explicit CsvRepairs(Report report) : report_(std::move(report)) {}

  // Raises CsvError unless repairs are asked for. Who goes on repairs, and tells it.
  void Refuse(CsvPlace place, std::string_view reason) const {
    if (!report_) throw CsvError(place, reason);
  }
  void Tell(CsvPlace place, std::string_view reason, std::string_view repair) const {
    report_(CsvMessage(place, std::string(reason) + ": " + std::string(repair)));
  }
  void RefuseOrTell(CsvPlace place, std::string_view reason, std::string_view repair) const {
    Refuse(place, reason);
    Tell(place, reason, repair);
  }

 private:
  Report report_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_CSV_CSV_REPAIRS_H
