// Members of other versions in files, and members of two drawings at once.

#include <gmock/gmock.h>

#include <functional>
#include <limits>

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

/// A member of the newest layout without an outline, then what `writeOwn` writes behind it.
std::unique_ptr<AcDbProxyEntity> memberOf(const wchar_t* className, const wchar_t* dxfName,
                                          const std::function<void(AcDbDwgFiler&)>& writeOwn,
                                          MemberLayout layout = MemberLayout()) {
  BitsOf bits;
  layout.write(bits.filer);
  writeOwn(bits.filer);
  return bits.proxy(className, dxfName, 3);
}

/// A drawing with a member as a file holds it, from the file.
struct FromFile {
  explicit FromFile(std::unique_ptr<AcDbProxyEntity> member)
      : id(drawing.append(member.release())), went(AcDbProxyEntity::cast(id.stub()->object)->data()) {}

  /// That the file's bits stay with it, and go into the next file.
  void expectKept() {
    Opened opened(saved(*drawing.database(), Form::kDwg));
    const auto* const kept = opened.at<AcDbProxyEntity>(id.handle());
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(kept->data().bits, went.bits);
    EXPECT_EQ(kept->data().bitCount, went.bitCount);
    Opened again(saved(opened.database(), Form::kDwg));
    const auto* const next = again.at<AcDbProxyEntity>(id.handle());
    ASSERT_NE(next, nullptr);
    EXPECT_EQ(next->data().bits, went.bits);
    EXPECT_EQ(next->data().bitCount, went.bitCount);
  }

  Drawing drawing;
  AcDbObjectId id;
  AcDbProxyData went;
};

/// The ten numbers of a rolled I or channel.
void writeTen(AcDbDwgFiler& filer, Adesk::Int16 own) {
  filer.writeInt16(own);
  for (const double number : {203.0, 102.0, 6.9, 22.8, 9.5, 4.0, 27.4, 3490.0, 0.165, 10.8}) filer.writeDouble(number);
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

TEST(MemberVersions, ARolledIOfVersion1HasTheFirstOfTheTypes) {
  FromFile file(
      memberOf(L"KrILaminadoUSA", L"KR_PERFIL_I_LAMINADO_USA", [](AcDbDwgFiler& filer) { writeTen(filer, 1); }));
  Opened opened(saved(*file.drawing.database(), Form::kDwg));
  auto* const bar = opened.at<KrILaminadoUSA>(file.id.handle());
  ASSERT_NE(bar, nullptr) << textOf(opened.report);
  ISolType type = ISolInclinada;
  bar->tipo(type);
  EXPECT_EQ(type, 0);
  double height = 0;
  bar->Altura(height);
  EXPECT_EQ(height, 203);
  KrGeratriz outline;
  bar->GetSecao(outline);
  EXPECT_GT(outline.Qtd(), 4) << "the outline that the file lacks is there";
}

TEST(MemberVersions, AWeldedIOfTheLayoutWithoutMarkerHasOneThicknessForBothFlanges) {
  FromFile file(memberOf(L"KrISoldado", L"KRISOLDADO", [](AcDbDwgFiler& filer) {
    for (const double number : {9.0, 6.0, 300.0, 150.0, 200.0, 36.0}) filer.writeDouble(number);
    filer.writeInt32(0);
  }));
  Opened opened(saved(*file.drawing.database(), Form::kDwg));
  auto* const bar = opened.at<KrISoldado>(file.id.handle());
  ASSERT_NE(bar, nullptr) << textOf(opened.report);
  double tf = 0, tf1 = 0, tf2 = 0;
  bar->tf(tf);
  bar->tf1(tf1);
  bar->tf2(tf2);
  EXPECT_EQ(tf, 9);
  EXPECT_EQ(tf1, 9);
  EXPECT_EQ(tf2, 9);
}

TEST(MemberVersions, ClassesNewerThanKnownStayAsTheyAre) {
  FromFile(memberOf(L"KrULaminado", L"KR_PERFIL_U_LAMINADO", [](AcDbDwgFiler& filer) {
    writeTen(filer, 2);
    filer.writeInt16(3);
  })).expectKept();
  FromFile(memberOf(L"KrISoldado", L"KRISOLDADO", [](AcDbDwgFiler& filer) {
    filer.writeDouble(std::numeric_limits<double>::max());
    filer.writeInt16(5);
    for (const double number : {9.0, 6.0, 300.0, 150.0, 200.0, 36.0}) filer.writeDouble(number);
    filer.writeInt32(0);
    filer.writeDouble(9);
    filer.writeDouble(9);
    filer.writeDouble(4);
  })).expectKept();
}

// Nothing can be drawn of them, and nothing is lost.
TEST(MemberVersions, OfNumbersThatAreNoneOrScalesOfZeroStayAsTheyAre) {
  const auto own = [](AcDbDwgFiler& filer) { writeTen(filer, 1); };
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  MemberLayout lengthless, placeless, flat;
  lengthless.comprimento = kNone;
  placeless.start.x = kEndless;
  flat.zScale = 0;
  for (const MemberLayout& layout : {lengthless, placeless, flat})
    FromFile(memberOf(L"KrILaminadoUSA", L"KR_PERFIL_I_LAMINADO_USA", own, layout)).expectKept();
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
