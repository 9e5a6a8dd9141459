#include "host/db/AcDbAuditInfo.h"

#include "host/db/AcDbObject.h"

void AcDbAuditInfo::printError(const ACHAR* name, const ACHAR* value, const ACHAR* validation,
                               const ACHAR* defaultValue) {
  const auto text = [](const ACHAR* given) { return std::wstring(given != nullptr ? given : L""); };
  entries_.push_back({text(name), text(value), text(validation), text(defaultValue)});
}

void AcDbAuditInfo::printError(const AcDbObject* object, const ACHAR* value, const ACHAR* validation,
                               const ACHAR* defaultValue) {
  std::wstring name;
  if (object != nullptr) {
    const AcRxClass* const own = object->isA();
    ACHAR handle[AcDbHandle::kStrSize];
    object->objectId().handle().getIntoAsciiBuffer(handle);
    name = own != nullptr ? own->name() : L"AcDbObject";
    name.append(L"(").append(handle).append(L")");
  }
  printError(name.c_str(), value, validation, defaultValue);
}
