#include "host/db/AcDbHostApplicationServices.h"

#include <cstdio>

#include "host/os/Text.h"

namespace {

// Never destroyed: databases that outlive main still ask for it.
AcDbHostApplicationServices& ownServices() {
  static auto* const services = new AcDbHostApplicationServices;
  return *services;
}

AcDbHostApplicationServices*& current() {
  static AcDbHostApplicationServices* services = &ownServices();
  return services;
}

AcDbDisplayFunction displayFunction = nullptr;

}  // namespace

void acdbSetDisplayFunction(AcDbDisplayFunction display) {
  displayFunction = display;
}

void AcDbHostApplicationServices::displayString(const ACHAR* text, int length) {
  if (displayFunction != nullptr) return displayFunction(text, length);
  const std::string bytes = os::toUtf8(std::wstring_view(text, std::size_t(length)));
  std::fwrite(bytes.data(), 1, bytes.size(), stdout);
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
  return current();
}

AcDbHostApplicationServices* acdbSetHostApplicationServices(AcDbHostApplicationServices* services) {
  AcDbHostApplicationServices* const former = current();
  if (services == nullptr) services = &ownServices();
  if (services != former) services->setWorkingDatabase(former->workingDatabase());
  current() = services;
  return former;
}
