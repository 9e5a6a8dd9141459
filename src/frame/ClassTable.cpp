#include "frame/ClassTable.h"

#include "object/KrObject.h"
#include "profiles/Kr2ULaminado.h"
#include "profiles/KrBNDuplaLaminada.h"
#include "profiles/KrBNLaminado.h"
#include "profiles/KrBarraRedonda.h"
#include "profiles/KrBox.h"
#include "profiles/KrCaixaDobrado.h"
#include "profiles/KrCantCruzLaminada.h"
#include "profiles/KrCantLaminada.h"
#include "profiles/KrCantLaminadaCaixa.h"
#include "profiles/KrCantTDobrada.h"
#include "profiles/KrCantTEELaminada.h"
#include "profiles/KrCantUDobrada.h"
#include "profiles/KrCantULaminada.h"
#include "profiles/KrCantZLaminada.h"
#include "profiles/KrCantoneiraDobrada.h"
#include "profiles/KrCartola.h"
#include "profiles/KrChapa.h"
#include "profiles/KrIDobrado.h"
#include "profiles/KrILaminadoUSA.h"
#include "profiles/KrISoldado.h"
#include "profiles/KrTubo.h"
#include "profiles/KrUDobrado.h"
#include "profiles/KrULaminado.h"
#include "profiles/KrUULaminado.h"
#include "profiles/KrUser.h"
#include "profiles/KrXDobrado.h"
#include "profiles/KrZDobrado.h"
#include "records/KrObjectExtension.h"
#include "records/KrObjectModCData.h"
#include "records/KrObjectTextExtension.h"

namespace {

template <class T>
constexpr ModuleClass moduleClass() {
  return {static_cast<void (*)()>(&T::rxInit), &T::desc};
}

// One class a line, since the order is what counts.
// clang-format off
constexpr ModuleClass kClasses[] = {
    moduleClass<KrObject>(),
    moduleClass<KrCantLaminada>(),
    moduleClass<KrILaminadoUSA>(),
    moduleClass<KrCantULaminada>(),
    moduleClass<KrCantTEELaminada>(),
    moduleClass<KrBNLaminado>(),
    moduleClass<KrBNDuplaLaminada>(),
    moduleClass<KrCantoneiraDobrada>(),
    moduleClass<KrUDobrado>(),
    moduleClass<KrCantTDobrada>(),
    moduleClass<KrCantUDobrada>(),
    moduleClass<KrCaixaDobrado>(),
    moduleClass<KrIDobrado>(),
    moduleClass<KrXDobrado>(),
    moduleClass<KrCartola>(),
    moduleClass<KrISoldado>(),
    moduleClass<KrChapa>(),
    moduleClass<KrTubo>(),
    moduleClass<KrULaminado>(),
    moduleClass<KrZDobrado>(),
    moduleClass<Kr2ULaminado>(),
    moduleClass<KrCantCruzLaminada>(),
    moduleClass<KrCantLaminadaCaixa>(),
    moduleClass<KrCantZLaminada>(),
    moduleClass<KrUULaminado>(),
    moduleClass<KrBarraRedonda>(),
    moduleClass<KrBox>(),
    moduleClass<KrUser>(),
    moduleClass<KrObjectModCData>(),
    moduleClass<KrObjectExtension>(),
    moduleClass<KrObjectTextExtension>(),
};
// clang-format on

}  // namespace

std::span<const ModuleClass> moduleClasses() {
  return kClasses;
}
