#pragma once

#include <array>
#include <cstdint>

#include "core/manner.h"
#include "text/text.h"

namespace cuewright {

/// The settings of a run with their defaults. Filled once at start; dialogs change them directly. Bytes that are flags
/// count as true when they aren't 0, and are stored as they were loaded.
struct AppOptions {
  Manner manner;

  // Language and text.
  Text language = u"---";        ///< name in the language table; "---": none was ever chosen
  std::int16_t languageRow = 0;  ///< row in the language table
  Text lineSeparator = u"|";     ///< between the lines of a caption

  // Correction rules.
  std::uint8_t autoSplit = 1;
  std::uint8_t avoidCollision = 1;
  std::uint8_t autoJoin = 1;
  std::int32_t nearMs = 200;       ///< a start so near to the end before is moved to it
  std::uint8_t limitDuration = 1;  ///< captions are held to the durations below
  std::array<std::int16_t, 3> durationPerCharacter = {250, 120, 50};  ///< ms, of short, medium and long captions
  std::array<std::int16_t, 3> durationTolerance = {200, 200, 200};    ///< ms beyond which they are corrected
  std::uint8_t applyWhen = 0;                                         ///< 0 on load, 1 during captioning, 2 both
  bool changeOnLoad = false;  ///< the rules may change what is loaded; else they only look
  std::uint8_t removeCredits = 1;
  Text creditWords = u"@,http,www";  ///< with commas between; what has one of them is credits

  Text checkProfile = u"plain";  ///< name of the house rules that captions are held against

  Text readAs = u"auto";  ///< how text files are read: "auto" or "classic"

  // Keyboard shortcuts: key codes of the letters A (65) to Z (90).
  std::uint8_t hotkeysOn = 1;
  std::int16_t rewindSeconds = 5;
  std::int16_t forwardSeconds = 5;
  std::uint8_t playKey = 90, pauseKey = 88, stopKey = 67;
  std::uint8_t startKey = 66, nextKey = 78, endKey = 77;
  std::uint8_t previousKey = 68, jumpKey = 70;
  std::uint8_t rewindKey = 87, forwardKey = 69;

  // Subtitle preview. Colours are 0x00BBGGRR.
  Text previewFontName = u"Arial";
  std::uint8_t previewFontSize = 18;
  bool previewFontBold = true;
  std::int32_t previewColor = 16777215;
  bool previewOpaque = false;
  bool previewShadow = true;
  std::uint8_t previewShadowDepth = 1;
  std::uint8_t previewHeight = 90;  ///< where the text stands, in per cent of the picture from above
  bool followCaptions = true;       ///< the list shows the caption at the position played

  // Captions that are held by hand, and the voice. Lateness and its spread in ms, of keys, mouse and pedal; all of a
  // hand that was never measured are 0.
  bool fitOnRelease = true;  ///< each caption is fitted to the voice after its release
  Text fitLanguage;          ///< of the words that captions are fitted by, such as "en"; empty: without them
  std::uint8_t hand = 0;     ///< what captions are held with: 0 keys, 1 mouse, 2 pedal
  std::array<std::int16_t, 3> pressLate = {0, 0, 0};
  std::array<std::int16_t, 3> pressSpread = {0, 0, 0};
  std::array<std::int16_t, 3> releaseLate = {0, 0, 0};
  std::array<std::int16_t, 3> releaseSpread = {0, 0, 0};

  // Player.
  std::uint8_t stretchVideo = 1;
  Text playerControls = u"full";  ///< "none", "mini" or "full"
  std::uint8_t filterMode = 0;    ///< 0 off while the program runs, else hidden captions

  // Main window.
  Text listFontName = u"Tahoma";
  std::uint8_t listFontSize = 8;
  bool listFontBold = false;
  bool infoBarOn = true;
  bool infoBarUnfolded = false;  ///< the band has its full height; in the classic manner always
  bool toolBarOn = true;
  bool audioBarOn = false;
  bool fullWave = false;
  Text listColumns;            ///< order, widths and hiding of the list's columns; empty: the program's own
  std::uint8_t listTimes = 0;  ///< times in the list: 0 as a clock, 1 in ms, 2 in frames
  bool rawMarks = false;       ///< list and text pane show the marks in the texts
  std::int32_t waveColor = 16776960;
  std::int32_t waveScale = 23000;
  std::int32_t waveZoom = 10000;  ///< of the wave to work in: microseconds a pixel
  std::int32_t waveHeight = 180;  ///< of the same, in pixels
  std::uint8_t waveLook = 0;      ///< 0 the wave, 1 the spectrogram, 2 both
  bool waveCentred = false;       ///< the position played stays in the middle
  bool waveSnaps = true;          ///< what is dragged snaps to captions, shots and the voice
  bool findShots = true;          ///< the shots of a film are looked for when it has opened
  std::int32_t shotSense = 100;   ///< sensitivity with which they are told, in percent of the usual one
  bool hardwareDecoding = false;  ///< the film is decoded by the graphics card where that can be
  std::uint8_t retakeStep = 0;    ///< how far a retake goes back, as a row of its choices
};

/// True when the automatic timing limit acts during captioning.
inline bool LimitActive(const AppOptions& options) { return options.limitDuration != 0 && options.applyWhen != 0; }

}  // namespace cuewright
