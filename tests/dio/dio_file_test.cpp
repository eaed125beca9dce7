#include "zemva/dio/file/dio_file.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "support/recording_window.h"
#include "support/temp_folder.h"
#include "support/vdo_builder.h"
#include "zemva/errors/dio_error.h"

namespace zemva {
namespace {

class DioFileTest : public ::testing::Test {
 protected:
  // A file with these bytes, open for reading.
  DioFile& Open(const std::string& bytes) {
    test::WriteBytes(path_, bytes);
    file_ = std::make_unique<DioFile>(path_.c_str(), window_);
    file_->OpenSuperItemFile();
    return *file_;
  }

  // The bytes that `write` leaves in a new file.
  std::string Written(const std::function<int(DioFile&)>& write) {
    file_.reset();  // a file that is open cannot be replaced on every system
    DioFile file(path_.c_str(), window_);
    EXPECT_EQ(file.NewFile(), 0);
    EXPECT_EQ(write(file), 0);
    EXPECT_EQ(file.CommitSuperItemFile(), 0);
    return test::ReadBytes(path_);
  }

  // "<status> <detail>" of the error that `read` raises; empty when it raises none.
  static std::string Raised(const std::function<void()>& read) {
    try {
      read();
      return "";
    } catch (DioError* raised) {
      const std::unique_ptr<DioError> error(raised);
      return std::to_string(error->ShowMsg()) + " " + error->GetText();
    }
  }

  test::TempFolder folder_;
  std::string path_ = folder_.File("file.vdo");
  test::RecordingWindow window_;
  std::unique_ptr<DioFile> file_;
};

TEST_F(DioFileTest, OpeningSaysWhatIsWrong) {
  const std::string long_path(300, 'x'), missing = folder_.File("none.vdo");
  const std::string folder = folder_.Path().string();
  const std::pair<const char*, const char*> cases[] = {
      {nullptr, "2004 No file address."},
      {"", "2004 No file address."},
      {long_path.c_str(), "2004 No file address."},
      {missing.c_str(), "2004 file does not exist."},
      {folder.c_str(), "2004 file could not be opened."},
  };
  for (const auto& [path, raised] : cases) {
    DioFile file(path, window_);
    EXPECT_EQ(Raised([&] { file.OpenSuperItemFile(); }), raised);
  }
  DioFile& file = Open(test::SmallFile());
  EXPECT_EQ(file.OpenSuperItemFile(), file.OpenSuperItemFile()) << "the same stream";
  EXPECT_EQ(file.SetPath("other"), 2020);
}

TEST_F(DioFileTest, SuperHeaderNamesTheFirstFieldThatIsCut) {
  const std::string whole = test::SmallFile();
  const struct {
    std::size_t length;
    const char* field;
  } cases[] = {{0, "version"},  {1, "version"}, {2, "size"},  {25, "name"},
               {85, "comment"}, {107, "time"},  {109, "nitm"}};
  for (const auto& c : cases) {
    DioFile& file = Open(whole.substr(0, c.length));
    SuperHeader header;
    EXPECT_EQ(Raised([&] { file.GetSuperHeader(header); }), std::string("2005 ") + c.field);
  }
  SuperHeader header;
  EXPECT_EQ(Open(whole).GetSuperHeader(header), 0);
  EXPECT_EQ(header.version, 2);
  EXPECT_EQ(header.size, static_cast<int>(whole.size()));
  EXPECT_EQ(Trimmed(header.name), "Project");
  EXPECT_EQ(Trimmed(header.comment), "A comment");
  EXPECT_EQ(Trimmed(header.time), "2001-01-01 12:00:00");
  EXPECT_EQ(header.nitm, 1);
  const auto encoded = EncodeSuperHeader(header);
  EXPECT_EQ(std::string(encoded.begin(), encoded.end()), whole.substr(0, 110));
}

TEST_F(DioFileTest, HeaderFieldsAreReadAndWrittenInPlace) {
  DioFile& file = Open(test::SmallFile());
  file.Seek(5);
  int size = 0;
  char date[23];
  EXPECT_EQ(file.GetSuperItemSize(size), 0);
  EXPECT_EQ(size, static_cast<int>(test::SmallFile().size()) - 110);
  EXPECT_EQ(file.GetSuperItemDate(date), 0);
  EXPECT_STREQ(date, "2001-01-01");
  SuperItem next;
  file.Seek(110);
  EXPECT_EQ(file.GetNextSuperItemType(next), 0);
  EXPECT_EQ(next.type, SuperItem::kData);
  EXPECT_EQ(Trimmed(next.header.name), "Small");
  EXPECT_EQ(file.GetPosition(), 110);

  const std::string bytes = Written([](DioFile& written) {
    written.WriteBlock(test::SmallFile().data(), 150);
    written.WriteSuperSize(1000);
    written.WriteSuperItemSize(500);
    written.WriteNumberOfSuperItems(3);
    return written.WriteTime("1999-12-31 23:59:59   ");
  });
  EXPECT_EQ(bytes.size(), 150u);
  EXPECT_EQ(bytes.substr(2, 4), test::I4(1000));
  EXPECT_EQ(bytes.substr(86, 24), "1999-12-31 23:59:59   " + test::I2(3));
  EXPECT_EQ(bytes.substr(110, 4), test::I4(500));
}

TEST_F(DioFileTest, ScalarsAndArraysAreReadAsTheyWereWritten) {
  const char bytes[] = {'-', 'a', 'b'};
  const short numbers[] = {0, 1, -2};
  const float values[] = {0.0f, 1.5f, -99.0f};
  test::WriteBytes(path_ + "2", test::SmallFile());
  DioFile source((path_ + "2").c_str(), window_);
  source.OpenSuperItemFile();
  int size = 0;
  EXPECT_EQ(source.GetSuperSize(size), 0);
  EXPECT_EQ(size, static_cast<int>(test::SmallFile().size()));
  source.Seek(110);
  const std::string written = Written([&](DioFile& file) {
    EXPECT_EQ(file.WriteI1('x'), 0);
    EXPECT_EQ(file.WriteBlock(bytes, 0), 0);
    EXPECT_EQ(file.WriteI2(-3), 0);
    EXPECT_EQ(file.WriteF4(2.5f), 0);
    EXPECT_EQ(file.WriteVI1(bytes, 2), 0);
    EXPECT_EQ(file.WriteVI2(numbers, 2), 0);
    EXPECT_EQ(file.WriteVF4(values, 2), 0);
    EXPECT_EQ(file.WriteTheItem(size = 0, "Twenty characters 20", "sz21", 0, nullptr, nullptr), 0);
    EXPECT_EQ(file.WriteComment("title", size), 0);
    return file.CopySuperItemHeader(source);
  });
  EXPECT_EQ(size, 31 + 6);
  EXPECT_EQ(written, "x" + test::I2(-3) + test::F4(2.5f) + "ab" + test::I2(1) + test::I2(-2) +
                         test::F4(1.5f) + test::F4(-99.0f) +
                         test::Item("Twenty characters 20", "sz21", {}, "") +
                         test::Item("Title", "sz61", {}, test::Z("title")) +
                         test::SmallFile().substr(110, 31));
  DioFile& file = Open(written);
  char byte = 0;
  short number = 0;
  float value = 0.0f;
  EXPECT_EQ(file.GetI1(byte), 0);
  EXPECT_EQ(file.GetI2(number), 0);
  EXPECT_EQ(file.GetF4(value), 0);
  EXPECT_TRUE(byte == 'x' && number == -3 && value == 2.5f);
  char* read = nullptr;
  ASSERT_EQ(file.GetVI1(read, 2), 0);
  EXPECT_EQ(std::string(read, 3), std::string("\0ab", 3));
  delete[] read;

  DioFile closed(path_.c_str(), window_);
  EXPECT_EQ(closed.GetI2(number), 2005);
  EXPECT_EQ(closed.WriteI2(number), 2006);
  EXPECT_EQ(closed.CommitSuperItemFile(), 2006);
  EXPECT_EQ(DioFile("", window_).NewFile(), 2011);
  EXPECT_EQ(DioFile(folder_.File("no/such").c_str(), window_).NewFile(), 2002);
}

TEST_F(DioFileTest, ItemOffsetsAreFoundByName) {
  const std::string bytes = test::SmallFile();
  DioFile& file = Open(bytes);
  int offset = 0;
  EXPECT_EQ(file.GetFileOfsetToItem(offset, item::kVarInfo), 0);
  EXPECT_EQ(bytes.substr(static_cast<std::size_t>(offset) + 4, 7), "VarInfo");
  EXPECT_EQ(Raised([&] { file.GetFileOfsetToItem(offset, ItemNamed("AvgX")); }), "2005 ");

  std::vector<std::string> items = test::SmallItems();
  items.insert(items.begin(), test::Item("Foreign", "i2", {}, test::I2(1)));
  EXPECT_EQ(Open(test::FileOfItems(items)).GetFileOfsetToItem(offset, item::kNVar), 2009);
}

TEST_F(DioFileTest, ItemHeadersThatCannotBeAreReadErrors) {
  const std::string name_and_type = test::Pad("NOBJ", 20) + test::Pad("i2", 5);
  const struct {
    const char* what;
    std::string bytes;
  } cases[] = {
      {"cut", test::I4(33) + name_and_type},
      {"smaller than its header", test::I4(30) + name_and_type + test::I2(0) + "ab"},
      {"negative size", test::I4(-1) + name_and_type + test::I2(0) + "ab"},
      {"more than the file holds", test::I4(34) + name_and_type + test::I2(0) + "ab"},
      {"negative dimensions", test::I4(33) + name_and_type + test::I2(-1) + "ab"},
      {"more dimensions than bytes", test::I4(99) + name_and_type + test::I2(32767) + "ab"},
  };
  for (const auto& c : cases) {
    DioFile& file = Open(c.bytes);
    ItemHeader header;
    EXPECT_EQ(Raised([&] { file.GetItemHeader(header); }), "2005 ") << c.what;
  }
}

TEST_F(DioFileTest, TextsAreCutAndTheRestIsReadNext) {
  const char* const texts[] = {"abcdef", "", "abc"};
  const std::string bytes = Written([&](DioFile& file) { return file.WriteZStrings(texts, 3); });
  EXPECT_EQ(bytes, test::Z("abcdef") + test::Z("") + test::Z("abc"));
  DioFile& file = Open(bytes + "open");
  char** read = nullptr;
  ASSERT_EQ(file.GetZStrings(read, 4, 4), 0);
  EXPECT_STREQ(read[0], "abc");
  EXPECT_STREQ(read[1], "ef");  // the fourth byte is gone
  EXPECT_STREQ(read[2], "");
  EXPECT_STREQ(read[3], "abc");
  for (int i = 0; i < 4; ++i) delete[] read[i];
  delete[] read;
  char last[10];
  EXPECT_EQ(file.GetZString(last, sizeof last), 2005);
  EXPECT_STREQ(last, "open");
  file.Seek(0);
  EXPECT_EQ(file.GetZStrings(read, 5, 10), 2005);
  EXPECT_EQ(file.GetZStrings(read, 17, 1), 2005);  // one more than there are bytes
  EXPECT_EQ(file.GetZStrings(read, -1, 10), 2005);
  EXPECT_EQ(read, nullptr);
}

TEST_F(DioFileTest, ArraysLandAtIndexOneAndNothingIsKeptOfAShortOne) {
  DioFile& file = Open(test::I2(5) + test::I2(-6) + test::F4(2.5f));
  short* numbers = nullptr;
  ASSERT_EQ(file.GetVI2(numbers, 2), 0);
  EXPECT_EQ(numbers[0], 0);
  EXPECT_EQ(numbers[1], 5);
  EXPECT_EQ(numbers[2], -6);
  delete[] numbers;
  float* values = nullptr;
  EXPECT_EQ(Raised([&] { file.GetVF4(values, 2); }), "2005 ");
  EXPECT_EQ(Raised([&] { file.GetVF4(values, 2000000000); }), "2005 ");
  EXPECT_EQ(values, nullptr);
  EXPECT_EQ(file.GetVF4(values, 1), 0);
  EXPECT_EQ(values[1], 2.5f);
  delete[] values;
  numbers = nullptr;
  EXPECT_EQ(file.GetVI2(numbers, -1), 2005);
}

TEST_F(DioFileTest, DimensionsThatDoNotFitTheirFieldAreRefused) {
  for (const int most : {32767, 32768}) {
    XFMatrix high("M", 0, 0, 0.0f);
    XFMatrix wide("M", 0, 0, 0.0f);
    static_cast<FMatrix&>(high) = FMatrix(most, 0, 0.0f);  // one with counts is never so large
    static_cast<FMatrix&>(wide) = FMatrix(0, most, 0.0f);
    const XI2Vector long_vector("V", most, 4);
    const int status = most == 32767 ? 0 : 2001;
    const std::string bytes = Written([&](DioFile& file) {
      int size = 0;
      EXPECT_EQ(file.WriteMXF4("Dataset", high, size, nullptr), status);
      EXPECT_EQ(file.WriteMXF4("Dataset", wide, size, nullptr), status);
      EXPECT_EQ(file.WriteVXI2("expIx1", long_vector, size), status);
      return 0;
    });
    EXPECT_EQ(bytes.size(), status == 0 ? 2 * (35 + 2) + 33 + 4 + 2 * 32767 : 0);
  }
}

TEST_F(DioFileTest, MatricesAndVectorsRoundTrip) {
  XFMatrix matrix("M", 2, 3, 0.0f);
  matrix[1][1] = 1.25f;
  matrix[2][3] = -99.0f;
  XI2Vector vector("V", 2, 4);
  std::string bytes = Written([&](DioFile& file) {
    int size = 0;
    int status = file.WriteMXF4("Dataset", matrix, size, nullptr);
    EXPECT_EQ(size, 35 + 2 + 24);
    if (status == 0) status = file.WriteVXI2("expIx1", vector, size);
    EXPECT_EQ(size, 33 + 1 + 3 + 4);
    return status;
  });
  EXPECT_EQ(bytes, test::MatrixItem(2, 3, {1.25f, 0, 0, 0, 0, -99.0f}, "M") +
                       test::Item("expIx1", "xiv2", {2},
                                  test::I2(0) + test::Z("V") + test::I2(4) + test::I2(4)));
  DioFile file(path_.c_str(), window_);
  file.OpenSuperItemFile();
  file.Seek(35);
  XFMatrix* read = nullptr;
  ASSERT_EQ(file.GetMXF4(read, 2, 3), 0);
  EXPECT_EQ((*read)[1][1], 1.25f);
  EXPECT_EQ(read->NValA(), 5);
  EXPECT_EQ(read->NValARow(2), 2);
  EXPECT_EQ(read->NValACol(3), 1);
  delete read;
  file.Seek(37);
  XFVector* row = nullptr;
  ASSERT_EQ(file.GetXFVector("row", 3, row), 0);
  EXPECT_STREQ(row->GetName(), "row");
  EXPECT_EQ((*row)[1], 1.25f);
  EXPECT_EQ(row->NValA(), 3);
  delete row;
  DioFile& empty = Open(test::Z("empty") + "rest");
  ASSERT_EQ(empty.GetMXF4(read, 0, 3), 0);
  EXPECT_STREQ(read->GetName(), "empty");
  EXPECT_EQ(read->NRow(), 0);
  EXPECT_EQ(empty.GetRemaining(), 4);
  delete read;
}

}  // namespace
}  // namespace zemva
