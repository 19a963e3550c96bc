#pragma once

#include <array>

#include "forms/settings_dialog.h"
#include "ui/dialog_view.h"

class QButtonGroup;
class QCheckBox;
class QGridLayout;
class QGroupBox;
class QVBoxLayout;

namespace cuewright {

class SampleArea;
class SvgPicture;

/// The settings dialog `frmSettings` on the toolkit.
class SettingsView final : public DialogView {
 public:
  SettingsView(SettingsDialog& form, QWidget* owner);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;

 private:
  QWidget* MakeMenu();
  QWidget* MakePages();
  QWidget* MakeDetails();
  QWidget* MakePage(std::size_t index, QVBoxLayout*& column);
  void MakeRulesPage();
  void MakeJoinPanel(QWidget* page);
  void MakeDurationPanel(QWidget* page);
  void MakeCreditsPanel(QWidget* page);
  QWidget* MakePanel(const char* name, QWidget* page);
  void MakeKeysPage();
  void AddHotkey(QGridLayout& grid, int row, int column, std::size_t index, int position);
  void MakePlayerPage();
  void MakePreviewPage();
  void MakeLanguagePage();
  QGroupBox* MakeCharsetGroup(QWidget* page);
  QGroupBox* MakeNoticeGroup(QWidget* page);
  QWidget* MakeRuleRow(const char* check, const char* image, QWidget* page);

  /// Gives the rules' panels the colours of a tool tip.
  void PaintPanels();
  void ShowPage();
  void ShowSample();
  void ShowFlag();
  /// Places the rules' panels under their check boxes and makes room for them.
  void PlacePanels();
  void MeasureDetails();
  /// Makes the window higher when a page, seen or not, lacks room for its wrapped texts.
  void GrowForPages();
  void TurnPage(int step);

  SettingsDialog& form_;
  std::array<QWidget*, SettingsDialog::kPages> pages_{};
  std::array<QWidget*, 3> panels_{};
  std::array<QWidget*, 3> checks_{};
  QButtonGroup* menu_ = nullptr;
  SvgPicture* top_ = nullptr;
  SvgPicture* flag_ = nullptr;
  SampleArea* sample_ = nullptr;
  QWidget* details_ = nullptr;
  QLabel* detailsText_ = nullptr;
};

}  // namespace cuewright
