#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/ge/ge.h"
#include "host/gi/gi.h"
#include "host/rx/rx.h"
#include "object/KrTypes.h"
#include "records/KrFuro.h"
#include "records/KrGeratriz.h"
#include "records/KrObjectArray.h"
#include "records/KrObjectExtension.h"
#include "records/KrObjectModCData.h"
#include "records/KrObjectRecorteArray.h"
#include "records/KrObjectSplitList.h"
#include "records/KrPlanoCorte.h"
#include "records/KrVector.h"

class KrConfigSection;
class StrictDxfReader;

/// Hole pattern handed over by the truss tools. Kept and filed whole; only the third word is read here.
struct DclFuracao {
  std::array<std::uint32_t, 24> words{};
};
static_assert(sizeof(DclFuracao) == 96, "filed as 96 raw bytes");

/// A steel member: one entity of a drawing.
///
/// A member isn't stored as a solid. It is stored as a section outline, a length, a placement in the drawing plane and
/// a set of modifiers. From these it derives, for the view that it shows, a flat list of drawn elements (`KrVector`),
/// and that list is what is drawn, snapped to, exploded and stretched.
///
/// Guarantees
///  1. Everything that changes a member ends in `Gera_KrVector`; everything that reads a picture reads what it left.
///  2. Drawing computes nothing of the member: `subWorldDraw` walks the list.
///  3. Modifiers are stored in the member's own coordinates at real size: no change of view or scale rewrites them.
///  4. A regeneration in steady state allocates next to nothing.
///  5. What isn't a number is refused where it comes in, nothing changed: `eInvalidInput`, or the status told.
///
/// Requirements: one thread; a member in a database is reached through an open and left through a close.
///
/// Who holds what (sources by concern): life and accessors `KrObject.cpp`, copying `Copy.cpp`, the regeneration
/// `Regeneration.cpp`, outlines `Outline.cpp` and `Thickening.cpp`, elevations `Elevation.cpp`, the elements of a view
/// `ElevationElements.cpp`, drawing `WorldDraw.cpp`, views and frames `Views.cpp` and `Extents.cpp`, filing
/// `DwgFiling.cpp`, attributes and listing `Attributes.cpp`; `modifiers/` and `editing/` hold the rest.
///
/// Units: millimetre, radian, kilogram. Frames: a section is in its own plane, X and Y, real size, Z along the bar;
/// drawn elements are in the drawing's X, Y plane at the object's scale.
///
/// Example: `KrTubo t(start, end, Superior, 114.3, 104.3); t.GetNumVertex(VistaCorrente);`
class KrObject : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(KrObject);

  /// The placement of a bar as a value that can be read from one object and put on another.
  struct Position {
    AcGePoint3d ponto;       ///< start of the base line
    AcGeVector3d direcao;    ///< unit vector along it
    double comprimento = 0;  ///< its length
    double offset = 0;       ///< distance from the base line to the other line, along Z x direcao
    double inicio = 0;       ///< position of the other line's start along direcao
    double fim = 0;          ///< position of its end
  };

  /// The argument block of the notch clipper.
  struct RecKrVectorArrayArgs {
    KrObjectArray<KrVector>* vectors = nullptr;    ///< the list to clip, edited in place; null: nothing to do
    const AcArray<AcGePoint2d>* pontos = nullptr;  ///< the polygon; null: nothing to do
    const AcArray<double>* bulges = nullptr;       ///< its bulges; null: all straight
    void* reservado = nullptr;                     ///< never read
    AcGePoint2d pontoInterno;                      ///< the side point: pieces on its side of the polygon go
    std::int32_t manterFora = 0;  ///< nonzero: with `RemoveOutLines`, a piece that lies on the polygon stays
    RecorteOutLinesOpts opcoes = RemoveOutLines;
  };
  /// Zeroes the whole block.
  static void Reset_RecKrVectorArrayArgs(RecKrVectorArrayArgs& args) { args = RecKrVectorArrayArgs(); }

  /// A member with no view, no outline and nothing drawn. Sets the host's global tolerance to 1e-8 for points and
  /// vectors.
  KrObject();
  ~KrObject() override;

  // --- Views by name -------------------------------------------------------------------------------------------------

  /// `eOk` for a section view, `eNotApplicable` for an elevation, `eNotImplementedYet` for anything else (no view).
  static Acad::ErrorStatus isSecao(KrVistas vista);
  /// The same of the view shown now.
  Acad::ErrorStatus isSecao() const { return isSecao(vista_); }
  /// Copies the word of a view when it is shorter than `size` and returns 1; else 0. Outside -1 to 6, and 5, the word
  /// is "Desconhecida"; -1 writes nothing and returns 0.
  static int vistaStr(KrVistas vista, ACHAR* buffer, unsigned size);
  /// The word of the view shown now, or of the real view with `real` nonzero.
  int vistaStr(ACHAR* buffer, unsigned size, int real) const;

  // --- Structural role -----------------------------------------------------------------------------------------------

  /// Text of a role, or null outside 0 to 9.
  static const ACHAR* tipoBarraStr(TipoBarra tipo);
  const ACHAR* tipoBarraStr() const { return tipoBarraStr(tipoBarra_); }
  /// Text of a role, or the empty string outside 0 to 9.
  static const ACHAR* nomeTipoBarra(int tipo);
  /// The role of a text, without regard to case; -1 when there is none.
  static TipoBarra tipoBarra(const ACHAR* texto);

  // --- Fields. Readers assert read, writers assert write; a writer stores and doesn't regenerate unless it says so
  // ----

  Acad::ErrorStatus setVista(KrVistas vista);
  Acad::ErrorStatus Material(unsigned short& material) const;
  Acad::ErrorStatus setMaterial(unsigned short material);
  Acad::ErrorStatus ObjectType(KrObjectType& tipo) const;
  KrObjectType ObjectType() const;
  Acad::ErrorStatus setObjectType(KrObjectType tipo);
  Acad::ErrorStatus AngleVista(double& angulo) const;
  double angleVista() const;
  Acad::ErrorStatus setAngleVista(double angulo);
  Acad::ErrorStatus AngleSecao(double& angulo) const;
  double angleSecao() const;
  Acad::ErrorStatus setAngleSecao(double angulo);
  Acad::ErrorStatus Comprimento(double& comprimento) const;
  Acad::ErrorStatus setComprimento(double comprimento);
  Acad::ErrorStatus StartPoint(AcGePoint3d& ponto) const;
  AcGePoint3d startPoint() const;
  Acad::ErrorStatus setStartPoint(const AcGePoint3d& ponto);
  Acad::ErrorStatus endPoint(AcGePoint3d& ponto) const;
  AcGePoint3d endPoint() const;
  Acad::ErrorStatus setendPoint(const AcGePoint3d& ponto);
  Acad::ErrorStatus Xscale(double& escala) const;
  Acad::ErrorStatus Yscale(double& escala) const;
  Acad::ErrorStatus Zscale(double& escala) const;
  /// A factor of 0 is refused with `eInvalidInput`.
  Acad::ErrorStatus setXscale(double escala);
  Acad::ErrorStatus setYscale(double escala);
  Acad::ErrorStatus setZscale(double escala);
  Acad::ErrorStatus zCoordIni(double& z) const;
  double zCoordIni() const;
  Acad::ErrorStatus setZCoordIni(double z);
  Acad::ErrorStatus zCoordEnd(double& z) const;
  double zCoordEnd() const;
  Acad::ErrorStatus setZCoordEnd(double z);
  Acad::ErrorStatus tipoBarra(TipoBarra& tipo) const;
  TipoBarra tipoBarra() const;
  Acad::ErrorStatus settipoBarra(TipoBarra tipo);
  Acad::ErrorStatus KrObjectVersion(Version& versao) const;
  /// A copy of the section outline.
  Acad::ErrorStatus GetSecao(KrGeratriz& secao) const;
  /// A copy of the holes; with `relativos` nonzero moved by minus the outline's reference origin.
  Acad::ErrorStatus Furos(KrFuro& furos, int relativos) const;
  KrObjectSplitList splitList() const;
  int numSplits() const;
  int numFuros() const;
  int numCortes() const;
  /// Copies the block out; true when its third word is above 0.
  bool GetFuracaoByTrelica(DclFuracao& furacao) const;
  Acad::ErrorStatus SetFuracaoByTrelica(const DclFuracao& furacao);
  /// Nonzero while the member is in the shortened single-line state.
  int IsProjeto() const;

  Acad::ErrorStatus setUserName(const ACHAR* nome);
  /// The user's name; null when there is none.
  const ACHAR* userName() const;
  /// Copies the name, or the empty string; `eNotApplicable` for a null buffer.
  Acad::ErrorStatus UserName(ACHAR* buffer) const;

  /// True when the object is in a database.
  bool hasValidId() const { return objectId() != AcDbObjectId::kNull; }

  // --- Links: ids of the members that show the same bar, of its dimensions, of its marks
  // -----------------------------

  /// Copies of the lists.
  Acad::ErrorStatus RelativeObj(AcDbObjectIdArray& ids) const;
  Acad::ErrorStatus RelativeDim(AcDbObjectIdArray& ids) const;
  Acad::ErrorStatus RelativePos(AcDbObjectIdArray& ids) const;
  /// Replaces a list by a copy.
  Acad::ErrorStatus setRelativeObj(const AcDbObjectIdArray* ids);
  Acad::ErrorStatus setRelativeDim(const AcDbObjectIdArray* ids);
  Acad::ErrorStatus setRelativePos(const AcDbObjectIdArray* ids);
  bool isLinkedTo(const AcDbObjectId& id) const;
  /// Takes `id` out of the list of every linked member, then empties this one's list.
  Acad::ErrorStatus UnLink(AcDbObjectId id);
  /// Leaves the group: the others forget this member, and it forgets them.
  Acad::ErrorStatus UnLinkMeObj();

  // --- Length --------------------------------------------------------------------------------------------------------

  /// Length at 1:1.
  double getComprimentoReal() const;
  /// In an elevation the stored length becomes `xScale` times `d`; otherwise `d`.
  Acad::ErrorStatus setComprimentoReal(double d);
  /// Exchanges the two end points and regenerates. The direction stays: `angleVista` is the angle from the old start to
  /// the old end, in 0 to 2 pi, which is what callers rely on.
  Acad::ErrorStatus swapStartEnd();

  // --- Visual limits -------------------------------------------------------------------------------------------------

  double visualRepStart() const;
  double visualRepEnd() const;
  double visualRepScale() const;
  /// Ignored unless below the end; at or below 0 it is stored as 0. Regenerates at close.
  Acad::ErrorStatus setVisualRepStart(double inicio);
  /// Ignored unless above the start; at or above 1 it is stored as 1. Regenerates at close.
  Acad::ErrorStatus setVisualRepEnd(double fim);
  Acad::ErrorStatus setVisualRepScale(double escala);
  /// The same from a point of the drawing; with `moveEixo` nonzero the axis line's end goes there too.
  Acad::ErrorStatus setVisualRepStart(const AcGePoint3d& p, int moveEixo);
  Acad::ErrorStatus setVisualRepEnd(const AcGePoint3d& p, int moveEixo);
  /// A limit's place on the reference line. `eNotApplicable` outside an elevation.
  Acad::ErrorStatus visualRepStartPoint(AcGePoint3d& p) const;
  Acad::ErrorStatus visualRepEndPoint(AcGePoint3d& p) const;

  // --- Vertex lists --------------------------------------------------------------------------------------------------

  /// The one place where `VistaCorrente` is resolved: list `v`, or the list of the current view when `v` is 5.
  const KrObjectArray<KrVector>& currentVertexList(KrVistas v) const;
  int GetNumVertex(KrVistas v) const;
  /// Copies element `i` out and returns 1; 0 at or beyond the end.
  int GetVector(int i, KrVector& v) const;
  int GetVector(KrVistas vista, int i, KrVector& v) const;
  /// Copies the element in and returns 1; 0 at or beyond the end, and for an element that doesn't consist of numbers.
  int UpdateVector(int i, const KrVector& v);
  int UpdateVector(KrVistas vista, int i, const KrVector& v);
  /// Appends a copy; `eInvalidInput` for an element that doesn't consist of numbers.
  Acad::ErrorStatus AddVertex(const KrVector& v, KrVistas vista);
  Acad::ErrorStatus ClearVertexes(KrVistas vista);
  /// The first axis line (`KR_VT_EIXO`) of a view; 0 when it has none.
  int GetVectorEixo(KrVistas vista, KrVector& v) const;
  /// Rewrites it, and in the elevation shown the member's start and end point with it. 0 when there is none, or when
  /// `v` isn't told in numbers.
  int UpdateVectorEixo(KrVistas vista, const KrVector& v);
  /// Ends of the first axis line (`qual` 0) or reference line (any other) of the current view; `eNotApplicable`
  /// without.
  Acad::ErrorStatus GetPointsOfEixo(AcGePoint3d& a, AcGePoint3d& b, int qual) const;
  /// Appends every face-on hole of the current view; 1 if `lista` then holds any.
  int GetFuros(KrObjectArray<KrVector>& lista) const;
  int GetNumFuros() const;

  // --- Regeneration --------------------------------------------------------------------------------------------------

  /// What a profile class calls last. `startPoint` becomes `ponto`; with `jaFechada` 0 `geratriz` is a centre line that
  /// is thickened to `espessura` into the outline, otherwise the outline already stands.
  void Gera_KrVector(const AcGePoint3d& ponto, KrGeratriz& geratriz, KrVistas vista, double espessura, int jaFechada);
  /// Rebuilds the list of `vista` from the model. The view shown stays. Nothing happens without an outline.
  void Gera_KrVector(KrVistas vista);
  void Gera_KrVector() { Gera_KrVector(vista_); }
  /// Rebuild once, at the next close.
  void setToRegenAtClose();

  // --- Outlines ------------------------------------------------------------------------------------------------------

  /// Thickens a centre line of one or more branches into closed outlines of that wall. `fechada` is appended to.
  static void gera_Secao(const KrGeratriz& linha, KrGeratriz& fechada, double espessura);
  /// Brings an outline to a view: turned by the section's angle, then as the view asks.
  Acad::ErrorStatus ajustaGeratriz(KrGeratriz& geratriz) const { return ajustaGeratriz(vista_, geratriz); }
  Acad::ErrorStatus ajustaGeratriz(KrVistas vista, KrGeratriz& geratriz) const;
  /// Turns every node, the reference node too, by `angulo` about the origin.
  static void Gira_vetores(KrGeratriz& geratriz, double angulo);
  /// Mirrors every node in the line through the reference origin along `direcao`; arcs change their sense.
  static void Mirror_vetores(KrGeratriz& geratriz, const AcGeVector3d& direcao);
  static void Gira_furacao(KrFuro& furos, double angulo);
  /// Mirrors both ends of every hole in the line in space through `origem` along Y: X about it, Z negated.
  static void Mirror_furacao(KrFuro& furos, const AcGeVector3d& origem);
  /// 1 when a real arc touches vertex i. `modo` 1 looks at edges i - 1 (for i above 0) and i; `modo` 0 wraps round
  /// within the contour; any other gives 0.
  static int VertexBulge(const KrGeratriz& geratriz, int i, int modo);
  /// Area of a thin wall from its centre line.
  double Calcula_AreaGeratriz(const KrGeratriz& linha, double espessura) const;
  /// Developed lengths of a centre line, one per strip.
  static AcArray<double> Calcula_LengthGeratriz(const KrGeratriz& linha);
  /// Extent of the outline's counted nodes relative to the reference origin; returns 1.
  int LimitsGeratriz(double& minX, double& maxX, double& maxY, double& minY) const;
  /// Whether a bulge ends a contour; bound from the side library.
  static bool Bulge_6000(double bulge);
  /// The point at half the sweep of an arc from p0 to p1; bound from the side library.
  static void MidArco(const AcGePoint3d& p0, const AcGePoint3d& p1, double bulge, AcGePoint3d& saida);
  /// Angle from the X axis to a vector, 0 to 2 pi.
  static double orientacao(const AcGeVector3d& v);

  // --- Elevations ----------------------------------------------------------------------------------------------------

  /// Works out the rectangle (`contorno`) and the marks (`linhas`) of an elevation from the adjusted outline.
  void gera_Vista(const KrGeratriz& secao, KrGeratriz& contorno, KrGeratriz& linhas, const KrFuro& furos) const;
  /// Clears list `vista` and fills it from a rectangle or outline and from marks.
  void KrVector_In(KrVistas vista, KrGeratriz& contorno, const KrGeratriz& linhas);
  /// 1 when the edge at a vertex can be seen from above.
  static int Testa_Top(const KrGeratriz& secao, int indice);
  /// First counted node whose X is within 0.01 of `v`'s, else -1.
  static int Testa_ja_existe(const KrGeratriz& lista, const AcGeVector3d& v);
  /// Adds a mark, or lifts the one that stands over the same X when `v` is higher.
  static void administra_vetores(KrGeratriz& lista, const AcGeVector3d& v, int marca);
  /// Whether arc i reaches beyond its neighbours in X; the extreme, or `x` unchanged.
  static double Arco_Xtreme(const KrGeratriz& secao, int i, int& usar, double x);
  /// The apparent edge of arc i; the null edge (0, 0, 1) where there is none.
  static void Aresta_Arco(const KrGeratriz& secao, int i, AcGeVector3d& v, int modo);
  /// Crossings of a line with an outline, appended with Z 0. A null `geratriz` stands for the member's own outline.
  void InterceptaLinhas(const AcGeLinearEnt2d& linha, AcArray<AcGeVector3d>& pontos, const KrGeratriz* geratriz) const;
  /// Orders the outline of the current view into a chain of points.
  void AlinhaVertexes(AcGePoint3dArray& pontos) const;

  // --- Views and frames ----------------------------------------------------------------------------------------------

  /// The matrix from the section's frame, real size, to the drawing at 1:1. `eNotImplementedYet` without a view,
  /// `eNotApplicable` for an elevation without reference line; `m` then stays.
  Acad::ErrorStatus secaoToVistaXForm(AcGeMatrix3d& m) const;
  Acad::ErrorStatus secaoToVistaXForm(AcGePoint3d& p) const;
  Acad::ErrorStatus secaoToVistaXForm(AcGeVector3d& v) const;
  /// Its inverse.
  Acad::ErrorStatus vistaToSecaoXForm(AcGeMatrix3d& m) const;
  Acad::ErrorStatus vistaToSecaoXForm(AcGePoint3d& p) const;
  Acad::ErrorStatus vistaToSecaoXForm(AcGeVector3d& v) const;
  /// Turns an elevation into another elevation of the same bar; the reference line keeps its place in the drawing.
  /// Nothing happens in a section, at a section angle of no whole quarter, or when `vista` is shown already.
  void switchToVista(KrVistas vista);
  /// The view shown, or with `real` nonzero the view that the turned section shows: -1 when it is turned by no whole
  /// quarter, -2 without a frame.
  KrVistas Vista(int real) const;
  Acad::ErrorStatus Vista(KrVistas& vista, int real) const;
  KrVistas GetVistaReal() const;
  KrVistas GetVistaReal(int& invertida) const;
  /// 1 for the views in which the bar runs against the section's Z (2 and 3), 0 for 1 and 4; 0 and `eInvalidInput` for
  /// any other.
  static int isInverted(KrVistas vista, Acad::ErrorStatus& status);
  static int isInverted(KrVistas vista);
  int isInverted(Acad::ErrorStatus& status) const { return isInverted(vista_, status); }
  int isInverted() const { return isInverted(vista_); }
  /// Whether two views differ in `isInverted`. A status other than `eOk` of either is passed on, the second's last.
  static bool verifyInversion(KrVistas a, KrVistas b, Acad::ErrorStatus& status);
  static bool verifyInversion(KrVistas a, KrVistas b);
  bool verifyInversion(KrVistas v, Acad::ErrorStatus& status) const { return verifyInversion(vista_, v, status); }
  bool verifyInversion(KrVistas v) const { return verifyInversion(vista_, v); }
  /// Whether the section stands at a whole quarter, and which. Only what stands above the integer part counts: a value
  /// just short of a quarter fails.
  bool isRetRotated() const;
  bool isRetRotated(int& quartos) const;
  /// Turns the section by a quarter, counter-clockwise for `sentido` 0, without regenerating.
  Acad::ErrorStatus orthoRotateSec(int sentido);
  /// Brings a point or vector of the drawing from real size to the drawing scale, or back with `inverso` nonzero, about
  /// the end of the reference line where the section's Z starts. The forms in space work only in an elevation
  /// (`eNotApplicable`).
  Acad::ErrorStatus scaleRef(AcGePoint2d& p, int inverso) const;
  Acad::ErrorStatus scaleRef(AcGePoint3d& p, int inverso) const;
  Acad::ErrorStatus scaleRef(AcGeVector3d& v, int inverso) const;
  Acad::ErrorStatus unscaleRef(AcGePoint2d& p) const { return scaleRef(p, 1); }
  Acad::ErrorStatus unscaleRef(AcGePoint3d& p) const { return scaleRef(p, 1); }
  Acad::ErrorStatus unscaleRef(AcGeVector3d& v) const { return scaleRef(v, 1); }
  /// The placement of the bar as a value, based on the axis line, or with `eixoBase` 0 on the reference line.
  /// `eNotApplicable` when a line is missing.
  Acad::ErrorStatus position(Position& posicao, int eixoBase) const;
  /// Puts the bar at a placement and regenerates.
  Acad::ErrorStatus setPosition(const Position& posicao, int eixoBase);
  Acad::ErrorStatus setPositionNoRegen(const Position& posicao, int eixoBase);
  /// Reference line, from end to end.
  AcGeVector3d direction() const;
  /// From `startPoint` to `endPoint`.
  AcGeVector3d directionEixo() const;
  /// The oriented box of the current view: p1 the minimum, p2 the maximum, p0 (min X, max Y), p3 (max X, min Y) along
  /// the member. The points stay untouched when nothing is drawn.
  void GetExtremePoints(AcGePoint3d& p0, AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& p3, int comEixo,
                        int semOcultos) const;
  void GetExtremePoints(AcGePoint3d* pontos, int comEixo, int semOcultos) const;
  /// The box of the section outline about its reference origin: b the minimum, c the maximum. `eNotApplicable` without
  /// an outline.
  Acad::ErrorStatus GetExtremePointsSecao(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const;
  Acad::ErrorStatus GetExtremePointsSecao(AcGePoint3d* pontos) const;
  /// The extreme points of the view as drawn.
  void GetCorners(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const;
  /// Ends of the two outer faces, in each pair the end with the smaller X first: left face top and bottom, right face
  /// top and bottom of the turned view.
  void GetCornersOf(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const;
  void GetLimitPointsOfFaces(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const;
  void GetRectangle(AcGePoint3d& a, AcGePoint3d& b, AcGePoint3d& c, AcGePoint3d& d) const;
  void GetRectangleLimit(AcGePoint3d& p, AcGePoint3d& q, KrVistas vista) const;
  /// The points of a list with the least and the largest X, Z 0.
  void GetLimitsPoints(AcGePoint3d& a, AcGePoint3d& b, KrVistas v) const;
  /// Extents of the oriented box, along the bar and across it.
  void size(double& w, double& h) const;
  void size(AcGeVector2d& tamanho) const;
  AcGeVector2d size() const;
  double width() const;
  double height() const;

  double GetMaxX(KrVistas v) const;
  double GetMaxY(KrVistas v) const;
  double GetMinX(KrVistas v) const;
  double GetMinY(KrVistas v) const;

  // --- Transform and scale -------------------------------------------------------------------------------------------

  /// Sets the drawing scale per axis of the view, about `startPoint`. Scales within 0.01 of the present count as equal.
  Acad::ErrorStatus ObjectScale(double x, double y, double z);
  /// Scales along the bar only; `base` stays where it is along it.
  Acad::ErrorStatus ObjectScaleAxl(AcGePoint3d base, double x);
  /// Transforms the drawn holes alone, outside "Secao".
  Acad::ErrorStatus transformByFuros(const AcGeMatrix3d& m);

  // --- Bar axis: `barra` 0 names the axis line, any other the reference line; `extremo` nonzero the start
  // -------------

  /// Refits the axis line of the four elevations to their limits.
  void UpdateEixo();
  /// 1 if an end of the axis line lies on a cross element of the view.
  int testEixo(int naOrigem) const;
  /// Signed distance between an end of the member and that of the reference line, in bar order. The value forms give 0
  /// on failure.
  Acad::ErrorStatus ecsZEixoOffset(double& d, int extremo) const;
  double ecsZEixoOffset(int extremo) const;
  /// The same along the drawn direction, with the opposite sign.
  Acad::ErrorStatus wcsDirEixoOffset(double& d, int extremo) const;
  double wcsDirEixoOffset(int extremo) const;
  /// Puts the bar where its reference line is to be, and regenerates.
  Acad::ErrorStatus SetPointsOfEixoBarra(const AcGePoint3d& a, const AcGePoint3d& b);
  int isEixoVisible() const;
  Acad::ErrorStatus showEixo(int mostra);
  Acad::ErrorStatus hideEixo() { return showEixo(0); }
  /// Transforms the view's elements but the axis line.
  Acad::ErrorStatus transformByNoEixo(const AcGeMatrix3d& m);
  Acad::ErrorStatus moveEixo(const AcGeVector3d& v);
  /// Where a line meets the bar's two end edges.
  Acad::ErrorStatus pontosBarra(AcGePoint3d& a, AcGePoint3d& b, int barra) const;

  // --- Drawing -------------------------------------------------------------------------------------------------------

  /// Looks up the three layers of hidden lines, axes and hidden faces in the working database.
  static void loadLayersIds();
  void hideAll();
  void showAll();
  /// 1 for an empty list and as soon as one element is hidden: the name promises more than that, and it stays as it is.
  int isHideAll() const;
  /// The two straight elements parallel to the axis that lie furthest apart.
  void GetFacesExternas(KrVector& a, KrVector& b, int* ia, int* ib) const;
  /// In a section view, removes the holes' elements and adds them anew.
  void desenhaFurosSecao();
  /// Corners of the band of a hole seen edge on.
  void PontosTrace(const KrVector& elemento, AcGePoint3d* pontos) const;

  // --- Holes ---------------------------------------------------------------------------------------------------------

  /// Turns a list of holes from the section to the orientation of a view. `eNotApplicable` for no view.
  Acad::ErrorStatus ajustaFuros(KrVistas vista, KrFuro& furos, const AcGePoint3d& ref) const;
  Acad::ErrorStatus ajustaFuros(KrFuro& furos, const AcGePoint3d& ref) const { return ajustaFuros(vista_, furos, ref); }
  /// Drills from a point in terms of the section: x and y in its plane about `startPoint`, z along the bar, real size,
  /// and a direction in its plane. `paredes`: -1 all walls of the line, 0 those that the segment p to p + dir passes, n
  /// the first n along `dir`, from outside, or with `deFora` nonzero from the first that the segment reaches.
  /// `angulo` of an oblong hole counts as `NoFuro::Angle` for a direction towards -X, from the other side otherwise.
  /// With `corrigeEixo` nonzero p.z counts from the axis line of the elevation. Draws here, and does the same in the
  /// linked members. `eOk` if a hole was made; else `eNotApplicable`, also in the Projeto state and for numbers that
  /// aren't finite.
  Acad::ErrorStatus FurarSecao(const AcGePoint3d& p, const AcGeVector2d& dir, double diametro, double stretch,
                               double angulo, int paredes, int corrigeEixo, int deFora);
  /// Drills from a point of an elevation, away from the viewer, from the outermost face inwards by `profundidade`.
  /// `paredes` as above; with `angRelativo` 1 `angulo` is the direction of an oblong hole in the drawing.
  /// `eNotApplicable` in any other view, else `eOk`, whether or not a hole was made.
  Acad::ErrorStatus FurarVista(AcGePoint3d p, double profundidade, double diametro, double stretch, double angulo,
                               int paredes, int angRelativo);
  /// The walls that a line of the section's plane passes, appended as pairs: position, then the vector through the
  /// wall.
  void FurosInters(AcGeVector3d origem, AcGeVector3d dir, AcArray<AcGeVector3d>& saida, int paredes, int deFora) const;
  /// Replaces the list here only; nothing is drawn. `eInvalidInput`, and nothing changed, for a number that isn't
  /// finite.
  Acad::ErrorStatus setFurosSemLink(const KrFuro& furos);
  /// Replaces the list here and in the linked members that open.
  Acad::ErrorStatus setFuros(const KrFuro* furos);
  /// Replaces the holes (null: keeps them), audits and redraws here and in the linked members.
  void AtualizaFuracao(const KrFuro* novos);
  /// Drops the holes that no longer lie in the member.
  void AuditFuros();
  /// Appends a drawn element to the list of a view.
  Acad::ErrorStatus AddFuro(const KrVector& elemento, KrVistas vista);
  /// Appends every face-on hole of the current view.
  Acad::ErrorStatus getFurosBarra(KrObjectArray<KrVector>& lista) const;
  /// First element of hole i in the current view, face on or edge on; 1, or 0.
  int getFuroVertex(KrVector*& elemento, int i);
  int getFuroVertex(KrVector*& elemento, int i, int& lugar);
  /// Removes hole i here and in the linked members, and regenerates. Nothing happens outside the list.
  void RemoveFuro(int i);
  void RemoveFuros() { RemoveMods(ModFuro, -1); }
  /// Where a hole stands in the drawing, as the current view draws it: one that runs towards the viewer, or (`Trace`)
  /// both ends of one across the view; diameter and stretch as recorded. With `testaParede` nonzero only a hole of an
  /// outermost wall counts. `eInvalidIndex` outside the list; `eNotApplicable` for a hole without length or of another
  /// class; then nothing is written.
  Acad::ErrorStatus wcsCoordFuro(int i, AcGePoint3d& p, double& diametro, double& stretch, double& angulo,
                                 int testaParede) const;
  Acad::ErrorStatus wcsCoordFuroTrace(int i, AcGePoint3d& p1, AcGePoint3d& p2, double& diametro, double& stretch,
                                      double& angulo, int testaParede) const;
  /// The common body. `classes` is a sum of 1 (towards the viewer in an elevation, along the bar in a section), 2 (at
  /// right angles to that) and 4 (askew); the class found goes to `classe`, which may be null.
  Acad::ErrorStatus wcsCoordFuroCommon(int i, AcGePoint3d& p1, AcGePoint3d& p2, double& diametro, double& stretch,
                                       double& angulo, int testaParede, unsigned long classes, int* classe) const;
  /// Moves drawn holes by a displacement in the drawing, here and in the linked members, without regenerating. A hole
  /// that isn't drawn stays, and one seen edge on moves only along the bar. `eNotApplicable` outside an elevation and
  /// when none is left.
  Acad::ErrorStatus moveFurosVista(const AcGeVector3d& v, const AcArray<int>& indices);
  /// Highlights the element of hole i; `eNotApplicable` when it has none.
  Acad::ErrorStatus highlightFuro(int i);
  void highlightFuros();
  /// Draws hole i in the current view.
  void KrVector_InFur(int i);
  /// Adds the trace of hole i to a section view.
  void KrVector_InFurTrace(KrGeratriz* g, KrFuro* furos, int i);
  /// Removes from the current view's list all elements of holes; the record stays.
  void removeFuros();

  // --- Cuts ----------------------------------------------------------------------------------------------------------

  Acad::ErrorStatus Corte(const AcGeLinearEnt3d& linha, AcGePoint3d& lado, int reservado, int cortaEixo);
  void RegistraCorte(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado);
  void AplicaCorte(int i, int reservado, int cortaEixo) { AplicaCorte(i, reservado, cortaEixo, 0); }
  void AplicaCorte(int i, int reservado, int cortaEixo, int semGiro);
  void AplicaCortes(int semGiro);
  void AplicaCortes() { AplicaCortes(0); }
  /// The trace of cut i in the current view, with the point on its thrown-away side; 1, or 0.
  int GetLinhaCorte(AcGeLine3d& linha, AcGePoint3d& lado, int i) const { return GetLinhaCorte(linha, lado, i, 0); }
  int GetLinhaCorte(AcGeLine3d& linha, AcGePoint3d& lado, int i, int semGiro) const;
  Acad::ErrorStatus getCortes(KrPlanoCorte& saida, int naVista) const;
  Acad::ErrorStatus addCortes(const KrPlanoCorte& lista, int daVista);
  /// How many cuts stand at an end of the bar as drawn, and which; -1 without a frame.
  int getCortesExtremidade(int extremo, AcArray<int>* saida) const;
  int getCortesExtremidade(int extremo, AcArray<int>& saida) const { return getCortesExtremidade(extremo, &saida); }
  void RemoveCortes() { RemoveMods(ModCorte, -1); }
  void RemoveCortes(int extremo, int regenera);
  Acad::ErrorStatus moveCortesVista(const AcGeVector3d& v, const AcArray<int>& indices);
  /// Drops the cuts that left no edge in the current view; how many went.
  int deleteModifiersNotVisible();

  // --- Notches: the clipper and what stands on it
  // --------------------------------------------------------------------

  /// The real notch, from the view's coordinates: tested, and stored. `eNotApplicable` when refused, nothing changed.
  Acad::ErrorStatus Recorte(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& lado);
  /// The picture of a notch only: clips the current list and stores nothing. `saida` gets pointers to the new edges.
  Acad::ErrorStatus RecorteVisual(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& lado,
                                  int atualizaEixo, AcArray<void*>* saida);
  Acad::ErrorStatus RecorteVisual(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& lado,
                                  int atualizaEixo, RecorteOutLinesOpts opcoes, AcArray<void*>* saida);
  Acad::ErrorStatus RecHideVisual(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& lado);
  /// The one clipper: splits every element where it meets the polygon and judges each piece by its mid point. A polygon
  /// or a side point that isn't told in numbers clips nothing.
  static void RecorteKrVectorArray(RecKrVectorArrayArgs& args);
  static void RecorteKrVectorArray(KrObjectArray<KrVector>& elementos, const AcArray<AcGePoint2d>& pontos,
                                   const AcArray<double>& bulges, const AcGePoint2d& lado, int manterFora,
                                   RecorteOutLinesOpts modo);
  static void RecorteKrVectorArray(KrObjectArray<KrVector>& vectors, const AcArray<AcGePoint2d>& pontos,
                                   const AcArray<double>& bulges, const AcGePoint2d& pontoInterno, int manterFora);
  static void RecHideKrVectorArray(KrObjectArray<KrVector>& vectors, const AcArray<AcGePoint2d>& pontos,
                                   const AcArray<double>& bulges, const AcGePoint2d& pontoInterno);
  Acad::ErrorStatus AplicaRecorte(int i);
  Acad::ErrorStatus AplicaRecorte(int i, const AcGeMatrix2d& m, int arranjo, int espelho);
  Acad::ErrorStatus AplicaRecortes();
  void RemoveRecortes() { RemoveMods(ModRecorte, -1); }
  void RemoveRecortes(int extremo, int regenera);
  /// The matrix from bar coordinates (x along the bar, y across it, from the section's start) to the current view at
  /// 1:1, the array that shows in it, and whether it mirrors. Status 1 outside an elevation.
  Acad::ErrorStatus recorteXForm(AcGeMatrix2d& m, int& arranjo, int& espelho) const;
  Acad::ErrorStatus addRecortesWCS(const KrObjectRecorteArray& lista);
  Acad::ErrorStatus getRecortesWCS(KrObjectRecorteArray& saida) const;
  /// `saida` points to two lists, one for each array.
  void getRecortesExtremidade(int extremo, AcArray<int>* saida) const;
  /// Closed contours of the current view or of a list; each entry is a new KrObjectArray<KrVector> owned by the caller.
  int Contornos(AcArray<void*>& saida) const;
  static int Contornos(const KrObjectArray<KrVector>& lista, AcArray<void*>& saida);
  static void pontosDeCortePorContorno(const KrObjectArray<KrVector>& contorno, AcArray<AcGePoint2d>& pontos,
                                       AcArray<double>& bulges);
  /// A point inside or outside a polygon; always 1, and `p` stays when none was found.
  static int pointInsideBorders(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& p);
  static int pointOutsideBorders(const AcArray<AcGePoint2d>& pontos, const AcArray<double>& bulges, AcGePoint2d& p);
  Acad::ErrorStatus moveRecortesVista(const AcGeVector3d& v, const AcArray<int>* indices);

  // --- Splits --------------------------------------------------------------------------------------------------------

  /// Appends a split and regenerates, with `adia` nonzero at close. The last index.
  int addSplit(const KrObjectSplit& split, int adia);
  /// Sets `zPos` from a point of the view.
  Acad::ErrorStatus adjustSplit(KrObjectSplit& split, const AcGePoint3d& p) const;
  /// Place of split i in the view; 1 or 0.
  int splitPoint(int i, AcGePoint3d& p) const;

  // --- Removing modifiers --------------------------------------------------------------------------------------------

  /// Removes modifiers of the kinds that `mods` names (ObjMods, combined): all of them with `indice` -1, else that one.
  /// When something went and the member is in a database, it regenerates, and its linked objects lose those kinds
  /// entirely.
  void RemoveMods(int mods, int indice) { RemoveMods(mods, indice, 1); }

  // --- Copying -------------------------------------------------------------------------------------------------------

  Acad::ErrorStatus CopiaDados(const KrObject* origem, int completo);
  /// Copies all that the filing carries, and nothing of the entity: layer, colour and id stay.
  Acad::ErrorStatus copyDataFrom(KrObject* origem);
  /// Takes what is done to another member of the same section and length, in whatever view that is shown: holes, cuts,
  /// notches, splits and visual limits, without their modification data. Nothing is regenerated.
  Acad::ErrorStatus copyModifiersFrom(const KrObject& origem);
  Acad::ErrorStatus dwgOutFieldsData(AcDbDwgFiler* filer);
  Acad::ErrorStatus dwgInFieldsData(AcDbDwgFiler* filer);

  // --- Modification data and extensions ------------------------------------------------------------------------------

  KrObjectModCData* accessCDataToMod(ObjMods mod, int indice) const;
  Acad::ErrorStatus assocCDataToMod(ObjMods mod, int indice, KrObjectModCData* dados);
  void purgeModCData(int mods, AcRxClass* classe);
  /// Takes the extension over and appends it. Its id is that of the last one plus 1, or 1 without any; an empty slot
  /// has no id.
  void addKrObjectExtension(KrObjectExtension* extensao);
  const KrObjectExtension* getKrObjectExtension(unsigned id) const;
  int modifyKrObjectExtension(unsigned id, const KrObjectExtension* extensao);
  KrObjectExtension* removeKrObjectExtension(unsigned id);

  // --- What a concrete class tells of itself (slot order kept)
  // --------------------------------------------------------

  /// Cuts by a polygon made of drawn elements: a notch. Always `eOk`.
  virtual Acad::ErrorStatus Corte(KrObjectArray<KrVector>& elementos, AcGePoint3d& lado);
  /// The interactive cut: by the line p1 p2, throwing away the side of `lado`. `eNotApplicable` when refused.
  virtual Acad::ErrorStatus Corte(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, int reservado, int cortaEixo);
  /// Trims the list of `vista`; with `indice` 0 or more the new edges are tagged with it.
  virtual Acad::ErrorStatus CorteVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista,
                                       int reservado, int cortaEixo, int indice);
  virtual Acad::ErrorStatus CorteVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista,
                                       int reservado, int cortaEixo);
  /// Cuts along an edge: no plane is stored.
  virtual Acad::ErrorStatus CorteArestaVista(AcGePoint3d& p1, AcGePoint3d& p2, AcGePoint3d& lado, KrVistas vista,
                                             int reservado, int cortaEixo);
  virtual void getPerfilUsr(ACHAR* buffer) const;
  virtual void getPerfil(ACHAR* buffer) const;
  virtual void getDimensoes(ACHAR* buffer) const;
  virtual double getComprimento() const;
  virtual double getPeso() const;
  virtual int getLinearWeight(double& peso) const;
  virtual double getArea() const;
  virtual double getAreaPintura() const;
  virtual double getPerimetro() const;
  virtual double getAltura();
  virtual double getEspessura();
  virtual double getLargura();
  virtual AcArray<double> GeratrizLength();

  double getVolume() const;
  /// Asserts read and leaves the buffer as it was.
  void getMaterial(ACHAR* buffer) const;

  /// The table of profile names; null until the module has loaded it.
  static KrConfigSection* GetNamesList();
  /// Hands the table over to the class, or takes it away with null. For the module's start and unload.
  static void SetNamesList(KrConfigSection* nomes);

  // --- The host's operations -----------------------------------------------------------------------------------------

  Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
  /// DXF has less than DWG: no outline, holes, notches, scales, role, levels, links, extensions. A member with elements
  /// doesn't read back, since an element writes a newer record than it reads.
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
  Acad::ErrorStatus audit(AcDbAuditInfo* info) override;
  Acad::ErrorStatus subClose() override;
  void saveAs(AcGiWorldDraw* draw, AcDb::SaveType type) override;
  Acad::ErrorStatus applyPartialUndo(AcDbDwgFiler* filer, AcRxClass* classe) override;
  // A member is saved as it is and cloned as the host clones: these see to the access alone.
  Acad::ErrorStatus decomposeForSave(AcDb::AcDbDwgVersion version, AcDbObject*& replacement,
                                     AcDbObjectId& replacementId, Adesk::Boolean& exchangeXData) override;
  Acad::ErrorStatus subWblockClone(AcRxObject* owner, AcDbObject*& copia, AcDbIdMapping& idMap,
                                   bool isPrimary) const override;

 protected:
  Adesk::Boolean subWorldDraw(AcGiWorldDraw* draw) override;
  void subViewportDraw(AcGiViewportDraw* draw) override;
  void subList() const override;
  Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const override;
  Acad::ErrorStatus subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copia) const override;
  Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override;
  Acad::ErrorStatus subGetSubentPathsAtGsMarker(AcDb::SubentType type, Adesk::GsMarker marker,
                                                const AcGePoint3d& pickPoint, const AcGeMatrix3d& viewXform,
                                                int& numPaths, AcDbFullSubentPath*& paths, int numInserts,
                                                AcDbObjectId* entAndInsertStack) const override;
  Acad::ErrorStatus subGetGsMarkersAtSubentPath(const AcDbFullSubentPath& path,
                                                AcArray<Adesk::GsMarker>& markers) const override;
  AcDbEntity* subSubentPtr(const AcDbFullSubentPath& path) const override;

  /// Makes the reference line in an elevation that has none. `eNotApplicable` in a section and without an outline.
  Acad::ErrorStatus generateEixoBarra();
  /// Makes the reference line meet the bar's ends again.
  Acad::ErrorStatus updateEixoBarra(int propaga);
  /// Moves one end of the reference line along it by d, drawn; what is stored along the bar keeps its place on the
  /// steel. `eNotApplicable` in a section, without a direction, or when the line would turn over.
  Acad::ErrorStatus offsetEixoBarraEnd(double d, int propaga);
  Acad::ErrorStatus offsetEixoBarraStart(double d, int propaga);
  /// Pointer to the axis line (`barra` 0) or the reference line of a view; `eNotApplicable` without.
  Acad::ErrorStatus getVectorEixo(KrVistas vista, KrVector*& e, int barra);
  Acad::ErrorStatus getVectorEixo(KrVistas vista, const KrVector*& e, int barra) const;

  // The places of the modifiers in the regeneration, in their order: splits, AplicaCortes, AplicaRecortes, limits.
  void AplicaSplits();
  void AplicaRepLimits();

  /// The section outline, for the classes that write it.
  KrGeratriz& outline() { return secao_; }
  const KrGeratriz& outline() const { return secao_; }

 private:
  KrObjectArray<KrVector>& vertexList(KrVistas v);
  KrVector* findFirst(KrVistas v, KrVectorType tipo);
  const KrVector* findFirst(KrVistas v, KrVectorType tipo) const;
  void regenerate(KrVistas vista);
  /// The axis line of a list as it stands before the list is filled anew.
  struct KeptAxis {
    bool moved = false;  ///< with a reference line beside it: its points survive
    AcGePoint3d start;
    AcGePoint3d end;
    std::optional<int> hidden;
  };
  KeptAxis readAxis(KrVistas vista);
  void restoreAxis(KrVistas vista, const KeptAxis& kept);
  /// The elevation of an outline as it stands in space: `gera_Vista` on a working copy in which edges of no length,
  /// joints and arcs that turn back read as what they look like.
  void geraVistaPreparada(const KrGeratriz& secao, KrGeratriz& contorno, KrGeratriz& linhas, const KrFuro& furos) const;
  static void addHoleMarks(const KrGeratriz& secao, KrGeratriz& linhas, const KrFuro& furos);
  void addEdges(KrVistas vista, const KrGeratriz& contorno, const AcGeVector3d& base);
  void addMarks(KrVistas vista, const KrGeratriz& linhas, const AcGeVector3d& base, double rot);
  void addAxis(KrVistas vista, double bulge, double rot);
  /// Where a point of a section view at real size stands at the drawing scale.
  AcGePoint3d sectionAtScale(const AcGePoint3d& p) const;
  void ExecutaVertexScale(double a, double b, double c);
  void ExecutaVertexScale(double a, double b, double c, const AcGePoint3d& base);
  void ExecutaDimScale(double a, double b, double c);
  void ExecutaPosScale(double a, double b, double c);
  void drawOblong(AcGiWorldDraw* draw, const KrVector& v, bool dragging) const;
  /// The layer of an element: by its hidden flag, its type, its role, in this order.
  static AcDbObjectId layerOf(const KrVector& v, AcDbObjectId entityLayer);
  void drawElement(AcGiWorldDraw* draw, AcGiSubEntityTraits& traits, const KrVector& v, AcDbObjectId entityLayer) const;
  Acad::ErrorStatus readModel(AcDbDwgFiler* filer);
  Acad::ErrorStatus readCuts(AcDbDwgFiler* filer);
  Acad::ErrorStatus readLinksAndOutline(AcDbDwgFiler* filer);
  /// `complete` tells whether every extension's class was there.
  Acad::ErrorStatus readExtensions(AcDbDwgFiler* filer, bool& complete);
  bool readIdentity(StrictDxfReader& in);
  bool readPlacement(StrictDxfReader& in);
  bool readCuts(StrictDxfReader& in);
  Acad::ErrorStatus readHoles(AcDbDwgFiler* filer);
  Acad::ErrorStatus auditRole(AcDbAuditInfo* info);
  Acad::ErrorStatus auditReactors(AcDbAuditInfo* info);
  void deleteExtensions();
  /// A limit from a point, and the place of a fraction of the reference line.
  Acad::ErrorStatus setVisualRepPoint(const AcGePoint3d& p, int moveEixo, bool atEnd);
  Acad::ErrorStatus visualRepPoint(double fraction, AcGePoint3d& p) const;
  /// The array of notches that show in the current view; null outside an elevation.
  const KrObjectRecorteArray* shownNotches() const;
  KrObjectRecorteArray* shownNotches();
  void RemoveMods(int mods, int indice, int regenerar);
  /// Removes here alone; the kinds (ObjMods, combined) of which something went.
  int removeModsHere(int mods, int indice);
  KrObjectExtension* accessKrObjectExtension(unsigned id) const;

  /// Opens linked member `indice`. `opcoes` bit 0: opening for write marks this member as changed too; bit 1: a member
  /// that doesn't open is dropped from the list. `eNotApplicable` without a valid id, `eInvalidIndex` outside the list.
  Acad::ErrorStatus krOpenSon(KrObject*& filho, int indice, AcDb::OpenMode modo, int abrirApagado,
                              unsigned long opcoes);
  /// Runs `change` on each linked member in order, open for write, its layer unlocked meanwhile. One that doesn't open
  /// is skipped. Nothing without a valid id.
  template <class Change>
  void forEachLinked(Change change);
  /// The same, but layers stay as they are: a member on a locked layer is skipped too.
  template <class Change>
  void forEachUnlockedLinked(Change change);
  /// Trims the current view along the trace of cut i.
  void cutAlong(const AcGeLine3d& linha, AcGePoint3d& lado, int i, int reservado, int cortaEixo);
  /// Drops the holes that left the member, and their elements; the elements of the others keep naming their hole.
  void auditDrawnHoles(KrVistas vista);
  /// Moves all that is stored along the bar by d, real size, towards the bar's end.
  void shiftModifiers(double d);
  /// Moves the ends of the reference line along it, drawn; false, and nothing moved, when it can't be.
  bool offsetReference(double atStart, double atEnd);
  /// Carries the move of an end of the reference line, real size, to the linked members.
  void carryOffset(double real, bool atStart);
  /// Copies what modifies the bar to a linked member: holes, cuts, notches, length.
  void opDataCopyTo(KrObject& destino) const;
  /// Brings modifiers, and on request length and outline, to every linked member.
  Acad::ErrorStatus copyDataToLinked(unsigned long mascara, int regenerar, int comprimento, int secao);

  void SetToProjeto(int projeto, double fator);
  void AplicaCropping();

  KrVistas vista_ = VistaCorrente;
  unsigned short material_ = 0;
  KrObjectType objectType_ = Objeto;
  std::array<KrObjectArray<KrVector>, kNumVistas> vertexLists_;
  AcGeVector3d normal_{0, 0, 1};
  double angleVista_ = 0;
  AcGePoint3d startPoint_;
  AcGePoint3d endPoint_;
  double comprimento_ = 0;
  double angleSecao_ = 0;
  std::optional<DclFuracao> furacaoTrelica_{DclFuracao{}};
  int projeto_ = 0;
  double projetoFator_ = 100.0;
  KrGeratriz secao_;
  KrFuro furos_;
  std::array<KrObjectRecorteArray, 2> recortes_;
  KrPlanoCorte cortes_;
  KrObjectSplitList splits_;
  double xScale_ = 1.0;
  double yScale_ = 1.0;
  double zScale_ = 1.0;
  AcDbObjectIdArray relativeObj_;
  AcDbObjectIdArray relativeDim_;
  AcDbObjectIdArray relativePos_;
  TipoBarra tipoBarra_ = Barra;
  double zCoordIni_ = 0;
  double zCoordEnd_ = 0;
  std::optional<std::wstring> userName_;
  Version version_ = kKrObjectVersion;
  std::vector<KrObjectExtension*> extensions_;
  AcDbObjectIdArray croppingIds_;
  std::vector<int> croppingModes_;
  double visualRepStart_ = 0.0;
  double visualRepEnd_ = 1.0;
  double visualRepScale_ = 1.0;
  std::vector<int> croppingChanged_;
  mutable int semEntidade_ = 0;
  int regenAtClose_ = 0;

  static AcDbHardPointerId kr_laHiddenId;
  static AcDbHardPointerId kr_laEixoId;
  static AcDbHardPointerId kr_laHideFace;
};
