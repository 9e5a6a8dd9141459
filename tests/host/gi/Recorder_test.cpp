#include "host/gi/Recorder.h"

#include <gmock/gmock.h>

#include "host/gi/DrawWith.h"

namespace {

using gi::CallKind;
using gi::DrawCall;
using gi::Recorder;
using testing::ElementsAre;

constexpr double kPi = 3.14159265358979323846;

std::vector<CallKind> kindsOf(const std::vector<DrawCall>& calls) {
  std::vector<CallKind> kinds;
  for (const DrawCall& call : calls) kinds.push_back(call.kind);
  return kinds;
}

TEST(Recorder, KeepsTheTraitsAsTheyWereAtEachCall) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    const AcGePoint3d line[2] = {{0, 0, 0}, {10, 0, 0}};
    draw.subEntityTraits().setSelectionMarker(1);
    draw.geometry().polyline(2, line);
    draw.subEntityTraits().setSelectionMarker(2);
    draw.subEntityTraits().setColor(3);
    draw.subEntityTraits().setFillType(kAcGiFillAlways);
    draw.geometry().polygon(2, line);
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  ASSERT_EQ(recorder.calls.size(), 2U);
  EXPECT_EQ(toText(recorder.calls),
            "polyline (0 0 0) (10 0 0) | marker 1\n"
            "polygon (0 0 0) (10 0 0) | color 3 marker 2 fill\n");
}

TEST(Recorder, StartsEachDrawableWithPlainTraitsAndThenItsOwn) {
  DrawWith first([](AcGiWorldDraw& draw) { draw.subEntityTraits().setFillType(kAcGiFillAlways); });
  DrawWith second([](AcGiWorldDraw& draw) { draw.geometry().circle({1, 2, 0}, 5, AcGeVector3d::kZAxis); });
  second.attributes = [](AcGiDrawableTraits& traits) { traits.setColor(0); };
  Recorder recorder;
  recorder.drawWhole(first);
  recorder.drawWhole(second);
  EXPECT_EQ(toText(recorder.calls), "circle (1 2 0) r 5 n (0 0 1) | color 0\n");
}

TEST(Recorder, GivesBackTheThreePointsOfAnArc) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.geometry().circularArc(AcGePoint3d(5, 0, 0), AcGePoint3d(3, 4, 0), AcGePoint3d(-5, 0, 0));
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  ASSERT_EQ(recorder.calls.size(), 1U);
  const DrawCall& arc = recorder.calls.front();
  EXPECT_EQ(arc.kind, CallKind::arc);
  EXPECT_EQ(arc.points[1].x, 3.0);
  EXPECT_NEAR(arc.center.distanceTo({0, 0, 0}), 0.0, 1e-12);
  EXPECT_NEAR(arc.radius, 5.0, 1e-12);
  EXPECT_NEAR(arc.sweep, kPi, 1e-12);
  EXPECT_NEAR(arc.normal.z, 1.0, 1e-12);
}

TEST(Recorder, TurnsTheNormalOfAnArcDrawnClockwise) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.geometry().circularArc(AcGePoint3d(0, 1, 0), AcGePoint3d(1, 0, 0), AcGePoint3d(-1, 0, 0), kAcGiArcChord);
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  EXPECT_NEAR(recorder.calls.at(0).normal.z, -1.0, 1e-12);
  // From the top by the right to the left, clockwise, is three quarters of a turn.
  EXPECT_NEAR(recorder.calls.at(0).sweep, 1.5 * kPi, 1e-12);
  EXPECT_EQ(recorder.calls.at(0).arcType, kAcGiArcChord);
}

TEST(Recorder, TakesAnArcThroughPointsOnALineAsAnArcWithoutRadius) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.geometry().circularArc(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0), AcGePoint3d(2, 2, 0));
    draw.geometry().circle(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0), AcGePoint3d(2, 2, 0));
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  ASSERT_THAT(kindsOf(recorder.calls), ElementsAre(CallKind::arc));
  EXPECT_EQ(recorder.calls[0].radius, 0.0);
}

TEST(Recorder, BuildsACircleThroughThreePoints) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.geometry().circle(AcGePoint3d(13, 4, 0), AcGePoint3d(14, 3, 0), AcGePoint3d(6, 3, 0));
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  ASSERT_EQ(recorder.calls.size(), 1U);
  // Centre on x = 10 by the two points at height 3; 9 + (4 - y)^2 = 16 + (3 - y)^2 gives y = 0, r = 5.
  EXPECT_NEAR(recorder.calls[0].center.distanceTo({10, 0, 0}), 0.0, 1e-12);
  EXPECT_NEAR(recorder.calls[0].radius, 5.0, 1e-12);
}

TEST(Recorder, MultipliesTransformsAndTakesThemBack) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    AcGiWorldGeometry& geometry = draw.geometry();
    EXPECT_FALSE(geometry.popModelTransform());
    geometry.pushModelTransform(AcGeMatrix3d::translation({10, 0, 0}));
    geometry.pushModelTransform(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis));
    AcGeMatrix3d matrix;
    geometry.getModelToWorldTransform(matrix);
    EXPECT_NEAR((matrix * AcGePoint3d(1, 0, 0)).distanceTo({10, 1, 0}), 0.0, 1e-12);
    geometry.getWorldToModelTransform(matrix);
    EXPECT_NEAR((matrix * AcGePoint3d(10, 1, 0)).distanceTo({1, 0, 0}), 0.0, 1e-12);
    EXPECT_TRUE(geometry.popModelTransform());
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  // The drawable left one transform behind: it must not move what comes next.
  EXPECT_NEAR((recorder.modelToWorld() * AcGePoint3d(1, 0, 0)).distanceTo({1, 0, 0}), 0.0, 1e-12);
  EXPECT_THAT(kindsOf(recorder.calls),
              ElementsAre(CallKind::pushTransform, CallKind::pushTransform, CallKind::popTransform));
}

TEST(Recorder, RestoresTheTraitsAfterAPart) {
  DrawWith part([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setColor(5);
    draw.geometry().circle({0, 0, 0}, 1, AcGeVector3d::kZAxis);
  });
  DrawWith whole([&part](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setColor(2);
    draw.geometry().draw(&part);
    draw.geometry().circle({0, 0, 0}, 2, AcGeVector3d::kZAxis);
  });
  Recorder recorder;
  recorder.drawWhole(whole);
  EXPECT_THAT(kindsOf(recorder.calls),
              ElementsAre(CallKind::beginPart, CallKind::circle, CallKind::endPart, CallKind::circle));
  EXPECT_EQ(recorder.calls[1].traits.color.colorIndex(), 5);
  EXPECT_EQ(recorder.calls[3].traits.color.colorIndex(), 2);
}

TEST(Recorder, EndsADrawableThatDrawsItself) {
  AcGiDrawable* self = nullptr;
  DrawWith drawable([&self](AcGiWorldDraw& draw) { draw.geometry().draw(self); });
  self = &drawable;
  Recorder recorder;
  recorder.drawWhole(drawable);
  EXPECT_LT(recorder.calls.size(), 200U);
}

TEST(Recorder, AsksForTheViewOnlyWhenTheWorldWasNotAll) {
  int views = 0;
  DrawWith complete([](AcGiWorldDraw&) {});
  DrawWith partial([](AcGiWorldDraw&) {});
  partial.forView = [&views](AcGiViewportDraw& draw) {
    ++views;
    draw.geometry().circle({0, 0, 0}, 3, AcGeVector3d::kZAxis);
  };
  Recorder recorder;
  recorder.drawWhole(complete);
  recorder.drawWhole(partial);
  EXPECT_EQ(views, 1);
  EXPECT_EQ(toText(recorder.figures()), "circle (0 0 0) r 3 n (0 0 1)\n");
}

TEST(Recorder, TellsOfADragUntilItEnds) {
  std::vector<bool> seen;
  DrawWith drawable([&seen](AcGiWorldDraw& draw) { seen.push_back(draw.isDragging() != 0); });
  Recorder recorder;
  recorder.setDragging(true);
  recorder.drawWhole(drawable);
  recorder.setDragging(false);
  recorder.drawWhole(drawable);
  EXPECT_THAT(seen, ElementsAre(true, false));
}

TEST(Recorder, KeepsBothFormsOfText) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    AcGiTextStyle style;
    style.setTextSize(3.5);
    const AcGeVector3d& z = AcGeVector3d::kZAxis;
    draw.geometry().text({1, 2, 0}, z, {0, 2, 0}, L"%%c12 and more", 5, Adesk::kFalse, style);
    draw.geometry().text({1, 2, 0}, z, {1, 0, 0}, 2.5, 0.8, 0.0, L"%%c");
  });
  Recorder recorder;
  recorder.drawWhole(drawable);
  EXPECT_EQ(toText(recorder.calls),
            "text (1 2 0) \"%%c12\" h 3.5 d (0 1 0)\n"
            "text (1 2 0) \"%%c\" h 2.5 d (1 0 0)\n");
  EXPECT_FALSE(recorder.calls[0].raw);
  EXPECT_TRUE(recorder.calls[1].raw);
  EXPECT_EQ(recorder.calls[1].style.xScale(), 0.8);
}

}  // namespace
