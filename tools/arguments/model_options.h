// The options of commands that fit a model.
#ifndef ZEMVA_TOOLS_ARGUMENTS_MODEL_OPTIONS_H
#define ZEMVA_TOOLS_ARGUMENTS_MODEL_OPTIONS_H

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "arguments/lists.h"
#include "csv/csv_options.h"
#include "zemva/data/blk_info.h"
#include "zemva/model/preprocess/sca_info.h"
#include "zemva/model/preprocess/tra_info.h"
#include "zemva/settings/options/option_types.h"

namespace CLI {
class App;
}

namespace zemva::tools {

// Names of variables are in the code page.
struct ModelOptions {
  struct Transformation {
    std::string name;
    ETraType type;
    std::vector<float> constants;  // three
  };
  struct Lags {
    std::string name;
    std::vector<short> lags;
  };
  struct Block {
    char number;
    BlkInfo::EBlkType type;
    std::vector<std::string> names;
  };

  std::string file;
  CsvOptions csv;                        // of the file and of the one to predict
  std::optional<short> component_count;  // without it the rules of significance decide
  std::optional<EValidate> rule;         // which of them
  bool is_without_cross_validation = false;
  std::optional<short> group_count;  // of the cross-validation
  std::optional<short> max_iterations;

  EScaType scaling = EScaType::kUV;          // of all variables
  std::optional<EScaType> response_scaling;  // of those that are responses
  std::vector<std::pair<std::string, EScaType>> own_scalings;
  std::vector<Transformation> transformations;
  std::vector<Lags> lags;
  std::vector<std::vector<std::string>> terms;  // the two or three factors of each
  std::vector<Block> blocks;

  std::vector<std::string> responses;
  std::vector<std::string> excluded_variables;
  std::vector<NumberRange> excluded_observations;
  std::map<char, std::vector<NumberRange>> classes;

  std::optional<std::string> test_file;
  std::optional<std::string> model_file;  // that the model is saved to
  std::optional<std::string> out_directory;
  std::optional<std::string> plot_directory;
  std::optional<std::string> settings_directory;
  bool is_json = false;  // the summary
};

// Adds the file of a model, and the options that all models have.
void AddModelOptions(CLI::App& line, ModelOptions& options);

// Adds the file to predict.
void AddTestOption(CLI::App& line, ModelOptions& options);

// Adds what a command that fits a model writes.
void AddResultOptions(CLI::App& line, ModelOptions& options);

// Adds the options of models with responses.
void AddResponseOptions(CLI::App& line, ModelOptions& options);

// The number of a class. Raises UsageError, which names the option.
char ParseClass(std::string_view option, std::string_view text);

// Refuses, with UsageError, options that do not go together.
void CheckModelOptions(const ModelOptions& options);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_ARGUMENTS_MODEL_OPTIONS_H
