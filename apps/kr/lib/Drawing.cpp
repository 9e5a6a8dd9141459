#include "Drawing.h"

#include <array>
#include <cmath>
#include <cwchar>
#include <memory>

#include "BarModel.h"
#include "JobReader.h"
#include "Projection.h"
#include "host/db/db.h"
#include "host/os/os.h"
#include "object/KrObject.h"
#include "support/Layers.h"

namespace kr {
namespace {

constexpr std::size_t kTextRoom = 1024;  // members write their names and dimensions into a caller's buffer
constexpr double kSampleLength = 100;    // of a bar of which only the section is seen
constexpr double kHundredths = 100;      // of a millimetre in a line weight

using BlockPointer = AcDbObjectPointer<AcDbBlockTableRecord>;

// Texts of the drawing have a code for the diameter sign; elsewhere it is the sign itself.
std::string plainText(const wchar_t* text) {
  std::string out = os::toUtf8(text);
  for (const std::string_view code : {"%%c", "%%C"}) {
    for (std::size_t at = out.find(code); at != std::string::npos; at = out.find(code)) {
      out.replace(at, code.size(), "\u00D8");
    }
  }
  return out;
}

AcDbObjectId layerIdOf(AcDbDatabase& database, const wchar_t* name) {
  AcDbObjectId id;
  const AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
  if (table.openStatus() == Acad::eOk) table->getAt(name, id);
  return id;
}

// The ids of the layers that members name, found once a name.
class MemberLayers {
 public:
  MemberLayers(const Job& job, AcDbDatabase& database) : job_(job), database_(database), ids_(job.names.size()) {}

  AcDbObjectId of(const JobMember& member) {
    AcDbObjectId& id = ids_[member.layer];
    if (!id.isNull()) return id;
    // The job's own layers stand in the drawing already; every other name is one of the system's.
    const std::wstring name = member.layer == kNoName ? kMemberLayer : os::toWide(job_.names.text(member.layer));
    return id = layerIdOf(database_, isOwn(member.layer) ? name.c_str() : KrLayerToUsr(name.c_str()));
  }

 private:
  bool isOwn(NameId name) const {
    for (const JobLayer& layer : job_.layers) {
      if (layer.name == name) return name != kNoName;
    }
    return false;
  }

  const Job& job_;
  AcDbDatabase& database_;
  std::vector<AcDbObjectId> ids_;
};

// The scale that a job gives a member in its plane, about the bar's start.
void applyScale(const JobModifiers& modifiers, KrObject& member) {
  const double across = modifiers.scale > 0 ? modifiers.scale : 1;
  const double along = modifiers.scaleAlong > 0 ? modifiers.scaleAlong : across;
  const AcGePoint3d end = member.endPoint();
  member.ObjectScale(along, across, across);
  // From behind a bar is drawn from its end, about which it was scaled.
  if (member.isInverted() != 0) member.transformBy(AcGeMatrix3d::translation(end - member.endPoint()));
}

bool makeLayers(const Job& job, AcDbDatabase& database, std::string& why) {
  for (const JobLayer& layer : job.layers) {
    const std::string name(job.names.text(layer.name));
    if (makeLayer(database, name, layer, std::string(job.names.text(layer.linetype)))) continue;
    why = "the drawing takes no layer \"" + name + "\"";
    return false;
  }
  return true;
}

}  // namespace

bool makeLayer(AcDbDatabase& database, const std::string& name, const JobLayer& layer, const std::string& linetype) {
  const std::wstring wide = os::toWide(name);
  const std::wstring style = os::toWide(linetype.empty() ? "CONTINUOUS" : linetype);
  if (krCriaLayer(wide.c_str(), layer.color, style.c_str(), 0, 0, 0, 0) != RTNORM) return false;
  const AcDbObjectPointer<AcDbLayerTableRecord> record(layerIdOf(database, wide.c_str()), AcDb::kForWrite);
  if (record.openStatus() != Acad::eOk) return false;
  AcCmColor color;
  color.setColorIndex(static_cast<Adesk::UInt16>(layer.color));
  record->setColor(color);
  AcDbObjectId styleId;
  if (krLinetypeIdFromString(style.c_str(), styleId) == Acad::eOk) record->setLinetypeObjectId(styleId);
  if (layer.lineweight < 0) return true;
  // The standard weight that is next: the host has no others.
  constexpr std::array kWeights = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                   53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
  int best = kWeights[0];
  for (const int weight : kWeights) {
    const double wanted = layer.lineweight * kHundredths;
    if (std::abs(weight - wanted) < std::abs(best - wanted)) best = weight;
  }
  return record->setLineWeight(static_cast<AcDb::LineWeight>(best)) == Acad::eOk;
}

bool drawInto(const Job& flat, AcDbDatabase& database, AcDbObjectId block, KrObjectType type,
              std::vector<AcDbObjectId>& members, std::string& why) {
  MemberLayers layers(flat, database);
  const BlockPointer space(block, AcDb::kForWrite);
  if (space.openStatus() != Acad::eOk) {
    why = "the drawing's space can't be written";
    return false;
  }
  members.reserve(members.size() + flat.members.size());
  for (const JobMember& row : flat.members) {
    const MemberAxis axis = memberAxis(flat, row);
    AcGePoint3d start(axis.start.x, axis.start.y, 0);
    AcGePoint3d end(axis.end.x, axis.end.y, 0);
    if (row.from == row.to) end.x += kSampleLength;
    // From behind, the section's own Z starts at the end as drawn: the bar's start is that end.
    if (type == Objeto && KrObject::isInverted(static_cast<KrVistas>(row.view)) != 0) std::swap(start, end);
    const ProfileClass& profileClass = *flat.profiles[row.profile].profileClass;
    std::unique_ptr<KrObject> member(profileClass.make(start, end, row.view, memberValues(flat, row)));
    if (row.modifiers != kNone) {
      applyModel(flat.modifiers[row.modifiers], *member);
      if (type == Objeto) applyScale(flat.modifiers[row.modifiers], *member);
    }
    member->setUserName(os::toWide(flat.names.text(row.name)).c_str());
    member->settipoBarra(static_cast<TipoBarra>(row.role));
    member->setObjectType(type);
    member->setLayer(layers.of(row));
    AcDbObjectId id;
    if (space->appendAcDbEntity(id, member.get()) != Acad::eOk) {
      why = "the drawing takes no member \"" + std::string(flat.names.text(row.name)) + "\"";
      return false;
    }
    member.release()->close();
    members.push_back(id);
  }
  return true;
}

bool drawMembers(const Job& job, AcDbDatabase& database, std::vector<AcDbObjectId>& members, std::string& why) {
  if (!makeLayers(job, database, why)) return false;
  const AcDbObjectId space = database.modelSpaceId();
  if (!isSpatial(job)) return drawInto(job, database, space, Objeto, members, why);
  return drawInto(laidDown(job), database, space, Objeto, members, why);
}

bool drawJob(std::string_view text, const KnownNames& known, Job& job, AcDbDatabase& database,
             std::vector<AcDbObjectId>& members, std::vector<Problem>& problems, std::string& why) {
  return readJob(text, known, job, problems) && modelJob(text, job, problems) &&
         drawMembers(job, database, members, why);
}

std::vector<BomPiece> piecesOf(const std::vector<AcDbObjectId>& members) {
  std::vector<BomPiece> pieces;
  pieces.reserve(members.size());
  for (const AcDbObjectId& id : members) {
    const AcDbObjectPointer<KrObject> member(id, AcDb::kForRead);
    if (member.openStatus() != Acad::eOk) continue;
    std::array<wchar_t, kTextRoom> buffer{};
    BomPiece piece;
    piece.name = member->userName() != nullptr ? os::toUtf8(member->userName()) : std::string();
    piece.profileClass = os::toUtf8(member->isA()->name());
    member->getPerfil(buffer.data());
    // Some classes give the bar's own name for their designation, which would set equal pieces apart.
    if (member->userName() != nullptr && std::wcscmp(buffer.data(), member->userName()) == 0) {
      member->getPerfilUsr(buffer.data());
    }
    piece.designation = plainText(buffer.data());
    buffer[0] = L'\0';
    member->getDimensoes(buffer.data());
    piece.dimensions = plainText(buffer.data());
    piece.length = member->getComprimentoReal();
    piece.weight = member->getPeso();
    piece.paintedArea = member->getAreaPintura();
    pieces.push_back(std::move(piece));
  }
  return pieces;
}

std::vector<BomPiece> piecesOf(const Job& job, const std::vector<AcDbObjectId>& members) {
  std::vector<BomPiece> pieces = piecesOf(members);
  if (pieces.size() != job.members.size()) return pieces;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const NameId designation = job.profiles[job.members[i].profile].designation;
    if (designation != kNoName) pieces[i].designation = job.names.text(designation);
  }
  return pieces;
}

}  // namespace kr
