#include "program/change/change_words.h"

#include "common/message.h"

namespace TCBase::Program {

namespace {

Message TellRefusal(const ChangeResult& result) {
  switch (result.refusal) {
    case ChangeRefusal::NumberOutOfRange:
      return Message("A number is out of range.");
    case ChangeRefusal::NoSteps:
      return Message("There are no such steps.");
    case ChangeRefusal::SeveralChannels:
      return Message("Only the steps of one channel can be copied to others.");
    case ChangeRefusal::NoOtherChannel:
      return Message("Tell another channel to copy to.");
    case ChangeRefusal::TooFewSteps:
      return Message("Not possible: a channel needs at least {1} steps.", kMinChannelSteps);
    case ChangeRefusal::TooManyRows:
      return Message("Not possible: the mode would have {1} rows, and a controller takes {2}.", result.rows,
                     kMaxModeSteps);
    case ChangeRefusal::None:
      break;
  }
  return Message("Nothing changes.");
}

}  // namespace

std::string TellResult(const ChangeResult& result) {
  if (!result.Changed()) return TellRefusal(result).utf8();
  std::string text;
  const auto add = [&text](const Message& sentence) { text += sentence.utf8() + ' '; };
  const bool onlyRemoves = result.altered == 0 && result.added == 0;
  if (onlyRemoves) add(Message("{1} of {2} steps go.", result.removed, result.steps));
  if (result.altered != 0) add(Message("Steps changed: {1} of {2}.", result.altered, result.steps));
  if (result.added != 0) add(Message("Added: {1}.", result.added));
  if (result.removed != 0 && !onlyRemoves) add(Message("Removed: {1}.", result.removed));
  add(Message("Rows of the mode: {1} of {2}.", result.rows, kMaxModeSteps));
  text.pop_back();
  return text;
}

}  // namespace TCBase::Program
