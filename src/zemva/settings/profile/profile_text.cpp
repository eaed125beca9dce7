#include "zemva/settings/profile/profile_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <set>
#include <utility>

#include "zemva/settings/profile/text.h"

namespace zemva {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
// The end-of-file character of old editors counts as a blank.
constexpr std::string_view kBlanks = " \t\v\f\r\n\x1A";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsTrimmed(std::string_view text) {
  return Trimmed(text).size() == text.size();
}

// A name or value ends at a zero byte inside it.
std::string_view UpToZero(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

std::optional<std::string_view> SectionName(std::string_view line) {
  const std::string_view text = Trimmed(line);
  if (!text.starts_with('[')) return std::nullopt;
  const std::size_t close = text.rfind(']');
  if (close == std::string_view::npos) return std::nullopt;
  return Trimmed(UpToZero(text.substr(1, close - 1)));
}

}  // namespace

std::string_view Unquoted(std::string_view value) {
  if (value.size() < 2 || value.front() != value.back()) return value;
  if (value.front() != '"' && value.front() != '\'') return value;
  return value.substr(1, value.size() - 2);
}

bool IsKeptAsItIs(std::string_view value) {
  return IsTrimmed(value) && Unquoted(value).size() == value.size();
}

int IntegerOf(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool is_negative = text.starts_with('-');
  if (is_negative || text.starts_with('+')) text.remove_prefix(1);
  constexpr std::array<std::pair<std::string_view, unsigned>, 3> kPrefixes = {
      {{"0x", 16}, {"0o", 8}, {"0b", 2}}};
  unsigned base = 10;
  for (const auto& [prefix, prefix_base] : kPrefixes) {
    if (!text.starts_with(prefix)) continue;
    base = prefix_base;
    text.remove_prefix(prefix.size());
    break;
  }
  std::uint32_t value = 0;
  for (const char& character : text) {
    unsigned digit = base;
    std::from_chars(&character, &character + 1, digit, static_cast<int>(base));
    if (digit == base) break;
    value = value * base + digit;
  }
  return static_cast<int>(is_negative ? 0 - value : value);
}

ProfileText::ProfileText(std::string bytes)
    : bytes_(std::move(bytes)), start_(bytes_.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0) {}

bool ProfileText::IsUtf16() const {
  return bytes_.starts_with("\xFF\xFE") || bytes_.starts_with("\xFE\xFF");
}

std::optional<std::string_view> ProfileText::Find(std::string_view section,
                                                  std::string_view key) const {
  const auto where = FindSection(section);
  if (!where) return std::nullopt;
  const auto found = FindKey(*where, key);
  if (!found || !found->value) return std::nullopt;
  return UpToZero(Unquoted(*found->value));
}

std::vector<ProfileEntry> ProfileText::GetEntries(std::string_view section) const {
  std::vector<ProfileEntry> entries;
  std::set<std::string_view, LessIgnoringCase> names;
  const auto where = FindSection(section);
  if (!where) return entries;
  for (std::size_t at = where->body; at < where->end;) {
    const Key key = KeyOf(LineAt(at));
    const bool is_blank_line = Trimmed(TextOf(key.line)).empty();
    if (!is_blank_line && names.insert(key.name).second && key.value) {
      entries.push_back({std::string(key.name), std::string(UpToZero(Unquoted(*key.value)))});
    }
    at = key.line.next;
  }
  return entries;
}

void ProfileText::Change(std::string_view section, std::span<const KeyChange> changes) {
  std::map<std::string_view, const KeyChange*, LessIgnoringCase> pending;
  for (const KeyChange& change : changes) {
    const bool is_findable = change.value || (IsTrimmed(section) && IsTrimmed(change.key));
    if (is_findable) pending.insert_or_assign(Trimmed(change.key), &change);
  }
  const auto where = FindSection(section);
  std::string body;
  // Behind the last line that is not blank, so that blank lines go on parting sections.
  std::size_t end_of_content = 0;
  for (std::size_t at = where ? where->body : bytes_.size(); where && at < where->end;) {
    const Key key = KeyOf(LineAt(at));
    at = key.line.next;
    const std::string_view whole_line =
        std::string_view(bytes_).substr(key.line.begin, key.line.next - key.line.begin);
    if (Trimmed(whole_line).empty()) {
      body += whole_line;
      continue;
    }
    const auto change = pending.find(key.name);
    if (change == pending.end()) {
      body += whole_line;
    } else {
      if (change->second->value) body += Changed(key, *change->second->value);
      pending.erase(change);
    }
    end_of_content = body.size();
  }
  if (where) bytes_.replace(where->body, where->end - where->body, body);

  const std::string line_end(NewLineEnd());
  std::string lines;
  for (const KeyChange& change : changes) {
    const std::string_view name = Trimmed(change.key);
    const auto left = pending.find(name);
    if (left == pending.end() || left->second != &change || !change.value) continue;
    if (!lines.empty()) lines += line_end;
    lines.append(name).append("=").append(*change.value);
  }
  if (lines.empty()) return;
  if (where) {
    InsertLines(where->body + end_of_content, lines);
  } else {
    InsertLines(bytes_.size(),
                std::string("[").append(Trimmed(section)).append("]").append(line_end) + lines);
  }
}

void ProfileText::RemoveSection(std::string_view section) {
  if (!IsTrimmed(section)) return;
  if (const auto where = FindSection(section)) bytes_.erase(where->head, where->end - where->head);
}

ProfileText::Line ProfileText::LineAt(std::size_t begin) const {
  std::size_t end = begin;
  while (end < bytes_.size() && bytes_[end] != '\n' && bytes_[end] != '\r') ++end;
  std::size_t next = std::min(end + 1, bytes_.size());
  if (next < bytes_.size() && bytes_[end] == '\r' && bytes_[next] == '\n') ++next;
  return {begin, end, next};
}

std::string_view ProfileText::TextOf(const Line& line) const {
  return std::string_view(bytes_).substr(line.begin, line.end - line.begin);
}

ProfileText::Key ProfileText::KeyOf(const Line& line) const {
  const std::string_view text = TextOf(line);
  const std::size_t equals = text.find('=');
  Key key = {line, UpToZero(Trimmed(text.substr(0, equals))), std::nullopt};
  if (equals != std::string_view::npos) key.value = Trimmed(text.substr(equals + 1));
  return key;
}

std::optional<ProfileText::Section> ProfileText::FindSection(std::string_view name) const {
  if (IsUtf16()) return std::nullopt;
  const std::string_view wanted = Trimmed(name);
  std::optional<Section> found;
  if (wanted.empty()) found = {start_, start_, bytes_.size()};
  for (std::size_t at = start_; at < bytes_.size();) {
    const Line line = LineAt(at);
    at = line.next;
    const auto section_name = SectionName(TextOf(line));
    if (!section_name) continue;
    if (found) {
      found->end = line.begin;
      break;
    }
    if (IsSameIgnoringCase(*section_name, wanted)) found = {line.begin, line.next, bytes_.size()};
  }
  return found;
}

std::optional<ProfileText::Key> ProfileText::FindKey(const Section& section,
                                                     std::string_view name) const {
  const std::string_view wanted = Trimmed(name);
  for (std::size_t at = section.body; at < section.end;) {
    const Key key = KeyOf(LineAt(at));
    const bool is_blank_line = Trimmed(TextOf(key.line)).empty();
    if (!is_blank_line && IsSameIgnoringCase(key.name, wanted)) return key;
    at = key.line.next;
  }
  return std::nullopt;
}

// The line of a key with another value, and with all that is not the value as it was.
std::string ProfileText::Changed(const Key& key, std::string_view value) const {
  const std::string_view bytes = bytes_;
  const std::string_view line_end = bytes.substr(key.line.end, key.line.next - key.line.end);
  std::string line;
  if (key.value) {
    const auto begin = static_cast<std::size_t>(key.value->data() - bytes.data());
    line = bytes.substr(key.line.begin, begin - key.line.begin);
  } else {
    line = std::string(key.name).append("=");
  }
  return line.append(value).append(line_end);
}

std::string_view ProfileText::NewLineEnd() const {
  const Line first = LineAt(start_);
  if (first.end == first.next) return "\n";
  return std::string_view(bytes_).substr(first.end, first.next - first.end);
}

void ProfileText::InsertLines(std::size_t position, std::string_view lines) {
  const std::string line_end(NewLineEnd());
  std::string inserted = std::string(lines).append(line_end);
  const bool is_after_open_line =
      position > start_ && bytes_[position - 1] != '\n' && bytes_[position - 1] != '\r';
  if (is_after_open_line) inserted.insert(0, line_end);
  bytes_.insert(position, inserted);
}

}  // namespace zemva
