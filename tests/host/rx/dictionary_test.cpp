#include <gmock/gmock.h>

#include <memory>

#include "host/rx/rx.h"

namespace {

int alive = 0;

struct Counted : AcRxObject {
  Counted() { ++alive; }
  ~Counted() override { --alive; }
};

std::vector<std::wstring> keysOf(const AcRxDictionary& dictionary, AcRx::DictIterType order) {
  std::vector<std::wstring> keys;
  const std::unique_ptr<AcRxDictionaryIterator> walk(dictionary.newIterator(order));
  for (; !walk->done(); walk->next()) keys.emplace_back(walk->key());
  return keys;
}

TEST(Dictionary, GivesObjectsByKeyAndById) {
  AcRxDictionary dictionary;
  Counted object;
  Adesk::UInt32 id = 99;
  EXPECT_EQ(dictionary.atPut(L"AcEditor", &object, id), nullptr);
  EXPECT_EQ(dictionary.at(L"AcEditor"), &object);
  EXPECT_EQ(dictionary.at(id), &object);
  EXPECT_EQ(dictionary.idAt(L"AcEditor"), id);
  EXPECT_STREQ(dictionary.keyAt(id), L"AcEditor");
  EXPECT_TRUE(dictionary.has(L"AcEditor"));
  EXPECT_TRUE(dictionary.has(id));
}

TEST(Dictionary, AnswersNullForUnknownKeysAndIds) {
  const AcRxDictionary dictionary;
  EXPECT_EQ(dictionary.at(L"nothing"), nullptr);
  EXPECT_EQ(dictionary.at(Adesk::UInt32(5)), nullptr);
  EXPECT_EQ(dictionary.keyAt(5), nullptr);
  EXPECT_EQ(dictionary.idAt(L"nothing"), AcRxDictionary::kNoId);
}

TEST(Dictionary, PutUnderAKnownKeyGivesBackTheOldObjectAndKeepsTheId) {
  AcRxDictionary dictionary;
  Counted first;
  Counted second;
  Adesk::UInt32 id = 0;
  Adesk::UInt32 again = 99;
  dictionary.atPut(L"key", &first, id);
  EXPECT_EQ(dictionary.atPut(L"key", &second, again), &first);
  EXPECT_EQ(again, id);
  EXPECT_EQ(dictionary.numEntries(), 1U);
}

TEST(Dictionary, RegardsCaseUnlessToldOtherwise) {
  AcRxDictionary exact;
  AcRxDictionary folding(false, true);
  Counted object;
  Adesk::UInt32 id = 0;
  exact.atPut(L"Seção", &object, id);
  folding.atPut(L"Seção", &object, id);
  EXPECT_TRUE(exact.isCaseSensitive());
  EXPECT_FALSE(folding.isCaseSensitive());
  EXPECT_FALSE(exact.has(L"SEÇÃO"));
  EXPECT_TRUE(folding.has(L"SEÇÃO"));
  EXPECT_STREQ(folding.keyAt(id), L"Seção");
}

TEST(Dictionary, RemovesByKeyAndById) {
  AcRxDictionary dictionary;
  Counted object;
  Adesk::UInt32 id = 0;
  dictionary.atPut(L"a", &object, id);
  EXPECT_EQ(dictionary.remove(L"a"), &object);
  EXPECT_EQ(dictionary.remove(L"a"), nullptr);
  dictionary.atPut(L"b", &object, id);
  EXPECT_EQ(dictionary.remove(id), &object);
  EXPECT_EQ(dictionary.remove(id), nullptr);
  EXPECT_EQ(dictionary.numEntries(), 0U);
}

TEST(Dictionary, ThatOwnsItsObjectsDeletesThem) {
  alive = 0;
  {
    AcRxDictionary dictionary(true);
    Adesk::UInt32 id = 0;
    dictionary.atPut(L"a", new Counted, id);
    dictionary.atPut(L"b", new Counted, id);
    dictionary.atPut(L"c", new Counted, id);
    EXPECT_EQ(dictionary.remove(L"a"), nullptr);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(dictionary.atPut(L"b", new Counted, id), nullptr);
    EXPECT_EQ(alive, 2);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Dictionary, RenamesAnEntryUnlessTheNameIsTaken) {
  AcRxDictionary dictionary;
  Counted object;
  Adesk::UInt32 a = 0;
  Adesk::UInt32 b = 0;
  dictionary.atPut(L"a", &object, a);
  dictionary.atPut(L"b", &object, b);
  EXPECT_FALSE(dictionary.resetKey(a, L"b"));
  EXPECT_TRUE(dictionary.resetKey(a, L"c"));
  EXPECT_FALSE(dictionary.has(L"a"));
  EXPECT_EQ(dictionary.idAt(L"c"), a);
  EXPECT_FALSE(dictionary.resetKey(77, L"d"));
}

TEST(Dictionary, IsWalkedInOrderOfEntryOrOfKeys) {
  AcRxDictionary dictionary;
  Counted object;
  Adesk::UInt32 id = 0;
  for (const ACHAR* key : {L"viga", L"chapa", L"tubo"}) dictionary.atPut(key, &object, id);
  EXPECT_THAT(keysOf(dictionary, AcRx::kDictCollated), testing::ElementsAre(L"viga", L"chapa", L"tubo"));
  EXPECT_THAT(keysOf(dictionary, AcRx::kDictSorted), testing::ElementsAre(L"chapa", L"tubo", L"viga"));
}

TEST(Dictionary, IteratorPassesOverWhatIsRemovedOnTheWay) {
  AcRxDictionary dictionary;
  Counted object;
  Adesk::UInt32 id = 0;
  for (const ACHAR* key : {L"a", L"b", L"c"}) dictionary.atPut(key, &object, id);
  const std::unique_ptr<AcRxDictionaryIterator> walk(dictionary.newIterator());
  EXPECT_STREQ(walk->key(), L"a");
  dictionary.remove(L"b");
  EXPECT_TRUE(walk->next());
  EXPECT_STREQ(walk->key(), L"c");
  EXPECT_FALSE(walk->next());
  EXPECT_TRUE(walk->done());
  EXPECT_EQ(walk->object(), nullptr);
}

}  // namespace
