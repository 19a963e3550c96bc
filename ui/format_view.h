#pragma once

#include "forms/format_dialog.h"
#include "ui/dialog_view.h"

class QGroupBox;
class QLineEdit;

namespace cuewright {

class SampleArea;

/// The format settings `frmFormat` on the toolkit.
class FormatView final : public DialogView {
 public:
  FormatView(FormatDialog& form, QWidget* owner);

 private:
  QWidget* MakeList();
  QWidget* MakePanels();
  QWidget* MakeDvd();
  QWidget* MakeSami();
  QWidget* MakeSsa();
  QGroupBox* MakeSsaAlign(QWidget* panel);
  QGroupBox* MakeSsaBorder(QWidget* panel);
  QGroupBox* MakeSsaMargins(QWidget* panel);
  QWidget* MakePanel(Picture& control);
  QLineEdit* MakeNumber(TextBox& control, QWidget* parent);
  QBoxLayout* MakeRow(std::initializer_list<Button*> buttons, QWidget* parent);
  void ShowSamples();

  FormatDialog& form_;
  SampleArea* sami_ = nullptr;
  SampleArea* ssa_ = nullptr;
  QWidget* ssaBack_ = nullptr;
};

}  // namespace cuewright
