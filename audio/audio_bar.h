#pragma once

#include <cstdint>
#include <vector>

#include "audio/wave_peaks.h"
#include "audio/wave_reader.h"
#include "audio/wave_view.h"
#include "capture/main_window.h"
#include "capture/preview.h"
#include "core/app_options.h"
#include "core/caption_list.h"
#include "core/document.h"
#include "core/lang_strings.h"
#include "core/ports/event_queue.h"
#include "core/ports/files.h"
#include "core/ports/messages.h"
#include "core/ports/player.h"
#include "core/signal.h"

namespace cuewright {

/// What the Audio bar works on.
struct AudioBarParts {
  MainWindow& window;
  CaptionList& list;
  Preview& preview;
  PlayerSample& sample;
  DocumentState& document;
  AppOptions& options;
  const LangStrings& strings;
  Files& files;
  Messages& messages;
  EventQueue& events;
  Player& player;
};

/// The lines and shapes over the wave, in pixels of its picture. Those of the caption are shown and hidden together.
struct WaveMarks {
  bool captionShown = false;  ///< `lnStart`, `lnEnd` and `shpWav`
  int start = 0;              ///< x of `lnStart`
  int end = 0;                ///< x of `lnEnd`
  int spanLeft = 1;           ///< left and width of `shpWav`
  int spanWidth = 0;
  bool positionShown = false;  ///< `lnWavPos`
  int position = 0;
  std::int32_t positionColor = 0;
  int arrowLeft = 0;     ///< left of `imgWavPos` in the window
  bool seeking = false;  ///< the picture shows its own pointer

  bool operator==(const WaveMarks&) const = default;
};

/// The Audio bar: the wave of the loaded sound with the marks of the current caption, following the player.
class AudioBar final : private WaveLoadSteps {
 public:
  static constexpr int kHeight = 73;

  explicit AudioBar(AudioBarParts parts);

  /// The pictures to paint on; null for none.
  void SetView(AudioBarView* view);

  /// Applies the settings: scale, checks, colour.
  void LoadOptions();

  /// Reads a wave file and shows it; tells a failure itself. Events are handled meanwhile. `recall`: the File menu
  /// offers the file again.
  void LoadWaveFile(TextView path, bool recall = true);
  /// The bar is that of the manner in force.
  void ShowManner();
  /// Switches the bar on when it is off.
  void ShowBar();
  /// Clears the pictures and draws the grid; with `full` the wave is forgotten and its marks are hidden.
  void ResetWaveBar(bool full);
  /// Gives a running load up and forgets the wave; nothing without one.
  void Forget();
  /// Paints the columns from `first` on; 0 also goes back to the beginning.
  void DrawWave(std::int32_t first);
  void SetWaveColor(std::int32_t color);
  /// Places or hides the marks for a caption's times in ms.
  void PlaceCaptionMarks(Ms startTime, Ms endTime);
  /// The same for the current row, while a wave and a document are open.
  void PlaceCurrentMarks();
  /// The picture's height may have changed: the wave is painted anew.
  void Repaint();

  // The pointer over the wave, x in pixels of its picture. `held` is the button that is down during a move.
  void OnPress(MouseButton button, int x);
  void OnMove(MouseButton held, int x);
  void OnRelease(MouseButton button);
  /// The pointer is over the window beside the wave.
  void OnPointerElsewhere();

  MainWindow& Window() { return p_.window; }
  bool Loaded() const { return !p_.document.WavePath.empty(); }
  const WavePeaks& Peaks() const { return peaks_; }
  const WaveView& View() const { return view_; }
  const WaveMarks& Marks() const { return marks_; }
  /// A mark of the caption is held by the pointer.
  bool Dragging() const { return dragging_; }
  std::int32_t WaveLevel() const { return level_; }

  Signal<AudioBar> MarksChanged;         ///< `Marks` are to be shown anew
  Signal<AudioBar> WaveChanged;          ///< the wave's picture was painted
  Signal<AudioBar> LevelChanged;         ///< the meter was painted
  Signal<AudioBar> LayoutChanged;        ///< the bar came or went
  Signal<AudioBar, const Text&> Opened;  ///< a wave was read
  Signal<AudioBar> Forgotten;            ///< the wave isn't shown any more

 private:
  enum class Drag { Span, Start, End, Nothing };

  void OnHeader() override;
  void OnBegin() override;
  std::int32_t ScreenColumns() const override { return view_.columns; }
  void OnScreenful() override { DrawWave(0); }
  bool OnProgress(std::int64_t position, std::int64_t size) override;

  void ToggleBar();
  void ToggleFullHeight();
  void OnSlider();
  void OnState(int state);
  void Follow();
  void FollowSteps();
  void ShowLevel();
  void ClearLevel();
  void HidePosition();
  void TurnPage(std::int32_t column);
  void EndLoad(WaveLoadResult result);
  void PressMark(int x);
  void Seek(int x);
  void DragMarks(int x);
  void StoreDrag();
  void EndDrag();
  /// A drag keeps the row and the page that it began with.
  bool HoldsDrag() const { return dragging_ && p_.options.manner.FollowWaitsForHands(); }
  bool Rolling() const;
  int WaveWidth() const { return shown_ == nullptr ? 0 : shown_->Wave().InnerWidth(); }
  void SetMarks(const WaveMarks& marks);

  AudioBarParts p_;
  AudioBarView* shown_ = nullptr;
  WavePeaks peaks_;
  WaveView view_;
  WaveMarks marks_;
  Text path_;  // of the load that runs
  bool recall_ = true;
  bool abort_ = false;         // the load that runs is to be given up
  std::uint32_t loads_ = 0;    // a load that finds another number was overtaken
  std::uint32_t current_ = 0;  // number of the load that runs
  std::uint32_t paints_ = 0;
  bool yielding_ = false;
  Drag drag_ = Drag::Span;
  int dragOffset_ = 0;
  std::uint64_t drags_ = 0;
  bool dragging_ = false;
  Row dragRow_ = 0;
  bool resumePlay_ = false;
  std::int32_t cursorEntry_ = 0;
  std::int32_t level_ = 0;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
