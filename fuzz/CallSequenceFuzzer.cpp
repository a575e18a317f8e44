// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0

// Turns bytes into calls of all exported functions. The first byte says in which order what is left at the
// end is destroyed; then each call is the place of its function in the list of exports, and its arguments.
#include "fuzz/AllocationFaults.h"
#include "fuzz/ByteReader.h"
#include "fuzz/FuzzTarget.h"
#include "velk_capi/detail/VelkInteractable.h"
#include "velk_core/interaction/search/SurfaceIndex.h"
#include "velk_telemetry/detail/Telemetry.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>
#include <vector>

namespace velk_fuzz
{

extern float manualSeconds;

namespace
{

using Name = std::string_view;

/// What the input has made.
struct Object
{
    int32_t handle;
    Name kind;           // the part of the interface that made it
    uint64_t number;     // counts all objects
    bool hollow = false; // an interactable without a surface
    int meeting = 0;     // interactors that say they are on it
    int selecting = 0;   // those of them that are in Select
};

struct Family
{
    std::vector<Object> live;
    std::vector<int32_t> dead = {-1}; // the last few destroyed; -1 never lived
};
template <typename Handle>
Family family;
int32_t newest = -1; // the handle given out last, whichever its family

template <typename T>
constexpr bool kIsHandle = std::is_enum_v<T> && !std::is_same_v<T, VelkHandFinger> &&
                           !std::is_same_v<T, VelkDataSourceType> && !std::is_same_v<T, VelkDataModifierType>;
template <typename T>
constexpr bool kIsRecord = std::is_pointer_v<T> && !std::is_same_v<T, VelkPayload*>;

template <typename T>
struct Argument
{
    using Record = std::conditional_t<kIsRecord<T>, std::remove_const_t<std::remove_pointer_t<T>>, char>;
    T given{};
    Record record{};
};

constexpr uint8_t kCanary = 1;             // also a valid bool
constexpr std::size_t kMostOfAFamily = 10; // live at a time
constexpr std::size_t kDeadKept = 16;      // of a family

template <std::size_t kCount>
bool endsWithOneOf(Name name, const std::array<Name, kCount>& ends)
{
    return std::any_of(ends.begin(), ends.end(), [name](Name end) { return name.ends_with(end); });
}

/// Functions that may say no though their handles and pointers are good: the account doesn't hold why.
constexpr std::array<Name, 7> kMayRefuse{"GetPayload",        "SetAttributeFloat", "Quantizer_GetValue",
                                         "DataSource_Create", "Modifier_Create",   "Visual_Create",
                                         "Recognizer_Update"};

/// Functions that say no to null pointers, and those that do without. The others are never given one.
constexpr std::array<Name, 11> kRefusesNull{
    "GetPayload",    "Quantizer_GetValue", "ButtonVisual_Create", "DefaultConfig", "UpdateBasePose",
    "CurrentExtent", "CurrentPose",        "Source_SetData",      "SetCentroid",   "Quantizer_Update",
    "IsActive"};
constexpr std::array<Name, 7> kTakesNull{"Plane_Create",       "Box_Create",       "SetBounds",
                                         "SetCentroidAndSize", "CreateWithConfig", "WristHMDData",
                                         "Quantizer_Create"};

/// The kind that a function's first handle must have; empty for any.
Name kindFor(Name name)
{
    constexpr std::array<Name, 6> kMixed{"Interactor",   "Interactable", "PointableSurface",
                                         "SurfacePatch", "DataSource",   "ProximityField"};
    if (name.ends_with("Surface_SetPose")) {
        return name == "velk_PointableSurface_SetPose" ? "PointablePlane" : "none";
    }
    const Name part = name.substr(5, name.find('_', 5) - 5);
    const bool any =
        name.find("_Create") != Name::npos || std::find(kMixed.begin(), kMixed.end(), part) != kMixed.end();
    return any ? Name() : part;
}

/// Calls the library with what a reader holds, keeps account of the objects that there are, and ends the
/// process when an answer is not the one that follows from the account.
class CallWorld
{
public:
    CallWorld(std::string_view bytes, bool echo)
        : reader(bytes, echo)
    {
        velk_PokeInteractable_GetDefaultConfig(&std::get<velk_PokeInteractableConfig>(records_));
    }

    /// Where memory may end: what that leaves must be sound, and the same call works when there is some
    /// again.
    template <typename LibraryCall>
    auto attempt(Name name, const LibraryCall& libraryCall)
    {
        return callWithFaults(name, libraryCall, [this, name] {
            expect(!name.ends_with("_Destroy"),
                   "memory that ends does not keep anything from being destroyed");
            checkAgreement();
        });
    }

    template <typename Result, typename... Types>
    void call(Name name, Result (*function)(Types...))
    {
        picked.clear();
        std::tuple<Argument<Types>...> arguments;
        bool accepted = true;
        std::apply([&](auto&... each) { ((accepted = fill<Result>(name, each) && accepted), ...); },
                   arguments);
        if (isForbidden(name) || family<Result>.live.size() == kMostOfAFamily) {
            return;
        }
        const Result result = attempt(name, [&] {
            return std::apply([function](const auto&... each) { return function(each.given...); }, arguments);
        });
        if constexpr (kIsHandle<Result>) {
            enter(name, result, accepted);
        } else {
            answer(name, result, accepted);
            std::apply([&](const auto&... each) { (check(name, each, result == 0), ...); }, arguments);
        }
        if (name.ends_with("_Destroy") && accepted) {
            Family& all = *picked[0].family;
            all.dead.insert(all.dead.begin(), picked[0].object->handle);
            all.dead.resize(std::min(all.dead.size(), kDeadKept));
            std::erase_if(all.live, [&](const Object& each) { return &each == picked[0].object; });
        }
        if constexpr (!kIsHandle<Result> && ((sizeof...(Types) > 0) && ... && kIsHandle<Types>)) {
            for (const int32_t dead : picked[0].family->dead) {
                expect(function(static_cast<Types>(dead)...) < 0, "the dead stay dead");
            }
        }
        if (name.ends_with("_SetSurface") && accepted) {
            picked[0].object->hollow = picked[1].object == nullptr;
        }
    }

    void call(Name name, VelkInteractableHandle (*getInteractable)(VelkInteractorHandle))
    {
        picked.clear();
        const auto interactor = pick<VelkInteractorHandle>();
        const Object* met = find(attempt(name, [&] { return getInteractable(interactor); }));
        expect(met == nullptr || picked[0].object != nullptr, "the dead meet nobody");
    }

    void call(Name name, VelkSurfacePatchHandle (*create)(const talpPosef*, const velk_BoundsClipper*, int))
    {
        talpPosef pose;
        reader.read(pose);
        const uint8_t code = reader.byte();
        if (code >= 0xFC) {
            bool thrown = false;
            try {
                create(&pose, nullptr, code % 2 == 0 ? -1 : std::numeric_limits<int>::min());
            } catch (const std::length_error&) {
                thrown = true;
            }
            expect(thrown, "a negative count is a length error");
            return;
        }
        std::vector<velk_BoundsClipper> clippers(code % 4);
        std::for_each(clippers.begin(), clippers.end(), [this](auto& each) { reader.read(each); });
        if (family<VelkSurfacePatchHandle>.live.size() < kMostOfAFamily) {
            const int count = static_cast<int>(clippers.size());
            enter(name, attempt(name, [&] { return create(&pose, clippers.data(), count); }), true);
        }
    }

    void call(Name name, decltype(&velk_DirectionRecognizer_Update) update)
    {
        picked.clear();
        const auto recognizer = pick<VelkDirectionRecognizerHandle>();
        const auto quantizer = pick<VelkDirectionQuantizerHandle>();
        std::vector<velk_DetectionParameter> wishes(reader.byte() % 4);
        std::for_each(wishes.begin(), wishes.end(), [this](auto& each) { reader.read(each); });
        velk_DetectionParameterList list = {static_cast<int32_t>(wishes.size()), wishes.data()};
        velk_DetectionParameterList* const given = isNull() ? nullptr : &list;
        answer(name, attempt(name, [&] { return update(recognizer, quantizer, given); }),
               picked[0].object != nullptr && picked[1].object != nullptr);
    }

    void call(Name name, decltype(&velk_SetNativeLogCallback) setCallback)
    {
        void (*const log)(const char*, int, int) = [](const char* message, int, int length) {
            expect(Name(message).size() == static_cast<std::size_t>(length), "the length is the message's");
        };
        const auto callback = isNull() ? nullptr : log;
        attempt(name, [&] {
            setCallback(callback);
            return 0;
        });
    }

    /// Frame after frame, as a hand or a controller moves: bytes alone would seldom find that.
    void glide()
    {
        picked.clear();
        const auto handle = pick<VelkInteractorHandle>();
        talpPosef pose;
        talpVector3f step;
        reader.read(pose);
        reader.read(step);
        for (int frames = reader.byte() % 8; frames >= 0 && !isForbidden("_Interactor_Update"); --frames) {
            velk_RayInteractor_SetPose(handle, &pose);
            velk_PokeInteractor_SetPointTransform(handle, &pose);
            answer("", attempt("velk_Interactor_Update", [&] { return velk_Interactor_Update(handle); }),
                   picked[0].object != nullptr);
            checkAgreement();
            auto& [x, y, z] = pose.position;
            pose.position = {x + step.x, y + step.y, z + step.z};
        }
    }

    /// Those who come when all have gone meet nothing of them. Without this the next input would.
    static void visitEmptyWorld()
    {
        const talpPosef pose = {{0, 0, 0, 1}, {0, 0, 0}};
        const auto surface = velk_PointablePlane_Create(&pose, nullptr);
        const auto patch = velk_ClippedPlaneSurface_Create(&pose, nullptr, 0);
        const std::array visitors{velk_RayInteractor_Create(), velk_PokeInteractor_Create()};
        const std::array visited{velk_RayInteractable_Create(surface), velk_PokeInteractable_Create(patch)};
        std::for_each(visitors.begin(), visitors.end(), velk_Interactor_Update);
        std::for_each(visited.begin(), visited.end(), velk_Interactable_Destroy);
        std::for_each(visitors.begin(), visitors.end(), velk_Interactor_Update);
        std::for_each(visitors.begin(), visitors.end(), velk_Interactor_Destroy);
        velk_SurfacePatch_Destroy(patch);
        velk_PointableSurface_Destroy(surface);
    }

    /// What the two sides say of each other.
    void checkAgreement()
    {
        for (const Object& object : family<VelkInteractorHandle>.live) {
            const auto interactor = static_cast<VelkInteractorHandle>(object.handle);
            VelkInteractorState state = VelkInteractorState_Disabled;
            velk_Interactor_GetState(interactor, &state);
            Object* met = find(velk_Interactor_GetInteractable(interactor));
            expect(state >= 0 && state < VelkInteractorState_Disabled, "live interactors are enabled");
            expect(state != VelkInteractorState_Normal || met == nullptr, "Normal has no interactable");
            if (met != nullptr) {
                met->meeting += 1;
                met->selecting += state == VelkInteractorState_Select ? 1 : 0;
            }
            digest((met != nullptr ? met->number : 0) * 4 + static_cast<uint64_t>(state));
        }
        for (Object& object : family<VelkInteractableHandle>.live) {
            const auto interactable = static_cast<VelkInteractableHandle>(object.handle);
            VelkInteractableState state = VelkInteractableState_Disabled;
            velk_Interactable_GetState(interactable, &state);
            const int highest = object.selecting > 0 ? 2 : (object.meeting > 0 ? 1 : 0);
            expect(state == highest, "an interactable's state is the highest of those on it");
            const auto inside = velk::capi::interactable::getPtr(interactable);
            expect(inside->getInteractorsCount() == std::exchange(object.meeting, 0) &&
                       inside->getSelectingInteractorsCount() == std::exchange(object.selecting, 0),
                   "all that are on it say so");
        }
    }

    struct Pick
    {
        Family* family;
        Object* object; // null for a handle without one
    };

    ByteReader reader;
    std::vector<Pick> picked; // by the present call
    uint64_t digested = 0;

private:
    /// Mostly a live handle, if there is one.
    template <typename Handle>
    Handle pick()
    {
        Family& all = family<Handle>;
        const uint8_t code = reader.byte();
        picked.push_back({&all, nullptr});
        if (code < 0xE0 && !all.live.empty()) {
            picked.back().object = &all.live[code % all.live.size()];
            return static_cast<Handle>(picked.back().object->handle);
        }
        // Else one that is dead, one of another family, or a number beyond all that are ever issued here.
        if (code >= 0xF8) {
            return static_cast<Handle>(reader.raw<int32_t>() | 0x40000000);
        }
        const bool isForeign =
            code >= 0xF0 && std::none_of(all.live.begin(), all.live.end(),
                                         [](const Object& each) { return each.handle == newest; });
        return static_cast<Handle>(isForeign ? newest : all.dead[code % all.dead.size()]);
    }

    Object* find(VelkInteractableHandle met)
    {
        auto& live = family<VelkInteractableHandle>.live;
        const auto found =
            std::find_if(live.begin(), live.end(), [met](const Object& each) { return each.handle == met; });
        expect(found != live.end() || met == -1, "only live interactables are met");
        return found == live.end() ? nullptr : &*found;
    }

    bool isNull() { return (reader.byte() & 7) == 7; }

    /// Makes an argument. False when it lets the call fail.
    template <typename Result, typename T>
    bool fill(Name name, Argument<T>& argument)
    {
        using Record = typename Argument<T>::Record;
        if constexpr (kIsHandle<T>) {
            // Setters take any other handle, and limiters any at all.
            const bool isTested = picked.empty() || name.find("_Set") == Name::npos;
            const Name kind = picked.empty() ? kindFor(name) : Name();
            argument.given = pick<T>();
            const Object* object = picked.back().object;
            return !isTested || name.ends_with("LimiterVisual_Create") ||
                   (object != nullptr && (kind.empty() || kind == object->kind));
        } else if constexpr (kIsRecord<T>) {
            if constexpr (kIsHandle<Result> || std::is_const_v<std::remove_pointer_t<T>>) {
                reader.read(std::get<Record>(records_));
                argument.record = std::get<Record>(records_);
            } else {
                std::memset(static_cast<void*>(&argument.record), kCanary, sizeof(Record));
            }
            const bool refusesNull = endsWithOneOf(name, kRefusesNull);
            const bool takesNull =
                endsWithOneOf(name, kTakesNull) && !std::is_same_v<Record, velk_HandPinchData>;
            argument.given = (refusesNull || takesNull) && isNull() ? nullptr : &argument.record;
            return argument.given != nullptr || takesNull;
        } else if constexpr (std::is_same_v<T, VelkPayload*>) {
            argument.given = reinterpret_cast<T>(uintptr_t{reader.byte()});
            return argument.given != nullptr;
        } else if constexpr (std::is_same_v<T, float>) {
            argument.given = reader.number();
        } else {
            type_ = reader.word();
            argument.given = static_cast<T>(type_);
        }
        return true;
    }

    /// While an interactable has no surface, nothing that would ask for it may be called.
    bool isForbidden(Name name)
    {
        const bool isUpdate = name.ends_with("_Interactor_Update") && picked[0].object != nullptr;
        manualSeconds += isUpdate ? 0.011f : 0.0f;
        const bool isRay = isUpdate && picked[0].object->kind == "RayInteractor";
        const auto& all = family<VelkInteractableHandle>.live;
        return (isUpdate || name.ends_with("ButtonVisual_Create") || name.ends_with("UpdateBasePose")) &&
               std::any_of(all.begin(), all.end(), [isRay](const Object& each) {
                   return each.hollow && each.kind == (isRay ? "RayInteractable" : "PokeInteractable");
               });
    }

    void answer(Name name, int32_t result, bool accepted)
    {
        expect(result == 0 ? accepted : result < 0 && (!accepted || endsWithOneOf(name, kMayRefuse)),
               "the answer follows from what there is");
        digest(static_cast<uint64_t>(result));
    }

    template <typename T>
    void check(Name name, const Argument<T>& argument, bool succeeded)
    {
        if constexpr (kIsRecord<T> && !std::is_const_v<std::remove_pointer_t<T>>) {
            for (std::size_t i = 0; i < sizeof(argument.record); ++i) {
                const uint8_t byte = reinterpret_cast<const uint8_t*>(&argument.record)[i];
                expect(succeeded || byte == kCanary, "a refused call stores nothing");
                digest(byte);
            }
        }
        if constexpr (std::is_same_v<T, float*>) {
            const bool isScore = name.ends_with("Score") && succeeded;
            expect(!isScore || !(argument.record < 0 || argument.record > 1),
                   "scores are from 0 to 1, or NaN");
        }
    }

    template <typename Handle>
    void enter(Name name, Handle handle, bool accepted)
    {
        static int32_t last = -1;
        expect(handle > last ? accepted : handle < 0 && (!accepted || endsWithOneOf(name, kMayRefuse)),
               "a new handle, or none");
        if (handle >= 0) {
            last = handle;
            newest = handle;
            const Name part = name.substr(5, name.find('_', 5) - 5);
            const bool isExternal = part == "DataSource" && type_ == VelkDataSourceType_External;
            family<Handle>.live.push_back({handle, isExternal ? "ExternalHandSource" : part, ++objects_});
        }
    }

    void digest(uint64_t value) { digested = (digested ^ value) * 0x100000001B3u; }

    /// Those given last: the next are edits of them.
    std::tuple<talpVector2f, talpVector3f, talpPosef, velk_HandData, velk_HandPinchData, velk_HandPalmData,
               velk_PokeInteractableConfig>
        records_{};
    int32_t type_ = 0; // the number given last
    uint64_t objects_ = 0;
};

struct Call
{
    const char* name;
    void (*make)(CallWorld& world);
};

#define VELK_CALL(function) {#function, [](CallWorld& world) { world.call(#function, function); }},
constexpr Call kCalls[] = {
#include "VelkCalls.inc"
    {"glide", [](CallWorld& world) { world.glide(); }},
    {"wait", [](CallWorld& world) { manualSeconds += 0.004f * static_cast<float>(world.reader.byte()); }},
};

} // namespace

uint64_t runInput(std::string_view bytes, Run run)
{
    const bool echo = run == Run::Echo;
    velk::interaction::search::SurfaceIndex::setScansAll(run == Run::Reference);
    velk::telemetry::disableSendingThread();
    manualSeconds = 0;
    CallWorld world(bytes, echo);
    const std::size_t order = world.reader.byte();
    while (!world.reader.atEnd()) {
        const Call& call = kCalls[world.reader.byte(false) % std::size(kCalls)];
        std::fputs(echo ? (std::string("\n") + call.name).c_str() : "", stdout);
        call.make(world);
        world.checkAgreement();
    }
    constexpr std::size_t kCount = std::size(kCalls);
    for (std::size_t i = 0; i < kCount; ++i) {
        const Call& end = kCalls[(order + (order % 2 == 0 ? i : kCount - i)) % kCount];
        while (Name(end.name).ends_with("_Destroy")) {
            end.make(world);
            world.checkAgreement();
            if (world.picked[0].object == nullptr) {
                break;
            }
        }
    }
    CallWorld::visitEmptyWorld();
    velk_SetNativeLogCallback(nullptr);
    return world.digested;
}

std::string decodeFile(const std::string& name, std::string content)
{
    if (!name.ends_with(".calls")) {
        return content;
    }
    std::istringstream words(content);
    std::string bytes;
    for (std::string word; words >> word;) {
        const auto* const call = std::find_if(std::begin(kCalls), std::end(kCalls),
                                              [&](const Call& each) { return each.name == word; });
        bytes += static_cast<char>(call != std::end(kCalls) ? call - kCalls : std::stoi(word, nullptr, 16));
    }
    return bytes;
}

} // namespace velk_fuzz
