#include "DrawingSource.h"

#include <cstdio>

#include "Files.h"
#include "LeftOut.h"
#include "Suggest.h"
#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/os/os.h"
#include "object/KrObject.h"

namespace kr {
namespace {

std::span<const std::byte> bytesOf(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

std::string nameOf(const std::string& file) {
  return file == kStandardStream ? "standard input" : file;
}

std::string hexadecimal(std::uint64_t value) {
  char text[17];
  std::snprintf(text, sizeof text, "%llX", static_cast<unsigned long long>(value));
  return text;
}

// Names of a file may be any bytes.
void makeUtf8(krio::Report& findings) {
  for (krio::Finding& finding : findings.findings) {
    if (!os::isUtf8(finding.what)) finding.what = os::toUtf8(os::toWide(finding.what));
  }
}

// The last error of a reading that failed: what stopped it.
std::string reasonOf(const krio::Report& findings, Acad::ErrorStatus status) {
  for (auto finding = findings.findings.rbegin(); finding != findings.findings.rend(); ++finding) {
    if (finding->severity == krio::Severity::Error) return sentenceOf(*finding);
  }
  return os::toUtf8(acadErrorStatusText(status));
}

void tellFindings(const OpenDrawing& open, Report& report) {
  for (const krio::Finding& finding : open.findings.findings) {
    if (finding.severity == krio::Severity::Note) {
      report.note(open.name + ": " + sentenceOf(finding));
    } else {
      report.warning(open.name + ": " + sentenceOf(finding));
    }
  }
}

}  // namespace

bool isDrawing(std::string_view contents) {
  return krio::formatByContents(bytesOf(contents)).has_value();
}

std::string sentenceOf(const krio::Finding& finding) {
  std::string out;
  if (finding.place >= 0) out += "at " + std::to_string(finding.place) + ": ";
  if (finding.handle != 0) out += "object " + hexadecimal(finding.handle) + ": ";
  return out + finding.what;
}

bool openDrawing(const Session& session, const std::string& file, std::string_view contents, Opening opening,
                 OpenDrawing& open, Report& report) {
  const std::span<const std::byte> bytes = bytesOf(contents);
  open.name = nameOf(file);
  open.size = contents.size();
  open.version = krio::versionOf(bytes);
  open.format = krio::formatByContents(bytes).value_or(krio::DrawingFormat::Dwg);
  auto database = std::make_unique<AcDbDatabase>(false);
  Acad::ErrorStatus status = krio::readDrawing(bytes, *database, open.findings);
  if (status != Acad::eOk && opening == Opening::kStrictThenMend) {
    open.findings = {};
    open.recovered = true;
    database = std::make_unique<AcDbDatabase>(false);
    status = krio::readDrawing(bytes, *database, open.findings, {.recover = true});
  }
  makeUtf8(open.findings);
  if (status != Acad::eOk) {
    const bool mendable = opening == Opening::kStrict && krio::isReadable(bytes);
    report.error(Exit::kBadInput, inQuotes(open.name) + " can't be read: " + reasonOf(open.findings, status) +
                                      (mendable ? "; \"kr recover\" reads what is left of it" : ""));
    return false;
  }
  const std::wstring title = os::toWide(open.name);
  acDocManagerPtr()->openDocument(std::move(database), title.c_str());
  if (opening == Opening::kStrict) tellFindings(open, report);
  open.database = session.database();
  return true;
}

std::unique_ptr<Session> openDrawingFile(const std::string& file, const std::string& data, Opening opening,
                                         OpenDrawing& open, Report& report) {
  std::string contents;
  if (!readInput(file, contents, report)) return nullptr;
  std::unique_ptr<Session> session = Session::start(findInstallFolder(data), report);
  if (session == nullptr || !openDrawing(*session, file, contents, opening, open, report)) return nullptr;
  return session;
}

std::vector<AcDbObjectId> membersOf(const AcDbDatabase& database) {
  std::vector<AcDbObjectId> members;
  const AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForRead);
  if (space.openStatus() != Acad::eOk) return members;
  for (AcDbStub* const stub : space->entities()) {
    const bool there = stub->object != nullptr && !stub->has(AcDbStub::kErased);
    if (there && stub->object->isKindOf(KrObject::desc())) members.emplace_back(stub);
  }
  return members;
}

bool drawingBytes(AcDbDatabase& database, krio::DrawingFormat format, std::string& bytes, Report& report) {
  std::vector<std::byte> out;
  krio::Report findings;
  const Acad::ErrorStatus status = krio::writeDrawing(database, format, out, findings);
  makeUtf8(findings);
  if (status != Acad::eOk) {
    report.error(Exit::kJobFailed, "the drawing can't be written as " + std::string(krio::nameOf(format)) + ": " +
                                       reasonOf(findings, status));
    return false;
  }
  for (const krio::Finding& finding : findings.findings) {
    if (finding.severity == krio::Severity::Note) {
      report.note(sentenceOf(finding));
    } else {
      report.warning(sentenceOf(finding));
    }
  }
  tellLosses(database, format, report);
  bytes.assign(reinterpret_cast<const char*>(out.data()), out.size());
  return true;
}

std::optional<krio::DrawingFormat> drawingFormatFor(const std::string& file, const std::string& given) {
  return krio::formatByEnding(given.empty() ? file : "." + given);
}

}  // namespace kr
