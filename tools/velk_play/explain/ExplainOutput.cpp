// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "explain/ExplainOutput.h"

#include <array>
#include <cmath>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace velk_tools
{

namespace
{

using velk::witness::Comparison;
using velk::witness::RuleInfo;
using velk::witness::ruleInfo;

constexpr float kMillimetres = 1000;
constexpr float kEndless = 1e6f; // the best so far where there is none yet

std::string_view signOf(const Reason& reason)
{
    constexpr std::array<std::string_view, 7> kSigns{"", "<", "<=", ">", ">=", "not >", "not <="};
    return kSigns[static_cast<std::size_t>(ruleInfo(reason.rule).comparison)];
}

bool hasNumbers(const Reason& reason)
{
    return ruleInfo(reason.rule).comparison != Comparison::None && std::isfinite(reason.value) &&
           std::isfinite(reason.limit) && std::abs(reason.limit) < kEndless;
}

std::string numberOf(float value, std::string_view unit)
{
    if (unit == "m") {
        return fmt::format("{:.1f} mm", value * kMillimetres);
    }
    return fmt::format("{:.3g}{}{}", value, unit.empty() ? "" : " ", unit);
}

void printReason(const Reason& reason)
{
    const RuleInfo& info = ruleInfo(reason.rule);
    fmt::print("    {} {:<20} {}\n", reason.holds ? "yes" : "no ", info.name, info.meaning);
    if (hasNumbers(reason)) {
        fmt::print("        {}: {} {} {}, {} by {}\n", info.value, numberOf(reason.value, info.unit),
                   signOf(reason), numberOf(reason.limit, info.unit), reason.holds ? "holds" : "fails",
                   numberOf(reason.margin(), info.unit));
    }
}

std::string headOf(const Episode& episode)
{
    const std::string onTarget = episode.target.empty() ? "" : fmt::format(" {}", episode.target);
    if (episode.happening == Happening::Miss) {
        return fmt::format("{:8.3f} s  {} {} {}{}, {:.3f} s long", episode.from, nameOf(episode.kind),
                           episode.name, episode.text, onTarget.empty() ? "" : ":" + onTarget,
                           episode.to - episode.from);
    }
    return fmt::format("{:8.3f} s  {} {}: {}{}{}{}", episode.from, nameOf(episode.kind), episode.name,
                       nameOf(episode.happening), onTarget, episode.text.empty() ? "" : ", ", episode.text);
}

nlohmann::ordered_json jsonOf(const Reason& reason)
{
    const RuleInfo& info = ruleInfo(reason.rule);
    nlohmann::ordered_json json = {{"rule", info.name}, {"holds", reason.holds}};
    if (hasNumbers(reason)) {
        json["value"] = reason.value;
        json["comparison"] = signOf(reason);
        json["limit"] = reason.limit;
        json["margin"] = reason.margin();
        json["unit"] = info.unit;
        json["limitIs"] = info.limit;
    }
    return json;
}

} // namespace

void printAsText(const Episode& episode)
{
    fmt::print("{}\n", headOf(episode));
    for (const Reason& reason : episode.reasons) {
        printReason(reason);
    }
    if (episode.happening == Happening::Miss && hasNumbers(episode.reasons.front())) {
        fmt::print("        the limit is: {}\n", ruleInfo(episode.reasons.front().rule).limit);
    }
}

void printAsJson(const Episode& episode)
{
    nlohmann::ordered_json reasons = nlohmann::ordered_json::array();
    for (const Reason& reason : episode.reasons) {
        reasons.push_back(jsonOf(reason));
    }
    nlohmann::ordered_json json = {{"from", episode.from},
                                   {"to", episode.to},
                                   {"what", nameOf(episode.happening)},
                                   {"kind", nameOf(episode.kind)},
                                   {"name", episode.name},
                                   {"target", episode.target.empty()
                                                  ? nlohmann::ordered_json()
                                                  : nlohmann::ordered_json(episode.target)}};
    if (!episode.text.empty()) {
        json["text"] = episode.text;
    }
    json["reasons"] = std::move(reasons);
    fmt::print("{}\n", json.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
}

} // namespace velk_tools
