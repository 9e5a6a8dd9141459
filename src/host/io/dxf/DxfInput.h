#pragma once

#include <string>

#include "host/db/AcDbObjectId.h"
#include "host/ge/ge.h"
#include "host/io/CodePage.h"
#include "host/io/Report.h"
#include "host/io/dxf/DxfAngle.h"
#include "host/io/dxf/DxfNumber.h"
#include "host/io/dxf/DxfScanner.h"
#include "host/rx/ErrorStatus.h"

class AcDbDatabase;

namespace krio::dxf {

/// The groups of a file with their values, and what is wrong with them. The first fault stops a strict reading: from
/// then on there are no more groups. A recovering one reports it and goes on with a plain value.
class Input {
 public:
  Input(std::span<const std::byte> bytes, AcDbDatabase& database, Report& report, const ReadOptions& options)
      : scanner_(bytes), database_(database), report_(report), recover_(options.recover) {}
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  Scanner& scanner() { return scanner_; }
  AcDbDatabase& database() const { return database_; }
  Report& report() const { return report_; }
  const CodePage& page() const { return page_; }
  void setPage(const CodePage& page) { page_ = page; }
  bool recovers() const { return recover_; }

  // --- Groups --------------------------------------------------------------------------------------------------------

  /// False at the end of the file, or when the reading has stopped.
  bool next() {
    if (scanner_.next()) [[likely]]
      return !stopped_;
    return nextBehindFault();
  }
  /// As next(), but false ahead of group 0, which stays to be read.
  bool nextField() {
    if (!next()) return false;
    if (scanner_.code() != 0) [[likely]]
      return true;
    scanner_.pushBack();
    return false;
  }
  int code() const { return scanner_.code(); }
  std::string_view value() const { return scanner_.value(); }
  /// The code of the next group; -1 when there is none.
  int peekCode();
  /// Passes over the rest of an object.
  void skipFields() {
    while (nextField()) {
    }
  }

  // --- Values of the group read last ---------------------------------------------------------------------------------

  double real() {
    double number = 0;
    if (!parseReal(value(), number)) [[unlikely]]
      badValue("no real number");
    return number;
  }
  /// Degrees in the file, radians here.
  double angle() {
    double radians = 0;
    if (!parseDegrees(value(), radians)) badValue("no angle");
    return radians;
  }
  /// A whole number that fits into T, signed or not.
  template <class T = int>
  T whole() {
    T number = 0;
    if (!parseInteger(value(), number)) badValue("no whole number of its range");
    return number;
  }
  bool flag() { return whole() != 0; }
  /// The point that begins here, with the groups of its further coordinates where they follow.
  AcGePoint3d point() {
    const int first = code();
    AcGePoint3d p(real(), 0, 0);
    if (!readNext(first + 10, p.y)) return p;
    readNext(first + 20, p.z);
    return p;
  }
  AcGeVector3d vector() { return point().asVector(); }
  AcGePoint2d point2d() {
    const int first = code();
    AcGePoint2d p(real(), 0);
    readNext(first + 10, p.y);
    return p;
  }
  std::wstring text() {
    std::wstring decoded;
    readText(decoded);
    return decoded;
  }
  void readText(std::wstring& to);
  std::uint64_t handle();
  /// The id of the handle, also when its object comes later; null for 0, and with a warning for a handle that no object
  /// can have.
  AcDbObjectId reference();
  AcDbObjectId reference(std::uint64_t handle);

  // --- Faults --------------------------------------------------------------------------------------------------------

  /// Tells of a fault at the group read last. False when that ends the reading.
  bool fault(std::string what, std::uint64_t handle = 0, Acad::ErrorStatus status = Acad::eInvalidInput);
  /// Ends the reading, also one that recovers.
  void stop(std::string what);
  /// Tells of something that doesn't end any reading.
  void warn(std::string what, std::uint64_t handle = 0, bool fixed = true);
  void note(std::string what, std::uint64_t handle = 0);
  bool stopped() const { return stopped_; }
  Acad::ErrorStatus status() const { return status_; }

 private:
  bool nextBehindFault();
  [[gnu::cold]] void badValue(const char* what);
  /// Reads a further coordinate when it follows.
  bool readNext(int wanted, double& coordinate) {
    if (!next()) return false;
    if (code() != wanted) {
      scanner_.pushBack();
      return false;
    }
    coordinate = real();
    return true;
  }

  /// Findings beyond so many say nothing new; they are counted only.
  static constexpr int kMaxFindings = 10000;
  bool roomForFinding();

  Scanner scanner_;
  AcDbDatabase& database_;
  Report& report_;
  CodePage page_;
  bool recover_;
  bool stopped_ = false;
  int findings_ = 0;
  Acad::ErrorStatus status_ = Acad::eOk;
};

}  // namespace krio::dxf
