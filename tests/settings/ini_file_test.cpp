#include "zemva/settings/ini/ini_file.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/failing_allocator.h"
#include "support/temp_folder.h"
#include "zemva/settings/options/prj_opt.h"
#include "zemva/settings/profile/profile.h"

namespace zemva {
namespace {

// A settings directory of its own, with a settings file, and a project in another folder.
class IniFileTest : public testing::Test {
 protected:
  IniFileTest() {
    IniFile::SetIniPath(settings_.Path().string().c_str());
    EXPECT_TRUE(IniFile::CreateVardoIniFile());
  }
  ~IniFileTest() override { IniFile::SetIniPath(nullptr); }

  std::string Address(std::string_view name) const { return projects_.File(name); }

  // An empty file, so that the project exists.
  std::string MakeFile(std::string_view name) const {
    test::WriteBytes(Address(name), "");
    return Address(name);
  }

  static std::string Value(const std::string& file, const char* section, const char* key) {
    std::string buffer(300, '\0');
    buffer.resize(Profile::OfThisSystem().ReadString(section, key, "(none)", buffer, file.c_str()));
    return buffer;
  }
  static std::string Setting(const char* section, const char* key) {
    return Value(IniFile::GetSettingsFile(), section, key);
  }
  static void Set(const std::string& file, const char* section, const char* key,
                  const char* value) {
    EXPECT_TRUE(Profile::OfThisSystem().Write({section, key, value}, file.c_str()));
  }

  // A list as the file holds it: "count: entry entry", with "-" for a missing one.
  static std::string List(const std::string& file, const char* section, const char* count_key,
                          const char* prefix, int first, int last) {
    std::string list = Value(file, section, count_key) + ":";
    for (int i = first; i <= last; ++i) {
      const std::string value = Value(file, section, (prefix + std::to_string(i)).c_str());
      list += " " + (value == "(none)" ? "-" : value);
    }
    return list;
  }
  static std::string Known(int last) {
    return List(IniFile::GetSettingsFile(), "Known projects", "iNProjects", "p", 1, last);
  }
  static std::string Datasets(const std::string& file, int last) {
    return List(file, "Secondary Datasets", "iNSD", "d", 1, last);
  }
  static std::string Models(const std::string& file, int last) {
    return List(file, "Models", "iNMOD", "m", 0, last);
  }

  test::TempFolder settings_;
  test::TempFolder projects_;
};

TEST_F(IniFileTest, TheSettingsFileStandsInADirectoryThatExists) {
  const std::string folder = settings_.Path().string();
  const std::string file = IniFile::GetSettingsFile();
  EXPECT_TRUE(file.starts_with(folder)) << file;
  EXPECT_TRUE(std::filesystem::exists(file));
  IniFile::SetIniPath((folder + "/").c_str());
  EXPECT_EQ(IniFile::GetIniPath(), folder + "/");
  const std::string windows = Profile::OfThisSystem().FindWindowsDirectory();
  IniFile::SetIniPath((folder + "/none").c_str());
  EXPECT_EQ(IniFile::GetIniPath(), windows);
  EXPECT_TRUE(IniFile::GetSettingsFile().starts_with(windows));
}

TEST_F(IniFileTest, ASettingsDirectoryThatIsTooLongIsNotTakenForNone) {
  std::string folder = settings_.Path().string() + "/";
  const std::size_t padding = std::max<std::size_t>(folder.size(), 254) - folder.size();
  folder.append(padding, 'd');
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) GTEST_SKIP() << "the system knows no such directories";
  for (const std::string& directory : {folder, folder + "/eeeeee"}) {
    std::filesystem::create_directories(directory, error);
    IniFile::SetIniPath(directory.c_str());
    EXPECT_EQ(IniFile::GetSettingsFile(), "");
    EXPECT_FALSE(PrjOpt(true).SaveGlobal());
    EXPECT_FALSE(PrjOpt(true).LoadGlobal());
    EXPECT_FALSE(IniFile::CreateVardoIniFile());
  }
}

TEST_F(IniFileTest, ANewSettingsFileHoldsNoProjectsAndTheDefaults) {
  Set(IniFile::GetSettingsFile(), "Miscelaneous", "old", "1");
  EXPECT_TRUE(IniFile::CreateVardoIniFile());
  EXPECT_EQ(Setting("Miscelaneous", "old"), "(none)");
  EXPECT_EQ(Setting("Current project", "Project"), "");
  EXPECT_EQ(Known(1), "0: -");
  EXPECT_EQ(Setting("Options", "CompLimLoa"), "3.0");
}

TEST_F(IniFileTest, ProjectsAreAddedOnceAndTheGapIsClosed) {
  IniFile ini(nullptr);
  for (const char* name : {"a", "b", "a", "c", "A"}) ini.AddNewProjectAddress(name);
  EXPECT_EQ(Known(5), "4: a b c A -");
  EXPECT_STREQ(ini.GetProjectAddress(3), "c");
  EXPECT_TRUE(ini.CheckIfProjectIsKnown("A"));

  EXPECT_TRUE(ini.DeleteProject("b"));
  EXPECT_EQ(Known(4), "3: a c A -");
  EXPECT_TRUE(ini.DeleteProjectFromIniFile("A"));  // the first one but for case
  EXPECT_EQ(Known(3), "2: c A -");
  EXPECT_TRUE(ini.DeleteProject("none"));  // lowers the count all the same
  EXPECT_EQ(Known(2), "1: c A");
  EXPECT_TRUE(ini.DeleteProject("c"));
  EXPECT_EQ(Known(1), "0: -");
}

TEST_F(IniFileTest, OnlyAnEntryThatGoesRenumbersTheOthers) {
  const std::string file = IniFile::GetSettingsFile();
  const auto with_gap = [&file] {
    test::WriteBytes(file, "[Known projects]\niNProjects=3\np1=a\np3=c\np4=beyond\n");
  };
  with_gap();
  IniFile ini(nullptr);
  EXPECT_TRUE(ini.DeleteProject("unknown"));
  EXPECT_EQ(Known(4), "2: a - c beyond");
  with_gap();
  EXPECT_TRUE(ini.DeleteProjectFromIniFile("a"));
  EXPECT_EQ(Known(3), "1: c - -");
  with_gap();
  EXPECT_TRUE(ini.AdjustNumberOfKnownProjects(3));
  EXPECT_EQ(Known(4), "3: a - c beyond");
  EXPECT_TRUE(ini.AdjustNumberOfKnownProjects(2));
  EXPECT_EQ(Known(3), "2: a c -");
  EXPECT_TRUE(ini.IncNumberOfProjects());
  EXPECT_TRUE(ini.DecNumberOfProjects());
  EXPECT_STREQ(ini.GetNumberOfProjects(), "2");
  test::WriteBytes(file, "[Known projects]\niNProjects=1\np1\np1=a\n");
  EXPECT_FALSE(ini.CheckIfProjectIsKnown("a")) << "the first of a name counts";
  EXPECT_FALSE(ini.DecNumberOfProjects() && ini.DecNumberOfProjects());
}

TEST_F(IniFileTest, DeletingAProjectDeletesItsFile) {
  IniFile ini(nullptr);
  const std::string listed = MakeFile("listed.ini");
  ini.AddNewProjectAddress(listed.c_str());
  EXPECT_TRUE(ini.DeleteProjectFromIniFile(listed.c_str()));
  EXPECT_TRUE(std::filesystem::exists(listed));
  ini.AddNewProjectAddress(listed.c_str());
  EXPECT_TRUE(ini.DeleteProject(listed.c_str()));
  EXPECT_FALSE(std::filesystem::exists(listed));
  EXPECT_FALSE(ini.DeleteProject(projects_.Path().string().c_str())) << "that is a folder";
}

TEST_F(IniFileTest, OldAndBadProjectsAreRemoved) {
  IniFile ini(nullptr);
  const std::string first = MakeFile("1");
  const std::string second = MakeFile("2");
  const std::string third = MakeFile("3");
  for (const auto& address : {first, Address("bad"), second, third}) {
    ini.AddNewProjectAddress(address.c_str());
  }
  ini.SetCurrentProjectAddress(Address("bad").c_str());
  EXPECT_TRUE(ini.ScanAndRemoveBadProjects());
  EXPECT_EQ(Known(4), "3: " + first + " " + second + " " + third + " -");
  EXPECT_STREQ(ini.GetCurrentProjectAddress(), "");
  EXPECT_TRUE(ini.AdjustNumberOfKnownProjects(3));
  EXPECT_TRUE(ini.AdjustNumberOfKnownProjects(1));
  EXPECT_EQ(Known(2), "1: " + third + " -");
  EXPECT_TRUE(ini.AdjustNumberOfKnownProjects(-1));
  EXPECT_EQ(Known(1), "0: -");
}

TEST_F(IniFileTest, ACountThatLiesIsBoundedByTheFile) {
  for (const char* count : {"2147483647", "99999999999999999999", "1000000000"}) {
    EXPECT_TRUE(IniFile::CreateVardoIniFile());
    const std::string file = IniFile::GetSettingsFile();
    Set(file, "Known projects", "iNProjects", count);
    Set(file, "Known projects", "p1", "a");
    Set(file, "Known projects", "p999999999", "b");
    Set(file, "Known projects", "p01", "no entry");
    IniFile ini(nullptr);
    EXPECT_TRUE(ini.CheckIfProjectIsKnown("b"));
    EXPECT_FALSE(ini.CheckIfProjectIsKnown("no entry"));
    EXPECT_TRUE(ini.DeleteProjectFromIniFile("a"));
    EXPECT_STREQ(ini.GetProjectAddress(1), "b");
    EXPECT_TRUE(ini.AdjustNumberOfKnownProjects(5));
    EXPECT_EQ(Known(2), "1: b -") << count;
  }
  for (const char* count : {"-5", "-99999999999999999999"}) {
    Set(IniFile::GetSettingsFile(), "Known projects", "iNProjects", count);
    IniFile ini(nullptr);
    EXPECT_FALSE(ini.AddNewProjectAddress("c"));
    EXPECT_EQ(Setting("Known projects", "iNProjects"), count);
  }
  Set(IniFile::GetSettingsFile(), "Known projects", "iNProjects", "many");
  EXPECT_TRUE(IniFile(nullptr).AddNewProjectAddress("c"));
  EXPECT_EQ(Known(1), "1: c");
}

TEST_F(IniFileTest, AProjectIsMadeAndMovedWithoutItsLists) {
  const std::string old_address = Address("old.ini");
  const std::string new_address = Address("new.ini");
  IniFile ini(nullptr);
  EXPECT_STREQ(ini.MakeNewProject(old_address.c_str(), "A title", "Name"), old_address.c_str());
  EXPECT_TRUE(ini.SetCurrentProjectAddress(old_address.c_str()));
  EXPECT_STREQ(ini.GetCurrentProjectTitle(), "A title");
  EXPECT_EQ(Datasets(old_address, 1), "0: -");
  EXPECT_EQ(Models(old_address, 1), "0: - -");
  EXPECT_TRUE(ini.AddModel("m"));
  EXPECT_TRUE(ini.SetCurrentProjectName("A name of more than 24 characters"));
  EXPECT_STREQ(ini.GetCurrentProjectName(), "A name of more than 24 c");

  for (const auto& no_file : {std::string(), std::string(300, 'n'), Address("none/p.ini")}) {
    EXPECT_FALSE(ini.MoveCurrentProject(no_file.c_str()));
    EXPECT_TRUE(std::filesystem::exists(old_address));
  }
  EXPECT_TRUE(ini.MoveCurrentProject(new_address.c_str()));
  EXPECT_FALSE(std::filesystem::exists(old_address));
  EXPECT_EQ(ini.GetCurrentProjectAddress(), new_address);
  EXPECT_STREQ(ini.GetCurrentProjectTitle(), "A title");
  EXPECT_EQ(ini.GetNumberOfModels(), 0);
  EXPECT_EQ(Known(2), "1: " + new_address + " -");

  EXPECT_STREQ(ini.MakeNewProject(Address("none/p.ini").c_str(), "", ""), "");
  EXPECT_EQ(Known(2), "1: " + new_address + " -");
  EXPECT_TRUE(ini.SetCurrentProjectAddress(""));
  EXPECT_FALSE(ini.MoveCurrentProject(old_address.c_str()));
  EXPECT_EQ(Known(2), "1: " + new_address + " -");
}

TEST_F(IniFileTest, APathKeepsItsSeparatorAndMovesWithTheProject) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"E:\\new\\p.ini", "C:\\old\\a.mdl", "E:\\new\\a.mdl"},
      {"/home/u/p.ini", "C:\\old\\a.mdl", "/home/u/a.mdl"},
      {"E:\\new\\p.ini", "/old/a.b.mdl", "E:\\new\\a.b.mdl"},
      {"E:p.ini", "C:a.mdl", "E:a.mdl"},
      {"A:p.ini", "a:a.mdl", "A:a.mdl"},
      {"Z:p.ini", "z:a.mdl", "Z:a.mdl"},
      {"[:p.ini", "{:a.mdl", "{:a.mdl"},  // no letters, no drives
      {"p.ini", "sub/a", "a"},
  };
  for (const auto& [project, stored, moved] : cases) {
    PathText path;
    path.SetPath(stored);
    EXPECT_TRUE(IniFile(project).MakePath2CurrentProjectDirctory(path.Get()));
    EXPECT_STREQ(path.Get(), moved);
  }
  PathText path;
  path.SetPath(std::string(200, 'n'));
  const std::string deep_project = std::string("/").append(200, 'd').append("/p.ini");
  EXPECT_FALSE(IniFile(deep_project.c_str()).MakePath2CurrentProjectDirctory(path.Get()));
  EXPECT_TRUE(path.IsEmpty());

  const std::pair<const char*, const char*> directories[] = {
      {"D:\\proj", "D:\\proj\\"},
      {"D:\\", "D:\\"},
      {"D:/proj", "D:/proj\\"},
      {"a/b\\c", "a/b\\c\\"},
      {"\\\\host\\x", "\\\\host\\x\\"},
      {"/proj", "/proj/"},
      {"/proj/", "/proj/"},
      {"", ""},
  };
  for (const auto& [directory, shown] : directories) {
    IniFile ini(nullptr);
    EXPECT_TRUE(ini.SetDefaultProjectDirectory(directory));
    EXPECT_STREQ(ini.GetDefaultProjectDirectory(), shown);
  }
}

TEST_F(IniFileTest, AnAddressThatDoesNotFitNamesNoFile) {
  const std::string project = Address("p.ini");
  const std::string longest(259, 'a');
  const std::string too_long = longest + 'b';
  IniFile ini(project.c_str());
  EXPECT_STREQ(ini.MakeNewProject(too_long.c_str(), "", ""), "");
  EXPECT_FALSE(ini.AddNewProjectAddress(too_long.c_str()));
  EXPECT_FALSE(ini.SetCurrentProjectAddress(too_long.c_str()));
  EXPECT_FALSE(ini.SetDefaultProjectDirectory(too_long.c_str()));
  EXPECT_FALSE(ini.SetMainDatasetAddress(too_long.c_str()));
  EXPECT_FALSE(ini.AddSecondaryDataset("", too_long.c_str()));
  EXPECT_FALSE(ini.SetNewModelAddress("m1", too_long.c_str()));
  EXPECT_FALSE(ini.AddModel(too_long.c_str()));
  EXPECT_FALSE(std::filesystem::exists(project));
  EXPECT_TRUE(ini.AddNewProjectAddress(longest.c_str()));
  EXPECT_EQ(ini.GetProjectAddress(1), longest);
  EXPECT_FALSE(IniFile(too_long.c_str()).SetCurrentProjectTitle("x"));

  // Cut, the address that a file holds would name a file that exists.
  std::string existing = Address("");
  existing.append(std::max<std::size_t>(existing.size(), 230) - existing.size(), 'd') += '/';
  std::filesystem::create_directories(existing);
  existing.append(259 - existing.size(), 'p');
  test::WriteBytes(existing, "kept");
  Set(IniFile::GetSettingsFile(), "Current project", "Project", (existing + ".ini").c_str());
  EXPECT_STREQ(ini.GetCurrentProjectAddress(), "");
  EXPECT_FALSE(ini.MoveCurrentProject(Address("new.ini").c_str()));
  EXPECT_TRUE(ini.UpdateOldIniFile());
  EXPECT_FALSE(ini.SetCurrentProjectName("x"));
  EXPECT_EQ(test::ReadBytes(existing), "kept");

  EXPECT_FALSE(ini.MakePath2CurrentProjectDirctory(nullptr));
  EXPECT_TRUE(ini.SaveGlobalMiscOption("long", std::string(1000, 'x').c_str()));
  EXPECT_EQ(ini.GetGlobalMiscOption("long"), std::string(259, 'x'));
}

TEST_F(IniFileTest, DatasetsAreListedByRawAddressAndDeletedByFullOneOrName) {
  const std::string project = Address("p.ini");
  IniFile ini(project.c_str());
  EXPECT_EQ(ini.GetNumberOfSecondaryDatasets(), 0);
  EXPECT_TRUE(ini.SetMainDatasetAddress("C:\\old\\main.vdo"));
  EXPECT_EQ(ini.GetMainDatasetAddress(), Address("main.vdo"));

  for (const char* address : {"x\\a.vdo", "X\\A.vdo", "b.vdo", "y\\a.vdo", "c.vdo"}) {
    EXPECT_TRUE(ini.AddSecondaryDataset("name", address));
  }
  EXPECT_EQ(Datasets(project, 5), "4: x\\a.vdo b.vdo y\\a.vdo c.vdo -");
  EXPECT_EQ(ini.GetSecondaryDatasetAddress(1), Address("a.vdo"));
  EXPECT_EQ(ini.GetSecondaryDatasetAddress(5), nullptr);
  EXPECT_TRUE(ini.DeleteSecondaryDataset("A.VDO"));
  EXPECT_EQ(Datasets(project, 4), "3: b.vdo y\\a.vdo c.vdo -");
  EXPECT_TRUE(ini.DeleteSecondaryDataset(Address("b.vdo").c_str()));
  EXPECT_TRUE(ini.DeleteSecondaryDataset("none"));
  EXPECT_EQ(Datasets(project, 3), "2: y\\a.vdo c.vdo -");
  Set(project, "Secondary Datasets", "iNSD", "2147483647");
  EXPECT_FALSE(ini.AddSecondaryDataset("name", "d.vdo"));
}

TEST_F(IniFileTest, ModelsStartAtZeroWithoutACount) {
  const std::string project = Address("p.ini");
  IniFile ini(project.c_str());
  EXPECT_EQ(ini.GetNumberOfModels(), -1);
  EXPECT_TRUE(ini.AddModel("z.mdl"));
  EXPECT_EQ(Models(project, 1), "0: z.mdl -");
  for (const char* address : {"x\\a.mdl", "b.mdl", "y\\a.mdl", "c.mdl"}) ini.AddModel(address);
  EXPECT_TRUE(ini.AddModel(Address("b.mdl").c_str()));
  EXPECT_EQ(Models(project, 5), "4: z.mdl x\\a.mdl b.mdl y\\a.mdl c.mdl -");
  EXPECT_EQ(ini.GetModelAddress(short{3}), Address("a.mdl"));
  EXPECT_EQ(ini.GetModelAddress("m4"), Address("c.mdl"));
  EXPECT_STREQ(ini.GetModelAddress(short{5}), "");
  EXPECT_TRUE(ini.RemoveModel("a.mdl"));
  EXPECT_EQ(Models(project, 3), "2: z.mdl b.mdl c.mdl -");
  EXPECT_TRUE(ini.RemoveModel("B.mdl"));
  EXPECT_TRUE(ini.RemoveModel("b.mdl"));
  EXPECT_EQ(Models(project, 2), "1: z.mdl c.mdl -");
  EXPECT_TRUE(ini.AddModel("x\\d.mdl"));
  EXPECT_TRUE(ini.RemoveModel(Address("d.mdl").c_str()));  // not as it was stored
  EXPECT_EQ(Models(project, 2), "2: z.mdl c.mdl x\\d.mdl");
  EXPECT_TRUE(ini.RemoveModel("x\\d.mdl"));
  EXPECT_EQ(Models(project, 2), "1: z.mdl c.mdl -");
  EXPECT_TRUE(ini.DeleteSection("Models"));
  EXPECT_EQ(ini.GetNumberOfModels(), -1);
}

TEST_F(IniFileTest, WithoutAProjectNothingIsChanged) {
  IniFile ini(nullptr);
  EXPECT_FALSE(ini.SetCurrentProjectName("x"));
  EXPECT_FALSE(ini.SetMainDatasetAddress(nullptr));
  EXPECT_FALSE(ini.IncNumberOfSecondaryDatsets());
  EXPECT_FALSE(ini.AddSecondaryDataset("", "a"));
  EXPECT_FALSE(ini.DeleteSecondaryDataset("a"));
  EXPECT_FALSE(ini.AddModel("a"));
  EXPECT_FALSE(ini.RemoveModel("a"));
  EXPECT_FALSE(ini.DeleteSection("Models"));
}

TEST_F(IniFileTest, WithoutMemoryAnOperationFailsAndChangesNothing) {
  const std::string project = Address("a project with a name that is too long for a short text");
  const std::string settings = IniFile::GetSettingsFile();
  const char* const address = project.c_str();
  IniFile ini(address);
  EXPECT_STREQ(ini.MakeNewProject(address, "title", "name"), address);
  for (const char* known : {"a", "b"}) EXPECT_TRUE(ini.AddNewProjectAddress(known));
  EXPECT_TRUE(ini.AddModel("m.mdl") && ini.AddSecondaryDataset("", "d.vdo"));
  EXPECT_TRUE(ini.SetProjectFileVersion("2.0"));
  Set(settings, "Options", "NCV", "-1");
  Set(settings, "Options", "NitMax", "1");
  Set(settings, "Current project", "Project", address);
  const std::string settings_before = test::ReadBytes(settings);
  const std::string project_before = test::ReadBytes(project);
  PrjOpt options(true);
  options.SetMaxIter(12);
  const auto is_answered = [](const char* answer) { return answer != nullptr && *answer != '\0'; };
  const std::function<bool()> operations[] = {
      [&] { return is_answered(IniFile(address).GetCurrentProjectTitle()); },
      [&] { return is_answered(ini.GetProjectAddress(1)); },
      [&] { return is_answered(IniFile(address).GetModelAddress(short{1})); },
      [&] { return IniFile(address).GetNumberOfModels() == 1; },
      [&] { return ini.CheckIfProjectIsKnown("b"); },
      [&] { return ini.IncNumberOfProjects(); },
      [&] { return ini.DecNumberOfProjects(); },
      [&] { return ini.AddNewProjectAddress("c"); },
      [&] { return ini.DeleteProject(address); },
      [&] { return ini.DeleteProjectFromIniFile("A"); },
      [&] { return ini.AdjustNumberOfKnownProjects(1); },
      [&] { return ini.SetCurrentProjectAddress("b"); },
      [&] { return IniFile(address).SetCurrentProjectTitle("b"); },
      [&] { return IniFile(address).DeleteSection("Models"); },
      [&] { return IniFile(address).AddSecondaryDataset("", "e"); },
      [&] { return IniFile(address).DeleteSecondaryDataset("d.vdo"); },
      [&] { return IniFile(address).AddModel("e"); },
      [&] { return IniFile(address).RemoveModel("m.mdl"); },
      [&] { return IniFile(address).UpdateOldIniFile(); },
      [&] { return ini.CleanIniFile(nullptr); },
      [&] { return IniFile::CreateVardoIniFile(); },
      [&] { return options.SaveGlobalValue(EOptType::MaxIter); },
      [&] { return options.SaveGlobal(); },
      [&] { return options.LoadGlobal(); },
  };
  for (const auto& operation : operations) {
    int failures = 0;
    while (!test::WithAllocations(failures, operation)) {
      ++failures;
      ASSERT_EQ(test::ReadBytes(settings), settings_before) << &operation - operations;
      ASSERT_EQ(test::ReadBytes(project), project_before) << &operation - operations;
      ASSERT_EQ(options.GetMaxIter(), 12);
    }
#if !defined(_WIN32)  // there the system keeps the settings, with memory of its own
    EXPECT_GT(failures, 0) << &operation - operations;
#endif
    test::WriteBytes(settings, settings_before);
    test::WriteBytes(project, project_before);
  }
  EXPECT_EQ(options.GetMaxIter(), 200);

  const std::string moved = Address("moved.ini");
  for (int count = 0;
       !test::WithAllocations(count, [&] { return ini.MoveCurrentProject(moved.c_str()); });
       count += 7) {
    const std::string current = Setting("Current project", "Project");
    ASSERT_EQ(Value(current, "VardoP", "Title"), "title") << count;
    ini.SetCurrentProjectAddress(address);
  }
  EXPECT_EQ(Setting("Current project", "Project"), moved);
}

TEST_F(IniFileTest, OldFilesAreCleaned) {
  const std::string file = IniFile::GetSettingsFile();
  const std::string project = MakeFile("p.ini");
  const std::pair<const char*, const char*> cleaned[] = {
      {"Userinfo", "Name"},   {"VardoP", "Created"}, {"VardoP", "Directory"}, {"Options", "NitMax"},
      {"Options", "LogFont"}, {"Options", "DPScr"},  {"Options", "MenuMode"}};
  for (const char* version : {"2.9", "3.0"}) {
    IniFile ini(project.c_str());
    ini.SetProjectFileVersion(version);
    for (const auto& [section, key] : cleaned) Set(file, section, key, "1");
    Set(file, "Options", "CrossValidation", "On");
    Set(file, "Options", "NCV", "5");
    Set(file, "Current project", "Project", "other.ini");
    EXPECT_TRUE(ini.UpdateOldIniFile());
    const bool is_kept = version == std::string("3.0");
    for (const auto& [section, key] : cleaned) {
      EXPECT_EQ(Setting(section, key), is_kept ? "1" : "(none)") << key;
    }
    EXPECT_EQ(Setting("Options", "CrossValidation"), is_kept ? "On" : "CV");
    EXPECT_EQ(Setting("Options", "NCV"), "5");
    EXPECT_STREQ(ini.GetProjectFileVersion(), "") << "the current project is another one now";
  }
}

}  // namespace
}  // namespace zemva
