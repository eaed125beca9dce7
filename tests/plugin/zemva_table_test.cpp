#include "zemva/plugin/zemva_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "support/vdo_builder.h"

namespace zemva {
namespace {

TEST(Table, IsReadInWholeRowsAndColumns) {
  const test::TempFolder folder;
  const std::string path = folder.File("small.vdo");
  test::WriteBytes(path, test::SmallFile());
  void* table = nullptr;
  ASSERT_EQ(ZEMVATable_Open(path.c_str(), &table), 0);
  int rows = 0;
  int columns = 0;
  EXPECT_EQ(ZEMVATable_GetSize(table, &rows, &columns), 0);
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(columns, 2);

  using Values = std::vector<float>;
  Values values(6);
  EXPECT_EQ(ZEMVATable_GetRows(table, 1, 3, -1, values.data()), 0);
  EXPECT_EQ(values, (Values{1.5f, 2, -1, values[3], 5, 6}));
  EXPECT_LT(values[3], -99.0f);  // beside the missing value, but a value
  const float beside = values[3];
  EXPECT_EQ(ZEMVATable_GetColumns(table, 1, 2, -1, values.data()), 0);
  EXPECT_EQ(values, (Values{1.5f, -1, 5, 2, beside, 6}));
  values.assign(6, 0);
  EXPECT_EQ(ZEMVATable_GetColumns(table, 2, 1, -1, values.data()), 0);
  EXPECT_EQ(ZEMVATable_GetRows(table, 3, 1, -1, values.data() + 3), 0);
  EXPECT_EQ(values, (Values{2, beside, 6, 5, 6, 0}));

  std::vector<int> numbers(3);
  EXPECT_EQ(ZEMVATable_GetObsNumbers(table, 1, 3, numbers.data()), 0);
  EXPECT_EQ(numbers, (std::vector<int>{1, -2, 30}));
  EXPECT_EQ(ZEMVATable_GetVarNumbers(table, 2, 1, numbers.data()), 0);
  EXPECT_EQ(numbers[0], 2);
  std::string names(8, '?');
  EXPECT_EQ(ZEMVATable_GetObsNames(table, 2, 2, 4, names.data()), 0);
  EXPECT_EQ(names, std::string("sec\0thi\0", 8));
  EXPECT_EQ(ZEMVATable_GetVarNames(table, 1, 2, 4, names.data()), 0);
  EXPECT_EQ(names, std::string("x\0\0\0y\0\0\0", 8));
  ZEMVATable_Close(table);
}

TEST(Table, RefusesWhatThereIsNot) {
  const test::TempFolder folder;
  const std::string path = folder.File("small.vdo");
  void* table = &table;
  EXPECT_EQ(ZEMVATable_Open(path.c_str(), &table), 2004);
  EXPECT_EQ(table, nullptr);
  EXPECT_EQ(ZEMVATable_Open(nullptr, &table), 8022);
  EXPECT_EQ(ZEMVATable_Open(path.c_str(), nullptr), 8022);
  EXPECT_STREQ(ZEMVATable_GetMessage(8021), "MVA: Index out of range.");
  ZEMVATable_Close(nullptr);

  test::WriteBytes(path, test::SmallFile());
  ASSERT_EQ(ZEMVATable_Open(path.c_str(), &table), 0);
  std::vector<float> values(6, 7.0f);
  for (const auto& [first, count] :
       {std::pair{0, 1}, {-1, 1}, {1, 4}, {3, 2}, {4, 1}, {5, 0}, {1, -1}, {2, 2147483647}}) {
    EXPECT_EQ(ZEMVATable_GetRows(table, first, count, 0, values.data()), 8021) << first;
    EXPECT_EQ(ZEMVATable_GetColumns(table, first, count, 0, values.data()), 8021) << first;
  }
  char name = '?';
  EXPECT_EQ(ZEMVATable_GetObsNames(table, 1, 1, 0, &name), 8021);
  EXPECT_EQ(ZEMVATable_GetRows(table, 4, 0, 0, values.data()), 0);
  EXPECT_EQ(ZEMVATable_GetColumns(table, 3, 0, 0, values.data()), 0);
  EXPECT_EQ(values, std::vector<float>(6, 7.0f));
  EXPECT_EQ(ZEMVATable_GetRows(table, 1, 1, 0, nullptr), 8022);
  EXPECT_EQ(ZEMVATable_GetRows(nullptr, 1, 1, 0, values.data()), 8022);
  EXPECT_EQ(ZEMVATable_GetSize(table, nullptr, nullptr), 8022);
  ZEMVATable_Close(table);
}

}  // namespace
}  // namespace zemva
