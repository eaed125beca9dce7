// Models in files.
#ifndef ZEMVA_TOOLS_MODEL_STORED_MODEL_H
#define ZEMVA_TOOLS_MODEL_STORED_MODEL_H

#include <memory>
#include <string>

#include "zemva/errors/stream_window.h"
#include "zemva/model/driver/model.h"

namespace zemva::tools {

// The model in a file, which writes its messages to the window. Raises Failure.
std::unique_ptr<Model> ReadModel(const std::string& path, StreamWindow& log);

// Writes a model to a file. Raises Failure.
void SaveModel(Model& model, const std::string& path);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_MODEL_STORED_MODEL_H
