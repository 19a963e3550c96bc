#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct LanguageTest : testing::ProgramFixture {
  void StartIn(const std::string& language) {
    folder.Write("settings.ini", "[Brakemoor Works\\Cuewright]\nLanguage=" + language + "\n");
    Restart({});
  }
};

using ProgramLanguage = LanguageTest;

constexpr std::size_t kArabic = 14;

TEST_F(ProgramLanguage, AStoredOneIsTakenAtTheStart) {
  StartIn("ARABIC");
  EXPECT_EQ(program->options.languageRow, 14);
  EXPECT_FALSE(program->FirstRun());
  EXPECT_TRUE(Window().RightToLeft());
}

TEST_F(ProgramLanguage, WithoutOneIsAFirstRunInTheUsersLanguage) {
  EXPECT_TRUE(program->FirstRun());
  EXPECT_EQ(program->options.language, u"ENGLISH");
  EXPECT_FALSE(Window().RightToLeft());
}

TEST_F(ProgramLanguage, AChangeMirrorsTheMainWindowAndBackAgain) {
  const std::vector<Control*> mirrored = {&Window().lblMainMode,  &Window().lblMode,   &Window().lblTextFile,
                                          &Window().lblVideoFile, &Window().optPress,  &Window().optManual,
                                          &Window().optPreview,   &program->sub.lblSub};
  program->ChangeLanguage(kArabic);
  for (const Control* control : mirrored) EXPECT_TRUE(control->RightToLeft()) << control->Name();
  EXPECT_TRUE(Window().RightToLeft());
  EXPECT_TRUE(program->grid.RightToLeft());
  program->ChangeLanguage(0);
  for (const Control* control : mirrored) EXPECT_FALSE(control->RightToLeft()) << control->Name();
  EXPECT_FALSE(Window().RightToLeft());
  EXPECT_FALSE(program->grid.RightToLeft());
}

TEST_F(ProgramLanguage, TheMissingPlayersScreenIsReadFromTheRightInArabic) {
  folder.Write("settings.ini", "[Brakemoor Works\\Cuewright]\nLanguage=ARABIC\n");
  Restart({}, u"libmpv.so.2");
  EXPECT_TRUE(program->start.RightToLeft());
  EXPECT_TRUE(program->start.lblInfo.RightToLeft());
  program->ChangeLanguage(0);
  EXPECT_FALSE(program->start.RightToLeft());
  EXPECT_FALSE(program->start.lblInfo.RightToLeft());
}

TEST_F(ProgramLanguage, AChangeRelabelsAllThatIsOpen) {
  program->messageCatalogue.AddBlock(
      "0\t&Archivo\n22\tBienvenido.\n24\tSin texto.\n33\tMantener\n36\tModo uno.\n40\tInicio\n415\tIntro\n", 1);
  int announced = 0;
  const Connection watch = program->LanguageChanged.ConnectScoped([&] {
    EXPECT_EQ(program->strings[Message::MenuFile], u"&Archivo");
    ++announced;
  });
  EXPECT_EQ(program->ChangeLanguage(1), 1);
  EXPECT_EQ(announced, 1);
  EXPECT_EQ(Window().mnuFile.GetText(), u"&Archivo");
  EXPECT_EQ(Window().lblTextFile.GetText(), u"Bienvenido.");
  EXPECT_EQ(Window().lblMode.GetText(), u"Modo uno.");
  EXPECT_EQ(Window().optPress.GetText(), u"Mantener");
  EXPECT_EQ(Window().txtTime[0].ToolTip(), u"Intro");
  EXPECT_EQ(program->grid.Notice(), u"Sin texto.");
  EXPECT_EQ(program->grid.Headings()[1], u"Inicio");
  EXPECT_EQ(Window().cmdNext.GetText(), u"Next");
}

TEST_F(ProgramLanguage, AChangeLeavesTheStoreAndTheDocument) {
  StartIn("ENGLISH");
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  program->ChangeLanguage(kArabic);
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"Language", u"?"), u"ENGLISH");
  EXPECT_EQ(program->options.language, u"ARABIC");
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(Window().lblTextFile.GetText(), u"Current subtitle file: a.srt");
}

}  // namespace
}  // namespace cuewright
