#pragma once

#include <cstddef>
#include <string>

/// What other libraries do with the same files. Each is compiled where its library is installed.
namespace peer {

/// What all have in common of an entity to be written: `bench::PlainEntity` without the host's types.
struct Entity {
  int kind;
  double points[5][2];
  double radius, startAngle, endAngle;
  int color;
};

/// Reads a DXF with dxflib; gives how many entities it told of.
std::size_t readWithDxflib(const std::string& path);
/// Writes a DXF of these entities with dxflib.
void writeWithDxflib(const std::string& path, const Entity* entities, std::size_t count, const char* text,
                     double textHeight);

/// Goes once over all features of a drawing with GDAL; gives how many there are.
std::size_t passWithGdal(const std::string& path);

}  // namespace peer
