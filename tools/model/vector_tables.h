// Result vectors as tables: a row an element, a column a vector.
#ifndef ZEMVA_TOOLS_MODEL_VECTOR_TABLES_H
#define ZEMVA_TOOLS_MODEL_VECTOR_TABLES_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "zemva/numeric/x_vector.h"
#include "zemva/vectors/vec_catalogue.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva::tools {

// The vectors of one type that there are: at components first..last, none where last is below
// first; for indices 1..index_count, 0 where there is but one of them, and responses
// 1..response_count, likewise.
struct VectorChoice {
  const VecRow* row;
  int first_comp;
  int last_comp;
  int index_count;
  int response_count = 0;
};

// What an element is, as the user calls it: "components", "observations", "variables", "lags",
// "predictions" for the observations of a prediction set; "" for nothing.
std::string NameOf(EVecAxis axis);

// Writes a line for each choice to standard output, as comma-separated values: the name of the
// type, what its elements are, of what there is one for each, components and units.
void WriteChoices(const std::vector<VectorChoice>& choices);

// All vectors of the choices whose elements are so called, in the units of the data.
std::vector<VecSpec> SpecsBy(const std::string& elements, const std::vector<VectorChoice>& choices);

// Vectors side by side, where their elements are the same; a table for each kind of elements, with
// an empty line between them.
class VectorTables {
 public:
  // Takes a vector over, with the names and the numbers of its elements.
  void Add(EVecAxis along, std::unique_ptr<XFVector> values, std::unique_ptr<XSVector> names,
           std::unique_ptr<XSVector> numbers);
  // Writes them to standard output as comma-separated values.
  void Write() const;

 private:
  struct Table {
    std::string elements;
    std::unique_ptr<XSVector> names;
    std::unique_ptr<XSVector> numbers;
    std::vector<std::unique_ptr<XFVector>> vectors;
  };

  std::vector<Table> tables_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_VECTOR_TABLES_H
