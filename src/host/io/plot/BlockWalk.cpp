#include "host/io/plot/BlockWalk.h"

#include "host/db/db.h"
#include "host/io/ProxyGraphics.h"

namespace plot {
namespace {

void drawEntity(gi::WorldDrawBase& draw, AcDbEntity& entity, DrawingStyles& styles) {
  if (entity.visibility() == AcDb::kInvisible || styles.layer(entity.layerId()).frozen) return;
  draw.drawWhole(entity);
}

}  // namespace

BlockWalk drawBlock(gi::WorldDrawBase& draw, AcDbObjectId block, DrawingStyles& styles) {
  BlockWalk walk;
  AcDbBlockTableRecord* record = nullptr;
  walk.status = acdbOpenObject(record, block, AcDb::kForRead);
  if (walk.status != Acad::eOk) return walk;
  draw.setDatabase(block.database());
  for (AcDbStub* stub : record->entities()) {
    const AcDbObjectId id(stub);
    if (id.isErased()) continue;
    AcDbEntity* entity = nullptr;
    if (acdbOpenObject(entity, id, AcDb::kForRead) != Acad::eOk) {
      ++walk.unreadable;
      continue;
    }
    drawEntity(draw, *entity, styles);
    entity->close();
  }
  record->close();
  return walk;
}

void drawFilePicture(gi::WorldDrawBase& draw, AcGiDrawable& drawable) {
  const auto* const entity = AcDbEntity::cast(&drawable);
  if (entity == nullptr || entity->fileGraphics().empty() || AcDbProxyEntity::cast(entity) != nullptr) return;
  krio::drawProxyGraphics(entity->fileGraphics(), &draw);
}

}  // namespace plot
