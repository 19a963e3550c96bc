#pragma once

#include <array>
#include <vector>

#include "core/ports/pickers.h"
#include "form/controls.h"
#include "forms/control_texts.h"
#include "settings/store.h"

namespace cuewright {

/// The options of one format with a built-in header: the part of the format settings that shows and stores them.
class FormatPanel {
 public:
  /// The controls belong to `window`; the identifier is that of the format.
  FormatPanel(Form& window, TextView identifier) : window_(window), identifier_(identifier) {}
  FormatPanel(const FormatPanel&) = delete;
  FormatPanel& operator=(const FormatPanel&) = delete;
  virtual ~FormatPanel() = default;

  TextView Identifier() const { return identifier_; }
  /// What holds the panel's controls.
  virtual Control& Area() = 0;
  /// Sets all texts in the language in force.
  virtual void ApplyTexts(const LangStrings& strings) = 0;
  /// Shows the options of the store; one that it hasn't has its default.
  virtual void Read(const SettingsReader& store);
  void Save(SettingsStore& store) const;

 protected:
  /// A box that shows an option as it is stored.
  struct Field {
    TextBox* box;
    TextView key;
    TextView fallback;
  };

  Text Value(const SettingsReader& store, TextView key, TextView fallback) const;
  /// The options that no field shows; they are stored first.
  virtual std::vector<SettingsStore::KeyValue> FurtherValues() const { return {}; }

  Form& window_;
  std::vector<Field> fields_;

 private:
  TextView identifier_;
};

/// How a sample of a format is drawn. Colours are 0x00BBGGRR.
struct FormatSample {
  FontChoice font;
  std::int32_t color = 0;
  std::int32_t background = 0;
  int alignment = 2;  ///< 0 left, 1 right, 2 center; -1 none
};

/// A panel with a sample of the format's look.
class SamplePanel : public FormatPanel {
 public:
  /// The keys of the font's name and size, and its defaults.
  struct FontKeys {
    TextView name;
    TextView size;
    TextView defaultSize;
    TextView defaultBold;
  };

  SamplePanel(Form& window, TextView identifier, const FontKeys& font, Pickers& pickers)
      : FormatPanel(window, identifier), font_(font), pickers_(pickers) {}

  const FormatSample& Sample() const { return sample_; }
  Signal<SamplePanel> SampleChanged;

 protected:
  void ReadFont(const SettingsReader& store);
  std::vector<SettingsStore::KeyValue> FontValues() const;
  /// The buttons let the user pick the font and the two colours; the box chooses the alignment.
  void WireSample(Button& font, Button& color, Button& background, ComboBox& alignment);
  /// The entries and the name of a box that chooses the alignment.
  static void ShowAlignments(ComboBox& box, const LangStrings& strings);

  void AnnounceSample() { SampleChanged(); }

  FormatSample sample_;

 private:
  void PickColor(std::int32_t& color);

  FontKeys font_;
  Pickers& pickers_;
};

/// A box with its label: "txtDvdSubtitleInfo" and "lblDvdSubtitleInfo".
struct LabelledBox {
  LabelledBox(Form& window, const std::string& name) : label(window, "lbl" + name), box(window, "txt" + name) {}

  Label label;
  TextBox box;
};

/// What a DVDSubtitle file tells of its disc and its makers.
class DvdSubtitlePanel final : public FormatPanel {
 public:
  explicit DvdSubtitlePanel(Form& window);

  Picture picDvdSubtitle{window_, "picDvdSubtitle"};
  LabelledBox discId{window_, "DvdSubtitleDiscID"};
  LabelledBox title{window_, "DvdSubtitleDVDTitle"};
  LabelledBox language{window_, "DvdSubtitleLang"};
  LabelledBox author{window_, "DvdSubtitleAuthor"};
  LabelledBox web{window_, "DvdSubtitleWeb"};
  LabelledBox info{window_, "DvdSubtitleInfo"};
  LabelledBox license{window_, "DvdSubtitleLicense"};
  std::array<LabelledBox*, 7> Boxes() { return {&discId, &title, &language, &author, &web, &info, &license}; }

  Control& Area() override { return picDvdSubtitle; }
  void ApplyTexts(const LangStrings& strings) override;
};

/// The look of SAMI captions.
class SamiPanel final : public SamplePanel {
 public:
  SamiPanel(Form& window, Pickers& pickers);

  Picture picSami{window_, "picSami"};
  Button cmdSamiFont{window_, "cmdSamiFont"};
  Button cmdSamiColor{window_, "cmdSamiColor"};
  Button cmdSamiBackground{window_, "cmdSamiBackground"};
  Label lblSamiAlign{window_, "lblSamiAlign"};
  ComboBox cmbSamiAlign{window_, "cmbSamiAlign"};
  Picture picSamiSample{window_, "picSamiSample"};
  Label lblSamiSample{window_, "lblSamiSample"};
  Label lblSamiNote{window_, "lblSamiNote"};

  Control& Area() override { return picSami; }
  void ApplyTexts(const LangStrings& strings) override;
  void Read(const SettingsReader& store) override;

 private:
  std::vector<SettingsStore::KeyValue> FurtherValues() const override;

  Text alignment_;  // as stored, also when it is none of the list
};

/// "#" and red, green, blue of 0x00BBGGRR, two hexadecimal digits each.
Text WebColor(std::int32_t color);
/// The colour of such a text; digits that are none count as 0.
std::int32_t ColorOfWeb(TextView text);

/// The style of SubStation Alpha captions.
class SsaPanel final : public SamplePanel {
 public:
  SsaPanel(Form& window, Pickers& pickers);

  Picture picSsa{window_, "picSsa"};
  Button cmdSsaFont{window_, "cmdSsaFont"};
  Button cmdSsaColor{window_, "cmdSsaColor"};
  Frame fraSsaAlign{window_, "fraSsaAlign"};
  ComboBox cmbSsaAlign{window_, "cmbSsaAlign"};
  ComboBox cmbSsaValign{window_, "cmbSsaValign"};
  Frame fraSsaBorder{window_, "fraSsaBorder"};
  Label lblSsaStyle{window_, "lblSsaStyle"};
  ComboBox cmbSsaStyle{window_, "cmbSsaStyle"};
  Label lblSsaOutline{window_, "lblSsaOutline"};
  TextBox txtSsaOutline{window_, "txtSsaOutline"};
  Label lblSsaShadow{window_, "lblSsaShadow"};
  TextBox txtSsaShadow{window_, "txtSsaShadow"};
  Button cmdSsaBack{window_, "cmdSsaBack"};
  Picture picSsaBack{window_, "picSsaBack"};
  Frame fraSsaMargins{window_, "fraSsaMargins"};
  Label lblSsaMarginl{window_, "lblSsaMarginl"};
  TextBox txtSsaMarginl{window_, "txtSsaMarginl"};
  Label lblSsaMarginr{window_, "lblSsaMarginr"};
  TextBox txtSsaMarginr{window_, "txtSsaMarginr"};
  Label lblSsaMarginv{window_, "lblSsaMarginv"};
  TextBox txtSsaMarginv{window_, "txtSsaMarginv"};
  Picture picSsaSample{window_, "picSsaSample"};
  Label lblSsaSample{window_, "lblSsaSample"};
  Label lblSsaNote{window_, "lblSsaNote"};
  Label lblSsaCharset{window_, "lblSsaCharset"};
  Label imgSsaCharset{window_, "imgSsaCharset"};

  Control& Area() override { return picSsa; }
  void ApplyTexts(const LangStrings& strings) override;
  /// Numbers that don't fit leave their options as they were; the last of them is thrown behind all others.
  void Read(const SettingsReader& store) override;

 private:
  std::vector<SettingsStore::KeyValue> FurtherValues() const override;
  void SpeakNames(const LangStrings& strings);
  std::int32_t Number(const SettingsReader& store, TextView key, TextView fallback) const;
  void ShowAlignment(std::int32_t alignment);
  int Alignment() const;
  void EnableBorder();
};

}  // namespace cuewright
