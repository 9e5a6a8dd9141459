// The module's commands, run as a person would.

#include <gmock/gmock.h>

#include "../support/Drawing.h"
#include "frame/KrAcEditorReactor.h"
#include "frame/KrObjects.h"

namespace {

using edhost::CommandEnd;
using testing::EndsWith;
using testing::HasSubstr;

class Commands : public testing::Test {
 protected:
  Commands() : folder_(KR_INSTALL_FOLDER) { acrxEntryPoint(AcRx::kInitAppMsg, &appId_); }
  ~Commands() override {
    edhost::promptQueue().clear();
    acrxEntryPoint(AcRx::kUnloadAppMsg, &appId_);
  }

  std::wstring listByHandle(const std::wstring& handle) {
    edhost::promptQueue().text(handle);
    console_.clear();
    EXPECT_EQ(edhost::runCommand(L"KRLBH"), CommandEnd::Done);
    return console_.text();
  }
  static std::wstring handleOf(AcDbObjectId id) {
    ACHAR text[32];
    id.handle().getIntoAsciiBuffer(text);
    return text;
  }
  AcDbDatabase& database() const { return drawing_.database(); }

  int appId_ = 0;
  InstallFolderSetting folder_;
  edhost::ConsoleCapture console_;
  Drawing drawing_;
};

TEST_F(Commands, AboutTellsProductAndBuild) {
  EXPECT_EQ(edhost::runCommand(L"SOBREKR_TRAMA"), CommandEnd::Done);
  const About& data = about();
  EXPECT_EQ(console_.text(), std::wstring(L"\nKR_Trama 4.102\nVersão do KrObject: 0x00000009\n"
                                          L"Informações de Compilação:\nData: ") +
                                 data.buildDate + L"\nHora: " + data.buildTime + L"\n");
}

TEST_F(Commands, ListByHandlePrintsOwnerAndListOfAnEntity) {
  auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
  AcDbObjectId id;
  ASSERT_NE(append(line, id), 0);
  line->close();
  const std::wstring text = listByHandle(handleOf(id));
  EXPECT_THAT(text, HasSubstr(L"\nOwner: " + handleOf(database().modelSpaceId()) + L"\n"));
  EXPECT_EQ(database().numOpenObjects(), 0);
}

TEST_F(Commands, ListByHandleOfANonEntityPrintsItsClassWithoutAnId) {
  const std::wstring text = listByHandle(handleOf(database().layerZero()));
  EXPECT_THAT(text, EndsWith(L"\nOwner: " + handleOf(database().layerTableId()) + L"\nAcDbLayerTableRecord, id: 0x"));
}

TEST_F(Commands, ListByHandleOfAnUnknownHandlePrintsNothing) {
  for (const wchar_t* handle : {L"FFFFFF", L"xyz", L"0"}) {
    EXPECT_THAT(listByHandle(handle), testing::Not(HasSubstr(L"Owner"))) << os::toUtf8(handle);
    EXPECT_THAT(console_.text(), testing::Not(HasSubstr(L"Não foi"))) << os::toUtf8(handle);
  }
}

TEST_F(Commands, ListByHandleOfAnErasedObjectSaysThatItCannotBeOpened) {
  auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
  AcDbObjectId id;
  append(line, id);
  line->erase();
  line->close();
  EXPECT_THAT(listByHandle(handleOf(id)), EndsWith(L"\nNão foi possível abrir o objeto escolhido."));
}

TEST_F(Commands, ListByHandleOfAnObjectWithoutOwnerSaysSo) {
  const std::wstring text = listByHandle(handleOf(database().blockTableId()));
  EXPECT_THAT(text, HasSubstr(L"\nNão foi possível abrir Owner do Objeto escolhido\nAcDbBlockTable, id: 0x"));
}

TEST_F(Commands, CancelledListByHandleEndsWithoutAWord) {
  edhost::promptQueue().cancel();
  console_.clear();
  edhost::runCommand(L"KRLISTBYHANDLE");
  EXPECT_THAT(console_.text(), testing::Not(HasSubstr(L"Owner")));
}

class SaveWarning : public testing::Test {
 protected:
  void save(const wchar_t* names, int active) {
    edhost::setVarInternally(L"CMDNAMES", std::wstring(names));
    edhost::setVarInternally(L"CMDACTIVE", active);
    KrAcEditorReactor().beginSave(nullptr, nullptr);
    edhost::setVarInternally(L"CMDNAMES", std::wstring());
    edhost::setVarInternally(L"CMDACTIVE", 0);
  }
  Drawing drawing_;
  edhost::ConsoleCapture console_;
};

TEST_F(SaveWarning, ComesWhenOnlyAScriptIsActive) {
  save(L"", 32);
  EXPECT_THAT(console_.alerts(),
              HasSubstr(L"Ocorreu, provavelmente, um conflito entre \"AUTOSAVE\" e \"KRTRAMA\".\n"
                        L"Se este problema persistir, sugere-se um incremento no tempo entre salvamentos automáticos \n"
                        L"ou a até mesmo a desabilitação da ferramenta \"AUTOSAVE\"."));
}

TEST_F(SaveWarning, DoesNotComeForANamedCommandOrAnythingElse) {
  save(L"QSAVE", 32);
  save(L"", 1);
  save(L"", 33);
  save(L"", 0);
  EXPECT_EQ(console_.alerts(), L"");
}

}  // namespace
