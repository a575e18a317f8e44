// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

namespace velk::interaction::surface
{

class ChangeSource;

/// Hears when a surface was moved or resized. A link in the source's list, so that listening allocates
/// nothing; it ends with either side. Host thread only.
class ChangeListener
{
public:
    ChangeListener() = default;
    virtual ~ChangeListener() { stopListening(); }
    ChangeListener(const ChangeListener&) = delete;
    ChangeListener& operator=(const ChangeListener&) = delete;

    /// Called after each change. Must neither begin nor end to listen to anything.
    virtual void surfaceChanged() = 0;

    /// Leaves the source that it listened to before, if any.
    void listenTo(ChangeSource& source);
    void stopListening();

private:
    friend class ChangeSource;

    ChangeListener** link_ = nullptr; // what points to this
    ChangeListener* next_ = nullptr;
};

/// A surface that tells of its changes.
class ChangeSource
{
public:
    ChangeSource() = default;
    // Who listens to one surface does not listen to its copies.
    ChangeSource(const ChangeSource&) {}
    ChangeSource& operator=(const ChangeSource&) = delete;

protected:
    ~ChangeSource()
    {
        while (listeners_ != nullptr) {
            listeners_->stopListening();
        }
    }

    void changed()
    {
        for (ChangeListener* listener = listeners_; listener != nullptr; listener = listener->next_) {
            listener->surfaceChanged();
        }
    }

private:
    friend class ChangeListener;

    ChangeListener* listeners_ = nullptr;
};

inline void ChangeListener::listenTo(ChangeSource& source)
{
    stopListening();
    next_ = std::exchange(source.listeners_, this);
    if (next_ != nullptr) {
        next_->link_ = &next_;
    }
    link_ = &source.listeners_;
}

inline void ChangeListener::stopListening()
{
    if (link_ == nullptr) {
        return;
    }
    *link_ = next_;
    if (next_ != nullptr) {
        next_->link_ = link_;
    }
    link_ = nullptr;
    next_ = nullptr;
}

} // namespace velk::interaction::surface
