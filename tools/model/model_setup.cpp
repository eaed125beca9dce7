#include "model/model_setup.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "text/code_page.h"
#include "text/messages.h"
#include "text/near_word.h"
#include "zemva/base/positions.h"
#include "zemva/errors/status.h"

namespace zemva::tools {
namespace {

// The position of a variable by its name.
short Locate(std::string_view option, const std::string& name, const Workset& workset) {
  if (const short j = workset.GetVIx(name.c_str()); j != 0) return j;
  std::vector<std::string> names;
  for (const short j : PositionsUpTo(workset.GetNVar())) {
    names.push_back(PrintableFromCodePage(workset.GetVNam(j)));
  }
  const std::string printable = PrintableFromCodePage(name);
  Refuse(option, "there is no variable " + Quoted(printable) + Suggestion(printable, names));
}

// Does something for each, until it fails.
template <typename Items, typename Action>
int ForEach(const Items& items, Action action) {
  for (const auto& item : items) {
    if (const int status = action(item); status != status::kOk) return status;
  }
  return status::kOk;
}

// Calls `action` with the position of each observation of the ranges.
template <typename Action>
int ForEachObservation(const std::string& subject, const std::vector<NumberRange>& ranges,
                       const Workset& workset, Action action) {
  for (const NumberRange& range : ranges) {
    for (int onum = range.first; onum <= range.last; ++onum) {
      const short i = workset.GetOIx(static_cast<short>(onum));
      if (i == 0) Refuse(subject, "there is no observation " + std::to_string(onum));
      if (const int status = action(i, onum); status != status::kOk) return status;
    }
  }
  return status::kOk;
}

// Lagged variables before terms, which may be made of them.
int AddVariables(const ModelOptions& options, Workset& workset) {
  const auto add_lags = [&](const ModelOptions::Lags& each) {
    const short j = Locate("--lag", each.name, workset);
    return ForEach(each.lags, [&](short lag) { return workset.AddLagged(j, lag); });
  };
  const auto add_term = [&](const std::vector<std::string>& names) {
    std::array<short, 3> factors = {};
    std::ranges::transform(names, factors.begin(), [&](const std::string& name) {
      return Locate("--expand", name, workset);
    });
    return workset.AddTerm(factors[0], factors[1], factors[2]);
  };
  const int status = ForEach(options.lags, add_lags);
  return status != status::kOk ? status : ForEach(options.terms, add_term);
}

int SetRoles(const ModelOptions& options, Workset& workset) {
  const auto exclude = [&](const std::string& name) {
    return workset.SetRole(Locate("--exclude", name, workset), EVarRole::kExcluded);
  };
  const auto respond = [&](const std::string& name) {
    const short j = Locate("--y", name, workset);
    if (workset.GetRole(j) == EVarRole::kExcluded) {
      Refuse("--y", Quoted(PrintableFromCodePage(name)) + " is excluded");
    }
    const int status = workset.SetScaling(j, options.response_scaling.value_or(options.scaling));
    return status != status::kOk ? status : workset.SetRole(j, EVarRole::kY);
  };
  const int status = ForEach(options.excluded_variables, exclude);
  return status != status::kOk ? status : ForEach(options.responses, respond);
}

int Preprocess(const ModelOptions& options, Workset& workset) {
  int status = ForEach(PositionsUpTo(workset.GetNVar()),
                       [&](short j) { return workset.SetScaling(j, options.scaling); });
  if (status == status::kOk) status = SetRoles(options, workset);
  if (status != status::kOk) return status;
  status = ForEach(options.own_scalings, [&](const auto& own) {
    return workset.SetScaling(Locate("--scale", own.first, workset), own.second);
  });
  if (status != status::kOk) return status;
  status = ForEach(options.transformations, [&](const ModelOptions::Transformation& each) {
    const std::vector<float>& c = each.constants;
    return workset.SetTransformation(Locate("--transform", each.name, workset), each.type, c[0],
                                     c[1], c[2]);
  });
  if (status != status::kOk) return status;
  return ForEach(options.blocks, [&](const ModelOptions::Block& block) {
    return ForEach(block.names, [&](const std::string& name) {
      return workset.SetBlock(Locate("--block", name, workset), block.number, block.type);
    });
  });
}

int SelectObservations(const ModelOptions& options, Workset& workset) {
  for (const auto& [number, ranges] : options.classes) {
    const std::string subject = "--class " + std::to_string(int{number});
    const auto set = [&, c = number](short i, int onum) {
      const char other = workset.GetOClass(i);
      if (other != 0 && other != c) {
        Refuse(subject, "observation " + std::to_string(onum) + " is in class " +
                            std::to_string(int{other}));
      }
      return workset.SetOClass(i, c);
    };
    const int status = ForEachObservation(subject, ranges, workset, set);
    if (status != status::kOk) return status;
  }
  return ForEachObservation("--exclude-obs", options.excluded_observations, workset,
                            [&](short i, int) { return workset.SetIsObsIn(i, false); });
}

}  // namespace

int SetUpWorkset(const ModelOptions& options, Workset& workset) {
  int status = AddVariables(options, workset);
  if (status == status::kOk) status = Preprocess(options, workset);
  return status == status::kOk ? SelectObservations(options, workset) : status;
}

void SetUpModel(const ModelOptions& options, ModOpt& model_options) {
  model_options.SetIsRule(!options.component_count.has_value());
  model_options.SetNComp(options.component_count.value_or(0));
  if (options.rule) model_options.SetRuleValidate(*options.rule);
  if (options.is_without_cross_validation) model_options.SetSeqValidate(EValidate::NoCV);
  if (options.group_count) model_options.SetNCV(*options.group_count);
  if (options.max_iterations) model_options.SetMaxIter(*options.max_iterations);
}

}  // namespace zemva::tools
