// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <functional>

/// The library's log: one line per message, by default on the standard error stream. Logging is safe from
/// any thread and at any time, also while static objects are destroyed at exit or unload. The setters take
/// no lock: call them only while no other thread can log.
namespace velk::common::log
{

/// Tag of every line that the library writes.
inline constexpr const char* kTag = "VELK";

inline constexpr int kVerbose = 2;
inline constexpr int kDebug = 3;
inline constexpr int kInfo = 4;
inline constexpr int kWarning = 5;
inline constexpr int kError = 6;

/// Receives the priority, the finished tag ("VELK:Selector") and the message of each line.
using LoggingFunction = std::function<void(int, const char*, const char*)>;

/// Formats a message as printf does and hands it to the logging function, unless its priority lies below the
/// level. `file` is the path of the calling source; its base name, up to the first dot, joins the tag.
/// Messages are cut at 223 characters. Allocates nothing.
[[gnu::format(printf, 4, 5)]] void logWithTag(int priority, const char* tag, const char* file,
                                              const char* format, ...);

bool isLogLevelEnabled(int priority);

/// Replaces the writer of lines; an empty function puts the standard error writer back.
void setLoggingFunction(const LoggingFunction& function);
void resetLoggingFunction();

/// Sets the lowest priority that is logged, and returns it.
int setLoggingLevel(int level);
int getLoggingLevel();
void resetLogLevel();

} // namespace velk::common::log
