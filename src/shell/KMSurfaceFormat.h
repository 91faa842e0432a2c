#pragma once

#include <QSurfaceFormat>

struct KMSettingsValues;

/// The format of all OpenGL surfaces by the settings GL/Core, GL/Samples and GL/SwapInterval.
QSurfaceFormat surfaceFormatFor(const KMSettingsValues &settings);

/// Makes a format the default of all surfaces and gives it to the context that they all share objects with.
/// Nothing may have been made in that context before.
void useSurfaceFormat(const QSurfaceFormat &format);
