#include "forms/retime_window.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/counting.h"
#include "core/runtime_error.h"
#include "forms/control_texts.h"
#include "forms/film_rate.h"
#include "forms/sync_page.h"
#include "text/labels.h"
#include "tools/typed_time.h"

namespace cuewright {
namespace {

constexpr std::array<TextView, 9> kUsualRates = {u"23.976", u"24", u"25",    u"29.97", u"30",
                                                 u"48",     u"50", u"59.94", u"60"};
constexpr TextView kCommonRate = u"25";

}  // namespace

RetimeWindow::RetimeWindow(Workbench bench, const FormatState& formats, const Languages& languages,
                           const Player& player, OpenForms& openForms, SyncSources sources)
    : ToolForm("frmRetime", openForms),
      points(*this, bench, player),
      sync(std::make_unique<SyncPage>(*this, bench, sources)),
      bench_(bench),
      formats_(formats),
      languages_(languages),
      player_(player) {
  cboFrom.SetEditable(true);
  cboTo.SetEditable(true);
  Wire();
}

RetimeWindow::~RetimeWindow() = default;

void RetimeWindow::Wire() {
  optSync.Clicked.Connect([this] { Choose(Way::Sync); });
  sync->Changed.Connect([this] { Refresh(); });
  points.Changed.Connect([this] { Refresh(); });
  bench_.window.mnuRetime.Clicked.Connect([this] { Show(); });
  optShift.Clicked.Connect([this] { Choose(Way::Shift); });
  optRatio.Clicked.Connect([this] { Choose(Way::Ratio); });
  optRates.Clicked.Connect([this] { Choose(Way::Rates); });
  optPoints.Clicked.Connect([this] { Choose(Way::Points); });
  optAll.Clicked.Connect([this] { Choose(Scope::All); });
  optSelected.Clicked.Connect([this] {
    selected_ = bench_.list.SelectedRows().Rows();
    Choose(Scope::Selected);
  });
  optFromHere.Clicked.Connect([this] {
    here_ = bench_.list.Selected();
    Choose(Scope::FromHere);
  });
  txtShift.Edited.Connect([this] { Refresh(); });
  txtRatio.Edited.Connect([this] { Refresh(); });
  for (ComboBox* box : {&cboUnit, &cboDirection}) box->Chosen.Connect([this] { Refresh(); });
  // An editable box has no signal for typed text but that its state has changed.
  for (ComboBox* box : {&cboFrom, &cboTo}) {
    box->Changed.Connect([this] {
      if (Loaded()) Refresh();
    });
  }
  cmdOK.Clicked.Connect([this] { Apply(); });
  cmdCancel.Clicked.Connect([this] { Close(); });
}

void RetimeWindow::Load() {
  txtShift.SetText({});
  txtRatio.SetText({});
  points.Clear();
  way_ = Way::Shift;
  here_ = bench_.list.Selected();
  selected_ = bench_.list.SelectedRows().Rows();
  // With several rows selected the window proposes the selection.
  scope_ = selected_.size() > 1 ? Scope::Selected : Scope::All;
  ShowUnits();
  cboUnit.SetIndex(Clock);
  cboDirection.SetItems({bench_.strings[Message::RetimeLater], bench_.strings[Message::RetimeEarlier]});
  cboDirection.SetIndex(Later);
  OfferRates();
  connections_.push_back(bench_.list.Spliced.ConnectScoped([this](const Splice& splice) { Follow(splice); }));
  connections_.push_back(bench_.list.CommandEnded.ConnectScoped([this] {
    points.ShowPoints();
    Refresh();
  }));
  connections_.push_back(bench_.list.SelectionChanged.ConnectScoped([this](Row) { points.ShowCaption(); }));
  ApplyLanguage(languages_.IsRightToLeft());
}

void RetimeWindow::Unload() {
  connections_.clear();
  sync->Forget();
  map_.reset();
  bench_.grid.Foresee(nullptr);
}

void RetimeWindow::OnActivated() { points.ShowFilm(); }

void RetimeWindow::ApplyLanguage(bool rightToLeft) {
  const LangStrings& strings = bench_.strings;
  SetTitle(WithoutDots(strings[Message::RetimeItem]));
  SetAllRightToLeft(rightToLeft);
  const ControlText rows[] = {{optShift, Message::RetimeByAmount},
                              {optRatio, Message::RetimeByRatio},
                              {optRates, Message::RetimeByRates},
                              {optPoints, Message::RetimeByPoints},
                              {optSync, Message::RetimeBySound},
                              {lblRatio, Message::RetimeRatioHint},
                              {lblFrom, Message::RateOfText},
                              {lblTo, Message::RateOfPlay},
                              {fraScope, Message::RetimeScope},
                              {optAll, Message::ScopeAll},
                              {cmdOK, Message::Ok},
                              {cmdCancel, Message::Cancel}};
  ShowTexts(rows, strings);
  const ControlText spoken[] = {{txtShift, Message::RetimeByAmount},
                                {cboUnit, Message::SpokenUnit},
                                {cboDirection, Message::SpokenDirection},
                                {txtRatio, Message::RetimeByRatio}};
  SpeakTexts(spoken, strings);
  points.ApplyLanguage();
  sync->ApplyLanguage();
  for (ComboBox* box : {&cboUnit, &cboDirection}) box->SetToolTip(box->SpokenName());
  const int direction = cboDirection.Index();
  cboDirection.SetItems({strings[Message::RetimeLater], strings[Message::RetimeEarlier]});
  cboDirection.SetIndex(direction);
  ShowUnits();
  const FrameRate film = player_.FramesPerSecond();
  lblFilmRate.SetText(film ? Fill(strings[Message::RateOfFilm], film.AsText()) : Text());
  ShowWay();
  OnActivated();
}

void RetimeWindow::ShowUnits() {
  const int unit = cboUnit.Index();
  std::vector<Text> units = {bench_.strings[Message::UnitClock]};
  if (const FrameRate rate = RateOfFrames()) {
    units.push_back(Fill(bench_.strings[Message::UnitFrames], rate.AsText()));
  }
  cboUnit.SetItems(units);
  cboUnit.SetIndex(unit < std::ssize(units) ? unit : int{Clock});
}

void RetimeWindow::OfferRates() {
  const FrameRate film = player_.FramesPerSecond();
  std::vector<Text> rates(kUsualRates.begin(), kUsualRates.end());
  for (const FrameRate& known : {film, formats_.CurrentFps}) {
    if (known && std::ranges::find(rates, known.AsText()) == rates.end()) rates.push_back(known.AsText());
  }
  for (ComboBox* box : {&cboFrom, &cboTo}) box->SetItems(rates);
  const auto choose = [&rates](ComboBox& box, const FrameRate& rate) {
    box.SetIndex(PlaceOf(rates, rate ? rate.AsText() : Text(kCommonRate)));
  };
  choose(cboFrom, formats_.CurrentFps);
  choose(cboTo, film);
}

void RetimeWindow::Choose(Way way) {
  way_ = way;
  ShowWay();
}

void RetimeWindow::Choose(Scope scope) {
  scope_ = scope;
  ShowWay();
}

void RetimeWindow::ShowWay() {
  optShift.SetValue(way_ == Way::Shift);
  optRatio.SetValue(way_ == Way::Ratio);
  optRates.SetValue(way_ == Way::Rates);
  optPoints.SetValue(way_ == Way::Points);
  fraShift.SetVisible(way_ == Way::Shift);
  fraRatio.SetVisible(way_ == Way::Ratio);
  fraRates.SetVisible(way_ == Way::Rates);
  points.fraPoints.SetVisible(way_ == Way::Points);
  const bool synchronises = bench_.options.manner.FitsToTheVoice();
  optSync.SetVisible(synchronises);
  optSync.SetValue(way_ == Way::Sync);
  sync->fraSync.SetVisible(way_ == Way::Sync);
  // Segments cover all captions, so the choice of rows has no effect.
  for (OptionButton* option : {&optAll, &optSelected, &optFromHere}) option->SetEnabled(way_ != Way::Sync);
  optAll.SetValue(scope_ == Scope::All);
  optSelected.SetValue(scope_ == Scope::Selected);
  optFromHere.SetValue(scope_ == Scope::FromHere);
  optSelected.SetText(bench_.strings.Counted(Message::ScopeSelected, u"%1", std::ssize(selected_)));
  optFromHere.SetText(Fill(bench_.strings[Message::ScopeFromHere], Decimal(here_.Number())));
  points.Show();
  Refresh();
}

void RetimeWindow::Follow(const Splice& splice) {
  points.Follow(splice);
  // The segments were found for rows that may have gone.
  if (splice.removed != splice.added) sync->Forget();
  const auto follow = [&](Row row) { return std::max(RowAfter(splice, row), std::min(splice.first, row)); };
  here_ = follow(here_);
  for (Row& row : selected_) row = RowAfter(splice, row);
  std::erase(selected_, 0);
}

FrameRate RetimeWindow::RateOfFrames() const { return FilmOrFileRate(player_, formats_); }

bool RetimeWindow::IsChosen(Row row) const {
  switch (scope_) {
    case Scope::All:
      return true;
    case Scope::Selected:
      return std::ranges::binary_search(selected_, row);
    case Scope::FromHere:
      return row >= here_;
  }
  return false;
}

RetimeRows RetimeWindow::ChosenRows() const {
  if (scope_ != Scope::Selected) return {RowRange{scope_ == Scope::FromHere ? here_ : 1, kMaxRow}};
  RetimeRows rows;
  for (const Row row : selected_) {
    if (rows.empty() || rows.back().last + 1 != row) {
      rows.push_back({row, row});
    } else {
      rows.back().last = row;
    }
  }
  return rows;
}

RetimeWindow::Asked RetimeWindow::AskedMap() const {
  switch (way_) {
    case Way::Shift:
      return AskedShift();
    case Way::Ratio:
      return AskedRatio();
    case Way::Rates:
      return AskedRates();
    case Way::Points:
      return AskedPoints();
    case Way::Sync:
      break;
  }
  return {};
}

RetimeWindow::Asked RetimeWindow::AskedShift() const {
  const bool frames = cboUnit.Index() == Frames;
  std::optional<Ms> ms;
  if (!frames) ms = TypedTime(txtShift.GetText());
  if (const auto count = frames ? TypedNumber(txtShift.GetText()) : std::nullopt) {
    CarryOn step;
    step([&] { ms = RateOfFrames().MsOfFrames(*count); });
  }
  if (!ms) return {{}, frames ? Message::TypeFrames : Message::TypeATime};
  return {TimeMap::Shift(cboDirection.Index() == Earlier ? -*ms : *ms)};
}

RetimeWindow::Asked RetimeWindow::AskedRatio() const {
  const std::optional<SpeedRatio> ratio = SpeedRatio::FromText(txtRatio.GetText());
  if (!ratio) return {{}, Message::TypeARatio};
  return {TimeMap::Scale(*ratio)};
}

RetimeWindow::Asked RetimeWindow::AskedRates() const {
  const FrameRate from = FrameRate::FromText(cboFrom.GetText());
  const FrameRate to = FrameRate::FromText(cboTo.GetText());
  if (!from.IsUsual() || !to.IsUsual()) return {{}, Message::TypeRates};
  return {TimeMap::Scale(SpeedRatio::OfRates(from, to))};
}

RetimeWindow::Asked RetimeWindow::AskedPoints() const {
  TimeMap map;
  switch (TimeMap::Through(points.Times(), map)) {
    case TimeMap::Fault::None:
      break;
    case TimeMap::Fault::NoPoint:
      return {{}, Message::SetSomePoints};
    case TimeMap::Fault::SameTime:
      return {{}, Message::PointsFromOneTime};
    case TimeMap::Fault::TurnedRound:
      return {{}, Message::PointsTurnedRound};
  }
  return {std::move(map)};
}

void RetimeWindow::Refresh() {
  if (way_ == Way::Sync) return RefreshSync();
  Asked asked = AskedMap();
  map_ = std::move(asked.map);
  bench_.grid.Foresee(map_ ? this : nullptr);
  const RetimeResult result = map_ ? ForeseeRetiming(bench_.list, ChosenRows(), *map_) : RetimeResult{};
  cmdOK.SetEnabled(result.changed != 0);
  if (!map_) return lblResult.SetText(bench_.strings[asked.trouble]);
  Text told = result.changed == 0 ? bench_.strings[Message::RetimeNothing]
                                  : bench_.strings.Counted(Message::RetimeForeseen, u"%1", result.changed);
  if (result.belowZero != 0) {
    told += u" " + bench_.strings.Counted(Message::RetimeBelowZero, u"%1", result.belowZero);
  }
  lblResult.SetText(told);
}

void RetimeWindow::RefreshSync() {
  map_.reset();
  const std::vector<RetimePiece> pieces = sync->Pieces();
  bench_.grid.Foresee(pieces.empty() ? nullptr : this);
  int changed = 0;
  for (const RetimePiece& piece : pieces) changed += ForeseeRetiming(bench_.list, {piece.rows}, piece.map).changed;
  cmdOK.SetEnabled(changed != 0);
  if (pieces.empty()) return lblResult.SetText(sync->Told());
  lblResult.SetText(changed == 0 ? bench_.strings[Message::RetimeNothing]
                                 : bench_.strings.Counted(Message::RetimeForeseen, u"%1", changed));
}

CaptionTimes RetimeWindow::TimesOf(Row row) const {
  const CaptionTimes own = bench_.list.TimesAt(row);
  if (way_ == Way::Sync) return sync->TimesOf(row, own);
  return map_ && IsChosen(row) ? RetimedTimes(own, *map_).times : own;
}

void RetimeWindow::Apply() {
  if (way_ == Way::Sync) {
    const std::vector<RetimePiece> pieces = sync->Pieces();
    Close();
    RetimeCaptions(bench_.list, pieces);
    bench_.list.SetRow(bench_.list.Selected(), false);
    return Retimed();
  }
  if (!map_) return;
  const TimeMap map = *map_;
  const RetimeRows rows = ChosenRows();
  // The list shows its own times again before they change.
  Close();
  RetimeCaptions(bench_.list, rows, map);
  bench_.list.SetRow(bench_.list.Selected(), false);
  Retimed();
}

}  // namespace cuewright
