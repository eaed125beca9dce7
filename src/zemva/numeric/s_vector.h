// Vectors of texts.
#ifndef ZEMVA_NUMERIC_S_VECTOR_H
#define ZEMVA_NUMERIC_S_VECTOR_H

#include "zemva/base/export.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/row_storage.h"

namespace zemva {

// Texts 1..NVal() of at most GetStrLen() characters; each is an allocation of its own. The pointer
// array's slot 0 is null.
class ZEMVA_API SVector : public RowStorage<SVector, char> {
 public:
  using RowStorage::RowStorage;
  // `length` empty texts of room for `string_length` characters.
  SVector(int length, int string_length);
  SVector(const SVector&) = default;
  SVector& operator=(const SVector&) = default;
  virtual ~SVector();

  // Lists the texts, 7 to a line, cut to 9 characters.
  virtual void Show(StreamWindow& window) const;

  // The number of texts, and the most characters that each may have.
  int NVal() const { return RowCount(); }
  int GetStrLen() const { return Width(); }

  // Text i; null when there is no such text.
  const char* GetElement(int i) const { return i >= 1 && i <= NVal() ? (*this)[i] : nullptr; }

  // Sets text i, cut at GetStrLen() characters. 5004 when there is no such text.
  int SetElement(int i, const char* text);

  // Appends `count` texts set to `text`. 5001 when memory runs out, 5004 when `count` is negative
  // or the vector would grow too long; the vector is then unchanged.
  int Exp(int count, const char* text);

  // What is listed for a null pointer.
  static constexpr const char* kNullText = "SVector is NULL";
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_S_VECTOR_H
