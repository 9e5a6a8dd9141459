#pragma once

#include "host/db/MergeStyle.h"
#include "host/io/dwg/RecordFields.h"

// The fields of objects that are neither entities nor table records, behind the common data and in both directions.

namespace krio::dwg {

template <class Io>
void code(Io& io, typename Io::template Field<AcDbDictionary>& dictionary) {
  if constexpr (Io::kReading) {
    const std::uint32_t n = io.data.bl();
    Adesk::Int16 style = 0;
    std::uint8_t hard = 0;
    io.bs(style), io.rc(hard);
    dictionary.setFlagsAsRead(hard != 0, acdbMergeStyleOf(style));
    // A key takes two bits at least, and its item eight.
    if (!io.data.fits(n, 2) || !io.handles.fits(n, 8)) return;
    dictionary.reserve(n);
    std::wstring key;
    for (std::uint32_t i = 0; i < n && !io.failed(); ++i) {
      io.tv(key);
      AcDbObjectId item;
      io.id(kSoftOwner, item);
      dictionary.appendAsRead(std::move(key), item);
    }
  } else {
    std::vector<const AcDbDictionary::Entry*> live;
    for (const auto& entry : dictionary.entries()) {
      if (!entry.second.isErased()) live.push_back(&entry);
    }
    io.bl(live.size()), io.bs(int(dictionary.mergeStyleAsRead())), io.rc(dictionary.hardAsRead() ? 1 : 0);
    for (const auto* entry : live) io.tv(entry->first);
    for (const auto* entry : live) io.id(kSoftOwner, entry->second);
  }
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbDictionaryWithDefault>& dictionary) {
  code(io, static_cast<typename Io::template Field<AcDbDictionary>&>(dictionary));
  if constexpr (Io::kReading) {
    AcDbObjectId id;
    io.id(kHardPointer, id);
    dictionary.setDefaultIdAsRead(id);
  } else {
    io.id(kHardPointer, dictionary.defaultId());
  }
}

template <class Io>
void code(Io&, typename Io::template Field<AcDbPlaceHolder>&) {}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbDictionaryVar>& variable) {
  auto& d = dataOf<Io>(variable);
  io.rc(d.schema), io.tv(d.value);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbGroup>& group) {
  auto& d = dataOf<Io>(group);
  io.tv(d.description), io.bs(d.unnamed), io.bs(d.selectable);
  if constexpr (Io::kReading) {
    const std::uint32_t n = io.data.bl();
    if (!io.handles.fits(n, 8)) return;
    d.entities.resize(n);
  } else {
    io.count(d.entities, 0);
  }
  for (auto& entity : d.entities) io.id(kHardPointer, entity);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbMlineStyle>& style) {
  auto& d = dataOf<Io>(style);
  io.tv(d.name), io.tv(d.description), io.bs(d.flags), io.bs(d.fillColor), io.bd(d.startAngle), io.bd(d.endAngle);
  if constexpr (Io::kReading) {
    if (!io.sized(d.lines, io.data.rc(), 6)) return;
  } else {
    io.rc(d.lines.size());
  }
  for (auto& line : d.lines) io.bd(line.offset), io.bs(line.color), io.bs(line.linetype);
}

template <class Io>
void codePlot(Io& io, typename Io::template Field<AcDbPlotSettings::PlotData>& p) {
  io.tv(p.pageSetup), io.tv(p.device), io.bs(p.flags);
  io.bd(p.leftMargin), io.bd(p.bottomMargin), io.bd(p.rightMargin), io.bd(p.topMargin);
  io.bd(p.paperWidth), io.bd(p.paperHeight), io.tv(p.paperSize), io.bd(p.originX), io.bd(p.originY);
  io.bs(p.paperUnits), io.bs(p.rotation), io.bs(p.plotType), io.bd2(p.windowMin), io.bd2(p.windowMax);
  io.tv(p.plotView), io.bd(p.scaleNumerator), io.bd(p.scaleDenominator), io.tv(p.styleSheet);
  io.bs(p.standardScaleType), io.bd(p.standardScale), io.bd2(p.paperImageOrigin);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbPlotSettings>& settings) {
  if constexpr (Io::kReading) {
    codePlot(io, settings.plotDataAsRead());
  } else {
    codePlot(io, settings.plotData());
  }
}

template <class Io>
void codeLayout(Io& io, typename Io::template Field<AcDbLayout::LayoutData>& l) {
  io.tv(l.name), io.bl(l.tabOrder), io.bs(l.flags), io.bd3(l.ucsOrigin), io.rd2(l.limMin), io.rd2(l.limMax);
  io.bd3(l.insBase), io.bd3(l.ucsXAxis), io.bd3(l.ucsYAxis), io.bd(l.elevation), io.bs(l.orthoType);
  io.bd3(l.extMin), io.bd3(l.extMax);
  io.id(kSoftPointer, l.block), io.id(kSoftPointer, l.lastActiveViewport);
  io.id(kHardPointer, l.baseUcs), io.id(kHardPointer, l.namedUcs);
}

template <class Io>
void code(Io& io, typename Io::template Field<AcDbLayout>& layout) {
  code(io, static_cast<typename Io::template Field<AcDbPlotSettings>&>(layout));
  if constexpr (Io::kReading) {
    codeLayout(io, layout.layoutDataAsRead());
  } else {
    codeLayout(io, layout.layoutData());
  }
}

}  // namespace krio::dwg
