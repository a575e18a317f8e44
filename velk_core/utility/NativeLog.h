// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

namespace velk::utility
{

/// A channel from the library to one callback of the host. It has nothing to do with the library's log.
class NativeLog
{
public:
    /// Hints at how a host's console may show a message; numbered as the terminal's colours are.
    enum class Color : int
    {
        Black = 0,
        Red = 1,
        Green = 2,
        Yellow = 3,
        Blue = 4,
        Magenta = 5,
        Cyan = 6,
        White = 7,
    };

    /// Gets a zero-terminated message, its color and its length in bytes. The message lives for the call
    /// only.
    using Callback = void (*)(const char* message, int color, int length);

    /// Replaces the callback and greets it at once, on the caller's thread. Null clears it.
    static void registerCallback(Callback callback);

    /// Passes a message to the callback, if there is one, on the caller's thread.
    static void log(const std::string& message, Color color);

private:
    static Callback callbackInstance_;
};

} // namespace velk::utility
