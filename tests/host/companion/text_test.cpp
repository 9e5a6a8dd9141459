#include <gmock/gmock.h>

#include "../os/Scratch.h"
#include "host/companion/companion.h"
#include "host/os/Text.h"

namespace {

std::wstring wide(const std::string& text) {
  return os::toWide(text);
}

TEST(KrString, IsMadeAssignedAndAdded) {
  KrString text(L"Cant");
  text = text + L"oneira";
  EXPECT_STREQ(text, L"Cantoneira");
  EXPECT_EQ(text.length(), 10);
  text = L"";
  EXPECT_TRUE(text.isEmpty());
  text += L"x";
  EXPECT_STREQ(text.c_str(), L"x");
}

TEST(KrString, TakesNullAsEmptyAndItsOwnTextSafely) {
  KrString text(nullptr);
  EXPECT_TRUE(text.isEmpty());
  text = L"abcdefghijklmnopqrstuvwxyz";
  text = text.c_str() + 3;
  EXPECT_STREQ(text, L"defghijklmnopqrstuvwxyz");
  text += text.c_str();
  EXPECT_EQ(text.length(), 46);
}

TEST(CloseInChar, CutsAtTheFirstOfTheCharacters) {
  wchar_t line[] = L"L-HIDDEN\r\n";
  EXPECT_EQ(CloseInChar(line, L"\n\r"), line);
  EXPECT_STREQ(line, L"L-HIDDEN");
  wchar_t whole[] = L"EIXO";
  EXPECT_STREQ(CloseInChar(whole, L"\n\r"), L"EIXO");
  wchar_t empty[] = L"\n";
  EXPECT_STREQ(CloseInChar(empty, L"\n\r"), L"");
}

TEST(KrConfigSection, ReadsTheValuesOfItsSectionOnly) {
  const Scratch scratch;
  scratch.write("a.krn",
                "KrTubo=before any section\r\n; comment\r\n[Other]\r\nKrTubo=other\r\n[ ObjNames ]\r\n"
                "KrTubo = Tubo redondo \r\n# comment\r\nno sign here\r\nKrBox==x=y\r\n\r\n[Other]\r\nKrUser=other\r\n");
  KrConfigSection section(L"ObjNames");
  EXPECT_NE(section.Load(wide(scratch.path("a.krn")).c_str()), 0);
  EXPECT_EQ(section.count(), 2);
  KrString value;
  EXPECT_NE(section.getVar(KrString(L"KrTubo"), value), 0);
  EXPECT_STREQ(value, L"Tubo redondo");
  EXPECT_NE(section.getVar(KrString(L"krbox"), value), 0);
  EXPECT_STREQ(value, L"=x=y");
}

TEST(KrConfigSection, LeavesTheValueOfAnUnknownKeyAsItWas) {
  const KrConfigSection section(L"ObjNames");
  KrString value;
  EXPECT_EQ(section.getVar(KrString(L"KrTubo"), value), 0);
  EXPECT_TRUE(value.isEmpty());
}

TEST(KrConfigSection, LaterValueCounts) {
  const Scratch scratch;
  scratch.write("a", "[ObjNames]\nKrTubo=a\n[objnames]\nKRTUBO=b");
  KrConfigSection section(L"ObjNames");
  section.Load(wide(scratch.path("a")).c_str());
  KrString value;
  section.getVar(KrString(L"KrTubo"), value);
  EXPECT_STREQ(value, L"b");
}

TEST(KrConfigSection, ReadsWindows1252AndUtf8) {
  const Scratch scratch;
  scratch.write("ansi", "[ObjNames]\nKrUser=Perfil do usu\xE1rio");
  scratch.write("utf8", "[ObjNames]\nKrUser=Perfil do usuário");
  for (const char* name : {"ansi", "utf8"}) {
    KrConfigSection section(L"ObjNames");
    section.Load(wide(scratch.path(name)).c_str());
    KrString value;
    section.getVar(KrString(L"KrUser"), value);
    EXPECT_STREQ(value, L"Perfil do usuário") << name;
  }
}

TEST(KrConfigSection, TellsOfAMissingFileAndAMissingSection) {
  const Scratch scratch;
  scratch.write("a", "[Other]\nKrTubo=a\n");
  KrConfigSection section(L"ObjNames");
  EXPECT_EQ(section.Load(wide(scratch.path("none")).c_str()), 0);
  EXPECT_EQ(section.Load(wide(scratch.path("a")).c_str()), 0);
  EXPECT_EQ(section.count(), 0);
}

TEST(KrConfigSection, ShippedNamesCoverEveryProfileOnce) {
  KrConfigSection section(L"ObjNames");
  ASSERT_NE(section.Load(wide(KR_SOURCE_DIR "/data/Support/ObjNames.krn").c_str()), 0);
  for (const wchar_t* name : {L"KrTubo",
                              L"KrBarraRedonda",
                              L"KrULaminado",
                              L"KrUULaminado",
                              L"Kr2ULaminado",
                              L"KrILaminadoUSA",
                              L"KrBNLaminado",
                              L"KrBNDuplaLaminada",
                              L"KrCantLaminada",
                              L"KrCantLaminadaCaixa",
                              L"KrCantTEELaminada",
                              L"KrCantULaminada",
                              L"KrCantZLaminada",
                              L"KrCantCruzLaminada",
                              L"KrBox",
                              L"KrCaixaDobrado",
                              L"KrCantoneiraDobrada",
                              L"KrCantTDobrada",
                              L"KrCantUDobrada",
                              L"KrCartola",
                              L"KrIDobrado",
                              L"KrISoldado",
                              L"KrUDobrado",
                              L"KrXDobrado",
                              L"KrZDobrado",
                              L"KrChapa",
                              L"KrUser",
                              L"KrStudBolts"}) {
    KrString value;
    EXPECT_NE(section.getVar(KrString(name), value), 0) << os::toUtf8(name);
    EXPECT_FALSE(value.isEmpty());
  }
  EXPECT_EQ(section.count(), 28);
}

}  // namespace
