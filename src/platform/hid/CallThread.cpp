#include "platform/hid/CallThread.h"

#include <csignal>
#include <stdexcept>
#include <utility>

namespace tarvex {

namespace {

/// A thread that no signal of the process is delivered to: they would break off the calls made on it.
template <class Body> std::thread ThreadWithoutSignals(Body body)
{
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    struct Restore {
        const sigset_t& mask;
        ~Restore() { pthread_sigmask(SIG_SETMASK, &mask, nullptr); }
    } const restore{before};
    return std::thread(body);
}

}

CallThread::~CallThread()
{
    {
        const std::lock_guard lock(mutex_);
        ended_ = true;
    }
    jobGiven_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void CallThread::Perform(const std::function<void()>& job)
{
    if (busy_)
        throw std::logic_error("A transfer is in progress");
    if (!thread_.joinable())
        thread_ = ThreadWithoutSignals([this] { Serve(); });
    busy_ = true;
    Start(job);
    wait_.Until(*this);
    busy_ = false;
    if (auto error = std::exchange(error_, nullptr)) // the thread is done with it
        std::rethrow_exception(std::move(error));
}

void CallThread::Start(const std::function<void()>& job)
{
    {
        const std::lock_guard lock(mutex_);
        done_ = false;
        job_ = &job;
    }
    jobGiven_.notify_one();
}

void CallThread::Serve()
{
    for (;;) {
        std::unique_lock lock(mutex_);
        jobGiven_.wait(lock, [this] { return job_ || ended_; });
        if (!job_)
            return;
        const auto* job = std::exchange(job_, nullptr);
        lock.unlock();
        std::exception_ptr error;
        try {
            (*job)();
        } catch (...) {
            error = std::current_exception();
        }
        Finish(std::move(error));
    }
}

/// The waker is called under the lock: so it has returned before the waiting caller can see the end of the call.
void CallThread::Finish(std::exception_ptr error)
{
    {
        const std::lock_guard lock(mutex_);
        error_ = std::move(error);
        done_ = true;
        if (wake_)
            std::exchange(wake_, nullptr)();
    }
    jobDone_.notify_one();
}

bool CallThread::WaitFor(std::chrono::milliseconds limit)
{
    std::unique_lock lock(mutex_);
    return jobDone_.wait_for(lock, limit, [this] { return done_; });
}

bool CallThread::IsDone()
{
    const std::lock_guard lock(mutex_);
    return done_;
}

void CallThread::OnDone(std::function<void()> wake)
{
    {
        const std::lock_guard lock(mutex_);
        if (!done_) {
            wake_ = std::move(wake);
            return;
        }
    }
    wake();
}

}
