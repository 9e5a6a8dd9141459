#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/rx/rx.h"

class AcDbDatabase;

struct AcAp {
  /// How a document is locked.
  enum DocLockMode {
    kNone = 0x00,
    kAutoWrite = 0x01,
    kNotLocked = 0x02,
    kWrite = 0x04,
    kProtectedAutoWrite = 0x14,
    kRead = 0x20,
    kXWrite = 0x40
  };
};

/// An open drawing. It owns its database, and each database has one document at most.
class AcApDocument : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcApDocument);

  ~AcApDocument() override;
  AcApDocument(const AcApDocument&) = delete;
  AcApDocument& operator=(const AcApDocument&) = delete;

  AcDbDatabase* database() const { return m_database.get(); }
  /// The full path; the title while the drawing has none.
  const ACHAR* fileName() const { return m_fileName.c_str(); }
  const ACHAR* docTitle() const;

  /// The strongest lock in force, kNotLocked without one.
  AcAp::DocLockMode lockMode() const { return myLockMode(); }
  AcAp::DocLockMode myLockMode() const;
  /// No lock is in force, and no command runs.
  bool isQuiescent() const;

 private:
  friend class AcApDocManager;
  AcApDocument(AcDbDatabase* database, std::wstring fileName);

  std::unique_ptr<AcDbDatabase> m_database;
  std::wstring m_fileName;
  std::vector<AcAp::DocLockMode> m_locks;
};
