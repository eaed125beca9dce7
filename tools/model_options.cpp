#include "model_options.h"
#include "zemva/base/positions.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <set>
#include <utility>

#include "code_page.h"
#include "zemva/errors/status.h"

namespace zemva::tools {
namespace {

constexpr short kMostComponents = 127;
constexpr short kMostClasses = 99;
constexpr short kLargestNumber = std::numeric_limits<short>::max();
constexpr EScaType kScalings[] = {EScaType::kUV,   EScaType::kUVN, EScaType::kPar,
                                  EScaType::kParN, EScaType::kCtr, EScaType::kNone};

[[noreturn]] void Refuse(std::string_view subject, std::string_view fault) {
  throw UsageError(std::string(subject) + ": " + std::string(fault));
}

std::string Quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

// Takes a whole number off the start of a text.
std::optional<short> TakeNumber(std::string_view& text) {
  short number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

short ParseWithin(std::string_view option, std::string_view text, short least, short most) {
  std::string_view rest = text;
  const std::optional<short> number = TakeNumber(rest);
  if (!number || !rest.empty() || *number < least || *number > most) {
    Refuse(option, Quoted(text) + " is not a whole number from " + std::to_string(least) + " to " +
                       std::to_string(most));
  }
  return *number;
}

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

// The parts of a text between commas, of which there is at least one.
std::vector<std::string_view> SplitList(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t comma; (comma = text.find(',')) != std::string_view::npos;) {
    parts.push_back(text.substr(0, comma));
    text.remove_prefix(comma + 1);
  }
  parts.push_back(text);
  return parts;
}

std::vector<std::string> ParseNames(std::string_view option, std::string_view text) {
  std::vector<std::string> names;
  for (const std::string_view name : SplitList(text)) {
    std::size_t lost = 0;
    names.push_back(CodePageFromArgument(name, lost));
    if (name.empty()) Refuse(option, "a name is empty");
    if (lost != 0) Refuse(option, "there is no variable " + Quoted(name));
  }
  return names;
}

NumberRange ParseRange(std::string_view option, std::string_view text) {
  std::string_view rest = text;
  const std::optional<short> first = TakeNumber(rest);
  std::optional<short> last = first;
  if (rest.starts_with('-')) {
    rest.remove_prefix(1);
    last = TakeNumber(rest);
  }
  if (!first || !last || !rest.empty() || *first > *last) {
    Refuse(option, Quoted(text) + " is no number of an observation, and no range of them");
  }
  return {*first, *last};
}

// "3=1-50,60".
void ParseMembers(std::string_view option, std::string_view text,
                  std::map<char, std::vector<NumberRange>>& classes) {
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos) Refuse(option, Quoted(text) + " is not N=LIST");
  const auto [members, is_new] = classes.try_emplace(ParseClass(option, text.substr(0, equals)));
  if (!is_new) Refuse(option, Quoted(text) + " gives a class a second time");
  for (const std::string_view part : SplitList(text.substr(equals + 1))) {
    members->second.push_back(ParseRange(option, part));
  }
}

std::vector<ModelOption> CommonOptions(ModelOptions& options) {
  return {
      {"--components",
       [&](std::string_view value) {
         options.component_count = ParseWithin("--components", value, 1, kMostComponents);
       }},
      {"--scale",
       [&](std::string_view value) { options.scaling = ParseScaling("--scale", value); }},
      {"--ncv",
       [&](std::string_view value) {
         options.group_count = ParseWithin("--ncv", value, 2, kLargestNumber);
       }},
      {"--max-iter",
       [&](std::string_view value) {
         options.max_iterations = ParseWithin("--max-iter", value, 1, kLargestNumber);
       }},
      {"--exclude",
       [&](std::string_view value) {
         options.excluded_variables = ParseNames("--exclude", value);
       }},
      {"--class", [&](std::string_view value) { ParseMembers("--class", value, options.classes); },
       true},
      {"--test", [&](std::string_view value) { options.test_file = value; }},
      {"--out", [&](std::string_view value) { options.out_directory = value; }},
  };
}

int SetClass(char number, const NumberRange& range, Workset& workset) {
  const auto subject = [&] { return "--class " + std::to_string(int{number}); };
  for (int onum = range.first; onum <= range.last; ++onum) {
    const short i = workset.GetOIx(static_cast<short>(onum));
    const auto observation = [&] { return "observation " + std::to_string(onum); };
    if (i == 0) Refuse(subject(), "there is no " + observation());
    const char other = workset.GetOClass(i);
    if (other != 0 && other != number) {
      Refuse(subject(), observation() + " is in class " + std::to_string(int{other}));
    }
    if (const int status = workset.SetOClass(i, number); status != status::kOk) return status;
  }
  return status::kOk;
}

}  // namespace

ModelOptions ParseModelOptions(Arguments arguments, std::span<const ModelOption> own_options) {
  ModelOptions options;
  std::vector<ModelOption> known = CommonOptions(options);
  known.insert(known.end(), own_options.begin(), own_options.end());
  std::set<std::string_view> given;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = arguments[i];
    if (!argument.starts_with('-')) {
      if (argument.empty() || !options.file.empty())
        throw UsageError("a model is made of one file");
      options.file = argument;
      continue;
    }
    const auto option = std::ranges::find(known, argument, &ModelOption::name);
    if (option == known.end()) throw UsageError("unknown option " + Quoted(argument));
    if (!given.insert(argument).second && !option->is_repeatable)
      throw UsageError(std::string(argument) + " is given twice");
    const bool has_value = i + 1 < arguments.size() && !arguments[i + 1].empty() &&
                           !arguments[i + 1].starts_with("--");
    if (!has_value) throw UsageError(std::string(argument) + " takes a value");
    option->set(arguments[++i]);
  }
  if (options.file.empty()) throw UsageError("a model is made of one file");
  return options;
}

char ParseClass(std::string_view option, std::string_view text) {
  return static_cast<char>(ParseWithin(option, text, 1, kMostClasses));
}

int SetUpWorkset(const ModelOptions& options, Workset& workset) {
  for (const short j : PositionsUpTo(workset.GetNVar())) {
    const int status = workset.SetScaling(j, options.scaling);
    if (status != status::kOk) return status;
  }
  for (const std::string& name : options.excluded_variables) {
    const short j = workset.GetVIx(name.c_str());
    if (j == 0) Refuse("--exclude", "there is no variable " + Quoted(PrintableFromCodePage(name)));
    if (const int status = workset.SetRole(j, EVarRole::kExcluded); status != status::kOk) {
      return status;
    }
  }
  for (const auto& [number, ranges] : options.classes) {
    for (const NumberRange& range : ranges) {
      if (const int status = SetClass(number, range, workset); status != status::kOk) return status;
    }
  }
  return status::kOk;
}

void SetUpModel(const ModelOptions& options, ModOpt& model_options) {
  model_options.SetIsRule(!options.component_count.has_value());
  model_options.SetNComp(options.component_count.value_or(0));
  model_options.SetRuleValidate(EValidate::CV);
  model_options.SetSeqValidate(EValidate::CV);
  if (options.group_count) model_options.SetNCV(*options.group_count);
  if (options.max_iterations) model_options.SetMaxIter(*options.max_iterations);
}

}  // namespace zemva::tools
