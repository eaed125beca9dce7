// The data sets and models of a project.
#include "zemva/base/paths.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"

namespace zemva {

std::string IniFile::InProjectDirectory(std::string_view path) const {
  return std::string(DirectoryOf(project_file_.View())).append(FileNameOf(path));
}

const char* IniFile::Moved(const char* stored) {
  if (*stored == '\0') return "";
  MakePath2CurrentProjectDirctory(value_.Get());
  return value_.Get();
}

bool IniFile::MakePath2CurrentProjectDirctory(char* path) {
  if (path == nullptr) return false;
  const auto move = [&] {
    const std::string moved = InProjectDirectory(path);
    const bool fits = IsPathThatFits(moved);
    CopyText(path, PathText::kCapacity + 1, fits ? moved.c_str() : "");
    return fits;
  };
  if (MemoryGuarded(move, false)) return true;
  *path = '\0';
  return false;
}

const char* IniFile::GetMainDatasetAddress() {
  return Moved(
      ReadAddress(value_, kPrimaryDatasetSection, kPrimaryDatasetKey, project_file_.Get()));
}

bool IniFile::SetMainDatasetAddress(const char* addr) {
  return WriteAddress(kPrimaryDatasetSection, kPrimaryDatasetKey, addr, project_file_.Get());
}

bool IniFile::SetMainDatasetName(const char* name) {
  return WriteValue({kPrimaryDatasetSection, kPrimaryDatasetNameKey, name}, project_file_.Get());
}

int IniFile::GetNumberOfSecondaryDatasets() {
  return ReadCount(kSecondaryDatasets, project_file_.Get());
}

bool IniFile::IncNumberOfSecondaryDatsets() {
  return EditList(kSecondaryDatasets, project_file_.Get(), RaiseCount);
}

bool IniFile::DecNumberOfSecondaryDatasets() {
  return EditList(kSecondaryDatasets, project_file_.Get(), LowerCount);
}

const char* IniFile::GetSecondaryDatasetFileName(int i) {
  return ReadEntry(value_, kSecondaryDatasets, i, project_file_.Get());
}

const char* IniFile::GetSecondaryDatasetAddress(int i) {
  const char* stored = GetSecondaryDatasetFileName(i);
  return *stored != '\0' ? Moved(stored) : nullptr;
}

bool IniFile::AddSecondaryDataset(const char*, const char* addr) {
  const std::string_view address = ViewOf(addr);
  return EditList(kSecondaryDatasets, project_file_.Get(), [&](NumberedList& datasets) {
    const bool is_listed = datasets.Contains(
        [&](const std::string& entry) { return IsSameIgnoringCase(entry, address); });
    return is_listed || datasets.Append(address);
  });
}

bool IniFile::DeleteSecondaryDataset(const char* addr) {
  const std::string_view address = ViewOf(addr);
  return EditList(kSecondaryDatasets, project_file_.Get(), [&](NumberedList& datasets) {
    datasets.RemoveIf(
        [&](const std::string& entry) {
          return InProjectDirectory(entry) == address ||
                 IsSameIgnoringCase(FileNameOf(entry), address);
        },
        1);
    return true;
  });
}

int IniFile::GetNumberOfModels() {
  return ReadCount(kModels, project_file_.Get());
}

bool IniFile::SetNumberOfModels(const char* count) {
  return WriteValue({kModels.section, kModels.count_key, count}, project_file_.Get());
}

bool IniFile::SetNewModelAddress(const char* key, const char* addr) {
  return key != nullptr && WriteAddress(kModels.section, key, addr, project_file_.Get());
}

const char* IniFile::GetModelAddress(short i) {
  return Moved(ReadEntry(value_, kModels, i, project_file_.Get()));
}

const char* IniFile::GetModelAddress(const char* key) {
  return Moved(ReadAddress(value_, kModels.section, key, project_file_.Get()));
}

bool IniFile::AddModel(const char* addr) {
  const std::string_view address = ViewOf(addr);
  return EditList(kModels, project_file_.Get(), [&](NumberedList& models) {
    const bool is_listed = models.Contains(
        [&](const std::string& entry) { return InProjectDirectory(entry) == address; });
    return is_listed || models.Append(address);
  });
}

bool IniFile::RemoveModel(const char* addr) {
  const std::string_view address = ViewOf(addr);
  return EditList(kModels, project_file_.Get(), [&](NumberedList& models) {
    models.RemoveIf(
        [&](const std::string& entry) { return entry == address || FileNameOf(entry) == address; });
    return true;
  });
}

}  // namespace zemva
