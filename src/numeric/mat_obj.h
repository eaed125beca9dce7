// The base of all vectors and matrices.
#ifndef ZEMVA_NUMERIC_MAT_OBJ_H
#define ZEMVA_NUMERIC_MAT_OBJ_H

#include "base/export.h"
#include "errors/status.h"

namespace zemva {

// Holds the status word. No member of a vector or matrix throws: one that fails stores its code
// here (those of status::mat) and, where it returns an int, returns it too. A member that succeeds
// leaves the word alone, so that it keeps the last failure until ClearStatus.
class ZEMVA_API MatObj {
 public:
  int GetStatus() const { return status_; }
  void ClearStatus() { status_ = status::kOk; }

 protected:
  MatObj() = default;
  // The status belongs to the object and is not copied with its contents.
  MatObj(const MatObj&) {}
  MatObj& operator=(const MatObj&) { return *this; }
  ~MatObj() = default;

  // Stores the code of a failure and returns it; status::kOk is returned and not stored.
  int Report(int status) {
    if (status != status::kOk) status_ = status;
    return status;
  }

 private:
  int status_ = status::kOk;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_MAT_OBJ_H
