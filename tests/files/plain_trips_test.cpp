// What stands beside members, from one form to the other and back.

#include <gmock/gmock.h>

#include "files/Trips.h"

namespace {

using namespace trips;
using testing::HasSubstr;
using testing::Not;

std::string asText(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes asBytes(const std::string& text) {
  const auto* const first = reinterpret_cast<const std::byte*>(text.data());
  return {first, first + text.size()};
}

/// A drawing of R2000 with these entities and objects.
Bytes dxfWith(const std::string& classes, const std::string& entities, const std::string& objects) {
  AcDbDatabase empty;
  std::string text = asText(saved(empty, Form::kDxf));
  const auto insert = [&](const std::string& section, const std::string& what) {
    const std::size_t at = text.find("  0\nENDSEC\n", text.find("  2\n" + section + "\n"));
    text.insert(at, what);
  };
  insert("CLASSES", classes);
  insert("ENTITIES", entities);
  insert("OBJECTS", objects);
  return asBytes(text);
}

}  // namespace

TEST(TextWithoutStyle, HasTheStandardOneInAFile) {
  Drawing drawing;
  const AcDbObjectId text = drawing.append(new AcDbText({0, 0, 0}, L"A", AcDbObjectId::kNull, 5, 0));
  const AcDbObjectId dimension = drawing.append(new AcDbAlignedDimension({0, 0, 0}, {9, 0, 0}, {4, 5, 0}, L""));
  for (const Form form : {Form::kDwg, Form::kDxf}) {
    Opened opened(saved(*drawing.database(), form));
    EXPECT_EQ(opened.at<AcDbText>(text.handle())->textStyle(), opened.database().roots().standardTextStyle);
    EXPECT_EQ(opened.at<AcDbDimension>(dimension.handle())->dimensionStyle(),
              opened.database().roots().standardDimStyle);
  }
}

TEST(MultilineStyle, KeepsTheLinetypesOfItsLinesInEitherForm) {
  AcDbDatabase database;
  AcDbObjectId dashed;
  {
    const AcDbObjectPointer<AcDbLinetypeTable> table(database.linetypeTableId(), AcDb::kForWrite);
    for (const wchar_t* name : {L"FIRST", L"DASHED"}) {
      auto* const record = new AcDbLinetypeTableRecord;
      record->setName(name);
      table->add(dashed, record);
      record->close();
    }
  }
  const AcDbObjectId style = database.header().id(AcDbHeader::kCMLSTYLE);
  const Bytes unchanged = saved(database, Form::kDwg);  // makes the style
  const AcDbObjectId made = style.isNull() ? database.header().id(AcDbHeader::kCMLSTYLE) : style;
  // Counted are CONTINUOUS, FIRST, DASHED; two numbers beyond all stand for the layer's and the block's.
  for (const Adesk::Int16 number : std::initializer_list<Adesk::Int16>{2, 0, 32766, 32767})
    Open<AcDbMlineStyle>(made, AcDb::kForWrite)->addElement(1, 7, number);
  Opened dxf(saved(database, Form::kDxf));
  Opened dwg(saved(dxf.database(), Form::kDwg));
  for (Opened* const opened : {&dxf, &dwg}) {
    const auto& lines = opened->at<AcDbMlineStyle>(made.handle())->data().lines;
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[2].linetype, 2);
    EXPECT_EQ(lines[3].linetype, 0);
    EXPECT_EQ(lines[4].linetype, 32766);
    EXPECT_EQ(lines[5].linetype, 32767);
  }
  EXPECT_THAT(asText(saved(database, Form::kDxf)), HasSubstr("  6\nDASHED\n"));
}

TEST(DictionaryWithDefault, ComesBackFromItsDxfAsOne) {
  AcDbDatabase database;
  Opened dxf(saved(database, Form::kDxf));
  Opened again(saved(dxf.database(), Form::kDxf));
  const AcDbHandle names(0xE);  // the plot styles' names, by convention
  for (Opened* const opened : {&dxf, &again}) {
    EXPECT_TRUE(opened->report.findings.empty()) << textOf(opened->report);
    auto* const dictionary = opened->at<AcDbDictionaryWithDefault>(names);
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->defaultId().handle(), AcDbHandle(0xF));
  }
}

TEST(LayoutViewports, AreNumberedInTheirOrderWhenTheyComeFromADwg) {
  Drawing drawing;
  AcDbObjectId ids[3];
  {
    const AcDbObjectPointer<AcDbBlockTableRecord> paper(drawing.database()->paperSpaceId(), AcDb::kForWrite);
    for (AcDbObjectId& id : ids) {
      auto* const viewport = new AcDbViewport;
      ASSERT_EQ(paper->appendAcDbEntity(id, viewport), Acad::eOk);
      if (&id == &ids[1]) viewport->dataAsRead().status |= AcDbViewport::kOff;
      viewport->close();
    }
  }
  Opened opened(saved(*drawing.database(), Form::kDwg));
  for (int i = 0; i < 3; ++i) {
    const AcDbViewport::Data& data = opened.at<AcDbViewport>(ids[i].handle())->data();
    EXPECT_EQ(data.number, i + 1);
    EXPECT_EQ(data.active, i == 1 ? 0 : i + 1);
  }
}

// An entity of another module that belongs to an object and not to a block stands among the objects.
TEST(EntityOfAnObject, GoesThroughBothForms) {
  const std::string theClass =
      "  0\nCLASS\n  1\nPRINTCONFIG\n  2\nTestPrintConfig\n  3\nTEST\n 90\n        0\n280\n     1\n281\n     1\n";
  const std::string objects =
      "  0\nDICTIONARY\n  5\nAAAA\n330\nC\n100\nAcDbDictionary\n281\n     1\n  3\nCONFIG\n360\nAAAB\n"
      "  0\nPRINTCONFIG\n  5\nAAAB\n330\nAAAA\n100\nAcDbEntity\n  8\n0\n100\nTestPrintConfig\n 93\n        0\n";
  Opened first(dxfWith(theClass, "", objects));
  Opened dwg(saved(first.database(), Form::kDwg));
  Opened dxf(saved(dwg.database(), Form::kDxf));
  for (Opened* const opened : {&first, &dwg, &dxf}) {
    EXPECT_TRUE(opened->report.clean()) << textOf(opened->report);
    const auto* const proxy = opened->at<AcDbProxyEntity>(AcDbHandle(0xAAAB));
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->ownerId().handle(), AcDbHandle(0xAAAA));
    EXPECT_EQ(proxy->originalClassName(), std::wstring(L"TestPrintConfig"));
  }
}

// The groups of a DXF's ellipse aren't the bits of a DWG's: written under its number they would be another ellipse.
TEST(EntityWithoutAClassOfOurs, IsNeverWrittenAsWhatItIsNot) {
  const std::string ellipse =
      "  0\nELLIPSE\n  5\nAAAA\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbEllipse\n 10\n1.0\n 20\n2.0\n 30\n0.0\n"
      " 11\n5.0\n 21\n0.0\n 31\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n 40\n0.5\n 41\n0.0\n 42\n6.28\n";
  const std::string mesh =
      "  0\nPOLYLINE\n  5\nAAB0\n330\n1F\n100\nAcDbEntity\n  8\n0\n100\nAcDbPolyFaceMesh\n 66\n     1\n 10\n0.0\n "
      "20\n0.0\n"
      " 30\n0.0\n 70\n    64\n 71\n     0\n 72\n     0\n  0\nSEQEND\n  5\nAAB1\n330\nAAB0\n100\nAcDbEntity\n  8\n0\n";
  Opened first(dxfWith("", ellipse + mesh, ""));
  const Bytes file = saved(first.database(), Form::kDwg);
  Opened dwg(file);
  EXPECT_TRUE(dwg.report.clean()) << textOf(dwg.report);
  for (const std::uint64_t handle : {0xAAAA, 0xAAB0}) {
    const auto* const went = first.at<AcDbProxyEntity>(AcDbHandle(handle));
    const auto* const came = dwg.at<AcDbProxyEntity>(AcDbHandle(handle));
    ASSERT_TRUE(went != nullptr && came != nullptr) << handle;
    EXPECT_EQ(came->data().fixedType, went->data().fixedType);
    EXPECT_EQ(came->data().form, AcDbProxyData::kDxfGroups);
    EXPECT_EQ(came->data().groups.size(), went->data().groups.size());
    EXPECT_TRUE(came->data().asProxyRecord) << "a proxy's record, whose groups other programs leave alone";
  }
  const std::string back = asText(saved(dwg.database(), Form::kDxf));
  EXPECT_THAT(back, HasSubstr(ellipse));
}
