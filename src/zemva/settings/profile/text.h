// Texts as the settings hold them: numbers in decimal, names without regard to case.
#ifndef ZEMVA_SETTINGS_PROFILE_TEXT_H
#define ZEMVA_SETTINGS_PROFILE_TEXT_H

#include <optional>
#include <string>
#include <string_view>

namespace zemva {

inline std::string_view ViewOf(const char* text) {
  return text != nullptr ? std::string_view(text) : std::string_view();
}

// Only the letters A to Z have a case, whatever the encoding.
bool IsSameIgnoringCase(std::string_view a, std::string_view b);
struct LessIgnoringCase {
  bool operator()(std::string_view a, std::string_view b) const;
};

// The number at the begin of a text, behind blanks; 0 when there is none. What is too large is the
// largest number of its sign; a real number that is too small is 0.
int LeadingInteger(std::string_view text);
double LeadingReal(std::string_view text);

// The number that a text is, but for blanks around it: a sign and decimal digits, or one of the
// usual decimal forms of a real number. Null for anything else and for a number that is too
// large.
std::optional<int> ParseInteger(std::string_view text);
std::optional<double> ParseReal(std::string_view text);

// printf's %g with a decimal point.
std::string FormatReal(double value);
// The shortest text that is exactly this number.
std::string FormatShortest(double value);

}  // namespace zemva

#endif  // ZEMVA_SETTINGS_PROFILE_TEXT_H
