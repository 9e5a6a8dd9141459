#pragma once

#include "host/io/dxf/DxfHeader.h"
#include "host/io/dxf/DxfTableReader.h"

namespace krio::dxf {

/// Reads a whole file, section by section.
class Reader {
 public:
  Reader(std::span<const std::byte> bytes, AcDbDatabase& database, Report& report, const ReadOptions& options);

  Acad::ErrorStatus read();

 private:
  void readSections();
  void readSection(std::string_view name);
  /// Calls `each` for every object of a section, its group 0 read; passes over the rest of the section after `ENDSEC`.
  template <class Each>
  void forEachObject(Each each);

  void readClass();
  void readBlock();
  void readBlockHead(AcDbBlockTableRecord*& block);
  void readBlockEnd(AcDbBlockTableRecord* block);
  void readObject();
  void readProxyObject(std::string_view name, const ObjectKind& kind);
  void finish();

  Input in_;
  Drawing drawing_;
  FrameReader frames_;
  EntityReader entities_;
  TableReader tables_;
  HeaderReader header_;
  bool sawEnd_ = false;
};

}  // namespace krio::dxf
