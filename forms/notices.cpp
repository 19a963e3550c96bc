#include "forms/notices.h"

#include "core/numbers.h"

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
  ApplyLanguage();
  window_.lblNotice.SetVisible(true);
  window_.cmdNotice.SetVisible(true);
}

void Notices::Clear() {
  text_ = 0;
  window_.lblNotice.SetVisible(false);
  window_.cmdNotice.SetVisible(false);
}

void Notices::ApplyLanguage() {
  window_.cmdNotice.SetToolTip(strings_[905]);
  if (text_ != 0) window_.lblNotice.SetText(Fill(strings_[text_], first_, second_));
}

}  // namespace cuewright
