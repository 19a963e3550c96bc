#include "formats/import.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "formats/timecode.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

constexpr int kMostCaptions = 32000;

/// A number with a comma or a dot as its decimal sign.
float DecimalOf(TextView text) { return static_cast<float>(LeadingNumber(ReplaceAll(text, u",", u"."))); }

/// Lines of a few formats that are no text of a caption.
class LineFilter {
 public:
  LineFilter(TextView identifier, bool listIsEmpty)
      : dropFrameRate_(identifier == kMicroDvd),
        dropZeroTime_(identifier == kTmPlayer && listIsEmpty),
        dropClosing_(identifier == kUleadWorkshop) {}

  /// What every line begins with that may be dropped; empty for none.
  std::string_view Beginning() const {
    return dropFrameRate_ ? "{1}{1}" : dropZeroTime_ ? "00:00:00" : dropClosing_ ? "#" : "";
  }

  bool Drops(const ImportLine& line) const {
    if (dropFrameRate_) return line.View().starts_with(u"{1}{1}");
    if (dropZeroTime_) return line.View().starts_with(u"00:00:00");
    if (dropClosing_) return line.View() == u"#Subtitle text end";
    return false;
  }

 private:
  bool dropFrameRate_;
  bool dropZeroTime_;
  bool dropClosing_;
};

}  // namespace

Importer::Importer(FormatLoader& loader, CaptionList& captions, const Files& files, const Encodings& encodings,
                   bool& cancelled)
    : loader_(loader), captions_(captions), files_(files), encodings_(encodings), cancelled_(cancelled) {}

void Importer::ImportSubtitle(TextView path, bool wide, bool append) {
  CarryOn errors;
  std::optional<TextFile> file = Open(path, errors);
  ImportFile(Text(path), std::move(file), wide, append, errors);
}

void Importer::ImportFile(TextView path, std::optional<TextFile> file, bool wide, bool append, CarryOn& errors) {
  FormatState& state = loader_.State();
  troubleLine_ = 0;
  if (!append) {
    BeginImport();
    appendOffset_ = 0;
    if (file) state.Encoding = file->Encoding();
  }
  const TextView id = loader_.CurrentIdentifier();
  RecordPieces pieces;
  if (id != kSubStationAlpha && id != kAdvancedSsa) pieces = CutRecord(loader_.Definition(), errors);
  if (ReadFrameRate()) {
    CaptionCollector captions(loader_.Definition(), captions_.Options().lineSeparator);
    if (file) ReadLines(*file, wide, captions, pieces, errors);
    file.reset();
    state.SettingsFormatIndex = state.CurrentFormatIndex;
    FillList(captions.Take(), append, errors);
  }
  loader_.Host().ImportEnds();
  TellError(path, errors);
}

void Importer::BeginImport() {
  loader_.Host().ImportBegins();
  loader_.Host().SetTextFileLabel(loader_.StatusText(Message::ImportingFile, loader_.CurrentIdentifier()));
  captions_.Reset();
  loader_.Host().Yield();
}

bool Importer::ReadFrameRate() {
  FormatState& state = loader_.State();
  const bool frames = loader_.Definition().timecodeTemplate.find(u"ff") != Text::npos;
  state.CurrentFps = frames ? PromptForFps() : 0;
  if (frames && state.CurrentFps == 0) cancelled_ = true;
  return !frames || state.CurrentFps != 0;
}

float Importer::PromptForFps() {
  const LangStrings& strings = loader_.Strings();
  const Text name = loader_.Catalogue().DisplayName(loader_.CurrentIdentifier());
  for (;;) {
    Text answer =
        loader_.Boxes().Ask({Fill(strings[Message::FpsForImport], name), strings[Message::SourceVideoFps], u"25"});
    answer = ReplaceAll(answer, u".", u",");
    if (answer.empty()) return 0;
    const double whole = LeadingNumber(answer);
    if (answer.size() < 9 && whole >= 15 && whole <= 30) {
      const float fps = DecimalOf(answer);
      if (fps > 0) return fps;
    }
    loader_.Boxes().Show({strings[Message::FpsInvalid], BoxIcon::Error, BoxButtons::Ok,
                          ReplaceAll(strings[Message::OpenText], u"...", u"")});
  }
}

void Importer::ReadLines(TextFile& file, bool wide, CaptionCollector& captions, const RecordPieces& pieces,
                         CarryOn& errors) {
  std::size_t place = 0;
  errors.noted = [&] { place = file.Place(); };
  ParseLines(file, wide, captions, pieces, errors);
  if (!captions.captionText.empty() && captions.TimesSet()) captions.FlushImportedCaption();
  if (captions.Full()) errors.Note({kErrorOutOfMemory, u"Out of memory"});
  if (file.LineWasCut()) {
    errors.Note({kErrorOutOfMemory, u"A line is too long; only its beginning was read"});
    place = file.CutPlace();
  }
  errors.noted = nullptr;
  if (place != 0) troubleLine_ = file.LinesBefore(place);
}

void Importer::ParseLines(TextFile& file, bool wide, CaptionCollector& captions, const RecordPieces& pieces,
                          CarryOn& errors) {
  const LineFilter filter(loader_.CurrentIdentifier(), captions_.Rows() == 2);
  const ParseContext context{captions, loader_.Definition(), timecodeLiteral_, loader_.State().CurrentFps, errors,
                             wide,     filter.Beginning()};
  std::unique_ptr<LineParser> parser = MakeParser(context, pieces, false);
  bool mayTurnSpruce = loader_.CurrentIdentifier() == kSonicScenarist;
  captions.Reserve(std::min<std::size_t>(kMostCaptions + kYieldEvery + 2, file.BytesLeft() / 16 + 16));
  ImportLine line;
  while (line.Next(file, wide ? &encodings_ : nullptr)) {
    if (captions.ImportedCount() % kYieldEvery == 0 && StopsHere(file, captions)) break;
    if (captions.Full()) break;
    if (filter.Drops(line)) line.Clear();
    if (mayTurnSpruce && line.View().starts_with(u"0001")) {
      mayTurnSpruce = false;
      errors([&] { loader_.LoadFormatDefinition(kSpruceDvdMaestro, true, false); });
      captions.DefinitionChanged();
      parser = MakeParser(context, pieces, loader_.Definition().definitionFound);
    }
    parser->Parse(line);
    if (!wide) parser->ParseRun(file);
  }
}

bool Importer::StopsHere(TextFile& file, const CaptionCollector& captions) {
  loader_.Host().Yield();
  if (cancelled_) return true;
  if (captions.ImportedCount() <= kMostCaptions) return false;
  troubleLine_ = file.LinesBefore(file.Place());
  loader_.Boxes().Show({loader_.Strings()[Message::TooManyCaptions], BoxIcon::Error, BoxButtons::Ok,
                        loader_.Strings()[Message::Warning]});
  return true;
}

std::unique_ptr<LineParser> Importer::MakeParser(const ParseContext& context, const RecordPieces& pieces,
                                                 bool bodySeen) const {
  const Text& id = loader_.CurrentIdentifier();
  if (loader_.State().CurrentFormatIndex == 0) return MakePlainTextParser(context);
  if (id == kSubRip) return MakeSubRipParser(context);
  if (id == kSubStationAlpha || id == kAdvancedSsa) return MakeDialogueParser(context);
  if (id == kSami) return MakeSamiParser(context);
  if (id == kTmPlayer) return MakeTmPlayerParser(context);
  if (id == kAdobeEncore) return MakeEncoreParser(context);
  if (id == kSpruceDvdMaestro || id == kSonicScenarist) return MakeSpruceParser(context, bodySeen);
  return MakeGenericParser(context, pieces);
}

void Importer::FillList(std::vector<Caption> rows, bool append, CarryOn& errors) {
  const LangStrings& strings = loader_.Strings();
  if (rows.empty()) {
    Text text = strings[Message::NoTextInFile];
    text.append(kLineEnd).append(kLineEnd).append(strings[Message::EnsureFileIsValid]);
    loader_.Boxes().Show({text, BoxIcon::Error, BoxButtons::Ok, {}});
    return;
  }
  if (!append) {
    errors([&] { captions_.Replace(1, captions_.Rows() - 1, std::move(rows)); });
    return;
  }
  errors([&] {
    const Checked32 delay(static_cast<std::int64_t>(loader_.Host().MediaSeconds()) * 1000);
    appendOffset_ = Checked32(appendOffset_) + delay;
  });
  for (Caption& row : rows) {
    errors([&] { row.start = Checked32(row.start) + Checked32(appendOffset_); });
    errors([&] { row.end = Checked32(row.end) + Checked32(appendOffset_); });
  }
  errors([&] { captions_.Replace(captions_.Rows(), 0, std::move(rows)); });
  errors([&] { TellAppended(); });
}

void Importer::TellAppended() {
  const LangStrings& strings = loader_.Strings();
  Text text = strings[Message::AppendedWithDelay];
  text.append(kLineEnd).append(kLineEnd);
  text += FormatTimecode(loader_.Definition(), loader_.CurrentIdentifier(), appendOffset_, 0);
  text.append(kLineEnd).append(kLineEnd).append(strings[Message::AppendNextNeedsItsVideo]);
  loader_.Boxes().Show({text, BoxIcon::Information, BoxButtons::Ok, {}});
}

void Importer::TellError(TextView path, const CarryOn& errors) {
  if (!errors.Last()) return;
  Text text = u"An error ocurred while loading the file ";
  text.append(path).append(u".").append(kLineEnd).append(kLineEnd);
  text += u"Error #" + Decimal(errors.Last()->number) + u": " + errors.Last()->description;
  loader_.Boxes().Show({text, BoxIcon::Warning, BoxButtons::Ok, {}});
}

}  // namespace cuewright
