// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/win/TelemetrySender.h"

#include "velk_common/VelkLog.h"

#include <atomic>
#include <chrono>
#include <new>
#include <string>
#include <string_view>

#if !defined(_WIN32)
#include <csignal>
#include <unistd.h>
#endif

namespace velk::telemetry
{
namespace
{

namespace log = velk::common::log;

constexpr const char* kSenderSource = "velk_telemetry/win/TelemetrySender.cpp";

constinit std::atomic<int> keepThreadAliveSignal = 1;

#if defined(_WIN32)

struct SignalsBlocked
{
};

int currentProcess()
{
    return 0; // nothing forks
}

#else

/// Blocks the signals of the calling thread, and of a thread that it starts meanwhile, but for faults: the
/// host's own threads handle signals or wait for them.
class SignalsBlocked
{
public:
    SignalsBlocked()
    {
        sigset_t blocked;
        sigfillset(&blocked);
        for (const int fault : {SIGBUS, SIGFPE, SIGILL, SIGSEGV}) {
            sigdelset(&blocked, fault);
        }
        pthread_sigmask(SIG_SETMASK, &blocked, &before_);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    sigset_t before_ = {};
};

int currentProcess()
{
    return getpid();
}

#endif

class PrintNameAndValue
{
public:
    explicit PrintNameAndValue(std::string_view name)
        : name_(name)
    {
    }

    void operator()(int value) const
    {
        log::logWithTag(log::kInfo, log::kTag, kSenderSource, "%.*s : %i", length(), name_.data(), value);
    }

    void operator()(float value) const { (*this)(static_cast<double>(value)); }

    void operator()(double value) const
    {
        log::logWithTag(log::kInfo, log::kTag, kSenderSource, "%.*s : %f", length(), name_.data(), value);
    }

    void operator()(const std::string& value) const { printText(value.c_str()); }

    void operator()(bool value) const { printText(value ? "True" : "False"); }

private:
    void printText(const char* text) const
    {
        log::logWithTag(log::kInfo, log::kTag, kSenderSource, "%.*s : %s", length(), name_.data(), text);
    }

    int length() const { return static_cast<int>(name_.size()); }

    std::string_view name_;
};

class PrintValuesEventProcessor : public IEventProcessor
{
public:
    void prepareEvent(std::string_view eventName) override
    {
        log::logWithTag(log::kInfo, log::kTag, kSenderSource, "Sending Event: %.*s",
                        static_cast<int>(eventName.size()), eventName.data());
    }

    void processField(std::string_view fieldName, Value value) override
    {
        std::visit(PrintNameAndValue(fieldName), value);
    }

    int finalizeEvent() override
    {
        log::logWithTag(log::kInfo, log::kTag, kSenderSource, "finalizeEvent");
        return 1;
    }
};

void sendTelemetryAtInterval(const TelemetrySender& sender, float interval)
{
    const auto pause =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::duration<float>(interval));
    while (keepThreadAliveSignal.load() >= 1) {
        log::logWithTag(log::kDebug, log::kTag, kSenderSource, "Attempting to send");
        try {
            const int result = sender.send();
            log::logWithTag(log::kDebug, log::kTag, kSenderSource, "Send Result: %i", result);
        } catch (const std::bad_alloc&) {
            // What was counted waits for the next pass: a pass takes its memory before it prints.
            log::logWithTag(log::kDebug, log::kTag, kSenderSource, "No memory to send");
        }
        std::this_thread::yield();
        std::this_thread::sleep_for(pause);
    }
}

} // namespace

TelemetrySender::TelemetrySender(TelemetryCache& cache, float sendInterval)
    : cache_(cache)
    , sendInterval_(sendInterval)
    , configuredInterval_(sendInterval)
{
}

TelemetrySender::~TelemetrySender()
{
    if (!sendingThread_) {
        return;
    }
    if (process_ != currentProcess()) {
        // A child of fork has no such thread to join; a std::thread that is neither joined nor left alone
        // ends the process.
        [[maybe_unused]] static const std::thread* const leftInParent = sendingThread_.release();
        return;
    }
    keepThreadAliveSignal.store(0);
    sendingThread_->join();
}

TelemetrySender& TelemetrySender::operator=(TelemetrySender&& other) noexcept
{
    cache_ = std::move(other.cache_);
    sendInterval_ = other.sendInterval_;
    configuredInterval_ = other.configuredInterval_;
    sendingThread_ = std::move(other.sendingThread_);
    process_ = other.process_;
    return *this;
}

bool TelemetrySender::startSendingThread()
{
    keepThreadAliveSignal.store(1);
    process_ = currentProcess();
    [[maybe_unused]] const SignalsBlocked signalsBlocked;
    sendingThread_ = std::make_unique<std::thread>([this] { sendTelemetryAtInterval(*this, sendInterval_); });
    return sendingThread_ != nullptr;
}

int TelemetrySender::send() const
{
    PrintValuesEventProcessor processor;
    const int result = cache_.processDirtyEvents(processor);
    cache_.clearDirtyEvents();
    return result;
}

} // namespace velk::telemetry
