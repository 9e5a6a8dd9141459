// What the database gives to those who read and write drawing files.
#include "host/db/Support.h"

namespace {

using H = AcDbHeader;

TEST(Header, HasTheVariablesOfTheStreamInOrderAndFindsThemByName) {
  // 225 numbered items and four shorts without a name.
  EXPECT_EQ(int(H::kNumInStream), 229);
  EXPECT_EQ(H::kUNIT_RATIO1, 0);
  EXPECT_EQ(H::kDIMASO, 11);
  EXPECT_EQ(H::kLTSCALE, 58);
  EXPECT_EQ(H::kDIMPOST, 130);
  EXPECT_EQ(H::kFLAGS, 214);
  EXPECT_EQ(H::find("LTSCALE"), H::kLTSCALE);
  EXPECT_EQ(H::find("NOSUCH"), H::kNumVars);
  EXPECT_EQ(H::info(H::kCLAYER).type, H::kId);
  EXPECT_EQ(H::info(H::kCLAYER).dxfCode, 8);
  EXPECT_EQ(H::info(H::kPELLIPSE).dxfCode, 0);
}

TEST(Header, BeginsWithTheMetricDefaults) {
  const H header;
  EXPECT_EQ(header.real(H::kUNIT_RATIO1), 412148564080.0);
  EXPECT_EQ(header.text(H::kUNIT_NAME1), L"m");
  EXPECT_EQ(header.whole(H::kTREEDEPTH), 3020);
  EXPECT_EQ(header.whole(H::kCECOLOR), 256);
  EXPECT_EQ(header.point(H::kEXTMIN), AcGePoint3d(1e20, 1e20, 1e20));
  EXPECT_EQ(header.whole(H::kDIMLWD), -2);
  EXPECT_EQ(header.whole(H::kFLAGS), 0x2A1D);
}

TEST(Header, TakesFlagsApart) {
  H header;
  // 0x2A1D: lineweight by layer (29), lineweights hidden, edits allowed (0x400 clear), long names, plot styles by
  // colour.
  EXPECT_EQ(header.whole(H::kCELWEIGHT), AcDb::kLnWtByLayer);
  EXPECT_EQ(header.whole(H::kLWDISPLAY), 0);
  EXPECT_EQ(header.whole(H::kXEDIT), 1);
  EXPECT_EQ(header.whole(H::kEXTNAMES), 1);
  EXPECT_EQ(header.whole(H::kPSTYLEMODE), 1);
  EXPECT_EQ(header.whole(H::kOLESTARTUP), 0);
  header.setWhole(H::kLWDISPLAY, 1);
  EXPECT_EQ(header.whole(H::kFLAGS), 0x281D);
  header.setWhole(H::kCELWEIGHT, AcDb::kLnWt030);
  EXPECT_EQ(header.whole(H::kFLAGS), 0x2808);
}

TEST(LineWeights, GoThereAndBackForEveryNumber) {
  for (int index = 0; index < 256; ++index) {
    EXPECT_EQ(acdbLineWeightIndex(acdbLineWeightAt(Adesk::UInt8(index))), index);
  }
  EXPECT_EQ(acdbLineWeightAt(23), AcDb::kLnWt211);
  EXPECT_EQ(acdbLineWeightAt(31), AcDb::kLnWtByLwDefault);
}

TEST(NewDrawing, HasTheObjectsOfEveryDrawingUnderTheirUsualHandles) {
  AcDbDatabase db;
  const auto at = [&](Adesk::UInt64 handle) -> const ACHAR* {
    AcDbObjectId id;
    db.getAcDbObjectId(id, false, AcDbHandle(handle));
    return id.isResident() ? id.stub()->object->isA()->name() : L"";
  };
  EXPECT_STREQ(at(0x1), L"AcDbBlockTable");
  EXPECT_STREQ(at(0xB), L"AcDbVXTable");
  EXPECT_STREQ(at(0xC), L"AcDbDictionary");
  EXPECT_STREQ(at(0xE), L"AcDbDictionaryWithDefault");
  EXPECT_STREQ(at(0xF), L"AcDbPlaceHolder");
  EXPECT_STREQ(at(0x10), L"AcDbLayerTableRecord");
  EXPECT_STREQ(at(0x12), L"AcDbRegAppTableRecord");
  EXPECT_STREQ(at(0x18), L"AcDbMlineStyle");
  EXPECT_STREQ(at(0x1C), L"AcDbBlockBegin");
  EXPECT_STREQ(at(0x21), L"AcDbBlockEnd");
  EXPECT_STREQ(at(0x22), L"AcDbLayout");
  EXPECT_STREQ(at(0x29), L"AcDbViewportTableRecord");
  EXPECT_STREQ(at(0x4), L"");
  EXPECT_EQ(db.handseed().value(), 0x2AU);
  EXPECT_EQ(db.numOpenObjects(), 0);
  const AcDbObjectPointer<AcDbBlockTableRecord> model(db.modelSpaceId(), AcDb::kForRead);
  EXPECT_TRUE(model->isEmpty());
  const AcDbObjectPointer<AcDbLayout> layout(model->getLayoutId(), AcDb::kForRead);
  EXPECT_EQ(layout->getBlockTableRecordId(), db.modelSpaceId());
  EXPECT_EQ(layout->plotData().flags, 1712);
}

TEST(NewDrawing, NeedsNothingMoreForASave) {
  AcDbDatabase db;
  const Adesk::Int32 objects = db.approxNumObjects();
  db.prepareForSave();
  EXPECT_EQ(db.approxNumObjects(), objects);
  EXPECT_EQ(db.header().id(H::kBLOCK_CONTROL), db.blockTableId());
  EXPECT_EQ(db.header().id(H::kLTYPE_CONTINUOUS), db.continuousLinetype());
}

TEST(ReadDrawing, TakesObjectsUnderTheirHandlesInAnyOrder) {
  AcDbDatabase db(false);
  AcDbStub* const owner = db.stubOf(0x1F);
  AcDbStub* const own = db.stubOf(0x100);
  auto* const line = new AcDbLine({0, 0, 0}, {1, 0, 0});
  EXPECT_EQ(db.putRead(line, own, owner), Acad::eOk);
  EXPECT_EQ(line->objectId().handle().value(), 0x100U);
  EXPECT_FALSE(line->isWriteEnabled());
  EXPECT_EQ(line->ownerId(), AcDbObjectId(owner));
  EXPECT_FALSE(line->ownerId().isResident());
  EXPECT_EQ(db.numOpenObjects(), 0);
  EXPECT_EQ(db.handseed().value(), 0x101U);
  AcDbLine again;
  EXPECT_EQ(db.putRead(&again, own, owner), Acad::eHandleExists);
  EXPECT_EQ(db.putRead(line, db.stubOf(0x101), owner), Acad::eAlreadyInDb);
}

TEST(ReadDrawing, GetsWhatItLacksAndKeepsWhatItHas) {
  AcDbDatabase db(false);
  auto* const layers = new AcDbLayerTable;
  db.putRead(layers, db.stubOf(0x2), nullptr);
  auto* const zero = new AcDbLayerTableRecord;
  zero->setNameAsRead(L"0");
  db.putRead(zero, db.stubOf(0x10), db.stubOf(0x2));
  layers->listAsRead(*zero);
  db.header().setId(H::kLAYER_CONTROL, db.stubOf(0x2));
  // A broken file names an object of another kind.
  db.header().setId(H::kBLOCK_CONTROL, db.stubOf(0x10));
  EXPECT_EQ(db.finishRead(), Acad::eOk);
  EXPECT_EQ(db.layerTableId().handle().value(), 0x2U);
  EXPECT_EQ(db.layerZero().handle().value(), 0x10U);
  EXPECT_EQ(db.clayer(), db.layerZero());
  EXPECT_FALSE(db.modelSpaceId().isNull());
  EXPECT_NE(db.blockTableId(), AcDbObjectId(db.stubOf(0x10)));
  db.prepareForSave();
  const AcDbObjectPointer<AcDbBlockTableRecord> model(db.modelSpaceId(), AcDb::kForRead);
  EXPECT_FALSE(model->blockEndId().isNull());
  EXPECT_FALSE(model->getLayoutId().isNull());
}

TEST(HandleTable, FindsCloseAndFarHandlesAlike) {
  AcDbHandleTable table;
  std::vector<AcDbStub*> stubs;
  std::vector<Adesk::UInt64> handles;
  for (Adesk::UInt64 i = 1; i < 3000; ++i) handles.push_back(i);
  for (Adesk::UInt64 i = 1; i < 3000; ++i) handles.push_back(i << 40);
  for (Adesk::UInt64 i = 20000; i < 30000; ++i) handles.push_back(i);
  for (const Adesk::UInt64 handle : handles) stubs.push_back(table.add(handle));
  for (std::size_t i = 0; i < handles.size(); ++i) EXPECT_EQ(table.find(handles[i]), stubs[i]);
  EXPECT_EQ(table.find(0), nullptr);
  EXPECT_EQ(table.find(15000), nullptr);
  EXPECT_EQ(table.find(Adesk::UInt64(3001) << 40), nullptr);
}

TEST(BlockRecords, AreNamedWithoutTheNumberOfTheirAnonymousBlock) {
  AcDbBlockTableRecord record;
  record.setNameAsRead(L"*D12");
  EXPECT_EQ(record.recordName(), L"*D");
  record.setNameAsRead(L"*Paper_Space0");
  EXPECT_EQ(record.recordName(), L"*Paper_Space");
  record.setNameAsRead(L"M20");
  EXPECT_EQ(record.recordName(), L"M20");
}

TEST(EntityProperties, KeepTheFormInWhichAFileToldThem) {
  AcDbDatabase db;
  AcDbLine line;
  AcDbEntity::Common common;
  common.layer = db.layerZero();
  common.linetype = db.continuousLinetype();
  common.linetypeForm = AcDbEntity::kLinetypeContinuous;
  common.plotStyleForm = AcDbEntity::kPlotStyleById;
  common.plotStyle = db.layerZero();
  common.linetypeScale = 2.5;
  common.color.setColorIndex(3);
  common.lineWeight = acdbLineWeightAt(27);
  common.invisible = true;
  line.setCommonAsRead(common);
  const AcDbEntity::Common back = line.common();
  EXPECT_EQ(back.linetypeForm, AcDbEntity::kLinetypeContinuous);
  EXPECT_EQ(back.plotStyleForm, AcDbEntity::kPlotStyleById);
  EXPECT_EQ(back.plotStyle, db.layerZero());
  EXPECT_EQ(back.linetypeScale, 2.5);
  EXPECT_EQ(back.color.colorIndex(), 3);
  EXPECT_EQ(acdbLineWeightIndex(back.lineWeight), 27);
  EXPECT_TRUE(back.invisible);
  EXPECT_EQ(line.visibility(), AcDb::kInvisible);
  line.setLinetype(db.byBlockLinetype());
  EXPECT_EQ(line.common().linetypeForm, AcDbEntity::kLinetypeByLayer) << "set outside of a drawing: told on saving";
}

TEST(EntityProperties, TakeLittleRoom) {
  EXPECT_LE(sizeof(AcDbEntity), 56U);
  EXPECT_LE(sizeof(AcDbLine), 136U);
}

}  // namespace
