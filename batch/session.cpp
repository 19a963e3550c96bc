#include "batch/session.h"

#include "core/numbers.h"
#include "core/runtime_error.h"
#include "formats/encoding_rules.h"
#include "formats/rate_line.h"
#include "formats/source/source_map.h"
#include "settings/languages.h"
#include "settings/messages.h"
#include "settings/options.h"

namespace cuewright {
namespace {

/// More lines than this are only counted.
constexpr std::size_t kMostLackingTold = 100;

/// The answer to the question for a rate.
Text RateFor(const Request& request) { return request.fps ? FromUtf8(*request.fps) : Decimal(kUsualRate); }

}  // namespace

Session::Session(const Request& request, Files& files, Output& output, int systemCodePage)
    : request_(request),
      systemCodePage_(systemCodePage),
      files_(files),
      boxes_(output, RateFor(request)),
      encodings_(systemCodePage),
      captions_(options_, modified_),
      report_(strings_) {
  state_.ListCharset = CharsetOfCodePage(systemCodePage).number;
}

bool Session::Start(const Text& programFolder) {
  programFolder_ = programFolder;
  LoadEnglish(MessageCatalogue(), strings_);
  return ReadSettings() && ReadCatalogue(programFolder);
}

std::unique_ptr<Session> Session::Another(Output& output) const {
  auto session = std::make_unique<Session>(request_, files_, output, systemCodePage_);
  return session->Start(programFolder_) ? std::move(session) : nullptr;
}

bool Session::ReadSettings() {
  if (request_.settingsFile) {
    if (!files_.IsRegular(*request_.settingsFile)) {
      boxes_.Tell(u"there is no settings file " + *request_.settingsFile);
      return false;
    }
    stored_ = std::make_unique<SettingsStore>(files_, *request_.settingsFile);
  }
  settings_ = std::make_unique<RunSettings>(request_.settings, stored_.get());
  LoadSettings(*settings_, options_);
  if (stored_ && !stored_->LastFailure().empty()) {
    boxes_.Tell(*request_.settingsFile + u": " + stored_->LastFailure());
    return false;
  }
  if (request_.classic) options_.manner.SetClassic(true);
  if (request_.separator) options_.lineSeparator = *request_.separator;
  if (!request_.text) return true;
  options_.readAs = request_.text->classic ? u"classic" : u"auto";
  const int codePage = request_.text->codePage;
  if (codePage == 0) return true;
  if (!IsTextCodePage(codePage)) {
    boxes_.Tell(u"--text: code page " + Decimal(codePage) + u" is not known");
    return false;
  }
  encodings_ = Encodings(codePage);
  return true;
}

bool Session::ReadCatalogue(const Text& programFolder) {
  Text folder = request_.catalogue.value_or(programFolder);
  if (!folder.ends_with(u'/')) folder += u'/';
  CarryOn errors;
  bool complete = false;
  errors([&] {
    complete = LoadFormatCatalogue(catalogue_, files_, folder + u"formats.ini", folder + u"formats.dat", encodings_,
                                   strings_, boxes_);
  });
  if (errors.Last()) boxes_.Tell(errors.Last()->description);
  if (complete && catalogue_.Count() == 0) boxes_.Tell(folder + u"formats.dat lists no format");
  if (!complete || catalogue_.Count() == 0) return false;
  const FormatTalk talk{strings_, boxes_};
  loader_ = std::make_unique<FormatLoader>(catalogue_, state_, *settings_, talk);
  const FormatSet formats{catalogue_, state_, *loader_};
  const FileAccess access{files_, encodings_};
  importer_ = std::make_unique<Importer>(formats, talk, captions_, access, cancelled_);
  if (request_.readAs) importer_->ReadAs(request_.readAs->codePage);
  exporter_ = std::make_unique<Exporter>(formats, talk, captions_, access, path_, modified_);
  return true;
}

bool Session::Begin(const Text& path) {
  boxes_.Begin(path);
  captions_.Reset();
  state_.CurrentFormatIndex = 0;
  state_.CurrentFps = {};
  state_.Encoding = {};
  state_.Source = nullptr;
  cancelled_ = false;
  if (files_.Exists(path)) return true;
  boxes_.Tell(Fill(strings_[Message::FileNotFound], path));
  return false;
}

std::optional<int> Session::Detect(const Text& path) {
  if (!Begin(path)) return {};
  return importer_->SettleFormat(path);
}

bool Session::Load(const Text& path) {
  loadTroubles_ = 0;
  if (!Begin(path)) return false;
  boxes_.line = [this] { return importer_->TroubleLine(); };
  importer_->DetectFormat(path, Loading::NewDocument);
  boxes_.line = nullptr;
  if (state_.Source && options_.manner.TellsWhatIsLost()) {
    for (const std::size_t line : state_.Source->LinesNotUnderstood()) boxes_.TellNotUnderstood(line);
  }
  loadTroubles_ = boxes_.Troubles();
  return captions_.Rows() > 2 || !IsBlank(captions_.At(1).text);
}

void Session::ApplyRules() {
  if (RulesEngine(captions_, report_).ApplyRules()) boxes_.Tell(Text(kRulesFailed));
}

bool Session::Save(const Text& path, int format, bool keepUntimed) {
  state_.CurrentFormatIndex = format;
  const Text timecode = ToLower(catalogue_.ReadIni(catalogue_.Identifier(format), u"timecode", u"ms"));
  const bool frames = timecode.find(u"ff") != Text::npos;
  if (!frames) state_.CurrentFps = {};
  if (frames && (request_.fps || !state_.CurrentFps)) state_.CurrentFps = FrameRate::FromText(RateFor(request_));

  Row lastRow = captions_.Rows() - 1;
  for (Row row = 1; !keepUntimed && row <= lastRow; ++row) {
    if (!captions_.IsCaptionTimed(row)) lastRow = row - 1;
  }
  if (!TakeEncoding(lastRow)) return false;
  const int before = boxes_.Troubles();
  path_ = path;
  const int codePage = state_.Encoding.codePage;
  exporter_->ExportSubtitle(lastRow);
  if (options_.manner.TellsWhatIsLost()) TellLost();
  if (state_.Encoding.codePage != codePage) {
    boxes_.Tell(u"Saved as UTF-8: code page " + Decimal(codePage) + u" lacks a character of the text.");
  }
  return boxes_.Troubles() == before;
}

void Session::TellLost() {
  for (const Loss kind : kAllLosses) {
    const std::size_t count = exporter_->Lost().Of(kind);
    if (count == 0) continue;
    boxes_.Tell(Format() + u" can't hold " + FromUtf8(NameOf(kind)) + u"; captions that lose them: " + Decimal(count));
  }
}

bool Session::TakeEncoding(Row lastRow) {
  const bool own = state_.Source && state_.Source->Format() == Format();
  if (!request_.encoding) {
    const bool utf8 = options_.manner.ChoosesEncodings() && !own && IsUtf8UnlessAsked(Format());
    if (utf8) state_.Encoding = DocumentEncoding();
    return true;
  }
  // A file that is plain ASCII in both, or was in this encoding before, is left as it is.
  if (state_.Encoding.codePage != request_.encoding->codePage) state_.Encoding = *request_.encoding;
  const SourceMap* const source = own && options_.manner.KeepsTheFile() ? state_.Source.get() : nullptr;
  // A file of bytes has no encoding to choose.
  if (source != nullptr && source->Rules().BlockBytes() != 0) return true;
  const std::vector<LackingPlace> places =
      FindLackingLetters(captions_, lastRow, source, *MakeCodec(request_.encoding->codePage));
  for (std::size_t i = 0; i < places.size() && i < kMostLackingTold; ++i) TellLacking(places[i]);
  if (places.size() > kMostLackingTold) {
    boxes_.Tell(Decimal(places.size() - kMostLackingTold) + u" more lines lack letters.");
  }
  if (!places.empty()) boxes_.Tell(u"Not written: " + request_.encodingName + u" lacks letters of the text.");
  return places.empty();
}

void Session::TellLacking(const LackingPlace& place) {
  boxes_.line = [&] { return place.line; };
  Text text;
  if (place.row != 0) text = u"caption " + Decimal(place.row.Number()) + u", line " + Decimal(place.rowLine) + u": ";
  boxes_.Tell(text + request_.encodingName + u" lacks " + place.letters);
  boxes_.line = nullptr;
}

bool Session::LoadWave(const Text& path, WavePeaks& peaks, WaveLoadSteps& steps) {
  if (!Begin(path)) return false;
  CarryOn opened;
  std::unique_ptr<FileReader> file;
  opened([&] { file = files_.OpenToRead(path); });
  const bool loaded = file != nullptr && WaveReader(peaks).Load(*file, steps) == WaveLoadResult::Loaded;
  if (!loaded) boxes_.Tell(strings_[Message::WaveLoadFailed]);
  return loaded;
}

}  // namespace cuewright
