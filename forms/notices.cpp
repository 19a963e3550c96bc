#include "forms/notices.h"

#include "core/numbers.h"

namespace cuewright {
namespace {

constexpr std::size_t kFindings = 1031;
constexpr std::size_t kShow = 1032;
constexpr std::size_t kApply = 1033;
constexpr std::size_t kChanged = 1034;
constexpr std::size_t kUndo = 1035;

}  // namespace

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
    default:
      name = u"windows-" + Decimal(encoding.codePage);
  }
  return encoding.mark ? name + u" (BOM)" : name;
}

Notices::Notices(MainWindow& window, const AppOptions& options, const LangStrings& strings)
    : window_(window), options_(options), strings_(strings) {
  window_.cmdNotice.SetText(u"\u00D7");
  window_.cmdNotice.Clicked.Connect([this] { Clear(); });
  Clear();
}

void Notices::Tell(std::size_t text, TextView first, TextView second) {
  text_ = text;
  first_ = first;
  second_ = second;
  rules_ = Rules::Silent;
  ApplyLanguage();
  ShowButtons();
}

void Notices::TellFindings(int count) { TellRules(Rules::Looked, count); }

void Notices::TellChanged(int count) {
  text_ = 0;
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
  text_ = 0;
  rules_ = Rules::Silent;
  ShowButtons();
}

void Notices::ShowButtons() {
  window_.lblNotice.SetVisible(Shown());
  window_.cmdNotice.SetVisible(Shown());
  window_.cmdShowFindings.SetVisible(rules_ == Rules::Looked);
  window_.cmdApplyFindings.SetVisible(rules_ == Rules::Looked);
  window_.cmdUndoRules.SetVisible(rules_ == Rules::Ran);
}

void Notices::ApplyLanguage() {
  window_.cmdNotice.SetToolTip(strings_[905]);
  window_.cmdShowFindings.SetText(strings_[kShow]);
  window_.cmdApplyFindings.SetText(strings_[kApply]);
  window_.cmdUndoRules.SetText(strings_[kUndo]);
  Text text;
  if (text_ != 0) text = Fill(strings_[text_], first_, second_);
  if (rules_ != Rules::Silent) {
    if (!text.empty()) text += u" \u00B7 ";
    text += strings_.Counted(rules_ == Rules::Looked ? kFindings : kChanged, u"%1", count_);
  }
  if (!text.empty()) window_.lblNotice.SetText(text);
}

}  // namespace cuewright
