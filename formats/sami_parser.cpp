#include "formats/sami_parser.h"

#include "core/numbers.h"

namespace cuewright {

void SamiParser::Parse(ImportLine& line) {
  if (!bodySeen_) {
    bodySeen_ = line.View() == u"<BODY>";
    return;
  }
  if (line.Empty()) return;
  const TextView text = line.View();
  if (!captions_.captionText.empty() && captions_.TimesSet()) captions_.FlushImportedCaption();
  const bool sync = sync_.In(text);
  const bool space = space_.In(text);
  if (!sync && !space && captions_.captionText.empty()) captions_.captionText = StripTags(text, tagWork_);
  if (sync) errors_([&] { ReadTime(text); });
  if (space) captions_.Reset();
}

void SamiParser::ReadTime(TextView text) {
  const std::size_t equals = text.find(u'=');
  const TextView number = equals == TextView::npos ? text : text.substr(equals + 1);
  if (!captions_.TimesSet()) captions_.TakeNextTime(RoundToInt32(LeadingNumber(number)));
}

}  // namespace cuewright
