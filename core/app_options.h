#pragma once

#include <array>
#include <cstdint>

#include "core/manner.h"
#include "text/text.h"

namespace cuewright {

/// The settings of a run, each field with the name and the default of its key in the store. Filled once at
/// start; dialogs change it directly. Bytes that are flags count as true when they aren't 0.
struct AppOptions {
  Manner manner;  ///< key Classic

  // Language and text.
  Text Language = u"---";          ///< name in the language table; "---": none was ever chosen
  std::int16_t LanguageIndex = 0;  ///< row in the language table
  Text LineSeparator = u"|";       ///< key LBREAK

  // Correction rules.
  std::uint8_t AutoSplit = 1;
  std::uint8_t Collision = 1;
  std::uint8_t AutoJoin = 1;
  std::int32_t Near = 200;                                  ///< ms
  std::uint8_t DurationOn = 1;                              ///< key Duration
  std::array<std::int16_t, 3> Duration = {250, 120, 50};    ///< ms per character; keys Duration0 to Duration2
  std::array<std::int16_t, 3> Tolerance = {200, 200, 200};  ///< ms per character; keys Tolerance0 to Tolerance2
  std::uint8_t ApplyWhen = 0;                               ///< 0 on load, 1 during captioning, 2 both
  bool RulesOnLoad = false;  ///< the rules may change what is loaded; else they only look
  std::uint8_t T_CREDITS = 1;
  Text T_CREDITSTEXT = u"@,http,www";

  // Reading of text files: "auto" or "classic".
  Text T_READAS = u"auto";

  // Keyboard shortcuts: key codes of the letters A (65) to Z (90).
  std::uint8_t HotKeys = 1;
  std::int16_t kRewindSecs = 5;
  std::int16_t kForwardSecs = 5;
  std::uint8_t hkPlay = 90, hkPause = 88, hkStop = 67;
  std::uint8_t hkStart = 66, hkNext = 78, hkEnd = 77;
  std::uint8_t hkPrevious = 68, hkJump = 70;
  std::uint8_t hkRewind = 87, hkForward = 69;

  // Subtitle preview. Colours are 0x00BBGGRR.
  Text F_FONTNAME = u"Arial";
  std::uint8_t F_FONTSIZE = 18;
  bool F_FONTBOLD = true;
  std::int32_t F_FONTCOLOR = 16777215;
  bool F_OPAQUE = false;
  bool F_SHADOW = true;
  std::uint8_t F_SHADOWVAL = 1;
  std::uint8_t F_SUBHEIGHT = 90;
  bool F_FOLLOW = true;

  // Player.
  std::uint8_t P_STRETCH = 1;
  Text P_UIMODE = u"full";
  std::uint8_t P_VSFILTERMODE = 0;

  // Main window.
  Text M_FONTNAME = u"Tahoma";
  std::uint8_t M_FONTSIZE = 8;
  bool M_FONTBOLD = false;
  bool M_INFOBAR = true;
  bool M_AUDIOBAR = false;
  bool M_FULLWAVE = false;
  std::int32_t M_AUDIOBARCOLOR = 16776960;
  std::int32_t M_WAVSCALE = 23000;
};

/// True when the automatic timing limit acts during captioning.
inline bool LimitActive(const AppOptions& options) { return options.DurationOn != 0 && options.ApplyWhen != 0; }

}  // namespace cuewright
