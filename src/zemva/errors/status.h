// Status codes. Every operation that can fail returns one, 0 for success; GetVdoMsg gives its text.
//
// The ranges belong to the layers: 1000 plain file I/O, 2000 project file storage, 4000 operating
// system, 5000 vectors and matrices, 7000 item tables, 8000 models and data, 13000 statistics.
// The codes are part of the interface: never renumber one, never use a number again.
#ifndef ZEMVA_ERRORS_STATUS_H
#define ZEMVA_ERRORS_STATUS_H

namespace zemva::status {

inline constexpr int kOk = 0;
inline constexpr int kUnspecified = 1;

namespace fio {
inline constexpr int kCreationError = 1000;
inline constexpr int kFileExists = 1001;
inline constexpr int kFileNotFound = 1002;
inline constexpr int kMemory = 1003;
inline constexpr int kOpenError = 1004;
inline constexpr int kReadError = 1005;
inline constexpr int kWriteError = 1006;
inline constexpr int kOther = 1007;
inline constexpr int kEndOfFile = 1008;
inline constexpr int kLineTooLong = 1009;
inline constexpr int kFieldTooLong = 1010;
}  // namespace fio

namespace dio {
inline constexpr int kAreaSpecification = 2000;
inline constexpr int kDimension = 2001;
inline constexpr int kCreationError = 2002;
inline constexpr int kMemory = 2003;
inline constexpr int kOpenError = 2004;
inline constexpr int kReadError = 2005;
inline constexpr int kWriteError = 2006;
inline constexpr int kOther = 2007;
inline constexpr int kUnknownItemName = 2008;
inline constexpr int kItemNotAvailable = 2009;
inline constexpr int kModelNotFound = 2010;
inline constexpr int kFileNameMissing = 2011;
inline constexpr int kNotImplemented = 2012;
inline constexpr int kConversion = 2013;
inline constexpr int kTimeReadError = 2014;
inline constexpr int kTooManyObservations = 2015;
inline constexpr int kTooManyVariables = 2016;
inline constexpr int kFileVersion = 2017;
inline constexpr int kItemNotInModel = 2018;
inline constexpr int kIndexOutOfRange = 2019;
inline constexpr int kPathChangeWhileOpen = 2020;
inline constexpr int kUnexpectedItem = 2021;
inline constexpr int kFunctionNotAvailable = 2022;
inline constexpr int kIncompleteDataset = 2023;
inline constexpr int kCancelled = 2024;
inline constexpr int kUnrecognizedCharacter = 2025;
}  // namespace dio

namespace mat {
inline constexpr int kOther = 5000;
inline constexpr int kMemory = 5001;
inline constexpr int kNegativeSqrt = 5002;
inline constexpr int kDivideByZero = 5003;
inline constexpr int kDimension = 5004;
inline constexpr int kSingular = 5005;
inline constexpr int kNotInvertible = 5006;
inline constexpr int kNullPointer = 5007;
}  // namespace mat

namespace itm {
inline constexpr int kNullItem = 7001;
inline constexpr int kBadPosition = 7002;
}  // namespace itm

namespace mva {
inline constexpr int kDataAlreadyAllocated = 8001;
inline constexpr int kMemory = 8002;
inline constexpr int kComponentNotAvailable = 8003;
inline constexpr int kOther = 8004;
inline constexpr int kDomain = 8005;
inline constexpr int kNotInvertible = 8006;
inline constexpr int kMatrixMultiplication = 8007;
inline constexpr int kMatrixSubtraction = 8008;
inline constexpr int kDataNotAvailable = 8009;
inline constexpr int kModelNotAvailable = 8010;
inline constexpr int kWorksetNotAvailable = 8011;
inline constexpr int kNotCompleted = 8012;
inline constexpr int kArgument = 8013;
inline constexpr int kNoSuchNumber = 8014;
inline constexpr int kVariableNotAvailable = 8015;
inline constexpr int kUnknownVectorType = 8016;
inline constexpr int kTooFewXVariables = 8017;
inline constexpr int kTooFewYVariables = 8018;
inline constexpr int kTooManyComponents = 8019;
inline constexpr int kTooFewObservations = 8020;
inline constexpr int kIndexOutOfRange = 8021;
inline constexpr int kNullPointer = 8022;
inline constexpr int kAlreadyInserted = 8023;
inline constexpr int kNegligibleCorrelation = 8024;
inline constexpr int kObservationExcluded = 8025;
inline constexpr int kVariablesExcluded = 8026;
inline constexpr int kCancelled = 8027;
inline constexpr int kZeroVariance = 8028;
inline constexpr int kComponentAborted = 8029;
inline constexpr int kPredsetNotAvailable = 8030;
inline constexpr int kTooManyModels = 8031;
inline constexpr int kMissingUnderlyingTerm = 8032;
inline constexpr int kNoCommonElements = 8033;
inline constexpr int kElementsExcluded = 8034;
inline constexpr int kDependingTerm = 8035;
inline constexpr int kResultsNotAvailable = 8036;
inline constexpr int kObservationNotAvailable = 8037;
inline constexpr int kUndefinedWeights = 8038;
inline constexpr int kTooManyMissing = 8039;
inline constexpr int kInconsistentWorksets = 8040;
inline constexpr int kDeletePredsetFirst = 8041;
inline constexpr int kDivisionByZero = 8042;
inline constexpr int kEmptyVariableInGroup = 8043;
inline constexpr int kNotTransformed = 8044;
inline constexpr int kFunctionNotAvailable = 8045;
inline constexpr int kInconsistentDatasets = 8046;
inline constexpr int kDuplicateObservation = 8047;
inline constexpr int kModelGenerated = 8048;
inline constexpr int kDeleteModelsFirst = 8049;
inline constexpr int kUnknownBlockType = 8050;
inline constexpr int kBlockTooSmall = 8051;
inline constexpr int kTooFewBlock1Variables = 8052;
inline constexpr int kTooFewBlockVariables = 8053;
inline constexpr int kWorksetGenerated = 8054;
inline constexpr int kDuplicateName = 8055;
inline constexpr int kOnlyAfterLastComponent = 8056;
}  // namespace mva

namespace sta {
inline constexpr int kOther = 13000;
inline constexpr int kMemory = 13001;
inline constexpr int kArgument = 13002;
}  // namespace sta

}  // namespace zemva::status

#endif  // ZEMVA_ERRORS_STATUS_H
