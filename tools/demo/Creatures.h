#pragma once

#include "Archives.h"
#include "DemoPalette.h"

#include <vector>

namespace morvane::demo {

/// What a creature's body is.
enum class Body { Walker, Robed, Spider, Ghost, Bat, Slime, Eye, Beast, Serpent, Plant, Robot };

/// What a walking creature's head is.
enum class Head { Bare, Goblin, Helmet, Skull, Hood, Horned, Lizard, Idol, Pointed, Furry };

/// What it carries.
enum class Weapon { None, Sword, Axe, Staff, Club, Gun };

/// One kind of creature.
struct Creature {
    Body Kind;
    Head Top;
    Weapon Arm;
    Ramp Skin;
    Ramp Cloth;
    int Bulk;   ///< percent
    int Height; ///< pixels of a standing frame
};

/// Its frames: four steps, two of attack, one hit, three of dying.
std::vector<encode::Image> MakeCreature(const Creature& creature);

} // namespace morvane::demo
