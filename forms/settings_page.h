#pragma once

#include <optional>
#include <vector>

#include "form/control_array.h"
#include "forms/control_texts.h"
#include "forms/details_area.h"
#include "settings/options.h"

namespace cuewright {

/// A page of the settings dialog. Its check boxes and sliders change their options as the user works.
class SettingsPage {
 public:
  /// What all pages work on. The page's controls belong to `window`.
  struct Place {
    Form& window;
    DetailsArea& details;
    AppOptions& options;
    const LangStrings& strings;
  };
  /// The page's name, and what is told while the pointer is over its entry in the menu and over the page itself.
  struct Heading {
    Message title;
    Message overEntry;
    Message overPage;
  };

  SettingsPage(const Place& place, const Heading& heading);
  SettingsPage(const SettingsPage&) = delete;
  SettingsPage& operator=(const SettingsPage&) = delete;
  virtual ~SettingsPage() = default;

  const Heading& GetHeading() const { return heading_; }
  /// Shows the options in the controls; changes none.
  virtual void Fill();
  /// Sets all texts in the language in force.
  virtual void ApplyLanguage();
  /// Takes what was typed into a field that still has the focus: the access key of a button leaves it there.
  virtual void TakeOpenFields() {}
  /// Forgets what was typed there.
  virtual void DropOpenFields() {}

 protected:
  /// The control shows a text, and the details area tells what it does. A check box shows and sets its option.
  void Shows(Control& control, Message text, const std::optional<Hint>& hint = {});
  void Shows(CheckBox& check, Message text, const std::optional<Hint>& hint = {});
  /// The slider shows its option and sets it when it is moved.
  void Follows(Slider& slider);
  /// What a screen reader says.
  void Speaks(Control& control, Message text) { spoken_.push_back({control, text}); }
  /// Gives a box its entries in the language in force; the chosen one stays so.
  void ShowItems(ComboBox& box, std::initializer_list<Message> items) const;

  Form& window_;
  DetailsArea& details_;
  AppOptions& options_;
  const LangStrings& strings_;

 private:
  Heading heading_;
  std::vector<ControlText> texts_;
  std::vector<ControlText> spoken_;
  std::vector<CheckBox*> checks_;
  std::vector<Slider*> sliders_;
};

}  // namespace cuewright
