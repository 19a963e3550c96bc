#pragma once

#include <vector>

#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "core/ports/pickers.h"
#include "formats/catalogue.h"
#include "formats/format_state.h"
#include "forms/format_window.h"
#include "settings/languages.h"
#include "settings/store.h"

namespace cuewright {

/// What the format settings work on.
struct FormatParts {
  const FormatCatalogue& catalogue;
  FormatState& formats;
  SettingsStore& store;
  const LangStrings& strings;
  const Languages& languages;
  Messages& messages;
  Pickers& pickers;
};

/// How a sample of a format is drawn. Colours are 0x00BBGGRR.
struct FormatSample {
  FontChoice font;
  std::int32_t color = 0;
  std::int32_t background = 0;
  int alignment = 2;  ///< 0 left, 1 right, 2 center; -1 none

  bool operator==(const FormatSample&) const = default;
};

/// The format settings at work: the options of the formats with a built-in header. Nothing is stored before OK.
class FormatDialog final : public FormatWindow {
 public:
  explicit FormatDialog(const FormatParts& parts);

  /// Reads all options and selects the format of `SettingsFormatIndex`, or that in force.
  void Open();

  const FormatSample& SamiSample() const { return sami_; }
  const FormatSample& SsaSample() const { return ssa_; }
  Signal<> SamplesChanged;

 private:
  void WireButtons();
  void WireSami();
  void WireSsa();
  void ApplyTexts();
  void ApplyNames();
  void FillList();
  void ShowPanel();

  void ReadDvd(const SettingsReader& store);
  void ReadSami(const SettingsReader& store);
  void ReadSsa(const SettingsReader& store);
  void ReadSsaAlignment(std::int32_t alignment);
  int SsaAlignment() const;
  void Accept();
  void SaveDvd();
  void SaveSami();
  void SaveSsa();
  void Reset();

  void PickFont(FormatSample& sample);
  void PickColor(std::int32_t& color);
  void EnableBorder();
  std::array<TextBox*, 5> NumberBoxes();
  static void Limit(TextBox& box);

  FormatParts parts_;
  const LangStrings& strings_;
  std::vector<int> listed_;  // index in the catalogue of each row of the list
  FormatSample sami_;
  FormatSample ssa_;
  Text samiAlignment_;  // as stored, also when it is none of the list
};

/// "#" and red, green, blue of 0x00BBGGRR, two hexadecimal digits each.
Text WebColor(std::int32_t color);
/// The colour of such a text; digits that are none count as 0.
std::int32_t ColorOfWeb(TextView text);

}  // namespace cuewright
