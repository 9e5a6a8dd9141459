#pragma once

#include <memory>
#include <vector>

#include "host/ed/AcApDocument.h"

/// Walks the documents that were open when it was made; one closed on the way is passed over.
class AcApDocumentIterator {
 public:
  explicit AcApDocumentIterator(std::vector<AcApDocument*> documents) : m_documents(std::move(documents)) { settle(); }
  bool done() const { return m_place >= m_documents.size(); }
  void step() { ++m_place, settle(); }
  /// Null when the walk is done.
  AcApDocument* document() const { return done() ? nullptr : m_documents[m_place]; }

 private:
  void settle();

  std::vector<AcApDocument*> m_documents;
  std::size_t m_place = 0;
};

/// The open documents. The current one is where services without a database argument work; its database is the
/// working database of acdbHostApplicationServices.
class AcApDocManager : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocManager);

  ~AcApDocManager() override;

  AcApDocument* curDocument() const { return m_current; }
  AcApDocument* mdiActiveDocument() const { return m_current; }
  /// The document of a database, or null.
  AcApDocument* document(const AcDbDatabase* database) const;
  int documentCount() const { return int(m_documents.size()); }
  bool has(const AcApDocument* document) const;

  /// A new iterator, owned by the caller; null when documents can't be walked (setIteratorRefused).
  AcApDocumentIterator* newAcApDocumentIterator() const;

  /// Locks nest: each needs its unlockDocument. eNoDocument for a document that isn't open; eInvalidInput for kNone
  /// and kNotLocked.
  Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kWrite,
                                 const ACHAR* globalCommand = nullptr, const ACHAR* localCommand = nullptr,
                                 bool prompt = true);
  /// Takes the last lock back. eInvalidInput when there is none.
  Acad::ErrorStatus unlockDocument(AcApDocument* document);

  Acad::ErrorStatus setCurDocument(AcApDocument* document, AcAp::DocLockMode mode = AcAp::kNone, bool activate = false);
  Acad::ErrorStatus activateDocument(AcApDocument* document) { return setCurDocument(document); }

  /// Opens a document on a new empty database, or on one that the document takes over, and makes it current. Modules
  /// that said they know several documents are told with kLoadDwgMsg.
  AcApDocument* newDocument();
  AcApDocument* openDocument(std::unique_ptr<AcDbDatabase> database, const ACHAR* fileName = nullptr);
  /// Tells the modules with kUnloadDwgMsg, then destroys the document with its database. The document opened last
  /// becomes current. eNoDocument for one that isn't open, eLockConflict while it is locked.
  Acad::ErrorStatus closeDocument(AcApDocument* document);
  void closeAllDocuments();

  /// For tests: has newAcApDocumentIterator answer null.
  void setIteratorRefused(bool refused) { m_iteratorRefused = refused; }

 private:
  void makeCurrent(AcApDocument* document);

  std::vector<std::unique_ptr<AcApDocument>> m_documents;
  AcApDocument* m_current = nullptr;
  int m_opened = 0;
  bool m_iteratorRefused = false;
};

AcApDocManager* acDocManagerPtr();
#define acDocManager acDocManagerPtr()
inline AcApDocument* curDoc() {
  return acDocManagerPtr()->curDocument();
}
