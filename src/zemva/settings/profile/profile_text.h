// The text of a profile file, apart from any file.
#ifndef ZEMVA_SETTINGS_PROFILE_PROFILE_TEXT_H
#define ZEMVA_SETTINGS_PROFILE_PROFILE_TEXT_H

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "zemva/settings/profile/profile.h"

namespace zemva {

// The value less a trailing and leading quote, where it has one pair of them.
std::string_view Unquoted(std::string_view value);

// Whether a value that is written is read as it was; blanks and quotes around one are lost.
bool IsKeptAsItIs(std::string_view value);

// The value as an integer; see Profile::ReadInteger.
int IntegerOf(std::string_view value);

// Keeps the bytes as they are and edits only what a change names: comments, blank lines, line ends,
// the order and spelling of names, and lines without a meaning all stay. A line ends with \n, \r or
// both; a new one ends as the first of the text does. What stands before the first section is the
// section with the empty name. A mark that says that the text is UTF-8 is skipped.
class ProfileText {
 public:
  explicit ProfileText(std::string bytes);

  const std::string& GetBytes() const { return bytes_; }

  // UTF-16 is not understood: nothing is found in it, and it must not be edited.
  bool IsUtf16() const;

  // Null when there is none. Valid until the next edit.
  std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;
  std::vector<ProfileEntry> GetEntries(std::string_view section) const;

  // Makes the changes of a section, a key at most once, in one pass. To remove something, a name
  // must be given without blanks around it; else nothing is found.
  void Change(std::string_view section, std::span<const KeyChange> changes);
  void RemoveSection(std::string_view section);

 private:
  // Positions in the text: a line without its line end, and where the next line begins.
  struct Line {
    std::size_t begin;
    std::size_t end;
    std::size_t next;
  };
  // From the line with the name, to the first line behind it, to the next section.
  struct Section {
    std::size_t head;
    std::size_t body;
    std::size_t end;
  };
  struct Key {
    Line line;
    std::string_view name;
    std::optional<std::string_view> value;  // with its quotes; absent without "="
  };

  Line LineAt(std::size_t begin) const;
  std::string_view TextOf(const Line& line) const;
  Key KeyOf(const Line& line) const;
  std::optional<Section> FindSection(std::string_view name) const;
  std::optional<Key> FindKey(const Section& section, std::string_view name) const;
  std::string Changed(const Key& key, std::string_view value) const;
  std::string_view NewLineEnd() const;
  void InsertLines(std::size_t position, std::string_view lines);

  std::string bytes_;
  std::size_t start_;  // behind the mark
};

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_PROFILE_TEXT_H
