// The table of models, held against columns of its own and against what is built from it.

#include "devices/controller_models.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "devices/operations.h"
#include "program/builtin_modes.h"

namespace {

using TCBase::ControllerModelOf;
using TCBase::DeviceInfo;
using TCBase::Family;
using TCBase::Keeps;
using TCBase::Link;

// 0 stands in no list, and no controller is called 5.
const std::vector<std::int32_t> kNumbers = {0, 1, 2, 3, 4, 5, -1};

// The numbers whose row says so, in order.
template <class Says>
std::vector<std::int32_t> Those(Says says) {
  std::vector<std::int32_t> numbers;
  std::ranges::copy_if(kNumbers, std::back_inserter(numbers), says);
  return numbers;
}

DeviceInfo Numbered(std::int32_t model) {
  DeviceInfo info;
  info.model = model;
  info.name = "Tank";
  return info;
}

using Numbers = std::vector<std::int32_t>;

TEST(ControllerModels, HaveTheNumbersThatFilesAndListsKnowThemBy) {
  EXPECT_EQ(TCBase::ModelTC420, 1);
  EXPECT_EQ(TCBase::ModelEmulator, 2);
  EXPECT_EQ(TCBase::ModelTC421USB, 3);
  EXPECT_EQ(TCBase::ModelTC421UDP, 4);
  for (const std::int32_t number : {1, 2, 3, 4}) EXPECT_EQ(ControllerModelOf(number).model, number);
}

TEST(ControllerModels, OneThatNobodyKnowsIsTheEmulator) {
  for (const std::int32_t number : {0, 5, -1})
    EXPECT_EQ(&ControllerModelOf(number), &ControllerModelOf(TCBase::ModelEmulator)) << number;
}

TEST(ControllerModels, AreReachedOverACableOrTheNetwork) {
  EXPECT_EQ(Those([](std::int32_t n) { return IsOnCable(Numbered(n)); }), (Numbers{1, 3}));
  EXPECT_EQ(Those([](std::int32_t n) { return IsOnNetwork(Numbered(n)); }), (Numbers{4}));
  EXPECT_EQ(Those([](std::int32_t n) { return ControllerModelOf(n).link == Link::Nothing; }),
            (Numbers{0, 2, 5, -1}));
}

TEST(ControllerModels, AreOfTwoFamilies) {
  EXPECT_EQ(Those([](std::int32_t n) { return ControllerModelOf(n).family == Family::TC421; }),
            (Numbers{3, 4}));
}

TEST(ControllerModels, OfTheElderFamilyMayIgnoreManySteps) {
  EXPECT_EQ(Those([](std::int32_t n) { return ControllerModelOf(n).mayIgnoreManySteps; }),
            (Numbers{0, 1, 2, 5, -1}));
}

TEST(ControllerModels, AreListedUnderTheirNames) {
  EXPECT_STREQ(ControllerModelOf(1).name, "TC420");
  EXPECT_STREQ(ControllerModelOf(2).name, "TC420_Emulator");
  EXPECT_STREQ(ControllerModelOf(3).name, "TC421");
  EXPECT_EQ(ControllerModelOf(4).name, nullptr);
}

TEST(ControllerModels, KeepHalfHoursOrTheStepsAsTheyAre) {
  const TCBase::Program::Mode mode = TCBase::Program::NewProgram().modes.front();
  const auto rows = [&mode](std::int32_t n) { return TCBase::StepsFor(Numbered(n), mode).size(); };
  const auto steps = static_cast<std::size_t>(CountModeSteps(mode));
  EXPECT_NE(steps, 48U);
  for (const std::int32_t number : kNumbers) {
    const bool halfHours = number == 3 || number == 4;
    EXPECT_EQ(ControllerModelOf(number).keeps, halfHours ? Keeps::HalfHours : Keeps::Steps) << number;
    EXPECT_EQ(rows(number), halfHours ? 48U : steps) << number;
  }
}

TEST(ControllerModels, OnTheNetworkSayNoAnswerBySilence) {
  TCBase::Exchange silence;
  silence.packets = 3;
  silence.unconfirmed = 3;
  EXPECT_EQ(Those([&](std::int32_t n) {
              return FailureOf(Numbered(n), silence) == TCBase::OperationResult::NoAnswer;
            }),
            (Numbers{4}));
}

}  // namespace
