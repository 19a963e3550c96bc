#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "audio/audio_bar.h"
#include "audio/board_captions.h"
#include "audio/board_drag.h"
#include "audio/board_painter.h"
#include "audio/shot_snaps.h"
#include "audio/voice_edges.h"
#include "audio/wave_details.h"
#include "audio/wave_scale.h"
#include "capture/player_sample.h"
#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/player.h"

namespace cuewright {

/// The keys that the wave takes.
enum class BoardKey : std::uint8_t {
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  Home,
  End,
  Enter,
  Escape,
  Nearer,
  Farther
};

/// What is held with a key or the pointer.
struct BoardHeld {
  bool shift = false;
  bool control = false;
};

/// Words in the picture, in pixels of it.
struct BoardWord {
  enum class Kind : std::uint8_t { Time, Caption, Snap };
  Kind kind = Kind::Time;
  int left = 0;
  int width = 0;
  RowBand band;
  Text text;
};

/// The shape of the pointer over the picture.
enum class BoardPointer : std::uint8_t { Usual, Edge, Move, Seek };

/// The Audio bar of today's manner: the wave, or its spectrogram, at any scale, with all captions, which hands and keys
/// move.
class WaveBoard {
 public:
  WaveBoard(Workbench bench, AudioBar& bar, WaveDetails& details, Player& player, PlayerSample& sample);

  ShotSnaps shots;
  /// What a house asks of edges.
  void SetRules(const EdgeRules& rules);

  /// Takes over the settings.
  void LoadOptions();
  /// What is shown has changed.
  void ShowAnew() { Show(); }

  // The picture.
  void SetSize(int width, int height);
  /// Paints all but the words and the position played.
  void Paint(const PixelCanvas& canvas);
  std::vector<BoardWord> Words();
  /// Where the position played stands; none out of the picture.
  std::optional<int> PositionX() const;
  const WaveScale& Scale() const { return scale_; }
  const std::vector<BoardBlock>& Blocks();

  // The commands.
  void Zoom(double factor);
  void SetLook(BoardLook look);
  void SetCentred(bool centred);
  /// The bar is to have this height in pixels, as far as the window has room.
  void SetHeight(int height);
  /// The selected caption, with a second before it.
  void ShowCaption();
  /// The stretch of the wave that is selected.
  const std::optional<CaptionTimes>& Stretch() const { return stretch_; }
  void ClearStretch();
  /// Where one works in it: the beginning of the stretch, or the edge that was chosen by keys; none without either.
  std::optional<Ms> Cursor() const;
  /// The nearest place before (behind) a time that an edge snaps to: of a shot, or where a voice begins or ends.
  std::optional<Ms> NextPoint(CaptionEdge edge, Ms ms, bool back) const;

  // The hands. x and y in pixels of the picture.
  void Press(MouseButton button, int x, int y, BoardHeld held);
  void Move(int x, int y, BoardHeld held);
  void Release(BoardHeld held);
  /// Turns of the wheel, forward or to the left positive.
  void Wheel(double turns, int x, BoardHeld held);
  /// Two fingers went apart (above 1) or came together.
  void Pinch(double factor, int x);
  /// False when the key means nothing here.
  bool Press(BoardKey key, BoardHeld held);
  BoardPointer PointerAt(int x, int y, BoardHeld held);
  /// A hand holds a caption.
  bool Dragging() const { return drag_.has_value(); }
  const BoardDrag* Held() const { return drag_ ? &*drag_ : nullptr; }
  /// What is chosen, for a screen reader.
  Text Spoken() const;

  Signal<WaveBoard> Changed;          ///< the picture is another one
  Signal<WaveBoard> PositionChanged;  ///< only the position played has moved
  Signal<WaveBoard> HeightChosen;     ///< the settings tell another height of the bar
  Signal<WaveBoard> CaptionWanted;    ///< a caption of the stretch
  Signal<WaveBoard> SpokenChanged;

 private:
  enum class Hand : std::uint8_t { None, Pressed, Dragging, Stretching, Seeking };

  bool Shown() const { return bench_.options.audioBarOn && bench_.options.manner.WaveIsAWorkbench(); }
  void Wire();
  void Show();
  void Build();
  void ScrollTo(double ms);
  void ScrollTo(Ms ms) { ScrollTo(static_cast<double>(ms.Count())); }
  BoardBands Bands() const;
  std::vector<Ms> ChosenEdges() const;
  void FollowPosition();
  void BringIntoView(Row row);
  void OnSelection();
  void KeepScale();

  BoardHit HitAt(int x, int y, BoardHeld held);
  Ms MsAt(int x) const;
  void BeginDrag(const BoardHit& hit, bool byRightButton);
  void DragTo(int x, BoardHeld held);
  void EndDrag();
  void StretchTo(int x, BoardHeld held);
  void SeekTo(Ms ms);
  void ClickAt(int x);
  bool Cancel();
  struct Snap {
    SnapPoint point;
    Ms by = 0;
  };
  std::optional<Snap> SnapOf(const std::vector<BoardDrag::Edge>& edges) const;
  void FindCaptionPoints(CaptionEdge edge, Ms from, Ms to, std::vector<SnapPoint>& found) const;
  Ms ReachOf(SnapKind kind) const;

  void ChooseEdge(bool on);
  void PressArrow(bool back, BoardHeld held);
  void StepEdge(Ms by);
  void StepToPoint(bool back);
  void StepPosition(bool back, bool stretches);

  Workbench bench_;
  AudioBar& bar_;
  WaveDetails& details_;
  Player& player_;
  PlayerSample& sample_;
  WaveScale scale_;
  int height_ = 0;
  bool built_ = false;
  BoardCaptions captions_;
  BoardPainter painter_;
  VoiceSnaps voices_;
  EdgeRules rules_;
  Row broughtRow_ = 0;  ///< the caption that was brought into view last
  Ms shownMs_ = -1;     ///< the position at the last tick

  Hand hand_ = Hand::None;
  MouseButton button_ = MouseButton::None;
  int pressX_ = 0;
  BoardHit pressHit_;
  bool onRuler_ = false;
  bool selecting_ = false;  ///< the hand selects: what it selects is in view
  std::optional<BoardDrag> drag_;
  std::optional<SnapPoint> snapped_;
  std::optional<CaptionTimes> stretch_;
  BoardPart chosen_ = BoardPart::Nothing;  ///< of the selected caption, by the keyboard
  std::vector<Connection> connections_;
};

}  // namespace cuewright
