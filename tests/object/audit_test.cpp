// What a member finds in itself: a role that there isn't, reactors that it is itself a reactor of.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <vector>

#include "object/Drawing.h"
#include "object/TestMember.h"

namespace {

AcDbObjectIdArray& croppingIdsOf(KrObject& member);

/// Nothing crops a member yet: the list that a file of later times may fill is filled here by hand.
template <AcDbObjectIdArray KrObject::*kField>
struct CroppingIds {
  friend AcDbObjectIdArray& croppingIdsOf(KrObject& member) { return member.*kField; }
};
template struct CroppingIds<&KrObject::croppingIds_>;

/// What an audit answers for a member in which something was found: all of it mended, or not.
constexpr int kMended = 120;
constexpr int kFound = 122;

class MemberAudit : public testing::Test {
 protected:
  /// A member with the reactors A, B and C, of which A and B crop it.
  MemberAudit() {
    KrObject::rxInit();
    for (AcDbObjectId& id : lines) id = drawing.append(new AcDbLine);
    const AcDbObjectId id = drawing.append(new TestMember);
    EXPECT_EQ(acdbOpenObject(member, id, AcDb::kForWrite), Acad::eOk);
  }
  ~MemberAudit() override { member->close(); }

  void crop() {
    for (const AcDbObjectId id : lines) member->addPersistentReactor(id);
    croppingIdsOf(*member).append(lines[0]);
    croppingIdsOf(*member).append(lines[1]);
  }
  std::vector<bool> reactors() const {
    std::vector<bool> there;
    for (const AcDbObjectId id : lines) there.push_back(member->hasPersistentReactor(id));
    return there;
  }
  void setUnknownRole() { member->settipoBarra(static_cast<TipoBarra>(12)); }

  Drawing drawing;
  AcDbObjectId lines[3];
  KrObject* member = nullptr;
};

std::wstring oldIdText(AcDbObjectId id) {
  std::wostringstream text;
  text << L"id - 0x" << std::hex << std::setw(8) << std::setfill(L'0') << static_cast<unsigned>(id.asOldId());
  return text.str();
}

using testing::ElementsAre;

}  // namespace

TEST_F(MemberAudit, TellsOfAnUnknownRole) {
  setUnknownRole();
  AcDbAuditInfo info;
  EXPECT_EQ(member->audit(&info), kFound);
  EXPECT_EQ(info.numErrors(), 1);
  EXPECT_EQ(info.numFixes(), 0);
  EXPECT_EQ(member->tipoBarra(), 12);
}

TEST_F(MemberAudit, MendsAnUnknownRole) {
  setUnknownRole();
  AcDbAuditInfo info(true);
  EXPECT_EQ(member->audit(&info), kMended);
  EXPECT_EQ(info.numErrors(), 1);
  EXPECT_EQ(info.numFixes(), 1);
  ASSERT_EQ(info.entries().size(), 1U);
  EXPECT_EQ(info.entries()[0].value, L"Invalido");
  EXPECT_EQ(info.entries()[0].validation, L"Tipo de Barra - 12");
  EXPECT_EQ(info.entries()[0].defaultValue, L"Setado para \"Barra\"");
  EXPECT_EQ(member->tipoBarra(), Barra);
}

TEST_F(MemberAudit, TellsOfReactorsThatCropTheMember) {
  crop();
  AcDbAuditInfo info;
  EXPECT_EQ(member->audit(&info), kFound);
  EXPECT_EQ(info.numErrors(), 2);
  EXPECT_EQ(info.numFixes(), 0);
  EXPECT_THAT(reactors(), ElementsAre(true, true, true));
  ASSERT_EQ(info.entries().size(), 2U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(info.entries()[i].value, L"Invalid Persistent Reactor (Cropping Object)");
    EXPECT_EQ(info.entries()[i].validation, oldIdText(lines[i]));
    EXPECT_EQ(info.entries()[i].defaultValue, L"Persistent Reactor Removed");
  }
}

// Two of them stand side by side: taking one out must not hide the next.
TEST_F(MemberAudit, RemovesReactorsThatCropTheMember) {
  crop();
  AcDbAuditInfo info(true);
  EXPECT_EQ(member->audit(&info), kMended);
  EXPECT_EQ(info.numErrors(), 2);
  EXPECT_EQ(info.numFixes(), 2);
  EXPECT_THAT(reactors(), ElementsAre(false, false, true));
  AcDbAuditInfo again(true);
  EXPECT_EQ(member->audit(&again), Acad::eOk);
  EXPECT_EQ(again.numErrors(), 0);
}

// A reactor of this session alone stands among those that are filed.
TEST_F(MemberAudit, LeavesATransientReactorBetweenThoseThatItRemoves) {
  AcDbObjectReactor transient;
  member->addPersistentReactor(lines[0]);
  member->addReactor(&transient);
  member->addPersistentReactor(lines[1]);
  croppingIdsOf(*member).append(lines[0]);
  croppingIdsOf(*member).append(lines[1]);
  AcDbAuditInfo info(true);
  EXPECT_EQ(member->audit(&info), kMended);
  EXPECT_EQ(info.numErrors(), 2);
  EXPECT_EQ(info.numFixes(), 2);
  ASSERT_EQ(member->reactors()->length(), 1);
  EXPECT_EQ((*member->reactors())[0], &transient);
  member->removeReactor(&transient);
}

TEST_F(MemberAudit, MendsBothFaultsAtOnce) {
  crop();
  setUnknownRole();
  AcDbAuditInfo info(true);
  EXPECT_EQ(member->audit(&info), kMended);
  EXPECT_EQ(info.numErrors(), 3);
  EXPECT_EQ(info.numFixes(), 3);
  EXPECT_THAT(reactors(), ElementsAre(false, false, true));
  EXPECT_EQ(member->tipoBarra(), Barra);
}

// The host would find the owner that isn't there.
TEST_F(MemberAudit, LeavesTheHostsAuditOutWhenItHasFoundSomething) {
  AcDbStub* const stub = member->objectId().stub();
  AcDbStub* const owner = stub->owner;
  stub->owner = drawing.database()->stubOf(0xFFFFF0);
  for (const bool fix : {false, true}) {
    setUnknownRole();
    AcDbAuditInfo ofRole(fix);
    EXPECT_EQ(member->audit(&ofRole), fix ? kMended : kFound);
    EXPECT_EQ(ofRole.numErrors(), 1);
    ASSERT_EQ(ofRole.entries().size(), 1U);
    EXPECT_EQ(ofRole.entries()[0].value, L"Invalido");
    member->settipoBarra(Barra);
    AcDbAuditInfo ofHost(fix);
    EXPECT_EQ(member->audit(&ofHost), Acad::eOk);
    EXPECT_EQ(ofHost.numErrors(), 1);
    ASSERT_EQ(ofHost.entries().size(), 1U);
    EXPECT_EQ(ofHost.entries()[0].value, L"owner");
  }
  stub->owner = owner;
}
