#include "external/vs_filter.h"

#include <gtest/gtest.h>

#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

const Text kKey = u"HKCU\\Software\\Orbek\\VSFilter\\General";

struct VsFilterInTheProgram : testing::ProgramFixture {
  void Install() {
    program->registry.WriteDWORD(kKey, u"Hide", 0);
    program->registry.WriteDWORD(kKey, u"LoadLevel", 1);
  }
  std::int32_t Value(const Text& name) { return program->registry.ReadDWORD(kKey, name, -1); }
};

TEST_F(VsFilterInTheProgram, TheStartSwitchesItAndClosingAllRestoresIt) {
  Install();
  Restart({});
  EXPECT_EQ(Value(u"LoadLevel"), 2);
  EXPECT_EQ(Value(u"Hide"), 0);
  Window().mnuNew.Click();
  Window().mnuClose.Click();
  EXPECT_EQ(Value(u"LoadLevel"), 1);
  // A film that is opened now plays with the filter's own settings.
  Play(folder.Write("a.avi", "x"));
  EXPECT_EQ(Value(u"LoadLevel"), 1);
}

TEST_F(VsFilterInTheProgram, TheOptionChoosesTheMode) {
  Install();
  program->store.SaveSetting(u"Cuewright", u"P_VSFILTERMODE", u"1");
  Restart({});
  EXPECT_EQ(Value(u"LoadLevel"), 1);
  EXPECT_EQ(Value(u"Hide"), 1);
  program->session.CloseDocuments();
  EXPECT_EQ(Value(u"Hide"), 0);
}

TEST_F(VsFilterInTheProgram, TheSettingsAreEnabledExactlyWhenTheKeyExists) {
  SettingsDialog& dialog = program->dialogs.settings;
  const std::initializer_list<const Control*> controls = {&dialog.player.lblVSFilter, &dialog.player.lblVSNotice,
                                                          &dialog.player.optVSDisable, &dialog.player.optVSHide};
  dialog.Open();
  for (const Control* control : controls) EXPECT_FALSE(control->Enabled()) << control->Name();
  dialog.Close();
  Install();
  dialog.Open();
  for (const Control* control : controls) EXPECT_TRUE(control->Enabled()) << control->Name();
  EXPECT_FALSE(dialog.player.cmdVSFilter.Enabled());
}

}  // namespace
}  // namespace cuewright
