#pragma once

#include <QTextLayout>
#include <QWidget>
#include <vector>

#include "capture/preview.h"
#include "capture/sub_window.h"

namespace cuewright {

/// The overlay `frmSub`: the caption in its style over the picture. It takes neither focus nor pointer.
class Overlay final : public QWidget {
 public:
  Overlay(SubWindow& form, QWidget* parent);

  /// Height for two lines of the style's font, or for all that the caption has at this width, in pixels.
  int WantedHeight(int width) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont StyleFont() const;
  Qt::LayoutDirection LanguageDirection() const;
  QString ShownText() const;
  enum class Pass { Shadow, Letters };
  /// How the parts of the line look that begins at a place of the text; nothing for a caption of one look.
  QList<QTextLayout::FormatRange> FormatsOf(qsizetype begin, qsizetype length, Pass pass) const;
  QTextCharFormat FormatOf(const RunStyle& style, Pass pass) const;
  /// Draws every line of the caption by its own direction, or only measures them (no painter). Gives their height.
  int DrawLines(QPainter* painter, int width, Pass pass) const;
  void DrawText(QPainter& painter, Pass pass) const;
  void ShowState();

  SubWindow& form_;
  std::vector<Connection> connections_;
};

}  // namespace cuewright
