// The error objects of the storage layer.
//
// They are created on the heap and thrown by pointer; whoever catches one calls ShowMsg, keeps the
// status that it returns, and deletes the object. None leaves the storage layer.
#ifndef ZEMVA_ERRORS_DIO_ERROR_H
#define ZEMVA_ERRORS_DIO_ERROR_H

#include <array>
#include <string>
#include <string_view>

#include "zemva/base/export.h"

namespace zemva {

class ZEMVA_API BaseError {
 public:
  explicit BaseError(int status) : status_(static_cast<short>(status)) {}

  // Composes the message where the error class has one, shows nothing, and returns the status.
  // The first virtual operation.
  virtual int ShowMsg();
  virtual ~BaseError();

  int GetStatus() const { return status_; }

  // The message composed last; empty before the first.
  const char* GetMsg() const { return message_.data(); }

  // Composes the message of `text` and, unless the status is 0, a line with the status's text.
  const char* Merge(const char* text);

 protected:
  // Puts the texts together, cut where they do not fit.
  const char* Compose(const char* first, const char* second = "", const char* third = "");

 private:
  std::array<char, 256> message_ = {};
  short status_;
};

// The number of an error class. 0, 1, 2 and all above 6 compose the status's text; 3 and 4 nothing;
// 5 and 6 the class's own text from szMsg.
using ErrorCode = int;

inline constexpr ErrorCode kFileAccess = 0;   // opening a file, reading or writing its bytes
inline constexpr ErrorCode kWritingData = 2;  // writing a data set
inline constexpr ErrorCode kLoadingData = 3;  // the steps before a data set's body
inline constexpr ErrorCode kWritingObservations = 4;
inline constexpr ErrorCode kDataItem = 5;  // an item that a data set cannot have
inline constexpr ErrorCode kWritingVariables = 6;

inline constexpr int kErrorCodeCount = 7;

// The texts of an error class, one for each ErrorCode.
using ErrorTexts = std::array<const char*, kErrorCodeCount>;

inline constexpr ErrorTexts kEmptyErrorTexts = {"", "", "", "", "", "", ""};

class ZEMVA_API DioError : public BaseError {
 public:
  int ShowMsg() override;

  // The detail: the name of a field or an item, or what was tried.
  const char* GetText() const { return text_.c_str(); }
  ErrorCode GetErrorCode() const { return error_code_; }

  using BaseError::Merge;
  // Composes the message "<number>.", a line break and the status's storage text.
  const char* Merge(int number);

 protected:
  DioError(int status, ErrorCode error_code, std::string_view text, const ErrorTexts& class_texts)
      : BaseError(status), text_(text), error_code_(error_code), class_texts_(class_texts) {}

 private:
  std::string text_;
  ErrorCode error_code_;
  const ErrorTexts& class_texts_;
};

class ZEMVA_API DioFileError : public DioError {
 public:
  DioFileError(int status, ErrorCode error_code, std::string_view text)
      : DioError(status, error_code, text, szMsg) {}

  static constexpr const char* szEntry = "DioFile";
  static constexpr const ErrorTexts& szMsg = kEmptyErrorTexts;
};

class ZEMVA_API DioItemError : public DioError {
 public:
  DioItemError(int status, ErrorCode error_code) : DioError(status, error_code, "", szMsg) {}

  static constexpr const char* szEntry = "DioItem";
  static constexpr const ErrorTexts& szMsg = kEmptyErrorTexts;
};

class ZEMVA_API DioDataError : public DioError {
 public:
  DioDataError(int status, ErrorCode error_code, std::string_view text)
      : DioError(status, error_code, text, szMsg) {}

  static constexpr const char* szEntry = "DioData";
  static constexpr const ErrorTexts& szMsg = kEmptyErrorTexts;
};

class ZEMVA_API DioWorksetError : public DioError {
 public:
  DioWorksetError(int status, ErrorCode error_code, std::string_view text)
      : DioError(status, error_code, text, szMsg) {}

  static constexpr const char* szEntry = "DioData";
  static constexpr const ErrorTexts& szMsg = kEmptyErrorTexts;
};

class ZEMVA_API DioModelError : public DioError {
 public:
  DioModelError(int status, ErrorCode error_code, std::string_view text)
      : DioError(status, error_code, text, szMsg) {}

  static constexpr const char* szEntry = "DioModel";
  static constexpr const ErrorTexts& szMsg = kEmptyErrorTexts;
};

class ZEMVA_API DioLibError : public DioError {
 public:
  DioLibError(int status, ErrorCode error_code, std::string_view text)
      : DioError(status, error_code, text, szMsg) {}

  static constexpr const char* szEntry = "DioData";
  static constexpr const ErrorTexts& szMsg = kEmptyErrorTexts;
};

}  // namespace zemva

#endif  // ZEMVA_ERRORS_DIO_ERROR_H
