// The layer files, as they should be and broken.

#include <gmock/gmock.h>

#include <sstream>

#include "../host/os/Scratch.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "support/Layers.h"

namespace {

const std::string kMark = "$IDKRLAYERFILE";
const std::string kSystem = "PERFIL\r\nL-HIDDEN\r\nEIXO\r\n" + kMark;
const std::string kUser =
    "Aço;7;continuous;0;0;0;0\r\nOculta;8;KR_OCULTA;1;0;1;0\r\nEixos;1;KR_EIXO;0;2;0;-1\r\n" + kMark;

std::wstring wide(const std::string& text) {
  return os::toWide(text);
}

class LayerFiles : public testing::Test {
 protected:
  void write(const std::string& system, const std::string& user) const {
    scratch_.write("sys", system);
    scratch_.write("usr", user);
  }
  ListaLayers load(const char* system = "sys", const char* user1 = "usr", const char* user2 = "usr") const {
    return {path(system).c_str(), path(user1).c_str(), path(user2).c_str()};
  }
  std::wstring path(const char* name) const { return wide(scratch_.path(name)); }

  Scratch scratch_;
  edhost::ConsoleCapture console_;
};

TEST_F(LayerFiles, GiveEachLayerItsSevenFields) {
  write(kSystem, kUser);
  const ListaLayers list = load();
  EXPECT_EQ(list.estado(), RTNORM);
  ASSERT_EQ(list.MaxLayers(), 3);
  EXPECT_STREQ(list.layerSistema(1), L"L-HIDDEN");
  EXPECT_STREQ(list.layerUsuario(0), L"Aço");
  EXPECT_STREQ(list.layerUsuario(1), L"Oculta");
  EXPECT_STREQ(list.layerCfg(1), L"Oculta");
  EXPECT_STREQ(list.tipoLinha(1), L"KR_OCULTA");
  EXPECT_EQ(list.cor(1), 8);
  EXPECT_TRUE(list.desligado(1));
  EXPECT_FALSE(list.congelado(1));
  EXPECT_TRUE(list.vpdflt(1));
  EXPECT_FALSE(list.bloqueado(1));
  EXPECT_EQ(console_.text(), L"\nCarregando Dados...");
}

TEST_F(LayerFiles, TakeAnyFlagThatIsntZeroAsSet) {
  write(kSystem, kUser);
  const ListaLayers list = load();
  EXPECT_TRUE(list.congelado(2));
  EXPECT_TRUE(list.bloqueado(2));
}

TEST_F(LayerFiles, EndEachListOfNamesWithTheMark) {
  write(kSystem, kUser);
  const ListaLayers list = load();
  for (const wchar_t* end : {list.layerSistema(3), list.layerCfg(3), list.layerUsuario(3), list.tipoLinha(3)}) {
    EXPECT_STREQ(end, L"KRLAYEREND");
  }
}

TEST_F(LayerFiles, FindNamesWithoutRegardToCase) {
  write(kSystem, kUser);
  const ListaLayers list = load();
  EXPECT_EQ(list.find(L"l-hidden"), 1);
  EXPECT_EQ(list.find(L"PERFIL"), 0);
  EXPECT_EQ(list.find(L"COTA"), -1);
  EXPECT_EQ(list.find(L"KRLAYEREND"), -1);
}

TEST_F(LayerFiles, UserFileWithANewlineBehindTheMarkIsRefusedSilently) {
  write(kSystem, kUser + "\n");
  const ListaLayers list = load();
  EXPECT_EQ(list.estado(), RTERROR);
  EXPECT_EQ(console_.text(), L"\nCarregando Dados...");
}

TEST_F(LayerFiles, UserFileShorterThanTheMarkIsRefused) {
  write(kSystem, "$ID");
  EXPECT_EQ(load().estado(), RTERROR);
  write(kSystem, "");
  EXPECT_EQ(load().estado(), RTERROR);
}

TEST_F(LayerFiles, MissingUserFileIsToldOnTheCommandLine) {
  write(kSystem, kUser);
  EXPECT_EQ(load("sys", "usr", "none").estado(), RTERROR);
  EXPECT_EQ(console_.text(), L"\nCarregando Dados...\nArquivo de Usuário Inválido");
  console_.clear();
  EXPECT_EQ(load("sys", "none", "usr").estado(), RTERROR);
  EXPECT_EQ(console_.text(), L"\nCarregando Dados...\nArquivo de Usuário Inválido");
}

TEST_F(LayerFiles, BothUserFilesMustEndInTheMark) {
  write(kSystem, kUser);
  scratch_.write("open", "Aço;7;continuous;0;0;0;0\r\n");
  EXPECT_EQ(load("sys", "open", "usr").estado(), RTERROR);
  EXPECT_EQ(load("sys", "usr", "open").estado(), RTERROR);
}

TEST_F(LayerFiles, MissingListOfLayersIsToldOnTheCommandLine) {
  write(kSystem, kUser);
  EXPECT_EQ(load("none").estado(), RTERROR);
  EXPECT_EQ(console_.text(), L"\nCarregando Dados...\nNão foi possível abrir arquivo de LayersKR");
}

// Deliberate: only the user's file is tested for the mark, twice when it is given twice.
TEST_F(LayerFiles, MarkOfTheListOfLayersIsNotTested) {
  write("PERFIL\nEIXO\n", "A;1;x;0;0;0;0\nB;2;y;0;0;0;0\n" + kMark);
  const ListaLayers list = load();
  EXPECT_EQ(list.estado(), RTNORM);
  EXPECT_EQ(list.MaxLayers(), 2);
}

TEST_F(LayerFiles, FewerRecordsThanLayersLeaveTheOthersUnset) {
  write(kSystem, "Aço;7;continuous;0;0;0;0\r\n" + kMark);
  const ListaLayers list = load();
  EXPECT_EQ(list.estado(), RTNORM);
  ASSERT_EQ(list.MaxLayers(), 3);
  EXPECT_STREQ(list.layerUsuario(0), L"Aço");
  for (int i = 1; i < 3; ++i) {
    EXPECT_STREQ(list.layerUsuario(i), L"");
    EXPECT_STREQ(list.tipoLinha(i), L"");
    EXPECT_STREQ(list.layerCfg(i), L"");
    EXPECT_EQ(list.cor(i), 0);
  }
}

TEST_F(LayerFiles, RecordsBeyondTheLayersAreLeftAlone) {
  write("PERFIL\n" + kMark, kUser);
  const ListaLayers list = load();
  EXPECT_EQ(list.MaxLayers(), 1);
  EXPECT_STREQ(list.layerUsuario(0), L"Aço");
}

// Deliberate: layers are counted without the lines that don't count, but filled from the first lines as they stand.
TEST_F(LayerFiles, CommentBeforeTheLayersTakesTheirPlace) {
  write("$ list\nPERFIL\nEIXO\n" + kMark, kUser);
  const ListaLayers list = load();
  EXPECT_EQ(list.MaxLayers(), 2);
  EXPECT_STREQ(list.layerSistema(0), L"$ list");
  EXPECT_STREQ(list.layerSistema(1), L"PERFIL");
}

TEST_F(LayerFiles, EmptyEntryEndsTheSearch) {
  write("PERFIL\n\nEIXO\nCOTA\n" + kMark, kUser);
  const ListaLayers list = load();
  EXPECT_EQ(list.MaxLayers(), 3);
  EXPECT_STREQ(list.layerSistema(2), L"EIXO");
  EXPECT_EQ(list.find(L"EIXO"), -1);
}

TEST_F(LayerFiles, CutNamesToThirtyTwoCharacters) {
  const std::string name(40, 'N');
  write(name + "\n" + kMark, name + ";1;" + name + ";0;0;0;0\n" + kMark);
  const ListaLayers list = load();
  EXPECT_EQ(list.layerSistema(0), std::wstring(32, L'N'));
  EXPECT_EQ(list.layerUsuario(0), std::wstring(32, L'N'));
  EXPECT_EQ(list.tipoLinha(0), std::wstring(32, L'N'));
  EXPECT_EQ(list.cor(0), 1);
}

TEST_F(LayerFiles, WithoutLayersMakeAnEmptyList) {
  write(kMark, kMark);
  const ListaLayers list = load();
  EXPECT_EQ(list.estado(), RTNORM);
  EXPECT_EQ(list.MaxLayers(), 0);
  EXPECT_EQ(list.find(L"PERFIL"), -1);
}

TEST_F(LayerFiles, RecordsWithMissingFieldsLeaveThemUnset) {
  write("A\nB\n" + kMark, "Só nome\n;;;\n" + kMark);
  const ListaLayers list = load();
  EXPECT_EQ(list.estado(), RTNORM);
  EXPECT_STREQ(list.layerUsuario(0), L"Só nome");
  EXPECT_EQ(list.cor(0), 0);
  EXPECT_STREQ(list.layerUsuario(1), L"");
}

TEST_F(LayerFiles, AnyBytesEndInAListOrARefusal) {
  unsigned state = 12345;
  const auto next = [&] { return (state = state * 1664525U + 1013904223U) >> 16U; };
  for (int i = 0; i < 300; ++i) {
    std::string system;
    std::string user;
    for (unsigned n = next() % 400; n > 0; --n) {
      system += static_cast<char>("A;\n\r$ \xE7\x80"[next() % 8]);
      user += static_cast<char>("A;1\n\r$0\xFF"[next() % 8]);
    }
    write(system, user + kMark);
    const ListaLayers list = load();
    EXPECT_EQ(list.estado(), RTNORM);
    for (int k = 0; k < list.MaxLayers(); ++k) EXPECT_LE(std::wcslen(list.layerUsuario(k)), 32U);
  }
}

TEST_F(LayerFiles, SavedAndReadAgainAreTheSame) {
  write(kSystem, kUser);
  const ListaLayers list = load();
  ASSERT_EQ(list.Save(path("saved").c_str()), 1);
  EXPECT_EQ(scratch_.read("saved"),
            "Aço;7;continuous;0;0;0;0\r\r\nOculta;8;KR_OCULTA;1;0;1;0\r\r\nEixos;1;KR_EIXO;0;1;0;1\r\r\n" + kMark);
  const ListaLayers again = load("sys", "saved", "saved");
  EXPECT_EQ(again.estado(), RTNORM);
  for (int i = 0; i < 3; ++i) {
    EXPECT_STREQ(again.layerUsuario(i), list.layerUsuario(i));
    EXPECT_STREQ(again.tipoLinha(i), list.tipoLinha(i));
    EXPECT_EQ(again.cor(i), list.cor(i));
    EXPECT_EQ(again.bloqueado(i), list.bloqueado(i));
  }
}

TEST_F(LayerFiles, SaveToAPlaceThatTakesNoFileGivesZero) {
  write(kSystem, kUser);
  const ListaLayers list = load();
  EXPECT_EQ(list.Save(path("none/saved").c_str()), 0);
  EXPECT_EQ(list.Save(path("").c_str()), 0);
}

TEST_F(LayerFiles, AsShippedAgreeWithEachOtherAndWithTheLinetypes) {
  const std::wstring folder = wide(KR_SOURCE_DIR "/data/Prototipo/");
  const std::wstring user = folder + L"LayersUSR.cfg";
  const ListaLayers list((folder + L"LayersKR.cfg").c_str(), user.c_str(), user.c_str());
  ASSERT_EQ(list.estado(), RTNORM);
  for (const wchar_t* name : {L"L-HIDDEN", L"EIXO", L"KR_HIDE_FACE", L"PERFIL", L"DIM-12", L"TEXTO"}) {
    EXPECT_GE(list.find(name), 0) << os::toUtf8(name);
  }
  os::TextReader lines;
  ASSERT_TRUE(lines.open((folder + L"KR_Linhas.lin").c_str()));
  std::wstring all;
  for (std::wstring line; lines.line(line);) all += line + L"\n";
  for (int i = 0; i < list.MaxLayers(); ++i) {
    EXPECT_NE(list.layerUsuario(i)[0], 0) << i;
    EXPECT_GE(list.cor(i), 1);
    EXPECT_LE(list.cor(i), 255);
    const std::wstring linetype = list.tipoLinha(i);
    EXPECT_TRUE(linetype == L"continuous" || all.find(L"*" + linetype + L",") != std::wstring::npos)
        << os::toUtf8(linetype);
  }
}

}  // namespace
