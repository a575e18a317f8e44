// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <velk/velk.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace soak
{

inline long frameNumber = 0;
inline long created = 0;

inline void check(bool holds, const char* what)
{
    if (!holds) {
        std::printf("frame %ld: not so: %s\n", frameNumber, what);
        std::fflush(stdout);
        std::_Exit(EXIT_FAILURE); // at once, without the wait for the usage thread
    }
}

/// An object of the library. When it goes, its handle is used once more, as a careless host does.
template <typename Handle, auto Destroy, auto Use = Destroy>
class Owned
{
public:
    explicit Owned(Handle handle)
        : handle_(handle)
    {
        check(handle > newest_, "handles rise and are not given out again");
        newest_ = handle;
        ++created;
    }
    Owned(Owned&& other) noexcept
        : handle_(std::exchange(other.handle_, kNone))
    {
    }
    Owned& operator=(Owned&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~Owned()
    {
        if (handle_ != kNone) {
            check(Destroy(handle_) == 0, "a live handle can be destroyed");
            check(Use(handle_) == -1 && Destroy(handle_) == -1, "a destroyed handle is refused");
        }
    }

    Handle get() const { return handle_; }
    operator Handle() const { return handle_; }

private:
    static constexpr Handle kNone = static_cast<Handle>(-1);
    static inline Handle newest_ = kNone;
    Handle handle_;
};

using Interactor = Owned<VelkInteractorHandle, velk_Interactor_Destroy, velk_Interactor_Update>;
using Interactable = Owned<VelkInteractableHandle, velk_Interactable_Destroy>;
using Selector = Owned<VelkSelectorHandle, velk_Selector_Destroy, velk_Selector_Select>;
using PlaneOrBox = Owned<VelkPointableSurfaceHandle, velk_PointableSurface_Destroy>;
using Patch = Owned<VelkSurfacePatchHandle, velk_SurfacePatch_Destroy>;
using Cap = Owned<VelkPokeButtonVisualHandle, velk_PokeButtonVisual_Destroy>;
using Hand = Owned<VelkDataSourceHandle, velk_DataSource_Destroy, velk_DataSource_Update>;
using Limiter = Owned<VelkHandPokeLimiterVisualHandle, velk_HandPokeLimiterVisual_Destroy,
                      velk_HandPokeLimiterVisual_Update>;
using Pinch = Owned<VelkPinchGrabAPIHandle, velk_FingerPinchGrabAPI_Destroy>;
using Palm = Owned<VelkPalmGrabAPIHandle, velk_FingerPalmGrabAPI_Destroy>;
using Quantizer = Owned<VelkDirectionQuantizerHandle, velk_DirectionQuantizer_Destroy>;
using Recognizer = Owned<VelkDirectionRecognizerHandle, velk_DirectionRecognizer_Destroy>;
using Field = Owned<VelkProximityFieldHandle, velk_ProximityField_Destroy>;

} // namespace soak
