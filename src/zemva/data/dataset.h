// One table of measurements with the descriptions of its rows and columns.
#ifndef ZEMVA_DATA_DATASET_H
#define ZEMVA_DATA_DATASET_H

#include <memory>
#include <string_view>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/data/object_base.h"
#include "zemva/data/object_header.h"
#include "zemva/data/obs_info.h"
#include "zemva/data/var_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"
#include "zemva/vectors/vec_spec.h"

namespace zemva {

class I2Vector;

// N observations (rows) by K variables (columns) of single-precision values, an observation table
// and a variable table, all counted from 1. What is not known is the missing value. The data set
// lives in a project file: it is created unloaded, with a header only, and Load reads the rest.
//
// After every operation the matrix has N rows and K columns, and the tables N and K rows; a failed
// operation leaves the data set as it was. Two exceptions: DelVar of a number that no variable has,
// and a file without one of the tables, or with a short one. Names and numbers that are not there
// are null and 0; the first operation that changes the shape adds what is missing, numbered by
// position and without names, and drops what is beyond the counts.
//
// Operations return a status code where they return no value, and keep it for GetStatus. Unless
// said otherwise an operation loads an unloaded data set first; if that fails it returns the code
// of Load, or 0 or null where it returns a value. Messages go to the window, each on its own line.
// Not for several threads at once: also what only reads loads, and keeps a status.
class ZEMVA_API Dataset : public ConstructDestructMessage {
 public:
  // Unloaded. Status 8013, with nothing set, for a null name or address, or an address over 260
  // characters.
  Dataset(const char* name, const char* addr, StreamWindow& w);
  // Loaded, not yet saved. It takes over matrix and tables; where an argument is null or the tables
  // are not as long as the matrix is high and wide, its status is 8013 and they stay the caller's.
  Dataset(const char* name, const char* addr, StreamWindow& w, XFMatrix* m, ObsInfo* oi,
          VarInfo* vi);
  // A copy of all, without loading. Unloaded, with status 8002, when memory runs out.
  Dataset(const Dataset& other);
  Dataset& operator=(const Dataset&) = delete;
  ~Dataset() override;

  // The identity of the class, "Dataset".
  static const ClassID& GetClassID();
  bool IsClass(int id) const override { return id == GetClassID().GetID(); }

  // --- Access ---

  // The numbers of observations and variables.
  short GetNObsDS() { return EnsureLoaded() == 0 ? nobs_ : short{0}; }
  short GetNVarDS() { return EnsureLoaded() == 0 ? nvar_ : short{0}; }
  // How many values are present, as the matrix counted them last.
  int GetNValA();
  // They stay the data set's. The tables are null when the file has none.
  XFMatrix* GetDMPtr() { return EnsureLoaded() == 0 ? matrix_.get() : nullptr; }
  ObsInfo* GetOIPtr() { return EnsureLoaded() == 0 ? obs_info_.get() : nullptr; }
  VarInfo* GetVIPtr() { return EnsureLoaded() == 0 ? var_info_.get() : nullptr; }
  // Row i, whose element j is variable j; null for a bad position.
  float* operator[](short i);

  // Number and name, which points into the table and is valid until the table changes. 8021, with
  // 0 and null, for a bad position or where there is no table.
  int GetObsInfo(short i, short& onum, char*& name);
  int GetVarInfo(short i, short& vnum, char*& name);

  // Positions by number as in the tables, 0 if there is none; the number of the variable at i.
  short GetOIx(short onum);
  short GetVIx(short vnum);
  short GetVNum(short i);

  // For a bad position 7002, and SetObsNum 8021; 8021 where there is no table.
  int SetObsName(short i, const char* name);
  int SetObsNum(short i, short onum);
  int SetVarName(short i, const char* name);

  // --- Vectors (dataset_vectors.cpp) ---

  // A variable, "VarDS3", or an observation, "ObsDS5", as it is in the matrix; the numbers, "Num",
  // and positions, "Time", of the observations. A new vector, the caller's; null with a code of
  // VecSpec.
  int GetXFVector(const VecSpec* spec, XFVector*& vector);
  // The names, or the numbers as texts, of what the elements of that vector are.
  int GetXSVector(const VecSpec* spec, XSVector*& vector, bool is_by_number);

  // --- Shape (dataset_edit.cpp) ---
  // No data set grows beyond 32,767 observations or variables: 8021.

  // The new count, or 0 when it fails. New values are missing, but 0 in a data set that had no
  // matrix. Where variables are added, all are numbered by position.
  virtual short AddObs(short onum, const char* name);
  short AddVar(const char* name) { return AddVars(&name, 1); }
  // All of the n variables or none. 8022 for null, 8013 for a negative n.
  short AddVars(const char* const* names, int n);

  // 8014 when there is no observation.
  int DelObs(short onum);
  // 8014 when there are no variables. A number that no variable has lowers the count all the same:
  // matrix and table keep what they have, until the next operation that changes the shape drops the
  // last variable, and the variable table's status is 8021.
  int DelVar(short vnum);
  // Deletes a variable for each number listed. 8022 for null; 8014, with nothing deleted, when
  // there are fewer variables of a number than listed.
  int DelVars(const I2Vector* vnums);
  // Deletes the observations whose byte is not 1. 8022 for null, 5004 when there is not one byte an
  // observation.
  virtual int DeleteExcludedObservations(const XI1Vector* selection);

  // --- The file (dataset_storage.cpp) ---

  // 8001 when it is loaded already. 2023 when the file gives no matrix or counts beyond it, else
  // the codes of the storage layer; the data set then stays unloaded. Where the matrix or a table
  // is larger than the counts, the rest is dropped.
  virtual int Load();
  // Reads number, name, title and counts only; a loaded data set is left alone.
  int LoadListProject();
  // Frees matrix and tables; header and counts stay.
  virtual void Unload();
  // Does not load. 8013 for an empty address; 8009 when it is not loaded; else the codes of the
  // storage layer.
  int Save();
  // Removes the file; what is loaded stays. 8013 for an empty address, 1002 when there is no such
  // file, 1007 when it cannot be removed.
  int DeleteFileA();

  // --- Merging (dataset_merge.cpp) ---
  // `other` is loaded for the time of the merge; it may be this data set itself. 8022 for null,
  // 8055 when the merge stands but numbers or names had to be repaired, which messages tell.

  // Appends the observations of `other`, matching variables by name where they do not line up; a
  // variable that `other` has not is missing. Repeated numbers, or `renumber`, number all
  // observations anew; `renumber` names them anew too. When no variable matches nothing is
  // appended.
  int MergeObs(Dataset* other, bool renumber);

  // Appends the variables of `other`, 8046 when the counts of observations differ. Their numbers go
  // up by the count of variables before, modulo 2^16. Repeated names get a suffix; where that makes
  // one too long, or with `rename`, all variables are named anew; the result is then the status of
  // the observation table, unless it is 8055.
  int MergeVar(Dataset* other, bool rename);

  // Copies the observation at src_row to dst_row, matching variables by name; where `src` has none,
  // the value becomes missing if `fill`, else it stays. True when any variable matched; false also
  // when a data set cannot be loaded. Positions outside the matrices copy nothing.
  //
  // The match is kept for the next call and made anew only when the number of variables of `dst`
  // differs. Call it with a null data set, which returns true, before and after each run.
  static bool CopyObservationData(Dataset* dst, int dst_row, Dataset* src, int src_row, bool fill);

  // --- Transposing (dataset_transpose.cpp) ---

  // Makes variables of the observations and observations of the variables. Repeated names get a
  // suffix, as messages tell. The new variables are V1, V2 and so on with `new_names`, and where a
  // suffix makes a name too long or names are still repeated after six passes. 8055 when names were
  // repeated.
  int Transpose(bool new_names);

  // --- Header; none of these loads ---

  // Number, at most 24 characters of name and 60 of title, address (the path of the file), and the
  // text of the creation date, at most 22 characters. Setting number, name or title is a change to
  // save.
  short GetDSNum() const { return header_.number; }
  void SetDSNum(short number);
  const char* GetDSNam() const { return header_.name.Get(); }
  void SetDSNam(const char* name);
  const char* GetDSTitle() const { return header_.title.Get(); }
  void SetDSTitle(const char* title);
  const char* GetDSAddr() const { return header_.address.Get(); }
  // 8013, with the old one kept, for an address over 260 characters: cut, it would be another file.
  int SetDSAddr(const char* addr);
  const char* GetDSCreaDate() const { return header_.creation_date.Get(); }
  void SetDSCreaDate(const char* date) { header_.creation_date.Set(date); }
  bool IsLoaded() const { return header_.is_loaded; }

  // 1, or 2 for a data set that its file marks as laid out by an older program.
  short GetKind() const { return kind_; }
  void SetKind(short kind) { kind_ = kind; }

  // True when there are changes that are not saved.
  bool IsDirty() const { return is_dirty_; }
  void SetDirtyFlag(bool is_dirty) { is_dirty_ = is_dirty; }
  int GetStatus() const { return status_; }
  void ClearStatus() { status_ = 0; }

  // --- Listing (dataset_listing.cpp); they do not load, and return 0 ---

  // The header, the counts and what is loaded; ShowAll with the two tables.
  int Show(StreamWindow& window);
  int ShowAll(StreamWindow& window);

 private:
  friend class DangerousDataSetManipulator;

  struct Label {
    short number;
    const char* name;
  };

  int EnsureLoaded() { return IsLoaded() ? 0 : Load(); }
  // Begins an operation that changes the shape: loads, asks `check` whether it can be done, which
  // gives a status code, and only then makes matrix and tables whole.
  template <typename Check>
  int StartEdit(Check check) {
    int status = EnsureLoaded();
    if (status == 0) status = check();
    if (status == 0) status = MakeWhole();
    return status_ = status;
  }
  int CopyParts(const Dataset& other);
  int Changed(int status);
  float* GetRow(int i) const;
  bool CountsFitMatrix() const;
  int DropBeyondCounts();
  void ShowCounts(StreamWindow& window) const;

  Label GetObsLabel(short i) const;
  Label GetVarLabel(short j) const;
  std::vector<std::string_view> GetVarNames() const;

  // dataset_edit.cpp
  int MakeWhole();
  short FindObs(short onum) const;
  int SelectAllBut(const I2Vector& vnums, XI1Vector& kept) const;

  // dataset_merge.cpp
  template <typename Check, typename Merge>
  int MergeWith(Dataset* other, Check check, Merge merge);
  int MergeObsOf(const Dataset& other, bool renumber);
  int MergeVarOf(const Dataset& other, bool rename);
  bool ReportRepeatedNumbers(const Dataset& other) const;
  int AppendObsLabels(const Dataset& other);

  // dataset_transpose.cpp
  int TransposeAll(bool new_names);

  short kind_ = 1;
  ObjectHeader header_;
  short nobs_ = 0;
  std::unique_ptr<ObsInfo> obs_info_;
  short nvar_ = 0;
  std::unique_ptr<VarInfo> var_info_;
  std::unique_ptr<XFMatrix> matrix_;
  StreamWindow& window_;
  int status_ = 0;
  bool is_dirty_ = false;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_DATASET_H
