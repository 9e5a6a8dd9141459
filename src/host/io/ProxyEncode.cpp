#include <cmath>
#include <cstring>
#include <string>

#include "host/db/db.h"
#include "host/gi/WorldDrawBase.h"
#include "host/io/ProxyChunks.h"
#include "host/io/ProxyGraphics.h"
#include "host/io/ProxyText.h"

namespace krio {
namespace {

using proxy::Chunk;

bool isFinite(const AcGePoint3d& p) {
  // A sum is finite only when no part is infinite or no number; sums that overflow are of no use on paper either.
  return std::isfinite(p.x + p.y + p.z);
}

/// The place of a record among those of its table that go into a file, `passedOver` not counted; 0 for one that the
/// table doesn't list.
std::uint32_t placeInTable(AcDbObjectId tableId, AcDbObjectId record, AcDbObjectId passedOver = AcDbObjectId(),
                           AcDbObjectId passedOverToo = AcDbObjectId()) {
  const auto* table = tableId.isResident() ? AcDbSymbolTable::cast(tableId.stub()->object) : nullptr;
  if (table == nullptr) return 0;
  std::uint32_t place = 0;
  for (const AcDbObjectId id : table->recordIds()) {
    if (id == record) return place;
    if (!id.isErased() && id != passedOver && id != passedOverToo) ++place;
  }
  return 0;
}

/// Writes each figure to the stream at once.
class Encoder final : public gi::WorldDrawBase {
 public:
  Encoder(std::vector<std::byte>& out, AcDbDatabase* database)
      : WorldDrawBase(kAcGiSaveWorldDrawForProxy), out_(out), database_(database) {
    setDatabase(database);
    out_.resize(proxy::kStreamHead);
  }

  void encode(AcDbEntity& entity) {
    // An invisible entity has its picture too, for whoever makes it visible.
    entity.setAttributes(&mutableTraits());
    entity.saveAs(this, AcDb::kR13Save);
    if (!drawn_) return out_.clear();
    const std::uint32_t head[] = {std::uint32_t(out_.size()), chunks_};
    std::memcpy(out_.data(), head, sizeof head);
  }

 protected:
  void onPolyline(const AcGePoint3d* vertices, std::size_t count, bool closed) override {
    for (std::size_t i = 0; i < count; ++i)
      if (!isFinite(vertices[i])) return;
    writeTraits(closed);
    begin(closed ? Chunk::kPolygon : Chunk::kPolyline, sizeof(std::uint32_t) + count * sizeof *vertices);
    put(std::uint32_t(count));
    put(vertices, count * sizeof *vertices);
  }

  void onArc(const gi::ArcCall& arc) override {
    const double radius = arc.u.length();
    if (!(radius > 0.0) || !isFinite(arc.center + arc.u + arc.v) || !std::isfinite(arc.sweep)) return;
    writeTraits(arc.isCircle || arc.type != kAcGiArcSimple);
    if (arc.byPoints) {
      begin(Chunk::kArcByPoints, sizeof arc.given + sizeof(std::uint32_t));
      // From the other end if it runs clockwise: some readers take every arc for a counter-clockwise one.
      const bool turned = arc.u.crossProduct(arc.v).z < 0.0;
      for (const int i : {turned ? 2 : 0, 1, turned ? 0 : 2}) put(arc.given[i]);
      return put(std::uint32_t(arc.type));
    }
    AcGeVector3d normal = arc.u.crossProduct(arc.v).normal();
    if (arc.isCircle) {
      begin(Chunk::kCircle, sizeof arc.center + sizeof radius + sizeof normal);
      put(arc.center);
      put(radius);
      return put(normal);
    }
    // Arcs run counter-clockwise for every reader.
    if (arc.sweep < 0.0) normal.negate();
    begin(Chunk::kArc, sizeof arc.center + 2 * sizeof radius + 2 * sizeof normal + sizeof(std::uint32_t));
    put(arc.center);
    put(radius);
    put(normal);
    put(arc.u / radius);
    put(std::fabs(arc.sweep));
    put(std::uint32_t(arc.type));
  }

  void onText(const gi::TextCall& text) override {
    if (!isFinite(text.position)) return;
    writeTraits(false);
    std::wstring typeface;
    bool bold = false;
    bool italic = false;
    text.style.font(typeface, bold, italic);
    const std::string message = proxy::paddedText(text.text);
    const std::string font = proxy::paddedText(typeface.empty() ? text.style.fileName() : typeface.c_str());
    const std::string bigFont = proxy::paddedText(text.style.bigFontFileName());
    begin(Chunk::kStyledText, 3 * sizeof(AcGePoint3d) + message.size() + 2 * sizeof(std::uint32_t) +
                                  4 * sizeof(double) + 5 * sizeof(std::uint32_t) + font.size() + bigFont.size());
    put(text.position);
    // The sum has no minus zero, which a product may have.
    put(text.direction.crossProduct(text.up) + AcGeVector3d());
    put(text.direction);
    put(message.data(), message.size());
    put(proxy::kToTheZero);
    put(text.raw ? proxy::kTextRaw : proxy::kTextWithCodes);
    constexpr double kTracking = 1.0;
    for (const double value : {text.style.textSize(), text.style.xScale(), text.style.obliquingAngle(), kTracking})
      put(value);
    put(std::uint32_t(text.style.isBackward()));
    put(std::uint32_t(text.style.isUpsideDown()));
    constexpr std::uint32_t kNeitherVerticalNorUnderNorOverlined[3] = {};
    put(kNeitherVerticalNorUnderNorOverlined);
    put(font.data(), font.size());
    put(bigFont.data(), bigFont.size());
  }

  void onExtents(const AcGePoint3d& a, const AcGePoint3d& b) override {
    if (!isFinite(a) || !isFinite(b)) return;
    drawn_ = true;
    begin(Chunk::kExtents, sizeof a + sizeof b);
    put(AcGePoint3d(std::fmin(a.x, b.x), std::fmin(a.y, b.y), std::fmin(a.z, b.z)));
    put(AcGePoint3d(std::fmax(a.x, b.x), std::fmax(a.y, b.y), std::fmax(a.z, b.z)));
  }

  void onBeginPart() override { blocks_.push_back(resolved()); }
  void onEndPart() override { blocks_.pop_back(); }

  void onPushTransform(const AcGeMatrix3d& matrix) override {
    begin(Chunk::kPushMatrix, kMatrixSize * kMatrixSize * sizeof(double));
    for (unsigned row = 0; row < kMatrixSize; ++row)
      for (unsigned column = 0; column < kMatrixSize; ++column) put(matrix(row, column));
  }
  void onPopTransform() override { begin(Chunk::kPopMatrix, 0); }

 private:
  static constexpr unsigned kMatrixSize = 4;

  void put(const void* bytes, std::size_t size) {
    const std::size_t place = out_.size();
    out_.resize(place + size);
    std::memcpy(out_.data() + place, bytes, size);
  }
  template <class T>
  void put(const T& value) {
    put(&value, sizeof value);
  }
  void begin(Chunk type, std::size_t content) {
    ++chunks_;
    put(std::uint32_t(proxy::kChunkHead + content));
    put(type);
  }
  void attribute(Chunk type, std::uint32_t value) {
    begin(type, sizeof value);
    put(value);
  }

  /// The traits in force, with what is by block within a part taken from what the part stands in.
  gi::TraitValues resolved() const {
    gi::TraitValues now = traits();
    if (blocks_.empty()) return now;
    const gi::TraitValues& block = blocks_.back();
    if (now.color.isByBlock()) now.color = block.color;
    if (now.lineWeight == AcDb::kLnWtByBlock) now.lineWeight = block.lineWeight;
    if (database_ != nullptr && now.linetype == database_->byBlockLinetype()) now.linetype = block.linetype;
    return now;
  }

  std::uint32_t linetypeNumber(AcDbObjectId linetype) const {
    if (database_ == nullptr || linetype.isNull() || linetype == database_->byLayerLinetype())
      return proxy::kLinetypeByLayer;
    if (linetype == database_->byBlockLinetype()) return proxy::kLinetypeByBlock;
    return placeInTable(database_->linetypeTableId(), linetype, database_->byLayerLinetype(),
                        database_->byBlockLinetype());
  }

  /// All traits ahead of the first figure, so that none depends on what a reader begins with; later those that change.
  /// Fill is told again for each figure that has an inside: some readers take it for the next figure only.
  void writeTraits(bool hasInside) {
    const gi::TraitValues now = resolved();
    const bool first = !traitsWritten_;
    traitsWritten_ = drawn_ = true;
    if (first || now.layer != written_.layer)
      attribute(Chunk::kLayer, database_ != nullptr ? placeInTable(database_->layerTableId(), now.layer) : 0);
    if (first || now.color != written_.color) writeColor(now.color);
    if (first || now.linetype != written_.linetype) attribute(Chunk::kLinetype, linetypeNumber(now.linetype));
    if (first || now.lineWeight != written_.lineWeight) attribute(Chunk::kLineWeight, std::uint32_t(now.lineWeight));
    if (now.linetypeScale != written_.linetypeScale) {
      begin(Chunk::kLinetypeScale, sizeof now.linetypeScale);
      put(now.linetypeScale);
    }
    if (hasInside && now.fill == kAcGiFillAlways) {
      attribute(Chunk::kFill, proxy::kFillOn);
    } else if (now.fill != written_.fill) {
      attribute(Chunk::kFill, now.fill == kAcGiFillAlways ? proxy::kFillOn : proxy::kFillOff);
    }
    written_ = now;
  }

  void writeColor(const AcCmColor& color) {
    if (color.isByColor()) return attribute(Chunk::kTrueColor, color.color());
    attribute(Chunk::kColor, color.colorIndex());
  }

  std::vector<std::byte>& out_;
  AcDbDatabase* database_;
  std::uint32_t chunks_ = 0;
  bool drawn_ = false;
  bool traitsWritten_ = false;
  gi::TraitValues written_;
  std::vector<gi::TraitValues> blocks_;
};

}  // namespace

bool drawsNothing(AcDbEntity& entity) {
  // What has an extent is drawn, and that is soon known. Without one it may say so by a status, or by extents that hold
  // nothing, and may draw all the same.
  AcDbExtents extents;
  if (entity.getGeomExtents(extents) == Acad::eOk) {
    const AcGeVector3d size = extents.maxPoint() - extents.minPoint();
    if (size.x > 0 || size.y > 0 || size.z > 0) return false;
  }
  std::vector<std::byte> picture;
  encodeProxyGraphics(entity, picture);
  return picture.empty();
}

void encodeProxyGraphics(AcDbEntity& entity, std::vector<std::byte>& out) {
  AcDbDatabase* database = entity.database();
  if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
  Encoder(out, database).encode(entity);
}

}  // namespace krio
