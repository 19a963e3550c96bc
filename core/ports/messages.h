#pragma once

#include <optional>

#include "text/text.h"

namespace cuewright {

enum class BoxIcon { None, Information, Question, Warning, Error };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Cancel, Yes, No };

/// One message box: title, icon and buttons as the desktop shows them.
struct MessageBox {
  Text text;
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::Ok;
  Text title{};              ///< empty: the program's title
  bool noIsDefault = false;  ///< Enter answers No
};

/// A one-line question.
struct InputBox {
  Text prompt;
  Text title;
  Text initial{};
};

/// Modal boxes. A call returns when the user has answered.
class Messages {
 public:
  virtual ~Messages() = default;

  virtual BoxAnswer Show(const MessageBox& box) = 0;

  /// The line typed; the empty text when the user cancelled.
  virtual Text Ask(const InputBox& box) = 0;
};

}  // namespace cuewright
