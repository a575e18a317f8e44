// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include <map>
#include <optional>
#include <set>

#include "explain/Episode.h"
#include "play/Observer.h"

namespace velk_tools
{

/// Hears the answers of all rules while a scene is played, and makes episodes of them.
class Explainer : public Observer, public velk::witness::Witness
{
public:
    explicit Explainer(const Scene& scene);
    Explainer(const Explainer&) = delete;
    Explainer& operator=(const Explainer&) = delete;
    ~Explainer() override;

    void begin(const World& world) override;
    void frame(const Observation& seen, const std::vector<Transition>& changes) override;
    void end(const Summary& summary) override;

    void updating(const void* subject) override;
    void judged(const velk::witness::Judgement& judgement) override;

    /// In the order of their ends; complete after the run.
    const std::vector<Episode>& episodes() const { return episodes_; }

private:
    /// Whose update is under way.
    struct Subject
    {
        Kind kind{};
        std::size_t index = 0;
        // NOLINTNEXTLINE(modernize-use-nullptr): the 0 that such operators compare with
        auto operator<=>(const Subject&) const = default;
    };
    /// A reason, with the place of its target in the scene or the finger's number.
    struct Heard
    {
        int about = -1;
        Reason reason;
    };
    /// A near miss that is going on: one of a subject and what it is about.
    struct Approach
    {
        Episode episode;
        Reason nearest;
        bool succeeded = false;
    };
    using About = std::pair<Subject, int>;

    void explain(const Transition& change, const Observation& seen);
    void watchFingertip(std::size_t index, const Observation& seen);
    void watchGrip(Kind kind, std::size_t index, const GripTrack& track, Rule rule, double time);
    void approach(const About& about, const std::string& text, const std::vector<Reason>& why, double time);
    void succeed(const About& about);
    void closeStale(double time);
    int placeOf(const velk::witness::Judgement& judgement) const;
    std::optional<Subject> subjectOf(const Transition& change, int& about) const;
    std::vector<Reason> reasonsOf(const Subject& subject, int about) const;
    std::string whoIs(const About& about) const;

    const Scene& scene_;
    const World* world_ = nullptr;
    std::map<const void*, Subject> subjects_;
    std::optional<Subject> current_;
    std::map<Subject, std::vector<Heard>> heard_; // in the present frame
    std::map<About, Approach> approaches_;
    std::vector<Episode> episodes_;
    std::set<About> pressed_; // since the hover began
};

} // namespace velk_tools
