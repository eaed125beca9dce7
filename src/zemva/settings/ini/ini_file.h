// The settings files: one of the installation, and one of each project.
#ifndef ZEMVA_SETTINGS_INI_INI_FILE_H
#define ZEMVA_SETTINGS_INI_INI_FILE_H

#include <string>
#include <string_view>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/settings/profile/path_text.h"

// What a menu of the Windows interface is known by; unknown to other systems and never looked into.
struct HMENU__;

namespace zemva {

// The name of the settings file; null, which stands for the name that the library chooses.
ZEMVA_API const char* GetIniFile();

// Reads and writes both files. Nothing is cached: every operation goes to the file. A text that is
// returned stands in one of three buffers of the object: addresses and free values (259
// characters), titles (60), names, counts and versions (24). It is cut at its buffer and valid
// until the next operation; of an address, though, nothing is cut off. The value of an absent key
// is
// "".
//
// An operation that returns bool returns whether it could be carried out, if nothing else is said.
// Lists are numbered from 1 without gaps. A null text is taken for an empty one, except as a value
// to be written, where it removes the key.
class ZEMVA_API IniFile {
 public:
  // The section that tells which program a file is of.
  static constexpr const char* szVardoSection = "VardoP";

  // `projectFile` is the path of the project settings file. A path of more than 259 characters is
  // taken for none, here and where one is read; it is not written.
  explicit IniFile(const char* projectFile);

  // The directory of the settings file from now on: `dir`, with a separator at its end, or the
  // Windows directory when `dir` is null or does not exist. Elsewhere than on Windows that is the
  // user's configuration directory. Without a call it is the Windows directory too.
  static void SetIniPath(const char* dir);
  // That directory, with a separator at its end.
  static const char* GetIniPath();
  // The path of the settings file in that directory, which an IniFile takes when it is made; ""
  // when it has more than 259 characters, and then nothing is read or written.
  static std::string GetSettingsFile();
  // The section of the settings file that holds the global options.
  static const char* GetOptionsSectionName();

  // Replaces the settings file by one without projects and with the default options.
  static bool CreateVardoIniFile();
  // Replaces the project settings file at `addr` by one without data sets and models, and makes it
  // known. Returns `addr`, or "" when it failed.
  const char* MakeNewProject(const char* addr, const char* title, const char* name);

  // Known projects, in the settings file.

  // The count, as text.
  const char* GetNumberOfProjects();
  // One more, from 0 on; one less, from 1 on. The list itself stays.
  bool IncNumberOfProjects();
  bool DecNumberOfProjects();
  // The address of project `i`; "" when there is none.
  const char* GetProjectAddress(short i);
  // Whether the address is in the list, letter for letter.
  bool CheckIfProjectIsKnown(const char* addr);
  // True when the project was added: it was not known before.
  bool AddNewProjectAddress(const char* addr);
  // Removes the project from the list and deletes its settings file. The count goes down by one
  // even when the project is not in the list. A file stays when the list cannot be written.
  bool DeleteProject(const char* addr);
  // Removes the first such project, whatever the case of its letters, and keeps its file. False
  // when there is none.
  bool DeleteProjectFromIniFile(const char* addr);
  // Removes the oldest projects until there are no more than `max`.
  bool AdjustNumberOfKnownProjects(int max);
  // Removes the projects whose files do not exist, and forgets the current project if it is such.
  bool ScanAndRemoveBadProjects();
  // Does nothing and returns 1.
  int ReadLastProjects(HMENU__* menu, int first, int last);

  // The current project. Its address stands in the settings file, its name and title in its own.

  // "" when there is none.
  const char* GetCurrentProjectAddress();
  // Makes `addr` the project settings file of this object too.
  bool SetCurrentProjectAddress(const char* addr);
  // The name and title of the project of this object.
  const char* GetCurrentProjectName();
  const char* GetCurrentProjectTitle();
  bool SetCurrentProjectName(const char* name);
  bool SetCurrentProjectTitle(const char* title);
  // Makes a new project at `newAddr` with the title and name of the current one, but without its
  // data sets and models, and deletes the current one. False, and nothing happens, when there is no
  // current project or none can be made at `newAddr`.
  bool MoveCurrentProject(const char* newAddr);
  // The directory for new projects, with a separator at its end unless it is "".
  const char* GetDefaultProjectDirectory();
  // Writes it as it is, whether it exists or not.
  bool SetDefaultProjectDirectory(const char* dir);
  // Free values in the settings file.
  const char* GetGlobalMiscOption(const char* key);
  bool SaveGlobalMiscOption(const char* key, const char* value);
  // Removes a section of the project settings file.
  bool DeleteSection(const char* section);

  // Data sets and models, in the project settings file. Their addresses are read as being in its
  // directory, whatever directory they were stored with, and so follow the project when it moves.

  // Puts the drive and directory of the project settings file before the file name in `path`, a
  // buffer of 260 bytes. Where that does not fit, empties it and returns false.
  bool MakePath2CurrentProjectDirctory(char* path);
  // The primary data set; "" when there is none.
  const char* GetMainDatasetAddress();
  bool SetMainDatasetAddress(const char* addr);
  bool SetMainDatasetName(const char* name);

  // 0 when the count is absent.
  int GetNumberOfSecondaryDatasets();
  // One more; one less, from 1 on. The list itself stays.
  bool IncNumberOfSecondaryDatsets();
  bool DecNumberOfSecondaryDatasets();
  // The address of data set `i`; null when there is none.
  const char* GetSecondaryDatasetAddress(int i);
  // Adds the address unless it stands in the list as it is given, whatever the case of its letters.
  // The first argument, the name of the data set, is not stored. False when a write failed.
  bool AddSecondaryDataset(const char* name, const char* addr);
  // Removes the first data set of this address, or of this file name whatever the case of its
  // letters. False when a write failed.
  bool DeleteSecondaryDataset(const char* addr);

  // -1 when the count is absent. The first model of such a project gets the number 0.
  int GetNumberOfModels();
  bool SetNumberOfModels(const char* count);
  // Writes an address under a key of the list of models, "m1", and leaves the count.
  bool SetNewModelAddress(const char* key, const char* addr);
  // The address of model `i`, or of a key; "" when there is none.
  const char* GetModelAddress(short i);
  const char* GetModelAddress(const char* key);
  // Adds the address unless the list has it. False when a write failed.
  bool AddModel(const char* addr);
  // Removes the models that were stored with this address or have this file name. False when a
  // write failed.
  bool RemoveModel(const char* addr);

  // Versions and upgrades.

  // The versions that stand in the settings file and in the project settings file.
  const char* GetIniFileVersion();
  const char* GetProjectFileVersion();
  bool SetProjectFileVersion(const char* version);
  // Writes the present version into the settings file, cleans it when the project file is of a
  // version before 3.0, and turns to the current project.
  bool UpdateOldIniFile();
  // Removes what older versions kept in a settings file; null is the own one.
  bool CleanIniFile(const char* file);
  // Does nothing and returns false.
  bool UpdateOldProject(const char* file);

 protected:
  // The value of any key in the list of known projects.
  const char* GetProjectAddressByString(const char* key);

 private:
  static bool WriteDefaultProject(const char* addr, const char* title, const char* name);

  // The raw value, as it is stored.
  const char* GetSecondaryDatasetFileName(int i);
  // What was read into value_ as an address, put into the directory of the project settings file.
  const char* Moved(const char* stored);
  std::string InProjectDirectory(std::string_view path) const;

  PathText settings_file_;
  PathText value_;
  FixedText<60> title_;
  FixedText<24> short_value_;
  PathText project_file_;
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_INI_INI_FILE_H
