#pragma once

class kmmainwidget;

/// Where the window, its docks and tool bars stand, in "geometry.ini".
namespace KMWindowState {

void save(const kmmainwidget &window);
bool restore(kmmainwidget &window); ///< false, and nothing changed, when there is no file

} // namespace KMWindowState
