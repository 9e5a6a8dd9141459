#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <memory>
#include <numbers>

#include "peer_files.h"

namespace peer {
namespace {

class Counter : public DL_CreationAdapter {
 public:
  std::size_t count = 0;
  void addLine(const DL_LineData&) override { ++count; }
  void addArc(const DL_ArcData&) override { ++count; }
  void addCircle(const DL_CircleData&) override { ++count; }
  void addPolyline(const DL_PolylineData&) override { ++count; }
  void addText(const DL_TextData&) override { ++count; }
};

constexpr double kDegrees = 180 / std::numbers::pi;

}  // namespace

std::size_t readWithDxflib(const std::string& path) {
  Counter counter;
  DL_Dxf dxf;
  dxf.in(path, &counter);
  return counter.count;
}

void writeWithDxflib(const std::string& path, const Entity* entities, std::size_t count, const char* text,
                     double textHeight) {
  DL_Dxf dxf;
  const std::unique_ptr<DL_WriterA> writer(dxf.out(path.c_str(), DL_Codes::AC1015));
  dxf.writeHeader(*writer);
  writer->sectionEnd();
  writer->sectionTables();
  writer->tableEnd();
  writer->sectionEnd();
  writer->sectionEntities();
  for (std::size_t i = 0; i < count; ++i) {
    const Entity& e = entities[i];
    const DL_Attributes look("0", e.color, -1, "BYLAYER", 1.0);
    const double x = e.points[0][0];
    const double y = e.points[0][1];
    switch (e.kind) {
      case 1:
        dxf.writeArc(*writer, DL_ArcData(x, y, 0, e.radius, e.startAngle * kDegrees, e.endAngle * kDegrees), look);
        break;
      case 2:
        dxf.writeCircle(*writer, DL_CircleData(x, y, 0, e.radius), look);
        break;
      case 3:
        dxf.writePolyline(*writer, DL_PolylineData(5, 0, 0, 0), look);
        for (const auto& point : e.points) dxf.writeVertex(*writer, DL_VertexData(point[0], point[1], 0, 0));
        dxf.writePolylineEnd(*writer);
        break;
      case 4:
        dxf.writeText(*writer, DL_TextData(x, y, 0, x, y, 0, textHeight, 1, 0, 0, 0, text, "Standard", 0), look);
        break;
      default:
        dxf.writeLine(*writer, DL_LineData(x, y, 0, e.points[1][0], e.points[1][1], 0), look);
    }
  }
  writer->sectionEnd();
  writer->dxfEOF();
  writer->close();
}

}  // namespace peer
