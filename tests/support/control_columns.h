#pragma once

// Rows of controls column by column, so that a test can hold each column against a list of its own.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "common/geometry.h"
#include "tests/support/control_names.h"

struct ControlColumns {
  std::vector<int> ids = {};
  std::vector<std::string> kinds = {};
  std::vector<int> x = {};
  std::vector<int> y = {};
  std::vector<int> widths = {};
  std::vector<int> heights = {};
  std::vector<std::string> texts = {};
};

/// In a window whose inside is of this size; a dialog's places are the same in each.
template <class Rows>
ControlColumns ColumnsOf(const Rows& rows, std::int32_t width = 0, std::int32_t height = 0) {
  ControlColumns columns;
  for (const auto& row : rows) {
    const Rect place = row.place.In(width, height);
    columns.ids.push_back(row.id);
    columns.kinds.push_back(NameOf(row.kind));
    columns.x.push_back(place.x);
    columns.y.push_back(place.y);
    columns.widths.push_back(place.width);
    columns.heights.push_back(place.height);
    columns.texts.emplace_back(row.text);
  }
  return columns;
}

inline void ExpectColumns(const ControlColumns& columns, const ControlColumns& expected) {
  EXPECT_EQ(columns.ids, expected.ids);
  EXPECT_EQ(columns.kinds, expected.kinds);
  EXPECT_EQ(columns.x, expected.x);
  EXPECT_EQ(columns.y, expected.y);
  EXPECT_EQ(columns.widths, expected.widths);
  EXPECT_EQ(columns.heights, expected.heights);
  EXPECT_EQ(columns.texts, expected.texts);
}
