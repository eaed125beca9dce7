#include "model_options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"

namespace zemva::tools {
namespace {

// What is said of arguments for 150 observations of Sepal.Length and others; empty where they do.
std::string FaultOf(const std::vector<std::string_view>& arguments) {
  Dataset dataset("iris", ZEMVA_SAMPLES "/iris.vdo", GlobalStreamWindow());
  Workset workset("Workset", dataset, GlobalStreamWindow());
  try {
    const ModelOptions options = ParseModelOptions(arguments, {});
    EXPECT_EQ(SetUpWorkset(options, workset), status::kOk);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

struct FaultCase {
  std::vector<std::string_view> arguments;
  std::string fault;
};

TEST(ModelOptions, RefusesWhatMeansNothing) {
  std::vector<FaultCase> cases = {
      {{}, "a model is made of one file"},
      {{"a", "b"}, "a model is made of one file"},
      {{""}, "a model is made of one file"},
      {{"a", "--comp", "1"}, "unknown option '--comp'"},
      {{"a", "-o"}, "unknown option '-o'"},
      {{"a", "--out"}, "--out takes a value"},
      {{"a", "--out", ""}, "--out takes a value"},
      {{"a", "--components", "--ncv", "5"}, "--components takes a value"},
      {{"a", "--ncv", "5", "--ncv", "5"}, "--ncv is given twice"},
      {{"a", "--ncv", "1"}, "--ncv: '1' is not a whole number from 2 to 32767"},
      {{"a", "--max-iter", "0"}, "--max-iter: '0' is not a whole number from 1 to 32767"},
      {{"a", "--scale", "uv"}, "--scale: 'uv' is none of UV, UVN, Par, ParN, Ctr, None"},
      {{"a", "--scale", "FW"}, "--scale: 'FW' is none of UV, UVN, Par, ParN, Ctr, None"},
      {{"a", "--exclude", "sepal.Length"}, "--exclude: there is no variable 'sepal.Length'"},
      {{"a", "--exclude", "Ж"}, "--exclude: there is no variable 'Ж'"},
      {{"a", "--exclude", "Sepal.Length,"}, "--exclude: a name is empty"},
      {{"a", "--class", "1"}, "--class: '1' is not N=LIST"},
      {{"a", "--class", "1=151"}, "--class 1: there is no observation 151"},
      {{"a", "--class", "2=149-32767"}, "--class 2: there is no observation 151"},
      {{"a", "--class", "1=7,5-9", "--class", "2=9"}, "--class 2: observation 9 is in class 1"},
      {{"a", "--class", "1=5", "--class", "1=7"}, "--class: '1=7' gives a class a second time"},
      {{"a", "--class", "99=1-3,3", "--exclude", "Sepal.Length,Sepal.Length"}, ""},
  };
  for (const std::string_view number : {"x", "0", "-1", "128", "99999", "1.5", "2x", " 2"}) {
    cases.push_back(
        {{"a", "--components", number},
         "--components: '" + std::string(number) + "' is not a whole number from 1 to 127"});
  }
  for (const std::string_view text : {"0=1", "100=1", "x=1", "=1"}) {
    const std::string number(text.substr(0, text.find('=')));
    cases.push_back(
        {{"a", "--class", text}, "--class: '" + number + "' is not a whole number from 1 to 99"});
  }
  for (const std::string_view text : {"1=", "1=9-1", "1=a", "1=1-2-3", "1=99999", "1=1-"}) {
    cases.push_back({{"a", "--class", text},
                     "--class: '" + std::string(text.substr(2)) +
                         "' is no number of an observation, and no range of them"});
  }
  for (const FaultCase& each : cases) EXPECT_EQ(FaultOf(each.arguments), each.fault);
}

TEST(ModelOptions, ComeToBothOfAModelsParts) {
  const std::vector<std::string_view> arguments = {
      "--class", "3=2,149-150", "--scale",    "ParN", "a", "--exclude", "Sepal.Width,Petal.Width",
      "--ncv",   "5",           "--max-iter", "9"};
  ModelOptions options = ParseModelOptions(arguments, {});
  Dataset dataset("iris", ZEMVA_SAMPLES "/iris.vdo", GlobalStreamWindow());
  Workset workset("Workset", dataset, GlobalStreamWindow());
  ASSERT_EQ(SetUpWorkset(options, workset), status::kOk);
  std::vector<short> members;
  for (short i = 1; i <= 150; ++i) {
    if (workset.GetOClass(i) == 3) members.push_back(i);
  }
  EXPECT_EQ(members, (std::vector<short>{2, 149, 150}));
  for (short j = 1; j <= 4; ++j) {
    EXPECT_EQ(workset.GetRole(j), j % 2 == 0 ? EVarRole::kExcluded : EVarRole::kX);
    EXPECT_EQ(workset.GetScalings().GetItm(j)->GetScaType(), EScaType::kParN);
  }
  ModOpt model_options;
  SetUpModel(options, model_options);
  EXPECT_TRUE(model_options.GetIsRule());
  EXPECT_EQ(model_options.GetNCV(), 5);
  EXPECT_EQ(model_options.GetMaxIter(), 9);
  options.component_count = 127;
  SetUpModel(options, model_options);
  EXPECT_FALSE(model_options.GetIsRule());
  EXPECT_EQ(model_options.GetNComp(), 127);
}

}  // namespace
}  // namespace zemva::tools
