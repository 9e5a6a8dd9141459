#pragma once

#include <string>

namespace bench {

/// A job of so many members: tubes and round bars of five profiles in a zigzag from node to node, no two of the same
/// length within a hundred.
inline std::string jobText(int members) {
  std::string text =
      "{\"kr\": 1, \"profiles\": {\n"
      "  \"chord\": {\"class\": \"KrTubo\", \"Diametro\": 114.3, \"DiametroInt\": 102.3},\n"
      "  \"post\": {\"class\": \"KrTubo\", \"Diametro\": 60.3, \"DiametroInt\": 53.1},\n"
      "  \"diagonal\": {\"class\": \"KrTubo\", \"Diametro\": 73, \"DiametroInt\": 65},\n"
      "  \"rod\": {\"class\": \"KrBarraRedonda\", \"diametro\": 16},\n"
      "  \"tie\": {\"class\": \"KrBarraRedonda\", \"diametro\": 25}},\n\"nodes\": {\n";
  const char* const profiles[] = {"chord", "post", "diagonal", "rod", "tie"};
  for (int i = 0; i <= members; ++i) {
    const int x = (i % 100) * 1500;
    const int y = (i / 100) * 4000 + (i % 2) * (1000 + 13 * (i % 97));
    text += (i == 0 ? "  \"N" : ",\n  \"N") + std::to_string(i) + "\": [" + std::to_string(x) + ", " +
            std::to_string(y) + ".5]";
  }
  text += "},\n\"members\": [\n";
  for (int i = 0; i < members; ++i) {
    text += (i == 0 ? "  {\"name\": \"M" : ",\n  {\"name\": \"M") + std::to_string(i) + "\", \"profile\": \"" +
            profiles[i % 5] + "\", \"from\": \"N" + std::to_string(i) + "\", \"to\": \"N" + std::to_string(i + 1) +
            "\"}";
  }
  return text + "]}\n";
}

}  // namespace bench
