#include "zemva/data/blk_info.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

#include "zemva/base/positions.h"
#include "zemva/data/itm_listing.h"
#include "zemva/data/names.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr short kSmallestBlock = 2;

bool IsBlock(short bnum) {
  return bnum >= 1 && bnum <= BlkInfo::kMaxBlock;
}

float Scale(BlkInfo::EBlkType type, short nvar) {
  if (nvar < 1) return kMissing;
  const double root = std::sqrt(static_cast<double>(nvar));
  switch (type) {
    case BlkInfo::kSquareRoot:
      return static_cast<float>(1.0 / root);
    case BlkInfo::kFourthRoot:
      return static_cast<float>(1.0 / std::sqrt(root));
    default:
      return kMissing;
  }
}

}  // namespace

BlkInfo::EBlkType BlkInfo::GetBlkType(const char* text) {
  for (const EBlkType type : {kSquareRoot, kFourthRoot}) {
    if (text != nullptr && std::strcmp(text, GetString(type)) == 0) return type;
  }
  return kUndefined;
}

const char* BlkInfo::GetString(EBlkType type) {
  const bool is_named = type == kSquareRoot || type == kFourthRoot;
  return is_named ? pszBlkType[static_cast<std::size_t>(type)] : "";
}

BlkInfo::BlkInfo(const char* name, short nvar) : ItmInfo(name), b_stat_("BStat", nvar, kNoBlock) {
  if (b_stat_.GetStatus() != status::kOk) SetStatus(status::mva::kMemory);
}

int BlkInfo::DelAll() {
  std::ranges::fill(b_stat_.Values(), kNoBlock);
  return ItmInfo::DelAll();
}

int BlkInfo::AddItm(char bnum, const char* name, EBlkType type, short nvar, float weight) {
  if (!IsBlock(bnum)) return SetStatus(status::mva::kIndexOutOfRange);
  return MakeItm<BlkData>(bnum, name, type, nvar, weight);
}

int BlkInfo::SetINum(short i, short bnum) {
  if (!IsBlock(bnum)) return SetStatus(status::mva::kIndexOutOfRange);
  return ItmInfo::SetINum(i, bnum);
}

int BlkInfo::UpdateItm(short i, char bnum, const char* name, EBlkType type, short nvar,
                       float weight) {
  BlkData* row = GetRow(i);
  if (row == nullptr) return SetStatus(status::itm::kBadPosition);
  if (!IsBlock(bnum)) return SetStatus(status::mva::kIndexOutOfRange);
  *row = BlkData(bnum, name, type, nvar, weight);
  return ItmInfo::SetINum(i, bnum);
}

int BlkInfo::GetItm(short i, char& bnum, char*& name, EBlkType& type, short& nvar, float& weight,
                    float& scale) {
  BlkData* row = GetRow(i);
  if (row == nullptr) return SetStatus(status::itm::kBadPosition);
  bnum = GetBNum(i);
  name = row->GetINam();
  type = row->GetBType();
  nvar = row->GetNVar();
  weight = row->GetBWeig();
  scale = Scale(type, nvar);
  return SetStatus(status::kOk);
}

BlkInfo::EBlkType BlkInfo::GetBType(short i) const {
  const BlkData* const row = GetRow(i);
  return row == nullptr ? kUndefined : row->GetBType();
}

float BlkInfo::GetBWeig(short i) const {
  const BlkData* const row = GetRow(i);
  return row == nullptr ? kMissing : row->GetBWeig();
}

short BlkInfo::GetNVar(short i) const {
  const BlkData* row = GetRow(i);
  return row == nullptr ? short{0} : row->GetNVar();
}

int BlkInfo::SetBStat(short v, char b) {
  if (v < 1 || v > GetNVar() || b < 0 || b > kMaxBlock) {
    return SetStatus(status::mva::kIndexOutOfRange);
  }
  b_stat_[v] = b;
  return Changed(status::kOk);
}

char BlkInfo::GetBNumNext() const {
  if (GetNItm() == 0) return 1;
  const int next = GetBNum(GetNItm()) + 1;
  return next < kMaxBlock ? static_cast<char>(next) : GetFirstFreeBNum();
}

char BlkInfo::GetFirstFreeBNum() const {
  for (short b = 1; b <= kMaxBlock; ++b) {
    if (GetIx(b) == 0) return static_cast<char>(b);
  }
  return 0;
}

int BlkInfo::AddVar(short v) {
  if (v < 1) return SetStatus(status::mva::kNoSuchNumber);
  if (GetNVar() == kMaxItems) return SetStatus(status::mva::kIndexOutOfRange);
  const int position = std::min<int>(v, GetNVar() + 1);
  if (b_stat_.Exp(1, kNoBlock) != status::kOk) return SetStatus(status::mva::kMemory);
  const auto blocks = b_stat_.Values();
  std::rotate(blocks.begin() + (position - 1), blocks.end() - 1, blocks.end());
  return Changed(status::kOk);
}

int BlkInfo::DelVar(short v) {
  const char b = GetBStat(v);
  if (b == kNoBlock) return SetStatus(status::mva::kNoSuchNumber);
  const short block = GetIx(short{b});
  const auto nvar = static_cast<short>(std::ranges::count(b_stat_.Values(), b));
  const bool is_deleted = nvar <= kSmallestBlock;

  XI1Vector rest("BStat", GetNVar() - 1, kNoBlock);
  if (rest.GetStatus() != status::kOk) return SetStatus(status::mva::kMemory);
  const auto blocks = b_stat_.Values();
  const auto behind = std::copy_n(blocks.begin(), v - 1, rest.Values().begin());
  std::copy(blocks.begin() + v, blocks.end(), behind);
  if (is_deleted) std::ranges::replace(rest.Values(), b, kNoBlock);
  b_stat_ = rest;
  if (b_stat_.NVal() != rest.NVal()) return SetStatus(status::mva::kMemory);

  BlkData* const row = GetRow(block);
  if (row != nullptr && is_deleted) DelItm(block);
  if (row != nullptr && !is_deleted) row->SetNVar(static_cast<short>(nvar - 1));
  return Changed(status::kOk);
}

int BlkInfo::FixAddedVars(short v, short source) {
  if (v < 1 || v > GetNVar() || source < 1 || source > GetNVar()) {
    return SetStatus(status::mva::kIndexOutOfRange);
  }
  if (GetBStat(v) != kNoBlock) return SetStatus(status::mva::kAlreadyInserted);
  const char b = GetBStat(source);
  BlkData* row = b == kNoBlock ? nullptr : GetRow(GetIx(short{b}));
  if (row != nullptr) row->SetNVar(static_cast<short>(row->GetNVar() + 1));
  b_stat_[v] = b;
  return Changed(status::kOk);
}

int BlkInfo::Transfer(XFVector* weights) {
  if (weights == nullptr) return SetStatus(status::mva::kNullPointer);
  if (weights->NVal() != GetNVar()) return SetStatus(status::mva::kIndexOutOfRange);
  for (const short i : PositionsUpTo(GetNItm())) {
    BlkData& row = *GetRow(i);
    const float scale = Scale(row.GetBType(), row.GetNVar());
    row.SetBWeig(scale);
    if (IsMissing(scale)) continue;
    for (const short v : PositionsUpTo(GetNVar())) {
      float& weight = (*weights)[v];
      if (b_stat_[v] == GetBNum(i) && !IsMissing(weight)) weight *= scale;
    }
  }
  weights->SetActValInfo();
  return Changed(status::kOk);
}

BlkInfo* BlkInfo::ExtBlkInfo(const XI1Vector* sel, char wanted) {
  if (sel == nullptr) return nullptr;
  const int length = std::min<int>(sel->NVal(), GetNVar());
  const auto count =
      std::ranges::count(sel->Values().first(static_cast<std::size_t>(length)), wanted);
  std::unique_ptr<BlkInfo> extract;
  SetStatus(MemoryGuarded([&] {
    extract = std::make_unique<BlkInfo>("BlkInfoX", static_cast<short>(count));
    return extract->GetStatus();
  }));
  if (GetStatus() != status::kOk) return nullptr;
  short position = 0;
  for (const short v : PositionsUpTo(length)) {
    if ((*sel)[v] == wanted) extract->b_stat_[++position] = b_stat_[v];
  }
  for (const short i : PositionsUpTo(GetNItm())) {
    if (GetStatus() == status::kOk) SetStatus(extract->TakeBlock(*GetRow(i)));
  }
  return GetStatus() == status::kOk ? extract.release() : nullptr;  // the caller's
}

// Appends a block with as many variables as are in it, or leaves them in none where they are too
// few.
int BlkInfo::TakeBlock(const BlkData& block) {
  const auto b = static_cast<char>(block.GetINum());
  const auto nvar = static_cast<short>(std::ranges::count(b_stat_.Values(), b));
  if (nvar >= kSmallestBlock) {
    return AddItm(b, block.GetINam(), block.GetBType(), nvar, block.GetBWeig());
  }
  std::ranges::replace(b_stat_.Values(), b, kNoBlock);
  return status::kOk;
}

int BlkInfo::SetBlocks(const std::vector<char>& blocks, const BlockTypes& types) {
  if (blocks.size() > kMaxItems) return status::mva::kIndexOutOfRange;
  BlkInfo table(GetNam(), static_cast<short>(blocks.size()));
  if (table.GetStatus() != status::kOk) return table.GetStatus();
  std::ranges::copy(blocks, table.b_stat_.Values().begin());
  std::array<bool, kMaxBlock + 1> is_used = {};
  for (const char b : blocks) is_used[static_cast<std::size_t>(b)] = true;
  for (char b = 1; b <= kMaxBlock; ++b) {
    if (!is_used[static_cast<std::size_t>(b)]) continue;
    const BlkData block(b, NumberedName("Block", b).c_str(), types[static_cast<std::size_t>(b)], 0,
                        kMissing);
    const int status = table.TakeBlock(block);
    if (status != status::kOk) return status;
  }
  b_stat_ = table.b_stat_;
  if (b_stat_.NVal() != table.b_stat_.NVal()) return status::mva::kMemory;
  ItmInfo::operator=(std::move(table));
  return Changed(status::kOk);
}

int BlkInfo::ShowAll(StreamWindow& window) {
  ListTitle(window, GetNam(), GetNItm());
  if (GetNItm() == 0) return status::kOk;
  b_stat_.Show(window);
  Listing(window).Text("  Item  BNum     BNam  BType   NVar    BWeig").EndLine();
  for (const short i : PositionsUpTo(GetNItm())) ShowRow(i, window);
  return status::kOk;
}

int BlkInfo::ShowItm(short i, StreamWindow& window) {
  if (GetRow(i) == nullptr) {
    window << "Index error.\n";
    return status::kOk;
  }
  ListItemTitle(window, GetNam(), i);
  Listing(window).Text("  Item  BNum BNam        BType       NVar  BWeig").EndLine();
  ShowRow(i, window);
  return status::kOk;
}

int BlkInfo::ShowBStat(StreamWindow& window) {
  b_stat_.Show(window);
  return status::kOk;
}

void BlkInfo::ShowRow(short i, StreamWindow& window) const {
  const BlkData& row = *GetRow(i);
  const bool is_undefined = row.GetBType() == kUndefined;
  Listing(window)
      .Right(6, i)
      .Right(6, row.GetINum())
      .Right(9, row.GetINam())
      .Right(9, is_undefined ? pszBlkType[0] : GetString(row.GetBType()))
      .Right(8, row.GetNVar())
      .General(10, row.GetBWeig())
      .EndLine();
}

const BlkData* BlkInfo::GetRow(short i) const {
  return static_cast<const BlkData*>(ItmInfo::GetItm(i));
}

BlkData* BlkInfo::GetRow(short i) {
  return static_cast<BlkData*>(ItmInfo::GetItm(i));
}

}  // namespace zemva
