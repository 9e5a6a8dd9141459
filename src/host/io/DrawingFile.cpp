#include "host/io/DrawingFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unordered_set>

#include "host/db/db.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dxf/Dxf.h"

namespace krio {

namespace {

constexpr std::size_t kChunk = std::size_t(1) << 16;
constexpr std::string_view kDwgMark = "AC10";
constexpr std::size_t kVersionLength = 6;  // "AC1015"

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

bool readWhole(const std::string& path, std::vector<std::byte>& bytes, Report& report) {
  const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
  std::size_t size = 0;
  while (file != nullptr) {
    bytes.resize(size + kChunk);
    const std::size_t got = std::fread(bytes.data() + size, 1, kChunk, file.get());
    size += got;
    if (got < kChunk) break;
  }
  bytes.resize(size);
  if (file != nullptr && std::ferror(file.get()) == 0) return true;
  report.error(fmt::format("can't read {}: {}", path, std::strerror(errno)));
  return false;
}

std::string_view textOf(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The value of the group behind $ACADVER, without its line end.
std::string versionOfDxf(std::string_view text) {
  constexpr std::size_t kHead = 4096;  // the variable stands first in the header
  const std::string_view head = text.substr(0, kHead);
  std::size_t at = head.find("$ACADVER");
  for (int line = 0; line < 2 && at != std::string_view::npos; ++line) at = head.find('\n', at + 1);
  if (at == std::string_view::npos) return {};
  const std::string_view value = head.substr(at + 1, head.find_first_of("\r\n", at + 1) - at - 1);
  return std::string(value.substr(std::min(value.find_first_not_of(' '), value.size())));
}

// A module may make what its objects need, such as layers, when the first of them is filed. That must have happened
// before a writer walks the drawing, or the file would lack it.
void fileOneOfEachClass(const AcDbDatabase& db) {
  std::unordered_set<const AcRxClass*> filed;
  const auto& stubs = db.handleTable().stubs();
  for (std::size_t i = 0; i < stubs.size(); ++i) {
    const AcDbStub& stub = stubs[i];
    if (stub.object == nullptr || stub.has(AcDbStub::kErased) || !filed.insert(stub.object->isA()).second) continue;
    const AcDbObjectPointer<AcDbObject> object(stub.object->objectId(), AcDb::kForRead);
    AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
    if (object.openStatus() == Acad::eOk) object->dwgOutFields(&filer);
  }
}

Acad::ErrorStatus prove(const AcDbDatabase& db, std::span<const std::byte> bytes, Report& report) {
  AcDbDatabase proof(false);
  Report found;
  if (const Acad::ErrorStatus es = readDrawing(bytes, proof, found); es != Acad::eOk) {
    const std::string why = found.findings.empty() ? std::string() : ": " + found.findings.back().what;
    report.error("what was written can't be read back" + why);
    return es;
  }
  return holdsEntitiesOf(db, proof, report) ? Acad::eOk : Acad::eDwgObjectImproperlyRead;
}

}  // namespace

std::string_view nameOf(DrawingFormat format) {
  return format == DrawingFormat::Dwg ? "DWG" : "DXF";
}

std::optional<DrawingFormat> formatByEnding(std::string_view path) {
  if (path.size() < 4) return std::nullopt;
  std::string ending(path.substr(path.size() - 4));
  std::transform(ending.begin(), ending.end(), ending.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  if (ending == ".dwg") return DrawingFormat::Dwg;
  if (ending == ".dxf") return DrawingFormat::Dxf;
  return std::nullopt;
}

std::optional<DrawingFormat> formatByContents(std::span<const std::byte> bytes) {
  if (textOf(bytes).starts_with(kDwgMark)) return DrawingFormat::Dwg;
  if (isDxf(bytes)) return DrawingFormat::Dxf;
  return std::nullopt;
}

bool isReadable(std::span<const std::byte> bytes) {
  return isDwg(bytes) || isDxf(bytes);
}

std::string versionOf(std::span<const std::byte> bytes) {
  const std::string_view text = textOf(bytes);
  if (isDxf(bytes)) return versionOfDxf(text);
  return text.starts_with(kDwgMark) && text.size() >= kVersionLength ? std::string(text.substr(0, kVersionLength)) : "";
}

Acad::ErrorStatus readDrawing(std::span<const std::byte> bytes, AcDbDatabase& db, Report& report,
                              const ReadOptions& options) {
  if (isDwg(bytes)) return readDwg(bytes, db, report, options);
  if (isDxf(bytes)) return readDxf(bytes, db, report, options);
  const std::string version = versionOf(bytes);
  report.error(bytes.empty()     ? "the file is empty"
               : version.empty() ? "this is neither a DWG nor a DXF"
                                 : "this is a DWG of version " + version + ": only AC1015 is read");
  return Acad::eUnknownDwgVersion;
}

bool holdsEntitiesOf(const AcDbDatabase& db, const AcDbDatabase& other, Report& report) {
  for (const AcDbStub& stub : db.handleTable().stubs()) {
    if (stub.object == nullptr || stub.has(AcDbStub::kErased) || stub.owner == nullptr) continue;
    const bool inBlock = stub.owner->object != nullptr && !stub.owner->has(AcDbStub::kErased) &&
                         stub.owner->object->isKindOf(AcDbBlockTableRecord::desc());
    if (!inBlock || !stub.object->isKindOf(AcDbEntity::desc())) continue;
    const AcDbStub* const found = other.handleTable().find(stub.handle);
    if (found != nullptr && found->object != nullptr) continue;
    report.error("what was written doesn't hold this entity", stub.handle);
    return false;
  }
  return true;
}

Acad::ErrorStatus readDrawingFile(const std::string& path, AcDbDatabase& db, Report& report,
                                  const ReadOptions& options) {
  std::vector<std::byte> bytes;
  if (!readWhole(path, bytes, report)) return Acad::eFileNotFound;
  return readDrawing(bytes, db, report, options);
}

Acad::ErrorStatus writeDrawing(AcDbDatabase& db, DrawingFormat format, std::vector<std::byte>& out, Report& report) {
  out.clear();
  fileOneOfEachClass(db);
  Acad::ErrorStatus es = format == DrawingFormat::Dwg ? writeDwg(db, out, report) : writeDxf(db, out, report);
  if (es == Acad::eOk) es = prove(db, out, report);
  if (es != Acad::eOk) out.clear();
  return es;
}

SaveResult saveDrawingFile(AcDbDatabase& db, const std::string& path, Report& report, const os::ReplaceOptions& options,
                           os::FileSystem& files) {
  const std::optional<DrawingFormat> format = formatByEnding(path);
  if (!format) return {Acad::eInvalidInput, {}, path + " ends in neither .dwg nor .dxf"};
  std::vector<std::byte> bytes;
  if (const Acad::ErrorStatus es = writeDrawing(db, *format, bytes, report); es != Acad::eOk) {
    const std::string why = report.findings.empty() ? std::string("no reason given") : report.findings.back().what;
    return {es, {}, fmt::format("cannot save {}: {}", path, why)};
  }
  const os::ReplaceResult replaced = os::replaceFile(path, textOf(bytes), options, files);
  if (replaced) return {};
  return {Acad::eFileAccessErr, replaced.kind, replaced.message};
}

}  // namespace krio
