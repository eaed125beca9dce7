// What the data sets and models, the objects that are named and held by pointer, stand on.
#ifndef ZEMVA_DATA_OBJECT_BASE_H
#define ZEMVA_DATA_OBJECT_BASE_H

#include "zemva/base/export.h"

namespace zemva {

// The identity of a class of objects: its name, and a number of its own in this run of the program.
class ZEMVA_API ClassID {
 public:
  // `name` must outlive it.
  explicit ClassID(const char* name);

  // The name and the number of the class.
  const char* GetName() const { return name_; }
  int GetID() const { return id_; }

 private:
  const char* name_;
  int id_;
};

class ZEMVA_API ResetPointer {
 public:
  virtual ~ResetPointer();

 protected:
  ResetPointer() = default;
  ResetPointer(const ResetPointer&) = default;
  ResetPointer& operator=(const ResetPointer&) = default;
};

class ZEMVA_API ConstructDestructMessage : public ResetPointer {
 public:
  // True when `id` is that of the object's class.
  virtual bool IsClass(int id) const = 0;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_OBJECT_BASE_H
