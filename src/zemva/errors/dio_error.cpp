#include "zemva/errors/dio_error.h"

#include <cstdio>

#include "zemva/errors/messages.h"
#include "zemva/errors/status.h"

namespace zemva {

BaseError::~BaseError() = default;

int BaseError::ShowMsg() {
  Compose(GetVdoMsg(status_));
  return status_;
}

const char* BaseError::Merge(const char* text) {
  const char* detail = text == nullptr ? "" : text;
  return status_ == status::kOk ? Compose(detail) : Compose(detail, "\n", GetVdoMsg(status_));
}

const char* BaseError::Compose(const char* first, const char* second, const char* third) {
  std::snprintf(message_.data(), message_.size(), "%s%s%s", first, second, third);
  return message_.data();
}

int DioError::ShowMsg() {
  switch (error_code_) {
    case kLoadingData:
    case kWritingObservations:
      break;
    case kDataItem:
    case kWritingVariables:
      Merge(class_texts_[static_cast<std::size_t>(error_code_)]);
      break;
    default:
      Compose(GetDIOMsg(GetStatus()));
  }
  return GetStatus();
}

const char* DioError::Merge(int number) {
  std::array<char, 16> digits;
  std::snprintf(digits.data(), digits.size(), "%d", number);
  return Compose(digits.data(), ".\n", GetDIOMsg(GetStatus()));
}

}  // namespace zemva
