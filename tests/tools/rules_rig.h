#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "settings/messages.h"
#include "tests/support/printers.h"
#include "tools/rules_engine.h"

namespace cuewright {

struct RulesTest : ::testing::Test {
  RulesTest() { LoadEnglish(MessageCatalogue(), strings); }
  void Put(std::vector<Caption> captions) { list.Replace(1, list.Count(), std::move(captions)); }
  void Only(std::uint8_t split, std::uint8_t collision, std::uint8_t join, std::uint8_t duration,
            std::uint8_t credits) {
    options.autoSplit = split;
    options.avoidCollision = collision;
    options.autoJoin = join;
    options.limitDuration = duration;
    options.removeCredits = credits;
  }
  void Pass() {
    told.clear();
    failure = engine.ApplyRules([this](Row row) { told.push_back(row); });
  }
  std::string Line(std::size_t entry) const { return ToUtf8(report.OneLine(entry)); }

  AppOptions options;
  bool modified = false;
  LangStrings strings;
  CaptionList list{options, modified};
  RuleReport report{strings};
  RulesEngine engine{list, report};
  std::vector<Row> told;                ///< of the progress of the last pass
  std::optional<RuntimeError> failure;  ///< of the last pass
};

}  // namespace cuewright
