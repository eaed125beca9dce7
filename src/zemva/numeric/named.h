// The name that the X classes add.
#ifndef ZEMVA_NUMERIC_NAMED_H
#define ZEMVA_NUMERIC_NAMED_H

#include <new>
#include <string>
#include <utility>

#include "zemva/errors/listing.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/present.h"

namespace zemva {

// A vector or matrix of class `Base` with a name of any length. `Derived` is the X class.
//
// When there is no memory for the name in a constructor the object is left empty with status 5001.
template <typename Derived, typename Base>
class Named : public Base {
 public:
  Named(const Named& other) : Base(other) { InitName(other.GetName()); }

  // A copy of `*other`; empty with status 5007 when it is null.
  explicit Named(const Derived* other) : Base(static_cast<const Base*>(other)) {
    if (other != nullptr) InitName(other->GetName());
  }

  // Takes the name, size and contents; unchanged with status 5001 when memory runs out.
  Named& operator=(const Named& other) {
    Assign(other);
    return *this;
  }

  // Copies name and contents of an object of the same size. 5004 when the sizes differ, 5007 for
  // null, 5001 when there is no memory for the name.
  int Copy(const Derived* other) {
    if (other == nullptr) return this->Report(status::mat::kNullPointer);
    return RenameAfter(other->GetName(), [&] { return Base::Copy(other); });
  }

  // The object's own address; no copy.
  Derived* GetPtr() { return static_cast<Derived*>(this); }
  const Derived* GetPtr() const { return static_cast<const Derived*>(this); }

  // The name, "" where it was given as null.
  const char* GetName() const { return name_.c_str(); }

  // Copies `name`, a null one as "". 5001, with the old name kept, when memory runs out.
  int SetName(const char* name) {
    return RenameAfter(name == nullptr ? "" : name, [] { return status::kOk; });
  }

 protected:
  template <typename... Arguments>
  explicit Named(const char* name, Arguments... base_arguments) : Base(base_arguments...) {
    InitName(name);
  }

  int Assign(const Named& other) {
    return RenameAfter(other.GetName(), [&] { return Base::Assign(other); });
  }

 private:
  void InitName(const char* name) {
    if (SetName(name) != status::kOk) this->Release();
  }

  // Does `operation`, which returns a status, and takes the name if it succeeds: both or neither.
  template <typename Operation>
  int RenameAfter(const char* name, Operation operation) {
    try {
      std::string copy(name);
      const int result = operation();
      if (result == status::kOk) name_.swap(copy);
      return result;
    } catch (const std::bad_alloc&) {
      return this->Report(status::mat::kMemory);
    }
  }

  std::string name_;
};

// A named vector of numbers that knows how many of its values are present. Writing elements does
// not change that count: SetActValInfo counts anew.
template <typename Derived, typename Base>
class NamedVector : public Named<Derived, Base> {
 public:
  using Element = typename Base::Element;

  NamedVector(const char* name, int length, Element fill)
      : Named<Derived, Base>(name, length, fill) {
    SetActValInfo();
  }
  NamedVector(const NamedVector&) = default;
  explicit NamedVector(const Derived* other) : Named<Derived, Base>(other) { SetActValInfo(); }

  NamedVector& operator=(const NamedVector& other) {
    if (this->Assign(other) == status::kOk) present_count_ = other.present_count_;
    return *this;
  }

  // As Named::Copy; takes the count too.
  int Copy(const Derived* other) {
    const int result = Named<Derived, Base>::Copy(other);
    if (result == status::kOk) present_count_ = other->NValA();
    return result;
  }

  // Appends as the plain vector does, and counts what it appended.
  int Exp(int count, Element value) {
    const int result = Base::Exp(count, value);
    if (result == status::kOk) SetActValInfo();
    return result;
  }

  // The number of present values as counted last. Integers are always present.
  int NValA() const { return present_count_; }
  void SetActValInfo() { present_count_ = CountPresent(std::as_const(*this).Values()); }

 protected:
  void SetNValA(int count) { present_count_ = count; }

  void ShowName(StreamWindow& window) const {
    Listing(window).Text(this->GetName()).Text(" is: NValA= ").Number(NValA()).EndLine();
  }

 private:
  int present_count_ = 0;
};

}  // namespace zemva

#endif  // ZEMVA_NUMERIC_NAMED_H
