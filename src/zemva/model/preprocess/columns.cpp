#include "zemva/model/preprocess/columns.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/model/preprocess/element.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

// The columns by variable number; where numbers repeat the first counts.
class ColumnIndex {
 public:
  explicit ColumnIndex(const VarInfo& variables) {
    for (int j = 1; j <= variables.GetNVar(); ++j) {
      columns_.emplace(variables.GetVNum(static_cast<short>(j)), j);
    }
  }

  // 0 for none.
  int Find(short vnum) const {
    const auto found = columns_.find(vnum);
    return found == columns_.end() ? 0 : found->second;
  }

 private:
  std::unordered_map<short, int> columns_;
};

// The rows of a table in order.
template <typename Row>
std::vector<const Row*> Rows(const VariableTable<Row>& table) {
  std::vector<const Row*> rows;
  for (short i = 1; table.GetItm(i) != nullptr; ++i) rows.push_back(table.GetItm(i));
  return rows;
}

// Appends columns, all missing, and variables for the rows of the table.
int AppendColumns(const ItmInfo& table, XFMatrix& matrix, VarInfo& variables) {
  VarInfo extended(variables);
  if (extended.GetNVar() != variables.GetNVar()) return status::mva::kMemory;
  for (short i = 1; table.GetINam(i) != nullptr; ++i) {
    const int status = extended.AddVar(table.GetINum(i), table.GetINam(i));
    if (status != status::kOk) return status;
  }
  if (matrix.ExpCols(table.GetNItm(), kMissing) != status::kOk) return status::mva::kMemory;
  variables = std::move(extended);
  return status::kOk;
}

bool DescribesColumns(const VarInfo& variables, const XFMatrix& matrix) {
  return variables.GetNVar() == matrix.NCol();
}

struct LagSource {
  int column;
  int lag;
};

struct TransformedColumn {
  int column;
  const TraData* transformation;
};

// The columns of the factors of a term.
using Factors = std::vector<int>;

bool AreAllPresent(const Factors& factors, const float* row) {
  return std::ranges::none_of(factors, [&](int column) { return IsMissing(row[column]); });
}

double Product(const Factors& factors, const float* row) {
  double product = 1.0;
  for (const int column : factors) product *= row[column];
  return product;
}

// Empty when the term has no factor or one that is not there.
Factors FindFactors(const ExpData& term, const ColumnIndex& index) {
  Factors factors;
  for (const short vnum : term.GetFactors()) {
    if (vnum == 0) continue;
    const int column = index.Find(vnum);
    if (column == 0) return {};
    factors.push_back(column);
  }
  return factors;
}

}  // namespace

int AppendLagged(const LagInfo& lags, XFMatrix& matrix, VarInfo& variables) {
  if (!DescribesColumns(variables, matrix)) return status::mva::kIndexOutOfRange;
  return MemoryGuarded([&] {
    const ColumnIndex index(variables);
    std::vector<LagSource> sources;
    for (const LagData* lagged : Rows(lags)) {
      sources.push_back({index.Find(lagged->GetVNumDS()), lagged->GetLag()});
      if (sources.back().column == 0) return status::mva::kMissingUnderlyingTerm;
    }
    const int first = matrix.NCol() + 1;
    const int status = AppendColumns(lags, matrix, variables);
    if (status != status::kOk) return status;
    for (int i = 1; i <= matrix.NRow(); ++i) {
      float* to = matrix[i] + first;
      // Beyond the rows an element is missing.
      for (const auto& [column, lag] : sources) *to++ = matrix.GetElement(i - lag, column);
    }
    matrix.SetActValInfo();
    return status::kOk;
  });
}

int TransformColumns(const TraInfo& transformations, const VarInfo& variables, XFMatrix& matrix,
                     XI1Vector& excluded) {
  if (!DescribesColumns(variables, matrix) || excluded.NVal() != matrix.NRow()) {
    return status::mva::kIndexOutOfRange;
  }
  return MemoryGuarded([&] {
    const ColumnIndex index(variables);
    std::vector<TransformedColumn> columns;
    for (const TraData* transformation : Rows(transformations)) {
      columns.push_back({index.Find(transformation->GetINum()), transformation});
      if (columns.back().column == 0) return status::mva::kVariableNotAvailable;
    }
    for (int i = 1; i <= matrix.NRow(); ++i) {
      for (const auto& [column, transformation] : columns) {
        float& value = matrix[i][column];
        const float transform = transformation->Transform(value);
        if (IsMissing(transform) && !IsMissing(value)) excluded[i] = kSelected;
        value = transform;
      }
    }
    matrix.SetActValInfo();
    return status::kOk;
  });
}

int AppendExpanded(const ExpInfo& terms, XFMatrix& matrix, VarInfo& variables,
                   XI1Vector& excluded) {
  if (!DescribesColumns(variables, matrix) || excluded.NVal() != matrix.NRow()) {
    return status::mva::kIndexOutOfRange;
  }
  return MemoryGuarded([&] {
    const ColumnIndex index(variables);
    std::vector<Factors> factors_of_terms;
    for (const ExpData* term : Rows(terms)) {
      factors_of_terms.push_back(FindFactors(*term, index));
      if (factors_of_terms.back().empty()) return status::mva::kMissingUnderlyingTerm;
    }
    const int first = matrix.NCol() + 1;
    const int status = AppendColumns(terms, matrix, variables);
    if (status != status::kOk) return status;
    for (int i = 1; i <= matrix.NRow(); ++i) {
      float* to = matrix[i] + first;
      for (const Factors& factors : factors_of_terms) {
        const bool is_defined = AreAllPresent(factors, matrix[i]);
        *to = is_defined ? ToElement(Product(factors, matrix[i])) : kMissing;
        if (is_defined && IsMissing(*to)) excluded[i] = kSelected;
        ++to;
      }
    }
    matrix.SetActValInfo();
    return status::kOk;
  });
}

}  // namespace zemva
