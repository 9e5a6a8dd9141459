#pragma once

#include "host/rx/AdeskTypes.h"

class AcDbDatabase;
class AcDbObject;

/// What the database keeps of one object for as long as the database lives: an object id is a pointer to it.
/// Holds the state of opening, so that an open and a close are a few instructions.
struct AcDbStub {
  /// Bits of `flags`.
  enum Flag : Adesk::UInt32 {
    kOpenForWrite = 1U << 0,
    kOpenForNotify = 1U << 1,
    kErased = 1U << 2,
    kModified = 1U << 3,  ///< written to during this open
    kModifiedGraphics = 1U << 4,
    kModifiedXData = 1U << 5,
    kNewObject = 1U << 6,         ///< added to the database during this open
    kUndoing = 1U << 7,           ///< an undo, a redo or a cancel is reading it
    kUndoTaken = 1U << 8,         ///< this open needs no further undo record
    kEraseChanged = 1U << 9,      ///< erased or unerased during this open
    kWrittenInNotify = 1U << 10,  ///< was upgraded from notify: the close of the notification commits
    kUnappended = 1U << 11,       ///< its append has been undone
    kAnnounced = 1U << 12,        ///< openedForModify has been sent during this open
    kClosing = 1U << 13,          ///< its subClose is running
    kRecorded = 1U << 14          ///< the undo log has a record of this open
  };

  AcDbObject* object = nullptr;
  AcDbDatabase* database = nullptr;
  AcDbStub* owner = nullptr;
  Adesk::UInt64 handle = 0;
  Adesk::UInt32 flags = 0;
  Adesk::UInt16 readers = 0;
  Adesk::UInt16 notifying = 0;  ///< depth of the notifications that the object is sending

  bool has(Adesk::UInt32 bits) const { return (flags & bits) != 0; }
  bool readable() const { return (flags & (kOpenForWrite | kOpenForNotify)) != 0 || (readers | notifying) != 0; }
  bool writable() const { return (flags & kOpenForWrite) != 0; }
};
