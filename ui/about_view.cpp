#include "ui/about_view.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QSvgRenderer>
#include <QVBoxLayout>

#include "core/product.h"
#include "ui/link_button.h"
#include "ui/qt_text.h"

namespace cuewright {
namespace {

constexpr int kBannerHeight = 84;
constexpr int kIconSize = 56;
constexpr int kMargin = 16;

/// The program's icon and name on a ground of the desktop's highlight colour; mirrored where windows are.
class Banner final : public QWidget {
 public:
  explicit Banner(QWidget* parent) : QWidget(parent), icon_(QString(":/cuewright.svg")) {
    setMinimumSize(NameFont(), kBannerHeight);
    setCursor(Qt::SizeAllCursor);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Active, QPalette::Highlight));
    const auto placed = [this](const QRect& part) { return QStyle::visualRect(layoutDirection(), rect(), part); };
    icon_.render(&painter, placed({kMargin, (height() - kIconSize) / 2, kIconSize, kIconSize}));
    painter.setPen(palette().color(QPalette::Active, QPalette::HighlightedText));
    const QRect name = placed({kIconSize + 2 * kMargin, 0, width() - kIconSize - 3 * kMargin, height()});
    painter.drawText(name, (QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter).toInt(),
                     ToQt(kProductName));
  }

 private:
  /// Takes the font of the name; gives the width that the banner needs with it.
  int NameFont() {
    QFont large = font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.6);
    setFont(large);
    return kIconSize + 3 * kMargin + fontMetrics().horizontalAdvance(ToQt(kProductName));
  }

  QSvgRenderer icon_;
};

}  // namespace

AboutView::AboutView(AboutDialog& form, QWidget* owner) : DialogView(form, owner) {
  setWindowIcon(QIcon(":/cuewright.svg"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 14);
  column->setSpacing(8);
  column->addWidget(Bind(form.picTop, new Banner(this)));
  auto* texts = new QVBoxLayout;
  texts->setContentsMargins(20, 8, 20, 4);
  texts->setSpacing(8);
  for (Label* label : {&form.lblVersion, &form.lblFormat, &form.lblFree}) {
    texts->addWidget(Bind(*label, PlainLabel(this)));
  }
  texts->addWidget(Bind(form.lblTessaly, new LinkButton(this)), 0, Qt::AlignLeading);
  texts->addSpacing(6);
  for (Label* label : {&form.lblOsName, &form.lblMemo}) texts->addWidget(Bind(*label, PlainLabel(this)));
  column->addLayout(texts, 1);
  binder_.Bind(form.tmrMemo);
  auto* buttons = MakeButtons({nullptr, &form.cmdOK}, &form.cmdOK);
  buttons->setContentsMargins(20, 0, 20, 0);
  column->addLayout(buttons);
  Keep(form.MoveRequested.ConnectScoped([this] { MoveByPointer(); }));
  Complete(&binder_.WidgetOf(form.cmdOK));
}

}  // namespace cuewright
