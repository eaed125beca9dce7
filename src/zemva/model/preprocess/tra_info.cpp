#include "zemva/model/preprocess/tra_info.h"

#include <cmath>
#include <limits>

#include "zemva/base/fixed_text.h"
#include "zemva/model/preprocess/element.h"

namespace zemva {
namespace {

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// Both leave the range of a float, or become no number, exactly where the result is missing.
double Value(double x, ETraType type, double c1, double c2, double c3) {
  switch (type) {
    case ETraType::kNone:
      return x;
    case ETraType::kLinear:
      return c1 * x + c2;
    case ETraType::kLog:
      return std::log10(c1 * x + c2);
    case ETraType::kNegLog:
      return -std::log10(c1 * x + c2);
    case ETraType::kLogit:
      return std::log10((x - c1) / (c2 - x));
    case ETraType::kExp:
      return std::exp(c1 * x + c2);
    case ETraType::kPower:
      return std::pow(c1 * x + c2, c3);
  }
  return kNotANumber;
}

double Inverse(double y, ETraType type, double c1, double c2, double c3) {
  switch (type) {
    case ETraType::kNone:
      return y;
    case ETraType::kLinear:
      return (y - c2) / c1;
    case ETraType::kLog:
      return (std::pow(10.0, y) - c2) / c1;
    case ETraType::kNegLog:
      return (std::pow(10.0, -y) - c2) / c1;
    case ETraType::kLogit: {
      const double ratio = std::pow(10.0, y);
      return (c1 + c2 * ratio) / (1.0 + ratio);
    }
    case ETraType::kExp:
      return (std::log(y) - c2) / c1;
    case ETraType::kPower:
      // The power 1/0 would take any number to 0, 1 or infinity.
      return c3 == 0.0 ? kNotANumber : (std::pow(y, 1.0 / c3) - c2) / c1;
  }
  return kNotANumber;
}

}  // namespace

const char* TraData::GetFormat(ETraType type, char letter) {
  static FixedText<31> text;
  const auto row = static_cast<std::size_t>(type);
  text.Set(row < pszTraType.size() ? pszTraType[row] : "");
  char* to = text.Get();
  for (const char* from = to; *from != '\0'; ++from) {
    const bool is_variable = from[0] == '%' && from[1] == 'c';
    *to++ = is_variable ? letter : *from;
    if (is_variable) ++from;
  }
  *to = '\0';
  return text.Get();
}

float TraData::Transform(float value, ETraType type, float c1, float c2, float c3) {
  return IsMissing(value) ? value : ToElement(Value(value, type, c1, c2, c3));
}

float TraData::BackTra(float value, ETraType type, float c1, float c2, float c3) {
  return IsMissing(value) ? value : ToElement(Inverse(value, type, c1, c2, c3));
}

const char* TraInfo::Header() const {
  return "  Item\tVNum\tTraType\tTraC1\t\tTraC2\t\tTraC3";
}

void TraInfo::ShowRow(short i, const TraData& row, StreamWindow& window) const {
  Listing(window)
      .Right(6, i)
      .Text("\t")
      .Number(row.GetINum())
      .Text("\t")
      .Text(TraData::GetFormat(row.GetTraType(), 'X'))
      .Text("\t")
      .General(0, row.GetTraC1())
      .Text("\t\t")
      .General(0, row.GetTraC2())
      .Text("\t\t")
      .General(0, row.GetTraC3())
      .EndLine();
}

}  // namespace zemva
