// The layer files take any bytes, as the list and as the user's mapping: every entry can be read and found afterwards,
// and no name is longer than its room.
#include <cstdlib>
#include <cwchar>

#include "InputFile.h"
#include "support/Layers.h"

namespace {

constexpr std::size_t kLongestName = 32;

void checkName(const wchar_t* name) {
  if (std::wcslen(name) > kLongestName) std::abort();
}

void readAll(const ListaLayers& list) {
  for (int i = 0; i < list.MaxLayers(); ++i) {
    checkName(list.tipoLinha(i));
    checkName(list.layerUsuario(i));
    checkName(list.layerSistema(i));
    const int found = list.find(list.layerSistema(i));
    if (found < -1 || found > i) std::abort();
    static_cast<void>(list.cor(i) ^ list.bloqueado(i) ^ list.desligado(i) ^ list.congelado(i) ^ list.vpdflt(i));
  }
  list.find(L"EIXO");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const InputFile file("layers");
  const std::wstring input = file.write(data, size);
  const std::string folder = KR_SOURCE_DIR "/data/Prototipo/";
  const std::wstring prototype(folder.begin(), folder.end());
  const std::wstring shippedList = prototype + L"LayersKR.cfg";
  const std::wstring shippedUser = prototype + L"LayersUSR.cfg";
  readAll(ListaLayers(shippedList.c_str(), input.c_str(), input.c_str()));
  readAll(ListaLayers(input.c_str(), shippedUser.c_str(), shippedUser.c_str()));
  return 0;
}
