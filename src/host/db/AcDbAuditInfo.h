#pragma once

#include <string>
#include <vector>

#include "host/db/AcDbEnums.h"
#include "host/rx/rx.h"

class AcDbObject;
class AcDbDatabase;

/// What an audit is to do, and what it has found.
class AcDbAuditInfo {
 public:
  explicit AcDbAuditInfo(bool fixErrors = false) : fixErrors_(fixErrors) {}
  virtual ~AcDbAuditInfo() = default;

  /// Whether errors are to be mended.
  bool fixErrors() const { return fixErrors_; }
  void setFixErrors(bool fix) { fixErrors_ = fix; }

  int numErrors() const { return numErrors_; }
  int numFixes() const { return numFixes_; }
  void errorsFound(int count) { numErrors_ += count; }
  void errorsFixed(int count) { numFixes_ += count; }

  AcDb::AuditPass auditPass() const { return pass_; }
  void setAuditPass(AcDb::AuditPass pass) { pass_ = pass; }

  /// Reports one error: what it is about, the value found, why it is wrong, and the value put in its place.
  virtual void printError(const ACHAR* name, const ACHAR* value, const ACHAR* validation, const ACHAR* defaultValue);
  /// As above; the name is made of the object's class and handle.
  virtual void printError(const AcDbObject* object, const ACHAR* value, const ACHAR* validation,
                          const ACHAR* defaultValue);

  struct Entry {
    std::wstring name, value, validation, defaultValue;
  };
  /// All that was reported, in order.
  const std::vector<Entry>& entries() const { return entries_; }

 private:
  bool fixErrors_;
  int numErrors_ = 0;
  int numFixes_ = 0;
  AcDb::AuditPass pass_ = AcDb::kAuditPass1;
  std::vector<Entry> entries_;
};
