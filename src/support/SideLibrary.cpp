#include "support/SideLibrary.h"

#include "host/ed/ed.h"
#include "support/InstallFolder.h"

SideLibrary krSideLibrary;

namespace {

constexpr const wchar_t* kSideLibraryFile = L"krobjfn_ryB16._kr";

std::wstring sideLibraryPath() {
  const wchar_t* folder = installFolder();
  return folder != nullptr ? os::formatted(L"%s\\Support\\%s", folder, kSideLibraryFile) : kSideLibraryFile;
}

template <class Function>
void bind(Function& function, HMODULE module, const char* name) {
  function = reinterpret_cast<Function>(GetProcAddress(module, name));
}

}  // namespace

void bindSideLibrary() {
  SideLibrary& side = sideLibrary();
  side = SideLibrary{};
  side.module = LoadLibraryW(sideLibraryPath().c_str());
  if (side.module == nullptr) {
    acutPrintf(L"\nNão foi possível carregar uma DLL, o KR_Trama não irá funcionar corretamente.");
    return;
  }
  bind(side.krAppendEntity, side.module, "krAppendEntity");
  bind(side.krOrientacaoVetor, side.module, "krOrientacaoVetor");
  bind(side.krMidArco, side.module, "krMidArco");
  bind(side.krIsBulge6000, side.module, "krIsBulge6000");
}

void releaseSideLibrary() {
  SideLibrary& side = sideLibrary();
  if (side.module != nullptr) FreeLibrary(side.module);
  side = SideLibrary{};
}
