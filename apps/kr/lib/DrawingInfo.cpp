#include "DrawingInfo.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "LeftOut.h"
#include "Number.h"
#include "host/db/db.h"
#include "host/io/plot/PlotSheet.h"
#include "host/os/os.h"

namespace kr {
namespace {

using nlohmann::ordered_json;

constexpr int kDecimals = 3;

bool isThere(const AcDbStub& stub) {
  return stub.object != nullptr && !stub.has(AcDbStub::kErased);
}

std::string nameOf(const AcDbSymbolTableRecord& record) {
  return os::toUtf8(record.nameText());
}

template <class Record, class Visit>
void eachRecord(AcDbObjectId tableId, Visit visit) {
  const AcDbObjectPointer<AcDbSymbolTable> table(tableId, AcDb::kForRead);
  if (table.openStatus() != Acad::eOk) return;
  for (const AcDbObjectId& id : table->recordIds()) {
    const AcDbObjectPointer<Record> record(id, AcDb::kForRead);
    if (record.openStatus() == Acad::eOk) visit(*record, id);
  }
}

std::string recordName(AcDbObjectId id) {
  const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
  return record.openStatus() == Acad::eOk ? nameOf(*record) : std::string();
}

void countObjects(const AcDbDatabase& database, DrawingInfo& info, std::map<AcDbObjectId, std::size_t>& onLayer) {
  for (const AcDbStub& stub : database.handleTable().stubs()) {
    if (!isThere(stub)) continue;
    ++info.objects;
    info.greatestHandle = std::max(info.greatestHandle, std::uint64_t(stub.handle));
    ClassInfo& counts = info.classes[os::toUtf8(stub.object->isA()->name())];
    const auto* const entity = AcDbEntity::cast(stub.object);
    ++(entity != nullptr ? counts.entities : counts.objects);
    if (entity != nullptr) ++onLayer[entity->layerReference()];
    const bool proxy = stub.object->isKindOf(AcDbProxyEntity::desc()) || stub.object->isKindOf(AcDbProxyObject::desc());
    if (proxy) ++info.proxies[fileClassOf(*stub.object)];
  }
}

std::string flagsOf(const LayerInfo& layer) {
  std::string out;
  if (layer.off) out += ", off";
  if (layer.frozen) out += ", frozen";
  if (layer.locked) out += ", locked";
  return out;
}

std::string pointText(const AcGePoint3d& point) {
  return "(" + fixed(point.x, kDecimals) + ", " + fixed(point.y, kDecimals) + ", " + fixed(point.z, kDecimals) + ")";
}

std::string countLine(const std::string& name, std::size_t count) {
  constexpr std::size_t kNumberWidth = 9;
  const std::string number = std::to_string(count);
  return std::string(number.size() < kNumberWidth ? kNumberWidth - number.size() : 1, ' ') + number + "  " + name +
         "\n";
}

ordered_json pointJson(const AcGePoint3d& point) {
  return {point.x, point.y, point.z};
}

}  // namespace

std::string handleText(std::uint64_t handle) {
  char text[AcDbHandle::kStrSize];
  AcDbHandle(handle).getIntoAsciiBuffer(text);
  return text;
}

DrawingInfo infoOf(const OpenDrawing& open) {
  AcDbDatabase& database = *open.database;
  DrawingInfo info;
  info.format = krio::nameOf(open.format);
  info.version = open.version;
  info.bytes = open.size;
  info.handleSeed = database.handseed().value();
  std::map<AcDbObjectId, std::size_t> onLayer;
  countObjects(database, info, onLayer);
  eachRecord<AcDbLayerTableRecord>(database.layerTableId(), [&](const AcDbLayerTableRecord& record, AcDbObjectId id) {
    info.layers.push_back({nameOf(record), record.color().colorIndex(), recordName(record.linetypeObjectId()),
                           record.isOff(), record.isFrozen(), record.isLocked(), onLayer[id]});
  });
  std::sort(info.layers.begin(), info.layers.end(),
            [](const LayerInfo& a, const LayerInfo& b) { return a.name < b.name; });
  eachRecord<AcDbBlockTableRecord>(database.blockTableId(), [&](const AcDbBlockTableRecord& block, AcDbObjectId id) {
    const std::vector<AcDbStub*>& all = block.entities();
    const auto count =
        std::size_t(std::count_if(all.begin(), all.end(), [](const AcDbStub* s) { return isThere(*s); }));
    info.blocks[nameOf(block)] += count;
    if (id == database.modelSpaceId()) info.entities = count;
  });
  info.members = membersOf(database).size();
  info.extents = plot::drawnExtents(database.modelSpaceId());
  for (const krio::Finding& finding : open.findings.findings) info.findings.push_back(sentenceOf(finding));
  return info;
}

std::string infoText(const DrawingInfo& info) {
  std::string out = info.format + " " + info.version + ", " + std::to_string(info.bytes) + " bytes\n";
  out += "model space: " + std::to_string(info.entities) + " entities, " + std::to_string(info.members) +
         " of them members\n";
  out += info.extents.isEmpty()
             ? "extents: nothing is drawn\n"
             : "extents: " + pointText(info.extents.minPoint()) + " to " + pointText(info.extents.maxPoint()) + "\n";
  out += "objects: " + std::to_string(info.objects) + ", handles to " + handleText(info.greatestHandle) +
         ", the next is " + handleText(info.handleSeed) + "\n";
  out += "\nclasses\n";
  for (const auto& [name, counts] : info.classes) out += countLine(name, counts.entities + counts.objects);
  if (!info.proxies.empty()) out += "\nproxies, by the class that isn't there\n";
  for (const auto& [name, count] : info.proxies) out += countLine(name, count);
  out += "\nlayers, with their entities\n";
  for (const LayerInfo& layer : info.layers) {
    out +=
        countLine(layer.name + "  (color " + std::to_string(layer.color) + ", " + layer.linetype + flagsOf(layer) + ")",
                  layer.entities);
  }
  out += "\nblocks, with their entities\n";
  for (const auto& [name, count] : info.blocks) out += countLine(name, count);
  if (!info.findings.empty()) out += "\nfound while reading\n";
  for (const std::string& finding : info.findings) out += "  " + finding + "\n";
  return out;
}

std::string infoJson(const DrawingInfo& info) {
  ordered_json out{{"format", "kr-info"}, {"version", 1}};
  out["drawing"] = {{"format", info.format}, {"version", info.version}, {"bytes", info.bytes}};
  out["modelSpace"] = {{"entities", info.entities}, {"members", info.members}};
  out["extents"] = nullptr;
  if (!info.extents.isEmpty()) {
    out["extents"] = {{"min", pointJson(info.extents.minPoint())}, {"max", pointJson(info.extents.maxPoint())}};
  }
  out["handles"] = {
      {"objects", info.objects}, {"greatest", handleText(info.greatestHandle)}, {"next", handleText(info.handleSeed)}};
  out["classes"] = ordered_json::array();
  for (const auto& [name, counts] : info.classes) {
    out["classes"].push_back({{"name", name}, {"entities", counts.entities}, {"objects", counts.objects}});
  }
  out["proxies"] = ordered_json::array();
  for (const auto& [name, count] : info.proxies) out["proxies"].push_back({{"class", name}, {"count", count}});
  out["layers"] = ordered_json::array();
  for (const LayerInfo& layer : info.layers) {
    out["layers"].push_back({{"name", layer.name},
                             {"color", layer.color},
                             {"linetype", layer.linetype},
                             {"off", layer.off},
                             {"frozen", layer.frozen},
                             {"locked", layer.locked},
                             {"entities", layer.entities}});
  }
  out["blocks"] = ordered_json::array();
  for (const auto& [name, count] : info.blocks) out["blocks"].push_back({{"name", name}, {"entities", count}});
  out["findings"] = info.findings;
  return out.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace kr
