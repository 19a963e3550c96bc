#include "forms/document_files.h"

#include <algorithm>
#include <cmath>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "external/common_dialogs.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr int kLastClipboardLine = 32000;
constexpr std::uint8_t kPlainTextIndex = 0;

Text Patterns(TextView extensions) { return u"*." + ReplaceAll(extensions, u",", u";*."); }

}  // namespace

DocumentFiles::DocumentFiles(Workbench bench, DocumentFormats formats, DocumentSession& session, Recall& recall,
                             SaveDialogs saving, Ports ports)
    : bench_(bench), formats_(formats), session_(session), recall_(recall), saving_(saving), ports_(ports) {
  Wire();
}

void DocumentFiles::Wire() {
  MainWindow& w = bench_.window;
  w.mnuFile.AboutToShow.Connect([this] { bench_.window.mnuNewClip.SetEnabled(ports_.desktop.ClipboardHasText()); });
  w.mnuNew.Clicked.Connect([this] { New(); });
  w.mnuNewClip.Clicked.Connect([this] { NewFromClipboard(); });
  w.mnuOpenText.Clicked.Connect([this] { OpenText(); });
  w.mnuAppend.Clicked.Connect([this] { Append(); });
  w.mnuSave.Clicked.Connect([this] { Save(); });
  w.mnuSaveAs.Clicked.Connect([this] { SaveAs(); });
  w.mnuClose.Clicked.Connect([this] { Close(); });
  w.mnuTFileName.Clicked.Connect([this] { Open(recall_.Path(u"TFileName")); });
  w.cmdCancel.Clicked.Connect([this] {
    bench_.window.cmdCancel.SetEnabled(false);
    bench_.document.ImportCancelled = true;
  });
}

Text DocumentFiles::Untitled(Message message) const { return WithoutDots(bench_.strings[message]); }

bool DocumentFiles::PromptForSave() {
  if (bench_.document.FileInWork) return false;
  bool thrownAway = false;
  if (!MayLeave(thrownAway)) return false;
  session_.Leave(thrownAway);
  return true;
}

bool DocumentFiles::MayLeave(bool& thrownAway) {
  if (!session_.HasUnsaved()) return true;
  switch (
      ports_.messages.Show({bench_.strings[Message::SaveChangesFirst], BoxIcon::Question, BoxButtons::YesNoCancel})) {
    case BoxAnswer::Yes:
      return SaveBeforeLeaving() || !bench_.options.manner.StaysOpenUnsaved();
    case BoxAnswer::No:
      thrownAway = true;
      return true;
    default:
      return false;
  }
}

bool DocumentFiles::SaveBeforeLeaving() {
  const bool plain = formats_.state.CurrentFormatIndex == kPlainTextIndex;
  const bool over = bench_.document.HasFile() && !(plain && bench_.options.manner.KeepsTheSource());
  return over ? SaveDocument() : SaveAs();
}

void DocumentFiles::New() {
  session_.CloseTools();
  if (!PromptForSave()) return;
  session_.Replace(Text(kNewDocument));
  session_.EmptyList();
  session_.ResetControls();
  formats_.state.CurrentFps = {};
  formats_.state.CurrentFormatIndex = std::max(formats_.catalogue.IndexOf(kSubRip), 0);
  formats_.state.Encoding = DocumentEncoding();
  formats_.state.Source = nullptr;
  session_.Begin(DocumentBaseline::Blank);
  if (Playing()) bench_.window.cmdApply.SetEnabled(true);
}

void DocumentFiles::NewFromClipboard() {
  if (bench_.document.FileInWork) return;
  // When the user cancels the question about unsaved changes, the old document stays, and the lines are added to it.
  New();
  // The desktop's clipboard has bare line ends; text from elsewhere may have both.
  const Text text = ReplaceAll(ports_.desktop.ClipboardText(), kLineEnd, u"\n");
  const std::vector<Text> lines = Split(text, u"\n");
  std::vector<Caption> captions;
  for (std::size_t i = 0; i < lines.size() && i <= kLastClipboardLine; ++i) {
    const TextView line = TrimBlanks(lines[i]);
    if (!line.empty()) captions.push_back({0, 0, Text(line)});
  }
  const EditScope scope(bench_.list, EditKind::FromClipboard);
  if (!captions.empty()) {
    const bool blank = bench_.list.Rows() == 2 && bench_.list.At(1) == Caption{};
    const int whole = CountOf(captions) + (blank ? 0 : bench_.list.Count());
    if (whole > kMaxRow.Number()) {
      ports_.messages.Show({Fill(bench_.strings[Message::ClipboardTooMuch], Decimal(whole), Decimal(kMaxRow.Number())),
                            BoxIcon::Warning});
    } else {
      bench_.list.Replace(blank ? 1 : bench_.list.Rows(), blank ? 1 : 0, std::move(captions));
    }
  }
  bench_.list.SetRow(1, false);
}

void DocumentFiles::OpenText() {
  session_.CloseTools();
  if (!PromptForSave()) return;
  const Text path = OpenFileFilter();
  if (!path.empty()) OpenSubtitleFile(path);
}

Text DocumentFiles::FilterOf(TextView id, TextView fallbackName) const {
  const Text extensions = formats_.catalogue.ReadIni(id, u"extension", u"txt");
  return formats_.catalogue.ReadIni(id, u"name", fallbackName) + u" (" + extensions + u")|" + Patterns(extensions) +
         u"|";
}

Text DocumentFiles::OpenFileFilter() {
  Text all;
  Text each;
  for (int index = 0; index < formats_.catalogue.CountToRead(bench_.options.manner); ++index) {
    const Text& id = formats_.catalogue.Identifier(index);
    if (id.ends_with(u"_RSS")) continue;
    if (!all.empty()) all += u";";
    all += Patterns(formats_.catalogue.ReadIni(id, u"extension", u"txt"));
    each += FilterOf(id, u"Unknown format");
  }
  const Text path = ShowOpenDialog(ports_.fileDialogs, u"All supported formats|" + all + u"|" + each,
                                   Untitled(Message::OpenText), recall_.LastFolder());
  return IsBlank(path) ? Text() : path;
}

void DocumentFiles::Open(const Text& path) {
  session_.CloseTools();
  if (PromptForSave()) OpenSubtitleFile(path);
}

void DocumentFiles::OpenSubtitleFile(TextView given) {
  if (bench_.document.FileInWork) return;
  const Text path(given);
  if (!ports_.files.Exists(path)) {
    ports_.messages.Show({Fill(bench_.strings[Message::FileNotFound], path), BoxIcon::Error});
    return;
  }
  CarryOn step;
  {
    const FileWork work(bench_.document);
    LoadSteps(path, step);
    FinishLoad(step);
  }
  if (bench_.document.HasDocument() && bench_.options.applyWhen != 1) step([&] { RulesDue(); });
  if (step.Last()) {
    ports_.messages.Show({bench_.strings[Message::ErrorDuringLoad] + u"\r\n\r\nError # " +
                              Decimal(step.Last()->number) + u"\r\n" + step.Last()->description,
                          BoxIcon::Warning});
  }
  FileWorkEnded();
}

void DocumentFiles::LoadSteps(const Text& path, CarryOn& step) {
  step([&] { session_.LeavePreview(); });
  session_.Replace(path);
  bench_.window.lblVideoFile.SetText({});
  bench_.list.SetEnabled(false);
  const bool played = Playing();
  if (played) step([&] { ports_.player.Pause(); });
  ports_.desktop.SetBusy(true);
  step([&] { session_.EmptyList(); });
  NoteFilm();
  step([&] { formats_.importer.DetectFormat(path, Loading::NewDocument); });
  bench_.list.SetEnabled(true);
  step([&] { recall_.Keep(u"TFileName", bench_.window.mnuTFileName, path); });
  bench_.document.DocModified = false;
  session_.Begin(DocumentBaseline::File);
  if (played) step([&] { ports_.player.Play(); });
  ports_.desktop.SetBusy(false);
}

void DocumentFiles::Follow(FileStage stage, TextView status) {
  if (!status.empty()) bench_.window.lblTextFile.SetText(status);
  switch (stage) {
    case FileStage::LoadBegins:
      return ShowLoading(true);
    case FileStage::FormatChosen:
    case FileStage::Pauses:
      return ports_.events.Yield();
    case FileStage::LoadEnds:
      return ShowLoading(false);
    case FileStage::SaveBegins:
      saved_ = formats_.state.Encoding;
      bench_.window.lblVideoFile.SetText({});
      return ports_.events.Yield();
    case FileStage::SaveEnds:
      if (formats_.state.Encoding.codePage != saved_.codePage) SavedAsUtf8(saved_);
      return session_.RefreshFileLabels();
  }
}

void DocumentFiles::ShowLoading(bool loading) {
  MainWindow& window = bench_.window;
  for (MenuItem* item : {&window.mnuNew, &window.mnuOpenText, &window.mnuOpenVideo}) item->SetEnabled(!loading);
  // Items of these menus work on captions, which are still being read.
  for (MenuItem* menu : {&window.mnuEdit, &window.mnuFormat, &window.mnuTools}) menu->SetEnabled(!loading);
  window.mnuClose.SetEnabled(!loading && (bench_.document.HasDocument() || bench_.document.HasVideo()));
  window.cmdCancel.SetVisible(loading);
  if (!loading) return;
  for (MenuItem* item : {&window.mnuSave, &window.mnuSaveAs}) item->SetEnabled(false);
  window.cmdCancel.SetEnabled(true);
}

bool DocumentFiles::LoadFailed() const {
  return bench_.document.ImportCancelled || (bench_.list.Rows() == 2 && IsBlank(bench_.list.At(1).text));
}

void DocumentFiles::FinishLoad(CarryOn& step) {
  if (LoadFailed()) {
    step([&] { session_.End(); });
    bench_.document.ImportCancelled = false;
    return;
  }
  step([&] { bench_.list.SetRow(1, false); });
  step([&] { session_.ResetControls(); });
  Loaded();
  step([&] { ports_.events.Yield(); });
  if (bench_.document.HasVideo() && Playing()) bench_.window.cmdApply.SetEnabled(true);
}

void DocumentFiles::Append() {
  if (bench_.document.FileInWork) return;
  if (!bench_.document.HasVideo()) {
    ports_.messages.Show({bench_.strings[Message::AppendNeedsItsVideo], BoxIcon::Warning});
    return;
  }
  const Text path = OpenFileFilter();
  if (path.empty()) return;
  session_.ForgetRules();
  bench_.document.ImportCancelled = false;
  {
    const FileWork work(bench_.document);
    const EditScope scope(bench_.list, EditKind::Append);
    NoteFilm();
    formats_.importer.DetectFormat(path, Loading::Append, RoundToInt32(std::trunc(ports_.player.Duration())));
  }
  bench_.document.ImportCancelled = false;
  recall_.SavePath(path);
  bench_.list.SetRow(bench_.list.Selected(), false);
  session_.ResetControls();
  FileWorkEnded();
}

void DocumentFiles::Save() {
  if (formats_.state.CurrentFormatIndex != kPlainTextIndex && bench_.document.HasFile()) {
    SaveDocument();
  } else {
    SaveAs();
  }
}

bool DocumentFiles::SaveAs() {
  if (bench_.document.FileInWork) return false;
  const FormatState format = formats_.state;
  const FormatDefinition definition = formats_.loader.Definition();
  const Text path = bench_.document.SubtitlePath;
  CarryOn step;
  bool saved = false;
  step([&] { saved = ChooseAndSave(); });
  if (!saved && bench_.options.manner.KeepsTheSource()) {
    formats_.state = format;
    formats_.loader.Definition() = definition;
    if (bench_.document.SubtitlePath != path) {
      bench_.document.SubtitlePath = path;
      session_.RefreshFileLabels();
    }
  }
  return saved;
}

bool DocumentFiles::ChooseAndSave() {
  session_.CloseTools();
  NoteFilm();
  saving_.format.Open(bench_.window.RightToLeft());
  if (!saving_.format.Result() || !saving_.check.AgreesToLosses()) return false;
  const Text id = formats_.catalogue.Identifier(formats_.state.CurrentFormatIndex);
  const Text extensions = ToLower(formats_.catalogue.ReadIni(id, u"extension", u"txt"));
  const Text filter =
      formats_.catalogue.ReadIni(id, u"name", {}) + u" (" + extensions + u")|" + Patterns(extensions) + u"|";
  Text proposal;
  if (bench_.document.HasFile()) {
    proposal = StripExtension(FileNameOf(bench_.document.SubtitlePath)) + u"." + extensions;
  } else if (bench_.document.HasVideo()) {
    proposal = StripExtension(FileNameOf(bench_.document.VideoPath)) + u"." + extensions;
  }
  const Text chosen =
      ShowSaveDialog(ports_.fileDialogs, filter, Untitled(Message::SaveAs), recall_.LastFolder(), proposal);
  Text path(TrimBlanks(chosen));
  if (path.empty()) return false;
  const Text first = u"." + Split(extensions, u",")[0];
  if (!path.ends_with(first)) path += first;
  if (path != chosen && !MayReplace(path)) return false;
  bench_.document.SubtitlePath = path;
  return SaveDocument();
}

bool DocumentFiles::MayReplace(const Text& path) {
  if (!ports_.files.Exists(path)) return true;
  const Text question = Fill(bench_.strings[Message::ReplaceExisting], path);
  return ports_.messages.Show({question, BoxIcon::Warning, BoxButtons::YesNo, Untitled(Message::SaveAs)}) ==
         BoxAnswer::Yes;
}

bool DocumentFiles::SaveDocument() {
  if (bench_.document.FileInWork) return false;
  Row lastRow = bench_.list.Rows() - 1;
  Row untimed = 1;
  while (untimed < bench_.list.Rows() && bench_.list.IsCaptionTimed(untimed)) ++untimed;
  if (untimed < bench_.list.Rows()) {
    Text question =
        bench_.strings[Message::CaptionsWithoutTiming] + u"\r\n\r\n" + bench_.strings[Message::YesSavesAllNoSavesTimed];
    // The answer "No" leaves captions out of the file, so Escape must mean Cancel and not No.
    const bool mayCancel = bench_.options.manner.EscapeIsHarmless();
    if (mayCancel) question += u" " + bench_.strings[Message::CancelSavesNothing];
    const BoxButtons buttons = mayCancel ? BoxButtons::YesNoCancel : BoxButtons::YesNo;
    const BoxAnswer answer = ports_.messages.Show({question, BoxIcon::Question, buttons});
    if (mayCancel && answer == BoxAnswer::Cancel) return false;
    if (answer != BoxAnswer::Yes) lastRow = untimed - 1;
  }
  if (!saving_.check.AgreesToEncoding(lastRow)) return false;
  const Text path = bench_.document.SubtitlePath;
  const auto remember = [&] { recall_.Keep(u"TFileName", bench_.window.mnuTFileName, path); };
  // Today's manner remembers the path only once the file has been written.
  const bool first = !bench_.options.manner.KeepsTheSource();
  if (first) remember();
  bench_.window.lblTextFile.SetText(bench_.strings[Message::CurrentSubtitleFile] +
                                    InItsOrder(bench_.strings[Message::CurrentSubtitleFile], ToLower(path)));
  session_.ForgetTold();
  bool written = false;
  {
    const FileWork work(bench_.document);
    written = formats_.exporter.ExportSubtitle(lastRow);
  }
  if (written) {
    if (!first) remember();
    Saved(HoldsAll(lastRow));
  }
  FileWorkEnded();
  return written;
}

bool DocumentFiles::HoldsAll(Row lastRow) const {
  if (formats_.state.CurrentFormatIndex != kPlainTextIndex) return lastRow == bench_.list.Rows() - 1;
  // A plain text is written with all captions, whatever the user answered, but without their times.
  for (Row row = 1; row < bench_.list.Rows(); ++row) {
    if (bench_.list.At(row).start != 0 || bench_.list.At(row).end != 0) return false;
  }
  return true;
}

void DocumentFiles::Close() {
  if (PromptForSave()) session_.CloseDocuments();
}

}  // namespace cuewright
