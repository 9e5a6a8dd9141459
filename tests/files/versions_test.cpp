// Members of other versions in files, and members of two drawings at once.

#include <gmock/gmock.h>

#include "files/Trips.h"
#include "object/MemberLayout.h"

namespace {

using namespace trips;

constexpr Adesk::Int16 kPlateVersion = 1;

/// Files the fields of an object as those of a proxy.
class BitsOf {
 public:
  BitsOf() : encoder_(bits_, krio::dwg::codePageOf(krio::dwg::kWesternCodePage)), filer(encoder_) {}

  std::unique_ptr<AcDbProxyEntity> proxy(const wchar_t* className, const wchar_t* dxfName, int nullReferences) {
    auto entity = std::make_unique<AcDbProxyEntity>();
    AcDbProxyData& data = entity->dataAsRead();
    data.classRecord.cppName = className;
    data.classRecord.dxfName = dxfName;
    data.classRecord.appName = className;
    data.classRecord.proxyFlags = kProfileProxyFlags;
    data.classRecord.itemClassId = AcDbClassRecord::kEntityClass;
    data.bitCount = Adesk::UInt32(bits_.position());
    const auto bytes = bits_.bytes();
    const auto* const first = reinterpret_cast<const std::byte*>(bytes.data());
    data.bits.assign(first, first + (data.bitCount + 7) / 8);
    for (int i = 0; i < nullReferences; ++i) data.references.push_back({5, AcDbObjectId::kNull});
    return entity;
  }

 private:
  krio::dwg::BitWriter bits_;
  krio::dwg::Encoder encoder_;

 public:
  dwgtools::DigestFiler filer;
};

/// A plate as a file of a version holds it, then the class's own fields of a version. Not written by the plate itself.
std::unique_ptr<AcDbProxyEntity> plateOfVersion(int version, Adesk::Int16 own, bool more = false) {
  BitsOf bits;
  MemberLayout layout = MemberLayout::plate();
  layout.version = version;
  layout.write(bits.filer);
  if (more) {
    for (const double limit : {0.1, 0.9, 2.0}) bits.filer.writeDouble(limit);
    bits.filer.writeInt32(0);
  }
  bits.filer.writeInt16(own);
  bits.filer.writeDouble(8);
  bits.filer.writeDouble(100);
  // A middle line without nodes has its reference node all the same.
  bits.filer.writeInt32(0);
  bits.filer.writeVector3d({0, 0, 0});
  bits.filer.writeDouble(0);
  return bits.proxy(L"KrChapa", L"KRCHAPA", version >= 9 ? 3 : 0);
}

/// The members' module is away for the life of this object.
class WithoutModule {
 public:
  WithoutModule() { acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr); }
  ~WithoutModule() {
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    loadExampleModule();
  }
  WithoutModule(const WithoutModule&) = delete;
  WithoutModule& operator=(const WithoutModule&) = delete;
};

}  // namespace

TEST(MemberVersions, NewerThanKnownStayAsTheyAreInAnyFile) {
  for (const int version : {10, 11, 12, 300}) {
    SCOPED_TRACE(version);
    Drawing drawing;
    const AcDbObjectId id = drawing.append(plateOfVersion(version, kPlateVersion, true).release());
    const AcDbProxyData went = AcDbProxyEntity::cast(id.stub()->object)->data();
    const Bytes file = saved(*drawing.database(), Form::kDwg);
    Opened opened(file);
    const auto* const kept = opened.at<AcDbProxyEntity>(id.handle());
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->data().bits, went.bits);
    EXPECT_EQ(kept->data().bitCount, went.bitCount);
    EXPECT_EQ(kept->data().references.size(), 3U);
    EXPECT_TRUE(std::ranges::any_of(opened.report.findings, [&](const auto& f) {
      return f.handle == id.handle().value();
    })) << "named in the report";
    EXPECT_TRUE(saved(opened.database(), Form::kDwg) == file);
    // And by way of a DXF.
    Opened dxf(saved(opened.database(), Form::kDxf));
    Opened back(saved(dxf.database(), Form::kDwg));
    const auto* const again = back.at<AcDbProxyEntity>(id.handle());
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->data().bits, went.bits);
    EXPECT_EQ(again->data().bitCount, went.bitCount);
  }
}

TEST(MemberVersions, OfAllTimesOpenAsMembersAndAreSavedAsTheNewest) {
  for (int version = 1; version <= MemberLayout::kNewest; ++version) {
    SCOPED_TRACE(version);
    Drawing drawing;
    const AcDbObjectId id = drawing.append(plateOfVersion(version, kPlateVersion).release());
    Opened opened(saved(*drawing.database(), Form::kDwg));
    auto* const plate = opened.at<KrChapa>(id.handle());
    ASSERT_NE(plate, nullptr) << textOf(opened.report);
    Version now{};
    plate->KrObjectVersion(now);
    EXPECT_EQ(now, 9);
    EXPECT_STREQ(plate->userName(), L"V12");
    EXPECT_EQ(plate->numCortes(), 2);
    EXPECT_EQ(plate->numFuros(), version >= 3 ? 2 : 0);
    EXPECT_EQ(plate->zCoordIni(), 30);
    EXPECT_EQ(plate->zCoordEnd(), 40);
    EXPECT_EQ(plate->tipoBarra(), version >= 5 ? 4 : 0);
    const Bytes newest = saved(opened.database(), Form::kDwg);
    Opened again(newest);
    EXPECT_NE(again.at<KrChapa>(id.handle()), nullptr);
    EXPECT_TRUE(saved(again.database(), Form::kDwg) == newest);
  }
}

TEST(MemberVersions, AnExtensionWhoseModuleIsntThereKeepsTheMemberWhole) {
  loadExampleModule();
  Drawing drawing;
  std::vector<AcDbObjectId> ids;
  for (const Sample& sample : everyclass::samples()) {
    if (filesNothing(sample.name)) continue;
    std::unique_ptr<KrObject> member = sample.make(Superior);
    member->addKrObjectExtension(new ErectionMark(17, 25));
    ids.push_back(drawing.append(member.release()));
  }
  const Bytes file = saved(*drawing.database(), Form::kDwg);
  unloadExampleModule();
  Bytes kept, again;
  {
    // Its reader stops at the extension, without a fault; what stands behind it isn't taken, so it stays as it is.
    Opened opened(file);
    for (const AcDbObjectId id : ids) {
      auto* const proxy = opened.at<AcDbProxyEntity>(id.handle());
      ASSERT_NE(proxy, nullptr);
      EXPECT_FALSE(proxy->fileGraphics().empty());
    }
    kept = saved(opened.database(), Form::kDwg);
    Opened second(kept);
    again = saved(second.database(), Form::kDwg);
  }
  EXPECT_TRUE(kept == again);
  loadExampleModule();
  Opened with(again);
  for (const AcDbObjectId id : ids) {
    auto* const back = with.at<KrObject>(id.handle());
    ASSERT_NE(back, nullptr);
    const auto* const mark = static_cast<const ErectionMark*>(back->getKrObjectExtension(1));
    ASSERT_NE(mark, nullptr);
    EXPECT_EQ(mark->number, 17);
  }
  EXPECT_TRUE(saved(with.database(), Form::kDwg) == file);
}

TEST(MemberVersions, AnExtensionWhoseModuleIsntThereSurvivesASaveAsDxf) {
  loadExampleModule();
  Drawing drawing;
  std::unique_ptr<KrObject> member = everyclass::samples()[0].make(Superior);
  member->addKrObjectExtension(new ErectionMark(17, 25));
  const AcDbObjectId id = drawing.append(member.release());
  const Bytes file = saved(*drawing.database(), Form::kDwg);
  unloadExampleModule();
  Bytes dwg;
  {
    Opened opened(file);
    Opened dxf(saved(opened.database(), Form::kDxf));
    dwg = saved(dxf.database(), Form::kDwg);
  }
  loadExampleModule();
  Opened with(dwg);
  auto* const back = with.at<KrObject>(id.handle());
  ASSERT_NE(back, nullptr);
  ASSERT_NE(back->getKrObjectExtension(1), nullptr);
  EXPECT_EQ(static_cast<const ErectionMark*>(back->getKrObjectExtension(1))->number, 17);
}

// --- Two drawings

TEST(MembersOfTwoDrawings, NeverReferAcross) {
  Drawing layered;  // the working drawing, with the layers of hidden lines, axes and hidden faces
  AcDbDatabase bare;
  auto member = everyclass::samples()[0].make(Superior);
  ASSERT_EQ(everyclass::modify(*member), 3);
  // The layers are looked up when a member is drawn.
  const AcDbObjectId drawn = layered.append(everyclass::samples()[0].make(Superior).release());
  EXPECT_FALSE(picture(*Open<KrObject>(drawn, AcDb::kForRead)).empty());
  AcDbObjectId id;
  {
    const AcDbObjectPointer<AcDbBlockTableRecord> space(bare.modelSpaceId(), AcDb::kForWrite);
    ASSERT_EQ(space->appendAcDbEntity(id, member.get()), Acad::eOk);
    member.release()->close();
  }
  const Bytes file = saved(bare, Form::kDwg);
  {
    const WithoutModule away;
    Opened opened(file);
    const auto* const proxy = opened.at<AcDbProxyEntity>(id.handle());
    ASSERT_NE(proxy, nullptr);
    const auto& references = proxy->data().references;
    ASSERT_EQ(references.size(), 3U);
    for (const AcDbProxyData::Reference& reference : references) {
      EXPECT_EQ(reference.code, 5);
      EXPECT_TRUE(reference.id.isNull());
    }
    gi::Recorder recorder;
    recorder.setDatabase(&opened.database());
    recorder.drawWhole(*const_cast<AcDbProxyEntity*>(proxy));
    EXPECT_FALSE(recorder.figures().empty());
    for (const gi::DrawCall& figure : recorder.figures()) EXPECT_EQ(figure.traits.layer, opened.database().layerZero());
  }
  // The drawing that has the layers files them.
  const Bytes other = saved(*layered.database(), Form::kDwg);
  const WithoutModule away;
  Opened opened(other);
  const auto* const proxy = opened.at<AcDbProxyEntity>(drawn.handle());
  ASSERT_NE(proxy, nullptr);
  ASSERT_EQ(proxy->data().references.size(), 3U);
  for (const AcDbProxyData::Reference& reference : proxy->data().references) {
    EXPECT_EQ(reference.id.database(), &opened.database());
    EXPECT_NE(AcDbLayerTableRecord::cast(reference.id.stub()->object), nullptr);
  }
}
