#include "support/ViewWindow.h"

#include <cmath>

Pose poseOf(const KMCameraNode &camera)
{
    return {camera.pitch(),     camera.yaw(),          camera.fov(), camera.distance(),
            camera.orthoZoom(), camera.pan().length(), camera.roll()};
}

QString changes(const Pose &before, const Pose &after)
{
    static const char *const names[] = {"pitch", "yaw", "fov", "distance", "zoom", "pan", "roll"};
    QStringList changed;
    for (size_t i = 0; i < before.size(); ++i) {
        if (std::fabs(before[i] - after[i]) > 1e-3f)
            changed << QLatin1String(names[i]);
    }
    return changed.join(QLatin1Char(' '));
}
