#include "forms/film_pairing.h"

#include <algorithm>
#include <utility>

#include "core/numbers.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "text/labels.h"

namespace cuewright {
namespace {

constexpr TextView kSection = u"Pairs";
constexpr std::size_t kMostPairs = 20;

Text KeyOf(TextView what, std::size_t index) { return Text(what) + Decimal(index); }

Text StemOf(const Text& name) { return name.substr(0, name.rfind(u'.')); }

/// Texts of any kind may lie beside a film; these are subtitles by their names.
bool IsSubtitleName(const Text& name) {
  constexpr TextView kEndings[] = {u".srt", u".ass",  u".ssa",  u".vtt", u".sub", u".smi",
                                   u".sbv", u".ttml", u".dfxp", u".stl", u".scc", u".lrc"};
  const Text lower = ToLower(name);
  return std::ranges::any_of(kEndings, [&](TextView ending) { return lower.ends_with(ending); });
}

}  // namespace

FilmPairing::FilmPairing(Workbench bench, SettingsStore& store, const Files& files, Player& player, Messages& messages)
    : bench_(bench), store_(store), files_(files), player_(player), messages_(messages) {
  bench_.window.tmrPairs.Tick.Connect([this] {
    // Timers go on while the question's box is open.
    if (asking_ || bench_.document.FileInWork) return;
    bench_.window.tmrPairs.SetEnabled(false);
    Follow();
  });
  bench_.window.mnuClearRecent.Clicked.Connect([this] { Keep({}); });
}

std::vector<FilmPairing::Pair> FilmPairing::Kept() const {
  std::vector<Pair> pairs;
  for (std::size_t i = 0; i < kMostPairs; ++i) {
    Pair pair{store_.GetSetting(kSection, KeyOf(u"Text", i), {}), store_.GetSetting(kSection, KeyOf(u"Film", i), {})};
    if (pair.text.empty() || pair.film.empty()) continue;
    CarryOn step;
    step([&] { pair.ms = RoundToInt32(LeadingNumber(store_.GetSetting(kSection, KeyOf(u"At", i), u"0"))); });
    pairs.push_back(std::move(pair));
  }
  return pairs;
}

void FilmPairing::Keep(const std::vector<Pair>& pairs) {
  std::vector<SettingsStore::KeyValue> values;
  for (std::size_t i = 0; i < std::max(pairs.size(), Kept().size()); ++i) {
    const Pair pair = i < pairs.size() ? pairs[i] : Pair();
    values.emplace_back(KeyOf(u"Text", i), pair.text);
    values.emplace_back(KeyOf(u"Film", i), pair.film);
    values.emplace_back(KeyOf(u"At", i), Decimal(pair.ms.Count()));
  }
  if (!values.empty()) store_.SaveSettings(kSection, values);
}

void FilmPairing::Remember() {
  const DocumentState& document = bench_.document;
  if (!bench_.options.manner.FilmIsAWorkbench() || !document.HasFile() || !document.HasVideo()) return;
  const double seconds = std::clamp(player_.CurrentPosition(), 0.0, 1e6);
  const Pair open{document.SubtitlePath, document.VideoPath, Ms::OfSeconds(seconds)};
  std::vector<Pair> pairs = Kept();
  std::erase_if(pairs, [&](const Pair& pair) { return pair.text == open.text || pair.film == open.film; });
  pairs.insert(pairs.begin(), open);
  if (pairs.size() > kMostPairs) pairs.pop_back();
  Keep(pairs);
}

void FilmPairing::Follow() {
  const Text film = std::exchange(film_, bench_.document.VideoPath);
  const Text text = std::exchange(text_, bench_.document.SubtitlePath);
  if (!bench_.options.manner.FilmIsAWorkbench()) return;
  if (film != film_ && !film_.empty()) OnFilm();
  if (text != text_ && bench_.document.HasFile()) OnText();
}

void FilmPairing::OnFilm() {
  const std::vector<Pair> pairs = Kept();
  const auto pair = std::ranges::find(pairs, film_, &Pair::film);
  const bool known = pair != pairs.end() && files_.Exists(pair->text);
  if (!bench_.document.HasDocument()) {
    const Text text = known ? pair->text : TextBeside(film_);
    if (!text.empty()) Wanted(FileKind::Subtitle, text);
  }
  // The film goes to where it was left, but only with the same text.
  if (known && bench_.document.SubtitlePath == pair->text && pair->ms > 0) {
    player_.SetCurrentPosition(pair->ms.Seconds());
  }
}

void FilmPairing::OnText() {
  if (bench_.document.HasVideo()) return;
  const std::vector<Pair> pairs = Kept();
  const auto pair = std::ranges::find(pairs, text_, &Pair::text);
  const bool known = pair != pairs.end() && files_.Exists(pair->film);
  const Text film = known ? pair->film : FilmBeside(text_);
  if (film.empty()) return;
  asking_ = true;
  const BoxAnswer answer =
      messages_.Show({Fill(bench_.strings[Message::FilmBesideQuestion], FileNameOf(film)), BoxIcon::Question,
                      BoxButtons::YesNo, WithoutDots(bench_.strings[Message::OpenVideo])});
  asking_ = false;
  if (answer == BoxAnswer::Yes) Wanted(FileKind::Film, film);
}

Text FilmPairing::TextBeside(const Text& film) const {
  const Text folder = FolderOfPath(film);
  const Text stem = StemOf(FileNameOf(film));
  Text found;
  CarryOn step;
  step([&] {
    std::vector<Text> names = files_.Names(folder);
    std::ranges::sort(names);
    for (const Text& name : names) {
      if (!IsSubtitleName(name)) continue;
      if (StemOf(name) == stem) {
        found = name;
        break;
      }
      // A subtitle named like the film, with its language in between: film.es.srt.
      if (found.empty() && name.starts_with(stem + u".")) found = name;
    }
  });
  return found.empty() ? Text() : WithSlash(folder) + found;
}

Text FilmPairing::FilmBeside(const Text& text) const {
  const Text folder = FolderOfPath(text);
  const Text own = FileNameOf(text);
  Text found;
  CarryOn step;
  step([&] {
    std::vector<Text> names = files_.Names(folder);
    std::ranges::sort(names);
    for (const Text& name : names) {
      if (KindOfFile(name) == FileKind::Film && own.starts_with(StemOf(name) + u".")) found = name;
    }
  });
  return found.empty() ? Text() : WithSlash(folder) + found;
}

}  // namespace cuewright
