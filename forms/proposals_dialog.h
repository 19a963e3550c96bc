#pragma once

#include <array>
#include <vector>

#include "core/caption_list.h"
#include "core/lang_strings.h"
#include "form/control_array.h"
#include "form/controls.h"
#include "form/dialog.h"
#include "form/sheet.h"
#include "tools/proposal.h"

namespace cuewright {

/// What the window of proposals is opened with. Without kinds, languages or a scope their controls aren't there.
struct ProposalsContent {
  Text title;
  std::vector<Text> kinds{};      ///< of changes, each with a box
  std::vector<bool> kindsOn{};    ///< as many
  std::vector<Text> languages{};  ///< of the texts
  int language = 0;
  bool scope = false;  ///< it is chosen which captions are meant
};

/// The window `frmProposals`: changes that aren't made yet, each of which can be left out.
class ProposalsDialog final : public Dialog {
 public:
  static constexpr std::size_t kMostKinds = 8;

  ProposalsDialog(const CaptionList& list, const LangStrings& strings);

  Label lblTop{*this, "lblTop"};
  Label lblScope{*this, "lblScope"};
  ComboBox cmbScope{*this, "cmbScope"};
  Label lblLanguage{*this, "lblLanguage"};
  ComboBox cmbLanguage{*this, "cmbLanguage"};
  ControlArray<CheckBox, kMostKinds> chkKind{*this, "chkKind"};
  Sheet lstProposals{*this, "lstProposals"};
  Label lblTotal{*this, "lblTotal"};
  Button cmdAll{*this, "cmdAll"};
  Button cmdNone{*this, "cmdNone"};
  Button cmdApply{*this, "cmdApply"};
  Button cmdCancel{*this, "cmdCancel"};

  /// Prepares the controls; then the proposals are shown, and then the window opens.
  void Prepare(const ProposalsContent& content, bool rightToLeft);
  /// Shows other proposals, all of them ticked.
  void ShowProposals(std::vector<Proposal> proposals);
  void Open();

  /// The proposals that are ticked, once `cmdApply` has closed the window; else none.
  std::vector<Proposal> Taken() const;
  bool Kind(std::size_t kind) const { return chkKind[kind].Value(); }
  /// All captions are meant, not the selected ones.
  bool OfAll() const { return cmbScope.Index() == 0; }

  Signal<ProposalsDialog> Asked;  ///< something else is wanted: other proposals are to be shown

 private:
  void ShowTotal();

  const CaptionList& list_;
  const LangStrings& strings_;
  std::vector<Proposal> proposals_;
  bool result_ = false;
};

/// A caption before or after a change: its times where they change, and its text.
Text CaptionWords(const CaptionList& list, const Caption& caption, const Caption& other);

}  // namespace cuewright
