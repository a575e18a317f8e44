// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Worlds.h"

#include <embree3/rtcore.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace velk::compare
{

namespace
{

constexpr float kReach = 10.0f;        // metres, of rays
constexpr float kPokeDistance = 0.06f; // metres, of points

class Embree
{
public:
    Embree(Kind kind, SharedScene scene, bool rebuilds)
        : kind_(kind)
        , shown_(std::move(scene))
        , device_(rtcNewDevice("threads=1"))
        , scene_(rtcNewScene(device_))
        , quads_(rtcNewGeometry(device_, RTC_GEOMETRY_TYPE_QUAD))
    {
        const std::size_t count = shown_->poses.size();
        const bool moves = shown_->movesEvery != 0;
        rtcSetSceneFlags(scene_, moves ? RTC_SCENE_FLAG_DYNAMIC : RTC_SCENE_FLAG_NONE);
        rtcSetSceneBuildQuality(scene_, moves ? RTC_BUILD_QUALITY_LOW : RTC_BUILD_QUALITY_HIGH);
        if (moves) {
            rtcSetGeometryBuildQuality(quads_, rebuilds ? RTC_BUILD_QUALITY_LOW : RTC_BUILD_QUALITY_REFIT);
        }
        corners_ = static_cast<float*>(rtcSetNewGeometryBuffer(
            quads_, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), 4 * count));
        auto* indices = static_cast<unsigned*>(rtcSetNewGeometryBuffer(
            quads_, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT4, 4 * sizeof(unsigned), count));
        for (unsigned i = 0; i < 4 * count; ++i) {
            indices[i] = i;
        }
        rectangles_.resize(count);
        for (std::size_t i = 0; i < count; ++i) {
            turn(i, shown_->poses[i]);
            place(i, shown_->poses[i]);
        }
        rtcCommitGeometry(quads_);
        rtcAttachGeometry(scene_, quads_);
        rtcCommitScene(scene_);
        for (const Path& path : shown_->pointers) {
            auto& directions = directions_.emplace_back();
            for (const talpPosef& pose : path) {
                directions.push_back(rotationOf(pose).Rotate(Vector3f(0.0f, 0.0f, -1.0f)));
            }
        }
        if (rtcGetDeviceError(device_) != RTC_ERROR_NONE) {
            throw std::runtime_error("Embree complains");
        }
    }
    Embree(const Embree&) = delete;
    Embree& operator=(const Embree&) = delete;
    ~Embree()
    {
        rtcReleaseGeometry(quads_);
        rtcReleaseScene(scene_);
        rtcReleaseDevice(device_);
    }

    void frame(int frame, Answers* answers)
    {
        if (shown_->movesEvery != 0) {
            move(frame);
        }
        for (std::size_t i = 0; i < shown_->pointers.size(); ++i) {
            const unsigned found = kind_ == Kind::Ray ? hit(i, frame) : nearest(i, frame);
            if (answers != nullptr) {
                answers->push_back(static_cast<int>(found));
            }
        }
    }

private:
    struct Rectangle
    {
        Vector3f middle;
        Vector3f right; ///< From the middle to the edge.
        Vector3f up;
    };
    struct Nearest
    {
        const Embree* self;
        unsigned number;
    };

    static Quatf rotationOf(const talpPosef& pose)
    {
        const talpQuatf& q = pose.orientation;
        return {q.x, q.y, q.z, q.w};
    }
    void turn(std::size_t i, const talpPosef& pose)
    {
        const Quatf rotation = rotationOf(pose);
        rectangles_[i].right = rotation.Rotate(Vector3f(shown_->half.x, 0.0f, 0.0f));
        rectangles_[i].up = rotation.Rotate(Vector3f(0.0f, shown_->half.y, 0.0f));
    }
    void place(std::size_t i, const talpPosef& pose)
    {
        Rectangle& r = rectangles_[i];
        r.middle = {pose.position.x, pose.position.y, pose.position.z};
        float* to = corners_ + 12 * i;
        for (const Vector3f& corner : {r.middle - r.right - r.up, r.middle + r.right - r.up,
                                       r.middle + r.right + r.up, r.middle - r.right + r.up}) {
            *to++ = corner.x;
            *to++ = corner.y;
            *to++ = corner.z;
        }
    }
    void move(int frame)
    {
        for (std::size_t i = 0; i < rectangles_.size(); i += shown_->movesEvery) {
            const talpPosef pose = shown_->poseAt(i, frame);
            if (!shown_->board.empty()) {
                turn(i, pose);
            }
            place(i, pose);
        }
        rtcUpdateGeometryBuffer(quads_, RTC_BUFFER_TYPE_VERTEX, 0);
        rtcCommitGeometry(quads_);
        rtcCommitScene(scene_);
    }

    unsigned hit(std::size_t pointer, int frame) const
    {
        const talpVector3f& from = shown_->pointerAt(pointer, frame).position;
        const auto& directions = directions_[pointer];
        const Vector3f& way = directions[static_cast<std::size_t>(frame) % directions.size()];
        RTCRayHit query{};
        query.ray = {from.x, from.y, from.z, 0.0f, way.x, way.y, way.z, 0.0f, kReach, 0xFFFFFFFF, 0, 0};
        query.hit.geomID = RTC_INVALID_GEOMETRY_ID;
        query.hit.primID = RTC_INVALID_GEOMETRY_ID;
        RTCIntersectContext context;
        rtcInitIntersectContext(&context);
        rtcIntersect1(scene_, &context, &query);
        return query.hit.primID;
    }
    unsigned nearest(std::size_t pointer, int frame) const
    {
        const talpVector3f& at = shown_->pointerAt(pointer, frame).position;
        RTCPointQuery query{at.x, at.y, at.z, 0.0f, kPokeDistance};
        RTCPointQueryContext context;
        rtcInitPointQueryContext(&context);
        Nearest nearest{this, RTC_INVALID_GEOMETRY_ID};
        rtcPointQuery(scene_, &query, &context, comeNearer, &nearest);
        return nearest.number;
    }
    static bool comeNearer(RTCPointQueryFunctionArguments* arguments)
    {
        auto& nearest = *static_cast<Nearest*>(arguments->userPtr);
        RTCPointQuery& query = *arguments->query;
        const Rectangle& r = nearest.self->rectangles_[arguments->primID];
        const Vector3f offset = Vector3f(query.x, query.y, query.z) - r.middle;
        const float x = std::clamp(offset.Dot(r.right) / r.right.Dot(r.right), -1.0f, 1.0f);
        const float y = std::clamp(offset.Dot(r.up) / r.up.Dot(r.up), -1.0f, 1.0f);
        const float distance = (offset - r.right * x - r.up * y).Length();
        if (distance >= query.radius) {
            return false;
        }
        query.radius = distance;
        nearest.number = arguments->primID;
        return true;
    }

    Kind kind_;
    SharedScene shown_;
    RTCDevice device_;
    RTCScene scene_;
    RTCGeometry quads_;
    float* corners_ = nullptr;
    std::vector<Rectangle> rectangles_;
    std::vector<std::vector<Vector3f>> directions_;
};

} // namespace

Contestant embreeQueries(std::string name, Kind kind, const SharedScene& scene, bool rebuilds)
{
    const auto embree = std::make_shared<Embree>(kind, scene, rebuilds);
    Contestant made = contestant(std::move(name), [embree](int frame) { embree->frame(frame, nullptr); });
    made.answer = [embree](int frame, Answers& answers) { embree->frame(frame, &answers); };
    return made;
}

} // namespace velk::compare
