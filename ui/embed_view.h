#pragma once

#include <array>

#include "forms/embed_wizard.h"
#include "ui/wizard_view.h"

namespace cuewright {

/// The wizard `frmEmbed` on the toolkit.
class EmbedView final : public WizardView {
 public:
  EmbedView(EmbedWizard& form, QWidget* owner);

 private:
  void Measure();
  QWidget* MakeDetails();
  void MakeOutputPage(QGridLayout& stack);
  void MakeToolPage(QGridLayout& stack);
  void MakeFilePage(QGridLayout& stack);
  void MakeSummaryPage(QGridLayout& stack);
  QBoxLayout* MakeSizeRow(QWidget* page);
  /// A row of a drawing and a label.
  QLabel* AddHeading(QVBoxLayout& column, Picture& icon, const QString& file, QLabel* label);

  EmbedWizard& form_;
  std::array<QLabel*, 2> notes_{};
  QLabel* details_ = nullptr;
};

}  // namespace cuewright
