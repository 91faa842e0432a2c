#include "shell/docks/kmanimationwidget.h"

#include "core/KMDpi.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/KMBoneKeys.h"
#include "shell/KMPlayback.h"
#include "shell/KMTransport.h"
#include "shell/widgets/KMBezierControl.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

kmanimationwidget::kmanimationwidget(KMPlayback *playback, QWidget *parent)
    : KMDockWidget(QStringLiteral("kmanimationwidget"), tr("Animation"), QStringLiteral("animation"), parent)
    , m_transport(new KMTransport(playback))
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(m_transport);
    m_title = new QLabel;
    m_title->setObjectName(QStringLiteral("keyTitle"));
    layout->addWidget(m_title);
    addCurves(layout, playback);
    addButtons(layout);
    layout->addStretch(1);
    setWidget(page);
    connect(gProject, &KMProject::frameChanged, this, &kmanimationwidget::showKey);
    showKey();
}

void kmanimationwidget::addCurves(QVBoxLayout *layout, KMPlayback *playback)
{
    const std::array<QString, KMBoneKey::CurveCount> titles{QStringLiteral("X"), QStringLiteral("Y"),
                                                            QStringLiteral("Z"), tr("Rotation")};
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(dpiScaled(4));
    for (int i = 0; i < KMBoneKey::CurveCount; ++i) {
        auto *curve = new KMBezierControl;
        curve->setObjectName(QStringLiteral("curve%1").arg(i));
        auto *title = new QLabel(titles[size_t(i)]);
        title->setAlignment(Qt::AlignCenter);
        grid->addWidget(title, 0, i);
        grid->addWidget(curve, 1, i);
        connect(curve, &KMBezierControl::committed, this,
                [this, i](const CBezier &bent) { setCurve(KMBoneKey::Curve(i), bent); });
        // What is dragged belongs to the key of one frame.
        connect(curve, &KMBezierControl::pressed, playback, &KMPlayback::stop);
        connect(gProject, &KMProject::frameChanged, curve, &KMBezierControl::cancel);
        m_curves[size_t(i)] = curve;
    }
    layout->addLayout(grid);
}

void kmanimationwidget::addButtons(QVBoxLayout *layout)
{
    auto *row = new QHBoxLayout;
    m_set = new QPushButton(tr("Set Key"));
    m_set->setObjectName(QStringLiteral("setKey"));
    m_set->setStatusTip(tr("Keep the pose of the current bone as its key at this frame"));
    m_remove = new QPushButton(tr("Remove Key"));
    m_remove->setObjectName(QStringLiteral("removeKey"));
    m_remove->setStatusTip(tr("Take away the key that the current bone has at this frame"));
    connect(m_set, &QPushButton::clicked, this, &kmanimationwidget::setKey);
    connect(m_remove, &QPushButton::clicked, this, &kmanimationwidget::removeKey);
    row->addWidget(m_set);
    row->addWidget(m_remove);
    layout->addLayout(row);
}

KMBone *kmanimationwidget::bone() const
{
    KMNode *node = gSolution->currentBone();
    return node ? nodeAs<KMBone>(node) : nullptr;
}

bool kmanimationwidget::isEditable() const
{
    const KMBone *bone = this->bone();
    return bone && KMBoneKeys::fault(*bone).isEmpty();
}

const KMBoneKey *kmanimationwidget::key() const
{
    const KMBone *bone = this->bone();
    if (!bone || bone->container()->bone(bone->name()) != bone)
        return nullptr;
    return bone->container()->animation()->key(bone->name(), quint32(gProject->currentFrame()));
}

void kmanimationwidget::refresh()
{
    if (!gProject || gProject->isDestroying())
        return;
    m_transport->refresh();
    showKey();
}

void kmanimationwidget::resetDocument()
{
    refresh();
}

void kmanimationwidget::showKey()
{
    const KMBone *bone = this->bone();
    const KMBoneKey *key = this->key();
    if (bone != m_shownBone || gProject->currentFrame() != m_shownFrame) {
        for (KMBezierControl *curve : m_curves)
            curve->cancel(); // a drag that runs on would end in the key of another bone
    }
    m_shownBone = bone;
    m_shownFrame = gProject->currentFrame();
    const QString frame = QString::number(m_shownFrame);
    const QString fault = bone ? KMBoneKeys::fault(*bone) : QString();
    m_title->setText(!bone              ? tr("No bone is selected")
                     : key              ? tr("Key of %1 at frame %2").arg(bone->name(), frame)
                     : !fault.isEmpty() ? fault
                                        : tr("%1 has no key at frame %2").arg(bone->name(), frame));
    for (int i = 0; i < KMBoneKey::CurveCount; ++i) {
        KMBezierControl *curve = m_curves[size_t(i)];
        curve->setEnabled(key && fault.isEmpty());
        curve->showCurve(key ? key->curve(KMBoneKey::Curve(i)) : CBezier());
    }
    m_set->setEnabled(bone && fault.isEmpty());
    m_remove->setEnabled(key && fault.isEmpty());
}

void kmanimationwidget::setCurve(KMBoneKey::Curve which, const CBezier &curve)
{
    if (!key() || !isEditable())
        return showKey();
    KMBoneKey bent = *key();
    bent.setCurve(which, curve);
    gSolution->push(new addBoneKeyCommand(bone()->container(), bent));
}

/// The pose that keys or a tool gave the bone. A key that is there keeps its curves.
void kmanimationwidget::setKey()
{
    if (!isEditable())
        return showKey();
    const KMBone *bone = this->bone();
    KMBoneKey after = KMBoneKeys::ofPose(*bone, quint32(gProject->currentFrame()));
    if (const KMBoneKey *before = key()) {
        after.curves = before->curves;
        after.reserved = before->reserved;
    }
    gSolution->push(new addBoneKeyCommand(bone->container(), after));
}

void kmanimationwidget::removeKey()
{
    if (!isEditable())
        return showKey();
    const KMBone *bone = this->bone();
    gSolution->push(new removeBoneKeyCommand(bone->container(), bone->name(), quint32(gProject->currentFrame())));
}
