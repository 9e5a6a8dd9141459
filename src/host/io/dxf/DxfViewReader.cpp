#include <cmath>

#include "host/io/dxf/DxfAngle.h"
#include "host/io/dxf/DxfTableReader.h"

namespace krio::dxf {

namespace {

constexpr int kPaperSpaceFlag = 1;

/// Groups of a coordinate system that views and viewports have alike.
bool takeUcs(Input& in, AcDbUcsData& ucs) {
  switch (in.code()) {
    case 110:
      ucs.origin = in.point();
      return true;
    case 111:
      ucs.xAxis = in.vector();
      return true;
    case 112:
      ucs.yAxis = in.vector();
      return true;
    case 79:
      ucs.orthoType = in.whole<Adesk::Int16>();
      return true;
    case 146:
      ucs.elevation = in.real();
      return true;
    case 345:
      ucs.named = in.reference();
      return true;
    case 346:
      ucs.base = in.reference();
      return true;
    default:
      return false;
  }
}

/// Groups of a view that both have alike.
bool takeView(Input& in, AcDbAbstractViewTableRecord::ViewData& view) {
  switch (in.code()) {
    case 40:
      view.height = in.real();
      return true;
    case 42:
      view.lensLength = in.real();
      return true;
    case 43:
      view.frontClip = in.real();
      return true;
    case 44:
      view.backClip = in.real();
      return true;
    case 71:
      view.mode = in.whole<Adesk::Int16>();
      return true;
    case 281:
      view.renderMode = in.whole<Adesk::UInt8>();
      return true;
    default:
      return takeUcs(in, view.ucs);
  }
}

}  // namespace

void TableReader::readViewport() {
  auto viewport = std::make_unique<AcDbViewportTableRecord>();
  AcDbViewportTableRecord::Data& data = viewport->dataAsRead();
  AcDbAbstractViewTableRecord::ViewData& view = viewport->viewDataAsRead();
  Wide aspect = 1;
  data.ucsPerViewport = false;
  readGroups(*viewport, [&](int code) {
    switch (code) {
      case 10:
        data.lowerLeft = in_.point2d();
        break;
      case 11:
        data.upperRight = in_.point2d();
        break;
      case 12:
        view.center = in_.point2d();
        break;
      case 13:
        data.snapBase = in_.point2d();
        break;
      case 14:
        data.snapSpacing = in_.point2d();
        break;
      case 15:
        data.gridSpacing = in_.point2d();
        break;
      case 16:
        view.direction = in_.vector();
        break;
      case 17:
        view.target = in_.point();
        break;
      case 41:
        if (!parseWide(in_.value(), aspect)) in_.fault("a viewport's ratio is no number");
        break;
      case 50:
        data.snapRotation = in_.angle();
        break;
      case 51:
        view.twist = in_.angle();
        break;
      case 72:
        data.circleZoom = in_.whole<Adesk::Int16>();
        break;
      case 73:
        data.fastZoom = in_.flag();
        break;
      case 74:
        data.ucsIcon = in_.whole<Adesk::UInt8>();
        break;
      case 75:
        data.snapOn = in_.flag();
        break;
      case 76:
        data.gridOn = in_.flag();
        break;
      case 77:
        data.snapStyle = in_.flag();
        break;
      case 78:
        data.snapIsoPair = in_.whole<Adesk::Int16>();
        break;
      case 65:
        data.ucsPerViewport = in_.flag();
        break;
      default:
        takeView(in_, view);
    }
  });
  view.width = widthOf(view.height, aspect);
  if (!std::isfinite(view.width)) {
    in_.fault("a viewport is wider than any number", frames_.frame().handle);
    view.width = view.height;
  }
  put(std::move(viewport), drawing_.roots().viewportTable);
}

void TableReader::readView() {
  auto view = std::make_unique<AcDbViewTableRecord>();
  AcDbAbstractViewTableRecord::ViewData& data = view->viewDataAsRead();
  readGroups(*view, [&](int code) {
    switch (code) {
      case 10:
        data.center = in_.point2d();
        break;
      case 41:
        data.width = in_.real();
        break;
      case 11:
        data.direction = in_.vector();
        break;
      case 12:
        data.target = in_.point();
        break;
      case 50:
        data.twist = in_.angle();
        break;
      case 72:
        view->dataAsRead().hasUcs = in_.flag();
        break;
      default:
        takeView(in_, data);
    }
  });
  view->dataAsRead().paperSpace = (flags_ & kPaperSpaceFlag) != 0;
  put(std::move(view), drawing_.roots().viewTable);
}

void TableReader::readUcs() {
  auto ucs = std::make_unique<AcDbUCSTableRecord>();
  AcDbUCSTableRecord::Data& data = ucs->dataAsRead();
  readGroups(*ucs, [&](int code) {
    switch (code) {
      case 10:
        data.ucs.origin = in_.point();
        break;
      case 11:
        data.ucs.xAxis = in_.vector();
        break;
      case 12:
        data.ucs.yAxis = in_.vector();
        break;
      case 71:
        data.orthoOrigins.emplace_back().type = in_.whole<Adesk::Int16>();
        break;
      case 13:
        if (!data.orthoOrigins.empty()) data.orthoOrigins.back().origin = in_.point();
        break;
      default:
        takeUcs(in_, data.ucs);
    }
  });
  put(std::move(ucs), drawing_.roots().ucsTable);
}

}  // namespace krio::dxf
