#include "TestData.h"

ACRX_CONS_DEFINE_MEMBERS(TestData, KrObjectModCData, 1)
ACRX_CONS_DEFINE_MEMBERS(OtherTestData, TestData, 1)

void registerTestData() {
  KrObjectModCData::rxInit();
  TestData::rxInit();
  OtherTestData::rxInit();
  acrxBuildClassHierarchy();
  TestData::result = Acad::eOk;
}
