// Running gnuplot.
#ifndef ZEMVA_TOOLS_PLOT_GNUPLOT_H
#define ZEMVA_TOOLS_PLOT_GNUPLOT_H

#include <string>

#include "plot/figure.h"
#include "plot/gnuplot_script.h"

namespace zemva::tools {

// Raises Failure where there is no gnuplot on this system.
void RequireGnuplot();

// The bytes of a drawing. In one for the web the name of a point shows when the pointer is over it.
// Raises Failure.
std::string DrawFigure(const Figure& figure, EFigureFormat format);

// Replaces a file whole, or writes to standard output where its name stands for that. Raises
// Failure.
void WriteWhole(const std::string& path, const std::string& bytes);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_PLOT_GNUPLOT_H
