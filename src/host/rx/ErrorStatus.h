#pragma once

#include "host/rx/AdeskTypes.h"

/// Statuses of the database layer, as X(name, number). One list, so that the enumeration and the names agree.
#define KR_ACAD_ERROR_STATUS_LIST(X) \
  X(eOk, 0)                          \
  X(eNotImplementedYet, 1)           \
  X(eNotApplicable, 2)               \
  X(eInvalidInput, 3)                \
  X(eAmbiguousInput, 4)              \
  X(eAmbiguousOutput, 5)             \
  X(eOutOfMemory, 6)                 \
  X(eBufferTooSmall, 7)              \
  X(eInvalidOpenState, 8)            \
  X(eEntityInInactiveLayout, 9)      \
  X(eHandleExists, 10)               \
  X(eNullHandle, 11)                 \
  X(eBrokenHandle, 12)               \
  X(eUnknownHandle, 13)              \
  X(eHandleInUse, 14)                \
  X(eNullObjectPointer, 15)          \
  X(eNullObjectId, 16)               \
  X(eNullBlockName, 17)              \
  X(eContainerNotEmpty, 18)          \
  X(eNullIterator, 19)               \
  X(eNullEntityPointer, 20)          \
  X(eIllegalEntityType, 21)          \
  X(eKeyNotFound, 22)                \
  X(eDuplicateKey, 23)               \
  X(eInvalidIndex, 24)               \
  X(eDuplicateIndex, 25)             \
  X(eAlreadyInDb, 26)                \
  X(eOutOfDisk, 27)                  \
  X(eDeletedEntry, 28)               \
  X(eNegativeValueNotAllowed, 29)    \
  X(eInvalidExtents, 30)             \
  X(eInvalidAdsName, 31)             \
  X(eInvalidSymbolTableName, 32)     \
  X(eInvalidKey, 33)                 \
  X(eWrongObjectType, 34)            \
  X(eWrongDatabase, 35)              \
  X(eObjectToBeDeleted, 36)          \
  X(eInvalidDwgVersion, 37)          \
  X(eAnonymousEntry, 38)             \
  X(eIllegalReplacement, 39)         \
  X(eEndOfObject, 40)                \
  X(eEndOfFile, 41)                  \
  X(eIsReading, 42)                  \
  X(eIsWriting, 43)                  \
  X(eNotOpenForRead, 44)             \
  X(eNotOpenForWrite, 45)            \
  X(eNotThatKindOfClass, 46)         \
  X(eInvalidBlockName, 47)           \
  X(eMissingDxfField, 48)            \
  X(eDuplicateDxfField, 49)          \
  X(eInvalidDxfCode, 50)             \
  X(eInvalidResBuf, 51)              \
  X(eBadDxfSequence, 52)             \
  X(eFilerError, 53)                 \
  X(eDuplicateRecordName, 54)        \
  X(eWasErased, 55)                  \
  X(ePermanentlyErased, 56)          \
  X(eWasOpenForRead, 57)             \
  X(eWasOpenForWrite, 58)            \
  X(eWasOpenForUndo, 59)             \
  X(eWasNotifying, 60)               \
  X(eWasOpenForNotify, 61)           \
  X(eOnLockedLayer, 62)              \
  X(eMustOpenThruOwner, 63)          \
  X(eSubentitiesStillOpen, 64)       \
  X(eAtMaxReaders, 65)               \
  X(eIsWriteProtected, 66)           \
  X(eNotNewlyCreated, 67)            \
  X(eNotInDatabase, 68)              \
  X(eNoDatabase, 69)                 \
  X(eCannotBeErasedByCaller, 70)     \
  X(eInvalidOwnerObject, 71)         \
  X(eOwnerNotSet, 72)                \
  X(eHadMultipleReaders, 73)         \
  X(eCloseFailedNotOpen, 74)         \
  X(eOpenCountMismatch, 75)          \
  X(eInvalidLayer, 76)               \
  X(eInvalidLineType, 77)            \
  X(eUnknownLineType, 78)            \
  X(eIteratorDone, 79)               \
  X(eNoActiveTransactions, 80)       \
  X(eNotInTransaction, 81)           \
  X(eFileNotFound, 82)               \
  X(eFileAccessErr, 83)              \
  X(eFileSystemErr, 84)              \
  X(eFileInternalErr, 85)            \
  X(eFileExists, 86)                 \
  X(eFileLockedByACAD, 87)           \
  X(eCantOpenFile, 88)               \
  X(eDwgNeedsRecovery, 89)           \
  X(eDwgCRCError, 90)                \
  X(eDwgSentinelDoesNotMatch, 91)    \
  X(eDwgObjectImproperlyRead, 92)    \
  X(eBadDxfFile, 93)                 \
  X(eUnknownDwgVersion, 94)          \
  X(eBadLinetypeName, 95)            \
  X(eUndefinedLineType, 96)          \
  X(eLineTypeNotFound, 97)           \
  X(eUndefineShapeName, 98)          \
  X(eDegenerateGeometry, 99)         \
  X(eNullExtents, 100)               \
  X(eOutOfRange, 101)                \
  X(eNonPlanarEntity, 102)           \
  X(eCannotScaleNonUniformly, 103)   \
  X(eCannotExplodeEntity, 104)       \
  X(eDeepCloneInProgress, 105)       \
  X(eWrongSubentityType, 106)        \
  X(eNoUndo, 107)                    \
  X(eUserBreak, 108)                 \
  X(eLockViolation, 109)             \
  X(eLockConflict, 110)              \
  X(eNoDocument, 111)                \
  X(eNoClassId, 112)                 \
  X(eStringTooLong, 113)             \
  X(eRegappIdNotFound, 114)          \
  X(eRegappNotFound, 115)            \
  X(eXdataSizeExceeded, 116)         \
  X(eUndoOperationNotAvailable, 117) \
  X(eSelfReference, 118)             \
  X(eInvalidContext, 119)            \
  X(eNoChange, 120)                  \
  X(eMakeMeProxy, 301)

namespace Acad {

/// Result of an operation of the database layer; eOk is success.
enum ErrorStatus {
#define KR_ENUMERATOR(name, number) name = number,
  KR_ACAD_ERROR_STATUS_LIST(KR_ENUMERATOR)
#undef KR_ENUMERATOR
};

}  // namespace Acad

/// The status's name, as "eOk"; "eUnknownStatus" for a number that has none. The text is static.
const ACHAR* acadErrorStatusText(Acad::ErrorStatus status);
