#include "forms/embed_wizard.h"

#include "tests/support/embed_rig.h"

namespace cuewright {
namespace {

using EmbedDocument = testing::EmbedRig;
using EmbedPages = testing::EmbedRig;

TEST_F(EmbedDocument, IsRefusedForEachReasonInItsOrder) {
  struct Case {
    const char16_t* subtitle;
    const char16_t* video;
    Message message;
  };
  for (const Case& c :
       {Case{u"", u"", Message::EmbedNeedsSubtitle}, Case{u"NEW", u"", Message::EmbedNeedsSsa},
        Case{u"/a.srt", u"", Message::EmbedNeedsSsa}, Case{u"/a.ssa", u"", Message::EmbedNeedsVideo},
        Case{u"/a.SSA", u"/a.mp3", Message::EmbedNeedsVideo}, Case{u"/a.ssa", u"/a.SND", Message::EmbedNeedsVideo},
        Case{u"/a.ssa", u"/a.wav", Message::EmbedNeedsVideo}, Case{u"/a.ssa", u"/a.aif", Message::EmbedNeedsVideo},
        Case{u"/a.ssa", u"/a.wma", Message::EmbedNeedsVideo},
        Case{u"/a.ssa", u"/a.mkv", Message::EmbedNeedsAviOrMpeg}}) {
    program->document.SubtitlePath = c.subtitle;
    program->document.VideoPath = c.video;
    boxes.shown.clear();
    Window().mnuEmbed.Click();
    EXPECT_FALSE(Embed().IsOpen());
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].text, Says(c.message));
    EXPECT_EQ(boxes.shown[0].icon, BoxIcon::Warning);
    EXPECT_EQ(boxes.shown[0].title, u"Embed Subtitles");
  }
}

TEST_F(EmbedDocument, ANameThatEndsInAuIsRefusedAsSound) {
  OpenFiles("film.au");
  Window().mnuEmbed.Click();
  EXPECT_TRUE(Shows(Message::EmbedNeedsVideo));
}

TEST_F(EmbedDocument, ANameThatEndsInMpegPassesByItsLastThreeLetters) {
  OpenFiles("film.MPEG");
  OpenWizard();
}

TEST_F(EmbedDocument, ADocumentWhoseFileIsNoSsaCannotPass) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  program->document.VideoPath = folder.Write("film.avi", "film");
  Window().mnuEmbed.Click();
  EXPECT_TRUE(Shows(Message::EmbedNeedsSsa));
  EXPECT_FALSE(Embed().IsOpen());
}

TEST_F(EmbedDocument, AFileThatIsGoneIsToldWithBothPaths) {
  OpenFiles();
  files.Remove(program->document.VideoPath);
  Window().mnuEmbed.Click();
  EXPECT_EQ(boxes.shown.back().text,
            (folder / "film.avi") + u"\r\n" + (folder / "text.ssa") + u"\r\n\r\n" + Says(Message::EmbedFilesMissing));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
}

TEST_F(EmbedDocument, IsCheckedAgainAtEachPress) {
  OpenFiles();
  OpenWizard();
  files.Remove(program->document.SubtitlePath);
  Embed().cmdNext.Click();
  EXPECT_EQ(Embed().Step(), 0);
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
}

TEST_F(EmbedDocument, UnsavedChangesAreAskedAboutBeforeTheWizardOpens) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  OpenFiles();
  List().SetCaptionStart(1, 1500, false);
  boxes.answers = {BoxAnswer::Cancel};
  Window().mnuEmbed.Click();
  EXPECT_FALSE(Embed().IsOpen());
  EXPECT_EQ(boxes.shown.size(), 1u);
}

TEST_F(EmbedPages, OpenWithTheDesignedValues) {
  OpenFiles();
  folder.Write("run/embedsub.vcf", "of the last time");
  OpenWizard();
  EXPECT_EQ(PageShown(), 0);
  EXPECT_EQ(Embed().cmbFormat.GetText(), u"AVI (XviD)");
  EXPECT_EQ(Embed().cmbFormat.Items().size(), 1u);
  EXPECT_EQ(Embed().cmbResolution.GetText(), u"Use original");
  EXPECT_EQ(Embed().cmbResolution.Items().size(), 10u);
  EXPECT_EQ(Embed().cmbResolution.Items().back(), u"Custom size");
  EXPECT_EQ(Embed().cmbMode.Items(), (std::vector<Text>{u"Standard", u"Bilinear", u"Bicubic", u"Precise bilinear"}));
  EXPECT_EQ(Embed().cmbMode.Index(), 0);
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), folder / "app/vdrun/");
  EXPECT_EQ(Embed().txtSave.GetText(), folder / "film[sub].avi");
  EXPECT_EQ(Embed().cmdBack.GetText(), u"< Back");
  EXPECT_EQ(Embed().cmdNext.GetText(), u"Next >");
  EXPECT_FALSE(Embed().cmdBack.Enabled());
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::EmbedHint));
  EXPECT_EQ(Embed().sldPreview.Value(), 1);
  EXPECT_FALSE(Embed().sldPreview.Enabled());
  EXPECT_FALSE(files.Exists(folder / "run/embedsub.vcf"));
}

TEST_F(EmbedPages, OfAnyStoredFolderShowThatFolder) {
  OpenFiles();
  program->store.SaveSetting(kMainSection, u"VDPATH", u"/else/where/");
  OpenWizard();
  EXPECT_EQ(Embed().txtVirtualdub.GetText(), u"/else/where/");
}

TEST_F(EmbedPages, CloseTheToolWindowsFirst) {
  OpenFiles();
  program->tools.findWindow.Show();
  OpenWizard();
  EXPECT_FALSE(program->tools.findWindow.Loaded());
}

TEST_F(EmbedPages, AResolutionFillsWidthAndHeight) {
  OpenFiles();
  OpenWizard();
  const std::pair<const char16_t*, const char16_t*> sizes[] = {{u"352", u"240"}, {u"352", u"288"}, {u"480", u"480"},
                                                               {u"480", u"576"}, {u"704", u"480"}, {u"704", u"576"},
                                                               {u"640", u"480"}, {u"1024", u"768"}};
  for (int i = 1; i <= 8; ++i) {
    Embed().cmbResolution.Choose(i);
    EXPECT_EQ(Embed().txtWidth.GetText(), sizes[i - 1].first);
    EXPECT_EQ(Embed().txtHeight.GetText(), sizes[i - 1].second);
    EXPECT_FALSE(Embed().txtWidth.Enabled());
    EXPECT_TRUE(Embed().cmbMode.Enabled());
    EXPECT_TRUE(Embed().imgMode.Visible());
  }
  Embed().cmbResolution.Choose(9);
  EXPECT_EQ(Embed().txtWidth.GetText(), u"1024");
  for (Control* control : std::initializer_list<Control*>{&Embed().txtWidth, &Embed().txtHeight, &Embed().lblSize,
                                                          &Embed().lblX, &Embed().lblMode, &Embed().cmbMode}) {
    EXPECT_TRUE(control->Enabled());
  }
  Embed().cmbResolution.Choose(0);
  EXPECT_EQ(Embed().txtWidth.GetText(), u"1024");
  EXPECT_FALSE(Embed().txtHeight.Enabled());
  EXPECT_FALSE(Embed().cmbMode.Enabled());
  EXPECT_FALSE(Embed().lblMode.Enabled());
  EXPECT_FALSE(Embed().imgMode.Visible());
}

TEST_F(EmbedPages, TheSizeBoxesLetDigitsTheTwoSignsBehindThemAndBackspaceThrough) {
  const auto dropped = [&](int code, char16_t character) {
    KeyEvent key;
    key.code = code;
    key.character = character;
    Embed().txtWidth.TypeKey(key);
    return key.handled;
  };
  for (const char16_t character : TextView(u"0123456789:;")) EXPECT_FALSE(dropped(character, character));
  for (const char16_t character : TextView(u"/<aZ -.\u0661")) EXPECT_TRUE(dropped(0, character));
  EXPECT_FALSE(dropped(kKeyBackspace, 0));
}

TEST_F(EmbedPages, ASizeIsBroughtIntoItsLimitsWhenTheBoxLosesTheFocus) {
  for (const auto& [typed, left] : std::initializer_list<std::pair<const char16_t*, const char16_t*>>{
           {u"31", u"32"}, {u"32", u"32"}, {u"2048", u"2048"}, {u"2049", u"2048"}, {u"", u"32"}, {u"12:3;", u"123"}}) {
    Embed().txtHeight.SetText(typed);
    Embed().txtHeight.LoseFocus();
    EXPECT_EQ(Embed().txtHeight.GetText(), left);
  }
  Embed().txtHeight.SetText(u"640");
  Embed().txtHeight.TakeFocus();
  EXPECT_EQ(Embed().txtHeight.SelStart(), 0);
  EXPECT_EQ(Embed().txtHeight.SelLength(), 3);
}

TEST_F(EmbedPages, PreviewCountsWholeMinutesOfTheFilm) {
  OpenFiles();
  OpenWizard();
  Embed().chkPreview.Click();
  EXPECT_TRUE(Embed().sldPreview.Enabled());
  EXPECT_TRUE(Embed().lblPreview.Enabled());
  EXPECT_EQ(Embed().sldPreview.Max(), 5);
  EXPECT_EQ(Embed().lblPreview.GetText(), u"1 minute");
  Embed().sldPreview.Move(5);
  EXPECT_EQ(Embed().lblPreview.GetText(), u"5 minutes");
  Embed().chkPreview.Click();
  EXPECT_FALSE(Embed().sldPreview.Enabled());
}

TEST_F(EmbedPages, PreviewNeedsTwoMinutesOfFilm) {
  OpenFiles();
  OpenWizard();
  player.duration = 119.9;
  Embed().chkPreview.Click();
  EXPECT_TRUE(Shows(Message::VideoTooShort));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
  EXPECT_FALSE(Embed().chkPreview.Value());
  player.duration = 0;
  Embed().chkPreview.Click();
  EXPECT_TRUE(Shows(Message::LengthUnknown));
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_FALSE(Embed().chkPreview.Value());
  EXPECT_FALSE(Embed().sldPreview.Enabled());
  player.duration = 120;
  Embed().chkPreview.Click();
  EXPECT_EQ(Embed().sldPreview.Max(), 2);
}

TEST_F(EmbedPages, HintsFollowThePointer) {
  OpenFiles();
  OpenWizard();
  const std::pair<const char*, Message> hints[] = {
      {"imgFormat", Message::OutputFormatHint},         {"imgRes", Message::OutputResolutionHint},
      {"cmbResolution", Message::OutputResolutionHint}, {"imgMode", Message::FilterModeHint},
      {"imgPreview", Message::EmbedPreviewHint},        {"imgSave", Message::OutputFileNameHint},
      {"imgVD", Message::VirtualDubFolderHint},         {"cmdBrowseVD", Message::VirtualDubFolderHint},
      {"cmdConfigure", Message::ConfigureCodecHint},    {"cmdCancel", Message::CloseDialogHint},
      {"txtWidth", Message::OutputWidthHint},           {"txtHeight", Message::OutputHeightHint}};
  for (const auto& [control, message] : hints) {
    Embed().Find(control)->Hover();
    EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(message)) << control;
  }
  Embed().Hover();
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::EmbedHint));
  Embed().ShowEmbedDetails(u"");
  EXPECT_FALSE(Embed().details.lblDetailsTitle.Visible());
  EXPECT_FALSE(Embed().details.fraDetails.Visible());
  Embed().ShowEmbedDetails(u"word");
  EXPECT_TRUE(Embed().details.lblDetailsTitle.Visible());
  EXPECT_TRUE(Embed().details.fraDetails.Visible());
}

TEST_F(EmbedPages, EachStepHasItsHint) {
  OpenFiles();
  OpenWizard();
  GoTo(1);
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::VirtualDubFolderHint));
  GoTo(2);
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::OutputFileNameHint));
  GoTo(3);
  EXPECT_EQ(Embed().details.lblDetails.GetText(),
            Says(Message::FilesWillBeClosed) + u"\r\n\r\n" + Says(Message::OkBeginsProcess));
}

TEST_F(EmbedPages, LinksOpenTheirPages) {
  OpenFiles();
  OpenWizard();
  Embed().lblDownload.Click();
  Embed().lblConvert.Click();
  Embed().imgConfigure.Click();
  program->options.language = u"SPANISH";
  Embed().imgConfigure.Click();
  EXPECT_EQ(desktop.opened,
            (std::vector<Text>{Text(kWebSite) + u"/en/downloads.php?cid=14", Text(kWebSite) + u"/en/guides.php",
                               Text(kWebSite) + u"/go.php?id=9", Text(kWebSite) + u"/go.php?es=1&id=9"}));
}

TEST_F(EmbedPages, TheDrawingMovesTheWindow) {
  int moved = 0;
  Embed().DragRequested.Connect([&] { ++moved; });
  Embed().imgDrag.PressMouse({MouseButton::Right, 1, 1});
  EXPECT_EQ(moved, 0);
  Embed().imgDrag.PressMouse({MouseButton::Left, 1, 1});
  EXPECT_EQ(moved, 1);
}

TEST_F(EmbedPages, GoForwardAndBack) {
  OpenFiles();
  OpenWizard();
  GoTo(3);
  EXPECT_EQ(PageShown(), 3);
  EXPECT_EQ(Embed().cmdNext.GetText(), u"&OK");
  EXPECT_EQ(Embed().lblTop2.GetText(), Says(Message::ReadyToBegin));
  Embed().cmdBack.Click();
  EXPECT_EQ(PageShown(), 2);
  EXPECT_EQ(Embed().cmdNext.GetText(), u"Next >");
  EXPECT_EQ(Embed().lblTop2.GetText(), Says(Message::OutputFileSettings));
  EXPECT_EQ(Embed().details.lblDetails.GetText(), Says(Message::OutputFileNameHint));
  Embed().cmdBack.Click();
  EXPECT_TRUE(Embed().cmdBack.Enabled());
  Embed().cmdBack.Click();
  EXPECT_FALSE(Embed().cmdBack.Enabled());
  EXPECT_EQ(PageShown(), 0);
  Embed().cmdCancel.Click();
  EXPECT_FALSE(Embed().IsOpen());
}

}  // namespace
}  // namespace cuewright
