#include "host/db/AcDbHeader.h"

#include <algorithm>

namespace {

using H = AcDbHeader;

#define KR_DB_HEADER_INFO(name, type, code, place, a, b, c) {#name, H::type, code, place},
constexpr H::Info kInfos[] = {KR_DB_HEADER_VARS(KR_DB_HEADER_INFO)};
#undef KR_DB_HEADER_INFO

constexpr double kDefaults[][3] = {
#define KR_DB_HEADER_DEFAULT(name, type, code, place, a, b, c) {a, b, c},
    KR_DB_HEADER_VARS(KR_DB_HEADER_DEFAULT)
#undef KR_DB_HEADER_DEFAULT
};

// What FLAGS is made of: where a part lies, and whether its bit says no.
struct FlagPart {
  H::Index index;
  int mask;
  int shift;
  bool inverse;
};
constexpr FlagPart kFlagParts[] = {{H::kCELWEIGHT, 0x1F, 0, false},     {H::kENDCAPS, 0x60, 5, false},
                                   {H::kJOINSTYLE, 0x180, 7, false},    {H::kLWDISPLAY, 0x200, 9, true},
                                   {H::kXEDIT, 0x400, 10, true},        {H::kEXTNAMES, 0x800, 11, false},
                                   {H::kPSTYLEMODE, 0x2000, 13, false}, {H::kOLESTARTUP, 0x4000, 14, false}};

const FlagPart& partOf(H::Index index) {
  return *std::find_if(std::begin(kFlagParts), std::end(kFlagParts), [&](const auto& p) { return p.index == index; });
}

constexpr Adesk::Int16 kWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                     53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
constexpr Adesk::UInt8 kByLayerIndex = 29;
constexpr Adesk::UInt8 kByBlockIndex = 30;
constexpr Adesk::UInt8 kDefaultIndex = 31;
// Numbers that stand for no weight are kept as weights below this.
constexpr int kStrangeWeights = -1000;

}  // namespace

AcDbHeader::AcDbHeader() : texts_(kNumVars) {
  for (int i = 0; i < kCELWEIGHT; ++i) {
    const auto& [a, b, c] = kDefaults[i];
    wholes_[std::size_t(i)] = a >= -32768.0 && a <= 2147483647.0 ? int(a) : 0;
    points_[std::size_t(i)].set(a, b, c);
  }
  setText(kUNIT_NAME1, L"m");
  setText(kMENU, L".");
}

std::span<const AcDbHeader::Info> AcDbHeader::infos() {
  return kInfos;
}

AcDbHeader::Index AcDbHeader::find(std::string_view name) {
  const auto found = std::find_if(std::begin(kInfos), std::end(kInfos), [&](const Info& i) { return i.name == name; });
  return Index(found - std::begin(kInfos));
}

int AcDbHeader::partOfFlags(Index index) const {
  const FlagPart& part = partOf(index);
  const int bits = (wholes_[kFLAGS] & part.mask) >> part.shift;
  if (index == kCELWEIGHT) return acdbLineWeightAt(Adesk::UInt8(bits));
  return part.inverse ? 1 - bits : bits;
}

void AcDbHeader::setPartOfFlags(Index index, int value) {
  const FlagPart& part = partOf(index);
  int bits = index == kCELWEIGHT ? acdbLineWeightIndex(AcDb::LineWeight(value)) : value;
  if (part.mask >> part.shift == 1) bits = (bits != 0) != part.inverse ? 1 : 0;
  wholes_[kFLAGS] = (wholes_[kFLAGS] & ~part.mask) | (bits << part.shift & part.mask);
}

Adesk::UInt8 acdbLineWeightIndex(AcDb::LineWeight weight) {
  if (weight == AcDb::kLnWtByLayer) return kByLayerIndex;
  if (weight == AcDb::kLnWtByBlock) return kByBlockIndex;
  if (weight == AcDb::kLnWtByLwDefault) return kDefaultIndex;
  if (weight <= kStrangeWeights) return Adesk::UInt8(kStrangeWeights - weight);
  // A width between two of the list becomes the next one up.
  const auto at = std::lower_bound(std::begin(kWeights), std::end(kWeights) - 1, Adesk::Int16(weight));
  return Adesk::UInt8(at - std::begin(kWeights));
}

AcDb::LineWeight acdbLineWeightAt(Adesk::UInt8 index) {
  if (index < std::size(kWeights)) return AcDb::LineWeight(kWeights[index]);
  if (index == kByLayerIndex) return AcDb::kLnWtByLayer;
  if (index == kByBlockIndex) return AcDb::kLnWtByBlock;
  if (index == kDefaultIndex) return AcDb::kLnWtByLwDefault;
  return AcDb::LineWeight(kStrangeWeights - index);
}
