// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

#include "velk_telemetry/detail/TelemetryCache.h"

#include <mutex>

#if !defined(_WIN32)
#include <pthread.h>
#endif

namespace velk::telemetry
{
namespace
{

constexpr int kAdded = 1;
constexpr int kAlreadyAdded = 0;
constexpr int kDeclared = 0;
constexpr int kAlreadyDeclared = -2;
constexpr int kEventProcessed = 1;
constexpr int kNothingToProcess = 2;
constexpr int kUnknownEvent = -2;

std::mutex dataAccessMutex;

#if !defined(_WIN32)
void lockTables()
{
    dataAccessMutex.lock();
}

void unlockTables()
{
    dataAccessMutex.unlock();
}

// A child made by fork lacks the sending thread, which might else have left the tables half changed and the
// mutex locked for ever.
[[maybe_unused]] const int forkHandlers = pthread_atfork(lockTables, unlockTables, unlockTables);
#endif

struct Bump
{
    template <typename Number>
    void operator()(Number& number) const
    {
        number += Number{1};
    }

    void operator()(bool& flag) const { flag = true; }

    void operator()(std::string& /*text*/) const {}
};

// NOLINTNEXTLINE(bugprone-exception-escape): an operation that throws ends the process
void bump(Value& value) noexcept
{
    std::visit(Bump{}, value);
}

} // namespace

int TelemetryCache::addEventToAllowList(const std::string& event)
{
    return allowList_.insert(event).second ? kAdded : kAlreadyAdded;
}

int TelemetryCache::declareDuplexEvent(const std::string& event, const std::string& duplexEvent)
{
    if (isDuplexedEvent(event)) {
        return kAlreadyDeclared;
    }
    addEventToAllowList(duplexEvent);
    duplexEvents_.emplace(event, duplexEvent);
    return kDeclared;
}

int TelemetryCache::declareDuplexField(const std::string& event, const std::string& field,
                                       const std::string& duplexField)
{
    return duplexFields_.try_emplace({event, field}, duplexField).second ? kDeclared : kAlreadyDeclared;
}

UpdateValueResult TelemetryCache::storeDefaultValue(const std::string& event, const std::string& field,
                                                    Value value)
{
    const std::lock_guard lock(dataAccessMutex);
    if (!isAllowed(event)) {
        return UpdateValueResult::EventNotAllowed;
    }
    defaultValues_[event][field] = std::move(value);
    return UpdateValueResult::Set;
}

UpdateValueResult TelemetryCache::storeValue(const std::string& event, const std::string& field, Value value)
{
    const std::lock_guard lock(dataAccessMutex);
    if (!isAllowed(event)) {
        return UpdateValueResult::EventNotAllowed;
    }
    values_[event][field] = std::move(value);
    dirtyEvents_.insert(event);
    return UpdateValueResult::Set;
}

AccessValueResult TelemetryCache::readValue(const std::string& event, const std::string& field,
                                            Value& out) const
{
    const std::lock_guard lock(dataAccessMutex);
    if (!isAllowed(event)) {
        return AccessValueResult::EventNotAllowed;
    }
    const FieldTable& fields = values_.at(event);
    const auto found = fields.find(field);
    if (found == fields.end()) {
        return AccessValueResult::FieldUnknown;
    }
    out = found->second;
    return AccessValueResult::Read;
}

UpdateValueResult TelemetryCache::incrementValue(const std::string& event, const std::string& field)
{
    const std::lock_guard lock(dataAccessMutex);
    if (!isAllowed(event)) {
        return UpdateValueResult::EventNotAllowed;
    }
    // What may run out of memory comes first, so that an increment that fails counts in neither event.
    static_cast<void>(values_[event][field]);
    dirtyEvents_.insert(event);
    if (isDuplexedEvent(event)) {
        const std::string& duplexEvent = duplexEvents_.at(event);
        // A field without a declared duplex field bumps the field with the empty name.
        const std::string& duplexField = duplexFields_[{event, field}];
        dirtyEvents_.insert(duplexEvent);
        incrementValueInternal(duplexEvent, duplexField, bump);
    }
    incrementValueInternal(event, field, bump);
    return UpdateValueResult::Incremented;
}

void TelemetryCache::resetToDefaultValues()
{
    const std::lock_guard lock(dataAccessMutex);
    // Each event alone: going on to its duplex event could add to the table under the loop.
    for (const auto& [event, fields] : values_) {
        resetEventFieldValuesDirect(event);
    }
}

void TelemetryCache::initializeEvent(std::string_view event)
{
    const std::lock_guard lock(dataAccessMutex);
    resetEventFieldValues(std::string(event));
}

void TelemetryCache::clearDirtyEvents()
{
    const std::lock_guard lock(dataAccessMutex);
    for (const std::string& event : dirtyEvents_) {
        resetEventFieldValues(event);
    }
    dirtyEvents_.clear();
}

void TelemetryCache::drop()
{
    const std::lock_guard lock(dataAccessMutex);
    *this = TelemetryCache();
}

bool TelemetryCache::isEventOnAllowList(const std::string& event) const
{
    const std::lock_guard lock(dataAccessMutex);
    return isAllowed(event);
}

bool TelemetryCache::isDuplexedEvent(const std::string& event) const
{
    return duplexEvents_.contains(event);
}

int TelemetryCache::processDirtyEvents(IEventProcessor& processor)
{
    std::vector<EventSnapshot> snapshots;
    {
        const std::lock_guard lock(dataAccessMutex);
        for (const std::string& event : dirtyEvents_) {
            if (auto snapshot = takeSnapshot(event)) {
                snapshots.push_back(std::move(*snapshot));
            }
        }
    }
    int result = kNothingToProcess;
    for (EventSnapshot& snapshot : snapshots) {
        if (processSnapshot(std::move(snapshot), processor) == kEventProcessed) {
            result = kEventProcessed;
        }
    }
    return result;
}

int TelemetryCache::processEvent(std::string_view event, IEventProcessor& processor)
{
    std::optional<EventSnapshot> snapshot;
    {
        const std::lock_guard lock(dataAccessMutex);
        snapshot = takeSnapshot(std::string(event));
    }
    return snapshot ? processSnapshot(std::move(*snapshot), processor) : kUnknownEvent;
}

int TelemetryCache::processSnapshot(EventSnapshot&& snapshot, IEventProcessor& processor)
{
    if (snapshot.fields.empty()) {
        return kNothingToProcess;
    }
    processor.prepareEvent(snapshot.event);
    for (auto& [field, value] : snapshot.fields) {
        processor.processField(field, std::move(value));
    }
    return processor.finalizeEvent();
}

bool TelemetryCache::incrementValueInternal(const std::string& event, const std::string& field,
                                            Operation operation)
{
    Value& value = values_[event][field];
    if (std::holds_alternative<std::string>(value)) {
        return false;
    }
    operation(value);
    return true;
}

void TelemetryCache::resetEventFieldValues(const std::string& event)
{
    resetEventFieldValuesDirect(event);
    const auto duplex = duplexEvents_.find(event);
    if (duplex != duplexEvents_.end()) {
        resetEventFieldValuesDirect(duplex->second);
    }
}

void TelemetryCache::resetEventFieldValuesDirect(const std::string& event)
{
    for (const auto& [field, value] : defaultValues_[event]) {
        values_[event][field] = value;
    }
}

const TelemetryCache::FieldTable* TelemetryCache::getFieldValueMap(const std::string& event)
{
    return isAllowed(event) ? &values_[event] : nullptr;
}

std::optional<TelemetryCache::EventSnapshot> TelemetryCache::takeSnapshot(const std::string& event)
{
    const FieldTable* fields = getFieldValueMap(event);
    if (fields == nullptr) {
        return std::nullopt;
    }
    EventSnapshot snapshot{event, {}};
    snapshot.fields.reserve(fields->size());
    for (const auto& [field, value] : *fields) {
        // Assigned, since libstdc++ 12 doesn't survive a copy of a variant that runs out of memory.
        snapshot.fields.emplace_back(field, Value()).second = value;
    }
    return snapshot;
}

} // namespace velk::telemetry
