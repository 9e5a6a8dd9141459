// What other modules hang on a member: its extensions, and the text extension's place, direction and drawing.

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "host/gi/Recorder.h"
#include "object/Drawing.h"
#include "object/TestMember.h"
#include "records/KrObjectTextExtension.h"

namespace {

constexpr double kPi = 3.141592653589793;

/// A plate of 100 by 60 about the origin.
const oracle::Outline kPlate = {{{-50, -30}, {-50, 30}, {50, 30}, {50, -30}}};

void expectNear(const AcGePoint3d& p, double x, double y) {
  EXPECT_NEAR(p.x, x, 1e-9);
  EXPECT_NEAR(p.y, y, 1e-9);
  EXPECT_NEAR(p.z, 0.0, 1e-9);
}

void expectNear(const AcGeVector3d& v, double x, double y) {
  expectNear(AcGePoint3d(v.x, v.y, v.z), x, y);
}

KrObjectTextExtension* attachText(KrObject& member, const wchar_t* text = L"P1") {
  auto* extension = new KrObjectTextExtension;
  extension->setText(text);
  member.addKrObjectExtension(extension);
  return extension;
}

class MemberExtensions : public testing::Test {
 protected:
  void SetUp() override {
    KrObjectExtension::rxInit();
    KrObjectTextExtension::rxInit();
    acrxBuildClassHierarchy();
  }

  static AcGePoint3d anchorOf(const KrObjectTextExtension& text) {
    AcGePoint3d p;
    text.calcTextPoint(p);
    return p;
  }

  static AcGeVector3d directionOf(const KrObjectTextExtension& text, int* inverted = nullptr) {
    AcGeVector3d d;
    text.calcTextDirection(d, inverted);
    return d;
  }

  TestMember member;
};

}  // namespace

TEST_F(MemberExtensions, AreNumberedFromOneOnBehindTheLast) {
  EXPECT_EQ(attachText(member)->extensionId(), 1U);
  EXPECT_EQ(attachText(member)->extensionId(), 2U);
  KrObjectTextExtension* third = attachText(member);
  EXPECT_EQ(third->extensionId(), 3U);
  EXPECT_EQ(third->curExtendedObj(), &member);
  EXPECT_EQ(member.getKrObjectExtension(3), third);
  const std::unique_ptr<KrObjectExtension> removed(member.removeKrObjectExtension(3));
  EXPECT_EQ(removed.get(), third);
  EXPECT_EQ(member.getKrObjectExtension(3), nullptr);
  EXPECT_EQ(member.removeKrObjectExtension(3), nullptr);
  EXPECT_EQ(attachText(member)->extensionId(), 3U);
}

TEST_F(MemberExtensions, AnIdOfZeroFindsNothingEvenWhenOneHasIt) {
  attachText(member)->setExtensionId(0);
  EXPECT_EQ(member.getKrObjectExtension(0), nullptr);
}

TEST_F(MemberExtensions, AModifiedExtensionKeepsItsId) {
  attachText(member);
  const KrObjectTextExtension* second = attachText(member);
  KrObjectTextExtension other;
  other.setText(L"P9");
  other.setExtensionId(77);
  EXPECT_EQ(member.modifyKrObjectExtension(2, &other), 1);
  EXPECT_STREQ(second->text(), L"P9");
  EXPECT_EQ(second->extensionId(), 2U);
  EXPECT_EQ(member.modifyKrObjectExtension(5, &other), 0);
}

TEST_F(MemberExtensions, ATextStandsAtOneOfNinePlacesOfTheRectangle) {
  member.make(kPlate, Secao, 1000);
  KrObjectTextExtension& text = *attachText(member);
  expectNear(anchorOf(text), 0, 30);
  const struct {
    std::uint32_t flags;
    double x;
    double y;
  } places[] = {{0x0, 0, 0},         {0x8, 0, 30},         {0x10, 0, -30},        {0x4, 50, 0},          {0x2, -50, 0},
                {0x8 | 0x4, 50, 30}, {0x8 | 0x2, -50, 30}, {0x10 | 0x4, 50, -30}, {0x10 | 0x2, -50, -30}};
  for (const auto& place : places) {
    text.modifyOptionFlags(0x1E, place.flags);
    expectNear(anchorOf(text), place.x, place.y);
  }
}

TEST_F(MemberExtensions, ATextTurnsWithTheSection) {
  member.setAngleSecao(0.3);
  member.make(kPlate, Secao, 1000);
  KrObjectTextExtension& text = *attachText(member);
  expectNear(anchorOf(text), -30 * std::sin(0.3), 30 * std::cos(0.3));
  expectNear(directionOf(text), std::cos(0.3), std::sin(0.3));
  text.setTextAngle(0.2);
  expectNear(directionOf(text), std::cos(0.5), std::sin(0.5));
  text.setIsRelativeOriented(0);
  expectNear(directionOf(text), std::cos(0.2), std::sin(0.2));
}

// Seen from the other end the section turns the other way, and so does all that stands by it.
TEST_F(MemberExtensions, ATextOfTheSectionsBackTurnsWithItsBox) {
  member.setAngleSecao(0.3);
  member.make(kPlate, SecaoVerso, 1000, 0.1);
  KrObjectTextExtension& text = *attachText(member);
  AcGePoint3d e[4];
  member.GetExtremePoints(e, 0, 0);
  const AcGeVector3d side = (e[3] - e[1]).normal();
  expectNear(side, std::cos(0.2), -std::sin(0.2));
  expectNear(directionOf(text), std::cos(0.2), -std::sin(0.2));
  text.setTextAngle(0.5);
  expectNear(directionOf(text), std::cos(0.3), std::sin(0.3));
  text.setIsRelativeOriented(0);
  expectNear(directionOf(text), std::cos(0.5), std::sin(0.5));
}

TEST_F(MemberExtensions, TheOffsetOfATextOfTheSectionsBackTurnsWithItsBox) {
  member.setAngleSecao(0.3);
  member.make(kPlate, SecaoVerso, 1000, 0.1);
  KrObjectTextExtension& text = *attachText(member);
  text.setVecOffset(AcGeVector3d(10, 0, 0));
  gi::Recorder recorder;
  int regen = 0;
  text.extensionWorldDraw(regen, &recorder);
  const std::vector<gi::DrawCall> figures = recorder.figures();
  ASSERT_EQ(figures.size(), 1U);
  AcGeVector3d justify;
  text.calcTextJustifyOffset(figures[0].style, justify);
  // The middle of the upper side of a plate 60 high, turned by -0.2, and 10 along that side.
  const double x = 30 * std::sin(0.2) + 10 * std::cos(0.2);
  const double y = 30 * std::cos(0.2) - 10 * std::sin(0.2);
  expectNear(figures[0].points.at(0), x + justify.x, y + justify.y);
}

TEST_F(MemberExtensions, ATextOfAnElevationFollowsTheBarAndNeverStandsOnItsHead) {
  const struct {
    double bar;
    double text;
    int inverted;
  } cases[] = {
      {0.4, 0.4, 0}, {kPi - 0.01, kPi - 0.01, 0}, {kPi, 0.0, 1}, {1.5 * kPi, 0.5 * kPi, 1}, {kPi + 0.4, 0.4, 1}};
  for (const auto& c : cases) {
    TestMember bar;
    bar.make(kPlate, Superior, 1000, c.bar);
    const KrObjectTextExtension& text = *attachText(bar);
    int inverted = -1;
    expectNear(directionOf(text, &inverted), std::cos(c.text), std::sin(c.text));
    EXPECT_EQ(inverted, c.inverted) << c.bar;
  }
}

TEST_F(MemberExtensions, ATextThatDoesNotFollowTheBarHasItsOwnAngle) {
  member.make(kPlate, Superior, 1000, 1.0);
  KrObjectTextExtension& text = *attachText(member);
  text.setIsRelativeOriented(0);
  text.setTextAngle(4.0);
  int inverted = -1;
  expectNear(directionOf(text, &inverted), std::cos(4.0), std::sin(4.0));
  EXPECT_EQ(inverted, 0);
}

TEST_F(MemberExtensions, ATextIsCentredAndItsFlagsMoveItByHalfItsSize) {
  member.make(kPlate, Secao, 1000);
  KrObjectTextExtension& text = *attachText(member);
  AcGiTextStyle style;
  style.setTextSize(5.0);
  AcGePoint2d low;
  AcGePoint2d high;
  style.extentsBox(L"P1", -1, Adesk::kFalse, Adesk::kTrue, low, high);
  const double w = (high.x - low.x) / 2;
  const double h = (high.y - low.y) / 2;
  ASSERT_GT(w, 0.0);
  const auto offset = [&](std::uint32_t flags) {
    text.modifyOptionFlags(0x3C0, flags);
    AcGeVector3d v;
    text.calcTextJustifyOffset(style, v);
    return v;
  };
  expectNear(offset(0), -w, -h);
  expectNear(offset(0x100), -2 * w, -h);
  expectNear(offset(0x200), 0, -h);
  expectNear(offset(0x40), -w, 0);
  expectNear(offset(0x80), -w, -2 * h);
  text.setTextAngle(kPi / 2);
  expectNear(offset(0), h, -w);
  text.setText(nullptr);
  AcGeVector3d untouched(7, 8, 0);
  text.calcTextJustifyOffset(style, untouched);
  expectNear(untouched, 7, 8);
}

TEST_F(MemberExtensions, ATextIsDrawnAtItsAnchorItsTurnedOffsetAndItsJustification) {
  member.setAngleSecao(kPi / 2);
  member.make(kPlate, Secao, 1000);
  KrObjectTextExtension& text = *attachText(member);
  text.setTextHeight(5.0);
  text.setVecOffset(AcGeVector3d(10, 0, 0));
  gi::Recorder recorder;
  int regen = 0;
  EXPECT_EQ(text.extensionWorldDraw(regen, &recorder), 1);
  const std::vector<gi::DrawCall> figures = recorder.figures();
  ASSERT_EQ(figures.size(), 1U);
  const gi::DrawCall& call = figures[0];
  EXPECT_EQ(call.kind, gi::CallKind::text);
  EXPECT_EQ(call.text, L"P1");
  EXPECT_TRUE(call.raw);
  EXPECT_EQ(call.style.textSize(), 5.0);
  expectNear(call.direction, 0, 1);
  EXPECT_TRUE(call.normal.isEqualTo(AcGeVector3d::kZAxis));
  AcGeVector3d justify;
  text.calcTextJustifyOffset(call.style, justify);
  // The section is turned a quarter: its upper side is on the left, and the offset along X points up.
  expectNear(call.points.at(0), -30 + justify.x, 10 + justify.y);
}

TEST_F(MemberExtensions, ATextOfNoLettersIsNotDrawn) {
  member.make(kPlate, Secao, 1000);
  KrObjectTextExtension& text = *attachText(member, nullptr);
  gi::Recorder recorder;
  int regen = 0;
  EXPECT_EQ(text.extensionWorldDraw(regen, &recorder), 1);
  EXPECT_TRUE(recorder.figures().empty());
}

TEST_F(MemberExtensions, TheGripOfATextMovesItsOffset) {
  member.make(kPlate, Superior, 1000, kPi / 2);
  KrObjectTextExtension& text = *attachText(member);
  text.setVecOffset(AcGeVector3d(10, 0, 0));
  AcArray<AcGePoint3d> points;
  AcArray<int> modes;
  AcArray<int> ids;
  EXPECT_EQ(text.getExtensionGripPoints(points, modes, ids), Acad::eOk);
  ASSERT_EQ(points.length(), 1);
  const AcGePoint3d anchor = anchorOf(text);
  expectNear(points[0], anchor.x, anchor.y + 10);
  AcArray<int> indices;
  indices.append(4);
  EXPECT_EQ(text.moveExtensionGripPointsAt(indices, AcGeVector3d(0, 3, 0), 5), Acad::eOk);
  expectNear(text.vecOffset(), 10, 0);
  indices.append(5);
  EXPECT_EQ(text.moveExtensionGripPointsAt(indices, AcGeVector3d(0, 3, 0), 5), Acad::eOk);
  expectNear(text.vecOffset(), 13, 0);
}

// The grip's offset turns by the view's angle alone, the drawn one by the section's too: it stands as it is.
TEST_F(MemberExtensions, TheGripOfATextOfASectionLeavesTheSectionsAngleOut) {
  member.setAngleSecao(kPi / 2);
  member.make(kPlate, Secao, 1000);
  KrObjectTextExtension& text = *attachText(member);
  text.setVecOffset(AcGeVector3d(10, 0, 0));
  expectNear(anchorOf(text), -30, 0);
  AcArray<AcGePoint3d> points;
  AcArray<int> modes;
  AcArray<int> ids;
  ASSERT_EQ(text.getExtensionGripPoints(points, modes, ids), Acad::eOk);
  ASSERT_EQ(points.length(), 1);
  expectNear(points[0], -20, 0);
  gi::Recorder recorder;
  int regen = 0;
  text.extensionWorldDraw(regen, &recorder);
  ASSERT_EQ(recorder.figures().size(), 1U);
  AcGeVector3d justify;
  text.calcTextJustifyOffset(recorder.figures()[0].style, justify);
  expectNear(recorder.figures()[0].points.at(0) - justify, -30, 10);
  AcArray<int> indices;
  indices.append(0);
  EXPECT_EQ(text.moveExtensionGripPointsAt(indices, AcGeVector3d(0, 3, 0), 0), Acad::eOk);
  expectNear(text.vecOffset(), 10, 3);
}

namespace {

class DrawnText : public MemberExtensions {
 protected:
  DrawnText() {
    member.setLayer(L"PERFIL");
    member.make(kPlate, Secao, 1000);
    text = attachText(member);
  }

  gi::DrawCall drawn() const {
    gi::Recorder recorder;
    int regen = 0;
    text->extensionWorldDraw(regen, &recorder);
    EXPECT_EQ(recorder.figures().size(), 1U);
    return recorder.figures().at(0);
  }

  /// Adds a text style of that size.
  AcDbObjectId style(double size) {
    AcDbTextStyleTable* table = nullptr;
    EXPECT_EQ(drawing.database()->getTextStyleTable(table, AcDb::kForWrite), Acad::eOk);
    auto* const record = new AcDbTextStyleTableRecord;
    record->setName(L"MARKS");
    record->setTextSize(size);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    record->close();
    table->close();
    return id;
  }

  Drawing drawing;
  KrObjectTextExtension* text = nullptr;
};

}  // namespace

TEST_F(DrawnText, LiesOnItsLayerOrWithoutOneOnTheMembers) {
  EXPECT_EQ(drawn().traits.layer, drawing.layer(L"PERFIL"));
  text->setLayer(drawing.layer(L"EIXO"));
  EXPECT_EQ(drawn().traits.layer, drawing.layer(L"EIXO"));
}

TEST_F(DrawnText, HasItsHeightOrWithoutOneItsStylesSize) {
  text->setTextStyle(style(7));
  EXPECT_EQ(drawn().style.textSize(), 7.0);
  text->setTextHeight(5);
  EXPECT_EQ(drawn().style.textSize(), 5.0);
  text->setTextHeight(1e-9);
  EXPECT_EQ(drawn().style.textSize(), 7.0) << "below the tolerance a height is none";
}
