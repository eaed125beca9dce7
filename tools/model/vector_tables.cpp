#include "model/vector_tables.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>

#include "csv/csv_writer.h"
#include "text/code_page.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// The headings of the columns that say what the elements are: of the number and of the name.
struct Headings {
  const char* number;
  const char* name;
};

Headings HeadingsOf(std::string_view elements) {
  if (elements == "components") return {nullptr, "Comp"};
  if (elements == "lags") return {"Lag", "VNam"};
  return elements == "variables" ? Headings{"VNum", "VNam"} : Headings{"ONum", "ONam"};
}

std::string RangeOf(int first, int last) {
  if (first > last) return {};
  return first == last ? std::to_string(first)
                       : std::to_string(first) + ".." + std::to_string(last);
}

std::string UnitsOf(const VecRow& row) {
  std::string units;
  for (const auto unit : {CEElmType::Transformed, CEElmType::Scaled, CEElmType::Standardized}) {
    if (!row.units.Has(unit)) continue;
    units += (units.empty() ? "" : " ") + std::string(CEElmType::GetString(unit));
  }
  return units;
}

bool AreSame(const XSVector& one, const XSVector& other) {
  if (one.NVal() != other.NVal()) return false;
  for (int i = 1; i <= one.NVal(); ++i) {
    if (std::string_view(one[i]) != other[i]) return false;
  }
  return true;
}

}  // namespace

std::string NameOf(EVecAxis axis) {
  switch (axis) {
    case EVecAxis::kNothing:
      return {};
    case EVecAxis::kComponents:
      return "components";
    case EVecAxis::kObs:
      return "observations";
    case EVecAxis::kObsPS:
      return "predictions";
    case EVecAxis::kLags:
      return "lags";
    case EVecAxis::kVars:
    case EVecAxis::kVarsX:
    case EVecAxis::kResponses:
    case EVecAxis::kCoefficients:
    case EVecAxis::kValidated:
    case EVecAxis::kLagged:
      return "variables";
  }
  return {};
}

void WriteChoices(const std::vector<VectorChoice>& choices) {
  CsvWriter csv(stdout);
  for (const char* const heading : {"Vector", "Elements", "Index", "Components", "Units"}) {
    csv.Text(heading);
  }
  csv.EndRow();
  for (const VectorChoice& choice : choices) {
    csv.Text(choice.row->name);
    csv.Text(NameOf(choice.row->along));
    csv.Text(RangeOf(1, choice.index_count));
    csv.Text(RangeOf(choice.first_comp, choice.last_comp));
    csv.Text(UnitsOf(*choice.row));
    csv.EndRow();
  }
}

std::vector<VecSpec> SpecsBy(const std::string& elements,
                             const std::vector<VectorChoice>& choices) {
  std::vector<VecSpec> specs;
  const auto add = [&](const VectorChoice& choice, int comp) {
    const int first = choice.index_count == 0 ? 0 : 1;
    const int first_response = choice.response_count == 0 ? 0 : 1;
    for (int ix = first; ix <= choice.index_count; ++ix) {
      for (int m = first_response; m <= choice.response_count; ++m) {
        specs.emplace_back(choice.row->type, static_cast<short>(ix), static_cast<short>(comp));
        specs.back().SetIx2(static_cast<short>(m));
      }
    }
  };
  for (const VectorChoice& choice : choices) {
    if (NameOf(choice.row->along) != elements) continue;
    const bool is_whole = choice.row->along == EVecAxis::kComponents;
    if (is_whole || choice.first_comp > choice.last_comp) {
      add(choice, VecSpec::kNoComp);
    } else {
      for (int comp = choice.first_comp; comp <= choice.last_comp; ++comp) add(choice, comp);
    }
  }
  return specs;
}

void VectorTables::Add(EVecAxis along, std::unique_ptr<XFVector> values,
                       std::unique_ptr<XSVector> names, std::unique_ptr<XSVector> numbers) {
  const std::string elements = NameOf(along);
  auto table = std::ranges::find_if(tables_, [&](const Table& other) {
    return other.elements == elements && AreSame(*other.names, *names) &&
           AreSame(*other.numbers, *numbers);
  });
  if (table == tables_.end()) {
    tables_.push_back({elements, std::move(names), std::move(numbers), {}});
    table = tables_.end() - 1;
  }
  table->vectors.push_back(std::move(values));
}

void VectorTables::Write() const {
  CsvWriter csv(stdout);
  for (const Table& table : tables_) {
    if (&table != &tables_.front()) csv.EndRow();
    const Headings headings = HeadingsOf(table.elements);
    if (headings.number != nullptr) csv.Text(headings.number);
    csv.Text(headings.name);
    for (const auto& vector : table.vectors) csv.Text(vector->GetName());
    csv.EndRow();
    for (int i = 1; i <= table.names->NVal(); ++i) {
      if (headings.number != nullptr) csv.Text((*table.numbers)[i]);
      csv.Text(Utf8FromCodePage((*table.names)[i]));
      for (const auto& vector : table.vectors) {
        const float value = (*vector)[i];
        IsMissing(value) ? csv.Empty() : csv.Number(value);
      }
      csv.EndRow();
    }
  }
}

}  // namespace zemva::tools
