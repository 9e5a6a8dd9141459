#include "host/rx/AcRxApp.h"

#include <set>

namespace {

// A module is locked and not aware of several documents until it says otherwise. Built at first use and never
// destroyed, since a module may call in while the process ends.
std::set<void*>& unlockedModules() {
  static auto* const modules = new std::set<void*>;
  return *modules;
}

std::set<void*>& documentAwareModules() {
  static auto* const modules = new std::set<void*>;
  return *modules;
}

}  // namespace

bool acrxUnlockApplication(void* appId) {
  unlockedModules().insert(appId);
  return true;
}

bool acrxLockApplication(void* appId) {
  unlockedModules().erase(appId);
  return true;
}

bool acrxApplicationIsLocked(void* appId) {
  return !unlockedModules().contains(appId);
}

bool acrxRegisterAppMDIAware(void* appId) {
  documentAwareModules().insert(appId);
  return true;
}

bool acrxRegisterAppNotMDIAware(void* appId) {
  documentAwareModules().erase(appId);
  return true;
}

bool acrxIsAppMDIAware(void* appId) {
  return documentAwareModules().contains(appId);
}
