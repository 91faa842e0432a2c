#pragma once

#include "formats/KMDViewParts.h"

#include <QByteArray>
#include <QHash>

/// Cameras, views and thumbnail of the open file where nobody shows them, so that a save without a window doesn't
/// lose them.
class KMDKeptViews : public KMDViewParts
{
public:
    QVector<KMDCamera> cameras() const override { return m_cameras; }
    void takeCamera(const KMDCamera &camera) override; ///< goes before one of the same kind
    QVector<KMDViewSettings> viewSettings() const override { return m_views; }
    void takeViewSettings(const QVector<KMDViewSettings> &settings) override { m_views = settings; }
    QImage thumbnail() const override { return {}; }

    QByteArray picture; ///< the thumbnail, as a PNG that nobody has unpacked

private:
    QVector<KMDCamera> m_cameras;
    QHash<int, int> m_places; // in the list, by kind
    QVector<KMDViewSettings> m_views;
};
