#include "formats/definition.h"

#include <utility>

#include "core/numbers.h"
#include "formats/headers.h"

namespace cuewright {
namespace {

bool IsCount(TextView timecode) { return timecode == u"ms" || timecode == u"ff"; }

TimecodeForm DeriveForm(Text timecode) {
  TimecodeForm form;
  if (IsCount(timecode)) {
    form.timecodeMask = u"0";
  } else {
    form.timecodeMask = MaskOfTimecode(timecode, true);
    Text compact = ReplaceAll(timecode, u"hh", u"h");
    compact = ReplaceAll(compact, u"mm", u"m");
    compact = ReplaceAll(compact, u"ss", u"s");
    const bool thousandths = timecode.find(u"zzz") != Text::npos;
    const bool hundredths = !thousandths && timecode.find(u"zz") != Text::npos;
    if (thousandths) compact = ReplaceAll(compact, u"zzz", u"z");
    if (hundredths) compact = ReplaceAll(compact, u"zz", u"z");
    form.timecodeCompact = std::move(compact);
    form.hourPicture = timecode.find(u"hh") != Text::npos ? u"00" : u"0";
    form.fractionPicture = thousandths ? u"000" : hundredths ? u"00" : u"0";
  }
  form.timecodeTemplate = std::move(timecode);
  return form;
}

Text TransformSample(TextView sample) { return ReplaceAll(ReplaceAll(ToUpper(sample), u"!", kLineEnd), u"?", u"\t"); }

bool IsOneLine(TextView record) { return record.find(kLineEnd) == TextView::npos; }

}  // namespace

Text MaskOfTimecode(TextView timecode, bool frames) {
  Text mask(timecode);
  for (char16_t& c : mask) {
    if (c == u'h' || c == u'm' || c == u's' || c == u'z') c = u'0';
  }
  return frames ? ReplaceAll(mask, u"ff", u"00") : mask;
}

const TimecodeForm& FormatLoader::FormOf(TextView formatId) {
  const Text id(formatId);
  const auto hit = forms_.find(id);
  if (hit != forms_.end()) return hit->second;
  return forms_.emplace(id, DeriveForm(ToLower(catalogue_.ReadIni(id, u"timecode", u"ms")))).first->second;
}

const FormatLoader::Parsed& FormatLoader::ParsedOf(TextView formatId) {
  const Text id(formatId);
  const auto hit = parsed_.find(id);
  if (hit != parsed_.end()) return hit->second;
  const auto number = [&](TextView key) { return LeadingNumber(catalogue_.ReadIni(id, key, u"0")); };
  Parsed parsed;
  parsed.sampleText = TransformSample(catalogue_.ReadIni(id, u"sample", u"???"));
  parsed.lineBreak = catalogue_.ReadIni(id, u"lbreak", u"[enter]");
  parsed.tags = number(u"tags");
  parsed.tagOpen = catalogue_.ReadIni(id, u"tagopen", u"");
  parsed.tagClose = catalogue_.ReadIni(id, u"tagclose", u"");
  parsed.block = catalogue_.Block(id);
  const Text& record = parsed.block.record;
  parsed.builtInHeader = number(u"header") == 1;
  const auto place = [&](TextView mark) { return record.find(mark) + 1; };  // 0 when the mark is absent
  parsed.captionAfterEnd = place(u"qxmCaption") > place(u"qxmEnd");
  parsed.singleLineRecord = IsOneLine(record) && parsed.lineBreak != u"[enter]";
  if (FindLoose(record, u"qxmSubCount") != TextView::npos) {
    parsed.subCountPicture = catalogue_.ReadIni(id, u"subcount", u"0");
  }
  return parsed_.emplace(id, std::move(parsed)).first->second;
}

void FormatLoader::LoadTimecode(TextView formatId) {
  const TimecodeForm& form = FormOf(formatId);
  definition_.definitionFound = false;
  definition_.timecodeTemplate = form.timecodeTemplate;
  definition_.timecodeMask = form.timecodeMask;
  TimecodeForm& inForce = definition_;
  if (!IsCount(form.timecodeTemplate)) inForce = form;
}

bool FormatLoader::LoadFormatDefinition(TextView formatId) {
  LoadTimecode(formatId);
  FormatDefinition& into = definition_;
  const Parsed& parsed = ParsedOf(formatId);
  into.sampleText = parsed.sampleText;
  into.lineBreak = parsed.lineBreak;
  into.tagFlags = Checked8(RoundToInt32(parsed.tags));
  if (into.tagFlags != 0) {
    into.tagOpen = parsed.tagOpen;
    into.tagClose = parsed.tagClose;
  }
  into.definitionFound = parsed.block.found;
  if (!parsed.block.valid) return Fail(formatId);
  into.singleLineRecord = parsed.singleLineRecord;
  into.headerText = parsed.builtInHeader ? BuildBuiltInHeader(catalogue_.Identifier(state_.CurrentFormatIndex),
                                                              settings_, state_.ListCharset)
                                         : parsed.block.header;
  into.footerText = parsed.block.footer;
  into.recordText = parsed.block.record;
  into.captionAfterEnd = parsed.captionAfterEnd;
  into.subCountPicture = parsed.subCountPicture;
  return true;
}

bool FormatLoader::SelectFormat(TextView formatId) {
  if (!LoadFormatDefinition(formatId)) return false;
  const int index = catalogue_.IndexOf(formatId);
  if (index > 0) state_.CurrentFormatIndex = index;
  talk_.Report(FileStage::FormatChosen, Fill(talk_.strings[Message::ImportingFile], catalogue_.DisplayName(formatId)));
  return true;
}

bool FormatLoader::Fail(TextView formatId) {
  if (!failureShown_) {
    failureShown_ = true;
    talk_.messages.Show(
        {Fill(talk_.strings[Message::FormatIncorrect], formatId), BoxIcon::Warning, BoxButtons::Ok, {}});
  }
  definition_.headerText.clear();
  definition_.footerText.clear();
  definition_.recordText.clear();
  return false;
}

}  // namespace cuewright
