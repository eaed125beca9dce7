#include "text/near_word.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

namespace zemva::tools {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// How many letters are to be changed, added and removed to make one word of the other
// (V. I. Levenshtein, Binary codes capable of correcting deletions, insertions, and reversals,
// Soviet Physics Doklady 10 (1966) 707-710), whatever their case.
std::size_t Distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t changed = diagonal + (Lower(one[i - 1]) == Lower(other[j - 1]) ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({changed, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string Suggestion(std::string_view wrong, std::span<const std::string> words) {
  constexpr std::size_t kLongestCompared = 100;
  if (wrong.empty() || wrong.size() > kLongestCompared) return {};
  const std::string* nearest = nullptr;
  std::size_t least = std::min(std::max<std::size_t>(2, wrong.size() / 3), wrong.size() - 1) + 1;
  for (const std::string& word : words) {
    const std::size_t distance = word.starts_with(wrong) ? 0 : Distance(wrong, word);
    if (distance < least) {
      least = distance;
      nearest = &word;
    }
  }
  if (nearest == nullptr) return {};
  return ": did you mean '" + *nearest + "'?";
}

}  // namespace zemva::tools
