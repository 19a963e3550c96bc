#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "settings/messages.h"
#include "tests/support/fakes.h"
#include "tests/support/printers.h"
#include "tools/rules_engine.h"

namespace cuewright {

/// A window that writes down what a pass asks of it.
struct FakeHost final : RulesHost {
  void CloseToolWindows() override { calls.emplace_back("close"); }
  void SetBusy(bool on) override { calls.emplace_back(on ? "busy" : "idle"); }
  void Yield() override { calls.emplace_back("yield"); }
  void ShowProgress(TextView text) override { calls.push_back("progress " + ToUtf8(text)); }
  void RefreshFileLabels() override { calls.emplace_back("labels"); }
  void LeavePreviewMode() override { calls.emplace_back("press and hold"); }
  bool PausePlayer() override {
    calls.emplace_back("pause");
    return playing;
  }
  void ResumePlayer() override { calls.emplace_back("resume"); }
  void ShowReport() override { calls.emplace_back("report"); }

  long Count(const std::string& call) const { return std::count(calls.begin(), calls.end(), call); }

  std::vector<std::string> calls;
  bool playing = false;
};

struct RulesTest : ::testing::Test {
  RulesTest() { LoadEnglish(MessageCatalogue(), strings); }
  void Put(std::vector<Caption> captions) { list.Replace(1, list.Rows() - 1, std::move(captions)); }
  void Only(std::uint8_t split, std::uint8_t collision, std::uint8_t join, std::uint8_t duration,
            std::uint8_t credits) {
    options.autoSplit = split;
    options.avoidCollision = collision;
    options.autoJoin = join;
    options.limitDuration = duration;
    options.removeCredits = credits;
  }
  std::string Line(std::size_t entry) const { return ToUtf8(report.OneLine(entry)); }

  AppOptions options;
  bool modified = false;
  LangStrings strings;
  testing::FakeMessages boxes;
  FakeHost host;
  CaptionList list{options, modified};
  RuleReport report{strings};
  RulesEngine engine{list, report, strings, boxes, host};
};

}  // namespace cuewright
