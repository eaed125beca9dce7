#include "zemva/errors/messages.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

#include "zemva/errors/status.h"

namespace zemva {
namespace {

struct Message {
  int code;
  const char* text;
};

constexpr Message kCommonMessages[] = {
    {status::kOk, "All done."},
    {status::kUnspecified, "Unspecified error."},
};

constexpr Message kFioMessages[] = {
    {status::fio::kCreationError, "FIO: File creation error."},
    {status::fio::kFileExists, "FIO: File already exists."},
    {status::fio::kFileNotFound, "FIO: File not found."},
    {status::fio::kMemory, "FIO: Memory allocation error."},
    {status::fio::kOpenError, "FIO: File open error."},
    {status::fio::kReadError, "FIO: File read error."},
    {status::fio::kWriteError, "FIO: File write error."},
    {status::fio::kOther, "FIO: Other error."},
    {status::fio::kEndOfFile, "FIO: End of file."},
    {status::fio::kLineTooLong, "FIO: Line too long."},
    {status::fio::kFieldTooLong, "FIO: Field too long."},
};

constexpr Message kDioMessages[] = {
    {status::dio::kAreaSpecification, "DIO: Area specification error."},
    {status::dio::kDimension, "DIO: Dimension error."},
    {status::dio::kCreationError, "DIO: Creation error."},
    {status::dio::kMemory, "DIO: Memory allocation problem."},
    {status::dio::kOpenError, "DIO: File open error."},
    {status::dio::kReadError, "DIO: Read error."},
    {status::dio::kWriteError, "DIO: Write error."},
    {status::dio::kOther, "DIO: Other error."},
    {status::dio::kUnknownItemName, "DIO: Unknown item name."},
    {status::dio::kItemNotAvailable, "DIO: Item not available."},
    {status::dio::kModelNotFound, "DIO: Model not found."},
    {status::dio::kFileNameMissing, "DIO: File name missing."},
    {status::dio::kNotImplemented, "DIO: Function not implemented."},
    {status::dio::kConversion, "DIO: Conversion error."},
    {status::dio::kTimeReadError, "DIO: Time read error."},
    {status::dio::kTooManyObservations, "DIO: Can not handle more than MAXOBS observations."},
    {status::dio::kTooManyVariables, "DIO: Can not handle more than MAXVAR variables."},
    {status::dio::kFileVersion, "DIO: Can not read this file version."},
    {status::dio::kItemNotInModel, "DIO: Item is not part of this model."},
    {status::dio::kIndexOutOfRange, "DIO: Index is out of range."},
    {status::dio::kPathChangeWhileOpen, "DIO: Can not change Path when file is open."},
    {status::dio::kUnexpectedItem, "DIO: Unexpected item in input file."},
    {status::dio::kFunctionNotAvailable, "DIO: Function not available."},
    {status::dio::kIncompleteDataset, "DIO: Incomplete data set."},
    {status::dio::kCancelled, "DIO: Function cancelled."},
    {status::dio::kUnrecognizedCharacter, "DIO: Unrecognized character in name."},
};

constexpr Message kMatMessages[] = {
    {status::mat::kOther, "MAT: Other error."},
    {status::mat::kMemory, "MAT: Memory allocation problem."},
    {status::mat::kNegativeSqrt, "MAT: Attempt to make sqrt of negative number."},
    {status::mat::kDivideByZero, "MAT: Attempt to divide by zero."},
    {status::mat::kDimension, "MAT: Dimension error between matrices/vectors."},
    {status::mat::kSingular, "MAT: Matrix is singular."},
    {status::mat::kNotInvertible, "MAT: Non-invertible matrix."},
    {status::mat::kNullPointer, "MAT: NULL pointer detected."},
};

constexpr Message kMvaMessages[] = {
    {status::mva::kDataAlreadyAllocated, "MVA: Data already allocated."},
    {status::mva::kMemory, "MVA: Memory allocation problem."},
    {status::mva::kComponentNotAvailable, "MVA: Component not available."},
    {status::mva::kOther, "MVA: Other error."},
    {status::mva::kDomain, "MVA: Domain error."},
    {status::mva::kNotInvertible, "MVA: Non-invertible matrix."},
    {status::mva::kMatrixMultiplication, "MVA: Matrix multiplication error."},
    {status::mva::kMatrixSubtraction, "MVA: Matrix subtraction error."},
    {status::mva::kDataNotAvailable, "MVA: Data not available."},
    {status::mva::kModelNotAvailable, "MVA: Model not available."},
    {status::mva::kWorksetNotAvailable, "MVA: Work set not available."},
    {status::mva::kNotCompleted, "MVA: Model computation not completed."},
    {status::mva::kArgument, "MVA: Argument error."},
    {status::mva::kVariableNotAvailable, "MVA: Variable not available."},
    {status::mva::kUnknownVectorType, "MVA: Unknown vector type."},
    {status::mva::kTooFewXVariables, "MVA: Too few X variables (<2)."},
    {status::mva::kTooFewYVariables, "MVA: Too few Y variables (<1)."},
    {status::mva::kTooManyComponents, "MVA: Cannot compute more components than X variables."},
    {status::mva::kTooFewObservations, "MVA: Too few observations (<4)."},
    {status::mva::kIndexOutOfRange, "MVA: Index out of range."},
    {status::mva::kNullPointer, "MVA: NULL pointer detected."},
    {status::mva::kAlreadyInserted, "MVA: Item already inserted."},
    {status::mva::kNegligibleCorrelation, "MVA: Negligible correlation between X and Y."},
    {status::mva::kObservationExcluded, "MVA: Observation excluded."},
    {status::mva::kVariablesExcluded, "MVA: Variable(s) excluded."},
    {status::mva::kCancelled, "MVA: Function cancelled."},
    {status::mva::kZeroVariance, "MVA: Variable(s) has zero variance."},
    {status::mva::kComponentAborted, "MVA: Component aborted."},
    {status::mva::kPredsetNotAvailable, "MVA: Prediction set not available."},
    {status::mva::kTooManyModels, "MVA: Too many models (>99)."},
    {status::mva::kMissingUnderlyingTerm, "MVA: Missing necessary underlying term."},
    {status::mva::kNoCommonElements, "MVA: No common elements."},
    {status::mva::kElementsExcluded, "MVA: Non-common elements excluded."},
    {status::mva::kDependingTerm, "MVA: Depending derived term detected."},
    {status::mva::kResultsNotAvailable, "MVA: Results not available."},
    {status::mva::kObservationNotAvailable, "MVA: Observation not available."},
    {status::mva::kUndefinedWeights, "MVA: There are undefined scaling weights."},
    {status::mva::kTooManyMissing, "MVA: Too many missing values."},
    {status::mva::kInconsistentWorksets, "MVA: Inconsistent work sets."},
    {status::mva::kDeletePredsetFirst, "MVA: Delete prediction set results first."},
    {status::mva::kDivisionByZero, "MVA: Attempted division by zero."},
    {status::mva::kEmptyVariableInGroup, "MVA: Only missing values for a variable in a CV group."},
    {status::mva::kNotTransformed, "MVA: Variable not transformed."},
    {status::mva::kFunctionNotAvailable, "MVA: Function not available."},
    {status::mva::kInconsistentDatasets, "MVA: Inconsistent data sets."},
    {status::mva::kDuplicateObservation, "MVA: Duplicate observation number."},
    {status::mva::kModelGenerated, "MVA: Model already generated."},
    {status::mva::kDeleteModelsFirst, "MVA: Delete models first."},
    {status::mva::kUnknownBlockType, "MVA: Unknown block type."},
    {status::mva::kBlockTooSmall, "MVA: Too few variables in a block (<2)."},
    {status::mva::kTooFewBlock1Variables, "MVA: Too few block 1 variables."},
    {status::mva::kTooFewBlockVariables, "MVA: Too few block variables."},
    {status::mva::kWorksetGenerated, "MVA: Work set already generated."},
    {status::mva::kDuplicateName, "MVA: Duplicate variable name."},
    {status::mva::kOnlyAfterLastComponent,
     "MVA: VarResPS for Y only available after last component."},
};

constexpr Message kStaMessages[] = {
    {status::sta::kOther, "STA: Other error."},
    {status::sta::kMemory, "STA: Memory allocation problem."},
    {status::sta::kArgument, "STA: Argument error."},
};

// One range of codes: its texts and the buffer that its unknown codes are formatted into.
struct MessageTable {
  const char* layer;
  std::span<const Message> messages;
  std::array<char, 64> unknown;

  const char* Text(int code) {
    for (const auto rows : {std::span<const Message>(kCommonMessages), messages}) {
      const auto row = std::ranges::find(rows, code, &Message::code);
      if (row != rows.end()) return row->text;
    }
    std::snprintf(unknown.data(), unknown.size(), "Unregistered %s exception (%d).", layer, code);
    return unknown.data();
  }
};

MessageTable fio_table{"FIO", kFioMessages, {}};
MessageTable dio_table{"DIO", kDioMessages, {}};
MessageTable os_table{"OS", {}, {}};
MessageTable mat_table{"MAT", kMatMessages, {}};
MessageTable mva_table{"MVA", kMvaMessages, {}};
MessageTable sta_table{"STA", kStaMessages, {}};
MessageTable vardo_table{"VARDO", {}, {}};

struct Range {
  int first;
  int last;
  MessageTable* table;
};

constexpr Range kRanges[] = {
    {4000, 4999, &os_table},  {2000, 2999, &dio_table},   {5000, 5999, &mat_table},
    {8000, 8999, &mva_table}, {13000, 13999, &sta_table}, {1000, 1999, &fio_table},
};

}  // namespace

const char* GetFIOMsg(int code) {
  return fio_table.Text(code);
}
const char* GetDIOMsg(int code) {
  return dio_table.Text(code);
}
const char* GetOSMsg(int code) {
  return os_table.Text(code);
}
const char* GetMatMsg(int code) {
  return mat_table.Text(code);
}
const char* GetMVAMsg(int code) {
  return mva_table.Text(code);
}
const char* GetSTAMsg(int code) {
  return sta_table.Text(code);
}

const char* GetVdoMsg(int code) {
  for (const Range& range : kRanges) {
    if (range.first <= code && code <= range.last) return range.table->Text(code);
  }
  return vardo_table.Text(code);
}

}  // namespace zemva
