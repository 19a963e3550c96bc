#pragma once

#include <functional>

#include "core/app_options.h"
#include "core/frame_rate.h"
#include "core/lang_strings.h"
#include "core/ports/messages.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "formats/catalogue.h"
#include "formats/format_state.h"
#include "forms/encoding_choice.h"

namespace cuewright {

/// The dialog `frmExport` in which the user picks the format of a save and sees what it can do.
class ExportDialog final : public Dialog {
 public:
  ExportDialog(const FormatCatalogue& catalogue, FormatState& formats, const AppOptions& options,
               const LangStrings& strings, Messages& messages);

  Label lblFormat{*this, "lblFormat"};
  ComboBox cboFormats{*this, "cboFormats"};
  Label lblTotal{*this, "lblTotal"};
  Label lblEncoding{*this, "lblEncoding"};
  ComboBox cboEncoding{*this, "cboEncoding"};
  Frame fraProperties{*this, "fraProperties"};
  Label lblMode{*this, "lblMode"};
  Label lblMode2{*this, "lblMode2"};
  Label lblTimecode{*this, "lblTimecode"};
  Label lblTimecode2{*this, "lblTimecode2"};
  Label lblHeader{*this, "lblHeader"};
  Label lblHeader2{*this, "lblHeader2"};
  Label lblTags{*this, "lblTags"};
  Picture imgBold{*this, "imgBold"};
  Picture imgItalic{*this, "imgItalic"};
  Picture imgUnderline{*this, "imgUnderline"};
  Label lblFPS{*this, "lblFPS"};
  ComboBox cmbFPS{*this, "cmbFPS"};
  Button cmdConfigure{*this, "cmdConfigure"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  /// The settings of the format in `SettingsFormatIndex` are to open.
  Signal<ExportDialog> SettingsAsked;
  /// Those settings have closed.
  void OnConfigured() { formats_.SettingsFormatIndex = 0; }

  /// Fills the controls for the format in force.
  void Open(bool rightToLeft);
  /// True after OK.
  bool Result() const { return result_; }

 private:
  void ApplyTexts();
  void FillFormats();
  void FillRate();
  FrameRate AcceptedRate() const;
  void ShowProperties();
  /// Offers what the chosen format is written in by itself, unless the user has chosen another encoding.
  void ShowEncoding();
  void ShowTimecode(TextView timecode);
  void ShowTags(int tags);
  void FilterRateKey(KeyEvent& key) const;
  void Configure();
  void Accept();
  Text ChosenId() const;
  Text ChosenTimecode() const;
  bool ChosenCountsFrames() const;

  const FormatCatalogue& catalogue_;
  FormatState& formats_;
  const AppOptions& options_;
  const LangStrings& strings_;
  Messages& messages_;
  EncodingChoice encodings_{cboEncoding};
  bool encodingChosen_ = false;  ///< by the user
  bool result_ = false;
};

}  // namespace cuewright
