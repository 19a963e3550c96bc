#include "formats/line_import.h"

#include <algorithm>

#include "formats/line_readers.h"
#include "formats/rate_line.h"
#include "formats/source/record_watch.h"

namespace cuewright {
namespace {

constexpr int kMostCaptions = 32000;

/// Recognises the lines of a few formats that look like captions but are none.
class LineFilter {
 public:
  LineFilter(TextView identifier, const LineOrders& orders)
      : onlyRates_(orders.exactTimes),
        dropFrameRate_(identifier == kMicroDvd),
        dropZeroTime_(identifier == kTmPlayer && orders.intoEmptyList),
        dropClosing_(identifier == kUleadWorkshop) {}

  /// The beginning of every line that may be dropped; empty when none may.
  std::string_view Beginning() const {
    return dropFrameRate_ ? "{1}{1}" : dropZeroTime_ ? "00:00:00" : dropClosing_ ? "#" : "";
  }

  bool Drops(const ImportLine& line) const {
    if (dropFrameRate_ && onlyRates_) return RateOfLine(line.View()) != FrameRate();
    if (dropFrameRate_) return line.View().starts_with(kRateLine);
    if (dropZeroTime_) return line.View().starts_with(u"00:00:00");
    if (dropClosing_) return line.View() == u"#Subtitle text end";
    return false;
  }

 private:
  bool onlyRates_;  // only a line that is nothing but a rate is dropped; one with other text stays
  bool dropFrameRate_;
  bool dropZeroTime_;
  bool dropClosing_;
};

}  // namespace

std::vector<Caption> LineImport::Read(TextFile& file, const LineOrders& orders, const Text& separator,
                                      CarryOn& errors) {
  CaptionCollector captions(formats_.loader.Definition(), separator);
  std::size_t place = 0;
  errors.noted = [&] { place = file.Place(); };
  ReadLines(file, orders, captions, errors);
  if (!captions.captionText.empty() && captions.TimesSet()) captions.FlushImportedCaption();
  if (orders.watch != nullptr) orders.watch->End(captions);
  if (captions.Full()) errors.Note({kErrorOutOfMemory, u"Out of memory"});
  if (file.LineWasCut()) {
    errors.Note({kErrorOutOfMemory, u"A line is too long; only its beginning was read"});
    place = file.CutPlace();
  }
  errors.noted = nullptr;
  if (place != 0) troubleLine_ = file.LinesBefore(place);
  return captions.Take();
}

void LineImport::ReadLines(TextFile& file, const LineOrders& orders, CaptionCollector& captions, CarryOn& errors) {
  const FormatDefinition& definition = formats_.loader.Definition();
  const LineFilter filter(formats_.CurrentIdentifier(), orders);
  const ParseContext context{
      captions, definition,        orders.timecodeLiteral, {formats_.state.CurrentFps, orders.exactTimes},
      errors,   filter.Beginning()};
  LineReader reader = MakeReader(context, orders.pieces, false);
  bool mayTurnSpruce = formats_.CurrentIdentifier() == kSonicScenarist;
  captions.Reserve(std::min<std::size_t>(kMostCaptions + kYieldEvery + 2, file.BytesLeft() / 16 + 16));
  ImportLine line;
  for (std::size_t at = file.BytesRead(); line.Next(file, orders.wide ? &encodings_ : nullptr); at = file.BytesRead()) {
    if (captions.ImportedCount() % kYieldEvery == 0 && StopsHere(file, captions)) break;
    if (captions.Full()) break;
    if (filter.Drops(line)) line.Clear();
    if (mayTurnSpruce && line.View().starts_with(u"0001")) {
      mayTurnSpruce = false;
      errors([&] { formats_.loader.SelectFormat(kSpruceDvdMaestro); });
      captions.DefinitionChanged();
      reader = MakeReader(context, orders.pieces, definition.definitionFound);
    }
    const bool blank = line.Empty();
    reader.parser->Parse(line);
    if (orders.watch != nullptr) {
      orders.watch->TakeLine(at, file.BytesRead(), blank, captions);
    } else if (reader.run && !orders.wide && !file.EndsMix()) {
      reader.run->ReadOn(file);
    }
  }
}

bool LineImport::StopsHere(TextFile& file, const CaptionCollector& captions) {
  talk_.Report(FileStage::Pauses);
  if (cancelled_) return true;
  if (captions.ImportedCount() <= kMostCaptions) return false;
  troubleLine_ = file.LinesBefore(file.Place());
  talk_.messages.Show(
      {talk_.strings[Message::TooManyCaptions], BoxIcon::Error, BoxButtons::Ok, talk_.strings[Message::Warning]});
  return true;
}

LineReader LineImport::MakeReader(const ParseContext& context, const RecordPieces& pieces, bool bodySeen) const {
  if (formats_.state.CurrentFormatIndex == 0) return {MakePlainTextParser(context), nullptr};
  return MakeLineReader(formats_.CurrentIdentifier(), context, pieces, bodySeen);
}

}  // namespace cuewright
