#include "ui/qt_pickers.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFont>
#include <QFontDialog>

#include "core/counting.h"
#include "ui/qt_color.h"
#include "ui/qt_ports.h"
#include "ui/qt_text.h"

namespace cuewright {

std::optional<std::int32_t> QtPickers::PickColor(std::int32_t initial, const CustomColors& custom) {
  for (int place = 0; place < CountOf(custom); ++place) {
    QColorDialog::setCustomColor(place, ColorOf(ItemAt(custom, place)));
  }
  QColorDialog picker(ColorOf(initial), BoxOwner());
  picker.setObjectName("colorPicker");
  if (picker.exec() != QDialog::Accepted) return std::nullopt;
  return BgrOf(picker.selectedColor());
}

std::optional<FontChoice> QtPickers::PickFont(const FontChoice& initial) {
  QFont font(ToQt(initial.Name));
  font.setPointSizeF(initial.Size);
  if (initial.Weight >= QFont::Thin && initial.Weight <= QFont::Black) {
    font.setWeight(static_cast<QFont::Weight>(initial.Weight));
  }
  if (initial.Bold != font.bold()) font.setBold(initial.Bold);
  font.setItalic(initial.Italic);
  font.setUnderline(initial.Underline);
  font.setStrikeOut(initial.Strikethrough);
  QFontDialog picker(font, BoxOwner());
  picker.setObjectName("fontPicker");
  picker.setOption(QFontDialog::ScalableFonts);
  if (picker.exec() != QDialog::Accepted) return std::nullopt;
  const QFont chosen = picker.selectedFont();
  FontChoice choice;
  choice.Name = FromQt(chosen.family());
  choice.Size = chosen.pointSizeF() > 0 ? chosen.pointSizeF() : initial.Size;
  choice.Bold = chosen.bold();
  choice.Italic = chosen.italic();
  choice.Underline = chosen.underline();
  choice.Strikethrough = chosen.strikeOut();
  choice.Weight = chosen.weight();
  return choice;
}

Text QtPickers::PickFolder(TextView prompt) {
  return PickedPath(QFileDialog::getExistingDirectory(BoxOwner(), ToQt(prompt)));
}

}  // namespace cuewright
