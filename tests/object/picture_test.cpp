// The pictures that members carry into files: drawn again they are the members' own drawings, and another program draws
// the same lines.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/gi/Recorder.h"
#include "host/io/ProxyGraphics.h"
#include "object/Drawing.h"
#include "object/EveryClass.h"

namespace {

constexpr double kTurn = 2 * 3.141592653589793;
constexpr double kClose = 1e-6;

std::vector<std::byte> encoded(KrObject& member) {
  std::vector<std::byte> bytes;
  krio::encodeProxyGraphics(member, bytes);
  return bytes;
}

std::vector<gi::DrawCall> drawn(KrObject& member) {
  gi::Recorder recorder;
  recorder.drawWhole(member);
  return recorder.figures();
}

/// A figure as its kind and its numbers, in the words of the script.
struct Figure {
  std::string kind;
  std::vector<double> numbers;
};

Figure figureOf(const gi::DrawCall& call) {
  Figure figure;
  std::vector<double>& n = figure.numbers;
  const AcGePoint3d& c = call.center;
  switch (call.kind) {
    case gi::CallKind::circle:
      return {"circle", {c.x, c.y, c.z, call.radius}};
    case gi::CallKind::arc: {
      const auto angle = [&](const AcGePoint3d& p) { return std::atan2(p.y - c.y, p.x - c.x); };
      // Told counter-clockwise, whichever way it was drawn.
      const bool turned = call.normal.z < 0;
      return {"arc",
              {c.x, c.y, c.z, call.radius, angle(call.points[turned ? 2 : 0]), angle(call.points[turned ? 0 : 2])}};
    }
    case gi::CallKind::polygon:
      for (const AcGePoint3d& p : call.points) n.insert(n.end(), {p.x, p.y});
      figure.kind = "polygon";
      return figure;
    default:
      for (const AcGePoint3d& p : call.points) n.insert(n.end(), {p.x, p.y, p.z});
      figure.kind = "polyline";
      return figure;
  }
}

void expectSame(const Figure& a, const Figure& b, const std::string& what) {
  ASSERT_EQ(a.kind, b.kind) << what;
  ASSERT_EQ(a.numbers.size(), b.numbers.size()) << what;
  const bool isArc = a.kind == "arc";
  for (std::size_t i = 0; i < a.numbers.size(); ++i) {
    double difference = a.numbers[i] - b.numbers[i];
    if (isArc && i > 3) difference = std::remainder(difference, kTurn);
    EXPECT_NEAR(difference, 0, kClose) << what << " number " << i;
  }
}

class MemberPicture : public testing::TestWithParam<everyclass::Sample> {
 protected:
  Drawing drawing;
};

std::string nameOf(const testing::TestParamInfo<everyclass::Sample>& info) {
  return testing::PrintToString(info.param);
}

}  // namespace

TEST_P(MemberPicture, IsDrawnAsTheMemberDrawsItself) {
  for (const KrVistas view : {Secao, Superior, Direita}) {
    const std::unique_ptr<KrObject> member = GetParam().make(view);
    if (view != Secao) everyclass::modify(*member);
    const std::vector<gi::DrawCall> own = drawn(*member);
    gi::Recorder recorder;
    recorder.setDatabase(drawing.database());
    krio::drawProxyGraphics(encoded(*member), &recorder);
    const std::vector<gi::DrawCall> again = recorder.figures();
    ASSERT_EQ(again.size(), own.size());
    ASSERT_FALSE(own.empty());
    for (std::size_t i = 0; i < own.size(); ++i) {
      expectSame(figureOf(again[i]), figureOf(own[i]), std::to_string(i));
      const AcDbObjectId layer = own[i].traits.layer;
      EXPECT_EQ(again[i].traits.layer, layer.isNull() ? drawing.database()->layerZero() : layer) << i;
      EXPECT_EQ(again[i].traits.color, own[i].traits.color) << i;
      // What has no inside doesn't say whether it is filled.
      if (own[i].kind != gi::CallKind::polyline) {
        EXPECT_EQ(again[i].traits.fill, own[i].traits.fill) << i;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Catalogue, MemberPicture, testing::ValuesIn(everyclass::samples()), nameOf);

TEST(MemberPictures, AreDrawnWithTheSameLinesByEzdxf) {
  const Drawing drawing;
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  const std::string hex = (folder / ("pictures" + std::to_string(::getpid()))).string();
  std::vector<std::vector<gi::DrawCall>> own;
  {
    std::ofstream file(hex);
    for (const everyclass::Sample& sample : everyclass::samples()) {
      for (const KrVistas view : {Secao, Superior, Esquerda}) {
        const std::unique_ptr<KrObject> member = sample.make(view);
        if (view != Secao) everyclass::modify(*member);
        own.push_back(drawn(*member));
        for (const std::byte b : encoded(*member)) {
          char digits[3];
          std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned>(b));
          file << digits;
        }
        file << "\n";
      }
    }
  }
  const std::string command = "/usr/bin/python3 " KR_SOURCE_DIR "/tests/object/proxy_lines.py < " + hex;
  std::FILE* pipe = ::popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string output;
  for (char piece[4096]; std::fgets(piece, sizeof piece, pipe) != nullptr;) output += piece;
  EXPECT_EQ(::pclose(pipe), 0);
  std::filesystem::remove(hex);
  if (output == "no ezdxf\n") GTEST_SKIP() << "ezdxf isn't installed";

  std::istringstream lines(output);
  std::size_t figures = 0;
  for (std::size_t m = 0; m < own.size(); ++m) {
    std::string line;
    std::size_t i = 0;
    for (; std::getline(lines, line) && line != "."; ++i) {
      std::istringstream words(line);
      Figure figure;
      words >> figure.kind;
      for (double number = 0; words >> number;) figure.numbers.push_back(number);
      ASSERT_LT(i, own[m].size()) << m;
      expectSame(figure, figureOf(own[m][i]), std::to_string(m) + ": " + line);
    }
    EXPECT_EQ(i, own[m].size()) << m;
    figures += i;
  }
  EXPECT_GT(figures, 1000U);
}
