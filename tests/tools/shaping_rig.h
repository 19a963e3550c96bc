#pragma once

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/app_options.h"
#include "core/caption_list.h"
#include "tests/support/printers.h"
#include "tests/support/tag_marks.h"

namespace cuewright::testing {

/// A list of captions with tags in their texts.
struct ShapingRig : ::testing::Test {
  ShapingRig() { list.SetMarks(marks); }

  void Put(std::vector<Caption> captions) { list.Replace(1, list.Count(), std::move(captions)); }
  std::vector<Caption> All() const {
    std::vector<Caption> captions;
    for (Row row = 1; row < list.Rows(); ++row) captions.push_back(list.At(row));
    return captions;
  }

  AppOptions options;
  bool modified = false;
  TagMarks marks;
  CaptionList list{options, modified};
};

}  // namespace cuewright::testing
