#include "arguments/model_options.h"

#include <gtest/gtest.h>
#include <CLI/CLI.hpp>

#include <string>
#include <vector>

#include "arguments/command_line.h"
#include "model/model_setup.h"
#include "zemva/data/dataset.h"
#include "zemva/errors/status.h"

namespace zemva::tools {
namespace {

ModelOptions Parse(std::vector<const char*> arguments) {
  CLI::App line("", "fit");
  ModelOptions options;
  AddModelOptions(line, options);
  AddResultOptions(line, options);
  AddResponseOptions(line, options);
  arguments.insert(arguments.begin(), "zemva");
  ParseLine(line, static_cast<int>(arguments.size()), arguments.data());
  CheckModelOptions(options);
  return options;
}

struct Irises {
  Dataset dataset{"iris", ZEMVA_SAMPLES "/iris.vdo", GlobalStreamWindow()};
  Workset workset{"Workset", dataset, GlobalStreamWindow()};
};

// What is said of arguments for 150 observations of Sepal.Length and others; empty where they do.
std::string FaultOf(const std::vector<const char*>& arguments) {
  Irises irises;
  try {
    EXPECT_EQ(SetUpWorkset(Parse(arguments), irises.workset), status::kOk);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "";
}

struct FaultCase {
  std::vector<const char*> arguments;
  std::string fault;
};

TEST(ModelOptions, RefusesWhatMeansNothing) {
  std::vector<FaultCase> cases = {
      {{"a", "b"}, "there is no place for 'b'"},
      {{"a", "--comp", "1"}, "unknown option '--comp': did you mean '--components'?"},
      {{"a", "--nvc=5"}, "unknown option '--nvc': did you mean '--ncv'?"},
      {{"a", "-o"}, "unknown option '-o'"},
      {{"a", "--out"}, "--out takes a value"},
      {{"a", "--out", ""}, "--out takes a value"},
      {{"a", "--components", "--ncv", "5"}, "--components takes a value"},
      {{"a", "--ncv", "5", "--ncv", "5"}, "--ncv is given twice"},
      {{"a", "--ncv", "1"}, "--ncv: '1' is not a whole number from 2 to 32767"},
      {{"a", "--max-iter=0"}, "--max-iter: '0' is not a whole number from 1 to 32767"},
      {{"a", "--scale", "uv"}, "--scale: 'uv' is none of UV, UVN, Par, ParN, Ctr, None"},
      {{"a", "--scale", "b=FW"}, "--scale: 'FW' is none of UV, UVN, Par, ParN, Ctr, None"},
      {{"a", "--exclude", "sepal.Length"},
       "--exclude: there is no variable 'sepal.Length': did you mean 'Sepal.Length'?"},
      {{"a", "--exclude", "Ж"}, "--exclude: there is no variable 'Ж'"},
      {{"a", "--exclude", "\xF6\xDF"}, "--exclude: there is no variable 'öß'"},
      {{"a", "--exclude", "Sepal.Length,"}, "--exclude: a name is empty"},
      {{"a", "--exclude", "\"Sepal.Length"},
       "--exclude: quotes around a name are not closed in '\"Sepal.Length'"},
      {{"a", "--exclude", "\"x\"y"}, "--exclude: quotes around a name are not closed in '\"x\"y'"},
      {{"a", "--exclude", "\"x, \"\"y\"\"\""}, "--exclude: there is no variable 'x, \"y\"'"},
      {{"a", "--exclude-obs", "7-"},
       "--exclude-obs: '7-' is no number of an observation, and no range of them"},
      {{"a", "--exclude-obs", "0"}, "--exclude-obs: there is no observation 0"},
      {{"a", "--y", "Sepal.Length", "--exclude", "Sepal.Length"},
       "--y: 'Sepal.Length' is excluded"},
      {{"a", "--transform", "Sepal.Length"}, "--transform: 'Sepal.Length' is not NAME=FUNCTION"},
      {{"a", "--transform", "x=ln"},
       "--transform: 'ln' is none of linear, log, neglog, logit, exp, power"},
      {{"a", "--transform", "x=power,1"}, "--transform: power takes 3 to 3 constants"},
      {{"a", "--transform", "x=log,1e"}, "--transform: '1e' is not a number"},
      {{"a", "--transform", "x=log"}, "--transform: there is no variable 'x'"},
      {{"a", "--lag", "Sepal.Length=0"}, "--lag: a lag is 1 or more"},
      {{"a", "--expand", "Sepal.Length"},
       "--expand: 'Sepal.Length' is not NAME*NAME or NAME*NAME*NAME"},
      {{"a", "--block", "1/third=Sepal.Length"}, "--block: 'third' is none of sqrt, 4root"},
      {{"a", "--no-cv"}, "--no-cv takes --components or --rule eigenvalue: nothing else decides"},
      {{"a", "--no-cv", "--rule", "eigenvalue"}, ""},
      {{"a", "--rule", "eig"}, "--rule: 'eig' is none of cv, eigenvalue"},
      {{"a", "--class", "1"}, "--class: '1' is not N=LIST"},
      {{"a", "--class", "1=151"}, "--class 1: there is no observation 151"},
      {{"a", "--class", "2=149-32767"}, "--class 2: there is no observation 151"},
      {{"a", "--class", "1=7,5-9", "--class", "2=9"}, "--class 2: observation 9 is in class 1"},
      {{"a", "--class", "1=5", "--class", "1=7"}, "--class: '1=7' gives a class a second time"},
      {{"a", "--class", "99=1-3,3", "--exclude", "Sepal.Length,Sepal.Length"}, ""},
  };
  for (const char* const number : {"x", "0", "-1", "128", "99999", "1.5", "2x", " 2"}) {
    cases.push_back(
        {{"a", "--components", number},
         "--components: '" + std::string(number) + "' is not a whole number from 1 to 127"});
  }
  for (const std::string text : {"0=1", "100=1", "x=1", "=1"}) {
    const std::string number(text.substr(0, text.find('=')));
    EXPECT_EQ(FaultOf({"a", "--class", text.c_str()}),
              "--class: '" + number + "' is not a whole number from 1 to 99");
  }
  for (const char* const text : {"1=", "1=9-1", "1=a", "1=1-2-3", "1=99999", "1=1-"}) {
    cases.push_back({{"a", "--class", text},
                     "--class: '" + std::string(text).substr(2) +
                         "' is no number of an observation, and no range of them"});
  }
  for (const FaultCase& each : cases) EXPECT_EQ(FaultOf(each.arguments), each.fault);
}

TEST(ModelOptions, ComeToBothOfAModelsParts) {
  ModelOptions options = Parse({"--class", "3=2,149-150", "--scale", "ParN", "a", "--exclude",
                                "\"Sepal.Width\",Petal.Width", "--ncv", "5", "--max-iter=9",
                                "--exclude-obs", "7-9", "--y", "Petal.Length", "--y-scale=Ctr"});
  Irises irises;
  Workset& workset = irises.workset;
  ASSERT_EQ(SetUpWorkset(options, workset), status::kOk);
  std::vector<short> members;
  std::vector<short> out;
  for (short i = 1; i <= 150; ++i) {
    if (workset.GetOClass(i) == 3) members.push_back(i);
    if (!workset.IsObsIn(i)) out.push_back(i);
  }
  EXPECT_EQ(members, (std::vector<short>{2, 149, 150}));
  EXPECT_EQ(out, (std::vector<short>{7, 8, 9}));
  constexpr EVarRole kRoles[] = {EVarRole::kX, EVarRole::kExcluded, EVarRole::kY,
                                 EVarRole::kExcluded};
  for (short j = 1; j <= 4; ++j) {
    EXPECT_EQ(workset.GetRole(j), kRoles[j - 1]);
    EXPECT_EQ(workset.GetScalings().GetItm(j)->GetScaType(),
              j == 3 ? EScaType::kCtr : EScaType::kParN);
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

TEST(ModelOptions, MakeVariablesAndPreprocessThem) {
  const ModelOptions options =
      Parse({"a", "--lag", "Sepal.Length=1-2,5", "--expand", "Sepal.Width*Sepal.Width*Petal.Width",
             "--transform", "Sepal.Width=log,2,0.5", "--transform", "Petal.Width=power,1,0,0.5",
             "--scale", "Petal.Length=Par", "--block", "7/4root=Sepal.Length,Sepal.Width"});
  Irises irises;
  Workset& workset = irises.workset;
  ASSERT_EQ(SetUpWorkset(options, workset), status::kOk);
  EXPECT_EQ(workset.GetNVar(), 8);
  EXPECT_EQ(workset.GetLags().GetNItm(), 3);
  EXPECT_EQ(workset.GetTerms().GetNItm(), 1);
  EXPECT_EQ(workset.GetScalings().GetItm(3)->GetScaType(), EScaType::kPar);
  EXPECT_EQ(workset.GetBlock(2), 7);
  EXPECT_EQ(workset.GetBlockType(7), BlkInfo::kFourthRoot);
  const TraData& log = *workset.GetTransformations().GetItm(1);
  EXPECT_FLOAT_EQ(log.Transform(4.75f), 1);  // 10Log(2 * 4.75 + 0.5)
  EXPECT_FLOAT_EQ(workset.GetTransformations().GetItm(2)->Transform(9), 3);
}

}  // namespace
}  // namespace zemva::tools
