// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_core/utility/NativeLog.h"

namespace velk::utility
{

NativeLog::Callback NativeLog::callbackInstance_ = nullptr;

void NativeLog::registerCallback(Callback callback)
{
    const std::string established("NativeLog: connection established!"); // before the change, as it can fail
    callbackInstance_ = callback;
    log(established, Color::Magenta);
}

void NativeLog::log(const std::string& message, Color color)
{
    if (callbackInstance_ != nullptr) {
        callbackInstance_(message.c_str(), static_cast<int>(color), static_cast<int>(message.length()));
    }
}

} // namespace velk::utility
