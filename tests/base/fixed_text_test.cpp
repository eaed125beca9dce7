#include "zemva/base/fixed_text.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "zemva/base/time_stamp.h"

namespace zemva {
namespace {

TEST(FixedText, IsCutAtItsFieldAndAlwaysTerminated) {
  const struct {
    std::size_t capacity;
    const char* text;
    std::string field;  // of what was "######" before
  } cases[] = {
      {6, "abc", std::string("abc\0##", 6)},
      {4, "abc", std::string("abc\0##", 6)},
      {3, "abc", std::string("ab\0###", 6)},
      {1, "abc", std::string("\0#####", 6)},
      {0, "abc", "######"},
      {6, "", std::string("\0#####", 6)},
      {6, nullptr, std::string("\0#####", 6)},
  };
  for (const auto& c : cases) {
    std::string field = "######";
    CopyText(field.data(), c.capacity, c.text);
    EXPECT_EQ(field, c.field) << c.capacity;
  }
  FixedText<3> text("abcd");
  EXPECT_EQ(text.View(), "abc");
  text.Set(text.Get() + 1);
  EXPECT_EQ(text.View(), "bc") << "from within itself";
}

TEST(TimeStamp, IsADateAndATime) {
  EXPECT_TRUE(std::regex_match(
      TimeStamp().Get(), std::regex("2[0-9]{3}-[01][0-9]-[0-3][0-9] [0-2][0-9](:[0-5][0-9]){2}")));
}

}  // namespace
}  // namespace zemva
