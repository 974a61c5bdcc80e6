#pragma once

#include "tools/gallery/Scene.h"

#include <vector>

namespace quorvantel::gallery {

/// The launcher panel in all its states, looks and scripts.
std::vector<Scene> panelScenes();

} // namespace quorvantel::gallery
