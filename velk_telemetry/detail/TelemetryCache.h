// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#pragma once

#include "velk_telemetry/detail/AccessValueResult.h"
#include "velk_telemetry/detail/IEventProcessor.h"
#include "velk_telemetry/detail/UpdateValueResult.h"
#include "velk_telemetry/detail/Value.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <variant>
#include <vector>

namespace velk::telemetry
{

/// Usage counters: named events with named fields, and which events have changed since the last pass.
///
/// An event can have a duplex event, and its fields duplex fields there; an increment then updates both. The
/// duplex fields of counts are bools, so the duplex event says only what was used, not how often.
///
/// The host thread increments while the sending thread passes over the dirty events. One mutex for all caches
/// guards the tables. The setup operations, up to declareDuplexField, take no lock: call them before a second
/// thread knows the cache.
class TelemetryCache
{
public:
    using FieldTable = std::unordered_map<std::string, Value>;

    /// Returns 1, or 0 if the event was on the list already.
    int addEventToAllowList(const std::string& event);

    /// Allows the duplex event, but not the event itself. Returns 0, or -2 if the event has a duplex event
    /// already, which then stays.
    int declareDuplexEvent(const std::string& event, const std::string& duplexEvent);

    /// Returns 0, or -2 if the field has a duplex field already, which then stays.
    int declareDuplexField(const std::string& event, const std::string& field,
                           const std::string& duplexField);

    /// Sets what a reset restores; the current value stays and nothing becomes dirty.
    template <typename T>
    UpdateValueResult setDefaultValue(const std::string& event, const std::string& field, T value)
    {
        static_assert(isAlternative<T>);
        return storeDefaultValue(event, field, Value(std::in_place_type<T>, std::move(value)));
    }

    /// Sets the value in this event only, never in its duplex event.
    template <typename T>
    UpdateValueResult setValue(const std::string& event, const std::string& field, T value)
    {
        static_assert(isAlternative<T>);
        return storeValue(event, field, Value(std::in_place_type<T>, std::move(value)));
    }

    /// Throws std::bad_variant_access when the field holds another type than T, and std::out_of_range when
    /// the event is allowed but has no fields yet.
    template <typename T>
    AccessValueResult getValue(const std::string& event, const std::string& field, T& out) const
    {
        static_assert(isAlternative<T>);
        Value value;
        const AccessValueResult result = readValue(event, field, value);
        if (result == AccessValueResult::Read) {
            out = std::get<T>(std::move(value));
        }
        return result;
    }

    /// Bumps a field, and its duplex field if the event is duplexed. A field that doesn't exist begins as the
    /// int 0. Succeeds and makes the event dirty even if the field holds a string, which doesn't change.
    UpdateValueResult incrementValue(const std::string& event, const std::string& field);

    /// Puts all events back on their default values; they stay dirty or clean as they are.
    void resetToDefaultValues();

    /// Puts an event and its duplex event on their default values.
    void initializeEvent(std::string_view event);

    /// Puts all dirty events on their default values and makes them clean.
    void clearDirtyEvents();

    /// Gives all tables back. No event is allowed any more.
    void drop();

    bool isEventOnAllowList(const std::string& event) const;
    bool isDuplexedEvent(const std::string& event) const;

    /// Hands the dirty events to the processor, as they were when the call began. Returns 1 if at least one
    /// was processed with the result 1, else 2. Clears nothing.
    int processDirtyEvents(IEventProcessor& processor);

    /// Hands one event to the processor and returns the result of its finalizeEvent. Returns 2 without a call
    /// if the event has no fields, -2 if it isn't allowed.
    int processEvent(std::string_view event, IEventProcessor& processor);

private:
    template <typename T>
    static constexpr bool isAlternative =
        std::is_same_v<T, int> || std::is_same_v<T, float> || std::is_same_v<T, double> ||
        std::is_same_v<T, std::string> || std::is_same_v<T, bool>;

    /// Copy of an event's fields, in the order of their table.
    struct EventSnapshot
    {
        std::string event;
        std::vector<std::pair<std::string, Value>> fields;
    };

    using Operation = void (*)(Value& value) noexcept;

    UpdateValueResult storeDefaultValue(const std::string& event, const std::string& field, Value value);
    UpdateValueResult storeValue(const std::string& event, const std::string& field, Value value);
    AccessValueResult readValue(const std::string& event, const std::string& field, Value& out) const;

    static int processSnapshot(EventSnapshot&& snapshot, IEventProcessor& processor);

    // These expect the lock held.
    bool isAllowed(const std::string& event) const { return allowList_.contains(event); }
    bool incrementValueInternal(const std::string& event, const std::string& field, Operation operation);
    void resetEventFieldValues(const std::string& event);
    void resetEventFieldValuesDirect(const std::string& event);
    const FieldTable* getFieldValueMap(const std::string& event);
    std::optional<EventSnapshot> takeSnapshot(const std::string& event);

    std::unordered_map<std::string, FieldTable> values_;
    std::unordered_map<std::string, FieldTable> defaultValues_;
    std::unordered_map<std::string, std::string> duplexEvents_;
    std::map<std::pair<std::string, std::string>, std::string> duplexFields_; // by event and field
    std::unordered_set<std::string> dirtyEvents_;
    std::unordered_set<std::string> allowList_;
};

} // namespace velk::telemetry
