// A thread for the tests' servers, because the program's thread model has no std::thread.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>

namespace velvox {

/// Runs a callback on a new thread. The destructor waits for the thread's end. The thread's handle
/// is not counted by liveHandles().
class TestThread {
 public:
    explicit TestThread(std::function<void()> run)
        : run_(std::move(run)), handle_(CreateThread(nullptr, 0, &start, this, 0, nullptr)) {}
    TestThread(const TestThread&) = delete;
    TestThread& operator=(const TestThread&) = delete;
    ~TestThread() {
        WaitForSingleObject(handle_, INFINITE);
        CloseHandle(handle_);
    }

 private:
    static DWORD WINAPI start(void* self) {
        static_cast<TestThread*>(self)->run_();
        return 0;
    }

    std::function<void()> run_;
    HANDLE handle_;
};

}  // namespace velvox
