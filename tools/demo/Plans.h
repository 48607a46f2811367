#pragma once

#include "Level.h"

namespace morvane::demo {

/// How a level is laid out.
enum class Plan { Keep, Cavern, Fortress, Maze, Arena, Court };

/// Carves a plan into a level that is all rock.
void Carve(Level& level, Plan plan);

} // namespace morvane::demo
