#include "voice/fit_edge.h"

#include <gtest/gtest.h>

#include <cmath>

namespace cuewright {
namespace {

/// Steps 100 to 159, each unlikely but for those given with their probabilities.
EdgeEvidence Evidence(const std::vector<std::pair<std::ptrdiff_t, double>>& likely) {
  EdgeEvidence evidence{100, std::vector<double>(60, std::log(1e-9))};
  for (const auto& [step, probability] : likely) {
    evidence.values[static_cast<std::size_t>(step - evidence.first)] = std::log(probability);
  }
  return evidence;
}

TEST(GuessEdge, TheRiskIsWhatSpeaksForTheUsualPlace) {
  const EdgeGuess guess = GuessEdge(Evidence({{120, 0.7}, {141, 0.3}}), 1400, 1);
  EXPECT_NEAR(guess.ms, 1200, 10);
  EXPECT_NEAR(guess.confidence, 0.7, 0.001);
  EXPECT_NEAR(guess.risk, 0.3, 0.001);
}

TEST(GuessEdge, WhatLiesOnTheFarSideOfTheGuessIsNoRisk) {
  EXPECT_NEAR(GuessEdge(Evidence({{120, 0.7}, {105, 0.3}}), 1400, 1).risk, 0, 0.001);
}

TEST(GuessEdge, NearTheUsualPlaceThereIsNoRiskHoweverUnsureItIs) {
  const EdgeGuess guess = GuessEdge(Evidence({{110, 0.3}, {121, 0.4}, {135, 0.3}}), 1180, 1);
  EXPECT_LT(guess.confidence, 0.5);
  EXPECT_EQ(guess.risk, 0);
}

TEST(GuessEdge, BetweenGuessAndUsualPlaceAFrameIsGranted) {
  // In the middle neither is nearer; nearer to the usual place by 3 steps is less than a frame, by 5 more.
  EXPECT_NEAR(GuessEdge(Evidence({{120, 0.6}, {132, 0.4}}), 1405 - 140, 1).risk, 0.4, 0.001);
  EXPECT_NEAR(GuessEdge(Evidence({{120, 0.6}, {131, 0.4}}), 1405, 1).risk, 0, 0.001);
}

TEST(GuessEdge, IsOnlySoFarFromTheUsualPlaceAsTheRiskAllows) {
  const EdgeEvidence evidence = Evidence({{120, 0.7}, {141, 0.3}});
  const EdgeGuess bold = GuessEdge(evidence, 1400, 0.35);
  EXPECT_NEAR(bold.ms, 1200, 10);
  const EdgeGuess careful = GuessEdge(evidence, 1400, 0.2);
  EXPECT_NEAR(careful.ms, 1365, 10);
  EXPECT_LE(careful.risk, 0.2);
  EXPECT_NEAR(careful.confidence, 0.3, 0.001);
}

TEST(AddDrowned, APlaceIsLaterForAnEndAndEarlierForAStart) {
  EdgeEvidence end = Evidence({{130, 1}});
  EdgeEvidence start = end;
  AddDrowned(end, 4, Drowned::End);
  AddDrowned(start, 4, Drowned::Start);
  EXPECT_NEAR(GuessEdge(end, 1300, 1).ms, 1325, 5);
  EXPECT_NEAR(GuessEdge(start, 1300, 1).ms, 1275, 5);
  EXPECT_GT(end.At(130), end.At(131));
  EXPECT_GT(start.At(130), start.At(129));
}

}  // namespace
}  // namespace cuewright
