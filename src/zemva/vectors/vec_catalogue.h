// What vectors there are: a row for each type.
#ifndef ZEMVA_VECTORS_VEC_CATALOGUE_H
#define ZEMVA_VECTORS_VEC_CATALOGUE_H

#include <span>

#include "zemva/base/export.h"
#include "zemva/vectors/dat_type.h"
#include "zemva/vectors/elm_type.h"
#include "zemva/vectors/vec_type.h"

namespace zemva {

// The catalogue says of each type of vector which objects have it, what its elements stand for, of
// what there is one, at which components, in which units, and what of a model it needs. All else
// is a look-up in it: what a VecSpec asks for is checked against the row, completed and named here
// (vec_delivery.h), and no object that has vectors decides any of this for itself.
//
// What the rows cannot hold is how the elements are found, for the objects live on floors above.
// Each class of objects that has vectors has a table of its own, of type and member function
// (VecFill), and tells through VecSource how many observations, variables and components it has and
// what they are called. A new type is a row here and a row in the table of its object.

// What counts: the elements of a vector, or what there is one of for each.
enum class EVecAxis : char {
  kNothing,
  kComponents,    // Initial for -1, Center for 0, Comp[1]..
  kObs,           // of the object
  kObsPS,         // of the prediction set that a model was executed on
  kVars,          // of the object; of a model the X variables, then the responses
  kVarsX,         // of a model
  kResponses,     // of a model
  kCoefficients,  // the constant, then the X variables
  kValidated,     // what a cross-validation predicts: the responses, or without any X
  kLagged,        // the variables of which a model has lags
  kLags,          // of such a variable
};

// The components at which a vector exists. Component -1 is the data as loaded, 0 the data centred
// and scaled. A is the number of components fitted, or for PS that was used for the prediction set.
enum class EVecComps : char {
  kUncounted,     // the vector has nothing to do with components
  kLoaded,        // -1
  kToCentre,      // -1 and 0
  kFromLoaded,    // -1..A
  kFromCentre,    // 0..A
  kFitted,        // 1..A
  kSpan,          // 1..A, or those from one to another taken together
  kLast,          // the last one in use
  kFromCentrePS,  // as those above, for a prediction set
  kFittedPS,
  kSpanPS,
  kLastPS,
  kResponse,  // all taken together; where other names have the component there is the response
};

// What of a model a vector is made of, and so what must be there.
enum class EVecState : char {
  kRecords,    // what it keeps of its components
  kData,       // its data, loaded
  kExecuted,   // the results of an execution on the work set
  kPredicted,  // the results of an execution on a prediction set
};

// Sets of the kinds of objects, of the families of models and of units, a bit a member.
struct VecObjects {
  unsigned bits;
  constexpr bool Has(CEDatType::EDT type) const { return (bits >> type & 1U) != 0; }
};
struct VecFamilies {
  bool is_pc;
  bool is_pls;
};
struct VecUnits {
  unsigned bits;
  constexpr bool Has(CEElmType::EET type) const {
    return type >= 0 && type <= CEElmType::Scaled && (bits >> type & 1U) != 0;
  }
};

struct VecRow {
  CEVecType::EVT type;
  const char* name;
  VecObjects objects;
  EVecAxis along;  // what the elements stand for
  EVecAxis of;     // what there is a vector for each of, beside components
  EVecComps comps;
  VecFamilies families;
  EVecState state;
  VecUnits units;
};

// All rows, in the order of the types.
ZEMVA_API std::span<const VecRow> VecCatalogue();
// Null for what is no type.
ZEMVA_API const VecRow* FindVecRow(CEVecType::EVT type);

}  // namespace zemva

#endif  // ZEMVA_VECTORS_VEC_CATALOGUE_H
