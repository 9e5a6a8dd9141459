#include <gmock/gmock.h>

#include "host/db/db.h"
#include "host/ed/ed.h"

namespace {

using edhost::CommandEnd;
using edhost::promptQueue;
using edhost::runCommand;

AcDbObjectId appended(AcDbEntity* entity) {
  AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
  AcDbObjectPointer<AcDbBlockTableRecord> space(database->currentSpaceId(), AcDb::kForWrite);
  AcDbObjectId id;
  EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
  entity->close();
  return id;
}

int entityCount() {
  ads_name set;
  if (acedSSGet(L"X", nullptr, nullptr, nullptr, set) != RTNORM) return 0;
  Adesk::Int32 length = 0;
  acedSSLength(set, &length);
  acedSSFree(set);
  return length;
}

/// Asks for two points and a colour and draws two lines.
void drawCross() {
  AcGePoint3d a;
  AcGePoint3d b;
  if (acedGetPoint(nullptr, L"\nFrom: ", asDblArray(a)) != RTNORM) return;
  if (acedGetPoint(asDblArray(a), L"\nTo: ", asDblArray(b)) != RTNORM) return;
  appended(new AcDbLine(a, b));
  appended(new AcDbLine({a.x, b.y, 0}, {b.x, a.y, 0}));
}

void throwing() {
  throw std::runtime_error("broken inside");
}

class Commands : public ::testing::Test {
 protected:
  Commands() {
    acDocManagerPtr()->newDocument();
    acedRegCmds->addCommand(L"GROUP", L"DRAWCROSS", L"CRUZ", ACRX_CMD_MODAL, drawCross);
  }
  ~Commands() override {
    acedRegCmds->removeGroup(L"GROUP");
    acedRegCmds->removeGroup(L"OTHER");
    promptQueue().clear();
    acDocManagerPtr()->closeAllDocuments();
  }
  edhost::ConsoleCapture terminal;
};

struct Recorded : AcEditorReactor {
  std::vector<std::wstring> calls;
  void commandWillStart(const ACHAR* name) override { calls.push_back(L"start " + std::wstring(name)); }
  void commandEnded(const ACHAR* name) override { calls.push_back(L"end " + std::wstring(name)); }
  void commandCancelled(const ACHAR* name) override { calls.push_back(L"cancel " + std::wstring(name)); }
  void commandFailed(const ACHAR* name) override { calls.push_back(L"fail " + std::wstring(name)); }
};

TEST_F(Commands, AreFoundByBothNamesWhateverTheCase) {
  EXPECT_STREQ(acedRegCmds->lookupGlobalCmd(L"drawcross")->localName(), L"CRUZ");
  EXPECT_NE(acedRegCmds->lookupLocalCmd(L"cruz"), nullptr);
  EXPECT_EQ(acedRegCmds->lookupLocalCmd(L"DRAWCROSS"), nullptr);
  EXPECT_NE(acedRegCmds->find(L"_.DrawCross"), nullptr);
  EXPECT_EQ(acedRegCmds->find(L"_cruz"), nullptr);
  EXPECT_EQ(AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS")), acedRegCmds);
}

TEST_F(Commands, OfOneNameInOneGroupAreRefused) {
  EXPECT_EQ(acedRegCmds->addCommand(L"group", L"drawCROSS", L"x", 0, drawCross), Acad::eDuplicateKey);
  EXPECT_EQ(acedRegCmds->addCommand(L"GROUP", L"x", L"cruz", 0, drawCross), Acad::eDuplicateKey);
  EXPECT_EQ(acedRegCmds->addCommand(L"OTHER", L"DRAWCROSS", L"CRUZ", 0, drawCross), Acad::eOk);
  EXPECT_EQ(acedRegCmds->addCommand(L"GROUP", L"x", L"x", 0, nullptr), Acad::eInvalidInput);
  EXPECT_EQ(acedRegCmds->removeGroup(L"nobody"), Acad::eKeyNotFound);
  EXPECT_EQ(acedRegCmds->removeCmd(L"GROUP", L"DRAWCROSS"), Acad::eOk);
  EXPECT_EQ(acedRegCmds->removeCmd(L"GROUP", L"DRAWCROSS"), Acad::eKeyNotFound);
}

TEST_F(Commands, TakeScriptedPointsAndAreOneStepOfUndo) {
  Recorded recorded;
  acedEditor->addReactor(&recorded);
  promptQueue().point(0, 0).text(L"@10<90");
  EXPECT_EQ(runCommand(L"CRUZ"), CommandEnd::Done);
  acedEditor->removeReactor(&recorded);
  EXPECT_THAT(recorded.calls, ::testing::ElementsAre(L"start DRAWCROSS", L"end DRAWCROSS"));
  EXPECT_EQ(entityCount(), 2);
  promptQueue().text(L"1,1").text(L"2,2");
  EXPECT_EQ(runCommand(L"CRUZ"), CommandEnd::Done);
  EXPECT_EQ(entityCount(), 4);
  AcDbDatabase* const database = acDocManagerPtr()->curDocument()->database();
  EXPECT_EQ(database->undo(), Acad::eOk);
  EXPECT_EQ(entityCount(), 2);
  EXPECT_EQ(database->undo(), Acad::eOk);
  EXPECT_EQ(entityCount(), 0);
  EXPECT_EQ(database->redo(), Acad::eOk);
  EXPECT_EQ(entityCount(), 2);
}

TEST_F(Commands, CancelledAtAPromptSaySo) {
  Recorded recorded;
  acedEditor->addReactor(&recorded);
  promptQueue().point(0, 0).cancel();
  EXPECT_EQ(runCommand(L"CRUZ"), CommandEnd::Cancelled);
  EXPECT_EQ(runCommand(L"CRUZ"), CommandEnd::Cancelled);  // nobody answers
  acedEditor->removeReactor(&recorded);
  EXPECT_EQ(recorded.calls[1], L"cancel DRAWCROSS");
  EXPECT_EQ(edhost::varText(L"CMDNAMES"), L"");
}

TEST_F(Commands, ThatThrowFailAloud) {
  acedRegCmds->addCommand(L"OTHER", L"THROWING", L"THROWING", 0, throwing);
  EXPECT_EQ(runCommand(L"THROWING"), CommandEnd::Failed);
  EXPECT_EQ(terminal.alerts(), L"THROWING: broken inside");
  EXPECT_EQ(runCommand(L"NOSUCH"), CommandEnd::Unknown);
}

TEST_F(Commands, RunFromAProgramWithItsArguments) {
  const ads_point a = {0, 0, 0};
  promptQueue().text(L"kept for later");
  EXPECT_EQ(acedCommand(RTSTR, L"_DRAWCROSS", RT3DPOINT, a, RTSTR, L"5,5", 0), RTNORM);
  EXPECT_EQ(entityCount(), 2);
  EXPECT_EQ(promptQueue().size(), 1U);
  EXPECT_EQ(acedCommand(RTSTR, L"NOSUCH", 0), RTERROR);
  EXPECT_EQ(acedCommand(RTSTR, L"DRAWCROSS", RTSTR, L"1,1", 0), RTCAN);
}

TEST_F(Commands, OfAScriptRunOneAfterTheOther) {
  promptQueue().text(L"CRUZ").text(L"0,0").text(L"1,1").text(L"cruz").text(L"0,0").text(L"2,2");
  EXPECT_TRUE(edhost::runQueue());
  EXPECT_EQ(entityCount(), 4);
}

using Prompts = Commands;

TEST_F(Prompts, KeywordsMayBeShortened) {
  wchar_t word[133];
  const auto answer = [&](const wchar_t* keywords, const wchar_t* typed) {
    acedInitGet(0, keywords);
    promptQueue().text(typed);
    return acedGetKword(L"?", word) == RTNORM || edhost::promptQueue().empty() ? std::wstring(word) : L"";
  };
  EXPECT_EQ(answer(L"Sim Não", L"s"), L"Sim");
  EXPECT_EQ(answer(L"Sim Não", L"nã"), L"Não");
  EXPECT_EQ(answer(L"LAyer LType", L"lay"), L"LAyer");
  EXPECT_EQ(answer(L"eXit eNd", L"x"), L"eXit");
  EXPECT_EQ(answer(L"LAYER,LA", L"la"), L"LAYER");
  EXPECT_EQ(answer(L"Sim Não _Yes No", L"s"), L"Yes");
  EXPECT_EQ(answer(L"Sim Não _Yes No", L"_No"), L"No");
}

TEST_F(Prompts, KeywordThatFitsNoneIsAskedForAgain) {
  wchar_t word[133];
  acedInitGet(0, L"LAyer LType");
  promptQueue().text(L"l").text(L"what").text(L"LT");
  EXPECT_EQ(acedGetKword(L"?", word), RTNORM);
  EXPECT_STREQ(word, L"LType");
  EXPECT_TRUE(promptQueue().empty());
  acedInitGet(0, L"Sim Não");
  promptQueue().enter();
  EXPECT_EQ(acedGetKword(L"?", word), RTNONE);
  EXPECT_EQ(acedGetKword(L"?", word), RTERROR);  // its keywords were for one prompt
}

TEST_F(Prompts, NumbersAreRefusedByTheBits) {
  double value = 0.0;
  acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, L"Auto");
  promptQueue().enter().number(0).number(-3).text(L"abc").number(4.25);
  EXPECT_EQ(acedGetReal(L"?", &value), RTNORM);
  EXPECT_EQ(value, 4.25);
  promptQueue().number(-3);
  EXPECT_EQ(acedGetReal(L"?", &value), RTNORM);  // the bits were for one prompt
  int whole = 0;
  promptQueue().text(L"1.5").text(L"40000").text(L"12");
  EXPECT_EQ(acedGetInt(L"?", &whole), RTNORM);
  EXPECT_EQ(whole, 12);
  acedInitGet(0, L"Auto");
  promptQueue().text(L"a");
  wchar_t word[133];
  EXPECT_EQ(acedGetReal(L"?", &value), RTKWORD);
  EXPECT_EQ(acedGetInput(word), RTNORM);
  EXPECT_STREQ(word, L"Auto");
  acedInitGet(RSG_OTHER, nullptr);
  promptQueue().text(L"anything");
  EXPECT_EQ(acedGetReal(L"?", &value), RTKWORD);
  acedGetInput(word);
  EXPECT_STREQ(word, L"anything");
}

TEST_F(Prompts, PointsComeInEveryForm) {
  AcGePoint3d p;
  const auto typed = [&](const wchar_t* text) {
    promptQueue().text(text);
    EXPECT_EQ(acedGetPoint(nullptr, L"?", asDblArray(p)), RTNORM);
    return p;
  };
  EXPECT_EQ(typed(L"1.5,-2"), AcGePoint3d(1.5, -2, 0));
  EXPECT_EQ(typed(L"1,2,3"), AcGePoint3d(1, 2, 3));
  EXPECT_EQ(typed(L"@1,1"), AcGePoint3d(2, 3, 3));
  EXPECT_EQ(typed(L"10<90"), AcGePoint3d(0, 10, 0));
  EXPECT_EQ(typed(L"@5<0"), AcGePoint3d(5, 10, 0));
  promptQueue().text(L"7").text(L"1,2,3,4").text(L"a,b").enter();
  EXPECT_EQ(acedGetPoint(nullptr, L"?", asDblArray(p)), RTNONE);
}

TEST_F(Prompts, DistanceAndAngleTakeTwoPoints) {
  double value = 0.0;
  promptQueue().point(0, 0).point(3, 4);
  EXPECT_EQ(acedGetDist(nullptr, L"?", &value), RTNORM);
  EXPECT_EQ(value, 5.0);
  const ads_point base = {1, 1, 0};
  promptQueue().point(1, 5);
  EXPECT_EQ(acedGetAngle(base, L"?", &value), RTNORM);
  EXPECT_DOUBLE_EQ(value, kAcutPi / 2);
  promptQueue().text(L"180");
  EXPECT_EQ(acedGetAngle(base, L"?", &value), RTNORM);
  EXPECT_DOUBLE_EQ(value, kAcutPi);
}

TEST_F(Prompts, StringEndsAtASpaceUnlessSpacesAreAllowed) {
  wchar_t text[133];
  promptQueue().text(L"two words").text(L"two words").enter().text(std::wstring(200, L'x'));
  EXPECT_EQ(acedGetString(0, L"?", text), RTNORM);
  EXPECT_STREQ(text, L"two");
  EXPECT_EQ(acedGetString(1, L"?", text), RTNORM);
  EXPECT_STREQ(text, L"two words");
  EXPECT_EQ(acedGetString(1, L"?", text), RTNORM);
  EXPECT_STREQ(text, L"");
  EXPECT_EQ(acedGetString(1, L"?", text), RTNORM);
  EXPECT_EQ(std::wcslen(text), 132U);
}

class Selection : public Commands {
 protected:
  AcDbObjectId line = appended(new AcDbLine({0, 0, 0}, {100, 0, 0}));
  AcDbObjectId circle = appended(new AcDbCircle({50, 50, 0}, AcGeVector3d::kZAxis, 10));

  static std::vector<AcDbObjectId> chosen(const wchar_t* mode, const void* a = nullptr, const void* b = nullptr,
                                          const resbuf* filter = nullptr) {
    std::vector<AcDbObjectId> ids;
    ads_name set;
    if (acedSSGet(mode, a, b, filter, set) != RTNORM) return ids;
    Adesk::Int32 length = 0;
    acedSSLength(set, &length);
    for (int i = 0; i < length; ++i) {
      ads_name name;
      AcDbObjectId id;
      acedSSName(set, i, name);
      acdbGetObjectId(id, name);
      ids.push_back(id);
    }
    acedSSFree(set);
    return ids;
  }
};

TEST_F(Selection, ByWindowTakesWhatLiesInsideAndByCrossingWhatTouches) {
  const ads_point a = {-5, -5, 0}, b = {65, 70, 0};
  EXPECT_THAT(chosen(L"W", a, b), ::testing::ElementsAre(circle));
  EXPECT_THAT(chosen(L"_C", a, b), ::testing::ElementsAre(line, circle));
  const ads_point c = {45, 45, 0}, d = {55, 55, 0};
  EXPECT_TRUE(chosen(L"C", c, d).empty());  // inside the circle, touching nothing
}

TEST_F(Selection, ByFenceTakesWhatItCrosses) {
  resbuf* const fence =
      acutBuildList(RTPOINT, asDblArray(AcGePoint3d(50, -10, 0)), RTPOINT, asDblArray(AcGePoint3d(50, 20, 0)), 0);
  EXPECT_THAT(chosen(L"F", fence), ::testing::ElementsAre(line));
  acutRelRb(fence);
}

TEST_F(Selection, IsFilteredByGroups) {
  resbuf* circles = acutBuildList(RTDXF0, L"CIRC*", 0);
  EXPECT_THAT(chosen(L"X", nullptr, nullptr, circles), ::testing::ElementsAre(circle));
  acutRelRb(circles);
  resbuf* const none = acutBuildList(8, L"nowhere", 0);
  EXPECT_TRUE(chosen(L"X", nullptr, nullptr, none).empty());
  acutRelRb(none);
  resbuf* const either = acutBuildList(-4, L"<OR", RTDXF0, L"LINE", RTDXF0, L"CIRCLE", -4, L"OR>", 62, 256, 0);
  EXPECT_EQ(chosen(L"X", nullptr, nullptr, either).size(), 2U);
  acutRelRb(either);
}

TEST_F(Selection, OfAPersonGathersUntilEnter) {
  promptQueue().point(30, 1).entity(circle).text(L"nonsense").enter();
  EXPECT_THAT(chosen(nullptr), ::testing::ElementsAre(line, circle));
  EXPECT_EQ(chosen(L"P").size(), 2U);
  EXPECT_THAT(chosen(L"L"), ::testing::ElementsAre(circle));
  promptQueue().point(200, 200).point(-10, -10).enter();  // to the left: a crossing
  EXPECT_EQ(chosen(nullptr).size(), 2U);
  promptQueue().point(-10, -10).point(65, 70).enter();  // to the right: a window
  EXPECT_THAT(chosen(nullptr), ::testing::ElementsAre(circle));
  promptQueue().entity(line);
  EXPECT_THAT(chosen(L":S"), ::testing::ElementsAre(line));
  ads_name set;
  promptQueue().entity(line).cancel();
  EXPECT_EQ(acedSSGet(nullptr, nullptr, nullptr, nullptr, set), RTCAN);
  EXPECT_TRUE(ads_name_nil(set));
}

TEST_F(Selection, OfOneEntityTellsWhatWasMissed) {
  ads_name name;
  AcGePoint3d at;
  promptQueue().point(30, 2);
  EXPECT_EQ(acedEntSel(nullptr, name, asDblArray(at)), RTNORM);
  AcDbObjectId id;
  acdbGetObjectId(id, name);
  EXPECT_EQ(id, line);
  EXPECT_EQ(at, AcGePoint3d(30, 2, 0));
  promptQueue().point(300, 300);
  EXPECT_EQ(acedEntSel(nullptr, name, asDblArray(at)), RTERROR);
  EXPECT_EQ(edhost::varInt(L"ERRNO"), 7);
  promptQueue().enter();
  EXPECT_EQ(acedEntSel(nullptr, name, asDblArray(at)), RTERROR);
  EXPECT_EQ(edhost::varInt(L"ERRNO"), 52);
  acedInitGet(0, L"Todos");
  promptQueue().text(L"t");
  EXPECT_EQ(acedEntSel(nullptr, name, asDblArray(at)), RTKWORD);
  promptQueue().cancel();
  EXPECT_EQ(acedEntSel(nullptr, name, asDblArray(at)), RTCAN);
}

TEST_F(Selection, PickedAgainAtItsPointIsTheSameEntity) {
  const AcDbObjectId above = appended(new AcDbLine({0, 0, 0}, {100, 0, 0}));
  ads_name name, set;
  AcGePoint3d at;
  promptQueue().entity(line);
  ASSERT_EQ(acedEntSel(nullptr, name, asDblArray(at)), RTNORM);
  ASSERT_EQ(acedSSGet(nullptr, asDblArray(at), nullptr, nullptr, set), RTNORM);
  resbuf* chain = nullptr;
  ASSERT_EQ(acedSSNameX(&chain, set, 0), RTNORM);
  EXPECT_EQ(chain->restype, RTLB);
  EXPECT_EQ(chain->rbnext->resval.rint, 1);
  AcDbObjectId id;
  acdbGetObjectId(id, chain->rbnext->rbnext->resval.rlname);
  EXPECT_EQ(id, line);
  EXPECT_NE(id, above);
  acutRelRb(chain);
  EXPECT_EQ(acedSSMemb(name, set), RTNORM);
  EXPECT_EQ(acedSSDel(name, set), RTNORM);
  EXPECT_EQ(acedSSDel(name, set), RTERROR);
  EXPECT_EQ(acedSSFree(set), RTNORM);
  EXPECT_EQ(acedSSFree(set), RTERROR);
}

TEST(Documents, TellModulesThatKnowSeveral) {
  static std::vector<int> messages;
  messages.clear();
  const AcRxEntryFunction entry = [](AcRx::AppMsgCode message, void* appId) {
    messages.push_back(message);
    if (message == AcRx::kInitAppMsg) acrxUnlockApplication(appId), acrxRegisterAppMDIAware(appId);
    return AcRx::kRetOK;
  };
  void* const module = edhost::loadModule(L"sample", entry);
  ASSERT_NE(module, nullptr);
  AcApDocManager* const manager = acDocManagerPtr();
  AcApDocument* const first = manager->newDocument();
  AcApDocument* const second = manager->newDocument();
  EXPECT_EQ(manager->mdiActiveDocument(), second);
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), second->database());
  EXPECT_EQ(manager->document(first->database()), first);
  EXPECT_EQ(manager->lockDocument(second), Acad::eOk);
  EXPECT_EQ(second->lockMode(), AcAp::kWrite);
  EXPECT_EQ(manager->closeDocument(second), Acad::eLockConflict);
  EXPECT_EQ(manager->unlockDocument(second), Acad::eOk);
  EXPECT_EQ(manager->unlockDocument(second), Acad::eInvalidInput);
  EXPECT_EQ(manager->lockDocument(nullptr), Acad::eNoDocument);
  EXPECT_EQ(manager->closeDocument(second), Acad::eOk);
  EXPECT_EQ(manager->curDocument(), first);
  manager->closeAllDocuments();
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
  EXPECT_EQ(edhost::unloadModule(module), Acad::eOk);
  EXPECT_EQ(edhost::unloadModule(module), Acad::eKeyNotFound);
  EXPECT_THAT(messages, ::testing::ElementsAre(AcRx::kInitAppMsg, AcRx::kLoadDwgMsg, AcRx::kLoadDwgMsg,
                                               AcRx::kUnloadDwgMsg, AcRx::kUnloadDwgMsg, AcRx::kUnloadAppMsg));
}

}  // namespace
