#include <gmock/gmock.h>

#include <memory>
#include <string>

#include "host/rx/rx.h"

namespace {

std::wstring abortMessage;

void keepAbortMessage(const ACHAR* message) {
  abortMessage = message;
}

class Beam : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(Beam);
};

class Purlin : public Beam {
 public:
  ACRX_DECLARE_MEMBERS(Purlin);
  int holes = 3;
};

class Plate : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(Plate);
};

ACRX_NO_CONS_DEFINE_MEMBERS(Beam, AcRxObject)
ACRX_DXF_DEFINE_MEMBERS(Purlin, Beam, 29, 9, 0xbff, KR_PURLIN, KrFrame)
ACRX_CONS_DEFINE_MEMBERS(Plate, AcRxObject, 1)

class RunTimeClass : public testing::Test {
 protected:
  void SetUp() override {
    abortMessage.clear();
    acrxSetAbortHandler(keepAbortMessage);
    Beam::rxInit();
    Purlin::rxInit();
    Plate::rxInit();
    acrxBuildClassHierarchy();
  }
  void TearDown() override {
    deleteAcRxClass(Plate::desc());
    deleteAcRxClass(Purlin::desc());
    deleteAcRxClass(Beam::desc());
    acrxSetAbortHandler(nullptr);
  }
};

TEST_F(RunTimeClass, CarriesWhatItWasRegisteredWith) {
  const AcRxClass* aClass = Purlin::desc();
  EXPECT_STREQ(aClass->name(), L"Purlin");
  EXPECT_STREQ(aClass->dxfName(), L"KR_PURLIN");
  EXPECT_STREQ(aClass->appName(), L"KrFrame");
  EXPECT_EQ(aClass->proxyFlags(), 0xbff);
  int dwgVersion = 0;
  int maintenanceVersion = 0;
  EXPECT_EQ(aClass->getClassVersion(dwgVersion, maintenanceVersion), Acad::eOk);
  EXPECT_EQ(dwgVersion, 29);
  EXPECT_EQ(maintenanceVersion, 9);
  EXPECT_EQ(aClass->myParent(), Beam::desc());
}

TEST_F(RunTimeClass, WithoutAFiledFormHasNoDxfName) {
  EXPECT_EQ(Beam::desc()->dxfName(), nullptr);
  EXPECT_EQ(Beam::desc()->appName(), nullptr);
}

TEST_F(RunTimeClass, StandsInTheClassDictionaryUnderItsName) {
  EXPECT_EQ(acrxClassDictionary->at(L"Purlin"), Purlin::desc());
  EXPECT_EQ(AcRxDictionary::cast(acrxSysRegistry()->at(L"ClassDictionary")), acrxClassDictionary);
}

TEST_F(RunTimeClass, MakesEmptyObjectsUnlessItIsAbstract) {
  const std::unique_ptr<AcRxObject> made(Purlin::desc()->create());
  ASSERT_NE(Purlin::cast(made.get()), nullptr);
  EXPECT_EQ(Purlin::cast(made.get())->holes, 3);
  EXPECT_EQ(Beam::desc()->create(), nullptr);
}

TEST_F(RunTimeClass, IsKindOfItselfAndItsAncestorsOnly) {
  const Purlin purlin;
  EXPECT_EQ(purlin.isA(), Purlin::desc());
  EXPECT_TRUE(purlin.isKindOf(Purlin::desc()));
  EXPECT_TRUE(purlin.isKindOf(Beam::desc()));
  EXPECT_TRUE(purlin.isKindOf(AcRxObject::desc()));
  EXPECT_FALSE(purlin.isKindOf(Plate::desc()));
  EXPECT_FALSE(purlin.isKindOf(nullptr));
  const Beam beam;
  EXPECT_FALSE(beam.isKindOf(Purlin::desc()));
}

TEST_F(RunTimeClass, CastGivesNullForNullAndForAnotherKind) {
  Plate plate;
  EXPECT_EQ(Beam::cast(&plate), nullptr);
  EXPECT_EQ(Beam::cast(nullptr), nullptr);
  Purlin purlin;
  EXPECT_EQ(Beam::cast(&purlin), &purlin);
  EXPECT_EQ(AcRxObject::cast(&purlin), &purlin);
}

TEST_F(RunTimeClass, SecondRxInitOfARegisteredClassDoesNothing) {
  AcRxClass* before = Purlin::desc();
  Purlin::rxInit();
  EXPECT_EQ(Purlin::desc(), before);
  EXPECT_EQ(acrxClassDictionary->at(L"Purlin"), before);
  EXPECT_EQ(abortMessage, L"");
}

TEST_F(RunTimeClass, RxInitAbortsWhenAnotherDescriptorHoldsTheName) {
  Adesk::UInt32 id = 0;
  AcRxClass* own = Purlin::desc();
  acrxClassDictionary->atPut(L"Purlin", Plate::desc(), id);
  Purlin::rxInit();
  EXPECT_EQ(abortMessage, L"Class mismatch");
  acrxClassDictionary->atPut(L"Purlin", own, id);
}

TEST_F(RunTimeClass, RxInitTakesTheCallbackForTheApplicationName) {
  deleteAcRxClass(Plate::desc());
  const AppNameChangeFuncPtr callback = [](const AcRxClass*, ACHAR*&, int) {};
  Plate::rxInit(callback);
  EXPECT_EQ(Plate::desc()->appNameCallbackPtr(), callback);
  EXPECT_EQ(Purlin::desc()->appNameCallbackPtr(), nullptr);
}

TEST_F(RunTimeClass, OnceRemovedLeavesNoDescriptorAndCanBeRegisteredAnew) {
  const Purlin purlin;
  deleteAcRxClass(Purlin::desc());
  EXPECT_EQ(Purlin::desc(), nullptr);
  EXPECT_FALSE(acrxClassDictionary->has(L"Purlin"));
  EXPECT_EQ(purlin.isA(), nullptr);
  EXPECT_FALSE(purlin.isKindOf(Beam::desc()));
  Purlin::rxInit();
  EXPECT_TRUE(purlin.isKindOf(Beam::desc()));
  EXPECT_EQ(abortMessage, L"");
}

TEST_F(RunTimeClass, DescLooksUpAClassThatWasRegisteredByHand) {
  deleteAcRxClass(Plate::desc());
  AcRxClass* made = newAcRxClass(L"Plate", L"AcRxObject", 0, 0);
  EXPECT_EQ(Plate::desc(), made);
}

TEST_F(RunTimeClass, RemovedBeforeItsChildrenLeavesThemWithoutParent) {
  deleteAcRxClass(Beam::desc());
  const Purlin purlin;
  EXPECT_EQ(Purlin::desc()->myParent(), nullptr);
  EXPECT_TRUE(purlin.isKindOf(Purlin::desc()));
  EXPECT_FALSE(purlin.isKindOf(AcRxObject::desc()));
  Beam::rxInit();
  EXPECT_TRUE(purlin.isKindOf(AcRxObject::desc()));
}

TEST_F(RunTimeClass, RegisteredBeforeItsParentIsTiedToItLater) {
  AcRxClass* child = newAcRxClass(L"TestChild", L"TestParent", 0, 0);
  EXPECT_EQ(child->myParent(), nullptr);
  AcRxClass* parent = newAcRxClass(L"TestParent", L"Beam", 0, 0);
  acrxBuildClassHierarchy();
  EXPECT_EQ(child->myParent(), parent);
  EXPECT_TRUE(child->isDerivedFrom(Beam::desc()));
  deleteAcRxClass(child);
  deleteAcRxClass(parent);
}

TEST_F(RunTimeClass, DescentHoldsInTreesDeeperThanTheNearAncestors) {
  constexpr int kDepth = 40;
  std::vector<AcRxClass*> line;
  for (int i = 0; i < kDepth; ++i) {
    const std::wstring parent = i == 0 ? L"AcRxObject" : L"Deep" + std::to_wstring(i - 1);
    line.push_back(newAcRxClass((L"Deep" + std::to_wstring(i)).c_str(), parent.c_str(), 0, 0));
  }
  acrxBuildClassHierarchy();
  for (int i = 0; i < kDepth; ++i) {
    for (int j = 0; j < kDepth; ++j) {
      EXPECT_EQ(line[std::size_t(i)]->isDerivedFrom(line[std::size_t(j)]), j <= i) << i << " from " << j;
    }
    EXPECT_FALSE(line[std::size_t(i)]->isDerivedFrom(Beam::desc()));
  }
  for (AcRxClass* each : line) deleteAcRxClass(each);
}

TEST_F(RunTimeClass, ThatNamesItselfAsAncestorDoesNotHang) {
  AcRxClass* a = newAcRxClass(L"LoopA", L"LoopB", 0, 0);
  AcRxClass* b = newAcRxClass(L"LoopB", L"LoopA", 0, 0);
  acrxBuildClassHierarchy();
  EXPECT_FALSE(a->isDerivedFrom(Beam::desc()));
  EXPECT_TRUE(a->isDerivedFrom(b) || b->isDerivedFrom(a));
  deleteAcRxClass(a);
  deleteAcRxClass(b);
}

TEST_F(RunTimeClass, OrdersAncestorsBeforeDescendants) {
  EXPECT_EQ(Beam::desc()->comparedTo(Purlin::desc()), AcRx::kLessThan);
  EXPECT_EQ(Purlin::desc()->comparedTo(Beam::desc()), AcRx::kGreaterThan);
  EXPECT_EQ(Beam::desc()->comparedTo(Beam::desc()), AcRx::kEqual);
  EXPECT_EQ(Beam::desc()->comparedTo(Plate::desc()), AcRx::kNotOrderable);
}

TEST_F(RunTimeClass, ExtensionOfAnAncestorServesItsDescendants) {
  Plate extension;
  Purlin purlin;
  EXPECT_EQ(purlin.queryX(Plate::desc()), nullptr);
  EXPECT_EQ(Beam::desc()->addX(Plate::desc(), &extension), nullptr);
  EXPECT_EQ(purlin.queryX(Plate::desc()), &extension);
  EXPECT_EQ(Purlin::desc()->getX(Plate::desc()), nullptr);
  EXPECT_EQ(Beam::desc()->delX(Plate::desc()), &extension);
  EXPECT_EQ(purlin.x(Plate::desc()), nullptr);
}

TEST_F(RunTimeClass, ObjectsThatDontSayHowAreNeitherCopiedNorOrdered) {
  Plate plate;
  const Plate other;
  EXPECT_EQ(plate.clone(), nullptr);
  EXPECT_EQ(plate.copyFrom(&other), Acad::eNotImplementedYet);
  EXPECT_TRUE(plate.isEqualTo(&plate));
  EXPECT_FALSE(plate.isEqualTo(&other));
  EXPECT_EQ(plate.comparedTo(&other), AcRx::kNotOrderable);
  EXPECT_EQ(plate.comparedTo(&plate), AcRx::kEqual);
}

TEST(Abort, TellsAHandlerTheFormattedMessage) {
  abortMessage.clear();
  acrxSetAbortHandler(keepAbortMessage);
  acrx_abort(L"Class %s, %d", L"Viga", 7);
  acrxSetAbortHandler(nullptr);
  EXPECT_EQ(abortMessage, L"Class Viga, 7");
}

TEST(AbortDeathTest, EndsTheProgramWithoutAHandler) {
  EXPECT_DEATH(acrx_abort(L"Class mismatch"), "Class mismatch");
}

TEST(Application, IsLockedAndUnawareOfDocumentsUntilItSaysOtherwise) {
  int module = 0;
  EXPECT_TRUE(acrxApplicationIsLocked(&module));
  EXPECT_FALSE(acrxIsAppMDIAware(&module));
  EXPECT_TRUE(acrxUnlockApplication(&module));
  EXPECT_TRUE(acrxRegisterAppMDIAware(&module));
  EXPECT_FALSE(acrxApplicationIsLocked(&module));
  EXPECT_TRUE(acrxIsAppMDIAware(&module));
  acrxLockApplication(&module);
  acrxRegisterAppNotMDIAware(&module);
  EXPECT_TRUE(acrxApplicationIsLocked(&module));
  EXPECT_FALSE(acrxIsAppMDIAware(&module));
}

TEST(ErrorStatus, HasTheHostsNumbers) {
  EXPECT_EQ(Acad::eOk, 0);
  EXPECT_EQ(Acad::eNotImplementedYet, 1);
  EXPECT_EQ(Acad::eNotApplicable, 2);
  EXPECT_EQ(Acad::eInvalidInput, 3);
  EXPECT_EQ(Acad::eNullEntityPointer, 20);
  EXPECT_EQ(Acad::eIllegalEntityType, 21);
  EXPECT_EQ(Acad::eKeyNotFound, 22);
  EXPECT_EQ(Acad::eInvalidIndex, 24);
  EXPECT_EQ(Acad::eInvalidDxfCode, 50);
  EXPECT_EQ(Acad::eInvalidResBuf, 51);
  EXPECT_EQ(Acad::eMakeMeProxy, 301);
}

TEST(ErrorStatus, IsNamed) {
  EXPECT_STREQ(acadErrorStatusText(Acad::eOk), L"eOk");
  EXPECT_STREQ(acadErrorStatusText(Acad::eMakeMeProxy), L"eMakeMeProxy");
  EXPECT_STREQ(acadErrorStatusText(static_cast<Acad::ErrorStatus>(509)), L"eUnknownStatus");
}

}  // namespace
