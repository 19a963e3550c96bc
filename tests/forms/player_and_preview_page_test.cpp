#include "forms/player_page.h"

#include "tests/support/settings_rig.h"

namespace cuewright {
namespace {

struct InstalledFilter final : VideoFilter {
  bool Installed() const override { return true; }
  bool CanConfigure() const override { return canConfigure; }
  void Configure() override { ++opened; }
  bool canConfigure = false;
  int opened = 0;
};

using SettingsPlayer = testing::SettingsRig;
using SettingsPreview = testing::SettingsRig;

TEST_F(SettingsPlayer, FittingAndControlsReachThePlayerAtOnce) {
  Dialog().player.chkStretch.Click();
  EXPECT_EQ(Options().stretchVideo, 0);
  EXPECT_FALSE(player.stretch);
  const TextView modes[] = {u"none", u"mini", u"full"};
  for (int i = 0; i < 3; ++i) {
    Dialog().player.cmbUImode.Choose(i);
    EXPECT_EQ(Options().playerControls, modes[i]);
    EXPECT_EQ(player.uiMode, modes[i]);
  }
}

TEST_F(SettingsPlayer, WithoutTheFilterItsControlsAreDisabled) {
  SettingsDialog& d = Dialog();
  for (const Control* control :
       std::initializer_list<const Control*>{&d.player.lblVSFilter, &d.player.lblVSNotice, &d.player.optVSDisable,
                                             &d.player.optVSHide, &d.player.cmdVSFilter}) {
    EXPECT_FALSE(control->Enabled()) << control->Name();
  }
  EXPECT_TRUE(d.player.imgVSHelp.Enabled());
}

TEST_F(SettingsPlayer, AnInstalledFilterCanBeManaged) {
  InstalledFilter filter;
  SettingsDialog d({program->options, program->strings, program->store, program->languages, program->document,
                    program->preview, program->capture, filter,
                    Ports{files, boxes, dialogs, events, desktop, player, pickers}});
  d.Open();
  EXPECT_TRUE(d.player.optVSDisable.Enabled());
  EXPECT_FALSE(d.player.cmdVSFilter.Enabled());
  EXPECT_TRUE(d.player.optVSDisable.Value());
  Choose(d.player.optVSHide);
  EXPECT_EQ(Options().filterMode, 1);
  EXPECT_FALSE(d.player.optVSDisable.Value());
  Choose(d.player.optVSDisable);
  EXPECT_EQ(Options().filterMode, 0);
  filter.canConfigure = true;
  d.FillSettingsControls();
  d.player.cmdVSFilter.Click();
  EXPECT_EQ(filter.opened, 1);
}

TEST_F(SettingsPreview, OpaqueAndShadowAreAPair) {
  SettingsDialog& d = Dialog();
  Choose(d.preview.optOpaque);
  EXPECT_TRUE(Options().previewOpaque);
  EXPECT_FALSE(Options().previewShadow);
  EXPECT_FALSE(d.preview.lblShadow.Enabled());
  EXPECT_FALSE(d.preview.sldShadow.Enabled());
  EXPECT_FALSE(d.preview.lblSampleShadow.Visible());
  EXPECT_EQ(d.preview.GetSample().background, 0);
  EXPECT_FALSE(d.preview.GetSample().windowBackground);
  Choose(d.preview.optShadow);
  EXPECT_FALSE(Options().previewOpaque);
  EXPECT_TRUE(Options().previewShadow);
  EXPECT_TRUE(d.preview.sldShadow.Enabled());
  EXPECT_TRUE(d.preview.lblSampleShadow.Visible());
  EXPECT_TRUE(d.preview.optShadow.Value());
  EXPECT_FALSE(d.preview.optOpaque.Value());
}

TEST_F(SettingsPreview, TheSampleHasTheFilmsDarkGroundWhileOneIsOpen) {
  EXPECT_TRUE(Dialog().preview.GetSample().windowBackground);
  Dialog().Close();
  Play(folder.Write("film.mkv", "x"));
  Dialog().Open();
  EXPECT_FALSE(Dialog().preview.GetSample().windowBackground);
  EXPECT_EQ(Dialog().preview.GetSample().background, 0x100010);
  EXPECT_EQ(Dialog().preview.lblSample.GetText(), u"Sample");
  EXPECT_EQ(Dialog().preview.lblSampleShadow.GetText(), u"Sample");
}

TEST_F(SettingsPreview, ARunningOverlayChangesAtOnce) {
  Play(folder.Write("film.mkv", "x"));
  int placed = 0;
  const Connection watch = program->preview.PlaceRequested.ConnectScoped([&] { ++placed; });
  Move(Dialog().preview.sldShadow, 4);
  EXPECT_EQ(program->sub.GetStyle().shadowShift, 4);
  EXPECT_EQ(Dialog().preview.GetSample().shadowShift, 4);
  Choose(Dialog().preview.optOpaque);
  EXPECT_TRUE(program->sub.GetStyle().opaque);
  EXPECT_EQ(placed, 0);
  Move(Dialog().preview.sldHeight, 10);
  EXPECT_EQ(Options().previewHeight, 10);
  EXPECT_EQ(placed, 1);
  EXPECT_EQ(Dialog().preview.lblHeight.GetText(), u"Subtitle preview placement: 10%");
}

TEST_F(SettingsPreview, FontAndColorComeFromThePickers) {
  pickers.fonts = {{u"Tahoma", 60, false, true, false, false, 400}};
  pickers.colors = {0x0000FF};
  Dialog().preview.cmdFont.Click();
  Dialog().preview.cmdColor.Click();
  EXPECT_EQ(pickers.fontsShown.at(0).Name, u"Arial");
  EXPECT_EQ(pickers.fontsShown.at(0).Size, 18);
  EXPECT_TRUE(pickers.fontsShown.at(0).Bold);
  EXPECT_EQ(Options().previewFontName, u"Tahoma");
  EXPECT_EQ(Options().previewFontSize, 48);
  EXPECT_FALSE(Options().previewFontBold);
  EXPECT_EQ(pickers.colorsShown.at(0), 0xFFFFFF);
  EXPECT_EQ(Options().previewColor, 0xFF);
  EXPECT_EQ(Dialog().preview.GetSample().fontName, u"Tahoma");
  EXPECT_EQ(Dialog().preview.GetSample().color, 0xFF);
  Dialog().preview.cmdFont.Click();
  Dialog().preview.cmdColor.Click();
  EXPECT_EQ(Options().previewFontName, u"Tahoma");
  EXPECT_EQ(Options().previewColor, 0xFF);
}

TEST_F(SettingsPreview, FollowingIsACheck) {
  Dialog().preview.chkFollow.Click();
  EXPECT_FALSE(Options().followCaptions);
}

}  // namespace
}  // namespace cuewright
