// The mapping of layers in a drawing.

#include <gmock/gmock.h>

#include <memory>

#include "../host/os/Scratch.h"
#include "Drawing.h"
#include "support/Layers.h"

namespace {

const std::string kMark = "$IDKRLAYERFILE";

struct LayerState {
  int colour = 0;
  std::wstring linetype;
  bool isOff = false;
  bool isFrozen = false;
  bool isLocked = false;
  bool vpdflt = false;
};

class LayerMapping : public testing::Test {
 protected:
  LayerMapping() : folder_(scratch_.path().c_str()) {
    scratch_.write("Prototipo/LayersKR.cfg", "PERFIL\r\nL-HIDDEN\r\nSOLDA\r\n" + kMark);
    scratch_.write("Prototipo/LayersUSR.cfg",
                   "Aço;4;continuous;0;0;0;0\r\nOculta;8;TRACEJADA;1;1;1;1\r\nSolda;6;SEM_TAL;0;0;0;0\r\n" + kMark);
    scratch_.write("Prototipo/KR_Linhas.lin", "*TRACEJADA,__ __ __\nA,3,-0.75\n");
    UsrLayerInit();
  }
  ~LayerMapping() override { UsrLayerExit(); }

  static bool has(const wchar_t* name) {
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(workingDatabase()->getLayerTable(table, AcDb::kForRead), Acad::eOk);
    const bool found = table->has(name);
    table->close();
    return found;
  }
  static LayerState stateOf(const wchar_t* name) {
    LayerState state;
    AcDbLayerTable* table = nullptr;
    EXPECT_EQ(workingDatabase()->getLayerTable(table, AcDb::kForRead), Acad::eOk);
    AcDbLayerTableRecord* layer = nullptr;
    const Acad::ErrorStatus found = table->getAt(name, layer, AcDb::kForRead);
    table->close();
    EXPECT_EQ(found, Acad::eOk) << os::toUtf8(name);
    if (found != Acad::eOk) return state;
    state = {
        int(layer->color().colorIndex()), L"", layer->isOff(), layer->isFrozen(), layer->isLocked(), layer->VPDFLT()};
    AcDbLinetypeTableRecord* linetype = nullptr;
    if (acdbOpenObject(linetype, layer->linetypeObjectId(), AcDb::kForRead) == Acad::eOk) {
      const ACHAR* text = nullptr;
      linetype->getName(text);
      state.linetype = text;
      linetype->close();
    }
    layer->close();
    return state;
  }
  static void erase(const wchar_t* name) {
    AcDbLayerTable* table = nullptr;
    workingDatabase()->getLayerTable(table, AcDb::kForRead);
    AcDbLayerTableRecord* layer = nullptr;
    ASSERT_EQ(table->getAt(name, layer, AcDb::kForWrite), Acad::eOk);
    table->close();
    EXPECT_EQ(layer->erase(), Acad::eOk);
    layer->close();
  }
  static AcDbDatabase* workingDatabase() { return acdbHostApplicationServices()->workingDatabase(); }

  Scratch scratch_;
  InstallFolderSetting folder_;
  edhost::ConsoleCapture console_;
};

TEST_F(LayerMapping, BeforeTheListIsLoadedGivesEveryNameBackAndMakesNothing) {
  const Drawing drawing;
  const wchar_t* name = L"L-HIDDEN";
  EXPECT_EQ(KrLayerToUsr(name), name);
  EXPECT_FALSE(has(L"L-HIDDEN"));
  EXPECT_EQ(UsrLayerList(), nullptr);
}

TEST_F(LayerMapping, MakesTheUsersLayerOnFirstUse) {
  const Drawing drawing;
  ASSERT_EQ(UsrLayerMain(), RTNORM);
  EXPECT_STREQ(KrLayerToUsr(L"L-HIDDEN"), L"Oculta");
  EXPECT_FALSE(has(L"L-HIDDEN"));
  const LayerState state = stateOf(L"Oculta");
  EXPECT_EQ(state.colour, 8);
  EXPECT_EQ(state.linetype, L"TRACEJADA");
  EXPECT_TRUE(state.isOff);
  EXPECT_TRUE(state.isFrozen);
  EXPECT_TRUE(state.isLocked);
  EXPECT_TRUE(state.vpdflt);
  EXPECT_EQ(workingDatabase()->numOpenObjects(), 0);
}

TEST_F(LayerMapping, FindsTheNameInLowerCase) {
  const Drawing drawing;
  UsrLayerMain();
  EXPECT_STREQ(KrLayerToUsr(L"l-hidden"), L"Oculta");
}

TEST_F(LayerMapping, LeavesALayerThatIsThereAsItIs) {
  const Drawing drawing;
  UsrLayerMain();
  ASSERT_EQ(krCriaLayer(L"Oculta", 3, L"continuous", 0, 0, 0, 0), RTNORM);
  EXPECT_STREQ(KrLayerToUsr(L"L-HIDDEN"), L"Oculta");
  EXPECT_EQ(stateOf(L"Oculta").colour, 3);
  EXPECT_FALSE(stateOf(L"Oculta").isLocked);
}

TEST_F(LayerMapping, BringsAnErasedLayerBackWithItsOldProperties) {
  const Drawing drawing;
  UsrLayerMain();
  krCriaLayer(L"OCULTA", 3, L"continuous", 0, 0, 0, 0);
  erase(L"OCULTA");
  ASSERT_FALSE(has(L"Oculta"));
  EXPECT_STREQ(KrLayerToUsr(L"L-HIDDEN"), L"Oculta");
  EXPECT_TRUE(has(L"Oculta"));
  EXPECT_EQ(stateOf(L"Oculta").colour, 3);
  EXPECT_EQ(workingDatabase()->numOpenObjects(), 0);
}

TEST_F(LayerMapping, MakesANameThatIsInNoListWithColour255) {
  const Drawing drawing;
  UsrLayerMain();
  EXPECT_STREQ(KrLayerToUsr(L"Outra"), L"Outra");
  const LayerState state = stateOf(L"Outra");
  EXPECT_EQ(state.colour, 255);
  EXPECT_EQ(_wcsicmp(state.linetype.c_str(), L"continuous"), 0);
  EXPECT_FALSE(state.isOff || state.isFrozen || state.isLocked || state.vpdflt);
}

TEST_F(LayerMapping, WithoutAWorkingDatabaseIsTheDefaultLayer) {
  ASSERT_EQ(workingDatabase(), nullptr);
  UsrLayerMain();
  EXPECT_STREQ(KrLayerToUsr(L"L-HIDDEN"), L"0");
  EXPECT_STREQ(KrLayerToUsr(L"Outra"), L"0");
  EXPECT_EQ(krCriaLayer(L"Outra", 1, L"continuous", 0, 0, 0, 0), RTERROR);
}

TEST_F(LayerMapping, NextCallOverwritesTheResult) {
  const Drawing drawing;
  UsrLayerMain();
  const wchar_t* first = KrLayerToUsr(L"PERFIL");
  EXPECT_STREQ(first, L"Aço");
  EXPECT_EQ(KrLoadKrLayer(L"L-HIDDEN"), first);
  EXPECT_STREQ(first, L"Oculta");
}

TEST_F(LayerMapping, CopiesItsResultToTheCaller) {
  const Drawing drawing;
  UsrLayerMain();
  wchar_t name[64];
  EXPECT_EQ(KrUsrLayer(L"PERFIL", name), 1);
  EXPECT_STREQ(name, L"Aço");
  UsrLayerExit();
  EXPECT_EQ(KrUsrLayer(nullptr, name), 0);
}

TEST_F(LayerMapping, LinetypeThatCantBeFoundLeavesTheDefaultOne) {
  const Drawing drawing;
  UsrLayerMain();
  EXPECT_STREQ(KrLayerToUsr(L"SOLDA"), L"Solda");
  EXPECT_EQ(_wcsicmp(stateOf(L"Solda").linetype.c_str(), L"continuous"), 0);
  EXPECT_EQ(stateOf(L"Solda").colour, 6);
}

TEST_F(LayerMapping, LinetypeIsLoadedFromTheInstallFolderOnce) {
  const Drawing drawing;
  AcDbObjectId first;
  AcDbObjectId second;
  EXPECT_EQ(krLinetypeIdFromString(L"TRACEJADA", first), Acad::eOk);
  EXPECT_FALSE(first.isNull());
  EXPECT_EQ(krLinetypeIdFromString(L"tracejada", second), Acad::eOk);
  EXPECT_EQ(first, second);
  AcDbObjectId none;
  EXPECT_NE(krLinetypeIdFromString(L"SEM_TAL", none), Acad::eOk);
  EXPECT_TRUE(none.isNull());
}

// Deliberate: a list that failed to load stays, and loading isn't tried again until it is given up.
TEST_F(LayerMapping, FailedListStaysAndIsntRetried) {
  const Drawing drawing;
  scratch_.write("Prototipo/LayersUSR.cfg", "broken");
  EXPECT_EQ(UsrLayerMain(), RTERROR);
  scratch_.write("Prototipo/LayersUSR.cfg", "A;1;continuous;0;0;0;0\r\n" + kMark);
  EXPECT_EQ(UsrLayerMain(), RTERROR);
  const wchar_t* name = L"PERFIL";
  EXPECT_EQ(KrLayerToUsr(name), name);
  EXPECT_FALSE(has(L"PERFIL"));
  UsrLayerExit();
  EXPECT_EQ(UsrLayerMain(), RTNORM);
}

TEST_F(LayerMapping, InstallFolderThatIsntThereIsToldOnTheCommandLine) {
  const InstallFolderSetting nowhere(scratch_.path("nowhere").c_str());
  EXPECT_EQ(UsrLayerMain(), RTERROR);
  EXPECT_EQ(console_.text(), L"\nCarregando Dados...\nArquivo de Usuário Inválido");
}

TEST_F(LayerMapping, RefusedNameIsNoError) {
  const Drawing drawing;
  EXPECT_EQ(krCriaLayer(L"a<b", 1, L"continuous", 0, 0, 0, 0), RTNORM);
  EXPECT_FALSE(has(L"a<b"));
  EXPECT_EQ(workingDatabase()->numOpenObjects(), 0);
}

}  // namespace
