#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Bom.h"
#include "Job.h"
#include "JobBuilder.h"
#include "Problem.h"
#include "host/db/AcDbObjectId.h"
#include "object/KrTypes.h"

class AcDbDatabase;

namespace kr {

/// The layer of members that a job gives no other.
inline constexpr const wchar_t* kMemberLayer = L"PERFIL";

/// Makes a layer of the job's own, or brings an existing one to what the job says. False when the database refuses.
bool makeLayer(AcDbDatabase& database, const std::string& name, const JobLayer& layer, const std::string& linetype);

/// Puts members that lie in the drawing plane into a block, each with its view drawn. A member whose ends fall together
/// has a section to show. `members` receives their ids in the order of the job. False with `why` when the database
/// refuses something.
bool drawInto(const Job& flat, AcDbDatabase& database, AcDbObjectId block, KrObjectType type,
              std::vector<AcDbObjectId>& members, std::string& why);

/// Puts a job into a database: its layers, and each member with its elevation drawn, in model space, those of a job
/// that leaves the plane laid down at their true length. Nothing is recorded for undo. `members` receives their ids in
/// the order of the job. False with `why` when the database refuses something.
bool drawMembers(const Job& job, AcDbDatabase& database, std::vector<AcDbObjectId>& members, std::string& why);

/// The whole way of a job: from its text to the members in a database. Problems as for readJob(); `why` otherwise.
bool drawJob(std::string_view text, const KnownNames& known, Job& job, AcDbDatabase& database,
             std::vector<AcDbObjectId>& members, std::vector<Problem>& problems, std::string& why);

/// What a bill of materials counts of the members, as they say of themselves.
std::vector<BomPiece> piecesOf(const std::vector<AcDbObjectId>& members);

/// The same of the members of a job: a section of a catalogue goes by its designation.
std::vector<BomPiece> piecesOf(const Job& job, const std::vector<AcDbObjectId>& members);

}  // namespace kr
