// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <string>

namespace velk::telemetry
{

/// Identifier of this run of the process: up to 32 lowercase hexadecimal digits, no standard UUID. Two
/// processes started in the same second get the same one.
std::string generateGuidString();

/// The same from a given seed, which it moves on.
std::string generateGuidStringCore(unsigned int* seed);

/// Seconds since the epoch.
unsigned int generateSeed();

/// Next value, of 31 bits, of a linear congruential generator whose state is the seed.
unsigned int rand_R(unsigned int* seed);

} // namespace velk::telemetry
