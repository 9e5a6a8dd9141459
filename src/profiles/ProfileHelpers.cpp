#include "profiles/ProfileHelpers.h"

#include <cmath>
#include <cwchar>

#include "host/ed/ed.h"
#include "records/StrictDxfReader.h"
#include "support/Angles.h"
#include "support/Bulges.h"
#include "support/Units.h"

namespace ProfileHelpers {

namespace {

/// The one class version whose DXF groups are read.
constexpr std::int16_t kDxfVersionRead = 1;

void place(KrObject& bar, const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista, double angleVista,
           double comprimento) {
  bar.setVista(vista);
  bar.setStartPoint(start);
  bar.setendPoint(end);
  bar.setAngleVista(angleVista);
  bar.setComprimento(comprimento);
}

}  // namespace

void placeBar(KrObject& bar, const AcGePoint3d& start, const AcGePoint3d& end, KrVistas vista) {
  place(bar, start, end, vista, acutAngle(asDblArray(start), asDblArray(end)), start.distanceTo(end));
}

void placeBar(KrObject& bar, const AcGePoint3d& start, KrVistas vista, double angleVista, double comprimento) {
  place(bar, start, start + VectorAngleRad(angleVista) * comprimento, vista, angleVista, comprimento);
}

void writePerfil(const KrObject& bar, const ACHAR* prefix, ACHAR* buffer) {
  std::wcscpy(buffer, prefix);
  bar.getPerfilUsr(buffer);
}

void writeDimensoes(ACHAR* buffer, std::initializer_list<double> dimensoes) {
  buffer[0] = L'\0';
  bool first = true;
  for (const double dimensao : dimensoes) {
    if (!first) std::wcscat(buffer, L"x");
    first = false;
    std::wcscat(buffer, FormatInString(dimensao));
  }
}

CurrentUnits::CurrentUnits(double value) {
  constexpr int kCurrent = -1;
  if (acdbRToS(value, kCurrent, kCurrent, text) != RTNORM) text[0] = L'\0';
}

Acad::ErrorStatus writeFields(AcDbDwgFiler* filer, std::int16_t versao, std::initializer_list<double> parametros) {
  filer->writeInt16(versao);
  for (const double parametro : parametros) filer->writeDouble(parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus readFields(AcDbDwgFiler* filer, std::int16_t& versao, std::int16_t known,
                             std::initializer_list<double*> parametros) {
  Adesk::Int16 filed = 0;
  filer->readInt16(&filed);
  if (filed > known) return Acad::eMakeMeProxy;
  versao = filed;
  for (double* parametro : parametros) filer->readDouble(parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::initializer_list<double> parametros) {
  filer->writeItem(AcDb::kDxfSubclass, className);
  filer->writeItem(AcDb::kDxfXInt16, static_cast<Adesk::Int16>(versao));
  for (const double parametro : parametros) filer->writeItem(AcDb::kDxfReal, parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::initializer_list<double*> parametros) {
  if (!filer->atSubclassData(className)) return filer->filerStatus();
  StrictDxfReader reader(filer);
  bool complete = reader.int16(versao) && reader.require(versao == kDxfVersionRead);
  for (double* parametro : parametros) complete = complete && reader.real(*parametro);
  return complete ? filer->filerStatus() : reader.giveUp();
}

}  // namespace ProfileHelpers
