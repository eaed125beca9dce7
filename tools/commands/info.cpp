// What is in a file: its headers and items, and its data set or model.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>

#include "arguments/command_line.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "text/code_page.h"
#include "text/json_writer.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/file_contents.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/driver/model.h"
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

long long CountMissing(Dataset& dataset) {
  long long missing = 0;
  for (int i = 1; i <= dataset.GetNObsDS(); ++i) {
    const float* row = dataset[static_cast<short>(i)];
    missing += std::count(row + 1, row + 1 + dataset.GetNVarDS(), kMissing);
  }
  return missing;
}

void PrintDataset(Dataset& dataset) {
  const long long cells = 1LL * dataset.GetNObsDS() * dataset.GetNVarDS();
  const long long missing = CountMissing(dataset);
  std::printf("\n");
  PrintText("Data set", dataset.GetDSNam());
  PrintNumber("Number", dataset.GetDSNum());
  PrintText("Title", dataset.GetDSTitle());
  PrintNumber("Observations", dataset.GetNObsDS());
  PrintNumber("Variables", dataset.GetNVarDS());
  std::printf("%-14s%lld (%.2f %%)\n", "Missing", missing,
              cells == 0 ? 0.0 : 100.0 * static_cast<double>(missing) / static_cast<double>(cells));
}

void WriteItem(const ItemHeader& item, JsonWriter& json) {
  json.Text("Item", PrintableFromCodePage(Trimmed(item.name)));
  json.Text("Type", PrintableFromCodePage(Trimmed(item.type)));
  json.Key("Dims");
  json.BeginList();
  for (const std::int16_t extent : item.dims) json.Integer(extent);
  json.EndList();
  json.Integer("Size", item.size);
}

void WriteContents(const FileContents& contents, JsonWriter& json) {
  const SuperHeader& header = contents.super_header;
  json.Integer("Version", header.version);
  json.Integer("Size", header.size);
  json.Text("Project", PrintableFromCodePage(Trimmed(header.name)));
  json.Text("Comment", PrintableFromCodePage(Trimmed(header.comment)));
  json.Text("Time", PrintableFromCodePage(Trimmed(header.time)));
  json.Key("Super items");
  json.BeginList();
  for (const SuperItemContents& super_item : contents.super_items) {
    json.BeginObject();
    WriteItem(super_item.super_item.header, json);
    json.Key("Items");
    json.BeginList();
    for (const ItemHeader& item : super_item.items) {
      json.BeginObject();
      WriteItem(item, json);
      json.EndObject();
    }
    json.EndList();
    json.EndObject();
  }
  json.EndList();
}

void WriteDataset(Dataset& dataset, JsonWriter& json) {
  json.Key("Data set");
  json.BeginObject();
  json.Text("Name", PrintableFromCodePage(dataset.GetDSNam()));
  json.Integer("Number", dataset.GetDSNum());
  json.Text("Title", PrintableFromCodePage(dataset.GetDSTitle()));
  json.Integer("Observations", dataset.GetNObsDS());
  json.Integer("Variables", dataset.GetNVarDS());
  json.Integer("Missing", CountMissing(dataset));
  json.EndObject();
}

// What there is to say of a model, in its order.
template <typename AddText, typename AddNumber>
void Describe(const Model& model, AddText add_text, AddNumber add_number) {
  std::string type = GetModTypeTag(model.GetModType());
  type.erase(type.find_last_not_of(' ') + 1);
  add_text("Type", type);
  add_text("Name", model.GetModNam());
  add_number("Number", model.GetModNum());
  add_text("Title", model.GetModTitle());
  add_text("Data set", model.GetDSNam());
  add_number("Observations", model.GetNObs());
  add_number("Variables", model.GetNVarX());
  if (model.HasY()) add_number("Responses", model.GetNVarY());
  add_number("Components", model.GetA());
}

void PrintModel(const Model& model) {
  std::printf("\nModel\n");
  Describe(model, PrintText, PrintNumber);
}

void WriteModel(const Model& model, JsonWriter& json) {
  json.Key("Model");
  json.BeginObject();
  Describe(
      model,
      [&](const char* key, std::string_view text) { json.Text(key, PrintableFromCodePage(text)); },
      [&](const char* key, long long number) { json.Integer(key, number); });
  json.EndObject();
}

bool IsOfModel(const FileContents& contents) {
  return !contents.super_items.empty() &&
         contents.super_items.front().super_item.type == SuperItem::kModel;
}

int ShowInfo(const std::string& path, bool is_json) {
  if (!IsProjectFile(path) && IsTextFile(path)) {
    return Fail(path, std::string("is a text, no project file; convert, ") + kDataCommands +
                          " take tables");
  }
  StreamWindow discard;
  FileContents contents;
  const int listed = GetFileContents(path.c_str(), discard, contents);
  Dataset dataset("Info", path.c_str(), discard);
  std::unique_ptr<Model> model;
  int loaded = status::kOk;
  if (IsOfModel(contents)) {
    model.reset(Model::Read(path.c_str(), nullptr, discard, nullptr, loaded));
  } else {
    loaded = dataset.Load();
  }
  // What can be read is shown, also of a file that is damaged further on.
  const bool can_read = DioData::CanRead(contents.super_header.version);
  if (is_json) {
    JsonWriter json(stdout);
    json.BeginObject();
    json.Text("File", path);
    if (can_read) WriteContents(contents, json);
    if (model != nullptr) WriteModel(*model, json);
    if (dataset.IsLoaded()) WriteDataset(dataset, json);
    json.EndObject();
  } else {
    if (can_read) {
      std::printf("%-14s%s\n", "File", path.c_str());
      PrintSuperHeader(contents);
      PrintItems(contents);
    }
    if (model != nullptr) PrintModel(*model);
    if (dataset.IsLoaded()) PrintDataset(dataset);
  }
  if (listed != status::kOk) return Fail(path, listed);
  return loaded == status::kOk ? kDone : Fail(path, loaded);
}

}  // namespace

Run AddInfo(CLI::App& program) {
  CLI::App& line =
      AddCommand(program, "info", "What a project file holds.", "zemva info measured.vdo");
  struct InfoOptions {
    std::string file;
    bool is_json = false;
  };
  const auto options = std::make_shared<InfoOptions>();
  AddFile(line, "FILE", "the project file or model", options->file);
  AddFlag(line, "--json", "writes JSON", options->is_json);
  return [options] { return ShowInfo(options->file, options->is_json); };
}

}  // namespace zemva::tools
