#pragma once

#include <cmath>
#include <memory>
#include <random>
#include <vector>

#include "host/db/db.h"

/// A drawing of plain entities, as large as those of a plant are.
namespace bench {

inline constexpr int kPlainEntities = 200000;
inline constexpr const char* kPlainText = "Peca 12x34 L=5600";
inline constexpr double kPlainTextHeight = 2.5;

/// One entity: of every twenty 12 lines, 3 arcs, 2 circles, 2 polylines of 5 points, 1 text.
struct PlainEntity {
  enum Kind { kLine, kArc, kCircle, kPolyline, kText } kind = kLine;
  AcGePoint2d points[5];
  double radius = 0;
  double startAngle = 0;
  double endAngle = 0;
  int color = 7;
};

/// The same ones each time. Coordinates have three decimals, as those of drawings do.
inline std::vector<PlainEntity> plainEntities(int count = kPlainEntities) {
  constexpr PlainEntity::Kind kKinds[20] = {
      PlainEntity::kLine,   PlainEntity::kLine,   PlainEntity::kLine,     PlainEntity::kLine,     PlainEntity::kLine,
      PlainEntity::kLine,   PlainEntity::kLine,   PlainEntity::kLine,     PlainEntity::kLine,     PlainEntity::kLine,
      PlainEntity::kLine,   PlainEntity::kLine,   PlainEntity::kArc,      PlainEntity::kArc,      PlainEntity::kArc,
      PlainEntity::kCircle, PlainEntity::kCircle, PlainEntity::kPolyline, PlainEntity::kPolyline, PlainEntity::kText};
  std::mt19937_64 random(1);
  const auto between = [&](double low, double high) {
    return low + (high - low) * std::ldexp(static_cast<double>(random() >> 11), -53);
  };
  const auto coordinate = [&] { return std::round(between(0, 100000) * 1000) / 1000; };
  std::vector<PlainEntity> all(static_cast<std::size_t>(count));
  for (std::size_t i = 0; i < all.size(); ++i) {
    PlainEntity& entity = all[i];
    entity.kind = kKinds[i % 20];
    for (AcGePoint2d& point : entity.points) point.set(coordinate(), coordinate());
    entity.radius = std::round(between(1, 500) * 1000) / 1000;
    entity.startAngle = between(0, 6.28);
    entity.endAngle = between(0, 6.28);
    entity.color = 1 + static_cast<int>(random() % 7);
  }
  return all;
}

inline AcDbEntity* makePlain(const PlainEntity& entity) {
  const auto at = [&](int i) { return AcGePoint3d(entity.points[i].x, entity.points[i].y, 0); };
  switch (entity.kind) {
    case PlainEntity::kArc:
      return new AcDbArc(at(0), entity.radius, entity.startAngle, entity.endAngle);
    case PlainEntity::kCircle:
      return new AcDbCircle(at(0), AcGeVector3d::kZAxis, entity.radius);
    case PlainEntity::kText:
      return new AcDbText(at(0), L"Peca 12x34 L=5600", AcDbObjectId::kNull, kPlainTextHeight, 0);
    case PlainEntity::kPolyline: {
      auto* const polyline = new AcDbPolyline;
      for (unsigned i = 0; i < 5; ++i) polyline->addVertexAt(i, entity.points[i]);
      return polyline;
    }
    default:
      return new AcDbLine(at(0), at(1));
  }
}

inline std::unique_ptr<AcDbDatabase> plainDrawing(int count = kPlainEntities) {
  auto database = std::make_unique<AcDbDatabase>(true, true);
  const AcDbObjectPointer<AcDbBlockTableRecord> space(database->modelSpaceId(), AcDb::kForWrite);
  for (const PlainEntity& each : plainEntities(count)) {
    AcDbEntity* const entity = makePlain(each);
    entity->setColorIndex(static_cast<Adesk::UInt16>(each.color));
    if (space->appendAcDbEntity(entity) != Acad::eOk) std::abort();
    entity->close();
  }
  return database;
}

}  // namespace bench
