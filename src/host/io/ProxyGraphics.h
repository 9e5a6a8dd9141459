#pragma once

#include <cstddef>
#include <span>
#include <vector>

class AcDbEntity;
class AcGiWorldDraw;

/// The picture of an entity that a file carries for programs without the entity's class: a stream of figures and of the
/// properties that hold for those behind them.
namespace krio {

/// Replaces `out` by what the entity draws for the world when it is saved: lines, polygons, arcs and circles as such,
/// texts, pushed transforms, and colour, layer, linetype, lineweight and fill when they change. Layers and linetypes
/// are told by their place in the tables of the entity's database (of the working one for an entity outside of any).
/// An entity that draws nothing gives no bytes at all. Figures with coordinates that are no numbers are left out.
/// The entity must be open at least for read.
void encodeProxyGraphics(AcDbEntity& entity, std::vector<std::byte>& out);

/// Whether an entity that was just read draws nothing: a file that holds nothing else of it shows it by its picture
/// alone. It must be open at least for read, or in no database.
bool drawsNothing(AcDbEntity& entity);

/// Draws a stream. Any bytes will do: what can't be read is passed over, and time and memory stay in proportion to the
/// number of bytes. Layers and linetypes are looked up in the database of the drawing context. Endless lines are
/// passed over, meshes drawn by their edges, ellipses by chords.
void drawProxyGraphics(std::span<const std::byte> bytes, AcGiWorldDraw* draw);

}  // namespace krio
