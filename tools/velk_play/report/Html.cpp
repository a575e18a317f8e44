// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "report/Html.h"

#include <fmt/format.h>

#include "report/Svg.h"

namespace velk_tools
{

namespace
{

constexpr const char* kStyle = R"css(
:root { color-scheme: light dark;
  --page: #f6f7f9; --card: #ffffff; --ink: #1b2230; --muted: #5d6878; --rule: #d8dde4; --grid: #e9ecf0;
  --normal: #dfe4ea; --hover: #f2c14e; --select: #1a936f; --surface: #7c8aa0;
  --c0: #b0408a; --c1: #2467c9; --c2: #cc5a1e; --c3: #14866a; --c4: #7a51c7; }
@media (prefers-color-scheme: dark) { :root {
  --page: #12151b; --card: #1a1f27; --ink: #e4e9f1; --muted: #9aa6b6; --rule: #343c48; --grid: #282f39;
  --normal: #39424f; --hover: #c99a2b; --select: #2bb58b; --surface: #8d9bb0;
  --c0: #e07fc0; --c1: #6ea8fe; --c2: #f0935a; --c3: #4fc9a4; --c4: #b396f0; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--page); color: var(--ink); font: 15px/1.5 system-ui, sans-serif; }
main { max-width: 1120px; margin: 0 auto; padding: 24px 20px 48px; }
h1 { font-size: 26px; line-height: 1.25; margin: 0 0 4px; }
h2 { font-size: 19px; margin: 36px 0 4px; }
h3 { font-size: 15px; margin: 20px 0 6px; }
p { margin: 0 0 10px; color: var(--muted); max-width: 84ch; }
figure { margin: 0 0 12px; background: var(--card); border: 1px solid var(--rule); border-radius: 8px; padding: 8px;
  overflow-x: auto; }
figure svg { display: block; width: 100%; height: auto; }
.row { display: grid; grid-template-columns: repeat(auto-fit, minmax(min(480px, 100%), 1fr)); gap: 12px;
  align-items: start; }
.row figure { margin: 0; }
.wide { display: grid; grid-template-columns: minmax(0, 2.1fr) minmax(0, 1fr); gap: 12px; align-items: start; }
@media (max-width: 800px) { .wide { grid-template-columns: minmax(0, 1fr); } }
.facts { display: flex; flex-wrap: wrap; gap: 10px; margin: 14px 0; }
.facts div { background: var(--card); border: 1px solid var(--rule); border-radius: 8px; padding: 6px 14px; }
.facts b { display: block; font-size: 18px; font-variant-numeric: tabular-nums; }
.facts span { color: var(--muted); font-size: 13px; }
.scroll { overflow-x: auto; }
table { border-collapse: collapse; background: var(--card); border: 1px solid var(--rule); font-size: 14px;
  margin-bottom: 12px; font-variant-numeric: tabular-nums; }
th, td { padding: 4px 12px; text-align: right; border-top: 1px solid var(--grid); white-space: nowrap; }
th:first-child, td:first-child { text-align: left; }
th { color: var(--muted); font-weight: 600; }
text { font: 12px system-ui, sans-serif; fill: var(--ink); }
.note { paint-order: stroke; stroke: var(--card); stroke-width: 3px; stroke-linejoin: round; }
.tick, .label, .note { fill: var(--muted); } .tick { font-size: 11px; } .title { font-weight: 600; font-size: 13px; }
.area { fill: none; stroke: var(--rule); } .grid { stroke: var(--grid); }
.level { stroke: var(--muted); stroke-dasharray: 5 4; }
.Normal { fill: var(--normal); } .Hover { fill: var(--hover); } .Select { fill: var(--select); }
.Disabled { fill: none; }
.soft.Hover { fill-opacity: .25; } .soft.Select { fill-opacity: .25; } .soft.Normal { fill: none; }
.surface { fill: var(--surface); fill-opacity: .16; stroke: var(--surface); stroke-width: 1.4; }
.line { fill: none; stroke-width: 1.7; stroke-linejoin: round; } .thin { stroke-width: 1; }
.faint { stroke-opacity: .45; } .bold { stroke-width: 2.4; } .dash { stroke-dasharray: 6 4; }
.c0 { stroke: var(--c0); } .c1 { stroke: var(--c1); } .c2 { stroke: var(--c2); } .c3 { stroke: var(--c3); }
.c4 { stroke: var(--c4); } .ink { stroke: var(--ink); } .grey { stroke: var(--muted); }
.f0 { fill: var(--c0); } .f1 { fill: var(--c1); } .f2 { fill: var(--c2); } .f3 { fill: var(--c3); }
.f4 { fill: var(--c4); }
.press { fill: var(--select); stroke: var(--card); } .release { fill: var(--card); stroke: var(--select);
  stroke-width: 1.6; }
)css";

} // namespace

std::string_view styleOf(State state)
{
    constexpr std::array<std::string_view, 9> kClasses{"Normal", "Hover",  "Select", "Disabled", "Normal",
                                                       "Select", "Select", "Normal", "Select"};
    return kClasses[static_cast<std::size_t>(state)];
}

std::string softStyleOf(State state)
{
    return fmt::format("soft {}", styleOf(state));
}

std::string section(const std::string& heading, const std::string& explanation, const std::string& body)
{
    return fmt::format("<section>\n<h2>{}</h2>\n<p>{}</p>\n{}</section>\n", escaped(heading),
                       escaped(explanation), body);
}

std::string figure(const std::string& svg)
{
    return "<figure>\n" + svg + "</figure>\n";
}

std::string table(const std::vector<std::string>& head, const std::vector<std::vector<std::string>>& rows)
{
    std::string html = "<div class=\"scroll\"><table>\n<tr>";
    for (const std::string& cell : head) {
        html += "<th>" + escaped(cell) + "</th>";
    }
    html += "</tr>\n";
    for (const auto& row : rows) {
        html += "<tr>";
        for (const std::string& cell : row) {
            html += "<td>" + escaped(cell) + "</td>";
        }
        html += "</tr>\n";
    }
    return html + "</table></div>\n";
}

std::string pageBegin(const std::string& title)
{
    return fmt::format("<!doctype html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
                       "<title>{}</title>\n<style>{}</style>\n</head>\n<body>\n<main>\n",
                       escaped(title), kStyle);
}

} // namespace velk_tools
