#pragma once

#include "tools/gallery/Scene.h"

#include <vector>

namespace quorvantel::gallery {

/// All symbols side by side, in the sizes and on the tiles in which the launcher shows them.
std::vector<Scene> symbolScenes();

} // namespace quorvantel::gallery
