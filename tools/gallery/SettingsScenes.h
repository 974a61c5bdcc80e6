#pragma once

#include "tools/gallery/Scene.h"

#include <vector>

namespace quorvantel::gallery {

/// The settings window: every section in both schemes, and the states of the hotkey recorder.
std::vector<Scene> settingsScenes();

} // namespace quorvantel::gallery
