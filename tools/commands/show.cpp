// The listings of a model.
#include <cstdio>
#include <memory>
#include <string>

#include "arguments/command_line.h"
#include "commands/commands.h"
#include "model/stored_model.h"
#include "text/text_window.h"

namespace zemva::tools {
namespace {

int ShowModel(const std::string& path) {
  TextWindow log(stderr);
  const std::unique_ptr<Model> model = ReadModel(path, log);
  TextWindow listing(stdout);
  model->Show(listing);
  model->ShowAll(listing);
  return kDone;
}

}  // namespace

Run AddShow(CLI::App& program) {
  CLI::App& line = AddCommand(program, "show", "Lists a saved model.", "zemva show measured.mdl");
  const auto file = std::make_shared<std::string>();
  AddFile(line, "MODEL.mdl", "the model, as pc and pls save it", *file);
  return [file] { return ShowModel(*file); };
}

}  // namespace zemva::tools
