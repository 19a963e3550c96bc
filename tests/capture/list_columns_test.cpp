#include "capture/list_columns.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace cuewright {
namespace {

TEST(ListColumns, AreKeptAsTheUserHasArrangedThem) {
  ColumnOrder order;
  EXPECT_EQ(order.Stored(), u"");
  order.Move(5, 1);
  order.SetWidth(ListColumn::Start, 90);
  order.Show(ListColumn::Gap, false);
  EXPECT_EQ(order.Stored(), u"number,speed,start:90,end,duration,-gap,text");
  EXPECT_EQ(ColumnOrder(order.Stored()), order);
  EXPECT_FALSE(order.Of(ListColumn::Gap).shown);
  order.Move(1, 5);
  order.SetWidth(ListColumn::Start, 0);
  order.Show(ListColumn::Gap, true);
  EXPECT_EQ(order, ColumnOrder());
}

TEST(ListColumns, NumberAndTextAreAlwaysThere) {
  ColumnOrder order;
  order.Show(ListColumn::Number, false);
  order.Show(ListColumn::Words, false);
  EXPECT_EQ(order, ColumnOrder());
  EXPECT_EQ(ColumnOrder(u"-text,-number").Of(ListColumn::Words).shown, true);
}

TEST(ListColumns, WhatCantBeReadIsAsAtFirst) {
  struct Case {
    Text stored, wanted;
  };
  const Case cases[] = {
      {u"", u""},
      {u"a,b,,:", u""},
      {u"text", u"text,number,start,end,duration,gap,speed"},
      {u"end,end:5,end", u"end,number,start,duration,gap,speed,text"},
      {u"start:-7,end:99999999", u"start,end:4000,number,duration,gap,speed,text"},
      {u"150,100,200", u""},
  };
  for (const Case& one : cases) EXPECT_EQ(ColumnOrder(one.stored).Stored(), one.wanted) << ToUtf8(one.stored);
}

}  // namespace
}  // namespace cuewright
