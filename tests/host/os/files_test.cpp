#include <gmock/gmock.h>

#include "Scratch.h"
#include "host/os/os.h"

namespace {

std::wstring wide(const std::string& text) {
  return os::toWide(text);
}

TEST(Path, FindsFoldersAndFilesWithoutRegardToCase) {
  const Scratch scratch;
  scratch.write("Prototipo/LayersKR.cfg", "x");
  EXPECT_EQ(os::resolvePath(wide(scratch.path()) + L"\\PROTOTIPO\\layerskr.CFG"),
            scratch.path("Prototipo/LayersKR.cfg"));
}

TEST(Path, PrefersTheNameAsWritten) {
  const Scratch scratch;
  scratch.write("dados", "x");
  scratch.write("Dados", "x");
  EXPECT_EQ(os::resolvePath(wide(scratch.path("dados"))), scratch.path("dados"));
  EXPECT_EQ(os::resolvePath(wide(scratch.path("DADOS"))), scratch.path("Dados"));
}

TEST(Path, KeepsWhatDoesntExistAsWritten) {
  const Scratch scratch;
  scratch.write("Support/a", "x");
  EXPECT_EQ(os::resolvePath(wide(scratch.path()) + L"\\support\\Novo.txt"), scratch.path("Support/Novo.txt"));
  EXPECT_EQ(os::resolvePath(wide(scratch.path()) + L"\\Nada\\..\\x"), scratch.path("Nada/../x"));
  EXPECT_EQ(os::resolvePath(L""), "");
}

TEST(Path, KnowsAccentedNames) {
  const Scratch scratch;
  scratch.write("Seção.txt", "x");
  EXPECT_EQ(os::resolvePath(wide(scratch.path()) + L"\\SEÇÃO.TXT"), scratch.path("Seção.txt"));
}

TEST(TextReader, ReadsLinesLikeTheWideLineCall) {
  const Scratch scratch;
  scratch.write("a.txt", "EIXO\r\nPERFIL\nfim");
  os::TextReader file;
  ASSERT_TRUE(file.open(wide(scratch.path("a.txt")).c_str()));
  wchar_t line[100];
  ASSERT_TRUE(file.line(line, 100));
  EXPECT_STREQ(line, L"EIXO\n");
  ASSERT_TRUE(file.line(line, 4));
  EXPECT_STREQ(line, L"PER");
  ASSERT_TRUE(file.line(line, 100));
  EXPECT_STREQ(line, L"FIL\n");
  ASSERT_TRUE(file.line(line, 100));
  EXPECT_STREQ(line, L"fim");
  EXPECT_FALSE(file.line(line, 100));
  EXPECT_STREQ(line, L"fim");
  file.rewind();
  std::wstring whole;
  ASSERT_TRUE(file.line(whole));
  EXPECT_EQ(whole, L"EIXO");
}

TEST(TextReader, GoesBackFromTheEnd) {
  const Scratch scratch;
  scratch.write("a.txt", "abc\r\nxyz");
  os::TextReader file;
  ASSERT_TRUE(file.open(wide(scratch.path("a.txt")).c_str()));
  wchar_t line[10];
  ASSERT_TRUE(file.seekFromEnd(3));
  ASSERT_TRUE(file.line(line, 10));
  EXPECT_STREQ(line, L"xyz");
  EXPECT_FALSE(file.seekFromEnd(8));
  EXPECT_TRUE(file.seekFromEnd(7));
}

TEST(TextReader, DropsTheByteOrderMarkAndReadsWindows1252WhereNeeded) {
  const Scratch scratch;
  scratch.write("utf8.txt",
                "\xEF\xBB\xBF"
                "aço");
  scratch.write("ansi.txt", "a\xE7o");
  for (const char* name : {"utf8.txt", "ansi.txt"}) {
    os::TextReader file;
    ASSERT_TRUE(file.open(wide(scratch.path(name)).c_str()));
    std::wstring line;
    ASSERT_TRUE(file.line(line));
    EXPECT_EQ(line, L"aço") << name;
  }
}

TEST(TextReader, RefusesAMissingFileAndAFolder) {
  const Scratch scratch;
  os::TextReader file;
  EXPECT_FALSE(file.open(wide(scratch.path("none")).c_str()));
  EXPECT_FALSE(file.open(wide(scratch.path()).c_str()));
  std::wstring line;
  EXPECT_FALSE(file.line(line));
  EXPECT_FALSE(file.isOpen());
}

TEST(TextWriter, WritesLineFeedsInTextMode) {
  const Scratch scratch;
  os::TextWriter file;
  ASSERT_TRUE(file.open(wide(scratch.path("a.txt")).c_str()));
  file.print(L"%s;%d\r\n", L"aço", 7);
  file.write(L"fim");
  EXPECT_TRUE(file.close());
  EXPECT_EQ(scratch.read("a.txt"), "a\xC3\xA7o;7\r\r\nfim");
  EXPECT_FALSE(file.close());
}

TEST(TextWriter, RefusesAPlaceThatTakesNoFile) {
  const Scratch scratch;
  scratch.write("file", "old");
  os::TextWriter writer;
  EXPECT_FALSE(writer.open(wide(scratch.path("none/a.txt")).c_str()));
  EXPECT_FALSE(writer.open(wide(scratch.path("file/a.txt")).c_str()));
  EXPECT_FALSE(writer.open(wide(scratch.path()).c_str()));
  EXPECT_TRUE(writer.open(wide(scratch.path("file")).c_str()));
  EXPECT_EQ(scratch.read("file"), "old");
  EXPECT_THAT(scratch.names(), testing::ElementsAre("file"));
}

TEST(WideOpen, TakesTheModesOfTheInterface) {
  const Scratch scratch;
  std::FILE* file = _wfopen(wide(scratch.path("a.txt")).c_str(), L"wt, ccs=UTF-8");
  ASSERT_NE(file, nullptr);
  std::fputs("x", file);
  std::fclose(file);
  EXPECT_EQ(scratch.read("a.txt"), "x");
  EXPECT_EQ(_wfopen(wide(scratch.path("b.txt")).c_str(), L"rt"), nullptr);
}

TEST(Library, GivesItsFunctionsByName) {
  HMODULE library = LoadLibraryW(L"libm.so.6");
  ASSERT_NE(library, nullptr) << os::lastLoadError();
  EXPECT_EQ(os::lastLoadError(), "");
  const auto cosine = reinterpret_cast<double (*)(double)>(GetProcAddress(library, "cos"));
  ASSERT_NE(cosine, nullptr);
  EXPECT_EQ(cosine(0.0), 1.0);
  EXPECT_EQ(GetProcAddress(library, "no_such_function"), nullptr);
  EXPECT_NE(FreeLibrary(library), 0);
}

TEST(Library, ThatIsMissingOrBrokenGivesNullAndTheReason) {
  const Scratch scratch;
  scratch.write("broken.so", "not a library");
  EXPECT_EQ(LoadLibraryW(L"no_such_library.so"), nullptr);
  EXPECT_NE(os::lastLoadError(), "");
  EXPECT_EQ(LoadLibraryW(wide(scratch.path("broken.so")).c_str()), nullptr);
  EXPECT_NE(os::lastLoadError(), "");
  EXPECT_EQ(GetProcAddress(nullptr, "cos"), nullptr);
  EXPECT_EQ(FreeLibrary(nullptr), 0);
}

}  // namespace
