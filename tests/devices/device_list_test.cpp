// What happens to lists of controllers when one comes, goes or is emulated.

#include "devices/device_list.h"

#include "tests/devices/device_test.h"

namespace {

using TCBase::DeviceInfo;
using TCBase::ModelEmulator;
using TCBase::ModelTC420;
using TCBase::ModelTC421UDP;
using TCBase::ModelTC421USB;
using List = std::vector<DeviceInfo>;

DeviceInfo Unselected(TCBase::DeviceModel model, const std::string& name) {
  return GivenDevice(model, name, false);
}

TEST(ReplaceDevices, AControllerThatComesIsListedUnselectedAndSorted) {
  List devices{Unselected(ModelTC421UDP, "Smart-2"), Unselected(ModelTC421UDP, "A")};
  TCBase::ReplaceDevices(devices, ModelTC420, "TC420", true);
  EXPECT_EQ(ToText(devices), "A Smart-2 TC420");
  EXPECT_EQ(devices[2].model, ModelTC420);
}

TEST(ReplaceDevices, AControllerThatGoesTakesAllOfItsModelAndLeavesTheOthersInOrder) {
  List devices{Unselected(ModelTC421UDP, "Z"), Unselected(ModelTC420, "TC420"),
               Unselected(ModelTC421UDP, "A"), Unselected(ModelTC420, "TC420")};
  TCBase::ReplaceDevices(devices, ModelTC420, "TC420", false);
  EXPECT_EQ(ToText(devices), "Z A");
}

TEST(ReplaceDevices, AFamilyIsListedOnce) {
  List devices;
  TCBase::ReplaceDevices(devices, ModelTC420, "TC420", true);
  TCBase::ReplaceDevices(devices, ModelTC420, "TC420", true);
  EXPECT_EQ(ToText(devices), "TC420");
}

TEST(ReplaceNetworkDevices, AScanTakesAllOfThemAwayAndPutsInWhatItFoundSorted) {
  List devices{Unselected(ModelTC421UDP, "Gone"), Unselected(ModelTC420, "TC420"),
               Unselected(ModelTC421USB, "TC421")};
  TCBase::ReplaceNetworkDevices(devices,
                                {Unselected(ModelTC421UDP, "Zoo"), Unselected(ModelTC421UDP, "Smart")});
  EXPECT_EQ(ToText(devices), "Smart TC420 TC421 Zoo");
  TCBase::ReplaceNetworkDevices(devices, {});
  EXPECT_EQ(ToText(devices), "TC420 TC421");
}

TEST(TakeOverDevices, TicksSurviveARefresh) {
  const List shown{GivenDevice(ModelTC420, "TC420", true), GivenDevice(ModelTC421USB, "TC421", false)};
  const List found{Unselected(ModelTC421UDP, "Smart"), Unselected(ModelTC421USB, "TC421"),
                   Unselected(ModelTC420, "TC420")};
  EXPECT_EQ(ToText(TCBase::TakeOverDevices(shown, found)), "Smart TC420* TC421");
}

TEST(TakeOverDevices, ATickIsLostWithTheNameOrTheModel) {
  const List shown{GivenDevice(ModelTC421UDP, "Smart", true), GivenDevice(ModelTC420, "TC420", true)};
  const List found{Unselected(ModelTC421UDP, "Smarter"), Unselected(ModelTC421UDP, "TC420")};
  EXPECT_EQ(ToText(TCBase::TakeOverDevices(shown, found)), "Smarter TC420");
}

TEST(TakeOverDevices, OfEqualEntriesTheFirstGetsTheTick) {
  const List shown{GivenDevice(ModelTC421UDP, "Smart", true)};
  const List found{Unselected(ModelTC421UDP, "Smart"), Unselected(ModelTC421UDP, "Smart")};
  EXPECT_EQ(ToText(TCBase::TakeOverDevices(shown, found)), "Smart* Smart");
}

TEST(TakeOverDevices, WithExactlyOneDeviceTheTickCannotBeTakenOffForLongerThanTheNextRefresh) {
  const List shown{GivenDevice(ModelTC420, "TC420", false)};
  EXPECT_EQ(ToText(TCBase::TakeOverDevices(shown, {Unselected(ModelTC420, "TC420")})), "TC420*");
}

TEST(TakeOverDevices, TheTickOfAControllerThatWasNotFoundIsLostWithIt) {
  const List shown{GivenDevice(ModelTC421UDP, "Smart", true), GivenDevice(ModelTC420, "TC420", true)};
  const List without = TCBase::TakeOverDevices(shown, {Unselected(ModelTC420, "TC420")});
  const List again{Unselected(ModelTC421UDP, "Smart"), Unselected(ModelTC420, "TC420")};
  EXPECT_EQ(ToText(TCBase::TakeOverDevices(without, again)), "Smart TC420*");
}

TEST(TakeOverDevices, NothingFoundLeavesNothing) {
  EXPECT_EQ(ToText(TCBase::TakeOverDevices({SelectedTC420()}, {})), "");
}

TEST(AddEmulator, RemovesAListedTC420UntilTheNextRefresh) {
  List shown{SelectedTC420()};
  const List found{Unselected(ModelTC420, "TC420")};
  EXPECT_TRUE(TCBase::AddEmulator(shown));
  EXPECT_EQ(ToText(shown), "TC420_Emulator*");
  EXPECT_EQ(shown[0].model, ModelEmulator);
  EXPECT_EQ(ToText(TCBase::TakeOverDevices(shown, found)), "TC420*");
}

TEST(AddEmulator, ASecondTimeChangesNothing) {
  List shown;
  EXPECT_TRUE(TCBase::AddEmulator(shown));
  shown[0].selected = false;
  shown.push_back(SelectedTC421());
  EXPECT_FALSE(TCBase::AddEmulator(shown));
  EXPECT_EQ(ToText(shown), "TC420_Emulator TC421*");
}

}  // namespace
