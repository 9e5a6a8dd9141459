// The regeneration: from the model of a member to the drawn elements of one view.

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
  ObjectScale(1, 1, 1);
  regenerate(vista);
  ObjectScale(x, y, z);
  AplicaCropping();
  comprimento_ = getComprimento();
  vista_ = shown;
}

void KrObject::regenerate(KrVistas vista) {
  const bool elevation = isSecao(vista) == Acad::eNotApplicable;
  const WorkspaceLease work;
  work->outline = secao_;
  AuditFuros();
  ajustaGeratriz(vista, work->outline);
  // The shortened state shows no holes.
  work->holes.Clear();
  if (projeto_ == 0 && furos_.Qtd() != 0) {
    work->holes = furos_;
    const AcGeVector3d& origin = work->outline.GetRefOrigin();
    ajustaFuros(vista, work->holes, AcGePoint3d(origin.x, origin.y, origin.z));
  }

  if (elevation) {
    geraVistaPreparada(work->outline, work->contour, work->lines, work->holes);
  } else {
    work->contour = work->outline;
    work->contour.RemoveNulls();
  }

  bool eixoOk = false;
  AcGePoint3d e1, e2;
  if (elevation) readAxis(eixoOk, e1, e2);
  endPoint_ = startPoint_ + AcGeVector3d(std::cos(angleVista_), std::sin(angleVista_), 0) * (comprimento_ / xScale_);
  const KrVector* axis = findFirst(vista, KR_VT_EIXO);
  const std::optional<int> hidden = axis ? std::optional<int>(axis->hidden()) : std::nullopt;

  KrVector_In(vista, work->contour, work->lines);
  desenhaFurosSecao();
  if (elevation) restoreAxis(vista, eixoOk, e1, e2, hidden);

  if (projeto_ != 0) return SetToProjeto(projeto_, projetoFator_);
  AplicaSplits();
  AplicaCortes();
  AplicaRecortes();
  AplicaRepLimits();
}

// The axis that the user moved survives: its points, and the reference line as the place of the bar.
void KrObject::readAxis(bool& eixoOk, AcGePoint3d& e1, AcGePoint3d& e2) {
  eixoOk = GetPointsOfEixo(e1, e2, 0) == Acad::eOk && GetPointsOfEixo(startPoint_, endPoint_, 1) == Acad::eOk;
  if (!eixoOk || (endPoint_ - startPoint_).isCodirectionalTo(e2 - e1)) return;
  startPoint_ = e1;
  endPoint_ = e2;
}

void KrObject::restoreAxis(KrVistas vista, bool eixoOk, const AcGePoint3d& e1, const AcGePoint3d& e2,
                           std::optional<int> hidden) {
  KrVector* axis = findFirst(vista, KR_VT_EIXO);
  if (axis == nullptr) return;
  if (eixoOk) {
    axis->set(e1, e2);
    startPoint_ = e1;
    endPoint_ = e2;
  }
  if (hidden) axis->setHidden(*hidden);
}

void KrObject::desenhaFurosSecao() {
  assertWriteEnabled();
  if (isSecao() != Acad::eOk) return;
  removeFuros();
  for (int i = 0; i < furos_.Qtd(); ++i) KrVector_InFur(i);
}
