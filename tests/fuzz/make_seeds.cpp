// Writes inputs to start fuzzing from into a folder: make_seeds FOLDER gives FOLDER/dwg, FOLDER/dxf, FOLDER/members and
// FOLDER/proxy. Each is small, and made by the writers themselves.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>

#include "../object/EveryClass.h"
#include "Drawings.h"
#include "StreamFiler.h"
#include "host/io/ProxyGraphics.h"
#include "host/io/dwg/Dwg.h"
#include "host/io/dxf/Dxf.h"

namespace {

namespace fs = std::filesystem;

void save(const fs::path& path, std::span<const std::byte> bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
  if (!file) fuzz::fail("can't write " + path.string());
}

void add(AcDbDatabase& database, AcDbEntity* entity) {
  AcDbBlockTableRecord* space = nullptr;
  if (acdbOpenObject(space, database.modelSpaceId(), AcDb::kForWrite) != Acad::eOk) fuzz::fail("no model space");
  space->appendAcDbEntity(entity);
  entity->close();
  space->close();
}

void saveDrawing(const fs::path& folder, const std::string& name, AcDbDatabase& database) {
  std::vector<std::byte> bytes;
  krio::Report report;
  if (krio::writeDwg(database, bytes, report) != Acad::eOk) fuzz::fail(name, report);
  save(folder / "dwg" / (name + ".dwg"), bytes);
  if (krio::writeDxf(database, bytes, report) != Acad::eOk) fuzz::fail(name, report);
  save(folder / "dxf" / (name + ".dxf"), bytes);
}

void plainEntities(AcDbDatabase& database) {
  add(database, new AcDbLine({0, 0, 0}, {100, 50, 0}));
  add(database, new AcDbCircle({10, 10, 0}, AcGeVector3d::kZAxis, 5));
  add(database, new AcDbArc({1, 2, 0}, 3, 0.5, 2));
  add(database, new AcDbPoint({4, 5, 6}));
  add(database, new AcDbText({1, 1, 0}, L"KR", AcDbObjectId::kNull, 2.5, 0));
  auto* const polyline = new AcDbPolyline(3);
  for (unsigned i = 0; i < 3; ++i) polyline->addVertexAt(i, {double(i), double(i * i)}, 0.5);
  add(database, polyline);
  auto* const text = new AcDbMText;
  text->setContents(L"{\\fosifont|b1;one}\\Ptwo");
  add(database, text);
}

void member(const fs::path& folder, std::size_t number, const everyclass::Sample& sample) {
  std::string name;
  for (const wchar_t* c = sample.name; *c != L'\0'; ++c) name.push_back(char(*c));
  const std::unique_ptr<KrObject> bar = sample.make(number % 2 == 0 ? Superior : Esquerda);
  if (number % 3 == 0) everyclass::modify(*bar);
  fuzz::StreamFiler filer;
  filer.writeUInt8(Adesk::UInt8(number));
  bar->dwgOutFields(&filer);
  save(folder / "members" / name, std::as_bytes(std::span(filer.bytes())));
  std::vector<std::byte> picture;
  krio::encodeProxyGraphics(*bar, picture);
  if (number < 6) save(folder / "proxy" / name, picture);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_seeds FOLDER\n");
    return 1;
  }
  const fs::path folder = argv[1];
  fuzz::startModule();
  const auto work = [&](const std::string& name, auto fill) {
    AcDbDatabase database;
    acdbHostApplicationServices()->setWorkingDatabase(&database);
    fill(database);
    saveDrawing(folder, name, database);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  };
  work("empty", [](AcDbDatabase&) {});
  work("plain", plainEntities);
  work("members", [](AcDbDatabase& database) {
    for (const everyclass::Sample& sample : everyclass::samples()) {
      auto bar = sample.make(Superior);
      everyclass::modify(*bar);
      add(database, bar.release());
      if (std::wstring_view(sample.name) == L"KrISoldado") break;
    }
  });
  AcDbDatabase database;
  acdbHostApplicationServices()->setWorkingDatabase(&database);
  const auto samples = everyclass::samples();
  for (std::size_t i = 0; i < samples.size(); ++i) member(folder, i, samples[i]);
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  return 0;
}
