#include "settings/languages.h"

#include <algorithm>
#include <array>
#include <span>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/runtime_error.h"

namespace cuewright {
namespace {

constexpr int kFirstTableRow = 600;
// The numbers of texts, as the catalogue counts them.
constexpr int kTexts = kMessageCount;
constexpr int kEnd = kEndOfTexts;
constexpr std::uint64_t kLargestBlock = 1 << 20;
constexpr TextView kNeverChosen = u"---";

/// The number of a table part; "&H0809" is hexadecimal.
std::int32_t TableNumber(TextView text) {
  if (!text.starts_with(u"&H")) return RoundToInt32(LeadingNumber(text));
  std::int32_t number = 0;
  for (const char16_t digit : text.substr(2)) number = number * 16 + (digit <= u'9' ? digit - u'0' : digit - u'A' + 10);
  return number;
}

Text ProperCase(TextView name) {
  Text proper = ToLower(name);
  if (!proper.empty()) proper.replace(0, 1, ToUpper(TextView(proper).substr(0, 1)));
  return proper;
}

Text ErrorText(TextView before, const RuntimeError& error) {
  return Text(before) + Decimal(error.number) + u" " + error.description;
}

}  // namespace

Languages::Languages(const LanguageParts& parts) : p_(parts), charset_(CharsetOfCodePage(0)) {}

void Languages::ReadUserCharset() {
  CarryOn step;
  step([&] { charset_ = GetCharsetOfLocale(kUserLocale); });
}

void Languages::BuildLanguageTable() {
  ReadUserCharset();
  CarryOn step;
  for (int row = 0; row < CountOf(table_); ++row) step([&] { ReadTableRow(row); });
  if (step.Last()) {
    p_.messages.Show({ErrorText(u"Error retrieving OS language names: ", *step.Last()), BoxIcon::Warning});
  }
}

void Languages::ReadTableRow(int row) {
  const std::vector<Text> parts = Split(CatalogueString(kFirstTableRow + row), u"-");
  const std::int32_t localeId = TableNumber(parts[1]);
  table_[row] = {Decimal(TableNumber(parts[0])), Decimal(localeId), parts[2], ProperCase(parts[2])};
  if (!p_.locale.IsValidLocale(localeId)) return;
  const Text name = p_.locale.LanguageName(localeId);
  if (!name.empty()) table_[row].displayName = name;
}

void Languages::LoadStored() {
  firstRun_ = p_.options.language == kNeverChosen;
  if (firstRun_) {
    DetectLanguage(u"ENGLISH");
  } else {
    // The last row that fits wins: "PORTUGUESE" also lies inside "PORTUGUESE_BR".
    for (std::size_t row = 0; row < kLanguageCount; ++row) {
      if (table_[row].name.find(p_.options.language) != Text::npos) {
        p_.options.languageRow = Checked16(row);
      }
    }
  }
  LoadLanguageStrings(false);
}

void Languages::DetectLanguage(TextView fallback) {
  CarryOn step;
  step([&] {
    p_.options.language = fallback;
    for (std::size_t row = 0; row < kLanguageCount; ++row) {
      if (table_[row].name == fallback) Select(row);
    }
    const Text language = ToUpper(p_.locale.GetLocaleText(kUserLocale, kEnglishLanguageName));
    if (language.empty()) return;
    for (std::size_t row = 0; row < kLanguageCount; ++row) {
      const Text& name = table_[row].name;
      if (name.empty() || !EqualLoose(TextView(language).substr(0, name.size()), name)) continue;
      Select(row);
      return;
    }
  });
  if (step.Last()) p_.messages.Show({ErrorText(u"Error detecting OS language: ", *step.Last()), BoxIcon::Warning});
}

void Languages::Select(std::size_t row) {
  p_.options.language = table_[row].name;
  p_.options.languageRow = Checked16(row);
}

/// Which language's rules a row of the table follows, as codes of languages.
constexpr std::array<const char*, kLanguageCount> kCodes = {"en", "es", "nl", "el", "it", "fr", "pt", "pt_PT", "ca",
                                                            "sr", "hu", "ro", "fi", "fa", "ar", "da", "bg",    "kk",
                                                            "id", "sv", "th", "de", "ja", "ru", "hr"};

void Languages::LoadBlock(std::size_t row) {
  if (row == 0 || loaded_[row]) return;
  CarryOn step;
  step([&] {
    const Text path = p_.folders.AppFolder + u"languages/" + ToLower(table_[row].name) + u".txt";
    p_.catalogue.AddBlock(p_.files.Read(path, kLargestBlock), Checked32(row));
    loaded_.set(row);
  });
}

int Languages::LoadLanguageStrings(bool makeFile) {
  p_.strings.SetLanguageCode(ItemAt(kCodes, p_.options.languageRow));
  LoadBlock(p_.options.languageRow);
  const int base = kBlockSize * p_.options.languageRow;
  Text lines;
  int missing = 0;
  for (int id = 0; id < kTexts; ++id) {
    const Text* own = p_.catalogue.Find(base + id);
    if (own != nullptr) {
      p_.strings.Set(NumberedMessage(id), *own);
      continue;
    }
    const Text& english = CatalogueString(id);
    p_.strings.Set(NumberedMessage(id), english);
    lines.append(Decimal(base + id) + u", \"" + english + u"\"").append(kLineEnd);
    ++missing;
  }
  for (int id = kFirstFurtherText; id < kEnd; ++id) {
    const Text* own = p_.catalogue.Find(CatalogueNumber(p_.options.languageRow, id));
    p_.strings.Set(NumberedMessage(id), own != nullptr ? *own : CatalogueString(CatalogueNumber(0, id)));
  }
  if (makeFile) {
    WriteTranslationFile(TranslationHeader() + lines);
    p_.events.WaitMs(500);
  }
  rightToLeft_ =
      p_.options.language == u"ARABIC" || p_.options.language == u"PERSIAN" || p_.options.language == u"HEBREW";
  // One less than there are strings, so that one or two missing ones still count as complete.
  constexpr int kWhole = kTexts - 1;
  return RoundToInt32((kWhole - missing) * 100.0 / kWhole);
}

Charset Languages::GetCharsetOfLocale(std::int32_t locale) const {
  return CharsetOfCodePage(RoundToInt32(LeadingNumber(p_.locale.GetLocaleText(locale, kAnsiCodePage))));
}

std::int32_t Languages::LocaleOfLanguage() const {
  return RoundToInt32(LeadingNumber(ItemAt(table_, p_.options.languageRow).localeId));
}

Text Languages::ToLanguageCodePage(TextView text) const {
  std::optional<Text> recoded;
  CarryOn step;
  step([&] {
    const std::optional<int> windows = p_.locale.WindowCodePage();
    if (!windows) return;
    const int own = RoundToInt32(LeadingNumber(p_.locale.GetLocaleText(LocaleOfLanguage(), kAnsiCodePage)));
    recoded = p_.locale.Recode(text, own, *windows);
  });
  return recoded ? *recoded : Text(text);
}

int Languages::FindLanguageInList(std::size_t row, const std::vector<Text>& items) const {
  const std::span listed(items.data(), std::min(items.size(), kLanguageCount));
  return std::max(PlaceOf(listed, table_[row].displayName), 0);
}

std::size_t Languages::RowOfDisplayName(TextView displayName) const {
  for (std::size_t row = 0; row < kLanguageCount; ++row) {
    if (table_[row].displayName == displayName) return row;
  }
  return p_.options.languageRow;
}

bool Languages::NeedsNotice() const {
  return ItemAt(table_, p_.options.languageRow).codePage != p_.locale.GetLocaleText(kUserLocale, kAnsiCodePage);
}

Languages::NoticeTexts Languages::Notice() const {
  const std::int32_t own = LocaleOfLanguage();
  return {ToLanguageCodePage(p_.strings[Message::Warning]),
          ToLanguageCodePage(p_.strings[Message::CurrentSystemLanguage]) + u" " +
              p_.locale.GetLocaleText(kUserLocale, kEnglishLanguageName),
          ToLanguageCodePage(p_.strings[Message::RequiredLanguage]) + u" " +
              p_.locale.GetLocaleText(own, kEnglishLanguageName) + u" (" +
              p_.locale.GetLocaleText(own, kNativeLanguageName) + u")",
          GetCharsetOfLocale(own)};
}

Text Languages::CharsetText() const { return Decimal(charset_.number) + u" - " + charset_.name; }

const Text& Languages::CatalogueString(int id) const {
  static const Text kNone;
  const Text* row = p_.catalogue.Find(id);
  return row == nullptr ? kNone : *row;
}

}  // namespace cuewright
