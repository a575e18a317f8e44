// Copyright (c) the velk developers
// SPDX-License-Identifier: Apache-2.0
#include "Worlds.h"

#include <btBulletCollisionCommon.h>

#include <deque>
#include <limits>

namespace velk::compare
{

namespace
{

constexpr float kReach = 10.0f;      // metres, of rays
constexpr float kPokeRadius = 0.06f; // metres, of the sphere in whose reach a key must be

btTransform toBullet(const talpPosef& pose)
{
    const auto& [q, p] = pose;
    return btTransform(btQuaternion(q.x, q.y, q.z, q.w), btVector3(p.x, p.y, p.z));
}

struct DeepestContact : btCollisionWorld::ContactResultCallback
{
    btScalar addSingleResult(btManifoldPoint& point, const btCollisionObjectWrapper*, int, int,
                             const btCollisionObjectWrapper* other, int, int) override
    {
        if (point.getDistance() < distance) {
            distance = point.getDistance();
            number = other->getCollisionObject()->getUserIndex();
        }
        return 0.0f;
    }
    float distance = std::numeric_limits<float>::max();
    int number = -1;
};

class Bullet
{
public:
    Bullet(Kind kind, SharedScene scene)
        : kind_(kind)
        , scene_(std::move(scene))
        , dispatcher_(&configuration_)
        , broadphase_(&noPairs_)
        , world_(&dispatcher_, &broadphase_, &configuration_)
        , box_(btVector3(scene_->half.x, scene_->half.y, 0.0f))
        , sphere_(kPokeRadius)
    {
        box_.setMargin(0.0f);
        fingertip_.setCollisionShape(&sphere_);
        world_.setForceUpdateAllAabbs(false);
        for (const talpPosef& pose : scene_->poses) {
            btCollisionObject& object = objects_.emplace_back();
            object.setCollisionShape(&box_);
            object.setWorldTransform(toBullet(pose));
            object.setUserIndex(static_cast<int>(objects_.size()) - 1);
            world_.addCollisionObject(&object);
        }
        broadphase_.optimize();
    }
    Bullet(const Bullet&) = delete;
    Bullet& operator=(const Bullet&) = delete;
    ~Bullet()
    {
        for (btCollisionObject& object : objects_) {
            world_.removeCollisionObject(&object);
        }
    }

    void frame(int frame, Answers* answers)
    {
        if (scene_->movesEvery != 0) {
            for (std::size_t i = 0; i < objects_.size(); i += scene_->movesEvery) {
                objects_[i].setWorldTransform(toBullet(scene_->poseAt(i, frame)));
                world_.updateSingleAabb(&objects_[i]);
            }
        }
        for (std::size_t i = 0; i < scene_->pointers.size(); ++i) {
            const btTransform at = toBullet(scene_->pointerAt(i, frame));
            const int found = kind_ == Kind::Ray ? hit(at) : nearest(at);
            if (answers != nullptr) {
                answers->push_back(found);
            }
        }
    }

private:
    int hit(const btTransform& from) const
    {
        const btVector3 end = from * btVector3(0.0f, 0.0f, -kReach);
        btCollisionWorld::ClosestRayResultCallback result(from.getOrigin(), end);
        world_.rayTest(from.getOrigin(), end, result);
        return result.hasHit() ? result.m_collisionObject->getUserIndex() : -1;
    }
    int nearest(const btTransform& at)
    {
        fingertip_.setWorldTransform(at);
        DeepestContact result;
        world_.contactTest(&fingertip_, result);
        return result.number;
    }

    Kind kind_;
    SharedScene scene_;
    btDefaultCollisionConfiguration configuration_;
    btCollisionDispatcher dispatcher_;
    btNullPairCache noPairs_; // of boxes that touch each other
    btDbvtBroadphase broadphase_;
    btCollisionWorld world_;
    btBoxShape box_;
    btSphereShape sphere_;
    btCollisionObject fingertip_;
    std::deque<btCollisionObject> objects_;
};

} // namespace

Contestant bulletQueries(Kind kind, const SharedScene& scene)
{
    const auto bullet = std::make_shared<Bullet>(kind, scene);
    Contestant made = contestant("Bullet", [bullet](int frame) { bullet->frame(frame, nullptr); });
    made.answer = [bullet](int frame, Answers& answers) { bullet->frame(frame, &answers); };
    return made;
}

} // namespace velk::compare
