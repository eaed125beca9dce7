// Listings of vectors and matrices.
#ifndef ZEMVA_NUMERIC_VECTOR_LISTING_H
#define ZEMVA_NUMERIC_VECTOR_LISTING_H

#include <span>

#include "zemva/errors/stream_window.h"

namespace zemva {

// Lists `object`, or says that there is none. A matrix takes a third argument: whether its rows are
// cut into lines of 7 values.
template <typename Object, typename... Options>
void Show(const Object* object, StreamWindow& window, Options... options) {
  if (object != nullptr) {
    object->Show(window, options...);
  } else {
    window << Object::kNullText << "\n";
  }
}

// Write the values, 7 to a line where `is_wrapped`, and end the last line. A value stands behind a
// blank, right-aligned to ten columns: a float by "%g", a double by "%10.3f"; a missing one is ".".
void ListValues(StreamWindow& window, std::span<const char> values);
void ListValues(StreamWindow& window, std::span<const short> values);
void ListValues(StreamWindow& window, std::span<const float> values, bool is_wrapped = true);
void ListValues(StreamWindow& window, std::span<const double> values, bool is_wrapped = true);

// Writes the texts, each behind a blank, cut or padded to 9 characters; 7 to a line.
void ListValues(StreamWindow& window, std::span<const char* const> texts);

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_VECTOR_LISTING_H
