#include "records/KrObjectArray.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "AllocationProbe.h"
#include "records/KrVector.h"

namespace {

/// A value that knows how many of its kind live.
struct Counted {
  static inline int alive = 0;
  explicit Counted(int v = 0) : value(v) { ++alive; }
  Counted(const Counted& other) : value(other.value) { ++alive; }
  Counted& operator=(const Counted&) = default;
  ~Counted() { --alive; }
  Acad::ErrorStatus dwgOutFields(AcDbDwgFiler*) const { return Acad::eOk; }
  Acad::ErrorStatus dwgInFields(AcDbDwgFiler*) { return Acad::eOk; }
  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler*) const { return Acad::eOk; }
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler*) { return Acad::eOk; }

  int value;
};

using List = KrObjectArray<Counted>;

List listOf(std::initializer_list<int> values) {
  List list;
  for (const int v : values) list.append(Counted(v));
  return list;
}

/// The values as a walk along the nodes meets them.
std::vector<int> walk(const List& list) {
  std::vector<int> values;
  for (const auto* node = list.getNode(0); node != nullptr; node = list.nextNode(node)) {
    values.push_back(node->value->value);
  }
  return values;
}

/// The values as positions give them.
std::vector<int> index(const List& list) {
  std::vector<int> values;
  for (int i = 0; list.getNode(i) != nullptr; ++i) values.push_back(list[i].value);
  return values;
}

using Ints = std::vector<int>;

}  // namespace

TEST(KrObjectArray, NewListIsEmptyAndOwnsNoMemory) {
  const int before = AllocationProbe::allocations;
  const List list;
  EXPECT_EQ(list.length(), 0);
  EXPECT_EQ(list.IsEmpty(), 1);
  EXPECT_EQ(list.getNode(0), nullptr);
  EXPECT_EQ(list.getNode(-1), nullptr);
  EXPECT_EQ(AllocationProbe::allocations, before);
  EXPECT_LE(sizeof(KrObjectArray<KrVector>), 64U);
}

TEST(KrObjectArray, AppendAddsACopyAtTheTail) {
  const List list = listOf({4, 5, 6});
  EXPECT_EQ(list.length(), 3);
  EXPECT_EQ(list.IsEmpty(), 0);
  EXPECT_EQ(walk(list), (Ints{4, 5, 6}));
  EXPECT_EQ(index(list), (Ints{4, 5, 6}));
  EXPECT_EQ(list.first().value, 4);
  EXPECT_EQ(list.last().value, 6);
}

TEST(KrObjectArray, AppendGivesZeroWhenTheFirstNodeCannotBeAllocated) {
  List list;
  const Counted value(1);
  AllocationProbe::memoryIsOut = true;
  const int result = list.append(value);
  AllocationProbe::memoryIsOut = false;
  EXPECT_EQ(result, 0);
  EXPECT_EQ(list.length(), 0);
  EXPECT_EQ(list.append(value), 1);
  EXPECT_EQ(list.length(), 1);
}

TEST(KrObjectArray, NegativePositionGivesTheFirstAndOnePastTheEndNoNode) {
  const List list = listOf({4, 5, 6});
  EXPECT_EQ(list[-7].value, 4);
  EXPECT_EQ(list.getNode(-1), list.getNode(0));
  EXPECT_EQ(list.getNode(3), nullptr);
}

TEST(KrObjectArray, NodesStayWhereTheyAreWhileOthersAreAdded) {
  List list = listOf({1});
  Node<Counted>* node = list.getNode(0);
  const Counted* value = node->value;
  for (int i = 2; i <= 1000; ++i) list.append(Counted(i));
  list.AddAt(Counted(0), 0);
  EXPECT_EQ(list.getNode(1), node);
  EXPECT_EQ(node->value, value);
  EXPECT_EQ(value->value, 1);
  EXPECT_EQ(list.nextNode(node)->value->value, 2);
  EXPECT_EQ(list[1000].value, 1000);
}

TEST(KrObjectArray, AppendOfAListAddsItsValuesBehind) {
  List list = listOf({1, 2});
  EXPECT_EQ(list.append(listOf({3, 4})), 1);
  EXPECT_EQ(walk(list), (Ints{1, 2, 3, 4}));
  EXPECT_EQ(list.length(), 4);
  List empty;
  EXPECT_EQ(empty.append(list), 1);
  EXPECT_EQ(walk(empty), (Ints{1, 2, 3, 4}));
  EXPECT_EQ(list.append(list), 1);
  EXPECT_EQ(walk(list), (Ints{1, 2, 3, 4, 1, 2, 3, 4}));
}

TEST(KrObjectArray, AddAtInsertsBeforeThePosition) {
  List list;
  EXPECT_EQ(list.AddAt(Counted(5), 3), 1);
  list.AddAt(Counted(9), 1);
  list.AddAt(Counted(7), 1);
  list.AddAt(Counted(4), 0);
  EXPECT_EQ(walk(list), (Ints{4, 5, 7, 9}));
  EXPECT_EQ(index(list), (Ints{4, 5, 7, 9}));
  EXPECT_EQ(list.length(), 4);
}

TEST(KrObjectArray, AddAtANegativePositionInsertsAtPositionOne) {
  List list = listOf({1, 2, 3});
  list.AddAt(Counted(8), -4);
  EXPECT_EQ(walk(list), (Ints{1, 8, 2, 3}));
}

TEST(KrObjectArray, AddAtOfAListGoesInFrontOrBehind) {
  List list = listOf({1, 2});
  EXPECT_EQ(list.AddAt(listOf({8, 9}), 0), 1);
  EXPECT_EQ(walk(list), (Ints{8, 9, 1, 2}));
  EXPECT_EQ(list.AddAt(listOf({3}), 4), 1);
  EXPECT_EQ(walk(list), (Ints{8, 9, 1, 2, 3}));
  EXPECT_EQ(list.length(), 5);
  EXPECT_EQ(list.AddAt(list, 0), 1);
  EXPECT_EQ(walk(list), (Ints{8, 9, 1, 2, 3, 8, 9, 1, 2, 3}));
}

// Nothing calls this form; it is kept as it is.
TEST(KrObjectArray, AddAtOfAListInTheMiddleInsertsNothingAndOnlyCountsTheTailTwice) {
  List list = listOf({1, 2, 3, 4});
  const Node<Counted>* tail = list.getNode(2);
  EXPECT_EQ(list.AddAt(listOf({8, 9}), 2), 1);
  EXPECT_EQ(walk(list), (Ints{1, 2, 3, 4}));
  EXPECT_NE(list.getNode(2), tail);
  EXPECT_EQ(list.length(), 6);
  EXPECT_EQ(list.getNode(4), nullptr);
  const List copy = list;
  EXPECT_EQ(copy.length(), 6);
}

TEST(KrObjectArray, RemoveAtIgnoresAPositionPastTheEnd) {
  List list = listOf({1, 2, 3});
  list.removeAt(3);
  EXPECT_EQ(list.length(), 3);
  list.removeAt(1);
  EXPECT_EQ(walk(list), (Ints{1, 3}));
  list.removeAt(0);
  EXPECT_EQ(walk(list), (Ints{3}));
  list.removeAt(0);
  EXPECT_EQ(list.IsEmpty(), 1);
  list.append(Counted(7));
  EXPECT_EQ(index(list), (Ints{7}));
}

TEST(KrObjectArray, SwapExchangesTheValuesOfTwoNodesThatStayInPlace) {
  List list = listOf({1, 2, 3});
  Node<Counted>* first = list.getNode(0);
  const Counted* value = first->value;
  EXPECT_EQ(list.swap(0, 2), 1);
  EXPECT_EQ(walk(list), (Ints{3, 2, 1}));
  EXPECT_EQ(list.getNode(0), first);
  EXPECT_EQ(list.getNode(2)->value, value);
  EXPECT_EQ(list.swap(0, 3), 0);
  EXPECT_EQ(walk(list), (Ints{3, 2, 1}));
}

TEST(KrObjectArray, SwappedValuesAreEachDestroyedOnce) {
  {
    List list = listOf({1, 2, 3});
    list.swap(0, 2);
    list.removeAt(0);
    EXPECT_EQ(Counted::alive, 2);
    list.append(Counted(9));
    EXPECT_EQ(walk(list), (Ints{2, 1, 9}));
    list.Clear();
    EXPECT_EQ(Counted::alive, 0);
    list.append(Counted(4));
  }
  EXPECT_EQ(Counted::alive, 0);
}

TEST(KrObjectArray, AssignmentCopiesTheValues) {
  List source = listOf({1, 2, 3});
  List list = listOf({7, 8, 9, 10});
  list = source;
  source[0].value = 50;
  EXPECT_EQ(walk(list), (Ints{1, 2, 3}));
  EXPECT_EQ(list.length(), 3);
  const List& self = list;
  list = self;
  EXPECT_EQ(walk(list), (Ints{1, 2, 3}));
}

TEST(KrObjectArray, FillingAgainAfterClearAllocatesNothing) {
  List list;
  for (int i = 0; i < 100; ++i) list.append(Counted(i));
  const int before = AllocationProbe::allocations;
  for (int round = 0; round < 5; ++round) {
    list.Clear();
    EXPECT_EQ(list.length(), 0);
    for (int i = 0; i < 100; ++i) list.append(Counted(i));
  }
  EXPECT_EQ(AllocationProbe::allocations, before);
  EXPECT_EQ(list[99].value, 99);
  EXPECT_EQ(Counted::alive, 100);
}

TEST(KrObjectArray, EightElementsOfAViewTakeOnePieceOfMemory) {
  const int before = AllocationProbe::allocations;
  KrObjectArray<KrVector> list;
  for (int i = 0; i < 8; ++i) list.append(KrVector());
  EXPECT_EQ(AllocationProbe::allocations, before + 1);
}

// Random edits against a plain vector.
TEST(KrObjectArray, FollowsAVectorThroughRandomEdits) {
  unsigned state = 12345;
  const auto next = [&state](int bound) {
    state = state * 1664525U + 1013904223U;
    return static_cast<int>((state >> 8) % static_cast<unsigned>(bound));
  };
  List list;
  Ints model;
  for (int step = 0; step < 4000; ++step) {
    const int size = static_cast<int>(model.size());
    switch (next(5)) {
      case 0:
      case 1:
        list.append(Counted(step));
        model.push_back(step);
        break;
      case 2: {
        const int at = next(size + 1);
        list.AddAt(Counted(step), at);
        model.insert(model.begin() + at, step);
        break;
      }
      case 3:
        if (size == 0) break;
        if (const int at = next(size); true) {
          list.removeAt(at);
          model.erase(model.begin() + at);
        }
        break;
      default:
        if (size == 0) break;
        if (const int a = next(size), b = next(size); true) {
          list.swap(a, b);
          std::swap(model[static_cast<std::size_t>(a)], model[static_cast<std::size_t>(b)]);
        }
    }
    if (step % 997 == 0) {
      list.Clear();
      model.clear();
    }
  }
  EXPECT_EQ(walk(list), model);
  EXPECT_EQ(index(list), model);
  EXPECT_EQ(Counted::alive, static_cast<int>(model.size()));
}
