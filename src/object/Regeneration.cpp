// The regeneration: from the model of a member to the drawn elements of one view.

#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "object/KrObject.h"

namespace {

/// The working lists of one regeneration. A regeneration may start within another (a linked member follows its master),
/// so each depth has its own, kept for the next.
struct Workspace {
  KrGeratriz outline;
  KrGeratriz contour;
  KrGeratriz lines;
  KrFuro holes;
};

class WorkspaceLease {
 public:
  WorkspaceLease() {
    if (depth() == pool().size()) pool().push_back(std::make_unique<Workspace>());
    workspace_ = pool()[depth()++].get();
    workspace_->contour.Clear();
    workspace_->lines.Clear();
  }
  ~WorkspaceLease() { --depth(); }
  WorkspaceLease(const WorkspaceLease&) = delete;
  WorkspaceLease& operator=(const WorkspaceLease&) = delete;
  Workspace& operator*() const { return *workspace_; }
  Workspace* operator->() const { return workspace_; }

 private:
  static std::vector<std::unique_ptr<Workspace>>& pool() {
    static std::vector<std::unique_ptr<Workspace>> lists;
    return lists;
  }
  static std::size_t& depth() {
    static std::size_t n = 0;
    return n;
  }
  Workspace* workspace_;
};

/// Keeps the lists of the other views through a regeneration: its passage to real size and back moves nothing, unlike a
/// change of the scale, which drops them.
class ListsBeside {
 public:
  using List = KrObjectArray<KrVector>;

  ListsBeside(std::array<List, kNumVistas>& lists, const List& made, bool passesToRealSize) {
    if (!passesToRealSize) return;
    for (List& list : lists)
      if (&list != &made && list.IsEmpty() == 0) kept_.push_back({&list, list});
  }
  ~ListsBeside() {
    for (const Kept& k : kept_)
      if (k.list->IsEmpty() != 0) *k.list = k.elements;
  }
  ListsBeside(const ListsBeside&) = delete;
  ListsBeside& operator=(const ListsBeside&) = delete;

 private:
  struct Kept {
    List* list;
    List elements;
  };
  std::vector<Kept> kept_;
};

}  // namespace

void KrObject::Gera_KrVector(const AcGePoint3d& ponto, KrGeratriz& geratriz, KrVistas vista, double espessura,
                             int jaFechada) {
  assertWriteEnabled();
  startPoint_ = ponto;
  vista_ = vista;
  if (jaFechada == 0) {
    KrGeratriz fechada;
    gera_Secao(geratriz, fechada, espessura);
    secao_ = fechada;
  }
  Gera_KrVector(vista);
}

void KrObject::Gera_KrVector(KrVistas vista) {
  assertWriteEnabled();
  if (secao_.Qtd() == 0) return;

  // The view changes for the whole run, the scaling included: it is the list of this view that comes to real size, and
  // the list of the view shown stays as it is.
  const KrVistas shown = vista_;
  vista_ = vista;
  const double x = xScale_;
  const double y = yScale_;
  const double z = zScale_;
  const AcGePoint3d start = startPoint_;
  const AcGePoint3d end = endPoint_;
  {
    const bool passes = x != 1 || y != 1 || z != 1;
    const ListsBeside beside(vertexLists_, vertexList(vista), passes);
    ObjectScale(1, 1, 1);
    regenerate(vista);
    ObjectScale(x, y, z);
  }
  AplicaCropping();
  // A bar that cuts took whole keeps its length: without them it is there again.
  if (const double drawn = getComprimento(); drawn > 0) comprimento_ = drawn;
  if (vista == shown) return;
  vista_ = shown;
  if (vertexList(shown).IsEmpty() != 0) return;
  // The end points are those of the axis line shown.
  startPoint_ = start;
  endPoint_ = end;
}

void KrObject::regenerate(KrVistas vista) {
  const bool elevation = isSecao(vista) == Acad::eNotApplicable;
  const WorkspaceLease work;
  work->outline = secao_;
  AuditFuros();
  ajustaGeratriz(vista, work->outline);
  // The shortened state shows no holes, and a section draws its own.
  if (elevation && projeto_ == 0 && furos_.Qtd() != 0) {
    work->holes = furos_;
    const AcGeVector3d& origin = work->outline.GetRefOrigin();
    ajustaFuros(vista, work->holes, AcGePoint3d(origin.x, origin.y, origin.z));
  } else {
    work->holes.Clear();
  }

  if (elevation) {
    geraVistaPreparada(work->outline, work->contour, work->lines, work->holes);
  } else {
    work->contour = work->outline;
    work->contour.RemoveNulls();
  }

  KeptAxis axis;
  if (elevation) axis = readAxis(vista);
  endPoint_ = startPoint_ + AcGeVector3d(std::cos(angleVista_), std::sin(angleVista_), 0) * (comprimento_ / xScale_);

  KrVector_In(vista, work->contour, work->lines);
  desenhaFurosSecao();
  if (elevation) restoreAxis(vista, axis);

  if (projeto_ != 0) return SetToProjeto(projeto_, projetoFator_);
  AplicaSplits();
  AplicaCortes();
  AplicaRecortes();
  AplicaRepLimits();
}

// The axis that the user moved survives: its points, and the reference line as the place of the bar.
KrObject::KeptAxis KrObject::readAxis(KrVistas vista) {
  const KrVector* axis = nullptr;
  const KrVector* reference = nullptr;
  const KrObjectArray<KrVector>& lista = vertexList(vista);
  for (const Node<KrVector>* no = lista.getNode(0); no != nullptr; no = lista.nextNode(no)) {
    if (axis == nullptr && no->value->type() == KR_VT_EIXO) axis = no->value;
    if (reference == nullptr && no->value->type() == KR_VT_REFERENCIA) reference = no->value;
    if (axis != nullptr && reference != nullptr) break;
  }
  KeptAxis kept;
  if (axis == nullptr) return kept;
  kept.hidden = axis->hidden();
  if (reference == nullptr) return kept;
  kept.moved = true;
  kept.start = axis->startPoint();
  kept.end = axis->endPoint();
  const bool alike = (reference->endPoint() - reference->startPoint()).isCodirectionalTo(kept.end - kept.start);
  startPoint_ = alike ? reference->startPoint() : kept.start;
  endPoint_ = alike ? reference->endPoint() : kept.end;
  return kept;
}

// The list was filled just now: an axis line stands at its end.
void KrObject::restoreAxis(KrVistas vista, const KeptAxis& kept) {
  KrObjectArray<KrVector>& lista = vertexList(vista);
  if (lista.IsEmpty() || lista.last().type() != KR_VT_EIXO) return;
  KrVector& axis = lista.last();
  if (kept.moved) {
    axis.set(kept.start, kept.end);
    startPoint_ = kept.start;
    endPoint_ = kept.end;
  }
  if (kept.hidden) axis.setHidden(*kept.hidden);
}

void KrObject::desenhaFurosSecao() {
  assertWriteEnabled();
  if (isSecao() != Acad::eOk) return;
  removeFuros();
  for (int i = 0; i < furos_.Qtd(); ++i) KrVector_InFur(i);
}
