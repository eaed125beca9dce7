#include "zemva/base/atomic_file.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#if !defined(_WIN32)
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "support/temp_folder.h"

namespace zemva {
namespace {

namespace fs = std::filesystem;

bool Save(const std::string& path, const std::string& text) {
  AtomicFile file(path);
  if (file.GetStream() == nullptr) return false;
  std::fputs(text.c_str(), file.GetStream());
  return file.Commit();
}

TEST(AtomicFile, ReplacesTheFileOnCommitOnly) {
  const test::TempFolder folder;
  const std::string path = folder.File("a.txt");
  EXPECT_TRUE(Save(path, "old"));
  {
    AtomicFile abandoned(path);
    std::fputs("new", abandoned.GetStream());
  }
  EXPECT_EQ(test::ReadBytes(path), "old");
  EXPECT_TRUE(Save(path, "new"));
  EXPECT_EQ(test::ReadBytes(path), "new");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1)
      << "a file was left behind";
  EXPECT_FALSE(Save(folder.File("no/such/a.txt"), "x"));
  AtomicFile late(folder.File("b"));
  fs::create_directory(folder.File("b"));
  EXPECT_FALSE(late.Commit()) << "a folder has taken its place";
}

#if !defined(_WIN32)
TEST(AtomicFile, FollowsALinkAndKeepsPermissions) {
  const test::TempFolder folder;
  const std::string path = folder.File("a.txt");
  test::WriteBytes(path, "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("a.txt", folder.File("link"));
  EXPECT_TRUE(Save(folder.File("link"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(test::ReadBytes(path), "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

// Written by who may give files away, and by who may only write to this one.
TEST(AtomicFile, AFileKeepsItsOwner) {
  if (getuid() != 0) GTEST_SKIP() << "needs a second user";
  const test::TempFolder folder;
  fs::permissions(folder.Path(), fs::perms::all);
  const std::string path = folder.File("a.txt");
  test::WriteBytes(path, "old");
  fs::permissions(path, fs::perms::all);
  constexpr uid_t kOwner = 12345;
  ASSERT_EQ(chown(path.c_str(), kOwner, kOwner), 0);
  for (const uid_t user : {uid_t{0}, uid_t{23456}}) {
    const std::string text(user + 1, 'x');
    const pid_t child = fork();
    if (child == 0) _exit(setuid(user) == 0 && Save(path, text) ? 0 : 1);
    int result = 1;
    waitpid(child, &result, 0);
    EXPECT_EQ(result, 0) << user;
    EXPECT_EQ(test::ReadBytes(path), text);
    struct stat status = {};
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, kOwner);
    EXPECT_EQ(status.st_mode & 0777, 0777U);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
  }
}

TEST(AtomicFile, MakesWhatADanglingLinkPointsToAndTheLongestName) {
  const test::TempFolder folder;
  fs::create_symlink("made.txt", folder.File("link"));
  EXPECT_TRUE(Save(folder.File("link"), "new"));
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_EQ(test::ReadBytes(folder.File("made.txt")), "new");
  EXPECT_TRUE(Save(folder.File(std::string(255, 'n')), "x")) << "the longest name is no obstacle";
}

TEST(AtomicFile, IsWrittenToAFileOfItsOwnThatIsAsPrivateAsTheOld) {
  const test::TempFolder folder;
  const std::string path = folder.File("a.txt");
  const std::string beside = folder.File(".saving-" + std::to_string(getpid()) + "-1");
  const std::string victim = folder.File("victim");
  test::WriteBytes(path, "old");
  fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
  test::WriteBytes(victim, "precious");
  fs::create_symlink(victim, beside);  // in the way, by chance or on purpose
  {
    AtomicFile file(path);
    for (const auto& entry : fs::directory_iterator(folder.Path())) {
      const auto others = fs::perms::group_all | fs::perms::others_all;
      if (entry.path().filename().string().ends_with("-2")) {
        EXPECT_EQ(entry.status().permissions() & others, fs::perms::none);
      }
    }
    std::fputs("new", file.GetStream());
    EXPECT_TRUE(file.Commit());
  }
  EXPECT_EQ(test::ReadBytes(path), "new");
  EXPECT_FALSE(fs::is_symlink(path));
  EXPECT_EQ(test::ReadBytes(victim), "precious");
}

TEST(AtomicFile, RemovesWhatIsLeftOfProcessesThatAreGone) {
  const test::TempFolder folder;
  const pid_t gone = fork();
  if (gone == 0) _exit(0);
  waitpid(gone, nullptr, 0);
  const auto name = [&](pid_t process, const std::string& rest) {
    return folder.File(".saving-" + std::to_string(process) + rest);
  };
  const std::vector<std::string> kept = {
      name(getppid(), "-1"),   name(gone, ""),
      name(gone, "-1a"),       folder.File(".saving--1"),
      folder.File(".saving-"), folder.File("saving-" + std::to_string(gone) + "-1"),
      name(1234567890, "-1")};
  std::vector<std::string> leftovers = {name(gone, "-1"), name(gone, "-17"), name(999999999, "-1")};
  for (int i = 1; i <= 120; ++i) leftovers.push_back(name(getpid(), "-" + std::to_string(i)));
  for (const auto& files : {kept, leftovers}) {
    for (const std::string& file : files) test::WriteBytes(file, "cut off");
  }
  AtomicFile unfinished(folder.File("b.txt"));
  ASSERT_NE(unfinished.GetStream(), nullptr);
  EXPECT_TRUE(Save(folder.File("a.txt"), "new"));
  for (const std::string& file : kept) EXPECT_TRUE(fs::exists(file)) << file;
  EXPECT_TRUE(unfinished.Commit()) << "another's file was taken for a leftover";
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), std::ssize(kept) + 2);
}

TEST(AtomicFile, RemovesWhatALinkPointsToWhereItMayBeWritten) {
  const test::TempFolder folder;
  fs::create_symlink("a.txt", folder.File("link"));
  EXPECT_FALSE(AtomicFile::Remove(folder.File("link")));
  test::WriteBytes(folder.File("a.txt"), "old");
  EXPECT_TRUE(AtomicFile::Remove(folder.File("link")));
  EXPECT_TRUE(fs::is_symlink(folder.File("link")));
  EXPECT_FALSE(fs::exists(folder.File("a.txt")));
  EXPECT_FALSE(AtomicFile::Remove(folder.Path().string()));
}

TEST(AtomicFile, AKillLeavesTheOldFileOrTheNewOne) {
  const test::TempFolder folder;
  const std::string path = folder.File("a.txt");
  const std::string texts[] = {std::string(500'000, '0'), std::string(700'000, '1')};
  ASSERT_TRUE(Save(path, texts[0]));
  for (int round = 0; round < 30; ++round) {
    const pid_t child = fork();
    if (child == 0) {
      for (int i = 0;; ++i) Save(path, texts[i % 2]);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5 + round));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const std::string found = test::ReadBytes(path);
    EXPECT_TRUE(found == texts[0] || found == texts[1]) << found.size() << " bytes";
  }
  ASSERT_TRUE(Save(path, "last"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1)
      << "what was left is still there";
}

TEST(AtomicFile, ADeviceIsWrittenToAndNotReplaced) {
  EXPECT_FALSE(Save("/dev/full", "x"));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_TRUE(Save("/dev/null", "x"));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}
#endif

}  // namespace
}  // namespace zemva
