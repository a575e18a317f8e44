// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string_view>

namespace velk_fuzz
{

/// Turns the bytes of an input into the arguments of calls. After the last it reads the first, without its
/// highest bit, over and over. With `echo` it prints what it reads.
class ByteReader
{
public:
    ByteReader(std::string_view bytes, bool echo)
        : bytes_(bytes)
        , echo_(echo)
    {
    }

    bool atEnd() const { return position_ >= bytes_.size(); }

    uint8_t byte(bool echo = true)
    {
        if (atEnd()) {
            return bytes_.empty() ? uint8_t{0} : static_cast<uint8_t>(bytes_[0] & 0x7F);
        }
        const auto value = static_cast<uint8_t>(bytes_[position_++]);
        if (echo_ && echo) {
            std::printf(" %02x", value);
        }
        return value;
    }

    template <typename T>
    T raw()
    {
        T value{};
        for (std::size_t i = 0; i < sizeof(T); ++i) {
            reinterpret_cast<uint8_t*>(&value)[i] = byte();
        }
        return value;
    }

    /// One of the first few numbers, or any.
    int32_t word()
    {
        const uint8_t code = byte();
        return code == kFree ? raw<int32_t>() : code % 12 - 1;
    }

    /// Mostly within reach of a finger, in steps of half a fingertip; now and then anything that a float can
    /// hold.
    float number()
    {
        const uint8_t code = byte();
        if (code < kCoarse) {
            const int steps = code - kCoarse / 2;
            return static_cast<float>(steps) * 0.0025f;
        }
        if (code < kSpecial) {
            return static_cast<float>(code - kCoarse) - 15.5f;
        }
        const std::size_t place = code - kSpecial;
        return place < kNumbers.size() ? kNumbers[place] : raw<float>();
    }

    /// Mostly unturned, else turned by any four numbers.
    void read(talpPosef& pose)
    {
        pose.orientation = {0, 0, 0, 1};
        if (byte() >= kCoarse) {
            read(pose.orientation);
        }
        read(pose.position);
    }

    /// A small record is read number by number. A large one is spelt out, or is what it was with some of its
    /// numbers changed.
    template <typename Record>
    void read(Record& record)
    {
        constexpr std::size_t kCount = sizeof(Record) / sizeof(float);
        const uint8_t code = kCount > 6 ? byte() : uint8_t{kCount};
        if (code == kFree) {
            record = raw<Record>();
            return;
        }
        for (std::size_t i = 0; i < code % 8; ++i) {
            const std::size_t place = kCount > 6 ? byte() % kCount : i;
            const float value = number();
            std::memcpy(reinterpret_cast<char*>(&record) + place * sizeof(float), &value, sizeof(float));
        }
    }

private:
    static constexpr uint8_t kCoarse = 0xD0;
    static constexpr uint8_t kSpecial = 0xF0;
    static constexpr uint8_t kFree = 0xFF;
    static constexpr float kInfinity = std::numeric_limits<float>::infinity();
    static constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    static constexpr float kMax = std::numeric_limits<float>::max();
    static constexpr std::array<float, 14> kNumbers{
        0, -0.0f, 1, -1, kNaN, kInfinity, -kInfinity, kMax, -kMax, 1e-5f, 1.4e-45f, 1e30f, 0.70710678f, 100};

    std::string_view bytes_;
    std::size_t position_ = 0;
    bool echo_;
};

} // namespace velk_fuzz
