#pragma once

#include "tools/gallery/Scene.h"

#include <vector>

namespace quorvantel::gallery {

/// The help window in both schemes: a topic as it opens, and a word searched for.
std::vector<Scene> helpScenes();

} // namespace quorvantel::gallery
