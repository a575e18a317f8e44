// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "explain/Explainer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <fmt/format.h>

#include "play/Changes.h"
#include "velk_capi/detail/VelkFingerPalmGrabAPI.h"
#include "velk_capi/detail/VelkFingerPinchGrabAPI.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_capi/detail/VelkInteractor.h"
#include "world/World.h"

namespace velk_tools
{

namespace
{

using velk::witness::Judgement;
using enum Rule;

constexpr double kGap = 0.15;        // seconds that end a near miss
constexpr double kShortest = 0.05;   // seconds; what is shorter is passing by
constexpr float kNearTouch = 0.01f;  // metres over a surface that count as nearly touching
constexpr float kNearHeight = 0.02f; // metres over the hover limit that count as near
constexpr float kNearReach = 0.01f;  // metres beside a patch that count as near
constexpr float kNearPinch = 2.0f;   // times the distance that starts a pinch
constexpr float kNearGrip = 0.75f;   // of the strength that starts a grip

/// What a press goes through, in the order in which it is asked. Of the two that tell a contact one is
/// enough.
constexpr std::array kPressRules{PokePressEntry, PokePressMovement, PokePressDirection, PokePressCrossing,
                                 PokePressDepth, PokePressReach,    PokePressNearest};
constexpr std::array kHoverRules{PokeInRange,   Admitted,        PokeHoverEntry, PokeHoverEntryBefore,
                                 PokeHoverSide, PokeHoverHeight, PokeHoverReach, PokeHoverNearest};
constexpr std::array kEndRules{PokeReleaseHeight, PokeCancelDepth, PokeCancelReach, PokeRecoil};
constexpr std::array kGripRules{PinchView, PinchThumbAway, PinchThumbNear, PinchSide, PinchStart,
                                PinchEnd,  PinchLetGo,     PalmStart,      PalmEnd};
constexpr std::array kRayRules{RayHit, RayNearest, RayScore, RayMagnet, RayMagnetNearest};

template <typename Rules>
bool isAmong(const Rules& rules, Rule rule)
{
    return std::find(rules.begin(), rules.end(), rule) != rules.end();
}

template <typename Rules>
std::vector<Reason> only(const std::vector<Reason>& reasons, const Rules& rules)
{
    std::vector<Reason> some;
    std::copy_if(reasons.begin(), reasons.end(), std::back_inserter(some),
                 [&rules](const Reason& reason) { return isAmong(rules, reason.rule); });
    return some;
}

const Reason* find(const std::vector<Reason>& reasons, Rule rule)
{
    const auto found = std::find_if(reasons.rbegin(), reasons.rend(),
                                    [rule](const Reason& reason) { return reason.rule == rule; });
    return found != reasons.rend() ? &*found : nullptr;
}

bool holds(const std::vector<Reason>& reasons, Rule rule)
{
    const Reason* const reason = find(reasons, rule);
    return reason != nullptr && reason->holds;
}

std::vector<Reason> holding(std::vector<Reason> reasons)
{
    std::erase_if(reasons, [](const Reason& reason) { return !reason.holds; });
    return reasons;
}

/// Of a rule that was asked in several passes of an update, the last answer.
void keepLastAnswers(std::vector<Reason>& reasons)
{
    for (auto each = reasons.begin(); each != reasons.end();) {
        const bool isAskedAgain = std::any_of(
            each + 1, reasons.end(), [each](const Reason& later) { return later.rule == each->rule; });
        each = isAskedAgain ? reasons.erase(each) : each + 1;
    }
}

/// Of what ended something: what held among the rules that end, or else the first that was required and did
/// not.
std::vector<Reason> endReasons(const std::vector<Reason>& reasons, bool fromPress)
{
    if (fromPress) {
        return holding(only(reasons, kEndRules));
    }
    const std::vector<Reason> hover = only(reasons, kHoverRules);
    const auto failed = std::find_if(hover.begin(), hover.end(), [](const Reason& reason) {
        return !reason.holds && reason.rule != PokeHoverEntry;
    });
    return failed != hover.end() ? std::vector{*failed} : std::vector<Reason>();
}

/// Refused at the moment of touching, which may be but one frame long.
bool isCrossing(Rule rule)
{
    return rule == PokePressReach || rule == PokeVetoNearer;
}

Happening happeningOf(const Transition& change, const std::vector<Reason>& why)
{
    if (isStart(change)) {
        return change.to == State::Select ? Happening::Press : Happening::Start;
    }
    if (change.to == State::Hover && change.from == State::Normal) {
        return Happening::Hover;
    }
    if (change.kind != Kind::Ray && change.kind != Kind::Fingertip) {
        return Happening::End;
    }
    if (change.from == State::Hover) {
        return Happening::Unhover;
    }
    if (holds(why, PokeCancelDepth) || holds(why, PokeCancelReach)) {
        return Happening::Cancel;
    }
    return holds(why, PokeRecoil) ? Happening::Recoil : Happening::Release;
}

} // namespace

Explainer::Explainer(const Scene& scene)
    : scene_(scene)
{
}

Explainer::~Explainer()
{
    velk::witness::setWitness(nullptr);
}

void Explainer::begin(const World& world)
{
    world_ = &world;
    namespace capi = velk::capi;
    for (std::size_t i = 0; i < scene_.rays.size(); ++i) {
        subjects_[capi::interactor::getRegistry().getRawPointer(world.ray(i))] = {Kind::Ray, i};
    }
    for (std::size_t i = 0; i < scene_.fingertips.size(); ++i) {
        subjects_[capi::interactor::getRegistry().getRawPointer(world.fingertip(i))] = {Kind::Fingertip, i};
    }
    for (std::size_t i = 0; i < scene_.pinches.size(); ++i) {
        subjects_[capi::fingerpinchgrab_api::internal::getRegistry().getRawPointer(world.pinch(i))] = {
            Kind::Pinch, i};
    }
    for (std::size_t i = 0; i < scene_.palms.size(); ++i) {
        subjects_[capi::fingerpalmgrab_api::internal::getRegistry().getRawPointer(world.palm(i))] = {
            Kind::Palm, i};
    }
    velk::witness::setWitness(this);
}

void Explainer::updating(const void* subject)
{
    const auto found = subjects_.find(subject);
    current_ = found != subjects_.end() ? std::optional(found->second) : std::nullopt;
}

void Explainer::judged(const Judgement& judgement)
{
    if (current_) {
        heard_[*current_].push_back(
            {placeOf(judgement), {judgement.rule, judgement.holds, judgement.value, judgement.limit}});
    }
}

int Explainer::placeOf(const Judgement& judgement) const
{
    if (judgement.target == nullptr) {
        return judgement.finger;
    }
    const VelkInteractableHandle handle = velk::capi::interactable::getHandle(judgement.target);
    return current_->kind == Kind::Ray ? world_->rayTargetOf(handle) : world_->patchOf(handle);
}

void Explainer::frame(const Observation& seen, const std::vector<Transition>& changes)
{
    for (const Transition& change : changes) {
        explain(change, seen);
    }
    for (std::size_t i = 0; i < scene_.fingertips.size(); ++i) {
        watchFingertip(i, seen);
    }
    for (std::size_t i = 0; i < scene_.pinches.size(); ++i) {
        watchGrip(Kind::Pinch, i, scene_.pinches[i], PinchStart, seen.time);
    }
    for (std::size_t i = 0; i < scene_.palms.size(); ++i) {
        watchGrip(Kind::Palm, i, scene_.palms[i], PalmStart, seen.time);
    }
    closeStale(seen.time);
    heard_.clear();
}

void Explainer::end(const Summary&)
{
    velk::witness::setWitness(nullptr);
    closeStale(std::numeric_limits<double>::infinity());
}

// And in `about` the place of its target, or the number of its finger.
std::optional<Explainer::Subject> Explainer::subjectOf(const Transition& change, int& about) const
{
    const auto grips = [&](const std::vector<GripTrack>& tracks) -> std::optional<Subject> {
        for (std::size_t i = 0; i < tracks.size(); ++i) {
            for (const std::size_t finger : tracks[i].fingers) {
                if (fingerName(tracks[i], finger) == change.name) {
                    about = static_cast<int>(finger);
                    return Subject{change.kind, i};
                }
            }
        }
        return std::nullopt;
    };
    const auto named = [&](const auto& list, int count, const auto& nameOfTarget) -> std::optional<Subject> {
        for (about = count - 1; about >= 0 && nameOfTarget(about) != change.target; --about) {
        }
        for (std::size_t i = 0; i < list.size(); ++i) {
            if (list[i].name == change.name) {
                return Subject{change.kind, i};
            }
        }
        return std::nullopt;
    };
    switch (change.kind) {
    case Kind::Ray:
        return named(scene_.rays, static_cast<int>(scene_.panels.size() + scene_.boxes.size()),
                     [this](int i) { return scene_.rayTarget(i); });
    case Kind::Fingertip:
        return named(scene_.fingertips, static_cast<int>(scene_.patches.size()),
                     [this](int i) { return scene_.patchName(i); });
    case Kind::Pinch:
        return grips(scene_.pinches);
    case Kind::Palm:
        return grips(scene_.palms);
    case Kind::Direction:
        break;
    }
    return std::nullopt;
}

// About that target or finger, or about none.
std::vector<Reason> Explainer::reasonsOf(const Subject& subject, int about) const
{
    std::vector<Reason> reasons;
    const auto found = heard_.find(subject);
    if (found != heard_.end()) {
        for (const Heard& heard : found->second) {
            if (heard.about == about || heard.about < 0) {
                reasons.push_back(heard.reason);
            }
        }
    }
    return reasons;
}

void Explainer::explain(const Transition& change, const Observation& seen)
{
    int about = -1;
    const std::optional<Subject> subject = subjectOf(change, about);
    if (!subject) {
        return;
    }
    const std::vector<Reason> all = reasonsOf(*subject, about);
    Episode episode{seen.time, seen.time, happeningOf(change, all), change.kind, change.name, change.target,
                    "",        {}};
    const About who{*subject, about};
    switch (episode.happening) {
    case Happening::Press:
        succeed(who);
        pressed_.insert(who);
        episode.reasons = change.kind == Kind::Ray       ? holding(only(all, kRayRules))
                          : holds(all, PokeRecoilReturn) ? std::vector{*find(all, PokeRecoilReturn)}
                                                         : holding(only(all, kPressRules));
        break;
    case Happening::Hover:
        pressed_.erase(who);
        episode.reasons = holding(change.kind == Kind::Ray ? only(all, kRayRules) : only(all, kHoverRules));
        std::erase_if(episode.reasons, [](const Reason& reason) {
            return reason.rule == PokeInRange || reason.rule == Admitted; // all that were asked further
        });
        break;
    case Happening::Start:
        succeed(who);
        episode.reasons = holding(only(all, kGripRules));
        break;
    case Happening::End:
        episode.reasons = holding(only(all, std::array{PinchEnd, PinchLetGo, PalmEnd}));
        break;
    default:
        episode.reasons = endReasons(all, change.from == State::Select);
        if (episode.reasons.empty() && change.kind == Kind::Fingertip) {
            const auto nearer = reasonsOf(*subject, seen.fingertips[subject->index].target);
            episode.reasons = holding(only(nearer, std::array{PokePressNearest, PokeHoverNearest}));
            episode.text = "another one is nearer";
        }
        break;
    }
    keepLastAnswers(episode.reasons);
    episodes_.push_back(std::move(episode));
}

// A crossing that is refused, a hover that goes on without a press, or a finger that is near without a hover.
void Explainer::watchFingertip(std::size_t index, const Observation& seen)
{
    const FingertipView& finger = seen.fingertips[index];
    if (!finger.tracked || finger.state == VelkInteractorState_Select) {
        return;
    }
    for (std::size_t i = 0; i < scene_.patches.size(); ++i) {
        const About about{{Kind::Fingertip, index}, static_cast<int>(i)};
        const std::vector<Reason> all = reasonsOf(about.first, about.second);
        const bool touches = holds(all, PokePressCrossing) || holds(all, PokePressDepth);
        if (const Reason* const reach = find(all, PokePressReach);
            touches && reach != nullptr && !reach->holds && reach->margin() <= kNearReach) {
            approach(about, "crosses beside the patch", {*reach}, seen.time);
        } else if (touches && holds(all, PokePressReach) && holds(all, PokeVetoNearer)) {
            approach(about, "is refused by a surface closely behind", {*find(all, PokeVetoNearer)},
                     seen.time);
        } else if (finger.target == about.second && finger.state == VelkInteractorState_Hover) {
            const Reason* const height = find(all, PokePressDepth);
            if (height != nullptr && !height->holds && height->margin() <= kNearTouch &&
                !pressed_.contains(about)) {
                approach(about, "hovers and does not touch", {*height}, seen.time);
            }
        } else if (finger.target >= 0) {
            continue; // busy elsewhere
        } else if (const Reason* const high = find(all, PokeHoverHeight);
                   high != nullptr && !high->holds && high->margin() <= kNearHeight) {
            approach(about, "stays too high to hover", {*high}, seen.time);
        } else if (const Reason* const beside = find(all, PokeHoverReach);
                   beside != nullptr && !beside->holds && beside->margin() <= kNearReach) {
            approach(about, "is beside the patch", {*beside}, seen.time);
        }
    }
}

void Explainer::watchGrip(Kind kind, std::size_t index, const GripTrack& track, Rule rule, double time)
{
    for (const std::size_t finger : track.fingers) {
        const About about{{kind, index}, static_cast<int>(finger)};
        const Reason* found = nullptr;
        const auto heard = heard_.find(about.first);
        if (heard == heard_.end()) {
            continue;
        }
        for (const Heard& each : heard->second) {
            if (each.about == about.second && each.reason.rule == rule) {
                found = &each.reason;
            }
        }
        if (found == nullptr || found->holds) {
            continue;
        }
        const bool isNear = kind == Kind::Pinch ? found->value < kNearPinch * found->limit
                                                : found->value > kNearGrip * found->limit;
        if (isNear) {
            approach(about, kind == Kind::Pinch ? "nearly pinches" : "nearly grips", {*found}, time);
        }
    }
}

void Explainer::approach(const About& about, const std::string& text, const std::vector<Reason>& why,
                         double time)
{
    const auto [place, isNew] = approaches_.try_emplace(about);
    Approach& approach = place->second;
    if (isNew) {
        approach.episode = {time, time, Happening::Miss, about.first.kind, whoIs(about), "", text, why};
        if (about.first.kind == Kind::Fingertip) {
            approach.episode.target = scene_.patchName(about.second);
        }
        approach.nearest = why.front();
        return;
    }
    approach.episode.to = time;
    // Of several rules that refuse in turn, the last one that is asked was the nearest to a success.
    const bool isFurther = why.front().rule > approach.nearest.rule;
    if (isFurther ||
        (why.front().rule == approach.nearest.rule && why.front().margin() < approach.nearest.margin())) {
        approach.nearest = why.front();
        approach.episode.text = text;
    }
}

void Explainer::succeed(const About& about)
{
    approaches_.erase(about);
}

void Explainer::closeStale(double time)
{
    for (auto each = approaches_.begin(); each != approaches_.end();) {
        if (time - each->second.episode.to <= kGap) {
            ++each;
            continue;
        }
        Episode& episode = each->second.episode;
        episode.reasons = {each->second.nearest};
        if (episode.to - episode.from >= kShortest || isCrossing(each->second.nearest.rule)) {
            episodes_.push_back(std::move(episode));
        }
        each = approaches_.erase(each);
    }
}

std::string Explainer::whoIs(const About& about) const
{
    const auto& [subject, place] = about;
    switch (subject.kind) {
    case Kind::Ray:
        return scene_.rays[subject.index].name;
    case Kind::Fingertip:
        return scene_.fingertips[subject.index].name;
    case Kind::Pinch:
        return fingerName(scene_.pinches[subject.index], static_cast<std::size_t>(place));
    case Kind::Palm:
        return fingerName(scene_.palms[subject.index], static_cast<std::size_t>(place));
    case Kind::Direction:
        break;
    }
    return scene_.directions[subject.index].name;
}

} // namespace velk_tools
