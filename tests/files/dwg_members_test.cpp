// Members of every class in every view, with everything done to them, through a DWG: what comes back is what went, but
// for what the layout of members leaves out.

#include <gmock/gmock.h>

#include "files/Trips.h"
#include "host/io/ProxyGraphics.h"

namespace {

using namespace trips;

/// A drawing with members and the same from its file, made once for all tests.
class Trip {
 public:
  static Trip& get() {
    static Trip trip;
    return trip;
  }
  MemberDrawing drawing;
  std::map<std::uint64_t, std::string> before;
  std::vector<Told> toldBefore;
  std::vector<std::string> pictures;
  Bytes file;
  std::unique_ptr<Opened> opened;

 private:
  Trip() {
    for (const Placed& placed : drawing.members) {
      Open<KrObject> member(placed.id, AcDb::kForRead);
      toldBefore.push_back(told(*member));
      pictures.push_back(picture(*member));
    }
    file = saved(*drawing.database(), Form::kDwg);
    before = dwgtools::digest(*drawing.database());
    opened = std::make_unique<Opened>(file);
  }
};

class DwgMembers : public testing::Test {
 protected:
  /// Calls `look` with each member as it went and as it came back; leaves out those of which nothing is filed.
  template <class Look>
  void forEach(Look look) {
    for (const Placed& placed : trip.drawing.members) {
      if (filesNothing(placed.name)) continue;
      SCOPED_TRACE(placed.label());
      Open<KrObject> went(placed.id, AcDb::kForRead);
      auto* const came = trip.opened->at<KrObject>(placed.id.handle());
      ASSERT_NE(came, nullptr);
      look(placed, *went, *came);
    }
  }
  Trip& trip = Trip::get();
};

}  // namespace

TEST_F(DwgMembers, OpenWithoutAWordAsMembersOfTheirClasses) {
  EXPECT_TRUE(trip.opened->report.clean()) << textOf(trip.opened->report);
  EXPECT_EQ(trip.drawing.members.size(), 27U * 6U);
  for (const Placed& placed : trip.drawing.members) {
    const AcDbObject* const came = trip.opened->at(placed.id.handle());
    ASSERT_NE(came, nullptr) << placed.label();
    EXPECT_EQ(came->isA()->name(), placed.name) << placed.label();
  }
}

TEST_F(DwgMembers, ComeBackWithEveryFieldThatIsFiled) {
  const auto after = dwgtools::digest(trip.opened->database());
  ASSERT_EQ(after.size(), trip.before.size());
  for (const auto& [handle, text] : trip.before) {
    const auto found = after.find(handle);
    ASSERT_NE(found, after.end()) << std::hex << handle;
    EXPECT_TRUE(found->second == text) << std::hex << handle << " " << text.substr(0, 24);
  }
}

TEST_F(DwgMembers, TellTheSameNumbersAndNames) {
  std::size_t i = 0;
  for (const Placed& placed : trip.drawing.members) {
    const Told& before = trip.toldBefore[i++];
    if (filesNothing(placed.name)) continue;
    auto* const came = trip.opened->at<KrObject>(placed.id.handle());
    EXPECT_TRUE(told(*came) == before) << placed.label();
    EXPECT_EQ(came->Vista(0), placed.view);
  }
}

TEST_F(DwgMembers, DrawTheSameElementsOnTheSameLayers) {
  std::size_t i = 0;
  for (const Placed& placed : trip.drawing.members) {
    const std::string& before = trip.pictures[i++];
    EXPECT_FALSE(before.empty()) << placed.label();
    auto* const came = trip.opened->at<KrObject>(placed.id.handle());
    if (filesNothing(placed.name)) {
      EXPECT_EQ(picture(*came), "") << "nothing of it is filed";
    } else {
      EXPECT_EQ(picture(*came), before) << placed.label();
    }
  }
}

TEST_F(DwgMembers, KeepOutlineHolesAndLinks) {
  int drilled = 0;
  forEach([&](const Placed&, KrObject& went, KrObject& came) {
    KrGeratriz a, b;
    went.GetSecao(a);
    came.GetSecao(b);
    ASSERT_EQ(a.numNodes(), b.numNodes());
    EXPECT_GT(a.Qtd(), 2);
    for (int i = 0; i < a.numNodes(); ++i) {
      EXPECT_EQ(a.GetNo(i).vertex, b.GetNo(i).vertex);
      EXPECT_EQ(a.GetNo(i).bulge, b.GetNo(i).bulge);
    }
    KrFuro holes, again;
    went.Furos(holes, 0);
    came.Furos(again, 0);
    ASSERT_EQ(holes.Qtd(), again.Qtd());
    drilled += holes.Qtd() > 0 ? 1 : 0;
    for (int i = 0; i < holes.Qtd(); ++i) {
      EXPECT_EQ(holes.getIni(i), again.getIni(i));
      EXPECT_EQ(holes.getFim(i), again.getFim(i));
      EXPECT_EQ(holes.getDiametro(i), again.getDiametro(i));
    }
    AcDbObjectIdArray group, marks;
    came.RelativeObj(group);
    came.RelativePos(marks);
    EXPECT_EQ(group.length(), 5);
    EXPECT_EQ(marks.length(), 1);
    for (int i = 0; i < group.length(); ++i) {
      EXPECT_EQ(group[i].database(), came.database());
      EXPECT_NE(KrObject::cast(group[i].stub()->object), nullptr);
    }
  });
  // Through the gap of a double section a drill in the middle meets no wall.
  EXPECT_GT(drilled, 100);
}

TEST_F(DwgMembers, DropDimensionsThatAreGone) {
  forEach([&](const Placed&, KrObject& went, KrObject& came) {
    AcDbObjectIdArray before, after;
    went.RelativeDim(before);
    came.RelativeDim(after);
    ASSERT_EQ(before.length(), 2);
    ASSERT_EQ(after.length(), 1);
    EXPECT_EQ(after[0].handle(), before[1].handle());
  });
  EXPECT_EQ(trip.opened->at(trip.drawing.erased.handle()), nullptr);
}

TEST_F(DwgMembers, LoseTheirSplits) {
  forEach([](const Placed&, KrObject& went, KrObject& came) {
    EXPECT_EQ(went.numSplits(), 1);
    EXPECT_EQ(came.numSplits(), 0);
  });
}

TEST_F(DwgMembers, LoseTheirVisualLimits) {
  forEach([](const Placed&, KrObject& went, KrObject& came) {
    EXPECT_DOUBLE_EQ(went.visualRepEnd(), 0.9);
    EXPECT_DOUBLE_EQ(came.visualRepStart(), 0.0);
    EXPECT_DOUBLE_EQ(came.visualRepEnd(), 1.0);
    EXPECT_DOUBLE_EQ(came.visualRepScale(), 1.0);
  });
}

TEST_F(DwgMembers, LoseTheListsOfTheViewsNotShown) {
  forEach([](const Placed& placed, KrObject&, KrObject& came) {
    for (const KrVistas view : kViews) {
      if (view == placed.view)
        EXPECT_GT(came.GetNumVertex(view), 0);
      else
        EXPECT_EQ(came.GetNumVertex(view), 0) << view;
    }
  });
}

TEST_F(DwgMembers, LoseOtherModulesDataOfHolesAndCutsAndKeepThatOfNotches) {
  forEach([](const Placed& placed, KrObject& went, KrObject& came) {
    EXPECT_EQ(went.accessCDataToMod(ModFuro, 0) != nullptr, went.numFuros() > 0);
    EXPECT_NE(went.accessCDataToMod(ModCorte, 0), nullptr);
    EXPECT_EQ(came.accessCDataToMod(ModFuro, 0), nullptr);
    EXPECT_EQ(came.accessCDataToMod(ModCorte, 0), nullptr);
    if (placed.view == Secao || placed.view == SecaoVerso) return;
    const auto* const notch = static_cast<const BoltData*>(came.accessCDataToMod(ModRecorte, 0));
    ASSERT_NE(notch, nullptr);
    EXPECT_EQ(notch->name, L"M16 \u00d7 45 \u0436");
  });
}

TEST_F(DwgMembers, KeepTheirExtensions) {
  forEach([&](const Placed&, KrObject&, KrObject& came) {
    const auto* const text = KrObjectTextExtension::cast(came.getKrObjectExtension(1));
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text->text(), L"P12 \u2264 3");
    EXPECT_EQ(text->textHeight(), 30);
    EXPECT_EQ(text->vecOffset(), AcGeVector3d(10, -20, 0));
    const auto* const mark = static_cast<const ErectionMark*>(came.getKrObjectExtension(2));
    ASSERT_NE(mark, nullptr);
    EXPECT_EQ(mark->isA(), ErectionMark::desc());
    EXPECT_EQ(mark->number, 17);
    EXPECT_EQ(mark->curExtendedObj(), &came);
    EXPECT_EQ(mark->drawingOf.database(), came.database());
    EXPECT_NE(AcDbText::cast(mark->drawingOf.stub()->object), nullptr);
  });
}

TEST_F(DwgMembers, RegenerateToWhatTheyDrewWithoutTheSplitsAndLimitsThatWereLost) {
  for (const Sample& sample : everyclass::samples()) {
    if (filesNothing(sample.name)) continue;
    for (const KrVistas view : {Superior, Direita}) {
      Drawing drawing;
      std::unique_ptr<KrObject> member = sample.make(view);
      ASSERT_EQ(everyclass::modify(*member), 3);
      const AcDbObjectId id = drawing.append(member.release());
      Open<KrObject>(id, AcDb::kForWrite)->Gera_KrVector();
      const std::string before = picture(*Open<KrObject>(id, AcDb::kForRead));
      Opened opened(saved(*drawing.database(), Form::kDwg));
      Open<KrObject>(opened.idOf(id.handle()), AcDb::kForWrite)->Gera_KrVector();
      EXPECT_EQ(picture(*opened.at<KrObject>(id.handle())), before) << ascii(sample.name) << " " << view;
    }
  }
}

TEST_F(DwgMembers, GiveTheSameBytesWhenSavedAgain) {
  Opened opened(trip.file);
  const Bytes again = saved(opened.database(), Form::kDwg);
  EXPECT_EQ(again.size(), trip.file.size());
  EXPECT_TRUE(again == trip.file);
}

// What a bar of which nothing is filed looks like stands in its picture only.
TEST_F(DwgMembers, OfWhichNothingIsFiledKeepTheirPicturesUntilTheyDrawAgain) {
  Bytes file = trip.file;
  for (int round = 0; round < 3; ++round) {
    Opened opened(file);
    std::size_t i = 0;
    for (const Placed& placed : trip.drawing.members) {
      const std::string& before = trip.pictures[i++];
      if (!filesNothing(placed.name)) continue;
      auto* const came = opened.at<KrObject>(placed.id.handle());
      ASSERT_FALSE(came->fileGraphics().empty()) << placed.label();
      // A call of drawing is a line of the picture's text.
      AcDbProxyEntity shown;
      shown.setFileGraphics({came->fileGraphics().begin(), came->fileGraphics().end()});
      gi::Recorder recorder;
      recorder.setDatabase(&opened.database());
      recorder.drawWhole(shown);
      EXPECT_EQ(std::ranges::count(toText(recorder.figures()), '\n'), std::ranges::count(before, '\n'));
    }
    file = saved(opened.database(), Form::kDwg);
  }
  Opened opened(file);
  const auto placed = std::ranges::find_if(trip.drawing.members, [](const Placed& p) { return filesNothing(p.name); });
  Open<AcDbEntity> changed(opened.idOf(placed->id.handle()), AcDb::kForWrite);
  changed->setColorIndex(3);
  EXPECT_TRUE(changed->fileGraphics().empty()) << "it no longer looks like that";
}

TEST_F(DwgMembers, CarryTheirPicturesForOtherPrograms) {
  acrxEntryPoint(AcRx::kUnloadAppMsg, nullptr);
  {
    Opened without(trip.file);
    std::size_t i = 0;
    for (const Placed& placed : trip.drawing.members) {
      auto* const proxy = without.at<AcDbProxyEntity>(placed.id.handle());
      EXPECT_NE(proxy, nullptr) << placed.label();
      if (proxy == nullptr) continue;
      EXPECT_EQ(proxy->originalClassName(), placed.name);
      gi::Recorder recorder;
      recorder.setDatabase(&without.database());
      recorder.drawWhole(*proxy);
      EXPECT_EQ(std::size_t(std::ranges::count(trip.pictures[i], '\n')),
                std::size_t(std::ranges::count(toText(recorder.figures()), '\n')))
          << placed.label();
      ++i;
    }
    // Not a bit of the members changes on the way through a program that doesn't know them.
    const Bytes kept = saved(without.database(), Form::kDwg);
    acrxEntryPoint(AcRx::kInitAppMsg, nullptr);
    loadExampleModule();
    Opened with(kept);
    const auto after = dwgtools::digest(with.database());
    for (const auto& [handle, text] : trip.before) {
      const auto found = after.find(handle);
      EXPECT_TRUE(found != after.end() && found->second == text) << std::hex << handle << " " << text.substr(0, 24);
    }
    EXPECT_TRUE(saved(with.database(), Form::kDwg) == trip.file);
  }
}
