// What the own profile operations bear: damaged files, processes that are killed or in each other's
// way, disks that are full.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <utility>

#include "support/temp_folder.h"
#include "zemva/settings/ini/ini_file.h"
#include "zemva/settings/ini/ini_layout.h"
#include "zemva/settings/profile/file_lock.h"
#include "zemva/settings/profile/file_profile.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace zemva {
namespace {

using namespace std::string_literals;

std::string Read(const std::string& file, const char* section, const char* key) {
  std::string buffer(64, '#');
  buffer.resize(FileProfile().ReadString(section, key, "none", buffer, file.c_str()));
  return buffer;
}

TEST(ProfileDamage, GarbageIsKeptAndWrittenBehind) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  std::mt19937 random(1);
  for (int round = 0; round < 50; ++round) {
    std::string garbage;
    for (int i = 0; i < 2000; ++i) garbage += static_cast<char>(random() & 0xFF);
    test::WriteBytes(file, garbage);
    EXPECT_TRUE(FileProfile().Write({"section", "key", "value"}, file.c_str()));
    EXPECT_EQ(Read(file, "section", "key"), "value");
    EXPECT_TRUE(test::ReadBytes(file).starts_with(garbage));
  }
}

TEST(ProfileDamage, AnEndlessLineIsReadOnce) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  test::WriteBytes(file, "[a]\nk=1\nl=" + std::string(100'000'000, '[') + "\nm=3\n");
  EXPECT_EQ(Read(file, "a", "k"), "1");
  EXPECT_EQ(Read(file, "a", "l"), std::string(63, '['));
  EXPECT_TRUE(FileProfile().Write({"a", "l", "2"}, file.c_str()));
  EXPECT_EQ(test::ReadBytes(file), "[a]\nk=1\nl=2\nm=3\n");
}

TEST(ProfileDamage, Utf16IsLeftAlone) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  for (const std::string& text : {"\xFF\xFE[\0a\0]\0\n\0k\0=\0\x31\0"s, "\xFE\xFF\0[\0a\0]"s}) {
    test::WriteBytes(file, text);
    EXPECT_EQ(Read(file, "a", "k"), "none");
    EXPECT_FALSE(FileProfile().Write({"a", "k", "2"}, file.c_str()));
    EXPECT_EQ(test::ReadBytes(file), text);
  }
}

// A pass over the file for every entry that moves would take minutes.
TEST(ProfileDamage, ALongListIsChangedInOnePass) {
  constexpr int kProjects = 20000;
  std::string text = "[Known projects]\niNProjects=" + std::to_string(kProjects) + "\n";
  std::vector<ProfileEntry> entries = {{"iNProjects", std::to_string(kProjects)}};
  for (int i = 1; i <= kProjects; ++i) {
    entries.push_back({"p" + std::to_string(i), "project" + std::to_string(i)});
    text.append(entries.back().key).append("=").append(entries.back().value).append("\n");
  }
  ProfileText profile(text);
  NumberedList projects(kKnownProjects, entries);
  EXPECT_EQ(projects.RemoveIf([](const std::string& known) { return known == "project1"; }), 1);
  const auto start = std::chrono::steady_clock::now();
  profile.Change("Known projects", projects.GetChanges());
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
  EXPECT_EQ(profile.Find("Known projects", "p19999"), "project20000");
  EXPECT_EQ(profile.Find("Known projects", "p20000"), std::nullopt);
  EXPECT_EQ(profile.Find("Known projects", "iNProjects"), "19999");
}

#if !defined(_WIN32)
// Runs `work` in a process of its own, which ends with its result.
template <typename Work>
pid_t InChild(Work work) {
  const pid_t child = fork();
  if (child == 0) _exit(work() ? 0 : 1);
  return child;
}

bool Succeeded(pid_t child) {
  int status = 1;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST(ProfileDamage, NoUpdateOfTwoProcessesIsLost) {
  const test::TempFolder folder;
  IniFile::SetIniPath(folder.Path().string().c_str());
  const std::string file = IniFile::GetSettingsFile();
  constexpr int kRounds = 100;
  const auto work = [&](const std::string& name) {
    for (int i = 0; i < kRounds; ++i) {
      const std::string key = name + std::to_string(i);
      if (!FileProfile().Write({"a", key.c_str(), "1"}, file.c_str())) return false;
      if (!IniFile(nullptr).AddNewProjectAddress(key.c_str())) return false;
    }
    return true;
  };
  const pid_t first = InChild([&] { return work("first"); });
  const pid_t second = InChild([&] { return work("second"); });
  EXPECT_TRUE(Succeeded(first));
  EXPECT_TRUE(Succeeded(second));
  EXPECT_EQ(FileProfile().ReadSection("a", file.c_str()).size(), 2U * kRounds);
  EXPECT_STREQ(IniFile(nullptr).GetNumberOfProjects(), "200");
  EXPECT_EQ(FileProfile().ReadSection("Known projects", file.c_str()).size(), 1 + 2U * kRounds);
  IniFile::SetIniPath(nullptr);
}

TEST(ProfileDamage, ALockIsWaitedForButNotForEver) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  test::WriteBytes(file, "[a]\nk=1\n");
  const FileLock held(file);
  EXPECT_FALSE(FileLock(file, std::chrono::milliseconds(20)).IsHeld());
  const auto nothing = [](const std::vector<ProfileEntry>&) { return std::vector<KeyChange>(); };
  EXPECT_TRUE(FileProfile().Update("a", file.c_str(), nothing)) << "nothing to wait for";
}

// What changes between a look at the file and the lock on it is not overwritten.
TEST(ProfileDamage, AnUpdateIsDecidedUnderTheLock) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  bool is_first = true;
  EXPECT_TRUE(FileProfile().Update("a", file.c_str(), [&](const auto& entries) {
    std::vector<KeyChange> changes;
    if (entries.empty()) changes.push_back({"NCV", "7"});
    if (std::exchange(is_first, false)) FileProfile().Write({"a", "NCV", "9"}, file.c_str());
    return changes;
  }));
  EXPECT_EQ(Read(file, "a", "NCV"), "9");
}

TEST(ProfileDamage, APipeIsNeitherReadNorWritten) {
  const test::TempFolder folder;
  const std::string file = folder.File("pipe");
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_EQ(Read(file, "a", "k"), "none");
  EXPECT_FALSE(FileProfile().Write({"a", "k", "1"}, file.c_str()));
}

TEST(ProfileDamage, AFullDiskLeavesTheOldFile) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  const std::string old = "[a]\nk=1\n; " + std::string(8000, 'x') + "\n";
  test::WriteBytes(file, old);
  EXPECT_TRUE(Succeeded(InChild([&] {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {4096, 4096};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
           !FileProfile().Write({"a", "k", "2"}, file.c_str());
  })));
  EXPECT_EQ(test::ReadBytes(file), old);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1)
      << "a file was left behind";
  EXPECT_FALSE(FileProfile().Write({"a", "k", "2"}, "/dev/full"));
}
#endif

}  // namespace
}  // namespace zemva
