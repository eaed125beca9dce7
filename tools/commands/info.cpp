// What is in a file: its headers and items, and its data set.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include "arguments/command_line.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "text/code_page.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dio_data.h"
#include "zemva/dio/file_contents.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/missing.h"

namespace zemva::tools {
namespace {

void PrintText(const char* label, std::string_view text) {
  std::printf("%-14s%s\n", label, PrintableFromCodePage(text).c_str());
}

void PrintNumber(const char* label, long long number) {
  std::printf("%-14s%lld\n", label, number);
}

void PrintSuperHeader(const FileContents& contents) {
  const SuperHeader& header = contents.super_header;
  PrintNumber("Version", header.version);
  PrintNumber("Size", header.size);
  PrintText("Project", Trimmed(header.name));
  PrintText("Comment", Trimmed(header.comment));
  PrintText("Time", Trimmed(header.time));
  PrintNumber("Super items", header.nitm);
}

void PrintItem(const char* indent, const ItemHeader& item, int width) {
  std::string dims;
  for (const std::int16_t extent : item.dims) {
    dims += (dims.empty() ? "" : " x ") + std::to_string(extent);
  }
  std::printf("%s%-*s  %-5s  %-13s  %10d\n", indent, width,
              PrintableFromCodePage(Trimmed(item.name)).c_str(),
              PrintableFromCodePage(Trimmed(item.type)).c_str(), dims.c_str(), item.size);
}

void PrintItems(const FileContents& contents) {
  std::printf("\n%-22s  %-5s  %-13s  %10s\n", "Item", "Type", "Dims", "Size");
  for (const SuperItemContents& super_item : contents.super_items) {
    PrintItem("", super_item.super_item.header, 22);
    for (const ItemHeader& item : super_item.items) PrintItem("  ", item, 20);
  }
}

void PrintDataset(Dataset& dataset) {
  const long long cells = 1LL * dataset.GetNObsDS() * dataset.GetNVarDS();
  long long missing = 0;
  for (int i = 1; i <= dataset.GetNObsDS(); ++i) {
    const float* row = dataset[static_cast<short>(i)];
    missing += std::count(row + 1, row + 1 + dataset.GetNVarDS(), kMissing);
  }
  std::printf("\n");
  PrintText("Data set", dataset.GetDSNam());
  PrintNumber("Number", dataset.GetDSNum());
  PrintText("Title", dataset.GetDSTitle());
  PrintNumber("Observations", dataset.GetNObsDS());
  PrintNumber("Variables", dataset.GetNVarDS());
  std::printf("%-14s%lld (%.2f %%)\n", "Missing", missing,
              cells == 0 ? 0.0 : 100.0 * static_cast<double>(missing) / static_cast<double>(cells));
}

int ShowInfo(const std::string& path) {
  if (!IsProjectFile(path) && IsTextFile(path)) {
    return Fail(path, "is a text, no project file; convert, stats, pc and pls take tables");
  }
  StreamWindow discard;
  FileContents contents;
  const int listed = GetFileContents(path.c_str(), discard, contents);
  Dataset dataset("Info", path.c_str(), discard);
  const int loaded = dataset.Load();
  // What can be read is shown, also of a file that is damaged further on.
  if (DioData::CanRead(contents.super_header.version)) {
    std::printf("%-14s%s\n", "File", path.c_str());
    PrintSuperHeader(contents);
    PrintItems(contents);
  }
  if (loaded == status::kOk) PrintDataset(dataset);
  if (listed != status::kOk) return Fail(path, listed);
  return loaded == status::kOk ? kDone : Fail(path, loaded);
}

}  // namespace

Run AddInfo(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "info", "What a project file holds.", "zemva info measured.vdo");
  const auto file = std::make_shared<std::string>();
  AddFile(line, "FILE.vdo", "the project file", *file);
  return [file] { return ShowInfo(*file); };
}

}  // namespace zemva::tools
