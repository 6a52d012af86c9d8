#include "platform/qt/desktop/mailbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QObject>

#include <thread>
#include <vector>

namespace {

using testing::ElementsAre;

class Receiver final : public QObject {
 public:
  std::vector<std::uint32_t> numbers;

 protected:
  void customEvent(QEvent* event) override {
    ASSERT_EQ(event->type(), qt::PostedEvent::Kind());
    numbers.push_back(static_cast<qt::PostedEvent*>(event)->event);
  }
};

TEST(Mailbox, DeliversInOrderFromAnyThread) {
  Receiver receiver;
  qt::Mailbox mailbox(receiver);
  mailbox.Post(1, 0, 0);
  std::thread([&mailbox] {
    mailbox.Post(2, 0, 0);
    mailbox.Post(3, 0, 0);
  }).join();
  EXPECT_THAT(receiver.numbers, ElementsAre()) << "nothing comes before the window's own thread turns";
  QCoreApplication::processEvents();
  EXPECT_THAT(receiver.numbers, ElementsAre(1, 2, 3));
}

TEST(Mailbox, LosesWhatComesBeforeAndAfter) {
  Receiver receiver;
  qt::Mailbox mailbox;
  mailbox.Post(1, 0, 0);
  mailbox.Open(receiver);
  mailbox.Post(2, 0, 0);
  mailbox.Close();
  mailbox.Post(3, 0, 0);
  QCoreApplication::processEvents();
  EXPECT_THAT(receiver.numbers, ElementsAre(2));
}

}  // namespace
