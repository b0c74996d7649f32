// The world of the sample: a car park with marked bays, pillars, beams, doors, landmarks, parked and moving
// cars and a pedestrian. Returns the colour that a ray hits.
#pragma once

#include <vector>

#include "sample/Traffic.h"

namespace fovix_host {

class CarPark {
  public:
    CarPark();

    // Shows the hall with the moving traffic of a frame, or without it.
    void showTraffic(int frame);
    void hideTraffic();

    // The colour seen along a ray that starts inside the hall, with components from 0 to 255.
    Vec3 look(const Ray& ray) const;

    // Bounds of everything that moves in this frame, with shadows.
    std::vector<Sphere> movingParts() const;
    // Returns true if the ray hits moving traffic or its shadow, hidden or not.
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
