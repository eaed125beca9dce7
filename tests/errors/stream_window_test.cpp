#include "zemva/errors/stream_window.h"

#include <gtest/gtest.h>

#include "support/failing_allocator.h"
#include "support/recording_window.h"
#include "zemva/errors/listing.h"

namespace zemva {
namespace {

TEST(StreamWindow, KeepsTheLastTextThatItWrote) {
  test::RecordingWindow window;
  EXPECT_EQ(window.GetLastText(), nullptr);
  const char* const texts[] = {"a", "b", "muted"};
  window << texts[0] << texts[1] << static_cast<const char*>(nullptr);
  window.SetMuted(true);
  window << texts[2];
  EXPECT_EQ(window.log, "ab");
  EXPECT_STREQ(window.GetLastText(), "b");
  window.SetMuted(false);
  window << texts[2];
  EXPECT_EQ(window.log, "abmuted");
}

TEST(Listing, AlignsToTheRightAndKeepsWhatIsTooLong) {
  test::RecordingWindow window;
  Listing(window).Right(6, 12).Right(4, "abcdef").Fixed(8, 3, -1.23456).EndLine();
  Listing(window).General(8, 0.1234567).Text("x").Number(-7).EndLine();
  EXPECT_EQ(window.log, "    12abcdef  -1.235\n0.123457x-7\n");
}

TEST(Listing, ALineWithoutMemoryIsEmptyAndATextWithoutIsShown) {
  test::RecordingWindow window;
  window.log.reserve(1000);
  const std::string text(100, 'x');
  Listing list(window);
  test::WithAllocations(0, [&] {
    window << text.c_str();
    list.Text("a").Text(text).Text("b").EndLine();
    return 0;
  });
  list.Text("c").EndLine();
  EXPECT_EQ(window.log, text + "\nc\n");
}

}  // namespace
}  // namespace zemva
