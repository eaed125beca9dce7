#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "model/small_dataset.h"
#include "zemva/model/workset/predset.h"
#include "zemva/model/workset/workset.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

using test::Own;
using test::SmallDataset;

constexpr float kM = kMissing;
using Values = std::vector<float>;

template <typename Object>
int Ask(Object& object, const char* name, Values& values, std::string& labels) {
  VecSpec spec;
  EXPECT_EQ(spec.SetName(name), 0) << name;
  XFVector* elements = nullptr;
  XSVector* texts = nullptr;
  const int status = object.GetXFVector(&spec, elements);
  EXPECT_EQ(object.GetStatus(), status);
  const int label_status = object.GetXSVector(&spec, texts, false);
  EXPECT_EQ(label_status == 0, texts != nullptr);
  const auto owned_elements = Own(elements);
  const auto owned_texts = Own(texts);
  EXPECT_EQ(status == 0, elements != nullptr);
  values.clear();
  labels.clear();
  if (elements == nullptr || texts == nullptr) return status;
  EXPECT_STREQ(elements->GetName(), name);
  EXPECT_STREQ(texts->GetName(), name);
  values.assign(elements->Values().begin(), elements->Values().end());
  for (int i = 1; i <= texts->NVal(); ++i) labels += (*texts)[i];
  return status;
}

struct Case {
  const char* name;
  Values values;
  std::string labels;
};

template <typename Object>
void ExpectVectors(Object& object, const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    Values values;
    std::string labels;
    EXPECT_EQ(Ask(object, c.name, values, labels), 0);
    EXPECT_EQ(values, c.values);
    EXPECT_EQ(labels, c.labels);
  }
}

// Variables a, b, "001a" and a*b, of which 10 a + 1 is the transform; observation 2 is out.
void Describe(Workset& workset) {
  workset.SetIsObsIn(2, false);
  workset.SetRole(2, EVarRole::kExcluded);
  workset.AddLagged(1, 1, "L");
  workset.AddTerm(1, 2, 0, "P");
  workset.SetTransformation(1, ETraType::kLinear, 10, 1, 0);
}

TEST(SetVectors, OfAWorkSetAreOfItsObservationsAndAllItsVariables) {
  const auto dataset = SmallDataset("ab", {{1, 5}, {2, 6}, {3, kM}, {4, 8}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  Describe(workset);
  ExpectVectors(workset, {
                             {"Var1", {1, 3, 4}, "o1o3o4"},
                             {"VarTr1", {11, 31, 41}, "o1o3o4"},
                             {"Var2", {5, kM, 8}, "o1o3o4"},
                             {"Var3", {kM, 2, 3}, "o1o3o4"},
                             {"Var4", {5, kM, 32}, "o1o3o4"},
                             {"VarTr4", {55, kM, 328}, "o1o3o4"},
                             {"Obs1", {1, 5, kM, 5}, "abLP"},
                             {"Obs3", {4, 8, 3, 32}, "abLP"},
                             {"ObsTr3", {41, 8, 3, 328}, "abLP"},
                             {"Num", {10, 30, 40}, "o1o3o4"},
                             {"Time", {1, 3, 4}, "o1o3o4"},
                         });
}

TEST(SetVectors, OfAPredictionSetAreOfItsObservationsAndTheWorkSetsVariables) {
  const auto training = SmallDataset("ab", {{1, 5}, {2, 6}, {3, 7}});
  const auto test = SmallDataset("cb", {{0, 7}, {0, 8}});
  Workset workset("WS", *training, GlobalStreamWindow());
  workset.SetTransformation(2, ETraType::kLinear, 10, 1, 0);
  Predset predset("PS", *test, workset);
  predset.SetIsObsIn(1, false);
  ExpectVectors(predset, {
                             {"VarPS1", {kM}, "o2"},
                             {"VarPSTr2", {81}, "o2"},
                             {"ObsPS1", {kM, 8}, "ab"},
                             {"Num", {20}, "o2"},
                             {"Time", {2}, "o2"},
                         });
}

TEST(SetVectors, WhatASetHasNotIsRefused) {
  const auto dataset = SmallDataset("ab", {{1, 5}, {2, 6}});
  Workset workset("WS", *dataset, GlobalStreamWindow());
  Predset predset("PS", *dataset, workset);
  Values values;
  std::string labels;
  for (const char* const name : {"VarDS1", "VarPS1", "X1[-1]", "t[1]", "None"}) {
    EXPECT_EQ(Ask(workset, name, values, labels), 8016) << name;
  }
  for (const char* const name : {"VarDS1", "Var1", "Obs1", "tPS[1]"}) {
    EXPECT_EQ(Ask(predset, name, values, labels), 8016) << name;
  }
  for (const char* const name : {"Var", "Var3", "Obs3"}) {
    EXPECT_EQ(Ask(workset, name, values, labels), 8021) << name;
  }
  EXPECT_EQ(Ask(workset, "VarSc1", values, labels), 8013);
  dataset->AddVar("c");
  EXPECT_EQ(Ask(workset, "Var1", values, labels), 8046);
}

}  // namespace
}  // namespace zemva
