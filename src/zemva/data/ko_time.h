// A point in time or an interval of time.
#ifndef ZEMVA_DATA_KO_TIME_H
#define ZEMVA_DATA_KO_TIME_H

#include "zemva/base/export.h"

namespace zemva {

class ZEMVA_API KOTime {
 public:
  // The kinds of time.
  static constexpr char kInterval = 0;
  static constexpr char kInstant = 1;

  explicit KOTime(char kind = kInterval, double value = 0.0) : value_(value), kind_(kind) {}

  void Set(double value, char kind) {
    value_ = value;
    kind_ = kind;
  }

  // The value, and the kind.
  double GetValue() const { return value_; }
  // kInstant or kInterval.
  char GetKind() const { return kind_; }

 private:
  double value_;
  char kind_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_KO_TIME_H
