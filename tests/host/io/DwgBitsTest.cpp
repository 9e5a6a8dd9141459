#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "host/io/dwg/BitReader.h"
#include "host/io/dwg/BitWriter.h"
#include "host/io/dwg/Crc.h"

namespace krio::dwg {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes fromText(std::string_view text) {
  return {text.begin(), text.end()};
}

/// The bits written, as 0 and 1.
template <class Write>
std::string bitsOf(Write write) {
  BitWriter w;
  write(w);
  const std::size_t count = w.position();
  const auto bytes = w.bytes();
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += (bytes[i / 8] >> (7 - i % 8) & 1) != 0 ? '1' : '0';
  return text;
}

template <class Write>
Bytes bytesOf(Write write) {
  BitWriter w;
  write(w);
  const auto bytes = w.bytes();
  return {bytes.begin(), bytes.end()};
}

Bytes packed(const std::string& bits) {
  Bytes bytes((bits.size() + 7) / 8);
  for (std::size_t i = 0; i < bits.size(); ++i) {
    if (bits[i] == '1') bytes[i / 8] = std::uint8_t(bytes[i / 8] | 0x80 >> i % 8);
  }
  return bytes;
}

TEST(DwgCrc, MatchesThePublishedCheckValue) {
  EXPECT_EQ(crc16(fromText("123456789"), 0), 0xBB3D);
  EXPECT_EQ(crc16(fromText("123456789")), 0x7E6C);
}

TEST(DwgCrc, OfLongRunsEqualsTheByteByByteDefinition) {
  std::mt19937 random(7);
  for (std::size_t length = 0; length < 70; ++length) {
    Bytes bytes(length);
    for (auto& byte : bytes) byte = std::uint8_t(random());
    std::uint16_t crc = kCrcStart;
    for (const std::uint8_t byte : bytes) {
      crc ^= byte;
      for (int i = 0; i < 8; ++i) crc = std::uint16_t((crc & 1) != 0 ? crc >> 1 ^ 0xA001 : crc >> 1);
    }
    EXPECT_EQ(crc16(bytes), crc) << length << " bytes";
  }
}

TEST(DwgBits, WriteNumbersInTheirShortestForm) {
  EXPECT_EQ(bitsOf([](auto& w) { w.bs(0); }), "10");
  EXPECT_EQ(bitsOf([](auto& w) { w.bs(256); }), "11");
  EXPECT_EQ(bitsOf([](auto& w) { w.bs(15); }), "0100001111");
  EXPECT_EQ(bitsOf([](auto& w) { w.bs(257); }), "000000000100000001");
  EXPECT_EQ(bitsOf([](auto& w) { w.sbs(-1); }), "001111111111111111");
  EXPECT_EQ(bitsOf([](auto& w) { w.bl(0); }), "10");
  EXPECT_EQ(bitsOf([](auto& w) { w.bl(15); }), "0100001111");
  EXPECT_EQ(bitsOf([](auto& w) { w.bl(256); }), "0000000000000000010000000000000000");
  EXPECT_EQ(bitsOf([](auto& w) { w.bd(1.0); }), "01");
  EXPECT_EQ(bitsOf([](auto& w) { w.bd(0.0); }), "10");
  EXPECT_EQ(bitsOf([](auto& w) { w.bd(-0.0); }).size(), 66U) << "minus zero is stored in full";
  EXPECT_EQ(bitsOf([](auto& w) { w.bt(0.0); }), "1");
  EXPECT_EQ(bitsOf([](auto& w) { w.bt(1.0); }), "001");
}

TEST(DwgBits, WriteModularNumbers) {
  const std::pair<std::int64_t, Bytes> mc[] = {
      {63, {0x3F}},          {64, {0xC0, 0x00}},          {-1, {0x41}}, {-64, {0xC0, 0x40}}, {4610, {0x82, 0x24}},
      {-1413, {0x85, 0x4B}}, {100000, {0xA0, 0x8D, 0x06}}};
  for (const auto& [value, bytes] : mc) {
    EXPECT_EQ(bytesOf([&, v = value](auto& w) { w.mc(v); }), bytes) << value;
    EXPECT_EQ(BitReader(bytes).mc(), value);
  }
  const std::pair<std::uint64_t, Bytes> umc[] = {{127, {0x7F}}, {128, {0x80, 0x01}}, {100000, {0xA0, 0x8D, 0x06}}};
  for (const auto& [value, bytes] : umc) {
    EXPECT_EQ(bytesOf([&, v = value](auto& w) { w.umc(v); }), bytes) << value;
    EXPECT_EQ(BitReader(bytes).umc(), value);
  }
  const std::pair<std::uint32_t, Bytes> ms[] = {{10, {0x0A, 0x00}},
                                                {0x7FFF, {0xFF, 0x7F}},
                                                {0x8000, {0x00, 0x80, 0x01, 0x00}},
                                                {100000, {0xA0, 0x86, 0x03, 0x00}}};
  for (const auto& [value, bytes] : ms) {
    EXPECT_EQ(bytesOf([&, v = value](auto& w) { w.ms(v); }), bytes) << value;
    EXPECT_EQ(BitReader(bytes).ms(), value);
  }
}

TEST(DwgBits, WriteHandlesWithoutLeadingZeros) {
  EXPECT_EQ(bitsOf([](auto& w) { w.h(5, 0x10); }), "0101000100010000");
  EXPECT_EQ(bitsOf([](auto& w) { w.h(0, 0x5E7); }), "000000100000010111100111");
  EXPECT_EQ(bitsOf([](auto& w) { w.h(3, 0); }), "00110000");
}

TEST(DwgBits, WriteATextWithItsLength) {
  EXPECT_EQ(bitsOf([](auto& w) { w.tv("ACAD"); }), "010000010001000001010000110100000101000100");
}

TEST(DwgBits, WriteOfADoubleOnlyTheBytesThatDifferFromItsDefault) {
  const double one = 1.0;
  const auto changed = [&](std::uint64_t bits) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(one) ^ bits);
  };
  EXPECT_EQ(bitsOf([&](auto& w) { w.dd(one, one); }), "00");
  EXPECT_EQ(bitsOf([&](auto& w) { w.dd(changed(1), one); }).size(), 34U);
  EXPECT_EQ(bitsOf([&](auto& w) { w.dd(changed(1ULL << 32), one); }).size(), 50U);
  EXPECT_EQ(bitsOf([&](auto& w) { w.dd(changed(1ULL << 48), one); }).size(), 66U);
  // 0x3FF0000000000000 with byte 0 set to 1: four bytes follow the code 01.
  EXPECT_EQ(bitsOf([&](auto& w) { w.dd(changed(1), one); }), "0100000001" + std::string(24, '0'));
}

TEST(DwgBits, ReadBackWhatWasWrittenAtEveryBitOffset) {
  std::mt19937_64 random(11);
  const double doubles[] = {0.0, 1.0, -0.0, 3.25, 1e300, std::numeric_limits<double>::denorm_min(), -1e20};
  for (unsigned offset = 0; offset < 8; ++offset) {
    BitWriter w;
    w.put(0, offset);
    std::vector<std::uint64_t> words;
    for (unsigned bits = 1; bits <= 64; ++bits) words.push_back(random() >> (64 - bits));
    for (const std::uint64_t word : words) {
      w.b((word & 1) != 0), w.bb(word & 3), w.rc(std::uint8_t(word)), w.rs(std::uint16_t(word));
      w.rl(std::uint32_t(word)), w.bs(std::uint16_t(word)), w.bl(std::uint32_t(word)), w.rll(word);
      w.h(5, word), w.umc(std::uint32_t(word)), w.mc(std::int32_t(word));
      w.bytes(&word, 5);
    }
    for (const double d : doubles) {
      w.rd(d), w.bd(d), w.bt(d);
      for (const double preset : doubles) w.dd(d, preset);
    }
    const std::size_t end = w.position();
    const auto bytes = w.bytes();
    BitReader r(bytes, offset, end);
    for (const std::uint64_t word : words) {
      ASSERT_EQ(r.b(), (word & 1) != 0);
      ASSERT_EQ(r.bb(), word & 3);
      ASSERT_EQ(r.rc(), std::uint8_t(word));
      ASSERT_EQ(r.rs(), std::uint16_t(word));
      ASSERT_EQ(r.rl(), std::uint32_t(word));
      ASSERT_EQ(r.bs(), std::uint16_t(word));
      ASSERT_EQ(r.bl(), std::uint32_t(word));
      ASSERT_EQ(r.rll(), word);
      ASSERT_EQ(r.h(), (HandleRef{5, word}));
      ASSERT_EQ(r.umc(), std::uint32_t(word));
      ASSERT_EQ(r.mc(), std::int32_t(word));
      std::uint64_t five = 0;
      ASSERT_TRUE(r.bytes(&five, 5));
      ASSERT_EQ(five, word & 0xffffffffffU);
    }
    const auto same = [](double a, double b) {
      return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
    };
    for (const double d : doubles) {
      ASSERT_TRUE(same(r.rd(), d) && same(r.bd(), d) && same(r.bt(), d));
      for (const double preset : doubles) ASSERT_TRUE(same(r.dd(preset), d));
    }
    EXPECT_EQ(r.left(), 0U);
    EXPECT_FALSE(r.failed());
  }
}

TEST(DwgBits, GiveZeroAndFailBeyondTheEnd) {
  const Bytes bytes = {0x00, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff};
  for (std::size_t end = 0; end < 8 * bytes.size(); ++end) {
    for (int kind = 0; kind < 8; ++kind) {
      BitReader r(bytes, 0, end);
      // What follows is told by the first bits, 00: all the long forms.
      double value = 0;
      std::size_t need = 0;
      switch (kind) {
        case 0:
          value = r.rd(), need = 64;
          break;
        case 1:
          value = r.bd(), need = 66;
          break;
        case 2:
          value = double(r.rl()), need = 32;
          break;
        case 3:
          value = double(r.bl()), need = 34;
          break;
        case 4:
          value = double(r.bs()), need = 18;
          break;
        case 5:
          value = double(r.rll()), need = 64;
          break;
        case 6:
          value = double(r.rs()), need = 16;
          break;
        default:
          value = r.b() ? 1 : 0, need = 1;
          break;
      }
      EXPECT_EQ(r.failed(), end < need) << "kind " << kind << ", end " << end;
      if (end < need) {
        EXPECT_EQ(value, 0.0);
        EXPECT_EQ(r.left(), 0U);
      }
    }
  }
}

TEST(DwgBits, RefuseCodesThatAreNotAllowed) {
  const auto refused = [](const std::string& bits, auto read) {
    const Bytes bytes = packed(bits + std::string(80, '0'));
    BitReader r(bytes);
    read(r);
    return r.failed();
  };
  EXPECT_TRUE(refused("11", [](auto& r) { r.bl(); }));
  EXPECT_TRUE(refused("11", [](auto& r) { r.bd(); }));
  EXPECT_TRUE(refused("01011001", [](auto& r) { r.h(); })) << "a handle of nine bytes";
  EXPECT_FALSE(refused("01011000", [](auto& r) { r.h(); })) << "a handle of eight bytes";
  const Bytes endless(64, 0xff);
  for (int kind = 0; kind < 3; ++kind) {
    BitReader r(endless);
    kind == 0 ? void(r.umc()) : kind == 1 ? void(r.mc()) : void(r.ms());
    EXPECT_TRUE(r.failed());
  }
}

TEST(DwgBits, RefuseACountThatIsLargerThanWhatIsLeft) {
  const Bytes bytes(10);
  BitReader r(bytes);
  EXPECT_TRUE(r.fits(40, 2));
  EXPECT_TRUE(r.fits(0, 1000));
  EXPECT_FALSE(BitReader(bytes).fits(41, 2));
  EXPECT_FALSE(BitReader(bytes).fits(~std::uint64_t(0), 64)) << "the product would overflow";
}

TEST(DwgBits, PatchANumberAtAnyBit) {
  for (unsigned offset = 1; offset < 16; ++offset) {
    BitWriter w;
    w.put(0xffff >> (16 - offset), offset);
    const std::size_t place = w.position();
    w.rl(0xffffffff);
    w.put(1, 2);
    w.rl(0x01020304);
    w.patchRl(place, 0xCAFE1234);
    const std::size_t end = w.position();
    BitReader r(w.bytes(), 0, end);
    EXPECT_EQ(r.bits(offset), 0xffffU >> (16 - offset));
    EXPECT_EQ(r.rl(), 0xCAFE1234U);
    EXPECT_EQ(r.bits(2), 1U);
    EXPECT_EQ(r.rl(), 0x01020304U);
  }
}

TEST(DwgBits, CarryARunOfBitsFromAnyOffsetToAnyOther) {
  const Bytes run = {0xA5, 0x3C, 0x99, 0x01, 0xF0, 0x77, 0x12, 0xEE, 0x5D, 0x80};
  for (unsigned offset = 0; offset < 8; ++offset) {
    for (std::size_t count = 0; count <= 8 * run.size(); ++count) {
      BitWriter w;
      w.put(0, offset);
      w.bitRun(run, count);
      ASSERT_EQ(w.position(), offset + count);
      BitReader from(run), to(w.bytes(), offset, offset + count);
      for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(to.b(), from.b());
    }
  }
}

}  // namespace
}  // namespace krio::dwg
