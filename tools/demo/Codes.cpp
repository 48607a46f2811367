#include "Codes.h"

namespace morvane::demo {

Code WallCode(int material, WallLook look) {
    return static_cast<Code>(16 + 3 * material + static_cast<int>(look));
}

} // namespace morvane::demo
