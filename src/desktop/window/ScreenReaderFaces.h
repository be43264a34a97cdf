#pragma once

namespace kvi {

// Tells screen readers of our widgets what the toolkit's own account leaves out: windows as windows,
// action labels as buttons, frames by their titles, combos by their labels. Once a process, before
// the first window.
void InstallScreenReaderFaces();

}  // namespace kvi
