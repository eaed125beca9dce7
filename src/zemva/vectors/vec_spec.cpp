#include "zemva/vectors/vec_spec.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>

#include "zemva/errors/status.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {
namespace {

constexpr CEElmType::EET kSuffixes[] = {CEElmType::Transformed, CEElmType::Standardized,
                                        CEElmType::Scaled};

// Takes a text apart from its begin.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  bool Skip(std::string_view prefix) {
    if (!text_.starts_with(prefix)) return false;
    text_.remove_prefix(prefix.size());
    return true;
  }
  // Null, with nothing taken, where there is no number that fits.
  std::optional<short> Number() {
    short number = 0;
    const auto [end, error] = std::from_chars(text_.data(), text_.data() + text_.size(), number);
    if (error != std::errc()) return std::nullopt;
    text_.remove_prefix(static_cast<std::size_t>(end - text_.data()));
    return number;
  }
  std::optional<short> NumberInBrackets() {
    if (!Skip("[")) return std::nullopt;
    const auto number = Number();
    return Skip("]") ? number : std::nullopt;
  }
  CEElmType::EET Units() {
    for (const CEElmType::EET units : kSuffixes) {
      if (Skip(CEElmType::GetString(units))) return units;
    }
    return CEElmType::Plain;
  }

 private:
  std::string_view text_;
};

std::string InBrackets(int number) {
  return "[" + std::to_string(number) + "]";
}

}  // namespace

std::string VecSpec::GetName() const {
  std::string name = CEVecType::GetString(vtype_);
  name += CEElmType::GetString(etype_);
  if (IsRange()) {
    return name + std::to_string(first_comp_) + ":" + std::to_string(last_comp_) + InBrackets(ix_);
  }
  if (ix_ != 0) name += std::to_string(ix_);
  if (ix2_ != 0) return name + InBrackets(ix2_);
  return first_comp_ == kNoComp ? name : name + InBrackets(first_comp_);
}

bool VecSpec::Read(const VecRow& row, const char* name) {
  Reader reader(name);
  if (!reader.Skip(row.name)) return false;
  VecSpec spec(row.type);
  spec.etype_ = reader.Units();
  const auto number = reader.Number();
  if (number && reader.Skip(":")) {
    spec.SetComps(*number, reader.Number().value_or(*number));
    spec.ix_ = reader.NumberInBrackets().value_or(0);
  } else {
    spec.ix_ = number.value_or(0);
    const auto in_brackets = reader.NumberInBrackets();
    if (row.comps == EVecComps::kResponse) {
      spec.ix2_ = in_brackets.value_or(0);
    } else {
      spec.SetComp(in_brackets.value_or(kNoComp));
    }
  }
  // What was left out, left over or written in another way shows in the name.
  if (spec.ix_ < 0 || spec.ix2_ < 0 || spec.GetName() != name) return false;
  *this = spec;
  return true;
}

int VecSpec::SetName(const char* name) {
  if (name == nullptr) return status::mva::kNullPointer;
  // Names run into one another: "CoeffCSt" is a CoeffC, and no CoeffCS.
  const bool is_name =
      std::ranges::any_of(VecCatalogue(), [&](const VecRow& row) { return Read(row, name); });
  return is_name ? status::kOk : status::mva::kUnknownVectorType;
}

int VecSpec::GetEVET(const char* name, CEVecType::EVT& type, CEElmType::EET& units) {
  VecSpec spec;
  const int status = spec.SetName(name);
  type = status == status::kOk ? spec.vtype_ : CEVecType::Undefined;
  units = status == status::kOk ? spec.etype_ : CEElmType::Undefined;
  return status;
}

}  // namespace zemva
