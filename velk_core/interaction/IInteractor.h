// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/core/IUpdate.h"
#include "velk_core/interaction/IInteractable.h"
#include "velk_core/interaction/IInteractorView.h"
#include "velk_core/interaction/IUpdateDriver.h"

namespace velk::interaction
{

/// Something that hovers and selects, whatever its kind: the steps of its state machine one by one.
class IInteractor : public IInteractorView, public core::IUpdate, public IUpdateDriver
{
public:
    virtual void preprocess() = 0;
    virtual void process() = 0;
    virtual void postprocess() = 0;
    virtual void processCandidate() = 0;
    virtual void enable() = 0;
    virtual void disable() = 0;
    virtual void hover() = 0;
    virtual void unhover() = 0;
    virtual void select() = 0;
    virtual void unselect() = 0;
    virtual bool shouldHover() = 0;
    virtual bool shouldUnhover() const = 0;
    virtual bool shouldSelect() = 0;
    virtual bool shouldUnselect() const = 0;
    /// What is hovered (and what is selected), or null.
    virtual IInteractable* getInteractablePtr() const = 0;
    virtual IInteractable* getSelectedInteractablePtr() const = 0;
};

} // namespace velk::interaction
