#include "formats/recogniser.h"

#include <algorithm>
#include <vector>

#include "formats/source/sniff.h"
#include "formats/source/transcript_scanner.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

constexpr int kHeadLines = 250;
/// Characters of the file's head that are looked at. The first lines of ordinary files are far shorter.
constexpr std::size_t kLongestHead = 1 << 20;
/// Bytes at the file's beginning that the published rules of formats are tried on.
constexpr std::size_t kBytesOfRules = 4096;

bool Holds(TextView head, TextView part) { return FindExact(head, part) != TextView::npos; }

/// Much may stand in front of a transcript's segments, such as the whole of its text.
bool HoldsTranscript(std::string_view bytes) { return BeginsAsJson(bytes) && !ScanTranscript(bytes).segments.empty(); }

/// A sample with words is a heading or a keyword, which no other format has; one without is a pattern of times.
bool HasWords(TextView sample) {
  return std::ranges::any_of(sample, [](char16_t c) { return c >= u'A' && c <= u'Z'; });
}

}  // namespace

std::optional<bool> FormatRecogniser::Settle(TextFile* file, CarryOn& errors) {
  alsoFitting_.clear();
  if (file != nullptr && manner_.ReadsByPublishedRules() && SettleByRules(*file, errors)) return false;
  for (const bool wide : {false, true}) {
    formats_.state.CurrentFormatIndex = 0;
    const Heads heads = file != nullptr ? ReadHeads(*file, wide) : Heads{};
    if (!Recognise(heads, errors)) continue;
    const bool sure = HasWords(formats_.loader.Definition().sampleText) || SettleLookAlikes(heads, errors);
    if (!sure && manner_.TellsWhatIsLost()) NoteOthers(heads, errors);
    return wide;
  }
  return {};
}

bool FormatRecogniser::SettleByRules(const TextFile& file, CarryOn& errors) {
  std::optional<Text> sure = SniffFormat(file.Decoded(file.Bytes().substr(0, kBytesOfRules)));
  if (!sure && HoldsTranscript(file.Bytes())) sure = u"TRANSCRIPTJSON";
  const int index = sure ? formats_.catalogue.IndexOf(*sure) : -1;
  bool loaded = false;
  if (index > 0) errors([&] { loaded = formats_.loader.LoadFormatDefinition(*sure); });
  if (!loaded) return false;
  formats_.state.CurrentFormatIndex = index;
  timecodeLiteral_ = false;
  return true;
}

FormatRecogniser::Heads FormatRecogniser::ReadHeads(TextFile& file, bool wide) const {
  Heads heads;
  file.Rewind();
  std::string_view line;
  LineBuffer buffer;
  for (int i = 0; i < kHeadLines && heads.full.size() < kLongestHead && file.NextLine(line); ++i) {
    file.Decode(line.substr(0, kLongestHead), buffer);
    heads.full.append(kLineEnd).append(TrimBlanks(buffer.View()));
  }
  file.Rewind();
  MaskDigits(heads.full);
  heads.full = ToUpper(heads.full);
  heads.brief = heads.full;
  for (int i = 0; i < 3; ++i) heads.brief = ReplaceAll(heads.brief, u"000", u"00");
  if (wide) {
    heads.full = encodings_.PairBytes(heads.full);
    heads.brief = encodings_.PairBytes(heads.brief);
  }
  return heads;
}

void FormatRecogniser::NoteOthers(const Heads& heads, CarryOn& errors) {
  const int settled = formats_.state.CurrentFormatIndex;
  const FormatDefinition definition = formats_.loader.Definition();
  for (int i = 1; i < formats_.catalogue.Count(); ++i) {
    if (i == settled) continue;
    bool hit = false;
    const Text& id = formats_.catalogue.Identifier(i);
    errors([&] { hit = formats_.loader.LoadFormatDefinition(id) && (Fits(heads) || FitsSecondTemplate(heads, id)); });
    if (hit) alsoFitting_.push_back({i, formats_.loader.Definition()});
  }
  formats_.loader.Definition() = definition;
}

/// Looks in the head for the masks of all formats' timecodes.
void FormatRecogniser::LookForTimecode(const Heads& heads) {
  const FormatDefinition& definition = formats_.loader.Definition();
  timecodeLiteral_ = false;
  std::vector<Text> absent = {u"0"};  // masks that the head is known to lack
  for (int i = 1; i < formats_.catalogue.Count() && !timecodeLiteral_; ++i) {
    formats_.loader.LoadTimecode(formats_.catalogue.Identifier(i));
    if (std::ranges::find(absent, definition.timecodeMask) != absent.end()) continue;
    timecodeLiteral_ = Holds(heads.full, definition.timecodeMask);
    absent.push_back(definition.timecodeMask);
  }
}

bool FormatRecogniser::Recognise(const Heads& heads, CarryOn& errors) {
  LookForTimecode(heads);
  for (int i = 1; i < formats_.catalogue.Count(); ++i) {
    const Text& id = formats_.catalogue.Identifier(i);
    bool hit = false;
    errors([&] { hit = formats_.loader.LoadFormatDefinition(id) && (Fits(heads) || FitsSecondTemplate(heads, id)); });
    if (!hit) continue;
    formats_.state.CurrentFormatIndex = i;
    return true;
  }
  return false;
}

bool FormatRecogniser::Fits(const Heads& heads) const {
  const FormatDefinition& definition = formats_.loader.Definition();
  if ((definition.timecodeMask != u"0") != timecodeLiteral_) return false;
  return Holds(timecodeLiteral_ ? heads.full : heads.brief, definition.sampleText);
}

bool FormatRecogniser::FitsSecondTemplate(const Heads& heads, TextView formatId) {
  const Text second = formats_.catalogue.ReadIni(formatId, u"timecoderss", u"");
  if (second.empty()) return false;
  FormatDefinition& definition = formats_.loader.Definition();
  const Text mask = MaskOfTimecode(second, false);
  definition.timecodeTemplate = second;
  definition.sampleText = ReplaceLoose(definition.sampleText, definition.timecodeMask, mask);
  definition.timecodeMask = mask;
  return Fits(heads);
}

/// Tells formats with the same sample apart; true when a heading says which one the file has.
bool FormatRecogniser::SettleLookAlikes(const Heads& heads, CarryOn& errors) {
  const auto change = [&](TextView id) { errors([&] { formats_.loader.SelectFormat(id); }); };
  const Text settled = formats_.CurrentIdentifier();
  bool sure = false;
  if (settled == kAdobeEncore) {
    sure = Holds(heads.full, u"#INPOINT OUTPOINT PATH");
    if (sure) change(kPinnacleImp);
    if (Holds(heads.full, u"//")) change(kDvdSubSystem);
  }
  if (settled == kMacDvdPro && Holds(heads.full, u"SP_NUMBER")) {
    sure = true;
    change(kSpruceDvdMaestro);
  }
  return sure;
}

}  // namespace cuewright
