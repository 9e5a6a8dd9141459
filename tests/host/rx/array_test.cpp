#include <gmock/gmock.h>

#include <random>
#include <string>
#include <vector>

#include "host/rx/rx.h"

namespace {

using Names = AcArray<std::wstring, AcArrayObjectCopyReallocator<std::wstring>>;

AcArray<int> arrayOf(std::initializer_list<int> values) {
  AcArray<int> array;
  for (const int each : values) array.append(each);
  return array;
}

TEST(Array, AppendsAndIndexes) {
  AcArray<double> array;
  EXPECT_TRUE(array.isEmpty());
  EXPECT_EQ(array.append(1.5), 0);
  EXPECT_EQ(array.append(2.5), 1);
  EXPECT_EQ(array.length(), 2);
  EXPECT_EQ(array[1], 2.5);
  EXPECT_EQ(array.first(), 1.5);
  EXPECT_EQ(array.last(), 2.5);
  EXPECT_EQ(array.asArrayPtr()[0], 1.5);
}

TEST(Array, AppendsAnElementOfItselfAcrossAGrowth) {
  AcArray<int> array(1);
  array.append(7);
  for (int i = 0; i < 100; ++i) array.append(array[0]);
  EXPECT_THAT(array, testing::Each(7));
  Names names(1);
  names.append(L"um nome que não cabe no próprio objeto");
  for (int i = 0; i < 20; ++i) names.append(names[0]);
  EXPECT_THAT(names, testing::Each(names[0]));
}

TEST(Array, AppendsItself) {
  AcArray<int> array = arrayOf({1, 2, 3});
  array.append(array);
  EXPECT_THAT(array, testing::ElementsAre(1, 2, 3, 1, 2, 3));
}

TEST(Array, InsertsAnywhereUpToTheEnd) {
  AcArray<int> array = arrayOf({1, 2});
  array.insertAt(0, 9).insertAt(3, 8).insertAt(1, array[0]);
  EXPECT_THAT(array, testing::ElementsAre(9, 9, 1, 2, 8));
}

TEST(Array, RemovesByPlaceAndByValue) {
  AcArray<int> array = arrayOf({1, 2, 3, 4, 5, 6});
  array.removeAt(2).removeFirst().removeLast();
  EXPECT_THAT(array, testing::ElementsAre(2, 4, 5));
  EXPECT_TRUE(array.remove(4));
  EXPECT_FALSE(array.remove(4));
  array.append(6);
  array.removeSubArray(0, 1);
  EXPECT_THAT(array, testing::ElementsAre(6));
}

TEST(Array, FindsValues) {
  const AcArray<int> array = arrayOf({5, 6, 5});
  EXPECT_TRUE(array.contains(6));
  EXPECT_FALSE(array.contains(7));
  EXPECT_FALSE(array.contains(6, 2));
  EXPECT_EQ(array.find(5), 0);
  EXPECT_EQ(array.find(9), -1);
  int index = 77;
  EXPECT_TRUE(array.find(5, index, 1));
  EXPECT_EQ(index, 2);
  EXPECT_FALSE(array.find(6, index, 2));
  EXPECT_EQ(index, 2);
}

TEST(Array, SetsItsLengthWithEmptyElementsBehind) {
  AcArray<int> array = arrayOf({1, 2, 3});
  array.setLogicalLength(5);
  EXPECT_THAT(array, testing::ElementsAre(1, 2, 3, 0, 0));
  array.setLogicalLength(1);
  EXPECT_THAT(array, testing::ElementsAre(1));
}

TEST(Array, SetsItsRoom) {
  AcArray<int> array = arrayOf({1, 2, 3});
  array.setPhysicalLength(100);
  EXPECT_EQ(array.physicalLength(), 100);
  const int* before = array.asArrayPtr();
  for (int i = 0; i < 97; ++i) array.append(i);
  EXPECT_EQ(array.asArrayPtr(), before);
  array.setPhysicalLength(2);
  EXPECT_THAT(array, testing::ElementsAre(1, 2));
}

TEST(Array, GrowsByAtLeastItsGrowLength) {
  AcArray<int> array(0, 50);
  EXPECT_EQ(array.growLength(), 50);
  array.append(1);
  EXPECT_GE(array.physicalLength(), 50);
}

TEST(Array, ReversesAndSwaps) {
  AcArray<int> array = arrayOf({1, 2, 3, 4});
  array.reverse();
  EXPECT_THAT(array, testing::ElementsAre(4, 3, 2, 1));
  array.swap(0, 3);
  EXPECT_THAT(array, testing::ElementsAre(1, 3, 2, 4));
}

TEST(Array, CopiesAreIndependent) {
  AcArray<int> array = arrayOf({1, 2});
  AcArray<int> copy = array;
  copy[0] = 9;
  EXPECT_THAT(array, testing::ElementsAre(1, 2));
  array = copy;
  EXPECT_EQ(array, copy);
  const AcArray<int> moved = std::move(copy);
  EXPECT_THAT(moved, testing::ElementsAre(9, 2));
}

TEST(Array, BehavesAsAVectorUnderRandomOperations) {
  std::mt19937 engine(20260101);
  const auto random = [&] { return static_cast<unsigned>(engine()); };
  Names array;
  std::vector<std::wstring> model;
  for (int step = 0; step < 20000; ++step) {
    const std::wstring value(random() % 40, L'x');
    const auto size = static_cast<unsigned>(model.size());
    switch (random() % 6) {
      case 0:
      case 1:
        array.append(value);
        model.push_back(value);
        break;
      case 2: {
        const unsigned at = random() % (size + 1);
        array.insertAt(int(at), value);
        model.insert(model.begin() + at, value);
        break;
      }
      case 3: {
        if (size == 0) break;
        const unsigned at = random() % size;
        array.removeAt(int(at));
        model.erase(model.begin() + at);
        break;
      }
      case 4: {
        const Names copy = array;
        array = copy;
        break;
      }
      default: {
        const unsigned length = size / 2 + random() % 4;
        array.setLogicalLength(int(length));
        model.resize(length);
        break;
      }
    }
    ASSERT_EQ(array.length(), int(model.size()));
  }
  EXPECT_THAT(array, testing::ElementsAreArray(model));
}

TEST(Heap, ReallocKeepsTheContents) {
  auto* bytes = static_cast<char*>(odrxAlloc(4));
  std::copy_n("abc", 4, bytes);
  bytes = static_cast<char*>(odrxRealloc(bytes, 100000));
  EXPECT_STREQ(bytes, "abc");
  odrxFree(bytes);
  odrxFree(nullptr);
}

}  // namespace
