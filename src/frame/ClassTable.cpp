#include "frame/ClassTable.h"

#include "object/KrObject.h"
#include "profiles/KrBarraRedonda.h"
#include "profiles/KrTubo.h"
#include "records/KrObjectExtension.h"
#include "records/KrObjectModCData.h"
#include "records/KrObjectTextExtension.h"

namespace {

template <class T>
constexpr ModuleClass moduleClass() {
  return {static_cast<void (*)()>(&T::rxInit), &T::desc};
}

constexpr ModuleClass kClasses[] = {
    moduleClass<KrObject>(),          moduleClass<KrTubo>(),
    moduleClass<KrBarraRedonda>(),    moduleClass<KrObjectModCData>(),
    moduleClass<KrObjectExtension>(), moduleClass<KrObjectTextExtension>(),
};

}  // namespace

std::span<const ModuleClass> moduleClasses() {
  return kClasses;
}
