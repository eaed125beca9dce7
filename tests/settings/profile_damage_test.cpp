// What the own profile operations bear: damaged files, processes that are killed or in each other's
// way, disks that are full.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <thread>

#include "settings/file_profile.h"
#include "support/temp_folder.h"

#if !defined(_WIN32)
#include <signal.h>
#include <sys/resource.h>
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
  const std::string text = "\xFF\xFE[\0a\0]\0\n\0k\0=\0\x31\0"s;
  test::WriteBytes(file, text);
  EXPECT_EQ(Read(file, "a", "k"), "none");
  EXPECT_FALSE(FileProfile().Write({"a", "k", "2"}, file.c_str()));
  EXPECT_EQ(test::ReadBytes(file), text);
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
  const std::string file = folder.File("a.ini");
  constexpr int kRounds = 100;
  const auto write_all = [&](const std::string& prefix) {
    for (int i = 0; i < kRounds; ++i) {
      const std::string key = prefix + std::to_string(i);
      if (!FileProfile().Write({"a", key.c_str(), "1"}, file.c_str())) return false;
    }
    return true;
  };
  const pid_t first = InChild([&] { return write_all("first"); });
  const pid_t second = InChild([&] { return write_all("second"); });
  EXPECT_TRUE(Succeeded(first));
  EXPECT_TRUE(Succeeded(second));
  EXPECT_EQ(FileProfile().ReadSection("a", file.c_str()).size(), 2U * kRounds);
}

TEST(ProfileDamage, AKillLeavesTheOldFileOrTheNewOne) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  const std::string ballast = "\n; " + std::string(500'000, 'x') + "\n";
  test::WriteBytes(file, "[a]\nk=0" + ballast);
  for (int round = 0; round < 30; ++round) {
    const pid_t child = InChild([&] {
      for (int i = 0;; ++i) {
        FileProfile().Write({"a", "k", i % 2 == 0 ? "11" : "0"}, file.c_str());
      }
      return true;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(5 + round));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string found = test::ReadBytes(file);
    EXPECT_TRUE(found == "[a]\nk=0" + ballast || found == "[a]\nk=11" + ballast)
        << found.size() << " bytes";
  }
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
