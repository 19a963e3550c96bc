#include "ui/caption_delegate.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

#include "core/counting.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kPadding = 6;
constexpr int kUsualRows = 999;  // a longer list has a wider first column
constexpr int kBarWidth = 4;
constexpr int kSignRoom = 14;  // of each of the first two signs
constexpr int kMoveRoom = 8;   // of the third
constexpr int kSignsWidth = kBarWidth + 2 * kSignRoom + kMoveRoom;
constexpr qreal kFilmTint = 0.16;
constexpr qreal kLineTint = 0.07;
constexpr qreal kSignTint = 0.45;
constexpr qreal kUntimedTint = 0.55;

QColor Mixed(const QColor& ground, const QColor& other, qreal share) {
  const auto mix = [share](int one, int two) { return static_cast<int>(one + (two - one) * share); };
  return {mix(ground.red(), other.red()), mix(ground.green(), other.green()), mix(ground.blue(), other.blue())};
}

bool IsDark(const QPalette& colors) { return colors.color(QPalette::Base).lightness() < 128; }

/// The colour of what is found: clear on light and on dark rows.
QColor FindingColor(const QPalette& colors) {
  return IsDark(colors) ? QColor(0xff, 0xa9, 0x4d) : QColor(0xc2, 0x4e, 0);
}

bool IsSelected(const QStyleOptionViewItem& option) { return (option.state & QStyle::State_Selected) != 0; }

/// The widest of the ten figures: fonts whose figures differ in width are set as if they didn't.
int FigureWidth(const QFontMetrics& metrics) {
  int widest = 0;
  for (char16_t figure = u'0'; figure <= u'9'; ++figure) {
    widest = std::max(widest, metrics.horizontalAdvance(QChar(figure)));
  }
  return widest;
}

int FiguresWidth(const QFontMetrics& metrics, const QString& text) {
  const int figure = FigureWidth(metrics);
  int width = 0;
  for (const QChar c : text) width += c >= u'0' && c <= u'9' ? figure : metrics.horizontalAdvance(c);
  return width;
}

/// Figures to the right, so that the same places of all rows stand below each other.
void PaintFigures(QPainter& painter, const QRect& rect, const QString& text) {
  const QFontMetrics metrics = painter.fontMetrics();
  const int figure = FigureWidth(metrics);
  if (figure == metrics.horizontalAdvance(u'1')) {
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, text);
    return;
  }
  int x = rect.right() + 1 - FiguresWidth(metrics, text);
  const int baseline = rect.top() + (rect.height() - metrics.height()) / 2 + metrics.ascent();
  for (const QChar c : text) {
    const int own = metrics.horizontalAdvance(c);
    const int room = c >= u'0' && c <= u'9' ? figure : own;
    painter.drawText(x + (room - own) / 2, baseline, QString(c));
    x += room;
  }
}

QTextCharFormat FormatOf(const RunStyle& style) {
  QTextCharFormat format;
  if (style.bold) format.setFontWeight(QFont::Bold);
  format.setFontItalic(style.italic);
  format.setFontUnderline(style.underline);
  format.setFontStrikeOut(style.strike);
  return format;
}

/// The looks of the runs, and the signs of the line breaks in a fainter colour.
QList<QTextLayout::FormatRange> FormatsOf(const std::vector<StyledRun>& runs, const QString& text,
                                          const QColor& signs) {
  QList<QTextLayout::FormatRange> formats;
  int at = 0;
  for (const StyledRun& run : runs) {
    const int length = std::min(CountOf(run.text), CountOf(text) - at);
    if (length <= 0) break;
    // Colours are for the film's ground: on the list's they may not be seen, so the list leaves them out.
    if (run.style != RunStyle{}) formats.push_back({at, length, FormatOf(run.style)});
    at += length;
  }
  QTextCharFormat faint;
  faint.setForeground(signs);
  const QChar sign(kBreakSign.front());
  for (qsizetype place = text.indexOf(sign); place >= 0; place = text.indexOf(sign, place + 1)) {
    formats.push_back({static_cast<int>(place), 1, faint});
  }
  return formats;
}

}  // namespace

CaptionDelegate::CaptionDelegate(const CaptionList& list, const CaptionGrid& grid, const CaptionModel& model,
                                 QObject* parent)
    : QStyledItemDelegate(parent), list_(list), grid_(grid), model_(model) {}

void CaptionDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  // Each text in its own direction, so that the full stop of an English caption stays at its end.
  option->direction = option->text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
}

void CaptionDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const Row row = index.row() + 1;
  if (!grid_.Active() || !grid_.IsWorkbench() || !list_.InRange(row)) {
    QStyledItemDelegate::paint(painter, option, index);
    return;
  }
  painter->save();
  painter->setFont(option.font);
  PaintGround(*painter, option, row);
  const ListColumn column = model_.ColumnOf(index.column());
  QRect rect = option.rect;
  if (column == ListColumn::Number) rect = PaintSigns(*painter, option, row);
  const bool time = column == ListColumn::Start || column == ListColumn::End;
  const bool foreseen = time && !IsSelected(option) && grid_.ShowsOtherTimes(row);
  painter->setPen(foreseen ? option.palette.color(QPalette::Link) : TextColor(option, row));
  if (column == ListColumn::Words) {
    PaintText(*painter, option, row);
  } else {
    PaintFigures(*painter, rect.adjusted(kPadding, 0, -kPadding, 0), ToQt(grid_.CellText(row, column)));
  }
  painter->restore();
}

void CaptionDelegate::PaintGround(QPainter& painter, const QStyleOptionViewItem& option, Row row) const {
  const QPalette& colors = option.palette;
  const QColor base = colors.color(QPalette::Base);
  QColor ground = base;
  if (IsSelected(option)) {
    ground = colors.color((option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive,
                          QPalette::Highlight);
  } else if (row == grid_.FilmRow()) {
    ground = Mixed(base, colors.color(QPalette::Highlight), kFilmTint);
  }
  painter.fillRect(option.rect, ground);
  painter.fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                   Mixed(ground, colors.color(QPalette::Text), kLineTint));
}

QColor CaptionDelegate::TextColor(const QStyleOptionViewItem& option, Row row) const {
  const QPalette& colors = option.palette;
  if (IsSelected(option)) return colors.color(QPalette::HighlightedText);
  const QColor text = colors.color(QPalette::Text);
  // A caption without times is grey.
  return list_.IsCaptionTimed(row) ? text : Mixed(colors.color(QPalette::Base), text, kUntimedTint);
}

QRect CaptionDelegate::PaintSigns(QPainter& painter, const QStyleOptionViewItem& option, Row row) const {
  const bool fromRight = option.direction == Qt::RightToLeft || grid_.RightToLeft();
  const QRect& cell = option.rect;
  const auto placed = [&](int from, int width) {
    return fromRight ? QRect(cell.right() + 1 - from - width, cell.top(), width, cell.height())
                     : QRect(cell.left() + from, cell.top(), width, cell.height());
  };
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  if (grid_.HasFindings(row)) {
    const QColor color = FindingColor(option.palette);
    painter.fillRect(placed(0, kBarWidth), color);
    const QRectF room = placed(kBarWidth + 2, kSignRoom);
    const QPointF middle = room.center();
    painter.setBrush(IsSelected(option) ? option.palette.color(QPalette::HighlightedText) : color);
    painter.drawPolygon(QPolygonF{
        {middle.x(), middle.y() - 6}, {middle.x() + 6.5, middle.y() + 5}, {middle.x() - 6.5, middle.y() + 5}});
    painter.setBrush(IsSelected(option) ? option.palette.color(QPalette::Highlight)
                                        : option.palette.color(QPalette::Base));
    painter.drawRect(QRectF(middle.x() - 0.8, middle.y() - 2.5, 1.6, 4));
    painter.drawRect(QRectF(middle.x() - 0.8, middle.y() + 2.5, 1.6, 1.6));
  }
  if (const RowMoves::Kind move = grid_.MoveOf(row); move != RowMoves::Kind::None) {
    PaintMove(painter, option, QRectF(placed(kBarWidth + 2 * kSignRoom, kMoveRoom)).center(), move);
  }
  if (row == grid_.FilmRow()) {
    const QPointF middle = QRectF(placed(kBarWidth + 2 + kSignRoom, kSignRoom)).center();
    const qreal ahead = fromRight ? -4 : 4;
    painter.setBrush(TextColor(option, row));
    painter.drawPolygon(QPolygonF{
        {middle.x() - ahead, middle.y() - 5}, {middle.x() + ahead, middle.y()}, {middle.x() - ahead, middle.y() + 5}});
  }
  painter.setRenderHint(QPainter::Antialiasing, false);
  return placed(kSignsWidth, cell.width() - kSignsWidth);
}

void CaptionDelegate::PaintMove(QPainter& painter, const QStyleOptionViewItem& option, const QPointF& middle,
                                RowMoves::Kind move) const {
  const bool selected = IsSelected(option);
  const QColor text = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Link);
  // A sure move is a full dot, a doubtful one a ring in the colour of what is to be looked at.
  if (move == RowMoves::Kind::Sure) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(text);
    painter.drawEllipse(middle, 3.0, 3.0);
    return;
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(selected ? text : FindingColor(option.palette), 1.8));
  painter.drawEllipse(middle, 3.6, 3.6);
  painter.setPen(Qt::NoPen);
}

void CaptionDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& option, Row row) const {
  const std::vector<StyledRun> runs = TextCell(list_, row);
  QString whole;
  for (const StyledRun& run : runs) whole += ToQt(run.text);
  const QRect room = option.rect.adjusted(kPadding, 0, -kPadding, 0);
  const QString text = option.fontMetrics.elidedText(whole, Qt::ElideRight, room.width());
  const bool fromRight = whole.isRightToLeft();
  QTextOption direction(fromRight ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft | Qt::AlignAbsolute);
  direction.setTextDirection(fromRight ? Qt::RightToLeft : Qt::LeftToRight);
  direction.setWrapMode(QTextOption::NoWrap);
  QTextLayout layout(text, option.font);
  layout.setTextOption(direction);
  const QPalette::ColorRole ground = IsSelected(option) ? QPalette::Highlight : QPalette::Base;
  layout.setFormats(FormatsOf(runs, text, Mixed(TextColor(option, row), option.palette.color(ground), kSignTint)));
  layout.beginLayout();
  QTextLine line = layout.createLine();
  if (line.isValid()) line.setLineWidth(room.width());
  layout.endLayout();
  if (!line.isValid()) return;
  painter.setClipRect(room);
  layout.draw(&painter, QPointF(room.left(), room.top() + (room.height() - line.height()) / 2));
}

int CaptionDelegate::UsualWidth(ListColumn column, const QFont& font) const {
  const QFontMetrics metrics(font);
  const TimesShown& times = grid_.Times();
  constexpr Ms kUsualTime = 5025678;  // 1:23:45.678
  QString usual;
  switch (column) {
    case ListColumn::Number:
      return FiguresWidth(metrics, QString::number(std::max(list_.Count(), kUsualRows))) + kSignsWidth + 2 * kPadding;
    case ListColumn::Start:
    case ListColumn::End:
      usual = ToQt(TimeCell(kUsualTime, times));
      break;
    case ListColumn::Duration:
    case ListColumn::Gap:
      usual = ToQt(LengthCell(12345, times));
      break;
    default:
      usual = "188.8";
  }
  const QString heading = ToQt(ItemAt(grid_.Headings(), column));
  return std::max(FiguresWidth(metrics, usual), metrics.horizontalAdvance(heading)) + 2 * kPadding + 4;
}

}  // namespace cuewright
