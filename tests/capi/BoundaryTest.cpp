// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include <velk/velk.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace
{

constexpr int kUnknown = 1'000'000;
constexpr unsigned char kUntouched = 0xA5;

const talpPosef kPose{{0, 0, 0, 1}, {0, 0, 0}};
const talpVector3f kSize{1, 1, 1};

// What the pointers of a failing call point to.
alignas(16) std::array<unsigned char, sizeof(velk_HandPalmData)> scratch;

template <typename T>
T anyArgument()
{
    if constexpr (std::is_pointer_v<T>) {
        return reinterpret_cast<T>(scratch.data());
    } else {
        return T{};
    }
}

// One handle of each family that was live and is not any more.
template <typename Handle>
int retired = kUnknown;

template <typename Handle>
void retire(Handle handle, int32_t (*destroy)(Handle))
{
    ASSERT_EQ(destroy(handle), 0);
    retired<Handle> = handle;
}

// An exported function, with the handle under test as its first argument.
struct Call
{
    template <typename Result, typename Handle, typename... Others>
    Call(Result (*function)(Handle, Others...))
        : run([=](int handle) -> int {
            return function(static_cast<Handle>(handle), anyArgument<Others>()...);
        })
        , retiredHandle(retired<Handle>)
    {
    }

    std::function<int(int handle)> run;
    int retiredHandle;
};

void expectRefusal(const std::string& wanted, const std::vector<Call>& calls,
                   const std::vector<int>& ofOtherKinds = {})
{
    for (std::size_t i = 0; i < calls.size(); ++i) {
        std::vector<int> handles{-1, kUnknown, calls[i].retiredHandle};
        handles.insert(handles.end(), ofOtherKinds.begin(), ofOtherKinds.end());
        for (const int handle : handles) {
            SCOPED_TRACE(wanted + " wanted, call " + std::to_string(i) + ", handle " +
                         std::to_string(handle));
            scratch.fill(kUntouched);
            EXPECT_EQ(calls[i].run(handle), -1);
            EXPECT_EQ(std::ranges::count(scratch, kUntouched), std::ssize(scratch)) << "written to";
        }
    }
}

TEST(Boundary, RefusesBadInteractorsAndInteractables)
{
    const auto plane = velk_PointablePlane_Create(nullptr, nullptr);
    const auto patch = velk_ClippedPlaneSurface_Create(&kPose, nullptr, 0);
    const auto panel = velk_RayInteractable_Create(plane);
    const auto button = velk_PokeInteractable_Create(patch);
    retire(velk_RayInteractor_Create(), velk_Interactor_Destroy);
    retire(velk_RayInteractable_Create(plane), velk_Interactable_Destroy);
    retire(velk_Selector_Create(), velk_Selector_Destroy);

    expectRefusal("anything live",
                  {velk_Interactor_Destroy, velk_Interactor_Update, velk_Interactor_SetSelector,
                   velk_Interactor_GetState, velk_Interactor_GetInteractable, velk_Interactor_GetPayload,
                   velk_Interactor_SetPayload, velk_Interactable_Destroy, velk_Interactable_GetState,
                   velk_Interactable_GetPayload, velk_Interactable_SetPayload, velk_Selector_Destroy,
                   velk_Selector_Select, velk_Selector_Unselect});
    expectRefusal("ray",
                  {velk_RayInteractor_SetMaxRayLength, velk_RayInteractor_SetPose,
                   velk_RayInteractor_GetOrigin, velk_RayInteractor_GetEnd},
                  {velk_PokeInteractor_Create()});
    expectRefusal("fingertip", {velk_PokeInteractor_SetPointTransform}, {velk_RayInteractor_Create()});
    expectRefusal("panel", {velk_RayInteractable_SetSurface}, {button});
    expectRefusal("button", {velk_PokeInteractable_SetSurface, velk_PokeButtonVisual_Create}, {panel});
}

TEST(Boundary, RefusesBadSurfacesVisualsAndFields)
{
    const auto plane = velk_PointablePlane_Create(nullptr, nullptr);
    const auto box = velk_PointableAxisAlignedBox_Create(nullptr, nullptr);
    const auto patch = velk_ClippedPlaneSurface_Create(&kPose, nullptr, 0);
    const auto button = velk_PokeInteractable_Create(patch);
    retire(velk_PointablePlane_Create(nullptr, nullptr), velk_PointableSurface_Destroy);
    retire(velk_ClippedPlaneSurface_Create(&kPose, nullptr, 0), velk_SurfacePatch_Destroy);
    retire(velk_PokeButtonVisual_Create(button, &kPose, 0.02f), velk_PokeButtonVisual_Destroy);
    retire(velk_BoxProximityField_Create(&kPose, &kSize), velk_ProximityField_Destroy);

    expectRefusal("plane",
                  {velk_PointableSurface_SetPose, velk_PointablePlane_SetSize, velk_PointablePlane_GetNormal},
                  {box});
    expectRefusal("box",
                  {velk_PointableAxisAlignedBox_SetBounds, velk_PointableAxisAlignedBox_SetCentroid,
                   velk_PointableAxisAlignedBox_SetCentroidAndSize},
                  {plane});
    // A patch can't be moved: its own live handle is refused like any other.
    expectRefusal("nothing", {velk_ClippedPlaneSurface_SetPose}, {patch});
    expectRefusal("anything live",
                  {velk_PointableSurface_Destroy, velk_RayInteractable_Create, velk_SurfacePatch_Destroy,
                   velk_PokeInteractable_Create, velk_PokeInteractable_CreateWithConfig,
                   velk_PokeButtonVisual_Destroy, velk_PokeButtonVisual_UpdateBasePose,
                   velk_PokeButtonVisual_GetCurrentExtent, velk_PokeButtonVisual_GetCurrentPose,
                   velk_ProximityField_Destroy, velk_BoxProximityField_SetPose,
                   velk_BoxProximityField_SetSize});
}

TEST(Boundary, RefusesBadHandsGrabsAndDetectors)
{
    const auto dummy = velk_DataSource_Create(VelkDataSourceType_Dummy);
    const auto hand = velk_DataSource_Create(VelkDataSourceType_External);
    const auto filter = velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, hand);
    const auto drawn = velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, filter);
    const auto tip = velk_PokeInteractor_Create();
    const auto recognizer = velk_DirectionRecognizer_Create();
    retire(velk_DataSource_Create(VelkDataSourceType_External), velk_DataSource_Destroy);
    retire(velk_HandPokeLimiterVisual_Create(hand, tip, drawn), velk_HandPokeLimiterVisual_Destroy);
    retire(velk_FingerPinchGrabAPI_Create(), velk_FingerPinchGrabAPI_Destroy);
    retire(velk_FingerPalmGrabAPI_Create(), velk_FingerPalmGrabAPI_Destroy);
    retire(velk_DirectionQuantizer_Create(nullptr, 30, 60), velk_DirectionQuantizer_Destroy);
    retire(velk_DirectionRecognizer_Create(), velk_DirectionRecognizer_Destroy);

    expectRefusal("filter", {velk_DataSource_SetAttributeFloat}, {dummy, hand, drawn});
    expectRefusal("external source", {velk_ExternalHandSource_SetData}, {dummy, filter, drawn});
    expectRefusal("anything live",
                  {velk_DataSource_Destroy, velk_DataSource_Update, velk_DataSource_GetData,
                   velk_HandPokeLimiterVisual_Destroy, velk_HandPokeLimiterVisual_Update,
                   velk_FingerPinchGrabAPI_Destroy, velk_FingerPinchGrabAPI_UpdateHandData,
                   velk_FingerPinchGrabAPI_UpdateHandWristHMDData,
                   velk_FingerPinchGrabAPI_GetFingerIsGrabbing,
                   velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged,
                   velk_FingerPinchGrabAPI_GetCenterOffset, velk_FingerPinchGrabAPI_GetFingerGrabScore});
    expectRefusal("anything live",
                  {velk_FingerPalmGrabAPI_Destroy, velk_FingerPalmGrabAPI_UpdateHandData,
                   velk_FingerPalmGrabAPI_GetFingerIsGrabbing,
                   velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged, velk_FingerPalmGrabAPI_GetCenterOffset,
                   velk_FingerPalmGrabAPI_GetFingerGrabScore, velk_DirectionQuantizer_Destroy,
                   velk_DirectionQuantizer_Update, velk_DirectionQuantizer_GetValue,
                   velk_DirectionRecognizer_Destroy, velk_DirectionRecognizer_Update,
                   velk_DirectionRecognizer_IsActive});

    // Handles that don't stand first.
    velk_DetectionParameterList wishes{0, nullptr};
    const auto gone = VelkDirectionQuantizerHandle{retired<VelkDirectionQuantizerHandle>};
    EXPECT_EQ(velk_DirectionRecognizer_Update(recognizer, gone, &wishes), -1);
    EXPECT_EQ(velk_HandPokeLimiterVisual_Create(hand, velk_RayInteractor_Create(), drawn), -1);
    EXPECT_EQ(velk_HandPokeLimiterVisual_Create(hand, tip, filter), -1);
    EXPECT_GE(velk_HandPokeLimiterVisual_Create(VelkDataSourceHandle_Invalid, tip, drawn), 0);
}

TEST(Boundary, TellsFailuresOfCreationApart)
{
    const auto source = velk_DataSource_Create(VelkDataSourceType_External);
    EXPECT_EQ(velk_DataSource_Create(VelkDataSourceType_None), -1);
    EXPECT_EQ(velk_DataSource_Create(VelkDataSourceType{3}), -2);
    EXPECT_EQ(velk_DataModifier_Create(VelkDataModifierType{0}, source), -1);
    EXPECT_EQ(velk_DataModifier_Create(VelkDataModifierType{1}, VelkDataSourceHandle{kUnknown}), -3);
    EXPECT_EQ(velk_DataSource_Create(VelkDataSourceType_Dummy), source + 1) << "a failure took a handle";

    EXPECT_THROW(velk_ClippedPlaneSurface_Create(&kPose, nullptr, -1), std::length_error);
}

TEST(Boundary, RefusesNullWhereItSays)
{
    const auto source = velk_DataSource_Create(VelkDataSourceType_External);
    const auto box = velk_PointableAxisAlignedBox_Create(nullptr, nullptr);
    const auto button = velk_PokeInteractable_Create(velk_ClippedPlaneSurface_Create(&kPose, nullptr, 0));
    const auto visual = velk_PokeButtonVisual_Create(button, &kPose, 0.0f);
    const auto quantizer = velk_DirectionQuantizer_Create(nullptr, 30, 60);
    const auto recognizer = velk_DirectionRecognizer_Create();

    EXPECT_EQ(velk_PointableAxisAlignedBox_SetCentroid(box, nullptr), -4);
    const std::vector<int> refused{velk_ExternalHandSource_SetData(source, nullptr),
                                   velk_PokeInteractable_GetDefaultConfig(nullptr),
                                   velk_PokeButtonVisual_Create(button, nullptr, 0.02f),
                                   velk_PokeButtonVisual_Create(button, &kPose, -0.001f),
                                   velk_PokeButtonVisual_UpdateBasePose(visual, nullptr, 0.02f),
                                   velk_PokeButtonVisual_GetCurrentExtent(visual, nullptr),
                                   velk_PokeButtonVisual_GetCurrentPose(visual, nullptr),
                                   velk_DirectionQuantizer_Update(quantizer, nullptr),
                                   velk_DirectionQuantizer_GetValue(quantizer, 0, nullptr),
                                   velk_DirectionRecognizer_Update(recognizer, quantizer, nullptr),
                                   velk_DirectionRecognizer_IsActive(recognizer, nullptr),
                                   velk_Interactor_GetPayload(velk_RayInteractor_Create(), nullptr),
                                   velk_Interactable_GetPayload(button, nullptr)};
    EXPECT_EQ(refused, std::vector<int>(refused.size(), -1));
}

TEST(Boundary, KeepsThePayloadGivenLast)
{
    const auto interactor = velk_PokeInteractor_Create();
    auto* const first = reinterpret_cast<VelkPayload*>(scratch.data());
    auto* const second = reinterpret_cast<VelkPayload*>(scratch.data() + 1);
    VelkPayload* read = nullptr;
    EXPECT_EQ(velk_Interactor_GetPayload(interactor, &read), -1) << "none was set yet";
    EXPECT_EQ(velk_Interactor_SetPayload(interactor, first), 0);
    EXPECT_EQ(velk_Interactor_SetPayload(interactor, second), 0);
    EXPECT_EQ(velk_Interactor_SetPayload(interactor, nullptr), -1) << "can't be taken off again";
    EXPECT_EQ(velk_Interactor_GetPayload(interactor, &read), 0);
    EXPECT_EQ(read, second);
}

void destroyScene(std::size_t first, std::size_t step)
{
    std::vector<std::function<int()>> destroy;
    const auto own = [&](auto handle, auto end) {
        destroy.push_back([=] { return end(handle); });
        return handle;
    };
    const talpPosef base{{0, 0, 0, 1}, {0, 0, -10}}; // behind what other tests left
    const auto patch = own(velk_ClippedPlaneSurface_Create(&base, nullptr, 0), velk_SurfacePatch_Destroy);
    const auto button = own(velk_PokeInteractable_Create(patch), velk_Interactable_Destroy);
    const auto cap = own(velk_PokeButtonVisual_Create(button, &base, 0.02f), velk_PokeButtonVisual_Destroy);
    const auto selector = own(velk_Selector_Create(), velk_Selector_Destroy);
    const auto tip = own(velk_PokeInteractor_Create(), velk_Interactor_Destroy);
    const auto hand = own(velk_DataSource_Create(VelkDataSourceType_External), velk_DataSource_Destroy);
    const auto drawn =
        own(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, hand), velk_DataSource_Destroy);
    const auto limiter =
        own(velk_HandPokeLimiterVisual_Create(hand, tip, drawn), velk_HandPokeLimiterVisual_Destroy);
    const auto frame = [&](float height) {
        const talpPosef pose{{0, 0, 0, 1}, {0, 0, base.position.z + height}};
        velk_PokeInteractor_SetPointTransform(tip, &pose);
        velk_Interactor_Update(tip);
        velk_HandPokeLimiterVisual_Update(limiter);
        velk_DataSource_Update(drawn);
        velk_PokeButtonVisual_UpdateBasePose(cap, &base, 0.02f);
    };
    velk_Interactor_SetSelector(tip, selector);
    frame(0.02f);
    frame(-0.02f);
    ASSERT_EQ(velk_Interactor_GetInteractable(tip), button);
    for (std::size_t i = 0; i < destroy.size(); ++i) {
        EXPECT_EQ(destroy[(first + i * step) % destroy.size()](), 0);
        frame(-0.02f);
    }
}

// The sanitizers look on: whatever of a press goes first, what is left must do without it.
TEST(Boundary, LetsHostsDestroyInAnyOrder)
{
    for (std::size_t order = 0; order < 32; ++order) {
        destroyScene(order % 8, order / 8 * 2 + 1); // odd steps visit all eight objects
    }
}

TEST(Boundary, HasOneVersion)
{
    const char* version = nullptr;
    EXPECT_EQ(velk_Common_GetVersion(&version), 0);
    EXPECT_STREQ(version, VELK_VERSION_STRING);
    EXPECT_STREQ(version, VELK_PROJECT_VERSION);
    EXPECT_EQ(std::string(version), std::to_string(VELK_VERSION_MAJOR) + "." +
                                        std::to_string(VELK_VERSION_MINOR) + "." +
                                        std::to_string(VELK_VERSION_PATCH));
}

} // namespace
