#include "formats/import.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "formats/doubtful_file.h"
#include "formats/encoding_rules.h"
#include "formats/rate_line.h"
#include "formats/rate_question.h"
#include "formats/source/catalogue_format.h"
#include "formats/source/ebu_format.h"
#include "formats/source/record_watch.h"
#include "formats/source/sami_format.h"
#include "formats/timecode.h"
#include "text/labels.h"

namespace cuewright {
namespace {

/// Run-time error 6 when the time doesn't fit.
Ms Later(Ms time, Ms by) { return (Checked32(time.Count()) + Checked32(by.Count())).Value(); }

/// A file whose name ends so is plain text when no format fits; in lower case only.
constexpr TextView kPlainTextEnding = u"txt";

}  // namespace

Importer::Importer(const FormatSet& formats, const FormatTalk& talk, CaptionList& captions, const FileAccess& access,
                   bool& cancelled)
    : formats_(formats),
      talk_(talk),
      captions_(captions),
      access_(access),
      cancelled_(cancelled),
      recogniser_(formats, access.encodings, captions.Options().manner),
      lines_(formats, talk, access.encodings, cancelled),
      source_(talk, cancelled) {}

std::optional<TextFile> Importer::Open(TextView path, CarryOn& errors) {
  lines_.Clear();
  source_.Clear();
  std::optional<TextFile> file;
  errors([&] {
    std::string bytes = access_.files.Read(path, kLargestTextFile);
    const bool published = captions_.Options().manner.ReadsByPublishedRules();
    if (published && IsEbuHead(bytes)) {
      file = TextFile::OfBytes(std::move(bytes));
      return;
    }
    if (codePage_) {
      file = TextFile::As(std::move(bytes), *codePage_);
      return;
    }
    if (EqualLoose(captions_.Options().readAs, u"classic")) {
      file = TextFile::Classic(std::move(bytes), access_.encodings);
      return;
    }
    if (const std::optional<int> declared = published ? DeclaredCodePage(bytes) : std::nullopt) {
      file = TextFile::As(std::move(bytes), *declared);
      return;
    }
    const auto untold = published ? TextFile::Untold::Unicode : TextFile::Untold::SystemsCodePage;
    file = TextFile::Auto(std::move(bytes), access_.encodings, untold);
  });
  return file;
}

void Importer::DetectFormat(TextView path, Loading loading, std::int32_t mediaSeconds) {
  mediaSeconds_ = mediaSeconds;
  if (loading == Loading::NewDocument) {
    (void)Detect(Text(path), loading);
    return;
  }
  // Appended captions do not change how the document is written.
  const FormatState state = formats_.state;
  const FormatDefinition definition = formats_.loader.Definition();
  const bool appended = Detect(Text(path), loading);
  formats_.state = state;
  // A plain text that replaced the document was not read from the document's file.
  if (!appended) formats_.state.Source = nullptr;
  formats_.loader.Definition() = definition;
}

bool Importer::Detect(const Text& path, Loading loading) {
  CarryOn errors;
  std::optional<TextFile> file = Open(path, errors);
  if (const std::optional<bool> wide = recogniser_.Settle(file ? &*file : nullptr, errors)) {
    if (!file || *wide || ChooseFormat(SettleRivals(*file), *file)) {
      ImportFile(path, std::move(file), *wide, loading, errors);
    }
    return true;
  }
  // A plain text replaces the document, unless it can't be read.
  if (!path.ends_with(kPlainTextEnding) || (loading == Loading::Append && !file)) {
    Reject(path, errors);
    return true;
  }
  errors([&] { formats_.loader.LoadFormatDefinition(kPlainText); });
  ImportFile(path, std::move(file), false, Loading::NewDocument, errors);
  return false;
}

std::optional<int> Importer::SettleFormat(TextView path) {
  CarryOn errors;
  std::optional<TextFile> file = Open(path, errors);
  const std::optional<bool> wide = file ? recogniser_.Settle(&*file, errors) : std::nullopt;
  if (file && (wide || path.ends_with(kPlainTextEnding))) {
    if (wide && !*wide) (void)SettleRivals(*file);
    return formats_.state.CurrentFormatIndex;
  }
  if (file) {
    Reject(path, errors);
  } else {
    TellError(path, errors);
  }
  return {};
}

std::vector<int> Importer::SettleRivals(const TextFile& file) {
  FormatState& state = formats_.state;
  const int settled = state.CurrentFormatIndex;
  if (recogniser_.AlsoFitting().empty()) return {settled};
  const FormatState before = state;
  const FormatDefinition definition = formats_.loader.Definition();
  std::vector<TrialReading> trials = {TryFormat(settled, file)};
  for (const FormatRecogniser::Fit& fit : recogniser_.AlsoFitting()) {
    PutInForce(fit.format);
    trials.push_back(TryFormat(fit.format, file));
  }
  state = before;
  formats_.loader.Definition() = definition;
  lines_.Clear();
  source_.Clear();
  std::vector<int> fitting = BestFitting(std::move(trials));
  PutInForce(fitting.front());
  return fitting;
}

void Importer::PutInForce(int format) {
  for (const FormatRecogniser::Fit& fit : recogniser_.AlsoFitting()) {
    if (fit.format != format) continue;
    formats_.state.CurrentFormatIndex = format;
    formats_.loader.Definition() = fit.definition;
  }
}

TrialReading Importer::TryFormat(int format, const TextFile& file) {
  FormatState& state = formats_.state;
  state.Source = nullptr;
  state.CurrentFps = kRateOfTrials;
  CarryOn ignored;
  TrialReading trial;
  trial.format = format;
  const Text& times = formats_.loader.Definition().timecodeTemplate;
  trial.countsFrames = times.find(u"ff") != Text::npos && times.find(u"ss") != Text::npos;
  trial.rows = ReadRows(BeginningOf(file), false, ignored);
  trial.notUnderstood = state.Source ? state.Source->LinesNotUnderstood().size() : 0;
  return trial;
}

bool Importer::ChooseFormat(const std::vector<int>& formats, const TextFile& file) {
  if (formats.size() < 2) return true;
  const auto name = [&](int format) { return formats_.catalogue.DisplayName(formats_.catalogue.Identifier(format)); };
  Text names;
  for (const int format : formats) names += (names.empty() ? u"" : u", ") + name(format);
  for (const int format : formats) {
    const BoxButtons buttons = format == formats.back() ? BoxButtons::YesNo : BoxButtons::YesNoCancel;
    const Text question = Fill(talk_.strings[Message::FormatsFitAlike], names, name(format));
    const BoxAnswer answer = AskAbout(file, question, BoxIcon::Question, buttons);
    if (answer == BoxAnswer::Yes) {
      PutInForce(format);
      return true;
    }
    if (answer == BoxAnswer::Cancel) break;
  }
  cancelled_ = true;
  return false;
}

BoxAnswer Importer::AskAbout(const TextFile& file, Text question, BoxIcon icon, BoxButtons buttons) {
  question.append(kLineEnd).append(kLineEnd).append(FirstLines(file));
  return talk_.messages.Show(
      {std::move(question), icon, buttons, WithoutDots(talk_.strings[Message::OpenText]), icon == BoxIcon::Warning});
}

void Importer::Reject(TextView path, const CarryOn& errors) {
  talk_.messages.Show({talk_.strings[Message::FormatNotDetermined], BoxIcon::Error, BoxButtons::Ok, {}});
  TellError(path, errors);
}

void Importer::ImportSubtitle(TextView path, Loading loading) {
  CarryOn errors;
  std::optional<TextFile> file = Open(path, errors);
  ImportFile(Text(path), std::move(file), false, loading, errors);
}

void Importer::RestoreSource(const JournalSource& kept) {
  FormatState& state = formats_.state;
  state.Source = nullptr;
  const std::vector<Text> format = Split(kept.format, kBeforeClass);
  const int index = formats_.catalogue.IndexOf(format.front());
  if (kept.bytes.empty() || index < 0) return;
  const FormatState before = state;
  const FormatDefinition definition = formats_.loader.Definition();
  CarryOn errors;
  TextFile file = TextFile::Kept(kept.bytes, {kept.codePage, kept.mark});
  const bool settled = recogniser_.Settle(&file, errors).has_value();
  if (settled) PutInForce(index);
  if (settled && state.CurrentFormatIndex == index) {
    state.CurrentFps = kept.fps;
    captionClass_ = format.size() > 1 ? format[1] : Text();
    (void)ReadRows(std::move(file), false, errors);
  }
  const std::shared_ptr<const SourceMap> map = std::exchange(state.Source, nullptr);
  state = before;
  formats_.loader.Definition() = definition;
  state.Source = map;
}

void Importer::ImportFile(const Text& path, std::optional<TextFile> file, bool wide, Loading loading, CarryOn& errors) {
  FormatState& state = formats_.state;
  if (loading == Loading::NewDocument) {
    BeginImport();
    appendOffset_ = 0;
    // A file of bytes has no encoding of text, so the document gets the usual one.
    if (file) state.Encoding = file->IsText() ? file->Encoding() : DocumentEncoding();
  }
  if (ReadFrameRate(file ? &*file : nullptr) && (!file || ChooseClass(*file))) {
    std::vector<Caption> rows;
    std::shared_ptr<const SourceMap> document = std::exchange(state.Source, nullptr);
    if (file) rows = ReadRows(std::move(*file), wide, errors);
    state.SettingsFormatIndex = state.CurrentFormatIndex;
    const bool wanted = IsWanted(rows, state.Source.get());
    if (loading == Loading::Append) {
      // The document's captions keep the places in their own file; appended ones belong to no file.
      state.Source = std::move(document);
      for (Caption& row : rows) row.origin = 0;
    } else if (!wanted) {
      state.Source = nullptr;
    }
    if (wanted) FillList(std::move(rows), loading, errors);
  }
  talk_.Report(FileStage::LoadEnds);
  TellError(path, errors);
}

std::vector<Caption> Importer::ReadRows(TextFile file, bool wide, CarryOn& errors) {
  const Manner& manner = captions_.Options().manner;
  const Text id = formats_.CurrentIdentifier();
  const bool keep = manner.KeepsTheFile() && !wide;
  if (!wide && manner.ReadsByPublishedRules()) {
    if (std::unique_ptr<SourceFormat> rules = MakeSourceFormat(id, RulesSettings())) {
      auto map = std::make_shared<SourceMap>(id, std::move(file), std::move(rules));
      map->SetCaptionClass(captionClass_);
      return ReadByRules(map, keep, errors);
    }
  }
  const Text& separator = captions_.Options().lineSeparator;
  LineOrders orders{wide, recogniser_.TimecodeLiteral(), captions_.Rows() == 2};
  orders.exactTimes = manner.TimesAreExact();
  std::unique_ptr<CatalogueFormat> rules;
  const TimeRules times{formats_.state.CurrentFps, orders.exactTimes};
  if (keep) rules = std::make_unique<CatalogueFormat>(formats_.loader.Definition(), id, times);
  if (id != kSubStationAlpha && id != kAdvancedSsa) orders.pieces = CutRecord(formats_.loader.Definition(), errors);
  if (!keep) return lines_.Read(file, orders, separator, errors);
  RecordWatch watch(rules->LinesBeforeStart());
  orders.watch = &watch;
  std::vector<Caption> rows = lines_.Read(file, orders, separator, errors);
  auto map = std::make_shared<SourceMap>(id, std::move(file), nullptr);
  map->TakeWatched(watch, std::move(rules), separator, rows);
  map->SetFps(formats_.state.CurrentFps);
  formats_.state.Source = std::move(map);
  return rows;
}

SourceSettings Importer::RulesSettings() const {
  SourceSettings settings;
  settings.durationPerCharacter = captions_.Options().durationPerCharacter;
  if (formats_.state.CurrentFps) settings.rate = formats_.state.CurrentFps;
  settings.captionClass = captionClass_;
  return settings;
}

bool Importer::ChooseClass(const TextFile& file) {
  captionClass_.clear();
  if (formats_.CurrentIdentifier() != kSami || !captions_.Options().manner.ReadsByPublishedRules()) return true;
  const std::vector<Text> classes = SamiClasses(file.Bytes());
  if (classes.size() < 2) return true;
  Text names;
  for (const Text& name : classes) names += (names.empty() ? u"" : u", ") + name;
  const LangStrings& strings = talk_.strings;
  const InputBox question{Fill(strings[Message::SeveralClasses], names), WithoutDots(strings[Message::OpenText]),
                          classes.front()};
  for (;;) {
    const Text answer(TrimBlanks(talk_.messages.Ask(question)));
    if (answer.empty()) {
      cancelled_ = true;
      return false;
    }
    const auto chosen = std::ranges::find_if(classes, [&](const Text& name) { return EqualLoose(name, answer); });
    if (chosen == classes.end()) continue;
    captionClass_ = *chosen;
    return true;
  }
}

bool Importer::IsWanted(const std::vector<Caption>& rows, const SourceMap* map) {
  if (rows.empty() || map == nullptr || !captions_.Options().manner.TellsWhatIsLost() || !IsDoubtful(*map)) return true;
  const Text question = Fill(talk_.strings[Message::FormatDoubtful], formats_.catalogue.DisplayName(map->Format()));
  if (AskAbout(map->File(), question, BoxIcon::Warning, BoxButtons::YesNo) == BoxAnswer::Yes) return true;
  cancelled_ = true;
  return false;
}

std::vector<Caption> Importer::ReadByRules(const std::shared_ptr<SourceMap>& map, bool keep, CarryOn& errors) {
  std::vector<Caption> rows = source_.Read(*map, captions_.Options().lineSeparator, errors);
  if (keep) {
    map->SetFps(formats_.state.CurrentFps);
    formats_.state.Source = map;
  } else {
    for (Caption& row : rows) row.origin = 0;
  }
  return rows;
}

void Importer::BeginImport() {
  const Text name = formats_.catalogue.DisplayName(formats_.CurrentIdentifier());
  talk_.Report(FileStage::LoadBegins, Fill(talk_.strings[Message::ImportingFile], name));
  captions_.Reset();
  formats_.state.Source = nullptr;
  talk_.Report(FileStage::Pauses);
}

bool Importer::ReadFrameRate(TextFile* file) {
  FormatState& state = formats_.state;
  state.CurrentFps = {};
  if (formats_.loader.Definition().timecodeTemplate.find(u"ff") == Text::npos) return true;
  const bool tellsRate = captions_.Options().manner.TimesAreExact() && formats_.CurrentIdentifier() == kMicroDvd;
  if (tellsRate && file != nullptr) state.CurrentFps = RateInFirstLine(*file);
  if (!state.CurrentFps) state.CurrentFps = PromptForFps();
  if (!state.CurrentFps) cancelled_ = true;
  return state.CurrentFps != FrameRate();
}

FrameRate Importer::PromptForFps() {
  RateQuestion question;
  question.format = formats_.catalogue.DisplayName(formats_.CurrentIdentifier());
  question.film = formats_.state.FilmFps;
  question.exact = captions_.Options().manner.TimesAreExact();
  return AskFrameRate(talk_, question);
}

void Importer::FillList(std::vector<Caption> rows, Loading loading, CarryOn& errors) {
  const LangStrings& strings = talk_.strings;
  if (rows.empty()) {
    Text text = strings[Message::NoTextInFile];
    text.append(kLineEnd).append(kLineEnd).append(strings[Message::EnsureFileIsValid]);
    talk_.messages.Show({text, BoxIcon::Error, BoxButtons::Ok, {}});
    return;
  }
  if (loading == Loading::NewDocument) {
    errors([&] { captions_.Replace(1, captions_.Count(), std::move(rows)); });
    return;
  }
  errors([&] {
    const Checked32 delay(std::int64_t{mediaSeconds_} * 1000);
    appendOffset_ = Later(appendOffset_, delay.Value());
  });
  for (Caption& row : rows) {
    errors([&] { row.start = Later(row.start, appendOffset_); });
    errors([&] { row.end = Later(row.end, appendOffset_); });
  }
  errors([&] { captions_.Replace(captions_.Rows(), 0, std::move(rows)); });
  errors([&] { TellAppended(); });
}

void Importer::TellAppended() {
  const LangStrings& strings = talk_.strings;
  Text text = strings[Message::AppendedWithDelay];
  text.append(kLineEnd).append(kLineEnd);
  text += FormatTimecode(formats_.loader.Definition(), formats_.CurrentIdentifier(), appendOffset_,
                         {{}, captions_.Options().manner.TimesAreExact()});
  text.append(kLineEnd).append(kLineEnd).append(strings[Message::AppendNextNeedsItsVideo]);
  talk_.messages.Show({text, BoxIcon::Information, BoxButtons::Ok, {}});
}

void Importer::TellError(TextView path, const CarryOn& errors) {
  if (!errors.Last()) return;
  Text text = u"An error ocurred while loading the file ";
  text.append(path).append(u".").append(kLineEnd).append(kLineEnd);
  text += u"Error #" + Decimal(errors.Last()->number) + u": " + errors.Last()->description;
  talk_.messages.Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
}

}  // namespace cuewright
