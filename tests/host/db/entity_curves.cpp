#include <gmock/gmock.h>

#include <cmath>
#include <memory>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/gi/Recorder.h"

namespace {

constexpr double kPi = 3.14159265358979323846;

AcGePoint3dArray meetings(const AcDbEntity& a, const AcDbEntity& b, AcDb::Intersect type = AcDb::kOnBothOperands) {
  AcGePoint3dArray points;
  EXPECT_EQ(a.intersectWith(&b, type, points), Acad::eOk);
  return points;
}

/// A copy that went through a filer and back must draw the same.
template <class Entity>
void expectFiledWhole(const Entity& entity) {
  const std::unique_ptr<AcRxObject> copy(entity.clone());
  ASSERT_NE(copy, nullptr);
  gi::Recorder before;
  gi::Recorder after;
  before.drawWhole(const_cast<Entity&>(entity));
  after.drawWhole(*static_cast<AcDbEntity*>(copy.get()));
  EXPECT_FALSE(before.figures().empty());
  EXPECT_EQ(gi::toText(before.calls), gi::toText(after.calls));

  AcDbMemoryDxfFiler groups;
  ASSERT_EQ(entity.dxfOut(&groups), Acad::eOk);
  groups.rewindFiler();
  Entity read;
  ASSERT_EQ(read.dxfIn(&groups), Acad::eOk);
  gi::Recorder exchanged;
  exchanged.drawWhole(read);
  EXPECT_EQ(gi::toText(before.calls), gi::toText(exchanged.calls));
}

/// A slot: 40 between centres, radius 10.
void makeSlot(AcDbPolyline& p) {
  p.addVertexAt(0, {0, -10});
  p.addVertexAt(1, {40, -10}, 1.0);
  p.addVertexAt(2, {40, 10});
  p.addVertexAt(3, {0, 10}, 1.0);
  p.setClosed(true);
}

TEST(EntityFiling, KeepsEachCurveWhole) {
  AcDbLine line({1, 2, 3}, {4, 5, 6});
  line.setThickness(2);
  expectFiledWhole(line);
  expectFiledWhole(AcDbCircle({1, 2, 3}, {1, 1, 1}, 5));
  expectFiledWhole(AcDbArc({1, 2, 3}, {0, 0, -1}, 5, 1.0, 4.0));
  AcDbPolyline p;
  makeSlot(p);
  p.setNormal({0, -1, 0});
  p.setElevation(7);
  p.setWidthsAt(0, 1, 2);
  expectFiledWhole(p);
}

TEST(EntityLine, ParameterIsTheLengthFromItsStart) {
  const AcDbLine line({0, 0, 0}, {30, 40, 0});
  double end = 0;
  EXPECT_EQ(line.getEndParam(end), Acad::eOk);
  EXPECT_EQ(end, 50.0);
  AcGePoint3d p;
  EXPECT_EQ(line.getPointAtParam(25, p), Acad::eOk);
  EXPECT_EQ(p, AcGePoint3d(15, 20, 0));
  EXPECT_EQ(line.getPointAtParam(51, p), Acad::eInvalidInput);
  EXPECT_EQ(line.getClosestPointTo({100, 0, 0}, p), Acad::eOk);
  EXPECT_EQ(p, AcGePoint3d(30, 40, 0));  // 60 along, so past the end
  EXPECT_EQ(line.getClosestPointTo({100, 0, 0}, p, true), Acad::eOk);
  EXPECT_EQ(p, AcGePoint3d(36, 48, 0));
}

TEST(EntityArc, ThroughZeroHasItsLengthAndMiddle) {
  const AcDbArc arc({0, 0, 0}, 10, 1.75 * kPi, 0.25 * kPi);
  EXPECT_NEAR(arc.totalAngle(), kPi / 2, 1e-12);
  EXPECT_NEAR(arc.length(), 5 * kPi, 1e-12);
  AcGePoint3d p;
  EXPECT_EQ(arc.getPointAtDist(2.5 * kPi, p), Acad::eOk);
  EXPECT_EQ(p, AcGePoint3d(10, 0, 0));
  double area = 0;
  EXPECT_EQ(arc.getArea(area), Acad::eOk);
  EXPECT_NEAR(area, 25 * kPi - 50, 1e-9);  // a quarter of the disc less its triangle
  AcDbExtents box;
  EXPECT_EQ(arc.getGeomExtents(box), Acad::eOk);
  EXPECT_EQ(box.maxPoint(), AcGePoint3d(10, std::sqrt(50.0), 0));
  EXPECT_EQ(box.minPoint(), AcGePoint3d(std::sqrt(50.0), -std::sqrt(50.0), 0));
}

TEST(EntityArc, MirroredSwapsItsEnds) {
  AcDbArc arc({10, 0, 0}, 5, 0, kPi / 2);
  AcGeMatrix3d mirror;
  mirror(0, 0) = -1;
  EXPECT_EQ(arc.transformBy(mirror), Acad::eOk);
  EXPECT_EQ(arc.center(), AcGePoint3d(-10, 0, 0));
  EXPECT_NEAR(arc.startAngle(), kPi / 2, 1e-12);
  EXPECT_NEAR(arc.endAngle(), kPi, 1e-12);
  EXPECT_EQ(arc.normal(), AcGeVector3d::kZAxis);
}

TEST(EntityTransform, RefusesToMakeAnEllipse) {
  AcGeMatrix3d stretch;
  stretch(0, 0) = 2;
  AcDbArc arc({0, 0, 0}, 5, 0, 1);
  AcDbCircle circle({0, 0, 0}, AcGeVector3d::kZAxis, 5);
  AcDbPolyline p;
  makeSlot(p);
  EXPECT_EQ(arc.transformBy(stretch), Acad::eCannotScaleNonUniformly);
  EXPECT_EQ(circle.transformBy(stretch), Acad::eCannotScaleNonUniformly);
  EXPECT_EQ(p.transformBy(stretch), Acad::eCannotScaleNonUniformly);
  EXPECT_EQ(circle.radius(), 5);
  AcDbLine line({1, 0, 0}, {2, 0, 0});
  EXPECT_EQ(line.transformBy(stretch), Acad::eOk);
  EXPECT_EQ(line.endPoint(), AcGePoint3d(4, 0, 0));
}

TEST(EntityMeetings, CountTangentCrossingAndMissingOnes) {
  const AcDbCircle circle({0, 0, 0}, AcGeVector3d::kZAxis, 5);
  EXPECT_EQ(meetings(circle, AcDbLine({-10, 0, 0}, {10, 0, 0})).length(), 2);
  EXPECT_EQ(meetings(circle, AcDbLine({-10, 5, 0}, {10, 5, 0})).length(), 1);
  EXPECT_EQ(meetings(circle, AcDbLine({-10, 6, 0}, {10, 6, 0})).length(), 0);
  EXPECT_EQ(meetings(circle, AcDbCircle({8, 0, 0}, AcGeVector3d::kZAxis, 5)).length(), 2);
  EXPECT_EQ(meetings(circle, circle).length(), 0);
  const AcDbLine shorter({0, 0, 0}, {1, 0, 0});
  const AcDbLine upright({3, -1, 0}, {3, 1, 0});
  EXPECT_EQ(meetings(shorter, upright).length(), 0);
  EXPECT_EQ(meetings(shorter, upright, AcDb::kExtendThis).length(), 1);
  EXPECT_EQ(meetings(upright, shorter, AcDb::kExtendArg).length(), 1);
  EXPECT_EQ(meetings(upright, shorter, AcDb::kExtendThis).length(), 0);
}

TEST(EntityPolyline, HasTheMeasuresOfASlot) {
  AcDbPolyline p;
  makeSlot(p);
  double area = 0;
  EXPECT_EQ(p.getArea(area), Acad::eOk);
  EXPECT_NEAR(area, 40 * 20 + 100 * kPi, 1e-9);
  double end = 0;
  double length = 0;
  EXPECT_EQ(p.getEndParam(end), Acad::eOk);
  EXPECT_EQ(end, 4.0);
  EXPECT_EQ(p.getDistAtParam(end, length), Acad::eOk);
  EXPECT_NEAR(length, 80 + 20 * kPi, 1e-9);
  AcGePoint3d tip;
  EXPECT_EQ(p.getPointAtParam(1.5, tip), Acad::eOk);
  EXPECT_EQ(tip, AcGePoint3d(50, 0, 0));
  AcDbExtents box;
  EXPECT_EQ(p.getGeomExtents(box), Acad::eOk);
  EXPECT_EQ(box.minPoint(), AcGePoint3d(-10, -10, 0));
  EXPECT_EQ(box.maxPoint(), AcGePoint3d(50, 10, 0));
  EXPECT_EQ(p.reverseCurve(), Acad::eOk);
  EXPECT_EQ(p.getArea(area), Acad::eOk);
  EXPECT_NEAR(area, 40 * 20 + 100 * kPi, 1e-9);
}

TEST(EntityPolyline, ExplodesIntoLinesAndArcs) {
  AcDbPolyline p;
  makeSlot(p);
  AcDbVoidPtrArray parts;
  EXPECT_EQ(p.explode(parts), Acad::eOk);
  ASSERT_EQ(parts.length(), 4);
  const auto* const arc = AcDbArc::cast(static_cast<AcDbEntity*>(parts[1]));
  ASSERT_NE(arc, nullptr);
  EXPECT_EQ(arc->center(), AcGePoint3d(40, 0, 0));
  EXPECT_NEAR(arc->totalAngle(), kPi, 1e-12);
  for (void* part : parts) delete static_cast<AcDbEntity*>(part);
}

TEST(EntityPolyline, RefusesAnIndexBeyondItsVertices) {
  AcDbPolyline p;
  makeSlot(p);
  AcGePoint2d at;
  EXPECT_EQ(p.getPointAt(4, at), Acad::eInvalidIndex);
  EXPECT_EQ(p.setBulgeAt(4, 1), Acad::eInvalidIndex);
  EXPECT_EQ(p.addVertexAt(6, {0, 0}), Acad::eInvalidIndex);
  EXPECT_EQ(p.removeVertexAt(4), Acad::eInvalidIndex);
}

TEST(EntitySnaps, StandWhereTheyBelong) {
  const AcDbCircle circle({1, 2, 0}, AcGeVector3d::kZAxis, 5);
  AcGePoint3dArray points;
  AcDbIntArray ids;
  circle.getOsnapPoints(AcDb::kOsModeQuad, 0, {}, {}, {}, points, ids);
  ASSERT_EQ(points.length(), 4);
  EXPECT_EQ(points[0], AcGePoint3d(6, 2, 0));
  points.setLogicalLength(0);
  circle.getOsnapPoints(AcDb::kOsModeCen, 0, {}, {}, {}, points, ids);
  ASSERT_EQ(points.length(), 1);
  EXPECT_EQ(points[0], AcGePoint3d(1, 2, 0));
  points.setLogicalLength(0);
  AcDbLine({0, 0, 0}, {4, 0, 0}).getOsnapPoints(AcDb::kOsModeMid, 0, {}, {}, {}, points, ids);
  ASSERT_EQ(points.length(), 1);
  EXPECT_EQ(points[0], AcGePoint3d(2, 0, 0));
}

TEST(EntityText, MirroredIsUpsideDownOrBackward) {
  AcDbText text({10, 5, 0}, L"PERFIL", AcDbObjectId::kNull, 3);
  AcGeMatrix3d mirror;
  mirror(1, 1) = -1;
  EXPECT_EQ(text.transformBy(mirror), Acad::eOk);
  EXPECT_TRUE(text.isMirroredInY());
  EXPECT_EQ(text.rotation(), 0.0);
  EXPECT_EQ(text.position(), AcGePoint3d(10, -5, 0));
  AcGeMatrix3d other;
  other(0, 0) = -1;
  AcDbText second({10, 5, 0}, L"PERFIL", AcDbObjectId::kNull, 3);
  EXPECT_EQ(second.transformBy(other), Acad::eOk);
  EXPECT_TRUE(second.isMirroredInX());
  EXPECT_EQ(second.rotation(), 0.0);
}

TEST(EntityMText, UnderstandsItsCodes) {
  AcDbMText text;
  text.setContents(L"{\\fArial|b0;Viga} \\H2.5;\\C1;12\\Pfuro %%c\\~\\S1/2;\\\\ \\{x\\} \\U+00E7\\Lsub\\l\\A1;.");
  EXPECT_EQ(text.plainText(), L"Viga 12\nfuro %%c\u00a01/2\\ {x} çsub.");
  text.setContents(L"broken \\Hno end");
  EXPECT_EQ(text.plainText(), L"broken ");
}

TEST(EntityMText, BreaksLinesAtItsWidthAndHangsFromItsPoint) {
  AcDbMText text;
  text.setContents(L"one\\Ptwo");
  text.setTextHeight(3);
  EXPECT_DOUBLE_EQ(text.actualHeight(), 3 + 5);
  text.setContents(L"one two three four");
  const double whole = text.actualWidth();
  text.setWidth(whole * 0.6);
  EXPECT_GT(text.actualHeight(), 3);
  EXPECT_LE(text.actualWidth(), whole * 0.6);
  expectFiledWhole(text);
}

}  // namespace
