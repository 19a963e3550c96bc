#pragma once

#include <optional>
#include <vector>

#include "capture/workbench.h"
#include "form/sheet.h"
#include "forms/house_check.h"
#include "forms/notices.h"
#include "forms/proposal_tools.h"
#include "forms/tool_form.h"
#include "settings/languages.h"

namespace cuewright {

/// The window `frmCheck`: what house rules find in the captions, and what mends it. Also the commands of the menu that
/// open it and go to the next finding.
class CheckWindow final : public ToolForm {
 public:
  CheckWindow(Workbench bench, HouseCheck& check, ProposalTools& proposals, Notices& notices,
              const Languages& languages, OpenForms& openForms);

  Label lblProfile{*this, "lblProfile"};
  ComboBox cmbProfile{*this, "cmbProfile"};
  Label lblSource{*this, "lblSource"};
  Sheet lstFindings{*this, "lstFindings"};
  Label lblTotal{*this, "lblTotal"};
  Label lblFix{*this, "lblFix"};
  Label lblNow{*this, "lblNow"};
  Label lblThen{*this, "lblThen"};
  Button cmdGoTo{*this, "cmdGoTo"};
  Button cmdFix{*this, "cmdFix"};
  Button cmdFixAll{*this, "cmdFixAll"};
  Button cmdClose{*this, "cmdClose"};

  void ApplyLanguage(bool rightToLeft) override;

 private:
  void Load() override;
  void Unload() override;
  void FillProfiles();
  void ShowProfile();
  void ShowFindings();
  void FillList();
  void ShowFix();
  void GoTo();
  void Fix();
  void FixAll();
  void GoToNext();
  const Finding* Selected() const;

  Workbench bench_;
  HouseCheck& check_;
  ProposalTools& proposals_;
  Notices& notices_;
  const Languages& languages_;
  std::vector<HouseRulesName> profiles_;
  std::vector<Finding> found_;
  std::optional<Proposal> fix_;
  bool stale_ = false;  ///< a command that runs has changed what is found
};

}  // namespace cuewright
