#include "frame/Commands.h"

#include "frame/About.h"
#include "host/db/db.h"
#include "host/ed/ed.h"

namespace {

constexpr const wchar_t* kGroup = L"KR_OBJECT_CMD";

// The longest handle that is asked for.
constexpr int kHandleTextLength = 512;
// Room for a handle's sixteen digits.
constexpr int kHandleRoom = 32;

void aboutCommand() {
  const About& data = about();
  acutPrintf(L"\nKR_Trama %s", data.productVersion);
  acutPrintf(L"\nVersão do KrObject: 0x%08x", data.objectVersion);
  acutPrintf(L"\nInformações de Compilação:");
  acutPrintf(L"\nData: %s", data.buildDate);
  acutPrintf(L"\nHora: %s", data.buildTime);
  acutPrintf(L"\n");
}

Acad::ErrorStatus idFromHandleText(const wchar_t* text, AcDbObjectId& id) {
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr) return Acad::eNoDatabase;
  return database->getAcDbObjectId(id, false, AcDbHandle(text));
}

void printOwner(const AcDbObject& object) {
  AcDbObject* owner = nullptr;
  if (acdbOpenAcDbObject(owner, object.ownerId(), AcDb::kForRead) != Acad::eOk) {
    acutPrintf(L"\nNão foi possível abrir Owner do Objeto escolhido");
    return;
  }
  AcDbHandle handle;
  owner->getAcDbHandle(handle);
  owner->close();
  ACHAR text[kHandleRoom];
  handle.getIntoAsciiBuffer(text);
  acutPrintf(L"\nOwner: %s", text);
}

void listByHandleCommand() {
  wchar_t text[kHandleTextLength + 1];
  if (acedGetString(0, L"\nDigite o Handle do objeto:", text, std::size(text)) != RTNORM) return;
  AcDbObjectId id;
  if (idFromHandleText(text, id) != Acad::eOk) return;
  AcDbObject* object = nullptr;
  if (acdbOpenAcDbObject(object, id, AcDb::kForWrite) != Acad::eOk) {
    acutPrintf(L"\nNão foi possível abrir o objeto escolhido.");
    return;
  }
  printOwner(*object);
  if (const AcDbEntity* entity = AcDbEntity::cast(object)) {
    acutPrintf(L"\n");
    entity->list();
  } else {
    // The format ends inside its last conversion, so that no id is printed.
    acutPrintf(L"\n%s, id: 0x%08", object->isA()->name());
  }
  object->close();
}

}  // namespace

void registerCommands(AcEdCommandStack& stack) {
  stack.addCommand(kGroup, L"SOBREKR_TRAMA", L"SOBREKR_TRAMA", ACRX_CMD_MODAL, aboutCommand);
  stack.addCommand(kGroup, L"KRLISTBYHANDLE", L"KRLBH", ACRX_CMD_MODAL, listByHandleCommand);
}

void removeCommands(AcEdCommandStack& stack) {
  stack.removeGroup(kGroup);
}
