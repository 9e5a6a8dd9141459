// Every kind of fault that an audit knows: planted, told, mended where it has a remedy, gone after that.

#include "host/io/DrawingAudit.h"

#include <gmock/gmock.h>

#include <cmath>

#include "files/Trips.h"

namespace {

using namespace trips;
using krio::AuditFinding;
using testing::HasSubstr;

/// A line that is never content with itself, as a class of the host may be.
class FussyLine : public AcDbLine {
 public:
  ACRX_DECLARE_MEMBERS(FussyLine);
  FussyLine() : AcDbLine({0, 0, 0}, {1, 0, 0}) {}
  Acad::ErrorStatus audit(AcDbAuditInfo* info) override {
    if (!fussy_) return AcDbLine::audit(info);
    info->errorsFound(1);
    info->printError(this, L"length", L"too short", L"made longer");
    if (!info->fixErrors()) return Acad::eOk;
    fussy_ = false;
    info->errorsFixed(1);
    return Acad::eOk;
  }

 private:
  bool fussy_ = true;
};

/// A handle of the drawing under which there is nothing.
AcDbStub* nobody(AcDbDatabase& database) {
  return database.stubOf(0xFFFFF0);
}

AcDbLine* line() {
  return new AcDbLine({0, 0, 0}, {100, 50, 0});
}

AcDbBlockTableRecord* blockOf(AcDbDatabase& database) {
  return static_cast<AcDbBlockTableRecord*>(database.modelSpaceId().stub()->object);
}

/// Adds an entity with something else in what every entity has.
template <class Change>
AcDbObjectId withCommon(Drawing& drawing, AcDbEntity* entity, Change change) {
  const AcDbObjectId id = drawing.append(entity);
  AcDbEntity::Common common = entity->common();
  change(common);
  entity->setCommonAsRead(common);
  return id;
}

/// A block of that name, with an insert of another or, for none, of itself.
AcDbObjectId blockThatInserts(AcDbDatabase& database, const wchar_t* name, AcDbObjectId inner) {
  const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForWrite);
  auto* const block = new AcDbBlockTableRecord;
  block->setName(name);
  AcDbObjectId id;
  EXPECT_EQ(table->add(id, block), Acad::eOk);
  auto* const insert = new AcDbBlockReference({0, 0, 0}, inner.isNull() ? id : inner);
  EXPECT_EQ(block->appendAcDbEntity(insert), Acad::eOk);
  insert->close();
  block->close();
  return id;
}

struct Fault {
  const char* name;
  int number;
  bool hasRemedy;
  const char* what;  ///< part of what is told
  /// Gives whom the finding is about.
  std::function<AcDbObjectId(Drawing&)> plant;
};

void PrintTo(const Fault& fault, std::ostream* out) {
  *out << fault.name;
}

std::vector<Fault> faults() {
  return {
      {"OwnerNotThere", krio::kAuditOwner, true, "no such object",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(line());
         blockOf(*d.database())->setEntitiesAsRead({});
         id.stub()->owner = nobody(*d.database());
         return id;
       }},
      {"LayerNotThere", krio::kAuditLayer, true, "no such layer",
       [](Drawing& d) {
         const AcDbObjectId none(nobody(*d.database()));
         return withCommon(d, line(), [&](AcDbEntity::Common& common) { common.layer = none; });
       }},
      {"NeededObjectNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(new AcDbText({0, 0, 0}, L"A", AcDbObjectId::kNull, 5, 0));
         static_cast<AcDbText*>(id.stub()->object)->dataAsRead().style = AcDbObjectId(nobody(*d.database()));
         return id;
       }},
      {"ListedTwice", krio::kAuditListing, true, "twice",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(line());
         auto entities = blockOf(*d.database())->entities();
         entities.push_back(id.stub());
         blockOf(*d.database())->setEntitiesAsRead(std::move(entities));
         return d.database()->modelSpaceId();
       }},
      {"ListedElsewhere", krio::kAuditListing, true, "which is another's",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(line());
         auto* const paper = static_cast<AcDbBlockTableRecord*>(d.database()->paperSpaceId().stub()->object);
         auto entities = paper->entities();
         entities.push_back(id.stub());
         paper->setEntitiesAsRead(std::move(entities));
         return d.database()->paperSpaceId();
       }},
      {"NotListed", krio::kAuditListing, true, "doesn't list it",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(line());
         blockOf(*d.database())->setEntitiesAsRead({});
         return id;
       }},
      {"OwnerOfItself", krio::kAuditOwnerCycle, false, "its own owners",
       [](Drawing& d) {
         AcDbObjectId id;
         const AcDbObjectPointer<AcDbDictionary> names(d.database()->namedObjectsDictionaryId(), AcDb::kForWrite);
         auto* const dictionary = new AcDbDictionary;
         names->setAt(L"OWN", dictionary, id);
         dictionary->close();
         id.stub()->owner = id.stub();
         return id;
       }},
      {"BlockInsertsItself", krio::kAuditSelfInsert, false, "inserts itself",
       [](Drawing& d) { return blockThatInserts(*d.database(), L"RING", AcDbObjectId::kNull); }},
      {"HostsOwnFinding", krio::kAuditLinkOther, true, "too short", [](Drawing& d) { return d.append(new FussyLine); }},
      {"BeyondAllNumbers", krio::kAuditNotFinite, false, "beyond all numbers",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(line());
         static_cast<AcDbLine*>(id.stub()->object)->dataAsRead().end.x = 1e200;
         return id;
       }},
      {"LayerOfAMemberNotThere", krio::kAuditLayer, true, "no such layer",
       [](Drawing& d) {
         const AcDbObjectId none(nobody(*d.database()));
         return withCommon(d, everyclass::samples()[0].make(Superior).release(),
                           [&](AcDbEntity::Common& common) { common.layer = none; });
       }},
      {"OwnerOfADictionaryNotThere", krio::kAuditOwner, true, "no such object",
       [](Drawing& d) {
         AcDbObjectId id;
         const AcDbObjectPointer<AcDbDictionary> names(d.database()->namedObjectsDictionaryId(), AcDb::kForWrite);
         auto* const dictionary = new AcDbDictionary;
         names->setAt(L"OWN", dictionary, id);
         dictionary->close();
         id.stub()->owner = nobody(*d.database());
         return id;
       }},
      {"OwnerOfAnExtensionDictionaryNotThere", krio::kAuditOwner, true, "no such object",
       [](Drawing& d) {
         AcDbObjectId id;
         auto* const dictionary = new AcDbDictionary;
         EXPECT_EQ(d.database()->addAcDbObject(id, dictionary, AcDbObjectId(nobody(*d.database())), AcDbHandle()),
                   Acad::eOk);
         dictionary->close();
         return id;
       }},
      {"LinetypeNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         const AcDbObjectId none(nobody(*d.database()));
         return withCommon(d, line(), [&](AcDbEntity::Common& common) {
           common.linetype = none;
           common.linetypeForm = AcDbEntity::kLinetypeById;
         });
       }},
      {"PlotStyleNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         const AcDbObjectId none(nobody(*d.database()));
         return withCommon(d, line(), [&](AcDbEntity::Common& common) {
           common.plotStyle = none;
           common.plotStyleForm = AcDbEntity::kPlotStyleById;
         });
       }},
      {"LinetypeOfALayerNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         const AcDbObjectId id = d.database()->layerZero();
         static_cast<AcDbLayerTableRecord*>(id.stub()->object)->setLinetypeAsRead(AcDbObjectId(nobody(*d.database())));
         return id;
       }},
      {"BlockOfAnInsertNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         const AcDbObjectId id = d.append(new AcDbBlockReference({1, 2, 3}, d.database()->paperSpaceId()));
         static_cast<AcDbBlockReference*>(id.stub()->object)->dataAsRead().block = AcDbObjectId(nobody(*d.database()));
         return id;
       }},
      {"EntryOfADictionaryNotThere", krio::kAuditReference, true, "its entry \"Layout7\" is object FFFFF0",
       [](Drawing& d) {
         const AcDbObjectId id = d.database()->layoutDictionaryId();
         auto& dictionary = *static_cast<AcDbDictionary*>(id.stub()->object);
         // One of that name is there, too.
         dictionary.appendAsRead(L"Layout7", dictionary.entries().front().second);
         dictionary.appendAsRead(L"Layout7", AcDbObjectId(nobody(*d.database())));
         return id;
       }},
      {"DefaultOfADictionaryNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         AcDbObjectId id;
         const AcDbObjectPointer<AcDbDictionary> names(d.database()->namedObjectsDictionaryId(), AcDb::kForWrite);
         auto* const dictionary = new AcDbDictionaryWithDefault;
         names->setAt(L"OWN", dictionary, id);
         dictionary->setDefaultIdAsRead(AcDbObjectId(nobody(*d.database())));
         dictionary->close();
         return id;
       }},
      {"LayoutOfABlockNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         const AcDbObjectId id = blockThatInserts(*d.database(), L"PLAIN", d.database()->paperSpaceId());
         static_cast<AcDbBlockTableRecord*>(id.stub()->object)->dataAsRead().layout =
             AcDbObjectId(nobody(*d.database()));
         return id;
       }},
      {"ObjectOfARecordOfValuesNotThere", krio::kAuditReference, true, "FFFFF0, which isn't there",
       [](Drawing& d) {
         AcDbObjectId id;
         const AcDbObjectPointer<AcDbDictionary> names(d.database()->namedObjectsDictionaryId(), AcDb::kForWrite);
         auto* const record = new AcDbXrecord;
         names->setAt(L"OWN", record, id);
         resbuf* const chain = acutNewRb(340);
         chain->resval.rlname[0] = AcDbObjectId(nobody(*d.database())).asOldId();
         EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
         acutRelRb(chain);
         record->close();
         return id;
       }},
      {"RoleOfAMember", krio::kAuditCustom, true, "Tipo de Barra - 12",
       [](Drawing& d) {
         std::unique_ptr<KrObject> member = everyclass::samples()[0].make(Superior);
         member->settipoBarra(static_cast<TipoBarra>(12));
         return d.append(member.release());
       }},
  };
}

class AuditOf : public testing::TestWithParam<Fault> {
 protected:
  static void SetUpTestSuite() {
    FussyLine::rxInit();
    acrxBuildClassHierarchy();
  }
  static void TearDownTestSuite() { deleteAcRxClass(FussyLine::desc()); }
};

std::string textOf(const std::vector<AuditFinding>& findings) {
  std::string text;
  for (const AuditFinding& each : findings) text += std::to_string(each.number) + " " + each.what + "\n";
  return text;
}

}  // namespace

ACRX_DXF_DEFINE_MEMBERS(FussyLine, AcDbLine, 0, 0, 0, LINE, ObjectDBX Classes)

INSTANTIATE_TEST_SUITE_P(Faults, AuditOf, testing::ValuesIn(faults()),
                         [](const auto& each) { return each.param.name; });

TEST_P(AuditOf, TellsItAndMendsItWhenAsked) {
  const Fault& fault = GetParam();
  Drawing drawing;
  ASSERT_TRUE(krio::auditDrawing(*drawing.database(), false).empty());
  const AcDbObjectId subject = fault.plant(drawing);
  for (const bool fix : {false, true}) {
    const std::vector<AuditFinding> found = krio::auditDrawing(*drawing.database(), fix);
    ASSERT_EQ(found.size(), 1U) << textOf(found);
    EXPECT_EQ(found[0].number, fault.number);
    EXPECT_EQ(found[0].handle, subject.handle().value());
    EXPECT_THAT(found[0].what, HasSubstr(fault.what));
    EXPECT_EQ(found[0].remedy.empty(), !fault.hasRemedy);
    EXPECT_EQ(found[0].fixed, fix && fault.hasRemedy);
  }
  EXPECT_EQ(krio::auditDrawing(*drawing.database(), false).empty(), fault.hasRemedy);
}

TEST_P(AuditOf, WhatWasMendedIsSavedAndOpensClean) {
  const Fault& fault = GetParam();
  if (!fault.hasRemedy || fault.number == krio::kAuditLinkOther) return;
  Drawing drawing;
  fault.plant(drawing);
  krio::auditDrawing(*drawing.database(), true);
  for (const Form form : {Form::kDwg, Form::kDxf}) {
    Opened opened(saved(*drawing.database(), form));
    EXPECT_TRUE(krio::auditDrawing(opened.database(), false).empty());
  }
}

// Nothing is thrown away: what the lost objects leave behind stays where people and programs find it.
TEST(AuditOfADrawing, PutsInPlaceOfWhatIsLostWhatComesNearest) {
  Drawing drawing;
  AcDbDatabase& database = *drawing.database();
  const AcDbObjectId gone(nobody(database));
  const AcDbObjectId orphan = drawing.append(line());
  blockOf(database)->setEntitiesAsRead({});
  orphan.stub()->owner = gone.stub();
  AcDbObjectId insert = drawing.append(new AcDbBlockReference({1, 2, 3}, database.paperSpaceId()));
  static_cast<AcDbBlockReference*>(insert.stub()->object)->dataAsRead().block = gone;
  AcDbObjectId ownerless;
  auto* const record = new AcDbXrecord;
  ASSERT_EQ(database.addAcDbObject(ownerless, record, gone, AcDbHandle()), Acad::eOk);
  record->close();
  AcDbObjectId textId = drawing.append(new AcDbText({0, 0, 0}, L"A", AcDbObjectId::kNull, 5, 0));
  auto& text = static_cast<AcDbText&>(*textId.stub()->object);
  text.dataAsRead().style = gone;
  AcDbEntity::Common common = text.common();
  common.linetype = gone;
  common.linetypeForm = AcDbEntity::kLinetypeById;
  text.setCommonAsRead(common);

  EXPECT_EQ(krio::auditDrawing(database, true).size(), 4U);
  for (const Form form : {Form::kDwg, Form::kDxf}) {
    Opened opened(saved(database, form));
    EXPECT_EQ(opened.at<AcDbLine>(orphan.handle())->objectId().stub()->owner->handle,
              database.modelSpaceId().handle().value());
    const AcDbObjectId block(opened.at<AcDbBlockReference>(insert.handle())->data().block);
    ASSERT_TRUE(block.isResident());
    EXPECT_EQ(static_cast<AcDbBlockTableRecord*>(block.stub()->object)->nameText(), L"Lost_FFFFF0");
    const auto* const read = opened.at<AcDbText>(textId.handle());
    EXPECT_EQ(read->common().linetype, opened.database().byLayerLinetype());
    EXPECT_EQ(read->data().style, opened.database().roots().standardTextStyle);
    const AcDbObjectPointer<AcDbDictionary> names(opened.database().namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbObjectId recovered;
    ASSERT_EQ(names->getAt(L"KR_RECOVERED", recovered), Acad::eOk);
    const AcDbObjectPointer<AcDbDictionary> dictionary(recovered, AcDb::kForRead);
    AcDbObjectId entry;
    char handle[AcDbHandle::kStrSize];
    ownerless.handle().getIntoAsciiBuffer(handle);
    ASSERT_EQ(dictionary->getAt(std::wstring(handle, handle + std::strlen(handle)).c_str(), entry), Acad::eOk);
    EXPECT_EQ(entry.handle(), ownerless.handle());
  }
}

TEST(AuditOfADrawing, TellsALinetypeAndALayerThatAreOneLostObject) {
  Drawing drawing;
  const AcDbObjectId gone(nobody(*drawing.database()));
  withCommon(drawing, line(), [&](AcDbEntity::Common& common) {
    common.layer = gone;
    common.linetype = gone;
    common.linetypeForm = AcDbEntity::kLinetypeById;
  });
  const std::vector<AuditFinding> found = krio::auditDrawing(*drawing.database(), true);
  ASSERT_EQ(found.size(), 2U) << textOf(found);
  EXPECT_EQ(found[0].number, krio::kAuditReference);
  EXPECT_EQ(found[1].number, krio::kAuditLayer);
  EXPECT_TRUE(krio::auditDrawing(*drawing.database(), false).empty());
}

TEST(AuditOfADrawing, GivesALayoutItsBlockAgainOrTakesItOut) {
  Drawing drawing;
  AcDbDatabase& database = *drawing.database();
  saved(database, Form::kDwg);  // makes the layouts
  const auto layoutNamed = [](AcDbDatabase& in, const wchar_t* name) {
    AcDbObjectId id;
    for (const wchar_t* const key : {L"ACAD_LAYOUT", name}) {
      const AcDbObjectPointer<AcDbDictionary> dictionary(id.isNull() ? in.namedObjectsDictionaryId() : id,
                                                         AcDb::kForRead);
      if (dictionary.openStatus() != Acad::eOk || dictionary->getAt(key, id) != Acad::eOk) return AcDbObjectId();
    }
    return id;
  };
  const AcDbObjectId model = layoutNamed(database, L"Model");
  const AcDbObjectId paper = layoutNamed(database, L"Layout1");
  ASSERT_TRUE(model.isResident() && paper.isResident());
  for (const AcDbObjectId id : {model, paper})
    static_cast<AcDbLayout*>(id.stub()->object)->layoutDataAsRead().block = AcDbObjectId(nobody(database));
  auto* const space = static_cast<AcDbBlockTableRecord*>(database.paperSpaceId().stub()->object);
  space->dataAsRead().layout.setNull();
  // It stands in two dictionaries.
  static_cast<AcDbDictionary*>(database.namedObjectsDictionaryId().stub()->object)->appendAsRead(L"ZZZ", paper);
  const std::vector<AuditFinding> found = krio::auditDrawing(database, true);
  ASSERT_EQ(found.size(), 2U) << textOf(found);
  for (const AuditFinding& each : found) EXPECT_TRUE(each.fixed);
  EXPECT_EQ(static_cast<AcDbLayout*>(model.stub()->object)->layoutData().block.handle(),
            database.modelSpaceId().handle());
  EXPECT_TRUE(paper.isErased());
  for (const Form form : {Form::kDwg, Form::kDxf}) {
    Opened opened(saved(database, form));
    EXPECT_TRUE(krio::auditDrawing(opened.database(), false).empty());
    // A save makes a new one for the space that has none.
    EXPECT_TRUE(layoutNamed(opened.database(), L"Layout1").isResident());
    EXPECT_NE(layoutNamed(opened.database(), L"Layout1").handle(), paper.handle());
  }
}

TEST(AuditOfADrawing, GivesNoOwnersThatFormACircle) {
  Drawing drawing;
  AcDbDatabase& database = *drawing.database();
  const AcDbObjectId gone(nobody(database));
  AcDbObjectId ids[2];
  for (AcDbObjectId& id : ids) {
    auto* const dictionary = new AcDbDictionary;
    ASSERT_EQ(database.addAcDbObject(id, dictionary, gone, AcDbHandle()), Acad::eOk);
    dictionary->close();
  }
  // Each lists the other, and the dictionary of named objects has lost its owner too.
  for (int i = 0; i < 2; ++i) static_cast<AcDbDictionary*>(ids[i].stub()->object)->appendAsRead(L"OTHER", ids[1 - i]);
  database.namedObjectsDictionaryId().stub()->owner = gone.stub();
  const std::vector<AuditFinding> found = krio::auditDrawing(database, true);
  ASSERT_EQ(found.size(), 3U) << textOf(found);
  for (const AuditFinding& each : found) EXPECT_TRUE(each.fixed) << each.what;
  EXPECT_TRUE(krio::auditDrawing(database, false).empty());
  EXPECT_EQ(database.namedObjectsDictionaryId().stub()->owner, nullptr);
  for (const Form form : {Form::kDwg, Form::kDxf}) {
    Opened opened(saved(database, form));
    EXPECT_TRUE(krio::auditDrawing(opened.database(), false).empty());
  }
}

TEST(AuditOfARing, TellsEachBlockOfItAndNoneBesideIt) {
  AcDbDatabase database;
  const AcDbObjectId first = blockThatInserts(database, L"FIRST", AcDbObjectId::kNull);
  const AcDbObjectId second = blockThatInserts(database, L"SECOND", first);
  const AcDbObjectId third = blockThatInserts(database, L"THIRD", second);
  // Now FIRST inserts THIRD, and FOURTH stands outside of the ring.
  auto* const block = static_cast<AcDbBlockTableRecord*>(first.stub()->object);
  static_cast<AcDbBlockReference*>(block->entities()[0]->object)->dataAsRead().block = third;
  blockThatInserts(database, L"FOURTH", first);
  std::set<std::uint64_t> told;
  for (const AuditFinding& each : krio::auditDrawing(database, true)) {
    EXPECT_EQ(each.number, krio::kAuditSelfInsert);
    EXPECT_FALSE(each.fixed);
    told.insert(each.handle);
  }
  EXPECT_EQ(told, (std::set{first.handle().value(), second.handle().value(), third.handle().value()}));
}

TEST(AuditOfAReading, TakesWhatWasLostAndWhatWasMendedAndNoNotes) {
  krio::Report report;
  report.note("a note");
  report.warn("put right", 0x2A, 77, true);
  report.error("lost", 0x2B);
  const std::vector<AuditFinding> found = krio::auditFindings(report);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].number, krio::kAuditMendedInReading);
  EXPECT_EQ(found[0].what, "at 77: put right");
  EXPECT_EQ(found[0].handle, 0x2AU);
  EXPECT_EQ(found[1].number, krio::kAuditLost);
  EXPECT_TRUE(found[1].remedy.empty());
}
