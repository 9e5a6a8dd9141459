#include "host/db/Support.h"

namespace {

TEST(MemoryFiler, GivesBackEveryTypeAsItWasWritten) {
  AcDbDeepCloneFiler filer;
  AcDbStub stub;
  char bytes[3] = {1, 2, 3};
  filer.writeItem(Adesk::Int16(-5));
  filer.writeItem(Adesk::Int32(1 << 30));
  filer.writeItem(Adesk::Int64(-1) << 40);
  filer.writeItem(Adesk::UInt8(200));
  filer.writeItem(true);
  filer.writeItem(0.1);
  filer.writeItem(L"aço çã");
  filer.writeString(nullptr);
  filer.writeItem(AcGePoint3d(1, 2, 3));
  filer.writeItem(AcGeVector2d(4, 5));
  filer.writeItem(AcDbHardPointerId(&stub));
  filer.writeBytes(bytes, sizeof bytes);
  filer.writeBChunk({sizeof bytes, bytes});
  ASSERT_EQ(filer.seek(0), Acad::eOk);
  Adesk::Int16 i16 = 0;
  Adesk::Int32 i32 = 0;
  Adesk::Int64 i64 = 0;
  Adesk::UInt8 u8 = 0;
  Adesk::Boolean flag = 0;
  double real = 0;
  ACHAR* text = nullptr;
  ACHAR* empty = nullptr;
  AcGePoint3d point;
  AcGeVector2d vector;
  AcDbHardPointerId id;
  char read[3] = {};
  ads_binary chunk{};
  filer.readItem(&i16);
  filer.readItem(&i32);
  filer.readItem(&i64);
  filer.readItem(&u8);
  filer.readBoolean(&flag);
  filer.readItem(&real);
  filer.readString(&text);
  filer.readString(&empty);
  filer.readItem(&point);
  filer.readItem(&vector);
  filer.readItem(&id);
  filer.readBytes(read, sizeof read);
  filer.readBChunk(&chunk);
  EXPECT_EQ(filer.filerStatus(), Acad::eOk);
  EXPECT_TRUE(filer.atEnd());
  EXPECT_EQ(i16, -5);
  EXPECT_EQ(i32, 1 << 30);
  EXPECT_EQ(i64, Adesk::Int64(-1) << 40);
  EXPECT_EQ(u8, 200);
  EXPECT_EQ(flag, 1);
  EXPECT_EQ(real, 0.1);
  EXPECT_STREQ(text, L"aço çã");
  EXPECT_STREQ(empty, L"");
  EXPECT_EQ(point, AcGePoint3d(1, 2, 3));
  EXPECT_EQ(vector, AcGeVector2d(4, 5));
  EXPECT_EQ(id.stub(), &stub);
  EXPECT_EQ(read[2], 3);
  EXPECT_EQ(chunk.clen, 3);
  EXPECT_EQ(chunk.buf[1], 2);
  acutDelString(text);
  acutDelString(empty);
  odrxFree(chunk.buf);
}

TEST(MemoryFiler, RefusesAReadOfAnotherTypeAndStaysFailed) {
  AcDbMemoryDwgFiler filer;
  filer.writeInt32(7);
  filer.writeDouble(2.5);
  filer.seek(0);
  Adesk::Int16 narrow = 99;
  EXPECT_EQ(filer.readInt16(&narrow), Acad::eFilerError);
  EXPECT_EQ(narrow, 0);
  Adesk::Int32 value = 99;
  EXPECT_EQ(filer.readInt32(&value), Acad::eFilerError);
  EXPECT_EQ(value, 0);
  filer.resetFilerStatus();
  EXPECT_EQ(filer.readInt32(&value), Acad::eOk);
  EXPECT_EQ(value, 7);
}

TEST(MemoryFiler, TellsASoftPointerFromAHardOne) {
  AcDbMemoryDwgFiler filer;
  filer.writeSoftPointerId(AcDbObjectId::kNull);
  filer.seek(0);
  AcDbHardPointerId id;
  EXPECT_EQ(filer.readHardPointerId(&id), Acad::eFilerError);
}

TEST(MemoryFiler, ReadsNothingBeyondItsEnd) {
  AcDbMemoryDwgFiler filer;
  double value = 1;
  EXPECT_EQ(filer.readDouble(&value), Acad::eEndOfObject);
  EXPECT_EQ(value, 0);
  EXPECT_EQ(filer.seek(1), Acad::eInvalidInput);
}

TEST(MemoryFiler, VisitsAndTranslatesReferences) {
  AcDbMemoryDwgFiler filer;
  AcDbStub a, b;
  filer.writeString(L"before");
  filer.writeSoftPointerId(AcDbObjectId(&a));
  filer.writeDouble(1);
  filer.writeHardOwnershipId(AcDbObjectId(&b));
  std::vector<AcDbReferenceKind> kinds;
  EXPECT_TRUE(filer.visitReferences([&](AcDbReferenceKind kind, AcDbObjectId& id) {
    kinds.push_back(kind);
    if (id == AcDbObjectId(&a)) id = AcDbObjectId(&b);
  }));
  EXPECT_EQ(kinds, (std::vector{AcDbReferenceKind::kSoftPointer, AcDbReferenceKind::kHardOwner}));
  filer.seek(0);
  ACHAR* text = nullptr;
  filer.readString(&text);
  acutDelString(text);
  AcDbSoftPointerId id;
  filer.readSoftPointerId(&id);
  EXPECT_EQ(id.stub(), &b);
}

TEST(DxfFiler, WritesGroupsAndReadsThemBack) {
  AcDbMemoryDxfFiler filer;
  filer.writeItem(AcDb::kDxfSubclass, L"KrObject");
  filer.writeItem(170, Adesk::Int16(9));
  filer.writeItem(40, 2.5);
  filer.writeItem(10, AcGePoint3d(1, 2, 3));
  filer.writeItem(90, Adesk::Int32(70000));
  EXPECT_FALSE(filer.atSubclassData(L"Other"));
  EXPECT_TRUE(filer.atSubclassData(L"KrObject"));
  resbuf item{};
  ASSERT_EQ(filer.readItem(&item), Acad::eOk);
  EXPECT_EQ(item.restype, 170);
  EXPECT_EQ(item.resval.rint, 9);
  filer.pushBackItem();
  filer.readItem(&item);
  EXPECT_EQ(item.restype, 170);
  filer.readItem(&item);
  EXPECT_EQ(item.resval.rreal, 2.5);
  filer.readItem(&item);
  EXPECT_EQ(item.resval.rpoint[2], 3);
  filer.readItem(&item);
  EXPECT_EQ(item.resval.rlong, 70000);
  EXPECT_TRUE(filer.atEOF());
  EXPECT_EQ(filer.readItem(&item), Acad::eEndOfFile);
}

TEST(DxfFiler, KeepsTheErrorAndItsText) {
  AcDbMemoryDxfFiler filer;
  EXPECT_EQ(filer.setError(Acad::eInvalidDxfCode, L"code %d of %s", 7, L"x"), Acad::eInvalidDxfCode);
  EXPECT_EQ(filer.filerStatus(), Acad::eInvalidDxfCode);
  EXPECT_STREQ(filer.errorMessage(), L"code 7 of x");
}

TEST(DxfFiler, AnEntitysCommonPropertiesComeBack) {
  Probe::rxInit();
  acrxBuildClassHierarchy();
  AcDbDatabase db;
  acdbHostApplicationServices()->setWorkingDatabase(&db);
  Probe probe;
  probe.setLayer(L"0");
  probe.setColorIndex(4);
  probe.setLinetypeScale(2);
  probe.setLineWeight(AcDb::kLnWt035);
  probe.setVisibility(AcDb::kInvisible);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(probe.dxfOut(&filer), Acad::eOk);
  Probe read;
  ASSERT_EQ(read.dxfIn(&filer), Acad::eOk);
  EXPECT_EQ(read.layerId(), db.layerZero());
  EXPECT_EQ(read.colorIndex(), 4);
  EXPECT_EQ(read.linetypeScale(), 2);
  EXPECT_EQ(read.lineWeight(), AcDb::kLnWt035);
  EXPECT_EQ(read.visibility(), AcDb::kInvisible);
}

TEST(Handle, PrintsAndReadsHexadecimal) {
  ACHAR text[AcDbHandle::kStrSize];
  EXPECT_TRUE(AcDbHandle(0x2aF).getIntoAsciiBuffer(text));
  EXPECT_STREQ(text, L"2AF");
  EXPECT_TRUE(AcDbHandle(~Adesk::UInt64(0)).getIntoAsciiBuffer(text));
  EXPECT_STREQ(text, L"FFFFFFFFFFFFFFFF");
  EXPECT_TRUE(AcDbHandle().getIntoAsciiBuffer(text));
  EXPECT_STREQ(text, L"0");
  EXPECT_FALSE(AcDbHandle(0x2af).getIntoAsciiBuffer(text, 3));
  EXPECT_EQ(AcDbHandle(L"2af").value(), 0x2afU);
  EXPECT_EQ(AcDbHandle(L"2ag").value(), 0U);
  EXPECT_EQ(AcDbHandle("11111111111111111").value(), 0U);
  EXPECT_LT(AcDbHandle(1), AcDbHandle(2));
}

}  // namespace
