// The figures of a model, one a function.
#ifndef ZEMVA_TOOLS_PLOT_MODEL_FIGURES_H
#define ZEMVA_TOOLS_PLOT_MODEL_FIGURES_H

#include "plot/figure.h"
#include "plot/figure_kinds.h"

namespace zemva::tools {

// --- Of components and variables (variable_figures.cpp) ---

Figure DrawOverview(const FigureSource& source);
Figure DrawLoadings(const FigureSource& source);
Figure DrawVip(const FigureSource& source);
Figure DrawCoefficients(const FigureSource& source);
// Raises Failure for an observation that the model has not.
Figure DrawContributions(const FigureSource& source);

// --- Of observations (observation_figures.cpp) ---

Figure DrawScores(const FigureSource& source);
Figure DrawDistances(const FigureSource& source);
Figure DrawT2(const FigureSource& source);
Figure DrawPredicted(const FigureSource& source);

// --- What several of them say (figure_texts.cpp) ---

// "t[1], 62 %", with the share of X that the component explains.
std::string AxisOf(const Model& model, const char* vector, short component);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_MODEL_FIGURES_H
