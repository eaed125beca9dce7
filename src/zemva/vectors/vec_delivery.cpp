#include "zemva/vectors/vec_delivery.h"

#include <algorithm>
#include <memory>
#include <string>

#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// The longest label is the name of an observation or a variable.
constexpr int kLabelLength = 25;

constexpr int kLoadedComp = -1;
constexpr int kCentreComp = 0;

struct Label {
  int number;
  std::string name;
};

Label LabelOfComp(int comp) {
  if (comp == kLoadedComp) return {comp, "Initial"};
  if (comp == kCentreComp) return {comp, "Center"};
  return {comp, "Comp[" + std::to_string(comp) + "]"};
}

Label LabelOf(const VecSource& source, const VecQuery& query, int n) {
  const VecCell cell = query.At(n);
  if (query.IsAlongComps()) return LabelOfComp(cell.comp);
  const bool has_constant = query.row->along == EVecAxis::kCoefficients;
  if (has_constant && cell.element == 1) return {0, "Const"};
  const VecLabel label = has_constant ? source.GetLabel(EVecAxis::kVarsX, 0, cell.element - 1)
                                      : source.GetLabel(query.row->along, cell.of, cell.element);
  return {label.number, label.name == nullptr ? "" : label.name};
}

int CountElements(const VecSource& source, const VecQuery& query) {
  if (query.IsAlongComps()) return query.last_comp - query.first_comp + 1;
  if (query.row->along == EVecAxis::kCoefficients) return source.GetCount(EVecAxis::kVarsX, 0) + 1;
  return source.GetCount(query.row->along, query.of);
}

// Whether a component is to be chosen.
bool HasComps(const VecRow& row) {
  return row.comps != EVecComps::kUncounted && row.comps != EVecComps::kResponse;
}

// A request on its way to being complete.
struct Request {
  const VecSource& source;
  const VecRow& row;
  VecSpec spec;  // which gives the vector its name
  VecQuery query;

  bool IsOpen() const { return spec.GetFirstComp() == VecSpec::kNoComp; }
  bool IsByComp() const { return row.along == EVecAxis::kComponents; }
  // Whether the components of a range, taken together, give one vector.
  bool IsOfSpan() const { return row.comps == EVecComps::kSpan || row.comps == EVecComps::kSpanPS; }
};

int CheckObject(const Request& request) {
  const VecSource& source = request.source;
  const VecSpec& spec = request.spec;
  if (!request.row.objects.Has(source.GetDType())) return status::mva::kUnknownVectorType;
  const bool is_kind =
      spec.GetDType() == CEDatType::Undefined || spec.GetDType() == source.GetDType();
  if (!is_kind || !request.row.units.Has(spec.GetEType())) return status::mva::kArgument;
  if (spec.GetDNum() != 0 && spec.GetDNum() != source.GetDNum()) return status::mva::kNoSuchNumber;
  return source.Check(request.row);
}

int ChooseComps(Request& request) {
  const VecRow& row = request.row;
  VecSpec& spec = request.spec;
  VecQuery& query = request.query;
  if (!HasComps(row)) {
    return request.IsOpen() ? status::kOk : status::mva::kComponentNotAvailable;
  }
  const VecCompRange range = GetCompRange(request.source, row);
  if (request.IsOpen() && request.IsByComp()) {
    query.first_comp = range.first;
    query.last_comp = range.last;
  } else {
    if (request.IsOpen()) spec.SetComp(static_cast<short>(range.last));
    query.last_comp = spec.GetLastComp();
    query.first_comp = request.IsOfSpan() && !spec.IsRange() ? range.first : spec.GetFirstComp();
  }
  const bool is_there = range.first <= query.first_comp && query.first_comp <= query.last_comp &&
                        query.last_comp <= range.last;
  return is_there ? status::kOk : status::mva::kComponentNotAvailable;
}

// The position that the index of a request stands for, which becomes its index.
int Locate(Request& request, EVecAxis axis, int& position) {
  const VecSource& source = request.source;
  VecSpec& spec = request.spec;
  int first = 1;
  int last = source.GetCount(axis, 0);
  if (spec.GetBlock() != VecSpec::kWhole) {
    const bool has_blocks = source.GetDType() == CEDatType::Model && axis == EVecAxis::kVars;
    if (!has_blocks) return status::mva::kArgument;
    const int x_count = source.GetCount(EVecAxis::kVarsX, 0);
    if (spec.GetBlock() == VecSpec::kX) last = x_count;
    if (spec.GetBlock() == VecSpec::kY) first = x_count + 1;
  }
  position = first + spec.GetIx() - 1;
  if (spec.IsByNumber()) {
    position = first;
    while (position <= last && source.GetLabel(axis, 0, position).number != spec.GetIx()) {
      ++position;
    }
    if (position > last) return status::mva::kNoSuchNumber;
  }
  if (position < first || position > last) return status::mva::kIndexOutOfRange;
  spec.SetIx(static_cast<short>(position));
  return status::kOk;
}

int ChooseIndices(Request& request) {
  const VecRow& row = request.row;
  VecSpec& spec = request.spec;
  VecQuery& query = request.query;
  if (row.of == EVecAxis::kNothing) {
    const bool is_of_element = spec.IsRange() && !request.IsByComp() && !request.IsOfSpan();
    if (is_of_element) return Locate(request, row.along, query.element);
    return spec.GetIx() == 0 ? status::kOk : status::mva::kArgument;
  }
  if (spec.IsRange()) return status::mva::kArgument;
  const int status = Locate(request, row.of, query.of);
  if (status != status::kOk || row.comps != EVecComps::kResponse) return status;
  if (spec.GetIx2() == 0) spec.SetIx2(1);
  query.of2 = spec.GetIx2();
  const int response_count = request.source.GetCount(EVecAxis::kResponses, 0);
  const bool is_there = query.of2 >= 1 && query.of2 <= response_count;
  return is_there ? status::kOk : status::mva::kIndexOutOfRange;
}

int Complete(Request& request) {
  int status = CheckObject(request);
  if (status == status::kOk) status = ChooseComps(request);
  if (status == status::kOk) status = ChooseIndices(request);
  if (status != status::kOk) return status;
  request.query.length = CountElements(request.source, request.query);
  return request.source.CheckQuery(request.query);
}

// Hands over the vector that `make` makes of a complete request, unless anything stands against it.
template <typename Vector, typename Make>
int Deliver(const VecSource& source, const VecSpec* spec, Vector*& vector, Make make) {
  vector = nullptr;
  if (spec == nullptr) return status::mva::kNullPointer;
  const VecRow* const row = FindVecRow(spec->GetVType());
  if (row == nullptr) return status::mva::kUnknownVectorType;
  return MemoryGuarded([&] {
    Request request = {source, *row, *spec, {}};
    request.query.row = row;
    request.query.units = spec->GetEType();
    int status = Complete(request);
    if (status != status::kOk) return status;
    std::unique_ptr<Vector> made = make(request.spec.GetName(), request.query, status);
    if (status == status::kOk) vector = made.release();  // the caller's
    return status;
  });
}

}  // namespace

int DeliverXFVector(const VecSource& source, const VecSpec* spec, XFVector*& vector) {
  return Deliver(source, spec, vector,
                 [&](const std::string& name, const VecQuery& query, int& status) {
                   auto made = std::make_unique<XFVector>(name.c_str(), query.length, kMissing);
                   Whole(*made);
                   status = source.Fill(query, made->Values());
                   made->SetActValInfo();
                   return made;
                 });
}

int DeliverXSVector(const VecSource& source, const VecSpec* spec, XSVector*& vector,
                    bool is_by_number) {
  return Deliver(
      source, spec, vector, [&](const std::string& name, const VecQuery& query, int& status) {
        if (!query.IsAlongComps()) status = source.CheckLabels(query.row->along);
        const int length = status == status::kOk ? query.length : 0;
        auto made = std::make_unique<XSVector>(name.c_str(), length, kLabelLength);
        Whole(*made);
        for (int n = 1; n <= length; ++n) {
          const Label label = LabelOf(source, query, n);
          made->SetElement(n, (is_by_number ? std::to_string(label.number) : label.name).c_str());
        }
        return made;
      });
}

int CountIndices(const VecSource& source, const VecRow& row) {
  if (row.of != EVecAxis::kNothing) return source.GetCount(row.of, 0);
  return row.along == EVecAxis::kComponents ? 0 : source.GetCount(row.along, 0);
}

int CheckType(const VecSource& source, const VecRow* row) {
  if (row == nullptr || !row->objects.Has(source.GetDType())) {
    return status::mva::kUnknownVectorType;
  }
  const int status = source.Check(*row);
  if (status != status::kOk) return status;
  const VecCompRange range = GetCompRange(source, *row);
  if (HasComps(*row) && range.first > range.last) return status::mva::kComponentNotAvailable;
  const bool has_any = row->of == EVecAxis::kNothing || source.GetCount(row->of, 0) > 0;
  return has_any ? status::kOk : status::mva::kIndexOutOfRange;
}

VecCompRange GetCompRange(const VecSource& source, const VecRow& row) {
  const VecCompCounts counts = source.GetCompCounts();
  using enum EVecComps;
  switch (row.comps) {
    case kUncounted:
    case kResponse:
      return {};
    case kLoaded:
      return {kLoadedComp, kLoadedComp};
    case kToCentre:
      return {kLoadedComp, std::min(kCentreComp, counts.fitted)};
    case kFromLoaded:
      return {kLoadedComp, counts.fitted};
    case kFromCentre:
      return {kCentreComp, counts.fitted};
    case kFitted:
    case kSpan:
      return {1, counts.fitted};
    case kLast:
      return {counts.used, counts.used};
    case kFromCentrePS:
      return {kCentreComp, counts.predicted};
    case kFittedPS:
    case kSpanPS:
      return {1, counts.predicted};
    case kLastPS:
      return {counts.predicted, counts.predicted};
  }
  return {};
}

}  // namespace zemva
