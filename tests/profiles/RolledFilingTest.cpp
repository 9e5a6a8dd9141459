// Filing, copying, setting and naming of the rolled classes, which do all of it alike.

#include <gtest/gtest.h>

#include "RolledSamples.h"
#include "SectionChecks.h"

namespace {

using profile::Parameter;
using profile::valueOf;

/// What the tests know of a class: its parameters in the order of the file, with their setters.
template <class Member>
struct Filed {
  Acad::ErrorStatus (Member::*get)(double&) const;
  Acad::ErrorStatus (Member::*set)(double);
};
#define FILED(NAME) \
  { &M::NAME, &M::set##NAME }

template <class Member>
struct Traits;

template <>
struct Traits<KrULaminado> {
  using M = KrULaminado;
  static std::vector<Filed<M>> filed() {
    return {FILED(Largura), FILED(Altura),  FILED(Espessura), FILED(DeslocF), FILED(RaioDobra),
            FILED(Raio1),   FILED(KgMetro), FILED(EixoX),     FILED(Area),    FILED(EspMedia)};
  }
  static constexpr const wchar_t* name = L"KrULaminado";
  static constexpr int nodes = 14;
};

template <class Compound>
struct ChannelsTraits {
  using M = Compound;
  static std::vector<Filed<M>> filed() {
    return {FILED(Largura), FILED(Altura), FILED(Espessura), FILED(DeslocF),  FILED(RaioDobra),  FILED(Raio1),
            FILED(KgMetro), FILED(EixoX),  FILED(Area),      FILED(EspMedia), FILED(Afastamento)};
  }
};
template <>
struct Traits<KrUULaminado> : ChannelsTraits<KrUULaminado> {
  static constexpr const wchar_t* name = L"KrUULaminado";
  static constexpr int nodes = 29;
};
template <>
struct Traits<Kr2ULaminado> : ChannelsTraits<Kr2ULaminado> {
  static constexpr const wchar_t* name = L"Kr2ULaminado";
  static constexpr int nodes = 27;
};

// The weight stands before and behind the axis; the one behind counts.
template <>
struct Traits<KrBNLaminado> {
  using M = KrBNLaminado;
  static std::vector<Filed<M>> filed() {
    return {FILED(Aba), FILED(Espessura), FILED(RaioDobra), FILED(KgMetro), FILED(EixoX), FILED(KgMetro), FILED(Area)};
  }
  static constexpr const wchar_t* name = L"KrBNLaminado";
  static constexpr int nodes = 9;
};
template <>
struct Traits<KrBNDuplaLaminada> {
  using M = KrBNDuplaLaminada;
  static std::vector<Filed<M>> filed() {
    return {FILED(Aba),   FILED(Espessura),   FILED(RaioDobra), FILED(KgMetro),
            FILED(EixoX), FILED(Afastamento), FILED(Area)};
  }
  static constexpr const wchar_t* name = L"KrBNDuplaLaminada";
  static constexpr int nodes = 17;
};

// The width stands before the height.
template <class Angle>
struct AngleTraits {
  using M = Angle;
  static std::vector<Filed<M>> filed() {
    return {FILED(Largura), FILED(Altura), FILED(Espessura), FILED(RaioDobra),
            FILED(KgMetro), FILED(EixoX),  FILED(EixoY),     FILED(Area)};
  }
};
template <>
struct Traits<KrCantLaminada> : AngleTraits<KrCantLaminada> {
  static constexpr const wchar_t* name = L"KrCantLaminada";
  static constexpr int nodes = 9;
};
template <>
struct Traits<KrCantLaminadaCaixa> : AngleTraits<KrCantLaminadaCaixa> {
  static constexpr const wchar_t* name = L"KrCantLaminadaCaixa";
  static constexpr int nodes = 17;
};

template <class Angles>
struct GapTraits {
  using M = Angles;
  static std::vector<Filed<M>> filed() {
    return {FILED(Largura), FILED(Altura), FILED(Espessura), FILED(RaioDobra), FILED(Afastamento),
            FILED(KgMetro), FILED(EixoX),  FILED(EixoY),     FILED(Area)};
  }
  static constexpr int nodes = 17;
};
template <>
struct Traits<KrCantTEELaminada> : GapTraits<KrCantTEELaminada> {
  static constexpr const wchar_t* name = L"KrCantTEELaminada";
};
template <>
struct Traits<KrCantULaminada> : GapTraits<KrCantULaminada> {
  static constexpr const wchar_t* name = L"KrCantULaminada";
};

template <>
struct Traits<KrCantZLaminada> {
  using M = KrCantZLaminada;
  static std::vector<Filed<M>> filed() {
    return {FILED(Altura),       FILED(Largura), FILED(Espessura), FILED(RaioDobra), FILED(AfastamentoH),
            FILED(AfastamentoV), FILED(KgMetro), FILED(EixoX),     FILED(EixoY),     FILED(Area)};
  }
  static constexpr const wchar_t* name = L"KrCantZLaminada";
  static constexpr int nodes = 17;
};
template <>
struct Traits<KrCantCruzLaminada> {
  using M = KrCantCruzLaminada;
  static std::vector<Filed<M>> filed() {
    return {FILED(Altura),         FILED(Largura), FILED(Espessura), FILED(RaioDobra), FILED(AfastamentoHor),
            FILED(AfastamentoVer), FILED(KgMetro), FILED(EixoX),     FILED(EixoY),     FILED(Area)};
  }
  static constexpr const wchar_t* name = L"KrCantCruzLaminada";
  static constexpr int nodes = 17;
};

/// Gives every parameter a value of its own, the first 101; the weight of an angle on its corner has one only.
template <class Member>
std::vector<double> number(Member& bar) {
  double value = 101.0;
  for (const Filed<Member>& each : Traits<Member>::filed()) EXPECT_EQ((bar.*each.set)(value++), Acad::eOk);
  std::vector<double> values;
  for (const Filed<Member>& each : Traits<Member>::filed()) values.push_back(valueOf(bar, each.get));
  return values;
}

template <class Member>
std::vector<double> valuesOf(const Member& bar) {
  std::vector<double> values;
  for (const Filed<Member>& each : Traits<Member>::filed()) values.push_back(valueOf(bar, each.get));
  return values;
}

/// The sample of a class, as itself.
template <class Member>
std::unique_ptr<Member> sample(KrVistas vista = Superior, double angleSecao = 0.25) {
  for (const rolled::Sample& each : rolled::samples()) {
    std::unique_ptr<KrObject> bar = each.make(vista, angleSecao);
    if (Member* own = dynamic_cast<Member*>(bar.get())) {
      bar.release();
      return std::unique_ptr<Member>(own);
    }
  }
  return nullptr;
}

template <class Member>
class RolledFiling : public testing::Test {
 protected:
  void SetUp() override { profile::registerClass<Member>(); }
};

using Classes =
    testing::Types<KrULaminado, KrUULaminado, Kr2ULaminado, KrBNLaminado, KrBNDuplaLaminada, KrCantLaminada,
                   KrCantLaminadaCaixa, KrCantTEELaminada, KrCantULaminada, KrCantZLaminada, KrCantCruzLaminada>;
TYPED_TEST_SUITE(RolledFiling, Classes);

std::string expectSameOutline(const KrObject& a, const KrObject& b) {
  const std::vector<profile::Node> one = profile::outlineOf(a);
  const std::vector<profile::Node> other = profile::outlineOf(b);
  if (one.size() != other.size()) return "another number of nodes";
  for (std::size_t i = 0; i < one.size(); ++i) {
    if (one[i].x != other[i].x || one[i].y != other[i].y || one[i].bulge != other[i].bulge) return "another node";
  }
  return "";
}

}  // namespace

TYPED_TEST(RolledFiling, NewObjectHasNothingDrawn) {
  const TypeParam bar;
  for (const double value : valuesOf(bar)) EXPECT_EQ(value, 0.0);
  EXPECT_TRUE(profile::outlineOf(bar).empty());
  const std::unique_ptr<AcRxObject> made(TypeParam::desc()->create());
  EXPECT_NE(TypeParam::cast(made.get()), nullptr);
}

TYPED_TEST(RolledFiling, SettersStoreAndRegenerateNothing) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  const std::unique_ptr<TypeParam> before = sample<TypeParam>();
  std::vector<double> values = number(*bar);
  for (std::size_t i = 1; i < values.size(); ++i) EXPECT_GT(values[i], 100.0);
  EXPECT_EQ(expectSameOutline(*bar, *before), "");
}

TYPED_TEST(RolledFiling, CalculatingAgainWritesTheOutlineOnce) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  EXPECT_EQ(static_cast<int>(profile::outlineOf(*bar).size()), Traits<TypeParam>::nodes);
  bar->Calcule();
  EXPECT_EQ(static_cast<int>(profile::outlineOf(*bar).size()), Traits<TypeParam>::nodes);
}

TYPED_TEST(RolledFiling, SectionsTurnIsTakenUpByTheViewAndNotByTheOutline) {
  EXPECT_EQ(expectSameOutline(*sample<TypeParam>(Superior, 0.0), *sample<TypeParam>(Superior, 1.0)), "");
}

TYPED_TEST(RolledFiling, DwgFieldsFollowTheBasesInTheirOrder) {
  TypeParam bar;
  const std::vector<double> values = number(bar);
  AcDbMemoryDwgFiler base(AcDb::kFileFiler);
  bar.KrObject::dwgOutFields(&base);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar.dwgOutFields(&filer), Acad::eOk);
  filer.seek(base.tell());
  Adesk::Int16 version = 0;
  filer.readInt16(&version);
  EXPECT_EQ(version, 1);
  for (const double value : values) {
    double read = 0.0;
    filer.readDouble(&read);
    EXPECT_EQ(read, value);
  }
  EXPECT_TRUE(filer.atEnd());
}

TYPED_TEST(RolledFiling, DwgReadsBackWithTheOutline) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar->dwgOutFields(&filer), Acad::eOk);
  filer.seek(0);
  TypeParam read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(valuesOf(read), valuesOf(*bar));
  EXPECT_EQ(expectSameOutline(read, *bar), "");
  EXPECT_EQ(read.GetNumVertex(Superior), bar->GetNumVertex(Superior));
}

TYPED_TEST(RolledFiling, DwgWithoutAnOutlineGetsItBack) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  TypeParam hollow;
  for (const Filed<TypeParam>& each : Traits<TypeParam>::filed()) (hollow.*each.set)(valueOf(*bar, each.get));
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(hollow.dwgOutFields(&filer), Acad::eOk);
  EXPECT_TRUE(profile::outlineOf(hollow).empty());
  filer.seek(0);
  TypeParam read;
  ASSERT_EQ(read.dwgInFields(&filer), Acad::eOk);
  EXPECT_EQ(expectSameOutline(read, *bar), "");
  EXPECT_GT(read.GetNumVertex(Secao), 0);
}

TYPED_TEST(RolledFiling, DwgClassVersionTwoIsLeftToAProxy) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  bar->KrObject::dwgOutFields(&filer);
  filer.writeInt16(2);
  filer.seek(0);
  TypeParam read;
  EXPECT_EQ(static_cast<int>(read.dwgInFields(&filer)), 0x12D);
  for (const double value : valuesOf(read)) EXPECT_EQ(value, 0.0);
}

// An item takes a byte more than its value: a parameter 9.
TYPED_TEST(RolledFiling, DwgThatBreaksOffKeepsWhatStandsBehind) {
  TypeParam bar;
  const std::vector<double> told = number(bar);
  AcDbMemoryDwgFiler filer(AcDb::kFileFiler);
  ASSERT_EQ(bar.dwgOutFields(&filer), Acad::eOk);
  AcDbMemoryDwgFiler::Buffer bytes = filer.takeBuffer();
  // Within the last but one.
  bytes.resize(bytes.size() - 9 - 1);
  AcDbMemoryDwgFiler broken(AcDb::kFileFiler, bytes);
  TypeParam read;
  for (const Filed<TypeParam>& each : Traits<TypeParam>::filed()) (read.*each.set)(7.0);
  EXPECT_EQ(read.dwgInFields(&broken), Acad::eEndOfObject);
  const std::vector<double> values = valuesOf(read);
  EXPECT_EQ(values[0], told[0]);
  EXPECT_EQ(values.back(), 7.0);
  EXPECT_TRUE(profile::outlineOf(read).empty()) << "nothing is made from what is known in part";
}

// A refused version isn't taken: the bar is written in its own.
TYPED_TEST(RolledFiling, DxfVersionThatIsRefusedLeavesTheBarsOwn) {
  AcDbMemoryDxfFiler filer;
  TypeParam().KrObject::dxfOutFields(&filer);
  const std::size_t base = filer.groups().size();
  filer.writeItem(100, Traits<TypeParam>::name);
  filer.writeItem(170, Adesk::Int16(5));
  filer.rewindFiler();
  TypeParam read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eInvalidDxfCode);
  AcDbMemoryDxfFiler again;
  ASSERT_EQ(read.dxfOutFields(&again), Acad::eOk);
  EXPECT_EQ(std::get<Adesk::Int64>(again.groups().at(base + 1).value), 1);
}

TYPED_TEST(RolledFiling, DxfGroupsFollowTheBasesInTheOrderOfTheDwg) {
  TypeParam bar;
  const std::vector<double> values = number(bar);
  AcDbMemoryDxfFiler filer;
  ASSERT_EQ(bar.dxfOutFields(&filer), Acad::eOk);
  const std::vector<AcDbMemoryDxfFiler::Group>& groups = filer.groups();
  ASSERT_GE(groups.size(), values.size() + 2);
  const std::size_t own = groups.size() - values.size() - 2;
  EXPECT_EQ(groups[own].code, 100);
  EXPECT_EQ(std::get<std::wstring>(groups[own].value), Traits<TypeParam>::name);
  EXPECT_EQ(groups[own + 1].code, 170);
  EXPECT_EQ(std::get<Adesk::Int64>(groups[own + 1].value), 1);
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(groups[own + 2 + i].code, 40);
    EXPECT_EQ(std::get<double>(groups[own + 2 + i].value), values[i]);
  }
  filer.rewindFiler();
  TypeParam read;
  EXPECT_EQ(read.dxfInFields(&filer), Acad::eOk);
  EXPECT_EQ(valuesOf(read), values);
}

TYPED_TEST(RolledFiling, DxfGroupOfAWrongCodeOrVersionEndsTheReading) {
  for (const bool wrongCode : {true, false}) {
    AcDbMemoryDxfFiler filer;
    TypeParam().KrObject::dxfOutFields(&filer);
    filer.writeItem(100, Traits<TypeParam>::name);
    filer.writeItem(170, Adesk::Int16(wrongCode ? 1 : 2));
    filer.writeItem(40, 100.0);
    filer.writeItem(41, 80.0);
    filer.rewindFiler();
    TypeParam read;
    EXPECT_EQ(read.dxfInFields(&filer), Acad::eInvalidDxfCode);
    EXPECT_STREQ(filer.errorMessage(), L"\nKR_Trama erro ao ler DXF.");
    const std::vector<double> values = valuesOf(read);
    EXPECT_EQ(values[0], wrongCode ? 100.0 : 0.0);
    EXPECT_EQ(values[1], 0.0);
  }
}

TYPED_TEST(RolledFiling, CopyHasTheParametersAndTheTurnAndNothingElseOfTheBar) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  const TypeParam copy(*bar);
  EXPECT_EQ(valuesOf(copy), valuesOf(*bar));
  EXPECT_EQ(copy.angleSecao(), 0.25);
  EXPECT_EQ(expectSameOutline(copy, *bar), "");
  EXPECT_EQ(copy.Vista(0), VistaCorrente);
  EXPECT_EQ(copy.GetNumVertex(Superior), 0);
  EXPECT_TRUE(copy.endPoint().isEqualTo(AcGePoint3d(0, 0, 0)));
}

TYPED_TEST(RolledFiling, CopyFromAPointerHasTheBarAndOnDemandWhatIsDrawn) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  bar->CalculeDireita();
  ASSERT_GT(bar->GetNumVertex(Direita), 0);
  const TypeParam whole(bar.get(), 1);
  const TypeParam model(bar.get(), 0);
  for (const TypeParam* copy : {&whole, &model}) {
    EXPECT_EQ(valuesOf(*copy), valuesOf(*bar));
    EXPECT_EQ(copy->Vista(0), Superior);
    EXPECT_TRUE(copy->endPoint().isEqualTo(AcGePoint3d(1000, 0, 0)));
    EXPECT_EQ(expectSameOutline(*copy, *bar), "");
    EXPECT_EQ(copy->GetNumVertex(Superior), bar->GetNumVertex(Superior));
  }
  EXPECT_EQ(whole.GetNumVertex(Direita), bar->GetNumVertex(Direita));
  EXPECT_EQ(model.GetNumVertex(Direita), 0);
}

TYPED_TEST(RolledFiling, ProfileTextIsTheDesignationAndNotThePrefix) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  const std::wstring name = Traits<TypeParam>::name;
  {
    const profile::Designations names(std::string(name.begin(), name.end()) + "=Perfil\n");
    EXPECT_EQ(profile::perfilOf(*bar), L"Perfil");
  }
  const profile::Designations others("KrBox=Caixa\n");
  EXPECT_EQ(profile::perfilOf(*bar), L"");
}

TYPED_TEST(RolledFiling, WeightIsTheCatalogues) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>();
  bar->setKgMetro(40.0);
  bar->setArea(1234.0);
  double weight = 0.0;
  EXPECT_EQ(bar->getLinearWeight(weight), 1);
  EXPECT_EQ(weight, 40.0);
  EXPECT_NEAR(bar->getPeso(), 40.0, 1e-9);
  EXPECT_EQ(bar->getArea(), 1234.0);
  EXPECT_NEAR(bar->getAreaPintura(), (2 * 1234.0 + 1000 * bar->getPerimetro()) / 1e6, 1e-12);
}

TYPED_TEST(RolledFiling, ElevationsByHandShowTheAxisAndMirrorEachOther) {
  const std::unique_ptr<TypeParam> bar = sample<TypeParam>(Secao, 0.0);
  bar->CalculeDireita();
  bar->CalculeEsquerda();
  bar->CalculeSuperior();
  bar->CalculeInferior();
  for (const KrVistas vista : {Superior, Inferior, Esquerda, Direita}) {
    EXPECT_GT(bar->GetNumVertex(vista), 4) << vista;
    KrVector axis;
    bar->GetVector(vista, 0, axis);
    EXPECT_EQ(axis.type(), KR_VT_EIXO);
  }
  EXPECT_EQ(bar->GetNumVertex(Superior), bar->GetNumVertex(Inferior));
  EXPECT_EQ(bar->GetNumVertex(Esquerda), bar->GetNumVertex(Direita));
}
