// What the program says beside its results: a line each on standard error, and its exit status.
#ifndef ZEMVA_TOOLS_TEXT_MESSAGES_H
#define ZEMVA_TOOLS_TEXT_MESSAGES_H

#include <stdexcept>
#include <string>
#include <string_view>

namespace zemva::tools {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

// Something that cannot be done, and why.
class Failure : public std::runtime_error {
 public:
  Failure(std::string_view what, std::string_view why);
  // For a status code: its text and number.
  Failure(std::string_view what, int status);
};

// Arguments that mean nothing, and why.
class UsageError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

// Says something of a file, of an option, or of what was changed on the way.
void Tell(std::string_view what, std::string_view message);

// Says what failed, and returns kFailed.
int Fail(std::string_view what, std::string_view why);
// The same for a status code, with its text and number.
int Fail(std::string_view what, int status);

// "1 component", "2 components".
std::string Counted(long long count, std::string_view noun);

// Between quotes.
std::string Quoted(std::string_view text);

}  // namespace zemva::tools

#endif  // ZEMVA_TOOLS_TEXT_MESSAGES_H
