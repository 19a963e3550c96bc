#include "forms/edge_command.h"

#include "audio/edge_snapping.h"
#include "text/labels.h"

namespace cuewright {
namespace {

/// Shorter gaps look like a flicker. Houses that state a limit have this one.
constexpr HouseTime kUsualChain{0, 12};
/// What streaming guides ask for around a shot. Who gives the command wants it also where the rules in force don't.
constexpr HouseTime kUsualZone{0, 12};
constexpr HouseTime kUsualBefore{0, 2};

Ms MsIn(const LiveFindings& findings, const HouseTime& time) {
  const HouseRules& rules = findings.Rules();
  // Without the film's rate, frames are counted at that of the profile.
  return rules.MsOf(time, findings.Rate().IsUsual() ? findings.Rate() : rules.rate);
}

}  // namespace

EdgeRules EdgeRulesOf(const LiveFindings& findings) {
  const HouseRules& rules = findings.Rules();
  return {MsIn(findings, rules.minGap), MsIn(findings, rules.shotZone), MsIn(findings, rules.beforeShot),
          MsIn(findings, rules.chainBelow.Given() ? rules.chainBelow : kUsualChain)};
}

EdgeCommand::EdgeCommand(Workbench bench, const LiveFindings& findings, const FilmShots& shots,
                         ProposalTools& proposals)
    : bench_(bench), findings_(findings), shots_(shots), proposals_(proposals) {
  bench_.window.mnuSnapTimes.Clicked.Connect([this] {
    if (!bench_.document.HasDocument()) return;
    const Text title = WithoutDots(bench_.strings[Message::SnapTimesItem]);
    proposals_.OfferOf(title, EditKind::SetTimes, [this](const std::vector<Row>& rows) { return Propose(rows); });
  });
}

void EdgeCommand::ShowItem() {
  MenuItem& item = bench_.window.mnuSnapTimes;
  item.SetVisible(bench_.options.manner.WaveIsAWorkbench());
  item.SetEnabled(bench_.document.HasDocument());
}

std::vector<Proposal> EdgeCommand::Propose(const std::vector<Row>& rows) const {
  const CaptionList& list = bench_.list;
  const std::vector<CaptionTimes> times = list.AllTimes();
  std::vector<bool> wanted(times.size());
  for (const Row row : rows) wanted[row.Index()] = true;
  EdgeRules rules = EdgeRulesOf(findings_);
  if (!findings_.Rules().shotZone.Given()) {
    rules.shotZone = MsIn(findings_, kUsualZone);
    rules.beforeShot = MsIn(findings_, kUsualBefore);
  }
  const std::vector<CaptionTimes> snapped = SnapEdges(times, wanted, shots_.Shots(), rules);
  std::vector<Proposal> proposals;
  for (const Row row : rows) {
    const CaptionTimes& to = snapped[row.Index()];
    const CaptionTimes from = list.TimesAt(row);
    if (to.start == from.start && to.end == from.end) continue;
    Caption after = list.At(row);
    after.start = to.start;
    after.end = to.end;
    proposals.push_back({row, std::move(after)});
  }
  return proposals;
}

}  // namespace cuewright
