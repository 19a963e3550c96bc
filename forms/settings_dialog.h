#pragma once

#include <functional>

#include "capture/preview.h"
#include "capture/timing_capture.h"
#include "core/document.h"
#include "core/lang_strings.h"
#include "core/ports/video_filter.h"
#include "forms/ports.h"
#include "forms/settings_window.h"
#include "settings/languages.h"
#include "settings/options.h"
#include "settings/store.h"

namespace cuewright {

/// What the settings dialog works on.
struct SettingsParts {
  AppOptions& options;
  const LangStrings& strings;
  SettingsStore& store;
  Languages& languages;
  const DocumentState& document;
  Preview& preview;
  TimingCapture& capture;
  VideoFilter& filter;
  Ports ports;
};

/// The settings dialog at work. Its controls change the options as the user works; OK stores them. The language is
/// stored whenever the dialog closes.
class SettingsDialog final : public SettingsWindow {
 public:
  explicit SettingsDialog(const SettingsParts& parts);

  /// Takes a row of the language table and labels all other windows anew. Set by the owner of the windows.
  std::function<void(std::size_t)> changeLanguage;

  /// Fills the dialog: on a first run at the language, else at the first page.
  void Open();

  /// Shows one page; a number beyond the last is the last.
  void ShowSettingsPage(std::size_t index);
  std::size_t Page() const { return page_; }
  /// Sets every control from the options.
  void FillSettingsControls();
  /// Shows a text in the details area; an empty one hides the area.
  void ShowSettingsDetails(TextView text);
  /// Loads the strings of the language in force and sets all captions.
  void ApplySettingsDialogLanguage();

  /// How the sample is drawn. The background is 0x00BBGGRR, or that of the window.
  struct Sample {
    Text fontName;
    int fontSize = 0;  ///< points
    bool bold = false;
    std::int32_t color = 0;
    int shadowShift = 0;  ///< pixels, right and down
    bool windowBackground = false;
    std::int32_t background = 0;

    bool operator==(const Sample&) const = default;
  };
  const Sample& GetSample() const { return sample_; }
  Signal<SettingsDialog> SampleChanged;
  Signal<SettingsDialog> PageChanged;
  Signal<SettingsDialog> LanguageApplied;
  /// All that the details area can tell, by which it is measured.
  std::vector<Text> DetailTexts() const;
  /// The flag is that of this row of the language table.
  std::int16_t FlagRow() const { return parts_.options.languageRow; }

 protected:
  void OnClose() override;

 private:
  void WireHover();
  void WirePageHover();
  void WireRules();
  void WirePanels();
  void WireKeys();
  void WirePlayer();
  void WirePreview();
  void WireLanguage();
  void Tells(Control& control, Message message);

  void ApplyPageTexts();
  void ApplyNames();
  void ApplyLanguagePage();
  void EnableRuleControls();
  void EnableKeyControls();
  void ShowRuleLabels();
  void ShowPreviewLabels();
  void FillFilterControls();

  void OpenPanel(std::size_t panel);
  void ClosePanels();
  void PointAtMenu(std::size_t entry);
  void LeaveMenu();
  /// In the language in force, details that are on show.
  void RenewDetails();

  void TakeHotkey(std::size_t index, KeyEvent& key);
  void TakeHotkeyText(std::size_t index);
  void TakePosition(std::size_t index);
  void TakeCredits();
  void TakeOpenFields();
  void TakeUiMode();
  void DrawSample();
  void ApplyPlayerSettings();
  void PickFont();
  void PickColor();
  void ChooseLanguage();
  void CompleteTranslation();
  void Accept();
  void Reset();

  /// A rule's panel: the check box above it, the images that open it, its height in pixels.
  struct Panel {
    CheckBox& check;
    Picture& image;
    Picture& area;
    int height;
  };
  std::array<Panel, 3> Panels();

  SettingsParts parts_;
  AppOptions& options_;
  const LangStrings& strings_;
  HotkeyLetters letters_;
  std::size_t page_ = 0;
  std::int16_t percent_ = 100;
  Sample sample_;
  // Fields that were typed into and still have the focus.
  bool creditsOpen_ = false;
  std::array<bool, 2> positionOpen_{};
};

}  // namespace cuewright
