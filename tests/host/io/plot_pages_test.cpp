#include <gmock/gmock.h>

#include <chrono>
#include <cmath>
#include <cstdlib>

#include "host/gi/DrawWith.h"
#include "host/io/PlotTools.h"
#include "host/io/plot/PlotSheet.h"

namespace {

using plot::PlotErrorKind;
using plot::PlotFormat;
using plot::PlotOptions;
using plot::PlotOutput;
using plot::PlotSheet;
using plottools::Folder;
using plottools::Picture;
using testing::HasSubstr;
using testing::Not;

constexpr double kPi = 3.14159265358979323846;
/// Ten dots a millimetre.
constexpr double kFineDpi = 254.0;

PlotSheet sheetOf(DrawWith& drawable, plot::PaperSize paper = {100.0, 60.0}) {
  PlotSheet sheet;
  sheet.paper = paper;
  sheet.drawables = {&drawable};
  return sheet;
}

PlotOutput plotOne(const PlotSheet& sheet, PlotFormat format, const PlotOptions& options = {}) {
  return plotToBytes(std::span(&sheet, 1), format, options);
}

Picture picture(const PlotSheet& sheet, PlotOptions options = {}) {
  options.pngDpi = kFineDpi;
  const PlotOutput output = plotOne(sheet, PlotFormat::png, options);
  EXPECT_TRUE(output);
  const Folder folder;
  return plottools::readPng(folder.write("page.png", output.bytes));
}

void line(AcGiWorldDraw& draw, double x1, double y1, double x2, double y2) {
  const AcGePoint3d points[2] = {{x1, y1, 0}, {x2, y2, 0}};
  draw.geometry().polyline(2, points);
}

void text(AcGiWorldDraw& draw, double x, double y, double height, const ACHAR* message) {
  draw.geometry().text({x, y, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, height, 1.0, 0.0, message);
}

DrawWith sample() {
  return DrawWith([](AcGiWorldDraw& draw) {
    line(draw, 10, 10, 90, 10);
    draw.geometry().circle({50, 30, 0}, 10, AcGeVector3d::kZAxis);
    text(draw, 10, 45, 5, L"Treliça Ø60,3 x 3,6");
  });
}

TEST(PlotPdf, HasTheSheetsSizeAndTitle) {
  DrawWith drawable = sample();
  PlotOptions options;
  options.title = "Treliça";
  options.author = "Estrutura";
  options.subject = "A1";
  const PlotOutput output = plotOne(sheetOf(drawable, plot::kA1), PlotFormat::pdf, options);
  ASSERT_TRUE(output);
  const Folder folder;
  const std::string info = plottools::run("TZ=UTC pdfinfo -isodates '" + folder.write("a.pdf", output.bytes) + "'");
  // 841 and 594 mm in points of 1/72 inch.
  EXPECT_THAT(info, HasSubstr("2383.94 x 1683.78 pts"));
  EXPECT_THAT(info, HasSubstr("Treliça"));
  EXPECT_THAT(info, HasSubstr("Estrutura"));
  EXPECT_THAT(info, HasSubstr("Pages:           1"));
}

TEST(PlotPdf, HoldsTextAsTextInAnEmbeddedFont) {
  DrawWith drawable = sample();
  const Folder folder;
  const std::string path = folder.write("a.pdf", plotOne(sheetOf(drawable), PlotFormat::pdf).bytes);
  EXPECT_THAT(plottools::run("pdftotext '" + path + "' -"), HasSubstr("Treliça Ø60,3 x 3,6"));
  EXPECT_THAT(plottools::run("pdffonts '" + path + "'"), testing::ContainsRegex("osifont +TrueType +[A-Za-z]+ +yes"));
}

TEST(PlotPdf, HasAPageForEachSheet) {
  DrawWith first = sample();
  DrawWith second([](AcGiWorldDraw& draw) { text(draw, 10, 10, 5, L"second"); });
  const PlotSheet sheets[2] = {sheetOf(first), sheetOf(second, {200.0, 300.0})};
  const PlotOutput output = plotToBytes(sheets, PlotFormat::pdf);
  ASSERT_TRUE(output);
  const Folder folder;
  const std::string path = folder.write("a.pdf", output.bytes);
  const std::string info = plottools::run("pdfinfo -f 1 -l 2 '" + path + "'");
  EXPECT_THAT(info, HasSubstr("283.465 x 170.079 pts"));
  EXPECT_THAT(info, HasSubstr("566.929 x 850.394 pts"));
  EXPECT_THAT(plottools::run("pdftotext -f 2 '" + path + "' -"), HasSubstr("second"));
}

TEST(PlotPdf, DateIsTheSourceDateOrAFixedOne) {
  DrawWith drawable = sample();
  const Folder folder;
  const auto dateOf = [&] {
    const std::string path = folder.write("a.pdf", plotOne(sheetOf(drawable), PlotFormat::pdf).bytes);
    return plottools::run("TZ=UTC pdfinfo -isodates '" + path + "'");
  };
  const char* kept = std::getenv("SOURCE_DATE_EPOCH");
  const std::string before = kept == nullptr ? "" : kept;
  setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
  EXPECT_THAT(dateOf(), HasSubstr("CreationDate:    2001-09-09T01:46:40Z"));
  setenv("SOURCE_DATE_EPOCH", "soon", 1);
  EXPECT_THAT(dateOf(), HasSubstr("2000-01-01T00:00:00Z"));
  unsetenv("SOURCE_DATE_EPOCH");
  EXPECT_THAT(dateOf(), HasSubstr("2000-01-01T00:00:00Z"));
  if (kept != nullptr) setenv("SOURCE_DATE_EPOCH", before.c_str(), 1);
}

TEST(Plot, GivesTheSameBytesTwice) {
  DrawWith drawable = sample();
  const PlotSheet sheet = sheetOf(drawable);
  for (const PlotFormat format : {PlotFormat::pdf, PlotFormat::svg, PlotFormat::png}) {
    const PlotOutput first = plotOne(sheet, format);
    ASSERT_FALSE(first.bytes.empty());
    EXPECT_EQ(first.bytes, plotOne(sheet, format).bytes);
  }
}

TEST(PlotPng, IsAsLargeAsSheetAndResolutionSay) {
  DrawWith drawable = sample();
  const Picture page = picture(sheetOf(drawable));
  EXPECT_EQ(page.width, 1000);
  EXPECT_EQ(page.height, 600);
  const PlotOutput output = plotOne(sheetOf(drawable), PlotFormat::png, {.pngDpi = 100.0});
  const Folder folder;
  EXPECT_EQ(plottools::readPng(folder.write("a.png", output.bytes)).width, 394);
  // 100 dots an inch are 3937 a metre.
  EXPECT_THAT(output.bytes, HasSubstr(std::string("pHYs\0\0\x0f\x61\0\0\x0f\x61\1", 13)));
}

TEST(PlotPng, PutsALineWhereItBelongsAndAsWideAsItsWeight) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt100);
    line(draw, 20, 15, 80, 15);
  });
  // Half a millimetre around the line; the round ends reach as far.
  EXPECT_EQ(picture(sheetOf(drawable)).ink(), (std::array<int, 4>{195, 445, 805, 455}));
}

TEST(PlotPng, ScalesLineWeights) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt100);
    line(draw, 20, 15, 80, 15);
  });
  PlotOptions options;
  options.lineWeightScale = 2.0;
  EXPECT_EQ(picture(sheetOf(drawable), options).ink(), (std::array<int, 4>{190, 440, 810, 460}));
}

TEST(PlotPng, FillsWhatIsToBeFilledOnly) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setColor(1);
    draw.subEntityTraits().setFillType(kAcGiFillAlways);
    draw.geometry().circle({20, 30, 0}, 10, AcGeVector3d::kZAxis);
    draw.geometry().circularArc(AcGePoint3d(60, 30, 0), AcGePoint3d(50, 40, 0), AcGePoint3d(40, 30, 0));
    draw.subEntityTraits().setFillType(kAcGiFillNever);
    draw.geometry().circle({80, 30, 0}, 10, AcGeVector3d::kZAxis);
  });
  const Picture page = picture(sheetOf(drawable));
  EXPECT_EQ(page.at(200, 300), (std::array<int, 3>{255, 0, 0}));
  EXPECT_EQ(page.at(500, 250), (std::array<int, 3>{255, 255, 255})) << "a simple arc encloses nothing";
  EXPECT_EQ(page.at(800, 300), (std::array<int, 3>{255, 255, 255}));
}

TEST(PlotPng, FillsAnOblongOfTwoArcsAndAPolygonWithoutASeam) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setFillType(kAcGiFillAlways);
    const AcGePoint3d a1(40, 34, 0), a2(36, 30, 0), a3(40, 26, 0), a4(60, 26, 0), a5(64, 30, 0), a6(60, 34, 0);
    draw.geometry().circularArc(a1, a2, a3, kAcGiArcChord);
    draw.geometry().circularArc(a4, a5, a6, kAcGiArcChord);
    const AcGePoint3d corners[4] = {a3, a4, a6, a1};
    draw.geometry().polygon(4, corners);
  });
  const Picture page = picture(sheetOf(drawable));
  for (int x = 365; x < 635; ++x) EXPECT_EQ(page.dark(x, 300), 255) << x;
}

TEST(PlotPng, ColourPolicies) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setColor(1);
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt200);
    line(draw, 10, 30, 90, 30);
  });
  PlotOptions options;
  EXPECT_EQ(picture(sheetOf(drawable)).at(500, 300), (std::array<int, 3>{255, 0, 0}));
  options.colors = plot::ColorPolicy::grey;
  EXPECT_EQ(picture(sheetOf(drawable), options).at(500, 300), (std::array<int, 3>{76, 76, 76}));
  options.colors = plot::ColorPolicy::black;
  EXPECT_EQ(picture(sheetOf(drawable), options).at(500, 300), (std::array<int, 3>{0, 0, 0}));
}

TEST(PlotView, ShowsTheModelToScaleWithinItsRectangle) {
  DrawWith model([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt100);
    line(draw, -100000, 0, 100000, 0);
    line(draw, 1000, -500, 1000, 500);
  });
  PlotSheet sheet;
  sheet.paper = {100.0, 60.0};
  plot::PlotViewport viewport;
  // 1:100, the model's origin at (50, 30) on paper.
  viewport.modelToPaper = AcGeMatrix3d::translation({50, 30, 0}) * AcGeMatrix3d::scaling(0.01);
  viewport.clip = {20, 10, 80, 50};
  viewport.drawables = {&model};
  sheet.viewports = {viewport};
  const Picture page = picture(sheet);
  // The long line from edge to edge; the short one 10 mm right of the middle, 5 mm up and down and its round ends.
  EXPECT_EQ(page.ink(), (std::array<int, 4>{200, 245, 800, 355}));
  EXPECT_EQ(page.dark(600, 260), 255);
}

TEST(PlotView, ShowsATurnedCircleAsAnEllipseAndOneEdgeOnAsALine) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt100);
    draw.geometry().circle({50, 30, 0}, 20, AcGeVector3d(0, std::sin(kPi / 3), std::cos(kPi / 3)));
  });
  // Half as high as wide.
  EXPECT_EQ(picture(sheetOf(drawable)).ink(), (std::array<int, 4>{295, 195, 705, 405}));
  DrawWith edgeOn([](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt100);
    draw.geometry().circle({50, 30, 0}, 20, AcGeVector3d::kYAxis);
  });
  const std::array<int, 4> box = picture(sheetOf(edgeOn)).ink();
  EXPECT_NEAR(box[2] - box[0], 410, 1);
  EXPECT_NEAR(box[3] - box[1], 10, 1);
}

TEST(PlotView, KeepsItsFeetWithFarAndBrokenCoordinates) {
  const double nan = std::nan("");
  DrawWith drawable([nan](AcGiWorldDraw& draw) {
    draw.subEntityTraits().setLineWeight(AcDb::kLnWt100);
    line(draw, -1e12, 30, 1e12, 30);
    line(draw, nan, 0, 10, 10);
    line(draw, 1e300, 1e300, 2e300, 1e300);
    draw.geometry().circle({50, 30 + 1e7, 0}, 1e7 - 20.0, AcGeVector3d::kZAxis);
    text(draw, nan, 10, 5, L"nowhere");
    text(draw, 10, 10, 0.0, L"nothing");
    text(draw, 10, 10, 1e300, L"huge");
    line(draw, 10, 10, 20, 10);
  });
  const PlotSheet sheet = sheetOf(drawable);
  const PlotOutput output = plotOne(sheet, PlotFormat::pdf);
  ASSERT_TRUE(output) << output.error->text;
  ASSERT_EQ(output.warnings.size(), 1U);
  const Picture page = picture(sheet);
  EXPECT_EQ(page.dark(0, 300), 255);
  EXPECT_EQ(page.dark(999, 300), 255);
  EXPECT_EQ(page.dark(500, 100), 255) << "the flat of a great circle";
  EXPECT_EQ(page.dark(150, 500), 255) << "what comes after";
}

TEST(PlotText, CoversWhatItWasMeasuredToCover) {
  for (const double oblique : {0.0, 0.26}) {
    AcGiTextStyle style;
    style.setTextSize(7.0);
    style.setXScale(0.9);
    style.setObliquingAngle(oblique);
    const ACHAR* message = L"Tubo gjpq 60,3";
    DrawWith drawable([&](AcGiWorldDraw& draw) {
      draw.geometry().text({15, 30, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, message, -1, Adesk::kTrue, style);
    });
    const Folder folder;
    const std::string path = folder.write("a.pdf", plotOne(sheetOf(drawable), PlotFormat::pdf).bytes);
    const double dotsPerMm = 508 / 25.4;
    const std::array<int, 4> ink = plottools::drawPdf(path, 508).ink();
    AcGePoint2d least, greatest;
    style.extentsBox(message, -1, Adesk::kFalse, Adesk::kTrue, least, greatest);
    // Two dots of 1/20 mm.
    constexpr double kRoom = 0.1;
    EXPECT_NEAR(ink[0] / dotsPerMm, 15 + least.x, kRoom);
    EXPECT_NEAR(ink[2] / dotsPerMm, 15 + greatest.x, kRoom);
    EXPECT_NEAR(60 - ink[1] / dotsPerMm, 30 + greatest.y, kRoom);
    EXPECT_NEAR(60 - ink[3] / dotsPerMm, 30 + least.y, kRoom);
  }
}

TEST(PlotText, SaysWhichFontStandsIn) {
  AcGiTextStyle style;
  static_cast<void>(style.setFont(L"No Such Font", false, false));
  DrawWith drawable([&style](AcGiWorldDraw& draw) {
    for (int i = 0; i < 3; ++i) {
      draw.geometry().text({15, 30, 0}, AcGeVector3d::kZAxis, AcGeVector3d::kXAxis, L"x", -1, Adesk::kTrue, style);
    }
  });
  const PlotOutput output = plotOne(sheetOf(drawable), PlotFormat::pdf);
  ASSERT_EQ(output.warnings.size(), 1U);
  EXPECT_THAT(output.warnings[0], HasSubstr("osifont"));
}

TEST(PlotSvg, IsDrawnAlikeByAnotherProgram) {
  DrawWith drawable = sample();
  PlotOptions options;
  options.title = "a < b & c";
  const PlotOutput output = plotOne(sheetOf(drawable), PlotFormat::svg, options);
  ASSERT_TRUE(output);
  EXPECT_THAT(output.bytes, HasSubstr("width=\"100mm\" height=\"60mm\" viewBox=\"0 0 1000 600\""));
  EXPECT_THAT(output.bytes, HasSubstr("<title>a &lt; b &amp; c</title>"));
  const Folder folder;
  const std::string path = folder.write("a.svg", output.bytes);
  plottools::run("rsvg-convert -w 1000 '" + path + "' -o '" + folder.file("a.png") + "'");
  const Picture other = plottools::readPng(folder.file("a.png"));
  const Picture own = picture(sheetOf(drawable));
  ASSERT_EQ(other.width, own.width);
  ASSERT_EQ(other.height, own.height);
  const auto a = own.ink();
  const auto b = other.ink();
  for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(a[i], b[i], 1);
  double sum = 0.0;
  for (std::size_t i = 0; i < own.rgb.size(); ++i) {
    sum += std::abs(static_cast<unsigned char>(own.rgb[i]) - static_cast<unsigned char>(other.rgb[i]));
  }
  // Rounding at the edges of strokes only: less than one dot in five hundred is another one.
  EXPECT_LT(sum / 255.0 / static_cast<double>(own.rgb.size()), 0.002);
}

TEST(Plot, TellsOnceThatThereAreMorePartsThanItDraws) {
  DrawWith nothing([](AcGiWorldDraw&) {});
  DrawWith bar([](AcGiWorldDraw& draw) { line(draw, 10, 5, 90, 5); });
  const auto plotted = [&](int parts) {
    DrawWith drawable([&](AcGiWorldDraw& draw) {
      for (int i = 0; i < parts; ++i) draw.geometry().draw(&nothing);
      draw.geometry().draw(&bar);
    });
    return plotOne(sheetOf(drawable), PlotFormat::svg);
  };
  const PlotOutput whole = plotted(100);
  ASSERT_TRUE(whole);
  EXPECT_TRUE(whole.warnings.empty());
  const PlotOutput cut = plotted(4'000'000);
  ASSERT_TRUE(cut);
  ASSERT_EQ(cut.warnings.size(), 1U);
  EXPECT_THAT(cut.warnings[0], HasSubstr("the drawing is incomplete"));
  EXPECT_LT(cut.bytes.size(), whole.bytes.size()) << "the bar came too late";
}

TEST(PlotErrors, AreValuesThatSayWhatIsWrong) {
  DrawWith drawable = sample();
  const auto kindOf = [](const PlotOutput& output) {
    EXPECT_TRUE(output.error && !output.error->text.empty());
    EXPECT_TRUE(output.bytes.empty());
    return output.error ? output.error->kind : PlotErrorKind::output;
  };
  EXPECT_EQ(kindOf(plotToBytes({}, PlotFormat::pdf)), PlotErrorKind::badSheet);
  for (const double side : {0.0, -5.0, 1e9, std::nan("")}) {
    EXPECT_EQ(kindOf(plotOne(sheetOf(drawable, {side, 100.0}), PlotFormat::pdf)), PlotErrorKind::badSheet);
  }
  const PlotSheet two[2] = {sheetOf(drawable), sheetOf(drawable)};
  EXPECT_EQ(kindOf(plotToBytes(two, PlotFormat::svg)), PlotErrorKind::badSheet);
  EXPECT_EQ(kindOf(plotOne(sheetOf(drawable, plot::kA0), PlotFormat::png, {.pngDpi = 1200.0})),
            PlotErrorKind::tooLarge);
  EXPECT_EQ(kindOf(plotOne(sheetOf(drawable), PlotFormat::png, {.pngDpi = 0.0})), PlotErrorKind::badOptions);
  EXPECT_EQ(kindOf(plotOne(sheetOf(drawable), PlotFormat::png, {.lineWeightScale = -1.0})), PlotErrorKind::badOptions);
  PlotSheet bad = sheetOf(drawable);
  bad.viewports.emplace_back();
  EXPECT_EQ(kindOf(plotOne(bad, PlotFormat::pdf)), PlotErrorKind::badSheet) << "an empty rectangle";
  bad.viewports[0].clip = {0, 0, 10, 10};
  bad.viewports[0].modelToPaper(0, 0) = std::nan("");
  EXPECT_EQ(kindOf(plotOne(bad, PlotFormat::pdf)), PlotErrorKind::badSheet);
}

TEST(PlotFile, LeavesTheOldFileUnlessItMayBeReplaced) {
  DrawWith drawable = sample();
  const PlotSheet sheet = sheetOf(drawable);
  const Folder folder;
  const std::string path = folder.write("a.pdf", "old");
  const auto contents = [&] { return plottools::run("cat '" + path + "'"); };
  PlotOutput output = plotToFile(std::span(&sheet, 1), PlotFormat::pdf, path, {}, {.overwrite = false});
  ASSERT_TRUE(output.error);
  EXPECT_EQ(output.error->kind, PlotErrorKind::exists);
  EXPECT_EQ(contents(), "old");
  output = plotToFile(std::span(&sheet, 1), PlotFormat::pdf, path);
  EXPECT_FALSE(output.error);
  EXPECT_EQ(contents(), output.bytes);
  output = plotToFile(std::span(&sheet, 1), PlotFormat::pdf, folder.file("none/a.pdf"));
  ASSERT_TRUE(output.error);
  EXPECT_EQ(output.error->kind, PlotErrorKind::cannotWrite);
}

TEST(PlotFile, EndingNamesTheFormat) {
  EXPECT_EQ(plot::formatOf("a/b.PDF"), PlotFormat::pdf);
  EXPECT_EQ(plot::formatOf("b.svg"), PlotFormat::svg);
  EXPECT_EQ(plot::formatOf("b.c.Png"), PlotFormat::png);
  for (const char* other : {"pdf", "", "a.dxf", "a.", "a.pdf/b"}) EXPECT_FALSE(plot::formatOf(other)) << other;
}

TEST(PlotExtents, CountWhatArcsReachBetweenTheirEnds) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    // A half circle over the top, from (10, 0) to (-10, 0): its ends and its middle.
    draw.geometry().circularArc(AcGePoint3d(10, 0, 0), AcGePoint3d(0, 10, 0), AcGePoint3d(-10, 0, 0));
    draw.geometry().pushModelTransform(AcGeMatrix3d::translation({100, 0, 5}));
    draw.geometry().circularArc(AcGePoint3d(0, 0, 0), 10, AcGeVector3d::kZAxis, AcGeVector3d(1, 0, 0), -kPi / 2);
  });
  const AcDbExtents box = plot::drawnExtents(drawable);
  EXPECT_NEAR(box.minPoint().distanceTo({-10, -10, 0}), 0.0, 1e-9);
  EXPECT_NEAR(box.maxPoint().distanceTo({110, 10, 5}), 0.0, 1e-9);
}

TEST(PlotExtents, AgreeWithASampleOfATurnedArc) {
  for (int i = 0; i < 50; ++i) {
    const AcGeVector3d normal(std::sin(i * 1.3), std::cos(i * 0.7), std::sin(i * 2.1) + 0.2);
    const AcGeVector3d start = normal.perpVector();
    const double sweep = 0.1 + 0.12 * i;
    const AcGeVector3d side = (normal / normal.length()).crossProduct(start);
    DrawWith drawable(
        [&](AcGiWorldDraw& draw) { draw.geometry().circularArc(AcGePoint3d(1, 2, 3), 10, normal, start, sweep); });
    AcDbExtents sampled;
    for (int k = 0; k <= 10000; ++k) {
      const double t = sweep * k / 10000;
      sampled.addPoint(AcGePoint3d(1, 2, 3) + start * (10 * std::cos(t)) + side * (10 * std::sin(t)));
    }
    const AcDbExtents box = plot::drawnExtents(drawable);
    EXPECT_NEAR(box.minPoint().distanceTo(sampled.minPoint()), 0.0, 1e-4) << i;
    EXPECT_NEAR(box.maxPoint().distanceTo(sampled.maxPoint()), 0.0, 1e-4) << i;
  }
}

TEST(PlotExtents, NothingDrawnIsEmpty) {
  DrawWith drawable([](AcGiWorldDraw&) {});
  EXPECT_TRUE(plot::drawnExtents(drawable).isEmpty());
}

TEST(PlotSpeed, AHundredThousandElementsTakeSeconds) {
  DrawWith drawable([](AcGiWorldDraw& draw) {
    for (int i = 0; i < 100000; ++i) {
      const double x = 5.0 + i % 300 * 0.3;
      const double y = 5.0 + i / 300 * 0.15;
      if (i % 20 == 0) {
        draw.geometry().circle({x, y, 0}, 0.1, AcGeVector3d::kZAxis);
      } else {
        line(draw, x, y, x + 0.25, y + 0.1);
      }
    }
  });
  const PlotSheet sheet = sheetOf(drawable);
  for (const PlotFormat format : {PlotFormat::pdf, PlotFormat::svg, PlotFormat::png}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(plotOne(sheet, format));
    EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), 30.0);
  }
}

}  // namespace
