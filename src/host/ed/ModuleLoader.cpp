#include "host/ed/ModuleLoader.h"

#include <algorithm>
#include <memory>

#include "host/db/resbuf.h"
#include "host/ed/AcApDocManager.h"
#include "host/os/os.h"

namespace {

struct Module {
  std::wstring name;
  AcRxEntryFunction entry;
  HMODULE library;
};

// A module's address is its appId. Never destroyed: modules may outlive main().
std::vector<std::unique_ptr<Module>>& modules() {
  static auto* const loaded = new std::vector<std::unique_ptr<Module>>;
  return *loaded;
}

void* start(std::unique_ptr<Module> module, std::wstring* why) {
  Module* const id = module.get();
  modules().push_back(std::move(module));
  if (id->entry(AcRx::kInitAppMsg, id) == AcRx::kRetError) {
    if (why != nullptr) *why = L"The module " + id->name + L" refused to start.";
    FreeLibrary(id->library);
    std::erase_if(modules(), [=](const auto& candidate) { return candidate.get() == id; });
    return nullptr;
  }
  if (acDocManagerPtr()->curDocument() != nullptr) id->entry(AcRx::kLoadDwgMsg, id);
  return id;
}

}  // namespace

namespace edhost {

void* loadModule(const wchar_t* path, std::wstring* why) {
  const HMODULE library = path != nullptr ? LoadLibraryW(path) : nullptr;
  if (library == nullptr) {
    if (why != nullptr) *why = os::toWide(os::lastLoadError());
    return nullptr;
  }
  const FARPROC entry = GetProcAddress(library, "acrxEntryPoint");
  if (entry == nullptr) {
    if (why != nullptr) *why = std::wstring(path) + L" has no acrxEntryPoint.";
    FreeLibrary(library);
    return nullptr;
  }
  return start(std::make_unique<Module>(Module{path, reinterpret_cast<AcRxEntryFunction>(entry), library}), why);
}

void* loadModule(const wchar_t* name, AcRxEntryFunction entry) {
  if (entry == nullptr) return nullptr;
  return start(std::make_unique<Module>(Module{name != nullptr ? name : L"", entry, nullptr}), nullptr);
}

Acad::ErrorStatus unloadModule(void* appId) {
  const auto place =
      std::find_if(modules().begin(), modules().end(), [=](const auto& module) { return module.get() == appId; });
  if (place == modules().end()) return Acad::eKeyNotFound;
  if (acrxApplicationIsLocked(appId)) return Acad::eCannotBeErasedByCaller;
  Module* const module = place->get();
  module->entry(AcRx::kUnloadAppMsg, appId);
  acrxLockApplication(appId);
  acrxRegisterAppNotMDIAware(appId);
  FreeLibrary(module->library);
  std::erase_if(modules(), [=](const auto& candidate) { return candidate.get() == appId; });
  return Acad::eOk;
}

void tellModules(AcRx::AppMsgCode message) {
  std::vector<Module*> told;
  for (const auto& module : modules()) told.push_back(module.get());
  for (Module* const module : told) {
    if (acrxIsAppMDIAware(module)) module->entry(message, module);
  }
}

std::vector<std::wstring> loadedModules() {
  std::vector<std::wstring> names;
  for (const auto& module : modules()) names.push_back(module->name);
  return names;
}

}  // namespace edhost

int acedArxLoad(const wchar_t* path) {
  return edhost::loadModule(path) != nullptr ? RTNORM : RTERROR;
}

int acedArxUnload(const wchar_t* path) {
  if (path == nullptr) return RTERROR;
  for (const auto& module : modules()) {
    if (module->name == path) return edhost::unloadModule(module.get()) == Acad::eOk ? RTNORM : RTERROR;
  }
  return RTERROR;
}
