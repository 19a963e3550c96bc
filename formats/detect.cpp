#include <algorithm>
#include <utility>
#include <vector>

#include "formats/import.h"
#include "text/text_search.h"

namespace cuewright {
namespace {

constexpr int kHeadLines = 250;
/// Characters of a head that are looked at. Lines of ordinary files come nowhere near it.
constexpr std::size_t kLongestHead = 1 << 20;
/// End of a file's name that makes it plain text when no format fits; in lower case only.
constexpr TextView kPlainTextEnding = u"txt";

bool Holds(TextView head, TextView part) { return FindExact(head, part) != TextView::npos; }

}  // namespace

std::optional<TextFile> Importer::Open(TextView path, CarryOn& errors) const {
  std::optional<TextFile> file;
  errors([&] {
    std::string bytes = files_.Read(path, kLargestTextFile);
    const bool classic = EqualLoose(captions_.Options().readAs, u"classic");
    file = classic ? TextFile::Classic(std::move(bytes), encodings_) : TextFile::Auto(std::move(bytes), encodings_);
  });
  return file;
}

Importer::Heads Importer::ReadHeads(TextFile& file, bool wide) const {
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

void Importer::DetectFormat(TextView path, bool wide, bool append) {
  if (!append) return Detect(path, wide, false);
  // What is appended comes into the document; how the document itself is written stays.
  const FormatState state = loader_.State();
  const FormatDefinition definition = loader_.Definition();
  Detect(path, wide, true);
  loader_.State() = state;
  loader_.Definition() = definition;
}

void Importer::Detect(TextView path, bool wide, bool append) {
  CarryOn errors;
  troubleLine_ = 0;
  std::optional<TextFile> file = Open(path, errors);
  const Text pathText(path);
  if (const std::optional<bool> asWide = Settle(file, wide, errors)) {
    ImportFile(pathText, std::move(file), *asWide, append, errors);
    return;
  }
  // A text takes the document's place, but one that can't be read has nothing to put there.
  if (!path.ends_with(kPlainTextEnding) || (append && !file)) return Reject(path, errors);
  errors([&] { loader_.LoadFormatDefinition(kPlainText, false, false); });
  ImportFile(pathText, std::move(file), false, false, errors);
}

std::optional<int> Importer::SettleFormat(TextView path) {
  CarryOn errors;
  std::optional<TextFile> file = Open(path, errors);
  if (file && (Settle(file, false, errors) || path.ends_with(kPlainTextEnding))) {
    return loader_.State().CurrentFormatIndex;
  }
  if (file) {
    Reject(path, errors);
  } else {
    TellError(path, errors);
  }
  return {};
}

std::optional<bool> Importer::Settle(std::optional<TextFile>& file, bool wide, CarryOn& errors) {
  for (bool asWide = wide;; asWide = true) {
    loader_.State().CurrentFormatIndex = 0;
    const Heads heads = file ? ReadHeads(*file, asWide) : Heads{};
    if (Recognise(heads, errors)) {
      SettleLookAlikes(heads, errors);
      return asWide;
    }
    if (asWide) return {};
  }
}

bool Importer::Recognise(const Heads& heads, CarryOn& errors) {
  const FormatCatalogue& catalogue = loader_.Catalogue();
  const FormatDefinition& definition = loader_.Definition();
  timecodeLiteral_ = false;
  std::vector<Text> absent = {u"0"};  // masks that the head is known to lack
  for (int i = 1; i < catalogue.Count() && !timecodeLiteral_; ++i) {
    loader_.LoadFormatDefinition(catalogue.Identifier(i), false, true);
    if (std::find(absent.begin(), absent.end(), definition.timecodeMask) != absent.end()) continue;
    timecodeLiteral_ = Holds(heads.full, definition.timecodeMask);
    absent.push_back(definition.timecodeMask);
  }
  for (int i = 1; i < catalogue.Count(); ++i) {
    const Text& id = catalogue.Identifier(i);
    bool hit = false;
    errors([&] {
      hit = loader_.LoadFormatDefinition(id, false, false) && (Fits(heads) || FitsSecondTemplate(heads, id));
    });
    if (!hit) continue;
    loader_.State().CurrentFormatIndex = static_cast<std::uint8_t>(i);
    return true;
  }
  return false;
}

bool Importer::Fits(const Heads& heads) const {
  const FormatDefinition& definition = loader_.Definition();
  if ((definition.timecodeMask != u"0") != timecodeLiteral_) return false;
  return Holds(timecodeLiteral_ ? heads.full : heads.brief, definition.sampleText);
}

bool Importer::FitsSecondTemplate(const Heads& heads, TextView formatId) {
  const Text second = loader_.Catalogue().ReadIni(formatId, u"timecoderss", u"");
  if (second.empty()) return false;
  FormatDefinition& definition = loader_.Definition();
  const Text mask = MaskOfTimecode(second, false);
  definition.timecodeTemplate = second;
  definition.sampleText = ReplaceLoose(definition.sampleText, definition.timecodeMask, mask);
  definition.timecodeMask = mask;
  return Fits(heads);
}

void Importer::SettleLookAlikes(const Heads& heads, CarryOn& errors) {
  const auto change = [&](TextView id) { errors([&] { loader_.LoadFormatDefinition(id, true, false); }); };
  if (loader_.CurrentIdentifier() == kAdobeEncore) {
    if (Holds(heads.full, u"#INPOINT OUTPOINT PATH")) change(kPinnacleImp);
    if (Holds(heads.full, u"//")) change(kDvdSubSystem);
  }
  if (loader_.CurrentIdentifier() == kMacDvdPro && Holds(heads.full, u"SP_NUMBER")) change(kSpruceDvdMaestro);
}

void Importer::Reject(TextView path, CarryOn& errors) {
  loader_.Boxes().Show({loader_.Strings()[Message::FormatNotDetermined], BoxIcon::Error, BoxButtons::Ok, {}});
  TellError(path, errors);
}

}  // namespace cuewright
