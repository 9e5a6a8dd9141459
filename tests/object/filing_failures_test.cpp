// Filers that fail while a member writes itself: where it stops, and what it tells.

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "object/Drawing.h"
#include "object/SampleOutlines.h"
#include "object/TestMember.h"
#include "profiles/KrTubo.h"
#include "records/Filing.h"

namespace {

/// Notes every item offered to it and fails from a number of them on.
class FailingDwgFiler : public filing::NotingDwgFiler {
 public:
  explicit FailingDwgFiler(std::size_t failsAt) : failsAt_(failsAt) {}

  Acad::ErrorStatus filerStatus() const override {
    return items.size() >= failsAt_ ? Acad::eFilerError : AcDbMemoryDwgFiler::filerStatus();
  }

 private:
  std::size_t failsAt_;
};

/// Notes the code of every group offered to it and fails from a number of them on.
class FailingDxfFiler : public AcDbMemoryDxfFiler {
 public:
  explicit FailingDxfFiler(std::size_t failsAt) : failsAt_(failsAt) {}

  std::vector<int> offered;

  Acad::ErrorStatus filerStatus() const override {
    return offered.size() >= failsAt_ ? Acad::eFilerError : AcDbMemoryDxfFiler::filerStatus();
  }
  Acad::ErrorStatus writeString(AcDb::DxfCode code, const ACHAR* text) override {
    offered.push_back(code);
    return AcDbMemoryDxfFiler::writeString(code, text);
  }
  Acad::ErrorStatus writeInt16(AcDb::DxfCode code, Adesk::Int16 value) override {
    offered.push_back(code);
    return AcDbMemoryDxfFiler::writeInt16(code, value);
  }
  Acad::ErrorStatus writeInt32(AcDb::DxfCode code, Adesk::Int32 value) override {
    offered.push_back(code);
    return AcDbMemoryDxfFiler::writeInt32(code, value);
  }
  Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int precision) override {
    offered.push_back(code);
    return AcDbMemoryDxfFiler::writeDouble(code, value, precision);
  }
  Acad::ErrorStatus writePoint3d(AcDb::DxfCode code, const AcGePoint3d& value, int precision) override {
    offered.push_back(code);
    return AcDbMemoryDxfFiler::writePoint3d(code, value, precision);
  }
  Acad::ErrorStatus writeVector3d(AcDb::DxfCode code, const AcGeVector3d& value, int precision) override {
    offered.push_back(code);
    return AcDbMemoryDxfFiler::writeVector3d(code, value, precision);
  }

 private:
  std::size_t failsAt_;
};

constexpr std::size_t kNever = std::size_t(-1);
constexpr int kNormal = 210;

class MemberWriting : public testing::Test {
 protected:
  MemberWriting() : member(AcGePoint3d(0, 0, 0), AcGePoint3d(900, 0, 0), Superior, 114.3, 104.3) {
    member.setUserName(L"V7");
    member.setAngleVista(0.25);
    member.settipoBarra(Pilar);
    FailingDwgFiler filer(kNever);
    EXPECT_EQ(member.dwgOutFieldsData(&filer), Acad::eOk);
    all = filer.items;
  }

  std::vector<std::string> begin(std::size_t count) const {
    return {all.begin(), all.begin() + static_cast<std::ptrdiff_t>(count)};
  }

  Drawing drawing;
  KrTubo member;
  std::vector<std::string> all;
};

}  // namespace

// A list in a DWG tells of no failure: it is the filer that does, at the end.
TEST_F(MemberWriting, GoesOnBehindAFailureInItsFieldsAndTellsItAtTheEnd) {
  filing::NotingDwgFiler base;
  static_cast<const KrObject&>(member).KrObject::dwgOutFields(&base);
  FailingDwgFiler entity(kNever);
  member.AcDbEntity::dwgOutFields(&entity);
  const std::size_t ofBase = base.items.size() - entity.items.size();
  for (std::size_t failsAt = 1; failsAt <= ofBase; ++failsAt) {
    FailingDwgFiler filer(failsAt);
    EXPECT_EQ(member.dwgOutFieldsData(&filer), Acad::eFilerError) << failsAt;
    EXPECT_EQ(filer.items, begin(ofBase)) << "the base's items all, of the class none: " << failsAt;
  }
}

TEST_F(MemberWriting, StopsBehindAnEntityThatFails) {
  FailingDwgFiler filer(0);
  EXPECT_EQ(member.dwgOutFields(&filer), Acad::eFilerError);
  EXPECT_EQ(std::count(filer.items.begin(), filer.items.end(), "string V7"), 0);
}

TEST_F(MemberWriting, OfGroupsStopsBehindAListThatFails) {
  FailingDxfFiler whole(kNever);
  ASSERT_EQ(member.dxfOutFields(&whole), Acad::eOk);
  const auto normal = std::find(whole.offered.begin(), whole.offered.end(), kNormal);
  ASSERT_NE(normal, whole.offered.end());
  const auto listEnd = static_cast<std::size_t>(normal - whole.offered.begin());
  for (const std::size_t failsAt : {listEnd - 20, listEnd - 1, listEnd}) {
    FailingDxfFiler filer(failsAt);
    EXPECT_EQ(member.dxfOutFields(&filer), Acad::eFilerError) << failsAt;
    EXPECT_EQ(filer.offered, std::vector<int>(whole.offered.begin(), normal)) << failsAt;
  }
}

namespace {

/// Has no room for the marker with which an element begins.
class MarkerlessDxfFiler : public AcDbMemoryDxfFiler {
 public:
  Acad::ErrorStatus writeDouble(AcDb::DxfCode code, double value, int precision) override {
    if (value != std::numeric_limits<double>::max()) return AcDbMemoryDxfFiler::writeDouble(code, value, precision);
    setFilerStatus(Acad::eFilerError);
    return Acad::eFilerError;
  }
};

}  // namespace

TEST_F(MemberWriting, OfGroupsEndsAtTheFirstElementThatFails) {
  ASSERT_GT(member.GetNumVertex(VistaCorrente), 1);
  MarkerlessDxfFiler filer;
  EXPECT_EQ(member.KrObject::dxfOutFields(&filer), Acad::eFilerError);
  EXPECT_EQ(filer.groups().back().code, 90);
  for (const AcDbMemoryDxfFiler::Group& group : filer.groups()) EXPECT_NE(group.code, kNormal);
}

TEST_F(MemberWriting, OfGroupsGoesOnBehindTheListAndTellsTheFailureAtTheEnd) {
  AcDbMemoryDxfFiler base;
  member.KrObject::dxfOutFields(&base);
  FailingDxfFiler whole(kNever);
  ASSERT_EQ(member.dxfOutFields(&whole), Acad::eOk);
  const auto normal = std::find(whole.offered.begin(), whole.offered.end(), kNormal);
  FailingDxfFiler filer(static_cast<std::size_t>(normal - whole.offered.begin()) + 1);
  EXPECT_EQ(member.dxfOutFields(&filer), Acad::eFilerError);
  EXPECT_GT(filer.offered.size(), static_cast<std::size_t>(normal - whole.offered.begin()) + 5);
  EXPECT_EQ(std::count(filer.offered.begin(), filer.offered.end(), 100), 2) << "the class's marker isn't offered";
}
