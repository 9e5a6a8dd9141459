// Members through a DXF. Its form of a member holds less than a DWG's, and the member's own reader refuses elements as
// they are written: such a member stays in the drawing with its groups and its picture. Nothing that was opened is
// lost.

#include <gmock/gmock.h>

#include "files/Trips.h"

namespace {

using namespace trips;

class Trip {
 public:
  static Trip& get() {
    static Trip trip;
    return trip;
  }
  MemberDrawing drawing;
  std::vector<std::vector<gi::DrawCall>> figures;
  Bytes file;
  std::unique_ptr<Opened> opened;

 private:
  Trip() {
    for (const Placed& placed : drawing.members) figures.push_back(figuresOf(placed.id));
    file = saved(*drawing.database(), Form::kDxf);
    opened = std::make_unique<Opened>(file);
  }

 public:
  static std::vector<gi::DrawCall> figuresOf(AcDbObjectId id) {
    Open<AcDbEntity> entity(id, AcDb::kForRead);
    gi::Recorder recorder;
    recorder.setDatabase(id.database());
    recorder.drawWhole(*entity);
    return recorder.figures();
  }
};

class DxfMembers : public testing::Test {
 protected:
  Trip& trip = Trip::get();
};

/// Two files are the same to the byte; else the first lines that differ are told.
void expectSameBytes(const Bytes& a, const Bytes& b) {
  if (a == b) return;
  const auto [first, second] = std::ranges::mismatch(a, b);
  constexpr std::ptrdiff_t kShown = 200;
  const auto around = [&](const Bytes& bytes, Bytes::const_iterator place) {
    std::string text;
    const auto end = place + std::min<std::ptrdiff_t>(kShown, bytes.end() - place);
    for (auto each = place - std::min<std::ptrdiff_t>(kShown, place - bytes.begin()); each != end; ++each)
      text += char(*each);
    return text;
  };
  ADD_FAILURE() << "at " << first - a.begin() << " of " << a.size() << " and " << b.size() << "\n"
                << around(a, first) << "\n--- instead of ---\n"
                << around(b, second);
}

}  // namespace

TEST_F(DxfMembers, ThatTheirReaderRefusesStayAsProxiesAndAreNamedInTheReport) {
  std::set<std::uint64_t> named;
  for (const krio::Finding& finding : trip.opened->report.findings) named.insert(finding.handle);
  for (const Placed& placed : trip.drawing.members) {
    if (hasNoDxf(placed.name)) continue;
    auto* const proxy = trip.opened->at<AcDbProxyEntity>(placed.id.handle());
    ASSERT_NE(proxy, nullptr) << placed.label();
    EXPECT_EQ(proxy->originalClassName(), placed.name);
    EXPECT_FALSE(proxy->data().groups.empty()) << placed.label();
    EXPECT_TRUE(named.contains(placed.id.handle().value())) << placed.label();
  }
}

TEST_F(DxfMembers, KeepTheirPictures) {
  std::size_t compared = 0;
  for (std::size_t i = 0; i < trip.drawing.members.size(); ++i) {
    const Placed& placed = trip.drawing.members[i];
    if (hasNoDxf(placed.name)) continue;
    const auto* const came = trip.opened->at(placed.id.handle());
    const std::vector<gi::DrawCall> after = Trip::figuresOf(came->objectId());
    std::vector<gi::DrawCall> before = trip.figures[i];
    ASSERT_EQ(after.size(), before.size()) << placed.label();
    for (std::size_t k = 0; k < before.size(); ++k, ++compared) {
      // A picture has its arcs counter-clockwise.
      if (before[k].kind == gi::CallKind::arc && before[k].normal.z < 0) std::ranges::reverse(before[k].points);
      ASSERT_EQ(after[k].kind, before[k].kind) << placed.label() << " " << k;
      ASSERT_EQ(after[k].points.size(), before[k].points.size());
      for (std::size_t p = 0; p < before[k].points.size(); ++p)
        EXPECT_LT(after[k].points[p].distanceTo(before[k].points[p]), 1e-6) << placed.label() << " " << k << " " << p;
      EXPECT_NEAR(after[k].radius, before[k].radius, 1e-9);
      EXPECT_EQ(after[k].traits.layer.handle(), before[k].traits.layer.handle()) << placed.label() << " " << k;
    }
  }
  EXPECT_GT(compared, 2000U);
}

TEST_F(DxfMembers, GoBackOutUnharmed) {
  expectSameBytes(saved(trip.opened->database(), Form::kDxf), trip.file);
}

TEST_F(DxfMembers, OfClassesWithoutADxfFormComeBackEmpty) {
  int found = 0;
  for (const Placed& placed : trip.drawing.members) {
    if (!hasNoDxf(placed.name)) continue;
    auto* const came = trip.opened->at<KrObject>(placed.id.handle());
    ASSERT_NE(came, nullptr) << placed.label();
    EXPECT_EQ(came->isA()->name(), placed.name);
    EXPECT_EQ(came->GetNumVertex(VistaCorrente), 0);
    EXPECT_EQ(came->numFuros(), 0);
    EXPECT_EQ(came->numCortes(), 0);
    ++found;
  }
  EXPECT_EQ(found, 3 * 6);
}

TEST_F(DxfMembers, KeepThePlainEntitiesBesideThem) {
  const auto before = dwgtools::digest(*trip.drawing.database());
  const auto after = dwgtools::digest(trip.opened->database());
  int compared = 0;
  for (const auto& [handle, text] : before) {
    if (text.starts_with("Kr") || text.starts_with("AcDbVXTable")) continue;
    const auto found = after.find(handle);
    ASSERT_NE(found, after.end()) << std::hex << handle << " " << text.substr(0, 24);
    EXPECT_TRUE(found->second == text) << std::hex << handle << " " << text.substr(0, 24);
    ++compared;
  }
  EXPECT_GT(compared, 50);
}

// --- A member without elements is one that its reader takes

namespace {

/// A bar whose list is empty, with a cut.
std::unique_ptr<KrObject> withoutElements(const Sample& sample) {
  std::unique_ptr<KrObject> member = sample.make(Superior);
  EXPECT_EQ(everyclass::modify(*member), 3);
  member->setUserName(L"V12");
  member->setMaterial(4);
  member->setZCoordIni(150);
  member->settipoBarra(Viga);
  member->ClearVertexes(Superior);
  return member;
}

}  // namespace

TEST(DxfMember, WithoutElementsComesBackUnlessItsClassRefusesWhatItWrites) {
  for (const Sample& sample : everyclass::samples()) {
    SCOPED_TRACE(ascii(sample.name));
    Drawing drawing;
    std::unique_ptr<KrObject> member = withoutElements(sample);
    const double length = member->getComprimentoReal();
    const AcDbObjectId id = drawing.append(member.release());
    Opened opened(saved(*drawing.database(), Form::kDxf));
    const std::wstring name = sample.name;
    if (name == L"KrISoldado" || name == L"KrILaminadoUSA") {
      const auto* const proxy = opened.at<AcDbProxyEntity>(id.handle());
      ASSERT_NE(proxy, nullptr);
      EXPECT_EQ(proxy->originalClassName(), name);
      EXPECT_FALSE(opened.report.findings.empty());
      continue;
    }
    auto* const came = opened.at<KrObject>(id.handle());
    ASSERT_NE(came, nullptr) << textOf(opened.report);
    EXPECT_EQ(came->isA()->name(), name);
    if (hasNoDxf(name)) continue;
    EXPECT_STREQ(came->userName(), L"V12");
    unsigned short material = 0;
    came->Material(material);
    EXPECT_EQ(material, 4);
    EXPECT_EQ(came->Vista(0), Superior);
    EXPECT_EQ(came->numCortes(), 1);
    EXPECT_TRUE(came->startPoint().isEqualTo(everyclass::kStart));
    EXPECT_DOUBLE_EQ(came->getComprimentoReal(), length);
  }
}

TEST(DxfMember, LosesWhatItsFormHasNoGroupsFor) {
  Drawing drawing;
  const AcDbObjectId id = drawing.append(withoutElements(everyclass::samples()[0]).release());
  Opened opened(saved(*drawing.database(), Form::kDxf));
  auto* const came = opened.at<KrObject>(id.handle());
  ASSERT_NE(came, nullptr) << textOf(opened.report);
  KrGeratriz outline;
  came->GetSecao(outline);
  EXPECT_EQ(outline.Qtd(), 0) << "the outline";
  EXPECT_EQ(came->numFuros(), 0) << "the holes";
  EXPECT_EQ(came->zCoordIni(), 0) << "the levels";
  EXPECT_EQ(came->tipoBarra(), Barra) << "the role";
  EXPECT_EQ(came->accessCDataToMod(ModRecorte, 0), nullptr) << "the notches";
}

// --- From one form to the other and back

TEST(MemberDrawings, FromDwgToDxfAndBackKeepWhatADxfHolds) {
  MemberDrawing drawing;
  Opened dwg(saved(*drawing.database(), Form::kDwg));
  Opened dxf(saved(dwg.database(), Form::kDxf));
  const auto inDxf = dwgtools::digest(dxf.database());
  const Bytes text = saved(dxf.database(), Form::kDxf);
  Opened back(saved(dxf.database(), Form::kDwg));
  const auto inDwg = dwgtools::digest(back.database());
  ASSERT_EQ(inDxf.size(), inDwg.size());
  for (const auto& [handle, fields] : inDxf) {
    const auto found = inDwg.find(handle);
    ASSERT_NE(found, inDwg.end()) << std::hex << handle << " " << fields.substr(0, 24);
    // A member that came empty from the DXF makes its elements when it is read from the DWG.
    if (fields.starts_with("AcDbProxy") || hasNoDxf(fields)) continue;
    EXPECT_TRUE(found->second == fields) << std::hex << handle << " " << fields.substr(0, 24);
  }
  // The groups of the members and their pictures stand in the DWG as they stood in the DXF.
  expectSameBytes(saved(back.database(), Form::kDxf), text);
  const Bytes second = saved(back.database(), Form::kDwg);
  Opened reopened(second);
  expectSameBytes(saved(reopened.database(), Form::kDwg), second);
  expectSameBytes(saved(reopened.database(), Form::kDxf), text);
}

TEST(MemberDrawings, UnknownToTheProgramGoFromDwgToDxfAndBackBitForBit) {
  MemberDrawing drawing;
  const Bytes original = saved(*drawing.database(), Form::kDwg);
  acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
  Bytes back;
  {
    Opened dwg(original);
    Opened dxf(saved(dwg.database(), Form::kDxf));
    for (const Placed& placed : drawing.members) {
      const auto* const proxy = dxf.at<AcDbProxyEntity>(placed.id.handle());
      const auto* const first = dwg.at<AcDbProxyEntity>(placed.id.handle());
      EXPECT_TRUE(proxy != nullptr && first != nullptr) << placed.label();
      if (proxy == nullptr || first == nullptr) continue;
      EXPECT_EQ(proxy->data().bits, first->data().bits) << placed.label();
      EXPECT_EQ(proxy->data().bitCount, first->data().bitCount) << placed.label();
      EXPECT_EQ(proxy->data().references.size(), first->data().references.size()) << placed.label();
      EXPECT_TRUE(std::ranges::equal(proxy->fileGraphics(), first->fileGraphics())) << placed.label();
    }
    back = saved(dxf.database(), Form::kDwg);
  }
  acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
  loadExampleModule();
  // With the classes there again the members are members.
  Opened opened(back);
  Opened direct(original);
  const auto before = dwgtools::digest(direct.database());
  acdbHostApplicationServices()->setWorkingDatabase(&opened.database());
  const auto after = dwgtools::digest(opened.database());
  for (const Placed& placed : drawing.members) {
    EXPECT_NE(opened.at<KrObject>(placed.id.handle()), nullptr) << placed.label();
    EXPECT_TRUE(before.at(placed.id.handle().value()) == after.at(placed.id.handle().value())) << placed.label();
  }
}
