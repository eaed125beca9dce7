#include "zemva/data/dataset.h"

#include <cstring>

#include "zemva/base/positions.h"
#include "zemva/base/time_stamp.h"
#include "zemva/data/selection.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

constexpr const char* kUntitled = "UnTitled";

}  // namespace

Dataset::Dataset(const char* name, const char* addr, StreamWindow& w) : window_(w) {
  if (name == nullptr || addr == nullptr || SetDSAddr(addr) != status::kOk) {
    status_ = status::mva::kArgument;
    return;
  }
  header_.name.Set(name);
  header_.title.Set(kUntitled);
  header_.creation_date = TimeStamp();
}

Dataset::Dataset(const char* name, const char* addr, StreamWindow& w, XFMatrix* m, ObsInfo* oi,
                 VarInfo* vi)
    : Dataset(name, addr, w) {
  if (m == nullptr || oi == nullptr || vi == nullptr || oi->GetNItm() != m->NRow() ||
      vi->GetNItm() != m->NCol()) {
    status_ = status::mva::kArgument;
  }
  if (status_ != status::kOk) return;
  matrix_.reset(m);
  obs_info_.reset(oi);
  var_info_.reset(vi);
  matrix_->SetActValInfo();
  nobs_ = oi->GetNItm();
  nvar_ = vi->GetNItm();
  header_.is_loaded = true;
  is_dirty_ = true;
}

Dataset::Dataset(const Dataset& other)
    : ConstructDestructMessage(other),
      kind_(other.kind_),
      header_(other.header_),
      nobs_(other.nobs_),
      nvar_(other.nvar_),
      window_(other.window_),
      status_(other.status_),
      is_dirty_(other.is_dirty_) {
  if (CopyParts(other) == status::kOk) return;
  Unload();
  status_ = status::mva::kMemory;
}

Dataset::~Dataset() = default;

const ClassID& Dataset::GetClassID() {
  static const ClassID id("Dataset");
  return id;
}

int Dataset::CopyParts(const Dataset& other) {
  const int status = MemoryGuarded([&] {
    if (other.matrix_) matrix_ = std::make_unique<XFMatrix>(*other.matrix_);
    if (other.obs_info_) obs_info_ = std::make_unique<ObsInfo>(*other.obs_info_);
    if (other.var_info_) var_info_ = std::make_unique<VarInfo>(*other.var_info_);
    return status::kOk;
  });
  const bool is_whole = (!matrix_ || matrix_->GetStatus() == status::kOk) &&
                        (!obs_info_ || obs_info_->GetNItm() == other.obs_info_->GetNItm()) &&
                        (!var_info_ || var_info_->GetNItm() == other.var_info_->GetNItm());
  return is_whole ? status : status::mva::kMemory;
}

void Dataset::Unload() {
  matrix_.reset();
  obs_info_.reset();
  var_info_.reset();
  header_.is_loaded = false;
}

int Dataset::GetNValA() {
  const XFMatrix* matrix = GetDMPtr();
  return matrix == nullptr ? 0 : matrix->NValA();
}

float* Dataset::operator[](short i) {
  return EnsureLoaded() == status::kOk ? GetRow(i) : nullptr;
}

// Null where there is no such row.
float* Dataset::GetRow(int i) const {
  return matrix_ && i >= 1 && i <= matrix_->NRow() ? (*matrix_)[i] : nullptr;
}

int Dataset::GetObsInfo(short i, short& onum, char*& name) {
  onum = 0;
  name = nullptr;
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return status_ = obs_info_ ? obs_info_->GetObs(i, onum, name) : status::mva::kIndexOutOfRange;
}

int Dataset::GetVarInfo(short i, short& vnum, char*& name) {
  vnum = 0;
  name = nullptr;
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return status_ = var_info_ ? var_info_->GetVar(i, vnum, name) : status::mva::kIndexOutOfRange;
}

short Dataset::GetOIx(short onum) {
  const ObsInfo* table = GetOIPtr();
  return table == nullptr ? short{0} : table->GetOIx(onum);
}

short Dataset::GetVIx(short vnum) {
  const VarInfo* table = GetVIPtr();
  return table == nullptr ? short{0} : table->GetVIx(vnum);
}

short Dataset::GetVNum(short i) {
  const VarInfo* table = GetVIPtr();
  return table == nullptr ? short{0} : table->GetVNum(i);
}

int Dataset::SetObsName(short i, const char* name) {
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return Changed(obs_info_ ? obs_info_->SetONam(i, name) : status::mva::kIndexOutOfRange);
}

int Dataset::SetObsNum(short i, short onum) {
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return Changed(obs_info_ ? obs_info_->SetONum(i, onum) : status::mva::kIndexOutOfRange);
}

int Dataset::SetVarName(short i, const char* name) {
  if (const int status = EnsureLoaded(); status != status::kOk) return status;
  return Changed(var_info_ ? var_info_->SetVNam(i, name) : status::mva::kIndexOutOfRange);
}

void Dataset::SetDSNum(short number) {
  header_.number = number;
  is_dirty_ = true;
}

void Dataset::SetDSNam(const char* name) {
  header_.name.Set(name);
  is_dirty_ = true;
}

void Dataset::SetDSTitle(const char* title) {
  header_.title.Set(title);
  is_dirty_ = true;
}

int Dataset::SetDSAddr(const char* addr) {
  if (addr != nullptr && std::strlen(addr) > header_.address.kCapacity) {
    return status_ = status::mva::kArgument;
  }
  header_.address.Set(addr);
  return status_ = status::kOk;
}

// Keeps the result code of a change; after one that was made there is something to save.
int Dataset::Changed(int status) {
  if (status == status::kOk || status == status::mva::kDuplicateName) is_dirty_ = true;
  return status_ = status;
}

bool Dataset::CountsFitMatrix() const {
  const int rows = matrix_ ? matrix_->NRow() : 0;
  const int columns = matrix_ ? matrix_->NCol() : 0;
  return nobs_ >= 0 && nobs_ <= rows && nvar_ >= 0 && nvar_ <= columns;
}

// Cuts the matrix and the tables down to the counts. 2023 when there is no matrix that is as large;
// else the codes of the matrix.
int Dataset::DropBeyondCounts() {
  if (!matrix_ || !CountsFitMatrix()) return status::dio::kIncompleteDataset;
  int status = status::kOk;
  if (matrix_->NRow() > nobs_) {
    const XI1Vector rows = SelectFirst(nobs_, matrix_->NRow());
    status = matrix_->DelRows(&rows);
  }
  if (status == status::kOk && matrix_->NCol() > nvar_) {
    const XI1Vector columns = SelectFirst(nvar_, matrix_->NCol());
    status = matrix_->DelCols(&columns);
  }
  if (status != status::kOk) return status;
  if (obs_info_) obs_info_->KeepFirst(nobs_);
  if (var_info_) var_info_->KeepFirst(nvar_);
  return status;
}

// The row of the table, or, where the table does not reach, the position without a name.
Dataset::Label Dataset::GetObsLabel(short i) const {
  if (!obs_info_ || i > obs_info_->GetNItm()) return {i, ""};
  return {obs_info_->GetONum(i), obs_info_->GetONam(i)};
}

Dataset::Label Dataset::GetVarLabel(short j) const {
  if (!var_info_ || j > var_info_->GetNItm()) return {j, ""};
  return {var_info_->GetVNum(j), var_info_->GetVNam(j)};
}

std::vector<std::string_view> Dataset::GetVarNames() const {
  std::vector<std::string_view> names;
  names.reserve(static_cast<std::size_t>(nvar_));
  for (const short j : PositionsUpTo(nvar_)) names.emplace_back(GetVarLabel(j).name);
  return names;
}

}  // namespace zemva
