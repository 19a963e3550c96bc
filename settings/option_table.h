#pragma once

#include <span>
#include <string_view>

#include "core/app_options.h"
#include "text/text.h"

namespace cuewright {

/// Where an option is set, and with that when it is stored.
enum class OptionPlace {
  Elsewhere,   ///< stored on its own when it changes, or never
  MainWindow,  ///< when the main window closes
  // The pages of the settings dialog: by its OK.
  Rules,
  Keys,
  Player,
  Preview,
  Language
};

/// A row of the table of options: all that is known of a stored key but its default, which its member has.
struct Option {
  /// The member of `AppOptions` behind the key.
  struct Field {
    Text (*stored)(const AppOptions&);  ///< its value as the store holds it
    void (*take)(AppOptions&,
                 TextView value);  ///< a value that doesn't fit the member leaves 0, false or the empty text there
  };
  /// What the user can choose of a number; what is stored is taken as it is. A slider moves by `step`.
  struct Range {
    int least = 0;
    int most = 0;
    int step = 1;
  };

  TextView key;
  Field field;
  OptionPlace place = OptionPlace::Elsewhere;
  std::string_view control = {};  ///< which shows and changes it; empty when none does it alone
  Range range = {};
  TextView letterKey = {};  ///< of a keyboard shortcut: the key under which its letter is stored
  TextView resetTo = {};    ///< what its page goes back to, when that is not the default
};

/// All options, those of a place in the order in which they are stored.
std::span<const Option> Options();

/// The option that a control of this name shows. There is one.
const Option& OptionOf(std::string_view control);

}  // namespace cuewright
