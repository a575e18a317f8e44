// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
//
// velk-soak FRAMES: a host that goes on. It plays recorded and computed motion through a scene of everything
// there is. In the second half of each 1000 frames objects are replaced, in hovers and presses too; then all
// is destroyed and made anew. It ends with 1 when an answer makes no sense, or when with nothing alive more
// memory is in use at the end than after a tenth of the frames. GLIBC_TUNABLES=glibc.malloc.tcache_count=0
// must be set: what the C library keeps for the next allocation would count as used.
#include "Owned.h"
#include "recording/RecordingReader.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using namespace soak;

constexpr long kRound = 1000;           // frames
constexpr int kReplacements = 4;        // in a frame of a round's second half
constexpr long kHeapGrowth = 16 * 1024; // bytes; a block lost in each round of a million frames is 28 kB
constexpr long kResidentGrowth = 1024;  // kilobytes, asked of long runs only: a short one still warms up
constexpr long kLongRun = 200'000;      // frames

constexpr float kCapTravel = 0.015f; // metres
const talpQuatf kUnturned{0, 0, 0, 1};
const talpQuatf kFacingUp{-0.70710678f, 0, 0, 0.70710678f};
/// A panel, and a row of buttons above it under the fingers of the recording that taps.
const std::array<talpVector3f, 5> kPatches{{{-0.005f, 0.17f, -0.07f},
                                            {-0.045f, 0.19f, -0.062f},
                                            {-0.024f, 0.19f, -0.078f},
                                            {-0.003f, 0.19f, -0.084f},
                                            {0.024f, 0.19f, -0.076f}}};

enum What
{
    RayHovers,
    RayPresses,
    FingerHovers,
    FingerPresses,
    CapsDown,
    WristsHeld,
    Pinches,
    PalmGrips,
    Recognitions,
    LogMessages
};
constexpr std::array<const char*, LogMessages + 1> kNames{"hovers of rays",
                                                          "presses of rays",
                                                          "hovers of fingers",
                                                          "presses of fingers",
                                                          "frames of a cap down",
                                                          "frames of a wrist held",
                                                          "pinches",
                                                          "palm grips",
                                                          "directions recognised",
                                                          "messages"};
std::array<long, kNames.size()> counts{};

/// The same numbers in every run.
unsigned randomBelow(unsigned count)
{
    static uint32_t state = 2463534242;
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    return (state >> 8) % count;
}

/// From -1 to 1 and back, smoothly, once in `period` frames.
float swing(long period)
{
    const float t = static_cast<float>(frameNumber % period) / static_cast<float>(period);
    const float u = 4 * std::fabs(t - 0.5f) - 1;
    return u * (1.5f - 0.5f * u * u);
}

/// A recorded right hand as the library's records want it, row by row, again and again.
class Motion
{
public:
    struct Row
    {
        velk_HandData hand;
        velk_HandPinchData pinch;
        velk_HandPalmData palm;
        std::array<talpPosef, 4> tips; // in the recording's space
    };

    explicit Motion(const std::string& file)
    {
        const std::string path = VELK_DATA_DIR "/motion/joints24/" + file;
        for (const velk_play::Frame& frame : velk_play::loadRecording(path, "").frames) {
            if (const auto& hand = frame.hand(velk_play::Side::Right)) {
                rows_.push_back(makeRow(*hand));
            }
        }
    }

    const Row& now() const { return rows_[static_cast<std::size_t>(frameNumber) % rows_.size()]; }

private:
    static Row makeRow(const velk_play::HandSample& hand)
    {
        Row row;
        row.hand.rootPose = row.palm.rootPose = hand.root;
        row.palm.handedness = hand.handedness;
        for (std::size_t i = 0; i < VELK_HAND_JOINT_COUNT; ++i) {
            row.palm.jointPoses[i] = hand.joints[i];
            row.hand.joints[i] = hand.joints[i].orientation;
            row.pinch.jointPositions[i] = hand.joints[i].position;
        }
        for (std::size_t i = 0; i < row.tips.size(); ++i) {
            row.tips[i] = hand.joint(VelkHandJointId_IndexTip + i);
        }
        return row;
    }

    std::vector<Row> rows_;
};

/// What acts, and how its last update left it.
struct Actor
{
    Interactor interactor;
    VelkInteractorState state = VelkInteractorState_Normal;
    VelkInteractableHandle on = VelkInteractableHandle_Invalid;

    void update(What hovers, What presses)
    {
        const VelkInteractorState before = state;
        check(velk_Interactor_Update(interactor) == 0 && velk_Interactor_GetState(interactor, &state) == 0,
              "interactors can be updated and read");
        on = velk_Interactor_GetInteractable(interactor);
        check(on < 0 || state != VelkInteractorState_Normal, "in Normal there is no interactable");
        counts[hovers] += before == VelkInteractorState_Normal && state == VelkInteractorState_Hover;
        counts[presses] += before != state && state == VelkInteractorState_Select && on >= 0;
    }
};

/// What is acted on.
template <typename Surface>
struct Target
{
    Surface surface;
    Interactable interactable;
};

template <typename Surface>
void checkBothSides(const std::vector<Actor>& actors, const std::vector<Target<Surface>>& targets)
{
    auto lost = std::ranges::count_if(actors, [](const Actor& actor) { return actor.on >= 0; });
    for (const auto& target : targets) {
        int32_t wanted = VelkInteractableState_Normal;
        for (const Actor& actor : actors) {
            const bool met = actor.on == target.interactable;
            lost -= met;
            wanted = met ? std::max<int32_t>(wanted, actor.state) : wanted;
        }
        VelkInteractableState state = VelkInteractableState_Disabled;
        check(velk_Interactable_GetState(target.interactable, &state) == 0 && state == wanted,
              "an interactable's state is that of the interactors on it");
    }
    check(lost == 0, "interactors are only on what there is");
}

/// Two rays over planes and boxes, each with a trigger.
class Rays
{
public:
    Rays()
    {
        for (unsigned i = 0; i < 5; ++i) {
            PlaneOrBox surface = makeSurface(i);
            Interactable interactable(velk_RayInteractable_Create(surface));
            targets_.push_back({std::move(surface), std::move(interactable)});
        }
        for (int i = 0; i < 2; ++i) {
            triggers_.emplace_back(velk_Selector_Create());
            rays_.push_back({Interactor(velk_RayInteractor_Create())});
        }
    }

    void frame()
    {
        for (unsigned i = 0; i < 2; ++i) {
            const VelkInteractorHandle ray = rays_[i].interactor;
            const float pitch = 0.05f * swing(307 + i), yaw = 0.3f * swing(173 + 60 * i);
            const float scale = 1 / std::sqrt(1 + pitch * pitch + yaw * yaw);
            const talpPosef pose{{pitch * scale, yaw * scale, 0, scale}, {0.3f * swing(1009), 1.2f, 0}};
            velk_RayInteractor_SetPose(ray, &pose);
            velk_RayInteractor_SetMaxRayLength(ray, 3);
            velk_Interactor_SetSelector(ray, triggers_[i]);
            const long beat = (frameNumber + 17 * i) % 61;
            if (beat == 20 || beat == 50) {
                velk_Selector_Select(triggers_[i]);
            }
            if (beat == 40 || beat == 50) {
                velk_Selector_Unselect(triggers_[i]);
            }
            rays_[i].update(RayHovers, RayPresses);
            talpVector3f end{};
            check(velk_RayInteractor_GetEnd(ray, &end) == 0 && end.z < 0 && end.z > -3.01f,
                  "rays reach forward");
        }
        checkBothSides(rays_, targets_);
    }

    void replaceOne()
    {
        const unsigned place = randomBelow(5);
        Target<PlaneOrBox>& target = targets_[place];
        switch (randomBelow(5)) {
        case 0:
            target.interactable = Interactable(velk_RayInteractable_Create(target.surface));
            break;
        case 1:
            target.surface = makeSurface(place);
            velk_RayInteractable_SetSurface(target.interactable, target.surface);
            break;
        case 2: // a ray in a press keeps the surface, which has no handle any more
            target.surface = makeSurface(place);
            target.interactable = Interactable(velk_RayInteractable_Create(target.surface));
            break;
        case 3:
            rays_[place % 2] = {Interactor(velk_RayInteractor_Create())};
            break;
        default: // in a press, too: the ray waits for the new one's release
            triggers_[place % 2] = Selector(velk_Selector_Create());
        }
    }

private:
    static PlaneOrBox makeSurface(unsigned place)
    {
        const talpPosef pose{kUnturned, {0.25f * static_cast<float>(place) - 0.5f, 1.2f, -1}};
        const talpVector3f size{0.2f, 0.3f, 0.1f};
        const talpVector2f half{0.1f, 0.15f};
        return PlaneOrBox(place % 2 == 0 ? velk_PointablePlane_Create(&pose, &half)
                                         : velk_PointableAxisAlignedBox_Create(&pose.position, &size));
    }

    std::vector<Target<PlaneOrBox>> targets_;
    std::vector<Actor> rays_;
    std::vector<Selector> triggers_;
};

/// Four fingertips of a recorded hand over patches, and the drawn hand that the index finger stops.
class Touch
{
public:
    explicit Touch(const Motion& hand)
        : hand_(hand)
    {
        for (unsigned i = 0; i < kPatches.size(); ++i) {
            Patch patch = makePatch(i);
            Interactable interactable = makeInteractable(patch, i);
            targets_.push_back({std::move(patch), std::move(interactable)});
            caps_.push_back(makeCap(i));
        }
        for (int i = 0; i < 4; ++i) {
            fingers_.push_back({Interactor(velk_PokeInteractor_Create())});
        }
        chain_.emplace_back(velk_DataSource_Create(VelkDataSourceType_External));
        chain_.emplace_back(velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, chain_[0]));
        chain_.emplace_back(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, chain_[1]));
        limiter_.push_back(makeLimiter());
    }

    void frame()
    {
        const Motion::Row& now = hand_.now();
        velk_HandData filtered, shown;
        velk_ExternalHandSource_SetData(chain_[0], &now.hand);
        velk_DataSource_SetAttributeFloat(chain_[1], VelkHandFilterAttribute_UpdateRate, 110);
        velk_DataSource_Update(chain_[2]);
        velk_DataSource_GetData(chain_[1], &filtered);
        velk_DataSource_GetData(chain_[2], &shown);
        for (const talpQuatf& q : filtered.joints) {
            const float square = q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w;
            check(std::fabs(square - 1) < 1e-3f, "filtered rotations are of unit length");
        }
        counts[WristsHeld] += shown.rootPose.position.y > filtered.rootPose.position.y + 0.001f;

        for (unsigned i = 0; i < 4; ++i) {
            velk_PokeInteractor_SetPointTransform(fingers_[i].interactor, &now.tips[i]);
            fingers_[i].update(FingerHovers, FingerPresses);
        }
        velk_HandPokeLimiterVisual_Update(limiter_[0]);
        checkBothSides(fingers_, targets_);
        for (const Cap& cap : caps_) {
            float extent = -1;
            check(velk_PokeButtonVisual_GetCurrentExtent(cap, &extent) == 0 && extent >= 0 &&
                      extent <= kCapTravel,
                  "a cap stays between its base and its rest");
            counts[CapsDown] += extent < kCapTravel;
        }
    }

    void replaceOne()
    {
        const unsigned place = randomBelow(5);
        Target<Patch>& target = targets_[place];
        switch (randomBelow(8)) {
        case 0:
            target.interactable = makeInteractable(target.surface, place);
            break;
        case 1:
            target.surface = makePatch(place);
            velk_PokeInteractable_SetSurface(target.interactable, target.surface);
            break;
        case 2:
            caps_[place] = makeCap(place);
            break;
        case 3: // the limiter does without its finger until it is made anew itself
            fingers_[place % 4] = {Interactor(velk_PokeInteractor_Create())};
            break;
        case 4: // and modifiers without what they wrap
            chain_[0] = Hand(velk_DataSource_Create(VelkDataSourceType_External));
            break;
        case 5:
            chain_[1] = Hand(velk_DataModifier_Create(VelkDataModifierType_OneEuroHandFilter, chain_[0]));
            break;
        case 6:
            chain_[2] = Hand(velk_DataModifier_Create(VelkDataModifierType_SyntheticHand, chain_[1]));
            break;
        default:
            limiter_[0] = makeLimiter();
        }
    }

private:
    static Patch makePatch(unsigned place)
    {
        const float size = place == 0 ? 0.16f : 0.04f;
        const std::array<velk_BoundsClipper, 2> clippers{
            {{{0, 0, 0}, {size, 0.05f, 0.02f}}, {{0, 0.01f, 0}, {0.8f * size, 0.06f, 0.02f}}}};
        const talpPosef pose{kFacingUp, kPatches[place]};
        return Patch(velk_ClippedPlaneSurface_Create(&pose, clippers.data(), place == 0 ? 1 : 2));
    }

    static Interactable makeInteractable(const Patch& patch, unsigned place)
    {
        velk_PokeInteractableConfig config;
        velk_PokeInteractable_GetDefaultConfig(&config);
        config.positionPinningEnabled = place % 2 == 0;
        config.maxPinDistance = 0.01f;
        config.minThresholdsEnabled = place == 3;
        return Interactable(velk_PokeInteractable_CreateWithConfig(patch, &config));
    }

    Cap makeCap(unsigned place) const
    {
        const talpPosef base{kFacingUp, kPatches[place]};
        return Cap(velk_PokeButtonVisual_Create(targets_[place].interactable, &base, kCapTravel));
    }

    Limiter makeLimiter() const
    {
        return Limiter(velk_HandPokeLimiterVisual_Create(chain_[0], fingers_[0].interactor, chain_[2]));
    }

    const Motion& hand_;
    std::vector<Target<Patch>> targets_;
    std::vector<Cap> caps_;
    std::vector<Actor> fingers_;
    std::vector<Hand> chain_; // from the inside out
    std::vector<Limiter> limiter_;
};

/// Counts what starts, and checks that changes are told when they happen. `api` stands for the functions.
template <auto IsGrabbing, auto HasChanged, auto GetScore>
void readFingers(auto api, std::array<bool, 5>& before, What starts)
{
    for (unsigned i = 0; i < before.size(); ++i) {
        const auto finger = static_cast<VelkHandFinger>(i);
        bool now = false, started = false, ended = false;
        float score = -1;
        check(IsGrabbing(api, finger, &now) == 0 && HasChanged(api, finger, true, &started) == 0 &&
                  HasChanged(api, finger, false, &ended) == 0 && GetScore(api, finger, &score) == 0,
              "fingers can be read");
        check(started == (now && !before[i]) && ended == (before[i] && !now), "changes are told");
        check(score >= 0 && score <= 1, "scores lie between 0 and 1");
        counts[starts] += started;
        before[i] = now;
    }
}

/// Grips and directions, and what is left.
class Recognizers
{
public:
    Recognizers(const Motion& pinching, const Motion& gripping)
        : pinching_(pinching)
        , gripping_(gripping)
    {
    }

    void frame()
    {
        const talpVector3f ahead{0, 0, -1};
        velk_FingerPinchGrabAPI_UpdateHandWristHMDData(pinch_, &pinching_.now().pinch, &ahead, &ahead);
        velk_FingerPalmGrabAPI_UpdateHandData(palm_, &gripping_.now().palm);
        readFingers<velk_FingerPinchGrabAPI_GetFingerIsGrabbing,
                    velk_FingerPinchGrabAPI_GetFingerIsGrabbingChanged,
                    velk_FingerPinchGrabAPI_GetFingerGrabScore>(pinch_.get(), pinches_, Pinches);
        readFingers<velk_FingerPalmGrabAPI_GetFingerIsGrabbing,
                    velk_FingerPalmGrabAPI_GetFingerIsGrabbingChanged,
                    velk_FingerPalmGrabAPI_GetFingerGrabScore>(palm_.get(), grips_, PalmGrips);

        const talpVector3f direction{swing(211), swing(503), 0.2f};
        velk_DetectionParameter wish{0, VelkDirectionAlignment_Close};
        velk_DetectionParameterList wishes{1, &wish};
        int label = VelkDirectionAlignment_None;
        bool active = false;
        check(velk_DirectionQuantizer_Update(quantizer_, &direction) == 0 &&
                  velk_DirectionQuantizer_GetValue(quantizer_, 0, &label) == 0 &&
                  velk_DirectionRecognizer_Update(recognizer_, quantizer_, &wishes) == 0 &&
                  velk_DirectionRecognizer_IsActive(recognizer_, &active) == 0 &&
                  active == (label == VelkDirectionAlignment_Close),
              "directions are labelled and recognised");
        counts[Recognitions] += active && !active_;
        active_ = active;

        check(velk_BoxProximityField_SetPose(field_, &pinching_.now().hand.rootPose) == 0,
              "fields can be moved");
        if (frameNumber % (kRound / 2) == 0) {
            velk_SetNativeLogCallback([](const char*, int, int) { ++counts[LogMessages]; });
            velk_SetNativeLogCallback(nullptr);
            velk_Telemetry_SendTestData();
        }
    }

    void replaceOne()
    {
        switch (randomBelow(5)) {
        case 0:
            pinch_ = Pinch(velk_FingerPinchGrabAPI_Create());
            pinches_ = {};
            break;
        case 1:
            palm_ = Palm(velk_FingerPalmGrabAPI_Create());
            grips_ = {};
            break;
        case 2:
            quantizer_ = makeQuantizer();
            break;
        case 3:
            recognizer_ = Recognizer(velk_DirectionRecognizer_Create());
            break;
        default:
            field_ = makeField();
        }
    }

private:
    static Quantizer makeQuantizer()
    {
        talpVector3f up{0, 1, 0};
        return Quantizer(velk_DirectionQuantizer_Create(&up, 30, 60));
    }

    static Field makeField()
    {
        const talpPosef pose{kUnturned, {}};
        return Field(velk_BoxProximityField_Create(&pose, &pose.position));
    }

    const Motion& pinching_;
    const Motion& gripping_;
    Pinch pinch_{velk_FingerPinchGrabAPI_Create()};
    Palm palm_{velk_FingerPalmGrabAPI_Create()};
    Quantizer quantizer_ = makeQuantizer();
    Recognizer recognizer_{velk_DirectionRecognizer_Create()};
    Field field_ = makeField();
    std::array<bool, 5> pinches_{};
    std::array<bool, 5> grips_{};
    bool active_ = false;
};

struct Memory
{
    long heap;     // bytes in use
    long resident; // kilobytes
};

Memory measure()
{
    const auto heap = mallinfo2();
    long pages = 0, residentPages = 0;
    std::ifstream("/proc/self/statm") >> pages >> residentPages;
    return {static_cast<long>(heap.uordblks + heap.hblkhd), residentPages * (sysconf(_SC_PAGESIZE) / 1024)};
}

} // namespace

int main(int argc, char** argv)
{
    const long frames = argc > 1 ? std::atol(argv[1]) / (10 * kRound) * 10 * kRound : 0;
    if (frames <= 0) {
        std::fputs("usage: velk-soak FRAMES    a multiple of 10000\n", stderr);
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ); // each line as it comes, in files too
    const Motion tapping("tap_110hz.csv");
    const Motion pinching("pinch_57hz.csv");
    const Motion gripping("fist_54hz.csv");

    std::puts("  frames  objects made  bytes in use  resident kB  frames a second of processor time");
    Memory first{}, last{};
    while (frameNumber < frames) {
        const std::clock_t start = std::clock();
        for (const long end = frameNumber + frames / 10; frameNumber < end;) {
            Rays rays;
            Touch touch(tapping);
            Recognizers recognizers(pinching, gripping);
            for (long i = 0; i < kRound; ++i, ++frameNumber) {
                for (int k = 0; i >= kRound / 2 && k < kReplacements; ++k) {
                    const unsigned part = randomBelow(3);
                    part == 0 ? rays.replaceOne() : part == 1 ? touch.replaceOne() : recognizers.replaceOne();
                }
                rays.frame();
                touch.frame();
                recognizers.frame();
            }
        }
        last = measure();
        first = frameNumber == frames / 10 ? last : first;
        std::printf("%8ld %13ld %13ld %12ld %8.0f\n", frameNumber, created, last.heap, last.resident,
                    static_cast<double>(frames / 10) * CLOCKS_PER_SEC /
                        static_cast<double>(std::clock() - start));
    }

    for (std::size_t i = 0; i < counts.size(); ++i) {
        std::printf("%s%ld %s", i == 0 ? "" : ", ", counts[i], kNames[i]);
    }
    std::printf("\nheap grew by %ld bytes (at most %ld), resident memory by %ld kB (at most %ld from %ld "
                "frames on)\n",
                last.heap - first.heap, kHeapGrowth, last.resident - first.resident, kResidentGrowth,
                kLongRun);
    check(*std::ranges::min_element(counts) >= frames / 1000,
          "each of these happens at least once in 1000 frames");
    check(last.heap - first.heap <= kHeapGrowth, "the heap stays flat");
    check(frames < kLongRun || last.resident - first.resident <= kResidentGrowth,
          "resident memory stays flat");
    return 0;
}
