// Figures in the language of gnuplot.
#ifndef ZEMVA_TOOLS_PLOT_GNUPLOT_SCRIPT_H
#define ZEMVA_TOOLS_PLOT_GNUPLOT_SCRIPT_H

#include <string>

#include "plot/figure.h"

namespace zemva::tools {

// What a figure can be written as.
enum class EFigureFormat { kSvg, kPng, kPdf };

// By the end of the name of a file. Raises UsageError for another.
EFigureFormat FigureFormatOf(const std::string& path);

// A script that draws the figure into a file, with the data in it. No text of the figure means
// anything to gnuplot.
std::string ScriptOf(const Figure& figure, EFigureFormat format, const std::string& output);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_GNUPLOT_SCRIPT_H
