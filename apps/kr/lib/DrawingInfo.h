#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "DrawingSource.h"
#include "host/db/AcDbExtents.h"

namespace kr {

struct LayerInfo {
  std::string name;
  int color = 7;
  std::string linetype;
  bool off = false;
  bool frozen = false;
  bool locked = false;
  std::size_t entities = 0;  ///< that stand on it, in any block
};

struct ClassInfo {
  std::size_t entities = 0;  ///< in blocks
  std::size_t objects = 0;   ///< all others
};

/// What is in a drawing.
struct DrawingInfo {
  std::string format;  ///< "DWG" or "DXF"
  std::string version;
  std::size_t bytes = 0;
  std::map<std::string, ClassInfo> classes;    ///< by name; a proxy counts as AcDbProxyEntity or AcDbProxyObject
  std::map<std::string, std::size_t> proxies;  ///< by the name of the class that isn't there
  std::vector<LayerInfo> layers;               ///< by name
  std::map<std::string, std::size_t> blocks;   ///< how many entities stand in each; empty ones too
  std::size_t entities = 0;                    ///< in model space
  std::size_t members = 0;                     ///< of them
  AcDbExtents extents;                         ///< of what model space draws; empty when it draws nothing
  std::size_t objects = 0;                     ///< all of them
  std::uint64_t greatestHandle = 0;
  std::uint64_t handleSeed = 0;       ///< the next new object's
  std::vector<std::string> findings;  ///< of the reading, notes included
};

DrawingInfo infoOf(const OpenDrawing& open);

/// A page of text for people.
std::string infoText(const DrawingInfo& info);

/// By data/schemas/info.schema.json.
std::string infoJson(const DrawingInfo& info);

/// A handle as drawings write it: hexadecimal.
std::string handleText(std::uint64_t handle);

}  // namespace kr
