#pragma once

#include <functional>
#include <unordered_map>

#include "host/io/dxf/DxfEntityReader.h"

namespace krio::dxf {

/// Reads the section TABLES: symbol tables and their records.
class TableReader {
 public:
  explicit TableReader(FrameReader& frames);

  /// Reads the table whose group 0 was read last, with its records up to ENDTAB.
  void read();
  /// What can only be told once all records are there: linetypes of layers, styles of linetypes and dimensions.
  void finish();

 private:
  void readTableHead(std::string_view kind, std::uint64_t& handle);
  template <class Table>
  void makeTable(AcDbObjectId& root, std::uint64_t handle);
  void makeTableOf(std::string_view kind, std::uint64_t handle);
  void readRecord(std::string_view kind);
  /// Reads the groups of a record: those that all records have, and the others by `take`.
  void readGroups(AcDbSymbolTableRecord& record, const std::function<void(int)>& take);
  /// Puts a record into its table; null when it wasn't.
  template <class Record>
  Record* put(std::unique_ptr<Record> record, AcDbObjectId root) {
    Record* const raw = record.get();
    return putRecord(std::move(record), root) ? raw : nullptr;
  }
  bool putRecord(std::unique_ptr<AcDbSymbolTableRecord> record, AcDbObjectId root);

  void readLayer();
  void readLinetype();
  void readTextStyle();
  void readDimStyle();
  void readRegApp();
  void readBlockRecord();
  void readViewport();
  void readView();
  void readUcs();

  FrameReader& frames_;
  Drawing& drawing_;
  Input& in_;
  std::wstring name_;
  int flags_ = 0;
  std::string_view nameInFile_;
  std::vector<std::function<void()>> later_;
};

}  // namespace krio::dxf
