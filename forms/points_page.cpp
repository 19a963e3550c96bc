#include "forms/points_page.h"

#include "capture/film_position.h"
#include "core/caption_time.h"
#include "core/counting.h"
#include "core/runtime_error.h"
#include "forms/control_texts.h"
#include "tools/typed_time.h"

namespace cuewright {
namespace {

/// A time as it is shown; one that is too large for that is its ms.
Text ShownTime(Ms ms) {
  CarryOn step;
  Text text = Decimal(ms.Count());
  step([&] { text = MsToTimeText(ms); });
  return text;
}

}  // namespace

PointsPage::PointsPage(Form& window, Workbench bench, const Player& player)
    : fraPoints(window, "fraPoints"),
      lblPoint(window, "lblPoint"),
      txtPoint(window, "txtPoint"),
      cmdSetPoint(window, "cmdSetPoint"),
      cmdFilmPoint(window, "cmdFilmPoint"),
      lstPoints(window, "lstPoints"),
      cmdRemovePoint(window, "cmdRemovePoint"),
      bench_(bench),
      player_(player) {
  Wire();
}

void PointsPage::Wire() {
  txtPoint.Edited.Connect([this] { cmdSetPoint.SetEnabled(TypedTime(txtPoint.GetText()).has_value()); });
  // Enter takes over what was typed; it must not press the window's OK.
  txtPoint.KeyDown.Connect([this](KeyEvent& key) {
    if (key.code != kKeyEnter) return;
    key.handled = true;
    cmdSetPoint.Click();
  });
  cmdSetPoint.Clicked.Connect([this] {
    if (const std::optional<Ms> ms = TypedTime(txtPoint.GetText())) SetPoint(*ms);
  });
  cmdFilmPoint.Clicked.Connect([this] { SetPoint(FilmPosition(bench_.window, player_)); });
  lstPoints.Chosen.Connect([this] {
    const auto& points = points_.All();
    if (lstPoints.Index() < 0 || lstPoints.Index() >= std::ssize(points)) return;
    cmdRemovePoint.SetEnabled(true);
    bench_.list.SetRow(ItemAt(points, lstPoints.Index()).row, true);
  });
  cmdRemovePoint.Clicked.Connect([this] {
    if (lstPoints.Index() < 0) return;
    points_.Remove(lstPoints.Index());
    ShowPoints();
    Changed();
  });
}

void PointsPage::ApplyLanguage() {
  const ControlText rows[] = {
      {cmdSetPoint, Message::SetPoint}, {cmdFilmPoint, Message::PointAtFilm}, {cmdRemovePoint, Message::RemovePoint}};
  ShowTexts(rows, bench_.strings);
  const ControlText spoken[] = {{txtPoint, Message::RetimeByPoints}, {lstPoints, Message::SpokenPoints}};
  SpeakTexts(spoken, bench_.strings);
}

void PointsPage::ShowFilm() { cmdFilmPoint.SetEnabled(bench_.document.HasVideo()); }

void PointsPage::Show() {
  ShowCaption();
  ShowPoints();
}

void PointsPage::ShowCaption() {
  const Row row = bench_.list.Selected();
  const CaptionTimes times = bench_.list.InRange(row) ? bench_.list.TimesAt(row) : CaptionTimes{};
  const bool timed = times.start > 0 || times.end > 0;
  lblPoint.SetText(Fill(bench_.strings[Message::CaptionBelongsAt], Decimal(row.Number())));
  txtPoint.SetEnabled(timed);
  txtPoint.SetText(timed ? ShownTime(times.start) : Text());
  cmdSetPoint.SetEnabled(timed);
  cmdFilmPoint.SetEnabled(timed && bench_.document.HasVideo());
}

void PointsPage::ShowPoints(int chosen) {
  std::vector<Text> rows;
  for (const RetimePoints::Point& point : points_.All()) {
    rows.push_back(Decimal(point.row.Number()) + u":  " + ShownTime(bench_.list.GetCaptionStart(point.row)) +
                   u"  \u2192  " + ShownTime(point.ms));
  }
  if (rows != lstPoints.Items()) lstPoints.SetItems(std::move(rows));
  if (chosen >= 0) lstPoints.SetIndex(chosen);
  cmdRemovePoint.SetEnabled(lstPoints.Index() >= 0);
}

void PointsPage::SetPoint(Ms ms) {
  const std::size_t place = points_.Put(bench_.list.Selected(), ms);
  ShowPoints(static_cast<int>(place));
  Changed();
}

}  // namespace cuewright
