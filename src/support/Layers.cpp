// The module's layer list, and the making of layers on first use.

#include "support/Layers.h"

#include <cwchar>
#include <memory>
#include <string>

#include "host/ed/ed.h"
#include "host/os/os.h"
#include "support/InstallFolder.h"

namespace {

constexpr const wchar_t* kDefaultLayer = L"0";
constexpr const wchar_t* kFolder = L"\\Prototipo\\";

// What a layer that is in no list is made with.
constexpr int kUnlistedColour = 255;
constexpr const wchar_t* kUnlistedLinetype = L"continuous";

// A name in a drawing has at most 255 characters.
constexpr std::size_t kNameRoom = 256;
wchar_t nameBuffer[kNameRoom];

ListaLayers* list = nullptr;
unsigned listChanges = 0;

const wchar_t* inBuffer(const wchar_t* name) {
  std::wcsncpy(nameBuffer, name, kNameRoom - 1);
  return nameBuffer;
}

std::wstring prototypePath(const wchar_t* file) {
  const wchar_t* folder = installFolder();
  return os::formatted(L"%s%s%s", folder != nullptr ? folder : L"", kFolder, file);
}

AcDbDatabase* workingDatabase() {
  return acdbHostApplicationServices()->workingDatabase();
}

enum class Presence { unknown, absent, present };

Presence presenceOf(AcDbDatabase* database, const wchar_t* name) {
  AcDbLayerTable* table = nullptr;
  if (database->getLayerTable(table, AcDb::kForRead) != Acad::eOk) return Presence::unknown;
  const bool isThere = table->has(name);
  table->close();
  return isThere ? Presence::present : Presence::absent;
}

bool hasName(const AcDbLayerTableRecord& layer, const wchar_t* name) {
  const ACHAR* own = nullptr;
  return layer.getName(own) == Acad::eOk && _wcsicmp(own, name) == 0;
}

// Brings back an erased layer of that name, with the properties it had.
bool unerase(AcDbDatabase* database, const wchar_t* name) {
  AcDbLayerTable* table = nullptr;
  if (database->getLayerTable(table, AcDb::kForRead) != Acad::eOk) return false;
  AcDbLayerTableIterator* made = nullptr;
  table->newIterator(made, true, false);
  table->close();
  const std::unique_ptr<AcDbLayerTableIterator> walk(made);
  for (; walk != nullptr && !walk->done(); walk->step(true, false)) {
    AcDbLayerTableRecord* layer = nullptr;
    if (walk->getRecord(layer, AcDb::kForRead, true) != Acad::eOk) continue;
    const bool isSought = layer->isErased() && hasName(*layer, name);
    const bool isBack = isSought && layer->upgradeOpen() == Acad::eOk && layer->erase(false) == Acad::eOk;
    layer->close();
    if (isBack) return true;
  }
  return false;
}

void makeListed(AcDbDatabase* database, int i) {
  const wchar_t* name = list->layerUsuario(i);
  if (presenceOf(database, name) != Presence::absent || unerase(database, name)) return;
  krCriaLayer(name, list->cor(i), list->tipoLinha(i), list->desligado(i), list->congelado(i), list->vpdflt(i),
              list->bloqueado(i));
}

Acad::ErrorStatus findLinetype(const wchar_t* name, AcDbObjectId& id) {
  AcDbDatabase* database = workingDatabase();
  if (database == nullptr) return Acad::eNoDatabase;
  AcDbLinetypeTable* table = nullptr;
  const Acad::ErrorStatus opened = database->getLinetypeTable(table, AcDb::kForRead);
  if (opened != Acad::eOk) return opened;
  const Acad::ErrorStatus found = table->getAt(name, id);
  table->close();
  return found;
}

}  // namespace

void UsrLayerInit() {
  ++listChanges;
  list = nullptr;
}

int UsrLayerMain() {
  if (list == nullptr) {
    ++listChanges;
    const std::wstring system = prototypePath(L"LayersKR.cfg");
    const std::wstring user = prototypePath(L"LayersUSR.cfg");
    list = new ListaLayers(system.c_str(), user.c_str(), user.c_str());
  }
  return list->estado();
}

void UsrLayerExit() {
  ++listChanges;
  delete list;
  list = nullptr;
}

const ListaLayers* UsrLayerList() {
  return list;
}

unsigned UsrLayerChanges() {
  return listChanges;
}

const wchar_t* KrLayerToUsr(const wchar_t* nome) {
  if (list == nullptr || list->estado() != RTNORM) return nome;
  const int i = list->find(nome);
  AcDbDatabase* database = workingDatabase();
  if (database == nullptr) return inBuffer(kDefaultLayer);
  if (i >= 0) {
    makeListed(database, i);
    return inBuffer(list->layerUsuario(i));
  }
  if (presenceOf(database, nome) == Presence::absent) krCriaLayer(nome, kUnlistedColour, kUnlistedLinetype, 0, 0, 0, 0);
  return inBuffer(nome);
}

const wchar_t* KrLoadKrLayer(const wchar_t* nome) {
  return KrLayerToUsr(nome);
}

int KrUsrLayer(const wchar_t* nome, wchar_t* saida) {
  const wchar_t* name = KrLayerToUsr(nome);
  if (name == nullptr) return 0;
  std::wcscpy(saida, name);
  return 1;
}

int krCriaLayer(const wchar_t* nome, int cor, const wchar_t* tipoLinha, int desligado, int congelado, int vpdflt,
                int bloqueado) {
  AcDbDatabase* database = workingDatabase();
  if (database == nullptr) return RTERROR;
  switch (presenceOf(database, nome)) {
    case Presence::unknown:
      return RTERROR;
    case Presence::present:
      return RTNORM;
    case Presence::absent:
      break;
  }
  // Before the layer table is open: loading a linetype may want the database for itself.
  AcDbObjectId linetype;
  const bool hasLinetype = krLinetypeIdFromString(tipoLinha, linetype) == Acad::eOk;

  AcDbLayerTable* table = nullptr;
  if (database->getLayerTable(table, AcDb::kForWrite) != Acad::eOk) return RTERROR;
  auto* layer = new AcDbLayerTableRecord;
  AcCmColor colour;
  colour.setColorIndex(static_cast<Adesk::UInt16>(cor));
  layer->setName(nome);
  layer->setColor(colour);
  layer->setIsOff(desligado != 0);
  layer->setIsFrozen(congelado != 0);
  layer->setIsLocked(bloqueado != 0);
  layer->setVPDFLT(vpdflt != 0);
  if (hasLinetype) layer->setLinetypeObjectId(linetype);
  if (table->add(layer) == Acad::eOk) {
    layer->close();
  } else {
    delete layer;
  }
  table->close();
  return RTNORM;
}

Acad::ErrorStatus krLinetypeIdFromString(const wchar_t* nome, AcDbObjectId& id) {
  const Acad::ErrorStatus found = findLinetype(nome, id);
  if (found != Acad::eKeyNotFound) return found;
  const std::wstring path = prototypePath(L"KR_Linhas.lin");
  const Acad::ErrorStatus loaded = acdbLoadLineTypeFile(nome, path.c_str(), nullptr);
  return loaded == Acad::eOk ? findLinetype(nome, id) : loaded;
}
