#pragma once

#include <gtest/gtest.h>

#include "forms/embed_wizard.h"
#include "tests/forms/wizard_rig.h"

namespace cuewright::testing {

struct EmbedRig : WizardRig {
  void OpenWizard() {
    Window().mnuEmbed.Click();
    ASSERT_TRUE(Embed().IsOpen());
  }
  void GoTo(int step) {
    while (Embed().Step() < step) {
      const int before = Embed().Step();
      Embed().cmdNext.Click();
      ASSERT_EQ(Embed().Step(), before + 1) << LastBox();
    }
  }
  std::vector<Text> Lines() { return Script("embedsub.vcf"); }
  Text Line(TextView start) {
    for (const Text& line : Lines()) {
      if (line.starts_with(start)) return line;
    }
    return {};
  }
  int PageShown() {
    int shown = -1;
    for (int i = 0; i < 4; ++i) {
      if (!Embed().picStep[static_cast<std::size_t>(i)].Visible()) continue;
      EXPECT_EQ(shown, -1);
      shown = i;
    }
    return shown;
  }
};

}  // namespace cuewright::testing
