#pragma once

#include "host/rx/AdeskTypes.h"

class AcDbObjectId;

/// Enumerations of the database layer.
namespace AcDb {

/// How an object is opened.
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

/// What a filer is for. Objects may file differently by it.
enum FilerType {
  kFileFiler = 0,
  kCopyFiler = 1,
  kUndoFiler = 2,
  kBagFiler = 3,
  kIdXlateFiler = 4,
  kPageFiler = 5,
  kDeepCloneFiler = 6,
  kIdFiler = 7,
  kPurgeFiler = 8,
  kWblockCloneFiler = 9
};

/// Version of the drawing format that a filer reads or writes.
enum AcDbDwgVersion { kDHL_1009 = 16, kDHL_1012 = 19, kDHL_1014 = 21, kDHL_1015 = 23, kDHL_CURRENT = kDHL_1015 };
using MaintenanceReleaseVersion = Adesk::UInt8;
inline constexpr MaintenanceReleaseVersion kMReleaseCurrent = 0;

enum SubentType {
  kNullSubentType = 0,
  kFaceSubentType = 1,
  kEdgeSubentType = 2,
  kVertexSubentType = 3,
  kMlineSubentCache = 4,
  kClassSubentType = 5
};

enum OsnapMode {
  kOsModeEnd = 1,
  kOsModeMid = 2,
  kOsModeCen = 3,
  kOsModeNode = 4,
  kOsModeQuad = 5,
  kOsModeIns = 7,
  kOsModePerp = 8,
  kOsModeTan = 9,
  kOsModeNear = 10
};

/// Which of the two curves of an intersection count beyond their ends.
enum Intersect { kOnBothOperands = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };

enum Visibility : int { kInvisible = 1, kVisible = 0 };

/// Hundredths of a millimetre, or one of the special values.
enum LineWeight : int {
  kLnWt000 = 0,
  kLnWt005 = 5,
  kLnWt009 = 9,
  kLnWt013 = 13,
  kLnWt015 = 15,
  kLnWt018 = 18,
  kLnWt020 = 20,
  kLnWt025 = 25,
  kLnWt030 = 30,
  kLnWt035 = 35,
  kLnWt040 = 40,
  kLnWt050 = 50,
  kLnWt053 = 53,
  kLnWt060 = 60,
  kLnWt070 = 70,
  kLnWt080 = 80,
  kLnWt090 = 90,
  kLnWt100 = 100,
  kLnWt106 = 106,
  kLnWt120 = 120,
  kLnWt140 = 140,
  kLnWt158 = 158,
  kLnWt200 = 200,
  kLnWt211 = 211,
  kLnWtByLayer = -1,
  kLnWtByBlock = -2,
  kLnWtByLwDefault = -3
};

/// What a clone across databases does with a record whose name is there already.
enum DuplicateRecordCloning : int {
  kDrcNotApplicable = 0,
  kDrcIgnore = 1,   ///< the destination's record stays and stands for the source's
  kDrcReplace = 2,  ///< the destination's record takes the source's contents
  kDrcXrefMangleName = 3,
  kDrcMangleName = 4,  ///< the source's record comes under a new name
  kDrcUnmangleName = 5
};

/// The operation that a cloning is part of.
enum DeepCloneType {
  kDcCopy = 0,
  kDcExplode = 1,
  kDcBlock = 2,
  kDcXrefBind = 3,
  kDcSymTableMerge = 4,
  kDcInsert = 6,
  kDcWblock = 7,
  kDcObjects = 8
};

/// What grips or stretch points of an entity go through.
enum GripStat { kGripsDone = 0, kGripsToBeDeleted = 1, kDimDataToBeDeleted = 2 };

/// Who asks an entity for its drawing on saving.
enum SaveType { kR12Save = 0, kR13Save = 1, kDxfSave = 2 };

/// How text stands to its point.
enum TextHorzMode : int { kTextLeft = 0, kTextCenter = 1, kTextRight = 2, kTextAlign = 3, kTextMid = 4, kTextFit = 5 };
enum TextVertMode : int { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };

enum Planarity { kNonPlanar = 0, kPlanar = 1, kLinear = 2 };

enum Poly2dType { k2dSimplePoly = 0, k2dFitCurvePoly = 1, k2dQuadSplinePoly = 2, k2dCubicSplinePoly = 3 };
enum Poly3dType { k3dSimplePoly = 0, k3dQuadSplinePoly = 1, k3dCubicSplinePoly = 2 };
enum Vertex2dType { k2dVertex = 0, k2dSplineCtlVertex = 1, k2dSplineFitVertex = 2, k2dCurveFitVertex = 3 };
enum Vertex3dType { k3dSimpleVertex = 0, k3dControlVertex = 1, k3dFitVertex = 2 };

/// How an audit is run.
enum AuditPass { kAuditPass1 = 1, kAuditPass2 = 2 };

/// Group codes of the exchange format. A code that has no name here is cast: AcDb::DxfCode(211).
enum DxfCode {
  kDxfInvalid = -9999,
  kDxfXDictionary = -6,
  kDxfPReactors = -5,
  kDxfOperator = -4,
  kDxfXDataStart = -3,
  kDxfFirstEntId = -2,
  kDxfHeaderId = -2,
  kDxfEnd = -1,
  kDxfStart = 0,
  kDxfText = 1,
  kDxfXRefPath = 1,
  kDxfShapeName = 2,
  kDxfBlockName = 2,
  kDxfAttributeTag = 2,
  kDxfSymbolTableName = 2,
  kDxfSymTableRecName = 2,
  kDxfDimStyleName = 3,
  kDxfTextFontFile = 3,
  kDxfDescription = 3,
  kDxfTextBigFontFile = 4,
  kDxfHandle = 5,
  kDxfLinetypeName = 6,
  kDxfTextStyleName = 7,
  kDxfLayerName = 8,
  kDxfCLShapeText = 9,
  kDxfXCoord = 10,
  kDxfYCoord = 20,
  kDxfZCoord = 30,
  kDxfElevation = 38,
  kDxfThickness = 39,
  kDxfReal = 40,
  kDxfTxtSize = 40,
  kDxfTxtStyleXScale = 41,
  kDxfLinetypeScale = 48,
  kDxfDashLength = 49,
  kDxfAngle = 50,
  kDxfTxtStylePSize = 42,
  kDxfVisibility = 60,
  kDxfLayerLinetype = 61,
  kDxfColor = 62,
  kDxfHasSubentities = 66,
  kDxfViewportVisibility = 67,
  kDxfViewportActive = 68,
  kDxfViewportNumber = 69,
  kDxfInt16 = 70,
  kDxfTxtStyleFlags = 71,
  kDxfLinetypeAlign = 72,
  kDxfLinetypePDC = 73,
  kDxfInt32 = 90,
  kDxfSubclass = 100,
  kDxfEmbeddedObjectStart = 101,
  kDxfControlString = 102,
  kDxfDimVarHandle = 105,
  kDxfUCSOrg = 110,
  kDxfXReal = 140,
  kDxfViewWidth = 41,
  kDxfXInt16 = 170,
  kDxfNormalX = 210,
  kDxfNormalY = 220,
  kDxfNormalZ = 230,
  kDxfXXInt16 = 270,
  kDxfInt8 = 280,
  kDxfRenderMode = 281,
  kDxfBool = 290,
  kDxfXTextString = 300,
  kDxfBinaryChunk = 310,
  kDxfArbHandle = 320,
  kDxfSoftPointerId = 330,
  kDxfHardPointerId = 340,
  kDxfSoftOwnershipId = 350,
  kDxfHardOwnershipId = 360,
  kDxfLineWeight = 370,
  kDxfPlotStyleNameType = 380,
  kDxfPlotStyleNameId = 390,
  kDxfXXXInt16 = 400,
  kDxfLayoutName = 410,
  kDxfColorRGB = 420,
  kDxfColorName = 430,
  kDxfComment = 999,
  kDxfXdAsciiString = 1000,
  kDxfRegAppName = 1001,
  kDxfXdControlString = 1002,
  kDxfXdLayerName = 1003,
  kDxfXdBinaryChunk = 1004,
  kDxfXdHandle = 1005,
  kDxfXdXCoord = 1010,
  kDxfXdYCoord = 1020,
  kDxfXdZCoord = 1030,
  kDxfXdWorldXCoord = 1011,
  kDxfXdWorldXDisp = 1012,
  kDxfXdWorldXDir = 1013,
  kDxfXdReal = 1040,
  kDxfXdDist = 1041,
  kDxfXdScale = 1042,
  kDxfXdInteger16 = 1070,
  kDxfXdInteger32 = 1071,
  kDxfXdMax = 1071
};

}  // namespace AcDb
