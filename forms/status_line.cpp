#include "forms/status_line.h"

#include <cmath>

#include "capture/caption_cells.h"
#include "core/frame_rate.h"
#include "core/numbers.h"
#include "text/visible_length.h"

namespace cuewright {
namespace {

/// The reading speed of more rows isn't counted: it would be felt at each key.
constexpr int kMostRowsCounted = 2000;
constexpr TextView kBetween = u"     ";

}  // namespace

StatusLine::StatusLine(Workbench bench, Player& player) : bench_(bench), player_(player) {
  bench_.list.SelectionChanged.Connect([this](Row) { Show(); });
  bench_.list.CommandEnded.Connect([this] { Show(); });
  bench_.list.EnabledChanged.Connect([this](bool) { Show(); });
  bench_.grid.Changed.Connect([this] { Show(); });
  player.ControlsChange.Connect([this] { Show(); });
}

Text StatusLine::TextOfSelection() const {
  const CaptionList& list = bench_.list;
  std::int64_t length = 0;
  std::int64_t characters = 0;
  const bool counted = list.SelectedRows().Count() <= kMostRowsCounted;
  for (const Row row : list.SelectedRows().Rows()) {
    const CaptionTimes times = list.TimesAt(row);
    if (times.end <= times.start) continue;
    length += Span(times.start, times.end);
    if (counted) characters += VisibleLength(list.GetSeenText(row, true), false);
  }
  if (length == 0) return {};
  Text text = Text(kBetween) + Fill(bench_.strings[Message::StatusLength], LengthCell(length, bench_.grid.Times()));
  if (!counted) return text;
  const auto tenths = std::llround(ToReal(characters) * 10000 / ToReal(length));
  return text + Text(kBetween) +
         Fill(bench_.strings[Message::StatusSpeed], Decimal(tenths / 10) + u"." + Decimal(tenths % 10));
}

void StatusLine::ShowFrame(std::int64_t frame, Ms ms) {
  Show();
  Label& label = bench_.window.lblStatus;
  const Text before = label.GetText();
  label.SetText((before.empty() ? Text() : before + Text(kBetween)) +
                Fill(bench_.strings[Message::StatusFrame], Decimal(frame), TimeCell(ms, {})));
}

void StatusLine::Show() {
  Label& label = bench_.window.lblStatus;
  label.SetVisible(bench_.options.manner.HasCalmWindow());
  if (!bench_.document.HasDocument()) return label.SetText({});
  if (!bench_.list.Enabled()) return;
  Text text = bench_.strings.Counted(Message::StatusCaptions, u"%1", bench_.list.Count());
  const int selected = bench_.list.SelectedRows().Count();
  if (selected > 1) text += Text(kBetween) + Fill(bench_.strings[Message::StatusSelected], Decimal(selected));
  text += TextOfSelection();
  if (const FrameRate rate = player_.FramesPerSecond(); rate && bench_.document.HasVideo()) {
    text += Text(kBetween) + Fill(bench_.strings[Message::StatusRate], rate.AsText());
  }
  label.SetText(std::move(text));
}

}  // namespace cuewright
