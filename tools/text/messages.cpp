#include "text/messages.h"

#include <cstdio>

#include "zemva/errors/messages.h"

namespace zemva::tools {
namespace {

std::string StatusText(int status) {
  return std::string(GetVdoMsg(status)) + " (" + std::to_string(status) + ")";
}

}  // namespace

Failure::Failure(std::string_view what, std::string_view why)
    : runtime_error(std::string(what) + ": " + std::string(why)) {}

Failure::Failure(std::string_view what, int status) : Failure(what, StatusText(status)) {}

void Tell(std::string_view what, std::string_view message) {
  std::fprintf(stderr, "zemva: %.*s: %.*s\n", static_cast<int>(what.size()), what.data(),
               static_cast<int>(message.size()), message.data());
}

int Fail(std::string_view what, std::string_view why) {
  Tell(what, why);
  return kFailed;
}

int Fail(std::string_view what, int status) {
  return Fail(what, StatusText(status));
}

std::string Counted(long long count, std::string_view noun) {
  std::string text = std::to_string(count) + ' ' + std::string(noun);
  if (count != 1) text += 's';
  return text;
}

std::string Quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

}  // namespace zemva::tools
