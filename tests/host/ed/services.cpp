#include <gmock/gmock.h>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/ed/resbufTypes.h"

namespace {

TEST(Terminal, TakesWideFormatsAndGivesThemToTheSink) {
  edhost::ConsoleCapture terminal;
  EXPECT_EQ(acutPrintf(L"\n%s: %d, %5.1f %S", L"Versão", 7, 2.25, "narrow"), RTNORM);
  EXPECT_EQ(terminal.text(), L"\nVersão: 7,   2.2 narrow");
  acedAlert(L"!");
  EXPECT_EQ(terminal.alerts(), L"!");
  EXPECT_EQ(acutPrintf(nullptr), RTERROR);
}

TEST(ValueChain, HoldsItsValuesInOrder) {
  const ads_point place = {1.0, 2.0, 3.0};
  const ads_name name = {11, 12};
  resbuf* const chain = acutBuildList(RTSTR, L"a", RTREAL, 1.5, RT3DPOINT, place, RTSHORT, 7, RTLONG, 70000, RTENAME,
                                      name, RTLB, RTLE, 0);
  ASSERT_NE(chain, nullptr);
  EXPECT_STREQ(chain->resval.rstring, L"a");
  EXPECT_EQ(chain->rbnext->resval.rreal, 1.5);
  EXPECT_EQ(chain->rbnext->rbnext->resval.rpoint[2], 3.0);
  const resbuf* const fourth = chain->rbnext->rbnext->rbnext;
  EXPECT_EQ(fourth->resval.rint, 7);
  EXPECT_EQ(fourth->rbnext->resval.rlong, 70000);
  EXPECT_EQ(fourth->rbnext->rbnext->resval.rlname[1], 12);
  EXPECT_EQ(fourth->rbnext->rbnext->rbnext->restype, RTLB);
  EXPECT_EQ(fourth->rbnext->rbnext->rbnext->rbnext->rbnext, nullptr);
  EXPECT_EQ(acutRelRb(chain), RTNORM);
  EXPECT_EQ(acutRelRb(nullptr), RTNORM);
  EXPECT_EQ(acutNewRb(4999), nullptr);
}

// What a reader of groups puts into a link must be what the link gives back when it is released.
TEST(ValueChain, HoldsUnderEveryGroupCodeWhatAGroupOfThatCodeHolds) {
  using Kind = edhost::ValueKind;
  constexpr int kLastCode = 1071;
  const auto kindOfGroup = [](int code) {
    switch (acdbDxfValueKind(code)) {
      case AcDbDxfValueKind::kNone:
        return Kind::Unknown;
      case AcDbDxfValueKind::kText:
      case AcDbDxfValueKind::kHandle:
        return Kind::Text;
      case AcDbDxfValueKind::kPoint:
        return Kind::Point;
      case AcDbDxfValueKind::kReal:
        return Kind::Real;
      case AcDbDxfValueKind::kInt16:
        return Kind::Short;
      case AcDbDxfValueKind::kInt32:
        return Kind::Long;
      case AcDbDxfValueKind::kInt64:
        return Kind::Int64;
      case AcDbDxfValueKind::kBinary:
        return Kind::Binary;
      case AcDbDxfValueKind::kObjectId:
        return Kind::Name;
    }
    return Kind::Unknown;
  };
  for (int code = 0; code <= kLastCode; ++code) EXPECT_EQ(edhost::valueKind(code), kindOfGroup(code)) << code;
}

TEST(PlaneServices, AngleRunsFromZeroToAFullTurn) {
  const ads_point origin = {0, 0, 0};
  const auto angleTo = [&](double x, double y) {
    const ads_point p = {x, y, 9.0};
    return acutAngle(origin, p);
  };
  EXPECT_EQ(angleTo(1, 0), 0.0);
  EXPECT_DOUBLE_EQ(angleTo(0, 1), kAcutPi / 2);
  EXPECT_DOUBLE_EQ(angleTo(-1, 0), kAcutPi);
  EXPECT_DOUBLE_EQ(angleTo(1, -1), 1.75 * kAcutPi);
  EXPECT_EQ(angleTo(0, 0), 0.0);
}

TEST(PlaneServices, CrossingIsBoundedOrNot) {
  const ads_point a = {0, 0, 0}, b = {10, 0, 0}, c = {5, 1, 0}, d = {5, 4, 0};
  ads_point p = {-1, -1, -1};
  EXPECT_EQ(acdbInters(a, b, c, d, 1, p), RTERROR);
  EXPECT_EQ(p[0], -1.0);
  EXPECT_EQ(acdbInters(a, b, c, d, 0, p), RTNORM);
  EXPECT_EQ(p[0], 5.0);
  EXPECT_EQ(p[1], 0.0);
}

TEST(PlaneServices, SegmentsThatTouchAtAnEndCross) {
  const ads_point a = {0, 0, 0}, b = {0.1, 0.3, 0}, c = {0.1, 0.3, 0}, d = {7, 0, 0};
  ads_point p;
  EXPECT_EQ(acdbInters(a, b, c, d, 1, p), RTNORM);
  EXPECT_NEAR(p[0], 0.1, 1e-12);
  EXPECT_NEAR(p[1], 0.3, 1e-12);
}

TEST(PlaneServices, ParallelAndCoincidingLinesDontCross) {
  const ads_point a = {0, 0, 0}, b = {10, 0, 0}, c = {0, 1, 0}, d = {10, 1, 0}, e = {5, 0, 0};
  ads_point p;
  EXPECT_EQ(acdbInters(a, b, c, d, 0, p), RTERROR);
  EXPECT_EQ(acdbInters(a, b, e, b, 1, p), RTERROR);
  EXPECT_EQ(acdbInters(a, a, c, d, 0, p), RTERROR);
}

TEST(PlaneServices, LinesInSpaceCrossOnlyWhereTheyMeet) {
  const ads_point a = {0, 0, 0}, b = {10, 10, 10}, c = {0, 10, 5}, d = {10, 0, 5}, e = {0, 10, 6}, f = {10, 0, 6};
  ads_point p;
  EXPECT_EQ(acdbInters(a, b, c, d, 1, p), RTNORM);
  EXPECT_NEAR(p[2], 5.0, 1e-12);
  EXPECT_EQ(acdbInters(a, b, e, f, 0, p), RTERROR);
}

TEST(Wildcards, MatchAsPublished) {
  const auto matches = [](const wchar_t* text, const wchar_t* pattern) { return acutWcMatch(text, pattern) == RTNORM; };
  EXPECT_TRUE(matches(L"PERFIL", L"PER*"));
  EXPECT_TRUE(matches(L"A1", L"@#"));
  EXPECT_FALSE(matches(L"A1", L"##"));
  EXPECT_TRUE(matches(L"LINE", L"ARC,LINE"));
  EXPECT_FALSE(matches(L"LINE", L"~LINE"));
  EXPECT_TRUE(matches(L"ARC", L"~LINE"));
  EXPECT_TRUE(matches(L"b", L"[a-c]"));
  EXPECT_FALSE(matches(L"b", L"[~a-c]"));
  EXPECT_TRUE(matches(L"*", L"`*"));
  EXPECT_FALSE(matches(L"x", L"`*"));
  EXPECT_TRUE(matches(L"-", L"."));
  EXPECT_TRUE(matches(L"", L"*"));
  EXPECT_FALSE(matches(L"ab", L"a"));
}

class InDrawing : public ::testing::Test {
 protected:
  InDrawing() { acDocManagerPtr()->newDocument(); }
  ~InDrawing() override {
    acDocManagerPtr()->closeAllDocuments();
    edhost::promptQueue().clear();
  }
};
using SystemVariable = InDrawing;
using Frames = InDrawing;
using Linetypes = InDrawing;

int set(const wchar_t* name, int type, double number) {
  resbuf rb{};
  rb.restype = static_cast<short>(type);
  if (type == RTSHORT) {
    rb.resval.rint = static_cast<short>(number);
  } else {
    rb.resval.rreal = number;
  }
  return acedSetVar(name, &rb);
}

TEST_F(SystemVariable, KnowsItsTypeAndRange) {
  EXPECT_EQ(set(L"dimscale", RTREAL, 50.0), RTNORM);
  EXPECT_EQ(edhost::varReal(L"DIMSCALE"), 50.0);
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase()->dimscale(), 50.0);
  EXPECT_EQ(set(L"DIMSCALE", RTSHORT, 20), RTNORM);
  EXPECT_EQ(edhost::varReal(L"DIMSCALE"), 20.0);
  EXPECT_EQ(set(L"DIMSCALE", RTREAL, -1.0), RTERROR);
  EXPECT_EQ(set(L"LUNITS", RTSHORT, 6), RTERROR);
  EXPECT_EQ(set(L"LUNITS", RTREAL, 2.5), RTERROR);
  EXPECT_EQ(set(L"CMDNAMES", RTSHORT, 1), RTERROR);
  EXPECT_EQ(set(L"NOSUCH", RTSHORT, 1), RTERROR);
  resbuf rb{};
  EXPECT_EQ(acedGetVar(L"NOSUCH", &rb), RTERROR);
  EXPECT_EQ(acedGetVar(L"CVPORT", &rb), RTNORM);
  EXPECT_EQ(rb.restype, RTSHORT);
  EXPECT_EQ(rb.resval.rint, 2);
}

TEST_F(SystemVariable, OfADrawingStaysWithIt) {
  AcApDocument* const first = acDocManagerPtr()->curDocument();
  EXPECT_EQ(set(L"USERI1", RTSHORT, 5), RTNORM);
  EXPECT_EQ(set(L"OSMODE", RTSHORT, 33), RTNORM);
  acDocManagerPtr()->newDocument();
  EXPECT_EQ(edhost::varInt(L"USERI1"), 0);
  EXPECT_EQ(edhost::varInt(L"OSMODE"), 33);
  acDocManagerPtr()->setCurDocument(first);
  EXPECT_EQ(edhost::varInt(L"USERI1"), 5);
  EXPECT_EQ(set(L"OSMODE", RTSHORT, 0), RTNORM);
}

TEST_F(SystemVariable, CurrentLayerIsGivenByName) {
  EXPECT_EQ(edhost::varText(L"CLAYER"), L"0");
  resbuf* const unknown = acutBuildList(RTSTR, L"no such layer", 0);
  EXPECT_EQ(acedSetVar(L"CLAYER", unknown), RTERROR);
  acutRelRb(unknown);
}

TEST_F(Frames, PointsPassBetweenUcsAndWorld) {
  AcGeMatrix3d ucs;
  // X of the UCS along world Y, its origin at (10, 0, 0).
  ucs.setCoordSystem({10, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 1});
  ASSERT_EQ(acedSetCurrentUCS(ucs), Acad::eOk);
  AcGePoint3d p(2, 3, 0);
  acdbUcs2Wcs(asDblArray(p), asDblArray(p), false);
  EXPECT_EQ(p, AcGePoint3d(7, 2, 0));
  acdbWcs2Ucs(asDblArray(p), asDblArray(p), false);
  EXPECT_EQ(p, AcGePoint3d(2, 3, 0));
  resbuf from{}, to{};
  from.restype = to.restype = RTSHORT;
  from.resval.rint = 1;
  AcGePoint3d q;
  EXPECT_EQ(acedTrans(asDblArray(p), &from, &to, 1, asDblArray(q)), RTNORM);
  EXPECT_EQ(q, AcGePoint3d(-3, 2, 0));
  from.resval.rint = 9;
  EXPECT_EQ(acedTrans(asDblArray(p), &from, &to, 0, asDblArray(q)), RTERROR);
  EXPECT_EQ(acedSetCurrentUCS(AcGeMatrix3d::scaling(2.0)), Acad::eInvalidInput);
}

TEST_F(Frames, EntityFrameFollowsTheArbitraryAxisRule) {
  // The X axis of the frame is world Z x normal, here world Y.
  AcGePoint3d p(0, 1, 0);
  acdbWcs2Ecs(asDblArray(p), asDblArray(p), AcGeVector3d::kXAxis, false);
  EXPECT_EQ(p, AcGePoint3d(1, 0, 0));
  acdbEcs2Wcs(asDblArray(p), asDblArray(p), AcGeVector3d::kXAxis, false);
  EXPECT_EQ(p, AcGePoint3d(0, 1, 0));
}

class LinetypeFile : public InDrawing {
 protected:
  static std::wstring write(const std::string& text) {
    const std::string path = ::testing::TempDir() + "linetypes.lin";
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    return {path.begin(), path.end()};
  }
};

TEST_F(LinetypeFile, GivesItsPattern) {
  const std::wstring file = write("; comment\n*DASH,Dashed __ __\nA,12.7,-6.35\n*DOT,Dots\na,0,-2\n");
  ASSERT_EQ(acdbLoadLineTypeFile(L"dash", file.c_str(), nullptr), Acad::eOk);
  AcDbLinetypeTable* table = nullptr;
  ASSERT_EQ(acdbHostApplicationServices()->workingDatabase()->getLinetypeTable(table), Acad::eOk);
  AcDbLinetypeTableRecord* record = nullptr;
  ASSERT_EQ(table->getAt(L"DASH", record, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(record->numDashes(), 2);
  EXPECT_EQ(record->dashLengthAt(1), -6.35);
  EXPECT_DOUBLE_EQ(record->patternLength(), 19.05);
  record->close();
  EXPECT_FALSE(table->has(L"DOT"));
  table->close();
  EXPECT_EQ(acdbLoadLineTypeFile(L"DASH", file.c_str(), nullptr), Acad::eDuplicateRecordName);
  EXPECT_EQ(acdbLoadLineTypeFile(L"*", file.c_str(), nullptr), Acad::eOk);
}

TEST_F(LinetypeFile, ThatIsBrokenIsReportedWithItsLine) {
  edhost::ConsoleCapture terminal;
  const std::wstring file =
      write("*ONE,x\nA,1,oops\n*TWO,x\nB,1\n*THREE,x\nA,1,-1,[CIRC,ltype.shx]\n*FOUR\nA,-1,1\n*FIVE,x\n");
  EXPECT_EQ(acdbLoadLineTypeFile(L"ONE", file.c_str(), nullptr), Acad::eBadLinetypeName);
  EXPECT_THAT(terminal.text(), ::testing::HasSubstr(L"line 2: a dash is no number."));
  EXPECT_EQ(acdbLoadLineTypeFile(L"TWO", file.c_str(), nullptr), Acad::eBadLinetypeName);
  EXPECT_EQ(acdbLoadLineTypeFile(L"THREE", file.c_str(), nullptr), Acad::eUndefineShapeName);
  EXPECT_EQ(acdbLoadLineTypeFile(L"FOUR", file.c_str(), nullptr), Acad::eBadLinetypeName);
  EXPECT_EQ(acdbLoadLineTypeFile(L"FIVE", file.c_str(), nullptr), Acad::eBadLinetypeName);
  EXPECT_EQ(acdbLoadLineTypeFile(L"SIX", file.c_str(), nullptr), Acad::eUndefinedLineType);
  EXPECT_EQ(acdbLoadLineTypeFile(L"ONE", L"no such file.lin", nullptr), Acad::eFileNotFound);
}

}  // namespace
