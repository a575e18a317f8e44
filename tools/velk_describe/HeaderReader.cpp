// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "HeaderReader.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "host/InputError.h"

namespace velk_tools
{

namespace
{

using nlohmann::ordered_json;

constexpr std::string_view kBlanks = " \t\r\n";

std::string trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == text.npos ? ""
                              : std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

/// One blank for each stretch of blanks.
std::string onOneLine(std::string_view text)
{
    std::string line;
    for (const char c : text) {
        const bool isBlank = kBlanks.find(c) != kBlanks.npos;
        if (!isBlank) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    return trimmed(line);
}

/// A comment's text: without its ends and the stars before its lines. Lines stay.
std::string textOf(std::string_view comment)
{
    std::string text;
    for (std::size_t begin = 0; begin < comment.size();) {
        const std::size_t end = std::min(comment.find('\n', begin), comment.size());
        std::string_view line = comment.substr(begin, end - begin);
        const std::size_t star = line.find_first_not_of(" \t");
        if (begin > 0 && star != line.npos && line[star] == '*') {
            line.remove_prefix(star + 1);
        }
        if (line.starts_with(' ')) {
            line.remove_prefix(1);
        }
        text += std::string(line) + '\n';
        begin = end + 1;
    }
    return trimmed(text);
}

/// A heading is a line of capitals.
bool isHeading(const std::string& text)
{
    const std::string first = text.substr(0, text.find('\n'));
    return !first.empty() &&
           std::none_of(first.begin(), first.end(), [](unsigned char c) { return std::islower(c); });
}

struct Layout
{
    std::size_t size = 0;
    std::size_t alignment = 1;
};

class Reader
{
public:
    Reader(std::string name, const std::string& text)
        : name_(std::move(name))
        , text_(text)
    {
        for (const auto& [type, size] : std::initializer_list<std::pair<const char*, std::size_t>>{
                 {"float", 4}, {"int32_t", 4}, {"int", 4}, {"uint8_t", 1}, {"bool", 1}}) {
            layouts_[type] = {size, size};
        }
    }

    ordered_json read()
    {
        for (const char* list : {"constants", "handles", "opaque", "enumerations", "records", "functions"}) {
            result_[list] = ordered_json::array();
        }
        while (skipBlanks()) {
            readNext();
        }
        return result_;
    }

private:
    [[noreturn]] void fail(const std::string& message) const
    {
        const auto line =
            1 + std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(at_), '\n');
        throw InputError(fmt::format("{}:{}: {}", name_, line, message));
    }

    bool startsWith(std::string_view word) const
    {
        return std::string_view(text_).substr(at_).starts_with(word);
    }

    bool skipBlanks()
    {
        at_ = std::min(text_.find_first_not_of(kBlanks, at_), text_.size());
        return at_ < text_.size();
    }

    /// Up to the mark, and behind it.
    std::string take(std::string_view mark)
    {
        const std::size_t end = text_.find(mark, at_);
        if (end == text_.npos) {
            fail(fmt::format("expected '{}'", mark));
        }
        std::string part = text_.substr(at_, end - at_);
        at_ = end + mark.size();
        return part;
    }

    void readNext()
    {
        if (startsWith("/*")) {
            readComment();
        } else if (startsWith("//")) {
            take("\n");
        } else if (startsWith("#")) {
            readDirective();
        } else if (startsWith("VELK_HANDLE(")) {
            take("(");
            result_["handles"].push_back({{"name", take(")")}});
            layouts_[result_["handles"].back()["name"]] = {4, 4};
            take(";");
        } else if (startsWith("enum ")) {
            readEnumeration();
        } else if (startsWith("typedef struct ")) {
            readRecord();
        } else if (startsWith("VELK_API ")) {
            readFunction();
        } else if (startsWith("extern \"C\" {")) {
            take("{");
        } else if (startsWith("}")) {
            take("}");
        } else {
            take(";"); // the second half of an enumeration, and what checks the layout
        }
    }

    void readComment()
    {
        at_ += 2;
        const std::string comment = textOf(take("*/"));
        if (!isHeading(comment)) {
            comment_ = comment;
            return;
        }
        const std::size_t end = std::min(comment.find('\n'), comment.size());
        section_ = comment.substr(0, end);
        result_["sections"][section_] = trimmed(comment.substr(end));
    }

    void readDirective()
    {
        std::string line = take("\n");
        while (line.ends_with('\\')) {
            line = take("\n");
        }
        constexpr std::string_view kDefine = "#define ";
        if (!line.starts_with(kDefine)) {
            return;
        }
        const std::string definition = line.substr(kDefine.size());
        const std::size_t blank = definition.find(' ');
        const std::string value = blank == definition.npos ? "" : trimmed(definition.substr(blank));
        if (value.starts_with('"')) {
            result_["constants"].push_back(
                {{"name", definition.substr(0, blank)}, {"value", value.substr(1, value.size() - 2)}});
        } else if (!value.empty() && value.find_first_not_of("0123456789") == value.npos) {
            constants_[definition.substr(0, blank)] = std::stoul(value);
            result_["constants"].push_back(
                {{"name", definition.substr(0, blank)}, {"value", std::stoul(value)}});
        }
    }

    /// The comment that stands before a declaration.
    std::string takeComment() { return std::exchange(comment_, ""); }

    /// The comment behind what was just read, on the same line.
    std::string takeCommentBehind()
    {
        at_ = std::min(text_.find_first_not_of(" \t,", at_), text_.size());
        if (!startsWith("/*")) {
            return "";
        }
        at_ += 2;
        return onOneLine(textOf(take("*/")));
    }

    void readEnumeration()
    {
        take("enum ");
        ordered_json entry = {
            {"name", trimmed(take("VELK_INT32"))}, {"section", section_}, {"text", takeComment()}};
        const std::string name = entry["name"];
        entry["values"] = ordered_json::array();
        take("{");
        while (skipBlanks() && !startsWith("VELK_FORCE_INT32")) {
            const std::string value = trimmed(take("="));
            const std::size_t end = text_.find_first_of(",\n", at_);
            const int number = std::stoi(text_.substr(at_, end - at_));
            at_ = end;
            entry["values"].push_back({{"name", value}, {"value", number}, {"text", takeCommentBehind()}});
        }
        take("};");
        layouts_[name] = {4, 4};
        result_["enumerations"].push_back(std::move(entry));
    }

    void readRecord()
    {
        take("typedef struct ");
        const std::size_t end = text_.find_first_of(" \n", at_);
        const std::string name = text_.substr(at_, end - at_);
        at_ = end;
        skipBlanks();
        if (!startsWith("{")) {
            result_["opaque"].push_back({{"name", name}, {"text", onOneLine(takeComment())}});
            take(";");
            return;
        }
        take("{");
        ordered_json entry = {{"name", name}, {"section", section_}, {"text", onOneLine(takeComment())}};
        entry["fields"] = ordered_json::array();
        Layout layout;
        while (skipBlanks() && !startsWith("}")) {
            if (startsWith("/*")) {
                readComment();
                continue;
            }
            entry["fields"].push_back(readField(layout));
        }
        take(";");
        layout.size = (layout.size + layout.alignment - 1) / layout.alignment * layout.alignment;
        entry["size"] = layout.size;
        entry["alignment"] = layout.alignment;
        layouts_[name] = layout;
        result_["records"].push_back(std::move(entry));
    }

    ordered_json readField(Layout& record)
    {
        const std::string declaration = onOneLine(take(";"));
        const std::size_t blank = declaration.find_last_of(" *");
        ordered_json field = typeOf(trimmed(declaration.substr(0, blank + 1)));
        std::string name = declaration.substr(blank + 1);
        std::size_t count = 1;
        if (const std::size_t bracket = name.find('['); bracket != name.npos) {
            const std::string length = name.substr(bracket + 1, name.size() - bracket - 2);
            count = constants_.contains(length) ? constants_[length] : std::stoul(length);
            field["count"] = count;
            name.resize(bracket);
        }
        const Layout layout = field.contains("pointer") ? Layout{8, 8} : layouts_.at(field["type"]);
        record.alignment = std::max(record.alignment, layout.alignment);
        record.size = (record.size + layout.alignment - 1) / layout.alignment * layout.alignment;
        ordered_json named = {{"name", name}};
        named.update(field);
        named["offset"] = record.size;
        record.size += count * layout.size;
        const std::string before = onOneLine(takeComment());
        const std::string behind = takeCommentBehind();
        named["text"] = before.empty() ? behind : before;
        return named;
    }

    /// "const talpPosef*" as a type, how often it is pointed to, and whether what is pointed to stays.
    static ordered_json typeOf(std::string type)
    {
        ordered_json json;
        const bool isConst = type.starts_with("const ");
        if (isConst) {
            type.erase(0, std::string_view("const ").size());
        }
        const auto stars = static_cast<std::size_t>(std::count(type.begin(), type.end(), '*'));
        type.resize(type.size() - stars);
        json["type"] = trimmed(type);
        if (stars > 0) {
            json["pointer"] = stars;
            json["const"] = isConst;
        }
        return json;
    }

    void readFunction()
    {
        take("VELK_API ");
        std::string declaration = onOneLine(take(";"));
        const std::size_t open = declaration.find('(');
        const std::size_t blank = declaration.rfind(' ', open);
        const std::string name = declaration.substr(blank + 1, open - blank - 1);
        const std::string text = takeComment();
        const std::size_t returns = std::min(text.find("\nreturns "), text.size());
        const std::string body = onOneLine(text.substr(0, returns));
        const std::string answer = onOneLine(text.substr(returns));
        ordered_json function = {{"name", name}, {"section", section_}, {"text", body}};
        function["returns"] = typeOf(declaration.substr(0, blank));
        function["returns"]["text"] = answer;
        function["parameters"] = ordered_json::array();
        for (const std::string& parameter :
             parametersOf(declaration.substr(open + 1, declaration.size() - open - 2))) {
            function["parameters"].push_back(readParameter(name, parameter, body, answer));
        }
        markArrays(function["parameters"]);
        result_["functions"].push_back(std::move(function));
    }

    /// At the commas that are not within brackets.
    static std::vector<std::string> parametersOf(const std::string& list)
    {
        std::vector<std::string> parameters;
        std::string part;
        int depth = 0;
        for (const char c : list + ",") {
            depth += c == '(' ? 1 : c == ')' ? -1 : 0;
            if (c == ',' && depth == 0) {
                parameters.push_back(trimmed(part));
                part.clear();
            } else {
                part += c;
            }
        }
        std::erase(parameters, "void");
        std::erase(parameters, "");
        return parameters;
    }

    static ordered_json readParameter(const std::string& function, const std::string& parameter,
                                      const std::string& body, const std::string& answer)
    {
        if (const std::size_t star = parameter.find("(*"); star != parameter.npos) {
            const std::string name = parameter.substr(star + 2, parameter.find(')') - star - 2);
            return {{"name", name},
                    {"type", parameter},
                    {"callback", true},
                    {"null", nullRule(name, body, answer)}};
        }
        const std::size_t end = parameter.find_last_of(" *");
        ordered_json entry = {{"name", parameter.substr(end + 1)}};
        entry.update(typeOf(trimmed(parameter.substr(0, end + 1))));
        if (entry.contains("pointer")) {
            const bool isAnswer =
                function.find("_Get") != function.npos || function.find("_Is") != function.npos;
            entry["direction"] = isAnswer && entry["const"] == (entry["type"] == "char") ? "out" : "in";
            entry["null"] = nullRule(entry["name"], body, answer);
        }
        return entry;
    }

    /// "refused" with an error, "allowed" with a meaning of its own, or "invalid", by what the comment says.
    static std::string nullRule(const std::string& name, const std::string& body, const std::string& answer)
    {
        const auto speaksOfNull = [&name](const std::string& text) {
            const std::string quoted = fmt::format("`{}`", name);
            for (std::size_t at = text.find("null"); at != text.npos; at = text.find("null", at + 1)) {
                const std::size_t end = text.find_first_of(".:;,", at);
                const std::size_t begin = text.find_last_of(".:;,", at) + 1;
                const std::string_view behind = std::string_view(text).substr(at, end - at);
                const std::string_view before = std::string_view(text).substr(begin, at - begin);
                const bool isNamed =
                    behind.find(quoted) != behind.npos && behind.find(quoted) < behind.find(" means");
                const bool isSubject = before.find(quoted + " may be ") != before.npos ||
                                       before.find(quoted + " is ") != before.npos;
                if (isNamed || isSubject || behind.starts_with("null argument")) {
                    return true;
                }
            }
            return false;
        };
        return speaksOfNull(answer) ? "refused" : speaksOfNull(body) ? "allowed" : "invalid";
    }

    /// A pointer with a count behind it points to so many.
    static void markArrays(ordered_json& parameters)
    {
        for (std::size_t i = 0; i + 1 < parameters.size(); ++i) {
            if (parameters[i].contains("pointer") && parameters[i + 1]["name"] == "count") {
                parameters[i]["length"] = "count";
            }
        }
    }

    std::string name_;
    const std::string& text_;
    std::size_t at_ = 0;
    std::string section_;
    std::string comment_;
    std::map<std::string, std::size_t> constants_;
    std::map<std::string, Layout> layouts_;
    ordered_json result_ = {{"format", 1}, {"sections", ordered_json::object()}};
};

/// Which functions make and end the objects of each family.
void linkHandles(ordered_json& description)
{
    for (ordered_json& handle : description["handles"]) {
        handle["creates"] = ordered_json::array();
        for (const ordered_json& function : description["functions"]) {
            const std::string name = function["name"];
            const bool creates =
                name.find("_Create") != name.npos && function["returns"]["type"] == handle["name"];
            const bool ends =
                name.ends_with("_Destroy") && function["parameters"][0]["type"] == handle["name"];
            if (creates) {
                handle["creates"].push_back(name);
            } else if (ends) {
                handle["destroys"] = name;
            }
        }
    }
}

} // namespace

ordered_json describeHeader(const std::string& name, const std::string& text)
{
    ordered_json description = Reader(name, text).read();
    linkHandles(description);
    return description;
}

} // namespace velk_tools
