#pragma once

#include "forms/embed_wizard.h"
#include "ui/wizard_view.h"

namespace cuewright {

/// The wizard `frmEmbed` on the toolkit.
class EmbedView final : public WizardView {
 public:
  EmbedView(EmbedWizard& form, QWidget* owner);

 private:
  void Measure(const EmbedWizard& form);
  QWidget* MakeHead();
  QWidget* MakeDetails();
  void MakeOutputPage(QGridLayout& stack);
  void MakeToolPage(QGridLayout& stack);
  void MakeFilePage(QGridLayout& stack);
  void MakeSummaryPage(QGridLayout& stack);
};

}  // namespace cuewright
