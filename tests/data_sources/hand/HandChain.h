// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "math/Aliases.h"
#include "velk_core/data_sources/hand/ExternalHandSource.h"

#include <gtest/gtest.h>

#include <memory>

namespace velk::data_source
{

using data::HandData;
using Result = IDataSource<HandData>::UpdateDataResult;

/// A hand of one joint, turned like the root, which is at (x, 0, 0).
inline HandData handAt(float x, Quatf rotation = {})
{
    HandData hand(1);
    hand.rootPose = {rotation, {x, 0.0f, 0.0f}};
    hand.joints[0] = rotation;
    return hand;
}

/// A source and one modifier on it.
template <typename TModifier>
struct HandChain
{
    std::shared_ptr<ExternalHandSource> source;
    std::shared_ptr<TModifier> modifier;

    template <typename... Args>
    explicit HandChain(int joints, Args&&... args)
        : source(std::make_shared<ExternalHandSource>(joints))
        , modifier(std::make_shared<TModifier>(source, true, args...))
    {
    }

    /// One frame, with news.
    const HandData& feed(const HandData& hand)
    {
        source->setData(hand);
        EXPECT_EQ(modifier->updateData(), Result::Updated);
        return modifier->getData();
    }
    float feed(float x) { return feed(handAt(x)).rootPose.translation.x; }
};

} // namespace velk::data_source
