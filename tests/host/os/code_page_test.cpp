#include <gtest/gtest.h>

#include "host/os/os.h"

namespace {

using os::CodePage;

TEST(CodePage, ReadsAndWritesTheLettersOfAWesternPage) {
  const CodePage& page = CodePage::named("CP1252");
  EXPECT_EQ(page.decode("a\xB0\x80\xE7"), L"a°€ç");
  EXPECT_EQ(page.encode(L"a°€ç"), "a\xB0\x80\xE7");
}

TEST(CodePage, ReadsAndWritesCyrillic) {
  const CodePage& page = CodePage::named("CP1251");
  EXPECT_EQ(page.decode("\xCB\xE8\xF1\xF2"), L"Лист");
  EXPECT_EQ(page.encode(L"Лист"), "\xCB\xE8\xF1\xF2");
}

TEST(CodePage, WritesWhatThePageLacksByItsNumber) {
  const CodePage& page = CodePage::named("CP1252");
  EXPECT_EQ(page.encode(L"ж"), "\\U+0436");
  EXPECT_EQ(page.decode("\\U+0436\\U+2205x"), L"ж\u2205x");
  EXPECT_EQ(page.encode(L"\U0001F529"), "\\U+D83D\\U+DD29");
  EXPECT_EQ(page.decode("\\U+D83D\\U+DD29"), L"\U0001F529");
}

TEST(CodePage, KeepsAnEscapeBehindABackslashAsItStands) {
  const CodePage& page = CodePage::named("CP1252");
  EXPECT_EQ(page.decode("\\\\U+00B0"), L"\\\\U+00B0");
  EXPECT_EQ(page.decode("\\U+00G0"), L"\\U+00G0");
  EXPECT_EQ(page.decode("\\U+00B"), L"\\U+00B");
}

TEST(CodePage, LosesNoByteOfAnyPage) {
  for (const char* name : {"CP1250", "CP1251", "CP1252", "CP1253", "CP1254", "CP1255", "CP1256", "CP1257", "CP1258",
                           "CP874", "CP437", "CP850", "ISO-8859-1", "MACINTOSH"}) {
    const CodePage& page = CodePage::named(name);
    for (int byte = 1; byte < 256; ++byte) {
      const std::string text = {'x', char(byte), 'y'};
      EXPECT_EQ(page.encode(page.decode(text)), text) << name << ", byte " << byte;
    }
  }
}

TEST(CodePage, TakesTwoBytesForOneCharacterInPagesOfTheEast) {
  const CodePage& page = CodePage::named("CP932");
  EXPECT_EQ(page.decode("\x93\xFA\x96\x7B"), L"日本");
  EXPECT_EQ(page.encode(L"日本"), "\x93\xFA\x96\x7B");
  EXPECT_EQ(CodePage::named("CP1252").decode("\\M+193FA"), L"日");
}

TEST(CodePage, ReadsAnUnknownPageAsTheWesternOne) {
  EXPECT_EQ(CodePage::named("no such page").decode("\xE7"), L"ç");
}

}  // namespace
