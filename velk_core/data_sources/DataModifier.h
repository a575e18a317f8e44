// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "velk_core/data_sources/IDataSource.h"

#include <memory>

namespace velk::data_source
{

/// A source that offers a changed copy of another source's record. It does not keep that source alive: once
/// it has gone, updates fail and the last record stays.
template <typename T>
class DataModifier : public IDataSource<T>
{
public:
    using typename IDataSource<T>::UpdateDataResult;
    using typename IDataSource<T>::UpdateAttributeResult;

    /// With `updateSource`, an update first updates the wrapped source; without it, whoever owns that source
    /// does so, and each update here counts as possibly new.
    DataModifier(std::shared_ptr<IDataSource<T>>&& source, bool updateSource)
        : source_(source)
        , data_(source ? source->getData() : T(0))
        , updateSource_(updateSource)
    {
    }

    const T& getData() const override { return data_; }

    UpdateDataResult updateData() override
    {
        const std::shared_ptr<IDataSource<T>> source = source_.lock();
        if (!source) {
            return UpdateDataResult::Failed;
        }
        return applyModifications(updateSource_ ? source->updateData() : UpdateDataResult::Unknown);
    }

    /// A modifier does not hand attributes on to its source.
    UpdateAttributeResult updateAttribute(int, AttributeValue) override
    {
        return UpdateAttributeResult::UnknownAttribute;
    }

    virtual UpdateDataResult applyModifications(UpdateDataResult sourceResult) = 0;

protected:
    static bool isNews(UpdateDataResult sourceResult)
    {
        return sourceResult == UpdateDataResult::Updated || sourceResult == UpdateDataResult::Unknown;
    }

    std::weak_ptr<IDataSource<T>> source_;
    T data_;
    bool updateSource_;
};

} // namespace velk::data_source
