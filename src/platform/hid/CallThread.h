#pragma once

#include "platform/IWait.h"

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <type_traits>

namespace tarvex {

/// The one thread on which the blocking calls to HID devices are made, while their caller waits in the program's own
/// way. Whoever owns it makes it a last member, so that its thread has ended before anything that jobs use is gone.
class CallThread : private IPendingCall {
public:
    explicit CallThread(IWait& wait) : wait_(wait) {}
    CallThread(const CallThread&) = delete;
    CallThread& operator=(const CallThread&) = delete;
    ~CallThread() override;

    /// Runs the job on the thread and returns what it returns, or throws what it throws. For one caller's thread only;
    /// std::logic_error when it is called again while a job runs, as from a handler that the waiting let in.
    template <class Job> auto Run(Job&& job) -> std::invoke_result_t<Job&>
    {
        if constexpr (std::is_void_v<std::invoke_result_t<Job&>>) {
            Perform(std::ref(job));
        } else {
            std::optional<std::invoke_result_t<Job&>> result;
            Perform([&] { result.emplace(job()); });
            return std::move(*result);
        }
    }

private:
    void Perform(const std::function<void()>& job);
    void Start(const std::function<void()>& job);
    void Serve();
    void Finish(std::exception_ptr error);
    bool WaitFor(std::chrono::milliseconds limit) override;
    bool IsDone() override;
    void OnDone(std::function<void()> wake) override;

    IWait& wait_;
    bool busy_ = false; ///< only the caller's thread looks at it
    std::thread thread_;

    std::mutex mutex_; ///< guards everything below
    std::condition_variable jobGiven_;
    std::condition_variable jobDone_;
    const std::function<void()>* job_ = nullptr;
    bool done_ = true;
    bool ended_ = false;
    std::function<void()> wake_;
    std::exception_ptr error_;
};

}
