#pragma once

#include <optional>
#include <vector>

#include "core/lang_strings.h"
#include "form/controls.h"

namespace cuewright {

/// What a window tells of a control: a text, where it has a place for one with `filled` in it, and where there is
/// more to say a second paragraph.
struct Hint {
  constexpr Hint(Message first) : message(first) {}  // implicit, since most hints are a message alone
  constexpr Hint(Message first, Message second) : message(first), further(second) {}
  constexpr Hint(Message first, TextView value) : message(first), filled(value) {}

  Text In(const LangStrings& strings) const;

  Message message;
  std::optional<Message> further;
  TextView filled;
};

/// The area of a window that explains what the pointer is over.
class DetailsArea {
 public:
  DetailsArea(Form& window, const LangStrings& strings)
      : lblDetailsTitle(window, "lblDetailsTitle"),
        fraDetails(window, "fraDetails"),
        lblDetails(window, "lblDetails"),
        strings_(strings) {}

  Label lblDetailsTitle;
  Frame fraDetails;
  Label lblDetails;

  /// Shows a text; an empty one hides the area.
  void Show(TextView text);
  void Show(const Hint& hint) { Show(hint.In(strings_)); }
  /// Shows the hint whenever the pointer comes over the control.
  void Explain(Control& control, const Hint& hint);
  /// A hint that is shown at other times too.
  void Add(const Hint& hint) { hints_.push_back(hint); }
  /// All that the area may come to show, by which it is measured.
  std::vector<Text> Texts() const;

 private:
  const LangStrings& strings_;
  std::vector<Hint> hints_;
};

}  // namespace cuewright
