#pragma once

#include "Archives.h"
#include "DemoPalette.h"

#include <vector>

namespace morvane::demo {

using Images = std::vector<encode::Image>;

// The things that lie and stand about, on the sprites' background, one group of images each.

Images MakeBarrels(Ramp body, Ramp hoops);
Images MakeChests(Ramp body, Ramp bands);
Images MakeTorches(Ramp flame);
Images MakeTables(Ramp wood);
Images MakeKeys();
Images MakePotions();
Images MakeGems();
Images MakeBlades();
Images MakeCrates(Ramp wood);
Images MakePillars(Ramp stone);
Images MakeTrees(Ramp leaves, Ramp trunk);
Images MakeBooks();
Images MakeCandles();
Images MakeTreasures();
Images MakeBones();
Images MakeStatues(Ramp stone);
Images MakeMushrooms(Ramp cap);
Images MakeCrystals(Ramp ramp);
Images MakeMachines(Ramp body, Ramp lamp);
Images MakeUrns(Ramp clay);
/// A missile in flight, four frames.
Images MakeMissiles(Ramp ramp);
/// A burst from small to large and fading, six frames.
Images MakeBursts(Ramp ramp);
/// The player's hand: at rest, raised, struck.
Images MakeHands(Ramp sleeve, Ramp blade);

} // namespace morvane::demo
