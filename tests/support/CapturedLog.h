// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "velk_common/VelkLog.h"

#include <string>
#include <vector>

namespace velk::test
{

/// Takes over the library's log, at a level, for its lifetime; lines read "VELK:Source:4 message".
struct CapturedLog
{
    explicit CapturedLog(int level)
    {
        common::log::setLoggingLevel(level);
        common::log::setLoggingFunction([this](int priority, const char* tag, const char* message) {
            lines.push_back(std::string(tag) + ':' + std::to_string(priority) + ' ' + message);
        });
    }

    ~CapturedLog()
    {
        common::log::resetLoggingFunction();
        common::log::resetLogLevel();
    }

    std::vector<std::string> lines;
};

} // namespace velk::test
