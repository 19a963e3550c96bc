#include "forms/file_actions.h"

#include <algorithm>

#include "core/paths.h"
#include "core/runtime_error.h"
#include "external/common_dialogs.h"

namespace cuewright {
namespace {

constexpr int kLastClipboardLine = 32000;
constexpr std::uint8_t kPlainTextIndex = 0;

constexpr TextView kVideoFilter =
    u"All media types|*.mpeg;*.mpg;*.mpe;*.m1v;*.mp2v;*.mpeg2;*.mp4;*.wmv;*.wm;*.asf;*.avi;*.divx;*.xvid;*.mkv;*.ogm|"
    u"Movie file (mpeg, mpg, mpe, m1v, mp2v, mpeg2, mp4)|*.mpeg;*.mpg;*.mpe;*.m1v;*.mp2v;*.mpeg2;*.mp4|"
    u"Windows Media files (wmv, wm, asf)|*.wmv;*.wm;*.asf|"
    u"Video files (avi, divx, xvid)|*.avi;*.divx;*.xvid|"
    u"Other container formats (mkv, ogm)|*.mkv;*.ogm|"
    u"All files|*.*";

Text Patterns(TextView extensions) { return u"*." + ReplaceAll(extensions, u",", u";*."); }

}  // namespace

FileActions::FileActions(FileActionParts parts, Ports ports) : p_(parts), ports_(ports) { Wire(); }

void FileActions::Wire() {
  MainWindow& w = p_.window;
  w.mnuFile.AboutToShow.Connect([this] { p_.window.mnuNewClip.SetEnabled(ports_.desktop.ClipboardHasText()); });
  w.mnuNew.Clicked.Connect([this] { New(); });
  w.mnuNewClip.Clicked.Connect([this] { NewFromClipboard(); });
  w.mnuOpenText.Clicked.Connect([this] { OpenText(); });
  w.mnuOpenVideo.Clicked.Connect([this] { OpenVideo(); });
  w.mnuAppend.Clicked.Connect([this] { Append(); });
  w.mnuSave.Clicked.Connect([this] { Save(); });
  w.mnuSaveAs.Clicked.Connect([this] { SaveAs(); });
  w.mnuClose.Clicked.Connect([this] { Close(); });
  w.mnuTFileName.Clicked.Connect([this] { OpenAs(FileKind::Subtitle, p_.recall.Path(u"TFileName")); });
  w.mnuVFileName.Clicked.Connect([this] { p_.playerBinding.LoadVideoFile(p_.recall.Path(u"VFileName")); });
  w.cmdCancel.Clicked.Connect([this] {
    p_.window.cmdCancel.SetEnabled(false);
    p_.document.ImportCancelled = true;
  });
}

Text FileActions::Untitled(Message message) const { return ReplaceAll(p_.strings[message], u"...", {}); }

bool FileActions::HasUnsaved() const {
  if (p_.options.manner.AsksWhenCaptionsDiffer()) return p_.history.Differs();
  return p_.list.Rows() >= 3 && p_.document.DocModified;
}

bool FileActions::PromptForSave() {
  if (p_.document.FileInWork) return false;
  bool thrownAway = false;
  if (!MayLeave(thrownAway)) return false;
  Leaving(thrownAway);
  return true;
}

bool FileActions::MayLeave(bool& thrownAway) {
  if (!HasUnsaved()) return true;
  switch (ports_.messages.Show({p_.strings[Message::SaveChangesFirst], BoxIcon::Question, BoxButtons::YesNoCancel})) {
    case BoxAnswer::Yes:
      return SaveBeforeLeaving() || !p_.options.manner.StaysOpenUnsaved();
    case BoxAnswer::No:
      thrownAway = true;
      return true;
    default:
      return false;
  }
}

bool FileActions::SaveBeforeLeaving() {
  const bool plain = p_.formats.CurrentFormatIndex == kPlainTextIndex;
  const bool over = p_.document.HasFile() && !(plain && p_.options.manner.KeepsTheSource());
  return over ? SaveDocument() : SaveAs();
}

void FileActions::New() {
  closeTools();
  if (!PromptForSave()) return;
  p_.formats.CurrentFps = 0;
  p_.document.SubtitlePath = kNewDocument;
  p_.capture.Reset();
  p_.panel.ResetGrid(true);
  Left();
  resetRuleReport();
  resetControls();
  p_.formats.CurrentFormatIndex = static_cast<std::uint8_t>(std::max(p_.catalogue.IndexOf(kSubRip), 0));
  p_.formats.Encoding = DocumentEncoding();
  DocumentOpened();
  if (Playing()) p_.window.cmdApply.SetEnabled(true);
}

void FileActions::NewFromClipboard() {
  if (p_.document.FileInWork) return;
  // A cancelled question leaves the old document open, and the lines go to its bottom.
  New();
  // The desktop's clipboard has bare line ends; text from elsewhere may have both.
  const Text text = ReplaceAll(ports_.desktop.ClipboardText(), kLineEnd, u"\n");
  const std::vector<Text> lines = Split(text, u"\n");
  std::vector<Caption> captions;
  for (std::size_t i = 0; i < lines.size() && i <= kLastClipboardLine; ++i) {
    const TextView line = TrimBlanks(lines[i]);
    if (!line.empty()) captions.push_back({0, 0, Text(line)});
  }
  const EditScope scope(p_.list, EditKind::FromClipboard);
  if (!captions.empty()) {
    const bool blank = p_.list.Rows() == 2 && p_.list.At(1) == Caption{};
    const auto whole = static_cast<long long>(captions.size()) + (blank ? 0 : p_.list.Rows() - 1);
    if (whole > kMaxRow) {
      ports_.messages.Show(
          {Fill(p_.strings[Message::ClipboardTooMuch], Decimal(whole), Decimal(kMaxRow)), BoxIcon::Warning});
    } else {
      p_.list.Replace(blank ? 1 : p_.list.Rows(), blank ? 1 : 0, std::move(captions));
    }
  }
  p_.list.SetRow(1, false);
}

void FileActions::OpenText() {
  closeTools();
  if (!PromptForSave()) return;
  const Text path = OpenFileFilter();
  if (!path.empty()) OpenSubtitleFile(path);
}

Text FileActions::FilterOf(TextView id, TextView fallbackName) const {
  const Text extensions = p_.catalogue.ReadIni(id, u"extension", u"txt");
  return p_.catalogue.ReadIni(id, u"name", fallbackName) + u" (" + extensions + u")|" + Patterns(extensions) + u"|";
}

Text FileActions::OpenFileFilter() {
  Text all;
  Text each;
  for (int index = 0; index < p_.catalogue.Count(); ++index) {
    const Text& id = p_.catalogue.Identifier(index);
    if (id.ends_with(u"_RSS")) continue;
    if (!all.empty()) all += u";";
    all += Patterns(p_.catalogue.ReadIni(id, u"extension", u"txt"));
    each += FilterOf(id, u"Unknown format");
  }
  const Text path = ShowOpenDialog(ports_.fileDialogs, u"All supported formats|" + all + u"|" + each,
                                   Untitled(Message::OpenText), p_.recall.LastFolder());
  return IsBlank(path) ? Text() : path;
}

void FileActions::OpenSubtitleFile(TextView given) {
  if (p_.document.FileInWork) return;
  const Text path(given);
  if (!ports_.files.Exists(path)) {
    ports_.messages.Show({Fill(p_.strings[Message::FileNotFound], path), BoxIcon::Error});
    return;
  }
  CarryOn step;
  {
    const FileWork work(p_.document);
    LoadSteps(path, step);
    FinishLoad(step);
  }
  if (p_.document.HasDocument() && p_.options.applyWhen != 1) step([&] { applyRulesOnLoad(); });
  if (step.Last()) {
    ports_.messages.Show({p_.strings[Message::ErrorDuringLoad] + u"\r\n\r\nError # " + Decimal(step.Last()->number) +
                              u"\r\n" + step.Last()->description,
                          BoxIcon::Warning});
  }
  FileWorkEnded();
}

void FileActions::LoadSteps(const Text& path, CarryOn& step) {
  if (p_.window.optPreview.Value()) step([&] { p_.capture.SelectMode(CaptionMode::PressAndHold); });
  p_.document.SubtitlePath = path;
  p_.document.ImportCancelled = false;
  p_.capture.Reset();
  p_.window.lblVideoFile.SetText({});
  p_.list.SetEnabled(false);
  Left();
  const bool played = Playing();
  if (played) step([&] { ports_.player.Pause(); });
  ports_.desktop.SetBusy(true);
  step([&] { p_.panel.ResetGrid(true); });
  step([&] { resetRuleReport(); });
  step([&] { p_.importer.DetectFormat(path, false, false); });
  p_.list.SetEnabled(true);
  step([&] { p_.recall.Keep(u"TFileName", p_.window.mnuTFileName, path); });
  p_.document.DocModified = false;
  DocumentOpened();
  if (played) step([&] { ports_.player.Play(); });
  ports_.desktop.SetBusy(false);
}

bool FileActions::LoadFailed() const {
  return p_.document.ImportCancelled || (p_.list.Rows() == 2 && IsBlank(p_.list.At(1).text));
}

void FileActions::FinishLoad(CarryOn& step) {
  if (LoadFailed()) {
    p_.document.SubtitlePath.clear();
    step([&] { p_.panel.ResetGrid(false); });
    step([&] { resetControls(); });
    p_.document.ImportCancelled = false;
    DocumentClosed();
    return;
  }
  step([&] { p_.list.SetRow(1, false); });
  step([&] { resetControls(); });
  Loaded();
  step([&] { ports_.events.Yield(); });
  if (p_.document.HasVideo() && Playing()) p_.window.cmdApply.SetEnabled(true);
}

void FileActions::OpenVideo() {
  if (p_.document.FileInWork) return;
  p_.store.SaveSetting(kMainSection, u"Volume", Decimal(ports_.player.Volume()));
  closeTools();
  const Text path = ShowOpenDialog(ports_.fileDialogs, kVideoFilter, Untitled(Message::OpenVideo),
                                   p_.recall.LastFolder(FileKind::Film));
  if (!IsBlank(path)) p_.playerBinding.LoadVideoFile(path);
}

void FileActions::Append() {
  if (p_.document.FileInWork) return;
  if (!p_.document.HasVideo()) {
    ports_.messages.Show({p_.strings[Message::AppendNeedsItsVideo], BoxIcon::Warning});
    return;
  }
  const Text path = OpenFileFilter();
  if (path.empty()) return;
  resetRuleReport();
  p_.document.ImportCancelled = false;
  {
    const FileWork work(p_.document);
    const EditScope scope(p_.list, EditKind::Append);
    p_.importer.DetectFormat(path, false, true);
  }
  p_.document.ImportCancelled = false;
  p_.recall.SavePath(path);
  p_.list.SetRow(p_.list.Selected(), false);
  resetControls();
  FileWorkEnded();
}

void FileActions::Save() {
  if (p_.formats.CurrentFormatIndex != kPlainTextIndex && p_.document.HasFile()) {
    SaveDocument();
  } else {
    SaveAs();
  }
}

bool FileActions::SaveAs() {
  if (p_.document.FileInWork) return false;
  const FormatState format = p_.formats;
  const FormatDefinition definition = p_.loader.Definition();
  const Text path = p_.document.SubtitlePath;
  CarryOn step;
  bool saved = false;
  step([&] { saved = ChooseAndSave(); });
  if (!saved && p_.options.manner.KeepsTheSource()) {
    p_.formats = format;
    p_.loader.Definition() = definition;
    if (p_.document.SubtitlePath != path) {
      p_.document.SubtitlePath = path;
      refreshFileLabels();
    }
  }
  return saved;
}

bool FileActions::ChooseAndSave() {
  closeTools();
  if (!chooseFormat()) return false;
  const Text id = p_.catalogue.Identifier(p_.formats.CurrentFormatIndex);
  const Text extensions = ToLower(p_.catalogue.ReadIni(id, u"extension", u"txt"));
  const Text filter = p_.catalogue.ReadIni(id, u"name", {}) + u" (" + extensions + u")|" + Patterns(extensions) + u"|";
  Text proposal;
  if (p_.document.HasFile()) {
    proposal = StripExtension(FileNameOf(p_.document.SubtitlePath)) + u"." + extensions;
  } else if (p_.document.HasVideo()) {
    proposal = StripExtension(FileNameOf(p_.document.VideoPath)) + u"." + extensions;
  }
  const Text chosen =
      ShowSaveDialog(ports_.fileDialogs, filter, Untitled(Message::SaveAs), p_.recall.LastFolder(), proposal);
  Text path(TrimBlanks(chosen));
  if (path.empty()) return false;
  const Text first = u"." + Split(extensions, u",")[0];
  if (!path.ends_with(first)) path += first;
  if (path != chosen && !MayReplace(path)) return false;
  p_.document.SubtitlePath = path;
  return SaveDocument();
}

bool FileActions::MayReplace(const Text& path) {
  if (!ports_.files.Exists(path)) return true;
  const Text question = Fill(p_.strings[Message::ReplaceExisting], path);
  return ports_.messages.Show({question, BoxIcon::Warning, BoxButtons::YesNo, Untitled(Message::SaveAs)}) ==
         BoxAnswer::Yes;
}

bool FileActions::SaveDocument() {
  if (p_.document.FileInWork) return false;
  Row lastRow = p_.list.Rows() - 1;
  Row untimed = 1;
  while (untimed < p_.list.Rows() && p_.list.IsCaptionTimed(untimed)) ++untimed;
  if (untimed < p_.list.Rows()) {
    Text question =
        p_.strings[Message::CaptionsWithoutTiming] + u"\r\n\r\n" + p_.strings[Message::YesSavesAllNoSavesTimed];
    // No leaves captions out of the file: who only wants the box away must not lose them.
    const bool mayCancel = p_.options.manner.EscapeIsHarmless();
    if (mayCancel) question += u" " + p_.strings[Message::CancelSavesNothing];
    const BoxButtons buttons = mayCancel ? BoxButtons::YesNoCancel : BoxButtons::YesNo;
    const BoxAnswer answer = ports_.messages.Show({question, BoxIcon::Question, buttons});
    if (mayCancel && answer == BoxAnswer::Cancel) return false;
    if (answer != BoxAnswer::Yes) lastRow = untimed - 1;
  }
  const Text path = p_.document.SubtitlePath;
  const auto remember = [&] { p_.recall.Keep(u"TFileName", p_.window.mnuTFileName, path); };
  // A path under which nothing was written is none to come back to.
  const bool first = !p_.options.manner.KeepsTheSource();
  if (first) remember();
  p_.window.lblTextFile.SetText(p_.strings[Message::CurrentSubtitleFile] +
                                InItsOrder(p_.strings[Message::CurrentSubtitleFile], ToLower(path)));
  Left();
  bool written = false;
  {
    const FileWork work(p_.document);
    written = p_.exporter.ExportSubtitle(static_cast<std::int16_t>(lastRow));
  }
  if (written) {
    if (!first) remember();
    Saved(HoldsAll(lastRow));
  }
  FileWorkEnded();
  return written;
}

bool FileActions::HoldsAll(Row lastRow) const {
  if (p_.formats.CurrentFormatIndex != kPlainTextIndex) return lastRow == p_.list.Rows() - 1;
  // A plain text gets all captions, whatever the answer was, and none of their times.
  for (Row row = 1; row < p_.list.Rows(); ++row) {
    if (p_.list.At(row).start != 0 || p_.list.At(row).end != 0) return false;
  }
  return true;
}

void FileActions::Close() {
  if (PromptForSave()) CloseDocuments();
}

void FileActions::CloseDocuments() {
  closeWave();
  p_.window.tmrTime.SetEnabled(false);
  p_.capture.Reset();
  p_.capture.SelectMode(CaptionMode::PressAndHold);
  p_.document.SubtitlePath.clear();
  p_.document.VideoPath.clear();
  p_.document.WavePath.clear();
  p_.playerBinding.Empty();
  p_.panel.ResetGrid(false);
  Left();
  resetControls();
  restoreFilter();
  closeTools();
  p_.sub.Unload();
  DocumentClosed();
}

void FileActions::OpenAs(FileKind kind, const Text& path) {
  switch (kind) {
    case FileKind::Film:
      return p_.playerBinding.LoadVideoFile(path);
    case FileKind::Sound:
      return openAudioFile(path);
    case FileKind::Subtitle:
      closeTools();
      if (PromptForSave()) OpenSubtitleFile(path);
  }
}

void FileActions::OpenDropped(const std::vector<Text>& paths) {
  if (p_.document.FileInWork) return;
  Text text;
  for (const Text& path : paths) {
    const FileKind kind = KindOfFile(path);
    if (kind == FileKind::Subtitle) {
      text = path;
    } else {
      OpenAs(kind, path);
    }
  }
  if (!text.empty()) OpenAs(FileKind::Subtitle, text);
}

void FileActions::OpenStartFile(TextView path) {
  const Text extension = StartExtension(path);
  for (const TextView video : {u"asf", u"mkv", u"mpeg", u"mpg", u"mp4", u"avi", u"ogm", u"wmv"}) {
    if (extension == video) return p_.playerBinding.LoadVideoFile(path);
  }
  for (const TextView audio : {u"wav", u"mp2", u"mp3"}) {
    if (extension == audio) return openAudioFile(path);
  }
  OpenSubtitleFile(path);
}

}  // namespace cuewright
