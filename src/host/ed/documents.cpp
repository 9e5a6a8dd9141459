#include <algorithm>

#include "host/db/db.h"
#include "host/ed/AcApDocManager.h"
#include "host/ed/AcEditor.h"
#include "host/ed/ModuleLoader.h"
#include "host/ed/sysvars.h"

AcApDocument::AcApDocument(AcDbDatabase* database, std::wstring fileName)
    : m_database(database), m_fileName(std::move(fileName)) {}

AcApDocument::~AcApDocument() = default;

const ACHAR* AcApDocument::docTitle() const {
  const std::size_t separator = m_fileName.find_last_of(L"/\\");
  return m_fileName.c_str() + (separator == std::wstring::npos ? 0 : separator + 1);
}

AcAp::DocLockMode AcApDocument::myLockMode() const {
  if (m_locks.empty()) return AcAp::kNotLocked;
  return *std::max_element(m_locks.begin(), m_locks.end());
}

bool AcApDocument::isQuiescent() const {
  return m_locks.empty() && edhost::varInt(L"CMDACTIVE") == 0;
}

void AcApDocumentIterator::settle() {
  while (!done() && !acDocManagerPtr()->has(m_documents[m_place])) ++m_place;
}

AcApDocManager::~AcApDocManager() = default;

bool AcApDocManager::has(const AcApDocument* document) const {
  return std::any_of(m_documents.begin(), m_documents.end(), [=](const auto& d) { return d.get() == document; });
}

AcApDocument* AcApDocManager::document(const AcDbDatabase* database) const {
  for (const auto& document : m_documents) {
    if (document->database() == database) return document.get();
  }
  return nullptr;
}

AcApDocumentIterator* AcApDocManager::newAcApDocumentIterator() const {
  if (m_iteratorRefused) return nullptr;
  std::vector<AcApDocument*> all;
  for (const auto& document : m_documents) all.push_back(document.get());
  return new AcApDocumentIterator(std::move(all));
}

Acad::ErrorStatus AcApDocManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode, const ACHAR*,
                                               const ACHAR*, bool) {
  if (!has(document)) return Acad::eNoDocument;
  if (mode == AcAp::kNone || mode == AcAp::kNotLocked) return Acad::eInvalidInput;
  document->m_locks.push_back(mode);
  return Acad::eOk;
}

Acad::ErrorStatus AcApDocManager::unlockDocument(AcApDocument* document) {
  if (!has(document)) return Acad::eNoDocument;
  if (document->m_locks.empty()) return Acad::eInvalidInput;
  document->m_locks.pop_back();
  return Acad::eOk;
}

void AcApDocManager::makeCurrent(AcApDocument* document) {
  m_current = document;
  acdbHostApplicationServices()->setWorkingDatabase(document != nullptr ? document->database() : nullptr);
  edhost::setVarInternally(L"DWGNAME", document != nullptr ? document->docTitle() : L"");
}

Acad::ErrorStatus AcApDocManager::setCurDocument(AcApDocument* document, AcAp::DocLockMode mode, bool) {
  if (!has(document)) return Acad::eNoDocument;
  if (mode != AcAp::kNone) {
    const Acad::ErrorStatus status = lockDocument(document, mode);
    if (status != Acad::eOk) return status;
  }
  makeCurrent(document);
  return Acad::eOk;
}

AcApDocument* AcApDocManager::newDocument() {
  return openDocument(std::make_unique<AcDbDatabase>());
}

AcApDocument* AcApDocManager::openDocument(std::unique_ptr<AcDbDatabase> database, const ACHAR* fileName) {
  if (database == nullptr) return nullptr;
  std::wstring name = fileName != nullptr ? fileName : L"Drawing" + std::to_wstring(++m_opened) + L".dwg";
  m_documents.push_back(std::unique_ptr<AcApDocument>(new AcApDocument(database.release(), std::move(name))));
  AcApDocument* const document = m_documents.back().get();
  // What a command does from here on can be undone.
  document->database()->startUndoRecord();
  makeCurrent(document);
  edhost::tellModules(AcRx::kLoadDwgMsg);
  return document;
}

Acad::ErrorStatus AcApDocManager::closeDocument(AcApDocument* document) {
  const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                  [=](const auto& candidate) { return candidate.get() == document; });
  if (place == m_documents.end()) return Acad::eNoDocument;
  if (!document->m_locks.empty()) return Acad::eLockConflict;
  AcApDocument* const former = m_current;
  // Modules look at the working database: it has to be the one that goes.
  makeCurrent(document);
  edhost::tellModules(AcRx::kUnloadDwgMsg);
  acedEditorObject()->tell(&AcEditorReactor::beginClose, document->database());
  const std::unique_ptr<AcApDocument> closing = std::move(*place);
  m_documents.erase(place);
  AcApDocument* const last = m_documents.empty() ? nullptr : m_documents.back().get();
  makeCurrent(former != document ? former : last);
  return Acad::eOk;
}

void AcApDocManager::closeAllDocuments() {
  while (!m_documents.empty()) {
    m_documents.back()->m_locks.clear();
    closeDocument(m_documents.back().get());
  }
}
