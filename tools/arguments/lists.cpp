#include "arguments/lists.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

#include "text/code_page.h"
#include "text/messages.h"

namespace zemva::tools {
namespace {

// Takes a whole number off the start of a text.
std::optional<short> TakeNumber(std::string_view& text) {
  short number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

// Takes what stands between quotes, or before the separator, off the start of a text. False where
// quotes are not closed, or something stands behind them.
bool TakePart(std::string_view& text, char separator, std::string& part) {
  part.clear();
  if (!text.starts_with('"')) {
    const std::size_t end = text.find(separator);
    part = text.substr(0, end);
    text.remove_prefix(part.size());
    return true;
  }
  text.remove_prefix(1);
  while (true) {
    const std::size_t end = text.find('"');
    if (end == std::string_view::npos) return false;
    part += text.substr(0, end);
    text.remove_prefix(end + 1);
    if (!text.starts_with('"')) break;
    part += '"';
    text.remove_prefix(1);
  }
  return text.empty() || text.front() == separator;
}

std::string InCodePage(std::string_view option, std::string_view name) {
  if (name.empty()) Refuse(option, "a name is empty");
  std::size_t lost = 0;
  std::string text = CodePageFromArgument(name, lost);
  if (lost != 0) Refuse(option, "there is no variable " + Quoted(name));
  return text;
}

NumberRange ParseRange(std::string_view option, std::string_view text) {
  std::string_view rest = text;
  const std::optional<short> first = TakeNumber(rest);
  std::optional<short> last = first;
  if (rest.starts_with('-')) {
    rest.remove_prefix(1);
    last = TakeNumber(rest);
  }
  if (!first || !last || !rest.empty() || *first > *last) {
    Refuse(option, Quoted(text) + " is no number of an observation, and no range of them");
  }
  return {*first, *last};
}

}  // namespace

void Refuse(std::string_view subject, std::string_view fault) {
  throw UsageError(std::string(subject) + ": " + std::string(fault));
}

short ParseWithin(std::string_view option, std::string_view text, short least, short most) {
  std::string_view rest = text;
  const std::optional<short> number = TakeNumber(rest);
  if (!number || !rest.empty() || *number < least || *number > most) {
    Refuse(option, Quoted(text) + " is not a whole number from " + std::to_string(least) + " to " +
                       std::to_string(most));
  }
  return *number;
}

std::vector<std::string> ParseList(std::string_view option, std::string_view text, char separator) {
  const std::string_view whole = text;
  std::vector<std::string> parts;
  while (true) {
    if (!TakePart(text, separator, parts.emplace_back())) {
      Refuse(option, "quotes around a name are not closed in " + Quoted(whole));
    }
    if (text.empty()) return parts;
    text.remove_prefix(1);
  }
}

std::vector<float> ParseReals(std::string_view option, std::string_view text) {
  std::vector<float> numbers;
  for (const std::string& part : ParseList(option, text, ',')) {
    const char* const end = part.data() + part.size();
    const auto result = std::from_chars(part.data(), end, numbers.emplace_back());
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(numbers.back())) {
      Refuse(option, Quoted(part) + " is not a number");
    }
  }
  return numbers;
}

std::vector<std::string> ParseNames(std::string_view option, std::string_view text,
                                    char separator) {
  std::vector<std::string> names = ParseList(option, text, separator);
  for (std::string& name : names) name = InCodePage(option, name);
  return names;
}

std::vector<NumberRange> ParseRanges(std::string_view option, std::string_view text) {
  std::vector<NumberRange> ranges;
  for (const std::string& part : ParseList(option, text, ',')) {
    ranges.push_back(ParseRange(option, part));
  }
  return ranges;
}

std::pair<std::string, std::string> ParseAssignment(std::string_view option, std::string_view text,
                                                    std::string_view form) {
  std::string name;
  std::string_view rest = text;
  if (text.starts_with('"')) {
    if (!TakePart(rest, '=', name)) Refuse(option, Quoted(text) + " is not " + std::string(form));
  } else {
    rest.remove_prefix(std::min(rest.rfind('='), rest.size()));
    name = text.substr(0, text.size() - rest.size());
  }
  if (rest.empty()) Refuse(option, Quoted(text) + " is not " + std::string(form));
  return {InCodePage(option, name), std::string(rest.substr(1))};
}

}  // namespace zemva::tools
