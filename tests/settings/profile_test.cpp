// The profile operations: what a text of this format means, and what a change makes of it. Every
// implementation of this system is held against one table, on Windows the system's own calls too.
#include "zemva/settings/profile/profile.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <memory>

#include "support/temp_folder.h"
#include "zemva/settings/profile/file_profile.h"
#if defined(_WIN32)
#include "zemva/settings/profile/windows_profile.h"
#endif

namespace zemva {
namespace {

using namespace std::string_literals;

std::vector<std::pair<std::string, std::unique_ptr<Profile>>> ProfilesOfThisSystem() {
  std::vector<std::pair<std::string, std::unique_ptr<Profile>>> profiles;
  profiles.emplace_back("own", std::make_unique<FileProfile>());
#if defined(_WIN32)
  profiles.emplace_back("Windows", std::make_unique<WindowsProfile>());
#endif
  return profiles;
}

std::string Read(const Profile& profile, const std::string& file, const char* section,
                 const char* key, const char* fallback = "none", std::size_t size = 40000) {
  std::string buffer(size, '#');
  buffer.resize(profile.ReadString(section, key, fallback, buffer, file.c_str()));
  return buffer;
}

struct ReadCase {
  std::string contents;
  const char* section;
  const char* key;
  std::string value;
};

const ReadCase kReadCases[] = {
    // Blanks and the case of letters.
    {"[a]\r\nk=v\r\n", "A", "K", "v"},
    {"  [ a ]  \n\t k \t = v w \t\n", " a ", " k ", "v w"},
    {"[a]\nkey  two = v\n", "a", "key  two", "v"},
    {"[a]\nkey  two = v\n", "a", "key two", "none"},
    {"[a]\nl\xE9=1\n", "a", "L\xC9", "none"},
    {"[a]\nk=\v\f1\x1A\nl=2\n", "a", "k", "1"},
    {"[a]\nk=\xE9\xA0\x81\n", "a", "k", "\xE9\xA0\x81"},
    // What a line is.
    {"[a]\nk=1", "a", "k", "1"},
    {"[a]\rk=1\r\rl=2\r", "a", "l", "2"},
    {"[a]\nk\nl=2\n", "a", "k", "none"},
    {"[a]\n=e\n", "a", "", "e"},
    {"[a]\n\n\nk=\n", "a", "k", ""},
    {"[a]\nk==b = c\n", "a", "k", "=b = c"},
    {"[a]\nk=v ; no comment\n", "a", "k", "v ; no comment"},
    {"[a]\n; k=1\n#k=2\nk=3\n", "a", "k", "3"},
    {"\xEF\xBB\xBF[a]\nk=1\n", "a", "k", "1"},
    // What a section is.
    {"k=0\n[a]\nk=1\n", "", "k", "0"},
    {"[a\nk=1\n[b]\nl=2\n", "a", "k", "none"},
    {"[a\nk=1\n[b]\nl=2\n", "b", "l", "2"},
    {"[a]x]k=9\nk=1\n", "a]x", "k", "1"},
    {"[a=b]\nk=1\n[c=d\n", "a=b", "[c", "d"},
    {"[]\nk=1\n", "", "k", "none"},
    // The first of a name counts.
    {"[a]\nk=1\nK=2\n[A]\nk=3\nl=4\n", "a", "k", "1"},
    {"[a]\nk=1\nK=2\n[A]\nk=3\nl=4\n", "a", "l", "none"},
    // Quotes.
    {"[a]\nk=\" v \"\n", "a", "k", " v "},
    {"[a]\nk= 'v' \n", "a", "k", "v"},
    {"[a]\nk=\"v'\n", "a", "k", "\"v'"},
    {"[a]\nk=\"\n", "a", "k", "\""},
    {"[a]\nk=\"\"\n", "a", "k", ""},
    {"[a]\nk=''x''\n", "a", "k", "'x'"},
    // Zero bytes end a name or a value, not a line.
    {"[a]\nk=1\0x\nl=2\n"s, "a", "k", "1"},
    {"[a]\nk=1\0x\nl=2\n"s, "a", "l", "2"},
    {"[a\0b]\nk\0x=1\n"s, "a", "k", "1"},
    {"[a]\n\0k=1\n"s, "a", "k", "none"},
    {"[a]\n\0\n=1\n"s, "a", "", "none"},
    // Long ones.
    {"[a]\nk=" + std::string(30000, 'x') + "\nl=2\n", "a", "k", std::string(30000, 'x')},
    {"[a]\n" + std::string(3000, 'k') + "=1\nl=2\n", "a", "l", "2"},
};

TEST(Profile, ReadsWhatATextMeans) {
  const test::TempFolder folder;
  for (const auto& [name, profile] : ProfilesOfThisSystem()) {
    int number = 0;
    for (const ReadCase& c : kReadCases) {
      const std::string file = folder.File(name + std::to_string(++number) + ".ini");
      test::WriteBytes(file, c.contents);
      EXPECT_EQ(Read(*profile, file, c.section, c.key), c.value)
          << name << ": [" << c.section << "] " << c.key << " in\n"
          << c.contents.substr(0, 100);
    }
  }
}

TEST(Profile, CutsAtTheBufferAndFallsBack) {
  const test::TempFolder folder;
  const std::string file = folder.File("a.ini");
  test::WriteBytes(file, "[a]\nk=\"abc\"\n");
  for (const auto& [name, profile] : ProfilesOfThisSystem()) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Read(*profile, file, "a", "k", "none", 3), "ab");
    EXPECT_EQ(Read(*profile, file, "a", "k", "none", 1), "");
    EXPECT_EQ(Read(*profile, file, "a", "k", "none", 0), "");
    EXPECT_EQ(Read(*profile, file, "a", "x", "long", 3), "lo");
    EXPECT_EQ(Read(*profile, file, "a", "x", "  d  "), "  d");
    EXPECT_EQ(Read(*profile, file, "a", "x", "\"d\" "), "d");
    EXPECT_EQ(Read(*profile, file, "a", "x", nullptr), "");
    EXPECT_EQ(Read(*profile, folder.File("none.ini"), "a", "k", "none"), "none");
    EXPECT_EQ(Read(*profile, folder.Path().string(), "a", "k", "none"), "none");
    EXPECT_EQ(Read(*profile, "", "a", "k", "none"), "none");
    EXPECT_EQ(Read(*profile, folder.File(std::string(300, 'p')), "a", "k"), "none");
    EXPECT_EQ(Read(*profile, file, nullptr, nullptr), "none");
  }
}

TEST(Profile, ReadsIntegers) {
  const std::pair<const char*, int> cases[] = {
      {"12", 12},          {"-5", -5},     {" +3 ", 3}, {"\" 8\"", 8},
      {"12abc", 12},       {"1.9", 1},     {"abc", 0},  {"", -77},
      {"0x1F", 31},        {"-0x10", -16}, {"0X1F", 0}, {"0o17", 15},
      {"0b11", 3},         {"010", 10},    {"- 5", 0},  {"+-5", 0},
      {"4294967295", -1},  {"0xfg", 15},   {"--5", 0},  {"99999999999", 1215752191},
      {"-4294967297", -1}, {"08", 8},      {"0x", 0},   {"2147483648", -2147483647 - 1},
  };
  const test::TempFolder folder;
  const std::string missing = folder.File("missing.ini");
  for (const auto& [name, profile] : ProfilesOfThisSystem()) {
    int number = 0;
    for (const auto& [text, value] : cases) {
      const std::string file = folder.File(name + std::to_string(++number) + ".ini");
      test::WriteBytes(file, std::string("[a]\nk=").append(text));
      EXPECT_EQ(profile->ReadInteger("a", "k", -77, file.c_str()), value) << name << ": " << text;
      EXPECT_EQ(profile->ReadInteger("a", "x", -77, file.c_str()), -77) << name;
    }
    EXPECT_EQ(profile->ReadInteger("a", "k", -77, missing.c_str()), -77) << name;
  }
}

struct WriteCase {
  std::string contents;
  std::vector<ProfileChange> changes;
  const char* section;
  const char* key;
  std::string value;
  std::string own_contents;  // what FileProfile makes of the file
};

const WriteCase kWriteCases[] = {
    // Values, new and changed; the rest of the file stays.
    {"", {{"a", "k", "1"}}, "a", "k", "1", "[a]\nk=1\n"},
    {"\xEF\xBB\xBF", {{"a", "k", "1"}}, "a", "k", "1", "\xEF\xBB\xBF[a]\nk=1\n"},
    {"[a]\nk=1", {{"a", "l", "2"}}, "a", "l", "2", "[a]\nk=1\nl=2\n"},
    {"[a]\nk=1", {{" b ", " l ", " 2 "}}, "b", "l", "2", "[a]\nk=1\n[b]\nl= 2 \n"},
    {"; c\r\n[a]\r\n K  = 1 \r\n\r\n[b]\r\nx\r\n",
     {{"A", "k", "2"}},
     "a",
     "k",
     "2",
     "; c\r\n[a]\r\n K  = 2\r\n\r\n[b]\r\nx\r\n"},
    {"[a]\r\nk=1\r\n\r\n\r\n[b]\r\n",
     {{"a", "l", "2"}},
     "a",
     "l",
     "2",
     "[a]\r\nk=1\r\nl=2\r\n\r\n\r\n[b]\r\n"},
    {"[a]\nk\n", {{"a", "k", "1"}}, "a", "k", "1", "[a]\nk=1\n"},
    {"[a]\nk=1\n", {{"a", "k", ""}}, "a", "k", "", "[a]\nk=\n"},
    {"[a]\nk=\xC3\xA9\n", {{"a", "l", "'\xE9'"}}, "a", "l", "\xE9", "[a]\nk=\xC3\xA9\nl='\xE9'\n"},
    {"[a]\nk=1\n", {{"", "k", "2"}}, "", "k", "2", "k=2\n[a]\nk=1\n"},
    {"[a]\nk=1\nk=2\n[a]\nl=3\n",
     {{"a", "k", "9"}, {"a", "l", "8"}},
     "a",
     "l",
     "8",
     "[a]\nk=9\nk=2\nl=8\n[a]\nl=3\n"},
    {"[a]\n", {{"a", "b=c", "1"}}, "a", "b", "c=1", "[a]\nb=c=1\n"},
    {"[a]\n", {{"a", "", "1"}}, "a", "", "1", "[a]\n=1\n"},
    // Removal uncovers the next of the name.
    {"[a]\nk=1\nK=2\n", {{"a", "k", nullptr}}, "a", "k", "2", "[a]\nK=2\n"},
    {"[a]\nk=1\n[b]\nl=2\n[a]\nk=3\n",
     {{"a", nullptr, nullptr}},
     "a",
     "k",
     "3",
     "[b]\nl=2\n[a]\nk=3\n"},
    {"k=1\n[b]\nl=2\n", {{"b", nullptr, "x"}}, "b", "l", "none", "k=1\n"},
    {"k=1\n[b]\nl=2\n", {{"", nullptr, nullptr}}, "", "k", "none", "[b]\nl=2\n"},
    {"[a]\nk=1\n",
     {{"a", "x", nullptr},
      {"x", "k", nullptr},
      {"x", nullptr, nullptr},
      {"a", " k", nullptr},
      {"a ", "k", nullptr},
      {" a", nullptr, nullptr}},
     "a",
     "k",
     "1",
     "[a]\nk=1\n"},
};

TEST(Profile, WritesWithoutTouchingTheRest) {
  const test::TempFolder folder;
  for (const auto& [name, profile] : ProfilesOfThisSystem()) {
    int number = 0;
    for (const WriteCase& c : kWriteCases) {
      const std::string file = folder.File(name + std::to_string(++number) + ".ini");
      test::WriteBytes(file, c.contents);
      EXPECT_TRUE(profile->Write(c.changes, file.c_str()));
      EXPECT_EQ(Read(*profile, file, c.section, c.key), c.value)
          << name << ": [" << c.section << "] " << c.key << " in\n"
          << test::ReadBytes(file);
      if (name == "own") {
        EXPECT_EQ(test::ReadBytes(file), c.own_contents);
      }
    }
  }
}

TEST(Profile, ListsASectionAndUpdatesItByWhatItHolds) {
  const test::TempFolder folder;
  for (const auto& [name, profile] : ProfilesOfThisSystem()) {
    SCOPED_TRACE(name);
    const std::string file = folder.File(name + ".ini");
    test::WriteBytes(file, "[b]\n[a]\nk = 1\nno value\n\nl='2'\nK=3\nno value=4\nm=\n[a]\nn=5\n");
    std::string listed;
    for (const auto& [key, value] : profile->ReadSection("A", file.c_str())) {
      listed.append(key).append("=").append(value).append(";");
    }
    EXPECT_EQ(listed, "k=1;l=2;m=;");
    EXPECT_TRUE(profile->ReadSection("x", file.c_str()).empty());
    test::WriteBytes(file, "[b]\nk=0\n[a]\nK=1\nl=2\n\n[c]\n");
    const auto edit = [](const std::vector<ProfileEntry>& entries) {
      std::vector<KeyChange> changes;
      for (const ProfileEntry& entry : entries) changes.push_back({entry.key, entry.value + "+"});
      changes.push_back({"l", std::nullopt});
      changes.push_back({"m", std::to_string(entries.size())});
      return changes;
    };
    EXPECT_TRUE(profile->Update("a", file.c_str(), edit));
    EXPECT_EQ(Read(*profile, file, "a", "k") + Read(*profile, file, "a", "m"), "1+2");
    EXPECT_EQ(Read(*profile, file, "a", "l"), "none");
    if (name == "own") {
      EXPECT_EQ(test::ReadBytes(file), "[b]\nk=0\n[a]\nK=1+\nm=2\n\n[c]\n");
    }
    const auto nothing = [](const std::vector<ProfileEntry>&) { return std::vector<KeyChange>(); };
    EXPECT_FALSE(profile->Update("a", folder.Path().string().c_str(), nothing)) << "no file";
  }
}

TEST(Profile, WritesOnlyWhereItMay) {
  const test::TempFolder folder;
  const std::string read_only = folder.File("read_only.ini");
  test::WriteBytes(read_only, "[a]\nk=1\n");
  std::filesystem::permissions(read_only, std::filesystem::perms::owner_read);
  const bool is_writable = std::ofstream(read_only, std::ios::app).is_open();  // as root
  for (const auto& [name, profile] : ProfilesOfThisSystem()) {
    SCOPED_TRACE(name);
    EXPECT_EQ(profile->Write({"a", "k", name.c_str()}, read_only.c_str()), is_writable);
    EXPECT_EQ(Read(*profile, read_only, "a", "k"), is_writable ? name : "1");

    const std::string missing = folder.File(name + ".ini");
    EXPECT_TRUE(profile->Write({"a", "k", nullptr}, missing.c_str()));
    EXPECT_EQ(Read(*profile, missing, "a", "k"), "none");
    EXPECT_TRUE(profile->Write({"a", "k", "1"}, missing.c_str()));
    EXPECT_EQ(Read(*profile, missing, "a", "k"), "1");

    const std::string long_text(Profile::kMaxText + 1, 'x');
    EXPECT_FALSE(profile->Write({"a", "k", long_text.c_str()}, missing.c_str()));
    EXPECT_FALSE(profile->Write({nullptr, "k", "1"}, missing.c_str()));
    EXPECT_FALSE(profile->Write({"a]\n[b", "k", "2"}, missing.c_str()));
    EXPECT_FALSE(profile->Write({"a", "l=2\rk", "2"}, missing.c_str()));
    EXPECT_FALSE(profile->Write({"a", "k", "2\nl=3"}, missing.c_str()));
    EXPECT_EQ(Read(*profile, missing, "a", "k"), "1");
    EXPECT_FALSE(profile->Write({"a", "k", "1"}, folder.File("none/a.ini").c_str()));
    EXPECT_FALSE(profile->Write({"a", "k", "1"}, folder.Path().string().c_str()));
    EXPECT_FALSE(profile->Write({"a", "k", "1"}, ""));
    EXPECT_FALSE(profile->Write({"a", "k", "1"}, folder.File(std::string(300, 'p')).c_str()));
  }
}

}  // namespace
}  // namespace zemva
