#include "plot/figure_folder.h"

#include <filesystem>
#include <set>
#include <system_error>
#include <vector>

#include "plot/figure_kinds.h"
#include "plot/gnuplot.h"
#include "text/messages.h"
#include "zemva/base/native_path.h"

namespace zemva::tools {
namespace {

// Whether a file of that name is a figure of such a folder: "scores.svg", "predicted-2.svg".
bool IsFigure(const std::string& file) {
  constexpr std::string_view kSuffix = ".svg";
  if (!file.ends_with(kSuffix)) return false;
  const std::string stem = file.substr(0, file.size() - kSuffix.size());
  for (const FigureKind& kind : FigureKinds()) {
    const std::string name = kind.name;
    if (stem == name) return true;
    const bool is_of_response =
        kind.is_by_response && stem.starts_with(name + "-") && stem.size() > name.size() + 1;
    if (is_of_response &&
        stem.find_first_not_of("0123456789", name.size() + 1) == std::string::npos) {
      return true;
    }
  }
  return false;
}

void RemoveOthers(const std::string& folder, const std::set<std::string>& written) {
  std::vector<std::string> others;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(NativePath(folder), error)) {
    const std::string file = entry.path().filename().string();
    if (IsFigure(file) && !written.contains(file)) others.push_back(file);
  }
  for (const std::string& file : others) {
    const std::string path = folder + "/" + file;
    if (!std::filesystem::remove(NativePath(path), error)) {
      throw Failure(path, "is of an earlier model and cannot be removed");
    }
    Tell(path, "of an earlier model, is removed");
  }
}

}  // namespace

FigureFolder::FigureFolder(const std::string& folder) : folder_(folder) {
  RequireGnuplot();
  std::error_code error;
  std::filesystem::create_directories(NativePath(folder), error);
  if (!std::filesystem::is_directory(NativePath(folder), error)) {
    throw Failure(folder, "cannot be created");
  }
}

void FigureFolder::Draw(const Model& model, std::span<const std::string> class_names) const {
  std::set<std::string> written;
  for (const FigureKind& kind : FigureKinds()) {
    if (kind.needs_responses && !model.HasY()) continue;
    const short count = kind.is_by_response ? model.GetNVarY() : short{1};
    for (short m = 1; m <= count; ++m) {
      FigureSource source{model, class_names, {}};
      source.choice.response = m;
      const std::string number = count > 1 ? "-" + std::to_string(m) : "";
      const std::string file = kind.name + number + ".svg";
      WriteWhole(folder_ + "/" + file, DrawFigure(MakeFigure(kind, source), EFigureFormat::kSvg));
      written.insert(file);
    }
  }
  RemoveOthers(folder_, written);
}

}  // namespace zemva::tools
