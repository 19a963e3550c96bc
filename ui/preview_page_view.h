#pragma once

#include "forms/preview_page.h"
#include "ui/sample_area.h"
#include "ui/settings_page_view.h"

namespace cuewright {

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

}  // namespace cuewright
