#include "plot/gnuplot_script.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string_view>

#include "plot/label_layout.h"
#include "text/messages.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

// The page is 800 by 600 pixels, whatever it is written as.
constexpr double kPageWidth = 800.0;
constexpr double kPageHeight = 600.0;
constexpr double kLeft = 90.0;
constexpr double kRight = 25.0;
constexpr double kRightOfKey = 175.0;  // where the legend stands beside the axes
constexpr double kTop = 80.0;
constexpr double kBottom = 75.0;
constexpr double kTickCharacter = 7.2;
// More names than these are not told apart below the bars.
constexpr std::size_t kMostTicks = 45;
constexpr std::size_t kLongestInKey = 18;

struct Format {
  std::string_view suffix;
  const char* terminal;
};
constexpr std::array<Format, 3> kFormats = {{
    {".svg", "svg size 800,600 font 'Helvetica,14' background rgb 'white' noenhanced"},
    {".png", "pngcairo size 1200,900 font 'Sans,12' fontscale 1.25 pointscale 1.8 noenhanced"},
    {".pdf", "pdfcairo size 8in,6in font 'Sans,10' noenhanced"},
}};

// Each kind of point has a mark of its own, which tells it from others in black and white too.
constexpr int kMarks[] = {6, 4, 8, 12, 2, 1, 10, 3, 7, 5, 9, 13};
constexpr const char* kColours[] = {"#0072B2", "#D55E00", "#009E73", "#8E3A80",
                                    "#000000", "#A07000", "#4D4D4D"};
// From dark to light.
constexpr const char* kFills[] = {"#1F4E79", "#8FB4D9", "#E6E6E6"};
constexpr const char* kDashes[] = {"2", "4", "3"};

std::string Real(double value) {
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.7g", value);
  return text.data();
}

// A character that would end a line, or steer what shows it, is none.
char Harmless(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 0x20 || code == 0x7F ? '?' : c;
}

// Between single quotes nothing but a quote has a meaning.
std::string Quote(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, Harmless(c));
  return quoted + '\'';
}

// So many characters of a text at most.
std::string CutTo(std::size_t most, const std::string& text) {
  if (CountCharacters(text) <= most) return text;
  std::size_t end = text.size();
  while (CountCharacters(text.substr(0, end)) >= most) --end;
  return text.substr(0, end) + "\u2026";
}

// Where a text is a format too.
std::string QuoteFormat(std::string_view text) {
  std::string doubled;
  for (const char c : text) doubled += c == '%' ? "%%" : std::string(1, c);
  return Quote(doubled);
}

// A name among data, and in the code that a drawing is made of: its quotes are those of print.
std::string QuoteName(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') {
      quoted += "\u201D";
    } else if (c == '\'') {
      quoted += "\u2019";
    } else {
      quoted += c == '\\' ? "\\\\" : std::string(1, Harmless(c));
    }
  }
  return quoted + '"';
}

struct Range {
  double least = std::numeric_limits<double>::infinity();
  double most = -std::numeric_limits<double>::infinity();

  void Include(double value) {
    least = std::min(least, value);
    most = std::max(most, value);
  }
  // With room about what is in it, and not empty.
  Range Padded(double share) const {
    if (least > most) return {-1.0, 1.0};
    const double size = most - least;
    const double room = size > 0.0 ? size * share : std::max(std::abs(most), 1.0) * share;
    return {least - room, most + room};
  }
};

// Bars stand side by side within 0.8 of a category.
double BarWidth(const Figure& figure) {
  return 0.8 / static_cast<double>(figure.bars.size());
}

class ScriptWriter {
 public:
  explicit ScriptWriter(const Figure& figure) : figure_(figure) {
    FindRanges();
    area_ = {kPageWidth - kLeft - Right(),
             kPageHeight - kTop - Bottom(),
             x_.least,
             x_.most,
             y_.least,
             y_.most};
  }

  std::string Write(const Format& format, const std::string& output) {
    Line(std::string("set terminal ") + format.terminal);
    Line("set output " + Quote(output));
    Line("set encoding utf8");
    Line("set datafile separator \"\\t\"");
    WriteFrame();
    WriteTicks();
    AddBars();
    AddLines();
    AddPoints();
    AddLabels();
    std::string plot = "plot ";
    for (const std::string& element : plots_) {
      plot += (&element == &plots_.front() ? "" : ", \\\n     ") + element;
    }
    Line(plots_.empty() ? "plot NaN notitle" : plot);
    return script_;
  }

 private:
  void Line(const std::string& line) { script_ += line + '\n'; }

  void FindRanges() {
    Range x, y;
    for (const PointSeries& series : figure_.points) {
      for (const FigurePoint& point : series.points) x.Include(point.x), y.Include(point.y);
    }
    for (const LineSeries& series : figure_.lines) {
      for (const auto& line : series.lines) {
        for (const auto& [at_x, at_y] : line) x.Include(at_x), y.Include(at_y);
      }
    }
    for (const BarSeries& series : figure_.bars) {
      for (const float height : series.heights) {
        if (!IsMissing(height)) y.Include(static_cast<double>(height));
      }
      y.Include(0.0);
    }
    if (figure_.is_from_zero) y.Include(0.0);
    x_ = x.Padded(0.07);
    y_ = y.Padded(0.07);
    if (figure_.is_to_one) y_.most = std::max(y.most, 1.0);
    const bool has_base = figure_.is_from_zero || !figure_.bars.empty();
    if (has_base && y.least == 0.0) y_.least = 0.0;
    if (figure_.bars.empty()) return;
    x_ = {0.4, static_cast<double>(figure_.categories.size()) + 0.6};
    if (y.most == 0.0) y_.most = 0.0;
    if (y_.least == y_.most) y_.most = 1.0;
  }

  // Whether the legend has more in it than a line above the axes.
  bool HasLongKey() const {
    std::size_t characters = 0;
    const auto add = [&](const auto& all) {
      for (const auto& each : all) {
        if (!each.title.empty()) characters += CountCharacters(each.title) + 6;
      }
    };
    add(figure_.points), add(figure_.lines), add(figure_.bars);
    return characters > 62;
  }
  double Right() const { return HasLongKey() ? kRightOfKey : kRight; }

  std::size_t LongestTick() const {
    std::size_t longest = 0;
    for (const std::string& name : figure_.categories) {
      longest = std::max(longest, CountCharacters(name));
    }
    return longest;
  }
  // Whether the names of the categories stand upright, since they have no room side by side.
  bool IsUpright() const {
    const double room = (kPageWidth - kLeft - Right()) / std::max(x_.most - x_.least, 1.0);
    return kTickCharacter * static_cast<double>(LongestTick() + 1) > room;
  }
  double Bottom() const {
    if (!IsUpright()) return kBottom;
    return std::max(kBottom, 40.0 + kTickCharacter * static_cast<double>(LongestTick()));
  }

  void WriteFrame() {
    Line("set label " + Quote(figure_.title) + " at screen " + Real(kLeft / kPageWidth) +
         ",0.955 left font ',17'");
    Line("set xlabel " + Quote(figure_.x_label));
    Line("set ylabel " + Quote(figure_.y_label));
    Line("set lmargin at screen " + Real(kLeft / kPageWidth));
    Line("set rmargin at screen " + Real(1.0 - Right() / kPageWidth));
    Line("set tmargin at screen " + Real(1.0 - kTop / kPageHeight));
    Line("set bmargin at screen " + Real(Bottom() / kPageHeight));
    Line("set xrange [" + Real(x_.least) + ":" + Real(x_.most) + "]");
    Line("set yrange [" + Real(y_.least) + ":" + Real(y_.most) + "]");
    const std::string side = " right top ";
    Line(HasLongKey()
             ? "set key at screen 0.985," + Real(1.0 - kTop / kPageHeight) + side + "vertical"
             : "set key at screen 0.985,0.91" + side + "horizontal");
    Line("set tics nomirror out");
    Line("set border 3");
    const bool has_zero = figure_.has_origin_lines || !figure_.bars.empty();
    if (has_zero) Line("set xzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'");
    if (figure_.has_origin_lines) {
      Line("set yzeroaxis linetype -1 linewidth 0.5 linecolor rgb '#808080'");
    }
  }

  void WriteTicks() {
    const std::size_t count = figure_.categories.size();
    if (count == 0) return;
    const std::size_t step = (count + kMostTicks - 1) / kMostTicks;
    std::string ticks;
    for (std::size_t i = 0; i < count; i += step) {
      ticks += (ticks.empty() ? "" : ", ") + QuoteFormat(figure_.categories[i]) + ' ' +
               std::to_string(i + 1);
    }
    Line(std::string("set xtics scale 0 ") + (IsUpright() ? "rotate by 90 right " : "") + "(" +
         ticks + ")");
  }

  // Begins a block of data; its name is what is plotted.
  std::string Begin(const char* what) {
    std::string name = std::string("$") + what + std::to_string(++block_count_);
    Line(name + " << EOD");
    return name;
  }
  void Row(double x, double y) { script_ += Real(x) + '\t' + Real(y) + '\n'; }
  void Row(double x, double y, const std::string& name) {
    script_ += Real(x) + '\t' + Real(y) + '\t' + QuoteName(name) + '\n';
  }

  static std::string TitleOf(const std::string& title) {
    if (title.empty()) return " notitle";
    return " title " + Quote(CutTo(kLongestInKey, title));
  }

  void AddBars() {
    if (figure_.bars.empty()) return;
    const double width = BarWidth(figure_);
    Line("set boxwidth " + Real(width) + " absolute");
    const bool has_border = figure_.categories.size() <= kMostTicks;
    Line(has_border ? "set style fill solid 1.0 border linecolor rgb 'black'"
                    : "set style fill solid 1.0 noborder");
    double offset = -0.4 + width / 2;
    for (std::size_t s = 0; s < figure_.bars.size(); ++s, offset += width) {
      const BarSeries& series = figure_.bars[s];
      if (std::ranges::all_of(series.heights, [](float h) { return IsMissing(h); })) continue;
      const std::string block = Begin("bars");
      for (std::size_t i = 0; i < series.heights.size(); ++i) {
        if (IsMissing(series.heights[i])) continue;
        Row(static_cast<double>(i + 1) + offset, static_cast<double>(series.heights[i]),
            figure_.categories[i]);
      }
      Line("EOD");
      plots_.push_back(block + " using 1:2 with boxes linecolor rgb '" +
                       kFills[s % std::size(kFills)] + "'" + TitleOf(series.title));
      // So that each bar tells its name.
      plots_.push_back(block +
                       " using 1:2:3 with labels hypertext point pointtype 7 pointsize 0.2"
                       " linecolor rgb 'black' notitle");
    }
  }

  void AddLines() {
    std::size_t number = 0;
    for (const LineSeries& series : figure_.lines) {
      const std::string block = Begin("line");
      for (const auto& line : series.lines) {
        if (&line != &series.lines.front()) Line("");
        for (const auto& [x, y] : line) Row(x, y);
      }
      Line("EOD");
      plots_.push_back(block + " using 1:2 with lines dashtype " +
                       kDashes[number % std::size(kDashes)] +
                       " linewidth 1.5 linecolor rgb 'black'" + TitleOf(series.title));
      ++number;
    }
  }

  void AddPoints() {
    std::size_t number = 0;
    for (const PointSeries& series : figure_.points) {
      if (series.points.empty()) continue;
      const std::string block = Begin("points");
      for (const FigurePoint& point : series.points) Row(point.x, point.y, point.name);
      Line("EOD");
      plots_.push_back(block + " using 1:2:3 with labels hypertext point pointtype " +
                       std::to_string(kMarks[number % std::size(kMarks)]) +
                       " pointsize 0.7 linecolor rgb '" + kColours[number % std::size(kColours)] +
                       "'" + TitleOf(series.title));
      ++number;
    }
  }

  void AddLabels() {
    const std::vector<Label> labels = PlaceLabels(figure_.points, area_);
    constexpr const char* kPlaces[] = {
        "left offset character 0.8,0", "right offset character -0.8,0",
        "center offset character 0,0.7", "center offset character 0,-0.7"};
    for (const ELabelSide side : kLabelSides) {
      const auto is_here = [&](const Label& label) { return label.side == side; };
      if (std::ranges::none_of(labels, is_here)) continue;
      const std::string block = Begin("names");
      for (const Label& label : labels) {
        if (is_here(label)) Row(label.point.x, label.point.y, label.point.name);
      }
      Line("EOD");
      plots_.push_back(block + " using 1:2:3 with labels " +
                       kPlaces[static_cast<std::size_t>(side)] + " font ',11' notitle");
    }
  }

  const Figure& figure_;
  Range x_, y_;
  PlotArea area_ = {};
  int block_count_ = 0;
  std::string script_;
  std::vector<std::string> plots_;
};

}  // namespace

EFigureFormat FigureFormatOf(const std::string& path) {
  for (std::size_t i = 0; i < kFormats.size(); ++i) {
    if (path.ends_with(kFormats[i].suffix)) return static_cast<EFigureFormat>(i);
  }
  throw UsageError("-o: " + Quoted(path) + " ends in none of .svg, .png, .pdf");
}

std::string ScriptOf(const Figure& figure, EFigureFormat format, const std::string& output) {
  return ScriptWriter(figure).Write(kFormats[static_cast<std::size_t>(format)], output);
}

}  // namespace zemva::tools
