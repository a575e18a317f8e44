// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data/HandData.h"
#include "velk_core/data_sources/IDataSource.h"

namespace velk::data_source
{

/// A hand that never changes: all identity, and nothing new from the first update on.
class DummyHandSource : public IDataSource<data::HandData>
{
public:
    explicit DummyHandSource(int numJoints)
        : data_(numJoints)
    {
    }

    const data::HandData& getData() const override { return data_; }
    UpdateDataResult updateData() override { return UpdateDataResult::Unchanged; }
    UpdateAttributeResult updateAttribute(int, AttributeValue) override
    {
        return UpdateAttributeResult::UnknownAttribute;
    }

private:
    data::HandData data_;
};

} // namespace velk::data_source
