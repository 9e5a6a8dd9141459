#include "frame/ClassTable.h"

#include "object/KrObject.h"
#include "records/KrObjectExtension.h"
#include "records/KrObjectModCData.h"
#include "records/KrObjectTextExtension.h"

namespace {

template <class T>
constexpr ModuleClass moduleClass() {
  return {static_cast<void (*)()>(&T::rxInit), &T::desc};
}

constexpr ModuleClass kClasses[] = {
    moduleClass<KrObject>(),
    // The profiles stand here, in the order of the catalogue.
    moduleClass<KrObjectModCData>(),
    moduleClass<KrObjectExtension>(),
    moduleClass<KrObjectTextExtension>(),
};

}  // namespace

std::span<const ModuleClass> moduleClasses() {
  return kClasses;
}
