#pragma once

#include "host/db/AcDbEnums.h"
#include "host/db/AcDbIdMapping.h"
#include "host/db/AcDbObjectId.h"
#include "host/db/AcDbObjectReactor.h"
#include "host/db/AcDbStub.h"
#include "host/db/resbuf.h"
#include "host/gi/AcGiDrawable.h"
#include "host/rx/rx.h"

class AcDbAuditInfo;
class AcDbDatabase;
class AcDbDwgFiler;
class AcDbDxfFiler;

/// An object of a drawing. In a database it is reached by its id only: opened, used, closed. Outside of one, it is its
/// owner's to use freely and to delete.
///
/// Statuses of opening are told at acdbOpenObject, the order of notifications in docs/architecture.md.
class AcDbObject : public AcGiDrawable {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject);
  AcDbObject(const AcDbObject&) = delete;
  AcDbObject& operator=(const AcDbObject&) = delete;
  ~AcDbObject() override;

  // --- Identity ----------------------------------------------------------------------------------------------------

  AcDbObjectId objectId() const { return stub_; }
  AcDbObjectId id() const override { return stub_; }
  AcDbObjectId ownerId() const;
  virtual Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
  void getAcDbHandle(AcDbHandle& handle) const { handle = objectId().handle(); }
  AcDbDatabase* database() const { return stub_ != nullptr ? stub_->database : nullptr; }
  /// Whether the object is in a database.
  Adesk::Boolean isPersistent() const override { return stub_ != nullptr; }
  bool isTransactionResident() const { return false; }
  bool isAProxy() const { return hasTrait(kIsProxy); }

  // --- Opening and closing -----------------------------------------------------------------------------------------

  bool isReadEnabled() const { return stub_ == nullptr || stub_->readable(); }
  bool isWriteEnabled() const { return stub_ == nullptr || stub_->writable(); }
  bool isNotifyEnabled() const { return stub_ == nullptr || stub_->readable(); }
  bool isNotifying() const { return stub_ != nullptr && stub_->notifying != 0; }

  /// To stand first in every member that reads. Calls acrx_abort unless the object is open (or in no database).
  void assertReadEnabled() const {
    if (stub_ != nullptr && !stub_->readable()) [[unlikely]]
      refuse(L"eNotOpenForRead");
  }
  /// To stand first in every member that writes. Calls acrx_abort unless the object is open for write (or in no
  /// database). The first call of an open tells the reactors (openedForModify) and, with `autoUndo`, takes the undo
  /// record; without it the caller writes its own to undoFiler. `recordModified` marks the object as modified.
  void assertWriteEnabled(bool autoUndo = true, bool recordModified = true) {
    if (stub_ == nullptr) return;
    constexpr Adesk::UInt32 kAll =
        AcDbStub::kOpenForWrite | AcDbStub::kUndoTaken | AcDbStub::kModified | AcDbStub::kModifiedGraphics;
    if ((stub_->flags & kAll) == kAll) return;
    beginWrite(autoUndo, recordModified);
  }
  /// To stand first in every notification that the object gets. Calls acrx_abort unless it is open in any way.
  void assertNotifyEnabled() const { assertReadEnabled(); }

  /// From open for read to open for write. eWasOpenForWrite, eHadMultipleReaders, eWasOpenForUndo, eOnLockedLayer,
  /// eNotOpenForRead, eNotInDatabase.
  Acad::ErrorStatus upgradeOpen();
  /// From open for write to open for read: what was written is committed as by close. eNotOpenForWrite.
  Acad::ErrorStatus downgradeOpen();
  /// From open for notify to open for write; `wasWritable` tells whether it was open for write before.
  /// eWasOpenForRead, eWasOpenForUndo, eWasNotifying, eInvalidOpenState.
  Acad::ErrorStatus upgradeFromNotify(Adesk::Boolean& wasWritable);
  /// Back to open for notify. What was written is committed when the notification ends.
  Acad::ErrorStatus downgradeToNotify(Adesk::Boolean wasWritable);
  /// Ends an open. eNotInDatabase, eCloseFailedNotOpen, or the status of subClose: the object is closed all the same.
  Acad::ErrorStatus close();
  /// Ends an open for write and takes back what was written during it. A new object goes from the database again.
  /// eNoUndo when undo recording was off: the changes stay then.
  Acad::ErrorStatus cancel();

  /// Erases the object, or brings it back. It stays in the database under its id. eWasErased, and eInvalidInput for an
  /// unerase of an object that isn't erased.
  Acad::ErrorStatus erase(Adesk::Boolean erasing = true);
  bool isErased() const { return has(AcDbStub::kErased); }
  bool isEraseStatusToggled() const { return has(AcDbStub::kEraseChanged); }
  bool isModified() const { return has(AcDbStub::kModified); }
  bool isModifiedGraphics() const { return has(AcDbStub::kModifiedGraphics); }
  bool isModifiedXData() const { return has(AcDbStub::kModifiedXData); }
  bool isNewObject() const { return has(AcDbStub::kNewObject); }
  /// While an undo, a redo or a cancel puts the object back and tells of it.
  bool isUndoing() const { return has(AcDbStub::kUndoing); }
  bool isReallyClosing() const { return has(AcDbStub::kClosing); }

  /// Where to write the record of a write that was announced with assertWriteEnabled(false, ...): first the class
  /// (writeAddress(desc())), then what applyPartialUndo of that class is to read. Null when undo isn't recorded.
  AcDbDwgFiler* undoFiler();
  void disableUndoRecording(bool disable);

  // --- Reactors ----------------------------------------------------------------------------------------------------

  /// Adds a transient reactor, which stays its owner's. A reactor is added once only.
  void addReactor(AcDbObjectReactor* reactor) const;
  void removeReactor(AcDbObjectReactor* reactor) const;
  /// Makes the object `id` a reactor of this one for good: it is filed with it. Once only.
  void addPersistentReactor(AcDbObjectId id);
  void removePersistentReactor(AcDbObjectId id);
  bool hasPersistentReactor(AcDbObjectId id) const;
  bool hasReactors() const;
  /// All reactors in the order in which they were added; null when there are none. acdbIsPersistentReactor tells the
  /// kind of each.
  const AcDbVoidPtrArray* reactors() const;

  // --- What hangs on an object --------------------------------------------------------------------------------------

  /// Makes a dictionary that the object owns. eAlreadyInDb when it has one; one that was erased comes back.
  Acad::ErrorStatus createExtensionDictionary();
  /// Its id, or null.
  AcDbObjectId extensionDictionary() const;
  Acad::ErrorStatus releaseExtensionDictionary();

  /// The extended data of one application, or of all for null: a new chain that acutRelRb frees, each part headed by
  /// group 1001. Null when there is none.
  resbuf* xData(const ACHAR* appName = nullptr) const;
  /// The object's own chain, for writers of files; null when there is none.
  const resbuf* xDataChain() const;
  /// Takes the chain over as it is, whatever its size and codes, for readers of files.
  void setXDataAsRead(resbuf* chain);
  /// Takes reactors over in order, and the extension dictionary, for readers of files.
  void addPersistentReactorAsRead(AcDbObjectId id);
  void setExtensionDictionaryAsRead(AcDbObjectId id);
  /// The extension dictionary, erased or not, whatever the open state.
  AcDbObjectId extensionDictionaryReference() const;
  /// Replaces the extended data of the applications that head the parts of the chain; a part without values removes.
  /// eInvalidResBuf for a chain that doesn't begin with 1001 or has codes below 1000, eXdataSizeExceeded above 16 KB.
  Acad::ErrorStatus setXData(const resbuf* chain);

  // --- Filing ------------------------------------------------------------------------------------------------------

  Acad::ErrorStatus dwgIn(AcDbDwgFiler* filer);
  Acad::ErrorStatus dwgOut(AcDbDwgFiler* filer) const;
  Acad::ErrorStatus dxfIn(AcDbDxfFiler* filer);
  Acad::ErrorStatus dxfOut(AcDbDxfFiler* filer, bool allXdata = true, const AcDbObjectId* regAppIds = nullptr,
                           int numRegAppIds = 0) const;
  virtual Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);
  virtual Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
  virtual Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer);
  virtual Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const;

  virtual Acad::ErrorStatus audit(AcDbAuditInfo* info);
  virtual Acad::ErrorStatus decomposeForSave(AcDb::AcDbDwgVersion version, AcDbObject*& replacement,
                                             AcDbObjectId& replacementId, Adesk::Boolean& exchangeXData);
  /// Draws what a program without the object's class is to show.
  virtual void saveAs(AcGiWorldDraw* draw, AcDb::SaveType type);

  // --- Copying -----------------------------------------------------------------------------------------------------

  /// A copy outside of any database, through the fields filed; null for a class that can't be made by name.
  AcRxObject* clone() const override;
  /// Takes over the fields filed of `source`, which must be of this object's class or a class it derives from.
  Acad::ErrorStatus copyFrom(const AcRxObject* source) override;
  /// Clones the object with all that it owns, into `owner`'s database. The clone is open for write: the caller closes
  /// it. Null with eOk when the object is cloned already in this mapping. Ids in the clones still name the originals:
  /// AcDbDatabase::deepCloneObjects, the usual caller, translates them at the end.
  Acad::ErrorStatus deepClone(AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& idMap, bool isPrimary = true) const;
  /// As above to another database: also brings along what hard pointers name.
  Acad::ErrorStatus wblockClone(AcRxObject* owner, AcDbObject*& clone, AcDbIdMapping& idMap,
                                bool isPrimary = true) const;

  // --- Notifications of the objects that this one is a persistent reactor of -----------------------------------------

  virtual void cancelled(const AcDbObject* object);
  virtual void copied(const AcDbObject* object, const AcDbObject* newObject);
  virtual void erased(const AcDbObject* object, Adesk::Boolean erasing = true);
  virtual void goodbye(const AcDbObject* object);
  virtual void openedForModify(const AcDbObject* object);
  virtual void modified(const AcDbObject* object);
  virtual void subObjModified(const AcDbObject* object, const AcDbObject* subObject);
  virtual void modifyUndone(const AcDbObject* object);
  virtual void modifiedXData(const AcDbObject* object);
  virtual void unappended(const AcDbObject* object);
  virtual void reappended(const AcDbObject* object);
  virtual void objectClosed(const AcDbObjectId objectId);
  virtual void modifiedGraphics(const AcDbObject* object);
  /// Tells the object's reactors that a part of it has changed (subObjModified).
  void xmitPropagateModify(const AcDbObject* subObject = nullptr) const;

  /// Undoes what was written to undoFiler under class `aClass`. A class passes what isn't its own to its base; here,
  /// at the root, nothing is known: eNotThatKindOfClass.
  virtual Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* aClass);

  /// Called by close, before the notifications. An override begins with its base's.
  virtual Acad::ErrorStatus subClose();
  /// Called by erase; a status other than eOk refuses it. An override begins with its base's.
  virtual Acad::ErrorStatus subErase(Adesk::Boolean erasing);
  virtual Acad::ErrorStatus subOpen(AcDb::OpenMode mode);
  virtual Acad::ErrorStatus subCancel();
  virtual Acad::ErrorStatus subDeepClone(AcDbObject* owner, AcDbObject*& clone, AcDbIdMapping& idMap,
                                         bool isPrimary) const;
  virtual Acad::ErrorStatus subWblockClone(AcRxObject* owner, AcDbObject*& clone, AcDbIdMapping& idMap,
                                           bool isPrimary) const;

 protected:
  AcDbObject() = default;

  /// What the object's kind adds to opening; set by constructors.
  enum Trait : Adesk::UInt8 { kIsEntity = 1, kTellsOpens = 2, kOwnsParts = 4, kIsProxy = 8 };
  void addTrait(Trait trait) { traits_ = Adesk::UInt8(traits_ | trait); }
  bool hasTrait(Trait trait) const { return (traits_ & trait) != 0; }
  /// Sets or clears a flag of the open.
  void mark(AcDbStub::Flag flag, bool on = true);

 private:
  friend class AcDbDatabase;
  friend class AcDbUndoLog;
  friend class AcDbCloner;
  friend class AcDbOpener;
  friend class AcDbNotifier;
  friend class AcDbEntity;
  struct Extras;

  bool has(Adesk::UInt32 flags) const { return stub_ != nullptr && stub_->has(flags); }
  [[gnu::cold, gnu::noinline]] void refuse(const ACHAR* why) const;
  void beginWrite(bool autoUndo, bool recordModified);
  Acad::ErrorStatus closeWriter();
  Extras& extras() const;

  AcDbStub* stub_ = nullptr;
  mutable Extras* extras_ = nullptr;  // made on first need
  Adesk::UInt8 traits_ = 0;
};

/// Whether an element of AcDbObject::reactors() is a persistent reactor, and its id (null for a transient one).
bool acdbIsPersistentReactor(void* reactor);
AcDbObjectId acdbPersistentReactorObjectId(void* reactor);
