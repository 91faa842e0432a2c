#pragma once

/// Logical dots per inch of the primary screen over 96. 1 while there is no GUI application or no screen.
double screenScale();

/// A pixel size of the user interface at the scale of the primary screen, cut to whole pixels.
/// The scale is taken at the first call that finds a screen and kept from then on, as nothing is rescaled while
/// running.
int dpiScaled(int size);
