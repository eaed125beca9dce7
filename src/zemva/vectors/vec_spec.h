// What is asked of an object for a vector, and the names of vectors.
#ifndef ZEMVA_VECTORS_VEC_SPEC_H
#define ZEMVA_VECTORS_VEC_SPEC_H

#include <limits>
#include <string>

#include "zemva/base/export.h"
#include "zemva/vectors/dat_type.h"
#include "zemva/vectors/elm_type.h"
#include "zemva/vectors/vec_type.h"

namespace zemva {

struct VecRow;

// A vector of an object: its type, and where there are several of that type, which. What stays at
// its default is left open; the object that is asked fills it in as it says below.
//
// Every vector has a name, from which the type, the units, indices and components are found again:
//
//   VIP  VarDS3    without components: the type, and the index where there is one for each
//   t[2]           at component 2; AvgX[0] of the data centred, AvgX[-1] of the data as loaded
//   XRes3[2]       the same where there is one for each variable, here the third
//   t1:3[5]        element 5 at each of components 1..3; or, with index 0, what is made of
//                  components 1..3 together, and a vector by component without the others
//   XResSt3[2]     with the units behind the type
//
// An index counts from 1 in the object. Where there is a vector for each variable of a lag and for
// each response, CoeffCSLag2[1], the response has the place of the component.
//
// An object refuses, with
//
//   8002 when memory runs out               8022 for null
//   8016 a type of vector that it has not   8014 a number that is not its own, and one that nothing
//   8003 components that there are not           in it has
//   8021 an index beyond what there is      8013 another kind of object, units that the vector has
//                                                not, and an index, a block or a range of
//                                                components where there is none to choose
class ZEMVA_API VecSpec {
 public:
  // No component. It stands for all components in a vector by component, and for the last one that
  // there is in others.
  static constexpr short kNoComp = std::numeric_limits<short>::min();

  // The block that an index counts in. A vector that there is one of for each variable of a model
  // counts the X variables first, then the responses; kY counts the responses alone.
  enum EBlock : char { kWhole = 0, kX = 1, kY = 2 };

  VecSpec() = default;
  explicit VecSpec(CEVecType::EVT type, short ix = 0, short comp = kNoComp,
                   CEElmType::EET units = CEElmType::Plain)
      : vtype_(type), first_comp_(comp), last_comp_(comp), ix_(ix), etype_(units) {}

  // The object: its kind and, within a project, its number. Undefined and 0 stand for the one that
  // is asked.
  CEDatType::EDT GetDType() const { return dtype_; }
  void SetDType(CEDatType::EDT type) { dtype_ = type; }
  short GetDNum() const { return dnum_; }
  void SetDNum(short number) { dnum_ = number; }

  CEVecType::EVT GetVType() const { return vtype_; }
  void SetVType(CEVecType::EVT type) { vtype_ = type; }

  // The component, or the first and the last one of a range.
  short GetFirstComp() const { return first_comp_; }
  short GetLastComp() const { return last_comp_; }
  void SetComp(short comp) { SetComps(comp, comp); }
  void SetComps(short first, short last) {
    first_comp_ = first;
    last_comp_ = last;
  }
  bool IsRange() const { return first_comp_ != last_comp_; }

  // Of a vector that there is one of for each variable, observation or response, which; of any
  // other at a range of components, its element. 0 for none.
  short GetIx() const { return ix_; }
  void SetIx(short ix) { ix_ = ix; }
  // The response of a vector that there is one of for each variable and each response. 0 stands for
  // the first.
  short GetIx2() const { return ix2_; }
  void SetIx2(short ix) { ix2_ = ix; }
  EBlock GetBlock() const { return block_; }
  void SetBlock(EBlock block) { block_ = block; }

  CEElmType::EET GetEType() const { return etype_; }
  void SetEType(CEElmType::EET units) { etype_ = units; }

  // Whether the index is not a position but the number of the variable, observation or response.
  bool IsByNumber() const { return is_by_number_; }
  void SetIsByNumber(bool is_by_number) { is_by_number_ = is_by_number; }

  // The name; no object and no block are in it. Throws std::bad_alloc.
  std::string GetName() const;
  // Sets what a name tells and the rest to its defaults. 8022 for null, 8016 for what is no name.
  int SetName(const char* name);
  // The type and the units in a name, with or without what stands behind them. The codes of
  // SetName; then both are Undefined.
  static int GetEVET(const char* name, CEVecType::EVT& type, CEElmType::EET& units);

 private:
  // Takes the name of a vector of the type of the row; false, with nothing changed, for any other.
  bool Read(const VecRow& row, const char* name);

  CEDatType::EDT dtype_ = CEDatType::Undefined;
  short dnum_ = 0;
  CEVecType::EVT vtype_ = CEVecType::Undefined;
  short first_comp_ = kNoComp;
  short last_comp_ = kNoComp;
  short ix_ = 0;
  short ix2_ = 0;
  EBlock block_ = kWhole;
  CEElmType::EET etype_ = CEElmType::Plain;
  bool is_by_number_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_VECTORS_VEC_SPEC_H
