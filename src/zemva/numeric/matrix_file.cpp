#include "zemva/numeric/matrix_file.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <new>
#include <optional>

#include "zemva/base/atomic_file.h"
#include "zemva/base/native_path.h"
#include "zemva/numeric/missing.h"

namespace zemva {
namespace {

constexpr std::string_view kTag = "zemva matrix";
constexpr std::string_view kMissingText = ".";
constexpr std::string_view kBlanks = " \t\r\n";

// Takes the next word off the text; empty at its end.
std::string_view TakeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text.remove_prefix(word.size());
  return word;
}

template <typename Number>
std::optional<Number> ParseNumber(std::string_view word) {
  Number number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  const bool is_whole = end == word.data() + word.size();
  return error == std::errc() && is_whole ? std::optional(number) : std::nullopt;
}

// Every value takes a character and, but for the last, a blank.
bool CanHold(std::string_view text, int row_count, int column_count) {
  if (row_count < 0 || column_count < 0) return false;
  const std::int64_t value_count = std::int64_t{row_count} * column_count;
  return value_count <= static_cast<std::int64_t>(text.size() / 2) + 1 &&
         row_count <= static_cast<std::int64_t>(text.size()) + 1;
}

std::optional<std::string> ReadText(const char* path) {
  std::ifstream file(NativePath(path), std::ios::binary);
  if (!file) return std::nullopt;
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return file.bad() ? std::nullopt : std::optional(std::move(text));
}

}  // namespace

std::string FormatMatrix(const FMatrix& matrix) {
  std::string text(kTag);
  text += ' ' + std::to_string(matrix.NRow()) + ' ' + std::to_string(matrix.NCol()) + '\n';
  for (int i = 1; i <= matrix.NRow(); ++i) {
    std::string_view separator;
    for (const float value : matrix.Row(i)) {
      text += separator;
      separator = " ";
      if (IsMissing(value)) {
        text += kMissingText;
        continue;
      }
      std::array<char, 32> digits;
      const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
      text.append(digits.data(), end);
    }
    text += '\n';
  }
  return text;
}

int ParseMatrix(std::string_view text, FMatrix& matrix) {
  if (!text.starts_with(kTag)) return status::mat::kOther;
  text.remove_prefix(kTag.size());
  const auto row_count = ParseNumber<int>(TakeWord(text));
  const auto column_count = ParseNumber<int>(TakeWord(text));
  if (!row_count || !column_count || !CanHold(text, *row_count, *column_count)) {
    return status::mat::kOther;
  }
  FMatrix read(*row_count, *column_count, kMissing);
  if (read.GetStatus() != status::kOk) return read.GetStatus();
  for (int i = 1; i <= read.NRow(); ++i) {
    for (float& element : read.Row(i)) {
      const std::string_view word = TakeWord(text);
      if (word == kMissingText) continue;
      const auto number = ParseNumber<float>(word);
      if (!number) return status::mat::kOther;
      element = *number;
    }
  }
  if (!TakeWord(text).empty()) return status::mat::kOther;
  matrix = read;
  return matrix.NRow() == read.NRow() && matrix.NCol() == read.NCol() ? status::kOk
                                                                      : status::mat::kMemory;
}

int FMatrix::Read(const char* path) {
  if (path == nullptr) return Report(status::mat::kNullPointer);
  try {
    const std::optional<std::string> text = ReadText(path);
    return Report(text ? ParseMatrix(*text, *this) : status::mat::kOther);
  } catch (const std::bad_alloc&) {
    return Report(status::mat::kMemory);
  }
}

int FMatrix::Write(const char* path) const {
  if (path == nullptr) return Report(status::mat::kNullPointer);
  try {
    const std::string text = FormatMatrix(*this);
    AtomicFile file(path);
    if (file.GetStream() == nullptr) return Report(status::mat::kOther);
    std::fwrite(text.data(), 1, text.size(), file.GetStream());
    return Report(file.Commit() ? status::kOk : status::mat::kOther);
  } catch (const std::bad_alloc&) {
    return Report(status::mat::kMemory);
  }
}

}  // namespace zemva
