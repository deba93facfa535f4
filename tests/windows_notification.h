// Takes the place of GoogleTest's own Notification, which needs std::mutex: the compiler for Windows has none. Only
// tests with threads would use it.
#pragma once

namespace testing::internal {

class Notification {
 public:
  void Notify() {}
  void WaitForNotification() {}
};

}  // namespace testing::internal
