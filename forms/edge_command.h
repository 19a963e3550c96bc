#pragma once

#include <vector>

#include "audio/snap_points.h"
#include "capture/workbench.h"
#include "check/live_findings.h"
#include "forms/film_shots.h"
#include "forms/proposal_tools.h"

namespace cuewright {

/// What the house rules in force ask of edges, in ms of the film.
EdgeRules EdgeRulesOf(const LiveFindings& findings);

/// The command that proposes to move the edges of captions to shots, and to make gaps as long as the house wants them.
class EdgeCommand {
 public:
  EdgeCommand(Workbench bench, const LiveFindings& findings, const FilmShots& shots, ProposalTools& proposals);

  void ShowItem();

 private:
  std::vector<Proposal> Propose(const std::vector<Row>& rows) const;

  Workbench bench_;
  const LiveFindings& findings_;
  const FilmShots& shots_;
  ProposalTools& proposals_;
};

}  // namespace cuewright
