// The blocks of the variables of a work set.
#ifndef ZEMVA_DATA_BLK_INFO_H
#define ZEMVA_DATA_BLK_INFO_H

#include <array>
#include <memory>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/data/itm_info.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

class BlkData;
class ExpInfo;
class LagInfo;
class Model;
class Workset;

// The block of each variable, 0 for none, and a row for each block. Block numbers are 1..99.
class ZEMVA_API BlkInfo : public ItmInfo {
 public:
  // The largest number of a block.
  static constexpr int kMaxBlock = 99;

  // The block scaling: one over the square root, or the fourth root, of the number of variables.
  enum EBlkType : int { kUndefined = 0, kSquareRoot = 1, kFourthRoot = 2 };
  static constexpr std::array<const char*, 3> pszBlkType = {"Undef", "1/sqrt", "1/4root"};

  // The type, kSquareRoot or kFourthRoot, of this name; kUndefined for any other.
  static EBlkType GetBlkType(const char* text);
  // The name of kSquareRoot or kFourthRoot, "" for any other value.
  static const char* GetString(EBlkType type);

  // Without any block. Status 8002 when memory runs out.
  BlkInfo(const char* name, short nvar);

  // Deletes all blocks and leaves every variable in none.
  int DelAll() override;

  // Appends a block. 8021 for a number outside 1..99, 8002 when it cannot be made.
  int AddItm(char bnum, const char* name, EBlkType type, short nvar, float weight);
  // Overwrites row i. 7002 for a bad position, 8021 for a number outside 1..99.
  int UpdateItm(short i, char bnum, const char* name, EBlkType type, short nvar, float weight);
  // Gives the block in row i another number, with the codes of UpdateItm.
  int SetINum(short i, short bnum);
  // Reads row i. The name points into the table; `scale` is what the type makes of the number of
  // variables, missing where there are none or the type is undefined. 7002, with nothing read, for
  // a bad position.
  int GetItm(short i, char& bnum, char*& name, EBlkType& type, short& nvar, float& weight,
             float& scale);

  // The number of the block in row i, and how many variables it has; 0 for a bad position.
  char GetBNum(short i) const { return static_cast<char>(GetINum(i)); }
  short GetNVar(short i) const;
  // The type of the block in row i, kUndefined for a bad position.
  EBlkType GetBType(short i) const;
  // The weight of the block in row i; missing for a bad position.
  float GetBWeig(short i) const;

  // The block of variable v, 0 for a bad position. Setting: 8021 for a bad position or a number
  // outside 0..99; the rows stay what they are.
  char GetBStat(short v) const { return b_stat_.GetElement(v); }
  int SetBStat(short v, char b);
  // The blocks of all variables; the table's own.
  XI1Vector* GetBStatPtr() { return &b_stat_; }
  // How many variables there are.
  short GetNVar() const { return static_cast<short>(b_stat_.NVal()); }

  // The number for a new block: 1 in an empty table, one more than the last row's while that is
  // below 99, else the smallest that is free; 0 when all are in use.
  char GetBNumNext() const;

  // Keep the variables' blocks in step with a work set.
  //
  // A variable, in no block, was inserted at position v; beyond the end it is the last. 8014 for v
  // below 1, 8021 when there would be more than 32,767, 8002 when memory runs out.
  int AddVar(short v);
  // Variable v was removed. A block that would keep a single variable is deleted. 8014, with
  // nothing changed, for a bad position or a variable in no block; 8002 when memory runs out.
  int DelVar(short v);

  // Variable v, which AddVar has inserted, is made of variable `source`: it joins the block of
  // that, if it has one. 8021 for a bad position.
  int FixAddedVars(short v, short source);

  // Describes variables of a work set anew: those of its data set whose byte in `sel`, which has
  // one for each, is `wanted`, then the lagged ones, then the terms. Each is in the block that the
  // work set puts it in, which for a lagged variable or a term is that of its first source unless
  // it was given another; a block is named "Block" and its number, has the type that the work set
  // gives it, and no weight as yet. Blocks that have fewer than two of the variables are left out.
  // 8015 for a lagged variable or a term that the work set has not, 8021 where `sel` has another
  // length or there would be more than 32,767 variables, 8022 for a null argument, 8002 when memory
  // runs out; the table is then unchanged. Its body is in model/workset/.
  int SetBlkInfo(const XI1Vector* sel, short wanted, const LagInfo* lags, const ExpInfo* terms,
                 const Workset* workset);
  // The same of the variables of a model, those of X and then those of Y, which `sel` has a byte
  // for, and its blocks; without blocks in the model there are none. 8009 when the model has no
  // data loaded. Its body is in model/driver/.
  int SetBlkInfo(const XI1Vector* sel, short wanted, const LagInfo* lags, const ExpInfo* terms,
                 const Model* model);

  // Gives each block the weight that its type makes of the number of its variables, missing where
  // the type is undefined, and multiplies the scaling weights of its variables with it. Element v
  // of `weights` belongs to variable v; a missing one stays missing, and none changes in a block
  // without weight. 8021 where the vector has another length, 8022 for null; nothing is changed
  // then.
  int Transfer(XFVector* weights);

  // A new table "BlkInfoX", the caller's, for the variables whose byte in `sel` is `wanted`: their
  // blocks, with the number of such variables, but for those that keep fewer than two. Null when
  // `sel` is null, and with status 8002 when memory runs out.
  BlkInfo* ExtBlkInfo(const XI1Vector* sel, char wanted);

  // List the blocks of the variables and all rows, one row ("Index error." for a bad position), and
  // the blocks of the variables alone. They return 0.
  int ShowAll(StreamWindow& window) override;
  int ShowItm(short i, StreamWindow& window) override;
  int ShowBStat(StreamWindow& window);

 private:
  static constexpr char kNoBlock = 0;
  using BlockTypes = std::array<EBlkType, kMaxBlock + 1>;

  char GetFirstFreeBNum() const;
  // Describes as many variables as there are `blocks` anew, as SetBlkInfo says. Throws
  // std::bad_alloc.
  int SetBlocks(const std::vector<char>& blocks, const BlockTypes& types);
  int TakeBlock(const BlkData& block);
  const BlkData* GetRow(short i) const;
  BlkData* GetRow(short i);
  void ShowRow(short i, StreamWindow& window) const;

  XI1Vector b_stat_;
};

// The item's number is that of the block.
class ZEMVA_API BlkData : public ItmData {
 public:
  // The weight is missing where there is none.
  BlkData(short num, const char* name, BlkInfo::EBlkType type, short nvar, float weight)
      : ItmData(num, name), type_(type), nvar_(nvar), weight_(weight) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<BlkData>(*this); }

  // The type of its scaling, the number of its variables, and its weight: missing until Transfer.
  BlkInfo::EBlkType GetBType() const { return type_; }
  short GetNVar() const { return nvar_; }
  void SetNVar(short nvar) { nvar_ = nvar; }
  float GetBWeig() const { return weight_; }
  void SetBWeig(float weight) { weight_ = weight; }

 private:
  BlkInfo::EBlkType type_;
  short nvar_;
  float weight_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_BLK_INFO_H
