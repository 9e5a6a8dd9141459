#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>
#include <string>

#include "host/db/db.h"
#include "host/gi/gi.h"
#include "host/io/ProxyChunks.h"
#include "host/io/ProxyGraphics.h"
#include "host/io/ProxyText.h"
#include "host/io/dwg/BitReader.h"

namespace krio {
namespace {

using proxy::Chunk;

bool isFinite(const AcGePoint3d& p) {
  return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

bool isFinite(const AcGeVector3d& v) {
  return isFinite(AcGePoint3d::kOrigin + v);
}

/// Takes values off the front of some bytes. Past the end there are zeros, and `ok` says so from then on.
class Cursor {
 public:
  explicit Cursor(std::span<const std::byte> bytes) : rest_(bytes) {}

  bool ok() const { return ok_; }
  std::size_t left() const { return rest_.size(); }

  template <class T>
  T get() {
    T value{};
    take(&value, sizeof value);
    return value;
  }
  std::uint32_t number() { return get<std::uint32_t>(); }
  double real() { return get<double>(); }
  AcGePoint3d point() { return get<AcGePoint3d>(); }
  AcGeVector3d vector() { return get<AcGeVector3d>(); }

  std::span<const std::byte> bytes(std::size_t size) {
    if (size > left()) return fail();
    const auto front = rest_.first(size);
    rest_ = rest_.subspan(size);
    return front;
  }

  /// `count` points into `points`; false when the bytes don't hold as many or one is no point.
  bool points(std::size_t count, std::vector<AcGePoint3d>& points) {
    if (count > left() / sizeof(AcGePoint3d)) return fail(), false;
    points.resize(count);
    take(points.data(), count * sizeof(AcGePoint3d));
    return std::all_of(points.begin(), points.end(), [](const AcGePoint3d& p) { return isFinite(p); });
  }

  /// A text up to its zero, and the bytes that fill it up.
  std::wstring text() {
    const std::string_view all(reinterpret_cast<const char*>(rest_.data()), rest_.size());
    const std::size_t zero = all.find('\0');
    if (zero == std::string_view::npos) return fail(), std::wstring();
    skipPadded(zero + 1);
    return proxy::textPage().decode(all.substr(0, zero));
  }

  /// The same in units of 16 bits.
  std::wstring wideText() {
    std::wstring text;
    std::size_t used = 0;
    for (std::uint16_t unit = 1;; used += sizeof unit) {
      if (left() - used < sizeof unit) return fail(), std::wstring();
      std::memcpy(&unit, rest_.data() + used, sizeof unit);
      if (unit == 0) break;
      text += static_cast<wchar_t>(unit);
    }
    skipPadded(used + sizeof(std::uint16_t));
    return text;
  }

 private:
  std::span<const std::byte> fail() {
    ok_ = false;
    rest_ = {};
    return {};
  }
  void take(void* value, std::size_t size) {
    const auto front = bytes(size);
    if (!front.empty()) std::memcpy(value, front.data(), size);
  }
  void skipPadded(std::size_t size) {
    constexpr std::size_t kAlignment = proxy::kTextAlignment;
    rest_ = rest_.subspan(std::min(rest_.size(), (size + kAlignment - 1) / kAlignment * kAlignment));
  }

  std::span<const std::byte> rest_;
  bool ok_ = true;
};

/// The records of a table that go into a file, in their order.
std::vector<AcDbObjectId> recordsInFile(AcDbObjectId tableId, AcDbObjectId passedOver = AcDbObjectId(),
                                        AcDbObjectId passedOverToo = AcDbObjectId()) {
  const auto* table = tableId.isResident() ? AcDbSymbolTable::cast(tableId.stub()->object) : nullptr;
  std::vector<AcDbObjectId> records;
  if (table == nullptr) return records;
  for (const AcDbObjectId id : table->recordIds())
    if (!id.isErased() && id != passedOver && id != passedOverToo) records.push_back(id);
  return records;
}

/// What of a lightweight polyline's data is drawn.
struct LightPolyline {
  AcGeVector3d normal = AcGeVector3d::kZAxis;
  double elevation = 0.0;
  bool closed = false;
  std::vector<AcGePoint2d> points;
  std::vector<double> bulges;

  bool read(std::span<const std::uint8_t> bytes) {
    enum : unsigned {
      kNormal = 1,
      kThickness = 2,
      kWidth = 4,
      kElevation = 8,
      kBulges = 16,
      kWidths = 32,
      kClosed = 512
    };
    dwg::BitReader in(bytes);
    const unsigned flags = in.bs();
    if ((flags & kWidth) != 0) in.bd();
    if ((flags & kElevation) != 0) elevation = in.bd();
    if ((flags & kThickness) != 0) in.bd();
    if ((flags & kNormal) != 0) {
      const double x = in.bd();
      const double y = in.bd();
      normal.set(x, y, in.bd());
    }
    closed = (flags & kClosed) != 0;
    const std::uint32_t count = in.bl();
    const std::uint32_t bulged = (flags & kBulges) != 0 ? in.bl() : 0;
    if ((flags & kWidths) != 0) in.bl();
    // A point that repeats the one before takes 4 bits, a bulge at least 2.
    if (count < 2 || !in.fits(count, 4) || !in.fits(bulged, 2)) return false;
    points.reserve(count);
    AcGePoint2d last(in.rd(), 0.0);
    last.y = in.rd();
    points.push_back(last);
    while (points.size() < count) {
      last.x = in.dd(last.x);
      last.y = in.dd(last.y);
      points.push_back(last);
    }
    for (std::uint32_t i = 0; i < bulged; ++i) bulges.push_back(in.bd());
    return !in.failed() && isFinite(normal) && !normal.isZeroLength() && std::isfinite(elevation) &&
           std::all_of(points.begin(), points.end(),
                       [](auto& p) { return std::isfinite(p.x) && std::isfinite(p.y); }) &&
           std::all_of(bulges.begin(), bulges.end(), [](double b) { return std::isfinite(b); });
  }
};

class Player {
 public:
  explicit Player(AcGiWorldDraw* draw) : draw_(*draw), traits_(draw->subEntityTraits()), geometry_(draw->geometry()) {
    if (AcGiContext* context = draw->context(); context != nullptr) database_ = context->database();
  }

  void play(std::span<const std::byte> bytes) {
    Cursor head(bytes);
    const std::size_t told = head.number();
    if (told < bytes.size()) bytes = bytes.first(told);
    if (bytes.size() < proxy::kStreamHead) return;
    // How many chunks there are is told by the bytes that they take.
    Cursor stream(bytes.subspan(proxy::kStreamHead));
    while (stream.left() >= proxy::kChunkHead && draw_.regenAbort() == 0) {
      const std::size_t size = stream.number();
      const auto type = stream.get<Chunk>();
      if (size < proxy::kChunkHead || size - proxy::kChunkHead > stream.left()) break;
      Cursor content(stream.bytes(size - proxy::kChunkHead));
      if (playChunk(type, content)) break;
    }
    for (; pushed_ > 0; --pushed_) geometry_.popModelTransform();
  }

 private:
  /// True when the drawing is to stop.
  bool playChunk(Chunk type, Cursor& in) {
    switch (type) {
      case Chunk::kExtents:
        return extents(in);
      case Chunk::kCircle:
        return circle(in);
      case Chunk::kCircleByPoints:
        return in.points(3, points_) && geometry_.circle(points_[0], points_[1], points_[2]) != 0;
      case Chunk::kArc:
        return arc(in);
      case Chunk::kArcByPoints:
        return in.points(3, points_) &&
               geometry_.circularArc(points_[0], points_[1], points_[2], arcType(in.number())) != 0;
      case Chunk::kPolyline:
      case Chunk::kPolylineWithNormal:
        return in.points(in.number(), points_) && polyline();
      case Chunk::kPolygon:
        return in.points(in.number(), points_) && polygon();
      case Chunk::kLightPolyline:
        return lightPolyline(in);
      case Chunk::kMesh:
        return mesh(in);
      case Chunk::kShell:
        return shell(in);
      case Chunk::kText:
      case Chunk::kWideText:
        return text(in, type == Chunk::kWideText);
      case Chunk::kStyledText:
      case Chunk::kWideStyledText:
        return styledText(in, type == Chunk::kWideStyledText);
      case Chunk::kEllipseArc:
        return ellipse(in);
      case Chunk::kPushMatrix:
      case Chunk::kPushMatrix2:
        return pushMatrix(in);
      case Chunk::kPopMatrix:
        if (pushed_ > 0 && geometry_.popModelTransform() != 0) --pushed_;
        return false;
      default:
        trait(type, in);
        return false;
    }
  }

  bool polyline() { return !points_.empty() && geometry_.polyline(Adesk::UInt32(points_.size()), points_.data()) != 0; }
  bool polygon() { return !points_.empty() && geometry_.polygon(Adesk::UInt32(points_.size()), points_.data()) != 0; }

  static AcGiArcType arcType(std::uint32_t kind) {
    return kind == kAcGiArcSector ? kAcGiArcSector : kind == kAcGiArcChord ? kAcGiArcChord : kAcGiArcSimple;
  }

  bool extents(Cursor& in) {
    if (in.points(2, points_)) geometry_.setExtents(points_.data());
    return false;
  }

  bool circle(Cursor& in) {
    const AcGePoint3d center = in.point();
    const double radius = in.real();
    const AcGeVector3d normal = in.vector();
    if (!in.ok() || !isFinite(center) || !isFinite(normal) || !std::isfinite(radius)) return false;
    return geometry_.circle(center, radius, normal) != 0;
  }

  bool arc(Cursor& in) {
    const AcGePoint3d center = in.point();
    const double radius = in.real();
    const AcGeVector3d normal = in.vector();
    const AcGeVector3d start = in.vector();
    const double sweep = in.real();
    const AcGiArcType type = arcType(in.number());
    if (!in.ok() || !isFinite(center) || !isFinite(normal) || !isFinite(start)) return false;
    if (!std::isfinite(radius) || !std::isfinite(sweep)) return false;
    return geometry_.circularArc(center, radius, normal, start, sweep, type) != 0;
  }

  /// The data of a lightweight polyline as a drawing holds it: straight and bulged edges in the plane of its normal.
  bool lightPolyline(Cursor& in) {
    const std::span<const std::byte> data = in.bytes(std::min(std::size_t(in.number()), in.left()));
    LightPolyline line;
    if (!line.read({reinterpret_cast<const std::uint8_t*>(data.data()), data.size()})) return false;
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(line.normal);
    const auto at = [&](const AcGePoint2d& p) { return toWorld * AcGePoint3d(p.x, p.y, line.elevation); };
    const std::size_t edges = line.points.size() - (line.closed ? 0 : 1);
    for (std::size_t i = 0; i < edges; ++i) {
      const AcGePoint2d from = line.points[i];
      const AcGePoint2d to = line.points[(i + 1) % line.points.size()];
      const AcGePoint3d ends[] = {at(from), at(to)};
      const double bulge = i < line.bulges.size() ? line.bulges[i] : 0.0;
      // The middle of the arc stands on the right of its chord for a bulge above zero.
      const AcGeVector2d across((to - from).y, -(to - from).x);
      const AcGePoint2d middle = from + (to - from) / 2.0 + across * (bulge / 2.0);
      if (bulge == 0.0 ? geometry_.polyline(2, ends) : geometry_.circularArc(ends[0], at(middle), ends[1])) return true;
    }
    return false;
  }

  /// Rows and columns of points: the lines along both.
  bool mesh(Cursor& in) {
    const std::uint64_t rows = in.number();
    const std::uint64_t columns = in.number();
    std::vector<AcGePoint3d> grid;
    // Both are of 32 bits, so their product can't overflow.
    if (!in.points(rows * columns, grid)) return false;
    const auto line = [&](std::uint64_t first, std::uint64_t step, std::uint64_t count) {
      points_.clear();
      for (std::uint64_t i = 0; i < count; ++i) points_.push_back(grid[first + i * step]);
      return polyline();
    };
    for (std::uint64_t row = 0; row < rows && columns > 0; ++row)
      if (line(row * columns, 1, columns)) return true;
    for (std::uint64_t column = 0; column < columns && rows > 0; ++column)
      if (line(column, columns, rows)) return true;
    return false;
  }

  /// Faces by the places of their vertices; a hole in a face has a negative count and is drawn as an outline.
  bool shell(Cursor& in) {
    std::vector<AcGePoint3d> vertices;
    if (!in.points(in.number(), vertices)) return false;
    const std::size_t listed = in.number() * sizeof(std::int32_t);
    Cursor faces(in.bytes(std::min(in.left(), listed)));
    while (faces.left() > 0) {
      const auto count = faces.get<std::int32_t>();
      points_.clear();
      for (std::int64_t i = std::abs(std::int64_t(count)); i > 0 && faces.left() > 0; --i) {
        const std::uint32_t index = faces.number();
        if (index < vertices.size()) points_.push_back(vertices[index]);
      }
      if (count < 0 && !points_.empty()) points_.push_back(points_.front());
      if (count < 0 ? polyline() : polygon()) return true;
    }
    return false;
  }

  struct TextFrame {
    AcGePoint3d position;
    AcGeVector3d normal;
    AcGeVector3d direction;
    bool good(const Cursor& in) const {
      return in.ok() && isFinite(position) && isFinite(normal) && isFinite(direction);
    }
  };
  static TextFrame textFrame(Cursor& in) {
    TextFrame frame;
    frame.position = in.point();
    frame.normal = in.vector();
    frame.direction = in.vector();
    return frame;
  }

  /// Height, width factor and slant.
  static bool readSize(Cursor& in, AcGiTextStyle& style) {
    const double height = in.real();
    const double width = in.real();
    const double oblique = in.real();
    style.setTextSize(height);
    style.setXScale(width);
    style.setObliquingAngle(oblique);
    return in.ok() && std::isfinite(height) && std::isfinite(width) && std::isfinite(oblique);
  }

  bool text(Cursor& in, bool wide) {
    const TextFrame frame = textFrame(in);
    AcGiTextStyle style;
    if (!readSize(in, style)) return false;
    const std::wstring message = wide ? in.wideText() : in.text();
    return frame.good(in) &&
           geometry_.text(frame.position, frame.normal, frame.direction, message.c_str(), -1, Adesk::kTrue, style) != 0;
  }

  bool styledText(Cursor& in, bool wide) {
    const TextFrame frame = textFrame(in);
    const std::wstring message = wide ? in.wideText() : in.text();
    in.number();  // the length, which the zero tells too
    const bool raw = in.number() == proxy::kTextRaw;
    AcGiTextStyle style;
    if (!readSize(in, style) || !frame.good(in)) return false;
    in.real();  // tracking
    style.setBackward(in.number() != 0);
    style.setUpsideDown(in.number() != 0);
    if (!wide) {
      for (int verticalUnderlinedOverlined = 0; verticalUnderlinedOverlined < 3; ++verticalUnderlinedOverlined)
        in.number();
      style.setFileName(in.text().c_str());
      style.setBigFontFileName(in.text().c_str());
    }
    return geometry_.text(frame.position, frame.normal, frame.direction, message.c_str(), -1, raw, style) != 0;
  }

  bool ellipse(Cursor& in) {
    const AcGePoint3d center = in.point();
    const AcGeVector3d normal = in.vector();
    double values[5] = {};  // half axes, start, end, angle of the greater axis
    for (double& value : values) value = in.real();
    if (!in.ok() || !isFinite(center) || !isFinite(normal) || normal.isZeroLength()) return false;
    if (!std::all_of(std::begin(values), std::end(values), [](double v) { return std::isfinite(v); })) return false;
    const auto [major, minor, start, end, turn] = values;
    const AcGeMatrix3d toWorld = AcGeMatrix3d::planeToWorld(normal);
    constexpr int kChords = 72;
    points_.clear();
    for (int i = 0; i <= kChords; ++i) {
      const double t = start + (end - start) * i / kChords;
      AcGeVector3d radius(major * std::cos(t), minor * std::sin(t), 0.0);
      radius.rotateBy(turn, AcGeVector3d::kZAxis).transformBy(toWorld);
      points_.push_back(center + radius);
    }
    return polyline();
  }

  bool pushMatrix(Cursor& in) {
    constexpr unsigned kSize = 4;
    AcGeMatrix3d matrix;
    bool good = true;
    for (unsigned row = 0; row < kSize; ++row) {
      for (unsigned column = 0; column < kSize; ++column) {
        matrix(row, column) = in.real();
        good = good && std::isfinite(matrix(row, column));
      }
    }
    // A matrix that can't be used still has its pop.
    if (geometry_.pushModelTransform(good && in.ok() ? matrix : AcGeMatrix3d::kIdentity) != 0) ++pushed_;
    return false;
  }

  void trait(Chunk type, Cursor& in) {
    if (type == Chunk::kLinetypeScale) {
      const double scale = in.real();
      if (in.ok() && std::isfinite(scale) && scale > 0.0) traits_.setLineTypeScale(scale);
      return;
    }
    const std::uint32_t value = in.number();
    if (!in.ok()) return;
    switch (type) {
      case Chunk::kColor:
        if (value <= AcCmColor::kACIbyLayer) traits_.setColor(Adesk::UInt16(value));
        return;
      case Chunk::kTrueColor:
        if (AcCmColor color; color.setColor(value) == Acad::eOk) traits_.setTrueColor(color);
        return;
      case Chunk::kLayer:
        return setLayer(value);
      case Chunk::kLinetype:
        return setLinetype(value);
      case Chunk::kMarker:
        return traits_.setSelectionMarker(Adesk::LongPtr(value));
      case Chunk::kFill:
        return traits_.setFillType(value == proxy::kFillOn ? kAcGiFillAlways : kAcGiFillNever);
      case Chunk::kLineWeight:
        return setLineWeight(static_cast<std::int32_t>(value));
      default:
        return;
    }
  }

  void setLayer(std::uint32_t place) {
    if (database_ == nullptr) return;
    if (!layers_) layers_ = recordsInFile(database_->layerTableId());
    if (place < layers_->size()) traits_.setLayer((*layers_)[place]);
  }

  void setLinetype(std::uint32_t number) {
    if (database_ == nullptr) return;
    if (number == proxy::kLinetypeByLayer) return traits_.setLineType(database_->byLayerLinetype());
    if (number == proxy::kLinetypeByBlock) return traits_.setLineType(database_->byBlockLinetype());
    if (!linetypes_)
      linetypes_ =
          recordsInFile(database_->linetypeTableId(), database_->byLayerLinetype(), database_->byBlockLinetype());
    if (number < linetypes_->size()) traits_.setLineType((*linetypes_)[number]);
  }

  void setLineWeight(std::int32_t weight) {
    constexpr std::int32_t kWidest = 211;
    if (weight >= AcDb::kLnWtByLwDefault && weight <= kWidest) traits_.setLineWeight(AcDb::LineWeight(weight));
  }

  AcGiWorldDraw& draw_;
  AcGiSubEntityTraits& traits_;
  AcGiWorldGeometry& geometry_;
  AcDbDatabase* database_ = nullptr;
  std::size_t pushed_ = 0;
  std::vector<AcGePoint3d> points_;
  std::optional<std::vector<AcDbObjectId>> layers_;
  std::optional<std::vector<AcDbObjectId>> linetypes_;
};

}  // namespace

void drawProxyGraphics(std::span<const std::byte> bytes, AcGiWorldDraw* draw) {
  if (draw != nullptr) Player(draw).play(bytes);
}

// From the loading of the library on, proxies are drawn by the format that this layer knows.
[[maybe_unused]] const bool kProxiesAreDrawn = (acdbSetProxyGraphicsDraw(&drawProxyGraphics), true);

}  // namespace krio
