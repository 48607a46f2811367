#include "DemoMaps.h"

#include "Archives.h"
#include "Codes.h"
#include "Level.h"
#include "Plans.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace morvane::demo {

namespace {

using enum Plan;

// The levels of each episode in their order.
constexpr std::array<std::array<Plan, 7>, 3> Levels{{
    {Keep, Fortress, Cavern, Maze, Court, Arena, Keep},
    {Court, Keep, Cavern, Arena, Maze, Fortress, Cavern},
    {Fortress, Maze, Keep, Arena, Cavern, Court, Keep},
}};

encode::Map MakeLevel(int episode, int number, Plan plan) {
    Level level(static_cast<std::uint32_t>(100 * episode + number), (number + episode) % MaterialCount,
                number % 2 == 0 ? StoneFloor : FlagFloor);
    Carve(level, plan);
    level.Furnish(number);
    return level.ToMap();
}

} // namespace

encode::ByteVector MakeMapArchive(int episode) {
    std::vector<encode::Map> maps;
    for (const Plan plan : Levels.at(static_cast<std::size_t>(episode) - 1))
        maps.push_back(MakeLevel(episode, static_cast<int>(maps.size()), plan));
    constexpr std::string_view author = "Morvane levels";
    const encode::ByteVector unused(author.begin(), author.end());
    return encode::EncodeMapArchive(maps, unused);
}

} // namespace morvane::demo
