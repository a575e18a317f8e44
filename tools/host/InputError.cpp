// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "host/InputError.h"

#include <fmt/format.h>

namespace velk_tools
{

std::string printable(std::string_view text)
{
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const unsigned char next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
        if (byte < 0x20 || byte == 0x7F) {
            shown += fmt::format("\\u{:04x}", byte);
        } else if (byte == 0xC2 && next >= 0x80 && next < 0xA0) { // U+0080 to U+009F in UTF-8
            shown += fmt::format("\\u{:04x}", next);
            ++i;
        } else {
            shown += text[i];
        }
    }
    return shown;
}

} // namespace velk_tools
