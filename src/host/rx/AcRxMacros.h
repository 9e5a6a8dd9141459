#pragma once

#include "host/rx/AcRxAbort.h"
#include "host/rx/AcRxClass.h"

/// What the class macros share: one place for the rules of desc() and rxInit().
namespace acrx {

/// The answer of a class's desc() when nothing is cached: its entry in the class dictionary, kept in `cache`.
AcRxClass* findDescriptor(AcRxClass*& cache, const ACHAR* className);

/// How a class presents itself to the registry.
struct ClassForm {
  const ACHAR* name;
  const ACHAR* parentName;
  int dwgVersion;
  int maintenanceVersion;
  int proxyFlags;
  AcRxPseudoConstructor constructor;
  const ACHAR* dxfName;
  const ACHAR* appName;
};

/// The body of a class's rxInit(): a class that is registered with the descriptor in `cache` is left as it is; another
/// descriptor under its name aborts with "Class mismatch"; otherwise the class is registered.
void initClass(AcRxClass*& cache, const ClassForm& form, AppNameChangeFuncPtr callback);

}  // namespace acrx

#define KR_RX_WIDE_(text) L##text
#define KR_RX_WIDE(text) KR_RX_WIDE_(text)

/// Inside a class: desc(), cast(), isA(), and both forms of rxInit().
#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                         \
  static AcRxClass* desc() {                                                     \
    return rxDescriptor_ != nullptr ? rxDescriptor_ : rxFindDescriptor();        \
  }                                                                              \
  static CLASS_NAME* cast(const AcRxObject* object) {                            \
    return object != nullptr && object->isKindOf(CLASS_NAME::desc())             \
               ? const_cast<CLASS_NAME*>(static_cast<const CLASS_NAME*>(object)) \
               : nullptr;                                                        \
  }                                                                              \
  AcRxClass* isA() const override {                                              \
    return CLASS_NAME::desc();                                                   \
  }                                                                              \
  static void rxInit();                                                          \
  static void rxInit(AppNameChangeFuncPtr callback);                             \
                                                                                 \
 private:                                                                        \
  static AcRxClass* rxFindDescriptor();                                          \
  static inline AcRxClass* rxDescriptor_ = nullptr;                              \
                                                                                 \
 public:                                                                         \
  using ThisRxClass = CLASS_NAME

#define KR_RX_DEFINE(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, CONSTRUCTOR, DXF_NAME, APP) \
  AcRxClass* CLASS_NAME::rxFindDescriptor() {                                                                       \
    return acrx::findDescriptor(rxDescriptor_, KR_RX_WIDE(#CLASS_NAME));                                            \
  }                                                                                                                 \
  void CLASS_NAME::rxInit() {                                                                                       \
    rxInit(nullptr);                                                                                                \
  }                                                                                                                 \
  void CLASS_NAME::rxInit(AppNameChangeFuncPtr callback) {                                                          \
    acrx::initClass(rxDescriptor_,                                                                                  \
                    {KR_RX_WIDE(#CLASS_NAME), KR_RX_WIDE(#PARENT_CLASS), DWG_VERSION, MAINT_VERSION, PROXY_FLAGS,   \
                     CONSTRUCTOR, DXF_NAME, APP},                                                                   \
                    callback);                                                                                      \
  }

/// Registration of a class of which no objects are made by name.
#define ACRX_NO_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS) \
  KR_RX_DEFINE(CLASS_NAME, PARENT_CLASS, 0, 0, 0, nullptr, nullptr, nullptr)

/// Registration of a class whose objects are made by name but not filed.
#define ACRX_CONS_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, VERSION) \
  KR_RX_DEFINE(                                                     \
      CLASS_NAME, PARENT_CLASS, 0, 0, 0, []() -> AcRxObject* { return new CLASS_NAME(); }, nullptr, nullptr)

/// Registration of a class whose objects are filed. DXF_NAME and APP are given bare, without quotes.
#define ACRX_DXF_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, DXF_NAME, APP) \
  KR_RX_DEFINE(                                                                                                   \
      CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS,                                          \
      []() -> AcRxObject* { return new CLASS_NAME(); }, KR_RX_WIDE(#DXF_NAME), KR_RX_WIDE(#APP))

/// As above for an abstract class.
#define ACRX_NO_CONS_DXF_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, DXF_NAME, \
                                        APP)                                                                         \
  KR_RX_DEFINE(CLASS_NAME, PARENT_CLASS, DWG_VERSION, MAINT_VERSION, PROXY_FLAGS, nullptr, KR_RX_WIDE(#DXF_NAME),    \
               KR_RX_WIDE(#APP))
