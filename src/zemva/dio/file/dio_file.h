// One ".vdo" file and the primitives that readers and writers of its items are built from.
#ifndef ZEMVA_DIO_FILE_DIO_FILE_H
#define ZEMVA_DIO_FILE_DIO_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string_view>

#include "zemva/base/export.h"
#include "zemva/base/fixed_text.h"
#include "zemva/dio/file/item_names.h"
#include "zemva/dio/file/layout.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

class AtomicFile;
class DioData;

// Owns the open stream of a file. Every operation returns a status, 0 for success, 2005 for a short
// read and 2006 for a short write; what raises an error object instead says so. Sizes and counts
// are taken for what they are, claims of the file: one that is negative or promises more than the
// bytes that the file still holds is a short read, found before anything is allocated.
class ZEMVA_API DioFile {
 public:
  static constexpr int kMaxText = 25;  // bytes of a name with its terminator

  DioFile(const char* path, StreamWindow& window);
  DioFile(const DioFile&) = delete;
  DioFile& operator=(const DioFile&) = delete;
  ~DioFile();

  // --- Stream and position ---

  // 2020 when the file is open. A path that is null or too long leaves the object without one.
  int SetPath(const char* path);
  const char* GetPath() const { return path_.Get(); }
  StreamWindow& GetWindow() const { return window_; }

  // Opens the file for reading and moves to its first byte; the same stream when it is open. Raises
  // DioFileError 2004 when there is no path, no such file, or when it cannot be opened.
  std::FILE* OpenSuperItemFile();
  // Closes the file. What was written since NewSuperItemFile is discarded.
  void CloseSuperItemFile();
  // Opens a file to be written, with a super header and the head of one super item of `type`, named
  // `name` and of these extents, the sizes of both 0. It is written beside the file at the path and
  // takes its place by CommitSuperItemFile. 2002 when it cannot be made.
  int NewSuperItemFile(SuperItem::Type type, std::string_view name = "",
                       std::span<const std::int16_t> extents = {});
  // Opens a file to be written, still empty. 2002 when it cannot be made.
  int NewFile();
  // Puts the written file in the place of the old one. 2006 when any write failed; the old file is
  // then as it was.
  int CommitSuperItemFile();

  // Offset of the next byte, and how many bytes the open file still holds from there.
  std::int64_t GetPosition() const;
  std::int64_t GetRemaining() const;
  int Seek(std::int64_t offset);

  // Reads or writes `length` bytes at an absolute offset; the position stays.
  int GetItem(long offset, void* buffer, int length);
  int UpdateItem(long offset, const void* buffer, int length);

  // --- Headers ---

  // Reads the super header from the current position. Raises DioFileError 2005, with the name of
  // the first field that is not whole.
  int GetSuperHeader(SuperHeader& header);
  int WriteSuperHeader(const SuperHeader& header);
  // An item header and the type that its tag stands for.
  int GetSuperItemHeader(SuperItem& item);
  int WriteSuperItemHeader(const SuperItem& item);
  // Reads the next super item header of `source` and writes it here.
  int CopySuperItemHeader(DioFile& source);
  // Size and name, or size, name, tag and type, of the item that comes next; the position stays.
  int GetNextSuperItemName(SuperItem& item);
  int GetNextSuperItemType(SuperItem& item);
  // Raises DioFileError 2005 on a short read, and for a size or dimensions that cannot be.
  int GetItemHeader(ItemHeader& header);
  int WriteItemHeader(const ItemHeader& header);
  // Fields of the super header and of the first super item's header; the position stays.
  int GetSuperSize(int& size);
  int WriteSuperSize(int size);
  int GetSuperItemSize(int& size);
  int WriteSuperItemSize(int size);
  int WriteNumberOfSuperItems(short count);
  int GetTime(char* time);  // 22 bytes, not terminated
  int WriteTime(const char* time);
  // The date in the super header's time, zero-terminated: its text up to the first blank.
  int GetSuperItemDate(char* date);
  // Writes a "Title" item; its size is added to nothing but returned in `size`.
  int WriteComment(const char* text, int& size);
  // The offset of the first item of the first super item that has this name. 2009 when a name is
  // met before that is not known; 2005 at the end of the file.
  int GetFileOfsetToItem(int& offset, ItemName name);

  // --- Scalars and blocks ---

  int GetI1(char& value);
  int WriteI1(char value);
  int GetI2(short& value);
  int WriteI2(short value);
  int GetF4(float& value);
  int WriteF4(float value);
  int GetNBytes(void* buffer, int count);
  int WriteBlock(const void* buffer, int count);

  // --- Arrays and texts ---

  // Read n elements into elements 1..n. A null pointer receives a new array of n + 1 elements,
  // element 0 zero, that the caller frees with delete[]; it stays null when the read fails. GetVF4
  // raises DioFileError 2005 on a short read.
  int GetVI1(char*& values, int n);
  int GetVI2(short*& values, int n);
  int GetVF4(float*& values, int n);
  // Write elements 1..n.
  int WriteVI1(const char* values, int n);
  int WriteVI2(const short* values, int n);
  int WriteVF4(const float* values, int n);

  // Reads a text up to its zero byte, or max_length bytes; the buffer's last byte is always zero,
  // so that a longer text is cut and its rest is read by whatever reads next.
  int GetZString(char* buffer, int max_length);
  int WriteZString(const char* text);
  // Reads `count` texts into a new table of new arrays; the caller frees each, and the table, with
  // delete[]. Null when the read fails.
  int GetZStrings(char**& texts, int count, int max_length);
  int WriteZStrings(const char* const* texts, int count);

  // --- Matrices and vectors ---

  // Read a named matrix; the caller owns it. 2003 when it cannot be made. Rows raise DioFileError
  // 2005 on a short read.
  int GetMF4(FMatrix*& matrix, int rows, int columns);
  int GetMXF4(XFMatrix*& matrix, int rows, int columns);
  // Moves past a matrix, read and checked as by GetMXF4 but for its values, which are not looked
  // at; `values` receives the offset of the first.
  int PassMXF4(std::int64_t& values, int rows, int columns);
  // Reads n values into a new vector of that name; the caller owns it.
  int GetXFVector(const char* name, int n, XFVector*& vector);
  // Write the item `name` that holds a matrix or a vector under its own name; `size` receives the
  // item's size. `progress` may be null. 2001 for more than a dimension or an item can count.
  int WriteMXF4(std::string_view name, const XFMatrix& matrix, int& size, DioData* progress);
  int WriteVXI2(std::string_view name, const XI2Vector& vector, int& size);

  // Writes a whole item. `size` is the payload's length on entry and the item's on return.
  int WriteTheItem(int& size, std::string_view name, std::string_view type, int ndims,
                   const std::int16_t* dims, const void* data);

 private:
  bool Read(void* buffer, std::size_t size);
  bool Promises(std::int64_t count, std::size_t element_size) const;
  int StartMXF4(char* name, int rows, int columns);
  template <class Element>
  int ReadElements(Element*& values, int n);

  bool is_open_ = false;
  std::unique_ptr<char[]> buffer_;  // of the stream: many small items in one call
  std::FILE* stream_ = nullptr;
  FixedText<260> path_;
  StreamWindow& window_;
  std::int64_t length_ = 0;
  std::int64_t unbacked_rows_ = 0;  // of matrices without columns, which no bytes stand for
  std::unique_ptr<AtomicFile> written_;
};

}  // namespace zemva

#endif  // ZEMVA_DIO_FILE_DIO_FILE_H
