// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data/HandData.h"
#include "velk_core/data_sources/IDataSource.h"

namespace velk::data_source
{

/// A hand that the host writes into. Several records between two updates count as one, and the last one wins.
/// An update before the first record answers `Unknown`, so a modifier then runs on the identity.
class ExternalHandSource : public IDataSource<data::HandData>
{
public:
    explicit ExternalHandSource(int numJoints)
        : data_(numJoints)
    {
    }

    const data::HandData& getData() const override { return data_; }

    UpdateDataResult updateData() override
    {
        const UpdateDataResult result = pendingResult_;
        pendingResult_ = UpdateDataResult::Unchanged;
        return result;
    }

    UpdateAttributeResult updateAttribute(int, AttributeValue) override
    {
        return UpdateAttributeResult::UnknownAttribute;
    }

    UpdateDataResult setData(const data::HandData& newData)
    {
        data_ = newData;
        pendingResult_ = UpdateDataResult::Updated;
        return pendingResult_;
    }

private:
    data::HandData data_;
    UpdateDataResult pendingResult_ = UpdateDataResult::Unknown;
};

} // namespace velk::data_source
