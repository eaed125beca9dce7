#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "data/plain_table.h"
#include "support/temp_folder.h"
#include "zemva/data/dataset.h"
#include "zemva/vectors/vec_catalogue.h"

namespace zemva {
namespace {

using test::MakeDataset;
using test::SmallTable;

// What is asked for by a name.
struct Answer {
  Answer(Dataset& dataset, const VecSpec& spec) {
    XFVector* elements = nullptr;
    XSVector* labels = nullptr;
    status = dataset.GetXFVector(&spec, elements);
    EXPECT_EQ(dataset.GetXSVector(&spec, labels, false), status);
    const std::unique_ptr<XFVector> owned_elements(elements);
    const std::unique_ptr<XSVector> owned_labels(labels);
    EXPECT_EQ(elements == nullptr, status != 0);
    EXPECT_EQ(labels == nullptr, status != 0);
    if (elements == nullptr || labels == nullptr) return;
    name = elements->GetName();
    EXPECT_EQ(labels->GetName(), name);
    values.assign(elements->Values().begin(), elements->Values().end());
    for (int i = 1; i <= labels->NVal(); ++i) names.push_back((*labels)[i]);
    present = elements->NValA();
  }

  int status;
  std::string name;
  std::vector<float> values;
  std::vector<std::string> names;
  int present = 0;
};

Answer Ask(Dataset& dataset, const char* name) {
  VecSpec spec;
  EXPECT_EQ(spec.SetName(name), 0) << name;
  return Answer(dataset, spec);
}

TEST(DatasetVectors, AreItsColumnsRowsAndNumbersWithTheirNames) {
  StreamWindow window;
  test::PlainTable table = SmallTable(3, 2);
  table.values[1][1] = -99.0f;
  table.observations = {{10, "a"}, {-7, ""}, {30, "c"}};
  const auto dataset = MakeDataset(table, window);
  const std::vector<std::string> observations = {"a", "", "c"};
  const struct {
    const char* name;
    std::vector<float> values;
    std::vector<std::string> names;
  } cases[] = {
      {"VarDS1", {11, 21, 31}, observations}, {"VarDS2", {12, -99, 32}, observations},
      {"ObsDS3", {31, 32}, {"v1", "v2"}},     {"Num", {10, -7, 30}, observations},
      {"Time", {1, 2, 3}, observations},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const Answer answer = Ask(*dataset, c.name);
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.name, c.name);
    EXPECT_EQ(answer.values, c.values);
    EXPECT_EQ(answer.names, c.names);
  }
  EXPECT_EQ(Ask(*dataset, "VarDS2").present, 2);

  const VecSpec column(CEVecType::VarDS, 2);
  XSVector* numbers = nullptr;
  ASSERT_EQ(dataset->GetXSVector(&column, numbers, true), 0);
  const std::unique_ptr<XSVector> owned(numbers);
  EXPECT_STREQ((*numbers)[2], "-7");
}

TEST(DatasetVectors, AnIndexMayBeANumber) {
  StreamWindow window;
  test::PlainTable table = SmallTable(2, 3);
  table.variables = {{5, "a"}, {1, "b"}, {1, "c"}};
  const auto dataset = MakeDataset(table, window);
  VecSpec spec(CEVecType::VarDS, 1);
  spec.SetIsByNumber(true);
  EXPECT_EQ(Answer(*dataset, spec).name, "VarDS2");
  spec.SetIx(3);
  EXPECT_EQ(Answer(*dataset, spec).status, 8014);
}

TEST(DatasetVectors, WhatItHasNotIsRefused) {
  StreamWindow window;
  const auto dataset = MakeDataset(SmallTable(3, 2), window);
  dataset->SetDSNum(4);
  const auto status = [&](auto change) {
    VecSpec spec(CEVecType::VarDS, 1);
    change(spec);
    return Answer(*dataset, spec).status;
  };
  EXPECT_EQ(status([](VecSpec& s) { s.SetDNum(4); }), 0);
  EXPECT_EQ(status([](VecSpec& s) { s.SetDNum(5); }), 8014);
  EXPECT_EQ(status([](VecSpec& s) { s.SetDType(CEDatType::Dataset); }), 0);
  EXPECT_EQ(status([](VecSpec& s) { s.SetDType(CEDatType::Workset); }), 8013);
  for (const short ix : std::vector<short>{-1, 0, 3, 32767}) {
    EXPECT_EQ(status([&](VecSpec& s) { s.SetIx(ix); }), 8021) << ix;
  }
  for (const short comp : std::vector<short>{-1, 0, 1}) {
    EXPECT_EQ(status([&](VecSpec& s) { s.SetComp(comp); }), 8003) << comp;
  }
  EXPECT_EQ(status([](VecSpec& s) { s.SetEType(CEElmType::Transformed); }), 8013);
  EXPECT_EQ(status([](VecSpec& s) { s.SetBlock(VecSpec::kY); }), 8013);
  EXPECT_EQ(status([](VecSpec& s) { s.SetVType(CEVecType::Num); }), 8013);
  for (const int type : {-1, 0, 111}) {
    EXPECT_EQ(status([&](VecSpec& s) { s.SetVType(static_cast<CEVecType::EVT>(type)); }), 8016);
  }
  XFVector* vector = nullptr;
  EXPECT_EQ(dataset->GetXFVector(nullptr, vector), 8022);

  test::TempFolder folder;
  Dataset absent("n", folder.File("none.vdo").c_str(), window);
  EXPECT_EQ(Ask(absent, "Num").status, 2004);
}

TEST(DatasetVectors, OfAllTypesItHasFour) {
  StreamWindow window;
  const auto dataset = MakeDataset(SmallTable(2, 2), window);
  std::string had;
  for (const VecRow& row : VecCatalogue()) {
    const Answer plain(*dataset, VecSpec(row.type));
    const Answer indexed(*dataset, VecSpec(row.type, 1));
    if (plain.status == 8016) {
      EXPECT_EQ(indexed.status, 8016) << row.name;
    } else {
      had += std::string(row.name) + " ";
    }
  }
  EXPECT_EQ(had, "Num Time VarDS ObsDS ");
}

}  // namespace
}  // namespace zemva
