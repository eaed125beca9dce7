// What is in a file: its headers and items, and a summary of what they make up.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "arguments/command_line.h"
#include "commands/commands.h"
#include "csv/csv_file.h"
#include "text/code_page.h"
#include "text/json_writer.h"
#include "zemva/data/dataset.h"
#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/file_contents.h"
#include "zemva/dio/model/dio_predset.h"
#include "zemva/dio/model/dio_workset.h"
#include "zemva/errors/status.h"
#include "zemva/errors/stream_window.h"
#include "zemva/model/driver/model.h"
#include "zemva/model/workset/workset.h"
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

// --- What there is to say of what a file holds, in its order ---

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

template <typename AddText, typename AddNumber>
void Describe(const WorksetRecord& workset, AddText add_text, AddNumber add_number) {
  const auto count = [](const auto& table) { return table == nullptr ? 0 : table->GetNItm(); };
  const auto count_roles = [&](EVarRole role) {
    return std::ranges::count(workset.roles, static_cast<char>(role));
  };
  const std::set<char> classes(workset.classes.begin(), workset.classes.end());
  add_text("Name", workset.name.View());
  add_text("Data set", workset.dataset_name.View());
  add_number("Observations", std::ranges::count(workset.members, char{1}));
  add_number("Of data set", std::ssize(workset.members));
  add_number("Classes", std::ssize(classes) - (classes.contains(0) ? 1 : 0));
  add_number("X variables", count_roles(EVarRole::kX));
  add_number("Y variables", count_roles(EVarRole::kY));
  add_number("Excluded", count_roles(EVarRole::kExcluded));
  add_number("Lagged", count(workset.lags));
  add_number("Terms", count(workset.terms));
  add_number("Transformed", count(workset.transformations));
}

template <typename AddText, typename AddNumber>
void Describe(const PredsetRecord& predset, AddText add_text, AddNumber add_number) {
  add_text("Name", predset.name.View());
  add_number("Observations", std::ranges::count(predset.members, char{1}));
  add_number("Of data set", std::ssize(predset.members));
}

template <typename Object>
void Print(const char* kind, const Object& object) {
  std::printf("\n%s\n", kind);
  Describe(object, PrintText, PrintNumber);
}

template <typename Object>
void Write(const char* kind, const Object& object, JsonWriter& json) {
  json.Key(kind);
  json.BeginObject();
  Describe(
      object,
      [&](const char* key, std::string_view text) { json.Text(key, PrintableFromCodePage(text)); },
      [&](const char* key, long long number) { json.Integer(key, number); });
  json.EndObject();
}

// The first super item of a file, as far as it can be read.
struct Held {
  Held(const std::string& path, const FileContents& contents)
      : dataset("Info", path.c_str(), discard) {
    const auto kind = contents.super_items.empty() ? SuperItem::kData
                                                   : contents.super_items.front().super_item.type;
    if (kind == SuperItem::kModel) {
      model.reset(Model::Read(path.c_str(), nullptr, discard, nullptr, status));
    } else if (kind == SuperItem::kWorkset) {
      status = DioWorkset(path.c_str(), discard).Load(workset.emplace());
      if (status != status::kOk) workset.reset();
    } else if (kind == SuperItem::kExecution) {
      status = DioPredset(path.c_str(), discard).Load(predset.emplace());
      if (status != status::kOk) predset.reset();
    } else {
      status = dataset.Load();
    }
  }

  StreamWindow discard;
  Dataset dataset;
  std::unique_ptr<Model> model;
  std::optional<WorksetRecord> workset;
  std::optional<PredsetRecord> predset;
  int status = status::kOk;
};

int ShowInfo(const std::string& path, bool is_json) {
  if (!IsProjectFile(path) && IsTextFile(path)) {
    return Fail(path, std::string("is a text, no project file; convert, ") + kDataCommands +
                          " take tables");
  }
  StreamWindow discard;
  FileContents contents;
  const int listed = GetFileContents(path.c_str(), discard, contents);
  Held held(path, contents);
  // What can be read is shown, also of a file that is damaged further on.
  const bool can_read = DioData::CanRead(contents.super_header.version);
  if (is_json) {
    JsonWriter json(stdout);
    json.BeginObject();
    json.Text("File", path);
    if (can_read) WriteContents(contents, json);
    if (held.model != nullptr) Write("Model", *held.model, json);
    if (held.workset) Write("Work set", *held.workset, json);
    if (held.predset) Write("Prediction set", *held.predset, json);
    if (held.dataset.IsLoaded()) WriteDataset(held.dataset, json);
    json.EndObject();
  } else {
    if (can_read) {
      std::printf("%-14s%s\n", "File", path.c_str());
      PrintSuperHeader(contents);
      PrintItems(contents);
    }
    if (held.model != nullptr) Print("Model", *held.model);
    if (held.workset) Print("Work set", *held.workset);
    if (held.predset) Print("Prediction set", *held.predset);
    if (held.dataset.IsLoaded()) PrintDataset(held.dataset);
  }
  if (listed != status::kOk) return Fail(path, listed);
  return held.status == status::kOk ? kDone : Fail(path, held.status);
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
  AddFile(line, "FILE", "a data set, model, work set or prediction set", options->file);
  AddFlag(line, "--json", "writes JSON", options->is_json);
  return [options] { return ShowInfo(options->file, options->is_json); };
}

}  // namespace zemva::tools
