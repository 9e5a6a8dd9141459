#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>

#include "object/KrObject.h"

/// What the classes of the catalogue share, so that each of them reads as its table.

/// How every class of the catalogue registers: the drawing format and maintenance version in which it came to be, and
/// what may be done to its proxies.
inline constexpr int kProfileDwgVersion = 29;
inline constexpr int kProfileMaintenanceVersion = 1;
inline constexpr int kProfileProxyFlags = 3071;

/// Registers a class of the catalogue under its own name, also as the application's, with its class name in DXF files.
#define KR_PROFILE_DEFINE_MEMBERS(CLASS_NAME, DXF_NAME)                                                             \
  ACRX_DXF_DEFINE_MEMBERS(CLASS_NAME, KrObject, kProfileDwgVersion, kProfileMaintenanceVersion, kProfileProxyFlags, \
                          DXF_NAME, CLASS_NAME)

namespace ProfileHelpers {

/// Room for a formatted number, as `acdbRToS` asks.
inline constexpr int kNumberSize = 400;

/// Places a bar between two points: its direction and length in the drawing plane follow from them.
void placeBar(KrObject& bar, const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista);
/// Places a bar from a point along an angle.
void placeBar(KrObject& bar, const AcGePoint3d& start, KrVistas vista, double angleVista, double comprimento);

/// The text of a bill of materials: the prefix of the class, which the user's designation of the class then overwrites.
void writePerfil(const KrObject& bar, const ACHAR* prefix, ACHAR* buffer);
/// The dimensions, joined by "x"; a zero one is empty.
void writeDimensoes(ACHAR* buffer, std::initializer_list<double> dimensoes);
/// A number in the drawing's current units.
struct CurrentUnits {
  explicit CurrentUnits(double value);
  ACHAR text[kNumberSize];
};

/// The class's own lines of a listing: dimensions and area.
void listSection(std::initializer_list<double> dimensoes, double area);
/// The class's own lines of a compound section's listing: those of one half, then those of the whole, each under its
/// title.
void listCompound(std::initializer_list<double> ofHalf, double areaOfHalf, std::initializer_list<double> ofWhole,
                  double areaOfWhole, const ACHAR* titleOfHalf = L"Dados do Perfil");

/// Length of what a bar's current view draws in lines and arcs.
double drawnLength(const KrObject& bar);

/// Adds what another bar draws, in all its views, to the lists of a bar.
void copyDrawn(KrObject& to, const KrObject& from);

/// Copies parameter by parameter; both lists have the same length.
void copyParameters(std::span<double* const> to, std::span<const double* const> from);

/// Files the version of a class and its parameters, behind what the base filed. The filer's status.
Acad::ErrorStatus writeFields(AcDbDwgFiler* filer, std::int16_t versao, std::initializer_list<double> parametros);
/// Reads them back: `Acad::eMakeMeProxy` for a version above `known`, with the parameters as they were; else the
/// filer's status. What stands behind a break keeps what it held.
Acad::ErrorStatus readFields(AcDbDwgFiler* filer, std::int16_t& versao, std::int16_t known,
                             std::initializer_list<double*> parametros);
/// The same with the parameters in place.
Acad::ErrorStatus writeFields(AcDbDwgFiler* filer, std::int16_t versao, std::span<const double* const> parametros);
Acad::ErrorStatus readFields(AcDbDwgFiler* filer, std::int16_t& versao, std::int16_t known,
                             std::span<double* const> parametros);

/// Empties an outline made from measures of a file that is beyond reckoning: a member without one draws nothing.
void dropUnlessFinite(KrGeratriz& outline);

/// The same in DXF: the class's subclass marker, group 170 and one group 40 per parameter.
Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::initializer_list<double> parametros);
/// Reads them back in strict order; a wrong group, or a version other than 1, ends the reading with
/// `Acad::eInvalidDxfCode` in the filer. The parameters ahead of that stay; a refused version isn't taken. Without the
/// subclass marker nothing is read. The filer's status.
Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::initializer_list<double*> parametros);
/// The same with the parameters in place.
Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::span<const double* const> parametros);
Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::span<double* const> parametros);

}  // namespace ProfileHelpers
