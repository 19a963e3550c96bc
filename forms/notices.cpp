#include "forms/notices.h"

#include "core/numbers.h"
#include "text/encoding_names.h"

namespace cuewright {

Text EncodingName(const DocumentEncoding& encoding) {
  Text name;
  switch (encoding.codePage) {
    case kCodePageUtf8:
      name = u"UTF-8";
      break;
    case 1200:
      name = u"UTF-16LE";
      break;
    case 1201:
      name = u"UTF-16BE";
      break;
    case kCodePageUtf32Le:
      name = u"UTF-32LE";
      break;
    case kCodePageUtf32Be:
      name = u"UTF-32BE";
      break;
    default:
      name = encoding.codePage == kCodePageJohab ? u"Johab" : FromUtf8(ConverterOfCodePage(encoding.codePage));
      if (name.empty()) name = u"windows-" + Decimal(encoding.codePage);
  }
  return encoding.mark ? name + u" (BOM)" : name;
}

Notices::Notices(MainWindow& window, const AppOptions& options, const LangStrings& strings)
    : window_(window), options_(options), strings_(strings) {
  window_.cmdNotice.SetText(u"\u00D7");
  window_.cmdNotice.Clicked.Connect([this] { Clear(); });
  Clear();
}

void Notices::Tell(Message text, TextView first, TextView second) {
  text_ = text;
  first_ = first;
  second_ = second;
  lines_ = 0;
  rules_ = Rules::Silent;
  ApplyLanguage();
  ShowButtons();
}

void Notices::TellLines(int count) {
  lines_ = count;
  ApplyLanguage();
  ShowButtons();
}

void Notices::TellFindings(int count) { TellRules(Rules::Looked, count); }

void Notices::TellChanged(int count) {
  text_.reset();
  TellRules(Rules::Ran, count);
}

void Notices::ForgetRules() {
  if (rules_ != Rules::Silent) TellRules(Rules::Silent, 0);
}

void Notices::TellRules(Rules rules, int count) {
  rules_ = rules;
  count_ = count;
  ApplyLanguage();
  ShowButtons();
}

void Notices::Clear() {
  text_.reset();
  lines_ = 0;
  rules_ = Rules::Silent;
  ShowButtons();
}

void Notices::ShowButtons() {
  window_.lblNotice.SetVisible(Shown());
  window_.cmdNotice.SetVisible(Shown());
  window_.cmdShowLines.SetVisible(lines_ != 0);
  window_.cmdShowFindings.SetVisible(rules_ == Rules::Looked);
  window_.cmdApplyFindings.SetVisible(rules_ == Rules::Looked);
  window_.cmdUndoRules.SetVisible(rules_ == Rules::Ran);
}

void Notices::ApplyLanguage() {
  window_.cmdNotice.SetToolTip(strings_[Message::CloseNotice]);
  // When a second button shows findings of the rules, this one names the lines that it shows.
  window_.cmdShowLines.SetText(strings_[rules_ == Rules::Looked ? Message::ShowLines : Message::ShowFindings]);
  window_.cmdShowLines.SetSpokenName(strings_[Message::ShowLinesSpoken]);
  window_.cmdShowFindings.SetText(strings_[Message::ShowFindings]);
  window_.cmdApplyFindings.SetText(strings_[Message::ApplyFindings]);
  window_.cmdUndoRules.SetText(strings_[Message::UndoRules]);
  Text text;
  if (text_) text = Fill(strings_[*text_], first_, second_);
  const auto add = [&text](const Text& part) {
    if (!text.empty()) text += u" \u00B7 ";
    text += part;
  };
  if (lines_ != 0) add(strings_.Counted(Message::LinesNotUnderstood, u"%1", lines_));
  if (rules_ != Rules::Silent) {
    add(strings_.Counted(rules_ == Rules::Looked ? Message::RuleFindings : Message::RulesChanged, u"%1", count_));
  }
  if (!text.empty()) window_.lblNotice.SetText(text);
}

}  // namespace cuewright
