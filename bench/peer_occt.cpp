#include "peer_occt.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRep_Builder.hxx>
#include <GC_MakeArcOfCircle.hxx>
#include <HLRAlgo_Projector.hxx>
#include <HLRBRep_Algo.hxx>
#include <HLRBRep_HLRToShape.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
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

TopoDS_Shape prismOf(const Solid& section, double length) {
  BRepBuilderAPI_MakeFace face(wireOf(section.front()), Standard_True);
  // A hole runs against the outer contour.
  const bool sense = isCounterclockwise(section.front());
  for (std::size_t i = 1; i < section.size(); ++i) {
    const TopoDS_Wire hole = wireOf(section[i]);
    face.Add(isCounterclockwise(section[i]) == sense ? TopoDS::Wire(hole.Reversed()) : hole);
  }
  if (!face.IsDone()) throw std::runtime_error("the outline makes no face");
  return BRepPrimAPI_MakePrism(face.Face(), gp_Vec(0, 0, length));
}

// A cylinder that reaches a little past both faces of its wall.
TopoDS_Shape drillOf(const Hole& hole) {
  constexpr double past = 0.1;
  const gp_Vec through(hole.x1 - hole.x0, hole.y1 - hole.y0, 0);
  const gp_Dir along(through);
  const gp_Pnt start(hole.x0 - along.X() * past, hole.y0 - along.Y() * past, hole.z);
  return BRepPrimAPI_MakeCylinder(gp_Ax2(start, along), kHoleDiameter / 2, through.Magnitude() + 2 * past).Shape();
}

TopoDS_Shape cut(const TopoDS_Shape& solid, const std::vector<Hole>& holes) {
  TopTools_ListOfShape solids;
  TopTools_ListOfShape drills;
  solids.Append(solid);
  for (const Hole& hole : holes) drills.Append(drillOf(hole));
  BRepAlgoAPI_Cut operation;
  operation.SetArguments(solids);
  operation.SetTools(drills);
  operation.Build();
  if (operation.HasErrors()) throw std::runtime_error("the holes can't be cut");
  return operation.Shape();
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
  TopoDS_Shape bar;
  // An elevation looks along the section's -Y.
  HLRAlgo_Projector fromAbove{gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 1, 0))};
  Handle(HLRBRep_Algo) last;
};

OcctBar::OcctBar(const std::vector<Solid>& sections, double length, const std::vector<Hole>& holes)
    : data_(std::make_unique<Data>()) {
  BRep_Builder builder;
  TopoDS_Compound bar;
  builder.MakeCompound(bar);
  for (const Solid& section : sections) builder.Add(bar, prismOf(section, length));
  data_->bar = holes.empty() ? TopoDS_Shape(bar) : cut(bar, holes);
}

OcctBar::~OcctBar() = default;

void OcctBar::removeHiddenLines() {
  Handle(HLRBRep_Algo) algorithm = new HLRBRep_Algo;
  algorithm->Add(data_->bar);
  algorithm->Projector(data_->fromAbove);
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
