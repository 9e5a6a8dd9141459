#include "host/io/dwg/Variables.h"

namespace krio::dwg {

namespace {

using Header = AcDbHeader;

/// CPSNID stands in the stream only when CEPSNTYPE tells that a plot style is meant by its id.
constexpr int kPlotStyleById = 3;

bool isPresent(const Header& header, Header::Index index) {
  return index != Header::kCPSNID || header.whole(Header::kCEPSNTYPE) == kPlotStyleById;
}

void readVariable(Decoder& d, Header& header, Header::Index i) {
  switch (Header::info(i).type) {
    case Header::kBit:
      header.setWhole(i, d.data.b() ? 1 : 0);
      break;
    case Header::kShort:
    case Header::kColor:
      header.setWhole(i, d.data.sbs());
      break;
    case Header::kLong:
      header.setWhole(i, d.data.sbl());
      break;
    case Header::kReal:
      header.setReal(i, d.data.bd());
      break;
    case Header::kText: {
      std::wstring text;
      d.tv(text);
      header.setText(i, std::move(text));
      break;
    }
    case Header::kHandle:
      d.data.h();
      break;
    case Header::kId:
      header.setId(i, d.context().resolve(d.data.h().value));
      break;
    case Header::kPoint3d: {
      AcGePoint3d p;
      d.bd3(p);
      header.setPoint(i, p);
      break;
    }
    case Header::kPoint2d: {
      AcGePoint3d p;
      d.rd2(p);
      header.setPoint(i, p);
      break;
    }
    case Header::kTime: {
      Header::Time time;
      time.day = d.data.sbl();
      time.milliseconds = d.data.sbl();
      header.setTime(i, time);
      break;
    }
  }
}

unsigned codeOf(Header::Index i) {
  const bool control = i >= Header::kBLOCK_CONTROL && i <= Header::kVIEWPORT_HEADER_CONTROL;
  return control || i == Header::kDICTIONARY_NAMED_OBJECTS ? kHardOwner : kHardPointer;
}

}  // namespace

bool readVariables(ReadContext& context, BitReader bits, AcDbHeader& header) {
  Decoder decoder(context, bits, BitReader(), 0);
  for (int i = 0; i < Header::kNumInStream; ++i) {
    const auto index = Header::Index(i);
    if (!isPresent(header, index)) continue;
    readVariable(decoder, header, index);
    if (decoder.failed()) return false;
  }
  return true;
}

std::uint64_t readHandseed(BitReader bits) {
  // All before it, passed over by type.
  for (int i = 0; i < Header::kHANDSEED; ++i) {
    switch (Header::info(Header::Index(i)).type) {
      case Header::kBit:
        bits.b();
        break;
      case Header::kShort:
      case Header::kColor:
        bits.bs();
        break;
      case Header::kLong:
        bits.bl();
        break;
      case Header::kReal:
        bits.bd();
        break;
      case Header::kText:
        bits.skip(8 * std::size_t(bits.bs()));
        break;
      case Header::kTime:
        bits.bl(), bits.bl();
        break;
      case Header::kId:
      case Header::kHandle:
        bits.h();
        break;
      case Header::kPoint3d:
        bits.bd(), bits.bd(), bits.bd();
        break;
      case Header::kPoint2d:
        bits.rd(), bits.rd();
        break;
    }
  }
  const HandleRef seed = bits.h();
  return bits.failed() ? 0 : seed.value;
}

void writeVariables(const AcDbDatabase& database, const os::CodePage& page, BitWriter& to) {
  const Header& header = database.header();
  Encoder encoder(to, page);
  for (int i = 0; i < Header::kNumInStream; ++i) {
    const auto index = Header::Index(i);
    if (!isPresent(header, index)) continue;
    switch (Header::info(index).type) {
      case Header::kBit:
        to.b(header.whole(index) != 0);
        break;
      case Header::kShort:
      case Header::kColor:
        to.sbs(header.whole(index));
        break;
      case Header::kLong:
        to.bl(std::uint32_t(header.whole(index)));
        break;
      case Header::kReal:
        to.bd(header.real(index));
        break;
      case Header::kText:
        encoder.tv(header.text(index));
        break;
      case Header::kHandle:
        to.h(kOwn, database.handseed().value());
        break;
      case Header::kId: {
        const AcDbObjectId id = header.id(index);
        to.h(codeOf(index), id.isErased() ? 0 : id.handle().value());
        break;
      }
      case Header::kPoint3d:
        encoder.bd3(header.point(index));
        break;
      case Header::kPoint2d:
        encoder.rd2(header.point(index));
        break;
      case Header::kTime: {
        const Header::Time time = header.time(index);
        to.bl(std::uint32_t(time.day)), to.bl(std::uint32_t(time.milliseconds));
        break;
      }
    }
  }
}

}  // namespace krio::dwg
