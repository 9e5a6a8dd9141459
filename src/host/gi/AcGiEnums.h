#pragma once

/// Why a drawable is asked to draw.
enum AcGiRegenType {
  eAcGiRegenTypeInvalid = 0,
  kAcGiStandardDisplay = 2,
  kAcGiHideOrShadeCommand = 3,
  kAcGiRenderCommand = 4,
  kAcGiForExplode = 5,
  kAcGiSaveWorldDrawForProxy = 6,
  kAcGiForExtents = 7
};

/// Whether closed figures are filled.
enum AcGiFillType { kAcGiFillAlways = 1, kAcGiFillNever = 2 };

/// What of an arc is drawn: the curve, the closed pie slice, or the curve closed by its chord.
enum AcGiArcType { kAcGiArcSimple = 0, kAcGiArcSector = 1, kAcGiArcChord = 2 };

/// What a deviation asked for is about.
enum AcGiDeviationType {
  kAcGiMaxDevForCircle = 0,
  kAcGiMaxDevForCurve = 1,
  kAcGiMaxDevForBoundary = 2,
  kAcGiMaxDevForIsoline = 3,
  kAcGiMaxDevForFacet = 4
};
