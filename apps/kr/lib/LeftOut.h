#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "Report.h"
#include "host/db/AcDbObjectId.h"
#include "host/io/DrawingFile.h"

class AcDbDatabase;
class AcDbObject;
class KrObject;

// What of a drawing a file, a bill of materials or a page leaves out.

namespace kr {

/// How many entities of which class, by its name.
using ClassCounts = std::map<std::string, std::size_t>;

/// All of them.
std::size_t sumOf(const ClassCounts& counts);

/// "1 KrBox, 2 KrTubo".
std::string textOf(const ClassCounts& counts);

/// The name of an object's class, of a proxy that of the class that it stands for.
std::string fileClassOf(const AcDbObject& object);

/// Whether a member has a length or anything to draw. One of which its file holds a picture at most has neither. The
/// member must be open; one by its id needn't be.
bool hasData(const KrObject& member);
bool hasData(AcDbObjectId id);

/// Of model space: proxies, and members without data.
ClassCounts withoutData(const AcDbDatabase& database);

/// The same, of model space and the blocks that are inserted in it, where they have no picture either.
ClassCounts withoutPicture(const AcDbDatabase& database);

/// Warns of what a file of that format doesn't hold of a drawing as it stands: members of which it holds but the
/// picture, and proxies without a picture that it holds in a form of this system's own.
void tellLosses(const AcDbDatabase& database, krio::DrawingFormat format, Report& report);

}  // namespace kr
