#pragma once

#include "forms/rules_page.h"
#include "ui/settings_page_view.h"

namespace cuewright {

/// The page of the correction rules. The panels of three of them lie over the page, under their check boxes.
class RulesPageView final : public SettingsPageView {
 public:
  RulesPageView(RulesPage& page, Picture& area, Binder& binder, QWidget* parent);

  /// Puts the panels under their check boxes and makes room for them.
  void PlacePanels();
  /// Gives the panels the colours of a tool tip.
  void PaintPanels();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  /// A panel and the row of the check box that it belongs to.
  struct Panel {
    const Picture& control;
    QWidget* row;
    QWidget* area;
  };

  /// The row of a rule and its panel, which is still to be filled.
  QWidget* AddRule(CheckBox& check, Picture& image, Picture& panel);
  void FillDurationPanel(QWidget* panel);

  RulesPage& page_;
  std::vector<Panel> panels_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
