#pragma once

namespace kvi {

class Application;
class Screen;

// The last act of every screen's load. A scheme of 1 to 7 gives the screen its background, and its
// colours to every control that is black or white by design; any other scheme leaves the screen as
// designed. Sets HighlightColor, the resting colour of labels.
void ApplyColorScheme(Application& app, Screen& form);

}  // namespace kvi
