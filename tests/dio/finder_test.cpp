#include "zemva/dio/file/finder.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/dio/file/dio_file.h"
#include "zemva/errors/dio_error.h"

namespace zemva {
namespace {

TEST(Finder, TableHolds212NamesAndEachIsFoundByNameAndByNumber) {
  EXPECT_EQ(kItemNames.size(), 212u);
  std::set<std::string> names;
  for (const SymbolCell& row : kItemNames) {
    names.insert(row.name);
    EXPECT_EQ(Finder::Search(row.name), row.value) << row.name;
    EXPECT_EQ(Finder::Search(Finder::Search(row.value)), row.value) << row.name;
  }
  EXPECT_EQ(names.size(), kItemNames.size());
  EXPECT_STREQ(Finder::Search(ItemName{216}), "UndefinedName");
  EXPECT_STREQ(Finder::Search(ItemName{-1}), "UndefinedName");
  EXPECT_STREQ(Finder::GetString(ItemName{224}), "iOClassM");
  EXPECT_EQ(Finder::GetItemType("NoSuchName"), ItemName{216});
}

// Two digits at the most, of which the first is not the first of the name. What is in the table as
// it stands has no number.
TEST(Finder, LookupTakesComponentNumbersOutOfNames) {
  const struct {
    const char* field;
    bool is_known;
    int value;
    int component;
  } cases[] = {
      {"P", true, 35, -1},         {"P1", true, 35, 1},        {"P12", true, 35, 12},
      {"P05", true, 35, 5},        {"P90", true, 35, 90},      {"SSVC3X", true, 179, 3},
      {"SSVC12X", true, 179, 12},  {"ObjInfo", true, 135, -1}, {"isBackTraYLS", true, 90, -1},
      {"Nothing", false, 216, -1}, {"", false, 216, -1},       {"S2T", true, 43, -1},
      {"objinfo", false, 216, -1}, {"P123", false, 216, 23},   {"5", false, 216, 5},
      {"55", false, 216, 5},
  };
  for (const auto& c : cases) {
    ItemName value;
    short component;
    EXPECT_EQ(Finder::Lookup(Padded<20>(c.field), value, component), c.is_known) << c.field;
    EXPECT_EQ(value, ItemName{c.value}) << c.field;
    EXPECT_EQ(component, c.component) << c.field;
  }
}

TEST(Finder, LookupReadsAFieldUpToASpaceAZeroByteOrItsEnd) {
  ItemName value;
  short component;
  NameField field = Padded<20>("NVar ignored");
  EXPECT_TRUE(Finder::Lookup(field, value, component));
  field = Padded<20>(std::string_view("NVar\0rubbish", 12));
  EXPECT_TRUE(Finder::Lookup(field, value, component));
  EXPECT_EQ(value, item::kNVar);
  field.fill('9');  // nothing but digits, no end
  EXPECT_FALSE(Finder::Lookup(field, value, component));
}

TEST(Finder, FindSuperItemSeesTheFirstSuperItemOnly) {
  const test::TempFolder folder;
  const std::string data = test::SuperItemOf("One", "data", "");
  const std::string model = test::SuperItemOf("Two", "MOD", "");
  const std::string unknown = test::SuperItemOf("Three", "none", "");
  const std::string padded_name = test::Pad("One", 20);
  const struct {
    const char* what;
    std::string bytes;
    const char* sub_name;
    SuperItem::Type type;
    int status;
  } cases[] = {
      {"first", test::FileOf(1, 2, data + model), nullptr, SuperItem::kData, 0},
      {"version 3", test::FileOf(3, 1, data), nullptr, SuperItem::kData, 0},
      {"version 0", test::FileOf(0, 1, data), nullptr, SuperItem::kData, 2017},
      {"version 4", test::FileOf(4, 1, data), nullptr, SuperItem::kData, 2017},
      {"second", test::FileOf(2, 2, data + model), nullptr, SuperItem::kModel, 2000},
      {"tag in capitals", test::FileOf(2, 2, model + data), nullptr, SuperItem::kModel, 0},
      {"letters of a tag", test::FileOf(2, 1, test::SuperItemOf("One", "DaTA", "")), nullptr,
       SuperItem::kData, 0},
      {"unknown tag", test::FileOf(2, 1, unknown), nullptr, SuperItem::kData, 2008},
      {"no super item", test::FileOf(2, 0, data), nullptr, SuperItem::kData, 2000},
      {"too short", test::FileOf(2, 1, "abc"), nullptr, SuperItem::kData, 2005},
      {"name with padding", test::FileOf(2, 1, data), padded_name.c_str(), SuperItem::kData, 0},
      {"name without", test::FileOf(2, 1, data), "One", SuperItem::kData, 2000},
      {"name in many", test::FileOf(2, 2, data + model), padded_name.c_str(), SuperItem::kData,
       2000},
  };
  for (const auto& c : cases) {
    const std::string path = folder.File("file.vdo");
    test::WriteBytes(path, c.bytes);
    test::RecordingWindow window;
    DioFile file(path.c_str(), window);
    file.OpenSuperItemFile();
    EXPECT_EQ(Finder::FindSuperItem(file, c.sub_name, c.type), c.status) << c.what;
    if (c.status == 0) {
      EXPECT_EQ(file.GetPosition(), 110) << c.what;
    }
  }
}

}  // namespace
}  // namespace zemva
