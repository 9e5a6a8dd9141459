#pragma once

#include "host/db/AcDbEntity.h"

/// Ends the vertices of a polyline or the attributes of an insert. Draws nothing.
class AcDbSequenceEnd : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
  AcDbSequenceEnd() = default;

 protected:
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override { return Acad::eOk; }
};

/// Opens the entities of a block in a file, with a layer and extended data of its own. Belongs to the block record.
class AcDbBlockBegin : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
  AcDbBlockBegin() = default;

 protected:
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override { return Acad::eOk; }
};

/// Closes the entities of a block in a file.
class AcDbBlockEnd : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
  AcDbBlockEnd() = default;

 protected:
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override { return Acad::eOk; }
};
