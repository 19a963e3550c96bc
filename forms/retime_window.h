#pragma once

#include <memory>
#include <optional>

#include "capture/workbench.h"
#include "core/ms.h"
#include "core/ports/player.h"
#include "form/controls.h"
#include "formats/format_state.h"
#include "forms/points_page.h"
#include "forms/tool_form.h"
#include "settings/languages.h"
#include "tools/retime.h"

namespace cuewright {

class SyncPage;
struct SyncSources;

/// The window `frmRetime`: other times for captions, by an amount, a ratio, two rates or captions whose right times are
/// known, or by the film's sound. It stands beside the main window, so that film and list can be used meanwhile. The
/// list shows the times that would come; the captions get them by `cmdOK` alone.
class RetimeWindow final : public ToolForm, private ForeseenTimes {
 public:
  RetimeWindow(Workbench bench, const FormatState& formats, const Languages& languages, const Player& player,
               OpenForms& openForms, SyncSources sources);
  ~RetimeWindow() override;

  OptionButton optShift{*this, "optShift"};
  OptionButton optRatio{*this, "optRatio"};
  OptionButton optRates{*this, "optRates"};
  OptionButton optPoints{*this, "optPoints"};

  Frame fraShift{*this, "fraShift"};
  TextBox txtShift{*this, "txtShift"};
  ComboBox cboUnit{*this, "cboUnit"};
  ComboBox cboDirection{*this, "cboDirection"};

  Frame fraRatio{*this, "fraRatio"};
  TextBox txtRatio{*this, "txtRatio"};
  Label lblRatio{*this, "lblRatio"};

  Frame fraRates{*this, "fraRates"};
  Label lblFrom{*this, "lblFrom"};
  ComboBox cboFrom{*this, "cboFrom"};
  Label lblTo{*this, "lblTo"};
  ComboBox cboTo{*this, "cboTo"};
  Label lblFilmRate{*this, "lblFilmRate"};

  PointsPage points;

  OptionButton optSync{*this, "optSync"};
  /// The way by the film's sound.
  const std::unique_ptr<SyncPage> sync;

  Frame fraScope{*this, "fraScope"};
  OptionButton optAll{*this, "optAll"};
  OptionButton optSelected{*this, "optSelected"};
  OptionButton optFromHere{*this, "optFromHere"};

  Label lblResult{*this, "lblResult"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  void OnActivated() override;
  void ApplyLanguage(bool rightToLeft) override;

  Signal<RetimeWindow> Retimed;  ///< captions have got their new times: what draws them draws them anew

 private:
  enum class Way : std::uint8_t { Shift, Ratio, Rates, Points, Sync };
  enum class Scope : std::uint8_t { All, Selected, FromHere };
  enum Unit { Clock, Frames };
  enum Direction { Later, Earlier };
  /// What the controls ask for.
  struct Asked {
    std::optional<TimeMap> map;            ///< empty: they ask for nothing that can be done
    Message trouble = Message::TypeATime;  ///< what is told then
  };

  void Load() override;
  void Unload() override;
  CaptionTimes TimesOf(Row row) const override;

  void Wire();
  void Choose(Way way);
  void Choose(Scope scope);
  void ShowWay();
  void ShowUnits();
  void OfferRates();
  void Follow(const Splice& splice);
  /// What is asked for has changed: the list and the result follow.
  void Refresh();
  void RefreshSync();
  Asked AskedMap() const;
  Asked AskedShift() const;
  Asked AskedRatio() const;
  Asked AskedRates() const;
  Asked AskedPoints() const;
  bool IsChosen(Row row) const;
  RetimeRows ChosenRows() const;
  /// The rate in which frames are counted: the film's, else the document's; none when neither is known.
  FrameRate RateOfFrames() const;
  void Apply();

  Workbench bench_;
  const FormatState& formats_;
  const Languages& languages_;
  const Player& player_;
  Way way_ = Way::Shift;
  Scope scope_ = Scope::All;
  Row here_ = 1;               ///< the row that "from here on" means
  std::vector<Row> selected_;  ///< the rows that "the selected ones" means, in order
  std::optional<TimeMap> map_;
  std::vector<Connection> connections_;  ///< to the list, while the window is loaded
};

}  // namespace cuewright
