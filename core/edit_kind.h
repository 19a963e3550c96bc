#pragma once

#include <cstdint>

namespace cuewright {

/// What a command does to the captions; names the step that takes it back.
enum class EditKind : std::uint8_t {
  Change,  ///< anything without a name of its own
  Capture,
  Typing,
  SetTimes,
  Insert,
  Remove,
  Split,
  JoinNeighbor,
  Duplicate,
  MeetNext,
  SwapTexts,
  EditText,
  Bold,
  Italic,
  Underline,
  Separator,
  Convert,
  Append,
  FromClipboard,
  Rules,
  Delay,
  Retime,
  Fit,        ///< to the voice
  FitBack,    ///< as it was before that
  FromSound,  ///< times of a text by the film's sound
  ResetTiming,
  Replace,
  ReplaceAll,
  Drag,
  Spelling,
  Cut,
  Paste,
  Case,
  Shift,
  Move,
  Sort,
  Join,
  Fix,     ///< what the check proposed
  Breaks,  ///< lines broken anew
  Cleaning,
  TakeBack,  ///< undo and redo themselves
};

}  // namespace cuewright
