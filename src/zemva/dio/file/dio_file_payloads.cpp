#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "zemva/dio/dataset/dio_data.h"
#include "zemva/dio/file/dio_file.h"
#include "zemva/errors/dio_error.h"
#include "zemva/errors/status.h"

namespace zemva {
namespace {

// The next byte of the stream. A stream belongs to one thread, and a lock for each byte would cost
// more than the byte.
int NextByte(std::FILE* stream) {
#if defined(_WIN32)
  return std::getc(stream);
#else
  return getc_unlocked(stream);
#endif
}

constexpr int kMostElements = std::numeric_limits<std::int16_t>::max();  // of a dimension
constexpr int kMatrixHeaderSize = ItemHeader::kFixedSize + 2 * sizeof(std::int16_t);

}  // namespace

bool DioFile::Read(void* buffer, std::size_t size) {
  return stream_ != nullptr && std::fread(buffer, 1, size, stream_) == size;
}

// Whether the open file still holds `count` elements of that size.
bool DioFile::Promises(std::int64_t count, std::size_t element_size) const {
  return count >= 0 && count <= GetRemaining() / static_cast<std::int64_t>(element_size);
}

int DioFile::GetNBytes(void* buffer, int count) {
  return count >= 0 && Read(buffer, static_cast<std::size_t>(count)) ? status::kOk
                                                                     : status::dio::kReadError;
}

int DioFile::WriteBlock(const void* buffer, int count) {
  if (stream_ == nullptr || count < 0) return status::dio::kWriteError;
  const auto size = static_cast<std::size_t>(count);
  return std::fwrite(buffer, 1, size, stream_) == size ? status::kOk : status::dio::kWriteError;
}

int DioFile::GetI1(char& value) {
  return GetNBytes(&value, sizeof value);
}
int DioFile::WriteI1(char value) {
  return WriteBlock(&value, sizeof value);
}
int DioFile::GetI2(short& value) {
  return GetNBytes(&value, sizeof value);
}
int DioFile::WriteI2(short value) {
  return WriteBlock(&value, sizeof value);
}
int DioFile::GetF4(float& value) {
  return GetNBytes(&value, sizeof value);
}
int DioFile::WriteF4(float value) {
  return WriteBlock(&value, sizeof value);
}

template <class Element>
int DioFile::ReadElements(Element*& values, int n) {
  if (!Promises(n, sizeof(Element))) return status::dio::kReadError;
  const auto count = static_cast<std::size_t>(n);
  std::unique_ptr<Element[]> made;
  if (values == nullptr) {
    made.reset(new (std::nothrow) Element[count + 1]);
    if (!made) return status::dio::kMemory;
    made[0] = Element{0};
  }
  Element* elements = made ? made.get() : values;
  if (!Read(elements + 1, count * sizeof(Element))) return status::dio::kReadError;
  if (made) values = made.release();  // the caller's from here on
  return status::kOk;
}

int DioFile::GetVI1(char*& values, int n) {
  return ReadElements(values, n);
}
int DioFile::GetVI2(short*& values, int n) {
  return ReadElements(values, n);
}

int DioFile::GetVF4(float*& values, int n) {
  const int status = ReadElements(values, n);
  if (status == status::dio::kReadError) throw new DioFileError(status, kFileAccess, "");
  return status;
}

int DioFile::WriteVI1(const char* values, int n) {
  return WriteBlock(values + 1, n);
}
int DioFile::WriteVI2(const short* values, int n) {
  return WriteBlock(values + 1, n * static_cast<int>(sizeof *values));
}
int DioFile::WriteVF4(const float* values, int n) {
  return WriteBlock(values + 1, n * static_cast<int>(sizeof *values));
}

int DioFile::GetZString(char* buffer, int max_length) {
  if (stream_ == nullptr || max_length < 1) return status::dio::kReadError;
  for (int i = 0; i < max_length; ++i) {
    const int byte = NextByte(stream_);
    if (byte == EOF) {
      buffer[i] = '\0';
      return status::dio::kReadError;
    }
    buffer[i] = static_cast<char>(byte);
    if (byte == 0) return status::kOk;
  }
  buffer[max_length - 1] = '\0';
  return status::kOk;
}

int DioFile::WriteZString(const char* text) {
  return WriteBlock(text, static_cast<int>(std::strlen(text)) + 1);
}

int DioFile::GetZStrings(char**& texts, int count, int max_length) {
  texts = nullptr;
  if (max_length < 1 || !Promises(count, 1)) return status::dio::kReadError;
  try {
    const auto rows = static_cast<std::size_t>(count);
    std::vector<char> scratch(static_cast<std::size_t>(max_length));
    std::vector<std::unique_ptr<char[]>> read(rows);
    for (auto& text : read) {
      if (const int status = GetZString(scratch.data(), max_length); status != status::kOk) {
        return status;
      }
      const std::size_t size = std::strlen(scratch.data()) + 1;
      text = std::make_unique<char[]>(size);
      CopyText(text.get(), size, scratch.data());
    }
    texts = new char*[rows];  // the caller's, as is each text
    for (std::size_t i = 0; i < rows; ++i) texts[i] = read[i].release();
    return status::kOk;
  } catch (const std::bad_alloc&) {
    return status::dio::kMemory;
  }
}

int DioFile::WriteZStrings(const char* const* texts, int count) {
  for (int i = 0; i < count; ++i) {
    if (const int status = WriteZString(texts[i]); status != status::kOk) return status;
  }
  return status::kOk;
}

// Reads the name of a matrix, kMaxText bytes, and checks that the file holds its values.
int DioFile::StartMXF4(char* name, int rows, int columns) {
  if (const int status = GetZString(name, kMaxText); status != status::kOk) return status;
  if (rows < 0 || columns < 0 || !Promises(std::int64_t{rows} * columns, sizeof(float))) {
    return status::dio::kReadError;
  }
  // Rows without columns cost memory and time, but no bytes of the file: it may not have more of
  // them than bytes.
  if (columns == 0 && (unbacked_rows_ += rows) > length_) return status::dio::kReadError;
  return status::kOk;
}

int DioFile::PassMXF4(std::int64_t& values, int rows, int columns) {
  char name[kMaxText];
  if (const int status = StartMXF4(name, rows, columns); status != status::kOk) return status;
  values = GetPosition();
  return Seek(values + std::int64_t{rows} * columns * static_cast<std::int64_t>(sizeof(float)));
}

int DioFile::GetMXF4(XFMatrix*& matrix, int rows, int columns) {
  char name[kMaxText];
  if (const int status = StartMXF4(name, rows, columns); status != status::kOk) return status;
  auto made = std::make_unique<XFMatrix>(name, rows, columns, Unfilled{});
  if (made->GetStatus() != status::kOk) return status::dio::kMemory;
  made->StartActValInfo();
  for (int i = 1; i <= rows; ++i) {
    float* row = (*made)[i];
    if (const int status = GetVF4(row, columns); status != status::kOk) return status;
    made->AddRowToActValInfo(i);  // while the row is in the cache
  }
  matrix = made.release();  // the caller's
  return status::kOk;
}

int DioFile::GetMF4(FMatrix*& matrix, int rows, int columns) {
  XFMatrix* named = nullptr;
  const int status = GetMXF4(named, rows, columns);
  matrix = named;
  return status;
}

int DioFile::GetXFVector(const char* name, int n, XFVector*& vector) {
  if (!Promises(n, sizeof(float))) return status::dio::kReadError;
  auto made = std::make_unique<XFVector>(name, n, 0.0f);
  if (made->GetStatus() != status::kOk) return status::dio::kMemory;
  float* values = made->GetFVecPtr();
  if (const int status = GetVF4(values, n); status != status::kOk) return status;
  made->SetActValInfo();
  vector = made.release();  // the caller's
  return status::kOk;
}

int DioFile::WriteMXF4(std::string_view name, const XFMatrix& matrix, int& size,
                       DioData* progress) {
  if (matrix.NRow() > kMostElements || matrix.NCol() > kMostElements)
    return status::dio::kDimension;
  const FixedText<kMaxText - 1> matrix_name(matrix.GetName());
  const std::int16_t dims[] = {static_cast<std::int16_t>(matrix.NRow()),
                               static_cast<std::int16_t>(matrix.NCol())};
  const std::int64_t payload_size =
      std::int64_t{matrix.NRow()} * matrix.NCol() * static_cast<std::int64_t>(sizeof(float)) +
      static_cast<std::int64_t>(matrix_name.View().size()) + 1;
  if (payload_size > std::numeric_limits<std::int32_t>::max() - kMatrixHeaderSize) {
    return status::dio::kDimension;
  }
  size = static_cast<int>(payload_size);
  ItemHeader header;
  header.Set(size, name, "mxf4", 2, dims);
  if (const int status = WriteItemHeader(header); status != status::kOk) return status;
  if (const int status = WriteZString(matrix_name.Get()); status != status::kOk) return status;
  for (int i = 1; i <= matrix.NRow(); ++i) {
    if (const int status = WriteVF4(matrix[i], matrix.NCol()); status != status::kOk) {
      return status;
    }
    if (progress != nullptr) progress->ProgressTick(i);
  }
  return status::kOk;
}

int DioFile::WriteVXI2(std::string_view name, const XI2Vector& vector, int& size) {
  if (vector.NVal() > kMostElements) return status::dio::kDimension;
  const FixedText<kMaxText - 1> vector_name(vector.GetName());
  const auto n = static_cast<std::int16_t>(vector.NVal());
  size = static_cast<int>(vector_name.View().size()) + 3 + n * static_cast<int>(sizeof(short));
  ItemHeader header;
  header.Set(size, name, "xiv2", 1, &n);
  if (const int status = WriteItemHeader(header); status != status::kOk) return status;
  if (const int status = WriteI2(vector[0]); status != status::kOk) return status;
  if (const int status = WriteZString(vector_name.Get()); status != status::kOk) return status;
  return WriteVI2(vector.GetI2VecPtr(), n);
}

}  // namespace zemva
