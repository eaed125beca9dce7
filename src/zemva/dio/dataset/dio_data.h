// The data set inside a ".vdo" file.
#ifndef ZEMVA_DIO_DATASET_DIO_DATA_H
#define ZEMVA_DIO_DATASET_DIO_DATA_H

#include <cstdint>
#include <tuple>
#include <vector>

#include "zemva/base/export.h"
#include "zemva/dio/dataset/dio_item.h"
#include "zemva/dio/file/dio_file.h"
#include "zemva/errors/stream_window.h"
#include "zemva/numeric/x_matrix.h"
#include "zemva/numeric/x_vector.h"

namespace zemva {

class Dataset;

// The matrix of a data set in its file.
struct StoredMatrix {
  std::int64_t values = 0;  // offset of the first, known where they were passed over
  int rows = -1;            // -1 where there is no matrix
  int columns = -1;
};

// Reads the data set super item of a file into a Dataset and writes a Dataset out as one.
//
// Every operation opens the file, closes it, and returns 0 or a status. An error object raised on
// the way ends here: the window gets a line that says that the file may be corrupt, and the
// object's status is returned. 2003 is returned when memory runs out.
class ZEMVA_API DioData {
 public:
  // `name` is the name of the super item to look for, null or empty for any.
  DioData(const char* path, const char* name, StreamWindow& window);
  virtual ~DioData();

  int SetPath(const char* path) { return file_.SetPath(path); }
  void SetName(const char* name) { name_.Set(name); }
  const char* GetName() const { return name_.Get(); }
  // The title of the data set that was loaded last.
  const char* GetTitle() const { return title_.Get(); }

  // Whether a file of this format version can be read.
  static bool CanRead(std::int16_t version) { return version == 1 || version == 2; }

  // The file, for a caller that takes the steps below one by one.
  DioFile& GetFile() { return file_; }

  // --- Reading (dio_data.cpp) ---

  // Loads the data set and marks it loaded. Codes: 2004 the file cannot be opened; 2017 a version
  // other than 1 and 2; 2000 its first super item is no data set; 2003, 2005, 2008 and those of
  // GetNextDataItem for a damaged body; 2023 no data matrix, no counts, or more observations or
  // variables than it has. On failure the data set is as it was.
  int Load(Dataset* dataset);
  // Loads name, number, title and counts only; the data set stays unloaded. One that is loaded is
  // left alone. Codes as Load.
  int LoadListProject(Dataset* dataset);

  // The steps of Load, for a file that the caller has opened, moved to what is to be read, and will
  // close. They change the data set as they go, and their error objects reach the caller.
  // Reads items until they add up to the body's length; 2005 when they do not meet it exactly.
  int GetDataBody(Dataset* dataset, int body_length);
  // Reads one item. Raises DioDataError 2008 for an unknown name and 2000 for a name with a
  // component number.
  int GetNextDataItem(Dataset* dataset, int& item_size);
  // Reads the payload of an item. 2003 for one over 65,534 bytes that is none of the matrix and
  // the two tables; 2005 for one that is shorter than what it holds.
  int GetDataItem(ItemName name, Dataset* dataset, const ItemHeader& header);

  // Called for each observation that is read or written, with its position.
  virtual void ProgressTick(int observation);
  // Called with the number of observations before the first of them.
  virtual void ProgressCount(int observations);

  // --- Parts of the data set, without loading its values (dio_data_query.cpp) ---
  // They go through all items and refuse what Load refuses, with its code. The matrix is as it is
  // stored, where it is larger than the counts too.

  int GetNObs(short& count);
  int GetNVar(short& count);
  int GetDSNumber(short& number);
  // A column named "VarDS[%d]" or a row named "ObsDS[%d]"; the caller owns it. 2019 for a position
  // outside the matrix.
  int GetVar(short variable, XFVector*& column);
  int GetObs(short observation, XFVector*& row);
  int GetMatrix(XFMatrix*& matrix);

  // --- Writing (dio_data_write.cpp, dio_data_save.cpp) ---

  // Writes the items of a data set to the file, which the caller has opened to be written, and adds
  // their sizes to `size`. Raises DioDataError, class 2, with the status of a write that failed.
  int WriteDataset(Dataset& dataset, int& size);

  // Each of these replaces the file at the path whole or leaves it as it was. What cannot be
  // written is refused before the first byte: 2023 no data matrix, 2013 a name over 24 characters,
  // 2001 more than 2 GiB. 2002 the file cannot be made, 2006 a write failed. A file that Load
  // refuses is neither replaced nor taken apart: the code of Load.
  // Replaces the data set in the file if there is one, else makes the file.
  int Save(Dataset& dataset);
  // Makes a file that holds this data set and nothing else.
  int CreateDioFile(Dataset& dataset);
  // Puts the data set in the place of the one in the file. The project's name and comment, items
  // of the data set that the reader ignores, and all other super items stay as they are.
  int Replace(Dataset& dataset);
  // Removes the data set from the file; the file itself when it holds nothing else.
  int Delete();

 private:
  // A run of bytes of the file.
  struct Span {
    std::int64_t offset;
    std::int64_t size;
  };

  // What the file holds beside what goes into a data set.
  struct Surroundings {
    SuperHeader super_header;  // its version is checked
    SuperItem super_item;      // the data set's
    std::vector<Span> items;   // of the data set that it does not write
    Span rest;                 // all behind the data set

    std::int64_t KeptSize() const;
  };

  // dio_data.cpp
  int LoadInto(Dataset* dataset, bool header_only);
  int ReadItems(Dataset& dataset, bool passes_values);
  void ReadVersion();
  // dio_data_query.cpp
  template <class Answer>
  int Ask(Answer answer);
  int GetVector(const char* pattern, int position, int count, int n, std::int64_t first,
                std::int64_t stride, XFVector*& vector);
  // dio_data_save.cpp
  int FindSurroundings();
  static int Copy(DioFile& from, DioFile& to, const Span& span);

  DioFile file_;
  StreamWindow& window_;
  FixedText<std::tuple_size_v<NameField>> name_;
  FixedText<60> title_;
  Surroundings surroundings_;
  StoredMatrix matrix_;         // the one that was read last
  bool passes_values_ = false;  // whether its values are passed over
  std::vector<char> buffer_;    // of the payload read last
};

}  // namespace zemva

#endif  // ZEMVA_DIO_DATASET_DIO_DATA_H
