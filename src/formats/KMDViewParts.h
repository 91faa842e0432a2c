#pragma once

#include "math/Vector3.h"

#include <QImage>
#include <QString>
#include <QVector>

#include <array>

/// A camera as the native file tells it; angles are degrees.
struct KMDCamera
{
    int kind = 0; ///< by which it is found
    QString name;
    float width = 0.0f; ///< of its view, pixels
    float height = 0.0f;
    bool ortho = false;
    float fov = 0.0f;
    kvm::Vector3 pan;
    kvm::Vector3 pivot;
    kvm::Vector3 angles; ///< pitch, yaw, roll
    float distance = 0.0f;
    bool flipped = false;
    kvm::Vector3 pivotShift;
    float orthoZoom = 1.0f;
    std::array<bool, 5> options{}; ///< show vertices, edges, faces, front only, grid
};

/// The settings of one of the seven views.
struct KMDViewSettings
{
    int camera = 0;
    bool flag = false;
    int mode = 0;
    float value = 0.0f;
};

/// What a native file keeps of the cameras and the views, which stand above the formats. Whoever owns them
/// sets one with KMNativeFormat::setViewParts; without one a file holds none, and those of a file are dropped.
class KMDViewParts
{
public:
    virtual ~KMDViewParts() = default;

    virtual QVector<KMDCamera> cameras() const = 0;
    virtual void takeCamera(const KMDCamera &camera) = 0; ///< values as they stand in the file, finite but unchecked
    virtual QVector<KMDViewSettings> viewSettings() const = 0;
    virtual void takeViewSettings(const QVector<KMDViewSettings> &settings) = 0; ///< any number of them
    virtual QImage thumbnail() const = 0; ///< a grab of the view in full size; null when there is none
};
