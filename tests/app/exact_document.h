#pragma once

// Documents compared to the last bit: what the equality of documents leaves out as well.

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>

#include "program/program.h"

/// Fails where `actual` differs from `expected` in anything that a document holds.
inline void ExpectExactly(const TCBase::Program::ModeListView& expected,
                          const TCBase::Program::ModeListView& actual) {
  const auto text = [](const TCBase::Program::ModeListView& document) {
    std::string all = std::to_string(document.viewStart) + " to " + std::to_string(document.viewEnd) +
                      ", mode " + std::to_string(document.currentMode) + "\n";
    for (const auto& info : document.channelInfos)
      all += info.name + " | " + info.description + " | " + std::to_string(info.color) + "\n";
    for (const auto& mode : document.modes) {
      all += mode.name + " | " + mode.description + "\n";
      for (const auto& channel : mode.channels) {
        for (const auto& step : channel)
          all += " " + std::to_string(step.hour) + ":" + std::to_string(step.minute) + " " +
                 std::to_string(std::bit_cast<std::uint32_t>(step.value)) + (step.jump ? "J" : "") + " #" +
                 std::to_string(step.id);
        all += "\n";
      }
    }
    return all;
  };
  EXPECT_EQ(text(expected), text(actual));
}
