#pragma once

#include "host/io/dwg/Codec.h"

// The fields of symbol table records, behind the common data and in both directions. Each begins with its file part.

namespace krio::dwg {

/// What all records begin with. The name is told apart, since a block's record may have another than the block.
template <class Io>
void codeFilePart(Io& io, typename Io::template Field<std::wstring>& name,
                  typename Io::template Field<AcDbSymbolTableRecord::FilePart>& part) {
  io.tv(name), io.b(part.referenced);
  if constexpr (Io::kReading) {
    io.bs(part.xrefIndex);
    part.xrefIndex = Adesk::Int16(part.xrefIndex - 1);
  } else {
    io.bs(part.xrefIndex + 1);
  }
  io.b(part.dependent);
  io.id(kHardPointer, part.xrefBlock);
}

template <class Io, class Record>
void codeFilePart(Io& io, Record& record) {
  if constexpr (Io::kReading) {
    std::wstring name;
    codeFilePart(io, name, record.filePartAsRead());
    record.setNameAsRead(std::move(name));
  } else {
    codeFilePart(io, record.nameText(), record.filePart());
  }
}

template <class Io>
auto& dataOf(auto& object) {
  if constexpr (Io::kReading) {
    return object.dataAsRead();
  } else {
    return object.data();
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbLayerTableRecord>& layer) {
  codeFilePart(io, layer);
  enum Bit : unsigned { kFrozen = 1, kOff = 2, kFrozenInNew = 4, kLocked = 8, kPlotted = 0x10 };
  constexpr unsigned kWeightShift = 5;
  constexpr unsigned kWeightMask = 0x1f;
  if constexpr (Io::kReading) {
    unsigned values = 0;
    AcCmColor color;
    AcDbObjectId plotStyle, linetype;
    io.bs(values), io.color(color);
    io.id(kHardPointer, plotStyle), io.id(kHardPointer, linetype);
    layer.setStatesAsRead((values & kFrozen) != 0, (values & kOff) != 0, (values & kFrozenInNew) != 0,
                          (values & kLocked) != 0, (values & kPlotted) != 0);
    layer.setLineWeightAsRead(acdbLineWeightAt(Adesk::UInt8(values >> kWeightShift & kWeightMask)));
    layer.setColorAsRead(color), layer.setPlotStyleAsRead(plotStyle), layer.setLinetypeAsRead(linetype);
  } else {
    io.bs((layer.isFrozen() ? kFrozen : 0U) | (layer.isOff() ? kOff : 0U) | (layer.VPDFLT() ? kFrozenInNew : 0U) |
          (layer.isLocked() ? kLocked : 0U) | (layer.isPlottable() ? kPlotted : 0U) |
          unsigned(acdbLineWeightIndex(layer.lineWeight())) << kWeightShift);
    io.color(layer.color());
    io.id(kHardPointer, layer.plotStyleNameId()), io.id(kHardPointer, layer.linetypeObjectId());
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbTextStyleTableRecord>& style) {
  codeFilePart(io, style);
  auto& d = dataOf<Io>(style);
  io.b(d.shapeFile), io.b(d.vertical), io.bd(d.textSize), io.bd(d.xScale), io.bd(d.obliquing);
  io.rc(d.flagBits), io.bd(d.priorSize), io.tv(d.fileName), io.tv(d.bigFontFileName);
}

inline constexpr std::size_t kStringAreaBytes = 256;

/// The string area of a linetype: as read, or put together from the texts of its dashes; `places` tells where each
/// dash's text lies in it.
std::vector<std::uint8_t> stringArea(const AcDbLinetypeTableRecord::Data& data, const os::CodePage& page,
                                     std::vector<Adesk::Int16>& places);
/// Gives the dashes the texts that the area holds for them.
void takeTexts(AcDbLinetypeTableRecord::Data& data, const os::CodePage& page);

template <class Io>
void code(Io& io, typename Io::template Field<AcDbLinetypeTableRecord>& linetype) {
  codeFilePart(io, linetype);
  auto& d = dataOf<Io>(linetype);
  io.tv(d.description), io.bd(d.patternLength), io.rc(d.alignment);
  if constexpr (Io::kReading) {
    // A dash takes six codes of two bits at least, and two doubles in full.
    constexpr std::size_t kDashBits = 12 + 128;
    if (!io.sized(d.dashes, io.data.rc(), kDashBits)) return;
    for (auto& dash : d.dashes) {
      io.bd(dash.length), io.bs(dash.shape), io.rd(dash.xOffset), io.rd(dash.yOffset);
      io.bd(dash.scale), io.bd(dash.rotation), io.bs(dash.flags);
    }
    d.stringArea.resize(kStringAreaBytes);
    if (io.data.bytes(d.stringArea.data(), kStringAreaBytes)) takeTexts(d, io.context().codePage());
  } else {
    std::vector<Adesk::Int16> places;
    const auto area = stringArea(d, io.codePage(), places);
    io.rc(d.dashes.size());
    for (std::size_t i = 0; i < d.dashes.size(); ++i) {
      const auto& dash = d.dashes[i];
      io.bd(dash.length), io.bs(places[i]), io.rd(dash.xOffset), io.rd(dash.yOffset);
      io.bd(dash.scale), io.bd(dash.rotation), io.bs(dash.flags);
    }
    io.data.bytes(area.data(), area.size());
  }
  for (auto& dash : d.dashes) io.id(kHardPointer, dash.style);
}

template <class Io>
void codeUcs(Io& io, typename Io::template Field<AcDbUcsData>& ucs) {
  io.bd3(ucs.origin), io.bd3(ucs.xAxis), io.bd3(ucs.yAxis), io.bd(ucs.elevation), io.bs(ucs.orthoType);
}

/// What views and tiled viewports have in common; they differ in the order of the first three.
template <class Io>
void codeViewRest(Io& io, typename Io::template Field<AcDbAbstractViewTableRecord::ViewData>& v) {
  using View = AcDbAbstractViewTableRecord;
  io.bd3(v.target), io.bd3(v.direction), io.bd(v.twist), io.bd(v.lensLength), io.bd(v.frontClip), io.bd(v.backClip);
  bool perspective = (v.mode & View::kPerspective) != 0;
  bool front = (v.mode & View::kFrontClip) != 0;
  bool back = (v.mode & View::kBackClip) != 0;
  bool atEye = (v.mode & View::kFrontClipNotAtEye) == 0;
  io.b(perspective), io.b(front), io.b(back), io.b(atEye);
  if constexpr (Io::kReading) {
    v.mode = Adesk::Int16((perspective ? View::kPerspective : 0) | (front ? View::kFrontClip : 0) |
                          (back ? View::kBackClip : 0) | (atEye ? 0 : View::kFrontClipNotAtEye));
  }
  io.rc(v.renderMode);
}

template <class Io>
auto& viewDataOf(auto& record) {
  if constexpr (Io::kReading) {
    return record.viewDataAsRead();
  } else {
    return record.viewData();
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbViewTableRecord>& view) {
  codeFilePart(io, view);
  auto& v = viewDataOf<Io>(view);
  auto& d = dataOf<Io>(view);
  io.bd(v.height), io.bd(v.width), io.rd2(v.center);
  codeViewRest(io, v);
  io.b(d.paperSpace), io.b(d.hasUcs);
  if (!d.hasUcs) return;
  codeUcs(io, v.ucs);
  io.id(kHardPointer, v.ucs.base), io.id(kHardPointer, v.ucs.named);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbViewportTableRecord>& port) {
  codeFilePart(io, port);
  auto& v = viewDataOf<Io>(port);
  auto& d = dataOf<Io>(port);
  io.bd(v.height), io.bd(v.width), io.rd2(v.center);
  codeViewRest(io, v);
  io.rd2(d.lowerLeft), io.rd2(d.upperRight);
  constexpr auto kFollow = AcDbAbstractViewTableRecord::kFollowUcs;
  bool follow = (v.mode & kFollow) != 0;
  io.b(follow);
  if constexpr (Io::kReading) v.mode = Adesk::Int16(follow ? v.mode | kFollow : v.mode & ~kFollow);
  io.bs(d.circleZoom), io.b(d.fastZoom), io.bb(d.ucsIcon), io.b(d.gridOn), io.rd2(d.gridSpacing);
  io.b(d.snapOn), io.b(d.snapStyle), io.bs(d.snapIsoPair), io.bd(d.snapRotation), io.rd2(d.snapBase);
  io.rd2(d.snapSpacing), io.b(d.unknown), io.b(d.ucsPerViewport);
  codeUcs(io, v.ucs);
  io.id(kHardPointer, v.ucs.named), io.id(kHardPointer, v.ucs.base);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbUCSTableRecord>& ucs) {
  codeFilePart(io, ucs);
  auto& d = dataOf<Io>(ucs);
  codeUcs(io, d.ucs);
  if constexpr (Io::kReading) {
    if (!io.sized(d.orthoOrigins, io.data.bs(), 8)) return;
  } else {
    io.bs(d.orthoOrigins.size());
  }
  for (auto& each : d.orthoOrigins) io.bs(each.type), io.bd3(each.origin);
  io.id(kHardPointer, d.ucs.base), io.id(kHardPointer, d.ucs.named);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbRegAppTableRecord>& app) {
  codeFilePart(io, app);
  std::uint8_t unknown = 0;
  io.rc(unknown);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbVXTableRecord>& header) {
  codeFilePart(io, header);
  auto& d = dataOf<Io>(header);
  io.b(d.on);
  io.id(kSoftPointer, d.viewport), io.id(kHardPointer, d.previous);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbDimStyleTableRecord>& style) {
  using Style = AcDbDimStyleTableRecord;
  codeFilePart(io, style);
  auto& d = dataOf<Io>(style);
  const auto real = [&](Style::RealIndex i) {
    double value = style.realAt(i);
    io.bd(value);
    if constexpr (Io::kReading) style.setRealAsRead(i, value);
  };
  const auto flag = [&](Style::IntIndex i) {
    bool value = style.wholeAt(i) != 0;
    io.b(value);
    if constexpr (Io::kReading) style.setWholeAsRead(i, value ? 1 : 0);
  };
  const auto whole = [&](Style::IntIndex i) {
    int value = style.wholeAt(i);
    io.bs(value);
    if constexpr (Io::kReading) style.setWholeAsRead(i, value);
  };
  io.tv(d.dimpost), io.tv(d.dimapost);
  for (const auto i :
       {Style::dimscaleIndex, Style::dimaszIndex, Style::dimexoIndex, Style::dimdliIndex, Style::dimexeIndex,
        Style::dimrndIndex, Style::dimdleIndex, Style::dimtpIndex, Style::dimtmIndex}) {
    real(i);
  }
  for (const auto i : {Style::dimtolIndex, Style::dimlimIndex, Style::dimtihIndex, Style::dimtohIndex,
                       Style::dimse1Index, Style::dimse2Index}) {
    flag(i);
  }
  for (const auto i : {Style::dimtadIndex, Style::dimzinIndex, Style::dimazinIndex}) whole(i);
  for (const auto i :
       {Style::dimtxtIndex, Style::dimcenIndex, Style::dimtszIndex, Style::dimaltfIndex, Style::dimlfacIndex,
        Style::dimtvpIndex, Style::dimtfacIndex, Style::dimgapIndex, Style::dimaltrndIndex}) {
    real(i);
  }
  flag(Style::dimaltIndex), whole(Style::dimaltdIndex);
  for (const auto i : {Style::dimtoflIndex, Style::dimsahIndex, Style::dimtixIndex, Style::dimsoxdIndex}) flag(i);
  for (const auto i :
       {Style::dimclrdIndex, Style::dimclreIndex, Style::dimclrtIndex, Style::dimadecIndex, Style::dimdecIndex,
        Style::dimtdecIndex, Style::dimaltuIndex, Style::dimalttdIndex, Style::dimaunitIndex, Style::dimfracIndex,
        Style::dimlunitIndex, Style::dimdsepIndex, Style::dimtmoveIndex, Style::dimjustIndex}) {
    whole(i);
  }
  flag(Style::dimsd1Index), flag(Style::dimsd2Index);
  for (const auto i : {Style::dimtoljIndex, Style::dimtzinIndex, Style::dimaltzIndex, Style::dimalttzIndex}) whole(i);
  flag(Style::dimuptIndex);
  for (const auto i : {Style::dimatfitIndex, Style::dimlwdIndex, Style::dimlweIndex}) whole(i);
  io.b(d.unknown);
  io.id(kHardPointer, d.dimtxsty), io.id(kHardPointer, d.dimldrblk), io.id(kHardPointer, d.dimblk);
  io.id(kHardPointer, d.dimblk1), io.id(kHardPointer, d.dimblk2);
}

}  // namespace krio::dwg
