#pragma once

#include "common/log.h"

/// The log channels are empty and have no handlers when its life begins and when it ends.
class EmptyLogs {
 public:
  EmptyLogs() { Empty(); }
  EmptyLogs(const EmptyLogs&) = delete;
  EmptyLogs& operator=(const EmptyLogs&) = delete;
  ~EmptyLogs() { Empty(); }

 private:
  static void Empty() {
    for (LogChannel* const log : {&statusLog, &warningLog, &deviceLog}) {
      log->wakeHandler = nullptr;
      log->textHandler = nullptr;
      log->Drain();
    }
  }
};
