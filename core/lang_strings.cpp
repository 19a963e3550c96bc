#include "core/lang_strings.h"

#include <unicode/plurrule.h>

#include <memory>

#include "core/numbers.h"
#include "text/icu_text.h"

namespace cuewright {
namespace {

/// The name of the plural form that the language uses for a count.
Text FormFor(const std::string& code, long long count) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::PluralRules> rules(icu::PluralRules::forLocale(icu::Locale(code.c_str()), status));
  if (U_FAILURE(status) || rules == nullptr) return u"other";
  const icu::UnicodeString form = rules->select(static_cast<double>(count));
  return TextOf(form);
}

}  // namespace

Text LangStrings::Counted(Text text, TextView mark, long long count) const {
  const Text opening = u"{" + Text(mark) + u"|";
  std::size_t open = text.find(opening);
  const Text wanted = open == Text::npos ? Text() : FormFor(code_, count);
  for (; open != Text::npos; open = text.find(opening, open)) {
    const std::size_t close = text.find(u'}', open);
    if (close == Text::npos) break;
    const std::vector<Text> parts =
        Split(TextView(text).substr(open + opening.size(), close - open - opening.size()), u"|");
    Text form = parts.back();
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
      if (parts[i] == wanted) form = parts[i + 1];
    }
    text.replace(open, close + 1 - open, form);
    open += form.size();
  }
  // A minus would go to the other end of the number among letters from right to left.
  return ReplaceAll(text, mark, count < 0 ? InItsOrder(text, Decimal(count)) : Decimal(count));
}

}  // namespace cuewright
