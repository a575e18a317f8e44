// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "fuzz/FuzzTarget.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    velk_fuzz::runInput({reinterpret_cast<const char*>(data), size}, velk_fuzz::Run::Quiet);
    return 0;
}
