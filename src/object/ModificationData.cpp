// What other modules hang on a member: data of single modifiers, and extensions of the whole.

#include <algorithm>
#include <utility>

#include "editing/Links.h"
#include "object/KrObject.h"

const KrObjectRecorteArray* KrObject::shownNotches() const {
  AcGeMatrix2d frame;
  int array = 0;
  int mirrored = 0;
  if (recorteXForm(frame, array, mirrored) != Acad::eOk) return nullptr;
  return &recortes_[static_cast<std::size_t>(array)];
}

KrObjectRecorteArray* KrObject::shownNotches() {
  return const_cast<KrObjectRecorteArray*>(std::as_const(*this).shownNotches());
}

KrObjectModCData* KrObject::accessCDataToMod(ObjMods mod, int indice) const {
  assertReadEnabled();
  switch (mod) {
    case ModFuro:
      return furos_.accessCData(indice);
    case ModCorte:
      return cortes_.accessCData(indice);
    case ModRecorte: {
      const KrObjectRecorteArray* lista = shownNotches();
      if (lista == nullptr || indice < 0 || indice >= lista->length()) return nullptr;
      return (*lista)[indice].accessCData();
    }
    case ModSplit:
      return indice >= 0 && indice < splits_.length() ? splits_[indice].accessCData() : nullptr;
  }
  return nullptr;
}

Acad::ErrorStatus KrObject::assocCDataToMod(ObjMods mod, int indice, KrObjectModCData* dados) {
  assertWriteEnabled();
  switch (mod) {
    case ModFuro:
      return furos_.setCData(indice, dados) != 0 ? Acad::eOk : Acad::eInvalidIndex;
    case ModCorte:
      return cortes_.setCData(indice, dados) != 0 ? Acad::eOk : Acad::eInvalidIndex;
    case ModRecorte: {
      KrObjectRecorteArray* lista = shownNotches();
      if (lista == nullptr || indice < 0 || indice >= lista->length()) return Acad::eInvalidIndex;
      (*lista)[indice].setCData(dados);
      return Acad::eOk;
    }
    case ModSplit:
      if (indice < 0 || indice >= splits_.length()) return Acad::eInvalidIndex;
      splits_[indice].setCData(dados);
      return Acad::eOk;
  }
  return Acad::eOk;
}

void KrObject::purgeModCData(int mods, AcRxClass* classe) {
  assertWriteEnabled();
  if ((mods & ModFuro) != 0) furos_.purgeCData(classe);
  if ((mods & ModCorte) != 0) cortes_.purgeCData(classe);
  if ((mods & ModRecorte) != 0)
    for (KrObjectRecorteArray& lista : recortes_) lista.purgeCData(classe);
  if ((mods & ModSplit) != 0) splits_.purgeCData(classe);
}

void KrObject::addKrObjectExtension(KrObjectExtension* extensao) {
  assertWriteEnabled();
  extensao->setCurExtendedObj(this);
  const auto last = std::find_if(extensions_.rbegin(), extensions_.rend(), [](auto* e) { return e != nullptr; });
  extensao->setExtensionId(last == extensions_.rend() ? 1U : (*last)->extensionId() + 1U);
  extensions_.push_back(extensao);
}

KrObjectExtension* KrObject::accessKrObjectExtension(unsigned id) const {
  if (id == 0) return nullptr;
  for (KrObjectExtension* e : extensions_)
    if (e != nullptr && e->extensionId() == id) return e;
  return nullptr;
}

const KrObjectExtension* KrObject::getKrObjectExtension(unsigned id) const {
  assertReadEnabled();
  return accessKrObjectExtension(id);
}

int KrObject::modifyKrObjectExtension(unsigned id, const KrObjectExtension* extensao) {
  assertWriteEnabled();
  KrObjectExtension* stored = accessKrObjectExtension(id);
  if (stored == nullptr) return 0;
  stored->copyFrom(extensao);
  return 1;
}

KrObjectExtension* KrObject::removeKrObjectExtension(unsigned id) {
  assertWriteEnabled();
  KrObjectExtension* stored = accessKrObjectExtension(id);
  if (stored == nullptr) return nullptr;
  extensions_.erase(std::find(extensions_.begin(), extensions_.end(), stored));
  return stored;
}

void KrObject::deleteExtensions() {
  for (KrObjectExtension* e : extensions_) delete e;
  extensions_.clear();
}

// --- Removing
// ----------------------------------------------------------------------------------------------------------

int KrObject::removeModsHere(int mods, int indice) {
  int removed = 0;
  const auto from = [&](int kind, int count, auto clear, auto removeAt) {
    if ((mods & kind) == 0 || count == 0) return;
    if (indice == -1) {
      clear();
      removed |= kind;
    } else if (indice >= 0 && indice < count) {
      removeAt();
      removed |= kind;
    }
  };
  from(
      ModFuro, furos_.Qtd(), [&] { furos_.Clear(); }, [&] { furos_.removeAt(indice); });
  from(
      ModCorte, cortes_.Qtd(), [&] { cortes_.Clear(); }, [&] { cortes_.removeAt(indice); });
  // A section shows no notches: there is none to pick.
  KrObjectRecorteArray* notches = indice == -1 ? nullptr : shownNotches();
  const int shown = notches != nullptr ? notches->length() : 0;
  from(
      ModRecorte, indice == -1 ? recortes_[0].length() + recortes_[1].length() : shown,
      [&] {
        for (KrObjectRecorteArray& lista : recortes_) lista.Clear();
      },
      [&] { notches->removeAt(indice); });
  from(
      ModSplit, splits_.length(), [&] { splits_.Clear(); }, [&] { splits_.removeAt(indice); });
  return removed;
}

void KrObject::RemoveMods(int mods, int indice, int regenerar) {
  assertWriteEnabled();
  const int removed = removeModsHere(mods, indice);
  if (removed == 0 || !hasValidId() || regenerar == 0) return;
  Gera_KrVector();
  forEachUnlockedLinked([removed](KrObject& linked) {
    linked.removeModsHere(removed, -1);
    linked.Gera_KrVector();
  });
}
