#include "peer_occt.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <GC_MakeArcOfCircle.hxx>
#include <HLRAlgo_Projector.hxx>
#include <HLRBRep_Algo.hxx>
#include <HLRBRep_HLRToShape.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Ax2.hxx>
#include <stdexcept>

namespace bench {

namespace {

gp_Pnt place(double x, double y) {
  return {x, y, 0};
}

TopoDS_Edge edgeBetween(const Node& from, const Node& to) {
  if (from.bulge == 0) return BRepBuilderAPI_MakeEdge(place(from.x, from.y), place(to.x, to.y));
  // The arc's sagitta is the bulge times half of the chord, to the right of the chord for a counterclockwise arc.
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const gp_Pnt middle = place((from.x + to.x) / 2 + dy / 2 * from.bulge, (from.y + to.y) / 2 - dx / 2 * from.bulge);
  return BRepBuilderAPI_MakeEdge(GC_MakeArcOfCircle(place(from.x, from.y), middle, place(to.x, to.y)).Value());
}

TopoDS_Wire wireOf(const Outline& outline) {
  BRepBuilderAPI_MakeWire wire;
  for (std::size_t i = 0; i < outline.size(); ++i) wire.Add(edgeBetween(outline[i], outline[(i + 1) % outline.size()]));
  if (!wire.IsDone()) throw std::runtime_error("the outline makes no wire");
  return wire.Wire();
}

int countEdges(const TopoDS_Shape& shape) {
  int count = 0;
  if (!shape.IsNull()) {
    for (TopExp_Explorer edges(shape, TopAbs_EDGE); edges.More(); edges.Next()) ++count;
  }
  return count;
}

}  // namespace

struct OcctBar::Data {
  TopoDS_Shape solid;
  // From the side: the bar's axis lies across the line of sight.
  HLRAlgo_Projector fromTheSide{gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(1, 0, 0))};
  Handle(HLRBRep_Algo) last;
};

OcctBar::OcctBar(const std::vector<Outline>& contours, double length) : data_(std::make_unique<Data>()) {
  BRepBuilderAPI_MakeFace face(wireOf(contours.front()), Standard_True);
  for (std::size_t i = 1; i < contours.size(); ++i) face.Add(TopoDS::Wire(wireOf(contours[i]).Reversed()));
  if (!face.IsDone()) throw std::runtime_error("the outline makes no face");
  data_->solid = BRepPrimAPI_MakePrism(face.Face(), gp_Vec(0, 0, length));
}

OcctBar::~OcctBar() = default;

void OcctBar::removeHiddenLines() {
  Handle(HLRBRep_Algo) algorithm = new HLRBRep_Algo;
  algorithm->Add(data_->solid);
  algorithm->Projector(data_->fromTheSide);
  algorithm->Update();
  algorithm->Hide();
  data_->last = algorithm;
}

int OcctBar::visibleLines() const {
  HLRBRep_HLRToShape lines(data_->last);
  return countEdges(lines.VCompound()) + countEdges(lines.OutLineVCompound());
}

int OcctBar::hiddenLines() const {
  HLRBRep_HLRToShape lines(data_->last);
  return countEdges(lines.HCompound()) + countEdges(lines.OutLineHCompound());
}

}  // namespace bench
