// GoogleTest's header for what a platform lacks. The compiler's thread model has no std::mutex and
// std::condition_variable, which GoogleTest's own Notification needs. The rest of GoogleTest uses
// Windows' own locks.
#pragma once

#include <atomic>

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
 public:
    void Notify() { notified_ = true; }
    void WaitForNotification() const {
        while (!notified_) {
        }
    }

 private:
    std::atomic<bool> notified_{false};
};

}  // namespace testing::internal
