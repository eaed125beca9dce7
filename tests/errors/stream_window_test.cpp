#include "zemva/errors/stream_window.h"

#include <gtest/gtest.h>

#include "support/recording_window.h"
#include "zemva/errors/listing.h"

namespace zemva {
namespace {

TEST(StreamWindow, WritesChainAndTheLastTextIsKept) {
  test::RecordingWindow window;
  EXPECT_EQ(window.GetLastText(), nullptr);
  window << "a"
         << "b";
  EXPECT_EQ(window.log, "ab");
  EXPECT_STREQ(window.GetLastText(), "b");
}

TEST(StreamWindow, MutedWindowIgnoresWritesAndKeepsItsLastText) {
  test::RecordingWindow window;
  window << "a";
  window.SetMuted(true);
  window << "b";
  EXPECT_EQ(window.log, "a");
  EXPECT_STREQ(window.GetLastText(), "a");
}

TEST(Listing, AlignsToTheRightAndKeepsWhatIsTooLong) {
  test::RecordingWindow window;
  Listing(window).Right(6, 12).Right(4, "abcdef").Fixed(8, 3, -1.23456).EndLine();
  EXPECT_EQ(window.log, "    12abcdef  -1.235\n");
}

}  // namespace
}  // namespace zemva
