#include "forms/layout_memory.h"

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct LayoutTest : testing::ProgramFixture {
  LayoutMemory& Memory() { return program->shell.Memory(); }
  MainLayout& Layout() { return program->shell.Layout(); }
  std::string Stored() { return files.Read(folder / "settings.ini", 1 << 20); }
};

using LayoutKept = LayoutTest;

TEST_F(LayoutKept, WhatWasNeverMovedIsNotStored) {
  Layout().SetInner(1200, 800);
  program->shell.SaveAtUnload(false, false, 1200, 800);
  EXPECT_EQ(Stored().find("ListWidth"), std::string::npos);
  EXPECT_EQ(Stored().find("ListColumns"), std::string::npos);
}

TEST_F(LayoutKept, TheDividerComesBack) {
  Layout().SetInner(1200, 800);
  Layout().DragDivider(508);
  program->shell.SaveAtUnload(false, false, 1200, 800);
  Restart({});
  Layout().SetInner(1200, 800);
  EXPECT_EQ(Layout().ListWidth(), 500);
}

TEST_F(LayoutKept, TheUsersColumnsKeepTheirShareOfTheList) {
  Memory().NoteColumns({50, 100, 150, 180}, 500);
  EXPECT_EQ(Memory().Columns(500, 300, 12), (std::array<int, 4>{50, 100, 150, 180}));
  EXPECT_EQ(Memory().Columns(1000, 300, 12), (std::array<int, 4>{100, 200, 300, 380}));
  program->shell.SaveAtUnload(false, false, 1200, 800);
  Restart({});
  EXPECT_EQ(Memory().Columns(1000, 300, 12), (std::array<int, 4>{100, 200, 300, 380}));
}

TEST_F(LayoutKept, ForgottenColumnsAreTheProgramsAgainAlsoInTheNextRun) {
  Memory().NoteColumns({50, 100, 150, 180}, 500);
  program->shell.SaveAtUnload(false, false, 1200, 800);
  Restart({});
  Memory().ForgetColumns();
  program->shell.SaveAtUnload(false, false, 1200, 800);
  Restart({});
  EXPECT_EQ(Memory().Columns(500, 300, 12), MainLayout::ColumnWidths(500, 300, 12));
}

TEST_F(LayoutKept, ColumnsThatWouldFillTheListAreCut) {
  Memory().NoteColumns({500, 500, 500, 0}, 500);
  const std::array<int, 4> widths = Memory().Columns(500, 300, 12);
  EXPECT_GE(widths[3], 0);
  for (const int width : widths) EXPECT_LE(width, 500);
}

TEST_F(LayoutKept, AStoredTextThatIsNoThreeSharesIsIgnored) {
  for (const char* text : {"1,2", "a,b,c", "0,0,0", "900,900,900", "-5,-5,-5", ""}) {
    folder.Write("settings.ini",
                 "[Brakemoor Works\\Cuewright]\nLanguage=ENGLISH\nListColumns=" + std::string(text) + "\n");
    Restart({});
    EXPECT_EQ(Memory().Columns(500, 300, 12), MainLayout::ColumnWidths(500, 300, 12)) << text;
  }
}

TEST_F(LayoutKept, TheWindowsCornerComesBackOnceThereIsOne) {
  EXPECT_FALSE(Memory().WindowCorner());
  Memory().SaveWindowCorner({-20, 35});
  Restart({});
  ASSERT_TRUE(Memory().WindowCorner());
  EXPECT_EQ(Memory().WindowCorner()->left, -20);
  EXPECT_EQ(Memory().WindowCorner()->top, 35);
}

}  // namespace
}  // namespace cuewright
