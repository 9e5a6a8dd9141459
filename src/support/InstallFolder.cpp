#include "support/InstallFolder.h"

#include "host/os/os.h"

const wchar_t* installFolder() {
  return _wgetenv(L"KRTRAMA_BRICSV17");
}
