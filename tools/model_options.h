// The options that commands which fit a model share.
#ifndef ZEMVA_TOOLS_MODEL_OPTIONS_H
#define ZEMVA_TOOLS_MODEL_OPTIONS_H

#include <functional>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "commands.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/workset/workset.h"
#include "zemva/settings/options/mod_opt.h"

namespace zemva::tools {

// Arguments that mean nothing, and why.
class UsageError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

// Numbers of observations, both included.
struct NumberRange {
  short first;
  short last;
};

struct ModelOptions {
  std::string file;
  std::optional<short> component_count;  // without it the rules of significance decide
  EScaType scaling = EScaType::kUV;      // of all variables
  std::optional<short> group_count;      // of the cross-validation
  std::optional<short> max_iterations;
  std::vector<std::string> excluded_variables;  // names in the code page
  std::map<char, std::vector<NumberRange>> classes;
  std::optional<std::string> test_file;
  std::optional<std::string> out_directory;
};

// An option that takes a value.
struct ModelOption {
  std::string_view name;
  // Takes the value over. Raises UsageError.
  std::function<void(std::string_view)> set;
  bool is_repeatable = false;
};

// Reads the arguments of a command: one file, the options of all models, and those of its own.
// Raises UsageError.
ModelOptions ParseModelOptions(Arguments arguments, std::span<const ModelOption> own_options);

// The number of a class. Raises UsageError, which names the option.
char ParseClass(std::string_view option, std::string_view text);

// What the options say of variables and observations. Returns the status of the work set; raises
// UsageError for names and numbers that it has not.
int SetUpWorkset(const ModelOptions& options, Workset& workset);

// What they say of a model.
void SetUpModel(const ModelOptions& options, ModOpt& model_options);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_OPTIONS_H
