#pragma once

#include <QSize>

/// Measures how fast this machine draws: a scene of known size, apart from the user's document, turns once before a
/// camera.
namespace KMBenchMark {

struct Result
{
    int frames = 0; ///< 0 where there is no OpenGL
    double milliseconds = 0.0;
    int faces = 0; ///< of the scene
    QSize size;    ///< of a frame, pixels
};

/// A whole turn, or as much of it as a few seconds give. The first frame, which fills the buffers, doesn't count.
Result run();

} // namespace KMBenchMark
