// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_common/VelkLog.h"

#include "velk_common/NeverDestroyed.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>

namespace velk::common::log
{
namespace
{

constexpr int kDefaultLevel = kInfo;
constexpr std::size_t kTagBufferSize = 32;      // bytes, with the closing zero
constexpr std::size_t kMessageBufferSize = 224; // bytes, with the closing zero

constexpr std::array<char, 5> kLetters = {'V', 'D', 'I', 'W', 'E'}; // from kVerbose to kError

constinit int logLevel = kDefaultLevel;

/// Throws std::out_of_range for a priority that has no letter.
char priorityToLetter(int priority)
{
    return kLetters.at(static_cast<std::size_t>(priority) - static_cast<std::size_t>(kVerbose));
}

void basicLog(int priority, const char* tag, const char* message)
{
    // One call per line, so that lines of two threads don't mix.
    std::fprintf(stderr, "[%s:%c] %s\n", tag, priorityToLetter(priority), message);
}

/// The telemetry thread logs until a destructor of another static object has joined it.
LoggingFunction& doLogging()
{
    static NeverDestroyed<LoggingFunction> function(basicLog);
    return *function;
}

bool isSeparator(char character)
{
    return character == '/' || character == '\\';
}

/// Puts the base name of `path`, up to its first dot, into `buffer` from `start` on. `start` must lie inside
/// the buffer: all tags have four letters.
void stripPath(const char* path, std::size_t start, char* buffer, std::size_t bufferSize)
{
    std::size_t base = std::strlen(path);
    while (base > 0 && !isSeparator(path[base - 1])) {
        --base;
    }
    const std::size_t limit = bufferSize - 1 - start;
    std::size_t count = 0;
    for (; count < limit && path[base + count] != '.' && path[base + count] != '\0'; ++count) {
        buffer[start + count] = path[base + count];
    }
    buffer[start + count] = '\0';
}

} // namespace

void logWithTag(int priority, const char* tag, const char* file, const char* format, ...)
{
    if (!isLogLevelEnabled(priority)) {
        return;
    }

    std::array<char, kTagBufferSize> tagBuffer = {};
    const std::size_t tagLength = std::strlen(tag);
    const std::size_t copied = std::min(tagLength, kTagBufferSize - 1);
    std::memcpy(tagBuffer.data(), tag, copied);
    tagBuffer[copied] = ':';
    stripPath(file, tagLength + 1, tagBuffer.data(), tagBuffer.size());

    std::array<char, kMessageBufferSize> message = {};
    std::va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): va_start has just set it
    std::vsnprintf(message.data(), message.size(), format, arguments);
    va_end(arguments);

    doLogging()(priority, tagBuffer.data(), message.data());
}

bool isLogLevelEnabled(int priority)
{
    return priority >= logLevel;
}

void setLoggingFunction(const LoggingFunction& function)
{
    if (!function) {
        resetLoggingFunction();
        return;
    }
    doLogging() = function;
}

void resetLoggingFunction()
{
    doLogging() = basicLog;
}

int setLoggingLevel(int level)
{
    logLevel = level;
    return logLevel;
}

int getLoggingLevel()
{
    return logLevel;
}

void resetLogLevel()
{
    logLevel = kDefaultLevel;
}

} // namespace velk::common::log
