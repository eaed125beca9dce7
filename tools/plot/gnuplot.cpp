#include "plot/gnuplot.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "csv/csv_file.h"
#include "text/messages.h"
#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"

#if defined(_WIN32)
#include <fcntl.h>
#include <io.h>
#include <process.h>
#else
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace zemva::tools {
namespace {

namespace fs = std::filesystem;

constexpr char kProgram[] = "gnuplot";

int ProcessId() {
#if defined(_WIN32)
  return _getpid();
#else
  return getpid();
#endif
}

// A folder that is removed with all that is in it.
class ScratchFolder {
 public:
  ScratchFolder() {
    constexpr int kMostTries = 1000;
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    for (int number = 0; number < kMostTries && !error; ++number) {
      path_ = parent / ("zemva-" + std::to_string(ProcessId()) + "-" + std::to_string(number));
      // What is there already is another's.
      if (!fs::create_directory(path_, error)) continue;
      fs::permissions(path_, fs::perms::owner_all, error);
      return;
    }
    throw Failure("the folder of temporary files", "cannot be written to");
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
  }

  fs::path PathOf(const char* name) const { return path_ / name; }

 private:
  fs::path path_;
};

// Runs gnuplot on words, without a shell and without the user's own settings. Its exit status, or
// none where there is no gnuplot.
constexpr int kNotThere = -1;

int RunGnuplot(const std::string& word) {
  std::string program = kProgram, settings = "-d";
#if defined(_WIN32)
  // The words are put into one line, from which they are taken apart again; no path has a quote.
  const std::string quoted = '"' + word + '"';
  const std::vector<const char*> words = {program.c_str(), settings.c_str(), quoted.c_str(),
                                          nullptr};
  return static_cast<int>(_spawnvp(_P_WAIT, kProgram, words.data()));
#else
  std::string own = word;
  const std::vector<char*> words = {program.data(), settings.data(), own.data(), nullptr};
  pid_t child = 0;
  if (posix_spawnp(&child, kProgram, nullptr, nullptr, words.data(), environ) != 0) {
    return kNotThere;
  }
  int status = 0;
  while (waitpid(child, &status, 0) < 0) {
    if (errno != EINTR) return EXIT_FAILURE;
  }
  // Some systems find out in the child only that there is nothing to run.
  constexpr int kNothingToRun = 127;
  if (WIFEXITED(status) && WEXITSTATUS(status) == kNothingToRun) return kNotThere;
  return WIFEXITED(status) ? WEXITSTATUS(status) : EXIT_FAILURE;
#endif
}

struct CloseFile {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

void WriteScript(const fs::path& path, const std::string& script) {
  const File file(OpenFile(path, "wb"));
  const bool is_written =
      file != nullptr &&
      std::fwrite(script.data(), 1, script.size(), file.get()) == script.size() &&
      std::fflush(file.get()) == 0;
  if (!is_written) throw Failure(path.string(), "cannot be written");
}

void Draw(const ScratchFolder& folder, const std::string& script) {
  const fs::path path = folder.PathOf("figure.gp");
  WriteScript(path, script);
  const int exit_status = RunGnuplot(path.string());
  if (exit_status == kNotThere) {
    throw Failure(kProgram, "is not installed; it draws the figures");
  }
  if (exit_status != 0) throw Failure(kProgram, "could not draw the figure");
}

void Replace(std::string& text, std::string_view old, std::string_view replacement) {
  std::string result;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find(old, done)) != std::string::npos;) {
    result.append(text, done, at - done).append(replacement);
    done = at + old.size();
  }
  text = result.append(text, done);
}

// The names of points are in calls of a script that is not there: they become titles, which every
// viewer shows, in place of the names that gnuplot has for its own parts.
void GiveTitles(std::string& svg) {
  constexpr std::string_view kEnd = "</title>";
  std::string untitled;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = svg.find("<title>", done)) != std::string::npos;) {
    const std::size_t end = svg.find(kEnd, at);
    if (end == std::string::npos) break;
    untitled.append(svg, done, at - done);
    done = end + kEnd.size();
  }
  svg = untitled.append(svg, done);
  Replace(svg, " onmousemove=\"gnuplot_svg.showHypertext(evt,'", "><title>");
  Replace(svg, "')\" onmouseout=\"gnuplot_svg.hideHypertext()\">", "</title>");
}

}  // namespace

void RequireGnuplot() {
  Draw(ScratchFolder(), "");
}

std::string DrawFigure(const Figure& figure, EFigureFormat format) {
  const ScratchFolder folder;
  const fs::path path = folder.PathOf("figure");
  Draw(folder, ScriptOf(figure, format, path.string()));
  std::string bytes;
  {
    const File file(OpenFile(path, "rb"));
    if (file == nullptr) throw Failure(kProgram, "could not draw the figure");
    std::vector<char> block(1 << 16);
    for (std::size_t got = 1; got > 0;) {
      got = std::fread(block.data(), 1, block.size(), file.get());
      bytes.append(block.data(), got);
    }
  }
  if (bytes.empty()) throw Failure(kProgram, "could not draw the figure");
  if (format == EFigureFormat::kSvg) GiveTitles(bytes);
  return bytes;
}

void WriteWhole(const std::string& path, const std::string& bytes) {
  if (path == kStandardStream) {
    std::fwrite(bytes.data(), 1, bytes.size(), stdout);
    return;
  }
  AtomicFile file(path);
  const bool is_written =
      file.GetStream() != nullptr &&
      std::fwrite(bytes.data(), 1, bytes.size(), file.GetStream()) == bytes.size();
  if (!is_written || !file.Commit()) throw Failure(path, "cannot be written");
}

}  // namespace zemva::tools
