#include "Painter.h"

#include <array>
#include <memory>

#include "Drawing.h"
#include "host/db/db.h"
#include "host/os/os.h"
#include "support/Layers.h"

namespace kr {
namespace {

struct PenRow {
  Pen pen;
  const char* layer;
  double weight;  // mm
};

constexpr std::array kPens = {
    PenRow{Pen::kFrame, "KR-FRAME", 0.7}, PenRow{Pen::kBox, "KR-BOX", 0.35},       PenRow{Pen::kThin, "KR-THIN", 0.18},
    PenRow{Pen::kText, "KR-TEXT", 0.25},  PenRow{Pen::kDimension, "KR-DIM", 0.18}, PenRow{Pen::kMark, "KR-MARK", 0.25},
};

AcGePoint3d point(JobPoint at) {
  return {at.x, at.y, 0};
}

AcDbObjectId layerOf(AcDbDatabase& database, const wchar_t* name) {
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
  if (table.openStatus() == Acad::eOk) table->getAt(name, id);
  return id;
}

}  // namespace

AcDbObjectId makeBlock(AcDbDatabase& database, const std::wstring& name) {
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId(), AcDb::kForWrite);
  auto record = std::make_unique<AcDbBlockTableRecord>();
  record->setName(name.c_str());
  if (blocks.openStatus() == Acad::eOk && blocks->add(id, record.get()) == Acad::eOk) record.release()->close();
  return id;
}

Painter::Painter(AcDbDatabase& database, const std::wstring& block) : database_(database) {
  for (const PenRow& row : kPens) {
    JobLayer layer;
    layer.lineweight = row.weight;
    ok_ = makeLayer(database, row.layer, layer, {}) && ok_;
    layers_.push_back(layerOf(database, os::toWide(row.layer).c_str()));
    ok_ = !layers_.back().isNull() && ok_;
  }
  layers_.push_back(layerOf(database, KrLayerToUsr(L"EIXO")));
  const AcDbObjectPointer<AcDbBlockTable> blocks(database.blockTableId(), AcDb::kForWrite);
  auto record = std::make_unique<AcDbBlockTableRecord>();
  ok_ = record->setName(block.c_str()) == Acad::eOk && ok_;
  if (!ok_ || blocks->add(block_, record.get()) != Acad::eOk) {
    ok_ = false;
    return;
  }
  record.release()->close();
}

Painter::~Painter() = default;

void Painter::add(AcDbEntity* entity, Pen pen) {
  std::unique_ptr<AcDbEntity> owned(entity);
  const AcDbObjectPointer<AcDbBlockTableRecord> record(block_, AcDb::kForWrite);
  owned->setLayer(layers_[static_cast<std::size_t>(pen)]);
  if (record.openStatus() != Acad::eOk || record->appendAcDbEntity(owned.get()) != Acad::eOk) {
    ok_ = false;
    return;
  }
  owned.release()->close();
}

void Painter::line(JobPoint a, JobPoint b, Pen pen) {
  add(new AcDbLine(point(a), point(b)), pen);
}

void Painter::rectangle(JobPoint low, JobPoint high, Pen pen) {
  polyline({low, {high.x, low.y}, high, {low.x, high.y}}, true, pen);
}

void Painter::polyline(const std::vector<JobPoint>& points, bool closed, Pen pen) {
  auto* line = new AcDbPolyline(static_cast<unsigned>(points.size()));
  for (std::size_t i = 0; i < points.size(); ++i) {
    line->addVertexAt(static_cast<unsigned>(i), AcGePoint2d(points[i].x, points[i].y));
  }
  line->setClosed(closed);
  add(line, pen);
}

void Painter::circle(JobPoint centre, double radius, Pen pen) {
  add(new AcDbCircle(point(centre), AcGeVector3d::kZAxis, radius), pen);
}

void Painter::text(JobPoint at, std::string_view words, double height, Align align, double width, bool middle,
                   double angle, Pen pen) {
  if (words.empty()) return;
  auto* entity = new AcDbText(point(at), os::toWide(words).c_str(), AcDbObjectId::kNull, height, angle);
  const double wide = width > 0 ? widthOf(words, height) : 0;
  if (wide > width) entity->setWidthFactor(width / wide);
  constexpr std::array kModes = {AcDb::kTextLeft, AcDb::kTextCenter, AcDb::kTextRight};
  entity->setHorizontalMode(kModes[static_cast<std::size_t>(align)]);
  if (middle) entity->setVerticalMode(AcDb::kTextVertMid);
  if (middle || align != Align::kLeft) entity->setAlignmentPoint(point(at));
  add(entity, pen);
}

double Painter::widthOf(std::string_view words, double height) const {
  AcDbText measured(AcGePoint3d(0, 0, 0), os::toWide(words).c_str(), database_.textstyle(), height, 0);
  AcDbExtents box;
  if (measured.getGeomExtents(box) != Acad::eOk) return 0;
  return box.maxPoint().x - box.minPoint().x;
}

}  // namespace kr
