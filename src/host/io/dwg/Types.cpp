#include "host/io/dwg/Types.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "host/io/dwg/EntityFields.h"
#include "host/io/dwg/ObjectFields.h"
#include "host/io/dwg/PlainFields.h"

namespace krio::dwg {

namespace {

/// The first and the last of the parts that aren't erased, and what ends them, as the owner names them.
struct PartRefs {
  explicit PartRefs(const AcDbEntity& owner) {
    const AcDbSubentities* const parts = const_cast<AcDbEntity&>(owner).subentities();
    for (AcDbStub* const stub : parts->stubs()) {
      if (stub->has(AcDbStub::kErased)) continue;
      if (first.isNull()) first = stub;
      last = stub;
    }
    end = parts->sequenceEnd();
  }
  AcDbObjectId first, last, end;
};

void readParts(Decoder& d, AcDbEntity& owner) {
  AcDbObjectId first, last, end;
  d.id(kSoftPointer, first), d.id(kSoftPointer, last), d.id(kHardOwner, end);
  owner.subentities()->setSequenceEndAsRead(end.stub());
}

void writeParts(Encoder& e, const PartRefs& refs) {
  e.id(kSoftPointer, refs.first), e.id(kSoftPointer, refs.last), e.id(kHardOwner, refs.end);
}

/// A class whose fields are one struct.
template <class T>
struct DataCodec {
  static void read(Decoder& d, AcDbObject& object) { code(d, static_cast<T&>(object).dataAsRead()); }
  static void write(Encoder& e, const AcDbObject& object) { code(e, static_cast<const T&>(object).data()); }
};

/// A class whose fields are coded as a whole.
template <class T>
struct ObjectCodec {
  static void read(Decoder& d, AcDbObject& object) { code(d, static_cast<T&>(object)); }
  static void write(Encoder& e, const AcDbObject& object) { code(e, static_cast<const T&>(object)); }
};

template <class T>
struct PolylineCodec {
  static void read(Decoder& d, AcDbObject& object) {
    DataCodec<T>::read(d, object);
    readParts(d, static_cast<T&>(object));
  }
  static void write(Encoder& e, const AcDbObject& object) {
    DataCodec<T>::write(e, object);
    writeParts(e, PartRefs(static_cast<const T&>(object)));
  }
};

template <class T, bool kArray>
struct InsertCodec {
  static void read(Decoder& d, AcDbObject& object) {
    auto& insert = static_cast<T&>(object);
    code(d, insert.dataAsRead(), false);
    if constexpr (kArray) code(d, insert.arrayDataAsRead());
    if (insert.data().hasAttributes) readParts(d, insert);
  }
  static void write(Encoder& e, const AcDbObject& object) {
    const auto& insert = static_cast<const T&>(object);
    const PartRefs refs(insert);
    const bool hasAttributes = !refs.first.isNull();
    code(e, insert.data(), hasAttributes);
    if constexpr (kArray) code(e, insert.arrayData());
    if (hasAttributes) writeParts(e, refs);
  }
};

template <class T, bool kDefinition>
struct AttributeCodec {
  static void read(Decoder& d, AcDbObject& object) {
    auto& attribute = static_cast<T&>(object);
    code(d, attribute.dataAsRead());
    code(d, attribute.attributeDataAsRead(), kDefinition);
  }
  static void write(Encoder& e, const AcDbObject& object) {
    const auto& attribute = static_cast<const T&>(object);
    code(e, attribute.data());
    code(e, attribute.attributeData(), kDefinition);
  }
};

template <class T, AcDbDimension::Kind kKind>
struct DimensionCodec {
  static void read(Decoder& d, AcDbObject& object) { code(d, static_cast<T&>(object).dataAsRead(), kKind); }
  static void write(Encoder& e, const AcDbObject& object) { code(e, static_cast<const T&>(object).data(), kKind); }
};

struct NothingCodec {
  static void read(Decoder&, AcDbObject&) {}
  static void write(Encoder&, const AcDbObject&) {}
};

template <class T, class Codec>
constexpr TypeInfo type(std::uint16_t number, const wchar_t* dxfName = nullptr) {
  return {number, [] { return T::desc(); }, []() -> AcDbObject* { return new T; }, Codec::read, Codec::write, dxfName};
}

constexpr std::array kTypes = {
    type<AcDbText, DataCodec<AcDbText>>(kText),
    type<AcDbAttribute, AttributeCodec<AcDbAttribute, false>>(kAttribute),
    type<AcDbAttributeDefinition, AttributeCodec<AcDbAttributeDefinition, true>>(kAttributeDefinition),
    type<AcDbSequenceEnd, NothingCodec>(kSequenceEnd),
    type<AcDbBlockReference, InsertCodec<AcDbBlockReference, false>>(kInsert),
    type<AcDbMInsertBlock, InsertCodec<AcDbMInsertBlock, true>>(kMInsert),
    type<AcDb2dVertex, DataCodec<AcDb2dVertex>>(kVertex2d),
    type<AcDb3dPolylineVertex, DataCodec<AcDb3dPolylineVertex>>(kVertex3d),
    type<AcDb2dPolyline, PolylineCodec<AcDb2dPolyline>>(kPolyline2d),
    type<AcDb3dPolyline, PolylineCodec<AcDb3dPolyline>>(kPolyline3d),
    type<AcDbArc, DataCodec<AcDbArc>>(kArc),
    type<AcDbCircle, DataCodec<AcDbCircle>>(kCircle),
    type<AcDbLine, DataCodec<AcDbLine>>(kLine),
    type<AcDbOrdinateDimension, DimensionCodec<AcDbOrdinateDimension, AcDbDimension::kOrdinate>>(kDimensionOrdinate),
    type<AcDbRotatedDimension, DimensionCodec<AcDbRotatedDimension, AcDbDimension::kRotated>>(kDimensionRotated),
    type<AcDbAlignedDimension, DimensionCodec<AcDbAlignedDimension, AcDbDimension::kAligned>>(kDimensionAligned),
    type<AcDb3PointAngularDimension, DimensionCodec<AcDb3PointAngularDimension, AcDbDimension::kAngular3Point>>(
        kDimension3Point),
    type<AcDb2LineAngularDimension, DimensionCodec<AcDb2LineAngularDimension, AcDbDimension::kAngular2Line>>(
        kDimension2Line),
    type<AcDbRadialDimension, DimensionCodec<AcDbRadialDimension, AcDbDimension::kRadial>>(kDimensionRadius),
    type<AcDbDiametricDimension, DimensionCodec<AcDbDiametricDimension, AcDbDimension::kDiametric>>(kDimensionDiameter),
    type<AcDbPoint, DataCodec<AcDbPoint>>(kPoint),
    type<AcDbSolid, DataCodec<AcDbSolid>>(kSolid),
    type<AcDbTrace, DataCodec<AcDbTrace>>(kTrace),
    type<AcDbViewport, DataCodec<AcDbViewport>>(kViewport),
    type<AcDbMText, DataCodec<AcDbMText>>(kMText),
    type<AcDbLeader, DataCodec<AcDbLeader>>(kLeader),
    type<AcDbPolyline, DataCodec<AcDbPolyline>>(kLwPolyline),
    type<AcDbHatch, DataCodec<AcDbHatch>>(kHatch),
    type<AcDbDictionary, ObjectCodec<AcDbDictionary>>(kDictionary),
    type<AcDbLayerTableRecord, ObjectCodec<AcDbLayerTableRecord>>(kLayer),
    type<AcDbTextStyleTableRecord, ObjectCodec<AcDbTextStyleTableRecord>>(kStyle),
    type<AcDbLinetypeTableRecord, ObjectCodec<AcDbLinetypeTableRecord>>(kLinetype),
    type<AcDbViewTableRecord, ObjectCodec<AcDbViewTableRecord>>(kView),
    type<AcDbUCSTableRecord, ObjectCodec<AcDbUCSTableRecord>>(kUcs),
    type<AcDbViewportTableRecord, ObjectCodec<AcDbViewportTableRecord>>(kViewportRecord),
    type<AcDbRegAppTableRecord, ObjectCodec<AcDbRegAppTableRecord>>(kAppId),
    type<AcDbDimStyleTableRecord, ObjectCodec<AcDbDimStyleTableRecord>>(kDimStyle),
    type<AcDbVXTableRecord, ObjectCodec<AcDbVXTableRecord>>(kViewportHeader),
    type<AcDbGroup, ObjectCodec<AcDbGroup>>(kGroup),
    type<AcDbMlineStyle, ObjectCodec<AcDbMlineStyle>>(kMlineStyle),
    type<AcDbDictionaryWithDefault, ObjectCodec<AcDbDictionaryWithDefault>>(0, L"ACDBDICTIONARYWDFLT"),
    type<AcDbPlaceHolder, ObjectCodec<AcDbPlaceHolder>>(0, L"ACDBPLACEHOLDER"),
    type<AcDbLayout, ObjectCodec<AcDbLayout>>(0, L"LAYOUT"),
    type<AcDbPlotSettings, ObjectCodec<AcDbPlotSettings>>(0, L"PLOTSETTINGS"),
    type<AcDbDictionaryVar, ObjectCodec<AcDbDictionaryVar>>(0, L"DICTIONARYVAR"),
};

}  // namespace

const TypeInfo* typeOfNumber(unsigned number) {
  static constexpr auto kByNumber = [] {
    std::array<std::uint8_t, kXrecord + 1> places{};
    for (std::size_t i = 0; i < kTypes.size(); ++i) {
      if (kTypes[i].number != 0) places[kTypes[i].number] = std::uint8_t(i + 1);
    }
    return places;
  }();
  if (number >= kByNumber.size() || kByNumber[number] == 0) return nullptr;
  return &kTypes[kByNumber[number] - 1U];
}

const TypeInfo* typeOfClass(std::wstring_view dxfName) {
  const auto found = std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeInfo& each) {
    return each.dxfName != nullptr && dxfName == each.dxfName;
  });
  return found != kTypes.end() ? &*found : nullptr;
}

const TypeInfo* typeOf(const AcRxClass* aClass) {
  const auto found =
      std::find_if(kTypes.begin(), kTypes.end(), [&](const TypeInfo& each) { return each.desc() == aClass; });
  return found != kTypes.end() ? &*found : nullptr;
}

AcRxClass* customClassOf(const AcDbClassRecord& record) {
  AcRxDictionary* const classes = acrxClassDictionary;
  AcRxClass* const found = classes != nullptr ? AcRxClass::cast(classes->at(record.cppName.c_str())) : nullptr;
  if (found == nullptr || found->constructor() == nullptr || found->dxfName() == nullptr) return nullptr;
  if (record.dxfName != found->dxfName()) return nullptr;
  const bool isEntity = found->isDerivedFrom(AcDbEntity::desc());
  if (!found->isDerivedFrom(AcDbObject::desc()) || isEntity != record.isEntity()) return nullptr;
  return found;
}

}  // namespace krio::dwg
