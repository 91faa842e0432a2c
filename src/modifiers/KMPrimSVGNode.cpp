#include "modifiers/KMPrimSVGNode.h"

#include "core/KMNodeType.h"
#include "modifiers/KMPathExtruder.h"
#include "modifiers/KMSvgReader.h"

#include <QDebug>
#include <QFileInfo>

KMPrimSVGNode::KMPrimSVGNode()
{
    setType(KMNodeType::PrimSVG);
    setName(tr("SVG"));
    rebuild();
}

/// The file is read again only when it is another one or was changed, not at each step of a move.
const KMPathMesh &KMPrimSVGNode::areaOf(const QString &path)
{
    const QDateTime time = QFileInfo(path).lastModified();
    if (path == m_areaPath && time == m_areaTime)
        return m_area;
    m_areaPath = path;
    m_areaTime = time;
    KMSvgReader reader;
    if (!path.isEmpty() && !reader.readFile(path))
        report(tr("%1 can't be read: %2").arg(path, reader.error()));
    const QStringList warnings = reader.warnings();
    for (const QString &warning : warnings)
        qDebug().noquote() << path << warning;
    m_area = reader.area();
    return m_area;
}

void KMPrimSVGNode::generate(const KMPrimSVG &parameters, KMPrimitiveBuilder &builder)
{
    KMPathExtruder::extrude(areaOf(parameters.path), 0.0f, 1, builder);
}
