#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host/db/db.h"

/// An entity with a value and references of all four kinds, that counts what happens to it.
class Probe : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(Probe);
  Probe() = default;
  explicit Probe(int value) : value_(value) {}

  int value() const {
    assertReadEnabled();
    return value_;
  }
  void setValue(int value) {
    assertWriteEnabled();
    value_ = value;
  }
  /// Writes its undo record itself.
  void setValueByPartialUndo(int value);

  AcDbHardPointerId hardPointer;
  AcDbSoftPointerId softPointer;
  AcDbHardOwnershipId hardOwned;
  AcDbSoftOwnershipId softOwned;
  std::vector<std::wstring> told;  ///< notifications as a persistent reactor
  int closes = 0;
  int writableCloses = 0;
  bool writeWhenTold = false;
  mutable int filed = 0;                                 ///< times that it was written to a filer
  static inline void (*whileReading)(Probe&) = nullptr;  ///< called when it is read

  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* aClass) override;
  Acad::ErrorStatus subClose() override;
  void modified(const AcDbObject* object) override;
  void cancelled(const AcDbObject* object) override;
  void modifyUndone(const AcDbObject* object) override;
  void erased(const AcDbObject* object, Adesk::Boolean erasing) override;
  void objectClosed(const AcDbObjectId id) override;

 protected:
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override {
    ++value_;
    return Acad::eOk;
  }

 private:
  int value_ = 0;
};

/// Writes down what it is told, as an object's reactor and as a database's.
class Recorder : public AcDbEntityReactor {
 public:
  std::vector<std::wstring> told;
  void cancelled(const AcDbObject*) override { told.push_back(L"cancelled"); }
  void erased(const AcDbObject*, bool erasing) override { told.push_back(erasing ? L"erased" : L"unerased"); }
  void goodbye(const AcDbObject*) override { told.push_back(L"goodbye"); }
  void openedForModify(const AcDbObject*) override { told.push_back(L"openedForModify"); }
  void modified(const AcDbObject* o) override { told.push_back(o->isUndoing() ? L"modified (undoing)" : L"modified"); }
  void modifiedGraphics(const AcDbObject*) override { told.push_back(L"modifiedGraphics"); }
  void modifyUndone(const AcDbObject*) override { told.push_back(L"modifyUndone"); }
  void unappended(const AcDbObject*) override { told.push_back(L"unappended"); }
  void reappended(const AcDbObject*) override { told.push_back(L"reappended"); }
  void objectClosed(const AcDbObjectId) override { told.push_back(L"objectClosed"); }
};

class DatabaseRecorder : public AcDbDatabaseReactor {
 public:
  explicit DatabaseRecorder(std::vector<std::wstring>& log) : told(log) {}
  std::vector<std::wstring>& told;
  void objectAppended(const AcDbDatabase*, const AcDbObject*) override { told.push_back(L"db appended"); }
  void objectUnAppended(const AcDbDatabase*, const AcDbObject*) override { told.push_back(L"db unappended"); }
  void objectReAppended(const AcDbDatabase*, const AcDbObject*) override { told.push_back(L"db reappended"); }
  void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) override { told.push_back(L"db openedForModify"); }
  void objectModified(const AcDbDatabase*, const AcDbObject*) override { told.push_back(L"db modified"); }
  void objectErased(const AcDbDatabase*, const AcDbObject*, bool erasing) override {
    told.push_back(erasing ? L"db erased" : L"db unerased");
  }
  void headerSysVarChanged(const AcDbDatabase*, const ACHAR* name, bool) override { told.push_back(name); }
  void goodbye(const AcDbDatabase*) override { told.push_back(L"db goodbye"); }
};

/// A new drawing for each test, in which nothing may stay open.
class DrawingTest : public ::testing::Test {
 protected:
  DrawingTest() {
    Probe::rxInit();
    acrxBuildClassHierarchy();
  }
  ~DrawingTest() override { EXPECT_EQ(db.numOpenObjects(), 0); }

  /// Appends to the model space and closes.
  static AcDbObjectId append(AcDbDatabase& database, AcDbEntity* entity);
  AcDbObjectId append(AcDbEntity* entity) { return append(db, entity); }
  static int valueOf(AcDbObjectId id);
  void setValue(AcDbObjectId id, int value);

  AcDbDatabase db;
};

using Told = std::vector<std::wstring>;
