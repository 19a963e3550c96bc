#include "forms/document_files.h"

#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

#include "core/folders.h"
#include "core/paths.h"
#include "tests/support/program_fixture.h"

namespace cuewright {
namespace {

using testing::ProgramFixture;

using Opening = ProgramFixture;
using Saving = ProgramFixture;
using Closing = ProgramFixture;
using Clipboard = ProgramFixture;
using StartFolder = ProgramFixture;
using StartFile = ProgramFixture;
using BadInput = ProgramFixture;
using Recalling = ProgramFixture;

TEST_F(Opening, ASubtitleBecomesTheDocument) {
  const Text path = SubRip("Film.One.srt", 3);
  program->documentFiles.OpenSubtitleFile(path);
  EXPECT_EQ(program->document.SubtitlePath, path);
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(List().At(2), (Caption{2100, 2900, u"line 2"}));
  EXPECT_FALSE(program->document.DocModified);
  EXPECT_TRUE(Window().mnuSave.Enabled());
  EXPECT_TRUE(program->grid.Active());
  EXPECT_EQ(Window().lblTextFile.GetText(), u"Current subtitle file: Film.One.srt");
  EXPECT_EQ(Window().txtSub.GetText(), u"line 1");
  EXPECT_EQ(Window().txtTime[0].GetText(), u"00:00:01,100");
  EXPECT_EQ(Window().txtTime[1].GetText(), u"00:00:00,800");
  EXPECT_EQ(program->recall.Path(u"TFileName"), path);
  EXPECT_EQ(program->recall.LastFolder(), FolderOfPath(path));
  EXPECT_TRUE(Window().mnuTFileName.Visible());
  EXPECT_TRUE(Window().mnuLine0b.Visible());
}

TEST_F(Opening, TheDialogOffersAllFormatsAndEachOne) {
  program->documentFiles.OpenText();
  ASSERT_EQ(dialogs.calls.size(), 1u);
  EXPECT_EQ(dialogs.calls[0].title, u"Open text or subtitle");
  const std::string filter = ToUtf8(dialogs.calls[0].filter);
  EXPECT_EQ(filter.rfind("All supported formats|*.", 0), 0u);
  EXPECT_NE(filter.find("|SubRip"), std::string::npos);
  EXPECT_NE(filter.find(" (srt)|*.srt|"), std::string::npos);
  EXPECT_EQ(filter.find("_RSS"), std::string::npos);
}

TEST_F(Opening, AMissingFileIsToldAndLeavesEverythingAsItWas) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  const Text gone = folder / "gone.srt";
  program->documentFiles.OpenSubtitleFile(gone);
  EXPECT_EQ(LastBox(), "The file " + ToUtf8(gone) + " was not found.");
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Error);
  EXPECT_EQ(List().Rows(), 3);
  EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
}

TEST_F(Opening, PausesThePlayerMeanwhileAndLeavesPreviewMode) {
  Play(folder.Write("film.mkv", "x"));
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  EXPECT_EQ(player.state, kPlayerPlaying);
  EXPECT_TRUE(Window().cmdApply.Enabled());
  program->capture.SelectMode(CaptionMode::Preview);
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  EXPECT_EQ(program->capture.Mode(), CaptionMode::PressAndHold);
}

TEST_F(Opening, ACancelledLoadLeavesNoDocument) {
  events.onYield = [this] { Window().cmdCancel.Click(); };
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 300));
  EXPECT_EQ(program->document.SubtitlePath, u"");
  EXPECT_FALSE(program->grid.Active());
  EXPECT_FALSE(program->document.ImportCancelled);
  EXPECT_TRUE(Window().mnuOpenText.Enabled());
  EXPECT_FALSE(Window().mnuSave.Enabled());
  EXPECT_TRUE(boxes.shown.empty() || LastBox().find("runtime error") == std::string::npos);
}

TEST_F(Opening, AnotherDocumentHasNothingToJoinWith) {
  Play(folder.Write("film.mkv", "x"));
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  player.position = 10;
  Window().tmrTime.Pass();
  Window().cmdApply.PressMouse({MouseButton::Left, 0, 0});
  Window().cmdApply.ReleaseMouse({MouseButton::Left, 0, 0});
  EXPECT_EQ(program->capture.PriorCaptionEnd(), 10000);
  program->documentFiles.OpenSubtitleFile(folder / "a.srt");
  EXPECT_EQ(program->capture.PriorCaptionEnd(), std::nullopt);
}

TEST_F(Opening, AppendingNeedsAFilm) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  program->documentFiles.Append();
  EXPECT_NE(LastBox().find("To append a subtitle file"), std::string::npos);
  EXPECT_TRUE(dialogs.calls.empty());
}

TEST_F(Opening, AnAppendedFileIsDelayedByTheFilmsLength) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  Play(folder.Write("film.mkv", "x"));
  player.duration = 60;
  dialogs.paths = {SubRip("b.srt", 2)};
  program->documentFiles.Append();
  EXPECT_EQ(List().Rows(), 5);
  EXPECT_EQ(List().GetCaptionStart(3), 61100);
}

TEST_F(Opening, AfterAnAppendTheDocumentIsSavedAsItWas) {
  const Text document = SubRip("a.srt", 2);
  for (const char* name : {"wrong.xyz", "frames.sub", "refused.sub", "other.sbv"}) {
    SCOPED_TRACE(name);
    program->documentFiles.OpenSubtitleFile(document);
    Play(folder.Write("film.mkv", "x"));
    player.duration = 60;
    boxes.lines.clear();
    if (name == std::string("frames.sub")) boxes.lines = {u"25"};
    const std::string content = name == std::string("wrong.xyz")   ? "words\r\n"
                                : name == std::string("other.sbv") ? "0:00:01.000,0:00:02.000\r\nx\r\n\r\n"
                                                                   : "{25}{50}x\r\n";
    dialogs.paths = {folder.Write(name, content)};
    program->documentFiles.Append();
    const Row rows = List().Rows();
    program->documentFiles.Save();
    EXPECT_EQ(folder.Read("a.srt").substr(0, 30), "1\r\n00:00:01,100 --> 00:00:01,9");
    program->documentFiles.OpenSubtitleFile(document);
    EXPECT_EQ(List().Rows(), rows);
    SubRip("a.srt", 2);
  }
}

TEST_F(Opening, AnAppendedTextLeavesTheWindowInOrder) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  Play(folder.Write("film.mkv", "x"));
  List().SetRow(2, false);
  dialogs.paths = {folder.Write("notes.txt", "first words\r\nmore\r\n")};
  program->documentFiles.Append();
  EXPECT_EQ(Window().txtSub.GetText(), u"first words");
  EXPECT_TRUE(Window().mnuSave.Enabled());
  EXPECT_TRUE(Window().mnuSaveAs.Enabled());
  EXPECT_EQ(Window().lblTextFile.GetText(), u"Current subtitle file: a.srt");
  EXPECT_EQ(ToUtf8(program->catalogue.Identifier(program->formats.CurrentFormatIndex)), "SUBRIP");
}

TEST_F(Opening, OneThatFailsEndsTheDocumentForAllAlsoWhenItsListFails) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 3));
  int ended = 0;
  program->session.Ended.Connect([&] { ++ended; });
  const Connection failing = List().CommandEnded.ConnectScoped([this] {
    if (!program->document.HasDocument()) throw RuntimeError{kErrorInvalidCall, u"of the list"};
  });
  program->documentFiles.OpenSubtitleFile(folder.Write("empty.srt", ""));
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(program->history.Differs());
  EXPECT_FALSE(program->document.HasDocument());
  EXPECT_NE(boxes.shown.back().text.find(u"of the list"), Text::npos) << "and it is told";
}

TEST_F(Opening, ADoubtfulFileIsAskedAboutBeforeItIsAppended) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  Play(folder.Write("film.mkv", "x"));
  player.duration = 60;
  const Text doubtful = folder.Write("b.sub", "{10}{50}one\nnot\nof\nthis\nformat\n");
  dialogs.paths = {doubtful, doubtful};
  boxes.lines = {u"25", u"25"};
  boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
  Window().mnuAppend.Click();
  EXPECT_NE(LastBox().find("Most lines of this file were not understood as MicroDVD."), std::string::npos);
  EXPECT_EQ(List().Rows(), 3);
  Window().mnuAppend.Click();
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(List().GetCaptionStart(3), 60400);
}

TEST_F(Opening, OfFormatsThatFitEquallyWellTheUserChooses) {
  const Text path = folder.Write("a.txt", "00:00:12:10 00:00:15:05 Good evening.\n");
  dialogs.paths = {path, path, path};
  boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
  Window().mnuOpenText.Click();
  EXPECT_EQ(program->catalogue.Identifier(program->formats.CurrentFormatIndex), u"DVDSUBSYSTEM");
  EXPECT_EQ(List().At(1), (Caption{12100, 15050, u"Good evening."}));
  boxes.lines = {u"25"};
  boxes.answers = {BoxAnswer::Yes};
  Window().mnuOpenText.Click();
  EXPECT_EQ(program->catalogue.Identifier(program->formats.CurrentFormatIndex), u"ADOBEENCORE");
  boxes.answers = {BoxAnswer::Cancel};
  Window().mnuOpenText.Click();
  EXPECT_FALSE(program->document.HasDocument());
}

TEST_F(Opening, AnAppendAfterOneThatWasCancelledIsRead) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  Play(folder.Write("film.mkv", "x"));
  dialogs.paths = {folder.Write("frames.sub", "{25}{50}x\r\n"), SubRip("b.srt", 2)};
  program->documentFiles.Append();
  EXPECT_FALSE(program->document.ImportCancelled);
  program->documentFiles.Append();
  EXPECT_EQ(List().Rows(), 5);
}

TEST_F(Saving, GoesToTheFormatOfTheFile) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  List().SetCaptionStart(1, 1500, false);
  program->documentFiles.Save();
  EXPECT_EQ(folder.Read("a.srt").substr(0, 34), "1\r\n00:00:01,500 --> 00:00:01,900\r\n");
  EXPECT_FALSE(program->document.DocModified);
  EXPECT_TRUE(dialogs.calls.empty());
}

TEST_F(Saving, AnUntimedCaptionAsksAndNoLeavesItAndTheRestOut) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 4));
  List().SetCaptionStart(3, 0, false);
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.Save();
  EXPECT_NE(LastBox().find("The file you are saving contains one or more captions without timing.\r\n\r\nPress YES"),
            std::string::npos);
  std::string saved = folder.Read("a.srt");
  EXPECT_NE(saved.find("line 2"), std::string::npos);
  EXPECT_EQ(saved.find("line 3"), std::string::npos);
  EXPECT_EQ(saved.find("line 4"), std::string::npos);
  EXPECT_EQ(List().Rows(), 5);
  boxes.answers = {BoxAnswer::Yes};
  program->documentFiles.Save();
  saved = folder.Read("a.srt");
  EXPECT_NE(saved.find("line 3"), std::string::npos);
  EXPECT_NE(saved.find("line 4"), std::string::npos);
}

TEST_F(Saving, CancelAtAnUntimedCaptionWritesNothing) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 4));
  const std::string before = folder.Read("a.srt");
  List().SetCaptionStart(3, 0, false);
  boxes.answers = {BoxAnswer::Cancel};
  program->documentFiles.Save();
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].buttons, BoxButtons::YesNoCancel);
  EXPECT_NE(LastBox().find("Press CANCEL to save nothing."), std::string::npos);
  EXPECT_EQ(folder.Read("a.srt"), before);
  // Nor is anything saved under another name, and the document keeps its own.
  program->exportDialog.Opened.Connect([&] { program->exportDialog.cmdOK.Click(); });
  dialogs.paths = {folder / "b.srt"};
  boxes.answers = {BoxAnswer::Cancel};
  program->documentFiles.SaveAs();
  EXPECT_FALSE(files.Exists(folder / "b.srt"));
  EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
  EXPECT_EQ(List().Rows(), 5);
}

TEST_F(Saving, InTheClassicMannerOnlyYesAndNoAreAskedAtAnUntimedCaption) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 4));
  List().SetCaptionStart(3, 0, false);
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.Save();
  EXPECT_EQ(boxes.shown.back().buttons, BoxButtons::YesNo);
  EXPECT_EQ(LastBox().find("CANCEL"), std::string::npos);
  EXPECT_EQ(folder.Read("a.srt").find("line 3"), std::string::npos);
}

TEST_F(Saving, APlainTextAsksForAFormat) {
  program->documentFiles.OpenSubtitleFile(folder.Write("a.txt", "one\r\ntwo\r\n"));
  ASSERT_EQ(List().Rows(), 3);
  EXPECT_EQ(program->formats.CurrentFormatIndex, 0);
  bool asked = false;
  program->exportDialog.Opened.Connect([&] { asked = true; });
  program->documentFiles.Save();
  EXPECT_TRUE(asked);
  EXPECT_TRUE(dialogs.calls.empty());
}

TEST_F(Saving, SaveAsProposesTheNameWithTheFormatsExtension) {
  program->documentFiles.OpenSubtitleFile(folder.Write("My.Text.txt", "one\r\ntwo\r\n"));
  List().SetCaptionStart(1, 1000, false);
  List().SetCaptionStart(2, 2000, false);
  program->exportDialog.Opened.Connect([&] { program->exportDialog.cmdOK.Click(); });
  dialogs.paths = {folder / "out"};
  program->documentFiles.SaveAs();
  ASSERT_EQ(dialogs.calls.size(), 1u);
  EXPECT_EQ(dialogs.calls[0].title, u"Save as");
  EXPECT_EQ(dialogs.calls[0].proposal, u"My.Text.srt");
  EXPECT_EQ(program->document.SubtitlePath, folder / "out.srt");
  EXPECT_NE(folder.Read("out.srt").find("00:00:01,000 --> 00:00:00,000\r\none"), std::string::npos);
}

TEST_F(Saving, TheExtensionIsComparedWithItsCase) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  program->exportDialog.Opened.Connect([&] { program->exportDialog.cmdOK.Click(); });
  dialogs.paths = {folder / "name.SRT"};
  program->documentFiles.SaveAs();
  EXPECT_EQ(program->document.SubtitlePath, folder / "name.SRT.srt");
}

TEST_F(Saving, AFileFoundOnlyWithTheAddedExtensionIsAskedAbout) {
  const Text old = folder.Write("old.srt", "precious");
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  program->exportDialog.Opened.Connect([&] { program->exportDialog.cmdOK.Click(); });
  dialogs.paths = {folder / "old", folder / "old", old};
  boxes.answers = {BoxAnswer::No};
  program->documentFiles.SaveAs();
  EXPECT_EQ(LastBox(), ToUtf8(old) + " already exists.\nDo you want to replace it?");
  EXPECT_EQ(boxes.shown.back().title, u"Save as");
  EXPECT_EQ(folder.Read("old.srt"), "precious");
  EXPECT_EQ(program->document.SubtitlePath, folder / "a.srt");
  boxes.answers = {BoxAnswer::Yes};
  program->documentFiles.SaveAs();
  EXPECT_NE(folder.Read("old.srt").find("line 1"), std::string::npos);
  // The picker has asked about a whole name.
  const std::size_t asked = boxes.shown.size();
  program->documentFiles.SaveAs();
  EXPECT_EQ(boxes.shown.size(), asked);
}

TEST_F(Saving, ANewDocumentIsNamedAfterTheFilm) {
  program->documentFiles.New();
  Play(folder.Write("film.one.mkv", "x"));
  program->exportDialog.Opened.Connect([&] { program->exportDialog.cmdOK.Click(); });
  program->documentFiles.SaveAs();
  ASSERT_EQ(dialogs.calls.size(), 1u);
  EXPECT_EQ(dialogs.calls[0].proposal, u"film.one.srt");
  EXPECT_EQ(program->document.SubtitlePath, u"NEW");
}

TEST_F(Saving, AReadOnlyFileIsToldAndTheDocumentStaysModified) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  const std::string before = folder.Read("a.srt");
  List().SetCaptionStart(1, 1500, false);
  ::chmod(folder.Bytes("a.srt").c_str(), 0444);
  program->documentFiles.Save();
  EXPECT_EQ(LastBox(), "Failed to save file " + ToUtf8(folder / "a.srt") + ". The file is probably read-only.");
  EXPECT_TRUE(program->document.DocModified);
  EXPECT_EQ(folder.Read("a.srt"), before);
}

TEST_F(Saving, AFullDiskIsToldAndTheOldFileStaysWhole) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 50));
  const std::string before = folder.Read("a.srt");
  List().SetCaptionStart(1, 1500, false);
  // A limit on the size of files stands for the disk's end.
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{500, old.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &full);
  program->documentFiles.Save();
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(LastBox().rfind("Failed to save file " + ToUtf8(folder / "a.srt") + ". The file is probably read-only.", 0),
            0u)
      << LastBox();
  EXPECT_NE(LastBox().find("Disk full"), std::string::npos);
  EXPECT_TRUE(program->document.DocModified);
  EXPECT_EQ(folder.Read("a.srt"), before);
}

TEST_F(Saving, AFolderThatVanishedIsToldAndTheDocumentStaysModified) {
  std::filesystem::create_directory(folder.Path() / "sub");
  program->documentFiles.OpenSubtitleFile(SubRip("sub/a.srt", 2));
  List().SetCaptionStart(1, 1500, false);
  std::filesystem::remove_all(folder.Path() / "sub");
  program->documentFiles.Save();
  EXPECT_NE(LastBox().find("An error ocurred while saving the file"), std::string::npos);
  EXPECT_TRUE(program->document.DocModified);
}

TEST_F(Saving, InTheClassicMannerKeepsTheFilesEncodingAndTellsWhenItLacksACharacter) {
  program->options.manner.SetClassic(true);
  // Two lines in the code page of Western Europe.
  const Text path = folder.Write("a.srt",
                                 "1\r\n00:00:01,000 --> 00:00:02,000\r\ncaf\xE9\r\n\r\n"
                                 "2\r\n00:00:03,000 --> 00:00:04,000\r\nth\xE9\r\n\r\n");
  program->documentFiles.OpenSubtitleFile(path);
  EXPECT_EQ(List().GetCaptionText(1), u"caf\u00E9");
  program->documentFiles.Save();
  EXPECT_NE(folder.Read("a.srt").find("caf\xE9\r\n"), std::string::npos);
  EXPECT_TRUE(boxes.shown.empty());
  List().SetCaptionText(2, u"\u6F22");
  program->documentFiles.Save();
  EXPECT_NE(folder.Read("a.srt").find("caf\xC3\xA9\r\n"), std::string::npos);
  EXPECT_EQ(Window().lblNotice.GetText(), u"Saved as UTF-8: windows-1252 lacks a character of the text");
  EXPECT_TRUE(Window().lblNotice.Visible());
}

TEST_F(Saving, ConvertingFromUtf8AsksAndLeavesTheFlagAlone) {
  program->options.readAs = u"classic";
  program->documentFiles.OpenSubtitleFile(folder.Write("a.srt",
                                                       "1\r\n00:00:01,000 --> 00:00:02,000\r\ncaf\xC3\xA9\r\n\r\n"
                                                       "2\r\n00:00:03,000 --> 00:00:04,000\r\ntwo\r\n\r\n"));
  EXPECT_EQ(List().GetCaptionText(1), u"caf\u00C3\u00A9");
  boxes.answers = {BoxAnswer::No, BoxAnswer::Yes};
  Window().mnuUTF8.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"caf\u00C3\u00A9");
  EXPECT_EQ(boxes.shown.back().title, u"Convert from UTF-8");
  EXPECT_EQ(LastBox().rfind("The purpose of this conversion is to display correctly all characters and it should be "
                            "applied only if the loaded subtitle file is using UTF-8 encoding.",
                            0),
            0u);
  Window().mnuUTF8.Click();
  EXPECT_EQ(List().GetCaptionText(1), u"caf\u00E9");
  EXPECT_EQ(Window().txtSub.GetText(), u"caf\u00E9");
  EXPECT_FALSE(program->document.DocModified);
}

TEST_F(Closing, ADocumentOfOneCaptionIsThrownAwayWithoutAQuestion) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 1));
  List().SetCaptionStart(1, 1500, false);
  program->documentFiles.Close();
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(program->document.SubtitlePath, u"");
  EXPECT_FALSE(program->grid.Active());
}

TEST_F(Closing, AModifiedDocumentAsks) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  List().SetCaptionStart(1, 1500, false);
  boxes.answers = {BoxAnswer::Cancel};
  program->documentFiles.Close();
  EXPECT_EQ(LastBox(), "The opened file has been modified. Do you want to save it as a subtitle file now?");
  EXPECT_EQ(List().Rows(), 3);
  boxes.answers = {BoxAnswer::Yes};
  program->documentFiles.Close();
  EXPECT_NE(folder.Read("a.srt").find("00:00:01,500"), std::string::npos);
  EXPECT_EQ(program->document.SubtitlePath, u"");
}

TEST_F(Closing, YesIsTrueEvenWhenTheSaveDialogIsCancelled) {
  program->options.manner.SetClassic(true);
  program->documentFiles.OpenSubtitleFile(folder.Write("a.txt", "one\r\ntwo\r\n"));
  program->document.SubtitlePath = u"NEW";
  List().SetCaptionStart(1, 1500, false);
  boxes.answers = {BoxAnswer::Yes};
  EXPECT_TRUE(program->documentFiles.PromptForSave());
}

TEST_F(Closing, EndsSubtitleAndFilmTogether) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  Play(folder.Write("film.mkv", "x"));
  EXPECT_TRUE(program->sub.Loaded());
  program->documentFiles.Close();
  EXPECT_EQ(program->document.VideoPath, u"");
  EXPECT_EQ(player.url, u"");
  EXPECT_FALSE(player.enabled);
  EXPECT_FALSE(program->sub.Loaded());
  EXPECT_TRUE(Window().picPLogo.Visible());
  EXPECT_FALSE(Window().tmrTime.Enabled());
  EXPECT_FALSE(Window().mnuClose.Enabled());
}

TEST_F(Clipboard, TakesTheLinesThatArentBlank) {
  desktop.clipboard = u"one\r\n\r\n   \r\n two \r\nthree";
  program->documentFiles.NewFromClipboard();
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(List().GetCaptionText(2), u"two");
  EXPECT_EQ(program->document.SubtitlePath, u"NEW");
}

TEST_F(Clipboard, TheLineAtIndexThirtyTwoThousandIsTheLast) {
  for (int i = 0; i < 32003; ++i) desktop.clipboard += u"l" + Decimal(i) + u"\r\n";
  program->documentFiles.NewFromClipboard();
  EXPECT_EQ(List().Rows() - 1, 32001);
  EXPECT_EQ(List().GetCaptionText(32001), u"l32000");
}

TEST_F(Clipboard, OneThatDoesNotFitIsRefusedWithASentence) {
  program->documentFiles.New();
  std::vector<Caption> many(1000, Caption{1, 2, u"x"});
  List().Replace(1, 1, std::move(many));
  program->document.DocModified = true;
  for (int i = 0; i < 32000; ++i) desktop.clipboard += u"l\n";
  boxes.answers = {BoxAnswer::Cancel};
  program->documentFiles.NewFromClipboard();
  EXPECT_EQ(List().Rows(), 1001);
  EXPECT_EQ(
      LastBox(),
      "What is on the clipboard is too much for a document: it would come to 33000 captions, and there may be 32766 "
      "at most. Nothing was taken.");
}

TEST_F(Clipboard, AfterACancelTheLinesStandAtTheBottomOfTheOldDocument) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  List().SetCaptionStart(1, 1500, false);
  desktop.clipboard = u"pasted";
  boxes.answers = {BoxAnswer::Cancel};
  program->documentFiles.NewFromClipboard();
  EXPECT_EQ(List().Rows(), 4);
  EXPECT_EQ(List().GetCaptionText(3), u"pasted");
  EXPECT_EQ(List().GetCaptionText(1), u"line 1");
}

TEST_F(Clipboard, TheItemNeedsText) {
  Window().mnuFile.OpenMenu();
  EXPECT_FALSE(Window().mnuNewClip.Enabled());
  desktop.clipboard = u"x";
  Window().mnuFile.OpenMenu();
  EXPECT_TRUE(Window().mnuNewClip.Enabled());
}

TEST_F(Clipboard, ANewDocumentHasTheFormatSubRip) {
  program->documentFiles.New();
  EXPECT_EQ(program->catalogue.Identifier(program->formats.CurrentFormatIndex), u"SUBRIP");
  EXPECT_EQ(List().Rows(), 2);
  EXPECT_TRUE(Window().txtSub.Enabled());
}

TEST(StartFileOf, TakesOnePathOfEightCharactersWithSlashAndDot) {
  struct Case {
    const char16_t *line, *path;
  };
  const Case cases[] = {{u"/tmp/a.b", u"/tmp/a.b"},
                        {u"/t/a.b", u""},
                        {u"", u""},
                        {u"filename.srt", u""},
                        {u"/tmp/noextension", u""},
                        {u"\"/tmp/x y.srt\"", u"/tmp/x y.srt"},
                        {u"\"/a/b.c\" \"/d.e\"", u"/a/b.c /d.e"}};
  for (const Case& c : cases) EXPECT_EQ(StartFileOf(c.line), c.path) << ToUtf8(c.line);
}

TEST_F(StartFolder, IsThatOfTheUsersDocumentsOrFilmsUntilThereIsALastOne) {
  program->folders.Documents = u"/home/user/Documents/";
  program->folders.Films = u"/home/user/Videos/";
  Window().mnuOpenText.Click();
  EXPECT_EQ(dialogs.calls.back().folder, u"/home/user/Documents/");
  Window().mnuOpenVideo.Click();
  EXPECT_EQ(dialogs.calls.back().folder, u"/home/user/Videos/");
  const Text path = SubRip("a.srt", 2);
  program->documentFiles.OpenSubtitleFile(path);
  for (MenuItem* item : {&Window().mnuOpenText, &Window().mnuOpenVideo, &Window().mnuSaveAs}) {
    program->exportDialog.Opened.Connect([&] { program->exportDialog.cmdOK.Click(); });
    item->Click();
    EXPECT_EQ(dialogs.calls.back().folder, FolderOfPath(path));
  }
}

TEST_F(StartFile, TwoPathsAreOnePathThatIsNotFound) {
  const Text one = SubRip("a.srt", 2);
  Restart(u"\"" + one + u"\" \"" + one + u"\"");
  program->OnFirstActivation();
  EXPECT_NE(LastBox().find("was not found."), std::string::npos);
  EXPECT_EQ(program->document.SubtitlePath, u"");
}

TEST_F(StartFile, OpensByTheExtensionBehindTheFirstDot) {
  const Text subtitle = SubRip("a.srt", 2);
  Restart(subtitle);
  program->OnFirstActivation();
  EXPECT_EQ(program->document.SubtitlePath, subtitle);
  const Text film = folder.Write("film.MKV", "x");
  Restart(film);
  program->OnFirstActivation();
  EXPECT_EQ(program->document.VideoPath, film);
  // Two dots make it a subtitle.
  const Text dotted = folder.Write("my.movie.avi", "one\r\n");
  Restart(dotted);
  player.urls.clear();
  program->OnFirstActivation();
  EXPECT_TRUE(player.urls.empty() || player.urls.back().empty());
  EXPECT_NE(LastBox().find("Failed to determine subtitle format"), std::string::npos);
}

TEST_F(StartFile, IsForgottenAfterTheFirstActivation) {
  Restart(SubRip("a.srt", 2));
  program->OnFirstActivation();
  program->documentFiles.Close();
  program->OnFirstActivation();
  EXPECT_EQ(program->document.SubtitlePath, u"");
}

TEST_F(BadInput, EachFileOfNoUseEndsWithABoxAndNoDocument) {
  std::filesystem::create_directory(folder.Path() / "folder.srt");
  const std::string noise = [] {
    std::string bytes;
    unsigned state = 12345;
    for (int i = 0; i < 200000; ++i) bytes += static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
    return bytes;
  }();
  folder.Write("noise.srt", noise);
  folder.Write("empty.srt", "");
  folder.Write("zeros.srt", "");
  std::filesystem::resize_file(folder.Path() / "zeros.srt", 1ull << 30);
  for (const Text& path :
       {folder / "folder.srt", Text(u"/dev/zero"), folder / "noise.srt", folder / "empty.srt", folder / "zeros.srt"}) {
    boxes.shown.clear();
    program->documentFiles.OpenSubtitleFile(path);
    EXPECT_FALSE(boxes.shown.empty()) << ToUtf8(path);
    EXPECT_EQ(program->document.SubtitlePath, u"") << ToUtf8(path);
    EXPECT_FALSE(program->grid.Active());
    EXPECT_TRUE(List().Enabled());
    EXPECT_FALSE(desktop.busy);
  }
}

TEST_F(BadInput, AnEmptyTextSaysSo) {
  program->documentFiles.OpenSubtitleFile(folder.Write("empty.txt", ""));
  EXPECT_NE(LastBox().find("No text found in the selected file"), std::string::npos);
}

TEST_F(BadInput, ATextOfFortyThousandLinesStopsAtTheLimitAndKeepsWhatWasRead) {
  std::string content;
  for (int i = 1; i <= 40000; ++i) content += "line " + std::to_string(i) + "\r\n";
  program->documentFiles.OpenSubtitleFile(folder.Write("long.txt", content));
  EXPECT_EQ(List().Rows() - 1, 32100);
  EXPECT_NE(LastBox().find("reached the limit of 32000 captions"), std::string::npos);
  EXPECT_TRUE(program->document.HasFile());
}

TEST_F(BadInput, AFilmThatCantBePlayedIsTold) {
  Play(folder.Write("film.mkv", "x"));
  player.Fail(u"unrecognized file format");
  EXPECT_NE(LastBox().find("There was an error while loading the movie."), std::string::npos);
  EXPECT_EQ(boxes.shown.back().icon, BoxIcon::Warning);
}

TEST_F(BadInput, AMissingFilmLeavesTheOpenOnePlaying) {
  const Text film = folder.Write("film.mkv", "x");
  Play(film);
  program->playerBinding.LoadVideoFile(folder / "gone.mkv");
  EXPECT_NE(LastBox().find("was not found."), std::string::npos);
  EXPECT_EQ(player.url, film);
  EXPECT_EQ(player.state, kPlayerPlaying);
  EXPECT_EQ(program->document.VideoPath, film);
}

TEST_F(Recalling, APathThatNoLongerExistsIsntOffered) {
  program->documentFiles.OpenSubtitleFile(SubRip("a.srt", 2));
  std::filesystem::remove(folder.Path() / "a.srt");
  Restart({});
  EXPECT_FALSE(Window().mnuTFileName.Visible());
  EXPECT_FALSE(Window().mnuLine0b.Visible());
}

TEST_F(Recalling, APathInABrowsersCacheIsntOffered) {
  std::filesystem::create_directory(folder.Path() / "Temporary INTERNET Files");
  program->documentFiles.OpenSubtitleFile(SubRip("Temporary INTERNET Files/a.srt", 2));
  Restart({});
  EXPECT_FALSE(Window().mnuTFileName.Visible());
}

TEST_F(Recalling, AKeptPathOpensAgain) {
  const Text path = SubRip("a.srt", 2);
  program->documentFiles.OpenSubtitleFile(path);
  Restart({});
  EXPECT_TRUE(Window().mnuTFileName.Visible());
  Window().mnuTFileName.Click();
  EXPECT_EQ(program->document.SubtitlePath, path);
}

TEST(ShortenPath, KeepsShortPathsAndCutsLongOnes) {
  const Text exactly32 = u"/" + Text(27, u'a') + u"/b.c";
  ASSERT_EQ(exactly32.size(), 32u);
  EXPECT_EQ(ShortenPath(exactly32), exactly32);
  EXPECT_EQ(ShortenPath(u"/home/somebody/films/subtitles/good_evening.srt"), u"/.../good_evening.srt");
  const Text oneSlash = u"/" + Text(40, u'a');
  EXPECT_EQ(ShortenPath(oneSlash), oneSlash);
  EXPECT_EQ(ShortenPath(Text(50, u'x')), Text(50, u'x'));
}

TEST(Paths, StripExtensionAndFileNameOf) {
  EXPECT_EQ(StripExtension(u"/a/b.c.srt"), u"/a/b.c");
  EXPECT_EQ(StripExtension(u"none"), u"none");
  EXPECT_EQ(FileNameOf(u"/a/b.srt"), u"b.srt");
  EXPECT_EQ(FileNameOf(u"b.srt"), u"b.srt");
  EXPECT_EQ(FolderOfPath(u"b.srt"), u"");
  EXPECT_EQ(WithSlash(u"/a/"), u"/a/");
  EXPECT_EQ(StartExtension(u"/x/my.movie.AVI"), u"movie.avi");
}

}  // namespace
}  // namespace cuewright
