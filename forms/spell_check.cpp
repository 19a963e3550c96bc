#include "forms/spell_check.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "core/counting.h"
#include "core/runtime_error.h"
#include "external/spell_text.h"

namespace cuewright {
namespace {

constexpr int kBlock = 500;
constexpr int kMostInOneBlock = 550;  // rows, with the header
constexpr TextView kLanguageKey = u"SpellLanguage";

/// The dictionary of each language of the program.
constexpr std::pair<TextView, TextView> kDictionaries[] = {
    {u"ENGLISH", u"en_GB"},   {u"SPANISH", u"es_ES"}, {u"DUTCH", u"nl_NL"},         {u"GREEK", u"el_GR"},
    {u"ITALIAN", u"it_IT"},   {u"FRENCH", u"fr_FR"},  {u"PORTUGUESE_BR", u"pt_BR"}, {u"PORTUGUESE", u"pt_PT"},
    {u"CATALAN", u"ca_ES"},   {u"SERBIAN", u"sr_RS"}, {u"HUNGARIAN", u"hu_HU"},     {u"ROMANIAN", u"ro_RO"},
    {u"FINNISH", u"fi_FI"},   {u"PERSIAN", u"fa_IR"}, {u"ARABIC", u"ar"},           {u"DANISH", u"da_DK"},
    {u"BULGARIAN", u"bg_BG"}, {u"KAZAKH", u"kk_KZ"},  {u"INDONESIAN", u"id_ID"},    {u"SWEDISH", u"sv_SE"},
    {u"THAI", u"th_TH"},      {u"GERMAN", u"de_DE"},  {u"JAPANESE", u"ja_JP"},      {u"RUSSIAN", u"ru_RU"},
    {u"CROATIAN", u"hr_HR"}};

TextView DictionaryOf(TextView language) {
  const auto* at = std::find_if(std::begin(kDictionaries), std::end(kDictionaries),
                                [&](const auto& entry) { return entry.first == language; });
  return at == std::end(kDictionaries) ? kDictionaries[0].second : at->second;
}

TextView LanguagePart(TextView dictionary) { return dictionary.substr(0, dictionary.find_first_of(u"_-")); }

}  // namespace

SpellCheck::SpellCheck(const SpellParts& parts)
    : dialog(parts.bench.strings, parts.ports.desktop),
      word(ownWord_, parts.bench.strings, parts.ports.messages),
      parts_(parts) {
  parts_.bench.window.mnuSpell.Clicked.Connect([this] { CheckAll(); });
}

void SpellCheck::Begin() {
  names_ = parts_.dictionaries.Installed();
  opened_.clear();
  dictionary_ = -1;
  decisions_ = {};
  first_ = 1;
}

void SpellCheck::CheckAll() {
  if (dialog.IsOpen()) return;
  Begin();
  done_ = 0;
  changed_ = 0;
  ++checks_;
  const bool whole = CheckBlocks();
  opened_.clear();
  if (!whole) return;
  Checked();
  TellEnd();
}

bool SpellCheck::CheckBlocks() {
  const int last = parts_.bench.list.Count();
  int spellLast = parts_.bench.list.Rows() > kMostInOneBlock ? kBlock : last;
  do {
    std::vector<Text> captions;
    for (int row = first_; row <= spellLast; ++row) {
      captions.push_back(parts_.bench.list.GetSeenText(row, true));
      ++done_;
    }
    const Text checked = word.MsSpellCheck(SpellingText(captions));
    if (word.SpellFailed()) return false;
    parts_.bench.window.lblTextFile.SetText(parts_.bench.strings[Message::PleaseWait] + u"... (" + Decimal(done_) +
                                            u"/" + Decimal(last) + u")");
    // Nothing may come between what was sent and what is stored: the window is painted, and no more.
    parts_.ports.events.YieldToPainting();
    StoreBlock(first_, captions, checked);
    first_ += kBlock;
    spellLast = std::min(spellLast + kBlock, last);
  } while (done_ < last);
  return true;
}

void SpellCheck::StoreBlock(Row first, const std::vector<Text>& captions, const Text& checked) {
  const auto cut = CutSpellingText(checked, captions, parts_.bench.options.lineSeparator);
  // The blocks of one check are one step.
  const EditScope scope(parts_.bench.list, EditKind::Spelling, checks_);
  Row row = first - 1;
  for (const std::optional<Text>& text : cut) {
    ++row;
    if (!text) continue;
    parts_.bench.list.SetCaptionText(row, parts_.bench.list.WithSeenText(row, *text));
    parts_.bench.list.SetModified();
    ++changed_;
  }
}

void SpellCheck::TellEnd() {
  Text text = parts_.bench.strings[Message::SpellCheckCompleted] + u" ";
  if (changed_ > 0) text += Fill(parts_.bench.strings[Message::LinesModified], Decimal(changed_));
  parts_.ports.messages.Show({text, BoxIcon::Information, BoxButtons::Ok, parts_.bench.strings[Message::SpellCheck]});
}

int SpellCheck::PreferredDictionary() const {
  const auto find = [this](auto fits) {
    const auto at = std::find_if(names_.begin(), names_.end(), fits);
    return at == names_.end() ? -1 : PlaceAt(names_, at);
  };
  const Text stored = parts_.store.GetSetting(kMainSection, kLanguageKey, {});
  if (const int index = find([&](const Text& name) { return name == stored; }); index >= 0) return index;
  // English serves where there is no dictionary for the language in force.
  for (const TextView wanted : {DictionaryOf(parts_.bench.options.language), kDictionaries[0].second}) {
    if (const int index = find([&](const Text& name) { return name == wanted; }); index >= 0) return index;
    const int like = find([&](const Text& name) { return LanguagePart(name) == LanguagePart(wanted); });
    if (like >= 0) return like;
  }
  return 0;
}

void SpellCheck::OpenDictionary(int index) {
  if (!opened_.contains(index)) {
    const Text& name = ItemAt(names_, index);
    const Text wordsFile = parts_.wordsFolder.empty() ? Text() : parts_.wordsFolder + name + u".txt";
    opened_.try_emplace(index, parts_.dictionaries.Open(name), parts_.ports.files, wordsFile);
  }
  dictionary_ = index;
}

void SpellCheck::Prepare() {
  if (names_.empty()) throw RuntimeError{kErrorFileNotFound, parts_.dictionaries.Missing()};
  if (dictionary_ >= 0) return;
  parts_.ports.desktop.SetBusy(true);
  CarryOn step;
  step([&] { OpenDictionary(PreferredDictionary()); });
  parts_.ports.desktop.SetBusy(false);
  if (step.Last()) throw RuntimeError(*step.Last());
}

bool SpellCheck::UseLanguage(int index, SpellSession& session) {
  CarryOn step;
  if (!step([&] { OpenDictionary(index); })) {
    parts_.ports.messages.Show(
        {step.Last()->description, BoxIcon::Warning, BoxButtons::Ok, parts_.bench.strings[Message::SpellCheck]});
    return false;
  }
  session.Use(opened_.at(index).lookup);
  parts_.store.SaveSetting(kMainSection, kLanguageKey, ItemAt(names_, index));
  return true;
}

bool SpellCheck::ChangeWords(const std::function<void(UserWords&)>& change) {
  Opened& opened = opened_.at(dictionary_);
  CarryOn step;
  const bool done = step([&] { change(opened.userWords); });
  opened.lookup.Forget();
  if (!done) {
    parts_.ports.messages.Show(
        {step.Last()->description, BoxIcon::Warning, BoxButtons::Ok, parts_.bench.strings[Message::SpellCheck]});
  }
  return done;
}

Text SpellCheck::Check(const Text& document) {
  SpellSession session(document, decisions_);
  session.Use(opened_.at(dictionary_).lookup);
  if (decisions_.stopped || !session.Next()) return session.Document();
  std::vector<Text> languages;
  for (const Text& name : names_) languages.push_back(parts_.dictionaries.DisplayName(name));
  dialog.Open({session, decisions_,
               [this](TextView misspelt) { return opened_.at(dictionary_).lookup.Suggest(misspelt); },
               [this](TextView added) { return ChangeWords([added](UserWords& words) { words.Add(added); }); },
               [this](TextView added) { ChangeWords([added](UserWords& words) { words.Remove(added); }); },
               [this, &session](int index) { return UseLanguage(index, session); }, std::move(languages), dictionary_,
               first_, parts_.languages.IsRightToLeft()});
  dialog.Close();
  return session.Document();
}

int SpellCheck::CountErrors(const Text& document) {
  SpellSession session(document, decisions_);
  session.Use(opened_.at(dictionary_).lookup);
  return session.Errors();
}

}  // namespace cuewright
