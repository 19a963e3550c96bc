// What retiming costs over a list of 32,000 captions, by each of its ways, and what a split and a join cost in lists of
// several lengths: the first stays under 10 ms, the others are the same whatever the length.

#include <benchmark/benchmark.h>

#include "tools/join_captions.h"
#include "tools/retime.h"
#include "tools/split_caption.h"

namespace cuewright {
namespace {

constexpr int kMostCaptions = 32000;

struct Desk {
  explicit Desk(int captions) {
    std::vector<Caption> rows;
    for (int i = 1; i <= captions; ++i) rows.push_back({i * 1000, i * 1000 + 900, u"A line of some length"});
    list.Replace(1, 1, std::move(rows));
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
};

/// Captions that drift unevenly, known at a number of places.
TimeMap MapThrough(int places) {
  std::vector<TimePoint> points;
  for (int i = 0; i < places; ++i) {
    points.push_back({i * (kMostCaptions / places) * 1000, i * (kMostCaptions / places) * 1001 + i % 3});
  }
  TimeMap map;
  TimeMap::Through(std::move(points), map);
  return map;
}

/// Forth and back, so that times stay within bounds.
void Retime(benchmark::State& state, const TimeMap& forth, const TimeMap& back) {
  Desk desk(kMostCaptions);
  bool away = false;
  for (auto _ : state) {
    RetimeCaptions(desk.list, {RowRange{}}, away ? back : forth);
    away = !away;
  }
}

void RetimeByAShift(benchmark::State& state) { Retime(state, TimeMap::Shift(1500), TimeMap::Shift(-1500)); }

void RetimeByRates(benchmark::State& state) {
  const FrameRate film = 23.976;
  Retime(state, TimeMap::Scale(SpeedRatio::OfRates(25.0, film)), TimeMap::Scale(SpeedRatio::OfRates(film, 25.0)));
}

void RetimeByPoints(benchmark::State& state) {
  const TimeMap map = MapThrough(static_cast<int>(state.range(0)));
  Retime(state, map, map);
}

/// What each key costs in the window of retiming.
void ForeseeingAtEachKey(benchmark::State& state) {
  const Desk desk(kMostCaptions);
  const TimeMap map = MapThrough(5);
  for (auto _ : state) benchmark::DoNotOptimize(ForeseeRetiming(desk.list, {RowRange{}}, map));
}

void SplitAndJoin(benchmark::State& state) {
  Desk desk(static_cast<int>(state.range(0)));
  const Row row = desk.list.Rows() / 2;
  for (auto _ : state) {
    SplitAtPlace(desk.list, row, 6);
    JoinCaptions(desk.list, {row, row + 1}, JoinAs::Lines);
    desk.list.SetCaptionText(row, u"A line of some length");
  }
}

BENCHMARK(RetimeByAShift)->Unit(benchmark::kMillisecond);
BENCHMARK(RetimeByRates)->Unit(benchmark::kMillisecond);
BENCHMARK(RetimeByPoints)->Arg(2)->Arg(20)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(ForeseeingAtEachKey)->Unit(benchmark::kMillisecond);
BENCHMARK(SplitAndJoin)->Arg(100)->Arg(32000);

}  // namespace
}  // namespace cuewright

BENCHMARK_MAIN();
