// The module's start and unload.

#include <gmock/gmock.h>

#include "../host/os/Scratch.h"
#include "../support/Drawing.h"
#include "frame/ClassTable.h"
#include "frame/KrAcDbDatabaseReactor.h"
#include "frame/KrAcEditorReactor.h"
#include "frame/KrObjects.h"
#include "host/companion/companion.h"

namespace {

using testing::HasSubstr;
using testing::Not;

const std::wstring kNoLibrary = L"\nNão foi possível carregar uma DLL, o KR_Trama não irá funcionar corretamente.";

class Module : public testing::Test {
 protected:
  Module() : folder_(KR_INSTALL_FOLDER) {}
  ~Module() override {
    if (isStarted_) unload();
  }

  void start() {
    isStarted_ = true;
    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, &appId_), 0);
  }
  void unload() {
    isStarted_ = false;
    EXPECT_EQ(acrxEntryPoint(AcRx::kUnloadAppMsg, &appId_), 0);
  }
  static bool hasCommand(const wchar_t* name) { return acedRegCmds->lookupGlobalCmd(name) != nullptr; }
  static std::wstring userNameOf(const wchar_t* className) {
    KrString value;
    if (KrObject::GetNamesList() != nullptr) KrObject::GetNamesList()->getVar(KrString(className), value);
    return value.c_str();
  }
  static bool hasClasses() { return acrxClassDictionary->has(L"KrObject") && acrxClassDictionary->has(L"KrTubo"); }

  int appId_ = 0;
  bool isStarted_ = false;
  InstallFolderSetting folder_;
  edhost::ConsoleCapture console_;
};

TEST_F(Module, StartSetsUpWhatTheUnloadTakesAway) {
  start();
  EXPECT_TRUE(hasClasses());
  EXPECT_TRUE(hasCommand(L"SOBREKR_TRAMA"));
  EXPECT_TRUE(hasCommand(L"KRLISTBYHANDLE"));
  EXPECT_NE(acedRegCmds->lookupLocalCmd(L"KRLBH"), nullptr);
  EXPECT_NE(getKrConfigCenter(), nullptr);
  EXPECT_NE(sideLibrary().module, nullptr);
  EXPECT_NE(sideLibrary().krMidArco, nullptr);
  EXPECT_EQ(userNameOf(L"KrTubo"), L"Tubo redondo");
  EXPECT_EQ(console_.text(), L"");
  unload();
  EXPECT_FALSE(acrxClassDictionary->has(L"KrObject"));
  EXPECT_FALSE(acrxClassDictionary->has(L"KrTubo"));
  EXPECT_FALSE(hasCommand(L"SOBREKR_TRAMA"));
  EXPECT_EQ(getKrConfigCenter(), nullptr);
  EXPECT_EQ(sideLibrary().module, nullptr);
  EXPECT_EQ(sideLibrary().krMidArco, nullptr);
  EXPECT_EQ(KrObject::GetNamesList(), nullptr);
}

TEST_F(Module, StartsAgainAfterItsUnload) {
  start();
  unload();
  start();
  EXPECT_TRUE(hasClasses());
  EXPECT_TRUE(hasCommand(L"SOBREKR_TRAMA"));
}

TEST_F(Module, AsksToBeUnlockableAndKnowsSeveralDocuments) {
  start();
  EXPECT_FALSE(acrxApplicationIsLocked(&appId_));
  EXPECT_TRUE(acrxIsAppMDIAware(&appId_));
}

TEST_F(Module, AnswersZeroToMessagesItDoesNotKnow) {
  EXPECT_EQ(acrxEntryPoint(AcRx::kQuitMsg, &appId_), 0);
  EXPECT_EQ(acrxEntryPoint(AcRx::kNullMsg, &appId_), 0);
  EXPECT_FALSE(hasCommand(L"SOBREKR_TRAMA"));
}

TEST_F(Module, RegistersItsClassesInTheOrderRequired) {
  // The whole order; a class that isn't built yet is missing from the table, but none may stand elsewhere.
  const std::vector<std::wstring> order = {L"KrObject",
                                           L"KrCantLaminada",
                                           L"KrILaminadoUSA",
                                           L"KrCantULaminada",
                                           L"KrCantTEELaminada",
                                           L"KrBNLaminado",
                                           L"KrBNDuplaLaminada",
                                           L"KrCantoneiraDobrada",
                                           L"KrUDobrado",
                                           L"KrCantTDobrada",
                                           L"KrCantUDobrada",
                                           L"KrCaixaDobrado",
                                           L"KrIDobrado",
                                           L"KrXDobrado",
                                           L"KrCartola",
                                           L"KrISoldado",
                                           L"KrChapa",
                                           L"KrTubo",
                                           L"KrULaminado",
                                           L"KrZDobrado",
                                           L"Kr2ULaminado",
                                           L"KrCantCruzLaminada",
                                           L"KrCantLaminadaCaixa",
                                           L"KrCantZLaminada",
                                           L"KrUULaminado",
                                           L"KrBarraRedonda",
                                           L"KrBox",
                                           L"KrUser",
                                           L"KrObjectModCData",
                                           L"KrObjectExtension",
                                           L"KrObjectTextExtension"};
  start();
  auto place = order.begin();
  for (const ModuleClass& each : moduleClasses()) {
    ASSERT_NE(each.desc(), nullptr);
    place = std::find(place, order.end(), each.desc()->name());
    ASSERT_NE(place, order.end()) << os::toUtf8(each.desc()->name());
    ++place;
  }
}

TEST_F(Module, RegistersTheMemberUnderItsNamesAndVersions) {
  start();
  const AcRxClass* aClass = KrObject::desc();
  EXPECT_STREQ(aClass->name(), L"KrObject");
  EXPECT_EQ(aClass->myParent(), AcDbEntity::desc());
  EXPECT_STREQ(aClass->dxfName(), L"KR_OBJECT");
  EXPECT_STREQ(aClass->appName(), L"KrObject");
  EXPECT_EQ(aClass->proxyFlags(), 0xbff);
  int dwgVersion = 0;
  int maintenanceVersion = 0;
  aClass->getClassVersion(dwgVersion, maintenanceVersion);
  EXPECT_EQ(dwgVersion, 29);
  EXPECT_EQ(maintenanceVersion, 9);
}

TEST_F(Module, SecondRxInitOfAMemberDoesNothing) {
  start();
  const AcRxClass* before = KrObject::desc();
  KrObject::rxInit();
  EXPECT_EQ(KrObject::desc(), before);
}

TEST_F(Module, WithoutAnInstallFolderHasNoNamesButClassesAndCommands) {
  const InstallFolderSetting none(nullptr);
  start();
  ASSERT_NE(KrObject::GetNamesList(), nullptr);
  EXPECT_EQ(KrObject::GetNamesList()->count(), 0);
  EXPECT_EQ(userNameOf(L"KrTubo"), L"");
  EXPECT_TRUE(hasClasses());
  EXPECT_TRUE(hasCommand(L"SOBREKR_TRAMA"));
}

TEST_F(Module, WithoutAnInstallFolderSeeksTheSideLibraryByItsBareName) {
  const InstallFolderSetting none(nullptr);
  const std::string beside = os::programFolder() + "/krobjfn_ryB16._kr";
  ASSERT_FALSE(std::filesystem::exists(beside));
  start();
  EXPECT_EQ(sideLibrary().module, nullptr);
  EXPECT_EQ(console_.text(), kNoLibrary);
  unload();
  console_.clear();
  std::filesystem::create_symlink(KR_INSTALL_FOLDER "/Support/krobjfn_ryB16._kr", beside);
  start();
  std::filesystem::remove(beside);
  EXPECT_NE(sideLibrary().krMidArco, nullptr);
  EXPECT_EQ(console_.text(), L"");
}

TEST_F(Module, InstallFolderThatIsntThereIsToldAndTheStartGoesOn) {
  const InstallFolderSetting nowhere("/nowhere/at/all");
  start();
  EXPECT_EQ(console_.text(), kNoLibrary);
  EXPECT_EQ(sideLibrary().krMidArco, nullptr);
  EXPECT_EQ(sideLibrary().krIsBulge6000, nullptr);
  EXPECT_TRUE(hasCommand(L"SOBREKR_TRAMA"));
  EXPECT_NE(getKrConfigCenter(), nullptr);
}

TEST_F(Module, SideLibraryThatIsBrokenIsTold) {
  const Scratch scratch;
  scratch.write("Support/krobjfn_ryB16._kr", "no library");
  const InstallFolderSetting broken(scratch.path().c_str());
  start();
  EXPECT_EQ(console_.text(), kNoLibrary);
}

TEST_F(Module, SymbolThatTheSideLibraryLacksStaysNull) {
  const Scratch scratch;
  std::filesystem::create_directory(scratch.path("support"));
  std::filesystem::create_symlink(KR_LACKING_SIDE, scratch.path("support/KROBJFN_RYB16._KR"));
  const InstallFolderSetting lacking(scratch.path().c_str());
  start();
  EXPECT_NE(sideLibrary().module, nullptr);
  EXPECT_NE(sideLibrary().krMidArco, nullptr);
  EXPECT_NE(sideLibrary().krIsBulge6000, nullptr);
  EXPECT_EQ(sideLibrary().krAppendEntity, nullptr);
  EXPECT_EQ(sideLibrary().krOrientacaoVetor, nullptr);
  EXPECT_EQ(console_.text(), L"");
}

TEST_F(Module, StopsItsStartWhereDocumentsCannotBeWalked) {
  acDocManagerPtr()->setIteratorRefused(true);
  start();
  acDocManagerPtr()->setIteratorRefused(false);
  EXPECT_TRUE(hasClasses());
  EXPECT_NE(sideLibrary().krMidArco, nullptr);
  EXPECT_EQ(getKrConfigCenter(), nullptr);
  EXPECT_FALSE(hasCommand(L"SOBREKR_TRAMA"));
}

// Deliberate: reactors, commands and the side library stay when documents can't be walked.
TEST_F(Module, LeavesItsCommandsWhereDocumentsCannotBeWalkedAtItsUnload) {
  start();
  acDocManagerPtr()->setIteratorRefused(true);
  unload();
  acDocManagerPtr()->setIteratorRefused(false);
  EXPECT_FALSE(acrxClassDictionary->has(L"KrObject"));
  EXPECT_EQ(getKrConfigCenter(), nullptr);
  EXPECT_EQ(KrObject::GetNamesList(), nullptr);
  EXPECT_TRUE(hasCommand(L"SOBREKR_TRAMA"));
  EXPECT_NE(sideLibrary().krMidArco, nullptr);
  // A second unload finishes what the first left.
  unload();
  EXPECT_FALSE(hasCommand(L"SOBREKR_TRAMA"));
  EXPECT_EQ(sideLibrary().module, nullptr);
}

TEST_F(Module, HearsOfADocumentThatWasOpenAtItsStart) {
  const Drawing drawing;
  start();
  EXPECT_EQ(drawing.database().removeReactor(getKrAcDbDatabaseReactor()), Acad::eOk);
  EXPECT_NE(drawing.database().removeReactor(getKrAcDbDatabaseReactor()), Acad::eOk);
}

TEST_F(Module, HearsOfADocumentOpenedLaterThroughTheLoadMessage) {
  start();
  const Drawing drawing;
  // Whether the host has sent the message already or not, the module's reactor is there once it has.
  drawing.database().removeReactor(getKrAcDbDatabaseReactor());
  EXPECT_EQ(acrxEntryPoint(AcRx::kLoadDwgMsg, &appId_), 0);
  EXPECT_EQ(drawing.database().removeReactor(getKrAcDbDatabaseReactor()), Acad::eOk);
  acrxEntryPoint(AcRx::kLoadDwgMsg, &appId_);
  EXPECT_EQ(acrxEntryPoint(AcRx::kUnloadDwgMsg, &appId_), 0);
  EXPECT_NE(drawing.database().removeReactor(getKrAcDbDatabaseReactor()), Acad::eOk);
}

TEST_F(Module, LeavesNoReactorBehind) {
  const Drawing drawing;
  start();
  AcDbDatabaseReactor* const inDrawing = getKrAcDbDatabaseReactor();
  AcEditorReactor* const inEditor = getKrAcEditorReactor();
  ASSERT_NE(inEditor, nullptr);
  unload();
  EXPECT_EQ(getKrAcDbDatabaseReactor(), nullptr);
  EXPECT_EQ(getKrAcEditorReactor(), nullptr);
  EXPECT_NE(drawing.database().removeReactor(inDrawing), Acad::eOk);
  EXPECT_EQ(acedEditor->removeReactor(inEditor), Acad::eKeyNotFound);
}

TEST_F(Module, IgnoresDrawingsWhileItIsNotStarted) {
  const Drawing drawing;
  EXPECT_EQ(acrxEntryPoint(AcRx::kLoadDwgMsg, &appId_), 0);
  EXPECT_EQ(acrxEntryPoint(AcRx::kUnloadDwgMsg, &appId_), 0);
}

TEST_F(Module, GlueTellsTheInterfaceVersionOnly) {
  int major = 0;
  int minor = 0;
  odrxGetAPIVersion(major, minor);
  EXPECT_EQ(major, acrxGetApiVersion());
  const std::unique_ptr<AcRxObject> object(odrxCreateModuleObject(L"KrObjectsB16"));
  EXPECT_NE(object, nullptr);
}

}  // namespace
