#pragma once

#include "formats/KMDViewParts.h"

#include <QObject>

#include <functional>

class KMCameraNode;
class KMNativeFormat;

/// The five cameras of the project and the settings of the seven views, as the native file keeps them. Made once
/// for a session, with or without a window, after the project; another document finds the cameras as new.
/// The project owns the cameras.
class KMCameraSet : public QObject, public KMDViewParts
{
    Q_OBJECT
public:
    static constexpr int ViewCount = 7;

    explicit KMCameraSet(KMNativeFormat *format, QObject *parent = nullptr);
    ~KMCameraSet() override;

    static KMCameraNode *camera(int kind);  ///< of the project; null for an unknown kind or without a set
    static int cameraOfView(int viewIndex); ///< the kind of camera that a view looks through, 0 outside the seven

    using Grab = std::function<QImage()>;
    void setThumbnailSource(const Grab &grab) { m_grab = grab; }

    QVector<KMDCamera> cameras() const override;
    void takeCamera(const KMDCamera &camera) override;
    QVector<KMDViewSettings> viewSettings() const override { return m_views; }
    void takeViewSettings(const QVector<KMDViewSettings> &settings) override;
    QImage thumbnail() const override { return m_grab ? m_grab() : QImage(); }

private:
    void reset();

    KMNativeFormat *m_format;
    QVector<KMDViewSettings> m_views;
    Grab m_grab;
};
