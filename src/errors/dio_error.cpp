#include "errors/dio_error.h"

#include <string>

#include "base/fixed_text.h"
#include "errors/messages.h"
#include "errors/status.h"

namespace zemva {

BaseError::~BaseError() = default;

int BaseError::ShowMsg() {
  Compose(GetVdoMsg(status_));
  return status_;
}

const char* BaseError::Merge(const char* text) {
  const std::string detail = text == nullptr ? "" : text;
  return Compose(status_ == status::kOk ? detail : detail + '\n' + GetVdoMsg(status_));
}

const char* BaseError::Compose(const std::string& text) {
  CopyText(message_.data(), message_.size(), text.c_str());
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
  return Compose(std::to_string(number) + ".\n" + GetDIOMsg(GetStatus()));
}

}  // namespace zemva
