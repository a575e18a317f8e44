// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// The first counted call of a process, which sets up the counting and starts its thread, while memory ends or
// no thread is to be had. Each try is a child of its own.
#include <velk/velk.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <pthread.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace
{

long failAt = 0; // counts down
bool andAllAfter = false;
bool threadsEnd = false;

// The end of a child
constexpr int kSound = 0;
constexpr int kUnsound = 1;
constexpr int kNothingFailed = 2;

template <typename Child>
int statusOf(const Child& child)
{
    const pid_t process = fork();
    if (process == 0) {
        std::freopen("/dev/null", "w", stderr);
        _exit(child());
    }
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

VelkDataSourceHandle createModifier()
{
    static const VelkDataSourceHandle source = velk_DataSource_Create(VelkDataSourceType_External);
    return velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, source);
}

/// No handle that was given away by the failed call works, and the call works now.
bool worksAgain()
{
    velk_HandData hand;
    int living = 0;
    for (int handle = 1; handle < 20; ++handle) {
        living += velk_DataSource_GetData(static_cast<VelkDataSourceHandle>(handle), &hand) == 0 ? 1 : 0;
    }
    return living == 0 && createModifier() > 0 && velk_Telemetry_SendTestData() == 0;
}

int failAllocation(long place, bool all)
{
    return statusOf([&] {
        bool failed = false;
        failAt = place;
        andAllAfter = all;
        try {
            createModifier();
        } catch (const std::bad_alloc&) {
            failed = true;
        }
        failAt = 0;
        andAllAfter = false;
        return !failed ? kNothingFailed : (worksAgain() ? kSound : kUnsound);
    });
}

} // namespace

[[gnu::noinline]] void* operator new(std::size_t size)
{
    if (failAt > 0 && --failAt == 0) {
        failAt = andAllAfter ? 1 : 0;
        throw std::bad_alloc();
    }
    void* const block = std::malloc(size);
    return block != nullptr ? block : throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* block) noexcept
{
    std::free(block);
}

[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                              void* argument) noexcept
{
    if (threadsEnd) {
        return EAGAIN;
    }
    static const auto create =
        reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return create(thread, attributes, run, argument);
}

TEST(FirstCount, SurvivesTheEndOfMemory)
{
    for (const bool all : {false, true}) {
        long place = 1;
        int status = kSound;
        while ((status = failAllocation(place, all)) == kSound) {
            ++place;
        }
        EXPECT_EQ(status, kNothingFailed) << "allocation " << place << (all ? " and all after" : "");
        EXPECT_GT(place, 50);
        RecordProperty(all ? "all" : "one", std::to_string(place));
    }
}

TEST(FirstCount, IsMadeLaterIfNoThreadIsToBeHad)
{
    EXPECT_EQ(statusOf([] {
                  threadsEnd = true;
                  for (int tries = 0; tries < 3; ++tries) {
                      try {
                          createModifier();
                          return kNothingFailed;
                      } catch (const std::system_error&) {
                      }
                  }
                  threadsEnd = false;
                  return worksAgain() ? kSound : kUnsound;
              }),
              kSound);
}
