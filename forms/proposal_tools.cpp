#include "forms/proposal_tools.h"

#include <unicode/locid.h>
#include <unicode/stringoptions.h>

#include <algorithm>
#include <utility>

#include "check/break_rules.h"
#include "check/line_breaker.h"
#include "core/counting.h"
#include "core/runtime_error.h"
#include "text/icu_text.h"
#include "text/labels.h"
#include "tools/cleaning_data.h"

namespace cuewright {
namespace {

constexpr std::uint64_t kLargestFile = 1 << 20;

/// In the order of `CleaningKind`.
constexpr std::array kKindTexts = {Message::CleanBlanks,       Message::CleanDashes, Message::CleanQuotes,
                                   Message::CleanDescriptions, Message::CleanTags,   Message::CleanCapitals,
                                   Message::CleanLetters,      Message::CleanEmpty};
static_assert(kKindTexts.size() == kCleaningKinds && kCleaningKinds <= ProposalsDialog::kMostKinds);

/// What harms no text that was in order; the others are for texts that need them.
constexpr CleaningChoice kHarmless = {true, true, true, false, false, false, true, true};

/// The name of a language in that language.
Text NameOf(const Text& code) {
  const icu::Locale locale(ToUtf8(code).c_str());
  icu::UnicodeString name;
  locale.getDisplayLanguage(locale, name);
  name.toTitle(nullptr, locale, U_TITLECASE_NO_LOWERCASE);
  return TextOf(name);
}

/// The languages of the interface that have data for texts.
struct LanguageCode {
  TextView name;
  TextView code;
};
constexpr LanguageCode kLanguageCodes[] = {{u"ARABIC", u"ar"},  {u"FRENCH", u"fr"},   {u"GERMAN", u"de"},
                                           {u"SPANISH", u"es"}, {u"JAPANESE", u"ja"}, {u"ENGLISH", u"en"}};

/// What texts are most likely written in: the language of the rules, else that of the interface.
TextView LikelyLanguage(const HouseRules& rules, const AppOptions& options) {
  if (!rules.language.empty()) return rules.language;
  const auto* const own = std::ranges::find(kLanguageCodes, TextView(options.language), &LanguageCode::name);
  return own == std::end(kLanguageCodes) ? TextView() : own->code;
}

/// The languages that have files in a folder, the empty one first.
std::vector<Text> LanguagesIn(const Files& files, TextView folder) {
  constexpr TextView kEnding = u".txt";
  std::vector<Text> languages;
  for (const Text& name : files.Names(folder)) {
    if (name.ends_with(kEnding)) languages.push_back(name.substr(0, name.size() - kEnding.size()));
  }
  std::ranges::sort(languages);
  languages.insert(languages.begin(), Text());
  return languages;
}

/// The languages by their names, with the likely one chosen.
void AddLanguages(const std::vector<Text>& codes, const HouseRules& rules, const Workbench& bench,
                  ProposalsContent& content) {
  for (const Text& code : codes) {
    content.languages.push_back(code.empty() ? bench.strings[Message::AnyLanguage] : NameOf(code));
  }
  content.language = std::max(PlaceOf(codes, LikelyLanguage(rules, bench.options)), 0);
}

}  // namespace

ProposalTools::ProposalTools(Workbench bench, const HouseCheck& check, const Folders& folders, const Files& files,
                             Messages& messages)
    : dialog(bench.list, bench.strings),
      bench_(bench),
      check_(check),
      folders_(folders),
      files_(files),
      messages_(messages),
      kinds_(kHarmless) {
  bench_.window.mnuBreakLines.Clicked.Connect([this] { BreakLines(); });
  bench_.window.mnuClean.Clicked.Connect([this] { Clean(); });
}

std::vector<Row> ProposalTools::SelectedRows() const { return bench_.list.SelectedRows().Rows(); }

std::vector<Row> ProposalTools::WantedRows() const { return dialog.OfAll() ? AllRows(bench_.list) : SelectedRows(); }

int ProposalTools::Make(EditKind kind, const std::vector<Proposal>& proposals) {
  const int changed = CarryOut(bench_.list, kind, proposals);
  if (changed > 0) bench_.list.SetRow(bench_.list.Selected(), false);
  return changed;
}

template <class Propose>
int ProposalTools::Run(const ProposalsContent& content, EditKind kind, Propose propose) {
  if (dialog.IsOpen()) return 0;
  dialog.Prepare(content, bench_.window.RightToLeft());
  const Connection asked = dialog.Asked.ConnectScoped([&] { dialog.ShowProposals(propose()); });
  dialog.ShowProposals(propose());
  // This call returns when the dialog has closed.
  dialog.Open();
  return Make(kind, dialog.Taken());
}

int ProposalTools::Offer(const Text& title, EditKind kind, std::vector<Proposal> proposals) {
  return Run({title}, kind, [&] { return proposals; });
}

int ProposalTools::OfferOf(const Text& title, EditKind kind,
                           const std::function<std::vector<Proposal>(const std::vector<Row>&)>& propose) {
  ProposalsContent content{title};
  content.scope = true;
  return Run(content, kind, [&] { return propose(WantedRows()); });
}

void ProposalTools::BreakLines() {
  const Text folder = folders_.AppFolder + u"breaks";
  ProposalsContent content{WithoutDots(bench_.strings[Message::BreakLines])};
  content.scope = true;
  languages_ = LanguagesIn(files_, folder);
  AddLanguages(languages_, check_.findings.Rules(), bench_, content);
  HouseRules rules = check_.findings.Rules();
  Run(content, EditKind::Breaks, [&] {
    rules.language = ItemAt(languages_, std::max(dialog.cmbLanguage.Index(), 0));
    rules.breaks = {};
    CarryOn errors;
    errors([&] {
      if (rules.language.empty()) return;
      const std::string bytes = files_.Read(folder + u"/" + rules.language + u".txt", kLargestFile);
      rules.breaks = ReadBreakRules(FromUtf8(bytes));
    });
    if (errors.Last()) messages_.Show({errors.Last()->description, BoxIcon::Warning});
    LineBreaker breaker(rules);
    return ProposeBreaks(bench_.list, WantedRows(), breaker);
  });
}

ProposalsContent ProposalTools::CleaningContent() {
  ProposalsContent content{WithoutDots(bench_.strings[Message::CleanTexts])};
  content.scope = true;
  for (std::size_t kind = 0; kind < kKindTexts.size(); ++kind) {
    content.kinds.push_back(bench_.strings[kKindTexts[kind]]);
    content.kindsOn.push_back(kinds_[kind]);
  }
  languages_ = CleaningShelf(files_, folders_.AppFolder).Languages();
  languages_.insert(languages_.begin(), Text());
  AddLanguages(languages_, check_.findings.Rules(), bench_, content);
  return content;
}

void ProposalTools::Clean() {
  const ProposalsContent content = CleaningContent();
  Run(content, EditKind::Cleaning, [&]() -> std::vector<Proposal> {
    for (std::size_t kind = 0; kind < kinds_.size(); ++kind) kinds_[kind] = dialog.Kind(kind);
    std::string problem;
    const std::size_t language = std::max(dialog.cmbLanguage.Index(), 0);
    const auto data = CleaningShelf(files_, folders_.AppFolder).Read(languages_[language], problem);
    if (!data) {
      messages_.Show({FromUtf8(problem), BoxIcon::Warning});
      return {};
    }
    return Cleaner(*data, kinds_).Propose(bench_.list, WantedRows());
  });
}

}  // namespace cuewright
