#include "forms/sync_page.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "core/counting.h"
#include "core/numbers.h"
#include "core/paths.h"
#include "core/runtime_error.h"
#include "tools/typed_time.h"
#include "voice/voice_likeness.h"

namespace cuewright {
namespace {

/// "+2.340" seconds.
Text SignedSeconds(Ms ms) {
  const std::int64_t size = std::abs(ms.Wide());
  return (ms < 0 ? u"-" : u"+") + Decimal(size / 1000) + u"." + Padded(size % 1000, 3);
}

}  // namespace

SyncPage::SyncPage(Form& window, Workbench bench, SyncSources sources)
    : fraSync(window, "fraSync"),
      cmdSyncFind(window, "cmdSyncFind"),
      cmdSyncFile(window, "cmdSyncFile"),
      picSegments(window, "picSegments"),
      lstSegments(window, "lstSegments"),
      lblOffset(window, "lblOffset"),
      txtOffset(window, "txtOffset"),
      cmdSetOffset(window, "cmdSetOffset"),
      cmdFreeSegment(window, "cmdFreeSegment"),
      cmdBorder(window, "cmdBorder"),
      cmdJoinSegment(window, "cmdJoinSegment"),
      tmrSync(window, "tmrSync", 100),
      bench_(bench),
      sources_(sources) {
  Wire();
}

SyncPage::~SyncPage() = default;

void SyncPage::Wire() {
  cmdSyncFind.Clicked.Connect([this] { ClickFind(); });
  cmdSyncFile.Clicked.Connect([this] { FindAmongCaptions(); });
  // Another document replaces this one, or it closes.
  bench_.list.EnabledChanged.Connect([this](bool on) {
    if (!on) Forget();
  });
  tmrSync.Tick.Connect([this] { Poll(); });
  lstSegments.Chosen.Connect([this] {
    Show(Chosen());
    if (Chosen() >= 0) bench_.list.SetRow(ItemAt(segments_, Chosen()).found.first, true);
  });
  // Enter takes over what was typed; it must not press the window's OK.
  txtOffset.KeyDown.Connect([this](KeyEvent& key) {
    if (key.code != kKeyEnter) return;
    key.handled = true;
    cmdSetOffset.Click();
  });
  cmdSetOffset.Clicked.Connect([this] { SetOffset(); });
  cmdFreeSegment.Clicked.Connect([this] {
    if (Chosen() < 0) return;
    ItemAt(segments_, Chosen()).fixed = false;
    Show(Chosen());
  });
  cmdBorder.Clicked.Connect([this] { PutBorder(); });
  cmdJoinSegment.Clicked.Connect([this] { Join(); });
}

void SyncPage::ApplyLanguage() {
  const LangStrings& strings = bench_.strings;
  ShowSearching();
  cmdSyncFile.SetText(strings[Message::SyncByCaptions]);
  picSegments.SetSpokenName(strings[Message::SpokenTimeLine]);
  lblOffset.SetText(strings[Message::SyncOffset]);
  cmdSetOffset.SetText(strings[Message::SetPoint]);
  cmdFreeSegment.SetText(strings[Message::SyncRelease]);
  cmdBorder.SetText(strings[Message::SyncBorder]);
  cmdJoinSegment.SetText(strings[Message::SyncJoin]);
  txtOffset.SetSpokenName(strings[Message::SyncOffset]);
  lstSegments.SetSpokenName(strings[Message::SpokenSegments]);
  if (told_.empty()) told_ = strings[Message::SyncNothing];
  Show(Chosen());
}

void SyncPage::Forget() {
  Stop();
  segments_.clear();
  told_.clear();
  Show(-1);
}

void SyncPage::Tell(Message message) {
  told_ = Fill(bench_.strings[message], FileNameOf(otherName_));
  Changed();
}

void SyncPage::ClickFind() {
  if (!tmrSync.Enabled()) return FindInFilm();
  Stop();
  Tell(Message::SyncStopped);
}

void SyncPage::FindInFilm() {
  otherName_.clear();
  FilmVoice& film = sources_.film;
  if (!bench_.document.HasVideo() || !film.Possible()) return Tell(Message::SyncFilmWanted);
  if (film.Reading()) return;
  CarryOn steps;
  const bool known = film.Known() != nullptr;
  if (!known && !steps([&] { film.BeginReading(); })) return Tell(Message::SyncFilmWanted);
  Begin();
  Tell(Message::SyncFinding);
  if (known) Search();
}

void SyncPage::FindAmongCaptions() {
  const Text path = sources_.files.OpenFileFilter();
  if (path.empty()) return;
  std::vector<CaptionTimes> others = sources_.others.Read(path, sources_.player.FramesPerSecond());
  if (others.empty()) return;
  otherName_ = path;
  Begin();
  Tell(Message::SyncAmongCaptions);
  search_ = std::async(std::launch::async, [times = times_, others = std::move(others)] {
    return Synchronise(times, VoiceOfCaptions(others), others);
  });
}

void SyncPage::Begin() {
  times_ = bench_.list.AllTimes();
  tmrSync.SetEnabled(true);
  ShowSearching();
}

void SyncPage::Stop() {
  if (!tmrSync.Enabled()) return;
  tmrSync.SetEnabled(false);
  if (search_.valid()) {
    // The search uses nothing of the window, so closing it needs no waiting.
    std::erase_if(left_,
                  [](const auto& each) { return each.wait_for(std::chrono::seconds(0)) == std::future_status::ready; });
    left_.push_back(std::move(search_));
  } else {
    sources_.film.StopReading();
  }
  ShowSearching();
}

void SyncPage::ShowSearching() {
  cmdSyncFind.SetText(bench_.strings[tmrSync.Enabled() ? Message::StopReading : Message::SyncFind]);
  cmdSyncFile.SetEnabled(!tmrSync.Enabled());
}

void SyncPage::Search() {
  search_ = std::async(std::launch::async, [times = times_, sound = sources_.film.Known()] {
    return Synchronise(times, VoiceOfSound(*sound));
  });
}

void SyncPage::Poll() {
  if (search_.valid()) {
    if (search_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) Finish();
    return;
  }
  if (sources_.film.Poll()) return;
  if (sources_.film.Known()) return Search();
  Stop();
  Tell(Message::SyncFilmWanted);
}

void SyncPage::Finish() {
  tmrSync.SetEnabled(false);
  ShowSearching();
  const SyncResult result = search_.get();
  if (times_ != bench_.list.AllTimes()) return Tell(Message::TextChangedMeanwhile);
  if (!result.belongs) return Tell(otherName_.empty() ? Message::SyncForeign : Message::SyncForeignCaptions);
  ratio_ = result.ratio;
  segments_ = UnderFixed(result.segments);
  Show(-1);
  Changed();
}

std::vector<SyncPage::Segment> SyncPage::UnderFixed(const std::vector<SyncSegment>& found) const {
  std::vector<Segment> all;
  for (const Segment& segment : segments_) {
    if (segment.fixed) all.push_back(segment);
  }
  const std::size_t fixed = all.size();
  for (SyncSegment segment : found) {
    // Segments that were set by hand are cut out of the found one, which may leave several pieces.
    for (std::size_t at = 0; at < fixed && segment.first <= segment.last; ++at) {
      const SyncSegment& held = all[at].found;
      if (held.last < segment.first || held.first > segment.last) continue;
      if (segment.first < held.first) {
        SyncSegment front = segment;
        front.last = held.first - 1;
        all.push_back({front, false});
      }
      segment.first = held.last + 1;
    }
    if (segment.first <= segment.last) all.push_back({segment, false});
  }
  std::ranges::sort(all, {}, [](const Segment& segment) { return segment.found.first; });
  return all;
}

SyncSureness SyncPage::SurenessOf(const Segment& segment) {
  if (segment.fixed) return SyncSureness::Fixed;
  return segment.found.doubtful ? SyncSureness::Doubtful : SyncSureness::Sure;
}

Text SyncPage::SurenessText(const Segment& segment) const {
  const LangStrings& strings = bench_.strings;
  switch (SurenessOf(segment)) {
    case SyncSureness::Fixed:
      return strings[Message::SyncFixed];
    case SyncSureness::Doubtful:
      return strings[Message::SyncDoubtful];
    case SyncSureness::Sure:
      break;
  }
  return Fill(strings[Message::SyncSure], Decimal(std::lround(segment.found.confidence * 100)));
}

void SyncPage::Show(int chosen) {
  const LangStrings& strings = bench_.strings;
  std::vector<Text> rows;
  for (const Segment& segment : segments_) {
    const SyncSegment& found = segment.found;
    rows.push_back(Fill(strings[Message::SyncSegment], Decimal(found.first.Number()), Decimal(found.last.Number())) +
                   u":  " + SignedSeconds(found.offset) + u"  (" + SurenessText(segment) + u")");
  }
  if (rows != lstSegments.Items()) lstSegments.SetItems(std::move(rows));
  if (chosen >= 0 && chosen < std::ssize(segments_)) lstSegments.SetIndex(chosen);
  const bool any = Chosen() >= 0 && Chosen() < std::ssize(segments_);
  const Segment segment = any ? ItemAt(segments_, Chosen()) : Segment{};
  txtOffset.SetText(any ? SignedSeconds(segment.found.offset) : Text());
  txtOffset.SetEnabled(any);
  cmdSetOffset.SetEnabled(any);
  cmdFreeSegment.SetEnabled(any && segment.fixed);
  cmdBorder.SetEnabled(!segments_.empty());
  cmdJoinSegment.SetEnabled(any && Chosen() > 0);
  Shown();
}

std::vector<SyncBlock> SyncPage::Blocks() const {
  std::vector<SyncBlock> blocks;
  for (const Segment& segment : segments_) {
    SyncBlock block;
    block.offset = SignedSeconds(segment.found.offset);
    block.sureness = SurenessOf(segment);
    block.chosen = std::ssize(blocks) == Chosen();
    block.start = TimesOf(segment.found.first, bench_.list.TimesAt(segment.found.first)).start;
    for (Row row = segment.found.first; row <= segment.found.last && bench_.list.InRange(row); ++row) {
      block.end = std::max(block.end, RetimedTimes(bench_.list.TimesAt(row), MapOf(segment)).times.end);
    }
    blocks.push_back(std::move(block));
  }
  return blocks;
}

void SyncPage::SetOffset() {
  const int chosen = Chosen();
  TextView typed = txtOffset.GetText();
  const bool earlier = typed.starts_with(u'-');
  if (earlier || typed.starts_with(u'+')) typed.remove_prefix(1);
  const std::optional<Ms> ms = TypedTime(Text(typed));
  if (chosen < 0 || !ms) return;
  Segment& segment = ItemAt(segments_, chosen);
  segment.found.offset = earlier ? -*ms : *ms;
  segment.fixed = true;
  Show(chosen);
  Changed();
}

void SyncPage::PutBorder() {
  const Row row = bench_.list.Selected();
  const auto at = std::ranges::find_if(
      segments_, [row](const Segment& each) { return each.found.first < row && row <= each.found.last; });
  if (at == segments_.end()) return;
  Segment behind = *at;
  behind.found.first = row;
  behind.fixed = true;
  at->found.last = row - 1;
  at->fixed = true;
  const int place = PlaceAt(segments_, at) + 1;
  segments_.insert(at + 1, behind);
  Show(place);
  Changed();
}

void SyncPage::Join() {
  const int chosen = Chosen();
  if (chosen <= 0) return;
  const auto at = segments_.begin() + chosen;
  (at - 1)->found.last = at->found.last;
  (at - 1)->fixed = true;
  segments_.erase(at);
  Show(chosen - 1);
  Changed();
}

TimeMap SyncPage::MapOf(const Segment& segment) const {
  return TimeMap::ScaleAndShift({ratio_.numerator, ratio_.denominator}, segment.found.offset);
}

std::vector<RetimePiece> SyncPage::Pieces() const {
  std::vector<RetimePiece> pieces;
  for (const Segment& segment : segments_) {
    pieces.push_back({{segment.found.first, segment.found.last}, MapOf(segment)});
  }
  return pieces;
}

CaptionTimes SyncPage::TimesOf(Row row, const CaptionTimes& own) const {
  const auto at = std::ranges::find_if(
      segments_, [row](const Segment& each) { return each.found.first <= row && row <= each.found.last; });
  return at == segments_.end() ? own : RetimedTimes(own, MapOf(*at)).times;
}

}  // namespace cuewright
