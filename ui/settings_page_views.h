#pragma once

#include <QWidget>
#include <vector>

#include "forms/settings_dialog.h"
#include "ui/binder.h"
#include "ui/labels.h"
#include "ui/sample_area.h"
#include "ui/svg_picture.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace cuewright {

/// A page of the settings dialog on the toolkit: a column of widgets.
class SettingsPageView : public QWidget {
 protected:
  SettingsPageView(Picture& area, Binder& binder, QWidget* parent);

  /// Binds a widget, as `Binder::Bind` does.
  template <class ControlType, class Widget>
  Widget* Bind(ControlType& control, Widget* widget) {
    return binder_.Bind(control, widget);
  }
  QPushButton* MakeButton(Button& control, QWidget* parent);
  QComboBox* MakeCombo(ComboBox& control);
  QSlider* MakeSlider(Slider& control, QWidget* parent);

  Binder& binder_;
  QVBoxLayout* column_;
};

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

/// The page of the keyboard shortcuts.
class KeysPageView final : public SettingsPageView {
 public:
  KeysPageView(KeysPage& page, Picture& area, Binder& binder, QWidget* parent);

 private:
  QLineEdit* MakeField(TextBox& box, int letters, int width, QWidget* parent);

  KeysPage& page_;
};

/// The page of the player.
class PlayerPageView final : public SettingsPageView {
 public:
  PlayerPageView(PlayerPage& page, Picture& area, Binder& binder, QWidget* parent);
};

/// The page of the look of the captions over the film.
class PreviewPageView final : public SettingsPageView {
 public:
  PreviewPageView(PreviewPage& page, Picture& area, Binder& binder, QWidget* parent);

  void ShowSample();

 private:
  const PreviewPage& page_;
  SampleArea* sample_;
  Connection changed_;
};

/// The page of the language.
class LanguagePageView final : public SettingsPageView {
 public:
  LanguagePageView(LanguagePage& page, Picture& area, Binder& binder, QWidget* parent);

  /// Shows the flag of a row of the language table; one that has none keeps the flag as it is.
  void ShowFlag(std::size_t row);

 private:
  QWidget* MakeCharset();
  QWidget* MakeNotice();

  LanguagePage& page_;
  SvgPicture* flag_;
};

}  // namespace cuewright
