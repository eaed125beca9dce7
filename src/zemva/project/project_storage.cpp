// A project in a folder.
#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <utility>

#include "zemva/base/paths.h"
#include "zemva/errors/listing.h"
#include "zemva/errors/memory_guard.h"
#include "zemva/errors/messages.h"
#include "zemva/errors/status.h"
#include "zemva/project/project.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"

namespace zemva {
namespace {

constexpr char kListFile[] = "project.ini";

constexpr ListLayout kWorksets = {"Worksets", "iNWS", "w", 0, IntegerOf};
constexpr ListLayout kPredsets = {"Predsets", "iNPS", "p", 0, IntegerOf};

// Which data set and which work set a file of a list depends on, by their files.
struct Dependences {
  const ListLayout& list;
  const char* of_dataset;
  const char* of_workset;
};
constexpr Dependences kDependences[] = {{kWorksets, "Workset Datasets", nullptr},
                                        {kPredsets, "Predset Datasets", "Predset Worksets"},
                                        {kModels, nullptr, "Model Worksets"}};

// What is written to a list, which outlives the changes that point into it.
class ListWriter {
 public:
  void Add(const std::string& section, const std::string& key, const std::string& value) {
    lines_.push_back({section, key, value});
  }
  bool Write(const std::string& path) const {
    std::vector<ProfileChange> changes;
    for (const auto& [section, key, value] : lines_) {
      changes.push_back({section.c_str(), key.c_str(), value.c_str()});
    }
    return Profile::OfThisSystem().Replace(changes, path.c_str());
  }

 private:
  std::vector<std::array<std::string, 3>> lines_;
};

std::string ReadText(const char* section, const std::string& key, const std::string& path) {
  PathText text;
  return ReadAddress(text, section, key.c_str(), path.c_str());
}

}  // namespace

struct Project::Opening {
  std::string folder;
  std::map<std::string, short> datasets;  // by their files, those that were opened
  std::map<std::string, short> worksets;
};

// The digits at the end of a name without its extension; 0 where there are none, or too many.
short Project::NumberOfFile(std::string_view path) {
  std::string_view name = FileNameOf(path);
  name = name.substr(0, name.rfind('.'));
  const std::size_t last = name.find_last_not_of("0123456789");
  const std::string_view digits = name.substr(last == std::string_view::npos ? 0 : last + 1);
  const int number = digits.empty() || digits.size() > 5 ? 0 : std::stoi(std::string(digits));
  return number > std::numeric_limits<short>::max() ? short{0} : static_cast<short>(number);
}

// One that neither a missing file nor the file of a data set has.
std::string Project::NewFileName(const std::string& folder, const char* kind, short number,
                                 const char* extension) const {
  std::string name = kind + std::to_string(number) + extension;
  const auto is_missing = [&](const ListedFile& missing) { return missing.file == name; };
  const auto is_of_dataset = [&](const auto& dataset) {
    return dataset.second->GetDSAddr() == folder + name && FileExists(folder + name);
  };
  while (std::ranges::any_of(missing_, is_missing) ||
         std::ranges::any_of(datasets_, is_of_dataset)) {
    name = '_' + name;
  }
  return name;
}

int Project::SaveDataset(short number, Dataset& dataset, const std::string& folder) const {
  const std::string old_address = dataset.GetDSAddr();
  const bool is_there = DirectoryOf(old_address) == folder && FileExists(old_address);
  if (is_there && !dataset.IsDirty()) return status::kOk;
  if (!dataset.IsLoaded() && dataset.Load() != status::kOk) return dataset.GetStatus();
  const std::string name = is_there ? std::string(FileNameOf(old_address))
                                    : NewFileName(folder, "dataset", number, ".vdo");
  int status = dataset.SetDSAddr((folder + name).c_str());
  if (status == status::kOk) status = dataset.Save();
  if (status != status::kOk) dataset.SetDSAddr(old_address.c_str());
  return status;
}

int Project::Save(const char* folder_name) {
  return SetStatus(MemoryGuarded([&] {
    const std::string folder = WithSeparator(folder_name == nullptr ? "" : folder_name);
    std::vector<ListedFile> files = missing_;
    if (const int status = SaveAll(folder, files); status != status::kOk) return status;
    return WriteList(files, folder + kListFile) ? status::kOk : status::fio::kWriteError;
  }));
}

int Project::SaveAll(const std::string& folder, std::vector<ListedFile>& files) {
  // The first data set is the primary one, unless that is missing.
  bool has_primary = std::ranges::any_of(files, &ListedFile::is_primary);
  std::map<const Dataset*, std::string> dataset_files;
  std::map<const Workset*, std::string> workset_files;
  for (const auto& [number, dataset] : datasets_) {
    const int status = SaveDataset(number, *dataset, folder);
    if (status != status::kOk) return status;
    const std::string file(FileNameOf(dataset->GetDSAddr()));
    dataset_files[dataset.get()] = file;
    files.push_back({&kSecondaryDatasets, file, "", "", !has_primary});
    has_primary = true;
  }
  for (const auto& [number, workset] : worksets_) {
    const std::string file = NewFileName(folder, "workset", number, ".wks");
    const int status = workset->Save((folder + file).c_str());
    if (status != status::kOk) return status;
    workset_files[workset.get()] = file;
    files.push_back({&kWorksets, file, dataset_files[&workset->GetDataset()], ""});
  }
  for (const auto& [number, owned] : predsets_) {
    const std::string file = NewFileName(folder, "predset", number, ".pre");
    const int status = owned.predset->Save((folder + file).c_str(), window_);
    if (status != status::kOk) return status;
    files.push_back({&kPredsets, file, dataset_files[&owned.predset->GetDataset()],
                     workset_files[owned.workset]});
  }
  for (const auto& [number, owned] : models_) {
    const std::string file = NewFileName(folder, "model", number, ".mdl");
    Model& model = *owned->GetModel();
    const std::string old_address = model.GetModAddr();
    model.SetModAddr((folder + file).c_str());
    if (const int status = model.Save(number); status != status::kOk) {
      model.SetModAddr(old_address.c_str());
      return status;
    }
    files.push_back({&kModels, file, "", workset_files[&owned->GetWorkset()]});
  }
  return status::kOk;
}

// That of a missing one is in the list.
std::string Project::NameOfDataset(const std::string& file, const std::string& list) const {
  for (const auto& [number, dataset] : datasets_) {
    if (FileNameOf(dataset->GetDSAddr()) == file) return dataset->GetDSNam();
  }
  FixedText<24> name;
  return FindValue(name, kPrimaryDatasetSection, kPrimaryDatasetNameKey, list.c_str());
}

bool Project::WriteList(const std::vector<ListedFile>& files, const std::string& path) const {
  ListWriter list;
  list.Add(IniFile::szVardoSection, kIdentificationKey, kProductIdentification);
  list.Add(IniFile::szVardoSection, kVersionKey, kLayoutVersion);
  list.Add(IniFile::szVardoSection, kNameKey, name_.Get());
  // A project has no title, but its list may.
  FixedText<60> title;
  list.Add(IniFile::szVardoSection, kTitleKey,
           FindValue(title, IniFile::szVardoSection, kTitleKey, path.c_str()));
  for (const ListLayout* layout : {&kSecondaryDatasets, &kWorksets, &kPredsets, &kModels}) {
    int count = 0;
    for (const ListedFile& each : files) {
      if (each.list != layout) continue;
      if (each.is_primary) {
        list.Add(kPrimaryDatasetSection, kPrimaryDatasetKey, each.file);
        list.Add(kPrimaryDatasetSection, kPrimaryDatasetNameKey, NameOfDataset(each.file, path));
        continue;
      }
      list.Add(layout->section, EntryKey(*layout, ++count), each.file);
    }
    list.Add(layout->section, layout->count_key, std::to_string(count));
  }
  for (const Dependences& kind : kDependences) {
    for (const ListedFile& each : files) {
      if (each.list != &kind.list) continue;
      if (kind.of_dataset != nullptr) list.Add(kind.of_dataset, each.file, each.dataset);
      if (kind.of_workset != nullptr) list.Add(kind.of_workset, each.file, each.workset);
    }
  }
  return list.Write(path);
}

void Project::Miss(const ListedFile& file, int status) {
  Listing(window_)
      .Text("Could not open ")
      .Text(file.file)
      .Text(": ")
      .Text(GetVdoMsg(status))
      .Text(" (")
      .Number(status)
      .Text(")")
      .EndLine();
  missing_.push_back(file);
}

void Project::OpenDataset(const char* address, bool is_primary, Opening& opening) {
  const std::string file(FileNameOf(address));
  auto dataset = std::make_unique<Dataset>("", address, window_);
  if (const int status = dataset->Load(); status != status::kOk) {
    return Miss({&kSecondaryDatasets, file, "", "", is_primary}, status);
  }
  const short number = AddDataset(dataset.release(), NumberOfFile(file));  // the project's
  if (number != 0) opening.datasets[file] = number;
}

// A work set, a prediction set or a model.
void Project::OpenSet(const ListedFile& file, Opening& opening) {
  const std::string path = opening.folder + file.file;
  const auto dataset = opening.datasets.find(file.dataset);
  const auto workset = opening.worksets.find(file.workset);
  const bool has_dataset = dataset != opening.datasets.end();
  const bool has_workset = workset != opening.worksets.end();
  short number = 0;
  if (file.list == &kWorksets) {
    if (!has_dataset) return Miss(file, status::mva::kDataNotAvailable);
    number = AddWorkset(dataset->second, "", NumberOfFile(file.file));
    if (number != 0 && GetWorkset(number)->Load(path.c_str()) != status::kOk) {
      SetStatus(GetWorkset(number)->GetStatus());
      worksets_.erase(std::exchange(number, short{0}));
    }
    if (number != 0) opening.worksets[file.file] = number;
  } else if (!has_workset) {
    return Miss(file, status::mva::kWorksetNotAvailable);
  } else if (file.list == &kModels) {
    number = AddModel(workset->second, path.c_str());
  } else {
    if (!has_dataset) return Miss(file, status::mva::kDataNotAvailable);
    number = AddPredset(dataset->second, workset->second, "", NumberOfFile(file.file));
    if (number != 0 && GetPredset(number)->Load(path.c_str(), window_) != status::kOk) {
      SetStatus(GetPredset(number)->GetStatus());
      predsets_.erase(std::exchange(number, short{0}));
    }
  }
  if (number == 0) Miss(file, status_);
}

int Project::Open(const char* folder_name) {
  return SetStatus(MemoryGuarded([&] {
    const bool is_empty = datasets_.empty() && worksets_.empty() && missing_.empty();
    if (!is_empty) return status::mva::kAlreadyInserted;
    Opening opening;
    opening.folder = WithSeparator(folder_name == nullptr ? "" : folder_name);
    const std::string path = opening.folder + kListFile;
    if (!FileExists(path)) return status::fio::kFileNotFound;
    IniFile list(path.c_str());
    name_.Set(list.GetCurrentProjectName());
    const std::string primary = list.GetMainDatasetAddress();
    if (!primary.empty()) OpenDataset(primary.c_str(), true, opening);
    for (int i = 1; i <= list.GetNumberOfSecondaryDatasets(); ++i) {
      const char* const address = list.GetSecondaryDatasetAddress(i);
      if (address == nullptr) break;
      OpenDataset(std::string(address).c_str(), false, opening);
    }
    for (const Dependences& kind : kDependences) {
      for (int i = 1; i <= ReadCount(kind.list, path.c_str()); ++i) {
        PathText address;
        const std::string file(FileNameOf(ReadEntry(address, kind.list, i, path.c_str())));
        if (file.empty()) break;
        const auto read = [&](const char* section) {
          return section == nullptr ? "" : ReadText(section, file, path);
        };
        OpenSet({&kind.list, file, read(kind.of_dataset), read(kind.of_workset)}, opening);
      }
    }
    return status::kOk;
  }));
}

}  // namespace zemva
