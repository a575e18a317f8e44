// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// Prints docs/rules.md, from the rules' own declarations.

#include "velk_core/witness/Rules.h"

#include <array>
#include <iostream>
#include <string>
#include <string_view>

namespace
{

using namespace velk::witness;

struct Family
{
    std::string_view heading;
    Rule first;
};

constexpr std::array kFamilies{Family{"The machine of every interactor, and selectors", Rule::MachineActive},
                               Family{"Fingertips", Rule::PokeInRange},
                               Family{"Rays", Rule::RayHit},
                               Family{"Pinches", Rule::PinchView},
                               Family{"Palm grips", Rule::PalmStart},
                               Family{"Directions", Rule::DirectionLevel}};

std::string_view textOf(Effect effect)
{
    constexpr std::array<std::string_view, 4> kTexts{"must hold", "refuses or ends", "ranks", "step"};
    return kTexts[static_cast<std::size_t>(effect)];
}

std::string_view signOf(Comparison comparison)
{
    constexpr std::array<std::string_view, 7> kSigns{"", "<", "<=", ">", ">=", "not >", "not <="};
    return kSigns[static_cast<std::size_t>(comparison)];
}

std::string comparisonOf(const RuleInfo& info)
{
    if (info.value.empty()) {
        return "yes or no";
    }
    std::string text(info.value);
    if (info.comparison != Comparison::None) {
        text += " **" + std::string(signOf(info.comparison)) + "** ";
    } else if (!info.limit.empty()) {
        text += "; ";
    }
    text += info.limit;
    return info.unit.empty() ? text : text + " [" + std::string(info.unit) + "]";
}

} // namespace

int main()
{
    std::cout
        << "# The rules by name\n\n"
           "Everything that is hovered, pressed, selected, recognised or refused is so by one of these, in "
           "this\n"
           "order. Each is named where it decides (`velk_core/witness/Witness.h`); a witness is told of "
           "every\n"
           "answer with its value and limit. A number in brackets is the setting's default.\n\n"
           "A rule that *must hold* refuses where it does not; one that *refuses or ends* does so where it\n"
           "holds; one that *ranks* puts what it holds for before the others; a *step* is told when it is\n"
           "made. This page is printed by `velk_rules_page` and held equal to it by a test.\n";
    for (const RuleInfo& info : allRules()) {
        for (const Family& family : kFamilies) {
            if (family.first == info.rule) {
                std::cout << "\n## " << family.heading
                          << "\n\n| Rule | | What it asks | Value and limit |\n|---|---|---|---|\n";
            }
        }
        std::cout << "| `" << info.name << "` | " << textOf(info.effect) << " | " << info.meaning << " | "
                  << comparisonOf(info) << " |\n";
    }
    return 0;
}
