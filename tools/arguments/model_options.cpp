#include "arguments/model_options.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

#include "arguments/command_line.h"
#include "arguments/csv_arguments.h"
#include "arguments/settings_folder.h"

namespace zemva::tools {
namespace {

constexpr short kMostComponents = 127;
constexpr short kMostClasses = 99;
constexpr short kMostBlocks = BlkInfo::kMaxBlock;
constexpr short kLargestNumber = std::numeric_limits<short>::max();
constexpr EScaType kScalings[] = {EScaType::kUV,   EScaType::kUVN, EScaType::kPar,
                                  EScaType::kParN, EScaType::kCtr, EScaType::kNone};

// A transformation by name. Constants that are not given are those here; `least` must be given.
struct TransformationName {
  std::string_view name;
  ETraType type;
  std::size_t least;
  std::array<float, 3> constants;
};
constexpr TransformationName kTransformations[] = {
    {"linear", ETraType::kLinear, 2, {1, 0, 0}}, {"log", ETraType::kLog, 0, {1, 0, 0}},
    {"neglog", ETraType::kNegLog, 0, {1, 0, 0}}, {"logit", ETraType::kLogit, 0, {0, 1, 0}},
    {"exp", ETraType::kExp, 0, {1, 0, 0}},       {"power", ETraType::kPower, 3, {1, 0, 1}},
};

EScaType ParseScaling(std::string_view option, std::string_view text) {
  const EScaType type = ScaInfo::GetScaType(std::string(text).c_str());
  if (std::ranges::find(kScalings, type) == std::end(kScalings)) {
    std::string names;
    for (const EScaType each : kScalings) {
      names += (names.empty() ? "" : ", ") + std::string(ScaInfo::GetString(each));
    }
    Refuse(option, Quoted(text) + " is none of " + names);
  }
  return type;
}

// "Par", or "NAME=Par".
void TakeScaling(const std::string& text, ModelOptions& options) {
  if (text.find('=') == std::string::npos) {
    options.scaling = ParseScaling("--scale", text);
    return;
  }
  const auto [name, type] = ParseAssignment("--scale", text, "NAME=TYPE");
  options.own_scalings.emplace_back(name, ParseScaling("--scale", type));
}

// "NAME=log" or "NAME=power,1,0,0.5".
ModelOptions::Transformation ParseTransformation(const std::string& text) {
  constexpr std::string_view kOption = "--transform";
  const auto [name, rest] = ParseAssignment(kOption, text, "NAME=FUNCTION");
  const std::size_t comma = std::min(rest.find(','), rest.size());
  const std::string word = rest.substr(0, comma);
  const auto* known = std::ranges::find(kTransformations, word, &TransformationName::name);
  if (known == std::end(kTransformations)) {
    Refuse(kOption, Quoted(word) + " is none of linear, log, neglog, logit, exp, power");
  }
  std::vector<float> constants(known->constants.begin(), known->constants.end());
  std::vector<float> given;
  if (comma < rest.size()) given = ParseReals(kOption, std::string_view(rest).substr(comma + 1));
  if (given.size() < known->least || given.size() > constants.size()) {
    Refuse(kOption, word + " takes " + std::to_string(known->least) + " to 3 constants");
  }
  std::ranges::copy(given, constants.begin());
  return {name, known->type, constants};
}

// "NAME=1,2".
ModelOptions::Lags ParseLags(const std::string& text) {
  constexpr std::string_view kOption = "--lag";
  const auto [name, list] = ParseAssignment(kOption, text, "NAME=LAGS");
  ModelOptions::Lags lags{name, {}};
  for (const NumberRange& range : ParseRanges(kOption, list)) {
    if (range.first < 1) Refuse(kOption, "a lag is 1 or more");
    for (int lag = range.first; lag <= range.last; ++lag) {
      lags.lags.push_back(static_cast<short>(lag));
    }
  }
  return lags;
}

std::vector<std::string> ParseTerm(const std::string& text) {
  std::vector<std::string> factors = ParseNames("--expand", text, '*');
  if (factors.size() < 2 || factors.size() > 3) {
    Refuse("--expand", Quoted(text) + " is not NAME*NAME or NAME*NAME*NAME");
  }
  return factors;
}

// The two sides of an equals sign.
std::pair<std::string_view, std::string_view> SplitNumbered(std::string_view option,
                                                            std::string_view text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) Refuse(option, Quoted(text) + " is not N=LIST");
  return {text.substr(0, equals), text.substr(equals + 1)};
}

// "1=NAME,NAME" or "1/4root=NAME,NAME".
ModelOptions::Block ParseBlock(const std::string& text) {
  constexpr std::string_view kOption = "--block";
  auto [number, names] = SplitNumbered(kOption, text);
  const std::size_t slash = std::min(number.find('/'), number.size());
  const std::string_view type = number.substr(slash);
  if (!type.empty() && type != "/sqrt" && type != "/4root") {
    Refuse(kOption, Quoted(type.substr(1)) + " is none of sqrt, 4root");
  }
  return {static_cast<char>(ParseWithin(kOption, number.substr(0, slash), 1, kMostBlocks)),
          type == "/4root" ? BlkInfo::kFourthRoot : BlkInfo::kSquareRoot,
          ParseNames(kOption, names)};
}

// "3=1-50,60".
void TakeClass(const std::string& text, ModelOptions& options) {
  const auto [number, members] = SplitNumbered("--class", text);
  const auto [place, is_new] = options.classes.try_emplace(ParseClass("--class", number));
  if (!is_new) Refuse("--class", Quoted(text) + " gives a class a second time");
  place->second = ParseRanges("--class", members);
}

template <typename Item>
void Append(std::vector<Item>& all, std::vector<Item> more) {
  all.insert(all.end(), more.begin(), more.end());
}

void AddSearch(CLI::App& line, ModelOptions& options) {
  AddOption(
      line, "--components", "N", "as many components, significant or not",
      [&](const std::string& value) {
        options.component_count = ParseWithin("--components", value, 1, kMostComponents);
      },
      "those that the rules find significant");
  AddOption(
      line, "--rule", "RULE", "what decides: cv, the cross-validation, or eigenvalue",
      [&](const std::string& value) {
        if (value != "cv" && value != "eigenvalue") {
          Refuse("--rule", Quoted(value) + " is none of cv, eigenvalue");
        }
        options.rule = value == "cv" ? EValidate::CV : EValidate::Eig;
      },
      "cv");
  AddOption(
      line, "--ncv", "G", "groups of the cross-validation, 2 or more",
      [&](const std::string& value) {
        options.group_count = ParseWithin("--ncv", value, 2, kLargestNumber);
      },
      "7");
  AddFlag(line, "--no-cv", "without cross-validation; takes --components or --rule eigenvalue",
          options.is_without_cross_validation);
  AddOption(
      line, "--max-iter", "N", "the most iterations of a component",
      [&](const std::string& value) {
        options.max_iterations = ParseWithin("--max-iter", value, 1, kLargestNumber);
      },
      "200");
}

void AddPreprocessing(CLI::App& line, ModelOptions& options) {
  AddRepeatable(
      line, "--scale", "[NAME=]TYPE",
      "UV, UVN, Par, ParN, Ctr or None, for all variables or for one",
      [&](const std::string& value) { TakeScaling(value, options); }, "UV");
  AddRepeatable(line, "--transform", "NAME=FUNCTION",
                "log, neglog, logit, exp, linear or power of a variable, with constants behind "
                "commas: power,C1,C2,C3 is (C1 x + C2)^C3",
                [&](const std::string& value) {
                  options.transformations.push_back(ParseTransformation(value));
                });
  AddRepeatable(line, "--lag", "NAME=LAGS",
                "adds what a variable was so many observations before, as 1,2",
                [&](const std::string& value) { options.lags.push_back(ParseLags(value)); });
  AddRepeatable(line, "--expand", "NAME*NAME", "adds the product of two or three variables",
                [&](const std::string& value) { options.terms.push_back(ParseTerm(value)); });
  AddRepeatable(line, "--block", "N[/4root]=NAME,...",
                "scales variables together, by the root of their number or by its fourth root",
                [&](const std::string& value) { options.blocks.push_back(ParseBlock(value)); });
}

void AddSelection(CLI::App& line, ModelOptions& options) {
  AddRepeatable(line, "--exclude", "NAME,...",
                "variables to leave out; a name with a comma stands between double quotes",
                [&](const std::string& value) {
                  Append(options.excluded_variables, ParseNames("--exclude", value));
                });
  AddRepeatable(line, "--exclude-obs", "LIST", "observations to leave out, by number: 1-5,9",
                [&](const std::string& value) {
                  Append(options.excluded_observations, ParseRanges("--exclude-obs", value));
                });
  AddRepeatable(line, "--class", "N=LIST", "the observations of class N, by number: 1=1-50,60",
                [&](const std::string& value) { TakeClass(value, options); });
}

}  // namespace

void AddModelOptions(CLI::App& line, ModelOptions& options) {
  AddFile(line, "FILE", kDataHelp, options.file);
  AddSearch(line, options);
  AddPreprocessing(line, options);
  AddSelection(line, options);
  AddSettingsFolder(line, options.settings_directory);
  AddClassColumn(line, options.csv);
  AddCsvOptions(line, options.csv);
}

void AddTestOption(CLI::App& line, ModelOptions& options) {
  AddOption(line, "--test", "FILE2", "predicts the observations of another file",
            options.test_file);
}

void AddResultOptions(CLI::App& line, ModelOptions& options) {
  AddOption(line, "--save", "MODEL.mdl", "saves the model, for predict and show",
            options.model_file);
  AddOption(line, "--out", "DIR",
            "writes the results into a folder, as tables; limits of T2 are a (N - 1) / (N - a) "
            "F(a, N - a)",
            options.out_directory);
  AddOption(line, "--plots", "DIR", "draws all figures of the model into a folder, by gnuplot",
            options.plot_directory);
  AddFlag(line, "--json", "the summary in JSON in place of the listing", options.is_json);
}

void AddResponseOptions(CLI::App& line, ModelOptions& options) {
  AddRepeatable(
      line, "--y", "NAME,...", "the responses; without them the classes are",
      [&](const std::string& value) { Append(options.responses, ParseNames("--y", value)); });
  AddOption(
      line, "--y-scale", "TYPE", "the scaling of the responses",
      [&](const std::string& value) {
        options.response_scaling = ParseScaling("--y-scale", value);
      },
      "as --scale");
}

char ParseClass(std::string_view option, std::string_view text) {
  return static_cast<char>(ParseWithin(option, text, 1, kMostClasses));
}

void CheckModelOptions(const ModelOptions& options) {
  if (options.is_without_cross_validation && !options.component_count &&
      options.rule != EValidate::Eig) {
    throw UsageError("--no-cv takes --components or --rule eigenvalue: nothing else decides");
  }
  if (options.csv.class_column && !options.classes.empty()) {
    throw UsageError("--class-by and --class cannot both make the classes");
  }
  if (options.response_scaling && options.responses.empty()) {
    throw UsageError("--y-scale takes --y: classes have unit variance");
  }
}

}  // namespace zemva::tools
