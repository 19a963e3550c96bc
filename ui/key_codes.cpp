#include "ui/key_codes.h"

#include <string_view>

namespace cuewright {
namespace {

// Key numbers of the kernel's input events; both window systems add 8 to them.
constexpr quint32 kScanOffset = 8;
struct LetterRow {
  quint32 first;
  std::string_view letters;
};
constexpr LetterRow kLetterRows[] = {{16, "QWERTYUIOP"}, {30, "ASDFGHJKL"}, {44, "ZXCVBNM"}};

// Scripts other than Latin begin here; letters with accents, which stand on other keys, lie below.
constexpr int kBehindLatin = 0x250;

int LetterOfScanCode(quint32 scanCode) {
  for (const LetterRow& row : kLetterRows) {
    const quint32 first = row.first + kScanOffset;
    if (scanCode >= first && scanCode < first + row.letters.size()) return row.letters[scanCode - first];
  }
  return 0;
}

int CodeOf(const QKeyEvent& event) {
  const int key = event.key();
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  switch (key) {
    case Qt::Key_Space:
      return kKeySpace;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return kKeyEnter;
    case Qt::Key_Backspace:
      return kKeyBackspace;
    case Qt::Key_Delete:
      return kKeyDelete;
    case Qt::Key_Left:
      return kKeyLeft;
    case Qt::Key_Right:
      return kKeyRight;
    case Qt::Key_Up:
      return kKeyUp;
    case Qt::Key_Down:
      return kKeyDown;
    case Qt::Key_Home:
      return kKeyHome;
    case Qt::Key_End:
      return kKeyEndOfLine;
    default:
      break;
  }
  if (key >= kBehindLatin && key < Qt::Key_Escape) return LetterOfScanCode(event.nativeScanCode());
  // A key without a code of its own, so that it isn't taken for the button's unnamed one.
  return -1;
}

}  // namespace

KeyEvent KeyEventOf(const QKeyEvent& event) {
  KeyEvent key;
  key.code = CodeOf(event);
  const QString text = event.text();
  if (text.size() == 1 && text[0].unicode() >= 0x20 && text[0].unicode() != 0x7F) key.character = text[0].unicode();
  key.physical = event.nativeScanCode() != 0 ? event.nativeScanCode() : static_cast<quint32>(event.key());
  key.autoRepeat = event.isAutoRepeat();
  key.command = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  return key;
}

MouseButton MouseButtonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return MouseButton::Left;
    case Qt::RightButton:
      return MouseButton::Right;
    case Qt::MiddleButton:
      return MouseButton::Middle;
    default:
      return MouseButton::None;
  }
}

}  // namespace cuewright
