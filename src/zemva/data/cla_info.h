// The classes of the observations of a work set.
#ifndef ZEMVA_DATA_CLA_INFO_H
#define ZEMVA_DATA_CLA_INFO_H

#include <memory>
#include <span>

#include "zemva/base/export.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

class Model;
class ObsInfo;
class Workset;

// The item's number is that of the class, 1..99; NObs counts the observations in it.
class ZEMVA_API ClaData : public ItmData {
 public:
  // `nobs` observations are in class `num`.
  ClaData(short num, const char* name, short nobs) : ItmData(num, name), nobs_(nobs) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<ClaData>(*this); }

  // How many observations are in the class.
  short GetNObs() const { return nobs_; }

 private:
  short nobs_;
};

// The class of each observation, 0 for none, and a row for each class that has any, in the order in
// which they first appear. A table that is marked modified has rows that may be out of date: they
// are built anew before a class is read.
class ZEMVA_API ClaInfo : public ItmInfo {
 public:
  // The largest number of a class.
  static constexpr int kMaxClass = 99;

  // Without any class. Status 8002 when memory runs out.
  ClaInfo(const char* name, short nobs);
  // Of observations of these classes. Status 8021 for a class outside 0..99, 8002 when memory runs
  // out.
  ClaInfo(const char* name, std::span<const char> classes);

  // Takes over the classes of a work set, observation by observation. 8022 for null, 8002 when
  // memory runs out. Its body is in model/workset/.
  int SetClaInfo(const Workset* workset);
  // Takes over the classes of a model's observations, for the observations of a table by their
  // numbers; one that the model has not is in none. 8022 for null and for a model without classes,
  // 8021 when the table has not one row an observation, 8002 when memory runs out. Its body is in
  // model/driver/.
  int SetClaInfo(const ObsInfo* observations, const Model* model);
  // How many observations there are.
  short GetNObs() const { return static_cast<short>(o_class_.NVal()); }
  // 0 for a bad position.
  char GetOClass(short i) const { return o_class_.GetElement(i); }

  // The number of classes; the number of observations and the class number of row k. 0 for a bad
  // row, or when the rows cannot be built.
  short GetNOClass();
  short GetNObsOClass(short k);
  short GetOClassNum(short k);

  // The number for a new class: one more than the largest in use, or, where that is 99, the
  // smallest that is free; 0 when all are in use.
  short GetNextOClassNum() const;

  // A new table "ClaInfo", the caller's, with the classes of those observations whose byte in `sel`
  // is 1. Null when `sel` is null or none of them has a class; also, with status 8002, when memory
  // runs out.
  ClaInfo* ExtClaInfo(const XI1Vector* sel);

  // Lists the classes of the observations and the rows. Returns 0.
  int ShowAll(StreamWindow& window) override;

 private:
  // Leaves the rows out of date. 8021 for a position outside 1..nobs or a class outside 0..99.
  int SetOClass(short i, char c);
  int AddItm(char num, const char* name, short nobs) { return MakeItm<ClaData>(num, name, nobs); }
  int UpdateIfModified() { return IsModified() ? Update() : 0; }
  int Update();
  const ClaData* GetRow(short k) const { return static_cast<const ClaData*>(GetItm(k)); }

  XI1Vector o_class_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_CLA_INFO_H
