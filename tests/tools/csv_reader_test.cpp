#include "csv/csv_reader.h"

#include <gtest/gtest.h>

#include <charconv>
#include <string>
#include <vector>

#include "text/code_page.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

std::string Printed(float value) {
  if (IsMissing(value)) return {};
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
}

std::string Quoted(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

// The canonical form of a table.
std::string Print(const CsvTable& table) {
  std::string text = ",";
  for (int j = 1; j <= table.values->NCol(); ++j) {
    const char* name = table.variables->GetVNam(static_cast<short>(j));
    text += ',' + Quoted(Utf8FromCodePage(name));
  }
  text += '\n';
  for (int i = 1; i <= table.values->NRow(); ++i) {
    const auto position = static_cast<short>(i);
    text += std::to_string(table.observations->GetONum(position)) + ',';
    text += Quoted(Utf8FromCodePage(table.observations->GetONam(position)));
    for (const float value : table.values->Row(i)) text += ',' + Printed(value);
    text += '\n';
  }
  return text;
}

std::string ReadAndPrint(std::string_view bytes, CsvRepairs::Report report = nullptr,
                         const CsvOptions& options = {}) {
  try {
    return Print(ReadCsv(bytes, options, CsvRepairs(std::move(report))));
  } catch (const CsvError& error) {
    return error.what();
  }
}

std::string Repeated(std::string_view text, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST(CsvReader, FindsSeparatorsMarksEncodingsAndLabels) {
  struct Case {
    const char* in;
    const char* out;
  };
  constexpr Case kCases[] = {
      // Labels: none, headed, told by their contents, without headings.
      {"a,b\n1,2\n3,NA", ",,a,b\n1,Obs_1,1,2\n2,Obs_2,3,\n"},
      {"Num,Name,a\n7,x,1\n-3,NA,2\n", ",,a\n7,x,1\n-3,NA,2\n"},
      {"Name,No,a\nx,7,1\n", ",,a\n7,x,1\n"},
      {"Country,a\nItaly,1\n,2\n", ",,a\n1,Italy,1\n2,,2\n"},
      {"No,Country,a\n4,Italy,1\n", ",,a\n4,Italy,1\n"},
      {",a\n5,1\n6,2\n", ",,a\n5,Obs_1,1\n6,Obs_2,2\n"},
      {"\"\",\"a\"\n\"5\",1\n\"x\",2\n", ",,a\n1,5,1\n2,x,2\n"},
      {",,a\n5,6,7\n", ",,a\n5,6,7\n"},
      // A column with a number in it is no column of names.
      {"a,b\n,1\n2,3\n", ",,a,b\n1,Obs_1,,1\n2,Obs_2,2,3\n"},
      // Separators and decimal marks.
      {"a;b,c\n1,5;-2e1\n", ",,a,\"b,c\"\n1,Obs_1,1.5,-20\n"},
      {"a;b\tc\n1,5\t+,25\n", ",,a;b,c\n1,Obs_1,1.5,0.25\n"},
      {"\"a;b\",\"c\"\n1.5,2\n", ",,a;b,c\n1,Obs_1,1.5,2\n"},
      {",,a;b\n1,x,2\n", ",,a;b\n1,x,2\n"},
      // Quotes, blanks, line ends.
      {"\"a\"\"\nb\",c\r\n\r\n 1 , \t\r\n\"2\",\"\"\r\n\n",
       ",,\"a\"\"\nb\",c\n1,Obs_1,1,\n2,Obs_2,2,\n"},
      {",,a\n1,\"x\r\ny\",2\n", ",,a\n1,\"x\r\ny\",2\n"},
      {",,a\n1,x\"y,2\n", ",,a\n1,\"x\"\"y\",2\n"},
      {"\r,,a\r1,x,2\r\r\n2,y,3\r", ",,a\n1,x,2\n2,y,3\n"},
      // What spreadsheets write first, and words for a missing value.
      {"sep=;\r\na,b;c\r\n1;2,5\r\n", ",,\"a,b\",c\n1,Obs_1,1,2.5\n"},
      {"sep=\n1\n", ",,sep=\n1,Obs_1,1\n"},
      {"a\nN/A\n#N/A\nNaN\nnan\n null\n1\n",
       ",,a\n1,Obs_1,\n2,Obs_2,\n3,Obs_3,\n4,Obs_4,\n5,Obs_5,\n6,Obs_6,1\n"},
      // Numbers are rounded to the nearest float, of two to the even one.
      {"a\n16777217\n16777219\n16777217.00000000000000000000000000000000000001\n1e-45\n"
       "1.1754942e-38\n-3.4028235677973365e38\n-98.99999618530273\n-0\n",
       ",,a\n1,Obs_1,16777216\n2,Obs_2,16777220\n3,Obs_3,16777218\n4,Obs_4,1e-45\n"
       "5,Obs_5,1.1754942e-38\n6,Obs_6,-3.4028235e+38\n7,Obs_7,-98.99999\n8,Obs_8,-0\n"},
      // Code page and UTF-8, with and without its mark: the euro sign, a umlaut, sharp s.
      {",,\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91,"
       "\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F\n1,x,2,3\n",
       ",,€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘,’“”•–—˜™š›œžŸ\n1,x,2,3\n"},
      {",,\x80\n1,\xE4\xDF,2\n", ",,\xE2\x82\xAC\n1,\xC3\xA4\xC3\x9F,2\n"},
      {",,\xE2\x82\xAC\n1,\xC3\xA4,2\n", ",,\xE2\x82\xAC\n1,\xC3\xA4,2\n"},
      {"\xEF\xBB\xBF,,\xE2\x82\xAC\n1,x,2\n", ",,\xE2\x82\xAC\n1,x,2\n"},
      {",,a\n1,x\xC3,2\n", ",,a\n1,x\xC3\x83,2\n"},
  };
  for (const Case& c : kCases) EXPECT_EQ(ReadAndPrint(c.in), c.out) << c.in;
}

TEST(CsvReader, RefusesWhatDoesNotFitWhereItStands) {
  struct Case {
    std::string in;
    const char* message;
  };
  const Case kCases[] = {
      {"", "line 1, column 1: the file is empty"},
      {"\xEF\xBB\xBF\n\r\n", "line 1, column 1: the file is empty"},
      {"\xEF\xBB\xBF\x80", "line 1, column 1: the file is marked as UTF-8 but is something else"},
      {std::string("\na\0", 3), "line 2, column 1: a zero byte: the file is no text"},
      {"a,b\n1,\"2\n3,4\n", "line 2, column 2: a quote is not closed"},
      {"a,b\n1,\"2\"3\n", "line 2, column 2: characters behind a closed quote"},
      {",\n1,x\n", "line 1, column 2: the table has no variable"},
      {",,a,a\n", "line 1, column 4: the name 'a' is that of another variable"},
      {"a,,b\n", "line 1, column 2: the variable has no name"},
      {",,a\n\n1,\"x\n\",2\n1,y,3\n",
       "line 5, column 1: the number 1 is that of another observation"},
      {",,a\n32768,y,3\n", "line 2, column 1: '32768' is not a whole number from -32768 to 32767"},
      {",,a\n1.0,y,3\n", "line 2, column 1: '1.0' is not a whole number from -32768 to 32767"},
      {",,a\n,y,3\n", "line 2, column 1: the observation has no number"},
      {",,a\n1,1234567890123456789012345,3\n",
       "line 2, column 2: the name '1234567890123456789012345' has more than 24 characters"},
      {",,\xCE\xB1\n", "line 1, column 3: the name '\xCE\xB1' is not in code page 1252"},
      {"a,b\n1\n", "line 2, column 1: the number of cells in the row is 1, not 2"},
      {"a,b\n1,2,\n", "line 2, column 3: the number of cells in the row is 3, not 2"},
      {"a\n-99.0\n", "line 2, column 1: '-99.0' stands for a missing value in a data set"},
      {"a\n1\n1e39\n", "line 3, column 1: '1e39' is beyond the range of single precision"},
      {"\xFF\xFE\x01", "line 1, column 1: the file is marked as UTF-16 but is something else"},
      {std::string("\xFE\xFF\xDC\x00\xDC\x00", 6),
       "line 1, column 1: the file is marked as UTF-16 but is something else"},
      {"sep=;\n\n", "line 1, column 1: the file is empty"},
      {"\n,,a\n", "line 2, column 1: there is no row below the header row"},
      {"a,Species\n1,x\n2,NA\n",
       "line 1, column 2: 'Species' holds texts: --class-by makes classes of it, --names names of "
       "observations, --drop leaves it out"},
      {"sep=;\n\na;b\n1;x\n2;3\n", "line 4, column 2: 'x' is not a number"},
      {"a\n1\nnull.\n", "line 3, column 1: 'null.' is not a number"},
      {"a\n1\n-inf\n", "line 3, column 1: '-inf' is not a number"},
      {"a\n1\n0x1\n", "line 3, column 1: '0x1' is not a number"},
      {"a\n1\n+-1\n", "line 3, column 1: '+-1' is not a number"},
      {"a,b\n1,\"2,5\"\n", "line 2, column 2: '2,5' is not a number"},
      {"a;b\n1,5;2.5\n", "line 2, column 2: '2.5' is not a number"},
      {"a;b\n1;1.234,5\n", "line 2, column 2: '1.234,5' is not a number"},
      {"a\n1\n\"x\r\n\x84\"\n", "line 3, column 1: 'x  \xE2\x80\x9E' is not a number"},
      {"a;" + Repeated("b", 9) + ";" + Repeated("\xC3\xA4", 30) + "\n",
       "line 1, column 3: the name '\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4"
       "\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4\xC3\xA4"
       "\xC3\xA4\xC3\xA4...' has more than 24 characters"},
  };
  for (const Case& c : kCases) EXPECT_EQ(ReadAndPrint(c.in), c.message);
}

TEST(CsvReader, RepairsAndTellsEachRepair) {
  std::vector<std::string> told;
  const auto report = [&](CsvRepair, const std::string& line) { told.push_back(line); };
  const char* const in =
      ",,v,v,,v_2,a long name of a variable\n"
      "2,1234567890123456789012_2,1,-99,x,1e39\n"
      "2,1234567890123456789012345,1,2,3,4,5,6\n"
      "x,123456789012345678901234x,1,2,3,4,5\n"
      ",\xCE\xB1,1,2,3,4,5\n"
      "1,?,1,2,3,4,5\n";
  EXPECT_EQ(ReadAndPrint(in, report),
            ",,v,v_3,Var_3,v_2,a long name of a variabl\n"
            "2,1234567890123456789012_2,1,,,,\n"
            "3,123456789012345678901234,1,2,3,4,5\n"
            "4,1234567890123456789012_3,1,2,3,4,5\n"
            "5,?_2,1,2,3,4,5\n"
            "1,?,1,2,3,4,5\n");
  const std::vector<std::string> expected = {
      "line 2, column 4: '-99' stands for a missing value in a data set: missing",
      "line 2, column 5: 'x' is not a number: missing",
      "line 2, column 6: '1e39' is beyond the range of single precision: missing",
      "line 2, column 6: the number of cells in the row is 6, not 7: the others are missing",
      "line 3, column 8: the number of cells in the row is 8, not 7: those beyond left out",
      "line 1, column 4: the name 'v' is that of another variable: named 'v_3'",
      "line 1, column 5: the variable has no name: named 'Var_3'",
      "line 1, column 7: the name 'a long name of a variable' has more than 24 characters: named "
      "'a long name of a variabl'",
      "line 3, column 1: the number 2 is that of another observation: renumbered 3",
      "line 4, column 1: 'x' is not a whole number from -32768 to 32767: renumbered 4",
      "line 5, column 1: the observation has no number: renumbered 5",
      "line 3, column 2: the name '1234567890123456789012345' has more than 24 characters: named "
      "'123456789012345678901234'",
      "line 4, column 2: the name '123456789012345678901234x' has more than 24 characters: named "
      "'1234567890123456789012_3'",
      "line 5, column 2: the name '\xCE\xB1' is not in code page 1252: named '?_2'",
  };
  EXPECT_EQ(told, expected);
}

std::string Utf16(std::u16string_view text, bool is_low_byte_first) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += is_low_byte_first ? low : high;
    bytes += is_low_byte_first ? high : low;
  }
  return bytes;
}

TEST(CsvReader, ReadsUtf16WithAMark) {
  for (const bool is_low_byte_first : {true, false}) {
    EXPECT_EQ(ReadAndPrint(Utf16(u"\uFEFF,,\u00E4\u20AC\r\n1,x,2.5\r\n", is_low_byte_first)),
              ",,\xC3\xA4\xE2\x82\xAC\n1,x,2.5\n");
    EXPECT_EQ(ReadAndPrint(Utf16(u"\uFEFF,,\U0001F600\n1,x,2\n", is_low_byte_first)),
              "line 1, column 3: the name '\xF0\x9F\x98\x80' is not in code page 1252");
  }
}

TEST(CodePage, KnowsCharactersToTheirBounds) {
  // The first and the last character of each length, and about the surrogates.
  using namespace std::string_view_literals;
  constexpr std::string_view kBounds =
      "\0\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"sv;
  EXPECT_TRUE(IsUtf8(kBounds));
  for (const char* const text : {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
                                 "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
                                 "\xF8\x88\x80\x80\x80", "\xC3", "\xE2\x82", "\xC3("}) {
    EXPECT_FALSE(IsUtf8(text));
  }
  for (const bool is_low_byte_first : {true, false}) {
    const auto read = [&](std::u16string_view units) {
      return Utf8FromUtf16(Utf16(units, is_low_byte_first), is_low_byte_first);
    };
    EXPECT_EQ(read(u"\0\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"sv), kBounds);
    for (const std::u16string& units :
         {std::u16string{0xD800}, std::u16string{0xDC00, 0xDC00}, std::u16string{0xD800, 0xE000}}) {
      EXPECT_EQ(read(units), std::nullopt);
    }
  }
  std::size_t lost = 9;
  EXPECT_EQ(CodePageFromUtf8("\x7F\u0081\u00A0ÿĀ", lost), "\x7F\x81\xA0\xFF?");
  EXPECT_EQ(lost, 1u);
  EXPECT_EQ(PrintableFromCodePage("\x1F \x7F\x80\x81\x9D\x9F\xA0"), "? ?€??Ÿ\u00A0");
}

TEST(CsvReader, DoesAsTheOptionsSay) {
  struct Case {
    CsvOptions options;
    const char* in;
    const char* out;
    const char* description = nullptr;
  };
  const Case kCases[] = {
      {{.is_without_header = true},
       "x;1,5;2\ny;3;4\n",
       ",,Var_1,Var_2\n1,x,1.5,2\n2,y,3,4\n",
       "2 observations (no numbers, names from column 1), 2 variables"},
      {{.is_without_header = true},
       "x\ny\n",
       "line 1, column 1: column 1 holds texts: --class-by makes classes of it, --names names of "
       "observations, --drop leaves it out"},
      {{.is_without_header = true, .name_column = "3"},
       "7,8,x\n",
       ",,Var_1,Var_2\n1,x,7,8\n",
       "1 observation (no numbers, names from column 3), 2 variables"},
      {{.delimiter = '|', .decimal_mark = ','},
       "a,b|c\n1,5|2\n",
       ",,\"a,b\",c\n1,Obs_1,1.5,2\n",
       "1 observation (no numbers, no names), 2 variables"},
      {{.missing_words = {"-999", "-99"}},
       "a,b\n-999,1\n2,-99\n",
       ",,a,b\n1,Obs_1,,1\n2,Obs_2,2,\n",
       "2 observations (no numbers, no names), 2 variables"},
      {{.name_column = "who",
        .number_column = "id",
        .class_column = "\xC3\xA4",
        .dropped_columns = {"note", "5"}},
       "\xE4,id,who,note,a,b\nx,7,p,hm,1,2\n,8,q,ho,3,4\ny,9,r,,5,6\nx,3,s,hi,7,8\n",
       ",,b\n7,p,2\n8,q,4\n9,r,6\n3,s,8\n",
       "4 observations (numbers from 'id', names from 'who'), 1 variable, 2 classes from "
       "'\xC3\xA4': 1 x (2), 2 y (1)"},
      {{.number_column = "none", .are_columns_optional = true},
       "a\n1\n",
       ",,a\n1,Obs_1,1\n",
       "1 observation (no numbers, no names), 1 variable"},
      {{.number_column = "bb"},
       ",,a,b\n1,x,2,3\n",
       "line 1, column 1: --numbers: there is no column 'bb': did you mean 'b'?"},
      {{.name_column = "0"}, "7,8\n1,2\n", "line 1, column 1: --names: there is no column '0'"},
      {{.dropped_columns = {"3"}},
       "7,8\n1,2\n",
       "line 1, column 1: --drop: there is no column '3'"},
      {{.name_column = "a", .class_column = "a"},
       "a,b\nx,1\n",
       "line 1, column 1: --names: the column 'a' is given for something else"},
      {{.dropped_columns = {"1"}}, "a\n1\n", "line 1, column 1: the table has no variable"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(ReadAndPrint(c.in, nullptr, c.options), c.out) << c.in;
    if (c.description == nullptr) continue;
    const CsvTable table = ReadCsv(c.in, c.options, CsvRepairs(nullptr));
    EXPECT_EQ(table.description, c.description);
    const bool has_classes = c.options.class_column.has_value();
    const std::vector<char> classes = {1, 0, 2, 1};
    EXPECT_EQ(table.classes, has_classes ? classes : std::vector<char>());
  }
}

TEST(CsvReader, HoldsTheLimitsOfADataSet) {
  const std::string rows = "a\n" + Repeated("1\n", 32767);
  std::string columns = "n1";
  for (int j = 2; j <= 32767; ++j) columns += ",n" + std::to_string(j);
  const std::string row = Repeated(",", 32766);
  EXPECT_EQ(ReadCsv(rows, {}, CsvRepairs(nullptr)).values->NRow(), 32767);
  EXPECT_EQ(ReadCsv(columns + "\n" + row, {}, CsvRepairs(nullptr)).values->NCol(), 32767);
  EXPECT_EQ(ReadAndPrint(rows + "1\n1\n"),
            "line 32769, column 1: the table has more than 32767 rows");
  EXPECT_EQ(ReadAndPrint(columns + ",x,y"),
            "line 1, column 32768: the table has more than 32767 variables");

  std::string told;
  const CsvRepairs repairs([&](CsvRepair, const std::string& line) { told = line; });
  EXPECT_EQ(ReadCsv(rows + "1\n1\n", {}, repairs).values->NRow(), 32767);
  EXPECT_EQ(told, "line 32769, column 1: the table has more than 32767 rows: 2 left out");
  EXPECT_EQ(ReadCsv(columns + ",x,y\n" + row + ",,", {}, repairs).values->NCol(), 32767);
  EXPECT_EQ(told, "line 1, column 32768: the table has more than 32767 variables: 2 left out");

  // Four gigabytes for a file of a few hundred thousand bytes.
  const std::string promise = columns + "\n" + Repeated("1\n", 32767);
  EXPECT_THROW(ReadCsv(promise, {}, repairs), CsvError);
}

}  // namespace
}  // namespace zemva::tools
