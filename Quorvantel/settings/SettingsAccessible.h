#pragma once

namespace quorvantel {

/// Has assistive technology take the settings window for a window, its panes and segmented controls
/// for groups, and the text about what is wrong for an alert. Harmless when called again.
void installSettingsAccessible();

} // namespace quorvantel
