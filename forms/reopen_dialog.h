#pragma once

#include <string>

#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "forms/encoding_choice.h"
#include "text/text.h"

namespace cuewright {

/// The dialog `frmReopen`, which asks for the encoding that a file is to be read in and shows how it would begin.
class ReopenDialog final : public Dialog {
 public:
  explicit ReopenDialog(const LangStrings& strings);

  Label lblTop{*this, "lblTop"};
  Label lblEncoding{*this, "lblEncoding"};
  ComboBox cboEncoding{*this, "cboEncoding"};
  Label lblPreview{*this, "lblPreview"};
  TextBox txtPreview{*this, "txtPreview"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  /// `head` are the file's first bytes, `encoding` is what they are read in now.
  void Open(std::string head, const DocumentEncoding& encoding, bool rightToLeft);
  /// True after OK.
  bool Result() const { return result_; }
  DocumentEncoding Chosen() const { return encodings_.Chosen(); }

 private:
  void ShowFirstLines();

  const LangStrings& strings_;
  EncodingChoice encodings_{cboEncoding};
  std::string head_;
  bool result_ = false;
};

}  // namespace cuewright
