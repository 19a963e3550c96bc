#pragma once

#include "forms/language_page.h"
#include "ui/settings_page_view.h"
#include "ui/svg_picture.h"

namespace cuewright {

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
