#pragma once

#include <string>
#include <vector>

#include "core/lang_strings.h"
#include "form/controls.h"
#include "form/dialog.h"

namespace cuewright {

/// What a list dialog shows. Without a text for `save` the list is only to be looked at.
struct ListDialogContent {
  Text title;
  Text heading;
  std::vector<Text> lines;
  Text save{};
};

/// A dialog that shows lines of text under a heading, such as `frmSaving`, which asks before a save loses something.
/// Escape and its frame answer as `cmdCancel`.
class ListDialog final : public Dialog {
 public:
  ListDialog(std::string name, const LangStrings& strings);

  Label lblTop{*this, "lblTop"};
  TextBox txtList{*this, "txtList"};
  Button cmdSave{*this, "cmdSave"};
  Button cmdCancel{*this, "cmdCancel"};

  void Open(const ListDialogContent& content, bool rightToLeft);
  /// True after `cmdSave`.
  bool Result() const { return result_; }

 private:
  const LangStrings& strings_;
  bool result_ = false;
};

}  // namespace cuewright
