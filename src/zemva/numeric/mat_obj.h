// The base of all vectors and matrices.
#ifndef ZEMVA_NUMERIC_MAT_OBJ_H
#define ZEMVA_NUMERIC_MAT_OBJ_H

#include <memory>
#include <new>
#include <utility>

#include "zemva/base/export.h"
#include "zemva/errors/status.h"

namespace zemva {

// Holds the status word. No member of a vector or matrix throws: one that fails stores its code
// here (those of status::mat) and, where it returns an int, returns it too. A member that succeeds
// leaves the word alone, so that it keeps the last failure until ClearStatus.
class ZEMVA_API MatObj {
 public:
  // The code of the last failure, 0 where there was none.
  int GetStatus() const { return status_; }
  void ClearStatus() { status_ = status::kOk; }

 protected:
  MatObj() = default;
  // The status belongs to the object and is not copied with its contents.
  MatObj(const MatObj&) {}
  MatObj& operator=(const MatObj&) { return *this; }
  ~MatObj() = default;

  // Stores the code of a failure and returns it; status::kOk is returned and not stored.
  int Report(int status) const {
    if (status != status::kOk) status_ = status;
    return status;
  }

  // Hands a new object over to the caller. A null one has failed with `status`, or else for want of
  // memory.
  template <typename Object>
  Object* HandOver(std::unique_ptr<Object> object, int status = status::kOk) const {
    if (!object) Report(status == status::kOk ? status::mat::kMemory : status);
    return object.release();
  }

 private:
  // A member that computes something from the object can fail without changing it.
  mutable int status_ = status::kOk;
};

// A new vector or matrix; null when there is no memory for it or its construction failed.
template <typename Object, typename... Arguments>
std::unique_ptr<Object> MakeObject(Arguments&&... arguments) {
  std::unique_ptr<Object> object(new (std::nothrow) Object(std::forward<Arguments>(arguments)...));
  if (object && object->GetStatus() != status::kOk) object.reset();
  return object;
}

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MAT_OBJ_H
