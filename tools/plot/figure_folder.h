// A folder of all figures of a model.
#ifndef ZEMVA_TOOLS_PLOT_FIGURE_FOLDER_H
#define ZEMVA_TOOLS_PLOT_FIGURE_FOLDER_H

#include <span>
#include <string>

#include "zemva/model/driver/model.h"

namespace zemva::tools {

class FigureFolder {
 public:
  // Makes it, and makes sure that figures can be drawn, before there is anything to draw: so a
  // model is not fitted for nothing. Raises Failure.
  explicit FigureFolder(const std::string& folder);

  // Draws every kind of figure that the model has, and removes those of an earlier model that it
  // has not. Raises Failure.
  void Draw(const Model& model, std::span<const std::string> class_names) const;

 private:
  std::string folder_;
};

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_FIGURE_FOLDER_H
