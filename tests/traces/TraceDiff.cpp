// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Compares a trace of velk-play with a kept one: velk_trace_diff KEPT NEW. Exits with 0 when they are the
// same bytes, with 1 when only figures differ, which it then measures, and with 2 when anything else does.
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace
{

constexpr int kSame = 0;
constexpr int kOtherFigures = 1;
constexpr int kOtherDecisions = 2;
constexpr int kBadUsage = 3;
constexpr int kLinesShown = 5;

struct Deviation
{
    int count = 0;
    int differing = 0;
    std::int64_t units = 0; // in the last place, at most
    double size = 0;        // at most
};

std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) {
        parts.push_back(part);
    }
    return parts;
}

std::string read(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "velk_trace_diff: can't read %s\n", path);
        std::exit(kBadUsage);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::optional<float> figure(std::string word)
{
    word.erase(std::remove(word.begin(), word.end(), ','), word.end());
    char* end = nullptr;
    const float value = std::strtof(word.c_str(), &end);
    const bool isNumber = !word.empty() && word != "nan" && *end == '\0';
    return isNumber ? std::optional<float>(value) : std::nullopt;
}

/// Whether a word tells what the figures behind it are.
bool namesFigures(const std::string& word)
{
    const std::set<std::string> others{"at", "open", "starts", "holds", "ends"};
    return !word.empty() && std::isalpha(static_cast<unsigned char>(word[0])) != 0 && others.count(word) == 0;
}

/// Neighbouring floats have neighbouring places.
std::int64_t place(float value)
{
    std::int32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits < 0 ? std::int64_t{INT32_MIN} - bits : bits;
}

/// Compares two traces line by line, and in a line word by word.
class Comparison
{
public:
    int run(const std::string& kept, const std::string& found)
    {
        if (kept == found) {
            return kSame;
        }
        const std::vector<std::string> keptLines = split(kept, '\n');
        const std::vector<std::string> foundLines = split(found, '\n');
        const std::size_t count = std::min(keptLines.size(), foundLines.size());
        for (std::size_t i = 0; i < count; ++i) {
            compareLines(i + 1, keptLines[i], foundLines[i]);
        }
        if (keptLines.size() != foundLines.size()) {
            std::printf("%zu lines instead of %zu\n", foundLines.size(), keptLines.size());
            decisions_ = true;
        }
        report();
        return decisions_ || deviations_.empty() ? kOtherDecisions : kOtherFigures;
    }

private:
    void compareLines(std::size_t number, const std::string& kept, const std::string& found)
    {
        const std::vector<std::string> keptWords = split(kept, ' ');
        const std::vector<std::string> foundWords = split(found, ' ');
        bool same = keptWords.size() == foundWords.size();
        // A line of a joint is indented, and belongs to a hand.
        const std::string who = kept.rfind("  ", 0) == 0 ? "hand" : keptWords.empty() ? "" : keptWords[0];
        std::string what = who == "hand" && !kept.empty() && kept[0] == ' ' ? "joint" : "";
        for (std::size_t i = 0; same && i < keptWords.size(); ++i) {
            const std::optional<float> was = figure(keptWords[i]);
            const std::optional<float> is = figure(foundWords[i]);
            if (was && is) {
                add(who + " " + what, *was, *is);
            } else {
                same = keptWords[i] == foundWords[i];
            }
            if (!was && what != "joint" && namesFigures(keptWords[i])) {
                what = keptWords[i];
            }
        }
        if (!same) {
            decisions_ = true;
            if (++shown_ <= kLinesShown) {
                std::printf("line %zu\n  kept %s\n  now  %s\n", number, kept.c_str(), found.c_str());
            }
        }
    }

    void add(const std::string& kind, float was, float is)
    {
        Deviation& deviation = deviations_[kind];
        ++deviation.count;
        deviation.differing += was != is ? 1 : 0;
        deviation.units = std::max(deviation.units, std::abs(place(was) - place(is)));
        deviation.size =
            std::max(deviation.size, std::abs(static_cast<double>(was) - static_cast<double>(is)));
    }

    void report() const
    {
        std::printf("decisions: %s\n", decisions_ ? "DIFFERENT" : "the same");
        for (const auto& [kind, deviation] : deviations_) {
            if (deviation.differing > 0) {
                std::printf("%-16s %5d of %5d figures differ, by up to %lld units in the last place, %.2g\n",
                            kind.c_str(), deviation.differing, deviation.count,
                            static_cast<long long>(deviation.units), deviation.size);
            }
        }
    }

    std::map<std::string, Deviation> deviations_; // by what the figures are of
    bool decisions_ = false;
    int shown_ = 0;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("usage: velk_trace_diff KEPT NEW\n", stderr);
        return kBadUsage;
    }
    return Comparison().run(read(argv[1]), read(argv[2]));
}
