#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/io/dxf/DxfDrawing.h"
#include "host/io/dxf/DxfSink.h"

namespace krio::dxf {

/// The place of a dimension style's variable by its group code; -1 for another code.
int dimRealIndex(int code);
int dimIntIndex(int code);

/// Reads the section HEADER.
class HeaderReader {
 public:
  explicit HeaderReader(Drawing& drawing) : drawing_(drawing), in_(drawing.in()), header_(drawing.db().header()) {}

  void read();
  /// Looks up what the header names, once all is read, and what is found by the dictionaries' roles.
  void finish();
  void finishStyles();

 private:
  void readVariable(std::string_view name);
  bool readOther(std::string_view name);
  void readCodePage();
  void readTime(AcDbHeader::Index index);
  AcDbStub* named(AcDbHeader::Index index, const std::wstring& name) const;
  AcDbStub* blockNamed(const std::wstring& name) const;

  Drawing& drawing_;
  Input& in_;
  AcDbHeader& header_;
  std::map<AcDbHeader::Index, std::wstring> names_;
  bool hasUniversalTimes_ = false;
};

/// Writes the section HEADER.
void writeHeader(Sink& sink, AcDbDatabase& database);

}  // namespace krio::dxf
