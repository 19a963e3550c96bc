#pragma once

#include <array>

#include "forms/settings_dialog.h"
#include "ui/dialog_view.h"

class QButtonGroup;

namespace cuewright {

class LanguagePageView;
class PreviewPageView;
class RulesPageView;
class SvgPicture;

/// The settings dialog `frmSettings` on the toolkit.
class SettingsView final : public DialogView {
 public:
  SettingsView(SettingsDialog& form, QWidget* owner);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QWidget* MakeMenu();
  QWidget* MakePages();
  QWidget* MakeDetails();

  void ShowPage();
  void FollowLanguage();
  void MeasureDetails();
  /// Makes the window higher when a page, seen or not, lacks room for its wrapped texts.
  void GrowForPages();
  void TurnPage(int step);

  SettingsDialog& form_;
  std::array<QWidget*, SettingsDialog::kPages> pages_{};
  QButtonGroup* menu_ = nullptr;
  SvgPicture* top_ = nullptr;
  RulesPageView* rules_ = nullptr;
  PreviewPageView* preview_ = nullptr;
  LanguagePageView* language_ = nullptr;
  QWidget* details_ = nullptr;
  QLabel* detailsText_ = nullptr;
};

}  // namespace cuewright
