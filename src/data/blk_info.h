// The blocks of the variables of a work set.
#ifndef ZEMVA_DATA_BLK_INFO_H
#define ZEMVA_DATA_BLK_INFO_H

#include <array>
#include <memory>

#include "base/export.h"
#include "data/itm_info.h"
#include "errors/stream_window.h"
#include "numeric/x_vector.h"

namespace zemva {

class BlkData;

// The block of each variable, 0 for none, and a row for each block. Block numbers are 1..99.
class ZEMVA_API BlkInfo : public ItmInfo {
 public:
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

  // Appends a block. 8002 when it cannot be made.
  int AddItm(char bnum, const char* name, EBlkType type, short nvar, float weight);
  // Overwrites row i. 7002 for a bad position.
  int UpdateItm(short i, char bnum, const char* name, EBlkType type, short nvar, float weight);
  // Reads row i. The name points into the table; `scale` is what the type makes of the number of
  // variables, missing where there are none or the type is undefined. 7002, with nothing read, for
  // a bad position.
  int GetItm(short i, char& bnum, const char*& name, EBlkType& type, short& nvar, float& weight,
             float& scale);

  // The number of the block in row i, and how many variables it has; 0 for a bad position.
  char GetBNum(short i) const { return static_cast<char>(GetINum(i)); }
  short GetNVar(short i) const;

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

  // A new table "BlkInfoX", the caller's, for the variables whose byte in `sel` is `wanted`: their
  // blocks, with the number of such variables, but for those that keep fewer than two. Null when
  // `sel` is null, and with status 8002 when memory runs out.
  BlkInfo* ExtBlkInfo(const XI1Vector* sel, char wanted);

  int ShowAll(StreamWindow& window) override;
  int ShowItm(short i, StreamWindow& window) override;
  int ShowBStat(StreamWindow& window);

 private:
  char GetFirstFreeBNum() const;
  int TakeBlock(const BlkData& block);
  const BlkData* GetRow(short i) const;
  BlkData* GetRow(short i);
  void ShowRow(short i, StreamWindow& window) const;

  XI1Vector b_stat_;
};

// The item's number is that of the block.
class ZEMVA_API BlkData : public ItmData {
 public:
  BlkData(short num, const char* name, BlkInfo::EBlkType type, short nvar, float weight)
      : ItmData(num, name), type_(type), nvar_(nvar), weight_(weight) {}
  std::unique_ptr<ItmData> Clone() const override { return std::make_unique<BlkData>(*this); }

  BlkInfo::EBlkType GetBType() const { return type_; }
  short GetNVar() const { return nvar_; }
  void SetNVar(short nvar) { nvar_ = nvar; }
  float GetBWeig() const { return weight_; }

 private:
  BlkInfo::EBlkType type_;
  short nvar_;
  float weight_;
};

}  // namespace zemva

#endif  // ZEMVA_DATA_BLK_INFO_H
