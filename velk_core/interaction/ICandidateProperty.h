// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace velk::interaction
{

/// What an interactor can tell about its candidate, as far as its kind knows more than which it is.
class ICandidateProperty
{
public:
    virtual ~ICandidateProperty() = default;
};

} // namespace velk::interaction
