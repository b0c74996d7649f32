// The sample's world: a car park hall with marked bays, pillars, beams, doors, landmarks, parked and
// moving cars and a walking figure. Says which colour a line of sight ends in.
#pragma once

#include <vector>

#include "sample/Traffic.h"

namespace fovix_host {

class CarPark {
  public:
    CarPark();

    // Shows the hall with its traffic at a frame, or without any that moves.
    void showTraffic(int frame);
    void hideTraffic();

    // The colour seen along a ray that starts inside the hall, each part from 0 to 255.
    Vec3 look(const Ray& ray) const;

    // Around everything that moves in this frame, shadows included.
    std::vector<Sphere> movingParts() const;
    // Whether any of it may be seen along the ray: what hides it is not considered.
    bool mayShowTraffic(const Ray& ray) const;

  private:
    struct Block {
        enum class Kind { kPillar, kBeam, kLamp, kPipe, kDuct } kind;
        double foot;  // height of its lower face
        Convex shape;
        Sphere bounds;
    };
    void addBlock(Block::Kind kind, Vec3 low, Vec3 high);
    void meetBlocks(const Ray& ray, Sight& sight) const;
    void meetTraffic(const Ray& ray, Sight& sight) const;
    double floorLight(Vec3 point) const;

    std::vector<Block> _blocks;
    std::vector<Car> _parked;
    std::vector<Car> _moving;
    std::vector<Walker> _walkers;
};

}  // namespace fovix_host
