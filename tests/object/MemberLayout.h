#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "host/db/db.h"
#include "object/KrTypes.h"
#include "records/KrObjectArray.h"
#include "records/KrObjectModCData.h"
#include "records/KrVector.h"

/// A member's fields as a file of any version holds them, to be written item by item: written down from the layout and
/// not with the member's own writer.
struct MemberLayout {
  static constexpr int kNewest = 9;

  struct Cut {
    double a, b, c, d;
    AcGePoint3d side;
  };
  struct OutlineNode {
    AcGeVector3d vertex;
    double bulge;
  };
  struct Hole {
    AcGeVector3d ini, fim;
    double diametro, stretch, angle;
  };
  struct Notch {
    AcGePoint2d lado;
    std::vector<AcGePoint2d> points;
    std::vector<double> bulges;
    const KrObjectModCData* data = nullptr;
  };
  struct Extension {
    std::wstring className;  ///< empty: a slot without extension
    std::function<void(AcDbDwgFiler&)> write;
  };

  int version = kNewest;
  std::wstring name = L"V12";
  KrVistas view = Superior;
  int material = 3;
  int kind = Objeto;
  /// The lists of the views 0 to 4; from version 7 on only the one of `view` is filed.
  std::array<std::vector<KrVector>, 5> lists;
  AcGeVector3d normal{0, 0, 1};
  double angleVista = 0;
  AcGePoint3d start{10, 20, 30};
  AcGePoint3d end{1010, 20, 40};
  double comprimento = 1000;
  double angleSecao = 0;
  std::array<std::uint32_t, 24> pattern{1, 2, 3};
  bool projeto = false;
  double projetoFator = 100;
  std::vector<Cut> cuts;
  std::vector<AcDbObjectId> relativeObj;
  std::vector<OutlineNode> outline;  ///< with the reference node
  std::vector<Hole> holes;
  double xScale = 1, yScale = 1, zScale = 1;
  std::vector<AcDbObjectId> relativeDim, relativePos;
  int tipoBarra = 0;
  std::array<std::vector<Notch>, 2> notches;
  AcDbObjectId hidden, hideFace, axis;
  std::vector<Extension> extensions;

  /// A plate of 100 by 8 and 1000 long seen from above, with a thing in every field.
  static MemberLayout plate() {
    MemberLayout m;
    const auto line = [](double x1, double y1, double x2, double y2, KrVectorType type) {
      KrVector v(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0), type);
      if (type == KR_VT_LINHA) v.setTipo(KR_VF_ARESTA);
      return v;
    };
    for (std::size_t i = 0; i < m.lists.size(); ++i)
      for (std::size_t k = 0; k < i; ++k)
        m.lists[i].push_back(line(0, 50.0 * double(k), 100, 50.0 * double(k), KR_VT_LINHA));
    m.lists[Superior] = {line(10, -30, 1010, -30, KR_VT_LINHA), line(1010, -30, 1010, 70, KR_VT_LINHA),
                         line(1010, 70, 10, 70, KR_VT_LINHA),   line(10, 70, 10, -30, KR_VT_LINHA),
                         line(10, 20, 1010, 20, KR_VT_EIXO),    line(10, 20, 1010, 20, KR_VT_REFERENCIA)};
    m.lists[Superior][1].setHidden(1);
    m.lists[Superior][2].setIndexFur(4);
    m.lists[Superior][2].setTypeEx(KR_VTX_CORTE);
    m.angleSecao = 0.5;
    m.cuts = {{1, 0, 0, -900, {950, 0, 0}}, {0, 0, 1, 5, {0, 0, -7}}};
    m.outline = {{{0, 0, 0}, 0}, {{100, 0, 0}, 20}, {{100, 8, 0}, 0},
                 {{0, 8, 0}, 0}, {{0, 0, 0}, 0},    {{50, 4, 0}, 5000}};
    m.holes = {{{20, 0, 120}, {20, 8, 120}, 18, 10, 0.25}, {{70, 0, 300}, {70, 8, 300}, 14, 0, 0}};
    m.xScale = 0.5;
    m.yScale = 0.25;
    m.zScale = 2;
    m.tipoBarra = 4;
    m.notches[0] = {{{5, 5}, {{0, 0}, {50, 0}, {50, 20}, {0, 20}}, {0, 0.5, 0, 0}}};
    m.notches[1] = {{{-5, 5}, {{900, 0}, {1000, 30}, {1000, 0}}, {0, 0, 0}}, {{1, 2}, {{3, 4}}, {}}};
    return m;
  }

  void write(AcDbDwgFiler& filer) const {
    filer.writeInt16(static_cast<Adesk::Int16>(version));
    if (version >= 1) writeModel(filer);
    if (version >= 3) writeLinksAndOutline(filer);
    if (version >= 5) filer.writeInt16(static_cast<Adesk::Int16>(tipoBarra));
    if (version >= 6)
      for (const std::vector<Notch>& list : notches) writeNotches(filer, list);
    if (version >= 9) writeExtensions(filer);
  }

  AcDbMemoryDwgFiler::Buffer bytes(AcDb::FilerType type = AcDb::kFileFiler) const {
    AcDbMemoryDwgFiler filer(type);
    write(filer);
    return filer.takeBuffer();
  }

 private:
  void writeModel(AcDbDwgFiler& filer) const {
    filer.writeString(name.c_str());
    filer.writeUInt16(static_cast<Adesk::UInt16>(view));
    filer.writeUInt16(static_cast<Adesk::UInt16>(material));
    filer.writeUInt16(static_cast<Adesk::UInt16>(kind));
    if (version >= 7) {
      writeList(filer, lists[static_cast<std::size_t>(view)]);
    } else {
      for (const std::vector<KrVector>& list : lists) writeList(filer, list);
    }
    filer.writeVector3d(normal);
    filer.writeDouble(angleVista);
    filer.writePoint3d(start);
    filer.writePoint3d(end);
    filer.writeDouble(comprimento);
    filer.writeDouble(angleSecao);
    filer.writeBytes(pattern.data(), sizeof pattern);
    filer.writeBoolean(projeto);
    filer.writeDouble(projetoFator);
    filer.writeInt32(static_cast<Adesk::Int32>(cuts.size()));
    for (const Cut& cut : cuts) {
      for (const double k : {cut.a, cut.b, cut.c, cut.d}) filer.writeDouble(k);
      filer.writePoint3d(cut.side);
    }
  }

  void writeLinksAndOutline(AcDbDwgFiler& filer) const {
    writeIds(filer, relativeObj);
    const auto counted = outline.empty() ? 0 : outline.size() - 1;
    filer.writeInt32(static_cast<Adesk::Int32>(counted));
    for (const OutlineNode& node : outline) {
      filer.writeVector3d(node.vertex);
      filer.writeDouble(node.bulge);
    }
    filer.writeInt32(static_cast<Adesk::Int32>(holes.size()));
    for (const Hole& hole : holes) {
      filer.writeVector3d(hole.ini);
      filer.writeVector3d(hole.fim);
      filer.writeDouble(hole.diametro);
      filer.writeDouble(hole.stretch);
      if (version >= 4) filer.writeDouble(hole.angle);
    }
    for (const double scale : {xScale, yScale, zScale}) filer.writeDouble(scale);
    writeIds(filer, relativeDim);
    writeIds(filer, relativePos);
  }

  void writeExtensions(AcDbDwgFiler& filer) const {
    for (const AcDbObjectId id : {hidden, hideFace, axis}) filer.writeHardPointerId(AcDbHardPointerId(id));
    filer.writeInt32(static_cast<Adesk::Int32>(extensions.size()));
    for (const Extension& extension : extensions) {
      filer.writeString(extension.className.c_str());
      if (extension.write) extension.write(filer);
    }
  }

  static void writeList(AcDbDwgFiler& filer, const std::vector<KrVector>& list) {
    filer.writeInt32(static_cast<Adesk::Int32>(list.size()));
    for (const KrVector& element : list) element.dwgOutFields(&filer);
  }
  static void writeIds(AcDbDwgFiler& filer, const std::vector<AcDbObjectId>& ids) {
    filer.writeInt32(static_cast<Adesk::Int32>(ids.size()));
    for (const AcDbObjectId id : ids) filer.writeSoftPointerId(AcDbSoftPointerId(id));
  }
  static void writeNotches(AcDbDwgFiler& filer, const std::vector<Notch>& list) {
    filer.writeInt32(1);
    filer.writeInt32(static_cast<Adesk::Int32>(list.size()));
    for (const Notch& notch : list) {
      filer.writePoint2d(notch.lado);
      filer.writeInt32(static_cast<Adesk::Int32>(notch.points.size()));
      for (const AcGePoint2d& p : notch.points) filer.writePoint2d(p);
      filer.writeInt32(static_cast<Adesk::Int32>(notch.bulges.size()));
      for (const double bulge : notch.bulges) filer.writeDouble(bulge);
      filer.writeString(notch.data != nullptr ? notch.data->isA()->name() : L"");
      if (notch.data != nullptr) notch.data->dwgOutFields(&filer);
    }
  }
};
