#pragma once

#include "rig/KMBoneKey.h"
#include "shell/docks/KMDockWidget.h"

#include <array>

class KMBezierControl;
class KMBone;
class KMPlayback;
class KMTransport;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// The current frame, and the key that the current bone has there: how the bone goes on to its next key.
class kmanimationwidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmanimationwidget(KMPlayback *playback, QWidget *parent = nullptr);

    void refresh() override;
    void resetDocument() override;

private:
    void addCurves(QVBoxLayout *layout, KMPlayback *playback);
    void addButtons(QVBoxLayout *layout);
    void showKey();
    KMBone *bone() const;
    bool isEditable() const;      ///< there is a bone whose keys may be edited
    const KMBoneKey *key() const; ///< null without one at the current frame, and where another bone has them
    void setCurve(KMBoneKey::Curve which, const CBezier &curve);
    void setKey();
    void removeKey();

    KMTransport *m_transport;
    QLabel *m_title = nullptr;
    std::array<KMBezierControl *, KMBoneKey::CurveCount> m_curves{};
    const KMBone *m_shownBone = nullptr; // compared, never used
    int m_shownFrame = -1;
    QPushButton *m_set = nullptr;
    QPushButton *m_remove = nullptr;
};
