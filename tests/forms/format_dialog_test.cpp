#include "forms/format_dialog.h"

#include <gtest/gtest.h>

#include "formats/headers.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

struct FormatTest : testing::ProgramFixture {
  FormatDialog& Dialog() { return program->dialogs.format; }
  void Open(TextView id) {
    program->formats.SettingsFormatIndex = static_cast<std::uint8_t>(program->catalogue.IndexOf(id));
    Dialog().Open();
  }
  void Store(TextView id, TextView key, TextView value) {
    program->store.SaveSetting(FormatOptionStore(id), key, value);
  }
  Text Stored(TextView id, TextView key) { return program->store.GetSetting(FormatOptionStore(id), key, u"?"); }
  static bool Takes(TextBox& box, char16_t character) {
    KeyEvent key;
    key.character = character;
    key.code = character == 0 ? kKeyBackspace : character;
    box.TypeKey(key);
    return !key.handled;
  }
};

using FormatOpening = FormatTest;
using FormatDvd = FormatTest;
using FormatSami = FormatTest;
using FormatSsa = FormatTest;
using FormatStoring = FormatTest;
using FormatSamples = FormatTest;

TEST_F(FormatOpening, ListsTheFormatsWithAHeader) {
  Open(u"SAMI");
  EXPECT_EQ(Dialog().Title(), u"Format Settings");
  EXPECT_EQ(Dialog().lstFormats.Items(), (std::vector<Text>{u"SubStation Alpha", u"DVDSubtitle", u"SAMI Captioning"}));
  EXPECT_EQ(Dialog().lstFormats.Index(), 2);
  EXPECT_EQ(Dialog().lblTop.GetText(), u"SAMI Captioning [SMI,SAMI]");
  EXPECT_TRUE(Dialog().sami.picSami.Visible());
  EXPECT_FALSE(Dialog().ssa.picSsa.Visible());
}

TEST_F(FormatOpening, WithoutAFormatNamedItSelectsTheOneInForce) {
  program->formats.SettingsFormatIndex = 0;
  program->formats.CurrentFormatIndex = static_cast<std::uint8_t>(program->catalogue.IndexOf(u"DVDSUBTITLE"));
  Window().mnuFormatSettings.Click();
  EXPECT_TRUE(Dialog().dvdSubtitle.picDvdSubtitle.Visible());
  EXPECT_EQ(Dialog().lblTop.GetText(), u"DVDSubtitle [SUB]");
}

TEST_F(FormatOpening, AFormatThatIsntListedSelectsNothing) {
  Open(u"SUBRIP");
  EXPECT_EQ(Dialog().lstFormats.Index(), -1);
  EXPECT_EQ(Dialog().lblTop.GetText(), u"");
  for (const Picture* panel : {&Dialog().dvdSubtitle.picDvdSubtitle, &Dialog().sami.picSami, &Dialog().ssa.picSsa}) {
    EXPECT_FALSE(panel->Visible());
  }
}

TEST_F(FormatOpening, ASelectionShowsThePanelAndIsRemembered) {
  Open(u"SUBRIP");
  Dialog().lstFormats.Choose(0);
  EXPECT_TRUE(Dialog().ssa.picSsa.Visible());
  EXPECT_EQ(program->formats.SettingsFormatIndex, program->catalogue.IndexOf(u"SUBSTATIONALPHA"));
  Dialog().lstFormats.Choose(1);
  EXPECT_FALSE(Dialog().ssa.picSsa.Visible());
  EXPECT_TRUE(Dialog().dvdSubtitle.picDvdSubtitle.Visible());
}

TEST_F(FormatOpening, AFurtherFormatWithAHeaderIsListedAndShowsNoPanel) {
  FormatCatalogue catalogue;
  catalogue.Load("[A]\r\nname=Alpha\r\nheader=1\r\n[B]\r\nheader=0\r\n",
                 "<FormatsList>\r\nB\r\nA\r\n</FormatsList>\r\n", program->encodings);
  FormatState formats;
  formats.SettingsFormatIndex = static_cast<std::uint8_t>(catalogue.IndexOf(u"A"));
  FormatDialog dialog({catalogue, formats, program->store, program->strings, program->languages, boxes, pickers});
  dialog.Open();
  EXPECT_EQ(dialog.lstFormats.Items(), std::vector<Text>{u"Alpha"});
  EXPECT_EQ(dialog.lstFormats.Index(), 0);
  EXPECT_EQ(dialog.lblTop.GetText(), u"Alpha [---]");
  EXPECT_FALSE(dialog.sami.picSami.Visible() || dialog.ssa.picSsa.Visible() ||
               dialog.dvdSubtitle.picDvdSubtitle.Visible());
}

TEST_F(FormatOpening, AFailureWhileReadingIsToldAndTheRestIsThere) {
  Store(u"SUBSTATIONALPHA", u"primarycolour", u"99999999999");
  Store(u"SUBSTATIONALPHA", u"marginv", u"77");
  Open(u"SUBSTATIONALPHA");
  EXPECT_EQ(LastBox(), "Error # 6\r\nOverflow");
  EXPECT_EQ(Dialog().ssa.txtSsaMarginv.GetText(), u"77");
  EXPECT_TRUE(Dialog().ssa.picSsa.Visible());
}

TEST_F(FormatOpening, TheLinksTell) {
  Open(u"SUBSTATIONALPHA");
  Dialog().lblGetMore.Click();
  EXPECT_TRUE(LastBox().starts_with("To add support for other subtitle formats"));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Information);
  Dialog().ssa.imgSsaCharset.Click();
  EXPECT_TRUE(LastBox().starts_with("The character set used for this subtitle format"));
  EXPECT_EQ(boxes.shown.back().title, u"Subtitles character set");
  EXPECT_EQ(Dialog().ssa.lblSsaCharset.GetText(), u"Charset: 0");
}

TEST_F(FormatDvd, ShowsTheDefaults) {
  Open(u"DVDSUBTITLE");
  EXPECT_EQ(Dialog().dvdSubtitle.discId.box.GetText(), u"");
  EXPECT_EQ(Dialog().dvdSubtitle.language.box.GetText(), u"EN");
  EXPECT_EQ(Dialog().dvdSubtitle.web.box.GetText(), u"https://cuewright.example");
  EXPECT_EQ(Dialog().dvdSubtitle.info.box.GetText(), u"Created with Tessaly Cuewright");
}

TEST_F(FormatDvd, OkStoresItsTexts) {
  Open(u"DVDSUBTITLE");
  Dialog().dvdSubtitle.discId.box.SetText(u"id");
  Dialog().dvdSubtitle.title.box.SetText(u"title");
  Dialog().dvdSubtitle.author.box.SetText(u"me");
  Dialog().dvdSubtitle.license.box.SetText(u"free");
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"discid"), u"id");
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"dvdtitle"), u"title");
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"lang"), u"EN");
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"author"), u"me");
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"license"), u"free");
  EXPECT_NE(BuildBuiltInHeader(u"DVDSUBTITLE", program->store, 0).find(u"DVDTITLE=title\r\n"), Text::npos);
}

TEST_F(FormatSami, IsShownBoldThoughAHeaderWithoutTheKeyIsnt) {
  Open(u"SAMI");
  EXPECT_TRUE(Dialog().sami.Sample().font.Bold);
  EXPECT_EQ(BuildBuiltInHeader(u"SAMI", program->store, 0).find(u"bold"), Text::npos);
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"SAMI", u"bold"), u"1");
  EXPECT_NE(BuildBuiltInHeader(u"SAMI", program->store, 0).find(u"font-weight: bold"), Text::npos);
}

TEST_F(FormatSami, ShowsTheDefaults) {
  Open(u"SAMI");
  const FormatSample& sample = Dialog().sami.Sample();
  EXPECT_EQ(sample.font.Name, u"Tahoma");
  EXPECT_EQ(sample.font.Size, 18);
  EXPECT_FALSE(sample.font.Italic);
  EXPECT_EQ(sample.color, 0x00FFFF);
  EXPECT_EQ(sample.background, 0);
  EXPECT_EQ(Dialog().sami.cmbSamiAlign.GetText(), u"Center");
}

TEST_F(FormatSami, AnUnknownAlignmentSelectsNothingAndStays) {
  Store(u"SAMI", u"alignment", u"justify");
  Open(u"SAMI");
  EXPECT_EQ(Dialog().sami.cmbSamiAlign.Index(), -1);
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"SAMI", u"alignment"), u"justify");
}

TEST_F(FormatSami, AlignmentIsStoredByItsWord) {
  const TextView words[] = {u"left", u"right", u"center"};
  for (int i = 0; i < 3; ++i) {
    Open(u"SAMI");
    Dialog().sami.cmbSamiAlign.Choose(i);
    EXPECT_EQ(Dialog().sami.Sample().alignment, i);
    Dialog().cmdOK.Click();
    EXPECT_EQ(Stored(u"SAMI", u"alignment"), words[i]);
  }
}

TEST_F(FormatSami, ColorsAreWrittenRedFirst) {
  Open(u"SAMI");
  pickers.colors = {0x332211, 0x0000FE};
  Dialog().sami.cmdSamiColor.Click();
  Dialog().sami.cmdSamiBackground.Click();
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"SAMI", u"color"), u"#112233");
  EXPECT_EQ(Stored(u"SAMI", u"background"), u"#FE0000");
  Open(u"SAMI");
  EXPECT_EQ(Dialog().sami.Sample().color, 0x332211);
  EXPECT_EQ(Dialog().sami.Sample().background, 0xFE);
}

TEST(WebColors, ReadWhatTheyCan) {
  EXPECT_EQ(ColorOfWeb(u"#FFFF00"), 0x00FFFF);
  EXPECT_EQ(ColorOfWeb(u"#aAbBcC"), 0xCCBBAA);
  EXPECT_EQ(ColorOfWeb(u"#12"), 0x12);
  EXPECT_EQ(ColorOfWeb(u"#1"), 0x1);
  EXPECT_EQ(ColorOfWeb(u"yellow"), 0xE);
  EXPECT_EQ(ColorOfWeb(u""), 0);
  EXPECT_EQ(WebColor(0x030201), u"#010203");
}

TEST_F(FormatSsa, ShowsTheDefaults) {
  Open(u"SUBSTATIONALPHA");
  EXPECT_EQ(Dialog().ssa.Sample().font.Size, 28);
  EXPECT_FALSE(Dialog().ssa.Sample().font.Bold);
  EXPECT_EQ(Dialog().ssa.Sample().color, 65535);
  EXPECT_EQ(Dialog().ssa.cmbSsaAlign.GetText(), u"Center");
  EXPECT_EQ(Dialog().ssa.cmbSsaValign.GetText(), u"Bottom");
  EXPECT_EQ(Dialog().ssa.cmbSsaStyle.GetText(), u"Outline");
  EXPECT_EQ(Dialog().ssa.txtSsaOutline.GetText(), u"1");
  EXPECT_EQ(Dialog().ssa.txtSsaMarginl.GetText(), u"30");
}

TEST_F(FormatSsa, AnAlignmentOf0SelectsBottomAndLeft) {
  Store(u"SUBSTATIONALPHA", u"alignment", u"0");
  Open(u"SUBSTATIONALPHA");
  EXPECT_EQ(Dialog().ssa.cmbSsaValign.GetText(), u"Bottom");
  EXPECT_EQ(Dialog().ssa.cmbSsaAlign.GetText(), u"Left");
}

TEST_F(FormatSsa, AlignmentIsOneNumberOfTwoChoices) {
  struct Row {
    int number;
    TextView horizontal;
    TextView vertical;
  };
  for (const Row& row : {Row{1, u"Left", u"Bottom"},
                         {2, u"Center", u"Bottom"},
                         {3, u"Right", u"Bottom"},
                         {5, u"Left", u"Top"},
                         {6, u"Center", u"Top"},
                         {7, u"Right", u"Top"},
                         {9, u"Left", u"Center"},
                         {10, u"Center", u"Center"},
                         {11, u"Right", u"Center"}}) {
    Store(u"SUBSTATIONALPHA", u"alignment", Decimal(row.number));
    Open(u"SUBSTATIONALPHA");
    EXPECT_EQ(Dialog().ssa.cmbSsaAlign.GetText(), row.horizontal) << row.number;
    EXPECT_EQ(Dialog().ssa.cmbSsaValign.GetText(), row.vertical) << row.number;
    Dialog().cmdOK.Click();
    EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"alignment"), Decimal(row.number));
  }
}

TEST_F(FormatSsa, AnAlignmentOfNoHorizontalSelectsNone) {
  for (const auto& [number, vertical] :
       {std::pair{u"4", u"Bottom"}, {u"8", u"Top"}, {u"12", u"Center"}, {u"-3", u"Bottom"}}) {
    Store(u"SUBSTATIONALPHA", u"alignment", number);
    Open(u"SUBSTATIONALPHA");
    EXPECT_EQ(Dialog().ssa.cmbSsaAlign.Index(), -1) << ToUtf8(number);
    EXPECT_EQ(Dialog().ssa.cmbSsaValign.GetText(), vertical) << ToUtf8(number);
  }
}

TEST_F(FormatSsa, TheBorderIsEnabledForTheOutlineOnly) {
  FormatDialog& d = Dialog();
  Store(u"SUBSTATIONALPHA", u"borderstyle", u"2");
  Open(u"SUBSTATIONALPHA");
  EXPECT_EQ(d.ssa.cmbSsaStyle.Index(), 1);
  const Control* controls[] = {&d.ssa.lblSsaOutline, &d.ssa.txtSsaOutline, &d.ssa.lblSsaShadow,
                               &d.ssa.txtSsaShadow,  &d.ssa.cmdSsaBack,    &d.ssa.picSsaBack};
  for (const Control* control : controls) EXPECT_FALSE(control->Enabled()) << control->Name();
  d.ssa.cmbSsaStyle.Choose(0);
  for (const Control* control : controls) EXPECT_TRUE(control->Enabled()) << control->Name();
  d.cmdOK.Click();
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"borderstyle"), u"1");
  Open(u"SUBSTATIONALPHA");
  d.ssa.cmbSsaStyle.Choose(1);
  d.cmdOK.Click();
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"borderstyle"), u"3");
}

TEST_F(FormatSsa, NumbersTakeDigitsAndBackspace) {
  for (TextBox* box : {&Dialog().ssa.txtSsaMarginl, &Dialog().ssa.txtSsaMarginr, &Dialog().ssa.txtSsaMarginv,
                       &Dialog().ssa.txtSsaOutline, &Dialog().ssa.txtSsaShadow}) {
    for (const char16_t c : Text(u"0123456789")) EXPECT_TRUE(Takes(*box, c));
    EXPECT_TRUE(Takes(*box, 0));
    for (const char16_t c : Text(u"a.,- /:")) EXPECT_FALSE(Takes(*box, c));
  }
}

TEST_F(FormatSsa, ANumberAbove1200BecomesThatAtOnce) {
  Open(u"SUBSTATIONALPHA");
  for (TextBox* box : {&Dialog().ssa.txtSsaMarginl, &Dialog().ssa.txtSsaMarginr, &Dialog().ssa.txtSsaMarginv,
                       &Dialog().ssa.txtSsaOutline, &Dialog().ssa.txtSsaShadow}) {
    box->SetText(u"1201");
    box->NoteEdited();
    EXPECT_EQ(box->GetText(), u"1200");
    box->SetText(u"1200");
    box->NoteEdited();
    EXPECT_EQ(box->GetText(), u"1200");
  }
  Store(u"SUBSTATIONALPHA", u"marginl", u"5000");
  Open(u"SUBSTATIONALPHA");
  EXPECT_EQ(Dialog().ssa.txtSsaMarginl.GetText(), u"1200");
}

TEST_F(FormatSsa, PastedLettersGetPastTheKeyFilterIntoTheHeader) {
  Open(u"SUBSTATIONALPHA");
  Dialog().ssa.txtSsaMarginl.SetText(u"abc");
  Dialog().ssa.txtSsaMarginl.NoteEdited();
  Dialog().cmdOK.Click();
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"marginl"), u"abc");
  EXPECT_NE(BuildBuiltInHeader(u"SUBSTATIONALPHA", program->store, 0).find(u",2,abc,30,30,"), Text::npos);
}

TEST_F(FormatSsa, ResetSetsBottomAndCenterAndTheOutline) {
  Store(u"SUBSTATIONALPHA", u"alignment", u"5");
  Store(u"SUBSTATIONALPHA", u"borderstyle", u"3");
  Store(u"SUBSTATIONALPHA", u"bold", u"1");
  Open(u"SUBSTATIONALPHA");
  Dialog().cmdReset.Click();
  EXPECT_EQ(Dialog().ssa.cmbSsaValign.GetText(), u"Bottom");
  EXPECT_EQ(Dialog().ssa.cmbSsaAlign.GetText(), u"Center");
  EXPECT_EQ(Dialog().ssa.cmbSsaStyle.GetText(), u"Outline");
  EXPECT_FALSE(Dialog().ssa.Sample().font.Bold);
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"alignment"), u"5");
}

TEST_F(FormatStoring, ResetChangesThePanelOnShowAlone) {
  Store(u"SAMI", u"size", u"40");
  Store(u"SAMI", u"bold", u"0");
  Store(u"SAMI", u"italic", u"1");
  Store(u"DVDSUBTITLE", u"lang", u"ES");
  Open(u"SAMI");
  Dialog().cmdReset.Click();
  EXPECT_EQ(Dialog().sami.Sample().font.Size, 18);
  EXPECT_TRUE(Dialog().sami.Sample().font.Bold);
  EXPECT_FALSE(Dialog().sami.Sample().font.Italic);
  EXPECT_EQ(Dialog().dvdSubtitle.language.box.GetText(), u"ES");
  EXPECT_EQ(Stored(u"SAMI", u"size"), u"40");
}

TEST_F(FormatStoring, OkStoresAllThreePanels) {
  Open(u"SUBRIP");
  Dialog().dvdSubtitle.language.box.SetText(u"DE");
  Dialog().ssa.txtSsaOutline.SetText(u"4");
  pickers.fonts = {{u"Arial", 12.5, false, true, false, false, 400}};
  Dialog().sami.cmdSamiFont.Click();
  bool closed = false;
  const Connection watch = Dialog().Closed.ConnectScoped([&] { closed = true; });
  Dialog().cmdOK.Click();
  EXPECT_TRUE(closed);
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"lang"), u"DE");
  EXPECT_EQ(Stored(u"SAMI", u"font"), u"Arial");
  EXPECT_EQ(Stored(u"SAMI", u"size"), u"12.5");
  EXPECT_EQ(Stored(u"SAMI", u"bold"), u"0");
  EXPECT_EQ(Stored(u"SAMI", u"italic"), u"1");
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"outline"), u"4");
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"fontsize"), u"28");
  EXPECT_EQ(Stored(u"SUBSTATIONALPHA", u"primarycolour"), u"65535");
}

TEST_F(FormatStoring, CancelAndTheFrameStoreNothing) {
  Open(u"DVDSUBTITLE");
  Dialog().dvdSubtitle.language.box.SetText(u"DE");
  Dialog().cmdCancel.Click();
  EXPECT_FALSE(Dialog().IsOpen());
  EXPECT_EQ(Stored(u"DVDSUBTITLE", u"lang"), u"?");
  Open(u"DVDSUBTITLE");
  EXPECT_EQ(Dialog().dvdSubtitle.language.box.GetText(), u"EN");
}

TEST_F(FormatSamples, FollowThePickersAndTheAlignment) {
  Open(u"SUBSTATIONALPHA");
  int changes = 0;
  const Connection watch = Dialog().ssa.SampleChanged.ConnectScoped([&] { ++changes; });
  pickers.fonts = {{u"Arial", 60, true, false, true, false, 700}};
  pickers.colors = {0x123456, 0x654321};
  Dialog().ssa.cmdSsaFont.Click();
  Dialog().ssa.cmdSsaColor.Click();
  Dialog().ssa.cmdSsaBack.Click();
  Dialog().ssa.cmbSsaAlign.Choose(1);
  EXPECT_EQ(changes, 4);
  const FormatSample& sample = Dialog().ssa.Sample();
  EXPECT_EQ(sample.font.Size, 60);
  EXPECT_TRUE(sample.font.Bold);
  EXPECT_EQ(sample.color, 0x123456);
  EXPECT_EQ(sample.background, 0x654321);
  EXPECT_EQ(sample.alignment, 1);
  EXPECT_EQ(pickers.fontsShown.at(0).Name, u"Tahoma");
  EXPECT_EQ(pickers.colorsShown, (std::vector<std::int32_t>{65535, 0}));
  Dialog().ssa.cmdSsaFont.Click();
  Dialog().ssa.cmdSsaColor.Click();
  EXPECT_EQ(changes, 4);
}

struct ListFont : testing::ProgramFixture {};

TEST_F(ListFont, ThePickersFontReachesTheListAndIsStoredAtTheEnd) {
  pickers.fonts = {{u"Sans", 40, true, false, false, false, 700}};
  Window().mnuFont.Click();
  EXPECT_EQ(pickers.fontsShown.at(0).Name, u"Tahoma");
  EXPECT_EQ(pickers.fontsShown.at(0).Size, 8);
  EXPECT_EQ(program->options.listFontName, u"Sans");
  EXPECT_EQ(program->options.listFontSize, 24);
  EXPECT_TRUE(program->options.listFontBold);
  EXPECT_EQ(program->grid.FontName(), u"Sans");
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"M_FONTNAME", u"?"), u"?");
  program->shell.SaveAtUnload(false, false, 800, 600);
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"M_FONTNAME", u"?"), u"Sans");
  EXPECT_EQ(program->store.GetSetting(u"Cuewright", u"M_FONTSIZE", u"?"), u"24");
}

TEST_F(ListFont, ACancelChangesNothing) {
  Window().mnuFont.Click();
  EXPECT_EQ(program->options.listFontName, u"Tahoma");
}

}  // namespace
}  // namespace cuewright
