#include "profiles/ProfileHelpers.h"

#include <cstddef>
#include <cwchar>

#include "host/ed/ed.h"
#include "object/Finite.h"
#include "records/ItemReader.h"
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

void listSection(std::initializer_list<double> dimensoes, double area) {
  acutPrintf(L"\n%s", L"Dimensões       ");
  const ACHAR* separator = L"";
  for (const double dimensao : dimensoes) {
    acutPrintf(L"%s%s", separator, CurrentUnits(dimensao).text);
    separator = L"x";
  }
  acutPrintf(L"\n%s%s %s", L"Área da seção   ", CurrentUnits(area).text, L"mm2");
}

void listCompound(std::initializer_list<double> ofHalf, double areaOfHalf, std::initializer_list<double> ofWhole,
                  double areaOfWhole, const ACHAR* titleOfHalf) {
  acutPrintf(L"\n%s\n", titleOfHalf);
  listSection(ofHalf, areaOfHalf);
  acutPrintf(L"\n\n%s\n", L"Dados do Perfil Composto");
  listSection(ofWhole, areaOfWhole);
}

double drawnLength(const KrObject& bar) {
  double length = 0.0;
  const KrObjectArray<KrVector>& elements = bar.currentVertexList(VistaCorrente);
  for (const auto* node = elements.getNode(0); node != nullptr; node = elements.nextNode(node)) {
    const KrVector& element = *node->value;
    if (element.type() == KR_VT_LINHA || element.type() == KR_VT_ARCO) length += element.len();
  }
  return length;
}

void copyDrawn(KrObject& to, const KrObject& from) {
  for (const KrVistas vista : {Secao, Superior, Inferior, Esquerda, Direita, SecaoVerso}) {
    const KrObjectArray<KrVector>& elements = from.currentVertexList(vista);
    for (const auto* node = elements.getNode(0); node != nullptr; node = elements.nextNode(node)) {
      to.AddVertex(*node->value, vista);
    }
  }
}

void copyParameters(std::span<double* const> to, std::span<const double* const> from) {
  for (std::size_t i = 0; i < to.size(); ++i) *to[i] = *from[i];
}

Acad::ErrorStatus writeFields(AcDbDwgFiler* filer, std::int16_t versao, std::initializer_list<double> parametros) {
  filer->writeInt16(versao);
  for (const double parametro : parametros) filer->writeDouble(parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus writeFields(AcDbDwgFiler* filer, std::int16_t versao, std::span<const double* const> parametros) {
  filer->writeInt16(versao);
  for (const double* parametro : parametros) filer->writeDouble(*parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus readFields(AcDbDwgFiler* filer, std::int16_t& versao, std::int16_t known,
                             std::initializer_list<double*> parametros) {
  return readFields(filer, versao, known, std::span<double* const>(parametros.begin(), parametros.size()));
}

Acad::ErrorStatus readFields(AcDbDwgFiler* filer, std::int16_t& versao, std::int16_t known,
                             std::span<double* const> parametros) {
  ItemReader in(filer);
  Adesk::Int16 filed = 0;
  if (!in.take(filed)) return in.status();
  if (filed > known) return Acad::eMakeMeProxy;
  versao = filed;
  for (double* parametro : parametros) in.take(*parametro);
  return in.status();
}

void dropUnlessFinite(KrGeratriz& outline) {
  for (int i = 0; i < outline.numNodes(); ++i) {
    const NoGeratriz& node = outline.GetNo(i);
    if (!isFinite(node.vertex) || !isFinite(node.bulge)) return outline.Clear();
  }
}

Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::initializer_list<double> parametros) {
  filer->writeItem(AcDb::kDxfSubclass, className);
  filer->writeItem(AcDb::kDxfXInt16, static_cast<Adesk::Int16>(versao));
  for (const double parametro : parametros) filer->writeItem(AcDb::kDxfReal, parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus writeGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t versao,
                              std::span<const double* const> parametros) {
  filer->writeItem(AcDb::kDxfSubclass, className);
  filer->writeItem(AcDb::kDxfXInt16, static_cast<Adesk::Int16>(versao));
  for (const double* parametro : parametros) filer->writeItem(AcDb::kDxfReal, *parametro);
  return filer->filerStatus();
}

Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::initializer_list<double*> parametros) {
  return readGroups(filer, className, versao, std::span<double* const>(parametros.begin(), parametros.size()));
}

Acad::ErrorStatus readGroups(AcDbDxfFiler* filer, const ACHAR* className, std::int16_t& versao,
                             std::span<double* const> parametros) {
  if (!filer->atSubclassData(className)) return filer->filerStatus();
  StrictDxfReader reader(filer);
  std::int16_t filed = 0;
  bool complete = reader.int16(filed) && reader.require(filed == kDxfVersionRead);
  if (complete) versao = filed;
  for (double* parametro : parametros) complete = complete && reader.real(*parametro);
  return complete ? filer->filerStatus() : reader.giveUp();
}

}  // namespace ProfileHelpers
