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
  const EdgeGuess guess = GuessEdge(Evidence({{120, 0.7}, {141, 0.3}}), 1400);
  EXPECT_NEAR(guess.ms, 1200, 10);
  EXPECT_NEAR(guess.confidence, 0.7, 0.001);
  EXPECT_NEAR(guess.risk, 0.3, 0.001);
}

TEST(GuessEdge, WhatLiesOnTheFarSideOfTheGuessIsNoRisk) {
  EXPECT_NEAR(GuessEdge(Evidence({{120, 0.7}, {105, 0.3}}), 1400).risk, 0, 0.001);
}

TEST(GuessEdge, NearTheUsualPlaceThereIsNoRiskHoweverUnsureItIs) {
  const EdgeGuess guess = GuessEdge(Evidence({{110, 0.3}, {121, 0.4}, {135, 0.3}}), 1180);
  EXPECT_LT(guess.confidence, 0.5);
  EXPECT_EQ(guess.risk, 0);
}

TEST(GuessEdge, BetweenGuessAndUsualPlaceAFrameIsGranted) {
  // In the middle neither is nearer; nearer to the usual place by 3 steps is less than a frame, by 5 more.
  EXPECT_NEAR(GuessEdge(Evidence({{120, 0.6}, {132, 0.4}}), 1405 - 140).risk, 0.4, 0.001);
  EXPECT_NEAR(GuessEdge(Evidence({{120, 0.6}, {131, 0.4}}), 1405).risk, 0, 0.001);
}

}  // namespace
}  // namespace cuewright
