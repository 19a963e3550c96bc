#include "tools/proposal.h"

#include <gtest/gtest.h>

#include "core/app_options.h"
#include "core/edit_history.h"

namespace cuewright {
namespace {

struct ProposalTest : ::testing::Test {
  ProposalTest() {
    list.Replace(1, 1, {{0, 1, u"a"}, {2, 3, u"b"}, {4, 5, u"c"}, {6, 7, u"d"}});
    history.Begin(DocumentBaseline::File);
    list.Spliced.Connect([this](const Splice&) { ++splices; });
  }

  std::string Texts() const {
    std::string texts;
    for (Row row = 1; row < list.Rows(); ++row) texts += ToUtf8(list.At(row).text) + ".";
    return texts;
  }

  AppOptions options;
  bool modified = false;
  CaptionList list{options, modified};
  EditHistory history{list, modified};
  int splices = 0;
};

TEST_F(ProposalTest, ChangesAndRemovesInOneStep) {
  const std::vector<Proposal> proposals = {{2, Caption{2, 3, u"B"}}, {4, std::nullopt}};
  EXPECT_EQ(CarryOut(list, EditKind::Cleaning, proposals), 2);
  EXPECT_EQ(Texts(), "a.B.c.");
  EXPECT_EQ(splices, 1);
  EXPECT_TRUE(modified);
  EXPECT_EQ(history.UndoKind(), EditKind::Cleaning);
  history.Undo();
  EXPECT_EQ(Texts(), "a.b.c.d.");
  history.Redo();
  EXPECT_EQ(Texts(), "a.B.c.");
}

TEST_F(ProposalTest, DoesNothingWithoutAny) {
  EXPECT_EQ(CarryOut(list, EditKind::Cleaning, {}), 0);
  EXPECT_EQ(splices, 0);
  EXPECT_FALSE(modified);
  EXPECT_FALSE(history.UndoKind());
}

TEST_F(ProposalTest, LeavesABlankCaptionWhereAllGo) {
  std::vector<Proposal> proposals;
  for (const Row row : AllRows(list)) proposals.push_back({row, std::nullopt});
  CarryOut(list, EditKind::Cleaning, proposals);
  EXPECT_EQ(Texts(), ".");
}

}  // namespace
}  // namespace cuewright
