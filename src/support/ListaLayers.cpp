// Reading and writing of the layer files.

#include <cwchar>
#include <string>

#include "host/companion/companion.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "support/Layers.h"

namespace {

constexpr const wchar_t* kFileMark = L"$IDKRLAYERFILE";
constexpr int kFileMarkLength = 14;
constexpr const wchar_t* kEndMark = L"KRLAYEREND";
constexpr int kLineRoom = 100;
constexpr const wchar_t* kSeparator = L";";

using Line = wchar_t[kLineRoom];

/// Opens one of the files again; what was there a moment ago is expected to be there still.
bool reopen(os::TextReader& file, const wchar_t* path) {
  if (file.open(path)) return true;
  acutPrintf(L"\nNão foi possível abrir arquivo de LayersKR");
  return false;
}

bool hasMark(const wchar_t* path) {
  os::TextReader file;
  if (!file.open(path)) {
    acutPrintf(L"\nArquivo de Usuário Inválido");
    return false;
  }
  Line tail;
  return file.seekFromEnd(kFileMarkLength) && file.line(tail, kLineRoom) && std::wcscmp(tail, kFileMark) == 0;
}

bool countsAsLayer(const wchar_t* line) {
  return line[0] > L' ' && line[0] != L'$';
}

int countLayers(os::TextReader& file) {
  int count = 0;
  Line line;
  while (file.line(line, kLineRoom)) count += countsAsLayer(line) ? 1 : 0;
  return count;
}

// The next record; none at the file's end, which is its mark.
bool readRecord(os::TextReader& file, wchar_t* line) {
  if (!file.line(line, kLineRoom)) return false;
  CloseInChar(line, L"\n\r");
  return std::wcscmp(line, kFileMark) != 0;
}

template <std::size_t Room>
void copyName(wchar_t (&to)[Room], const wchar_t* from) {
  if (from == nullptr) return;
  std::wcsncpy(to, from, Room - 1);
  to[Room - 1] = 0;
}

int toNumber(const wchar_t* field) {
  return field != nullptr ? _wtoi(field) : 0;
}

unsigned char toFlag(const wchar_t* field) {
  return toNumber(field) != 0 ? 1 : 0;
}

}  // namespace

ListaLayers::ListaLayers(const wchar_t* sistema, const wchar_t* usuario1, const wchar_t* usuario2) : estado_(RTERROR) {
  acutPrintf(L"\nCarregando Dados...");
  if (carregue(sistema, usuario1, usuario2)) estado_ = RTNORM;
}

ListaLayers::~ListaLayers() {
  estado_ = RTERROR;
  delete[] cor_;
  delete[] bloqueado_;
  delete[] desligado_;
  delete[] congelado_;
  delete[] vpdflt_;
  delete[] tipoLinha_;
  delete[] layerUsuario_;
  delete[] layerSistema_;
  delete[] layerCfg_;
}

void ListaLayers::aloque() {
  const auto count = static_cast<std::size_t>(maxLayers_);
  cor_ = new int[count]();
  bloqueado_ = new unsigned char[count]();
  desligado_ = new unsigned char[count]();
  congelado_ = new unsigned char[count]();
  vpdflt_ = new unsigned char[count]();
  tipoLinha_ = new Name[count + 1]();
  layerUsuario_ = new Name[count + 1]();
  layerSistema_ = new Name[count + 1]();
  layerCfg_ = new Name[count + 1]();
}

bool ListaLayers::carregue(const wchar_t* sistema, const wchar_t* usuario1, const wchar_t* usuario2) {
  if (!hasMark(usuario2) || !hasMark(usuario1)) return false;

  os::TextReader file;
  if (!reopen(file, sistema)) return false;
  maxLayers_ = countLayers(file);
  aloque();

  Line line;
  if (!reopen(file, sistema)) return false;
  // The first lines are taken as they stand: a line that didn't count as a layer takes a layer's place.
  for (int i = 0; i < maxLayers_ && file.line(line, kLineRoom); ++i) {
    copyName(layerSistema_[i], CloseInChar(line, L"\n\r"));
  }
  copyName(layerSistema_[maxLayers_], kEndMark);

  if (!reopen(file, usuario1)) return false;
  for (int i = 0; i < maxLayers_ && readRecord(file, line); ++i) copyName(layerCfg_[i], wcstok(line, kSeparator));
  copyName(layerCfg_[maxLayers_], kEndMark);

  if (!reopen(file, usuario2)) return false;
  for (int i = 0; i < maxLayers_ && readRecord(file, line); ++i) {
    copyName(layerUsuario_[i], wcstok(line, kSeparator));
    cor_[i] = toNumber(wcstok(nullptr, kSeparator));
    copyName(tipoLinha_[i], wcstok(nullptr, kSeparator));
    desligado_[i] = toFlag(wcstok(nullptr, kSeparator));
    congelado_[i] = toFlag(wcstok(nullptr, kSeparator));
    vpdflt_[i] = toFlag(wcstok(nullptr, kSeparator));
    bloqueado_[i] = toFlag(wcstok(nullptr, kSeparator));
  }
  copyName(layerUsuario_[maxLayers_], kEndMark);
  copyName(tipoLinha_[maxLayers_], kEndMark);
  return true;
}

int ListaLayers::find(const wchar_t* nome) const {
  for (int i = 0; i < maxLayers_ && layerSistema_[i][0] != 0; ++i) {
    if (_wcsicmp(layerSistema_[i], nome) == 0) return i;
  }
  return -1;
}

int ListaLayers::Save(const wchar_t* path) const {
  os::TextWriter file;
  if (!file.open(path)) return 0;
  for (int i = 0; i < maxLayers_; ++i) {
    file.print(L"%s;%d;%s;%d;%d;%d;%d\r\n", layerUsuario_[i], cor_[i], tipoLinha_[i], desligado_[i], congelado_[i],
               vpdflt_[i], bloqueado_[i]);
  }
  file.write(kFileMark);
  return file.close() ? 1 : 0;
}
