// Members on their way to copies, to other drawings and into files: what goes along and what stays behind.

#include <gmock/gmock.h>

#include "files/Trips.h"

namespace {

using namespace trips;

AcDbObjectIdArray only(AcDbObjectId id) {
  AcDbObjectIdArray ids;
  ids.append(id);
  return ids;
}

AcDbObjectId made(const AcDbIdMapping& map, AcDbObjectId from) {
  AcDbIdPair pair(from, AcDbObjectId::kNull, false);
  return map.compute(pair) ? pair.value() : AcDbObjectId::kNull;
}

const BoltData* notchDataOf(const KrObject& member) {
  return static_cast<const BoltData*>(member.accessCDataToMod(ModRecorte, 0));
}

AcDbObjectId layerOf(AcDbDatabase& database, const wchar_t* name) {
  const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
  AcDbObjectId id;
  return table->getAt(name, id) == Acad::eOk ? id : AcDbObjectId::kNull;
}

class MemberCopies : public testing::Test {
 protected:
  MemberCopies() { loadExampleModule(); }
  Drawing drawing;
};

}  // namespace

TEST_F(MemberCopies, HaveNoneOfTheDataThatStaysWithItsNotchAndFilesHaveIt) {
  std::unique_ptr<KrObject> plate = everyclass::samples()[2].make(Superior);
  ASSERT_EQ(everyclass::modify(*plate), 3);
  BoltData weld(L"a5");
  ASSERT_EQ(plate->assocCDataToMod(ModRecorte, 0, &weld), Acad::eOk);
  static_cast<BoltData*>(plate->accessCDataToMod(ModRecorte, 0))->goesWithACopy = 0;
  const AcDbObjectId id = drawing.append(plate.release());
  {
    Open<KrObject> member(id, AcDb::kForRead);
    const std::unique_ptr<AcRxObject> clone(member->clone());
    EXPECT_EQ(notchDataOf(*KrObject::cast(clone.get())), nullptr);
    EXPECT_NE(notchDataOf(*member), nullptr);
  }
  AcDbIdMapping map;
  ASSERT_EQ(drawing.database()->deepCloneObjects(only(id), drawing.database()->modelSpaceId(), map), Acad::eOk);
  EXPECT_EQ(notchDataOf(*Open<KrObject>(made(map, id), AcDb::kForRead)), nullptr);

  Opened opened(saved(*drawing.database(), Form::kDwg));
  auto* const back = opened.at<KrObject>(id.handle());
  ASSERT_NE(back, nullptr);
  ASSERT_NE(notchDataOf(*back), nullptr);
  EXPECT_EQ(notchDataOf(*back)->name, L"a5");
}

TEST_F(MemberCopies, InAnotherDrawingBringTheirLayersAndForgetWhatStaysBehind) {
  const Sample tube = everyclass::samples()[0];
  const AcDbObjectId id = drawing.append(tube.make(Superior).release());
  const AcDbObjectId linked = drawing.append(tube.make(Direita).release());
  const AcDbObjectId line = drawing.append(new AcDbLine);
  {
    Open<KrObject> member(id, AcDb::kForWrite);
    const AcDbObjectIdArray other = only(linked);
    const AcDbObjectIdArray drawn = only(line);
    member->setRelativeObj(&other);
    member->setRelativeDim(&drawn);
    member->setRelativePos(&drawn);
  }
  AcDbDatabase to;
  AcDbIdMapping map;
  ASSERT_EQ(to.wblockCloneObjects(only(id), to.modelSpaceId(), map, AcDb::kDrcIgnore), Acad::eOk);
  for (const wchar_t* const name : {L"L-HIDDEN", L"EIXO", L"KR_HIDE_FACE"}) {
    const AcDbObjectId layer = layerOf(to, name);
    EXPECT_FALSE(layer.isNull()) << ascii(name);
    EXPECT_EQ(made(map, drawing.layer(name)), layer) << ascii(name);
  }
  EXPECT_TRUE(layerOf(to, L"PERFIL").isNull()) << "nothing names it";
  ASSERT_EQ(made(map, id).database(), &to);
  Open<KrObject> copy(made(map, id), AcDb::kForRead);
  AcDbObjectIdArray ids;
  for (const auto list : {&KrObject::RelativeObj, &KrObject::RelativeDim, &KrObject::RelativePos}) {
    ASSERT_EQ(((*copy).*list)(ids), Acad::eOk);
    ASSERT_EQ(ids.length(), 1);
    EXPECT_TRUE(ids[0].isNull());
  }
  EXPECT_EQ(copy->GetNumVertex(VistaCorrente), Open<KrObject>(id, AcDb::kForRead)->GetNumVertex(VistaCorrente));
}
