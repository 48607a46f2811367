#pragma once

#include "Canvas.h"
#include "DemoPalette.h"

namespace morvane::demo {

// What hangs on or stands in a wall. Each is drawn onto a wall texture of 64 x 64 pixels.

/// A burning torch in its bracket; the flame differs from frame to frame.
void AddTorch(Canvas& wall, int frame, Ramp flame);
/// A banner that waves a little from frame to frame, with one of three emblems.
void AddBanner(Canvas& wall, Ramp cloth, int emblem, int frame);
/// A barred window with the sky behind it.
void AddWindow(Canvas& wall, Ramp sky);
/// A shield over two crossed swords.
void AddShield(Canvas& wall, Ramp field);
/// A picture in a golden frame: 0 mountains, 1 a portrait, 2 a ship at night.
void AddPainting(Canvas& wall, int picture);
/// Shelves full of books.
void AddBookcase(Canvas& wall, Ramp wood);
/// A lever in a plate, up or down.
void AddLever(Canvas& wall, bool down);
/// A carved face that spits water or slime.
void AddFountainFace(Canvas& wall, Ramp stone, Ramp water, int frame);
/// A lit panel of lamps and dials.
void AddConsole(Canvas& wall, Ramp screen, int frame);
/// Glowing runes.
void AddRunes(Canvas& wall, Ramp glow, int frame);

/// How a door is made.
enum class DoorKind { Boards, Bars, Plates, Arch, Sliding };

/// A closed door of 64 x 64 pixels with its lock in a colour of its own.
Canvas MakeDoor(DoorKind kind, Ramp leaf, Ramp fittings, int lock);
/// The door of that kind, opened by steps of 0 (closed) to 4 (open) upwards.
Canvas OpenedDoor(const Canvas& door, int step);

} // namespace morvane::demo
