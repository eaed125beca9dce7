#include "zemva/errors/messages.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>

#include "zemva/errors/dio_error.h"

namespace zemva {
namespace {

TEST(Messages, DispatcherPicksTheTableOfTheRange) {
  const struct {
    int code;
    const char* text;
  } cases[] = {
      {0, "All done."},
      {1, "Unspecified error."},
      {1010, "FIO: Field too long."},
      {2017, "DIO: Can not read this file version."},
      {5005, "MAT: Matrix is singular."},
      {8043, "MVA: Only missing values for a variable in a CV group."},
      {13002, "STA: Argument error."},
      {2000, "DIO: Area specification error."},
      {1999, "Unregistered FIO exception (1999)."},
      {2026, "Unregistered DIO exception (2026)."},
      {4000, "Unregistered OS exception (4000)."},
      {4999, "Unregistered OS exception (4999)."},
      {5008, "Unregistered MAT exception (5008)."},
      {8014, "Unregistered MVA exception (8014)."},
      {13003, "Unregistered STA exception (13003)."},
      {3000, "Unregistered VARDO exception (3000)."},
      {7001, "Unregistered VARDO exception (7001)."},
      {-5, "Unregistered VARDO exception (-5)."},
  };
  for (const auto& c : cases) EXPECT_STREQ(GetVdoMsg(c.code), c.text);
}

TEST(Messages, EveryTableKnowsTheCommonCodesAndHasABufferOfItsOwn) {
  for (const auto table : {GetFIOMsg, GetDIOMsg, GetOSMsg, GetMatMsg, GetMVAMsg, GetSTAMsg}) {
    EXPECT_STREQ(table(0), "All done.");
    EXPECT_STREQ(table(1), "Unspecified error.");
  }
  const char* const unknown = GetDIOMsg(2999);
  GetMatMsg(5999);
  EXPECT_STREQ(unknown, "Unregistered DIO exception (2999).") << "a buffer is shared";
}

TEST(DioErrors, ShowMsgReturnsTheStatusAndComposesByClassNumber) {
  const struct {
    ErrorCode error_code;
    const char* message;
  } cases[] = {
      {0, "DIO: Read error."},
      {1, "DIO: Read error."},
      {2, "DIO: Read error."},
      {3, ""},
      {4, ""},
      {5, "\nDIO: Read error."},
      {6, "\nDIO: Read error."},
      {7, "DIO: Read error."},
  };
  for (const auto& c : cases) {
    DioDataError error(2005, c.error_code, "detail");
    EXPECT_EQ(error.ShowMsg(), 2005);
    EXPECT_STREQ(error.GetMsg(), c.message) << "class " << c.error_code;
    EXPECT_STREQ(error.GetText(), "detail");
  }
}

TEST(DioErrors, ShowMsgIsTheirFirstVirtualOperation) {
  // A pointer to a virtual member begins with its offset in the table plus 1.
  const auto member = &BaseError::ShowMsg;
  std::ptrdiff_t slot = 0;
  std::memcpy(&slot, &member, sizeof slot);
  EXPECT_EQ(slot, 1);
}

TEST(DioErrors, MergeComposesTextAndStatus) {
  EXPECT_STREQ(DioFileError(0, 0, "").Merge("alone"), "alone");
  EXPECT_STREQ(DioFileError(2004, 0, "").Merge("with"), "with\nDIO: File open error.");
  EXPECT_STREQ(DioItemError(2006, 4).Merge(12), "12.\nDIO: Write error.");
  EXPECT_EQ(std::string(DioItemError(2006, 4).Merge(std::string(1000, 'x').c_str())).size(), 255u);
}

}  // namespace
}  // namespace zemva
