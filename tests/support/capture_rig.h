#pragma once

#include <gtest/gtest.h>

#include "capture/caption_panel.h"
#include "capture/time_boxes.h"
#include "capture/timing_capture.h"
#include "core/best_duration.h"
#include "core/caption_time.h"
#include "core/runtime_error.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"

namespace cuewright::testing {

inline constexpr int kKeyB = 66;

inline constexpr int kKeyN = 78;

inline constexpr int kKeyM = 77;

/// A document of four lines, a film that plays, and everything that captures.
struct CaptureRig : ::testing::Test {
  CaptureRig() {
    for (std::size_t id = 0; id < kMessageCount; ++id)
      strings.Set(NumberedMessage(id), u"m" + Decimal(static_cast<long long>(id)));
    options.applyWhen = 0;
    document.SubtitlePath = u"/x/a.srt";
    document.VideoPath = u"/x/a.mkv";
    panel.ResetGrid(CaptionPanel::Showing::BlankCaption);
    for (const char16_t* line : {u"one", u"two", u"three", u"four"}) list.AddCaption(0, 0, line, 0);
    list.SetRow(1, false);
    player.enabled = true;
    player.state = kPlayerPlaying;
    sub.Load();
    // As the controls have it while a film is open.
    window.tmrTime.SetEnabled(true);
    grid.NoteMetrics(200, 20);
    capture.SelectMode(CaptionMode::PressAndHold);
    document.DocModified = false;
  }

  void At(int ms) {
    player.position = ms / 1000.0;
    window.tmrTime.Pass();
  }
  KeyEvent Down(int code, bool repeat = false, std::uint32_t physical = 0) {
    KeyEvent key{code, 0, physical != 0 ? physical : static_cast<std::uint32_t>(code), repeat, false, false};
    capture.OnKeyDown(key);
    return key;
  }
  KeyEvent Up(int code, bool repeat = false, std::uint32_t physical = 0) {
    KeyEvent key{code, 0, physical != 0 ? physical : static_cast<std::uint32_t>(code), repeat, false, false};
    capture.OnKeyUp(key);
    return key;
  }
  std::string Times(Row row) const {
    return std::to_string(list.GetCaptionStart(row).Count()) + "-" + std::to_string(list.GetCaptionEnd(row).Count());
  }
  void PressApply() { window.cmdApply.PressMouse({MouseButton::Left, 1, 1}); }
  void ReleaseApply() { window.cmdApply.ReleaseMouse({MouseButton::Left, 1, 1}); }

  AppOptions options;
  LangStrings strings;
  DocumentState document;
  FakePlayer player;
  MainWindow window;
  SubWindow sub;
  CaptionList list{options, document.DocModified};
  CaptionGrid grid{list};
  CaptionPanel panel{window, list, grid, strings};
  Workbench bench{window, list, grid, document, options, strings};
  PlayerSample sample;
  Preview preview{bench, sub, player, sample};
  TimingCapture capture{bench, player, sample, preview};
  TimeBoxes boxes{window, list};
};

inline KeyEvent enter{kKeyEnter, 0, 36, false, false, false};

}  // namespace cuewright::testing
