#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "host/companion/companion.h"
#include "host/db/db.h"
#include "host/ed/ed.h"
#include "object/KrObject.h"

/// What the tests of the catalogue's classes share.
namespace profile {

/// A node of an outline as the tables give it.
struct Node {
  double x;
  double y;
  double bulge;
};

/// All nodes of a member's outline, the reference node last.
inline std::vector<Node> outlineOf(const KrObject& member) {
  KrGeratriz outline;
  member.GetSecao(outline);
  std::vector<Node> nodes;
  for (int i = 0; i < outline.numNodes(); ++i) {
    nodes.push_back({outline.GetVertex(i).x, outline.GetVertex(i).y, outline.GetBulge(i)});
  }
  return nodes;
}

inline void expectOutline(const KrObject& member, const std::vector<Node>& expected) {
  const std::vector<Node> nodes = outlineOf(member);
  ASSERT_EQ(nodes.size(), expected.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    EXPECT_NEAR(nodes[i].x, expected[i].x, 1e-9) << "node " << i + 1;
    EXPECT_NEAR(nodes[i].y, expected[i].y, 1e-9) << "node " << i + 1;
    EXPECT_NEAR(nodes[i].bulge, expected[i].bulge, 1e-9) << "node " << i + 1;
  }
}

inline std::wstring perfilOf(const KrObject& member) {
  ACHAR buffer[256] = L"untouched";
  member.getPerfil(buffer);
  return buffer;
}

inline std::wstring dimensoesOf(const KrObject& member) {
  ACHAR buffer[256] = L"untouched";
  member.getDimensoes(buffer);
  return buffer;
}

/// How a class of the catalogue stands in the class dictionary.
inline void expectRegistered(const AcRxClass* descriptor, const wchar_t* name, const wchar_t* dxfName) {
  EXPECT_STREQ(descriptor->name(), name);
  EXPECT_STREQ(descriptor->dxfName(), dxfName);
  EXPECT_STREQ(descriptor->appName(), name);
  EXPECT_EQ(descriptor->myParent(), KrObject::desc());
  EXPECT_EQ(descriptor->proxyFlags(), 0xBFF);
  int dwgVersion = 0;
  int maintenance = 0;
  EXPECT_EQ(descriptor->getClassVersion(dwgVersion, maintenance), Acad::eOk);
  EXPECT_EQ(dwgVersion, 0x1D);
  EXPECT_EQ(maintenance, 1);
}

/// The user's designations of profile classes, for as long as it lives.
class Designations {
 public:
  explicit Designations(const std::string& lines) : former_(KrObject::GetNamesList()) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("designations-" + std::to_string(std::rand()) + ".krn");
    std::ofstream(file) << "[ObjNames]\n" << lines;
    names_.Load(file.wstring().c_str());
    std::filesystem::remove(file);
    KrObject::SetNamesList(&names_);
  }
  ~Designations() { KrObject::SetNamesList(former_); }

 private:
  KrConfigSection names_{L"ObjNames"};
  KrConfigSection* former_;
};

/// Registers the class of a member for a test.
template <class Member>
void registerClass() {
  KrObject::rxInit();
  Member::rxInit();
  acrxBuildClassHierarchy();
}

}  // namespace profile
