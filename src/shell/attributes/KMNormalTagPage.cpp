#include "shell/attributes/KMNormalTagPage.h"

#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"

#include <QLabel>

#include <algorithm>

namespace {

int cornersOf(const KMTagNormal &tag, KMNormalFace::Mode mode)
{
    int count = 0;
    for (const KMNormalFace &record : tag.faceNormals()) {
        const KMFace *face = tag.mesh() ? tag.mesh()->face(record.face) : nullptr;
        if (face && face->isPolygon())
            count += int(std::count(record.mode, record.mode + face->count, mode));
    }
    return count;
}

} // namespace

KMNormalTagPage::KMNormalTagPage(KMTagNormal *tag)
    : KMTagPage(tag)
    , m_tag(tag)
{
    addHeading(tr("NormalTag"));
    m_creases = addCount(tr("Crease edges"), QStringLiteral("creases"));
    m_fixed = addCount(tr("Fixed normals"), QStringLiteral("fixed"));
    m_rotated = addCount(tr("Rotated normals"), QStringLiteral("rotated"));
}

QLabel *KMNormalTagPage::addCount(const QString &label, const QString &objectName)
{
    auto *count = new QLabel;
    addRow(label, count, objectName);
    return count;
}

void KMNormalTagPage::refresh()
{
    KMTagPage::refresh();
    m_creases->setText(QString::number(m_tag->creasesOfMesh().size()));
    m_fixed->setText(QString::number(cornersOf(*m_tag, KMNormalFace::Fixed)));
    m_rotated->setText(QString::number(cornersOf(*m_tag, KMNormalFace::Rotated)));
}
