#pragma once

#include "host/db/db.h"
#include "records/KrObjectModCData.h"

/// Modification data of a test: a number, filed as an Int32.
class TestData : public KrObjectModCData {
 public:
  ACRX_DECLARE_MEMBERS(TestData);

  explicit TestData(int n = 0) : number(n) { ++alive; }
  TestData(const TestData&) = delete;
  TestData& operator=(const TestData&) = delete;
  ~TestData() override { --alive; }

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override {
    Adesk::Int32 filed = 0;
    filer->readInt32(&filed);
    number = filed;
    return result;
  }
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override {
    filer->writeInt32(number);
    return filer->filerStatus();
  }
  int saveOnCopy() const override { return goesWithACopy; }

  int number = 0;
  int goesWithACopy = 1;

  /// What reading answers.
  static inline Acad::ErrorStatus result = Acad::eOk;
  static inline int alive = 0;
};

/// Another kind of data.
class OtherTestData : public TestData {
 public:
  ACRX_DECLARE_MEMBERS(OtherTestData);

  explicit OtherTestData(int n = 0) : TestData(n) {}
};

/// The number in a slot's data; -1 for an empty slot.
inline int numberOf(const KrObjectModCData* data) {
  return data != nullptr ? static_cast<const TestData*>(data)->number : -1;
}

/// Registers the classes of modification data for a test.
void registerTestData();
