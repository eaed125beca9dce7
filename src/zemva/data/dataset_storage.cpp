// How a data set reaches its file: the one place of this folder that knows the storage layer.
#include <filesystem>
#include <system_error>

#include "zemva/base/native_path.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dio.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/status.h"

namespace zemva {

int Dataset::Load() {
  if (IsLoaded()) return status_ = status::mva::kDataAlreadyAllocated;
  const short old_nobs = nobs_;
  const short old_nvar = nvar_;
  const bool was_dirty = is_dirty_;
  status_ = MemoryGuarded([&] { return Dio(window_).Load(GetDSAddr(), this); });
  if (status_ == status::kOk) status_ = DropBeyondCounts();
  if (status_ != status::kOk) {
    Unload();
    nobs_ = old_nobs;
    nvar_ = old_nvar;
    is_dirty_ = was_dirty;
    return status_;
  }
  header_.is_loaded = true;
  is_dirty_ = false;
  return status_;
}

int Dataset::LoadListProject() {
  if (IsLoaded()) return status_ = status::kOk;
  const bool was_dirty = is_dirty_;
  status_ = MemoryGuarded([&] { return Dio(window_).LoadListProject(GetDSAddr(), this); });
  is_dirty_ = status_ != status::kOk && was_dirty;
  return status_;
}

int Dataset::Save() {
  if (header_.address.IsEmpty()) return status_ = status::mva::kArgument;
  status_ = !IsLoaded()
                ? status::mva::kDataNotAvailable
                : MemoryGuarded([&] { return Dio(window_).SaveDataset(GetDSAddr(), this); });
  if (status_ == status::kOk) {
    is_dirty_ = false;
  } else {
    Listing(window_)
        .Text("Could not save data set ")
        .Number(GetDSNum())
        .Text("to file ")
        .Text(GetDSAddr())
        .Text(".")
        .EndLine();
  }
  return status_;
}

int Dataset::DeleteFileA() {
  if (header_.address.IsEmpty()) return status_ = status::mva::kArgument;
  return status_ = MemoryGuarded([&] {
           std::error_code error;
           const bool was_there = std::filesystem::remove(NativePath(GetDSAddr()), error);
           if (error) return status::fio::kOther;
           return was_there ? status::kOk : status::fio::kFileNotFound;
         });
}

}  // namespace zemva
