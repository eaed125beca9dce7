#include "arguments/help_text.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace zemva::tools {
namespace {

constexpr std::size_t kWidth = 96;

// What stands around the commands of a line.
std::string FullName(const CLI::App& line) {
  const CLI::App* parent = line.get_parent();
  return parent == nullptr ? line.get_name() : FullName(*parent) + ' ' + line.get_name();
}

HelpEntry EntryOf(const CLI::Option& option) {
  std::string head = option.get_positional() ? option.get_name(true) : option.get_name(false, true);
  std::replace(head.begin(), head.end(), ',', ' ');
  const bool has_value = !option.get_positional() && option.get_expected_max() > 0;
  if (has_value) head += ' ' + option.get_type_name();
  std::string text = option.get_description();
  if (!option.get_default_str().empty()) text += " (" + option.get_default_str() + ")";
  return {head, text};
}

std::vector<HelpEntry> EntriesOf(const CLI::App& line, bool is_positional) {
  std::vector<HelpEntry> entries;
  for (const CLI::Option* option : line.get_options()) {
    if (option->get_positional() == is_positional) entries.push_back(EntryOf(*option));
  }
  return entries;
}

// A text in lines that are indented but for the first.
std::string Wrapped(std::string_view text, std::size_t indent) {
  std::string lines;
  while (text.size() > kWidth - indent) {
    std::size_t end = text.rfind(' ', kWidth - indent);
    if (end == std::string_view::npos) end = text.size();
    lines.append(text.substr(0, end)).append("\n").append(indent, ' ');
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines.append(text).append("\n");
}

std::string ListOf(std::string_view title, const std::vector<HelpEntry>& entries) {
  constexpr std::size_t kWidestHead = 22;
  if (entries.empty()) return {};
  std::string list = '\n' + std::string(title) + ":\n";
  for (const HelpEntry& entry : entries) {
    list += "  " + entry.head;
    const bool is_too_wide = entry.head.size() > kWidestHead;
    list += is_too_wide ? '\n' + std::string(kWidestHead + 4, ' ')
                        : std::string(kWidestHead + 2 - entry.head.size(), ' ');
    list += Wrapped(entry.text, kWidestHead + 4);
  }
  return list;
}

}  // namespace

std::string UsageOf(const CLI::App& line) {
  std::string usage = "usage: " + FullName(line);
  const bool has_commands = !line.get_subcommands(nullptr).empty();
  if (has_commands) usage += line.get_require_subcommand_min() > 0 ? " COMMAND" : " [COMMAND]";
  for (const CLI::Option* option : line.get_options()) {
    if (!option->get_positional()) continue;
    const std::string name = option->get_name(true);
    usage += option->get_required() ? ' ' + name : " [" + name + ']';
  }
  return usage + " [options]\n";
}

std::vector<HelpEntry> EntriesOf(const CLI::App& line) {
  std::vector<HelpEntry> entries = EntriesOf(line, true);
  const std::vector<HelpEntry> options = EntriesOf(line, false);
  entries.insert(entries.end(), options.begin(), options.end());
  return entries;
}

std::string HelpOf(const CLI::App& line) {
  std::vector<HelpEntry> commands;
  for (const CLI::App* command : line.get_subcommands(nullptr)) {
    commands.push_back({command->get_name(), command->get_description()});
  }
  std::string help = UsageOf(line) + '\n' + Wrapped(line.get_description(), 0);
  help += ListOf("commands", commands) + ListOf("files and words", EntriesOf(line, true));
  help += ListOf("options", EntriesOf(line, false));
  if (!line.get_footer().empty()) help += "\nexample: " + line.get_footer() + '\n';
  return help;
}

}  // namespace zemva::tools
